#include "theme/StyleSheetAlone_p.h"

#include <QPointer>
#include <QString>
#include <QWidget>

#include <private/qwidget_p.h>

#include <utility>
#include <vector>

namespace Velmora {

namespace {

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
            if (!part->styleSheet().isEmpty() && !IsPolished(part))
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
    if (styleSheet.isEmpty() || IsPolished(widget)) {
        widget->setStyleSheet(styleSheet);
        return;
    }
    const HiddenSheets hidden(widget);
    widget->setStyleSheet(styleSheet);
}

} // namespace Velmora
