#pragma once

#include <Velmora/PointerFunctors.h>
#include <Velmora/TipInfo.h>
#include <Velmora/VelmoraExport.h>

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <unordered_map>

namespace Velmora {

/// Hover tips: shows one shared QcArrowTip as the mouse enters a registered widget and hides it as it leaves. Main thread only.
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

    QPointer<QcArrowTip> m_tip;
    std::unordered_map<QPointer<QWidget>, TipInfo, PointerHashFunc, PointerEqualFunc> m_infos;
    QHash<const QObject *, QString> m_descriptions; // those given here, to tell them from a host's
};

} // namespace Velmora
