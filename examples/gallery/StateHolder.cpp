#include "StateHolder.h"

#include "Kit.h"

#include <Velmora/PostOwnedTask.h>

#include <QAbstractButton>
#include <QApplication>
#include <QEnterEvent>
#include <QGridLayout>
#include <QMouseEvent>
#include <QStyle>

namespace Gallery {

QGridLayout *MakeStateGrid()
{
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(kGrid);
    grid->setVerticalSpacing(kGrid);
    grid->addWidget(MakeLabel(QStringLiteral("Unchecked"), QcLabel::CaptionSmall), 0, 1, 1, 4, Qt::AlignCenter);
    grid->addWidget(MakeLabel(QStringLiteral("Checked"), QcLabel::CaptionSmall), 0, 5, 1, 4, Qt::AlignCenter);
    for (int column = 0; column < 8; ++column) {
        grid->addWidget(MakeLabel(QLatin1String(kButtonStateNames[column]), QcLabel::BodySecondary), 1, column + 1, Qt::AlignCenter);
        grid->setColumnStretch(column + 1, 1);
    }
    grid->addWidget(MakeDivider(), 2, 0, 1, 9);
    return grid;
}

void StateHolder::Add(QAbstractButton *button, int state)
{
    MakeSpecimen(button);
    button->setCheckable(true);
    button->setChecked(state & QStyle::State_Selected);
    button->setEnabled(state & QStyle::State_Enabled);
    m_held.append({button, state});
    Hold(button, state);
}

void StateHolder::Start()
{
    HoldAll();
    qApp->installEventFilter(this);
}

void StateHolder::Stop()
{
    qApp->removeEventFilter(this);
}

void StateHolder::HoldAll()
{
    m_queued = false;
    for (const Held &held : qAsConst(m_held))
        Hold(held.button, held.state);
}

bool StateHolder::eventFilter(QObject *watched, QEvent *event)
{
    const bool resets = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::ApplicationDeactivate;
    if (resets && !m_queued) {
        m_queued = true;
        Velmora::PostOwnedTask(
            this, [this] { HoldAll(); }, "StateHolder::HoldAll");
    }
    return QObject::eventFilter(watched, event);
}

void StateHolder::Hold(QObject *button, int state)
{
    if (state & QStyle::State_MouseOver) {
        QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
        button->event(&enter);
    }
    if (state & QStyle::State_Sunken) {
        // The right button: it looks pressed all the same and clicks nothing.
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 1), QCursor::pos(), Qt::RightButton, Qt::RightButton, Qt::NoModifier);
        button->event(&press);
    }
}

StatesPage::StatesPage()
    : m_holder(new StateHolder(this))
{
}

void StatesPage::showEvent(QShowEvent *event)
{
    PageWidget::showEvent(event);
    m_holder->Start();
}

void StatesPage::hideEvent(QHideEvent *event)
{
    m_holder->Stop();
    PageWidget::hideEvent(event);
}

} // namespace Gallery
