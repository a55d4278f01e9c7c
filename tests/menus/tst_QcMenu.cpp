#include "menus/MenuTest.h"
#include "support/EventCounter.h"

#include <Velmora/PaintingHelpers.h>
#include <Velmora/QcMenuTextButton.h>

#include <QGuiApplication>
#include <QMetaType>
#include <QPointer>
#include <QScreen>
#include <QSignalSpy>
#include <QStyleOption>
#include <QWheelEvent>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// The panel as it is to be: shadow, ground and outline, three pixels round.
void PaintPanel(QPainter &painter, const QRect &rect, Table table)
{
    const QRect panel = QRectF(rect).adjusted(1, 1, -2.0 / 3.0, -2.0 / 3.0).toRect();
    painter.setRenderHint(QPainter::Antialiasing);
    DrawShadow(painter, panel, QMargins(3, 3, 3, 3), RadiusParams{3, 3, 3, 3}, {0.1, 0.1 * (1 - 1 / 3.0), 0.1 * (1 - 2 / 3.0)});
    painter.setPen(Qt::NoPen);
    painter.setBrush(TokenOf(table, QStringLiteral("bg/bg_float")));
    painter.drawRoundedRect(panel, 3, 3);
    painter.setPen(QPen(TokenOf(table, QStringLiteral("border/border_tertairy")), 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(panel, 3, 3);
}

} // namespace

/// A menu as a whole: its window, its actions, its submenus, its lives.
class TestQcMenu : public MenuTest
{
    Q_OBJECT

private Q_SLOTS:
    // --- The window ---

    void it_is_a_frameless_translucent_popup()
    {
        QCOMPARE(m_menu->windowType(), Qt::Popup);
        QVERIFY(m_menu->windowFlags() & Qt::FramelessWindowHint);
        QVERIFY(m_menu->windowFlags() & Qt::NoDropShadowWindowHint);
        QVERIFY(m_menu->testAttribute(Qt::WA_TranslucentBackground));
        QVERIFY(m_menu->testAttribute(Qt::WA_NoSystemBackground));
        QCOMPARE(m_menu->minimumWidth(), 120);
        QCOMPARE(m_menu->maximumWidth(), 320);
        QCOMPARE(QcMenu(QStringLiteral("Title")).title(), QStringLiteral("Title"));
        QWidget parent;
        QCOMPARE((new QcMenu(&parent))->parentWidget(), &parent);
        QCOMPARE((new QcMenu(QStringLiteral("Title"), &parent))->windowType(), Qt::Popup);
    }

    void the_panel_has_a_shadow_a_ground_and_an_outline_data() { AddTables(); }
    void the_panel_has_a_shadow_a_ground_and_an_outline()
    {
        QFETCH(Table, table);
        UseTable(table);
        m_menu->addQcAction(QString()); // paints nothing
        Open();
        QImage expected = Canvas(*m_menu);
        QPainter painter(&expected);
        PaintPanel(painter, m_menu->rect(), table);
        painter.end();
        QCOMPARE(Picture(), expected);
        const QImage picture = Picture();
        COMPARE_COLOR(PixelAt(picture, m_menu->rect().center()), Panel(table));
        QVERIFY(PixelAt(picture, QPointF(0.2, m_menu->height() / 2)).lightness() < 255); // the shadow
    }

    void painting_the_panel_leaves_the_painter_as_it_was()
    {
        QImage image = Canvas(*m_menu);
        QPainter painter(&image);
        const QPen pen = painter.pen();
        const QPainter::RenderHints hints = painter.renderHints();
        QStyleOption option;
        option.rect = m_menu->rect();
        m_menu->style()->drawPrimitive(QStyle::PE_PanelMenu, &option, &painter, m_menu.get());
        QCOMPARE(painter.pen(), pen);
        QCOMPARE(painter.brush(), QBrush());
        QCOMPARE(painter.renderHints(), hints);
        const QImage painted = image;
        m_menu->style()->drawPrimitive(QStyle::PE_FrameMenu, &option, &painter, m_menu.get());
        QCOMPARE(image, painted);
    }

    void a_menu_shows_the_table_of_the_moment_and_has_no_stylesheet()
    {
        m_menu->addQcAction(QStringLiteral("Open"));
        Open();
        m_menu->hide();
        EventCounter styleChanges(*m_menu, QEvent::StyleChange);
        UseTable(Table::Dark);
        Open();
        COMPARE_COLOR(PixelAt(Picture(), QPointF(m_menu->width() - 6, 6)), Panel(Table::Dark));
        QCOMPARE(styleChanges.Take(), 0);
        QVERIFY(m_menu->styleSheet().isEmpty());
    }

    // --- Actions ---

    void an_added_action_belongs_to_the_menu()
    {
        EventCounter added(*m_menu, QEvent::ActionAdded);
        QcAction *action = m_menu->addQcAction(QStringLiteral("Open"));
        QCOMPARE(added.Take(), 1);
        QCOMPARE(action->text(), QStringLiteral("Open"));
        QCOMPARE(action->parent(), m_menu.get());
        QCOMPARE(m_menu->actions(), QList<QAction *>{action});
    }

    void an_added_menu_follows_its_title()
    {
        QcMenu submenu(QStringLiteral("Recent"));
        QcAction *action = m_menu->addQcMenu(&submenu);
        QCOMPARE(action->text(), QStringLiteral("Recent"));
        QCOMPARE(action->menu(), &submenu);
        QCOMPARE(action->parent(), m_menu.get());
        QCOMPARE(submenu.parent(), nullptr);
        QCOMPARE(m_menu->actions(), QList<QAction *>{action});
        submenu.setTitle(QStringLiteral("Older"));
        QCOMPARE(action->text(), QStringLiteral("Older"));
    }

    void no_menu_and_the_menu_itself_are_not_added()
    {
        QCOMPARE(m_menu->addQcMenu(nullptr), nullptr);
        QCOMPARE(m_menu->addQcMenu(m_menu.get()), nullptr);
        QVERIFY(m_menu->actions().isEmpty());
        QVERIFY(m_menu->findChildren<QcAction *>().isEmpty());
    }

    void an_icon_is_kept_in_properties()
    {
        QCOMPARE(QByteArray(QcMenu::GetIconPathProperty()), QByteArray("iconPath"));
        QCOMPARE(QByteArray(QcMenu::GetIconColorProperty()), QByteArray("iconColor"));
        QCOMPARE(QByteArray(QcMenu::GetIconSrcMulColorProperty()), QByteArray("iconMulColor"));
        QcAction action(QStringLiteral("Open"));
        QVERIFY(action.dynamicPropertyNames().isEmpty());
        action.SetIconPath(QStringLiteral("path"));
        action.SetIconColor(QStringLiteral("code"));
        const QHash<QString, QString> codes{{QStringLiteral("#000000"), QStringLiteral("code")}};
        action.SetMulIconColor(codes);
        QT_WARNING_PUSH
        QT_WARNING_DISABLE_DEPRECATED // Qt 6 asks by another name
            QVERIFY(QMetaType::type("QHash<QString,QString>") != QMetaType::UnknownType);
        QT_WARNING_POP
        QCOMPARE(action.property("iconPath").toString(), QStringLiteral("path"));
        QCOMPARE(action.property("iconColor").toString(), QStringLiteral("code"));
        QCOMPARE((action.property("iconMulColor").value<QHash<QString, QString>>()), codes);
        m_menu->SetIconPath(QStringLiteral("path"));
        m_menu->SetIconColor(QStringLiteral("code"));
        QCOMPARE(m_menu->property("iconPath").toString(), QStringLiteral("path"));
        QCOMPARE(m_menu->property("iconColor").toString(), QStringLiteral("code"));
    }

    void an_empty_path_clears_an_icon_and_an_empty_colour_is_ignored()
    {
        QcAction action;
        action.SetIconPath(QStringLiteral("path"));
        action.SetIconColor(QStringLiteral("code"));
        action.SetMulIconColor({{QStringLiteral("#000000"), QStringLiteral("code")}});
        action.SetIconPath(QString());
        action.SetIconColor(QString());
        action.SetMulIconColor({});
        QCOMPARE(action.property("iconPath"), QVariant(QString()));
        QCOMPARE(action.property("iconColor").toString(), QStringLiteral("code"));
        QCOMPARE((action.property("iconMulColor").value<QHash<QString, QString>>().size()), 1);
        QcAction fresh;
        fresh.SetIconPath(QString());
        QVERIFY(fresh.property("iconPath").isValid());
        fresh.SetIconColor(QString());
        QVERIFY(!fresh.property("iconColor").isValid());
        m_menu->SetIconColor(QStringLiteral("code"));
        m_menu->SetIconColor(QString());
        QCOMPARE(m_menu->property("iconColor").toString(), QStringLiteral("code"));
    }

    // --- By hand ---

    void keys_move_choose_and_close()
    {
        QcAction *first = m_menu->addQcAction(QStringLiteral("First"));
        QcAction *second = m_menu->addQcAction(QStringLiteral("Second"));
        QSignalSpy chosen(m_menu.get(), &QMenu::triggered);
        Open();
        QTest::keyClick(m_menu.get(), Qt::Key_Down);
        QCOMPARE(m_menu->activeAction(), first);
        QTest::keyClick(m_menu.get(), Qt::Key_Down);
        QTest::keyClick(m_menu.get(), Qt::Key_Return);
        QVERIFY(!m_menu->isVisible());
        QCOMPARE(chosen.count(), 1);
        QCOMPARE(chosen.first().first().value<QAction *>(), second);
        Open();
        QTest::keyClick(m_menu.get(), Qt::Key_Escape);
        QVERIFY(!m_menu->isVisible());
        QCOMPARE(chosen.count(), 1);
    }

    void a_click_chooses_and_a_press_outside_closes()
    {
        QcAction *action = m_menu->addQcAction(QStringLiteral("First"));
        QSignalSpy chosen(action, &QAction::triggered);
        Open();
        QTest::mouseMove(m_menu.get(), Place(action).center());
        QTest::mouseClick(m_menu.get(), Qt::LeftButton, Qt::NoModifier, Place(action).center());
        QCOMPARE(chosen.count(), 1);
        QVERIFY(!m_menu->isVisible());
        Open();
        QTest::mousePress(m_menu.get(), Qt::LeftButton, Qt::NoModifier, QPoint(m_menu->width() + 50, 5));
        QVERIFY(!m_menu->isVisible());
        QCOMPARE(chosen.count(), 1);
    }

    void an_ampersand_still_makes_a_key()
    {
        QSignalSpy chosen(m_menu->addQcAction(QStringLiteral("&Open")), &QAction::triggered);
        Open();
        QTest::keyClick(m_menu.get(), Qt::Key_O);
        QCOMPARE(chosen.count(), 1);
    }

    void a_shortcut_works_while_the_menu_of_a_button_is_closed()
    {
        QWidget window;
        window.setGeometry(kWindowPlace);
        auto *button = new QcMenuTextButton(&window);
        button->setMenu(m_menu.get());
        QcAction *action = m_menu->addQcAction(QStringLiteral("Open"));
        action->setShortcut(Qt::CTRL | Qt::Key_O);
        QSignalSpy chosen(action, &QAction::triggered);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(window.windowHandle(), Qt::Key_O, Qt::ControlModifier);
        QCOMPARE(chosen.count(), 1);
    }

    // --- Long menus ---

    void all_of_sixty_items_can_be_reached_by_keys()
    {
        AddMany(60);
        Open();
        QVERIFY(m_menu->height() <= QGuiApplication::primaryScreen()->availableGeometry().height());
        QVERIFY(m_menu->width() <= 320);
        const QList<QAction *> actions = m_menu->actions();
        for (QAction *action : actions) {
            QTest::keyClick(m_menu.get(), Qt::Key_Down);
            QCOMPARE(m_menu->activeAction(), action);
            const QRect place = m_menu->actionGeometry(action);
            QVERIFY2(m_menu->rect().contains(place), qPrintable(action->text()));
        }
    }

    void the_item_that_a_key_chooses_is_in_sight_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<int>("item");
        QTest::newRow("up, to the last") << Qt::Key_Up << 59;
        QTest::newRow("end") << Qt::Key_End << 59;
        QTest::newRow("a letter") << Qt::Key_X << 50;
    }
    void the_item_that_a_key_chooses_is_in_sight()
    {
        QFETCH(Qt::Key, key);
        QFETCH(int, item);
        AddMany(60);
        for (const int same : {50, 51}) // a single one would be triggered
            m_menu->actions().at(same)->setText(QStringLiteral("&X"));
        Open();
        QTest::keyClick(m_menu.get(), key);
        QCOMPARE(m_menu->activeAction(), m_menu->actions().at(item));
        QVERIFY(m_menu->rect().contains(m_menu->actionGeometry(m_menu->activeAction())));
    }

    void a_key_opens_no_submenu_of_a_wide_item()
    {
        QcMenu submenu(QString(100, 'm'));
        submenu.addQcAction(QStringLiteral("One"));
        m_menu->addQcMenu(&submenu);
        m_menu->addQcAction(QStringLiteral("Other"))->setShortcut(Qt::CTRL | Qt::ALT | Qt::SHIFT | Qt::Key_PageDown);
        Open();
        QVERIFY(m_menu->actionGeometry(m_menu->actions().first()).width() > m_menu->width());
        QTest::keyClick(m_menu.get(), Qt::Key_Down);
        QCOMPARE(m_menu->activeAction(), submenu.menuAction());
        DrainEvents();
        QVERIFY(!submenu.isVisible());
    }

    void the_wheel_scrolls_a_long_menu_to_its_end()
    {
        AddMany(60);
        Open();
        QAction *last = m_menu->actions().last();
        QVERIFY(!m_menu->rect().contains(m_menu->actionGeometry(last)));
        for (int notch = 0; notch < 60; ++notch)
            Wheel(-120);
        QVERIFY(m_menu->rect().contains(m_menu->actionGeometry(last)));
        for (int notch = 0; notch < 60; ++notch)
            Wheel(120);
        QVERIFY(m_menu->rect().contains(m_menu->actionGeometry(m_menu->actions().first())));
    }

    void an_arrow_shows_where_there_is_more_data() { AddTables(); }
    void an_arrow_shows_where_there_is_more()
    {
        QFETCH(Table, table);
        UseTable(table);
        AddMany(60);
        Open();
        const int height = m_menu->style()->pixelMetric(QStyle::PM_MenuScrollerHeight, nullptr, m_menu.get());
        const QRect below(1, m_menu->height() - 1 - height, m_menu->width() - 2, height);
        const QRect above(1, 1, m_menu->width() - 2, height);
        QVERIFY(ShowsScroller(below, QStringLiteral(":/images/arrow_down.svg"), table));
        QVERIFY(!ShowsScroller(above, QStringLiteral(":/images/arrow_up.svg"), table));
        for (int notch = 0; notch < 60; ++notch)
            Wheel(-120);
        QVERIFY(!ShowsScroller(below, QStringLiteral(":/images/arrow_down.svg"), table));
        QVERIFY(ShowsScroller(above, QStringLiteral(":/images/arrow_up.svg"), table));
    }

    void ten_thousand_items_open_and_scroll()
    {
        AddMany(10000);
        m_menu->actions().first()->setCheckable(true);
        m_menu->actions().first()->setChecked(true);
        Open();
        QTest::keyClick(m_menu.get(), Qt::Key_Up);
        QCOMPARE(m_menu->activeAction(), m_menu->actions().last());
        QVERIFY(m_menu->rect().contains(m_menu->actionGeometry(m_menu->actions().last())));
        QVERIFY(!Picture().isNull());
    }

    // --- Submenus ---

    void the_arrow_keys_open_and_leave_a_submenu()
    {
        QcMenu submenu(QStringLiteral("More"));
        QSignalSpy chosen(submenu.addQcAction(QStringLiteral("One")), &QAction::triggered);
        m_menu->addQcMenu(&submenu);
        Open();
        QTest::keyClick(m_menu.get(), Qt::Key_Down);
        QTest::keyClick(m_menu.get(), Qt::Key_Right);
        QVERIFY(submenu.isVisible());
        QTest::keyClick(&submenu, Qt::Key_Left);
        QVERIFY(!submenu.isVisible());
        QVERIFY(m_menu->isVisible());
        QTest::keyClick(m_menu.get(), Qt::Key_Right);
        QTest::keyClick(&submenu, Qt::Key_Return);
        QCOMPARE(chosen.count(), 1);
        QVERIFY(!m_menu->isVisible());
    }

    // --- Lives ---

    void a_menu_may_be_deleted_later_when_an_action_is_chosen()
    {
        const QPointer<QcMenu> menu = m_menu.release();
        connect(menu, &QMenu::triggered, menu, &QObject::deleteLater);
        menu->addQcAction(QStringLiteral("Open"));
        menu->popup(QPoint(0, 0));
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        DrainEvents();
        QVERIFY(!menu);
    }

    void a_menu_may_be_deleted_while_it_and_its_submenu_are_open()
    {
        QcMenu submenu(QStringLiteral("More"));
        submenu.addQcAction(QStringLiteral("One"));
        QcAction *action = m_menu->addQcMenu(&submenu);
        Open();
        m_menu->setActiveAction(action);
        QTRY_VERIFY(submenu.isVisible());
        m_menu.reset();
        DrainEvents();
        submenu.close();
        QVERIFY(submenu.menuAction());
    }

    void a_submenu_may_be_deleted_while_it_is_open()
    {
        auto submenu = std::make_unique<QcMenu>(QStringLiteral("More"));
        submenu->addQcAction(QStringLiteral("One"));
        QcAction *action = m_menu->addQcMenu(submenu.get());
        Open();
        m_menu->setActiveAction(action);
        QTRY_VERIFY(submenu->isVisible());
        submenu.reset();
        DrainEvents();
        QVERIFY(!action->menu());
        Picture();
        QTest::keyClick(m_menu.get(), Qt::Key_Down);
    }

    void an_action_may_be_removed_or_deleted_while_the_menu_is_open()
    {
        m_menu->addQcAction(QStringLiteral("First"));
        QcAction *second = m_menu->addQcAction(QStringLiteral("Second"));
        QcAction *third = m_menu->addQcAction(QStringLiteral("Third"));
        Open();
        m_menu->setActiveAction(second);
        m_menu->removeAction(second);
        delete third;
        DrainEvents();
        QCOMPARE(m_menu->actions().size(), 1);
        Picture();
        QTest::keyClick(m_menu.get(), Qt::Key_Down);
        QCOMPARE(m_menu->activeAction(), m_menu->actions().first());
        delete second;
    }

    void a_menu_may_be_shown_by_a_button_that_dies()
    {
        QWidget window;
        window.setGeometry(kWindowPlace);
        QPointer<QcMenuTextButton> button = new QcMenuTextButton(&window);
        m_menu->addQcAction(QStringLiteral("Open"));
        button->setMenu(m_menu.get());
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        connect(
            m_menu.get(), &QMenu::aboutToShow, this,
            [&] {
                delete button;
                m_menu->close();
            },
            Qt::QueuedConnection);
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Space);
        DrainEvents();
        QVERIFY(!button);
        QVERIFY(!m_menu->isVisible());
    }

private:
    void AddMany(int count)
    {
        for (int i = 0; i < count; ++i)
            m_menu->addQcAction(QStringLiteral("Item %1").arg(i + 1));
    }

    void Wheel(int delta)
    {
        const QPointF place = m_menu->rect().center();
        QWheelEvent event(place, m_menu->mapToGlobal(place.toPoint()), QPoint(), QPoint(0, delta), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(m_menu.get(), &event);
    }

    bool ShowsScroller(const QRect &strip, const QString &path, Table table)
    {
        return Shows(strip, Panel(table), [&](QPainter &painter) {
            ImageParams params;
            params.path = path;
            params.color = "icon/icon_ordinary";
            QRect place(0, 0, 24, 24);
            place.moveCenter(strip.center());
            PaintCrisply(painter, place, params);
        });
    }
};

VELMORA_TEST_MAIN(TestQcMenu)

#include "tst_QcMenu.moc"
