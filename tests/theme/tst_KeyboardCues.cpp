#include "theme/FocusStage.h"

#include "support/EventCounter.h"
#include "support/PaintedRegion.h"
#include "support/TestMain.h"

#include <Velmora/KeyboardCues.h>
#include <Velmora/QcButton.h>
#include <Velmora/QcCheckBox.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcSelector.h>
#include <Velmora/QcSwitchButton.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QCheckBox>
#include <QDialog>
#include <QGraphicsProxyWidget>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QGroupBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSet>
#include <QShortcut>
#include <QSplitter>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTabBar>
#include <QVBoxLayout>

#include <private/qobject_p.h>

#include <algorithm>
#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

Q_DECLARE_METATYPE(VelmoraTest::Table)

namespace {

const QRect kPlace(40, 50, 100, 24);
const QRect kOtherPlace(40, 150, 100, 24);
const QString kToken = QStringLiteral("others/focus");

/// What the program does, event by event in its order: who gets it, and what it is.
class WorkLog : public QObject
{
public:
    WorkLog() { qApp->installEventFilter(this); }
    QStringList told;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        static const QSet<int> work = {QEvent::MetaCall,   QEvent::Timer, QEvent::Paint, QEvent::Move,          QEvent::Resize,
                                       QEvent::ChildAdded, QEvent::Show,  QEvent::Hide,  QEvent::DeferredDelete};
        if (work.contains(event->type()))
            told += QStringLiteral("%1 %2").arg(QLatin1String(watched->metaObject()->className())).arg(event->type());
        return false;
    }
};

int FiltersOf(QObject &object)
{
    const auto *extra = QObjectPrivate::get(&object)->extraData;
    return extra ? int(std::count_if(extra->eventFilters.begin(), extra->eventFilters.end(), [](const auto &f) { return !f.isNull(); }))
                 : 0;
}

/// A host's own control.
class Plain : public QWidget
{
public:
    explicit Plain(QWidget *parent)
        : QWidget(parent)
    {
        setFocusPolicy(Qt::StrongFocus);
    }
};

} // namespace

/// The ring that shows where the keyboard is.
class TestKeyboardCues : public TestCase
{
    Q_OBJECT

private:
    void SetUp() override
    {
        SetKeyboardCuesEnabled(true);
        m_stage = std::make_unique<FocusStage>();
        m_first = m_stage->Add<QcButton>(kPlace);
        m_second = m_stage->Add<QcButton>(kOtherPlace);
        m_elsewhere = m_stage->Add<QWidget>(QRect(380, 280, 10, 10));
    }

    void TearDown() override
    {
        m_stage.reset();
        UseTable(Table::Light);
        SetKeyboardCuesEnabled(false); // what was pressed is forgotten
    }

    /// With the keyboard on the first button, reached by the Tab key.
    void Arrive()
    {
        QVERIFY(m_stage->Begin());
        m_second->setFocus();
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(m_first->hasFocus());
        QVERIFY(RingIn(*m_stage));
    }

    /// Waits until all is painted that is due: what another widget asks for then is painted after it.
    void FinishPainting()
    {
        for (int round = 0; round < 2; ++round) {
            DrainEvents();
            EventCounter paints(*m_elsewhere, QEvent::Paint);
            m_elsewhere->update();
            int painted = 0;
            QTRY_VERIFY((painted += paints.Take()) > 0);
        }
    }

    QColor RingColor() const { return TokenOf(Table::Light, kToken); }
    /// What the ring covers, told from a picture without it.
    QRectF Ringed() { return Difference(m_bare, m_stage->Look()); }

    std::unique_ptr<FocusStage> m_stage;
    QcButton *m_first = nullptr;
    QcButton *m_second = nullptr;
    QWidget *m_elsewhere = nullptr;
    QImage m_bare;

private Q_SLOTS:
    // --- Off ---

    void cues_are_asked_for_before_there_is_an_application()
    {
        QVERIFY(s_wasOffAtFirst);
        QVERIFY(KeyboardCuesEnabled());
        Arrive(); // they were on before the application object was made
    }

    void off_not_one_pixel_differs_and_nothing_is_made()
    {
        SetKeyboardCuesEnabled(false);
        QVERIFY(m_stage->Begin());
        m_second->setFocus();
        const QImage before = m_stage->Look();
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(m_first->hasFocus());
        QCOMPARE(m_stage->Look(), before);
        QVERIFY(m_stage->findChildren<QFocusFrame *>().isEmpty());
    }

    void switched_off_the_ring_goes_and_nothing_stays()
    {
        QVERIFY(m_stage->Begin());
        const QImage before = m_stage->Look();
        Arrive();
        QVERIFY(m_stage->Look() != before);
        SetKeyboardCuesEnabled(false);
        QCOMPARE(m_stage->Look(), before);
        QVERIFY(m_stage->findChildren<QFocusFrame *>().isEmpty());
        SetKeyboardCuesEnabled(true);
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(RingIn(*m_stage));
    }

    void nothing_is_made_before_the_keyboard_moves_the_focus()
    {
        QVERIFY(m_stage->Begin());
        m_first->setFocus();
        QTest::mouseClick(m_second, Qt::LeftButton);
        DrainEvents();
        QVERIFY(m_stage->findChildren<QFocusFrame *>().isEmpty());
    }

    // --- Its look ---

    void the_ring_is_two_pixels_around_the_control_in_its_token_data()
    {
        QTest::addColumn<Table>("table");
        QTest::newRow("light") << Table::Light;
        QTest::newRow("dark") << Table::Dark;
    }

    void the_ring_is_two_pixels_around_the_control_in_its_token()
    {
        QFETCH(Table, table);
        UseTable(table);
        Arrive();
        const QImage look = m_stage->Look();
        const QColor ring = TokenOf(table, kToken);
        const QPointF middle = QRectF(kPlace).center();
        // Whatever the scale, half a logical pixel off an edge is inside of the ring or of the gap.
        for (const double out : {1.5, 2.5}) {
            COMPARE_COLOR(PixelAt(look, QPointF(middle.x(), kPlace.top() - out)), ring);
            COMPARE_COLOR(PixelAt(look, QPointF(middle.x(), kPlace.bottom() + 1 + out)), ring);
            COMPARE_COLOR(PixelAt(look, QPointF(kPlace.left() - out, middle.y())), ring);
            COMPARE_COLOR(PixelAt(look, QPointF(kPlace.right() + 1 + out, middle.y())), ring);
        }
        COMPARE_COLOR(PixelAt(look, QPointF(middle.x(), kPlace.top() - 0.5)), QColor(Qt::white));
        COMPARE_COLOR(PixelAt(look, QPointF(middle.x(), kPlace.top() - 4.5)), QColor(Qt::white));
        COMPARE_COLOR(PixelAt(look, QPointF(kPlace.left() - 2.5, kPlace.top() - 2.5)), QColor(Qt::white)); // a round corner
    }

    void its_sides_are_sharp_at_every_scale()
    {
        Arrive();
        for (const qreal ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
            m_first->move(kPlace.topLeft() + QPoint(1, 1)); // at 1.5 this is no whole pixel
            DrainEvents();
            const QImage look = RenderAt(*m_stage, ratio);
            const int x = qRound(kPlace.center().x() * ratio);
            QSet<QRgb> colors;
            int thickness = 0;
            for (int y = qRound((kPlace.top() - 10) * ratio); y < qRound((kPlace.top() + 1) * ratio); ++y) {
                colors.insert(look.pixel(x, y));
                thickness += QColor(look.pixel(x, y)) == RingColor() ? 1 : 0;
            }
            QCOMPARE(colors, (QSet<QRgb>{QColor(Qt::white).rgb(), RingColor().rgb()}));
            QCOMPARE(thickness, qRound(2 * ratio));
        }
    }

    void a_row_that_lies_close_leaves_room_for_it()
    {
        auto *row = m_stage->Add<QWidget>(QRect(40, 200, 100, 24));
        auto *button = m_stage->Add<QcButton>(row->rect(), row);
        QVERIFY(m_stage->Begin());
        m_second->setFocus();
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(button->hasFocus());
        QCOMPARE(RingIn(*m_stage)->geometry(), row->geometry().adjusted(-4, -4, 4, 4));
        // A part of a control that its parent does not show has no ring.
        row->setFixedWidth(50);
        QVERIFY(RingIn(*m_stage)->mask().boundingRect().width() < 60);
        COMPARE_COLOR(PixelAt(m_stage->Look(), QPointF(141.5, 212)), QColor(Qt::white));
        COMPARE_COLOR(PixelAt(m_stage->Look(), QPointF(60.5, 201)), RingColor());
    }

    void corners_follow_the_control()
    {
        m_first->SetBorderRadius(0);
        Arrive();
        COMPARE_COLOR(PixelAt(m_stage->Look(), QPointF(kPlace.left() - 2.5, kPlace.top() - 2.5)), RingColor());
        m_first->SetBorderRadius(12); // while the ring is shown
        FinishPainting();
        const QImage round = m_stage->Look();
        COMPARE_COLOR(PixelAt(round, QPointF(kPlace.left() - 2.5, kPlace.top() - 2.5)), QColor(Qt::white));
        const QImage corner = Part(round, QRect(kPlace.topLeft() - QPoint(4, 4), QSize(12, 12)));
        const auto isBetween = [&](const QPoint &at) {
            const int red = corner.pixelColor(at).red();
            return red > RingColor().red() + 20 && red < 235;
        };
        int smooth = 0;
        for (int i = 0; i < corner.width() * corner.height(); ++i)
            smooth += isBetween(QPoint(i % corner.width(), i / corner.width())) ? 1 : 0;
        QVERIFY(smooth > 4); // it has no steps
    }

    void a_change_of_the_table_repaints_it()
    {
        Arrive();
        FinishPainting();
        const PaintedRegion painted(*RingIn(*m_stage));
        UseTable(Table::Dark);
        FinishPainting();
        QVERIFY(painted.region.contains(QPoint(RingIn(*m_stage)->width() / 2, 2)));
        COMPARE_COLOR(PixelAt(m_stage->Look(), QPointF(kPlace.center().x(), kPlace.top() - 2.5)), TokenOf(Table::Dark, kToken));
    }

    void without_room_around_it_lies_within_set_off_from_the_fill()
    {
        auto *primary = m_stage->Add<QcPrimaryButton>(QRect(0, 250, 400, 50));
        QVERIFY(m_stage->Begin());
        m_bare = m_stage->Look();
        m_second->setFocus();
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(primary->hasFocus());
        QVERIFY(QRectF(primary->geometry()).contains(Ringed()));
        const QImage look = m_stage->Look();
        COMPARE_COLOR(PixelAt(look, QPointF(200, 250.75)), RingColor());
        COMPARE_COLOR(PixelAt(look, QPointF(200, 251.5)), RingColor());
        COMPARE_COLOR(PixelAt(look, QPointF(200, 252.5)), TokenOf(Table::Light, QStringLiteral("bg/bg_box")));
        COMPARE_COLOR(PixelAt(look, QPointF(200, 254.5)), TokenOf(Table::Light, QStringLiteral("brand/brand")));
    }

    void a_check_box_is_ringed_with_its_label_and_no_further_data()
    {
        QTest::addColumn<Qt::LayoutDirection>("direction");
        QTest::newRow("from left to right") << Qt::LeftToRight;
        QTest::newRow("from right to left") << Qt::RightToLeft;
    }

    void a_check_box_is_ringed_with_its_label_and_no_further()
    {
        QFETCH(Qt::LayoutDirection, direction);
        auto *box = m_stage->Add<QcCheckBox>(QRect(40, 200, 300, 20));
        box->setText(QStringLiteral("Short"));
        box->setLayoutDirection(direction);
        QVERIFY(m_stage->Begin());
        m_bare = m_stage->Look();
        m_second->setFocus();
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(box->hasFocus());
        const QRectF ringed = Ringed();
        QVERIFY(ringed.width() < 150);
        const QRectF ink = InkBox(Part(m_bare, box->geometry()), Qt::white).translated(box->pos());
        QVERIFY(ringed.contains(ink));
        QCOMPARE(ringed.center().x() < 190, direction == Qt::LeftToRight);
    }

    void a_check_box_with_an_icon_is_ringed_with_all_of_its_label()
    {
        auto *box = m_stage->Add<QCheckBox>(QRect(40, 200, 300, 40));
        QPixmap icon(32, 32);
        icon.fill(Qt::green);
        box->setIcon(icon);
        box->setIconSize(icon.size());
        box->setText(QStringLiteral("Short"));
        QVERIFY(m_stage->Begin());
        const QRectF ink = InkBox(Part(m_stage->Look(), box->geometry()), Qt::white).translated(box->pos());
        m_second->setFocus();
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(box->hasFocus());
        QVERIFY(QRectF(RingIn(*m_stage)->geometry()).contains(ink));
    }

    void a_group_is_ringed_at_its_title()
    {
        auto *group = m_stage->Add<QGroupBox>(QRect(40, 180, 300, 100));
        group->setCheckable(true);
        group->setTitle(QStringLiteral("Title"));
        QVERIFY(m_stage->Begin());
        m_second->setFocus();
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(group->hasFocus());
        QVERIFY(RingIn(*m_stage)->geometry().center().x() < group->geometry().center().x());
        group->setAlignment(Qt::AlignRight);
        QVERIFY(RingIn(*m_stage)->geometry().center().x() > group->geometry().center().x());
    }

    void a_tab_bar_shows_which_tab_has_the_keyboard()
    {
        auto *tabs = m_stage->Add<QTabBar>(QRect(40, 200, 300, 30));
        tabs->addTab(QStringLiteral("One"));
        tabs->addTab(QStringLiteral("Two"));
        QVERIFY(m_stage->Begin());
        m_second->setFocus();
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(tabs->hasFocus());
        QVERIFY(RingIn(*m_stage)->geometry().intersects(tabs->tabRect(0).translated(tabs->pos())));
        m_stage->Press(Qt::Key_Right);
        QVERIFY(RingIn(*m_stage)->geometry().adjusted(1, 1, -1, -1) == (tabs->tabRect(1) & tabs->rect()).translated(tabs->pos()));
    }

    // --- When ---

    void tab_backtab_arrows_and_mnemonics_show_it_data()
    {
        QTest::addColumn<Qt::FocusReason>("reason");
        QTest::newRow("Tab") << Qt::TabFocusReason;
        QTest::newRow("Shift+Tab") << Qt::BacktabFocusReason;
        QTest::newRow("a mnemonic") << Qt::ShortcutFocusReason;
    }

    void tab_backtab_arrows_and_mnemonics_show_it()
    {
        QFETCH(Qt::FocusReason, reason);
        QVERIFY(m_stage->Begin());
        m_first->setFocus(Qt::MouseFocusReason);
        QVERIFY(!RingIn(*m_stage));
        m_second->setFocus(reason);
        QVERIFY(RingIn(*m_stage));
        m_first->setFocus(Qt::MouseFocusReason);
        QVERIFY(!RingIn(*m_stage));
    }

    void arrows_in_a_group_move_it()
    {
        for (QcButton *button : {m_first, m_second}) {
            button->setCheckable(true);
            button->setAutoExclusive(true);
        }
        QVERIFY(m_stage->Begin());
        m_first->setFocus();
        m_stage->Press(Qt::Key_Down);
        QVERIFY(m_second->hasFocus());
        QVERIFY(RingIn(*m_stage)->geometry().contains(kOtherPlace));
    }

    void a_mouse_press_takes_it_and_the_keyboard_brings_it_back()
    {
        Arrive();
        QTest::mousePress(m_first, Qt::LeftButton);
        QVERIFY(!RingIn(*m_stage));
        QTest::mouseRelease(m_first, Qt::LeftButton);
        QVERIFY(m_first->hasFocus());
        QVERIFY(!RingIn(*m_stage));
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(RingIn(*m_stage)->geometry().contains(kOtherPlace));
    }

    void a_touch_takes_it()
    {
        class Touched : public QWidget
        {
        public:
            using QWidget::QWidget;

        protected:
            bool event(QEvent *event) override { return event->type() == QEvent::TouchBegin || QWidget::event(event); }
        };
        auto *touched = m_stage->Add<Touched>(QRect(200, 40, 100, 100));
        touched->setAttribute(Qt::WA_AcceptTouchEvents); // so that Qt makes no press of the mouse of it
        Arrive();
        QTest::touchEvent(m_stage.get(), QTest::createTouchDevice()).press(0, touched->geometry().center(), m_stage.get());
        QVERIFY(!RingIn(*m_stage));
        QVERIFY(m_first->hasFocus());
    }

    void focus_given_by_the_program_shows_it_as_an_answer_to_a_key_only()
    {
        QVERIFY(m_stage->Begin());
        m_second->setFocus();
        QVERIFY(!RingIn(*m_stage));
        connect(m_second, &QAbstractButton::clicked, m_first, [this] { m_first->setFocus(); });
        QTest::mouseClick(m_second, Qt::LeftButton);
        QVERIFY(m_first->hasFocus());
        QVERIFY(!RingIn(*m_stage));
        m_second->setFocus();
        m_stage->Press(Qt::Key_Space);
        QVERIFY(m_first->hasFocus());
        QVERIFY(RingIn(*m_stage));
    }

    void an_arrow_in_a_text_is_no_navigation()
    {
        auto *edit = m_stage->Add<QLineEdit>(QRect(40, 200, 100, 24));
        QVERIFY(m_stage->Begin());
        QTest::mouseClick(edit, Qt::LeftButton);
        m_stage->Press(Qt::Key_Left);
        QVERIFY(edit->hasFocus());
        QVERIFY(!RingIn(*m_stage));
    }

    void a_window_without_the_keyboard_shows_none_and_one_that_gets_it_back_does()
    {
        Arrive();
        FocusStage other;
        auto *button = other.Add<QcButton>(kPlace);
        QVERIFY(other.Begin());
        button->setFocus();
        QVERIFY(!RingIn(*m_stage));
        QVERIFY(RingIn(other));
        m_stage->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_stage.get()));
        QVERIFY(RingIn(*m_stage)->geometry().contains(kPlace));
        QVERIFY(!RingIn(other));
    }

    void a_dialog_opened_by_a_key_shows_it_and_gives_it_back()
    {
        QDialog dialog(m_stage.get());
        auto *layout = new QVBoxLayout(&dialog);
        auto *ok = new QcButton;
        layout->addWidget(ok);
        connect(m_first, &QAbstractButton::clicked, &dialog, &QDialog::open);
        connect(ok, &QAbstractButton::clicked, &dialog, &QDialog::accept);
        Arrive();
        m_stage->Press(Qt::Key_Space);
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTRY_VERIFY(RingIn(dialog));
        QVERIFY(!RingIn(*m_stage));
        QTest::keyClick(ok, Qt::Key_Space);
        m_stage->activateWindow(); // as a window manager does
        QVERIFY(QTest::qWaitForWindowActive(m_stage.get()));
        QTRY_VERIFY(RingIn(*m_stage));
    }

    void a_dialog_that_a_shortcut_opens_shows_where_its_keyboard_begins_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::newRow("alone") << Qt::Key_F2 << Qt::KeyboardModifiers(Qt::NoModifier); // no widget gets its press
        QTest::newRow("with a modifier") << Qt::Key_N << Qt::KeyboardModifiers(Qt::ControlModifier);
    }

    void a_dialog_that_a_shortcut_opens_shows_where_its_keyboard_begins()
    {
        QFETCH(Qt::Key, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QDialog dialog(m_stage.get());
        auto *layout = new QVBoxLayout(&dialog);
        auto *field = new QLineEdit;
        layout->addWidget(new QLineEdit);
        layout->addWidget(field);
        field->setFocus();
        QShortcut shortcut(QKeySequence(int(key) | int(modifiers)), m_stage.get());
        connect(&shortcut, &QShortcut::activated, &dialog, &QDialog::open);
        QVERIFY(m_stage->Begin());
        QTest::mouseClick(m_second, Qt::LeftButton);
        m_stage->Press(key, modifiers);
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTRY_VERIFY(field->hasFocus());
        QVERIFY(RingIn(dialog));
        QVERIFY(RingIn(dialog)->geometry().contains(field->geometry().center()));
    }

    void a_dialog_that_a_key_opens_shows_it_whatever_comes_with_it_data()
    {
        QTest::addColumn<Qt::WindowFlags>("flags");
        QTest::newRow("a tip") << Qt::WindowFlags(Qt::ToolTip);
        QTest::newRow("a card") << Qt::WindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    }

    void a_dialog_that_a_key_opens_shows_it_whatever_comes_with_it()
    {
        class Dialog : public QDialog
        {
        public:
            using QDialog::QDialog;
            QWidget *card = nullptr;

        protected:
            void showEvent(QShowEvent * /*event*/) override { card->show(); }
        };
        QFETCH(Qt::WindowFlags, flags);
        Dialog dialog(m_stage.get());
        QLineEdit first(&dialog);
        QLineEdit field(&dialog);
        field.setFocus();
        QWidget card(m_stage.get(), flags);
        card.setAttribute(Qt::WA_ShowWithoutActivating, card.windowType() != Qt::ToolTip);
        dialog.card = &card;
        QShortcut shortcut(QKeySequence(Qt::Key_F2), m_stage.get());
        connect(&shortcut, &QShortcut::activated, &dialog, &QDialog::open);
        QVERIFY(m_stage->Begin());
        QTest::mouseClick(m_second, Qt::LeftButton);
        m_stage->Press(Qt::Key_F2);
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTRY_VERIFY(field.hasFocus());
        QVERIFY(RingIn(dialog));
    }

    void a_dialog_that_a_key_opened_shows_none_after_a_press_of_the_mouse()
    {
        QDialog dialog(m_stage.get());
        QLineEdit field(&dialog);
        QShortcut shortcut(QKeySequence(Qt::Key_F2), m_stage.get());
        connect(&shortcut, &QShortcut::activated, &dialog, &QDialog::show);
        QVERIFY(m_stage->Begin());
        m_stage->Press(Qt::Key_F2);
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTRY_VERIFY(RingIn(dialog));
        QTest::mouseClick(&field, Qt::LeftButton);
        m_stage->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_stage.get()));
        dialog.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTRY_VERIFY(field.hasFocus());
        QVERIFY(!RingIn(dialog));
    }

    void a_window_that_was_there_shows_none_when_the_user_comes_back_from_another_program()
    {
        auto *edit = m_stage->Add<QLineEdit>(QRect(40, 200, 100, 24));
        QVERIFY(m_stage->Begin());
        QTest::mouseClick(edit, Qt::LeftButton);
        m_stage->Press(Qt::Key_A);
        FocusStage other;
        QVERIFY(other.Begin()); // it takes no keyboard
        m_stage->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_stage.get()));
        QVERIFY(edit->hasFocus());
        QVERIFY(!RingIn(*m_stage));
    }

    void a_dialog_opened_by_the_mouse_shows_none()
    {
        QDialog dialog(m_stage.get());
        auto *layout = new QVBoxLayout(&dialog);
        auto *field = new QLineEdit;
        layout->addWidget(field);
        connect(m_first, &QAbstractButton::clicked, &dialog, &QDialog::open); // Qt tells the field of a Tab then
        QVERIFY(m_stage->Begin());
        QTest::mouseClick(m_first, Qt::LeftButton);
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTRY_VERIFY(field->hasFocus());
        QVERIFY(!RingIn(dialog));
    }

    void an_arrow_after_a_click_shows_it_where_the_keyboard_is()
    {
        auto *tabs = m_stage->Add<QTabBar>(QRect(40, 200, 300, 30));
        tabs->addTab(QStringLiteral("One"));
        tabs->addTab(QStringLiteral("Two"));
        QVERIFY(m_stage->Begin());
        tabs->setFocus(Qt::MouseFocusReason);
        QTest::mouseClick(tabs, Qt::LeftButton, Qt::NoModifier, tabs->tabRect(0).center());
        QVERIFY(tabs->hasFocus());
        QVERIFY(!RingIn(*m_stage));
        m_stage->Press(Qt::Key_Right);
        QCOMPARE(tabs->currentIndex(), 1);
        QVERIFY(RingIn(*m_stage));
    }

    void menus_highlight_and_get_none()
    {
        QMenuBar bar(m_stage.get());
        bar.setNativeMenuBar(false);
        bar.addMenu(QStringLiteral("File"));
        bar.setGeometry(0, 0, 400, 24);
        Arrive();
        bar.setFocus(Qt::TabFocusReason);
        QVERIFY(bar.hasFocus());
        QVERIFY(!RingIn(*m_stage));
    }

    void a_list_that_drops_down_gets_none_and_gives_it_back()
    {
        auto *selector = m_stage->Add<QcSelector>(QRect(40, 200, 100, 28));
        selector->addItems({QStringLiteral("One"), QStringLiteral("Two")});
        QVERIFY(m_stage->Begin());
        m_second->setFocus();
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(selector->hasFocus());
        QVERIFY(RingIn(*m_stage));
        selector->showPopup();
        QVERIFY(QTest::qWaitForWindowExposed(selector->view()->window()));
        QVERIFY(!RingIn(*m_stage));
        QVERIFY(!RingIn(*selector->view()->window()));
        QTest::keyClick(selector->view(), Qt::Key_Escape);
        QTRY_VERIFY(!selector->view()->isVisible());
        QTRY_VERIFY(RingIn(*m_stage));
    }

    void a_scene_is_ringed_as_a_whole()
    {
        QGraphicsScene scene;
        QGraphicsView view(&scene, m_stage.get());
        view.setGeometry(180, 0, 200, 200);
        auto *panel = new QWidget;
        panel->resize(150, 150);
        auto *button = m_stage->Add<QcButton>(QRect(20, 20, 80, 24), panel);
        scene.addWidget(panel);
        QVERIFY(m_stage->Begin());
        m_second->setFocus();
        m_stage->Press(Qt::Key_Tab);
        button->setFocus(Qt::TabFocusReason);
        QCOMPARE(QApplication::focusWidget(), &view);
        QVERIFY(RingIn(*m_stage)); // on the view, which passes the keyboard on
    }

    // --- What it follows ---

    void it_follows_moves_and_resizes_of_the_control_and_of_what_it_lies_in()
    {
        QWidget page(m_stage.get());
        page.setGeometry(20, 20, 350, 250);
        m_first->setParent(&page);
        m_first->show();
        QVERIFY(m_stage->Begin());
        m_second->setFocus();
        m_first->setFocus(Qt::TabFocusReason);
        const auto isRinged = [this] {
            const QRect place(m_first->mapTo(m_stage.get(), QPoint()), m_first->size());
            const QFocusFrame *ring = RingIn(*m_stage);
            return ring && ring->geometry() == place.adjusted(-4, -4, 4, 4);
        };
        QVERIFY(isRinged());
        m_first->move(80, 60);
        QVERIFY(isRinged());
        m_first->setFixedSize(150, 40);
        QVERIFY(isRinged());
        page.move(30, 40);
        QVERIFY(isRinged());
        m_first->setParent(m_stage.get());
        m_first->show();
        m_first->setFocus(Qt::TabFocusReason);
        QVERIFY(isRinged());
        m_first->move(5, 7);
        QVERIFY(isRinged());
    }

    void it_goes_with_a_control_that_is_hidden_disabled_or_deleted()
    {
        Arrive();
        m_first->hide();
        QVERIFY(m_second->hasFocus());
        QVERIFY(RingIn(*m_stage)->geometry().contains(kOtherPlace));
        m_second->setEnabled(false);
        QVERIFY(!RingIn(*m_stage));
        m_second->setEnabled(true);
        m_second->setFocus(Qt::TabFocusReason);
        QVERIFY(RingIn(*m_stage));
        delete m_second;
        QVERIFY(!RingIn(*m_stage));
    }

    void it_goes_with_its_window()
    {
        Arrive();
        m_stage.reset(); // with the ring shown
        DrainEvents();
        SetUp();
        Arrive();
        delete RingIn(*m_stage); // as a host may that deletes all children
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(RingIn(*m_stage));
    }

    void it_follows_scrolling_and_is_cut_where_the_control_is()
    {
        QScrollArea area(m_stage.get());
        area.setFrameShape(QFrame::NoFrame);
        area.setGeometry(20, 40, 200, 100);
        auto *page = new QWidget;
        page->resize(180, 600);
        auto *button = m_stage->Add<QcButton>(QRect(20, 40, 80, 24), page);
        area.setWidget(page);
        QVERIFY(m_stage->Begin());
        const auto ringed = [&] {
            m_second->setFocus(Qt::MouseFocusReason);
            m_bare = m_stage->Look();
            button->setFocus(Qt::TabFocusReason);
            return Ringed();
        };
        const QPoint corner(40, 80);
        const QRect place(corner, button->size());
        const QRectF around = ringed();
        QVERIFY(around.contains(place.adjusted(-2, -2, 2, 2)));
        QVERIFY(QRectF(place.adjusted(-4, -4, 4, 4)).contains(around));
        area.verticalScrollBar()->setValue(10);
        QCOMPARE(RingIn(*m_stage)->geometry(), QRect(corner - QPoint(0, 10), button->size()).adjusted(-4, -4, 4, 4));
        area.verticalScrollBar()->setValue(39); // a pixel from the edge: no room for a ring around
        QVERIFY(QRectF(place.translated(0, -39)).adjusted(-0.5, -0.5, 0.5, 0.5).contains(ringed())); // whole pixels, at any scale
        area.verticalScrollBar()->setValue(50);                                                      // cut
        QVERIFY(QRectF(area.geometry()).contains(ringed()));
        area.verticalScrollBar()->setValue(400); // out of sight
        QVERIFY(!RingIn(*m_stage));
        area.verticalScrollBar()->setValue(0);
        QVERIFY(RingIn(*m_stage));
    }

    void what_tab_reaches_out_of_sight_scrolls_into_sight_with_its_ring()
    {
        QScrollArea area(m_stage.get());
        area.setFocusPolicy(Qt::NoFocus);
        area.setGeometry(200, 40, 180, 100);
        auto *page = new QWidget;
        page->resize(100, 900);
        auto *button = m_stage->Add<QcButton>(QRect(20, 700, 60, 24), page);
        area.setWidget(page);
        QVERIFY(m_stage->Begin());
        QWidget::setTabOrder(m_second, button);
        m_second->setFocus();
        m_stage->Press(Qt::Key_Tab); // from outside of the area
        QVERIFY(button->hasFocus());
        const QRect ring = RingIn(*m_stage)->geometry();
        QVERIFY(area.geometry().contains(ring.adjusted(1, 1, -1, -1)));
        QCOMPARE(ring.size(), button->size() + QSize(8, 8)); // around it
        area.verticalScrollBar()->setValue(0);
        QVERIFY(!RingIn(*m_stage)); // and the user scrolls where he likes
        QCOMPARE(area.verticalScrollBar()->value(), 0);
    }

    void what_the_window_system_knows_as_a_window_has_its_ring_on_itself()
    {
        auto *page = m_stage->Add<QWidget>(QRect(180, 0, 200, 200));
        auto *button = m_stage->Add<QcButton>(kPlace, page);
        QVERIFY(m_stage->Begin());
        page->setAttribute(Qt::WA_NativeWindow); // it would cover a ring that the stage paints
        button->setFocus(Qt::TabFocusReason);
        const QFocusFrame *ring = RingIn(*m_stage);
        QVERIFY(ring);
        QCOMPARE(ring->parentWidget(), page);
        QVERIFY(ring->geometry().contains(kPlace));
    }

    void it_stays_above_what_comes_over_it()
    {
        Arrive();
        QWidget card(m_stage.get());
        card.setAutoFillBackground(true);
        card.setGeometry(m_stage->rect());
        const auto isSeen = [this] {
            return Close(PixelAt(m_stage->Look(), QPointF(kPlace.center().x(), kPlace.top() - 2.5)), RingColor());
        };
        card.show();
        QVERIFY(isSeen());
        m_second->raise();
        card.raise();
        QVERIFY(isSeen());
    }

    // --- What it leaves alone ---

    void the_mouse_goes_through_it()
    {
        m_first->setMouseTracking(true);
        auto *under = m_stage->Add<Plain>(QRect(30, 40, 200, 60));
        under->setFocusPolicy(Qt::ClickFocus);
        under->lower();
        Arrive();
        const QPoint onRing(kPlace.center().x(), kPlace.top() - 2);
        QVERIFY(RingIn(*m_stage)->geometry().contains(onRing));
        QCOMPARE(m_stage->childAt(onRing), under);
        QCOMPARE(QApplication::widgetAt(m_stage->mapToGlobal(onRing)), under);
        QTest::mousePress(m_stage->windowHandle(), Qt::LeftButton, Qt::NoModifier, onRing);
        QVERIFY(under->hasFocus());
    }

    void neither_assistive_technology_nor_a_host_meets_it()
    {
        QVERIFY(m_stage->Begin());
        QAccessibleInterface *window = QAccessible::queryAccessibleInterface(m_stage.get());
        const int children = window->childCount();
        EventCounter added(*m_stage, QEvent::ChildAdded);
        Arrive();
        QCOMPARE(window->childCount(), children);
        QCOMPARE(added.Take(), 0);
        QCOMPARE(RingIn(*m_stage)->focusPolicy(), Qt::NoFocus);
        QSplitter splitter; // takes each child for a pane
        auto *pane = new Plain(&splitter);
        splitter.addWidget(pane);
        splitter.addWidget(new Plain(&splitter));
        splitter.resize(400, 200);
        splitter.show();
        QVERIFY(QTest::qWaitForWindowActive(&splitter));
        pane->setFocus(Qt::TabFocusReason);
        QVERIFY(RingIn(splitter));
        QCOMPARE(splitter.count(), 2);
    }

    void at_rest_nothing_is_painted_and_what_blinks_in_the_control_does_not_repaint_it()
    {
        Arrive();
        FinishPainting();
        EventCounter ring(*RingIn(*m_stage), QEvent::Paint);
        EventCounter control(*m_first, QEvent::Paint);
        FinishPainting();
        QCOMPARE(ring.Take() + control.Take(), 0);
        m_first->update(m_first->rect().adjusted(8, 4, -8, -4));
        FinishPainting();
        QCOMPARE(control.Take(), 1);
        QCOMPARE(ring.Take(), 0);
    }

    void where_nothing_has_the_keyboard_it_does_nothing()
    {
        const auto filters = [this] {
            QVector<int> counts;
            for (QObject *object : QObjectList{qApp, m_stage.get(), m_first, m_second, m_elsewhere})
                counts.append(FiltersOf(*object));
            return counts;
        };
        // What a user and a program do, after a walk with Tab, and all the work that comes of it.
        const auto happenings = [this] {
            m_stage->setFocusPolicy(Qt::NoFocus);
            if (QWidget *focus = QApplication::focusWidget())
                focus->clearFocus();
            FinishPainting();
            WorkLog log;
            m_stage->Press(Qt::Key_A);
            m_stage->Press(Qt::Key_Left);
            m_stage->Press(Qt::Key_Return);
            m_elsewhere->move(m_elsewhere->pos() == QPoint(370, 280) ? QPoint(360, 280) : QPoint(370, 280));
            m_elsewhere->raise();
            m_first->update();
            m_second->setFixedWidth(m_second->width() == 90 ? 100 : 90);
            QTest::mouseMove(m_stage->windowHandle(), QPoint(200, 100));
            DrainEvents();
            return log.told;
        };
        SetKeyboardCuesEnabled(false);
        QVERIFY(m_stage->Begin());
        happenings(); // what happens the first time only
        const QStringList without = happenings();
        const QVector<int> filtersWithout = filters();
        SetKeyboardCuesEnabled(true);
        Arrive();
        QVERIFY(filters() != filtersWithout);
        happenings();
        QCOMPARE(happenings(), without);
        QVERIFY(!QApplication::focusWidget());
        QCOMPARE(filters(), filtersWithout);
    }

    void one_step_of_the_keyboard_paints_the_ring_once()
    {
        Arrive();
        FinishPainting();
        EventCounter ring(*RingIn(*m_stage), QEvent::Paint);
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(RingIn(*m_stage)->geometry().contains(kOtherPlace));
        FinishPainting();
        QCOMPARE(ring.Take(), 1);
    }

    void what_moves_elsewhere_does_not_repaint_it()
    {
        QVector<QWidget *> widgets;
        for (int i = 0; i < 4; ++i)
            widgets.append(m_stage->Add<QWidget>(QRect(200, 20 * i, 10, 10)));
        Arrive();
        FinishPainting();
        EventCounter ring(*RingIn(*m_stage), QEvent::Paint);
        for (QWidget *widget : qAsConst(widgets))
            widget->move(widget->pos() + QPoint(3, 0));
        FinishPainting();
        QCOMPARE(ring.Take(), 0);
    }

public:
    static inline bool s_wasOffAtFirst = false;
};

int main(int argc, char **argv)
{
    TestKeyboardCues::s_wasOffAtFirst = !KeyboardCuesEnabled();
    SetKeyboardCuesEnabled(true);
    return RunInApplication<TestKeyboardCues>(argc, argv);
}

#include "tst_KeyboardCues.moc"
