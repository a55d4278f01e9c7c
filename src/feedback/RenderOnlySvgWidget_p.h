#pragma once

#include <QPainter>
#include <QSvgRenderer>
#include <QSvgWidget>

namespace Velmora {

/// Shows an SVG and nothing under it: QSvgWidget paints the ground that a stylesheet gives it. To stylesheets and findChildren() it is one.
class RenderOnlySvgWidget : public QSvgWidget
{
public:
    using QSvgWidget::QSvgWidget;

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        renderer()->render(&painter);
    }
};

} // namespace Velmora
