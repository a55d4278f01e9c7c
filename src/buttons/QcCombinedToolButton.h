#pragma once

#include <Velmora/ImageParams.h>
#include <Velmora/QtCompatibility.h>
#include <Velmora/VelmoraExport.h>

#include <QFrame>
#include <QHash>
#include <QPair>
#include <QString>
#include <QStyle>

#include <memory>

QT_BEGIN_NAMESPACE
class QAction;
class QMenu;
QT_END_NAMESPACE

namespace Velmora {

class ButtonStateTracker;
class QcToolButton;

/// A split tool button, 44 by 32 pixels: a main half that toggles, and a narrow arrow half that opens a menu. Choosing an entry of the
/// menu makes it the current action, which the main half triggers from then on.
///
/// Each half shows its own hover, the main half a press too; while the main half is checked, one background covers both. The states
/// are those of QcToolButton. The tables fill on the first turn of the main loop after construction: what the host set before
/// that is replaced, and what it sets later stays.
///
/// A handler of the current action or of an entry may delete the control, but of a menu that is about to show only by deleteLater().
///
/// Both halves take the keyboard: Space presses, Down and Alt+Down open the menu. In right-to-left layout the control is mirrored,
/// the halves with what they show and the place of the menu. Assistive technology sees a group of two buttons. A half without a text
/// or a tool tip, which the current action gives the main half, has the name or the tool tip of the whole.
class VELMORA_EXPORT QcCombinedToolButton : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(QString iconPath MEMBER m_iconPath WRITE SetIconPath)
    Q_PROPERTY(int borderRadius MEMBER m_borderRadius WRITE KeepBorderRadius) // of a form, which sets it at once

public:
    explicit QcCombinedToolButton(QWidget *parent = nullptr);
    ~QcCombinedToolButton() override;

    /// The colour code of one state's background, for either half; see ColorParams for the forms. An empty code paints none.
    void SetBackgroundColorParams(QFlags<QStyle::StateFlag> state, const QString &token);
    /// The main half's icon of one state. Its size is ignored. An empty path takes the one of SetIconPath().
    void SetIconParam(QFlags<QStyle::StateFlag> state, const ImageParams &params);
    /// The main half's icon in every state that names none of its own. A file that is missing shows no icon, silently.
    void SetIconPath(const QString &path);
    /// Corner radius of the backgrounds in pixels, 2 at first.
    void SetBorderRadius(int radius);

    /// Makes \a action what a click on the main half triggers; it decides whether the half is checkable and checked. Its dynamic
    /// property "ActionIconPath" becomes the icon path: without one there is no icon. Not owned. A null changes nothing.
    void SetCurrentAction(QAction *action);
    /// Adds \a action to the arrow half, which offers such actions in a menu of their own to who holds it pressed, as any
    /// QToolButton without a menu does. Not owned. A null is refused with Qt's warning.
    void addAction(QAction *action);
    /// The menu that each click on the arrow half shows, or holding it pressed, its top 2 pixels below the control, its right edge at the
    /// control's. It may be filled when it says that it is about to show. An entry chosen in it becomes the current action; this stays so
    /// for a menu that another one has replaced. Not owned: the menu may be destroyed first. A null leaves the arrow half without one.
    void setMenu(QMenu *menu);

Q_SIGNALS:
    /// Never emitted: follow the current action instead.
    void signalMainButtonToggled(bool checked = false);
    /// Never emitted.
    void signalArrowButtonToggled(bool checked = false);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

    /// Sets radius, backgrounds and icons to the defaults. Runs once, on the first turn of the main loop.
    virtual void UpdateUiParams();

    QString GetIconPath() const;

private Q_SLOTS:
    void onMainButtonToggled(bool checked);
    void onArrowButtonToggled(bool checked);

private:
    QPair<QString, ImageParams> getCurMainImageParams() const;
    QPair<QString, ImageParams> getCurArrowImageParams() const;
    bool FilterMainEvent(QEvent *event);
    bool FilterArrowEvent(QEvent *event);
    bool FilterKey(QEvent *event);
    bool FilterHold();
    void HoverHalfAt(const QPoint &position);
    void ShowMenu();
    void KeepBorderRadius(int radius);

    QStyle::State m_mainState = QStyle::State_Enabled;
    QStyle::State m_arrowState = QStyle::State_Enabled;
    QcToolButton *m_pMainButton;
    QcToolButton *m_pArrowButton;
    QString m_iconPath;
    int m_borderRadius = 2;
    QHash<QStyle::State, ImageParams> m_mainIconParams;
    QHash<QStyle::State, ImageParams> m_arrowIconParams;
    QHash<QStyle::State, QString> m_backgroundColors;
    std::unique_ptr<ButtonStateTracker> m_mainTracker;
    std::unique_ptr<ButtonStateTracker> m_arrowTracker;
};

} // namespace Velmora
