#include "contrast/Measures.h"
#include "support/Pixels.h"
#include "support/TestMain.h"
#include "theme/TokenNow.h"

#include <Velmora/PlainWidgets.h>

#include <QApplication>
#include <QCalendarWidget>
#include <QDial>
#include <QDockWidget>
#include <QFileDialog>
#include <QLabel>
#include <QMainWindow>
#include <QMessageBox>
#include <QStyleFactory>
#include <QTableView>
#include <QTextCharFormat>
#include <QToolButton>
#include <QToolTip>

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
