#include <Velmora/QcMultiLineText.h>

#include "core/InstallAccessible_p.h"
#include "display/MultiLineTextAccessible_p.h"

#include <QAccessibleWidget>
#include <QTextDocumentFragment>
#include <QVariant>

namespace Velmora {

namespace {

class MultiLineTextAccessible : public QAccessibleWidget
{
public:
    explicit MultiLineTextAccessible(QcMultiLineText *widget)
        : QAccessibleWidget(widget, QAccessible::StaticText)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        if (kind != QAccessible::Name || !widget()->accessibleName().isEmpty())
            return QAccessibleWidget::text(kind);
        return QTextDocumentFragment::fromHtml(widget()->property("text").toString()).toPlainText();
    }
};

} // namespace

void InstallTextAccessibility()
{
    InstallAccessible<MultiLineTextAccessible, QcMultiLineText>();
}

} // namespace Velmora
