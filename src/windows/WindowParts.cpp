#include "windows/WindowParts_p.h"

#include <Velmora/QcFrame.h>
#include <Velmora/QcIconButton.h>
#include <Velmora/QcLabel.h>

#include "windows/QcWindowHandler_p.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QSpacerItem>
#include <QVBoxLayout>

namespace Velmora {

namespace {

constexpr QSize kFirstSize(600, 400);
constexpr int kTitleHeight = 40;
constexpr int kButtonHeight = 24;
constexpr int kRightMargin = 8;
constexpr int kSpacing = 8;

QcIconButton *MakeTitleButton(const TitleRow &row, const QString &name, const QString &iconPath, const QString &accessibleName)
{
    auto *button = new QcIconButton(row.frame);
    button->setObjectName(name);
    button->setFixedHeight(kButtonHeight);
    button->SetIconPath(iconPath);
    button->setAccessibleName(accessibleName);
    // As on a system frame: out of the Tab order, so that a window opens with the focus in its content, and no
    // answer to Enter in a dialog.
    button->setFocusPolicy(Qt::NoFocus);
    button->setAutoDefault(false);
    // A press that the button does not take, as of the right mouse button, is still its own: passed on to the row it would move
    // the window, and the release, which the window system keeps then, would never end the pressed look.
    button->setAttribute(Qt::WA_NoMousePropagation);
    row.layout->addWidget(button);
    return button;
}

void SetPlain(QFrame &frame, const QString &name)
{
    frame.setObjectName(name);
    frame.setFrameShape(QFrame::NoFrame);
    frame.setFrameShadow(QFrame::Raised);
}

} // namespace

void BeginForm(QWidget &window, const char *name, const char *title)
{
    if (window.objectName().isEmpty())
        window.setObjectName(QLatin1String(name));
    window.resize(kFirstSize);
    window.setWindowTitle(QCoreApplication::translate(name, title));
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

TitleRow MakeTitleRow(QWidget &window, const char *context, int leftMargin, const QString &maxButtonName)
{
    TitleRow row = {};
    row.frame = new QcFrame(&window);
    SetPlain(*row.frame, QStringLiteral("m_titleFrame"));
    row.frame->setMinimumSize(0, 0);
    row.frame->setFixedHeight(kTitleHeight);
    row.frame->setBackgroundColorParams(QStringLiteral("transparent"));
    row.frame->setBorderSides(QcFrame::Bottom);
    row.frame->setBorderColorParams(QStringLiteral("border/border_tertairy"));

    row.layout = new QHBoxLayout(row.frame);
    row.layout->setObjectName(QStringLiteral("horizontalLayout"));
    row.layout->setContentsMargins(leftMargin, 0, kRightMargin, 0);
    row.layout->setSpacing(kSpacing);

    row.title = new QcLabel(row.frame);
    row.title->setObjectName(QStringLiteral("m_titleLabel"));
    row.title->setType(QcLabel::Caption);
    row.title->setText(QCoreApplication::translate(context, "TextLabel"));
    row.layout->addWidget(row.title);

    row.spacer = new QSpacerItem(405, 20, QSizePolicy::Expanding, QSizePolicy::Minimum);
    row.layout->addItem(row.spacer);

    row.minButton = MakeTitleButton(row, QStringLiteral("m_minButton"), QStringLiteral(":/images/min.svg"),
                                    QCoreApplication::translate(context, "Minimize"));
    row.maxButton =
        MakeTitleButton(row, maxButtonName, QStringLiteral(":/images/max.svg"), QCoreApplication::translate(context, "Maximize"));
    row.closeButton = MakeTitleButton(row, QStringLiteral("m_closeButton"), QStringLiteral(":/images/close.svg"),
                                      QCoreApplication::translate(context, "Close"));
    return row;
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

void ShowCentredOn(QWidget &window, const QWidget *reference)
{
    if (!reference)
        return;
    SettleSize(window);
    const QRect r = reference->window()->geometry();
    window.move(r.x() + (r.width() - window.width()) / 2, r.y() + (r.height() - window.height()) / 2);
    window.show();
}

} // namespace Velmora
