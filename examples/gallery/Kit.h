#pragma once

#include <Velmora/QcButton.h>
#include <Velmora/QcFrame.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcLineEditFrame.h>

#include <QColor>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>

QT_BEGIN_NAMESPACE
class QAbstractScrollArea;
class QButtonGroup;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QPainter;
class QTableWidget;
class QVBoxLayout;
QT_END_NAMESPACE

namespace Velmora {
class QCSlider;
class QcTertiaryButton;
} // namespace Velmora

/// What the gallery's pages are put together from.
namespace Gallery {

using Velmora::QcFrame;
using Velmora::QcLabel;

/// Every distance is a multiple of this many pixels, or half of it inside a control.
constexpr int kGrid = 8;

QcLabel *MakeLabel(const QString &text, QcLabel::LabelType type);
/// A label that gives way when room is short: it elides instead of widening its layout.
QcLabel *MakeElidingLabel(const QString &text, QcLabel::LabelType type);
/// Text of more than one line. A QcLabel holds one line, and a QcMultiLineText breaks words, so this is a plain label.
QLabel *MakeParagraph(const QString &text);
/// A thin line across, in the colour of a divider.
QcFrame *MakeDivider();

/// A raised, outlined surface with room inside.
class Card : public QcFrame
{
    Q_OBJECT

public:
    explicit Card(QWidget *parent = nullptr);

    QVBoxLayout *Body() const { return m_body; }
    /// A row inside the card, at its end.
    QHBoxLayout *AddRow(int spacing = kGrid);

private:
    QVBoxLayout *m_body;
};

/// The root of a page: sections, one below the other.
class PageWidget : public QWidget
{
    Q_OBJECT

public:
    explicit PageWidget(QWidget *parent = nullptr);

    /// A heading, a text that may be empty, and a card for the content.
    Card *AddSection(const QString &title, const QString &text = QString());

private:
    QVBoxLayout *m_sections;
};

/// A button for one action beside others.
Velmora::QcTertiaryButton *MakeAction(const QString &text);

/// A row of segments of which one is chosen, made of plain QcButtons by their public state tables.
class Segmented : public QcFrame
{
    Q_OBJECT

public:
    explicit Segmented(const QStringList &labels, QWidget *parent = nullptr);

    int CurrentIndex() const;
    void SetCurrentIndex(int index);
    /// The segment, to give it an object name or a tool tip.
    Velmora::QcButton *Segment(int index) const;

Q_SIGNALS:
    /// Also after SetCurrentIndex(), if the choice changed.
    void SignalCurrentChanged(int index);

private:
    QButtonGroup *m_group;
    int m_current = -1;
};

/// A checkable button for one of several independent choices, looking like a segment.
Velmora::QcButton *MakeToggle(const QString &label);

/// A named slider with its value beside it.
class SliderRow : public QWidget
{
    Q_OBJECT

public:
    SliderRow(const QString &name, int minimum, int maximum, int value, QWidget *parent = nullptr);

    int Value() const;
    /// How the value is written, plainly at first.
    void SetFormat(const std::function<QString(int)> &format);

Q_SIGNALS:
    void SignalValueChanged(int value);

private:
    void ShowValue();

    Velmora::QCSlider *m_slider;
    QcLabel *m_value;
    std::function<QString(int)> m_format;
};

/// A line edit with the border of the focus whenever it has the keyboard, however it came by it.
class Field : public Velmora::QcLineEditFrame
{
    Q_OBJECT

public:
    explicit Field(QWidget *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

/// A widget that a function paints; it follows the colour table.
class Canvas : public QWidget
{
    Q_OBJECT

public:
    explicit Canvas(const std::function<void(QPainter &, const QRect &)> &paint, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::function<void(QPainter &, const QRect &)> m_paint;
};

/// Makes \a widget, with all that is in it by now, something to look at: neither mouse nor keyboard enters it. Known by its property
/// "isSpecimen".
void MakeSpecimen(QWidget *widget);

/// Fills a rounded rectangle with a colour; a translucent one lies over a checkerboard.
void PaintColor(QPainter &painter, const QRectF &rect, double radius, const QColor &color);

/// Lets scroll bars float on \a area in place of its own. To be called before it is filled.
void FloatScrollBars(QAbstractScrollArea *area);

/// Makes \a table, of which the kit has none, look as if it had. It follows the colour table.
void StyleTable(QTableWidget *table);

} // namespace Gallery
