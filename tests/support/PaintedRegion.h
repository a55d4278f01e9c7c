#pragma once

#include <QEvent>
#include <QPaintEvent>
#include <QRegion>
#include <QWidget>

namespace VelmoraTest {

/// Collects what of a widget is repainted.
class PaintedRegion : public QObject
{
public:
    explicit PaintedRegion(QWidget &widget) { widget.installEventFilter(this); }
    QRegion region;

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            region += static_cast<QPaintEvent *>(event)->region();
        return false;
    }
};

} // namespace VelmoraTest
