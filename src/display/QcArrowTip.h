#pragma once

#include <Velmora/VelmoraExport.h>

#include <QFont>
#include <QFrame>
#include <QPointer>
#include <QString>

QT_BEGIN_NAMESPACE
class QHBoxLayout;
QT_END_NAMESPACE

namespace Velmora {

class QcMultiLineText;

/// A small bubble with a triangle that points at a reference widget and stays beside it while it moves in its parent, or the
/// window that it was in when the tip was shown or got it.
///
/// The tip is a window of its own that never takes the keyboard. While it shows it is placed within 1 millisecond of each cause,
/// the show among them, and not kept on the screen: beside an edge it is cut off. QcArrowTipGlobal shows one tip for many widgets as the
/// mouse enters them.
class VELMORA_EXPORT QcArrowTip : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(QString text MEMBER m_text WRITE setText)
    Q_PROPERTY(int maxWidth MEMBER m_maxWidth WRITE setMaxWidth)
    Q_PROPERTY(QString textColorParams MEMBER m_textColorParams WRITE setTextColorParams)
    Q_PROPERTY(TriangleDirection triangleDirection MEMBER m_direction WRITE setTriangleDirection)

public:
    /// The side of the bubble that the triangle sits on; the bubble stands on the other side of the reference.
    enum TriangleDirection : int {
        Left = 0,   ///< the bubble stands to the right of the reference
        Top = 1,    ///< below it
        Right = 2,  ///< to its left
        Bottom = 3, ///< above it; the default
    };
    Q_ENUM(TriangleDirection)

    explicit QcArrowTip(QWidget *parent = nullptr);

    /// The text, read as HTML as QcMultiLineText does.
    void setText(const QString &text);
    /// The width in pixels, 100 at first, from which a text wraps. A text narrower than this, less 28 pixels of margins, makes
    /// the tip as narrow as it can be; any other is this wide, and the tip wider by the margins. A negative width counts as 0.
    void setMaxWidth(int width);
    /// The colour code of the text, that of QcMultiLineText at first. The bubble is black in both built-in tables.
    void setTextColorParams(const QString &code);
    /// Takes effect with the next placement and paint.
    void setTriangleDirection(TriangleDirection direction);
    /// The widget to point at. The tip stays where it is when the widget dies, and may outlive it.
    void setReferenceWidget(QPointer<QWidget> widget);
    /// Shows the tip, if its reference lives; else it does nothing.
    void show();
    void setVisible(bool visible) override;

protected:
    /// When a tip gets its layouts and the control of its text.
    enum class Contents {
        AtOnce,
        WhenNeeded, ///< with its first text, or as it shows: for tips that mostly never do
    };
    QcArrowTip(QWidget *parent, Contents contents);

    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void adjustPositionAsync();
    void adjustWidth();
    void MakeContents();
    void Place();
    void WatchReference();

    QHBoxLayout *m_outerLayout = nullptr;
    QHBoxLayout *m_innerLayout = nullptr;
    QFont m_font;
    int m_triangleSize = 6;
    QcMultiLineText *m_textControl = nullptr;
    QPointer<QWidget> m_reference;
    int m_gap = 8;
    TriangleDirection m_direction = Bottom;
    int m_maxWidth = 100;
    QString m_text;
    QString m_textColorParams;
    bool m_isPlacementDue = false;
};

} // namespace Velmora
