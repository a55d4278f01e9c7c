#include "HoverEventAt.h"
#include "Kit.h"
#include "Page.h"
#include "Tables.h"

#include <Velmora/QcScrollBar.h>
#include <Velmora/QcStyleManager.h>

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHoverEvent>
#include <QPainter>
#include <QScrollArea>
#include <QVBoxLayout>
#include <QVector>

using namespace Gallery;
using Velmora::QcScrollBar;
using Velmora::QcStyleManager;

namespace {

constexpr int kPaneHeight = 24 * kGrid;

/// What lies under a bar: the handle's colour is made for one of them. Without colours it is the table's.
struct Ground
{
    const char *name;
    const char *color;
    const char *text;
};
constexpr Ground kOwn = {"On the table's ground", nullptr, nullptr};
constexpr Ground kDark = {"On dark ground", "#1F2430", "#C9CFDB"};
constexpr Ground kLight = {"On light ground", "#F2F4F8", "#4A5264"};

/// Colours the handle by \a code, as a host does whose ground is light.
void ColourHandle(QcScrollBar *bar, const QString &code)
{
    QcStyleManager::GetInstance()->RegisterStyleSheet(
        bar,
        QStringLiteral("Velmora--QcScrollBar[objectPropertyHover=true]::handle, Velmora--QcScrollBar::handle:hover { background: %1; }")
            .arg(code));
}

/// An area whose own bars never show.
QScrollArea *MakeArea()
{
    auto *area = new QScrollArea;
    area->setFixedHeight(kPaneHeight);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::StrongFocus); // the arrow keys scroll
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidgetResizable(true);
    return area;
}

QColor ColorOf(const char *color, const char *token)
{
    return color ? QColor(QLatin1String(color)) : TokenColor(QLatin1String(token));
}

/// Fills \a area with its ground and \a text on it.
void Fill(QScrollArea *area, const Ground &ground, const QString &text = QString())
{
    constexpr int kMargin = 2 * kGrid;
    auto *content = new Canvas([ground, text](QPainter &painter, const QRect &rect) {
        painter.fillRect(rect, ColorOf(ground.color, "bg/bg_secondary"));
        painter.setPen(ColorOf(ground.text, "text/text_secondary"));
        painter.drawText(rect.adjusted(kMargin, kMargin, 0, 0), Qt::AlignLeft | Qt::AlignTop, text);
    });
    if (!text.isEmpty())
        content->setMinimumSize(content->fontMetrics().size(0, text) + QSize(2 * kMargin, 2 * kMargin));
    area->setWidget(content);
}

QString LongText()
{
    QStringList lines;
    for (int i = 1; i <= 60; ++i)
        lines << QStringLiteral("%1   The quick brown fox jumps over the lazy dog, and over the hedge behind it, and on.").arg(i);
    return lines.join(QLatin1Char('\n'));
}

class ScrollBarsPage : public PageWidget
{
public:
    ScrollBarsPage()
    {
        AddAreas();
        AddStates();
    }

private:
    void AddAreas()
    {
        Card *card = AddSection(QStringLiteral("Floating bars"),
                                QStringLiteral("They take no room: move the mouse over an area to see the handles, and over a handle to "
                                               "see it widen. Drag it, or turn the wheel over it."));
        auto *modes = new Segmented({QStringLiteral("On hover"), QStringLiteral("Always")});
        modes->setAccessibleName(QStringLiteral("When handles show"));
        QHBoxLayout *choice = card->AddRow();
        choice->addWidget(modes);
        choice->addStretch();
        QHBoxLayout *row = card->AddRow(3 * kGrid);
        for (const Ground &ground : {kOwn, kDark, kLight}) {
            auto *column = new QVBoxLayout;
            column->setSpacing(kGrid);
            column->addWidget(MakeLabel(QLatin1String(ground.name), QcLabel::BodySecondary));
            QScrollArea *area = MakeArea();
            area->setAccessibleName(QLatin1String(ground.name));
            for (QScrollBar *original : {area->verticalScrollBar(), area->horizontalScrollBar()}) {
                auto *bar = new QcScrollBar(original->orientation(), area);
                bar->SetOriginalScrollBar(original);
                if (ground.color == kLight.color)
                    ColourHandle(bar, QStringLiteral("rgba(0, 0, 0, 0.25)"));
                m_bars.append(bar);
            }
            Fill(area, ground, LongText());
            column->addWidget(area);
            row->addLayout(column, 1);
        }
        connect(modes, &Segmented::SignalCurrentChanged, this, [this](int index) {
            for (QcScrollBar *bar : qAsConst(m_bars))
                bar->setDisplayModeM(index == 0 ? QcScrollBar::DisplayOnHover : QcScrollBar::DisplayAlways);
        });
        modes->SetCurrentIndex(0);
    }

    /// Real bars, each held in one look.
    void AddStates()
    {
        Card *card =
            AddSection(QStringLiteral("States"),
                       QStringLiteral("The handle's colour is a translucent white in the tables Light and Dark. On light ground it "
                                      "needs one of the host's: the token in a table of its own, as in those of high contrast, or "
                                      "a rule for the bar."));
        for (const Ground &ground : {kOwn, kDark, kLight}) {
            QHBoxLayout *row = card->AddRow(3 * kGrid);
            AddState(row, QStringLiteral("%1, at rest").arg(QLatin1String(ground.name)), ground, false, false, QString());
            AddState(row, QStringLiteral("area hovered"), ground, true, false, QString());
            AddState(row, QStringLiteral("handle hovered"), ground, true, true, QString());
            AddState(row, QStringLiteral("a host's colour"), ground, true, true, QStringLiteral("rgba(128, 128, 128, 0.9)"));
        }
    }

    static void AddState(QHBoxLayout *row, const QString &name, const Ground &ground, bool isShown, bool isHandleHovered,
                         const QString &code)
    {
        auto *column = new QVBoxLayout;
        column->setSpacing(kGrid);
        column->addWidget(MakeLabel(name, QcLabel::BodySecondary));
        QScrollArea *area = MakeArea();
        area->setFixedHeight(kPaneHeight / 2);
        Fill(area, ground);
        auto *bar = new QcScrollBar(Qt::Vertical, area);
        if (!code.isEmpty())
            ColourHandle(bar, code);
        if (isShown)
            bar->setDisplayModeM(QcScrollBar::DisplayAlways);
        auto *original = new QScrollBar(area);
        original->hide();
        bar->SetOriginalScrollBar(original);
        original->setPageStep(60);
        original->setRange(0, 200);
        original->setValue(40);
        if (isHandleHovered) {
            bar->setAttribute(Qt::WA_UnderMouse);
            area->resize(kPaneHeight / 2, kPaneHeight / 2);
            QHoverEvent hover = HoverEventAt(QEvent::HoverEnter, QPoint(8, kPaneHeight / 6), QPoint(-1, -1));
            QCoreApplication::sendEvent(bar, &hover);
        }
        MakeSpecimen(area);
        column->addWidget(area);
        row->addLayout(column, 1);
    }

    QVector<QcScrollBar *> m_bars;
};

const PageRegistrar registrar({QStringLiteral("scrollbars"), QStringLiteral("Inputs"), QStringLiteral("Scroll bars"),
                               QStringLiteral("QcScrollBar: a thin bar that floats on what it scrolls, and shows when the mouse comes."),
                               350, [] { return new ScrollBarsPage; }});

} // namespace
