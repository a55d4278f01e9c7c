#include "windows/WindowParts_p.h"

#include <Velmora/QcFrame.h>
#include <Velmora/QcLabel.h>

#include "buttons/IconButtonOfSize_p.h"
#include "display/Unobtrusive_p.h"
#include "windows/QcWindowHandler_p.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QSpacerItem>
#include <QVBoxLayout>

namespace Velmora {

namespace {

constexpr QSize kFirstSize(600, 400);
constexpr int kTitleHeight = 40;
constexpr int kTitleButtonSize = 24;
constexpr int kRightMargin = 8;
constexpr int kSpacing = 8;

void SetPlain(QFrame &frame, const QString &name)
{
    frame.setObjectName(name);
    frame.setFrameShape(QFrame::NoFrame);
    frame.setFrameShadow(QFrame::Raised);
}

} // namespace

void BeginForm(QWidget &window, const QString &name)
{
    if (window.objectName().isEmpty())
        window.setObjectName(name);
    window.resize(kFirstSize);
}

QVBoxLayout *EndForm(QWidget &window, int margin, std::initializer_list<QWidget *> parts)
{
    auto *column = new QVBoxLayout(&window);
    column->setObjectName(QStringLiteral("verticalLayout"));
    column->setSpacing(0);
    column->setContentsMargins(margin, margin, margin, margin);
    for (QWidget *part : parts)
        column->addWidget(part);
    QMetaObject::connectSlotsByName(&window);
    return column;
}

QHBoxLayout *SetUpTitleRow(QFrame &frame, int height, const QMargins &margins, int spacing)
{
    SetPlain(frame, QStringLiteral("m_titleFrame"));
    frame.setFixedHeight(height);
    auto *layout = new QHBoxLayout(&frame);
    layout->setContentsMargins(margins);
    layout->setSpacing(spacing);
    return layout;
}

QcIconButton *AddTitleButton(QFrame &row, const QString &name, const QString &iconPath)
{
    QcIconButton *button = MakeIconButton(row, name, iconPath, kTitleButtonSize);
    // As on a system frame: out of the Tab order, so that a window opens with the focus in its content.
    button->setFocusPolicy(Qt::NoFocus);
    // A press that the button does not take, as of the right mouse button, is still its own: passed on to the row it would move
    // the window, and the release, which the window system keeps then, would never end the pressed look.
    button->setAttribute(Qt::WA_NoMousePropagation);
    row.layout()->addWidget(button);
    return button;
}

TitleRow MakeTitleRow(QWidget &window, int leftMargin, const QString &maxButtonName)
{
    TitleRow row = {};
    row.frame = new QcFrame(&window);
    row.layout = SetUpTitleRow(*row.frame, kTitleHeight, QMargins(leftMargin, 0, kRightMargin, 0), kSpacing);
    row.layout->setObjectName(QStringLiteral("horizontalLayout"));
    row.frame->setBackgroundColorParams(QStringLiteral("transparent"));
    row.frame->setBorderSides(QcFrame::Bottom);
    row.frame->setBorderColorParams(QStringLiteral("border/border_tertairy"));

    row.title = new QcLabel(row.frame);
    row.title->setObjectName(QStringLiteral("m_titleLabel"));
    row.title->setType(QcLabel::Caption);
    row.layout->addWidget(row.title);
    row.spacer = new QSpacerItem(405, 20, QSizePolicy::Expanding, QSizePolicy::Minimum);
    row.layout->addItem(row.spacer);

    row.minButton = AddTitleButton(*row.frame, QStringLiteral("m_minButton"), QStringLiteral(":/images/min.svg"));
    row.maxButton = AddTitleButton(*row.frame, maxButtonName, QStringLiteral(":/images/max.svg"));
    row.closeButton = AddTitleButton(*row.frame, QStringLiteral("m_closeButton"), QStringLiteral(":/images/close.svg"));
    return row;
}

FormTexts::FormTexts(QWidget &window, const TitleRow &row)
    : m_window(window)
    , m_titleLabel(row.title)
    , m_minButton(row.minButton)
    , m_maxButton(row.maxButton)
    , m_closeButton(row.closeButton)
{
}

void FormTexts::PutIn(const FormWords &words)
{
    const auto name = [](OwnText &own, QWidget *button, const QString &text) {
        if (button)
            own.PutInto(*button, &QWidget::accessibleName, &QWidget::setAccessibleName, text);
    };
    if (m_titleLabel)
        m_title.PutInto(*m_titleLabel, &QLabel::text, &QLabel::setText, words.title);
    name(m_minimize, m_minButton, words.minimize);
    name(m_maximize, m_maxButton, words.maximize);
    name(m_close, m_closeButton, words.close);
    m_windowTitle.PutInto(m_window, &QWidget::windowTitle, &QWidget::setWindowTitle, words.windowTitle);
}

QFrame *MakePlainFrame(QWidget &window, const QString &name)
{
    auto *frame = new QFrame(&window);
    SetPlain(*frame, name);
    return frame;
}

QFrame *MakeContentFrame(QWidget &window)
{
    QFrame *frame = MakePlainFrame(window, QStringLiteral("m_contentFrame"));
    frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    return frame;
}

void FrameContent::Set(QFrame &frame, QWidget *content)
{
    QWidget *earlier = In(frame);
    if (content == earlier)
        return;
    if (earlier) {
        frame.layout()->removeWidget(earlier);
        earlier->hide();
        earlier->deleteLater();
    }
    m_content = content;
    if (!content)
        return;
    if (!frame.layout()) {
        auto *column = new QVBoxLayout(&frame);
        column->setContentsMargins(0, 0, 0, 0);
    }
    frame.layout()->addWidget(content);
}

QWidget *FrameContent::In(const QFrame &frame) const
{
    return m_content && m_content->parentWidget() == &frame ? m_content.data() : nullptr;
}

QcWindowHandler *MakeHandler(QWidget &window, QWidget *titleRow)
{
    auto *handler = new QcWindowHandler(&window);
    handler->setWidget(&window);
    handler->setTitleBar(titleRow);
    handler->setBorderWidth(0);
    return handler;
}

void SettleSize(QWidget &window)
{
    if (window.isVisible() || window.windowState() != Qt::WindowNoState)
        return;
    // The steps of QWidget::setVisible, in its order.
    window.ensurePolished();
    if (QLayout *layout = window.layout())
        layout->activate(); // grows it to its least size
    if (!window.testAttribute(Qt::WA_Resized)) {
        window.adjustSize();
        window.setAttribute(Qt::WA_Resized, false);
    }
}

void BelongOver(QWidget &window, const QWidget &reference)
{
    if (window.windowType() == Qt::Dialog && !window.parentWidget())
        BelongTo(window, reference);
}

void ShowCentredOn(QWidget &window, const QWidget *reference)
{
    if (!reference)
        return;
    // First: while the window takes its size, its host may do away with the reference.
    const QRect r = reference->window()->geometry();
    const QPointer<const QWidget> over(reference);
    SettleSize(window);
    if (over)
        BelongOver(window, *over);
    window.move(r.x() + (r.width() - window.width()) / 2, r.y() + (r.height() - window.height()) / 2);
    window.show();
}

} // namespace Velmora
