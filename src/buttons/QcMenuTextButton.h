#pragma once

#include <Velmora/ImageParams.h>
#include <Velmora/QtCompatibility.h>
#include <Velmora/VelmoraExport.h>

#include <QHash>
#include <QPushButton>
#include <QString>
#include <QStyle>

#include <memory>

namespace Velmora {

class ButtonStateTracker;

/// A push button with a menu: a centred text, and a downward arrow at its right.
///
/// It paints itself from tables of its eight states, as QcButton does, and looks pressed and checked while its menu is open.
/// At least 24 pixels high, with a 12-pixel font. The arrow stands at the right in right-to-left layouts too.
///
/// A handler of its signals, of its menu or of an entry may delete the button, but of toggled() only by deleteLater(): Qt touches the
/// button once more.
///
/// The text is painted as it is and not elided. As in every button of Qt, a letter behind an & becomes its mnemonic; the & is
/// painted all the same, unless keyboard cues are on: see SetKeyboardCuesEnabled(). Without them give a key with setShortcut(), after
/// setText(), instead. Space opens the menu, in a dialog Enter too.
class VELMORA_EXPORT QcMenuTextButton : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText) // through our setText()
    Q_PROPERTY(int borderRadius MEMBER m_borderRadius WRITE SetBorderRadius)
    Q_PROPERTY(int horizontalMargin MEMBER m_horizontalMargin WRITE setHorizontalMargin)

public:
    explicit QcMenuTextButton(QWidget *parent = nullptr);
    ~QcMenuTextButton() override;

    /// The colour code of one state's background; see ColorParams for the forms. An empty code paints none.
    void SetBackgroundColorParams(QFlags<QStyle::StateFlag> state, const QString &code);
    /// The colour code of one state's one-pixel border. An empty code paints none.
    void SetBorderColorParams(QFlags<QStyle::StateFlag> state, const QString &code);
    /// The colour code of one state's text. An empty code takes the palette's button-text colour.
    void SetTextColorParams(QFlags<QStyle::StateFlag> state, const QString &code);
    /// Corner radius in pixels, 4 at first.
    void SetBorderRadius(int radius);
    /// Room left and right of the text in the size hint, in pixels, 4 at first. Does not repaint by itself. With a margin of 0
    /// each computation of the size hint writes an empty debug line.
    void setHorizontalMargin(int margin);
    /// Sets the text and announces the new size hint.
    void setText(QString text);
    /// Sets the menu that a press opens; null takes it away. The button does not own it. A menu that was set before no longer
    /// opens here, but the button goes on looking pressed while that menu is open elsewhere.
    void setMenu(QMenu *menu);

    QSize sizeHint() const override;
    /// Wide enough for text, arrow and margins; always 24 pixels high.
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private Q_SLOTS:
    void OnToggled(bool checked);

private:
    void UpdateUiParams();

    QStyle::State m_state = QStyle::State_Enabled;
    QHash<QStyle::State, ImageParams> m_arrowIconParams;
    int m_borderRadius = 4;
    QHash<QStyle::State, QString> m_borderColors;
    QHash<QStyle::State, QString> m_backgroundColors;
    QHash<QStyle::State, QString> m_textColors;
    int m_horizontalMargin = 4;
    int m_textArrowSpacing = 0;
    int m_arrowWidth = 12;
    std::unique_ptr<ButtonStateTracker> m_tracker; // last, so that no menu reaches a button that is going
};

} // namespace Velmora
