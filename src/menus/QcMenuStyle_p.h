#pragma once

#include <QFont>
#include <QProxyStyle>

QT_BEGIN_NAMESPACE
class QStyleOptionMenuItem;
QT_END_NAMESPACE

namespace Velmora {

/// Paints and measures a QcMenu: a rounded panel with a shadow, and items with themed icons. It holds no state of a menu.
class QcMenuStyle : public QProxyStyle
{
public:
    /// The one that all menus share while the application has the style that it has now; never deleted.
    ///
    /// It stands on a style of its own, made anew under the name of the application's: a proxy takes its base for itself, as a child
    /// that asks the proxy for its metrics, and would so change the look of the whole application and take its style along when it dies.
    static QcMenuStyle *Shared();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter, const QWidget *widget = nullptr) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option = nullptr, const QWidget *widget = nullptr) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size, const QWidget *widget) const override;
    int styleHint(StyleHint hint, const QStyleOption *option = nullptr, const QWidget *widget = nullptr,
                  QStyleHintReturn *returnData = nullptr) const override;

private:
    explicit QcMenuStyle(QStyle *base);

    void PaintItem(const QStyleOptionMenuItem &option, QPainter &painter, const QWidget *widget) const;

    const QFont m_itemFont;
};

} // namespace Velmora
