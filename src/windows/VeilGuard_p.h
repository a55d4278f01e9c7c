#pragma once

#include <QEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>

namespace Velmora {

/// Keeps the keyboard out of what lies under a veil for as long as the veil is shown, if it was shown while VeilsStopKeyboard(). A child
/// of the veil.
class VeilGuard : public QObject
{
    Q_OBJECT

public:
    explicit VeilGuard(QWidget &veil);
    ~VeilGuard() override;

    /// Whether \a veil keeps the keyboard out now.
    static bool Guards(const QWidget &veil);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void FollowVeil(QEvent::Type type);
    void Lower();
    void Lift();
    bool IsBelow(const QWidget &widget) const;
    bool Covers(const QWidget &widget) const;
    bool KeepsFrom(const QWidget &widget) const;
    bool IsRefused(QObject *receiver) const;
    void TakeFocus();
    void PassFocusOn(QWidget &from, Qt::FocusReason reason);
    static bool LiesUnderAny(const QWidget &widget);

    QWidget *const m_veil;
    bool m_isLowered = false;
    QPointer<QWidget> m_previous; // what had the keyboard before
    QPointer<QWidget> m_refused;  // what does not know that it was given the keyboard
};

} // namespace Velmora
