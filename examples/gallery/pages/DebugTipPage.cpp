#include "Kit.h"
#include "Page.h"

#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcTertiaryButton.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Gallery;

namespace {

struct Field
{
    const char *name;
    const char *example;
    const char *meaning;
};

constexpr Field kFields[] = {
    {"pointer", "55d0c8a3f1e0", "The widget's address, in hexadecimal: what a debugger takes."},
    {"class_name", "Velmora::QcPrimaryButton", "The class of the widget's meta-object."},
    {"object_name", "approveButton", "The object name, empty if none was set."},
    {"relative_pos", "{16, 88}", "The position in the parent."},
    {"global_pos", "{912, 407}", "The position on the desktop."},
    {"size", "{96, 24}", "Width and height now."},
    {"minimumWidth", "0", "The minimum that was set, which a layout must keep."},
    {"minimumHeight", "24", "The same for the height."},
};

QcFrame *MakeLevel(const QString &name, const QString &background)
{
    auto *frame = new QcFrame;
    frame->setObjectName(name);
    frame->setBackgroundColorParams(background);
    frame->setBorderColorParams(QStringLiteral("border/border_secondary"));
    frame->setBorderSides(QcFrame::Left | QcFrame::Top | QcFrame::Right | QcFrame::Bottom);
    frame->setBorderRadius(kGrid / 2);
    auto *layout = new QVBoxLayout(frame);
    layout->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, 2 * kGrid);
    layout->setSpacing(2 * kGrid);
    layout->addWidget(MakeElidingLabel(name, QcLabel::Hint));
    return frame;
}

class DebugTipPage : public PageWidget
{
public:
    DebugTipPage()
    {
        AddTrial();
        AddFields();
        AddUse();
    }

private:
    void AddTrial()
    {
        Card *card = AddSection(QStringLiteral("Try it"),
                                QStringLiteral("Rest the mouse on something, here or anywhere in the gallery, and press Shift+F1."));
        QcFrame *order = MakeLevel(QStringLiteral("orderPanel"), QStringLiteral("bg/bg_bottom"));
        QcFrame *customer = MakeLevel(QStringLiteral("customerPanel"), QStringLiteral("bg/bg_box"));
        QcFrame *actions = MakeLevel(QStringLiteral("actionRow"), QStringLiteral("bg/bg_secondary"));
        auto *row = new QHBoxLayout;
        row->setSpacing(kGrid);
        QcLabel *name = MakeElidingLabel(QStringLiteral("Order 2026-1187, Brandt & Sons"), QcLabel::Body);
        name->setObjectName(QStringLiteral("orderName"));
        row->addWidget(name, 1);
        auto *reject = new Velmora::QcTertiaryButton;
        reject->setObjectName(QStringLiteral("rejectButton"));
        reject->setText(QStringLiteral("Reject"));
        auto *approve = new Velmora::QcPrimaryButton;
        approve->setObjectName(QStringLiteral("approveButton"));
        approve->setText(QStringLiteral("Approve"));
        for (Velmora::QcButton *button : {static_cast<Velmora::QcButton *>(reject), static_cast<Velmora::QcButton *>(approve)}) {
            button->setHorizontalMargin(2 * kGrid);
            row->addWidget(button);
        }
        static_cast<QVBoxLayout *>(actions->layout())->addLayout(row);
        customer->layout()->addWidget(actions);
        order->layout()->addWidget(customer);
        card->Body()->addWidget(order);
    }

    void AddFields()
    {
        Card *card = AddSection(QStringLiteral("What it shows"),
                                QStringLiteral("One line a widget: the one under the cursor first, then its parents, up to the window."));
        auto *grid = new QGridLayout;
        grid->setHorizontalSpacing(4 * kGrid);
        grid->setVerticalSpacing(kGrid);
        int column = 0;
        for (const char *head : {"Field", "Example", "Meaning"})
            grid->addWidget(MakeLabel(QLatin1String(head), QcLabel::CaptionSmall), 0, column++);
        grid->addWidget(MakeDivider(), 1, 0, 1, 3);
        int row = 2;
        for (const Field &field : kFields) {
            grid->addWidget(MakeLabel(QLatin1String(field.name), QcLabel::Body), row, 0);
            grid->addWidget(MakeLabel(QLatin1String(field.example), QcLabel::BodySecondary), row, 1);
            grid->addWidget(MakeElidingLabel(QLatin1String(field.meaning), QcLabel::BodySecondary), row, 2);
            grid->setRowMinimumHeight(row, 3 * kGrid);
            ++row;
        }
        grid->setColumnStretch(2, 1);
        card->Body()->addLayout(grid);
    }

    void AddUse()
    {
        Card *card = AddSection(QStringLiteral("In a program of your own"));
        card->Body()->addWidget(
            MakeParagraph(QStringLiteral("The tip is off until the host asks for it. Switch it on in builds for developers and testers: "
                                         "a report that quotes the tip names the widget, its place and its size without a guess. The key "
                                         "is the platform's \"What's This\" "
                                         "binding; the press still reaches the widget that has the focus.")));
        auto *code = new QcFrame;
        code->setBackgroundColorParams(QStringLiteral("bg/bg_bottom"));
        code->setBorderRadius(kGrid / 2);
        auto *layout = new QVBoxLayout(code);
        layout->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, 2 * kGrid);
        layout->addWidget(MakeElidingLabel(QStringLiteral("app.setDebugTipEnabled(true);"), QcLabel::Body));
        card->Body()->addWidget(code);
    }
};

const PageRegistrar registrar({QStringLiteral("debugtip"), QStringLiteral("Tools"), QStringLiteral("Debug tip"),
                               QStringLiteral("Shift+F1 shows the chain of widgets under the mouse."), 920,
                               [] { return new DebugTipPage; }});

} // namespace
