#include "theme/StyleSheetAlone_p.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <private/qwidget_p.h>

#include <utility>
#include <vector>

namespace Velmora {

namespace {

struct Call
{
    QPointer<QObject> owner;
    std::function<void()> function;
};

int passes = 0; // one in another, where a host hears of a new style
std::vector<Call> calls;

/// While one lives, calls wait.
class Pass
{
public:
    Pass() { ++passes; }
    Q_DISABLE_COPY(Pass)
    ~Pass()
    {
        if (--passes > 0)
            return;
        const std::vector<Call> waiting = std::exchange(calls, {});
        for (const Call &call : waiting) {
            if (call.owner)
                call.function();
        }
    }
};

bool IsPolished(QWidget *widget)
{
    return QWidgetPrivate::get(widget)->polished != nullptr;
}

/// While it lives, the parts of a widget that were never polished seem to have no stylesheet of their own, whereupon they take over the
/// widget's style and no more.
class HiddenSheets
{
public:
    explicit HiddenSheets(QWidget *widget)
    {
        const auto parts = widget->findChildren<QWidget *>();
        for (QWidget *part : parts) {
            // One with a style of its own gets another all the same, and Qt keeps the rules that it asks of it meanwhile.
            const bool takesOverStyle = !part->testAttribute(Qt::WA_SetStyle);
            if (!part->styleSheet().isEmpty() && !IsPolished(part) && takesOverStyle)
                m_sheets.emplace_back(part, std::exchange(SheetOf(part), QString()));
        }
    }
    Q_DISABLE_COPY(HiddenSheets)
    ~HiddenSheets()
    {
        for (auto &[part, sheet] : m_sheets) {
            if (part && part->styleSheet().isEmpty()) // the host may have heard of the new style, and set another
                SheetOf(part) = std::move(sheet);
        }
    }

private:
    static QString &SheetOf(QWidget *part) { return QWidgetPrivate::get(part)->extra->styleSheet; }

    std::vector<std::pair<QPointer<QWidget>, QString>> m_sheets;
};

} // namespace

void SetStyleSheetAlone(QWidget *widget, const QString &styleSheet)
{
    const Pass pass;
    if (styleSheet.isEmpty() || IsPolished(widget)) {
        widget->setStyleSheet(styleSheet);
        return;
    }
    const HiddenSheets hidden(widget);
    widget->setStyleSheet(styleSheet);
}

bool CallWhenStyled(QObject *owner, std::function<void()> function)
{
    if (passes == 0)
        return false;
    calls.push_back({owner, std::move(function)});
    return true;
}

} // namespace Velmora
