#include <Velmora/QcIconButton.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcWindow.h>

#include "windows/QcWindowHandler_p.h"
#include "windows/WindowParts_p.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QVBoxLayout>

namespace Velmora {

namespace {

constexpr int kTitleLeftMargin = 12;
constexpr const char *kTranslationContext = "QcWindow";

} // namespace

struct Ui_QcWindow
{
    QVBoxLayout *verticalLayout;
    QcFrame *m_titleFrame;
    QHBoxLayout *horizontalLayout;
    QcLabel *m_titleLabel;
    QSpacerItem *horizontalSpacer;
    QcIconButton *m_minButton;
    QcIconButton *m_maxRestoreButton;
    QcIconButton *m_closeButton;
    QFrame *m_contentFrame;
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
    connect(ui->m_closeButton, &QAbstractButton::clicked, this, &QcWindow::onCloseButtonClicked);
    ui->m_titleFrame->installEventFilter(this);

    m_windowHandler = new QcWindowHandler(this);
    m_windowHandler->setWidget(this);
    m_windowHandler->setTitleBar(ui->m_titleFrame);
    m_windowHandler->setBorderWidth(0);
}

QcWindow::~QcWindow()
{
    delete ui;
}

void QcWindow::SetUpForm()
{
    setObjectName(QStringLiteral("QcWindow"));
    resize(600, 400);
    setWindowTitle(QCoreApplication::translate(kTranslationContext, "window"));

    const TitleRow row = MakeTitleRow(*this, kTranslationContext, kTitleLeftMargin, QStringLiteral("m_maxRestoreButton"));
    row.maxButton->setCheckable(true);
    QFrame *content = MakeContentFrame(*this);

    auto *column = new QVBoxLayout(this);
    column->setObjectName(QStringLiteral("verticalLayout"));
    column->setSpacing(0);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(row.frame);
    column->addWidget(content);

    *ui = {column, row.frame, row.layout, row.title, row.spacer, row.minButton, row.maxButton, row.closeButton, content};
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
    if (ui->m_maxRestoreButton->isChecked())
        showMaximized();
    else
        showNormal();
}

void QcWindow::onCloseButtonClicked()
{
    close();
}

bool QcWindow::eventFilter(QObject *watched, QEvent *event)
{
    // By way of the button, which thereby keeps in step.
    if (watched == ui->m_titleFrame && event->type() == QEvent::MouseButtonDblClick)
        ui->m_maxRestoreButton->setChecked(!ui->m_maxRestoreButton->isChecked());
    return QObject::eventFilter(watched, event);
}

void QcWindow::closeEvent(QCloseEvent *event)
{
    Q_EMIT signalClose();
    QWidget::closeEvent(event);
}

} // namespace Velmora
