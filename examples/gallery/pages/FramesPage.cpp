#include "Kit.h"
#include "Page.h"
#include "Tables.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Gallery;

namespace {

constexpr QcFrame::BorderSide kSides[] = {QcFrame::Left, QcFrame::Top, QcFrame::Right, QcFrame::Bottom};
constexpr const char *kSideNames[] = {"left", "top", "right", "bottom"};

QcFrame *MakeFrame(const QString &background, const QString &border, int radius, QFlags<QcFrame::BorderSide> sides)
{
    auto *frame = new QcFrame;
    frame->setBackgroundColorParams(background);
    frame->setBorderColorParams(border);
    frame->setBorderRadius(radius);
    frame->setBorderSides(sides);
    frame->setFixedHeight(8 * kGrid);
    return frame;
}

QcFrame::BorderSides SidesOf(int bits)
{
    QcFrame::BorderSides sides;
    for (const QcFrame::BorderSide side : kSides)
        sides.setFlag(side, bits & side);
    return sides;
}

QString NameOf(int bits)
{
    if (bits == 0)
        return QStringLiteral("none");
    if (bits == 15)
        return QStringLiteral("all four");
    QStringList names;
    for (int i = 0; i < 4; ++i) {
        if (bits & kSides[i])
            names.append(QLatin1String(kSideNames[i]));
    }
    return names.join(QStringLiteral(", "));
}

void AddSpecimen(QGridLayout *grid, int row, int column, QcFrame *frame, const QString &caption)
{
    auto *cell = new QVBoxLayout;
    cell->setSpacing(kGrid);
    cell->addWidget(frame);
    cell->addWidget(MakeElidingLabel(caption, QcLabel::BodySecondary));
    grid->addLayout(cell, row, column);
}

QGridLayout *AddGrid(Card *card, int columns)
{
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(3 * kGrid);
    grid->setVerticalSpacing(3 * kGrid);
    for (int column = 0; column < columns; ++column)
        grid->setColumnStretch(column, 1);
    card->Body()->addLayout(grid);
    return grid;
}

class FramesPage : public PageWidget
{
public:
    FramesPage()
    {
        AddSides();
        AddRadii();
        AddTokens();
        AddTrial();
    }

private:
    void AddSides()
    {
        Card *card = AddSection(
            QStringLiteral("Border sides"),
            QStringLiteral(
                "Any of the four sides. All four together make one rounded outline; fewer are straight lines with square corners."));
        QGridLayout *grid = AddGrid(card, 4);
        for (int bits = 0; bits < 16; ++bits)
            AddSpecimen(grid, bits / 4, bits % 4,
                        MakeFrame(QStringLiteral("bg/bg_bottom"), QStringLiteral("border/border_primary"), 0, SidesOf(bits)), NameOf(bits));
    }

    void AddRadii()
    {
        Card *card =
            AddSection(QStringLiteral("Radii"), QStringLiteral("The background is always rounded, the border only when it is whole."));
        QGridLayout *grid = AddGrid(card, 5);
        int column = 0;
        for (const int radius : {0, 4, 8, 16, 32}) {
            const QString caption = QStringLiteral("%1 pixels").arg(radius);
            AddSpecimen(grid, 0, column, MakeFrame(QStringLiteral("brand/brand_bg"), QStringLiteral("brand/brand"), radius, SidesOf(15)),
                        caption);
            AddSpecimen(grid, 1, column,
                        MakeFrame(QStringLiteral("brand/brand_bg"), QStringLiteral("brand/brand"), radius, QcFrame::Top | QcFrame::Bottom),
                        caption + QStringLiteral(", top and bottom"));
            ++column;
        }
    }

    void AddTokens()
    {
        Card *card = AddSection(
            QStringLiteral("Tokens"),
            QStringLiteral("Background and border are colour codes: a token, a token with an alpha of its own, or a literal colour."));
        struct Pair
        {
            const char *background;
            const char *border;
        };
        constexpr Pair pairs[] = {
            {"bg/bg_float", "border/border_tertairy"},
            {"bg/bg_secondary", "border/border_secondary"},
            {"bg/bg_transluent_strong_active", "border/border_primary"},
            {"transparent", "others/focus"},
            {"${tip/success, 0.12}", "tip/success"},
            {"${tip/warning, 0.12}", "tip/warning"},
            {"${tip/danger, 0.12}", "tip/danger"},
            {"${tip/info, 0.12}", "tip/info"},
        };
        QGridLayout *grid = AddGrid(card, 4);
        int index = 0;
        for (const Pair &pair : pairs) {
            const QString background = QLatin1String(pair.background);
            const QString border = QLatin1String(pair.border);
            auto *cell = new QVBoxLayout;
            cell->setSpacing(kGrid / 2);
            cell->addWidget(MakeFrame(background, border, kGrid, SidesOf(15)));
            cell->addSpacing(kGrid / 2);
            cell->addWidget(MakeElidingLabel(background, QcLabel::Body));
            cell->addWidget(MakeElidingLabel(border, QcLabel::BodySecondary));
            grid->addLayout(cell, index / 4, index % 4);
            ++index;
        }
    }

    void AddTrial()
    {
        Card *card = AddSection(QStringLiteral("Try it"));
        QHBoxLayout *row = card->AddRow(4 * kGrid);
        QcFrame *frame = MakeFrame(QStringLiteral("bg/bg_bottom"), QStringLiteral("brand/brand"), 16, SidesOf(15));
        frame->setFixedHeight(16 * kGrid);
        row->addWidget(frame, 1);

        auto *controls = new QVBoxLayout;
        controls->setSpacing(2 * kGrid);
        auto *radius = new SliderRow(QStringLiteral("Radius"), 0, 64, 16);
        connect(radius, &SliderRow::SignalValueChanged, frame, [frame](int value) { frame->setBorderRadius(value); });
        controls->addWidget(radius);
        auto *sides = new QHBoxLayout;
        sides->setSpacing(kGrid);
        QcLabel *name = MakeLabel(QStringLiteral("Sides"), QcLabel::Body);
        name->setFixedWidth(14 * kGrid + kGrid);
        sides->addWidget(name);
        for (int i = 0; i < 4; ++i) {
            Velmora::QcButton *button = MakeToggle(QLatin1String(kSideNames[i]));
            button->setChecked(true);
            connect(button, &QAbstractButton::toggled, this, [this, frame, i](bool on) {
                m_sides.setFlag(kSides[i], on);
                frame->setBorderSides(m_sides);
            });
            sides->addWidget(button, 1);
        }
        controls->addLayout(sides);
        controls->addStretch();
        row->addLayout(controls, 1);
    }

    QcFrame::BorderSides m_sides = SidesOf(15);
};

const PageRegistrar
    registrar({QStringLiteral("frames"), QStringLiteral("Display"), QStringLiteral("Frames"),
               QStringLiteral("QcFrame, the painted surface: a rounded background and any of four border sides, in theme colours."), 200,
               [] { return new FramesPage; }});

} // namespace
