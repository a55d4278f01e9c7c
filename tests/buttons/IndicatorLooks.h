#pragma once

#include "buttons/ControlTest.h"
#include "support/EventCounter.h"
#include "support/Pixels.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QCursor>
#include <QMouseEvent>
#include <QPointer>
#include <QSignalSpy>

namespace VelmoraTest {

/// Four times the images' own size, so that each of their shapes covers whole pixels. For the stylesheet of the window.
constexpr char kLargeIndicators[] = "QCheckBox::indicator, QRadioButton::indicator { width: 56px; height: 56px; }";
/// A button that shows such an indicator at (0, 2).
constexpr QRect kIndicatorButton(10, 10, 120, 60);

/// The point of a large indicator that lies at \a x, \a y of its image of 14 by 14.
inline QPointF AtImage(double x, double y)
{
    return QPointF(4 * x, 2 + 4 * y);
}

/// What a user does to see a row of the tables, and the row.
struct IndicatorRow
{
    const char *name;
    Qt::CheckState check;
    int look; ///< index into kLooks: disabled, normal, hover, pressed
    const char *fill;
    const char *line;
    const char *inner; ///< null where the image has no third colour
};

template <int count>
void AddRows(const IndicatorRow (&rows)[count])
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < count; ++i)
        QTest::newRow(rows[i].name) << i;
}

inline void AddDirections()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("left to right") << Qt::LeftToRight;
    QTest::newRow("right to left") << Qt::RightToLeft;
}

inline QColor Painted(Table table, const char *code, const QColor &below)
{
    const QString text = QString::fromLatin1(code);
    return Over(text.contains(QLatin1Char('/')) ? TokenOf(table, text) : QColor(text), below);
}

inline void MoveCursorToIndicator(const QWidget &button)
{
    QCursor::setPos(button.mapToGlobal(AtImage(7, 7).toPoint()));
    DrainEvents();
}

inline void BringIndicatorTo(QAbstractButton &button, const Look &look)
{
    button.setEnabled(look.isEnabled);
    MoveCursorAway();
    if (look.isHovered)
        MoveCursorToIndicator(button);
    button.setDown(look.isPressed);
}

/// What check box and radio button share: a button that shows a large indicator, and how it behaves.
template <typename Button>
class IndicatorTest : public ControlTest<Button>
{
protected:
    void Prepare() override
    {
        this->m_window->setStyleSheet(QString::fromLatin1(kLargeIndicators));
        this->m_control->setGeometry(kIndicatorButton);
    }

    QImage Look() { return Render(*this->m_control); }

    /// The row of its table, in both colour tables. \a shows checks the pixels of one image.
    template <typename Shows>
    void CheckRow(const IndicatorRow &row, const Shows &shows)
    {
        BringIndicatorTo(*this->m_control, kLooks[row.look]);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QImage image = Look();
            const QColor fill = Painted(table, row.fill, Qt::white);
            COMPARE_COLOR(PixelAt(image, AtImage(2.5, 7)), fill);
            shows(image, fill, Painted(table, row.line, fill));
            if (row.inner)
                COMPARE_COLOR(PixelAt(image, AtImage(7, 7)), Painted(table, row.inner, fill));
        }
    }

    void CheckHoverByHitArea()
    {
        this->m_window->setStyleSheet(QString()); // whose style takes hits on the whole widget
        DrainEvents();
        const QImage normal = Look();
        EventCounter paints(*this->m_control, QEvent::Paint);
        const auto moveTo = [this, &paints](const QPoint &position) {
            QCursor::setPos(this->m_control->mapToGlobal(position));
            DrainEvents();
            paints.Take();
            // Between two places of the widget: neither enters nor leaves.
            QMouseEvent move(QEvent::MouseMove, position, this->m_control->mapToGlobal(position), Qt::NoButton, Qt::NoButton,
                             Qt::NoModifier);
            QCoreApplication::sendEvent(this->m_control, &move);
            DrainEvents();
            QCOMPARE(paints.Take(), 1);
            QVERIFY(this->m_control->underMouse());
        };
        moveTo(QPoint(7, 30));
        QVERIFY(Look() != normal);
        moveTo(QPoint(115, 30));
        QCOMPARE(Look(), normal);
        for (const QEvent::Type type : {QEvent::Leave, QEvent::Enter}) {
            QEvent event(type);
            paints.Take();
            QCoreApplication::sendEvent(this->m_control, &event);
            DrainEvents();
            QCOMPARE(paints.Take(), 1);
        }
    }

    void CheckDownWithTheCursorElsewhere()
    {
        this->m_control->setDown(true);
        MoveCursorToIndicator(*this->m_control);
        const QImage pressed = Look();
        MoveCursorAway();
        QCOMPARE(Look(), pressed);
    }

    void CheckPressDraggedOff()
    {
        const QPoint inside = AtImage(7, 7).toPoint();
        const QPoint outside(400, 300);
        QSignalSpy clicks(this->m_control, &QAbstractButton::clicked);
        const QImage normal = Look();
        MouseTo(inside);
        const QImage hovered = Look();
        QTest::mousePress(this->m_control, Qt::LeftButton, Qt::NoModifier, inside);
        const QImage pressed = Look();
        QVERIFY(pressed != hovered && pressed != normal);
        Drag(outside);
        QVERIFY(!this->m_control->isDown()); // as of any button: a release here clicks nothing
        QCOMPARE(Look(), pressed);
        Drag(inside);
        QVERIFY(this->m_control->isDown());
        QCOMPARE(Look(), pressed);
        Drag(outside);
        EventCounter paints(*this->m_control, QEvent::Paint);
        QTest::mouseRelease(this->m_control, Qt::LeftButton, Qt::NoModifier, outside);
        DrainEvents();
        QVERIFY(paints.Take() > 0);
        QCOMPARE(Look(), normal);
        QCOMPARE(clicks.count(), 0);

        // Another press elsewhere is none of its business.
        QTest::mousePress(this->m_window.get(), Qt::LeftButton, Qt::NoModifier, QPoint(1, 1));
        QCOMPARE(Look(), normal);
        QTest::mouseRelease(this->m_window.get(), Qt::LeftButton, Qt::NoModifier, QPoint(1, 1));
    }

    void CheckReleaseElsewhere()
    {
        const QImage normal = Look();
        const QPoint place(299, 199);
        for (QWidget *receiver : {static_cast<QWidget *>(this->m_control), this->m_window.get()}) {
            DragOff();
            QVERIFY(Look() != normal);
            EventCounter paints(*this->m_control, QEvent::Paint);
            QTest::mouseRelease(receiver, Qt::LeftButton, Qt::NoModifier, place);
            DrainEvents();
            QVERIFY(paints.Take() > 0);
            QCOMPARE(Look(), normal);
            DragOff();
            QMouseEvent right(QEvent::MouseButtonPress, place, QCursor::pos(), Qt::RightButton, Qt::LeftButton | Qt::RightButton,
                              Qt::NoModifier);
            QCoreApplication::sendEvent(this->m_window.get(), &right);
            QVERIFY(Look() != normal); // the left one is still held
            // The next press elsewhere comes before there was time to paint.
            QTest::mouseRelease(receiver, Qt::LeftButton, Qt::NoModifier, place);
            QTest::mousePress(this->m_window.get(), Qt::LeftButton, Qt::NoModifier, place);
            QCOMPARE(Look(), normal);
            QTest::mouseRelease(this->m_window.get(), Qt::LeftButton, Qt::NoModifier, place);
        }
    }

    void CheckReleaseNobodyHeardOf()
    {
        const QImage normal = Look();
        DragOff();
        QTest::mousePress(this->m_window.get(), Qt::LeftButton, Qt::NoModifier, QPoint(299, 199));
        QCOMPARE(Look(), normal);
        QTest::mouseRelease(this->m_window.get(), Qt::LeftButton, Qt::NoModifier, QPoint(299, 199));
    }

    void CheckCancelledPress()
    {
        const QPoint inside = AtImage(7, 7).toPoint();
        MouseTo(inside);
        const QImage hovered = Look();
        QTest::mousePress(this->m_control, Qt::LeftButton, Qt::NoModifier, inside);
        QTest::keyClick(this->m_control, Qt::Key_Escape);
        QCOMPARE(Look(), hovered);
        QTest::mouseRelease(this->m_control, Qt::LeftButton, Qt::NoModifier, inside);
    }

    /// \a leastWidth: what the part of the text that fits is at least as wide as.
    void CheckElision(Qt::LayoutDirection direction, int leastWidth)
    {
        this->m_control->setLayoutDirection(direction);
        const QImage empty = Look();
        this->m_control->setText(QString(100, QLatin1Char('i')));
        this->m_control->setGeometry(kIndicatorButton); // a text may not widen it
        const QImage image = Look();
        const bool isLeft = direction == Qt::LeftToRight;
        const QRectF indicator(isLeft ? 0 : 64, 2, 56, 56);
        QCOMPARE(Part(image, indicator), Part(empty, indicator)); // no letter lies over it
        const QRectF ink = InkBox(Part(image, QRectF(isLeft ? 57 : 0, 0, 63, 60)), Qt::white);
        QVERIFY2(ink.width() > leastWidth, qPrintable(QString::number(ink.width())));
    }

    /// The text may lie over what the style keeps free of it at the end.
    void CheckTextReachesTheEnd(Qt::LayoutDirection direction)
    {
        const bool isLeft = direction == Qt::LeftToRight;
        this->m_window->setStyleSheet(
            QStringLiteral("QAbstractButton { padding-%1: 60px; }").arg(QLatin1String(isLeft ? "right" : "left")));
        this->m_control->setLayoutDirection(direction);
        this->m_control->setText(QString(100, QLatin1Char('i')));
        this->m_control->setGeometry(kIndicatorButton);
        DrainEvents();
        QVERIFY(!InkBox(Part(Look(), QRectF(isLeft ? 80 : 20, 0, 20, 60)), Qt::white).isNull());
    }

    void CheckHandlersThatDeleteOrReTheme()
    {
        const QPoint inside = AtImage(7, 7).toPoint();
        QObject::connect(this->m_control, &QAbstractButton::toggled, [] { UseTable(Table::Dark); });
        QTest::mouseClick(this->m_control, Qt::LeftButton, Qt::NoModifier, inside);
        QVERIFY(this->m_control->isChecked());
        using Signal = void (QAbstractButton::*)();
        for (const Signal signal : {Signal(&QAbstractButton::pressed), Signal(&QAbstractButton::released)}) {
            auto *doomed = new Button(this->m_window.get());
            const QPointer<Button> guard(doomed);
            doomed->setGeometry(10, 100, 120, 60);
            doomed->show();
            QObject::connect(doomed, signal, [doomed] { delete doomed; });
            QTest::mousePress(doomed, Qt::LeftButton, Qt::NoModifier, inside);
            if (guard) {
                QMouseEvent move(QEvent::MouseMove, QPointF(400, 300), QCursor::pos(), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
                QCoreApplication::sendEvent(doomed, &move); // dragged off, it is released
            }
            QVERIFY(!guard);
            QTest::mouseRelease(this->m_window.get(), Qt::LeftButton, Qt::NoModifier, QPoint(299, 199));
        }
    }

    void CheckAccessible(QAccessible::Role role)
    {
        this->m_control->setText(QStringLiteral("&Wrap lines"));
        QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(this->m_control);
        QVERIFY(accessible);
        QCOMPARE(accessible->role(), role);
        QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Wrap lines"));
        QVERIFY(accessible->state().checkable);
        QVERIFY(!accessible->state().checked);
        this->m_control->setChecked(true);
        QVERIFY(accessible->state().checked);
    }

private:
    /// Presses the button and drags the mouse off it, where it stays pressed.
    void DragOff()
    {
        const QPoint inside = AtImage(7, 7).toPoint();
        MouseTo(inside);
        QTest::mousePress(this->m_control, Qt::LeftButton, Qt::NoModifier, inside);
        Drag(QPoint(400, 300));
        QVERIFY(!this->m_control->isDown());
    }

    void MouseTo(const QPoint &position)
    {
        QCursor::setPos(this->m_control->mapToGlobal(position));
        DrainEvents();
    }

    /// Moves the mouse with the button held.
    void Drag(const QPoint &position)
    {
        MouseTo(position);
        QMouseEvent move(QEvent::MouseMove, position, this->m_control->mapToGlobal(position), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(this->m_control, &move);
        DrainEvents();
    }
};

} // namespace VelmoraTest
