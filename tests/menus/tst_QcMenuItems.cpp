#include "menus/MenuTest.h"
#include "support/ProcessorTime.h"
#include "support/SquareIcon.h"

#include <QStyleOptionMenuItem>
#include <QTemporaryFile>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

constexpr Qt::Alignment kLeading = Qt::AlignLeft | Qt::AlignVCenter;
constexpr Qt::Alignment kTrailing = Qt::AlignRight | Qt::AlignVCenter;
const QString kTick = QStringLiteral(":/images/select.svg");
const QString kArrow = QStringLiteral(":/images/arrow_right.svg");
const QString kIconCode = QStringLiteral("icon/icon_ordinary");
const QString kDisabledIconCode = QStringLiteral("icon/icon_disabled");

QColor Text(Table table, bool isEnabled = true)
{
    return TokenOf(table, isEnabled ? QStringLiteral("text/text_primary") : QStringLiteral("text/text_disabled"));
}

/// From \a left to the right end of \a item.
QRect From(const QRect &item, int left)
{
    return item.adjusted(left, 0, 0, 0);
}

/// What a user does to an item, and what shows behind it.
struct ItemState
{
    const char *name;
    bool isEnabled;
    bool isActive;
    bool isPressed;
    const char *background;
};

constexpr ItemState kItemStates[] = {
    {"normal", true, false, false, "-"},
    {"hover", true, true, false, "bg/bg_transluent_subtle_hover"},
    {"pressed", true, true, true, "bg/bg_transluent_strong_press"},
    {"disabled", false, false, false, "-"},
};

} // namespace

Q_DECLARE_METATYPE(QStyleOptionMenuItem::MenuItemType)

/// How the items of a menu look.
class TestQcMenuItems : public MenuTest
{
    Q_OBJECT

private Q_SLOTS:
    // --- Sizes ---

    void the_widths_of_an_item_add_up_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isSubMenu");
        QTest::addColumn<bool>("hasIcons");
        QTest::addColumn<int>("width");
        const QString label = QStringLiteral("A label of some length");
        const QString shortcut = QStringLiteral("Ctrl+O");
        const int textWidth = Advance(label) + 4;
        QTest::newRow("label") << label << false << false << 12 + textWidth + 8;
        QTest::newRow("label, icons") << label << false << true << 28 + textWidth + 8;
        QTest::newRow("submenu") << label << true << false << 12 + textWidth + 24 + 2 + 16;
        QTest::newRow("submenu, icons") << label << true << true << 28 + textWidth + 24 + 2 + 16;
        const int rightWidth = Advance(shortcut);
        QTest::newRow("shortcut") << label + '\t' + shortcut << false << false << 12 + textWidth + rightWidth + 8 + 24;
        QTest::newRow("shortcut of a submenu, icons") << label + '\t' + shortcut << true << true << 28 + textWidth + rightWidth + 8 + 24;
        QTest::newRow("short") << QStringLiteral("I") << false << false << 100;
        QTest::newRow("empty") << QString() << false << false << 100;
        QTest::newRow("long") << QString(100, 'W') << false << false << 250;
    }
    void the_widths_of_an_item_add_up()
    {
        QFETCH(QString, text);
        QFETCH(bool, isSubMenu);
        QFETCH(bool, hasIcons);
        if (hasIcons)
            m_menu->addQcAction(QStringLiteral("Icon"))->SetIconPath(kTick);
        QStyleOptionMenuItem option;
        option.text = text;
        option.menuItemType = isSubMenu ? QStyleOptionMenuItem::SubMenu : QStyleOptionMenuItem::Normal;
        option.font.setPixelSize(40); // not asked
        QTEST(SizeOf(&option).width(), "width");
    }

    void an_item_is_at_least_28_high_and_a_separator_is_8()
    {
        QStyleOptionMenuItem option;
        QCOMPARE(SizeOf(&option, QSize(10, 10)).height(), 28);
        QCOMPARE(SizeOf(&option, QSize(10, 40)).height(), 40);
        option.menuItemType = QStyleOptionMenuItem::Separator;
        QCOMPARE(SizeOf(&option, QSize(300, 40)), QSize(100, 8));
    }

    void what_is_no_option_of_an_item_is_measured_as_an_empty_text_and_not_painted()
    {
        m_menu->addQcAction(QString());
        QStyleOption option;
        QCOMPARE(SizeOf(&option, QSize(10, 10)), QSize(100, 28));
        QCOMPARE(SizeOf(nullptr, QSize(10, 10)), QSize(100, 28));
        option.rect = QRect(0, 0, 100, 28);
        option.state = QStyle::State_Selected;
        QImage image = Canvas(*m_menu);
        QPainter painter(&image);
        m_menu->style()->drawControl(QStyle::CE_MenuItem, &option, &painter, m_menu.get());
        painter.end();
        QCOMPARE(image, Canvas(*m_menu));
    }

    void a_menu_is_120_to_320_wide()
    {
        m_menu->addQcAction(QStringLiteral("I"));
        Open();
        QCOMPARE(m_menu->width(), 120);
        m_menu->hide();
        m_menu->addQcAction(QString(200, 'W'));
        Open();
        QCOMPARE(m_menu->width(), 252); // the widest item and the frame
        m_menu->hide();
        m_menu->addQcAction(QString(200, 'W'))->setShortcut(Qt::CTRL | Qt::ALT | Qt::SHIFT | Qt::Key_PageDown);
        Open();
        QCOMPARE(m_menu->width(), 320);
    }

    // --- Labels ---

    void labels_start_at_12_and_with_one_icon_anywhere_all_at_28()
    {
        QcAction *first = m_menu->addQcAction(QStringLiteral("First"));
        QcAction *second = m_menu->addQcAction(QStringLiteral("Second"));
        Open();
        CheckLabel(first, 12);
        CheckLabel(second, 12);
        m_menu->hide();
        second->SetIconPath(QStringLiteral(":/images/close.svg"));
        Open();
        CheckLabel(first, 28);
        CheckLabel(second, 28);
    }

    void a_long_label_is_elided_at_its_end()
    {
        QcAction *action = m_menu->addQcAction(QString(100, 'W'));
        Open();
        const QRect item = Place(action);
        const int width = item.right() - 8 - (item.left() + 12);
        const QString elided = QFontMetrics(ItemFont()).elidedText(action->text(), Qt::ElideRight, width);
        QVERIFY(elided.size() < 40);
        const QRect label(item.left() + 12, item.top(), width, item.height());
        QVERIFY(ShowsText(label, kLeading, elided, Text(Table::Light), Panel(Table::Light)));
        QVERIFY(IsBlank(item.adjusted(12 + width, 0, 0, 0), Panel(Table::Light)));
    }

    void an_ampersand_is_painted()
    {
        QcAction *action = m_menu->addQcAction(QStringLiteral("Save && &close"));
        Open();
        CheckLabel(action, 12);
    }

    void a_line_break_in_a_label_is_painted_as_a_space()
    {
        QcAction *action = m_menu->addQcAction(QStringLiteral("One\nTwo") + QChar(QChar::LineSeparator) + QStringLiteral("Three"));
        Open();
        QVERIFY(ShowsText(From(Place(action), 12), kLeading, QStringLiteral("One Two Three"), Text(Table::Light), Panel(Table::Light)));
    }

    void the_font_of_the_menu_or_an_action_does_not_reach_the_items()
    {
        QcAction *action = m_menu->addQcAction(QStringLiteral("Label"));
        QFont font;
        font.setPixelSize(14);
        font.setItalic(true);
        m_menu->setFont(font);
        action->setFont(font);
        Open();
        CheckLabel(action, 12);
    }

    void a_text_of_a_megabyte_is_shown_at_once()
    {
        QcAction *action = m_menu->addQcAction(QStringLiteral("Short"));
        Open();
        Picture();
        m_menu->hide();
        action->setText(QString(1 << 20, 'm'));
        QStyleOptionMenuItem option;
        option.text = action->text();
        const ProcessorTime measuring;
        for (int i = 0; i < 20; ++i)
            QCOMPARE(SizeOf(&option).width(), 250);
        QVERIFY2(measuring.Elapsed() < 2000, qPrintable(QString::number(measuring.Elapsed()))); // one measured whole takes 200 ms
        option.rect = QRect(0, 0, 250, 28);
        QImage image = Canvas(*m_menu);
        QPainter painter(&image);
        const ProcessorTime drawing;
        for (int i = 0; i < 20; ++i)
            m_menu->style()->drawControl(QStyle::CE_MenuItem, &option, &painter, m_menu.get());
        QVERIFY2(drawing.Elapsed() < 2000, qPrintable(QString::number(drawing.Elapsed())));
    }

    // --- States ---

    void the_states_in_both_tables_data()
    {
        QTest::addColumn<Table>("table");
        QTest::addColumn<int>("state");
        for (const Table table : {Table::Light, Table::Dark}) {
            for (int i = 0; i < int(sizeof(kItemStates) / sizeof(ItemState)); ++i)
                QTest::addRow("%s, %s", table == Table::Light ? "light" : "dark", kItemStates[i].name) << table << i;
        }
    }
    void the_states_in_both_tables()
    {
        QFETCH(Table, table);
        QFETCH(int, state);
        const ItemState &look = kItemStates[state];
        UseTable(table);
        QcAction *action = m_menu->addQcAction(QStringLiteral("Label"));
        action->SetIconPath(QStringLiteral(":/images/close.svg"));
        action->setShortcut(Qt::CTRL | Qt::Key_L);
        action->setEnabled(look.isEnabled);
        m_menu->addQcAction(QStringLiteral("A longer label below"));
        Open();
        const QRect item = Place(action);
        if (look.isActive)
            m_menu->setActiveAction(action);
        if (look.isPressed)
            QTest::mousePress(m_menu.get(), Qt::LeftButton, Qt::NoModifier, item.center());
        DrainEvents();

        const QColor background = Painted(table, QLatin1String(look.background), Panel(table));
        const QColor text = Text(table, look.isEnabled);
        QVERIFY(
            ShowsIcon(IconPlace(item), QStringLiteral(":/images/close.svg"), look.isEnabled ? kIconCode : kDisabledIconCode, background));
        const QString shortcut = QStringLiteral("Ctrl+L");
        const QRect right(item.right() + 1 - 8 - Advance(shortcut), item.top(), Advance(shortcut), item.height());
        const QRect label(item.left() + 28, item.top(), right.left() - 2 - (item.left() + 28), item.height());
        QVERIFY(ShowsText(label, kLeading, action->text(), text, background));
        QVERIFY(ShowsText(right, kTrailing, shortcut, text, background));
        // The background reaches from one side of the outline to the other, and no further.
        const QImage picture = Picture();
        if (look.isActive) {
            COMPARE_COLOR(PixelAt(picture, QPointF(item.left() + 0.9, item.top() + 3)), background);
            COMPARE_COLOR(PixelAt(picture, QPointF(item.right() + 0.1, item.top() + 3)), background);
        }
        m_menu->setActiveAction(nullptr);
        const QImage rest = Picture();
        for (const QRect &edge : {QRect(0, item.top(), 1, 28), QRect(m_menu->width() - 1, item.top(), 1, 28)})
            QCOMPARE(Part(picture, edge), Part(rest, edge));
        if (look.isPressed)
            QTest::mouseRelease(m_menu.get(), Qt::LeftButton, Qt::NoModifier, QPoint(-20, -20));
    }

    void a_separator_is_a_line_in_the_middle_that_ends_7_pixels_from_the_edges_data() { AddTables(); }
    void a_separator_is_a_line_in_the_middle_that_ends_7_pixels_from_the_edges()
    {
        QFETCH(Table, table);
        UseTable(table);
        m_menu->addQcAction(QStringLiteral("Above"));
        QAction *separator = m_menu->addSeparator();
        m_menu->addQcAction(QStringLiteral("Below"));
        Open();
        const QRect item = Place(separator);
        QCOMPARE(item.height(), 8);
        const QColor color = TokenOf(table, QStringLiteral("border/border_tertairy"));
        QVERIFY(Shows(item, Panel(table), [&](QPainter &painter) {
            painter.setPen(color);
            painter.drawLine(item.left() + 7, item.center().y(), item.right() - 7, item.center().y());
        }));
    }

    // --- Ticks ---

    void a_tick_needs_no_place_until_one_action_is_checked()
    {
        QcAction *first = m_menu->addQcAction(QStringLiteral("First"));
        QcAction *second = m_menu->addQcAction(QStringLiteral("Second"));
        first->setCheckable(true);
        second->setCheckable(true);
        Open();
        CheckLabel(first, 12);
        m_menu->hide();
        second->setChecked(true);
        Open();
        CheckLabel(first, 28);
        QVERIFY(IsBlank(IconPlace(Place(first)), Panel(Table::Light)));
        QVERIFY(ShowsIcon(IconPlace(Place(second)), kTick, kIconCode, Panel(Table::Light)));
        second->setEnabled(false);
        QVERIFY(ShowsIcon(IconPlace(Place(second)), kTick, kDisabledIconCode, Panel(Table::Light)));
    }

    void a_checked_action_with_an_icon_shows_the_icon()
    {
        QcAction *action = m_menu->addQcAction(QStringLiteral("Label"));
        action->setCheckable(true);
        action->setChecked(true);
        action->SetIconPath(QStringLiteral(":/images/close.svg"));
        Open();
        QVERIFY(ShowsIcon(IconPlace(Place(action)), QStringLiteral(":/images/close.svg"), kIconCode, Panel(Table::Light)));
    }

    // --- Icons ---

    void an_icon_has_the_colour_that_its_action_gives_also_when_disabled()
    {
        const SquareIcon icon(QStringLiteral("#000000"));
        QcAction *action = m_menu->addQcAction(QStringLiteral("Label"));
        action->SetIconPath(icon.Path());
        action->SetIconColor(QStringLiteral("brand/brand"));
        Open();
        CheckSquare(action, TokenOf(Table::Light, QStringLiteral("brand/brand")));
        action->setEnabled(false);
        CheckSquare(action, TokenOf(Table::Light, QStringLiteral("brand/brand")));
        action->SetIconColor(QString());
        CheckSquare(action, TokenOf(Table::Light, QStringLiteral("brand/brand")));
        action->SetIconPath(QString());
        m_menu->hide();
        Open();
        CheckLabel(action, 12, false);
    }

    void an_icon_of_several_colours_has_each_of_them_replaced()
    {
        const SquareIcon icon(QStringLiteral("#00FF00"));
        QcAction *action = m_menu->addQcAction(QStringLiteral("Label"));
        action->SetIconPath(icon.Path());
        action->SetIconColor(QStringLiteral("brand/brand"));
        action->SetMulIconColor({{QStringLiteral("#00FF00"), QStringLiteral("text/text_caption")}});
        Open();
        CheckSquare(action, TokenOf(Table::Light, QStringLiteral("text/text_caption")));
        action->SetMulIconColor({{QStringLiteral("#FF0000"), QStringLiteral("text/text_caption")}});
        CheckSquare(action, QColor(0, 255, 0));
        action->SetMulIconColor({});
        CheckSquare(action, QColor(0, 255, 0));
    }

    void any_action_with_the_properties_is_painted_with_them()
    {
        const SquareIcon icon(QStringLiteral("#000000"));
        QAction *action = m_menu->addAction(QStringLiteral("Label"));
        action->setProperty(QcMenu::GetIconPathProperty(), icon.Path());
        action->setProperty(QcMenu::GetIconColorProperty(), QStringLiteral("brand/brand"));
        Open();
        CheckSquare(action, TokenOf(Table::Light, QStringLiteral("brand/brand")));
        const QHash<QString, QString> codes{{QStringLiteral("#000000"), QStringLiteral("text/text_caption")}};
        action->setProperty(QcMenu::GetIconSrcMulColorProperty(), QVariant::fromValue(codes));
        CheckSquare(action, TokenOf(Table::Light, QStringLiteral("text/text_caption")));
    }

    void the_icon_of_a_submenu_is_its_own_else_that_of_its_action()
    {
        const SquareIcon icon(QStringLiteral("#000000"));
        QcMenu submenu(QStringLiteral("More"));
        QcAction *action = m_menu->addQcMenu(&submenu);
        action->SetIconPath(icon.Path());
        action->SetIconColor(QStringLiteral("brand/brand"));
        action->SetMulIconColor({{QStringLiteral("#000000"), QStringLiteral("text/text_caption")}}); // not read
        Open();
        CheckSquare(action, TokenOf(Table::Light, QStringLiteral("brand/brand")));
        submenu.SetIconColor(QStringLiteral("brand/brand_hover"));
        CheckSquare(action, TokenOf(Table::Light, QStringLiteral("brand/brand_hover")));
        submenu.SetIconColor(QString());
        CheckSquare(action, TokenOf(Table::Light, QStringLiteral("brand/brand_hover")));
        submenu.SetIconPath(QStringLiteral(":/images/close.svg"));
        QVERIFY(ShowsIcon(IconPlace(Place(action)), QStringLiteral(":/images/close.svg"), QStringLiteral("brand/brand_hover"),
                          Panel(Table::Light)));
    }

    void an_icon_that_only_a_submenu_has_opens_no_column()
    {
        QcMenu submenu(QStringLiteral("More"));
        submenu.SetIconPath(QStringLiteral(":/images/close.svg"));
        QcAction *action = m_menu->addQcMenu(&submenu);
        Open();
        CheckLabel(action, 12);
    }

    void items_with_the_same_label_share_the_first_one_s_icon()
    {
        const SquareIcon icon(QStringLiteral("#000000"));
        QcAction *first = m_menu->addQcAction(QStringLiteral("Label"));
        QcAction *second = m_menu->addQcAction(QStringLiteral("Label"));
        first->SetIconPath(icon.Path());
        first->SetIconColor(QStringLiteral("brand/brand"));
        second->SetIconPath(QStringLiteral(":/images/close.svg"));
        Open();
        CheckSquare(second, TokenOf(Table::Light, QStringLiteral("brand/brand")));
    }

    void a_raster_image_fills_the_icon_s_place()
    {
        QTemporaryFile file(QStringLiteral("XXXXXX.png"));
        QVERIFY(file.open());
        QImage image(50, 50, QImage::Format_RGB32);
        image.fill(Qt::red);
        QVERIFY(image.save(&file, "PNG"));
        file.close();
        QcAction *action = m_menu->addQcAction(QStringLiteral("Label"));
        action->SetIconPath(file.fileName());
        Open();
        CheckSquare(action, Qt::red);
    }

    void a_missing_file_or_a_property_of_another_type_leaves_the_place_blank()
    {
        QcAction *action = m_menu->addQcAction(QStringLiteral("Label"));
        action->SetIconPath(QStringLiteral(":/no/such.svg"));
        Open();
        CheckLabel(action, 28);
        QVERIFY(IsBlank(IconPlace(Place(action)), Panel(Table::Light)));
        action->setProperty(QcMenu::GetIconPathProperty(), 7);
        action->setProperty(QcMenu::GetIconColorProperty(), QPoint(1, 2));
        action->setProperty(QcMenu::GetIconSrcMulColorProperty(), QStringLiteral("text"));
        CheckLabel(action, 28);
        QVERIFY(IsBlank(IconPlace(Place(action)), Panel(Table::Light)));
        action->setProperty(QcMenu::GetIconPathProperty(), QPoint(1, 2));
        m_menu->hide();
        Open();
        CheckLabel(action, 12);
    }

    void icons_are_as_sharp_as_the_device_data()
    {
        QTest::addColumn<qreal>("ratio");
        for (const qreal ratio : {1.0, 1.5, 2.0, 3.0})
            QTest::addRow("%g", ratio) << ratio;
    }
    void icons_are_as_sharp_as_the_device()
    {
        QFETCH(qreal, ratio);
        QcMenu submenu(QStringLiteral("More"));
        QcAction *action = m_menu->addQcMenu(&submenu);
        action->SetIconPath(QStringLiteral(":/images/close.svg"));
        Open();
        const QRect item = Place(action);
        QImage expected(Render(*m_menu).size(), QImage::Format_ARGB32_Premultiplied);
        const QImage picture = RenderAt(*m_menu, ratio, Qt::white);
        expected = QImage(picture.size(), picture.format());
        expected.setDevicePixelRatio(ratio);
        expected.fill(Panel(Table::Light));
        QPainter painter(&expected);
        ImageParams params;
        params.color = ColorParams(kIconCode);
        params.path = QStringLiteral(":/images/close.svg");
        PaintCrisply(painter, IconPlace(item), params);
        params.path = kArrow;
        const QRect arrow = ArrowPlace(item);
        PaintCrisply(painter, arrow, params);
        painter.end();
        for (const QRect &place : {IconPlace(item).adjusted(3, 3, -3, -3), arrow.adjusted(3, 3, -3, -3)})
            QCOMPARE(Part(picture, place), Part(expected, place));
    }

    // --- The right part ---

    void a_submenu_shows_an_arrow_unless_a_shortcut_takes_its_place()
    {
        QcMenu submenu(QStringLiteral("More"));
        QcAction *action = m_menu->addQcMenu(&submenu);
        Open();
        QVERIFY(ShowsIcon(ArrowPlace(Place(action)), kArrow, kIconCode, Panel(Table::Light)));
        action->setEnabled(false);
        QVERIFY(ShowsIcon(ArrowPlace(Place(action)), kArrow, kDisabledIconCode, Panel(Table::Light)));
        action->setEnabled(true);
        submenu.setTitle(QStringLiteral("More\tF4"));
        m_menu->hide();
        Open();
        const QRect item = Place(action);
        const int width = Advance(QStringLiteral("F4"));
        const QRect right(item.right() + 1 - 8 - width, item.top(), width, item.height());
        QVERIFY(ShowsText(right, kTrailing, QStringLiteral("F4"), Text(Table::Light), Panel(Table::Light)));
        QVERIFY(IsBlank(QRect(QPoint(item.left() + 80, item.top()), QPoint(right.left() - 2, item.bottom())), Panel(Table::Light)));
        QVERIFY(IsBlank(QRect(right.right() + 2, item.top(), 6, item.height()), Panel(Table::Light)));
    }

    void a_shortcut_stays_inside_of_the_widest_menu()
    {
        QcAction *action = m_menu->addQcAction(QStringLiteral("A label as long as any that a menu may have to show"));
        action->setShortcut(Qt::CTRL | Qt::ALT | Qt::SHIFT | Qt::Key_PageDown);
        Open();
        QVERIFY(m_menu->actionGeometry(action).width() > m_menu->width()); // which is why
        const QString shortcut = action->shortcut().toString(QKeySequence::NativeText);
        const QRect item = Place(action);
        const QRect right(item.right() + 1 - 8 - Advance(shortcut), item.top(), Advance(shortcut), item.height());
        QVERIFY(ShowsText(right, kTrailing, shortcut, Text(Table::Light), Panel(Table::Light)));
        const int left = item.left() + 12;
        const int width = item.right() - 24 - Advance(shortcut) - 8 - left;
        const QString elided = QFontMetrics(ItemFont()).elidedText(action->text(), Qt::ElideRight, width);
        QVERIFY(elided.size() < action->text().size());
        QVERIFY(ShowsText(QRect(left, item.top(), width, item.height()), kLeading, elided, Text(Table::Light), Panel(Table::Light)));
    }

    void a_shortcut_wider_than_the_menu_is_elided()
    {
        QcAction *action = m_menu->addQcAction(QStringLiteral("Label"));
        action->setShortcut(QKeySequence(QStringLiteral("Ctrl+Alt+Shift+PgDown, Ctrl+Alt+Shift+PgDown, Ctrl+Alt+Shift+PgUp")));
        m_menu->addQcAction(QStringLiteral("Other"))->SetIconPath(kTick);
        Open();
        const QRect item = Place(action);
        const int width = item.right() + 1 - 8 - (item.left() + 28);
        QVERIFY(Advance(action->shortcut().toString()) > width);
        const QString elided = QFontMetrics(ItemFont()).elidedText(action->shortcut().toString(), Qt::ElideRight, width);
        QVERIFY(ShowsText(QRect(item.left() + 28, item.top(), width, item.height()), kTrailing, elided, Text(Table::Light),
                          Panel(Table::Light)));
        QVERIFY(IsBlank(IconPlace(item), Panel(Table::Light)));
    }

    // --- Right to left ---

    void right_to_left_all_is_mirrored()
    {
        m_menu->setLayoutDirection(Qt::RightToLeft);
        QcAction *action = m_menu->addQcAction(QStringLiteral("Label"));
        action->SetIconPath(QStringLiteral(":/images/close.svg"));
        action->setShortcut(Qt::Key_F4);
        QcMenu submenu(QStringLiteral("More"));
        QcAction *more = m_menu->addQcMenu(&submenu);
        Open();
        QRect item = Place(action);
        const QRect icon(item.right() + 1 - 24, item.top() + 2, 24, 24);
        QVERIFY(ShowsIcon(icon, QStringLiteral(":/images/close.svg"), kIconCode, Panel(Table::Light)));
        const int shortcutWidth = Advance(QStringLiteral("F4"));
        const QRect shortcut(item.left() + 8, item.top(), shortcutWidth, item.height());
        QVERIFY(ShowsText(shortcut, kLeading, QStringLiteral("F4"), Text(Table::Light), Panel(Table::Light)));
        const QRect label(QPoint(shortcut.right() + 2, item.top()), QPoint(item.right() - 28, item.bottom()));
        QVERIFY(ShowsText(label, kTrailing, action->text(), Text(Table::Light), Panel(Table::Light)));

        item = Place(more);
        const QRect arrow(item.left() + 2, item.top() + 2, 24, 24);
        QVERIFY(Shows(arrow, Panel(Table::Light), [&](QPainter &painter) {
            ImageParams params;
            params.path = kArrow;
            params.color = ColorParams(kIconCode);
            params.size = (QSizeF(24, 24) * painter.device()->devicePixelRatioF()).toSize();
            const QPixmap pixmap = QcStyleManager::GetInstance()->GetPixmap(params);
            LayOnPixels(painter, arrow.topLeft(), pixmap.transformed(QTransform::fromScale(-1, 1)));
        }));
    }

    // --- Without an action ---

    void an_item_that_no_action_of_the_menu_stands_behind_gets_its_background_alone()
    {
        m_menu->addQcAction(QStringLiteral("Label"));
        const QColor hover = TokenOf(Table::Light, QStringLiteral("bg/bg_transluent_subtle_hover"));
        COMPARE_COLOR(MainInk(PaintedAlone(QStringLiteral("Another"), m_menu.get()), Qt::white), hover);
        const QWidget widget;
        COMPARE_COLOR(MainInk(PaintedAlone(QStringLiteral("Label"), &widget), Qt::white), hover);
        QVERIFY(InkBox(PaintedAlone(QStringLiteral("Another"), m_menu.get()), hover).isEmpty());
        QVERIFY(InkBox(PaintedAlone(QStringLiteral("Label"), &widget), hover).isEmpty());
        QVERIFY(!InkBox(PaintedAlone(QStringLiteral("Label"), m_menu.get()), hover).isEmpty());
    }

    void an_item_is_disabled_by_its_menu_and_by_the_first_action_of_its_label()
    {
        QcAction *first = m_menu->addQcAction(QStringLiteral("Label"));
        QcAction *second = m_menu->addQcAction(QStringLiteral("Label"));
        Open();
        CheckLabel(second, 12);
        first->setEnabled(false);
        CheckLabel(second, 12, false);
        first->setEnabled(true);
        m_menu->setEnabled(false);
        CheckLabel(first, 12, false);
    }

    void painting_an_item_leaves_the_painter_as_it_was_data()
    {
        QTest::addColumn<QStyleOptionMenuItem::MenuItemType>("type");
        QTest::newRow("item") << QStyleOptionMenuItem::Normal;
        QTest::newRow("submenu") << QStyleOptionMenuItem::SubMenu;
        QTest::newRow("separator") << QStyleOptionMenuItem::Separator;
    }
    void painting_an_item_leaves_the_painter_as_it_was()
    {
        QFETCH(QStyleOptionMenuItem::MenuItemType, type);
        m_menu->addQcAction(QStringLiteral("Label"))->SetIconPath(kTick);
        QImage image(100, 28, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        const QPen pen = painter.pen();
        const QBrush brush = painter.brush();
        const QFont font = painter.font();
        const QPainter::RenderHints hints = painter.renderHints();
        const QTransform transform = painter.transform();
        QStyleOptionMenuItem option;
        option.menuItemType = type;
        option.text = QStringLiteral("Label");
        option.rect = image.rect();
        m_menu->style()->drawControl(QStyle::CE_MenuItem, &option, &painter, m_menu.get());
        QCOMPARE(painter.pen(), pen);
        QCOMPARE(painter.brush(), brush);
        QCOMPARE(painter.font(), font);
        QCOMPARE(painter.renderHints(), hints);
        QCOMPARE(painter.transform(), transform);
    }

private:
    QSize SizeOf(const QStyleOption *option, const QSize &size = QSize(1000, 10)) const
    {
        return m_menu->style()->sizeFromContents(QStyle::CT_MenuItem, option, size, m_menu.get());
    }

    static QRect ArrowPlace(const QRect &item) { return QRect(item.right() + 1 - 24 - 2, item.top() + (item.height() - 24) / 2, 24, 24); }

    void CheckLabel(QAction *action, int left, bool isEnabled = true)
    {
        const QRect item = Place(action);
        const QRect label(item.left() + left, item.top(), Advance(action->text()) + 2, item.height());
        QVERIFY(ShowsText(label, kLeading, action->text(), Text(Table::Light, isEnabled), Panel(Table::Light)));
    }

    /// The icon of \a action fills its place in \a color.
    void CheckSquare(QAction *action, const QColor &color)
    {
        const QImage picture = Picture();
        const QRectF place = IconPlace(Place(action));
        COMPARE_COLOR(PixelAt(picture, place.topLeft() + QPointF(2, 2)), Over(color, Panel(Table::Light)));
        COMPARE_COLOR(PixelAt(picture, place.bottomRight() - QPointF(2, 2)), Over(color, Panel(Table::Light)));
        COMPARE_COLOR(PixelAt(picture, place.bottomRight() + QPointF(1, -3)), Panel(Table::Light));
    }

    QImage PaintedAlone(const QString &text, const QWidget *widget) const
    {
        QImage image(250, 28, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        QStyleOptionMenuItem option;
        option.text = text;
        option.rect = image.rect();
        option.state = QStyle::State_Selected | QStyle::State_Enabled;
        m_menu->style()->drawControl(QStyle::CE_MenuItem, &option, &painter, widget);
        return image;
    }
};

VELMORA_TEST_MAIN(TestQcMenuItems)

#include "tst_QcMenuItems.moc"
