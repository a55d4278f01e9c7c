#include "theme/WidgetChain_p.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QStringList>
#include <QToolTip>
#include <QWidget>

namespace Velmora {

namespace {

QString PairText(int first, int second)
{
    return QStringLiteral("{%1, %2}").arg(first).arg(second);
}

/// All at once: an object name may hold what looks like a place marker.
QString DescribeWidget(const QWidget &widget, ChainLine line)
{
    const QPoint global = widget.mapToGlobal(QPoint(0, 0));
    const QString pointer = QString::number(quintptr(&widget), 16);
    const QString className = QString::fromLatin1(widget.metaObject()->className());
    const QString relativePos = PairText(widget.x(), widget.y());
    const QString globalPos = PairText(global.x(), global.y());
    const QString size = PairText(widget.width(), widget.height());
    if (line == ChainLine::WithoutMinimum)
        return QStringLiteral("pointer: %1; class_name: %2; object_name: %3; relative_pos: %4; global_pos: %5; size: %6;")
            .arg(pointer, className, widget.objectName(), relativePos, globalPos, size);
    return QStringLiteral("pointer: %1; class_name: %2; object_name: %3; relative_pos: %4; global_pos: %5; size: %6; "
                          "minimumWidth: %7; minimumHeight: %8")
        .arg(pointer, className, widget.objectName(), relativePos, globalPos, size, QString::number(widget.minimumWidth()),
             QString::number(widget.minimumHeight()));
}

} // namespace

bool IsChainTipRequest(const QObject *watched, QEvent *event)
{
    return event->type() == QEvent::KeyPress && watched && watched->inherits("QWidgetWindow")
        && static_cast<QKeyEvent *>(event)->matches(QKeySequence::WhatsThis);
}

void ShowChainTip(ChainLine line)
{
    QStringList lines;
    for (const QWidget *widget = QApplication::widgetAt(QCursor::pos()); widget; widget = widget->parentWidget())
        lines.append(DescribeWidget(*widget, line));
    if (!lines.isEmpty())
        QToolTip::showText(QCursor::pos(), lines.join(QLatin1Char('\n')), nullptr);
}

} // namespace Velmora
