#include "Kit.h"
#include "Page.h"

#include <Velmora/QcDoubleSpinBox.h>
#include <Velmora/QcSpinBox.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPainter>
#include <QStyleOptionSpinBox>

using namespace Gallery;
using Velmora::QcDoubleSpinBox;
using Velmora::QcSpinBox;

namespace {

constexpr const char *kStateNames[] = {"Disabled", "Normal", "Hover", "Focus"};

enum State { Disabled, Normal, Hover, Focus };

constexpr int kFieldHeight = 3 * kGrid;

/// A spin box held in one state: its style is told so each time it paints.
template <typename Box>
class Held : public Box
{
public:
    explicit Held(State state)
        : m_state(state)
    {
        this->setEnabled(state != Disabled);
        this->setFixedSize(14 * kGrid, kFieldHeight);
        this->setAccessibleName(QLatin1String(kStateNames[state]));
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QStyleOptionSpinBox option;
        this->initStyleOption(&option);
        option.state.setFlag(QStyle::State_MouseOver, m_state == Hover);
        option.state.setFlag(QStyle::State_HasFocus, m_state == Focus);
        QPainter painter(this);
        this->style()->drawComplexControl(QStyle::CC_SpinBox, &option, &painter, this);
    }

private:
    const State m_state;
};

class SpinBoxesPage : public PageWidget
{
public:
    SpinBoxesPage()
    {
        AddLive();
        AddStates();
    }

private:
    void AddLive()
    {
        Card *card = AddSection(QStringLiteral("Live"),
                                QStringLiteral("Arrow keys, wheel, Page Up and Page Down, or a number typed in. The theme shows no arrows; "
                                               "a click at the end of the field steps all the same."));
        auto *grid = new QGridLayout;
        grid->setHorizontalSpacing(2 * kGrid);
        grid->setVerticalSpacing(2 * kGrid);
        grid->setColumnStretch(4, 1);

        auto *copies = new QcSpinBox;
        copies->setRange(1, 99);
        Add(grid, 0, 0, "Copies", copies);
        auto *angle = new QcSpinBox;
        angle->setRange(0, 359);
        angle->setWrapping(true);
        angle->setSuffix(QStringLiteral("\u00B0"));
        angle->setValue(45);
        Add(grid, 0, 2, "Angle, round and round", angle);
        auto *scale = new QcDoubleSpinBox;
        scale->bSetBorder(true);
        scale->setRange(0.01, 100.0);
        scale->setSingleStep(0.25);
        scale->setPrefix(QStringLiteral("1 : "));
        scale->setValue(2.5);
        Add(grid, 1, 0, "Scale", scale);
        auto *margin = new QcDoubleSpinBox;
        margin->bSetBorder(false);
        margin->setSuffix(QStringLiteral(" mm"));
        margin->setLayoutDirection(Qt::RightToLeft);
        margin->setValue(7.5);
        Add(grid, 1, 2, "Right to left", margin);
        auto *typed = new QcSpinBox;
        typed->setRange(1990, 2090);
        typed->setValue(2026);
        typed->setButtonSymbols(QAbstractSpinBox::NoButtons);
        Add(grid, 2, 0, "Year, no room for arrows", typed);
        auto *locked = new QcSpinBox;
        locked->setValue(12);
        locked->setEnabled(false);
        Add(grid, 2, 2, "Locked", locked);
        card->Body()->addLayout(grid);
    }

    static void Add(QGridLayout *grid, int row, int column, const char *name, QAbstractSpinBox *box)
    {
        grid->addWidget(MakeLabel(QLatin1String(name), QcLabel::Body), row, column);
        box->setAccessibleName(QLatin1String(name));
        box->setFixedSize(16 * kGrid, kFieldHeight);
        grid->addWidget(box, row, column + 1);
    }

    void AddStates()
    {
        Card *card = AddSection(QStringLiteral("States"));
        m_grid = new QGridLayout;
        m_grid->setVerticalSpacing(kGrid);
        for (const State state : {Disabled, Normal, Hover, Focus}) {
            m_grid->addWidget(MakeLabel(QLatin1String(kStateNames[state]), QcLabel::BodySecondary), 0, state + 1, Qt::AlignCenter);
            m_grid->setColumnStretch(state + 1, 1);
        }
        m_grid->addWidget(MakeDivider(), 1, 0, 1, 5);
        AddRow<QcSpinBox>("QcSpinBox", [](QcSpinBox &box) { box.setValue(42); });
        AddRow<QcDoubleSpinBox>("QcDoubleSpinBox, bordered", [](QcDoubleSpinBox &box) {
            box.bSetBorder(true);
            box.setValue(3.14);
        });
        AddRow<QcDoubleSpinBox>("Without a border while disabled", [](QcDoubleSpinBox &box) {
            box.bSetBorder(false);
            box.setValue(3.14);
        });
        card->Body()->addLayout(m_grid);
    }

    template <typename Box, typename Prepare>
    void AddRow(const char *name, const Prepare &prepare)
    {
        const int row = m_grid->rowCount();
        m_grid->addWidget(MakeLabel(QLatin1String(name), QcLabel::Body), row, 0);
        for (const State state : {Disabled, Normal, Hover, Focus}) {
            auto *box = new Held<Box>(state);
            prepare(*box);
            MakeSpecimen(box);
            m_grid->addWidget(box, row, state + 1, Qt::AlignCenter);
        }
    }

    QGridLayout *m_grid = nullptr;
};

const PageRegistrar registrar({QStringLiteral("spinboxes"), QStringLiteral("Inputs"), QStringLiteral("Spin boxes"),
                               QStringLiteral("QcSpinBox and QcDoubleSpinBox: numbers typed in, or changed step by step."), 340,
                               [] { return new SpinBoxesPage; }});

} // namespace
