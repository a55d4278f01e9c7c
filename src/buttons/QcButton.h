#pragma once

#include <Velmora/ImageParams.h>
#include <Velmora/QtCompatibility.h>
#include <Velmora/VelmoraExport.h>

#include <QHash>
#include <QPushButton>
#include <QString>
#include <QStyle>

#include <memory>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace Velmora {

class ButtonStateTracker;
class TextWidth;
struct FilledTables;

/// A push button that paints itself from four tables: background, border, text and icon for each of eight states.
///
/// The states are combinations of State_Enabled, State_Sunken, State_MouseOver and State_Selected: disabled (0), normal (1),
/// pressed (5), hover (0x2001), and the same with State_Selected (0x8000) while checked. Pressed wins over hover, and a
/// state without an entry has no colour: there is no fallback to another state. Without entries a plain button
/// paints only its text, in the palette's button-text colour. 24 pixels high, with a 12-pixel font. Hover and press follow the mouse alone;
/// a menu that closes ends the press whose release it took, and the hover that the cursor has left meanwhile.
///
/// An & of the text is painted, though Qt makes the letter behind it a key, and a press of Space or Enter does not show; both unless
/// keyboard cues are on: see SetKeyboardCuesEnabled().
///
/// A handler of its signals, of its menu or of an entry may delete the button, but of toggled() only by deleteLater(): Qt touches the
/// button once more.
///
/// A variant overrides UpdateUiParams(), which runs once, on the first turn of the main loop after construction: what it
/// sets replaces what the host set before that, and what the host sets later stays.
///
/// Dynamic properties named by state and table, "hoverBackgroundColorParams" and the like, stand over the tables: they are what a form
/// can name. The states are normal, hover, pressed, disabled, checked, checkedHover, checkedPressed and checkedDisabled.
class VELMORA_EXPORT QcButton : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText) // through our setText()
    Q_PROPERTY(QString iconPath MEMBER m_iconPath WRITE SetIconPath)
    Q_PROPERTY(int borderRadius MEMBER m_borderRadius WRITE SetBorderRadius)
    Q_PROPERTY(int horizontalMargin MEMBER m_horizontalMargin WRITE setHorizontalMargin)

public:
    explicit QcButton(QWidget *parent = nullptr);
    ~QcButton() override;

    /// The colour code of one state's background; see ColorParams for the forms. An empty code paints none.
    void SetBackgroundColorParams(QFlags<QStyle::StateFlag> state, const QString &code);
    /// The colour code of one state's one-pixel border. An empty code paints none.
    void SetBorderColorParams(QFlags<QStyle::StateFlag> state, const QString &code);
    /// The colour code of one state's text. An empty code takes the palette's button-text colour.
    void SetTextColorParams(QFlags<QStyle::StateFlag> state, const QString &code);
    /// The icon of one state. Its size is ignored: beside a text the icon is a square of the button's height, alone it
    /// fills the button. An empty path takes the one of SetIconPath().
    void SetIconParam(QFlags<QStyle::StateFlag> state, const ImageParams &params);
    /// The icon of every state that names none of its own. A file that is missing shows no icon, silently.
    void SetIconPath(const QString &path);
    /// Corner radius in pixels, 4 at first.
    void SetBorderRadius(int radius);
    /// Room left and right of the content in the size hint, in pixels, 4 at first. Does not repaint by itself.
    void setHorizontalMargin(int margin);
    /// Sets the text and announces the new size hint.
    void setText(QString text);

    QSize sizeHint() const override;
    /// Wide enough for icon, text and margins; always 24 pixels high.
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void enterEvent(EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

    /// Fills the tables; empty here.
    virtual void UpdateUiParams();

private Q_SLOTS:
    void OnToggled(bool checked);

private:
    friend void InstallTables(QcButton &button, const FilledTables &tables);
    void PaintContent(QPainter &painter, const ImageParams &icon, const QString &textCode);

    int m_state = QStyle::State_Enabled;
    QString m_iconPath;
    QHash<QStyle::State, ImageParams> m_iconParams;
    int m_borderRadius = 4;
    QHash<QStyle::State, QString> m_borderColorParams;
    QHash<QStyle::State, QString> m_backgroundColorParams;
    QHash<QStyle::State, QString> m_textColorParams;
    int m_horizontalMargin = 4;
    int m_iconTextSpacing = 0;
    std::unique_ptr<TextWidth> m_textWidth;
    std::unique_ptr<ButtonStateTracker> m_tracker; // last, so that no menu reaches a button that is going
};

} // namespace Velmora
