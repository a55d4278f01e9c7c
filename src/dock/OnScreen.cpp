#include "dock/OnScreen_p.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace Velmora {

namespace {

QPoint Inside(const QRect &window, const QRect &screen)
{
    const auto within = [](int at, int size, int from, int room) { return std::max(from, std::min(at, from + room - size)); };
    return {within(window.x(), window.width(), screen.x(), screen.width()),
            within(window.y(), window.height(), screen.y(), screen.height())};
}

} // namespace

bool HasWindowManager()
{
    const QString platform = QGuiApplication::platformName();
    return platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
}

QVector<QRect> ScreenRects()
{
    QVector<QRect> rects;
    const auto screens = QGuiApplication::screens();
    for (const QScreen *screen : screens)
        rects.append(screen->availableGeometry());
    return rects;
}

QPoint OntoScreens(const QRect &window, const QVector<QRect> &screens)
{
    const auto shows = [&window](const QRect &screen) { return screen.intersects(window); };
    if (screens.isEmpty() || std::any_of(screens.begin(), screens.end(), shows))
        return window.topLeft();
    const auto distance = [&window](const QRect &screen) {
        const QPoint way = Inside(window, screen) - window.topLeft();
        return std::abs(double(way.x())) + std::abs(double(way.y()));
    };
    const auto nearest =
        std::min_element(screens.begin(), screens.end(), [&distance](const QRect &a, const QRect &b) { return distance(a) < distance(b); });
    return Inside(window, *nearest);
}

} // namespace Velmora
