#include <Velmora/QcArrowTipGlobal.h>

#include <QEvent>
#include <QTextDocumentFragment>

// Declared by Qt as a friend of QWidget only.
QT_BEGIN_NAMESPACE
Q_WIDGETS_EXPORT QWidgetData *qt_qwidget_data(QWidget *widget);
QT_END_NAMESPACE

namespace Velmora {

QcArrowTipGlobal *QcArrowTipGlobal::instance()
{
    static QcArrowTipGlobal instance;
    return &instance;
}

QcArrowTipGlobal::QcArrowTipGlobal()
    : m_tip(new QcArrowTip) // never deleted: a static may outlive the application object, and no widget can be deleted after it
{
}

void QcArrowTipGlobal::registerWidget(QWidget *widget, const TipInfo &info)
{
    if (!widget)
        return;
    m_infos[widget] = info;
    widget->installEventFilter(this);
    connect(widget, &QObject::destroyed, this, &QcArrowTipGlobal::onWidgetDestroyed, Qt::UniqueConnection);
    Describe(widget, QTextDocumentFragment::fromHtml(info.text).toPlainText());
}

void QcArrowTipGlobal::registerWidget(QWidget *widget, const QString &text)
{
    TipInfo info;
    info.text = text;
    registerWidget(widget, info);
}

void QcArrowTipGlobal::unregisterWidget(QWidget *widget)
{
    if (!widget)
        return;
    m_infos.erase(widget);
    widget->removeEventFilter(this);
    disconnect(widget, &QObject::destroyed, this, &QcArrowTipGlobal::onWidgetDestroyed);
    Describe(widget, QString());
}

void QcArrowTipGlobal::onWidgetDestroyed(QObject *obj)
{
    // A widget announces its end while guarded pointers to it still hold, so its entry is found by its key.
    if (auto *widget = qobject_cast<QWidget *>(obj))
        m_infos.erase(widget);
    m_descriptions.remove(obj);
}

/// Who cannot hover hears what a tip says.
void QcArrowTipGlobal::Describe(QWidget *widget, const QString &description)
{
    const QString given = m_descriptions.take(widget);
    const QString present = widget->accessibleDescription();
    if (!present.isEmpty() && present != given)
        return; // the host's own
    if (!description.isEmpty())
        m_descriptions.insert(widget, description);
    if (description != present)
        widget->setAccessibleDescription(description); // which announces it
}

bool QcArrowTipGlobal::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if ((type == QEvent::Enter || type == QEvent::Leave) && watched->isWidgetType()) {
        auto *widget = static_cast<QWidget *>(watched);
        const auto found = m_infos.find(widget);
        if (found != m_infos.end() && type == QEvent::Enter)
            ShowTip(widget, TipInfo(found->second)); // a copy: what the tip's show causes may register anew
        else if (found != m_infos.end() && m_tip && !qt_qwidget_data(widget)->in_destructor)
            m_tip->hide(); // but not when a dying widget is left: its tip stays until the mouse leaves another
    }
    return QObject::eventFilter(watched, event);
}

void QcArrowTipGlobal::ShowTip(QWidget *widget, const TipInfo &info)
{
    if (!m_tip)
        m_tip = new QcArrowTip; // a host deleted all top-level widgets
    m_tip->setReferenceWidget(widget);
    m_tip->setText(info.text);
    m_tip->setMaxWidth(info.maxWidth);
    m_tip->setTextColorParams(info.textColorParams);
    m_tip->setTriangleDirection(info.direction);
    m_tip->show();
}

} // namespace Velmora
