#pragma once

#include <Velmora/ImageParams.h>
#include <Velmora/QtCompatibility.h>
#include <Velmora/VelmoraExport.h>

#include <QHash>
#include <QString>
#include <QStyle>
#include <QToolButton>

#include <memory>

namespace Velmora {

class ButtonStateTracker;

/// A checkable tool button with a menu: an icon, and a downward arrow at its right. 44 by 32 pixels.
///
/// It paints itself from tables of its eight states, as QcToolButton does, and looks pressed and checked while its menu is
/// open; a menu that closes unchecks it. It shows no text. The arrow stands at the right in right-to-left layouts too.
///
/// A handler of its signals or of an entry may delete the button, but of toggled(), to which a menu that shows or hides leads, and of a
/// menu that is about to show, only by deleteLater(): Qt touches the button once more.
///
/// How the menu opens is up to QToolButton::setPopupMode(): at first by a long press, of the mouse or of Space, while a
/// short one toggles the button.
class VELMORA_EXPORT QcMenuToolButton : public QToolButton
{
    Q_OBJECT
    Q_PROPERTY(QString iconPath MEMBER m_iconPath WRITE SetIconPath)
    Q_PROPERTY(int borderRadius MEMBER m_borderRadius WRITE SetBorderRadius)
    Q_PROPERTY(bool arrowIconVisible MEMBER m_arrowIconVisible WRITE SetArrowIconVisible)

public:
    explicit QcMenuToolButton(QWidget *parent = nullptr);
    ~QcMenuToolButton() override;

    /// The colour code of one state's background; see ColorParams for the forms. An empty code is painted as an unknown one:
    /// opaque black. For no background use "transparent".
    void SetBackgroundColorParams(QFlags<QStyle::StateFlag> state, const QString &code);
    /// The icon of one state. A path in it comes before that of SetIconPath(), and then its size is the size in which the icon is
    /// made: without one there is no icon, and a larger one is scaled down into its place. Without a path
    /// the record lends its colours to the icon of SetIconPath(), and its size is ignored.
    void SetIconParam(QFlags<QStyle::StateFlag> state, const ImageParams &params);
    /// The icon of every state that names none of its own. A file that is missing shows no icon, silently.
    void SetIconPath(const QString &path);
    /// Corner radius in pixels, 2 at first. Does not repaint by itself.
    void SetBorderRadius(int radius);
    /// Whether the arrow shows. The room that the icon then has is computed at the next change of the size: until then a hidden
    /// arrow leaves the icon all of iconSize().
    void SetArrowIconVisible(bool visible);
    /// Sets the menu; null takes it away. The button does not own it. A menu that was set before no longer opens here, but the
    /// button goes on looking pressed while that menu is open elsewhere.
    void setMenu(QMenu *menu);

protected:
    QString GetIconPath() const;
    QFlags<QStyle::StateFlag> GetState() const;

    void paintEvent(QPaintEvent *event) override;
    void enterEvent(EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

    /// Fills the tables, once, in the constructor: an override in a derived class is not reached.
    virtual void UpdateUiParams();

private Q_SLOTS:
    void OnToggled(bool checked);

private:
    QStyle::State m_state = QStyle::State_Enabled;
    QString m_iconPath;
    QHash<QStyle::State, ImageParams> m_mainIconParams;
    bool m_arrowIconVisible = true;
    QHash<QStyle::State, ImageParams> m_arrowIconParams;
    int m_borderRadius = 2;
    QHash<QStyle::State, QString> m_backgroundColors;
    std::unique_ptr<ButtonStateTracker> m_tracker; // last, so that no menu reaches a button that is going
};

} // namespace Velmora
