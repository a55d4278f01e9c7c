#include <Velmora/QcFrame.h>
#include <Velmora/QcStyleManager.h>

#include "theme/TokenPainting_p.h"

#include <QPainter>

namespace Velmora {

namespace {

constexpr QcFrame::BorderSides kAllSides(QcFrame::Left | QcFrame::Top | QcFrame::Right | QcFrame::Bottom);

} // namespace

QcFrame::QcFrame(QWidget *parent)
    : QFrame(parent, Qt::WindowFlags())
{
    QcStyleManager::GetInstance()->RegisterColorHandler(this, [this] { update(); });
}

void QcFrame::setBackgroundColorParams(const QString &code)
{
    m_backgroundColorParams = code;
    update();
}

void QcFrame::setBorderColorParams(const QString &code)
{
    m_borderColorParams = code;
    update();
}

void QcFrame::setBorderRadius(int radius)
{
    m_borderRadius = radius;
    update();
}

void QcFrame::setBorderSides(QFlags<BorderSide> sides)
{
    if (m_borderSides == sides)
        return;
    m_borderSides = sides;
    update();
}

void QcFrame::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    FillRounded(painter, rect(), m_borderRadius, m_backgroundColorParams);
    if (!m_borderSides)
        return;

    if (m_borderSides == kAllSides) {
        OutlineRounded(painter, QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), m_borderRadius, m_borderColorParams);
        return;
    }
    painter.setBrush(Qt::NoBrush);
    SetBorderPen(painter, m_borderColorParams);
    const QRect r = rect();
    if (m_borderSides.testFlag(Top))
        painter.drawLine(r.topLeft(), r.topRight());
    if (m_borderSides.testFlag(Right))
        painter.drawLine(r.topRight(), r.bottomRight());
    if (m_borderSides.testFlag(Bottom))
        painter.drawLine(r.bottomLeft(), r.bottomRight());
    if (m_borderSides.testFlag(Left))
        painter.drawLine(r.bottomLeft(), r.topLeft());
}

} // namespace Velmora
