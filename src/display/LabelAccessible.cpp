#include "display/LabelAccessible_p.h"

#include <Velmora/QcLabel.h>

#include "theme/Mnemonics_p.h"

#include <QPicture>

namespace Velmora {

LabelAccessible::LabelAccessible(QcLabel *label)
    : QAccessibleWidget(label, QAccessible::StaticText)
{
}

QcLabel *LabelAccessible::Label() const
{
    return static_cast<QcLabel *>(widget());
}

void *LabelAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ImageInterface)
        return static_cast<QAccessibleImageInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessible::Role LabelAccessible::role() const
{
    if (!Label()->pixmap(Qt::ReturnByValue).isNull() || !Label()->picture(Qt::ReturnByValue).isNull())
        return QAccessible::Graphic;
    return Label()->movie() ? QAccessible::Animation : QAccessible::StaticText;
}

QString LabelAccessible::text(QAccessible::Text kind) const
{
    if (kind != QAccessible::Name || !Label()->accessibleName().isEmpty())
        return QAccessibleWidget::text(kind);
    return Label()->MarksKeys() ? WithoutMarks(Label()->text()) : Label()->text();
}

LabelAccessible::Relations LabelAccessible::relations(QAccessible::Relation match) const
{
    Relations relations = QAccessibleWidget::relations(match);
    QAccessibleInterface *buddy = Label()->buddy() ? QAccessible::queryAccessibleInterface(Label()->buddy()) : nullptr;
    if (buddy && (match & QAccessible::Labelled))
        relations.append(qMakePair(buddy, QAccessible::Relation(QAccessible::Labelled)));
    return relations;
}

// --- The picture that it shows in place of a text ---

QString LabelAccessible::imageDescription() const
{
    return Label()->toolTip();
}

QSize LabelAccessible::imageSize() const
{
    return Label()->pixmap(Qt::ReturnByValue).size();
}

QPoint LabelAccessible::imagePosition() const
{
    return rect().topLeft();
}

} // namespace Velmora
