#include <Velmora/QcIconButton.h>
#include <Velmora/QcMultiLineText.h>
#include <Velmora/QcStyleManager.h>
#include <Velmora/QcToast.h>

#include "buttons/IconButtonOfSize_p.h"
#include "core/InstallAccessible_p.h"
#include "core/OwnText_p.h"
#include "display/NamedByText_p.h"
#include "display/Unobtrusive_p.h"
#include "feedback/Glide_p.h"
#include "feedback/RenderOnlySvgWidget_p.h"

#include <QAccessible>
#include <QEvent>
#include <QGraphicsOpacityEffect>
#include <QHBoxLayout>
#include <QPainter>
#include <QPointer>
#include <QStyle>
#include <QStyleOption>
#include <QTimer>
#include <QVBoxLayout>

#include <iterator>

namespace Velmora {

namespace {

constexpr int kWidth = 320;
constexpr int kIconSize = 16;
constexpr int kIconTop = 3; // which centres icon and button on the first line
constexpr int kFontSize = 14;
constexpr int kFadeTime = 250;
constexpr int kGlideTime = 100;
constexpr qreal kGreatestFadedHeight = 4096;

constexpr const char *kIcons[] = {
    ":/images/information.svg",
    ":/images/warning.svg",
    ":/images/error.svg",
    ":/images/success.svg",
};

class ToastAccessible : public NamedByText
{
public:
    explicit ToastAccessible(QcToast *toast)
        : NamedByText(toast, QAccessible::AlertMessage)
    {
    }
};

/// Fades what is of a common size. Qt paints a faded widget by way of a picture of all of it, hundreds of megabytes for a long text.
class FadeEffect : public QGraphicsOpacityEffect
{
public:
    using QGraphicsOpacityEffect::QGraphicsOpacityEffect;

protected:
    void draw(QPainter *painter) override
    {
        if (boundingRect().height() > kGreatestFadedHeight)
            drawSource(painter);
        else
            QGraphicsOpacityEffect::draw(painter);
    }
};

/// Lays \a child out at the top of \a column.
void AddToColumn(QWidget &column, QWidget &child)
{
    auto *layout = new QVBoxLayout(&column);
    layout->setContentsMargins(0, kIconTop, 0, 0);
    layout->addWidget(&child, 0, Qt::AlignTop);
}

} // namespace

// Who hears of a height may delete the toast.

QcToast::QcToast(QWidget *parent)
    : QFrame(parent)
    , m_timer(new QTimer(this))
    , m_closeName(std::make_unique<OwnText>())
{
    InstallAccessible<ToastAccessible, QcToast>();
    MakeUnobtrusive(*this);
    MakeContent();
    MakeFading();
    m_timer->setSingleShot(true);
    connect(m_textControl, &QcMultiLineText::signalHeightChanged, this, &QcToast::onUpdateHeight);
    connect(m_textControl, &QcMultiLineText::signalAnchorClicked, this, &QcToast::signalAnchorClicked);
    connect(m_closeButton, &QAbstractButton::clicked, this, &QWidget::close);
    connect(m_opacityAnimation, &QAbstractAnimation::finished, this, &QcToast::onOpacityAnimationFishied);
    connect(m_timer, &QTimer::timeout, this, &QWidget::close);
    m_textControl->installEventFilter(this); // for those who derive from a toast
    QcStyleManager::GetInstance()->RegisterQss(this, QStringLiteral(":/qss/Toast.qss"));
    setParams(m_params);
}

QcToast::~QcToast()
{
    hide(); // while it is whole: who sees it may show another, and the manager then looks at all that it has
}

void QcToast::MakeContent()
{
    auto *outer = new QHBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(0);
    outer->setSizeConstraint(QLayout::SetFixedSize);
    m_contentWidget = new QWidget(this);
    m_contentWidget->setFixedWidth(kWidth);
    outer->addWidget(m_contentWidget);
    auto *row = new QHBoxLayout(m_contentWidget);
    row->setContentsMargins(12, 10, 8, 10);
    row->setSpacing(8);

    auto *iconColumn = new QWidget(m_contentWidget);
    m_icon = new RenderOnlySvgWidget(iconColumn);
    m_icon->setFixedSize(kIconSize, kIconSize);
    AddToColumn(*iconColumn, *m_icon);
    row->addWidget(iconColumn);

    m_textControl = new QcMultiLineText(m_contentWidget);
    m_textControl->setFont(kFontSize);
    m_textControl->setHeightAdaptive(true);
    m_textControl->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    row->addWidget(m_textControl);

    auto *buttonColumn = new QFrame(m_contentWidget);
    m_closeButton = MakeIconButton(*buttonColumn, QStringLiteral("m_closeButton"), QStringLiteral(":/images/close.svg"), kIconSize);
    NameCloseButton();
    m_closeButton->setFocusPolicy(Qt::TabFocus); // a click leaves the keyboard with who types
    AddToColumn(*buttonColumn, *m_closeButton);
    row->addWidget(buttonColumn);
}

void QcToast::NameCloseButton()
{
    m_closeName->PutInto<QWidget>(*m_closeButton, &QWidget::accessibleName, &QWidget::setAccessibleName, tr("Close"));
}

void QcToast::MakeFading()
{
    auto *effect = new FadeEffect(this);
    effect->setOpacity(1.0); // Qt's begin at 0.7
    setGraphicsEffect(effect);
    m_opacityAnimation = new QPropertyAnimation(effect, QByteArrayLiteral("opacity"), this);
    m_opacityAnimation->setDuration(kFadeTime);
    m_positionAnimation = new QPropertyAnimation(this, QByteArrayLiteral("pos"), this);
    m_positionAnimation->setDuration(kGlideTime);
}

// --- What it shows ---

void QcToast::setParams(const Params &params)
{
    const QPointer<QcToast> alive(this);
    m_params = params;
    const int duration = params.duration;
    setType(params.type);
    setText(params.text);
    if (alive)
        setDuration(duration);
}

void QcToast::getParams(Params &params) const
{
    params = m_params;
}

void QcToast::setType(Type type)
{
    const int index = int(type);
    if (index < 0 || index >= int(std::size(kIcons)) || index == m_shownType)
        return;
    m_shownType = index;
    m_icon->load(QLatin1String(kIcons[index]));
}

void QcToast::setText(const QString &text)
{
    const QPointer<QcToast> alive(this);
    m_textControl->setText(text);
    if (alive)
        onUpdateHeight();
    if (alive)
        update();
}

void QcToast::onUpdateHeight()
{
    m_contentWidget->layout()->activate(); // first, since the other one asks it for the height
    layout()->activate();
    Q_EMIT signalHeightChanged();
}

// --- Time and place ---

void QcToast::setDuration(int duration)
{
    m_timer->setInterval(qMax(0, duration));
}

void QcToast::showToast(bool animated)
{
    if (animated) {
        m_opacityAnimation->setStartValue(0.0);
        GlideTo(*m_opacityAnimation, 1.0);
    }
    const QPointer<QcToast> alive(this);
    show();
    if (!alive)
        return;
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void QcToast::onOpacityAnimationFishied()
{
    if (m_opacityAnimation->currentValue() == QVariant(1))
        m_timer->start();
}

void QcToast::moveToast(int x, int y, bool animated)
{
    if (animated) {
        GlideTo(*m_positionAnimation, QPoint(x, y));
    } else {
        m_positionAnimation->stop(); // its end would come after
        move(x, y);
    }
}

void QcToast::renewDuration()
{
    m_timer->stop();
    m_timer->start();
}

// --- Events ---

void QcToast::changeEvent(QEvent *event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        NameCloseButton();
}

void QcToast::paintEvent(QPaintEvent *event)
{
    // Qt leaves out the stylesheet's ground of what has no system background, as a translucent window.
    if (testAttribute(Qt::WA_NoSystemBackground)) {
        QStyleOption option;
        option.initFrom(this);
        QPainter painter(this);
        style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
    }
    QFrame::paintEvent(event);
}

} // namespace Velmora
