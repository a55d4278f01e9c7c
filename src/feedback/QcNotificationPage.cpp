#include <Velmora/QcNotificationPage.h>
#include <Velmora/QcStyleManager.h>
#include <Velmora/QcTextButton.h>

#include "display/OneLine_p.h"
#include "feedback/Glide_p.h"
#include "theme/TokenPainting_p.h"

#include <QEvent>
#include <QFontMetrics>
#include <QGraphicsOpacityEffect>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QPropertyAnimation>
#include <QStyle>
#include <QVBoxLayout>

#include <memory>
#include <utility>

namespace Velmora {

namespace {

constexpr QSize kFirstSize(522, 300);
constexpr int kLineHeight = 20;
constexpr int kFontPixels = 12;
constexpr int kSlideTime = 200; // milliseconds
constexpr int kFadeTime = 400;

/// A label that does not measure its text, which takes a second for a megabyte: it is as wide as the page.
class LineLabel : public QLabel
{
public:
    using QLabel::QLabel;
    QSize sizeHint() const override { return QSize(0, kLineHeight); }
    QSize minimumSizeHint() const override { return sizeHint(); }
};

QLabel *MakeLine(QFrame *frame, QLayout &layout, const QString &name)
{
    auto *label = new LineLabel(frame);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText); // a message may be anyone's
    QFont font = QcStyleManager::GetDefaultFont();
    font.setPixelSize(kFontPixels);
    label->setFont(font);
    label->setFixedHeight(kLineHeight);
    layout.addWidget(label);
    return label;
}

void DrawElided(QLabel &label, const QString &colorCode)
{
    QPainter painter(&label);
    painter.setPen(TokenColor(colorCode));
    painter.setFont(label.font());
    const QString elided = ElidedLine(painter.fontMetrics(), label.text(), label.width());
    // The side is the language's, the order of the words the text's own.
    const Qt::Alignment side = QStyle::visualAlignment(label.layoutDirection(), Qt::AlignLeft);
    painter.drawText(label.rect(), int(side | Qt::AlignAbsolute | Qt::AlignVCenter), elided);
}

} // namespace

struct Ui_QcNotificationPage
{
    QVBoxLayout *verticalLayout;
    QFrame *frame;
    QVBoxLayout *verticalLayout_2;
    QLabel *m_titleLabel;
    QLabel *m_contentLabel;
    QcTextButton *m_operationButton;
};

QcNotificationPage::QcNotificationPage(QWidget *parent)
    : QFrame(parent)
    , ui(new Ui_QcNotificationPage) // deleted by the destructor
{
    SetUpForm();
    m_posAnimation = new QPropertyAnimation(this, "pos", this);
    m_posAnimation->setDuration(kSlideTime);
    auto *effect = new QGraphicsOpacityEffect(this);
    effect->setOpacity(1.0); // Qt begins at 0.7
    setGraphicsEffect(effect);
    m_opacityAnimation = new QPropertyAnimation(effect, "opacity", this);
    m_opacityAnimation->setDuration(kFadeTime);
    m_opacityAnimation->setEasingCurve(QEasingCurve::OutInQuad);
    m_opacityAnimation->setStartValue(1); // for a first motion of no known kind: it neither fades nor makes Qt complain
    m_opacityAnimation->setEndValue(1);
    // Out of sight a page is neither a stop of the Tab key nor there for assistive technology.
    connect(m_opacityAnimation, &QPropertyAnimation::finished, this, [this] {
        if (m_opacityAnimation->endValue() == 0)
            hide();
    });

    connect(ui->m_operationButton, &QAbstractButton::clicked, this, &QcNotificationPage::CallBack);
    ui->m_titleLabel->installEventFilter(this);
    ui->m_contentLabel->installEventFilter(this);
    QcStyleManager::GetInstance()->RegisterColorHandler(this, [this] { update(); });
}

QcNotificationPage::~QcNotificationPage()
{
    delete ui;
}

void QcNotificationPage::SetUpForm()
{
    if (objectName().isEmpty())
        setObjectName(QStringLiteral("QcNotificationPage"));
    resize(kFirstSize);
    // A layout comes to its widget when it is full: for each change Qt would look through all posted events, those of a storm of
    // messages too.
    ui->verticalLayout = new QVBoxLayout; // the page's
    ui->verticalLayout->setObjectName(QStringLiteral("verticalLayout"));
    ui->verticalLayout->setSpacing(8);
    ui->verticalLayout->setContentsMargins(0, 0, 0, 0);

    ui->frame = new QFrame(this);
    ui->frame->setObjectName(QStringLiteral("frame"));
    ui->frame->setFrameShape(QFrame::StyledPanel);
    ui->frame->setFrameShadow(QFrame::Raised);
    ui->verticalLayout_2 = new QVBoxLayout; // the frame's
    ui->verticalLayout_2->setObjectName(QStringLiteral("verticalLayout_2"));
    ui->verticalLayout_2->setSpacing(4);
    ui->verticalLayout_2->setContentsMargins(0, 0, 0, 0);
    ui->m_titleLabel = MakeLine(ui->frame, *ui->verticalLayout_2, QStringLiteral("m_titleLabel"));
    ui->m_contentLabel = MakeLine(ui->frame, *ui->verticalLayout_2, QStringLiteral("m_contentLabel"));
    ui->frame->setLayout(ui->verticalLayout_2);
    ui->verticalLayout->addWidget(ui->frame);

    ui->m_operationButton = new QcTextButton(this);
    ui->m_operationButton->setObjectName(QStringLiteral("m_operationButton"));
    ui->m_operationButton->setMinimumSize(0, 20);
    ui->m_operationButton->setMaximumSize(QWIDGETSIZE_MAX, 20);
    ui->m_operationButton->setAutoDefault(false);
    ui->verticalLayout->addWidget(ui->m_operationButton, 0, Qt::AlignLeft);
    setLayout(ui->verticalLayout);
}

// --- What the card sets ---

void QcNotificationPage::setTitleText(const QString &text)
{
    ui->m_titleLabel->setText(text);
    setAccessibleName(text);
}

void QcNotificationPage::setContentText(const QString &text)
{
    ui->m_contentLabel->setText(text);
    setAccessibleDescription(text);
}

void QcNotificationPage::setOperationButtonText(const QString &text)
{
    ui->m_operationButton->setText(text);
    ui->m_operationButton->setFocusPolicy(text.isEmpty() ? Qt::NoFocus : Qt::StrongFocus); // nobody could see where the keyboard is
}

void QcNotificationPage::setOperationButtonClickCallback(std::function<void()> &&callback)
{
    // Each click calls a copy; all copies share the one function and its state.
    const auto shared = std::make_shared<std::function<void()>>(std::move(callback));
    m_callback = [shared] { (*shared)(); };
}

void QcNotificationPage::CallBack()
{
    const std::function<void()> callback = m_callback; // which may do away with the page, or replace itself
    const QPointer<QcNotificationPage> alive(this);
    ++m_callbacksRunning;
    callback(); // one that throws leaves the count: the page is then deleted later than it might
    if (alive)
        --m_callbacksRunning;
}

// --- Motion ---

void QcNotificationPage::movePage(const QPoint &target, FadeType type)
{
    m_opacityAnimation->stop();
    if (type == FadeIn || type == FadeOut) {
        m_opacityAnimation->setStartValue(type == FadeIn ? 0 : 1);
        m_opacityAnimation->setEndValue(type == FadeIn ? 1 : 0);
    }
    m_opacityAnimation->start();
    GlideTo(*m_posAnimation, target);
}

void QcNotificationPage::Leave()
{
    if (m_opacityAnimation->state() == QAbstractAnimation::Stopped)
        return;
    hide(); // first: a visible widget that moves looks at all others in its parent
    for (QPropertyAnimation *animation : {m_opacityAnimation, m_posAnimation})
        animation->setCurrentTime(animation->duration());
}

void QcNotificationPage::Discard()
{
    if (isHidden() && m_callbacksRunning == 0) {
        delete this; // leaving the parent first would take a walk along all stops of the Tab key
        return;
    }
    hide();
    setParent(nullptr);
    deleteLater();
}

// --- Painting ---

bool QcNotificationPage::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Paint && watched == ui->m_titleLabel) {
        drawTitleText();
        return true;
    }
    if (event->type() == QEvent::Paint && watched == ui->m_contentLabel) {
        drawContentText();
        return true;
    }
    return QFrame::eventFilter(watched, event);
}

void QcNotificationPage::drawTitleText()
{
    DrawElided(*ui->m_titleLabel, QStringLiteral("text/text_caption"));
}

void QcNotificationPage::drawContentText()
{
    DrawElided(*ui->m_contentLabel, QStringLiteral("text/text_secondary"));
}

} // namespace Velmora
