// Linked into the tests of the thread-sanitizer build. Qt is not instrumented, so the sanitizer does not see the lock of a thread's
// event queue and takes every queued call for a race. Here that lock is told to it: whoever hands in a call releases the
// receiver's thread, and each event's delivery acquires the thread it runs on. Likewise the end of a thread and the wait for it.
// Nothing else is hidden.

#include <QAbstractEventDispatcher>
#include <QDeadlineTimer>
#include <QObject>
#include <QThread>
#include <QTimer>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

namespace {

template <typename Function>
Function NextDefinition(const char *mangledName)
{
    void *address = dlsym(RTLD_NEXT, mangledName);
    if (!address)
        qFatal("%s is not in this Qt", mangledName);
    return reinterpret_cast<Function>(address);
}

bool AcquireBeforeDelivery(void ** /*receiver, event, result*/)
{
    QThread *thread = QThread::currentThread();
    __tsan_acquire(thread);

    thread_local bool endIsWatched = false;
    const QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance();
    if (!endIsWatched && dispatcher) {
        endIsWatched = true;
        // The last that a thread does before whoever waits for it goes on.
        QObject::connect(dispatcher, &QObject::destroyed, [thread] { __tsan_release(thread); });
    }
    return false;
}

const bool acquiring = QInternal::registerCallback(QInternal::EventNotifyCallback, AcquireBeforeDelivery);

} // namespace

// These come before Qt's own in the order in which the linker looks symbols up.

bool QMetaObject::invokeMethodImpl(QObject *object, QtPrivate::QSlotObjectBase *slot, Qt::ConnectionType type, void *result)
{
    using Function = bool (*)(QObject *, QtPrivate::QSlotObjectBase *, Qt::ConnectionType, void *);
    static const auto next =
        NextDefinition<Function>("_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv");
    if (object)
        __tsan_release(object->thread());
    return next(object, slot, type, result);
}

void QTimer::singleShotImpl(int msec, Qt::TimerType type, const QObject *receiver, QtPrivate::QSlotObjectBase *slot)
{
    using Function = void (*)(int, Qt::TimerType, const QObject *, QtPrivate::QSlotObjectBase *);
    static const auto next =
        NextDefinition<Function>("_ZN6QTimer14singleShotImplEiN2Qt9TimerTypeEPK7QObjectPN9QtPrivate15QSlotObjectBaseE");
    if (receiver)
        __tsan_release(receiver->thread());
    next(msec, type, receiver, slot);
}

bool QThread::wait(QDeadlineTimer deadline)
{
    using Function = bool (*)(QThread *, QDeadlineTimer);
    static const auto next = NextDefinition<Function>("_ZN7QThread4waitE14QDeadlineTimer");
    const bool ended = next(this, deadline);
    if (ended)
        __tsan_acquire(this);
    return ended;
}
