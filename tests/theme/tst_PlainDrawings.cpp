#include "contrast/Measures.h"
#include "support/Pixels.h"
#include "support/TestMain.h"
#include "theme/TokenNow.h"

#include <Velmora/PlainWidgets.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDial>
#include <QDockWidget>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QMessageBox>
#include <QPainter>
#include <QStyleFactory>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTextCharFormat>
#include <QToolBar>
#include <QToolButton>
#include <QToolTip>

#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

constexpr double kReadable = 4.5;

/// What the drawing of a meaning must have in \a table.
double WantedOfDrawings(const QString &table)
{
    return table.startsWith(QLatin1String("contrast")) ? 3 : 2;
}

/// How much of \a widget stands out of the \a ground on which it lies.
double ContrastOn(QWidget &widget, const QColor &ground)
{
    return Contrast(InkColor(Render(widget, ground), ground), ground);
}

/// How much the pixels of \a part stand out of the one in its corner.
double ContrastIn(const QImage &picture, const QRect &part)
{
    const QImage image = Part(picture, part);
    const QColor ground = image.pixelColor(0, 0);
    return Contrast(InkColor(image, ground), ground);
}

/// A column through the middle of \a action, from above to below it.
QRect Across(const QMenu &menu, QAction *action)
{
    const QRect item = menu.actionGeometry(action);
    return QRect(item.center().x(), item.top(), 1, item.height());
}

/// The box before its label.
QRect BoxOf(const QMenu &menu, QAction *action)
{
    return menu.actionGeometry(action).adjusted(1, 1, 0, -1).intersected(QRect(0, 0, 20, 1000));
}

void FillWithSeparator(QComboBox &box)
{
    box.addItems({QString(3, QChar(0x2588)), QString(3, QChar(0x2588))}); // full blocks, whose colour is the text's
    box.insertSeparator(1);
}

QRect RowOf(const QComboBox &box, int row)
{
    return box.view()->visualRect(box.model()->index(row, 0));
}

QToolButton *ArrowsOf(const QToolBar &bar)
{
    return bar.findChild<QToolButton *>(QStringLiteral("qt_toolbar_ext_button"));
}

void FillTooFull(QToolBar &bar)
{
    for (int i = 0; i < 20; ++i)
        bar.addAction(QStringLiteral("Action"));
}

/// What is painted of the left edge of \a group, half way down.
QImage EdgeOf(QGroupBox &group)
{
    return Part(Render(group), QRect(0, group.height() / 2, 6, 1));
}

/// \a visit with each table, whose name it gets.
template <typename Visit>
void InEveryTable(const Visit &visit)
{
    for (const QString &table : TableNames()) {
        UseTableNamed(table);
        DrainEvents();
        visit(table);
    }
}

QFont LargeFont(const QWidget &widget)
{
    QFont font = widget.font();
    font.setPixelSize(40); // strokes that cover pixels whole
    return font;
}

/// The cell of \a text in the month that \a calendar shows: the colour of its ground, and of its text.
QPair<QColor, QColor> CellOf(QCalendarWidget &calendar, const QString &text)
{
    auto *view = calendar.findChild<QTableView *>();
    const QAbstractItemModel &model = *view->model();
    for (int row = 0; row < model.rowCount(); ++row) {
        for (int column = 1; column < model.columnCount(); ++column) {
            const QModelIndex index = model.index(row, column);
            if (index.data().toString() != text)
                continue;
            const QImage cell = Part(Render(*view->viewport()), view->visualRect(index));
            const QColor ground = MainInk(cell, Qt::transparent);
            return {ground, InkColor(cell, ground)};
        }
    }
    return {};
}

} // namespace

/// What Qt draws in colours of its own, beside texts in those of the palette.
class TestPlainDrawings : public TestCase
{
    Q_OBJECT

protected:
    void SetUp() override
    {
        UseTable(Table::Light);
        SetPlainWidgetsFollowTable(true);
    }
    void TearDown() override
    {
        SetPlainWidgetsFollowTable(false);
        UseTable(Table::Light);
    }

private Q_SLOTS:
    void initTestCase() { QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion"))); }

    void weekends_can_be_read_in_every_table()
    {
        QCalendarWidget calendar;
        calendar.setLocale(QLocale::c());
        calendar.setSelectedDate(QDate(2026, 11, 3));
        calendar.setFont(LargeFont(calendar));
        calendar.resize(800, 600);
        calendar.show();
        DrainEvents();
        for (const QString &table : TableNames()) {
            UseTableNamed(table);
            DrainEvents();
            for (const char *text : {"Sat", "Sun", "Mon", "21", "22", "23"}) {
                const auto cell = CellOf(calendar, QLatin1String(text));
                const double contrast = Contrast(cell.second, cell.first);
                QVERIFY2(contrast >= kReadable, qPrintable(QStringLiteral("%1 in %2: %3").arg(QLatin1String(text), table).arg(contrast)));
            }
            const QColor weekend = CellOf(calendar, QStringLiteral("21")).second;
            QVERIFY(weekend.red() > weekend.green() + 40);
        }
    }

    void a_weekend_gets_its_own_red_back()
    {
        QCalendarWidget early;
        early.ensurePolished();
        UseTable(Table::Dark);
        QCalendarWidget late;
        QCalendarWidget never; // shown
        late.ensurePolished();
        for (QCalendarWidget *calendar : {&early, &late})
            QVERIFY(calendar->weekdayTextFormat(Qt::Sunday).foreground().color() != QColor(Qt::red));
        SetPlainWidgetsFollowTable(false);
        for (QCalendarWidget *calendar : {&early, &late, &never})
            QCOMPARE(calendar->weekdayTextFormat(Qt::Sunday).foreground().color(), QColor(Qt::red));
    }

    void a_hosts_format_of_a_weekend_wins()
    {
        QCalendarWidget calendar;
        calendar.ensurePolished();
        QTextCharFormat own;
        own.setForeground(QColor(calendar.weekdayTextFormat(Qt::Sunday).foreground().color().rgb())); // even if it looks the same
        own.setFontItalic(true);
        calendar.setWeekdayTextFormat(Qt::Sunday, own);
        for (const QString &table : TableNames()) {
            UseTableNamed(table);
            QCOMPARE(calendar.weekdayTextFormat(Qt::Sunday), own);
        }
        SetPlainWidgetsFollowTable(false);
        QCOMPARE(calendar.weekdayTextFormat(Qt::Sunday), own);
    }

    void a_dial_can_be_seen_in_every_table()
    {
        for (const bool hasNotches : {false, true}) {
            QDial dial;
            dial.setNotchesVisible(hasNotches);
            dial.resize(120, 120);
            for (const QString &table : TableNames()) {
                UseTableNamed(table);
                const double contrast = ContrastOn(dial, TokenNow("bg/bg_box"));
                QVERIFY2(contrast >= WantedOfDrawings(table), qPrintable(QStringLiteral("%1: %2").arg(table).arg(contrast)));
            }
        }
    }

    void icons_of_message_boxes_stand_out()
    {
        for (const QString &table : TableNames()) {
            UseTableNamed(table);
            for (const auto icon : {QMessageBox::Information, QMessageBox::Question, QMessageBox::Warning, QMessageBox::Critical}) {
                QMessageBox box(icon, QString(), QString());
                auto *label = box.findChild<QLabel *>(QStringLiteral("qt_msgboxex_icon_label"));
                QVERIFY(label);
                const double contrast = ContrastOn(*label, TokenNow("bg/bg_box"));
                QVERIFY2(contrast >= 3, qPrintable(QStringLiteral("%1, %2: %3").arg(icon).arg(table).arg(contrast)));
            }
        }
    }

    void the_buttons_of_a_dock_widget_stand_out()
    {
        QMainWindow window;
        auto *dock = new QDockWidget(QStringLiteral("Dock"), &window);
        window.addDockWidget(Qt::LeftDockWidgetArea, dock);
        window.resize(300, 200);
        window.show();
        for (const QString &table : TableNames()) {
            UseTableNamed(table);
            DrainEvents();
            for (const char *name : {"qt_dockwidget_closebutton", "qt_dockwidget_floatbutton"}) {
                auto *button = dock->findChild<QAbstractButton *>(QLatin1String(name));
                QVERIFY(button);
                const double contrast = ContrastOn(*button, TokenNow("bg/bg_box"));
                QVERIFY2(contrast >= WantedOfDrawings(table),
                         qPrintable(QStringLiteral("%1 in %2: %3").arg(QLatin1String(name), table).arg(contrast)));
            }
        }
    }

    void separators_and_empty_boxes_of_a_menu_can_be_seen()
    {
        QMenu menu;
        menu.addAction(QStringLiteral("Open"));
        QAction *separator = menu.addSeparator();
        QAction *box = menu.addAction(QStringLiteral("Empty"));
        box->setCheckable(true);
        QAction *section = menu.addSection(QStringLiteral("S"));
        menu.addAction(QStringLiteral("A label that is long enough"));
        menu.popup(QPoint(10, 10));
        InEveryTable([&](const QString &table) {
            const QImage picture = Render(menu);
            for (const QRect &part : {Across(menu, separator), BoxOf(menu, box), Across(menu, section)}) {
                const double contrast = ContrastIn(picture, part);
                QVERIFY2(contrast >= WantedOfDrawings(table), qPrintable(QStringLiteral("%1: %2").arg(table).arg(contrast)));
            }
        });
    }

    void texts_and_separators_of_an_open_combo_box_can_be_seen_data()
    {
        QTest::addColumn<bool>("isEditable");
        QTest::newRow("as a menu") << false;
        QTest::newRow("as a list") << true;
    }

    void texts_and_separators_of_an_open_combo_box_can_be_seen()
    {
        QFETCH(bool, isEditable);
        QComboBox box;
        FillWithSeparator(box);
        box.setEditable(isEditable);
        box.show();
        box.showPopup();
        InEveryTable([&](const QString &table) {
            const QImage picture = Render(*box.view()->viewport());
            for (const int row : {0, 1, 2}) {
                const double contrast = ContrastIn(picture, RowOf(box, row));
                const double wanted = row == 1 ? WantedOfDrawings(table) : kReadable;
                QVERIFY2(contrast >= wanted, qPrintable(QStringLiteral("%1, row %2: %3").arg(table).arg(row).arg(contrast)));
            }
        });
    }

    void a_hosts_rows_of_a_combo_box_win()
    {
        struct Magenta : QStyledItemDelegate
        {
            void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &) const override
            {
                painter->fillRect(option.rect, Qt::magenta);
            }
        };
        UseTable(Table::Dark);
        QComboBox box;
        FillWithSeparator(box);
        Magenta delegate;
        box.setItemDelegate(&delegate);
        box.show();
        box.showPopup();
        DrainEvents();
        QCOMPARE(InkBox(Part(Render(*box.view()->viewport()), RowOf(box, 1)), Qt::magenta), QRectF());
        box.hidePopup();
    }

    void separators_of_a_tool_bar_can_be_seen()
    {
        for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
            QToolBar bar;
            bar.setOrientation(orientation);
            bar.addAction(QStringLiteral("Open"));
            QAction *separator = bar.addSeparator();
            bar.addAction(QStringLiteral("Close"));
            bar.show();
            InEveryTable([&](const QString &table) {
                const double contrast = ContrastIn(Render(bar, TokenNow("bg/bg_box")), bar.actionGeometry(separator));
                QVERIFY2(contrast >= WantedOfDrawings(table), qPrintable(QStringLiteral("%1: %2").arg(table).arg(contrast)));
            });
        }
    }

    void a_menu_in_another_style_has_its_ground()
    {
        UseTable(Table::Dark);
        const std::unique_ptr<QStyle> style(QStyleFactory::create(QStringLiteral("Windows")));
        QMenu menu;
        menu.setStyle(style.get());
        menu.addAction(QStringLiteral("Open"));
        menu.popup(QPoint(10, 10));
        DrainEvents();
        QImage picture(menu.size(), QImage::Format_ARGB32);
        picture.fill(Qt::transparent);
        menu.render(&picture);
        for (int x = 0; x < picture.width(); ++x) {
            for (int y = 0; y < picture.height(); ++y)
                QCOMPARE(picture.pixelColor(x, y).alpha(), 255);
        }
    }

    void the_title_of_a_section_stays_and_its_line_stands_beside_it()
    {
        UseTable(Table::Dark);
        QMenu menu;
        menu.addAction(QStringLiteral("Open"));
        QAction *section = menu.addSection(QString(5, QChar(0x2588)));
        menu.addAction(QStringLiteral("A label that is long enough"));
        menu.popup(QPoint(10, 10));
        DrainEvents();
        const QRect item = menu.actionGeometry(section);
        const QImage picture = Render(menu);
        COMPARE_COLOR(PixelAt(picture, QPointF(item.right() - 20, item.center().y())), menu.palette().color(QPalette::Window).darker(140));
        COMPARE_COLOR(PixelAt(picture, QPointF(item.left() + 15, item.center().y())), menu.palette().color(QPalette::Text));
    }

    void a_hosts_separators_win()
    {
        UseTable(Table::Dark);
        QMenu menu;
        menu.setStyleSheet(QStringLiteral("QMenu::separator { height: 9px; background: #ff00ff }"));
        menu.addAction(QStringLiteral("Open"));
        QAction *separator = menu.addSeparator();
        menu.addAction(QStringLiteral("Close"));
        menu.popup(QPoint(10, 10));
        DrainEvents();
        COMPARE_COLOR(PixelAt(Render(menu), menu.actionGeometry(separator).center()), QColor(Qt::magenta));
    }

    void the_arrows_of_a_narrow_tool_bar_can_be_seen()
    {
        QMainWindow window;
        auto *bar = window.addToolBar(QString());
        FillTooFull(*bar);
        window.resize(200, 200);
        window.show();
        for (const auto area : {Qt::TopToolBarArea, Qt::LeftToolBarArea}) {
            window.addToolBar(area, bar);
            InEveryTable([&](const QString &table) {
                auto *arrows = ArrowsOf(*bar);
                QVERIFY(arrows->isVisible());
                const double contrast = ContrastOn(*arrows, TokenNow("bg/bg_box"));
                QVERIFY2(contrast >= WantedOfDrawings(table), qPrintable(QStringLiteral("%1: %2").arg(table).arg(contrast)));
            });
        }
    }

    void arrows_get_their_own_icon_back_and_a_hosts_icon_wins()
    {
        QToolBar bar;
        QToolBar hosts;
        FillTooFull(bar);
        FillTooFull(hosts);
        QPixmap own(16, 16);
        own.fill(Qt::magenta);
        ArrowsOf(hosts)->setIcon(own);
        const QImage before = ArrowsOf(bar)->icon().pixmap(16).toImage();
        UseTable(Table::Dark);
        for (QToolBar *one : {&bar, &hosts}) {
            one->resize(100, 30);
            one->show();
            DrainEvents();
            Render(*one);
        }
        QVERIFY(ArrowsOf(bar)->icon().pixmap(16).toImage() != before);
        QCOMPARE(ArrowsOf(hosts)->icon().pixmap(16).toImage(), own.toImage());
        SetPlainWidgetsFollowTable(false);
        QCOMPARE(ArrowsOf(bar)->icon().pixmap(16).toImage(), before);
        QCOMPARE(ArrowsOf(hosts)->icon().pixmap(16).toImage(), own.toImage());
    }

    void the_outline_of_a_group_can_be_seen()
    {
        for (const bool isCheckable : {false, true}) {
            QGroupBox group(QStringLiteral("Group"));
            group.setCheckable(isCheckable);
            group.resize(120, 80);
            InEveryTable([&](const QString &table) {
                const QColor ground = TokenNow("bg/bg_box");
                const QImage picture = Render(group, ground);
                for (const QRect &part : {QRect(0, 50, 6, 1), QRect(114, 50, 6, 1), QRect(100, 74, 1, 6), QRect(100, 10, 1, 25)}) {
                    const double contrast = Contrast(InkColor(Part(picture, part), ground), ground);
                    QVERIFY2(contrast >= WantedOfDrawings(table), qPrintable(QStringLiteral("%1: %2").arg(table).arg(contrast)));
                }
                QCOMPARE(InkBox(Part(picture, QRect(100, 0, 20, 10)), ground), QRectF()); // beside the title
            });
        }
    }

    void a_hosts_group_keeps_its_own_border_and_painting()
    {
        struct Empty : QGroupBox
        {
            void paintEvent(QPaintEvent *) override {}
        };
        UseTable(Table::Dark);
        Empty empty;
        QGroupBox styled;
        styled.setStyleSheet(QStringLiteral("QGroupBox { border: 6px solid #ff00ff; background: #ff00ff }"));
        for (QGroupBox *group : {static_cast<QGroupBox *>(&empty), &styled})
            group->resize(120, 80);
        COMPARE_COLOR(EdgeOf(styled).pixelColor(0, 0), QColor(Qt::magenta));
        COMPARE_COLOR(EdgeOf(styled).pixelColor(5, 0), QColor(Qt::magenta));
        COMPARE_COLOR(EdgeOf(empty).pixelColor(0, 0), EdgeOf(empty).pixelColor(5, 0));
    }

    void a_tool_tip_can_be_read_in_every_table()
    {
        QWidget widget;
        widget.show();
        for (const QString &table : TableNames()) {
            UseTableNamed(table);
            QToolTip::showText(QPoint(10, 10), QStringLiteral("<span style=\"font-size: 40px\">HIT</span>"), &widget);
            const QWidgetList windows = QApplication::topLevelWidgets();
            const auto isTip = [](const QWidget *window) { return window->inherits("QTipLabel") && window->isVisible(); };
            const auto tip = std::find_if(windows.begin(), windows.end(), isTip);
            QVERIFY(tip != windows.end());
            const QImage picture = Render(**tip);
            const QColor ground = MainInk(picture, Qt::transparent);
            COMPARE_COLOR(ground, TokenNow("bg/bg_float"));
            QVERIFY(Contrast(InkColor(picture, ground), ground) >= kReadable);
            delete *tip;
        }
    }

    void qts_file_dialog_can_be_read_and_the_systems_stays_first_choice()
    {
        QVERIFY(!QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs));
        QVERIFY(!QFileDialog().testOption(QFileDialog::DontUseNativeDialog));
        QFileDialog dialog;
        dialog.setOption(QFileDialog::DontUseNativeDialog);
        dialog.setFont(LargeFont(dialog));
        dialog.resize(900, 600);
        dialog.show();
        for (const QString &table : TableNames()) {
            UseTableNamed(table);
            DrainEvents();
            auto *label = dialog.findChild<QLabel *>(QStringLiteral("fileNameLabel"));
            QVERIFY(label);
            const QImage picture = Part(Render(dialog), QRect(label->mapTo(&dialog, QPoint()), label->size()));
            QVERIFY(Contrast(InkColor(picture, TokenNow("bg/bg_box")), TokenNow("bg/bg_box")) >= kReadable);
        }
    }
};

VELMORA_TEST_MAIN(TestPlainDrawings)
#include "tst_PlainDrawings.moc"
