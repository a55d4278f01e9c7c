#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QEvent;
class QObject;
QT_END_NAMESPACE

namespace Velmora {

enum class ChainLine {
    Full,           ///< with the minimum size
    WithoutMinimum, ///< and closed by a semicolon
};

/// True for a press of the key of "What's this?" that reaches a platform window. The widgets behind it see the same press again.
bool IsChainTipRequest(const QObject *watched, QEvent *event);

/// Shows a tip at the cursor with one line a widget, from the one under the cursor up to the top, through dialogs too. Nothing without one.
void ShowChainTip(ChainLine line);

} // namespace Velmora
