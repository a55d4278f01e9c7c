#pragma once

#include <Velmora/QcArrowTip.h>
#include <Velmora/VelmoraExport.h>

#include <QString>

namespace Velmora {

/// What QcArrowTipGlobal shows for a widget.
struct VELMORA_EXPORT TipInfo
{
    QString text;
    int maxWidth = 100; ///< pixels, see QcArrowTip::setMaxWidth()
    QString textColorParams = QStringLiteral("text/text_primary");
    QcArrowTip::TriangleDirection direction = QcArrowTip::Bottom;
};

} // namespace Velmora
