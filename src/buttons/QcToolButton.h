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

/// An icon-only button for toolbars, 24 pixels high, that paints itself from two tables: background and icon for each of eight
/// states.
///
/// The states are combinations of State_Enabled, State_Sunken, State_MouseOver and State_Selected: disabled (0), normal (1),
/// pressed (5), hover (0x2001), and the same with State_Selected (0x8000) while checked. Pressed wins over hover. Other
/// combinations may be set and are never painted; a state without an entry has no colour. Hover and press follow the mouse alone; a press
/// that opens a menu shows until the menu closes.
///
/// A handler of its signals or of a menu's entry may delete the button, but of toggled(), and of a menu that is about to show, only by
/// deleteLater(): Qt touches the button once more.
///
/// The icon stands in the middle, iconSize() large. Text, menu arrow and focus frame are not painted; assistive technology reads the
/// text, or the tool tip without one.
class VELMORA_EXPORT QcToolButton : public QToolButton
{
    Q_OBJECT
    Q_PROPERTY(QString iconPath MEMBER m_iconPath WRITE SetIconPath)
    Q_PROPERTY(int borderRadius MEMBER m_borderRadius WRITE SetBorderRadius)

public:
    explicit QcToolButton(QWidget *parent = nullptr);
    ~QcToolButton() override;

    /// The colour code of one state's background; see ColorParams for the forms. An empty code paints none.
    void SetBackgroundColorParams(QFlags<QStyle::StateFlag> state, const QString &token);
    /// The icon of one state. Its size is ignored. An empty path takes the one of SetIconPath().
    void SetIconParam(QFlags<QStyle::StateFlag> state, const ImageParams &params);
    /// The icon of every state that names none of its own. A file that is missing shows no icon, silently.
    void SetIconPath(const QString &path);
    /// Corner radius of the background in pixels, 2 at first.
    void SetBorderRadius(int radius);

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

    /// Sets radius, backgrounds and icons of all eight states to the defaults. Runs once, in the constructor.
    virtual void UpdateUiParams();

    QString GetIconPath() const;
    QFlags<QStyle::StateFlag> GetState() const;

private Q_SLOTS:
    void OnToggled(bool checked);

private:
    QStyle::State m_state = QStyle::State_Enabled;
    QString m_iconPath;
    int m_borderRadius = 2;
    QHash<QStyle::State, ImageParams> m_iconParams;
    QHash<QStyle::State, QString> m_backgroundColors;
    std::unique_ptr<ButtonStateTracker> m_tracker; // last, so that no menu reaches a button that is going
};

} // namespace Velmora
