#pragma once

#include "support/Pixels.h"
#include "support/TestCase.h"

#include <QFocusFrame>
#include <QTest>
#include <QWidget>
#include <QWindow>

namespace VelmoraTest {

/// A window of one colour that has the keyboard, in which controls are placed by hand.
class FocusStage : public QWidget
{
public:
    FocusStage()
    {
        setObjectName(QStringLiteral("stage"));
        QPalette white = palette();
        white.setColor(QPalette::Window, Qt::white);
        setPalette(white);
        resize(400, 300);
    }

    template <typename Widget>
    Widget *Add(const QRect &place, QWidget *parent = nullptr)
    {
        auto *widget = new Widget(parent ? parent : this);
        widget->setFixedSize(place.size());
        widget->move(place.topLeft());
        return widget;
    }

    /// True if it is the active window then.
    bool Begin()
    {
        show();
        const bool isActive = QTest::qWaitForWindowActive(this);
        DrainEvents();
        return isActive;
    }

    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(windowHandle(), key, modifiers);
        DrainEvents();
    }

    /// The window as it is seen, once all is done that is due.
    QImage Look()
    {
        DrainEvents();
        return grab().toImage();
    }
};

/// The ring that \a window shows; null if it shows none.
inline QFocusFrame *RingIn(const QWidget &window)
{
    DrainEvents();
    const auto rings = window.findChildren<QFocusFrame *>();
    for (QFocusFrame *ring : rings) {
        if (ring->isVisible() && ring->window() == &window)
            return ring;
    }
    return nullptr;
}

/// The rectangle, in the window, that holds all that differs between two pictures of it, in logical pixels.
inline QRectF Difference(const QImage &before, const QImage &after)
{
    QRect box;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            if (before.pixel(x, y) != after.pixel(x, y))
                box |= QRect(x, y, 1, 1);
        }
    }
    const qreal ratio = before.devicePixelRatioF();
    return QRectF(box.x() / ratio, box.y() / ratio, box.width() / ratio, box.height() / ratio);
}

} // namespace VelmoraTest
