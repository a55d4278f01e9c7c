#include "Kit.h"
#include "Page.h"

#include <Velmora/QcDockIndicator.h>
#include <Velmora/QcDockMask.h>

#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Gallery;
using Velmora::DockPosition;
using Velmora::QcDockIndicator;
using Velmora::QcDockMask;

namespace {

constexpr int kAreaWidth = 37 * kGrid;
constexpr int kAreaHeight = 28 * kGrid;

const QList<DockPosition> kAll = {Velmora::Center,    Velmora::Left,       Velmora::Right,    Velmora::Top,        Velmora::Bottom,
                                  Velmora::OuterLeft, Velmora::OuterRight, Velmora::OuterTop, Velmora::OuterBottom};

class DockDragPage : public PageWidget
{
public:
    DockDragPage()
    {
        Card *places =
            AddSection(QStringLiteral("What an area offers"),
                       QStringLiteral("All nine places; all but the centre, for a type that the area refuses; the centre alone, for an "
                                      "empty area beside no other. Places that are not offered are dimmed."));
        QHBoxLayout *row = places->AddRow(2 * kGrid);
        row->addWidget(MakeArea(kAll));
        row->addWidget(MakeArea(kAll.mid(1)));
        row->addWidget(MakeArea({Velmora::Center}));
        row->addStretch();

        Card *previews = AddSection(QStringLiteral("Where a panel would drop"),
                                    QStringLiteral("Left of an area, as a tab of it, and along the lower edge of the whole."));
        row = previews->AddRow(2 * kGrid);
        row->addWidget(MakeArea(kAll, QRect(0, 0, kAreaWidth / 2, kAreaHeight)));
        row->addWidget(MakeArea(kAll, QRect(0, 0, kAreaWidth, kAreaHeight)));
        row->addWidget(MakeArea(kAll, QRect(0, kAreaHeight - kAreaHeight / 2, kAreaWidth, kAreaHeight / 2)));
        row->addStretch();
    }

private:
    // The drag's own windows, held inside of the page.
    static QWidget *MakeArea(const QList<DockPosition> &offered, const QRect &mask = QRect())
    {
        auto *area = new QcFrame;
        area->setFixedSize(kAreaWidth, kAreaHeight);
        area->setBackgroundColorParams(QStringLiteral("bg/bg_float"));
        area->setBorderColorParams(QStringLiteral("border/border_tertairy"));
        area->setBorderSides(QcFrame::Left | QcFrame::Top | QcFrame::Right | QcFrame::Bottom);
        area->setBorderRadius(4);
        if (mask.isValid()) {
            auto *preview = new QcDockMask(nullptr);
            preview->setParent(area, Qt::Widget);
            preview->setGeometry(mask);
            preview->show();
        }
        auto *indicator = new QcDockIndicator(nullptr);
        indicator->setParent(area, Qt::Widget);
        indicator->setDockPositionList(offered);
        indicator->move((kAreaWidth - indicator->width()) / 2, (kAreaHeight - indicator->height()) / 2);
        indicator->show();
        MakeSpecimen(area);
        return area;
    }
};

const PageRegistrar registrar({QStringLiteral("dockdrag"), QStringLiteral("Docking"), QStringLiteral("Dragging"),
                               QStringLiteral("QcDockIndicator and QcDockMask: what shows while a panel is dragged."), 610,
                               [] { return new DockDragPage; }});

} // namespace
