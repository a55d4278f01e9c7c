#include <Velmora/QcDoubleValidator.h>
#include <Velmora/QcGhostButton.h>
#include <Velmora/QcIntValidator.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcLineEdit.h>
#include <Velmora/QcLineEditFrame.h>
#include <Velmora/QcStyleManager.h>

#include "inputs/NumericInput_p.h"
#include "inputs/PlaceholderColor_p.h"
#include "inputs/WarningTip_p.h"
#include "theme/FocusShape_p.h"
#include "theme/StyleProperty_p.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QLocale>
#include <QPointer>
#include <QStyle>

#include <cmath>
#include <limits>

namespace Velmora {

namespace {

constexpr int kHeight = 24;
constexpr int kRadius = 2; // as the stylesheet says
constexpr int kButtonSize = 22;
constexpr int kMargin = 8;
constexpr int kUnitSpacing = 8;
constexpr int kButtonMargin = 4;
constexpr int kButtonSpacing = 4;

double RoundToPlaces(double bound, int decimals)
{
    const double power = std::pow(10.0, decimals);
    const double rounded = std::round(power * bound) / power;
    return std::isfinite(rounded) ? rounded : bound; // too large to have so many places
}

/// \a bound cut to a whole number. One that no int holds becomes the nearest.
int ToInt(double bound)
{
    using Limits = std::numeric_limits<int>;
    if (std::isnan(bound))
        return 0;
    return int(qBound(double(Limits::min()), bound, double(Limits::max())));
}

/// A bound of the numbers that \a validator takes; 0 if it is none of numbers.
double BoundOf(const QValidator *validator, int (QIntValidator::*ofIntegers)() const, double (QDoubleValidator::*ofDoubles)() const)
{
    if (const auto *integers = qobject_cast<const QIntValidator *>(validator))
        return (integers->*ofIntegers)();
    const auto *doubles = qobject_cast<const QDoubleValidator *>(validator);
    return doubles ? (doubles->*ofDoubles)() : 0.0;
}

/// No double has more places: the rest would be zeros, and too many of them more than Qt can write.
int WrittenPlaces(int decimals)
{
    return qMin(decimals, 1100);
}

// What a text becomes at the end of editing; null if it is refused.

QString NormalisedInteger(const QString &text, const QIntValidator &range)
{
    bool isNumber = false;
    const int value = QLocale().toInt(text, &isNumber);
    const bool isAccepted = isNumber && range.bottom() <= value && value <= range.top();
    return isAccepted ? QLocale().toString(value) : QString();
}

QString NormalisedDouble(const QString &text, const QDoubleValidator &range)
{
    bool isNumber = false;
    const double value = QLocale().toDouble(text, &isNumber);
    const double tolerance = RangeTolerance(range.decimals());
    const bool isAccepted = isNumber && range.bottom() <= value + tolerance && value - tolerance <= range.top();
    return isAccepted ? QLocale().toString(value, 'f', WrittenPlaces(range.decimals())) : QString();
}

/// \a value within the bounds. Bounds that are turned round, which qBound() does not take, give the lower one.
template <typename Number>
Number Clamped(Number bottom, Number value, Number top)
{
    return qMax(bottom, qMin(top, value));
}

QString ClampedInteger(const QString &text, const QIntValidator &range)
{
    bool isNumber = false;
    const int value = text.toInt(&isNumber, 10);
    return isNumber ? QString::number(Clamped(range.bottom(), value, range.top()), 10) : QString();
}

QString ClampedDouble(const QString &text, const QDoubleValidator &range)
{
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    return isNumber ? QString::number(Clamped(range.bottom(), value, range.top()), 'f', WrittenPlaces(range.decimals())) : QString();
}

} // namespace

QcLineEditFrame::QcLineEditFrame(QWidget *parent)
    : QFrame(parent)
    , m_lineEdit(new QcLineEdit(this))
    , m_unitLabel(new QcLabel(this))
    , m_button(new QcGhostButton(this))
    , m_warningTip(new WarningTip(this))
{
    InstallFocusShape<QcLineEditFrame>([](const QcLineEditFrame &frame) { return FocusShape{frame.rect(), kRadius, false, true}; });
    setFixedHeight(kHeight);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(kMargin, 0, kMargin, 0);
    layout->setSpacing(0);
    layout->addWidget(m_lineEdit);
    m_unitLabel->setType(QcLabel::BodySecondary);
    m_unitLabel->hide();
    layout->addWidget(m_unitLabel);
    m_button->setFixedSize(kButtonSize, kButtonSize);
    m_button->setAutoDefault(false); // or Enter in the field of a dialog would press it, hidden too
    m_button->hide();
    layout->addWidget(m_button);

    m_warningTip->setTriangleDirection(QcArrowTip::Bottom);
    m_warningTip->setReferenceWidget(this);
    m_warningTip->setTextColorParams(QStringLiteral("base/red/red-60"));

    setFocusPolicy(Qt::ClickFocus); // a click on margin or unit starts typing
    setFocusProxy(m_lineEdit);

    connect(m_lineEdit, &QLineEdit::textChanged, this, &QcLineEditFrame::signalTextChanged);
    connect(m_button, &QAbstractButton::clicked, this, &QcLineEditFrame::signalButtonClicked);
    connect(m_lineEdit, &QLineEdit::editingFinished, this, &QcLineEditFrame::onEditingFinished);
    installEventFilter(this);

    QcStyleManager::GetInstance()->RegisterQss(this, QStringLiteral(":/qss/LineEditFrame.qss"));
    FollowPlaceholderToken(m_lineEdit);
}

QcLineEditFrame::~QcLineEditFrame()
{
    // Qt takes the keyboard from the edit only after this destructor: the end of editing would come to a frame without members.
    for (QObject *child : children())
        disconnect(child, nullptr, this, nullptr);
}

// --- Content ---

QcLineEdit *QcLineEditFrame::getLineEdit() const
{
    return m_lineEdit;
}

QString QcLineEditFrame::getText()
{
    return m_lineEdit->text();
}

void QcLineEditFrame::setText(const QString &text)
{
    m_lastAcceptedText = text;
    m_lineEdit->setText(text);
}

void QcLineEditFrame::clear()
{
    m_lineEdit->clear();
}

QString QcLineEditFrame::PlaceholderText() const
{
    return m_lineEdit->placeholderText();
}

void QcLineEditFrame::setPlaceholderText(const QString &text)
{
    m_lineEdit->setPlaceholderText(text);
}

void QcLineEditFrame::setAlignment(Qt::AlignmentFlag alignment)
{
    m_lineEdit->setAlignment(alignment);
}

double QcLineEditFrame::valueDb() const
{
    return QLocale().toDouble(m_lineEdit->text());
}

int QcLineEditFrame::valueInt() const
{
    return QLocale().toInt(m_lineEdit->text());
}

// Unit and button share the one spacing: the last call wins.

QString QcLineEditFrame::Unit() const
{
    return m_unitLabel->isHidden() ? QString() : m_unitLabel->text();
}

void QcLineEditFrame::setUnit(const QString &unit)
{
    const bool isShown = !unit.isEmpty();
    const bool isNews = unit != Unit();
    if (isShown)
        m_unitLabel->setText(unit);
    m_unitLabel->setVisible(isShown);
    SetDistances(kMargin, isShown ? kUnitSpacing : 0);
    if (isNews)
        AnnounceDescription();
}

QString QcLineEditFrame::ButtonIconPath() const
{
    return m_button->isHidden() ? QString() : m_button->property("iconPath").toString();
}

void QcLineEditFrame::setButtonIconPath(const QString &path)
{
    const bool isShown = !path.isEmpty();
    if (isShown)
        m_button->SetIconPath(path);
    m_button->setVisible(isShown);
    SetDistances(isShown ? kButtonMargin : kMargin, isShown ? kButtonSpacing : 0);
}

void QcLineEditFrame::SetDistances(int rightMargin, int spacing)
{
    if (!layout()) // the host may have deleted it
        return;
    layout()->setSpacing(spacing);
    QMargins margins = layout()->contentsMargins();
    margins.setRight(rightMargin);
    layout()->setContentsMargins(margins);
}

// --- Validation ---

void QcLineEditFrame::setValidator(QValidator *validator)
{
    if (validator)
        m_lineEdit->setValidator(validator);
}

void QcLineEditFrame::setValidator(double min, double max, int decimals)
{
    if (decimals != 0) {
        auto *validator = new QcDoubleValidator(RoundToPlaces(min, decimals), RoundToPlaces(max, decimals), decimals, m_lineEdit);
        validator->setNotation(QDoubleValidator::StandardNotation);
        m_lineEdit->setValidator(validator);
    } else {
        m_lineEdit->setValidator(new QcIntValidator(ToInt(min), ToInt(max), m_lineEdit));
    }
    m_hasNumericValidator = true;
}

int QcLineEditFrame::Decimals() const
{
    const auto *doubles = qobject_cast<const QDoubleValidator *>(m_lineEdit->validator());
    return doubles ? doubles->decimals() : 0;
}

double QcLineEditFrame::Minimum() const
{
    return BoundOf(m_lineEdit->validator(), &QIntValidator::bottom, &QDoubleValidator::bottom);
}

double QcLineEditFrame::Maximum() const
{
    return BoundOf(m_lineEdit->validator(), &QIntValidator::top, &QDoubleValidator::top);
}

void QcLineEditFrame::onEditingFinished()
{
    editControlCheck();
}

void QcLineEditFrame::editControlCheck()
{
    FinishEditing(NormalisedInteger, NormalisedDouble);
}

/// The variant that clamps a number to the range instead of refusing it, and minds no locale.
void QcLineEditFrame::editControlCheckV2()
{
    FinishEditing(ClampedInteger, ClampedDouble);
}

void QcLineEditFrame::FinishEditing(IntegerText integerText, DoubleText doubleText)
{
    const QString text = m_lineEdit->text();
    const QValidator *validator = m_lineEdit->validator();
    const auto *integers = qobject_cast<const QIntValidator *>(validator);
    const auto *doubles = qobject_cast<const QDoubleValidator *>(validator);
    if (!validator) {
        m_lastAcceptedText = text;
    } else if (integers || doubles) {
        const QString accepted = integers ? integerText(text, *integers) : doubleText(text, *doubles);
        if (!accepted.isNull())
            m_lastAcceptedText = accepted;
        const QPointer<QcLineEditFrame> guard(this);
        const QString finalText = m_lastAcceptedText; // which Qt still reads when the frame is dead
        m_lineEdit->setText(finalText);
        if (!guard) // by a handler of the text, whose edit lives elsewhere
            return;
    }
    Q_EMIT signalEditingFinished();
}

// --- Warning ---

void QcLineEditFrame::setWarning(bool on)
{
    const QPointer<QcLineEditFrame> guard(this);
    const bool isNews = on != getWarning();
    SetStyleProperty(this, m_warningProperty, on);
    if (!guard)
        return;
    updateArrowTipVisible();
    if (isNews && !m_warningText.isEmpty())
        AnnounceDescription();
}

bool QcLineEditFrame::getWarning() const
{
    return property(m_warningProperty).toBool();
}

void QcLineEditFrame::setWarningText(const QString &text)
{
    const QPointer<QcLineEditFrame> guard(this);
    const bool isNews = text != m_warningText;
    if (isNews) {
        m_warningText = text;
        m_warningTip->setText(text);
        if (!guard) // the host heard of the text's new height
            return;
    }
    updateArrowTipVisible();
    if (isNews && getWarning())
        AnnounceDescription();
}

void QcLineEditFrame::updateArrowTipVisible()
{
    const bool isNeeded = isVisible() && getWarning() && !m_warningText.isEmpty();
    if (isNeeded == m_warningTip->isVisible())
        return;
    if (isNeeded) {
        m_warningTip->setReferenceWidget(this); // anew: the frame may have come into another window, whose moves it follows
        m_warningTip->show();
    } else {
        m_warningTip->hide();
    }
}

void QcLineEditFrame::AnnounceDescription()
{
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(m_lineEdit, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&event);
}

void QcLineEditFrame::showEvent(QShowEvent *event)
{
    updateArrowTipVisible();
    QFrame::showEvent(event);
}

void QcLineEditFrame::hideEvent(QHideEvent *event)
{
    updateArrowTipVisible();
    QFrame::hideEvent(event);
}

// --- Focus ---

bool QcLineEditFrame::eventFilter(QObject *watched, QEvent *event)
{
    const bool answer = QFrame::eventFilter(watched, event);
    // Of the events of a window these come here only if the host installs the frame there.
    if (event->type() == QEvent::MouseButtonPress && watched->inherits("QWidgetWindow"))
        setFocus(underMouse()); // at last: the host may delete the frame as its property changes
    return answer;
}

void QcLineEditFrame::setFocus(bool on)
{
    if (on)
        m_lineEdit->setFocus(Qt::OtherFocusReason);
    else
        m_lineEdit->clearFocus();
    SetStyleProperty(this, m_focusProperty, m_lineEdit->hasFocus());
}

void QcLineEditFrame::updateStyle()
{
    style()->polish(this);
}

} // namespace Velmora
