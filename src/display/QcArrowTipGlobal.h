#pragma once

#include <Velmora/PointerFunctors.h>
#include <Velmora/TipInfo.h>
#include <Velmora/VelmoraExport.h>

#include <QEvent>
#include <QHash>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <unordered_map>

namespace Velmora {

/// Hover tips: shows one shared QcArrowTip as the mouse enters a registered widget and hides it as it leaves. Main thread only.
///
/// With KeyboardCuesEnabled() it shows as well when Tab or a key of a text brings the keyboard to a registered widget, or to an edit in a
/// registered frame. It goes with the keyboard, with Escape, which does what else it does, and with a press of the mouse.
class VELMORA_EXPORT QcArrowTipGlobal : public QObject
{
    Q_OBJECT

public:
    /// The one instance, made at its first use. Its tip goes with the application object; the next application, like a host that
    /// deletes the tip, gets a new one with the next hover.
    static QcArrowTipGlobal *instance();

    /// Gives \a widget a tip, in place of an earlier one. The widget may die registered. Null is ignored.
    ///
    /// Its text becomes the widget's accessible description, unless the host has set one of its own.
    void registerWidget(QWidget *widget, const TipInfo &info);
    /// A tip with this text and the defaults of TipInfo.
    void registerWidget(QWidget *widget, const QString &text);
    /// Takes the tip and the description away. A tip that shows at this moment stays until the mouse leaves another registered
    /// widget. Null is ignored.
    void unregisterWidget(QWidget *widget);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void onWidgetDestroyed(QObject *obj);

private:
    QcArrowTipGlobal();
    ~QcArrowTipGlobal() override;
    void MakeTip();
    static void DeleteTip();
    void ShowTip(QWidget *widget, const TipInfo &info);
    void Describe(QWidget *widget, const QString &description);
    void FollowMouse(QWidget *widget, QEvent::Type type);
    void FollowKeyboardCues();
    void ShowTipOfFocus(QWidget &focus, Qt::FocusReason reason);
    void HideTipOfFocus();

    QPointer<QcArrowTip> m_tip;
    std::unordered_map<QPointer<QWidget>, TipInfo, PointerHashFunc, PointerEqualFunc> m_infos;
    QHash<const QObject *, QString> m_descriptions; // those given here, to tell them from a host's
    QPointer<QWidget> m_tipOfFocus;                 // whose tip shows since it got the keyboard
};

} // namespace Velmora
