#pragma once

#include <Velmora/KeyboardCues.h>

#include <QApplication>
#include <QProxyStyle>

namespace VelmoraTest {

/// Keyboard cues for as long as this lives.
class Cues
{
public:
    Cues() { Velmora::SetKeyboardCuesEnabled(true); }
    ~Cues() { Velmora::SetKeyboardCuesEnabled(false); }
    Cues(const Cues &) = delete;
    Cues &operator=(const Cues &) = delete;
};

/// A style as of platforms that underline the letters of keys only while the user reaches for Alt.
class QuietStyle : public QProxyStyle
{
public:
    QuietStyle()
        : QProxyStyle(QStringLiteral("fusion"))
    {
    }

    /// From now on that of the application.
    static QuietStyle *Install()
    {
        auto *style = new QuietStyle; // owned by the application
        QApplication::setStyle(style);
        return style;
    }

    int styleHint(StyleHint hint, const QStyleOption *option = nullptr, const QWidget *widget = nullptr,
                  QStyleHintReturn *returnData = nullptr) const override
    {
        return hint == SH_UnderlineShortcut ? int(underlines) : QProxyStyle::styleHint(hint, option, widget, returnData);
    }

    bool underlines = false;
};

} // namespace VelmoraTest
