#include "Kit.h"
#include "Page.h"

#include <Velmora/QCSlider.h>

#include <QEnterEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QVBoxLayout>

using namespace Gallery;
using Velmora::QCSlider;

namespace {

constexpr const char *kStateNames[] = {"Disabled", "Normal", "Hover", "Pressed"};

enum State { Disabled, Normal, Hover, Pressed };

/// A slider held in one state, brought about as the mouse does it, anew at each show: hiding ends it.
class Held : public QCSlider
{
public:
    Held(Qt::Orientation orientation, State state)
        : QCSlider(orientation)
        , m_state(state)
    {
        setRange(0, 100);
        setValue(60);
        setEnabled(state != Disabled);
        setAccessibleName(QLatin1String(kStateNames[state]));
        MakeSpecimen(this);
        if (orientation == Qt::Horizontal)
            setFixedSize(20 * kGrid, 3 * kGrid);
        else
            setFixedSize(3 * kGrid, 12 * kGrid);
    }

protected:
    void showEvent(QShowEvent *event) override
    {
        QCSlider::showEvent(event);
        if (m_state == Hover || m_state == Pressed) {
            QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
            enterEvent(&enter);
        }
        if (m_state == Pressed) {
            // The right button: it looks pressed all the same and moves nothing.
            QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 1), QCursor::pos(), Qt::RightButton, Qt::RightButton, Qt::NoModifier);
            mousePressEvent(&press);
        }
    }

private:
    const State m_state;
};

class SlidersPage : public PageWidget
{
public:
    SlidersPage()
    {
        AddLive();
        AddDirections();
        AddStates();
    }

private:
    void AddLive()
    {
        Card *card = AddSection(QStringLiteral("Live"), QStringLiteral("Mouse, wheel, arrows, Page Up and Down, Home and End."));
        auto *percent = new SliderRow(QStringLiteral("Opacity"), 0, 100, 80);
        percent->SetFormat([](int value) { return QStringLiteral("%1 %").arg(value); });
        card->Body()->addWidget(percent);
        card->Body()->addWidget(new SliderRow(QStringLiteral("Offset"), -50, 50, 0));
        card->Body()->addWidget(new SliderRow(QStringLiteral("Columns"), 1, 6, 3));
        auto *locked = new SliderRow(QStringLiteral("Locked"), 0, 100, 35);
        locked->setEnabled(false);
        card->Body()->addWidget(locked);
    }

    void AddDirections()
    {
        Card *card = AddSection(QStringLiteral("Directions"),
                                QStringLiteral("Right to left mirrors the slider. An inverted one is filled from the left all the same."));
        QHBoxLayout *row = card->AddRow(4 * kGrid);
        auto *lying = new QVBoxLayout;
        lying->setSpacing(2 * kGrid);
        AddLying(lying, "Left to right", [](QCSlider & /*slider*/) {});
        AddLying(lying, "Right to left", [](QCSlider &slider) { slider.setLayoutDirection(Qt::RightToLeft); });
        AddLying(lying, "Inverted", [](QCSlider &slider) { slider.setInvertedAppearance(true); });
        AddLying(lying, "One value", [](QCSlider &slider) { slider.setRange(5, 5); });
        row->addLayout(lying, 1);
        for (const int value : {0, 30, 60, 100}) {
            auto *standing = new QCSlider(Qt::Vertical);
            standing->setRange(0, 100);
            standing->setValue(value);
            standing->setFixedSize(3 * kGrid, 18 * kGrid);
            standing->setAccessibleName(QStringLiteral("Vertical, %1").arg(value));
            row->addWidget(standing);
        }
    }

    template <typename Prepare>
    static void AddLying(QVBoxLayout *rows, const char *name, const Prepare &prepare)
    {
        auto *row = new QHBoxLayout;
        QcLabel *label = MakeLabel(QLatin1String(name), QcLabel::Body);
        label->setFixedWidth(14 * kGrid);
        row->addWidget(label);
        auto *slider = new QCSlider;
        slider->setRange(0, 100);
        slider->setValue(30);
        slider->setFixedHeight(3 * kGrid);
        slider->setAccessibleName(QLatin1String(name));
        prepare(*slider);
        row->addWidget(slider, 1);
        rows->addLayout(row);
    }

    void AddStates()
    {
        Card *card = AddSection(QStringLiteral("States"));
        auto *grid = new QGridLayout;
        grid->setHorizontalSpacing(3 * kGrid);
        grid->setVerticalSpacing(kGrid);
        for (const State state : {Disabled, Normal, Hover, Pressed}) {
            grid->addWidget(MakeLabel(QLatin1String(kStateNames[state]), QcLabel::BodySecondary), 0, state, Qt::AlignCenter);
            grid->addWidget(new Held(Qt::Horizontal, state), 2, state, Qt::AlignCenter);
            grid->addWidget(new Held(Qt::Vertical, state), 3, state, Qt::AlignCenter);
            grid->setColumnStretch(state, 1);
        }
        grid->addWidget(MakeDivider(), 1, 0, 1, 4);
        card->Body()->addLayout(grid);
    }
};

const PageRegistrar registrar({QStringLiteral("sliders"), QStringLiteral("Inputs"), QStringLiteral("Sliders"),
                               QStringLiteral("QCSlider: a value between two bounds, with a handle that grows under the mouse."), 345,
                               [] { return new SlidersPage; }});

} // namespace
