#include "support/EventCounter.h"
#include "support/PartsBeforeSheet.h"
#include "support/Pixels.h"
#include "support/SquareIcon.h"
#include "support/TestMain.h"

#include "buttons/ButtonLooks.h"

#include <Velmora/QcCombinedToolButton.h>
#include <Velmora/QcMenu.h>
#include <Velmora/QcToolButton.h>

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QEnterEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QMetaMethod>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QSignalSpy>
#include <QTimer>

#include <functional>
#include <memory>
#include <utility>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QStyle::State kNormal = QStyle::State_Enabled;

/// The arrow in the order of kLooks.
const char *const kArrows[] = {
    "icon/icon_toolbar_disable", "icon/icon_toolbar", "icon/icon_toolbar", "icon/icon_toolbar", "-",
    "icon/icon_toolbar",         "icon/icon_toolbar", "icon/icon_toolbar",
};

/// Where a half shows its background and nothing else.
const QPointF kOnMain(2, 16);
const QPointF kOnArrow(38, 3);
/// The middle of the icon.
const QPointF kOnIcon(16, 16);
const QRect kMainRect(0, 0, 32, 32);
const QRect kArrowRect(32, 0, 12, 32);

/// A button as a host derives it.
class HostButton : public QcCombinedToolButton
{
public:
    using QcCombinedToolButton::GetIconPath;
    using QcCombinedToolButton::QcCombinedToolButton;

    /// The half whose place in the layout is \a index: 0 is the main half, 1 the arrow.
    QcToolButton *Half(int index) const { return qobject_cast<QcToolButton *>(layout()->itemAt(index)->widget()); }
    QcToolButton *Main() const { return Half(0); }
    QcToolButton *Arrow() const { return Half(1); }

    void UpdateUiParams() override
    {
        ++fills;
        QcCombinedToolButton::UpdateUiParams();
        if (fill)
            fill(*this);
    }

    std::function<void(HostButton &)> fill;
    int fills = 0;
};

/// What has been painted of a widget, a rectangle for each time.
class PaintedRegion : public QObject
{
public:
    explicit PaintedRegion(QWidget &widget) { widget.installEventFilter(this); }

    QVector<QRect> Take() { return std::exchange(m_rects, {}); }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            m_rects << static_cast<QPaintEvent *>(event)->rect();
        return false;
    }

private:
    QVector<QRect> m_rects;
};

} // namespace

class TestQcCombinedToolButton : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // --- Construction ---

    void a_new_control_has_its_fixed_measures()
    {
        HostButton button;
        QCOMPARE(button.size(), QSize(44, 32)); // before it is shown
        QCOMPARE(button.minimumSize(), QSize(44, 32));
        QCOMPARE(button.maximumSize(), QSize(44, 32));
        QVERIFY(button.testAttribute(Qt::WA_MouseTracking));
        QCOMPARE(button.layout()->spacing(), 0);
        QCOMPARE(button.layout()->contentsMargins(), QMargins());
        QCOMPARE(button.layout()->sizeConstraint(), QLayout::SetFixedSize);
        QCOMPARE(button.layout()->count(), 2);
        const QRect places[] = {kMainRect, kArrowRect};
        for (int i = 0; i < 2; ++i) {
            const QcToolButton *half = button.Half(i);
            QVERIFY(half->isCheckable());
            QVERIFY(half->testAttribute(Qt::WA_TranslucentBackground));
            QCOMPARE(half->geometry(), places[i]);
            QCOMPARE(half->minimumSize(), places[i].size());
            QCOMPARE(half->maximumSize(), places[i].size());
            QCOMPARE(half->iconSize(), places[i].size());
        }
        QVERIFY(button.styleSheet().contains(QStringLiteral("Velmora--QcCombinedToolButton")));
        QCOMPARE(button.GetIconPath(), QString());
    }

    void the_sheet_comes_when_both_halves_are_there()
    {
        const PartsBeforeSheet halves("Velmora::QcCombinedToolButton");
        const QcCombinedToolButton button;
        QCOMPARE(halves.Before(), 2);
        QCOMPARE(halves.After(), 0);
    }

    void it_keeps_its_size_in_a_layout()
    {
        QWidget window;
        QHBoxLayout layout(&window);
        auto *inside = new QcCombinedToolButton;
        layout.addWidget(inside);
        window.resize(400, 300);
        window.show();
        DrainEvents();
        QCOMPARE(inside->size(), QSize(44, 32));
    }

    void before_the_first_turn_there_is_the_icon_alone()
    {
        HostButton button;
        button.SetIconPath(m_icon.Path());
        const QImage image = Render(button);
        QCOMPARE(InkBox(image, Qt::white), QRectF(kMainRect));   // in the size of the half, no arrow
        COMPARE_COLOR(PixelAt(image, kOnIcon), QColor(Qt::red)); // without a record it stays as the file draws it
        QCOMPARE(button.fills, 0);
    }

    void a_radius_that_a_form_sets_right_after_the_construction_stays()
    {
        HostButton button;
        button.setProperty("borderRadius", 9);
        DrainEvents();
        QCOMPARE(button.fills, 1);
        QCOMPARE(button.property("borderRadius").toInt(), 9);
        button.setProperty("borderRadius", 7);
        QCOMPARE(button.property("borderRadius").toInt(), 7);
        button.SetBorderRadius(5);
        DrainEvents();
        QCOMPARE(button.property("borderRadius").toInt(), 5); // nothing comes behind
    }

    void the_tables_are_filled_once_on_the_first_turn()
    {
        HostButton button;
        button.fill = [](HostButton &self) { self.SetBackgroundColorParams(QStyle::State(), QStringLiteral("#0000FF")); };
        button.SetBackgroundColorParams(kNormal, QStringLiteral("#FF0000"));
        button.SetBorderRadius(9);
        COMPARE_COLOR(PixelAt(Render(button), kOnMain), QColor(Qt::red));
        DrainEvents();
        QCOMPARE(button.fills, 1);
        COMPARE_COLOR(PixelAt(Render(button), kOnMain), QColor(Qt::white)); // what the host set before is replaced
        button.SetBackgroundColorParams(kNormal, QStringLiteral("#00FF00"));
        COMPARE_COLOR(PixelAt(Render(button), QPointF(1, 2)), QColor(Qt::green)); // the radius too
        UseTable(Table::Dark);
        UseTable(Table::Light);
        QCOMPARE(button.fills, 1);
        COMPARE_COLOR(PixelAt(Render(button), kOnMain), QColor(Qt::green)); // what it sets later stays
        button.setEnabled(false);
        COMPARE_COLOR(PixelAt(Render(button), kOnMain), QColor(Qt::blue)); // the class that derives fills its own
    }

    void filling_the_tables_repaints()
    {
        auto *button = new HostButton(m_window.get());
        ShowBeforeTasks(*button);
        EventCounter paints(*button, QEvent::Paint);
        DrainEvents();
        QCOMPARE(button->fills, 1);
        QCOMPARE(paints.Take(), 1);
        QVERIFY(!InkBox(Render(*button), Qt::white).isNull()); // the arrow
    }

    void one_made_and_filled_while_hidden_has_its_arrow_in_place()
    {
        m_button->SetIconPath(QString());
        QWidget page;
        auto *button = new QcCombinedToolButton(&page);
        DrainEvents();
        page.show();
        DrainEvents();
        QCOMPARE(Render(*button), Render(*m_button));
    }

    void one_that_dies_at_once_is_never_filled()
    {
        bool filled = false;
        {
            HostButton button;
            button.fill = [&filled](HostButton &) { filled = true; };
        }
        DrainEvents();
        QVERIFY(!filled);
    }

    // --- The looks ---

    void each_cell_of_the_tables_is_painted_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < 8; ++i)
            QTest::newRow(kLooks[i].name) << i;
    }

    void each_cell_of_the_tables_is_painted()
    {
        QFETCH(int, index);
        const Look &look = kLooks[index];
        BringMainTo(look);
        // The arrow follows in what both halves share.
        const int arrow = !look.isEnabled || !look.isChecked ? (look.isEnabled ? 1 : index) : 5;
        for (const Table table : {Table::Dark, Table::Light}) {
            UseTable(table);
            const QColor canvas = table == Table::Light ? Qt::white : Qt::black;
            const QImage image = Render(*m_button, canvas);
            const QColor mainFill = Painted(table, QLatin1String(kToolBackgrounds[index]), canvas);
            const QColor arrowFill = Painted(table, QLatin1String(kToolBackgrounds[look.isChecked ? index : arrow]), canvas);
            COMPARE_COLOR(PixelAt(image, kOnMain), mainFill);
            COMPARE_COLOR(PixelAt(image, kOnArrow), arrowFill);
            COMPARE_COLOR(PixelAt(image, kOnIcon), Painted(table, QLatin1String(kToolIcons[index]), mainFill));
            const QColor arrowInk = InkColor(Part(image, kArrowRect.adjusted(1, 8, -1, -8)), arrowFill);
            QVERIFY2(Close(arrowInk, Painted(table, QLatin1String(kArrows[arrow]), arrowFill), 40),
                     qPrintable(arrowInk.name())); // strokes thinner than two pixels cover none of them whole
        }
    }

    void a_hovered_arrow_takes_the_hover_token_alone_and_the_main_half_in_its_turn()
    {
        const QColor hover = Painted(Table::Light, QLatin1String(kToolBackgrounds[2]), Qt::white);
        MoveCursorOver(*m_button->Arrow());
        CheckFills(Qt::white, hover);
        MoveCursorOver(*m_button->Main());
        CheckFills(hover, Qt::white);
        MoveCursorOver(*m_button->Arrow());
        CheckFills(Qt::white, hover);
        MoveCursorAway();
        CheckFills(Qt::white, Qt::white);
    }

    void a_press_shows_on_the_main_half_alone()
    {
        const QColor hover = Painted(Table::Light, QLatin1String(kToolBackgrounds[2]), Qt::white);
        const QColor pressed = Painted(Table::Light, QLatin1String(kToolBackgrounds[3]), Qt::white);
        MoveCursorOver(*m_button->Main());
        for (const Qt::MouseButton mouse : {Qt::RightButton, Qt::MiddleButton, Qt::LeftButton}) {
            EventCounter paints(*m_button, QEvent::Paint);
            Press(kMainRect.center(), mouse);
            CheckFills(pressed, Qt::white);
            DrainEvents();
            QVERIFY(paints.Take() > 0);
            if (mouse == Qt::LeftButton)
                break;
            Release(kMainRect.center(), mouse);
            CheckFills(hover, Qt::white);
        }
        Release(QPoint(200, 150), Qt::LeftButton); // dragged off: no toggle
        MoveCursorAway();
        QVERIFY(!m_button->Main()->isChecked());
        CheckFills(Qt::white, Qt::white);
    }

    void a_press_on_the_arrow_changes_no_token()
    {
        MoveCursorOver(*m_button->Arrow());
        const QImage before = Render(*m_button);
        Press(kArrowRect.center(), Qt::LeftButton);
        QVERIFY(m_button->Arrow()->isDown());
        QCOMPARE(Render(*m_button), before);
        Release(kArrowRect.center(), Qt::LeftButton);
        QVERIFY(m_button->Arrow()->isChecked());
        QCOMPARE(Render(*m_button), before); // nor does its toggle
    }

    void a_checked_main_half_covers_both_in_one_shape_whatever_is_hovered()
    {
        m_button->SetIconPath(QString());
        Click(kMainRect.center());
        QVERIFY(m_button->Main()->isChecked());
        const QImage hovered = Render(*m_button);
        MoveCursorOver(*m_button->Arrow());
        QCOMPARE(Render(*m_button), hovered);
        MoveCursorAway();
        QCOMPARE(Render(*m_button), hovered);

        const QColor active = TokenOf(Table::Light, QLatin1String(kToolBackgrounds[5]));
        QImage expected = Canvas(*m_button);
        QPainter painter(&expected);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(active);
        painter.drawRoundedRect(m_button->rect(), 2, 2, Qt::AbsoluteSize);
        painter.end();
        const QRectF left(0, 0, 33, 32); // all but the arrow's ink, the seam included
        QCOMPARE(Part(hovered, left), Part(expected, left));
        QCOMPARE(Part(hovered, QRectF(32, 0, 12, 10)), Part(expected, QRectF(32, 0, 12, 10)));
        Click(kMainRect.center());
        MoveCursorAway();
        CheckFills(Qt::white, Qt::white);
    }

    void halves_are_rounded_each_by_itself()
    {
        m_button->SetIconPath(QString());
        m_button->SetBackgroundColorParams(kNormal, QStringLiteral("#00FF00"));
        for (const int radius : {2, 6}) {
            m_button->SetBorderRadius(radius);
            QImage expected = Canvas(*m_button);
            QPainter painter(&expected);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::NoPen);
            painter.setBrush(Qt::green);
            painter.drawRoundedRect(kMainRect, radius, radius, Qt::AbsoluteSize);
            painter.drawRoundedRect(kArrowRect, radius, radius, Qt::AbsoluteSize);
            painter.end();
            const QImage image = Render(*m_button);
            QCOMPARE(Part(image, kMainRect), Part(expected, kMainRect));
            QCOMPARE(Part(image, QRectF(32, 0, 12, 10)), Part(expected, QRectF(32, 0, 12, 10)));
        }
    }

    void disabled_and_checked_there_is_no_arrow()
    {
        m_button->SetIconPath(QString());
        m_button->Main()->setChecked(true);
        m_button->setEnabled(false);
        const QColor active = Painted(Table::Light, QLatin1String(kToolBackgrounds[4]), Qt::white);
        QVERIFY(InkBox(Part(Render(*m_button), QRectF(4, 2, 38, 28)), active).isNull());
        m_button->setEnabled(true);
        QVERIFY(!InkBox(Part(Render(*m_button), QRectF(4, 2, 38, 28)), active).isNull());
    }

    void the_setters_serve_both_halves_and_the_main_icon()
    {
        const QImage arrowBefore = Part(Render(*m_button), QRectF(34, 12, 8, 8));
        ImageParams blue;
        blue.color = ColorParams("#0000FF");
        blue.size = QSize(3, 3); // which plays no part
        for (const Look &look : kLooks) {
            m_button->SetBackgroundColorParams(QStyle::State(look.key), QStringLiteral("#00FF00"));
            m_button->SetIconParam(QStyle::State(look.key), blue);
        }
        for (const Look &look : kLooks) {
            BringMainTo(look);
            CheckFills(Qt::green, Qt::green);
            COMPARE_COLOR(PixelAt(Render(*m_button), kOnIcon), QColor(Qt::blue));
            LetGoOfMain();
        }
        BringMainTo(kLooks[1]);
        m_button->SetBackgroundColorParams(kNormal, QString());
        CheckFills(Qt::white, Qt::white); // an empty code paints none
        QCOMPARE(Part(Render(*m_button), QRectF(34, 12, 8, 8)), arrowBefore);
    }

    void the_record_s_path_comes_before_the_common_one()
    {
        const VelmoraTest::SquareIcon other(QStringLiteral("#00FF00"));
        ImageParams params;
        params.path = other.Path();
        m_button->SetIconParam(kNormal, params);
        COMPARE_COLOR(PixelAt(Render(*m_button), kOnIcon), QColor(Qt::green));
        m_button->SetIconPath(QStringLiteral(":/images/none.svg"));
        COMPARE_COLOR(PixelAt(Render(*m_button), kOnIcon), QColor(Qt::green));
        m_button->SetIconParam(kNormal, ImageParams());
        COMPARE_COLOR(PixelAt(Render(*m_button), kOnIcon), QColor(Qt::white)); // missing: none, silently
    }

    void the_main_icon_is_centred_in_the_icon_size_of_its_half()
    {
        m_button->Main()->setIconSize(QSize(20, 11));
        const QColor ink = Painted(Table::Light, QLatin1String(kToolIcons[1]), Qt::white);
        const QImage image = Render(*m_button); // at 6, 10: halves of a pixel are cut off
        COMPARE_COLOR(PixelAt(image, QPointF(7, 11)), ink);
        COMPARE_COLOR(PixelAt(image, QPointF(25, 20)), ink);
        for (const QPointF &outside : {QPointF(16, 9), QPointF(16, 21.7), QPointF(5, 16), QPointF(26.7, 16)})
            COMPARE_COLOR(PixelAt(image, outside), QColor(Qt::white));
    }

    void another_size_rescales_the_icons()
    {
        m_button->layout()->setSizeConstraint(QLayout::SetNoConstraint);
        m_button->setMinimumSize(0, 0);
        m_button->setMaximumSize(1000, 1000);
        m_button->resize(91, 64);
        QCOMPARE(m_button->Main()->iconSize(), QSize(66, 66)); // 91 * 32 / 44, truncated
        QCOMPARE(m_button->Arrow()->iconSize(), QSize(24, 66));
        m_button->resize(0, 64);
        QCOMPARE(m_button->Main()->iconSize(), QSize(66, 66)); // an empty size changes nothing
        m_button->Arrow()->setFixedSize(20, 20);
        QCOMPARE(m_button->Arrow()->iconSize(), QSize(12, 32)); // a resized arrow half returns to its own
    }

    void halves_paint_nothing_themselves()
    {
        m_button->Main()->SetIconPath(m_icon.Path());
        m_button->Arrow()->SetIconPath(m_icon.Path());
        m_button->Main()->SetBackgroundColorParams(kNormal, QStringLiteral("#FF0000"));
        m_button->Arrow()->SetBackgroundColorParams(kNormal, QStringLiteral("#FF0000"));
        m_button->SetIconPath(QString());
        const QImage image = Render(*m_button);
        QVERIFY(InkBox(Part(image, kMainRect), Qt::white).isNull());
        COMPARE_COLOR(PixelAt(image, kOnArrow), QColor(Qt::white));
    }

    void setters_repaint_data()
    {
        QTest::addColumn<int>("setter");
        QTest::addColumn<int>("count");
        QTest::newRow("background") << 0 << 1;
        QTest::newRow("icon of a state") << 1 << 1;
        QTest::newRow("icon") << 2 << 1;
        QTest::newRow("radius") << 3 << 1;
        QTest::newRow("current action") << 4 << 1;
        QTest::newRow("no current action") << 5 << 0;
        QTest::newRow("tables") << 6 << 1;
    }

    void setters_repaint()
    {
        QFETCH(int, setter);
        QFETCH(int, count);
        QAction action(QStringLiteral("Action"));
        const std::function<void()> setters[] = {
            [this] { m_button->SetBackgroundColorParams(kNormal, QString()); },
            [this] { m_button->SetIconParam(kNormal, ImageParams()); },
            [this] { m_button->SetIconPath(QString()); },
            [this] { m_button->SetBorderRadius(2); },
            [&] { m_button->SetCurrentAction(&action); },
            [this] { m_button->SetCurrentAction(nullptr); },
            [this] { m_button->UpdateUiParams(); }, // as a host's class may do at any time
        };
        EventCounter paints(*m_button, QEvent::Paint);
        setters[setter]();
        DrainEvents();
        QCOMPARE(paints.Take(), count);
    }

    void a_theme_change_repaints_once()
    {
        EventCounter paints(*m_button, QEvent::Paint);
        UseTable(Table::Dark);
        QCOMPARE(paints.Take(), 1);
    }

    // --- Hover by the control's own events ---

    void the_control_s_own_moves_hover_the_half_under_them()
    {
        const QColor hover = Painted(Table::Light, QLatin1String(kToolBackgrounds[2]), Qt::white);
        const auto moveTo = [this](const QPoint &place) {
            QMouseEvent move(QEvent::MouseMove, place, QCursor::pos(), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
            QCoreApplication::sendEvent(m_button, &move);
        };
        moveTo(QPoint(31, 5));
        CheckFills(hover, Qt::white);
        moveTo(QPoint(32, 5));
        CheckFills(Qt::white, hover);
        moveTo(QPoint(44, 5)); // in neither: nothing changes
        CheckFills(Qt::white, hover);
        DrainEvents();
        EventCounter paints(*m_button, QEvent::Paint);
        moveTo(QPoint(44, 5));
        DrainEvents();
        QCOMPARE(paints.Take(), 1);
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(m_button, &leave);
        CheckFills(Qt::white, Qt::white);
    }

    void entering_asks_where_the_cursor_is()
    {
        const QColor hover = Painted(Table::Light, QLatin1String(kToolBackgrounds[2]), Qt::white);
        QCursor::setPos(m_button->mapToGlobal(kArrowRect.center()));
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(m_button, &leave);
        CheckFills(Qt::white, Qt::white);
        QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
        QCoreApplication::sendEvent(m_button, &enter);
        CheckFills(Qt::white, hover);
    }

    void disabled_while_hovered_it_keeps_its_hover_unseen()
    {
        const QColor hover = Painted(Table::Light, QLatin1String(kToolBackgrounds[2]), Qt::white);
        MoveCursorOver(*m_button->Main());
        m_button->setEnabled(false);
        CheckFills(Qt::white, Qt::white);
        m_button->setEnabled(true);
        CheckFills(hover, Qt::white);
    }

    void a_disabled_control_shows_the_forbidden_cursor()
    {
        EventCounter paints(*m_button, QEvent::Paint);
        m_button->setEnabled(false);
        for (const QWidget *widget :
             {static_cast<QWidget *>(m_button), static_cast<QWidget *>(m_button->Main()), static_cast<QWidget *>(m_button->Arrow())})
            QCOMPARE(widget->cursor().shape(), Qt::ForbiddenCursor);
        m_button->setEnabled(true);
        QVERIFY(!m_button->testAttribute(Qt::WA_SetCursor));
        QCOMPARE(m_button->Main()->cursor().shape(), Qt::ArrowCursor);
        DrainEvents();
        QVERIFY(paints.Take() > 0);
        m_window->setEnabled(false); // with its window as well
        QCOMPARE(m_button->cursor().shape(), Qt::ForbiddenCursor);
    }

    void one_made_in_a_disabled_parent_starts_disabled()
    {
        m_button->SetIconPath(QString());
        m_window->setEnabled(false);
        auto *button = new HostButton(m_window.get());
        QCOMPARE(button->cursor().shape(), Qt::ForbiddenCursor);
        button->show();
        DrainEvents();
        QCOMPARE(Render(*button), Render(*m_button));
        m_window->setEnabled(true);
        QVERIFY(!button->testAttribute(Qt::WA_SetCursor));
        QCOMPARE(Render(*button), Render(*m_button));
    }

    // --- Actions and the menu ---

    void the_current_action_is_triggered_by_the_main_half()
    {
        QAction action(QStringLiteral("Action"));
        action.setProperty("ActionIconPath", m_icon.Path());
        m_button->SetIconPath(QString());
        m_button->SetCurrentAction(&action);
        QCOMPARE(m_button->GetIconPath(), m_icon.Path());
        QCOMPARE(m_button->Main()->defaultAction(), &action);
        QSignalSpy triggered(&action, &QAction::triggered);
        Click(kMainRect.center());
        QCOMPARE(triggered.count(), 1);
        m_button->SetCurrentAction(nullptr);
        QCOMPARE(m_button->Main()->defaultAction(), &action);
        QCOMPARE(m_button->GetIconPath(), m_icon.Path());
    }

    void a_checkable_action_decides_the_checked_look()
    {
        QAction action(QStringLiteral("Action"));
        action.setCheckable(true);
        action.setChecked(true);
        m_button->SetCurrentAction(&action);
        const QColor active = Painted(Table::Light, QLatin1String(kToolBackgrounds[5]), Qt::white);
        CheckFills(active, active);
        action.setChecked(false);
        CheckFills(Qt::white, Qt::white);
        action.setChecked(true);
        CheckFills(active, active);
        QAction plain(QStringLiteral("Plain"));
        m_button->SetCurrentAction(&plain); // it cannot be checked, and leaves no trace of the check
        CheckFills(Qt::white, Qt::white);
    }

    void a_current_action_that_stops_being_checkable_looks_unchecked()
    {
        QAction action(QStringLiteral("Action"));
        action.setCheckable(true);
        action.setChecked(true);
        m_button->SetCurrentAction(&action);
        const QColor checked = Painted(Table::Light, QLatin1String(kToolBackgrounds[5]), Qt::white);
        CheckFills(checked, checked);
        action.setCheckable(false);
        CheckFills(Qt::white, Qt::white);
    }

    void a_checked_action_repaints_the_whole_control_once()
    {
        QAction action(QStringLiteral("Action"));
        action.setCheckable(true);
        m_button->SetCurrentAction(&action);
        DrainEvents();
        PaintedRegion painted(*m_button);
        for (const bool isChecked : {true, false}) {
            action.setChecked(isChecked);
            DrainEvents();
            QCOMPARE(painted.Take(), QVector<QRect>{m_button->rect()});
        }
    }

    void a_disabled_current_action_looks_and_hovers_disabled()
    {
        const QColor hover = Painted(Table::Light, QLatin1String(kToolBackgrounds[2]), Qt::white);
        QAction action(QStringLiteral("Action"));
        action.setProperty("ActionIconPath", m_icon.Path());
        action.setEnabled(false);
        m_button->setCursor(Qt::PointingHandCursor);
        PaintedRegion painted(*m_button);
        m_button->SetCurrentAction(&action);
        MoveCursorOver(*m_button->Main());
        CheckFills(Qt::white, Qt::white);
        COMPARE_COLOR(PixelAt(Render(*m_button), kOnIcon), Painted(Table::Light, QLatin1String(kToolIcons[0]), Qt::white));
        QCOMPARE(m_button->Main()->cursor().shape(), Qt::ForbiddenCursor);
        QCOMPARE(m_button->cursor().shape(), Qt::PointingHandCursor); // the control is enabled, with the host's cursor
        Press(kMainRect.center(), Qt::LeftButton);
        CheckFills(Qt::white, Qt::white);
        Release(kMainRect.center(), Qt::LeftButton);
        MoveCursorOver(*m_button->Arrow());
        CheckFills(Qt::white, hover);
        m_button->setEnabled(false);
        m_button->setEnabled(true);
        MoveCursorOver(*m_button->Main());
        CheckFills(Qt::white, Qt::white); // it is the action's that counts
        DrainEvents();
        painted.Take();
        action.setEnabled(true);
        CheckFills(hover, Qt::white);
        COMPARE_COLOR(PixelAt(Render(*m_button), kOnIcon), Painted(Table::Light, QLatin1String(kToolIcons[1]), hover));
        DrainEvents();
        QVERIFY(!painted.Take().isEmpty());
    }

    void the_main_half_ends_its_press_with_the_menu_of_the_current_action()
    {
        QMenu *menu = m_menu.get();
        QAction action(QStringLiteral("Action"));
        action.setMenu(menu);
        m_button->SetCurrentAction(&action);
        m_button->Main()->setPopupMode(QToolButton::InstantPopup);
        MoveCursorOver(*m_button->Main());
        const QColor pressed = Painted(Table::Light, QLatin1String(kToolBackgrounds[3]), Qt::white);
        bool wasPressed = false;
        const auto useMenu = [&] {
            wasPressed = Close(PixelAt(Render(*m_button), kOnMain), pressed);
            QTest::mouseRelease(menu->windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(-5, -5));
            MoveCursorAway();
            menu->close();
        };
        connect(menu, &QMenu::aboutToShow, menu, useMenu, Qt::QueuedConnection);
        Press(kMainRect.center(), Qt::LeftButton);
        QVERIFY(wasPressed);
        CheckFills(Qt::white, Qt::white);
    }

    void an_action_without_an_icon_path_clears_the_icon()
    {
        QAction action(QStringLiteral("Action"));
        m_button->SetCurrentAction(&action);
        QCOMPARE(m_button->GetIconPath(), QString());
        QVERIFY(InkBox(Part(Render(*m_button), kMainRect), Qt::white).isNull());
    }

    void a_click_on_the_arrow_shows_the_menu_in_either_direction()
    {
        m_button->setMenu(m_menu.get());
        QSignalSpy toggles(m_button->Arrow(), &QAbstractButton::toggled);
        for (int click = 1; click <= 3; ++click) {
            Click(kArrowRect.center());
            QVERIFY(m_menu->isVisible());
            QCOMPARE(toggles.count(), click);
            QTest::keyClick(m_menu.get(), Qt::Key_Escape);
            QVERIFY(!m_menu->isVisible());
        }
    }

    void the_menu_hangs_from_the_control_s_right_edge_from_the_first_time_on()
    {
        m_window->move(120, 0);
        m_button->setMenu(m_menu.get());
        for (const char *entry : {"", "A wider entry", "An entry that is wider still"}) {
            if (*entry)
                m_menu->addAction(QLatin1String(entry));
            m_button->Arrow()->toggle();
            CheckMenuPlace();
            QCOMPARE(m_menu->size(), m_menu->sizeHint());
            m_menu->hide();
        }
        QFont font = m_menu->font();
        font.setPixelSize(2 * m_menu->fontMetrics().height());
        m_menu->setFont(font);
        m_button->Arrow()->toggle();
        CheckMenuPlace();
        QCOMPARE(m_menu->size(), m_menu->sizeHint());
        m_menu->hide();
        m_menu->setFixedWidth(77);
        m_button->Arrow()->toggle();
        QCOMPARE(m_menu->width(), 77);
        CheckMenuPlace();
        m_menu->hide();
    }

    void a_menu_of_the_kit_hangs_there_too_and_its_choice_becomes_the_current_action()
    {
        m_window->move(120, 0);
        QcMenu menu;
        QcAction *wide = menu.addQcAction(QStringLiteral("An action as wide as the menu"));
        QcAction *action = menu.addQcAction(QStringLiteral("Square"));
        action->SetIconPath(m_icon.Path());
        action->setProperty("ActionIconPath", m_icon.Path());
        m_button->SetIconPath(QString());
        m_button->setMenu(&menu);
        Click(kArrowRect.center());
        QVERIFY(menu.isVisible());
        QCOMPARE(menu.pos(), m_button->mapToGlobal(QPoint(43 - menu.width(), 33)));
        QCOMPARE(menu.size(), menu.sizeHint());
        QVERIFY(menu.width() > 120); // that of an empty one
        menu.setActiveAction(action);
        QTest::keyClick(&menu, Qt::Key_Return);
        QVERIFY(!menu.isVisible());
        QCOMPARE(m_button->Main()->defaultAction(), action);
        QCOMPARE(m_button->GetIconPath(), m_icon.Path());
        wide->trigger();
        QCOMPARE(m_button->GetIconPath(), QString());
    }

    void a_menu_may_be_filled_when_it_is_about_to_show()
    {
        m_menu->clear();
        m_button->setMenu(m_menu.get());
        QSignalSpy fills(m_menu.get(), &QMenu::aboutToShow);
        connect(m_menu.get(), &QMenu::aboutToShow, this, [this] {
            m_menu->clear();
            m_menu->addAction(QStringLiteral("An entry that is much wider than an empty menu"));
        });
        Click(kArrowRect.center());
        QCOMPARE(fills.count(), 1);
        QCOMPARE(m_menu->width(), m_menu->sizeHint().width());
        CheckMenuPlace();
        m_button->Arrow()->toggle(); // open already
        QCOMPARE(fills.count(), 1);
        m_menu->hide();
        m_button->Arrow()->toggle();
        QCOMPARE(fills.count(), 2);
        m_menu->hide();
    }

    void a_menu_about_to_show_may_delete_itself_or_the_control()
    {
        m_button->setMenu(m_menu.get());
        connect(m_menu.get(), &QMenu::aboutToShow, this, [this] { m_menu.reset(); });
        m_button->Arrow()->toggle();
        QVERIFY(!m_menu);
        QMenu menu;
        m_button->setMenu(&menu);
        connect(&menu, &QMenu::aboutToShow, this, [this] {
            delete m_button;
            m_button = nullptr;
        });
        m_button->Main()->setFocus();
        QTest::keyPress(m_window->windowHandle(), Qt::Key_Down);
        QVERIFY(!m_button);
        QVERIFY(!menu.isVisible());
    }

    void a_menu_that_the_host_has_sized_keeps_its_size()
    {
        m_menu->resize(90, 60);
        m_button->setMenu(m_menu.get());
        m_button->Arrow()->toggle();
        QCOMPARE(m_menu->size(), QSize(90, 60));
        CheckMenuPlace();
        m_menu->hide();
    }

    void holding_the_arrow_pressed_shows_the_menu_at_the_same_place()
    {
        m_button->setMenu(m_menu.get());
        Press(kArrowRect.center(), Qt::LeftButton);
        QVERIFY(!m_menu->isVisible());
        QTRY_VERIFY(m_menu->isVisible());
        CheckMenuPlace();
        QVERIFY(!m_button->Arrow()->isDown());
        QTest::mouseRelease(m_menu.get(), Qt::LeftButton, Qt::NoModifier, QPoint(-5, -5));
        QVERIFY(m_menu->isVisible()); // to choose from
        QTest::keyClick(m_menu.get(), Qt::Key_Escape);
        QVERIFY(!m_button->Arrow()->isChecked());
        Click(kArrowRect.center()); // the next click works
        QVERIFY(m_menu->isVisible());
        m_menu->hide();
    }

    void a_chosen_entry_becomes_the_current_action()
    {
        QAction *first = m_menu->actions().first();
        first->setProperty("ActionIconPath", m_icon.Path());
        m_button->SetIconPath(QString());
        m_button->setMenu(m_menu.get());
        QSignalSpy triggered(first, &QAction::triggered);
        Click(kArrowRect.center());
        QTest::mouseClick(m_menu.get(), Qt::LeftButton, Qt::NoModifier, m_menu->actionGeometry(first).center());
        QCOMPARE(triggered.count(), 1);
        QVERIFY(!m_menu->isVisible());
        QCOMPARE(m_button->Main()->defaultAction(), first);
        QCOMPARE(m_button->GetIconPath(), m_icon.Path());
        m_menu->actions().last()->trigger(); // without an icon
        QCOMPARE(m_button->Main()->defaultAction(), m_menu->actions().last());
        QCOMPARE(m_button->Main()->actions().size(), 1); // a long press has nothing to offer
        QCOMPARE(m_button->GetIconPath(), QString());
    }

    void an_entry_chosen_twice_stays_the_current_action()
    {
        QAction *first = m_menu->actions().first();
        m_button->setMenu(m_menu.get());
        QSignalSpy triggered(first, &QAction::triggered);
        for (int i = 0; i < 2; ++i) {
            Click(kArrowRect.center());
            QTest::mouseClick(m_menu.get(), Qt::LeftButton, Qt::NoModifier, m_menu->actionGeometry(first).center());
        }
        QCOMPARE(triggered.count(), 2);
        QCOMPARE(m_button->Main()->defaultAction(), first);
        Click(kMainRect.center());
        QCOMPARE(triggered.count(), 3);
    }

    void a_second_menu_leaves_the_first_connected()
    {
        QMenu second;
        QAction *other = second.addAction(QStringLiteral("Other"));
        m_button->setMenu(m_menu.get());
        m_button->setMenu(&second);
        m_button->Arrow()->toggle();
        QVERIFY(second.isVisible());
        QVERIFY(!m_menu->isVisible());
        second.hide();
        other->trigger();
        QCOMPARE(m_button->Main()->defaultAction(), other);
        m_menu->actions().first()->trigger();
        QCOMPARE(m_button->Main()->defaultAction(), m_menu->actions().first());
    }

    void no_menu_and_no_action_say_nothing()
    {
        m_button->setMenu(nullptr);
        m_button->setMenu(m_menu.get());
        m_button->setMenu(m_menu.get());
        m_button->setMenu(nullptr);
        QCOMPARE(m_button->Arrow()->menu(), nullptr);
        m_button->Arrow()->toggle();
        QVERIFY(!m_menu->isVisible());
        m_button->SetCurrentAction(nullptr);
        QCOMPARE(m_button->Main()->defaultAction(), nullptr);
    }

    void menus_and_actions_may_die_first()
    {
        m_button->setMenu(m_menu.get());
        m_menu->actions().first()->trigger();
        m_menu.reset();
        QCOMPARE(m_button->Main()->defaultAction(), nullptr);
        m_button->Arrow()->toggle();
        Click(kMainRect.center());
        QMenu another;
        another.addAction(QStringLiteral("Another"));
        m_button->setMenu(&another);
        m_button->Arrow()->toggle();
        QVERIFY(another.isVisible());
        another.hide();
    }

    void a_menu_may_outlive_the_control_or_be_its_child()
    {
        m_button->setMenu(m_menu.get());
        auto *own = new QMenu(m_button);
        own->addAction(QStringLiteral("Own"));
        m_button->setMenu(own);
        m_button->Arrow()->toggle();
        QVERIFY(own->isVisible());
        own->actions().first()->trigger();
        delete m_button;
        m_button = nullptr;
        m_menu->actions().first()->trigger();
    }

    void added_actions_belong_to_the_arrow()
    {
        QAction action(QStringLiteral("Action"));
        m_button->addAction(&action);
        QCOMPARE(m_button->Arrow()->actions(), QList<QAction *>{&action});
        QVERIFY(m_button->actions().isEmpty());
        ExpectWarning(QStringLiteral("QWidget::insertAction: Attempt to insert null action"));
        m_button->addAction(nullptr);
    }

    void its_own_signals_stay_silent()
    {
        QSignalSpy main(m_button, &QcCombinedToolButton::signalMainButtonToggled);
        QSignalSpy arrow(m_button, &QcCombinedToolButton::signalArrowButtonToggled);
        m_button->Main()->toggle();
        m_button->Arrow()->toggle();
        QCOMPARE(main.count(), 0);
        QCOMPARE(arrow.count(), 0);
        Q_EMIT m_button->signalMainButtonToggled();
        QCOMPARE(main.takeFirst().at(0), QVariant(false));
    }

    void slots_are_private_and_the_class_known_by_name()
    {
        const QMetaObject &meta = QcCombinedToolButton::staticMetaObject;
        QCOMPARE(meta.className(), "Velmora::QcCombinedToolButton");
        QCOMPARE(meta.method(meta.indexOfSlot("onMainButtonToggled(bool)")).access(), QMetaMethod::Private);
        QCOMPARE(meta.method(meta.indexOfSlot("onArrowButtonToggled(bool)")).access(), QMetaMethod::Private);
        QVERIFY(meta.indexOfSignal("signalMainButtonToggled()") >= 0);
        QVERIFY(meta.indexOfSignal("signalArrowButtonToggled(bool)") >= 0);
    }

    // --- Keyboard, direction, assistive technology ---

    void tab_reaches_both_halves_and_space_presses_them()
    {
        m_button->setMenu(m_menu.get());
        m_elsewhere->setFocus();
        QTest::keyClick(m_window.get(), Qt::Key_Tab);
        QVERIFY(m_button->Main()->hasFocus());
        const QImage before = Render(*m_button);
        QTest::keyPress(m_window->windowHandle(), Qt::Key_Space);
        QCOMPARE(Render(*m_button), before); // the look follows the mouse
        QTest::keyRelease(m_window->windowHandle(), Qt::Key_Space);
        QVERIFY(m_button->Main()->isChecked());
        QTest::keyClick(m_window.get(), Qt::Key_Tab);
        QVERIFY(m_button->Arrow()->hasFocus());
        QTest::keyClick(m_window->windowHandle(), Qt::Key_Space);
        QVERIFY(m_menu->isVisible());
        QTest::keyClick(m_menu.get(), Qt::Key_Down);
        QTest::keyClick(m_menu.get(), Qt::Key_Return);
        QVERIFY(!m_menu->isVisible());
        QCOMPARE(m_button->Main()->defaultAction(), m_menu->actions().first());
        QVERIFY(m_button->Arrow()->hasFocus());
    }

    void down_opens_the_menu_from_either_half()
    {
        m_button->setMenu(m_menu.get());
        for (QcToolButton *half : {m_button->Main(), m_button->Arrow()}) {
            half->setFocus();
            for (const Qt::KeyboardModifiers modifiers : {Qt::NoModifier, Qt::AltModifier, Qt::KeypadModifier}) {
                QTest::keyClick(m_window->windowHandle(), Qt::Key_Down, modifiers);
                QVERIFY(m_menu->isVisible());
                CheckMenuPlace();
                QTest::keyClick(m_menu.get(), Qt::Key_Escape);
                QVERIFY(!m_menu->isVisible());
                QVERIFY(half->hasFocus());
            }
            QTest::keyClick(m_window->windowHandle(), Qt::Key_Down, Qt::ControlModifier);
            QVERIFY(!m_menu->isVisible());
        }
    }

    void down_opens_a_menu_of_added_actions()
    {
        QAction action(QStringLiteral("Action"));
        m_button->addAction(&action);
        m_button->Arrow()->setFocus();
        QSignalSpy triggered(&action, &QAction::triggered);
        QTimer::singleShot(0, this, [] {
            QWidget *popup = QApplication::activePopupWidget();
            QVERIFY(popup);
            QTest::keyClick(popup, Qt::Key_Down);
            QTest::keyClick(popup, Qt::Key_Return);
        });
        QTest::keyClick(m_window->windowHandle(), Qt::Key_Down); // returns when the menu has closed
        QCOMPARE(triggered.count(), 1);
    }

    void right_to_left_layout_mirrors_halves_pictures_and_menu()
    {
        m_window->move(0, 0);
        m_button->move(20, 10);
        m_button->setLayoutDirection(Qt::RightToLeft);
        DrainEvents();
        const QRect mainRect(12, 0, 32, 32);
        const QRect arrowRect(0, 0, 12, 32);
        QCOMPARE(m_button->Main()->geometry(), mainRect);
        QCOMPARE(m_button->Arrow()->geometry(), arrowRect);
        const QColor hover = Painted(Table::Light, QLatin1String(kToolBackgrounds[2]), Qt::white);
        MoveCursorOver(*m_button->Arrow());
        QImage image = Render(*m_button);
        COMPARE_COLOR(PixelAt(image, QPointF(6, 3)), hover);
        COMPARE_COLOR(PixelAt(image, QPointF(42, 16)), QColor(Qt::white));
        MoveCursorOver(*m_button->Main());
        image = Render(*m_button);
        COMPARE_COLOR(PixelAt(image, QPointF(6, 3)), QColor(Qt::white));
        COMPARE_COLOR(PixelAt(image, QPointF(42, 16)), hover);
        COMPARE_COLOR(PixelAt(image, QPointF(28, 16)), Painted(Table::Light, QLatin1String(kToolIcons[2]), hover));
        QVERIFY(!InkBox(Part(image, QRectF(0, 8, 12, 16)), Qt::white).isNull()); // the arrow
        m_button->setMenu(m_menu.get());
        m_button->Arrow()->toggle();
        // One pixel inside the left edge, as it is one pixel inside the right edge otherwise.
        QCOMPARE(m_placed, m_button->mapToGlobal(QPoint(1, 33)));
        m_menu->hide();
    }

    void assistive_technology_sees_a_group_of_two_buttons()
    {
        m_button->setMenu(m_menu.get());
        QAccessibleInterface *group = QAccessible::queryAccessibleInterface(m_button);
        QVERIFY(group);
        QCOMPARE(group->role(), QAccessible::Grouping);
        QCOMPARE(group->childCount(), 2);
        QAccessibleInterface *main = group->child(0);
        QAccessibleInterface *arrow = group->child(1);
        QCOMPARE(main->object(), m_button->Main());
        QCOMPARE(main->role(), QAccessible::CheckBox);
        QCOMPARE(arrow->role(), QAccessible::ButtonMenu);
        m_button->setToolTip(QStringLiteral("Shapes"));
        QCOMPARE(main->text(QAccessible::Name), QStringLiteral("Shapes"));
        QCOMPARE(arrow->text(QAccessible::Name), QStringLiteral("Shapes"));
        m_button->setAccessibleName(QStringLiteral("Draw a shape"));
        QCOMPARE(group->text(QAccessible::Name), QStringLiteral("Draw a shape"));
        QCOMPARE(arrow->text(QAccessible::Name), QStringLiteral("Draw a shape"));
        QVERIFY(main->state().checkable);
        QVERIFY(!main->state().checked);
        m_button->Main()->setChecked(true);
        QVERIFY(main->state().checked);
        m_menu->actions().first()->trigger();
        QCOMPARE(main->text(QAccessible::Name), m_menu->actions().first()->text());
        QVERIFY(!arrow->state().checkable);
        QVERIFY(arrow->state().hasPopup);
        QAccessibleActionInterface *actions = arrow->actionInterface();
        QCOMPARE(actions->actionNames().first(), QAccessibleActionInterface::showMenuAction());
        actions->doAction(QAccessibleActionInterface::showMenuAction());
        QVERIFY(!m_menu->isVisible()); // assistive technology waits for its call to return
        QTRY_VERIFY(m_menu->isVisible());
        CheckMenuPlace();
        m_menu->hide();
        QVERIFY(!arrow->state().checked);
        QSignalSpy clicks(m_button->Main(), &QAbstractButton::clicked);
        main->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(clicks.count(), 0);
        QTRY_COMPARE(clicks.count(), 1);
        m_button->setEnabled(false);
        QVERIFY(main->state().disabled);
    }

protected:
    void SetUp() override
    {
        MoveCursorAway();
        m_window = std::make_unique<QWidget>();
        m_window->setGeometry(kWindowPlace);
        m_elsewhere = new QToolButton(m_window.get());
        m_elsewhere->setGeometry(10, 150, 40, 20);
        m_button = new HostButton(m_window.get());
        m_button->move(10, 10);
        m_button->SetIconPath(m_icon.Path());
        m_menu = std::make_unique<QMenu>();
        m_menu->installEventFilter(this);
        m_menu->addAction(QStringLiteral("First"));
        m_menu->addAction(QStringLiteral("Second"));
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        // The icon leaves an edge free, where the half shows its background.
        m_button->Main()->setIconSize(QSize(20, 20));
        DrainEvents();
    }

    void TearDown() override
    {
        if (m_button)
            LetGoOfMain();
        m_menu.reset();
        m_window.reset();
        UseTable(Table::Light);
    }

private:
    void Press(const QPoint &place, Qt::MouseButton mouse)
    {
        QTest::mousePress(m_window->windowHandle(), mouse, Qt::NoModifier, m_button->mapTo(m_window.get(), place));
    }

    void Release(const QPoint &place, Qt::MouseButton mouse)
    {
        QTest::mouseRelease(m_window->windowHandle(), mouse, Qt::NoModifier, m_button->mapTo(m_window.get(), place));
    }

    void Click(const QPoint &place)
    {
        Press(place, Qt::LeftButton);
        Release(place, Qt::LeftButton);
    }

    /// Brings the main half to \a look as its user would.
    void BringMainTo(const Look &look)
    {
        m_button->Main()->setChecked(look.isChecked);
        m_button->setEnabled(look.isEnabled);
        if (look.isHovered)
            MoveCursorOver(*m_button->Main());
        if (look.isPressed)
            Press(kMainRect.center(), Qt::LeftButton);
    }

    void LetGoOfMain() { LetGo(*m_button->Main()); }

    void CheckFills(const QColor &main, const QColor &arrow)
    {
        const QImage image = Render(*m_button);
        COMPARE_COLOR(PixelAt(image, kOnMain), main);
        COMPARE_COLOR(PixelAt(image, kOnArrow), arrow);
    }

    void CheckMenuPlace() const
    {
        QVERIFY(m_menu->isVisible());
        QCOMPARE(m_placed, m_button->mapToGlobal(QPoint(43 - m_menu->width(), 33)));
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == m_menu.get() && event->type() == QEvent::Show)
            m_placed = m_menu->pos();
        return false;
    }

    const VelmoraTest::SquareIcon m_icon{QStringLiteral("#FF0000")};
    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<QMenu> m_menu;
    QPoint m_placed; // where the menu was put last: the platform moves a window once more by a frame that it thinks up
    HostButton *m_button = nullptr;
    QWidget *m_elsewhere = nullptr;
};

VELMORA_TEST_MAIN(TestQcCombinedToolButton)

#include "tst_QcCombinedToolButton.moc"
