#pragma once

#include <Velmora/VelmoraExport.h>

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QEnterEvent;
class QEvent;
QT_END_NAMESPACE

/// What Qt 5.15 and Qt 6 type differently, under one name, so that the kit and a host's own classes compile with either.
namespace Velmora {

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
/// What QWidget::enterEvent() takes: void enterEvent(Velmora::EnterEvent *event) override.
using EnterEvent = QEnterEvent;
/// Where QAbstractNativeEventFilter::nativeEventFilter() and QWidget::nativeEvent() put their result.
using NativeResult = qintptr;
#else
/// What QWidget::enterEvent() takes: void enterEvent(Velmora::EnterEvent *event) override.
using EnterEvent = QEvent;
/// Where QAbstractNativeEventFilter::nativeEventFilter() and QWidget::nativeEvent() put their result.
using NativeResult = long;
#endif

} // namespace Velmora
