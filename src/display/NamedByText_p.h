#pragma once

#include <Velmora/QcMultiLineText.h>

#include <QAccessibleWidget>

namespace Velmora {

/// A widget whose name is the text of the QcMultiLineText inside it. A name set by the host comes first.
class NamedByText : public QAccessibleWidget
{
public:
    using QAccessibleWidget::QAccessibleWidget;

    QString text(QAccessible::Text kind) const override
    {
        auto *content = widget()->findChild<QcMultiLineText *>();
        if (kind != QAccessible::Name || !widget()->accessibleName().isEmpty() || !content)
            return QAccessibleWidget::text(kind);
        return QAccessible::queryAccessibleInterface(content)->text(kind);
    }
};

} // namespace Velmora
