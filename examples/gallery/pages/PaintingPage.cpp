#include "Kit.h"
#include "Page.h"
#include "Tables.h"

#include <Velmora/PaintingHelpers.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>

using namespace Gallery;
using Velmora::RadiusParams;
using Velmora::ShadowParams;

namespace {

RadiusParams Radii(double topLeft, double topRight, double bottomRight, double bottomLeft)
{
    RadiusParams radii;
    radii.topLeft = topLeft;
    radii.topRight = topRight;
    radii.bottomRight = bottomRight;
    radii.bottomLeft = bottomLeft;
    return radii;
}

ShadowParams Shadow(int margin, const RadiusParams &radii, double opacity)
{
    ShadowParams shadow;
    shadow.margins = QMargins(margin, margin, margin, margin);
    shadow.radius = radii;
    shadow.maxOpacity = opacity;
    return shadow;
}

void PaintPanel(QPainter &painter, const QRect &panel, ShadowParams shadow)
{
    Velmora::DrawShadow(painter, panel, shadow);
    const QPainterPath shape = Velmora::GetRoundedRectFPath(panel, shadow.radius);
    painter.fillPath(shape, TokenColor(QStringLiteral("bg/bg_primary")));
    // A white veil lifts the panel off the dark table's ground, and leaves the light table's white as it is.
    painter.fillPath(shape, TokenColor(QStringLiteral("base/neutral/neutral-40")));
}

// A ground darker than the panel in both tables, yet light enough for a black shadow to show on it.
void PaintGround(QPainter &painter, const QRect &rect)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(TokenColor(QStringLiteral("bg/bg_transluent_subtle_hover")));
    painter.drawRoundedRect(rect, kGrid / 2.0, kGrid / 2.0);
}

class PaintingPage : public PageWidget
{
public:
    PaintingPage()
    {
        AddTrial();
        AddShadows();
        AddShapes();
    }

private:
    void AddTrial()
    {
        Card *card =
            AddSection(QStringLiteral("Try it"),
                       QStringLiteral("A panel with its shadow and four corners of its own, painted anew at every step of a slider."));
        QHBoxLayout *row = card->AddRow(4 * kGrid);
        auto *controls = new QVBoxLayout;
        controls->setSpacing(kGrid);
        m_margin = new SliderRow(QStringLiteral("Shadow margin"), 0, 48, 24);
        m_opacity = new SliderRow(QStringLiteral("Shadow opacity"), 0, 100, 30);
        m_opacity->SetFormat([](int percent) { return QString::number(percent / 100.0, 'f', 2); });
        m_topLeft = new SliderRow(QStringLiteral("Top left radius"), 0, 56, 8);
        m_topRight = new SliderRow(QStringLiteral("Top right radius"), 0, 56, 32);
        m_bottomRight = new SliderRow(QStringLiteral("Bottom right radius"), 0, 56, 8);
        m_bottomLeft = new SliderRow(QStringLiteral("Bottom left radius"), 0, 56, 40);

        auto *canvas = new Canvas([this](QPainter &painter, const QRect &rect) {
            PaintGround(painter, rect);
            const RadiusParams radii = Radii(m_topLeft->Value(), m_topRight->Value(), m_bottomRight->Value(), m_bottomLeft->Value());
            const QRect panel = rect.marginsRemoved(QMargins(56, 48, 56, 48));
            PaintPanel(painter, panel, Shadow(m_margin->Value(), radii, m_opacity->Value() / 100.0));
        });
        canvas->setMinimumHeight(26 * kGrid);
        row->addWidget(canvas, 1);
        for (SliderRow *slider : {m_margin, m_opacity, m_topLeft, m_topRight, m_bottomRight, m_bottomLeft}) {
            controls->addWidget(slider);
            connect(slider, &SliderRow::SignalValueChanged, canvas, [canvas] { canvas->update(); });
        }
        controls->addStretch();
        row->addLayout(controls, 1);
    }

    void AddShadows()
    {
        Card *card = AddSection(QStringLiteral("DrawShadow"),
                                QStringLiteral("Margin is how far the shadow reaches, opacity how strong it is at the panel's edge. It "
                                               "fades in even steps, one a pixel."));
        auto *grid = new QGridLayout;
        grid->setSpacing(2 * kGrid);
        constexpr int margins[] = {4, 8, 16, 24};
        constexpr double opacities[] = {0.1, 0.2, 0.4};
        for (int column = 0; column < 4; ++column) {
            grid->addWidget(
                MakeLabel(QStringLiteral("margin %1, radius %2").arg(margins[column]).arg(margins[column] / 2), QcLabel::BodySecondary), 0,
                column + 1);
            grid->setColumnStretch(column + 1, 1);
        }
        for (int row = 0; row < 3; ++row) {
            QcLabel *name = MakeLabel(QStringLiteral("opacity %1").arg(opacities[row]), QcLabel::BodySecondary);
            name->setFixedWidth(9 * kGrid);
            grid->addWidget(name, row + 1, 0);
            for (int column = 0; column < 4; ++column) {
                const double radius = margins[column] / 2.0;
                const ShadowParams shadow = Shadow(margins[column], Radii(radius, radius, radius, radius), opacities[row]);
                auto *cell = new Canvas([shadow](QPainter &painter, const QRect &rect) {
                    PaintGround(painter, rect);
                    PaintPanel(painter, rect.marginsRemoved(QMargins(40, 32, 40, 32)), shadow);
                });
                cell->setFixedHeight(15 * kGrid);
                grid->addWidget(cell, row + 1, column + 1);
            }
        }
        card->Body()->addLayout(grid);
    }

    void AddShapes()
    {
        Card *card = AddSection(QStringLiteral("GetRoundedRectFPath"),
                                QStringLiteral("A path with four corner radii, clockwise from the top left."));
        QHBoxLayout *row = card->AddRow(3 * kGrid);
        struct Shape
        {
            const char *name;
            RadiusParams radii;
        };
        const Shape shapes[] = {
            {"0, 0, 0, 0", Radii(0, 0, 0, 0)},     {"8, 8, 8, 8", Radii(8, 8, 8, 8)},       {"24, 24, 0, 0", Radii(24, 24, 0, 0)},
            {"0, 32, 0, 32", Radii(0, 32, 0, 32)}, {"4, 12, 24, 36", Radii(4, 12, 24, 36)}, {"36, 36, 36, 36", Radii(36, 36, 36, 36)},
        };
        for (const Shape &shape : shapes) {
            auto *cell = new QVBoxLayout;
            cell->setSpacing(kGrid);
            auto *picture = new Canvas([radii = shape.radii](QPainter &painter, const QRect &rect) {
                painter.setPen(QPen(TokenColor(QStringLiteral("brand/brand")), 1.0));
                painter.setBrush(TokenColor(QStringLiteral("brand/brand_bg")));
                painter.drawPath(Velmora::GetRoundedRectFPath(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), radii));
            });
            picture->setFixedHeight(9 * kGrid);
            cell->addWidget(picture);
            cell->addWidget(MakeLabel(QLatin1String(shape.name), QcLabel::BodySecondary));
            row->addLayout(cell, 1);
        }
    }

    SliderRow *m_margin = nullptr;
    SliderRow *m_opacity = nullptr;
    SliderRow *m_topLeft = nullptr;
    SliderRow *m_topRight = nullptr;
    SliderRow *m_bottomRight = nullptr;
    SliderRow *m_bottomLeft = nullptr;
};

const PageRegistrar registrar({QStringLiteral("painting"), QStringLiteral("Foundations"), QStringLiteral("Painting helpers"),
                               QStringLiteral("Soft shadows and rounded shapes for whoever paints a control of their own."), 120,
                               [] { return new PaintingPage; }});

} // namespace
