#include <Velmora/QcIconButton.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcWindow.h>

#include "windows/WindowParts_p.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QPointer>

namespace Velmora {

namespace {

constexpr int kTitleLeftMargin = 12;

} // namespace

struct Ui_QcWindow
{
    QVBoxLayout *verticalLayout;
    QcFrame *m_titleFrame;
    QHBoxLayout *horizontalLayout;
    QcLabel *m_titleLabel;
    QSpacerItem *horizontalSpacer;
    QcIconButton *m_minButton;
    QPointer<QcIconButton> m_maxRestoreButton; // it follows the window, and the host may have deleted the title row by then
    QcIconButton *m_closeButton;
    QFrame *m_contentFrame;
    FrameContent content;
};

QcWindow::QcWindow(QWidget *parent)
    : QcFrame(parent)
    , ui(new Ui_QcWindow) // deleted by the destructor
{
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setBackgroundColorParams(QStringLiteral("bg/bg_box"));
    SetUpForm();
    connect(ui->m_minButton, &QAbstractButton::clicked, this, &QcWindow::onMinButtonClicked);
    connect(ui->m_maxRestoreButton, &QAbstractButton::toggled, this, &QcWindow::onMaxRestoreButtonToggled);
    // A click does something, also in the turn of the main loop in which the state has changed.
    connect(ui->m_maxRestoreButton, &QAbstractButton::pressed, this, &QcWindow::FollowWindowState);
    connect(ui->m_closeButton, &QAbstractButton::clicked, this, &QcWindow::onCloseButtonClicked);
    ui->m_titleFrame->installEventFilter(this);

    m_windowHandler = MakeHandler(*this, ui->m_titleFrame);
}

QcWindow::~QcWindow()
{
    delete ui;
}

void QcWindow::SetUpForm()
{
    BeginForm(*this, QStringLiteral("QcWindow"));
    const TitleRow row = MakeTitleRow(*this, kTitleLeftMargin, QStringLiteral("m_maxRestoreButton"));
    row.maxButton->setCheckable(true);
    m_texts = std::make_unique<FormTexts>(*this, row);
    Retranslate();
    QFrame *content = MakeContentFrame(*this);
    QVBoxLayout *column = EndForm(*this, 0, {row.frame, content});
    *ui = {column, row.frame, row.layout, row.title, row.spacer, row.minButton, row.maxButton, row.closeButton, content, {}};
}

void QcWindow::Retranslate()
{
    m_texts->PutIn({
        QCoreApplication::translate("QcWindow", "window"),
        QCoreApplication::translate("QcWindow", "TextLabel"),
        QCoreApplication::translate("QcWindow", "Minimize"),
        QCoreApplication::translate("QcWindow", "Maximize"),
        QCoreApplication::translate("QcWindow", "Close"),
    });
}

QString QcWindow::Title() const
{
    return ui->m_titleLabel->text();
}

bool QcWindow::ShowsMinButton() const
{
    return !ui->m_minButton->isHidden();
}

bool QcWindow::ShowsMaxRestoreButton() const
{
    return ui->m_maxRestoreButton && !ui->m_maxRestoreButton->isHidden();
}

bool QcWindow::ShowsCloseButton() const
{
    return !ui->m_closeButton->isHidden();
}

void QcWindow::setTitle(const QString &title)
{
    ui->m_titleLabel->setText(title);
}

void QcWindow::setMinButtonVisible(bool visible)
{
    ui->m_minButton->setVisible(visible);
}

void QcWindow::setMaxRestoreButtonVisible(bool visible)
{
    ui->m_maxRestoreButton->setVisible(visible);
}

void QcWindow::setCloseButtonVisible(bool visible)
{
    ui->m_closeButton->setVisible(visible);
}

QFrame *QcWindow::getContentFrame()
{
    return ui->m_contentFrame;
}

void QcWindow::setContentWidget(QWidget *content)
{
    ui->content.Set(*ui->m_contentFrame, content);
}

QWidget *QcWindow::getContentWidget() const
{
    return ui->content.In(*ui->m_contentFrame);
}

QFrame *QcWindow::getTitleFrame()
{
    return ui->m_titleFrame;
}

void QcWindow::showToCenter(QWidget *reference)
{
    ShowCentredOn(*this, reference);
}

void QcWindow::removeEventFilter()
{
    ui->m_titleFrame->removeEventFilter(this);
}

void QcWindow::onMinButtonClicked()
{
    showMinimized();
}

void QcWindow::onMaxRestoreButtonToggled()
{
    if (ui->m_maxRestoreButton->isChecked() == isMaximized())
        return; // the button followed the window
    if (ui->m_maxRestoreButton->isChecked())
        showMaximized();
    else
        showNormal();
}

void QcWindow::onCloseButtonClicked()
{
    close();
}

void QcWindow::FollowWindowState()
{
    if (ui->m_maxRestoreButton)
        ui->m_maxRestoreButton->setChecked(isMaximized());
}

bool QcWindow::eventFilter(QObject *watched, QEvent *event)
{
    // By way of the button, which thereby keeps in step.
    if (watched == ui->m_titleFrame && event->type() == QEvent::MouseButtonDblClick)
        ui->m_maxRestoreButton->setChecked(!ui->m_maxRestoreButton->isChecked());
    return QObject::eventFilter(watched, event);
}

void QcWindow::changeEvent(QEvent *event)
{
    QcFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
    // Later, when whoever changes the state has done with the window: the host may listen to the button.
    if (event->type() == QEvent::WindowStateChange)
        QMetaObject::invokeMethod(this, &QcWindow::FollowWindowState, Qt::QueuedConnection);
}

void QcWindow::closeEvent(QCloseEvent *event)
{
    const QPointer<QcWindow> alive(this);
    Q_EMIT signalClose();
    if (alive) // the host may have deleted it
        QWidget::closeEvent(event);
}

} // namespace Velmora
