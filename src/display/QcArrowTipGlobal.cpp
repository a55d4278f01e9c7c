#include <Velmora/QcArrowTipGlobal.h>

#include <QCoreApplication>
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
{
    MakeTip();
}

QcArrowTipGlobal::~QcArrowTipGlobal()
{
    qRemovePostRoutine(&DeleteTip); // a static application object goes later
}

/// The tip has no parent. No widget outlives the application object, and a process may have several, one after the other.
void QcArrowTipGlobal::MakeTip()
{
    m_tip = new QcArrowTip; // deleted by DeleteTip()
    qRemovePostRoutine(&DeleteTip);
    qAddPostRoutine(&DeleteTip);
}

void QcArrowTipGlobal::DeleteTip()
{
    delete instance()->m_tip;
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
        MakeTip(); // the first hover in this application, or a host deleted all top-level widgets
    m_tip->setReferenceWidget(widget);
    m_tip->setText(info.text); // from here on the host may delete it, told of the height of its content
    if (m_tip)
        m_tip->setMaxWidth(info.maxWidth);
    if (!m_tip)
        return;
    m_tip->setTextColorParams(info.textColorParams);
    m_tip->setTriangleDirection(info.direction);
    m_tip->show();
}

} // namespace Velmora
