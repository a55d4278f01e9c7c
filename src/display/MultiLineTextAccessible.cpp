#include <Velmora/QcMultiLineText.h>

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

QAccessibleInterface *CreateTextInterface(const QString &className, QObject *object)
{
    // Qt asks once for each class of the object, the most derived first.
    auto *text = className == QLatin1String("Velmora::QcMultiLineText") ? qobject_cast<QcMultiLineText *>(object) : nullptr;
    return text ? new MultiLineTextAccessible(text) : nullptr; // owned by Qt's accessibility cache
}

} // namespace

void InstallTextAccessibility()
{
    QAccessible::installFactory(CreateTextInterface);
}

} // namespace Velmora
