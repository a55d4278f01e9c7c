#include <Velmora/PaintingHelpers.h>
#include <Velmora/QcDialog.h>
#include <Velmora/QcFrame.h>
#include <Velmora/QcIconButton.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcSecondaryButton.h>
#include <Velmora/QcStyleManager.h>

#include "core/InstallAccessible_p.h"
#include "theme/TokenPainting_p.h"
#include "windows/WindowParts_p.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QVector>

#include <algorithm>

namespace Velmora {

namespace {

constexpr int kTitleLeftMargin = 15;
constexpr int kShadowMargin = 10;
constexpr double kShadowOpacity = 0.1;
constexpr int kBottomMargin = 16;
constexpr int kBottomSpacing = 12;
constexpr int kBottomButtonWidth = 80;

/// Qt says of no dialog whether it blocks others.
class DialogAccessible : public QAccessibleWidget
{
public:
    explicit DialogAccessible(QcDialog *dialog)
        : QAccessibleWidget(dialog, QAccessible::Dialog)
    {
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.modal = widget()->isModal() && widget()->isVisible();
        return state;
    }
};

template <typename Button>
Button *MakeBottomButton(QFrame *row, const QString &name)
{
    auto *button = new Button(row);
    button->setObjectName(name);
    button->setMinimumWidth(kBottomButtonWidth);
    row->layout()->addWidget(button);
    return button;
}

} // namespace

struct Ui_QcDialog
{
    QVBoxLayout *verticalLayout;
    QcFrame *m_titleFrame;
    QHBoxLayout *horizontalLayout;
    QcLabel *m_titleLabel;
    QSpacerItem *horizontalSpacer;
    QcIconButton *m_minButton;
    QcIconButton *m_maxButton;
    QcIconButton *m_closeButton;
    QFrame *m_contentFrame;
    QFrame *m_bottomFrame;
    QHBoxLayout *horizontalLayout_2;
    QSpacerItem *horizontalSpacer_2;
    QPointer<QcPrimaryButton> m_okButton; // these two are told of what happens later, and the host may have deleted them by then
    QPointer<QcSecondaryButton> m_cancelButton;
    FrameContent content;
};

struct DialogTexts : FormTexts
{
    using FormTexts::FormTexts;

    OwnText ok;
    OwnText cancel;
};

QcDialog::QcDialog(QWidget *parent)
    : QDialog(parent, Qt::WindowFlags())
    , ui(new Ui_QcDialog) // deleted by the destructor
{
    InstallAccessible<DialogAccessible, QcDialog>();
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);
    SetUpForm();
    connect(ui->m_minButton, &QAbstractButton::clicked, this, &QcDialog::onShowMin);
    connect(ui->m_maxButton, &QAbstractButton::clicked, this, &QcDialog::onShowMax);
    connect(ui->m_closeButton, &QAbstractButton::clicked, this, &QcDialog::onCloseButtonClicked);
    ui->m_titleFrame->installEventFilter(this);

    m_windowHandler = MakeHandler(*this, ui->m_titleFrame);
    connect(ui->m_okButton, &QAbstractButton::clicked, this, &QDialog::accept);
    connect(ui->m_cancelButton, &QAbstractButton::clicked, this, &QDialog::reject);
    QcStyleManager::GetInstance()->RegisterColorHandler(this, [this] { update(); });
}

QcDialog::~QcDialog()
{
    delete ui;
}

// --- The form ---

void QcDialog::SetUpForm()
{
    BeginForm(*this, QStringLiteral("QcDialog"));
    const TitleRow row = MakeTitleRow(*this, kTitleLeftMargin, QStringLiteral("m_maxButton"));
    row.minButton->hide();
    row.maxButton->hide();
    ui->m_titleFrame = row.frame;
    ui->horizontalLayout = row.layout;
    ui->m_titleLabel = row.title;
    ui->horizontalSpacer = row.spacer;
    ui->m_minButton = row.minButton;
    ui->m_maxButton = row.maxButton;
    ui->m_closeButton = row.closeButton;
    ui->m_contentFrame = MakeContentFrame(*this);
    SetUpBottomRow();
    m_texts = std::make_unique<DialogTexts>(*this, row);
    Retranslate();
    ui->verticalLayout = EndForm(*this, kShadowMargin, {ui->m_titleFrame, ui->m_contentFrame, ui->m_bottomFrame});
}

void QcDialog::SetUpBottomRow()
{
    ui->m_bottomFrame = MakePlainFrame(*this, QStringLiteral("m_bottomFrame"));
    ui->m_bottomFrame->setMinimumSize(0, 0);
    ui->horizontalLayout_2 = new QHBoxLayout(ui->m_bottomFrame);
    ui->horizontalLayout_2->setObjectName(QStringLiteral("horizontalLayout_2"));
    ui->horizontalLayout_2->setSpacing(kBottomSpacing);
    ui->horizontalLayout_2->setContentsMargins(kBottomMargin, kBottomMargin, kBottomMargin, kBottomMargin);
    ui->horizontalSpacer_2 = new QSpacerItem(417, 20, QSizePolicy::Expanding, QSizePolicy::Minimum);
    ui->horizontalLayout_2->addItem(ui->horizontalSpacer_2);
    ui->m_okButton = MakeBottomButton<QcPrimaryButton>(ui->m_bottomFrame, QStringLiteral("m_okButton"));
    ui->m_cancelButton = MakeBottomButton<QcSecondaryButton>(ui->m_bottomFrame, QStringLiteral("m_cancelButton"));
    ui->m_bottomFrame->hide();
    for (QWidget *widget :
         {static_cast<QWidget *>(ui->m_bottomFrame), static_cast<QWidget *>(ui->m_okButton), static_cast<QWidget *>(ui->m_cancelButton)})
        widget->installEventFilter(this);
    OfferBottomButtons();
}

void QcDialog::Retranslate()
{
    const QString unnamed = QCoreApplication::translate("QcDialog", "PushButton");
    if (ui->m_okButton)
        m_texts->ok.PutInto<QAbstractButton>(*ui->m_okButton, &QAbstractButton::text, &QAbstractButton::setText, unnamed);
    if (ui->m_cancelButton)
        m_texts->cancel.PutInto<QAbstractButton>(*ui->m_cancelButton, &QAbstractButton::text, &QAbstractButton::setText, unnamed);
    m_texts->PutIn({
        QCoreApplication::translate("QcDialog", "dialog"),
        QCoreApplication::translate("QcDialog", "TextLabel"),
        QCoreApplication::translate("QcDialog", "Minimize"),
        QCoreApplication::translate("QcDialog", "Maximize"),
        QCoreApplication::translate("QcDialog", "Close"),
    });
}

// --- What the host sets ---

QString QcDialog::Title() const
{
    return ui->m_titleLabel->text();
}

bool QcDialog::ShowsTitleBar() const
{
    return !ui->m_titleFrame->isHidden();
}

bool QcDialog::ShowsCloseButton() const
{
    return !ui->m_closeButton->isHidden();
}

bool QcDialog::ShowsMinMaxButtons() const
{
    return !ui->m_minButton->isHidden();
}

bool QcDialog::ShowsBottomFrame() const
{
    return !ui->m_bottomFrame->isHidden();
}

bool QcDialog::ShowsOkButton() const
{
    return ui->m_okButton && !ui->m_okButton->isHidden();
}

bool QcDialog::ShowsCancelButton() const
{
    return ui->m_cancelButton && !ui->m_cancelButton->isHidden();
}

void QcDialog::setTitle(const QString &title)
{
    ui->m_titleLabel->setText(title);
}

void QcDialog::setTitleBarVisible(bool visible)
{
    ui->m_titleFrame->setVisible(visible);
}

void QcDialog::setCloseButtonVisible(bool visible)
{
    ui->m_closeButton->setVisible(visible);
}

void QcDialog::setBottomFrameVisible(bool visible)
{
    ui->m_bottomFrame->setVisible(visible);
}

void QcDialog::setOkButtonVisible(bool visible)
{
    ui->m_okButton->setVisible(visible);
}

void QcDialog::setCancelButtonVisible(bool visible)
{
    ui->m_cancelButton->setVisible(visible);
}

QString QcDialog::OkButtonText() const
{
    return ui->m_okButton->text();
}

void QcDialog::setOkButtonText(const QString &text)
{
    ui->m_okButton->setText(text);
}

QString QcDialog::CancelButtonText() const
{
    return ui->m_cancelButton->text();
}

void QcDialog::setCancelButtonText(const QString &text)
{
    ui->m_cancelButton->setText(text);
}

void QcDialog::setBottomButtonHeight(int height)
{
    QVector<QPointer<QPushButton>> buttons;
    for (QPushButton *button : ui->m_bottomFrame->findChildren<QPushButton *>())
        buttons.append(button);
    for (const QPointer<QPushButton> &button : qAsConst(buttons)) {
        if (button) // one of the host's may do away with another one when it is resized
            button->setFixedHeight(height);
    }
}

void QcDialog::setBorderColorParams(const QString &code)
{
    m_borderColorParams = code;
    update();
}

void QcDialog::setBackgroundColorParams(const QString &code)
{
    m_backgroundColorParams = code;
    update();
}

void QcDialog::setBorderRadius(int radius)
{
    m_borderRadius = radius;
    update();
}

void QcDialog::controlMinMaxBtn(bool visible)
{
    ui->m_minButton->setVisible(visible);
    ui->m_maxButton->setVisible(visible);
}

QFrame *QcDialog::getContentFrame()
{
    return ui->m_contentFrame;
}

void QcDialog::setContentWidget(QWidget *content)
{
    ui->content.Set(*ui->m_contentFrame, content);
}

QWidget *QcDialog::getContentWidget() const
{
    return ui->content.In(*ui->m_contentFrame);
}

QFrame *QcDialog::getTitleFrame()
{
    return ui->m_titleFrame;
}

void QcDialog::showToCenter(QWidget *reference)
{
    ShowCentredOn(*this, reference);
}

void QcDialog::removeEventFilter()
{
    ui->m_titleFrame->removeEventFilter(this);
}

// --- Events ---

void QcDialog::onShowMin()
{
    showMinimized();
}

void QcDialog::onShowMax()
{
    if (isMaximized())
        showNormal();
    else
        showMaximized();
}

void QcDialog::onCloseButtonClicked()
{
    close();
}

void QcDialog::OfferBottomButtons()
{
    // Qt gives Enter to the first button that offers itself, hidden or not.
    for (QPushButton *button : {static_cast<QPushButton *>(ui->m_okButton), static_cast<QPushButton *>(ui->m_cancelButton)}) {
        if (button)
            button->setAutoDefault(button->isVisibleTo(this));
    }
    if (isVisible())
        ChooseDefault();
}

void QcDialog::ChooseDefault()
{
    // A bottom button that is hidden keeps Enter until it shows only where nobody else wants it.
    const auto takesEnter = [this](const QPushButton *button) {
        const bool isOurs = button == ui->m_okButton || button == ui->m_cancelButton;
        return button->isDefault() && (!isOurs || button->isVisibleTo(this));
    };
    const auto buttons = findChildren<QPushButton *>();
    if (std::any_of(buttons.cbegin(), buttons.cend(), takesEnter))
        return;
    // Ours: the focus goes round the whole window in which the dialog may lie, past other buttons and past thousands of widgets.
    const auto offersItself = [this](const QPushButton *button) {
        return isAncestorOf(button) && button->autoDefault() && button->focusPolicy() != Qt::NoFocus;
    };
    if (std::none_of(buttons.cbegin(), buttons.cend(), offersItself))
        return;
    // The first one behind the focus, as Qt does when a dialog shows for the first time. Later it minds the one that had Enter last.
    QWidget *focus = focusWidget() ? focusWidget() : this;
    for (QWidget *next = focus->nextInFocusChain(); next != focus; next = next->nextInFocusChain()) {
        auto *button = qobject_cast<QPushButton *>(next);
        if (button && offersItself(button))
            return button->setDefault(true);
    }
}

bool QcDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == ui->m_titleFrame && event->type() == QEvent::MouseButtonDblClick)
        return true; // a dialog is not maximised by its title row
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent)
        OfferBottomButtons();
    return QDialog::eventFilter(watched, event);
}

void QcDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    ChooseDefault();
}

void QcDialog::closeEvent(QCloseEvent *event)
{
    const QPointer<QcDialog> alive(this);
    Q_EMIT signalClose();
    if (alive) // the host may have deleted it
        QDialog::closeEvent(event);
}

void QcDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
}

void QcDialog::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);

    ShadowParams shadow;
    if (const QLayout *column = layout()) // the host may have deleted it
        shadow.margins = column->contentsMargins();
    const double radius = m_borderRadius;
    shadow.radius = {radius, radius, radius, radius};
    shadow.maxOpacity = kShadowOpacity;
    const QRect panel = rect().marginsRemoved(shadow.margins);
    // Most repaints are of something on the panel, where there is no shadow but under the corners, and setting up its gradients
    // would cost eight times as much as painting a button's ground.
    const int corner = qMax(0, qMin(m_borderRadius, std::max(panel.width(), panel.height()))); // margins may leave no panel
    if (!panel.adjusted(corner, corner, -corner, -corner).contains(event->rect()))
        DrawShadow(painter, panel, shadow);

    // Square, whatever the radius: it rounds the shadow only.
    SetBorderPen(painter, m_borderColorParams);
    painter.setBrush(TokenColor(m_backgroundColorParams));
    painter.drawRoundedRect(panel, 0.0, 0.0, Qt::AbsoluteSize);
}

} // namespace Velmora
