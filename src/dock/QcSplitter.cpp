#include <Velmora/QcSplitter.h>

#include "dock/QcSplitterHandle_p.h"

namespace Velmora {

QcSplitter::QcSplitter(QWidget *parent)
    : QSplitter(parent)
{
}

QcSplitter::QcSplitter(Qt::Orientation orientation, QWidget *parent)
    : QSplitter(orientation, parent)
{
}

QcSplitter::~QcSplitter() = default;

QSplitterHandle *QcSplitter::createHandle()
{
    return new QcSplitterHandle(orientation(), this);
}

} // namespace Velmora
