#include "inputs/LineEditAccessible_p.h"

#include <Velmora/QcArrowTip.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcLineEdit.h>
#include <Velmora/QcLineEditFrame.h>
#include <Velmora/QcSelector.h>

#include "core/InstallAccessible_p.h"
#include "inputs/FramedEditAccessible_p.h"
#include "inputs/LineText_p.h"

namespace Velmora {

namespace {

/// An editable line.
class LineEditAccessible : public FramedEditAccessible, public LineText
{
public:
    explicit LineEditAccessible(QLineEdit *edit)
        : FramedEditAccessible(edit)
    {
        addControllingSignal(QStringLiteral("textChanged(const QString&)"));
        addControllingSignal(QStringLiteral("returnPressed()"));
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        void *text = TextInterface(type);
        return text ? text : QAccessibleWidget::interface_cast(type);
    }

    using LineText::text;
    QString text(QAccessible::Text kind) const override
    {
        switch (kind) {
        case QAccessible::Name:
            return NameOr(Edit()->placeholderText());
        case QAccessible::Description:
            return Description();
        case QAccessible::Value:
            return ReadableText();
        default:
            return QAccessibleWidget::text(kind);
        }
    }

    void setText(QAccessible::Text kind, const QString &text) override
    {
        if (kind == QAccessible::Value)
            SetWholeText(text);
        else
            QAccessibleWidget::setText(kind, text);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.editable = true;
        state.selectableText = true;
        state.readOnly = Edit()->isReadOnly();
        state.passwordEdit = Edit()->echoMode() != QLineEdit::Normal;
        state.selected = Edit()->hasSelectedText();
        state.hasPopup = Edit()->contextMenuPolicy() != Qt::NoContextMenu && Edit()->contextMenuPolicy() != Qt::PreventContextMenu;
        return state;
    }

private:
    QLineEdit *Edit() const override { return static_cast<QLineEdit *>(widget()); }
    QWidget *Frame() const override
    {
        return qobject_cast<QcSelector *>(Edit()->parentWidget()) ? Edit()->parentWidget() : LineEditFrame();
    }
    QcLineEditFrame *LineEditFrame() const { return qobject_cast<QcLineEditFrame *>(Edit()->parentWidget()); }

    /// The unit first, since it belongs to the value just read; then the warning, which is more urgent than any other description.
    QString Description() const
    {
        const QString warning = Warning();
        QStringList parts{Unit(), warning.isEmpty() ? OwnOrFrames(QAccessible::Description) : warning};
        parts.removeAll(QString());
        return parts.join(QStringLiteral(", "));
    }

    /// The unit shown behind the text.
    QString Unit() const
    {
        const auto *label = LineEditFrame() ? LineEditFrame()->findChild<QcLabel *>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
        return label && !label->isHidden() ? label->text() : QString();
    }

    /// The text of the frame's warning, if it is given.
    QString Warning() const
    {
        if (!LineEditFrame() || !LineEditFrame()->getWarning())
            return QString();
        auto *tip = LineEditFrame()->findChild<QcArrowTip *>(QString(), Qt::FindDirectChildrenOnly);
        return tip ? QAccessible::queryAccessibleInterface(tip)->text(QAccessible::Name) : QString();
    }
};

/// Qt's own line edit, where a selector shows it.
QAccessibleInterface *DescribeEditOfSelector(const QString &className, QObject *object)
{
    const bool isAsked = className == QLatin1String(QLineEdit::staticMetaObject.className());
    auto *edit = isAsked ? qobject_cast<QLineEdit *>(object) : nullptr;
    return edit && qobject_cast<QcSelector *>(edit->parentWidget()) ? new LineEditAccessible(edit) : nullptr; // owned by Qt's cache
}

} // namespace

void InstallLineEditAccessibility()
{
    InstallAccessible<LineEditAccessible, QcLineEdit>();
    InstallAccessible<GroupAccessible, QcLineEditFrame>();
}

void InstallSelectorEditAccessibility()
{
    QAccessible::installFactory(DescribeEditOfSelector);
}

} // namespace Velmora
