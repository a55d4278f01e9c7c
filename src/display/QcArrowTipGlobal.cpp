#include <Velmora/KeyboardCues.h>
#include <Velmora/QcArrowTipGlobal.h>

#include "core/ApplicationEvents_p.h"
#include "theme/FocusShape_p.h"
#include "theme/KeyboardCues_p.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
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
    connect(KeyboardCuesNotifier::GetInstance(), &KeyboardCuesNotifier::Changed, this, &QcArrowTipGlobal::FollowKeyboardCues);
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
    FollowKeyboardCues(); // in the application that there is now
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
    if (auto *widget = qobject_cast<QWidget *>(obj)) {
        if (widget == m_tipOfFocus)
            HideTipOfFocus();
        m_infos.erase(widget);
    }
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
    switch (event->type()) {
    // Of a registered widget
    case QEvent::Enter:
    case QEvent::Leave:
        if (watched->isWidgetType())
            FollowMouse(static_cast<QWidget *>(watched), event->type());
        break;
    // Of the whole application, with keyboard cues
    case QEvent::FocusIn:
        if (watched == QApplication::focusWidget())
            ShowTipOfFocus(*QApplication::focusWidget(), static_cast<QFocusEvent *>(event)->reason());
        break;
    case QEvent::KeyPress:
        if (static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape)
            HideTipOfFocus();
        break;
    case QEvent::FocusOut:
    case QEvent::MouseButtonPress:
    case QEvent::TabletPress:
    case QEvent::TouchBegin:
        HideTipOfFocus();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void QcArrowTipGlobal::FollowMouse(QWidget *widget, QEvent::Type type)
{
    const auto found = m_infos.find(widget);
    if (found == m_infos.end())
        return;
    if (type == QEvent::Enter) {
        m_tipOfFocus = nullptr;
        ShowTip(widget, TipInfo(found->second)); // a copy: what the tip's show causes may register anew
    } else if (m_tip && !m_tipOfFocus && !qt_qwidget_data(widget)->in_destructor) {
        m_tip->hide(); // but not when a dying widget is left: its tip stays until the mouse leaves another
    }
}

// --- Keyboard ---

void QcArrowTipGlobal::FollowKeyboardCues()
{
    if (!QCoreApplication::instance())
        return;
    if (KeyboardCuesEnabled()) {
        WatchApplicationEvents(
            this, {QEvent::FocusIn, QEvent::FocusOut, QEvent::KeyPress, QEvent::MouseButtonPress, QEvent::TabletPress, QEvent::TouchBegin});
    } else {
        UnwatchApplicationEvents(this);
        HideTipOfFocus();
    }
}

void QcArrowTipGlobal::ShowTipOfFocus(QWidget &focus, Qt::FocusReason reason)
{
    const bool isByKey = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
    if (!isByKey || !KeyboardCuesEnabled())
        return; // by the mouse or the program, or back from another window
    for (QWidget *widget : {&focus, FocusedControl(focus)}) {
        const auto found = m_infos.find(widget);
        if (found == m_infos.end())
            continue;
        if (widget == m_tipOfFocus)
            return; // told of a registered widget twice
        m_tipOfFocus = widget;
        ShowTip(widget, TipInfo(found->second));
        return;
    }
}

void QcArrowTipGlobal::HideTipOfFocus()
{
    if (m_tip && m_tipOfFocus)
        m_tip->hide();
    m_tipOfFocus = nullptr;
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
