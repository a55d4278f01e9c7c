#include <Velmora/QcIconButton.h>
#include <Velmora/QcNotification.h>
#include <Velmora/QcNotificationPage.h>
#include <Velmora/QcStyleManager.h>

#include "buttons/IconButtonOfSize_p.h"
#include "core/InstallAccessible_p.h"
#include "core/OwnText_p.h"
#include "display/Unobtrusive_p.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QSpacerItem>
#include <QVBoxLayout>

#include <utility>

namespace Velmora {

namespace {

constexpr QSize kFirstSize(522, 300);
constexpr int kWidth = 320;
constexpr int kHeight = 92;
constexpr int kHeightWithBar = 116;
constexpr int kBarHeight = 24;
constexpr int kIconSize = 16;
constexpr int kDisplayTime = 10000; // milliseconds
constexpr int kPagesMoving = 8;

class NotificationAccessible : public QAccessibleWidget
{
public:
    explicit NotificationAccessible(QcNotification *card)
        : QAccessibleWidget(card, QAccessible::AlertMessage)
    {
    }
};

/// A place that the window system and Qt's sums of places and sizes can take.
int Placeable(qint64 place)
{
    return int(qBound(qint64(-QWIDGETSIZE_MAX), place, qint64(QWIDGETSIZE_MAX)));
}

QFrame *MakeFrame(QWidget *parent, const QString &name)
{
    auto *frame = new QFrame(parent);
    frame->setObjectName(name);
    frame->setFrameShape(QFrame::StyledPanel);
    frame->setFrameShadow(QFrame::Raised);
    return frame;
}

} // namespace

struct Ui_QcNotification
{
    QVBoxLayout *verticalLayout_2;
    QWidget *widget_3;
    QHBoxLayout *horizontalLayout_2;
    QFrame *m_pageFrame;
    QFrame *frame;
    QVBoxLayout *verticalLayout;
    QcIconButton *m_closeButton;
    QFrame *m_controlBar;
    QHBoxLayout *horizontalLayout;
    QSpacerItem *horizontalSpacer;
    QcIconButton *m_firstButton;
    QcIconButton *m_previousButton;
    QLabel *m_pageLabel;
    QcIconButton *m_nextButton;
    QcIconButton *m_lastButton;
    QSpacerItem *horizontalSpacer_2;
};

struct NotificationTexts
{
    OwnText close;
    OwnText first;
    OwnText previous;
    OwnText next;
    OwnText last;
    OwnText name;
    OwnText description;
};

QcNotification::QcNotification(QWidget *parent)
    : QFrame(parent)
    , ui(new Ui_QcNotification) // deleted by the destructor
    , m_texts(std::make_unique<NotificationTexts>())
{
    InstallAccessible<NotificationAccessible, QcNotification>();
    MakeUnobtrusive(*this);
    SetUpForm();
    Retranslate();
    m_displayTimer.setSingleShot(true);
    m_displayTimer.setInterval(kDisplayTime);

    connect(ui->m_closeButton, &QAbstractButton::clicked, this, &QcNotification::onCloseButtonClicked);
    connect(ui->m_firstButton, &QAbstractButton::clicked, this, &QcNotification::onFirstPageButtonClicked);
    connect(ui->m_previousButton, &QAbstractButton::clicked, this, &QcNotification::onPrePageButtonClicked);
    connect(ui->m_nextButton, &QAbstractButton::clicked, this, &QcNotification::onNextPageButtonClicked);
    connect(ui->m_lastButton, &QAbstractButton::clicked, this, &QcNotification::onLastPageButtonClicked);
    connect(&m_displayTimer, &QTimer::timeout, this, &QcNotification::onDisplayTimerTimeout);
    ui->m_pageFrame->installEventFilter(this);
    if (parent)
        parent->installEventFilter(this); // a change of parent is not told to who is born with one
    QcStyleManager::GetInstance()->RegisterQss(this, QStringLiteral(":/qss/Notification.qss"));
}

QcNotification::~QcNotification()
{
    delete ui;
}

// --- The form ---

void QcNotification::SetUpForm()
{
    if (objectName().isEmpty())
        setObjectName(QStringLiteral("QcNotification"));
    resize(kFirstSize);
    ui->verticalLayout_2 = new QVBoxLayout(this);
    ui->verticalLayout_2->setObjectName(QStringLiteral("verticalLayout_2"));
    ui->verticalLayout_2->setSpacing(0);
    ui->verticalLayout_2->setContentsMargins(0, 0, 0, 0);

    ui->widget_3 = new QWidget(this);
    ui->widget_3->setObjectName(QStringLiteral("widget_3"));
    ui->horizontalLayout_2 = new QHBoxLayout(ui->widget_3);
    ui->horizontalLayout_2->setObjectName(QStringLiteral("horizontalLayout_2"));
    ui->horizontalLayout_2->setSpacing(8);
    ui->horizontalLayout_2->setContentsMargins(12, 10, 8, 10);
    ui->m_pageFrame = MakeFrame(ui->widget_3, QStringLiteral("m_pageFrame"));
    ui->m_pageFrame->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    ui->horizontalLayout_2->addWidget(ui->m_pageFrame);
    ui->frame = MakeFrame(ui->widget_3, QStringLiteral("frame"));
    ui->frame->setMinimumSize(0, 0);
    ui->verticalLayout = new QVBoxLayout(ui->frame);
    ui->verticalLayout->setObjectName(QStringLiteral("verticalLayout"));
    ui->verticalLayout->setSpacing(0);
    ui->verticalLayout->setContentsMargins(0, 3, 0, 0);
    ui->m_closeButton = MakeIconButton(*ui->frame, QStringLiteral("m_closeButton"), QStringLiteral(":/images/close.svg"), kIconSize);
    ui->verticalLayout->addWidget(ui->m_closeButton, 0, Qt::AlignTop);
    ui->horizontalLayout_2->addWidget(ui->frame);
    ui->verticalLayout_2->addWidget(ui->widget_3);
    SetUpControlBar();
    setFixedWidth(kWidth);
    updateHeight();
}

void QcNotification::SetUpControlBar()
{
    ui->m_controlBar = MakeFrame(this, QStringLiteral("m_controlBar"));
    ui->m_controlBar->setLayoutDirection(Qt::LeftToRight); // the pages come from where the arrows point in every language
    ui->m_controlBar->setMinimumSize(0, kBarHeight);
    ui->m_controlBar->setMaximumSize(QWIDGETSIZE_MAX, kBarHeight);
    ui->horizontalLayout = new QHBoxLayout(ui->m_controlBar);
    ui->horizontalLayout->setObjectName(QStringLiteral("horizontalLayout"));
    ui->horizontalLayout->setSpacing(10);
    ui->horizontalLayout->setContentsMargins(0, 0, 0, 0);
    const auto addButton = [this](const QString &name, const QString &iconPath) {
        QcIconButton *button = MakeIconButton(*ui->m_controlBar, name, iconPath, kIconSize);
        ui->horizontalLayout->addWidget(button);
        return button;
    };
    ui->horizontalSpacer = new QSpacerItem(40, 20, QSizePolicy::Expanding, QSizePolicy::Minimum);
    ui->horizontalLayout->addItem(ui->horizontalSpacer);
    ui->m_firstButton = addButton(QStringLiteral("m_firstButton"), QStringLiteral(":/images/first_page.svg"));
    ui->m_previousButton = addButton(QStringLiteral("m_previousButton"), QStringLiteral(":/images/pre_page.svg"));
    ui->m_pageLabel = new QLabel(ui->m_controlBar);
    ui->m_pageLabel->setObjectName(QStringLiteral("m_pageLabel"));
    ui->m_pageLabel->setAlignment(Qt::AlignCenter);
    ui->horizontalLayout->addWidget(ui->m_pageLabel);
    ui->m_nextButton = addButton(QStringLiteral("m_nextButton"), QStringLiteral(":/images/next_page.svg"));
    ui->m_lastButton = addButton(QStringLiteral("m_lastButton"), QStringLiteral(":/images/last_page.svg"));
    ui->horizontalSpacer_2 = new QSpacerItem(40, 20, QSizePolicy::Expanding, QSizePolicy::Minimum);
    ui->horizontalLayout->addItem(ui->horizontalSpacer_2);
    ui->verticalLayout_2->addWidget(ui->m_controlBar);
    ui->m_controlBar->hide();
}

void QcNotification::Retranslate()
{
    const auto name = [](OwnText &own, QWidget *button, const QString &text) {
        own.PutInto<QWidget>(*button, &QWidget::accessibleName, &QWidget::setAccessibleName, text);
    };
    name(m_texts->close, ui->m_closeButton, QCoreApplication::translate("QcNotification", "Close"));
    name(m_texts->first, ui->m_firstButton, QCoreApplication::translate("QcNotification", "First page"));
    name(m_texts->previous, ui->m_previousButton, QCoreApplication::translate("QcNotification", "Previous page"));
    name(m_texts->next, ui->m_nextButton, QCoreApplication::translate("QcNotification", "Next page"));
    name(m_texts->last, ui->m_lastButton, QCoreApplication::translate("QcNotification", "Last page"));
}

// --- Messages come and go ---

void QcNotification::showNotification(const QString &title, const QString &content, const QString &operationText,
                                      std::function<void()> &&callback, const QRect &rect)
{
    auto *page = new QcNotificationPage(ui->m_pageFrame);
    page->setFixedSize(ui->m_pageFrame->size());
    page->setTitleText(title);
    page->setContentText(content);
    page->setOperationButtonText(operationText);
    page->setOperationButtonClickCallback(std::move(callback));
    m_pages.append(page);

    // In a storm of messages most are overtaken before they are seen: only so many move at a time.
    const int overtaken = int(m_pages.size()) - 1 - kPagesMoving;
    if (overtaken >= 0 && overtaken != m_currentPage)
        m_pages.at(overtaken)->Leave();

    setCurrentPage(int(m_pages.size() - 1), SlideToLeft, isVisibleTo(parentWidget()));
    updateControlBarVisible();
    updateHeight();
    if (isHidden()) {
        move(getShowPos(rect));
        show();
        m_displayTimer.start();
    }
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void QcNotification::hideNotification()
{
    clearAndHide();
}

void QcNotification::clearAndHide()
{
    const QList<QcNotificationPage *> pages = std::exchange(m_pages, {});
    for (QcNotificationPage *page : pages)
        page->Discard();
    updateControlBarVisible();
    hide();
}

void QcNotification::ForgetPage(const QObject *child)
{
    // Compared only: the child may be no page, or no longer one.
    int index = 0;
    while (index < m_pages.size() && m_pages.at(index) != child)
        ++index;
    if (index == m_pages.size())
        return;
    m_pages.removeAt(index);
    updateControlBarVisible();
    updateHeight();
    if (m_pages.isEmpty())
        return;
    const bool wasCurrent = index == m_currentPage;
    if (index < m_currentPage)
        --m_currentPage;
    if (wasCurrent) {
        m_currentPage = -1; // nothing slides out
        const int next = qMin(index, int(m_pages.size()) - 1);
        const QPointer<QcNotificationPage> page(m_pages.at(next));
        page->move(0, 0);
        if (page)
            page->movePage(QPoint(0, 0), QcNotificationPage::FadeIn); // it had left or was leaving
        setCurrentPage(next, SlideToLeft, false);
    } else {
        updatePageButtonsEnaled();
        updatePageLabel();
    }
}

// --- Pages ---

void QcNotification::setCurrentPage(int index, PageSlideDirection direction, bool restartTimer)
{
    if (index < 0 || index >= m_pages.size())
        return; // a page button pressed by assistive technology, whose presses come late, when the pages have gone
    const QPointer<QcNotificationPage> page(m_pages.at(index));
    QcNotificationPage *old = m_pages.value(m_currentPage); // null behind the end, after a card was closed there
    m_currentPage = index;
    // Moves and shows run code of the host, who may close the card.
    const auto isCurrent = [&] { return page && m_pages.value(m_currentPage) == page; };
    if (old) {
        const int aside = direction == SlideToLeft ? old->width() : -old->width();
        old->movePage(QPoint(-aside, 0), QcNotificationPage::FadeOut);
        if (isCurrent())
            page->move(aside, 0);
        if (isCurrent())
            page->movePage(QPoint(0, 0), QcNotificationPage::FadeIn);
    } else {
        page->move(0, 0);
    }
    if (isCurrent())
        page->show();
    if (!isCurrent())
        return;
    updatePageButtonsEnaled();
    updatePageLabel();
    if (restartTimer && !m_isHovered)
        m_displayTimer.start();
}

QPoint QcNotification::getShowPos(const QRect &rect)
{
    // As QRect::isNull() tells, which overflows at the ends of the numbers.
    const bool isNull = qint64(rect.right()) - rect.left() == -1 && qint64(rect.bottom()) - rect.top() == -1;
    if (isNull && !parentWidget())
        return pos();
    const QRect corner = isNull ? parentWidget()->geometry() : rect;
    return QPoint(Placeable(qint64(corner.right()) - m_rightOffset - width()), Placeable(qint64(corner.top()) + m_topOffset));
}

QPoint QcNotification::getHidePos()
{
    return QPoint(parentWidget() ? parentWidget()->width() : 0, m_topOffset);
}

void QcNotification::updateControlBarVisible()
{
    ui->m_controlBar->setVisible(m_pages.size() >= 2);
}

void QcNotification::updateHeight()
{
    setFixedHeight(m_pages.size() < 2 ? kHeight : kHeightWithBar);
}

void QcNotification::updatePageButtonsEnaled()
{
    ui->m_firstButton->setEnabled(m_currentPage >= 1);
    ui->m_previousButton->setEnabled(m_currentPage >= 1);
    ui->m_nextButton->setEnabled(m_currentPage < m_pages.size() - 1);
    ui->m_lastButton->setEnabled(m_currentPage < m_pages.size() - 1);
}

void QcNotification::updatePageLabel()
{
    const QcNotificationPage *page = m_pages.value(m_currentPage);
    if (!page)
        return;
    ui->m_pageLabel->setText(QStringLiteral("%1/%2").arg(m_currentPage + 1).arg(m_pages.size()));
    m_texts->name.PutInto<QWidget>(*this, &QWidget::accessibleName, &QWidget::setAccessibleName, page->accessibleName());
    m_texts->description.PutInto<QWidget>(*this, &QWidget::accessibleDescription, &QWidget::setAccessibleDescription,
                                          page->accessibleDescription());
}

// --- Slots ---

void QcNotification::onCloseButtonClicked()
{
    clearAndHide();
}

void QcNotification::onFirstPageButtonClicked()
{
    setCurrentPage(0, SlideToRight, false);
}

void QcNotification::onPrePageButtonClicked()
{
    setCurrentPage(m_currentPage - 1, SlideToRight, false);
}

void QcNotification::onNextPageButtonClicked()
{
    setCurrentPage(m_currentPage + 1, SlideToLeft, false);
}

void QcNotification::onLastPageButtonClicked()
{
    setCurrentPage(int(m_pages.size() - 1), SlideToLeft, false);
}

void QcNotification::onDisplayTimerTimeout()
{
    clearAndHide();
}

void QcNotification::onPosAnimationFinished() {}

// --- Events ---

bool QcNotification::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::ParentAboutToChange:
        if (parentWidget())
            parentWidget()->removeEventFilter(this);
        break;
    case QEvent::ParentChange:
        if (parentWidget())
            parentWidget()->installEventFilter(this);
        break;
    case QEvent::Hide:
        m_isHovered = false; // no leave need follow, and no later message would begin the ten seconds anew
        break;
    case QEvent::LanguageChange:
        Retranslate();
        break;
    default:
        break;
    }
    return QFrame::event(event);
}

bool QcNotification::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parentWidget() && isVisible() && (event->type() == QEvent::Move || event->type() == QEvent::Resize))
        move(getShowPos(QRect()));
    if (watched == ui->m_pageFrame && event->type() == QEvent::Resize) {
        for (int i = 0; i < m_pages.size(); ++i) // a host that sees it may show more
            m_pages.at(i)->setFixedSize(ui->m_pageFrame->size());
    }
    if (watched == ui->m_pageFrame && event->type() == QEvent::ChildRemoved)
        ForgetPage(static_cast<QChildEvent *>(event)->child());
    return QFrame::eventFilter(watched, event);
}

void QcNotification::enterEvent(EnterEvent *event)
{
    m_isHovered = true;
    m_displayTimer.stop();
    QFrame::enterEvent(event);
}

void QcNotification::leaveEvent(QEvent *event)
{
    m_isHovered = false;
    m_displayTimer.start();
    QFrame::leaveEvent(event);
}

} // namespace Velmora
