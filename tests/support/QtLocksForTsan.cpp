// Part of every test program of a thread sanitizer build, and of no other.
//
// Qt is not instrumented: the sanitizer sees neither the lock of an event queue nor that of a thread's end, and takes
// whatever a queued call or a timer carries to another thread for a race. The functions below stand in front of Qt's own
// of the same name, because symbols are looked up in the program first, and tell it two things:
//  - what was done before a call was handed in happens before that call runs;
//  - what a thread did in its calls happens before the end of a wait for that thread.
// Nothing is suppressed, so a record that is touched after it was handed in is still found.

#include <QThread>
#include <QTimer>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

namespace {

template <typename Function>
Function NextOf(const char *symbol)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, symbol));
}

/// Carries a slot object to where it is called or dropped.
class HandedOver : public QtPrivate::QSlotObjectBase
{
public:
    static QtPrivate::QSlotObjectBase *Carrying(QtPrivate::QSlotObjectBase *slot)
    {
        QtPrivate::QSlotObjectBase *carrier = new HandedOver(slot); // owned as the slot was
        __tsan_release(carrier);
        return carrier;
    }

private:
    explicit HandedOver(QtPrivate::QSlotObjectBase *slot)
        : QSlotObjectBase(&Do)
        , m_slot(slot)
    {
    }

    static void Do(int operation, QtPrivate::QSlotObjectBase *carrier, QObject *receiver, void **arguments, bool *)
    {
        __tsan_acquire(carrier);
        auto *self = static_cast<HandedOver *>(carrier);
        if (operation == Call) {
            self->m_slot->call(receiver, arguments);
        } else if (operation == Destroy) {
            self->m_slot->destroyIfLastRef();
            delete self;
        }
        __tsan_release(QThread::currentThread());
    }

    QtPrivate::QSlotObjectBase *m_slot;
};

} // namespace

bool QMetaObject::invokeMethodImpl(QObject *object, QtPrivate::QSlotObjectBase *slot, Qt::ConnectionType type, void *result)
{
    using Function = bool (*)(QObject *, QtPrivate::QSlotObjectBase *, Qt::ConnectionType, void *);
    static const auto next =
        NextOf<Function>("_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv");
    return next(object, HandedOver::Carrying(slot), type, result);
}

void QTimer::singleShotImpl(int milliseconds, Qt::TimerType type, const QObject *receiver, QtPrivate::QSlotObjectBase *slot)
{
    using Function = void (*)(int, Qt::TimerType, const QObject *, QtPrivate::QSlotObjectBase *);
    static const auto next = NextOf<Function>("_ZN6QTimer14singleShotImplEiN2Qt9TimerTypeEPK7QObjectPN9QtPrivate15QSlotObjectBaseE");
    next(milliseconds, type, receiver, HandedOver::Carrying(slot));
}

bool QThread::wait(QDeadlineTimer deadline)
{
    using Function = bool (*)(QThread *, QDeadlineTimer);
    static const auto next = NextOf<Function>("_ZN7QThread4waitE14QDeadlineTimer");
    const bool ended = next(this, deadline);
    if (ended)
        __tsan_acquire(this);
    return ended;
}
