#include "support/TestMain.h"

#include <Velmora/PaintingHelpers.h>

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Velmora;

Q_DECLARE_METATYPE(QMargins)

namespace {

/// Falls from 0.8 against the panel to 0.1 on the outer edge.
const QList<double> kAlphas = {0.8, 0.7, 0.6, 0.5, 0.4, 0.3, 0.2, 0.1};
const QList<double> kOpaque = {1, 1, 1, 1, 1, 1, 1, 1};
const QMargins kMargins(8, 8, 8, 8);
const QRect kPanel(30, 30, 60, 60);

QImage Canvas()
{
    QImage image(120, 120, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QImage Shadow(const QRect &panel, const QMargins &margins, const RadiusParams &radius, const QList<double> &alphas = kAlphas)
{
    QImage image = Canvas();
    QPainter painter(&image);
    DrawShadow(painter, panel, margins, radius, alphas);
    return image;
}

double AlphaAt(const QImage &image, int x, int y)
{
    return image.pixelColor(x, y).alphaF();
}

bool Near(double a, double b, double tolerance = 0.02)
{
    return std::abs(a - b) <= tolerance;
}

#define COMPARE_ALPHA(actual, expected) \
    QVERIFY2(Near((actual), (expected)), qPrintable(QStringLiteral("%1 is not %2").arg(actual).arg(expected)))

QRect InkRect(const QImage &image)
{
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).alpha() > 0)
                box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

/// The alpha of a strip of \a width pixels at pixel \a k from the panel outward: stops k + 1 steps in, width + 1 steps in all.
double StripAlpha(int k, int width, const QList<double> &alphas)
{
    const double position = (k + 0.5) / width * (width + 1) - 1; // in steps, counted from the first stop
    const auto at = [&alphas](int i) { return alphas.at(qBound(0, i, alphas.size() - 1)); };
    if (position <= 0)
        return at(0);
    const int before = int(position);
    return at(before) + (at(before + 1) - at(before)) * (position - before);
}

/// The alpha of a corner at \a distance from its centre: the first stop on the inner radius, then one a pixel.
double RingAlpha(double distance, double innerRadius, const QList<double> &alphas)
{
    const double position = distance - innerRadius;
    const int before = qBound(0, int(position), int(alphas.size()) - 2);
    return alphas.at(before) + (alphas.at(before + 1) - alphas.at(before)) * (position - before);
}

void CompareStops(const QGradientStops &stops, const QList<double> &positions, const QList<double> &alphas)
{
    QCOMPARE(stops.size(), positions.size());
    for (int i = 0; i < stops.size(); ++i) {
        QVERIFY2(Near(stops[i].first, positions[i], 1e-12), qPrintable(QString::number(stops[i].first, 'g', 17)));
        QCOMPARE(stops[i].second.rgb(), QColor(Qt::black).rgb());
        QVERIFY2(Near(stops[i].second.alphaF(), alphas[i], 1e-4), qPrintable(QString::number(stops[i].second.alphaF())));
    }
}

} // namespace

class TestPaintingHelpers : public VelmoraTest::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void new_records_are_all_zero()
    {
        const RadiusParams radius;
        QCOMPARE(radius.topLeft, 0.0);
        QCOMPARE(radius.topRight, 0.0);
        QCOMPARE(radius.bottomRight, 0.0);
        QCOMPARE(radius.bottomLeft, 0.0);
        const ShadowParams shadow;
        QVERIFY(shadow.margins.isNull());
        QCOMPARE(shadow.radius.bottomLeft, 0.0);
        QCOMPARE(shadow.maxOpacity, 0.0);
        QVERIFY(shadow.alphaFList.isEmpty());
    }

    void radii_run_clockwise_from_the_top_left()
    {
        const RadiusParams radius{1, 2, 3, 4};
        QCOMPARE(radius.topLeft, 1.0);
        QCOMPARE(radius.topRight, 2.0);
        QCOMPARE(radius.bottomRight, 3.0);
        QCOMPARE(radius.bottomLeft, 4.0);
        RadiusParams assigned;
        assigned = radius;
        QCOMPARE(assigned.bottomRight, 3.0);
    }

    void a_copied_shadow_is_whole_and_a_moved_one_leaves_no_list()
    {
        ShadowParams source{{1, 2, 3, 4}, {5, 6, 7, 8}, 0.5, {0.5, 0.25}};
        const ShadowParams copy(source);
        QCOMPARE(copy.margins, QMargins(1, 2, 3, 4));
        QCOMPARE(copy.radius.bottomRight, 7.0);
        QCOMPARE(copy.maxOpacity, 0.5);
        QCOMPARE(copy.alphaFList, source.alphaFList);

        ShadowParams moved(std::move(source));
        QCOMPARE(moved.alphaFList, copy.alphaFList);
        QVERIFY(source.alphaFList.isEmpty()); // NOLINT(bugprone-use-after-move): the empty list is promised

        ShadowParams target;
        target.alphaFList = {1.0};
        target = std::move(moved);
        QCOMPARE(target.alphaFList, copy.alphaFList);
        QVERIFY(moved.alphaFList.isEmpty()); // NOLINT(bugprone-use-after-move)
        moved = target;
        QCOMPARE(moved.alphaFList, copy.alphaFList);
    }

    void alphas_fall_linearly_from_the_panel_and_do_not_reach_zero_data()
    {
        QTest::addColumn<QMargins>("margins");
        QTest::addColumn<double>("maxOpacity");
        QTest::addColumn<QList<double>>("expected");
        QTest::newRow("even") << QMargins(4, 4, 4, 4) << 0.1 << QList<double>{0.1, 0.075, 0.05, 0.025};
        QTest::newRow("largest is left") << QMargins(2, 0, 1, 1) << 1.0 << QList<double>{1.0, 0.5};
        QTest::newRow("largest is top") << QMargins(0, 2, 1, 1) << 1.0 << QList<double>{1.0, 0.5};
        QTest::newRow("largest is right") << QMargins(0, 1, 2, 1) << 1.0 << QList<double>{1.0, 0.5};
        QTest::newRow("largest is bottom") << QMargins(0, 0, 1, 2) << 1.0 << QList<double>{1.0, 0.5};
        QTest::newRow("three") << QMargins(3, 3, 3, 3) << 0.9 << QList<double>{0.9, 0.6, 0.3};
        QTest::newRow("one pixel") << QMargins(1, 0, 0, 0) << 0.3 << QList<double>{0.3};
        QTest::newRow("no opacity") << QMargins(3, 3, 3, 3) << 0.0 << QList<double>{0.0, 0.0, 0.0};
        QTest::newRow("no margin") << QMargins() << 0.5 << QList<double>{};
        QTest::newRow("negative margins") << QMargins(-4, -4, -4, -4) << 0.5 << QList<double>{};
    }

    void alphas_fall_linearly_from_the_panel_and_do_not_reach_zero()
    {
        QFETCH(QMargins, margins);
        QFETCH(double, maxOpacity);
        QFETCH(QList<double>, expected);
        ShadowParams shadow{margins, {}, maxOpacity, {9.0}}; // what the list held is replaced
        shadow.MaxOpacityToAlphaFList();
        QCOMPARE(shadow.alphaFList.size(), expected.size());
        for (int i = 0; i < expected.size(); ++i)
            QVERIFY(Near(shadow.alphaFList[i], expected[i], 1e-15));
    }

    void an_edge_gradient_has_one_stop_a_pixel_the_first_one_step_in_data()
    {
        QTest::addColumn<QPointF>("from");
        QTest::addColumn<QPointF>("to");
        QTest::addColumn<QList<double>>("alphas");
        QTest::addColumn<QList<double>>("positions");
        QTest::addColumn<QList<double>>("expected");
        const QList<double> fifths = {0.2, 0.4, 0.6, 0.8, 1.0};
        QTest::newRow("leftward; the last alpha repeats")
            << QPointF(4, 0) << QPointF(0, 0) << QList<double>{0.4, 0.3, 0.2, 0.1} << fifths << QList<double>{0.4, 0.3, 0.2, 0.1, 0.1};
        QTest::newRow("downward") << QPointF(0, 10) << QPointF(0, 14) << QList<double>{0.5} << fifths
                                  << QList<double>{0.5, 0.5, 0.5, 0.5, 0.5};
        QTest::newRow("x counts before y") << QPointF(0, 0) << QPointF(1, 50) << QList<double>{0.5, 0.25} << QList<double>{0.5, 1.0}
                                           << QList<double>{0.5, 0.25};
        QTest::newRow("more alphas than pixels")
            << QPointF(1, 0) << QPointF(0, 0) << QList<double>{0.9, 0.8, 0.7} << QList<double>{0.5, 1.0} << QList<double>{0.9, 0.8};
        const double step = 1.0 / double(4.3f); // the step of single precision, not 1 / 4.3
        QTest::newRow("broken length; what passes the end lies on it")
            << QPointF(0, 0) << QPointF(3.3, 0) << QList<double>{0.9, 0.8, 0.7, 0.6, 0.5}
            << QList<double>{step, 2 * step, 3 * step, 4 * step, 1.0} << QList<double>{0.9, 0.8, 0.7, 0.6, 0.5};
        QTest::newRow("the length is taken in single precision") << QPointF(0, 0) << QPointF(1.00000001, 0) << QList<double>{0.5, 0.4, 0.3}
                                                                 << QList<double>{0.5, 1.0} << QList<double>{0.5, 0.4};
        QTest::newRow("no length") << QPointF(3, 3) << QPointF(3, 3) << QList<double>{0.5, 0.4} << QList<double>{1.0} << QList<double>{0.5};
    }

    void an_edge_gradient_has_one_stop_a_pixel_the_first_one_step_in()
    {
        QFETCH(QPointF, from);
        QFETCH(QPointF, to);
        QFETCH(QList<double>, alphas);
        QFETCH(QList<double>, positions);
        QFETCH(QList<double>, expected);
        QLinearGradient gradient;
        SetLinearGradient(gradient, {from, to}, alphas);
        QCOMPARE(gradient.start(), from);
        QCOMPARE(gradient.finalStop(), to);
        CompareStops(gradient.stops(), positions, expected);
    }

    void a_corner_gradient_begins_on_the_inner_radius_data()
    {
        QTest::addColumn<double>("innerRadius");
        QTest::addColumn<double>("radius");
        QTest::addColumn<QList<double>>("alphas");
        QTest::addColumn<QList<double>>("positions");
        QTest::addColumn<QList<double>>("expected");
        QTest::newRow("one stop an alpha") << 3.0 << 8.0 << QList<double>{0.4, 0.3, 0.2, 0.1} << QList<double>{0.375, 0.5, 0.625, 0.75}
                                           << QList<double>{0.4, 0.3, 0.2, 0.1};
        QTest::newRow("no panel radius") << 0.0 << 4.0 << QList<double>{0.2, 0.1} << QList<double>{0.0, 0.25} << QList<double>{0.2, 0.1};
        QTest::newRow("the rest stacks up at the end, the last wins")
            << 2.0 << 4.0 << QList<double>{0.6, 0.5, 0.4, 0.3, 0.2} << QList<double>{0.5, 0.75, 1.0} << QList<double>{0.6, 0.5, 0.2};
        QTest::newRow("a negative inner radius begins outside")
            << -2.0 << 2.0 << QList<double>{0.6, 0.5, 0.4, 0.3} << QList<double>{0.0, 0.5} << QList<double>{0.4, 0.3};
    }

    void a_corner_gradient_begins_on_the_inner_radius()
    {
        QFETCH(double, innerRadius);
        QFETCH(double, radius);
        QFETCH(QList<double>, alphas);
        QFETCH(QList<double>, positions);
        QFETCH(QList<double>, expected);
        QRadialGradient gradient;
        SetRadialGradient(gradient, QPointF(7, 9), innerRadius, radius, alphas);
        QCOMPARE(gradient.center(), QPointF(7, 9));
        QCOMPARE(gradient.focalPoint(), QPointF(7, 9));
        QCOMPARE(gradient.radius(), radius);
        CompareStops(gradient.stops(), positions, expected);
    }

    void a_corner_gradient_without_alphas_gets_geometry_only()
    {
        QRadialGradient gradient;
        SetRadialGradient(gradient, QPointF(1, 2), 3, 4, {});
        QCOMPARE(gradient.center(), QPointF(1, 2));
        QCOMPARE(gradient.focalPoint(), QPointF(1, 2));
        QCOMPARE(gradient.radius(), 4.0);
        QCOMPARE(gradient.stops(), QRadialGradient().stops());
    }

    void the_list_of_a_record_is_filled_once()
    {
        ShadowParams shadow{{4, 4, 4, 4}, {}, 0.8, {}};
        QImage image = Canvas();
        {
            QPainter painter(&image);
            DrawShadow(painter, kPanel, shadow);
        }
        const QList<double> filled = shadow.alphaFList;
        QCOMPARE(filled, (QList<double>{0.8, 0.75 * 0.8, 0.4, 0.2}));
        QCOMPARE(image, Shadow(kPanel, shadow.margins, shadow.radius, filled));

        shadow.margins = QMargins(8, 8, 8, 8);
        shadow.maxOpacity = 0.1;
        image = Canvas();
        {
            QPainter painter(&image);
            DrawShadow(painter, kPanel, shadow);
        }
        QCOMPARE(shadow.alphaFList, filled);
        QCOMPARE(image, Shadow(kPanel, shadow.margins, shadow.radius, filled));
    }

    void a_shadow_without_opacity_is_invisible()
    {
        ShadowParams shadow{kMargins, {4, 4, 4, 4}, 0.0, {}};
        QImage image = Canvas();
        {
            QPainter painter(&image);
            DrawShadow(painter, kPanel, shadow);
        }
        QCOMPARE(shadow.alphaFList.size(), 8);
        QCOMPARE(image, Canvas());
    }

    void edges_fade_from_the_panel_outward()
    {
        const QImage image = Shadow(kPanel, kMargins, {});
        const QPoint middle = kPanel.center();
        for (int k = 0; k < 8; ++k) {
            const double expected = StripAlpha(k, 8, kAlphas);
            COMPARE_ALPHA(AlphaAt(image, kPanel.left() - 1 - k, middle.y()), expected);
            COMPARE_ALPHA(AlphaAt(image, kPanel.right() + 1 + k, middle.y()), expected);
            COMPARE_ALPHA(AlphaAt(image, middle.x(), kPanel.top() - 1 - k), expected);
            COMPARE_ALPHA(AlphaAt(image, middle.x(), kPanel.bottom() + 1 + k), expected);
        }
        COMPARE_ALPHA(AlphaAt(image, kPanel.left() - 1, middle.y()), 0.8); // the first alpha lies against the panel
        COMPARE_ALPHA(AlphaAt(image, kPanel.left() - 8, middle.y()), 0.1);
        QCOMPARE(image.pixelColor(kPanel.left() - 1, middle.y()).rgb(), QColor(Qt::black).rgb());
    }

    void a_shadow_lies_outside_its_panel_and_within_its_margins()
    {
        const QImage image = Shadow(kPanel, kMargins, {});
        QCOMPARE(InkRect(image), kPanel.marginsAdded(kMargins));
        QCOMPARE(InkRect(image.copy(kPanel)), QRect());
    }

    void an_edge_ends_where_the_rounding_begins()
    {
        // Opaque alphas, so that the strips can be told from the rings, whose ends taper off by a pixel at most.
        const RadiusParams radius{4, 8, 12, 16};
        const QImage image = Shadow(kPanel, kMargins, radius, kOpaque);
        const auto inked = [&image](int x, int y) { return AlphaAt(image, x, y) > 0.99; };
        const int l = kPanel.left();
        const int t = kPanel.top();
        const int r = kPanel.right();
        const int b = kPanel.bottom();
        // Along the panel's edge the whole side is dark, from one rounding to the other and into both rings.
        for (int x = l + 4; x <= r - 8; ++x)
            QVERIFY2(inked(x, t - 1), qPrintable(QString::number(x)));
        for (int y = t + 8; y <= b - 12; ++y)
            QVERIFY2(inked(r + 1, y), qPrintable(QString::number(y)));
        for (int x = l + 16; x <= r - 12; ++x)
            QVERIFY2(inked(x, b + 1), qPrintable(QString::number(x)));
        for (int y = t + 4; y <= b - 16; ++y)
            QVERIFY2(inked(l - 1, y), qPrintable(QString::number(y)));
        // The panel's own corners: outside of the rounding dark, inside of it clear.
        QVERIFY(inked(r - 1, b - 1));
        QVERIFY(AlphaAt(image, r - 5, b - 5) < 0.01);
        QVERIFY(inked(l + 2, b - 2));
        QVERIFY(AlphaAt(image, l + 6, b - 6) < 0.01);
        QVERIFY(AlphaAt(image, l + 3, t + 3) < 0.01);
    }

    void corners_fade_around_their_own_centre_data()
    {
        QTest::addColumn<double>("radius");
        QTest::newRow("square panel") << 0.0;
        QTest::newRow("radius 6") << 6.0;
        QTest::newRow("radius 20") << 20.0;
    }

    void corners_fade_around_their_own_centre()
    {
        QFETCH(double, radius);
        struct Corner
        {
            RadiusParams radii;
            QPointF center;
            QPoint outward;
        };
        const QRectF panel(kPanel);
        const Corner corners[] = {
            {{radius, 1, 1, 1}, panel.topLeft() + QPointF(radius, radius), {-1, -1}},
            {{1, radius, 1, 1}, panel.topRight() + QPointF(-radius, radius), {1, -1}},
            {{1, 1, radius, 1}, panel.bottomRight() + QPointF(-radius, -radius), {1, 1}},
            {{1, 1, 1, radius}, panel.bottomLeft() + QPointF(radius, -radius), {-1, 1}},
        };
        for (const Corner &corner : corners) {
            const QImage image = Shadow(kPanel, kMargins, corner.radii);
            int probed = 0;
            for (int i = 0; i < 30; ++i) {
                const double distance = std::sqrt(2.0) * (i + 0.5);
                const QPointF pixel = corner.center + QPointF(corner.outward) * (i + 0.5);
                const double alpha = AlphaAt(image, int(std::floor(pixel.x())), int(std::floor(pixel.y())));
                if (distance < radius - 1 || distance > radius + 8 + 1)
                    COMPARE_ALPHA(alpha, 0.0);
                if (distance > radius + 1 && distance < radius + 8 - 1) {
                    QVERIFY2(Near(alpha, RingAlpha(distance, radius, kAlphas), 0.03), qPrintable(QString::number(distance)));
                    ++probed;
                }
            }
            QVERIFY(probed >= 4);
        }
    }

    void uneven_margins_share_the_largest_width()
    {
        const QImage image = Shadow(kPanel, QMargins(2, 2, 8, 8), {});
        const int y = kPanel.center().y();
        const int x = kPanel.center().x();
        // The left strip begins 2 outside and is 8 wide, so 6 of it lie over the panel; its first alpha is the inner end.
        QCOMPARE(InkRect(image), kPanel.adjusted(-2, -2, 8, 8));
        for (int k = 0; k < 8; ++k) {
            const double expected = StripAlpha(k, 8, kAlphas);
            COMPARE_ALPHA(AlphaAt(image, kPanel.left() + 5 - k, y), expected);
            COMPARE_ALPHA(AlphaAt(image, x, kPanel.top() + 5 - k), expected);
            COMPARE_ALPHA(AlphaAt(image, kPanel.right() + 1 + k, y), expected);
            COMPARE_ALPHA(AlphaAt(image, x, kPanel.bottom() + 1 + k), expected);
        }
        COMPARE_ALPHA(AlphaAt(image, kPanel.left() + 6, y), 0.0);
        COMPARE_ALPHA(AlphaAt(image, x, kPanel.top() + 6), 0.0);
        // The corner's square is sized by the common width too: its centre lies 8 inside of the shadow's corner.
        COMPARE_ALPHA(AlphaAt(image, kPanel.left() + 3, kPanel.top() + 3), RingAlpha(std::sqrt(2.0) * 2.5, 0, kAlphas));
    }

    void a_broken_radius_is_truncated_to_whole_pixels()
    {
        // 2 * (8 + 2.5) is a square of 21 pixels, whose centre counts as its 11th pixel line.
        const QImage image = Shadow(kPanel, kMargins, {2.5, 2.5, 2.5, 2.5});
        QCOMPARE(InkRect(image), kPanel.marginsAdded(kMargins));
        const int cx = kPanel.left() - 8 + 11;
        const int cy = kPanel.top() - 8 + 11;
        const double distance = std::sqrt(2.0) * 4.5;
        QVERIFY(Near(AlphaAt(image, cx - 5, cy - 5), RingAlpha(distance, 2.5, kAlphas), 0.03));
    }

    void a_panel_smaller_than_its_corners_gets_only_corners()
    {
        const QRect panel(40, 40, 6, 60);
        const QImage image = Shadow(panel, kMargins, {8, 8, 8, 8}, kOpaque);
        // The sides fit between their corners; top and bottom do not, and no strip fills the square around them.
        COMPARE_ALPHA(AlphaAt(image, panel.left() - 1, panel.center().y()), 1.0);
        COMPARE_ALPHA(AlphaAt(image, panel.right() + 1, panel.center().y()), 1.0);
        COMPARE_ALPHA(AlphaAt(image, panel.left() - 8, panel.top() - 8), 0.0);
        QVERIFY(InkRect(image).height() <= 76);
        const QImage tiny = Shadow(QRect(50, 50, 2, 2), QMargins(3, 3, 3, 3), {10, 10, 10, 10}, kOpaque);
        QVERIFY(!InkRect(tiny).isNull());
    }

    void the_painter_is_back_as_it_was()
    {
        QImage image = Canvas();
        QPainter painter(&image);
        painter.setPen(QPen(Qt::red, 3, Qt::DashLine));
        painter.setBrush(QBrush(Qt::green, Qt::Dense4Pattern));
        painter.setClipRect(QRect(0, 0, 77, 66));
        painter.setOpacity(0.5);
        painter.translate(3, 4);
        painter.setRenderHints(QPainter::Antialiasing, false);
        painter.setRenderHints(QPainter::SmoothPixmapTransform, true);
        const auto hints = painter.renderHints();
        const QPen pen = painter.pen();
        const QBrush brush = painter.brush();
        const QTransform transform = painter.transform();
        const QRegion clip = painter.clipRegion();

        DrawShadow(painter, kPanel, kMargins, {4, 4, 4, 4}, kAlphas);
        ShadowParams shadow{kMargins, {}, 0.5, {}};
        DrawShadow(painter, kPanel, shadow);

        QCOMPARE(painter.pen(), pen);
        QCOMPARE(painter.brush(), brush);
        QCOMPARE(painter.renderHints(), hints);
        QCOMPARE(painter.transform(), transform);
        QVERIFY(painter.hasClipping());
        QCOMPARE(painter.clipRegion(), clip);
        QCOMPARE(painter.opacity(), 0.5);
    }

    void an_existing_pen_or_missing_smoothing_leaves_no_trace()
    {
        QImage image = Canvas();
        QPainter painter(&image);
        painter.setPen(QPen(Qt::red, 5));
        DrawShadow(painter, kPanel, kMargins, {6, 6, 6, 6}, kAlphas);
        painter.end();
        QCOMPARE(image, Shadow(kPanel, kMargins, {6, 6, 6, 6}));
    }

    void what_has_no_width_draws_nothing_data()
    {
        QTest::addColumn<QMargins>("margins");
        QTest::addColumn<double>("radius");
        QTest::addColumn<QList<double>>("alphas");
        QTest::newRow("no margins") << QMargins() << 0.0 << kAlphas;
        QTest::newRow("no margins, rounded") << QMargins() << 10.0 << kAlphas;
        QTest::newRow("no margins, no alphas") << QMargins() << 10.0 << QList<double>();
        QTest::newRow("negative margins") << QMargins(-5, -5, -5, -5) << 10.0 << kAlphas;
        QTest::newRow("no alphas") << kMargins << 10.0 << QList<double>();
    }

    void what_has_no_width_draws_nothing()
    {
        QFETCH(QMargins, margins);
        QFETCH(double, radius);
        QFETCH(QList<double>, alphas);
        QCOMPARE(Shadow(kPanel, margins, {radius, radius, radius, radius}, alphas), Canvas());
    }

    // A warning of Qt would fail these, a hang would time out.
    void extreme_values_are_harmless_data()
    {
        QTest::addColumn<QRect>("panel");
        QTest::addColumn<QMargins>("margins");
        QTest::addColumn<double>("radius");
        QTest::addColumn<double>("maxOpacity");
        const int maximum = std::numeric_limits<int>::max();
        const int minimum = std::numeric_limits<int>::min();
        QTest::newRow("empty panel") << QRect() << kMargins << 0.0 << 0.5;
        QTest::newRow("empty panel, rounded") << QRect(50, 50, 0, 0) << kMargins << 5.0 << 0.5;
        QTest::newRow("inverted panel") << QRect(50, 50, -30, -30) << kMargins << 5.0 << 0.5;
        QTest::newRow("negative radii within the margin") << kPanel << kMargins << -3.0 << 0.5;
        QTest::newRow("negative radii as large as the margin") << kPanel << kMargins << -8.0 << 0.5;
        QTest::newRow("negative radii beyond the margin") << kPanel << kMargins << -30.0 << 0.5;
        QTest::newRow("one negative margin") << kPanel << QMargins(-20, 8, 8, 8) << 4.0 << 0.5;
        QTest::newRow("wide margins") << kPanel << QMargins(3000, 3000, 3000, 3000) << 4.0 << 0.5;
        QTest::newRow("wide radii") << kPanel << kMargins << 1e6 << 0.5;
        QTest::newRow("radii beyond int") << kPanel << kMargins << 1e300 << 0.5;
        QTest::newRow("radii without end") << kPanel << kMargins << std::numeric_limits<double>::infinity() << 0.5;
        QTest::newRow("radii that are no number") << kPanel << kMargins << std::numeric_limits<double>::quiet_NaN() << 0.5;
        QTest::newRow("largest panel") << QRect(QPoint(minimum, minimum), QPoint(maximum, maximum)) << kMargins << 4.0 << 0.5;
        QTest::newRow("furthest panel") << QRect(QPoint(maximum - 10, maximum - 10), QPoint(maximum, maximum)) << kMargins << 4.0 << 0.5;
        QTest::newRow("opacity above one") << kPanel << kMargins << 4.0 << 3.0;
        QTest::newRow("negative opacity") << kPanel << kMargins << 4.0 << -1.0;
        QTest::newRow("opacity that is no number") << kPanel << kMargins << 4.0 << std::numeric_limits<double>::quiet_NaN();
    }

    void extreme_values_are_harmless()
    {
        QFETCH(QRect, panel);
        QFETCH(QMargins, margins);
        QFETCH(double, radius);
        QFETCH(double, maxOpacity);
        ShadowParams shadow{margins, {radius, radius, radius, radius}, maxOpacity, {}};
        QImage image = Canvas();
        QPainter painter(&image);
        DrawShadow(painter, panel, shadow);
        QVERIFY(painter.isActive());
        QCOMPARE(shadow.alphaFList.size(), std::max(margins.left(), margins.right()));
    }

    void gradients_over_endless_or_no_lengths_are_harmless()
    {
        const double infinity = std::numeric_limits<double>::infinity();
        QLinearGradient endless;
        SetLinearGradient(endless, {QPointF(0, 0), QPointF(infinity, 0)}, kAlphas);
        QVERIFY(endless.stops().size() > 8);
        QLinearGradient untouched;
        SetLinearGradient(untouched, {QPointF(0, 0), QPointF(4, 0)}, {});
        QCOMPARE(untouched.finalStop(), QPointF(4, 0));
        QRadialGradient point;
        SetRadialGradient(point, QPointF(1, 1), 0, 0, kAlphas);
        QCOMPARE(point.radius(), 0.0);
    }

    void a_rounded_path_runs_clockwise_from_the_left_edge()
    {
        const QPainterPath path = GetRoundedRectFPath(QRectF(10.5, 20.5, 100, 50), {1, 2, 3, 4});
        struct Step
        {
            QPainterPath::ElementType type;
            QPointF point;
        };
        // A quarter is one curve: two control points, then its end.
        const Step expected[] = {
            {QPainterPath::MoveToElement, {10.5, 21.5}},  {QPainterPath::CurveToElement, {11.5, 20.5}},
            {QPainterPath::LineToElement, {108.5, 20.5}}, {QPainterPath::CurveToElement, {110.5, 22.5}},
            {QPainterPath::LineToElement, {110.5, 67.5}}, {QPainterPath::CurveToElement, {107.5, 70.5}},
            {QPainterPath::LineToElement, {14.5, 70.5}},  {QPainterPath::CurveToElement, {10.5, 66.5}},
            {QPainterPath::LineToElement, {10.5, 21.5}},
        };
        int at = 0;
        for (const Step &step : expected) {
            QVERIFY(at < path.elementCount());
            QCOMPARE(path.elementAt(at).type, step.type);
            if (step.type == QPainterPath::CurveToElement)
                at += 2;
            const QPointF end = path.elementAt(at);
            QVERIFY2(Near(end.x(), step.point.x(), 1e-9) && Near(end.y(), step.point.y(), 1e-9),
                     qPrintable(QStringLiteral("%1, %2").arg(end.x()).arg(end.y())));
            ++at;
        }
        QCOMPARE(at, path.elementCount());
        QCOMPARE(path.boundingRect(), QRectF(10.5, 20.5, 100, 50));
    }

    void a_path_without_radii_is_the_plain_rectangle()
    {
        const QPainterPath path = GetRoundedRectFPath(QRectF(1, 2, 30, 40), {});
        const QPointF corners[] = {{1, 2}, {31, 2}, {31, 42}, {1, 42}, {1, 2}};
        QCOMPARE(path.elementCount(), 5);
        for (int i = 0; i < 5; ++i) {
            QCOMPARE(path.elementAt(i).type, i == 0 ? QPainterPath::MoveToElement : QPainterPath::LineToElement);
            QCOMPARE(QPointF(path.elementAt(i)), corners[i]);
        }
    }

    void a_rounded_path_of_odd_values_is_harmless_data()
    {
        QTest::addColumn<QRectF>("rect");
        QTest::addColumn<double>("radius");
        QTest::newRow("negative radii") << QRectF(0, 0, 40, 40) << -5.0;
        QTest::newRow("radii beyond the rectangle") << QRectF(0, 0, 4, 4) << 50.0;
        QTest::newRow("empty rectangle") << QRectF() << 5.0;
        QTest::newRow("inverted rectangle") << QRectF(10, 10, -20, -20) << 2.0;
        QTest::newRow("huge") << QRectF(-1e9, -1e9, 2e9, 2e9) << 1e8;
    }

    void a_rounded_path_of_odd_values_is_harmless()
    {
        QFETCH(QRectF, rect);
        QFETCH(double, radius);
        const QPainterPath path = GetRoundedRectFPath(rect, {radius, radius, radius, radius});
        const QPointF start(rect.left(), rect.top() + radius);
        QCOMPARE(QPointF(path.elementAt(0)), start);
        QCOMPARE(path.currentPosition(), start);
        QImage image = Canvas();
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillPath(path, Qt::black);
    }
};

VELMORA_TEST_MAIN(TestPaintingHelpers)

#include "tst_PaintingHelpers.moc"
