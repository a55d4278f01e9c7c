#include "support/AccessibleEvents.h"
#include "support/EventCounter.h"
#include "support/PaintedRegion.h"
#include "support/Pixels.h"
#include "support/SquareIcon.h"
#include "support/TestMain.h"

#include "buttons/ControlTest.h"
#include "core/QtCompatibility_p.h"

#include <Velmora/ImageParams.h>
#include <Velmora/QcLineEdit.h>
#include <Velmora/QcScrollBar.h>
#include <Velmora/QcSelector.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QWheelEvent>

#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QString kBlocks(4, QChar(0x2588)); // full blocks
constexpr int kRowHeight = 28;
constexpr QRect kArrowPlace(200 - 1 - 24, 2, 24, 24);

/// Counts how often an item is asked for its icon and its size.
class CountingModel : public QStandardItemModel
{
public:
    using QStandardItemModel::QStandardItemModel;
    QVariant data(const QModelIndex &index, int role) const override
    {
        icons += role == Qt::DecorationRole;
        sizes += role == Qt::SizeHintRole;
        return QStandardItemModel::data(index, role);
    }
    mutable int icons = 0;
    mutable int sizes = 0;
};

QIcon Icon()
{
    QPixmap pixmap(24, 24);
    pixmap.fill(Qt::magenta);
    return QIcon(pixmap);
}

QRect RowRect(const QcSelector &selector, int row)
{
    return selector.view()->visualRect(selector.model()->index(row, selector.modelColumn(), selector.rootModelIndex()));
}

/// What the popup shows of a row.
QImage RowPicture(const QcSelector &selector, int row)
{
    return Part(Render(*selector.view()->viewport()), RowRect(selector, row));
}

QColor PopupGround(Table table)
{
    return TokenOf(table, QStringLiteral("bg/bg_float"));
}

/// The colour at the end of a row, which neither tick nor text nor icon reaches.
QColor GroundOfRow(const QcSelector &selector, int row)
{
    const QRect place = RowRect(selector, row);
    return PixelAt(Render(*selector.view()), selector.view()->viewport()->mapToParent(place.topRight()) + QPointF(-20, 14));
}

QColor HoverGround(Table table)
{
    return Over(TokenOf(table, QStringLiteral("bg/bg_transluent_subtle_hover")), PopupGround(table));
}

/// What a selector shows at its arrow's place on white.
QImage Arrow(const QWidget &selector, const QString &path, const QRect &place)
{
    QImage canvas = Canvas(selector);
    QPainter painter(&canvas);
    ImageParams arrow;
    arrow.path = path;
    arrow.size = QSize(24, 24);
    arrow.color = TokenOf(Table::Light, QStringLiteral("icon/icon_secondary")).name(QColor::HexRgb);
    arrow.color.alpha = TokenOf(Table::Light, QStringLiteral("icon/icon_secondary")).alphaF();
    PaintCrisply(painter, place, arrow);
    painter.end();
    return Part(canvas, place.adjusted(4, 4, -4, -4));
}

bool IsLike(const QImage &one, const QImage &other)
{
    if (one.size() != other.size())
        return false;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            if (!Close(one.pixelColor(x, y), other.pixelColor(x, y), 8))
                return false;
        }
    }
    return true;
}

bool IsOpen(const QcSelector &selector)
{
    return selector.view()->isVisible();
}

QAccessibleInterface *AccessibleOf(QObject *object)
{
    return QAccessible::queryAccessibleInterface(object);
}

} // namespace

class TestQcSelector : public ControlTest<QcSelector>
{
    Q_OBJECT

private Q_SLOTS:
    // --- What a new selector is ---

    void a_new_selector_is_28_pixels_high_and_as_narrow_as_it_is_let()
    {
        const QcSelector selector;
        QCOMPARE(selector.minimumHeight(), 28);
        QCOMPARE(selector.maximumHeight(), 28);
        QCOMPARE(selector.contentsMargins(), QMargins(8, 0, 0, 0));
        QCOMPARE(selector.sizeAdjustPolicy(), QComboBox::AdjustToMinimumContentsLengthWithIcon);
        QCOMPARE(selector.minimumContentsLength(), 0);
        QCOMPARE(selector.maxVisibleItems(), 7);
        QVERIFY(!selector.hasItemsWithIcons());
        QVERIFY(!selector.isEditable());
    }

    void the_popup_is_a_frameless_translucent_popup()
    {
        const QWidget *popup = m_control->view()->window();
        QVERIFY(popup != m_window.get());
        QCOMPARE(popup->windowType(), Qt::Popup);
        QVERIFY(popup->windowFlags() & Qt::FramelessWindowHint);
        QVERIFY(popup->windowFlags() & Qt::NoDropShadowWindowHint);
        QVERIFY(popup->testAttribute(Qt::WA_TranslucentBackground));
    }

    void the_view_scrolls_by_pixels_under_a_bar_that_floats()
    {
        QCOMPARE(m_control->view()->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(m_control->view()->verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
        QCOMPARE(Bars().size(), 1);
        QCOMPARE(Bars().first()->orientation(), Qt::Vertical);
        QCOMPARE(Bars().first()->parentWidget(), m_control->view());
    }

    void its_stylesheet_ends_with_the_places_of_text_and_arrow()
    {
        const QString places = QStringLiteral("Velmora--QcSelector { padding-left: 8px; } Velmora--QcSelector::drop-down { width: 24px;}");
        QVERIFY(m_control->styleSheet().endsWith(places));
        QCOMPARE(m_control->styleSheet().count(QStringLiteral("combobox-popup")), 1);
    }

    // --- The face ---

    void each_state_has_its_border_and_ground_data()
    {
        QTest::addColumn<QString>("state");
        QTest::addColumn<QString>("border");
        QTest::addColumn<QString>("ground");
        QTest::newRow("rest") << "rest"
                              << "border/border_secondary" << QString();
        QTest::newRow("hover") << "hover"
                               << "others/focus" << QString();
        QTest::newRow("focus") << "focus"
                               << "others/focus" << QString();
        QTest::newRow("disabled") << "disabled"
                                  << "border/border_tertairy"
                                  << "bg/bg_transluent_strong_dis";
    }

    void each_state_has_its_border_and_ground()
    {
        QFETCH(QString, state);
        QFETCH(QString, border);
        QFETCH(QString, ground);
        m_control->setFocusPolicy(Qt::StrongFocus);
        m_control->clearFocus();
        m_control->setEnabled(state != QLatin1String("disabled"));
        if (state == QLatin1String("focus"))
            m_control->setFocus();
        if (state == QLatin1String("hover"))
            MoveCursorOver(*m_control);
        const QColor canvas(120, 140, 120);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QImage image = Render(*m_control, canvas);
            const QColor inside = ground.isEmpty() ? canvas : Over(TokenOf(table, ground), canvas);
            COMPARE_COLOR(PixelAt(image, QPointF(4.5, 14)), inside);
            const QColor line = PixelAt(image, QPointF(100, 0.2));
            // Qt lets the ground reach under a part of the border.
            QVERIFY2(IsBetween(line, Over(TokenOf(table, border), canvas), Over(TokenOf(table, border), inside)), qPrintable(line.name()));
        }
    }

    void the_text_has_its_token_in_all_states()
    {
        QCOMPARE(m_control->font().pixelSize(), 12);
        m_control->setItemText(0, kBlocks);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            for (const bool isEnabled : {true, false}) {
                m_control->setEnabled(isEnabled);
                COMPARE_COLOR(MainInk(FaceText(Qt::red), FaceGround(Qt::red)),
                              Over(TokenOf(table, QStringLiteral("text/text_primary")), FaceGround(Qt::red)));
            }
        }
    }

    void without_a_current_item_the_placeholder_shows_in_the_secondary_colour()
    {
        m_control->setPlaceholderText(kBlocks);
        m_control->setCurrentIndex(-1);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            COMPARE_COLOR(MainInk(FaceText(Qt::red), Qt::red), Over(TokenOf(table, QStringLiteral("text/text_secondary")), Qt::red));
        }
    }

    void a_placeholder_is_cut_before_the_arrow_not_elided()
    {
        m_control->setPlaceholderText(QString(100, QChar(0x2588)));
        m_control->setCurrentIndex(-1);
        const QImage image = Render(*m_control);
        QVERIFY(InkBox(Part(image, QRectF(175, 2, 8, 24)), Qt::white).height() > 10);
    }

    void a_text_stands_8_pixels_in_and_ends_before_the_arrow_elided()
    {
        m_control->setItemText(0, QString(100, QChar(0x2588)));
        const QImage image = Part(Render(*m_control), QRectF(2, 2, 170, 24));
        QVERIFY(qAbs(InkBox(image, Qt::white).left() + 2 - 8) < 1.1);
        // Dots before the last 16 pixels, which are the icon's, though none is painted.
        QVERIFY(InkBox(Part(Render(*m_control), QRectF(173, 2, 8, 24)), Qt::white).height() < 6);
        QVERIFY(InkBox(Part(Render(*m_control), QRectF(150, 2, 8, 24)), Qt::white).height() > 10);
    }

    void an_editable_selector_shows_its_text_once_and_its_arrow()
    {
        m_control->setItemText(0, kBlocks);
        m_control->setEditable(true);
        m_control->setPlaceholderText(QString(20, QChar(0x2588)));
        DrainEvents();
        QCOMPARE(m_control->lineEdit()->styleSheet(), QStringLiteral("padding-left: -2px;"));
        QVERIFY(IsLike(FaceArrow(), Arrow(*m_control, QStringLiteral(":/images/arrow_down.svg"), kArrowPlace)));
        m_control->setEditText(QStringLiteral("not an item")); // no placeholder shows through
        m_control->lineEdit()->hide();
        QVERIFY(InkBox(FaceText(Qt::white), Qt::white).isEmpty());
        m_control->setEditText(QString());
        QVERIFY(!InkBox(FaceText(Qt::white), Qt::white).isEmpty());
    }

    void a_typed_text_is_readable_in_both_tables()
    {
        m_control->setEditable(true);
        m_control->setEditText(kBlocks);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            COMPARE_COLOR(MainInk(FaceText(Qt::red), Qt::red), Over(TokenOf(table, QStringLiteral("text/text_primary")), Qt::red));
        }
    }

    void only_a_host_that_installs_it_sees_the_line_edit_in_red()
    {
        m_control->setEditable(true);
        const QPointF place = QRectF(m_control->lineEdit()->geometry()).center();
        COMPARE_COLOR(PixelAt(Render(*m_control), place), QColor(Qt::white));
        m_control->lineEdit()->installEventFilter(m_control);
        COMPARE_COLOR(PixelAt(Render(*m_control), place), QColor(Qt::red));
    }

    // --- The popup ---

    void seven_rows_show_below_the_field_and_the_rest_scrolls()
    {
        Fill(20);
        Open();
        QCOMPARE(m_control->view()->viewport()->height(), 7 * kRowHeight);
        QCOMPARE(m_control->view()->mapToGlobal(QPoint()), m_control->mapToGlobal(QPoint(0, 27))); // less the margin above the list
        QCOMPARE(m_control->view()->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QVERIFY(!m_control->view()->verticalScrollBar()->isVisible());
        QCOMPARE(m_control->view()->verticalScrollBar()->maximum(), 13 * kRowHeight);
        QVERIFY(Bars().first()->isVisible());
        QCOMPARE(Bars().first()->maximum(), 13 * kRowHeight);
        Bars().first()->setValue(5);
        QCOMPARE(RowRect(*m_control, 0).top(), -5);
    }

    void a_selector_editable_before_it_has_a_place_scrolls_under_the_one_bar()
    {
        auto selector = std::make_unique<QcSelector>();
        selector->setEditable(true);
        for (int i = 0; i < 20; ++i)
            selector->addItem(QString::number(i));
        selector->setParent(m_window.get());
        selector->show();
        DrainEvents();
        selector->showPopup();
        QVERIFY(selector->view()->verticalScrollBar()->maximum() > 0);
        QVERIFY(!selector->view()->verticalScrollBar()->isVisible());
        QVERIFY(selector->view()->findChild<QcScrollBar *>()->isVisible());
        selector->hidePopup();
    }

    void the_one_bar_has_its_own_look_from_the_first_time_on_data()
    {
        QTest::addColumn<bool>("isFilledFirst");
        QTest::newRow("filled before it has a place") << true;
        QTest::newRow("filled in its window") << false;
    }

    void the_one_bar_has_its_own_look_from_the_first_time_on()
    {
        QFETCH(bool, isFilledFirst);
        QWidget window;
        window.setGeometry(kWindowPlace);
        QcSelector selector(&window);
        const auto fill = [&] {
            for (int i = 0; i < 20; ++i)
                selector.addItem(QString::number(i));
        };
        if (isFilledFirst)
            fill();
        window.show();
        DrainEvents();
        if (!isFilledFirst)
            fill();
        selector.showPopup();
        MoveCursorAway();
        DrainEvents();
        auto *bar = selector.view()->findChild<QcScrollBar *>();
        QVERIFY(bar->isVisible());
        QCOMPARE(InkBox(Render(*bar, Qt::magenta), Qt::magenta), QRectF());
        selector.hidePopup();
    }

    void few_items_need_no_scroll_bar()
    {
        Open();
        QCOMPARE(m_control->view()->viewport()->height(), 3 * kRowHeight);
        QVERIFY(!Bars().first()->isVisible());
    }

    void a_row_is_28_pixels_high_whatever_is_in_it()
    {
        QFont huge;
        huge.setPixelSize(60);
        QPixmap large(200, 200);
        large.fill(Qt::blue);
        m_control->setItemData(0, huge, Qt::FontRole);
        m_control->setItemData(1, large, Qt::DecorationRole);
        m_control->setItemData(2, QSize(300, 300), Qt::SizeHintRole);
        Open();
        for (int row = 0; row < 3; ++row) {
            QCOMPARE(RowRect(*m_control, row).top(), row * kRowHeight);
            QCOMPARE(RowRect(*m_control, row).height(), kRowHeight);
            QStyleOptionViewItem option;
            QCOMPARE(m_control->itemDelegate()->sizeHint(option, m_control->model()->index(row, 0)).height(), kRowHeight);
        }
    }

    void a_disabled_item_and_a_separator_look_like_items()
    {
        m_control->setItemText(1, m_control->itemText(2));
        m_control->insertSeparator(3);
        Open();
        const QImage plain = RowPicture(*m_control, 1);
        auto *items = qobject_cast<QStandardItemModel *>(m_control->model());
        items->item(2)->setEnabled(false);
        QCOMPARE(RowPicture(*m_control, 2), plain);
        QCOMPARE(RowRect(*m_control, 3).height(), kRowHeight);
        items->item(3)->setText(m_control->itemText(2));
        QCOMPARE(RowPicture(*m_control, 3), plain);
    }

    void the_popup_has_its_ground_and_texts_in_both_tables()
    {
        m_control->setItemText(1, kBlocks);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            Open();
            MoveCursorAway();
            COMPARE_COLOR(GroundOfRow(*m_control, 2), PopupGround(table));
            const QImage popup = Render(*m_control->view());
            const QColor line = PixelAt(popup, QPointF(0.2, m_control->view()->height() / 2.0));
            const QColor border = TokenOf(table, QStringLiteral("border/border_tertairy"));
            // Qt lets the ground reach under a part of the border.
            QVERIFY2(IsBetween(line, Over(border), Over(border, PopupGround(table))), qPrintable(line.name()));
            const QRectF row = RowRect(*m_control, 1).translated(m_control->view()->viewport()->pos());
            COMPARE_COLOR(MainInk(Part(popup, row), PopupGround(table)),
                          Over(TokenOf(table, QStringLiteral("text/text_primary")), PopupGround(table)));
            m_control->hidePopup();
        }
    }

    void the_current_row_has_a_tick_and_no_other()
    {
        Fill(3);
        m_control->setCurrentIndex(1);
        Open();
        const auto tick = [&](int row) { return InkBox(RowTick(row), RowTick(row).pixelColor(0, 0)); };
        QVERIFY(tick(0).isEmpty() && tick(2).isEmpty());
        // As the picture of 24 pixels has it, 4 from the row's edge.
        const QImage row = Part(RowPicture(*m_control, 1), QRectF(4, 2, 24, 24));
        QImage canvas(row.size(), QImage::Format_ARGB32_Premultiplied);
        canvas.setDevicePixelRatio(row.devicePixelRatio());
        canvas.fill(row.pixelColor(0, 0));
        QPainter painter(&canvas);
        ImageParams image;
        image.path = QStringLiteral(":/images/select.svg");
        image.color = QStringLiteral("text/text_primary");
        PaintCrisply(painter, QRect(0, 0, 24, 24), image);
        painter.end();
        QVERIFY(IsLike(row, canvas));
    }

    void a_row_is_written_in_12_pixels()
    {
        m_control->setItemText(1, kBlocks);
        Open();
        QFont font = QcStyleManager::GetDefaultFont();
        font.setPixelSize(12);
        const QImage row = RowPicture(*m_control, 1);
        const QRectF ink = InkBox(Part(row, QRectF(28, 0, 150, kRowHeight)), row.pixelColor(0, 0));
        QVERIFY2(qAbs(ink.width() - QFontMetricsF(font).horizontalAdvance(kBlocks)) < 1.5, qPrintable(QString::number(ink.width())));
    }

    void an_icon_moves_the_text_of_all_rows_24_pixels_at_once()
    {
        Open();
        const qreal without = TextLeft(1);
        QVERIFY(qAbs(without - 28) < 2);
        m_control->addItem(Icon(), QStringLiteral("with an icon"));
        QVERIFY(m_control->hasItemsWithIcons());
        QCOMPARE(TextLeft(1), without + 24);
        m_control->view()->scrollToBottom();
        const QImage row = RowPicture(*m_control, 3);
        COMPARE_COLOR(PixelAt(row, QPointF(29, 14)), QColor(Qt::magenta));
        COMPARE_COLOR(PixelAt(row, QPointF(51, 14)), QColor(Qt::magenta));
        QVERIFY(qAbs(TextLeft(3, 53) - without - 24) < 1);
    }

    void a_pixmap_shows_as_an_icon_does()
    {
        QPixmap pixmap(24, 24);
        pixmap.fill(Qt::magenta);
        m_control->setItemData(1, pixmap, Qt::DecorationRole);
        Open();
        const QImage row = RowPicture(*m_control, 1);
        COMPARE_COLOR(PixelAt(row, QPointF(40, 14)), QColor(Qt::magenta));
        QVERIFY(qAbs(TextLeft(2) - 52) < 2);
    }

    void all_rows_of_an_open_list_are_repainted_when_an_icon_comes_or_goes()
    {
        Open();
        for (const QIcon &icon : {Icon(), QIcon()}) {
            PaintedRegion painted(*m_control->view()->viewport());
            m_control->setItemIcon(2, icon);
            DrainEvents();
            QCOMPARE(painted.region, QRegion(m_control->view()->viewport()->rect()));
        }
    }

    void a_long_text_of_a_row_is_elided_before_the_margin_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<Qt::LayoutDirection>("direction");
        for (const int row : {0, 2}) { // all rows would be as wide as the last one wants to be
            QTest::addRow("row %d, left to right", row) << row << Qt::LeftToRight;
            QTest::addRow("row %d, right to left", row) << row << Qt::RightToLeft;
        }
    }

    void a_long_text_of_a_row_is_elided_before_the_margin()
    {
        QFETCH(int, row);
        QFETCH(Qt::LayoutDirection, direction);
        m_control->setLayoutDirection(direction);
        m_control->setCurrentIndex(1);
        Open();
        m_control->setItemText(row, QString(200, QChar(0x2588))); // a list laid out while it shows is as wide inside
        DrainEvents();
        QVERIFY(!m_control->view()->horizontalScrollBar()->isVisible());
        const QRect viewport = m_control->view()->viewport()->rect();
        const QImage list = Render(*m_control->view()->viewport());
        const bool isLeft = direction == Qt::LeftToRight;
        const QRectF margin(isLeft ? viewport.width() - 8 : 0, row * kRowHeight, 8, kRowHeight);
        QVERIFY(InkBox(Part(list, margin), list.pixelColor(0, 0)).isEmpty());
        const QRectF dots(isLeft ? viewport.width() - 22 : 8, row * kRowHeight, 14, kRowHeight);
        const QRectF ink = InkBox(Part(list, dots), list.pixelColor(0, 0));
        QVERIFY2(!ink.isEmpty() && ink.height() < 10, qPrintable(QString::number(ink.height()))); // no block
    }

    void a_text_of_a_megabyte_looks_like_a_shorter_one()
    {
        m_control->setItemText(0, QString(1 << 20, QLatin1Char('w')));
        m_control->setItemText(1, QString(1 << 20, QLatin1Char('w')));
        const QImage face = Render(*m_control);
        Open();
        const QImage row = RowPicture(*m_control, 1);
        m_control->setItemText(0, QString(200, QLatin1Char('w')));
        m_control->setItemText(1, QString(200, QLatin1Char('w')));
        QCOMPARE(RowPicture(*m_control, 1), row);
        m_control->hidePopup();
        DrainEvents();
        QCOMPARE(Part(Render(*m_control), QRectF(4, 4, 150, 20)), Part(face, QRectF(4, 4, 150, 20)));
    }

    void a_line_break_is_painted_as_a_space()
    {
        const auto pictures = [this](const QString &text) {
            m_control->setItemText(0, text);
            m_control->setItemText(1, text);
            m_control->setPlaceholderText(text);
            m_control->setCurrentIndex(-1);
            const QImage placeholder = Render(*m_control);
            m_control->setCurrentIndex(0);
            return QVector<QImage>{placeholder, Render(*m_control), RowPicture(*m_control, 1)};
        };
        Open();
        const QVector<QImage> broken = pictures(QStringLiteral("One\nTwo") + QChar(QChar::LineSeparator) + QStringLiteral("3"));
        QCOMPARE(broken, pictures(QStringLiteral("One Two 3")));
    }

    // --- Mouse and keys ---

    void the_row_under_the_mouse_is_marked()
    {
        Fill(20);
        Open();
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            QHoverEvent hover = HoverEventAt(QEvent::HoverMove, RowRect(*m_control, 4).center(), QPointF(-1, -1));
            QCoreApplication::sendEvent(m_control->view()->viewport(), &hover);
            COMPARE_COLOR(GroundOfRow(*m_control, 4), HoverGround(table));
            COMPARE_COLOR(GroundOfRow(*m_control, 3), PopupGround(table));
        }
    }

    void the_row_of_the_keyboard_is_marked_also_where_the_list_scrolls()
    {
        Fill(20);
        m_control->setCurrentIndex(2);
        Open();
        COMPARE_COLOR(GroundOfRow(*m_control, 2), HoverGround(Table::Light));
        for (int row = 3; row < 15; ++row) {
            QTest::keyClick(m_control->view(), Qt::Key_Down);
            QCOMPARE(m_control->view()->currentIndex().row(), row);
            QVERIFY(m_control->view()->viewport()->rect().contains(RowRect(*m_control, row)));
            COMPARE_COLOR(GroundOfRow(*m_control, row), HoverGround(Table::Light));
            COMPARE_COLOR(GroundOfRow(*m_control, row - 1), PopupGround(Table::Light));
        }
        QTest::keyClick(m_control->view(), Qt::Key_Home);
        COMPARE_COLOR(GroundOfRow(*m_control, 0), HoverGround(Table::Light));
        QTest::keyClick(m_control->view(), Qt::Key_Return);
        QCOMPARE(m_control->currentIndex(), 0);
        QVERIFY(!IsOpen(*m_control));
        m_control->setCurrentIndex(1); // opened again: where the keyboard begins
        Open();
        COMPARE_COLOR(GroundOfRow(*m_control, 1), HoverGround(Table::Light));
        QHoverEvent hover = HoverEventAt(QEvent::HoverMove, RowRect(*m_control, 4).center(), QPointF(-1, -1)); // the mouse was elsewhere
        QCoreApplication::sendEvent(m_control->view()->viewport(), &hover);
        m_control->hidePopup();
        Open();
        COMPARE_COLOR(GroundOfRow(*m_control, 1), HoverGround(Table::Light));
        COMPARE_COLOR(GroundOfRow(*m_control, 4), PopupGround(Table::Light));
    }

    void a_list_that_opens_without_a_row_for_the_keyboard_marks_none_data()
    {
        QTest::addColumn<bool>("isHidden");
        QTest::newRow("no current item") << false;
        QTest::newRow("the current item is hidden") << true;
    }

    void a_list_that_opens_without_a_row_for_the_keyboard_marks_none()
    {
        QFETCH(bool, isHidden);
        delete m_control;
        m_control = new QcSelector(m_window.get()); // Qt's list chooses a row for itself if it was ever cleared
        m_control->setGeometry(10, 10, 200, 28);
        for (int row = 0; row < 5; ++row)
            m_control->addItem(QString::number(row));
        m_control->setCurrentIndex(3);
        m_control->show();
        Open(); // which marks a row
        m_control->hidePopup();
        DrainEvents();
        if (isHidden)
            qobject_cast<QListView *>(m_control->view())->setRowHidden(3, true);
        else
            m_control->setCurrentIndex(-1);
        Open();
        for (const int row : {0, 1, 2, isHidden ? 4 : 3})
            COMPARE_COLOR(GroundOfRow(*m_control, row), PopupGround(Table::Light));
    }

    void the_arrow_turns_on_every_way_in_and_out_data()
    {
        QTest::addColumn<QString>("in");
        QTest::addColumn<QString>("out");
        for (const char *in : {"F4", "Alt+Down", "press", "call"}) {
            for (const char *out : {"Escape", "F4", "choice", "outside", "call"})
                QTest::addRow("%s, %s", in, out) << in << out;
        }
    }

    void the_arrow_turns_on_every_way_in_and_out()
    {
        QFETCH(QString, in);
        QFETCH(QString, out);
        m_control->setFocusPolicy(in == QLatin1String("call") ? Qt::NoFocus : Qt::StrongFocus); // a change of the focus repaints too
        m_control->clearFocus();
        if (in != QLatin1String("call"))
            m_control->setFocus();
        DrainEvents();
        const QImage down = Arrow(*m_control, QStringLiteral(":/images/arrow_down.svg"), kArrowPlace);
        const QImage up = Arrow(*m_control, QStringLiteral(":/images/arrow_up.svg"), kArrowPlace);
        QVERIFY(!IsLike(up, down));
        QVERIFY(IsLike(FaceArrow(), down));
        EventCounter paints(*m_control, QEvent::Paint);
        if (in == QLatin1String("F4"))
            QTest::keyClick(m_control, Qt::Key_F4);
        else if (in == QLatin1String("Alt+Down"))
            QTest::keyClick(m_control, Qt::Key_Down, Qt::AltModifier);
        else if (in == QLatin1String("press"))
            QTest::mouseClick(m_control, Qt::LeftButton);
        else
            m_control->showPopup();
        QVERIFY(IsOpen(*m_control));
        DrainEvents();
        QVERIFY(paints.Take() > 0);
        QVERIFY(IsLike(FaceArrow(), up));

        if (out == QLatin1String("Escape")) {
            QTest::keyClick(m_control->view(), Qt::Key_Escape);
        } else if (out == QLatin1String("F4")) {
            QTest::keyClick(m_control->view(), Qt::Key_F4);
        } else if (out == QLatin1String("choice")) {
            QTest::keyClick(m_control->view(), Qt::Key_Return);
        } else if (out == QLatin1String("outside")) {
            QTest::mouseClick(m_control->view()->window(), Qt::LeftButton, Qt::NoModifier, QPoint(-5, 150));
        } else {
            m_control->hidePopup();
        }
        QTRY_VERIFY(!IsOpen(*m_control));
        DrainEvents();
        QVERIFY(paints.Take() > 0);
        QVERIFY(IsLike(FaceArrow(), down));
    }

    void the_wheel_turns_through_a_closed_selector()
    {
        const QPointF middle = m_control->rect().center();
        QWheelEvent wheel(middle, m_control->mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(m_control, &wheel);
        QCOMPARE(m_control->currentIndex(), 1);
    }

    void arrows_and_letters_choose_in_a_closed_selector()
    {
        m_control->setItemText(2, QStringLiteral("zebra"));
        m_control->setFocus();
        QTest::keyClick(m_control, Qt::Key_Down);
        QCOMPARE(m_control->currentIndex(), 1);
        QTest::keyClick(m_control, Qt::Key_Z);
        QCOMPARE(m_control->currentIndex(), 2);
        QTest::keyClick(m_control, Qt::Key_Home);
        QCOMPARE(m_control->currentIndex(), 0);
    }

    void a_click_on_a_row_chooses_it()
    {
        Open();
        QSignalSpy activated(m_control, QOverload<int>::of(&QComboBox::activated));
        QTest::mouseClick(m_control->view()->viewport(), Qt::LeftButton, Qt::NoModifier, RowRect(*m_control, 2).center());
        QTRY_COMPARE(m_control->currentIndex(), 2);
        QCOMPARE(activated.count(), 1);
        QVERIFY(!IsOpen(*m_control));
    }

    // --- Which items have icons ---

    void the_icons_are_counted_as_items_come_change_and_go()
    {
        m_control->setItemIcon(1, Icon());
        QVERIFY(m_control->hasItemsWithIcons());
        m_control->setItemIcon(2, Icon());
        m_control->removeItem(1);
        QVERIFY(m_control->hasItemsWithIcons()); // another one has one
        m_control->setItemIcon(1, QIcon());
        QVERIFY(!m_control->hasItemsWithIcons());
        m_control->insertItem(0, Icon(), QString());
        QVERIFY(m_control->hasItemsWithIcons());
        m_control->removeItem(0);
        QVERIFY(!m_control->hasItemsWithIcons());
        QPixmap pixmap(8, 8);
        m_control->setItemData(0, pixmap, Qt::DecorationRole);
        QVERIFY(m_control->hasItemsWithIcons());
        m_control->setItemData(0, QColor(Qt::red), Qt::DecorationRole); // no icon
        QVERIFY(!m_control->hasItemsWithIcons());
        m_control->addItem(Icon(), QString());
        m_control->clear();
        QVERIFY(!m_control->hasItemsWithIcons());
    }

    void a_reset_of_the_model_is_followed()
    {
        QStringListResetModel model;
        m_control->setModel(&model);
        QVERIFY(!m_control->hasItemsWithIcons());
        model.Reset(true);
        QVERIFY(m_control->hasItemsWithIcons());
        model.Reset(false);
        QVERIFY(!m_control->hasItemsWithIcons());
        m_control->setModel(new QStandardItemModel(m_control));
    }

    void another_model_root_or_column_is_followed()
    {
        QStandardItemModel model;
        auto *parent = new QStandardItem(QStringLiteral("parent"));
        parent->appendRow(new QStandardItem(Icon(), QStringLiteral("child")));
        model.appendRow({parent, new QStandardItem(Icon(), QStringLiteral("second column"))});
        m_control->setModel(&model);
        QVERIFY(!m_control->hasItemsWithIcons());
        m_control->setModelColumn(1);
        QVERIFY(m_control->hasItemsWithIcons());
        m_control->setModelColumn(0);
        QVERIFY(!m_control->hasItemsWithIcons());
        m_control->setRootModelIndex(parent->index());
        QVERIFY(m_control->hasItemsWithIcons());
        m_control->setRootModelIndex(QModelIndex());
        QVERIFY(!m_control->hasItemsWithIcons());
        parent->appendRow(new QStandardItem(Icon(), QStringLiteral("elsewhere")));
        QVERIFY(!m_control->hasItemsWithIcons());
        parent->setIcon(Icon());
        QVERIFY(m_control->hasItemsWithIcons());
        m_control->setModel(new QStandardItemModel(m_control));
        QVERIFY(!m_control->hasItemsWithIcons());
    }

    void a_model_set_later_moves_the_texts_when_the_selector_paints()
    {
        QStandardItemModel model;
        model.appendRow(new QStandardItem(Icon(), QStringLiteral("one")));
        model.appendRow(new QStandardItem(QStringLiteral("two")));
        m_control->setModel(&model);
        Open();
        QVERIFY(qAbs(TextLeft(1) - 52) < 2);
        m_control->setModel(new QStandardItemModel(m_control));
    }

    void models_set_back_and_forth_are_followed_once()
    {
        CountingModel model;
        QStandardItemModel other;
        for (int i = 0; i < 50; ++i) {
            m_control->setModel(&other);
            QVERIFY(!m_control->hasItemsWithIcons());
            m_control->setModel(&model);
            QVERIFY(!m_control->hasItemsWithIcons());
        }
        model.icons = 0;
        m_control->addItem(QString());
        QVERIFY2(model.icons < 10, qPrintable(QString::number(model.icons)));
        m_control->setModel(new QStandardItemModel(m_control));
    }

    void the_slot_by_its_name_looks_at_all_items()
    {
        const QSignalBlocker silent(m_control->model());
        m_control->setItemIcon(1, Icon());
        QVERIFY(!m_control->hasItemsWithIcons());
        QMetaObject::invokeMethod(m_control, "updateIconPresence");
        QVERIFY(m_control->hasItemsWithIcons());
        m_control->setItemIcon(1, QIcon());
        QVERIFY(m_control->hasItemsWithIcons());
        QMetaObject::invokeMethod(m_control, "updateIconPresence");
        QVERIFY(!m_control->hasItemsWithIcons());
    }

    // --- Long lists ---

    void three_thousand_items_are_looked_at_once_each_data()
    {
        QTest::addColumn<bool>("hasIcon");
        QTest::newRow("none with an icon") << false;
        QTest::newRow("the last of the first hundred with an icon") << true;
    }

    void three_thousand_items_are_looked_at_once_each()
    {
        QFETCH(bool, hasIcon);
        constexpr int kCount = 3000;
        CountingModel model;
        m_control->setModel(&model);
        for (int i = 0; i < kCount; ++i)
            m_control->addItem(hasIcon && i == 99 ? Icon() : QIcon(), QString::number(i));
        QVERIFY2(model.icons <= 3 * kCount, qPrintable(QString::number(model.icons)));
        QCOMPARE(m_control->hasItemsWithIcons(), hasIcon);
        model.icons = 0;
        for (int i = kCount - 1; i >= 100; --i)
            m_control->setItemText(i, QStringLiteral("changed"));
        for (int i = kCount - 1; i >= 100; --i)
            m_control->removeItem(i);
        QVERIFY2(model.icons <= 6 * kCount, qPrintable(QString::number(model.icons)));
        QCOMPARE(m_control->hasItemsWithIcons(), hasIcon);
        m_control->setModel(new QStandardItemModel(m_control));
    }

    void ten_thousand_items_open_without_being_measured_each()
    {
        constexpr int kCount = 10000;
        CountingModel model;
        for (int i = 0; i < kCount; ++i)
            model.appendRow(new QStandardItem(QString::number(i)));
        m_control->setModel(&model);
        m_control->setCurrentIndex(9999);
        model.sizes = 0;
        Open();
        QVERIFY2(model.sizes < 1000, qPrintable(QString::number(model.sizes)));
        QCOMPARE(m_control->view()->verticalScrollBar()->maximum(), (kCount - 7) * kRowHeight);
        QVERIFY(m_control->view()->viewport()->rect().contains(RowRect(*m_control, 9999)));
        m_control->hidePopup();
        m_control->setModel(new QStandardItemModel(m_control));
    }

    // --- Right to left ---

    void right_to_left_the_face_is_mirrored()
    {
        m_control->setItemText(0, kBlocks);
        const QImage leftToRight = FaceText(Qt::white);
        m_control->setLayoutDirection(Qt::RightToLeft);
        DrainEvents();
        const QRect place(1, 2, 24, 24);
        const QImage face = Render(*m_control);
        QVERIFY(IsLike(Part(face, place.adjusted(4, 4, -4, -4)), Arrow(*m_control, QStringLiteral(":/images/arrow_down.svg"), place)));
        const QRectF ink = InkBox(Part(face, QRectF(30, 2, 168, 24)), Qt::white);
        QVERIFY2(qAbs(ink.right() + 30 - (200 - 8)) < 1.6, qPrintable(QString::number(ink.right())));
        QVERIFY(qAbs(ink.width() - InkBox(leftToRight, Qt::white).width()) < 1.1);
    }

    void right_to_left_the_rows_are_mirrored()
    {
        m_control->setLayoutDirection(Qt::RightToLeft);
        m_control->setItemText(1, kBlocks);
        m_control->setItemIcon(1, Icon());
        m_control->setCurrentIndex(1);
        Open();
        const QImage row = RowPicture(*m_control, 1);
        const int width = RowRect(*m_control, 1).width();
        COMPARE_COLOR(PixelAt(row, QPointF(width - 29, 14)), QColor(Qt::magenta));
        COMPARE_COLOR(PixelAt(row, QPointF(width - 51, 14)), QColor(Qt::magenta));
        const QColor ground = row.pixelColor(0, 0);
        const QRectF text = InkBox(Part(row, QRectF(0, 0, width - 53, kRowHeight)), ground);
        QVERIFY2(qAbs(text.right() - (width - 52)) < 2, qPrintable(QString::number(text.right())));
        QVERIFY(InkBox(Part(row, QRectF(width - 27, 0, 24, kRowHeight)), ground).width() > 8); // the tick
    }

    // --- Hostile hosts ---

    void no_model_is_refused_by_qt()
    {
        ExpectWarning(QStringLiteral("QComboBox::setModel: cannot set a 0 model"));
        m_control->setModel(nullptr);
        QCOMPARE(m_control->count(), 3);
    }

    void a_model_that_dies_while_the_list_is_open_leaves_an_empty_selector()
    {
        auto model = std::make_unique<QStandardItemModel>();
        model->appendRow(new QStandardItem(Icon(), QStringLiteral("one")));
        m_control->setModel(model.get());
        Open();
        QVERIFY(m_control->hasItemsWithIcons());
        model.reset();
        DrainEvents();
        QCOMPARE(m_control->count(), 0);
        QVERIFY(!m_control->hasItemsWithIcons());
        Render(*m_control);
        Render(*m_control->view());
    }

    void a_model_may_be_replaced_and_items_removed_while_the_list_is_open()
    {
        Fill(20);
        Open();
        while (m_control->count() > 0)
            m_control->removeItem(0);
        DrainEvents();
        auto *model = new QStandardItemModel(m_control);
        model->appendRow(new QStandardItem(QStringLiteral("one")));
        m_control->setModel(model);
        Render(*m_control->view());
        m_control->hidePopup();
        Open();
        QCOMPARE(RowRect(*m_control, 0).height(), kRowHeight);
    }

    void no_rows_wanted_at_all_opens_something_or_nothing()
    {
        m_control->setMaxVisibleItems(0);
        m_control->showPopup();
        DrainEvents();
        m_control->hidePopup();
        DrainEvents();
        QVERIFY(!IsOpen(*m_control));
    }

    void a_selector_may_become_editable_twice_and_back()
    {
        m_control->setEditable(true);
        QLineEdit *edit = m_control->lineEdit();
        m_control->setEditable(true);
        QCOMPARE(m_control->lineEdit(), edit);
        ExpectWarning(QStringLiteral("QComboBox::setLineEdit: cannot set a 0 line edit"));
        m_control->setLineEdit(nullptr);
        m_control->setEditable(false);
        QVERIFY(!m_control->lineEdit());
        Render(*m_control);
    }

    void an_open_selector_may_be_deleted()
    {
        Open();
        delete m_control;
        m_control = nullptr;
        DrainEvents();
    }

    void a_handler_of_a_choice_may_delete_the_selector_later()
    {
        Open();
        const QPointer<QcSelector> selector(m_control);
        connect(m_control, QOverload<int>::of(&QComboBox::activated), m_control, &QObject::deleteLater);
        QTest::keyClick(m_control->view(), Qt::Key_Return);
        DrainEvents();
        QVERIFY(!selector);
        m_control = nullptr;
    }

    void rows_painted_after_the_selectors_end_are_those_of_qt()
    {
        const std::unique_ptr<QAbstractItemDelegate> delegate(m_control->itemDelegate());
        delegate->setParent(nullptr);
        delete m_control;
        m_control = nullptr;
        QStandardItemModel model;
        model.appendRow(new QStandardItem(kBlocks));
        QStyleOptionViewItem option;
        option.rect = QRect(0, 0, 100, kRowHeight);
        option.palette.setColor(QPalette::Text, Qt::blue);
        option.state = QStyle::State_Enabled;
        QImage image(100, kRowHeight, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        delegate->paint(&painter, option, model.index(0, 0));
        painter.end();
        COMPARE_COLOR(MainInk(image, Qt::white), QColor(Qt::blue));
    }

    void a_view_of_the_hosts_works()
    {
        Fill(20);
        m_control->setView(new QTableView);
        QVERIFY(Bars().isEmpty());
        Open();
        QTest::keyClick(m_control->view(), Qt::Key_Down);
        QTest::keyClick(m_control->view(), Qt::Key_Return);
        QCOMPARE(m_control->currentIndex(), 1);
        QVERIFY(!IsOpen(*m_control));
    }

    // --- Assistive technology ---

    void a_screen_reader_hears_name_value_and_state()
    {
        QLabel label(QStringLiteral("&Port"), m_window.get());
        label.setBuddy(m_control);
        QAccessibleInterface *accessible = AccessibleOf(m_control);
        QVERIFY(accessible);
        QCOMPARE(accessible->role(), QAccessible::ComboBox);
        QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Port"));
        QCOMPARE(accessible->text(QAccessible::Value), QStringLiteral("Item 0"));
        QVERIFY(accessible->state().hasPopup && accessible->state().expandable);
        QVERIFY(accessible->state().collapsed && !accessible->state().expanded && !accessible->state().editable);
        Open();
        QVERIFY(accessible->state().expanded && !accessible->state().collapsed);
        m_control->hidePopup();
        m_control->setEditable(true);
        m_control->setEditText(QStringLiteral("typed"));
        QVERIFY(accessible->state().editable);
        QCOMPARE(accessible->text(QAccessible::Value), QStringLiteral("typed"));
        m_control->setAccessibleName(QStringLiteral("Harbour"));
        QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Harbour"));
    }

    void a_selector_without_a_name_goes_by_its_placeholder()
    {
        m_control->setPlaceholderText(QStringLiteral("Port of call"));
        QCOMPARE(AccessibleOf(m_control)->text(QAccessible::Name), QStringLiteral("Port of call"));
    }

    void a_screen_reader_reads_the_rows_and_the_edit()
    {
        QAccessibleInterface *accessible = AccessibleOf(m_control);
        QCOMPARE(accessible->childCount(), 1);
        QAccessibleInterface *list = accessible->child(0);
        QVERIFY(list && list->role() == QAccessible::List);
        QCOMPARE(list->childCount(), 3);
        QCOMPARE(list->child(2)->text(QAccessible::Name), QStringLiteral("Item 2"));
        QCOMPARE(accessible->indexOfChild(list), 0);
        QVERIFY(!accessible->child(1));
        m_control->setEditable(true);
        DrainEvents();
        QCOMPARE(accessible->childCount(), 2);
        QAccessibleInterface *edit = accessible->child(1);
        QVERIFY(edit && edit->role() == QAccessible::EditableText);
        QCOMPARE(accessible->indexOfChild(edit), 1);
        const QPoint inEdit = m_control->mapToGlobal(m_control->lineEdit()->geometry().center());
        QCOMPARE(accessible->childAt(inEdit.x(), inEdit.y()), edit);
        const QPoint onArrow = m_control->mapToGlobal(kArrowPlace.center());
        QVERIFY(!accessible->childAt(onArrow.x(), onArrow.y()));
        QCOMPARE(accessible->indexOfChild(AccessibleOf(m_window.get())), -1);
    }

    void the_edit_of_an_editable_selector_is_called_as_the_selector_is()
    {
        m_control->setEditable(true);
        QAccessibleInterface *edit = AccessibleOf(m_control->lineEdit());
        const auto name = [edit] { return edit->text(QAccessible::Name); };
        QCOMPARE(name(), QString());
        m_control->setPlaceholderText(QStringLiteral("Port of call"));
        QCOMPARE(name(), QStringLiteral("Port of call"));
        QLabel label(QStringLiteral("&Port"), m_window.get());
        label.setBuddy(m_control);
        QCOMPARE(name(), QStringLiteral("Port"));
        m_control->setAccessibleName(QStringLiteral("Harbour"));
        m_control->setAccessibleDescription(QStringLiteral("Where it is unloaded"));
        QCOMPARE(name(), QStringLiteral("Harbour"));
        QCOMPARE(edit->text(QAccessible::Description), QStringLiteral("Where it is unloaded"));
        m_control->lineEdit()->setAccessibleName(QStringLiteral("Harbour's name"));
        QCOMPARE(name(), QStringLiteral("Harbour's name"));
    }

    void an_edit_that_a_host_gives_a_selector_is_called_as_that_is_data()
    {
        QTest::addColumn<bool>("isOurs");
        QTest::newRow("Qt's") << false;
        QTest::newRow("ours") << true;
    }

    void an_edit_that_a_host_gives_a_selector_is_called_as_that_is()
    {
        QFETCH(bool, isOurs);
        m_control->setAccessibleName(QStringLiteral("Harbour"));
        m_control->setLineEdit(isOurs ? new QcLineEdit(m_control) : new QLineEdit(m_control));
        QCOMPARE(AccessibleOf(m_control->lineEdit())->text(QAccessible::Name), QStringLiteral("Harbour"));
    }

    void a_screen_reader_reads_and_writes_in_the_edit_and_hears_of_typing()
    {
        m_control->setEditable(true);
        m_control->setEditText(QStringLiteral("Genoa"));
        QAccessibleInterface *edit = AccessibleOf(m_control->lineEdit());
        QCOMPARE(edit->text(QAccessible::Value), QStringLiteral("Genoa"));
        QCOMPARE(edit->textInterface()->text(1, 3), QStringLiteral("en"));
        edit->editableTextInterface()->replaceText(0, 1, QStringLiteral("Ver"));
        QCOMPARE(m_control->currentText(), QStringLiteral("Verenoa"));
        QVERIFY(edit->state().editable && !edit->state().readOnly);
        AccessibleEvents events(*m_control->lineEdit());
        QTest::keyClick(m_control->lineEdit(), Qt::Key_X);
        QVERIFY(!events.Take().filter(QStringLiteral("Text")).isEmpty());
    }

    void a_line_edit_elsewhere_is_told_by_qt()
    {
        QLineEdit edit;
        edit.setPlaceholderText(QStringLiteral("Port")); // which Qt does not take for a name
        QCOMPARE(AccessibleOf(&edit)->text(QAccessible::Name), QString());
    }

    void a_screen_reader_opens_and_closes_the_list()
    {
        QAccessibleInterface *accessible = AccessibleOf(m_control);
        QVERIFY(accessible->actionInterface()->actionNames().contains(QAccessibleActionInterface::showMenuAction()));
        accessible->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
        QVERIFY(!IsOpen(*m_control)); // assistive technology waits for its call to return
        DrainEvents();
        QVERIFY(IsOpen(*m_control));
        accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        DrainEvents();
        QVERIFY(!IsOpen(*m_control));
        m_control->setEnabled(false);
        QVERIFY(!accessible->actionInterface()->actionNames().contains(QAccessibleActionInterface::showMenuAction()));
    }

    void a_screen_reader_hears_of_another_choice()
    {
        AccessibleEvents events(*m_control);
        m_control->setCurrentIndex(2);
        QVERIFY(events.Take().contains(QStringLiteral("ValueChanged")));
    }

private:
    /// One row, with an icon or without.
    class QStringListResetModel : public QAbstractListModel
    {
    public:
        int rowCount(const QModelIndex &parent) const override { return parent.isValid() ? 0 : 1; }
        QVariant data(const QModelIndex & /*index*/, int role) const override
        {
            return role == Qt::DecorationRole && m_hasIcon ? QVariant(Icon()) : QVariant();
        }
        void Reset(bool hasIcon)
        {
            beginResetModel();
            m_hasIcon = hasIcon;
            endResetModel();
        }

    private:
        bool m_hasIcon = false;
    };

    void Prepare() override
    {
        // Qt takes a release for the end of the click that opened the list until this is over.
        QApplication::setDoubleClickInterval(0);
        m_control->setGeometry(10, 10, 200, 28);
        Fill(3);
    }

    void Fill(int count)
    {
        m_control->clear();
        for (int i = 0; i < count; ++i)
            m_control->addItem(QStringLiteral("Item %1").arg(i));
    }

    void Open()
    {
        m_control->showPopup();
        QVERIFY(IsOpen(*m_control));
        DrainEvents();
    }

    QList<QcScrollBar *> Bars() const { return m_control->view()->findChildren<QcScrollBar *>(); }

    QColor FaceGround(const QColor &canvas) const
    {
        const Table table = GetTable();
        return m_control->isEnabled() ? canvas : Over(TokenOf(table, QStringLiteral("bg/bg_transluent_strong_dis")), canvas);
    }

    static Table GetTable()
    {
        const QColor now = QcStyleManager::GetInstance()->GetColor(QStringLiteral("text/text_primary"));
        return now == TokenOf(Table::Light, QStringLiteral("text/text_primary")) ? Table::Light : Table::Dark;
    }

    /// The face without border and arrow.
    QImage FaceText(const QColor &canvas) { return Part(Render(*m_control, canvas), QRectF(4, 4, 160, 20)); }

    QImage FaceArrow() { return Part(Render(*m_control), QRectF(kArrowPlace.adjusted(4, 4, -4, -4))); }

    QImage RowTick(int row) { return Part(RowPicture(*m_control, row), QRectF(0, 0, 27, kRowHeight)); }

    /// Where the text of a row begins, looked for from \a from on.
    qreal TextLeft(int row, qreal from = 0)
    {
        const QImage picture = Part(RowPicture(*m_control, row), QRectF(from, 0, 150 - from, kRowHeight));
        return InkBox(picture, picture.pixelColor(0, 0)).left() + from;
    }
};

VELMORA_TEST_MAIN(TestQcSelector)

#include "tst_QcSelector.moc"
