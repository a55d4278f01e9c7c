#include <Velmora/QcToastManager.h>

#include <QDebug>
#include <QPointer>

#include <algorithm>

namespace Velmora {

namespace {

QcToast::Params ParamsOf(const QcToast &toast)
{
    QcToast::Params params;
    toast.getParams(params);
    return params;
}

/// Where \a toast goes that stands \a y pixels below the upper edge of \a parent.
QPoint PlaceOf(const QcToast &toast, const QWidget &parent, qint64 y)
{
    const QPoint origin = toast.isWindow() ? parent.mapToGlobal(QPoint(0, 0)) : QPoint();
    const qint64 furthest = QWIDGETSIZE_MAX; // beyond which Qt places nothing
    return QPoint(origin.x() + (parent.width() - toast.width()) / 2, int(qBound(-furthest, origin.y() + y, furthest)));
}

} // namespace

QcToastManager *QcToastManager::getInstance()
{
    static QcToastManager toastManager;
    return &toastManager;
}

QcToastManager::QcToastManager() = default;
QcToastManager::~QcToastManager() = default;

void QcToastManager::showToast(const QcToast::Params &params, QWidget *parent, bool topLevel)
{
    if (!parent) {
        qWarning() << "QcToastManager::showToast: parent null";
        return;
    }
    if (QcToast *shown = Shown(params.id)) {
        shown->renewDuration();
        return;
    }
    const QPointer<QcToast> toast(new QcToast(parent));
    if (topLevel) {
        toast->setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
        toast->setAttribute(Qt::WA_TranslucentBackground); // or it would fade from the window's ground
    }
    toast->setAttribute(Qt::WA_DeleteOnClose);
    toast->setParams(params);
    connect(toast, &QcToast::signalHeightChanged, this, &QcToastManager::onToastHeightChanged);
    connect(toast, &QObject::destroyed, this, &QcToastManager::onToastDestroyed);
    connect(toast, &QcToast::signalAnchorClicked, this, &QcToastManager::signalAnchorClicked);
    addToast(toast);
    if (toast) // moves and hides of others run code of their host
        toast->showToast(true);
}

void QcToastManager::showToast(const QString &text, QcToast::Type type, QWidget *parent, bool topLevel)
{
    QcToast::Params params;
    params.text = text;
    params.type = type;
    showToast(params, parent, topLevel);
}

void QcToastManager::setToastStartY(int y)
{
    m_startY = y;
}

/// The uppermost toast of \a id on the screen. One that has closed and is not yet deleted would let a message get lost.
QcToast *QcToastManager::Shown(int id) const
{
    if (id == -1)
        return nullptr;
    const auto isShown = [id](const QcToast *toast) { return !toast->isHidden() && ParamsOf(*toast).id == id; };
    const auto found = std::find_if(m_toasts.begin(), m_toasts.end(), isShown);
    return found == m_toasts.end() ? nullptr : *found;
}

// --- The stack ---

void QcToastManager::addToast(QcToast *toast)
{
    const QPointer<QcToast> alive(toast);
    const auto isRemovable = [](const QcToast *other) { return ParamsOf(*other).removable; };
    if (int(m_toasts.size()) >= m_maximumCount) { // more of them once all were pinned
        const auto oldest = std::find_if(m_toasts.begin(), m_toasts.end(), isRemovable);
        if (oldest != m_toasts.end())
            removeToast(*oldest, true);
    }
    if (!alive)
        return;
    m_toasts.insert(isRemovable(toast) ? m_toasts.end() : m_toasts.begin(), toast);
    updateToastsPosition(false, false);
}

void QcToastManager::removeToast(QcToast *toast, bool deleteIt)
{
    const QPointer<QcToast> alive(toast);
    TakeOut(toast);
    toast->hide();
    if (alive && deleteIt) {
        // Thousands may wait for their deletion, and sender() would look through the connections of all of them for each.
        disconnect(toast, &QObject::destroyed, this, &QcToastManager::onToastDestroyed);
        connect(toast, &QObject::destroyed, this, &QcToastManager::LoseDying);
        toast->deleteLater();
    }
    updateToastsPosition(true, true);
}

void QcToastManager::TakeOut(const QObject *toast)
{
    const auto isIt = [toast](const QcToast *other) { return other == toast; };
    m_toasts.erase(std::remove_if(m_toasts.begin(), m_toasts.end(), isIt), m_toasts.end());
}

void QcToastManager::updateToastsPosition(bool animateFirst, bool animateLast)
{
    qint64 y = m_startY;
    // A move runs code of the host, who may delete any toast, which takes it out.
    for (size_t i = 0; i < m_toasts.size(); ++i) {
        QcToast *toast = m_toasts[i];
        const bool isFirst = i == 0;
        const bool isLast = i + 1 == m_toasts.size();
        const bool animated = (isFirst && animateFirst) || (isLast && animateLast) || (!isFirst && !isLast);
        const QWidget *parent = toast->parentWidget();
        const QPoint place = parent ? PlaceOf(*toast, *parent, y) : toast->pos();
        y += toast->height() + m_spacing;
        toast->moveToast(place.x(), place.y(), animated);
    }
}

void QcToastManager::onToastHeightChanged()
{
    updateToastsPosition(true, true);
}

void QcToastManager::onToastDestroyed()
{
    LoseDying(sender());
}

void QcToastManager::LoseDying(QObject *toast)
{
    // A widget says so as its last part dies: it still hides, but is no toast any more.
    auto *widget = qobject_cast<QWidget *>(toast);
    if (!widget)
        return; // called by a host, by its name
    TakeOut(widget);
    widget->hide();
    updateToastsPosition(true, true);
}

} // namespace Velmora
