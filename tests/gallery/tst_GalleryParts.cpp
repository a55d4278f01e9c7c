#include "gallery/GalleryTestCase.h"
#include "support/TestMain.h"

#include "GalleryWindow.h"
#include "Page.h"

#include <Velmora/QcLineEdit.h>
#include <Velmora/QcLineEditFrame.h>
#include <Velmora/XlsxTemplate.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QSet>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QWindow>

using namespace Gallery;
using namespace VelmoraTest;

namespace {

/// What of Qt the kit has a control for.
const QSet<QByteArray> kPlain = {"QLineEdit", "QTextEdit",    "QPlainTextEdit", "QSpinBox",       "QDoubleSpinBox",
                                 "QComboBox", "QSlider",      "QScrollBar",     "QPushButton",    "QToolButton",
                                 "QCheckBox", "QRadioButton", "QProgressBar",   "QStackedWidget", "QMenu"};
/// What of the kit hosts put widgets into.
const QSet<QByteArray> kContainers = {"Velmora::QcFrame", "Velmora::QcWindow", "Velmora::QcStackedWidget"};

/// Whether \a widget is a part of a control of the kit.
bool IsPart(const QWidget *widget)
{
    for (widget = widget->parentWidget(); widget; widget = widget->parentWidget()) {
        const QByteArray name = widget->metaObject()->className();
        if (name.startsWith("Velmora::") && !kContainers.contains(name))
            return true;
    }
    return false;
}

} // namespace

/// What the gallery is made of.
class TestGalleryParts : public GalleryTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void pictures_of_tips_follow_the_table()
    {
        GalleryWindow window(Gallery::Table::Light);
        QVERIFY(window.ShowPage(QStringLiteral("arrowtip")));
        window.show();
        DrainEvents();
        QLabel *picture = nullptr;
        for (QLabel *label : window.findChildren<QLabel *>())
            picture = label->accessibleName() == QLatin1String("Back") ? label : picture;
        QVERIFY(picture);
        for (const Gallery::Table table : kTables) {
            window.SetTable(table);
            DrainEvents();
            const QImage image = picture->pixmap(Qt::ReturnByValue).toImage();
            QCOMPARE(image.pixelColor(6, image.height() / 2), TokenColor(QStringLiteral("base/neutral/neutral_invert")));
        }
    }

    void menus_of_a_page_have_a_filled_item_whenever_it_is_opened()
    {
        GalleryWindow window(Gallery::Table::Light);
        window.show();
        for (const char *page : {"menu", "buttons", "menu"})
            QVERIFY(window.ShowPage(QLatin1String(page)));
        DrainEvents();
        int open = 0;
        for (const QMenu *menu : window.findChildren<QMenu *>()) {
            if (!menu->isVisible())
                continue;
            ++open;
            QVERIFY2(menu->activeAction(), qPrintable(menu->title()));
        }
        QCOMPARE(open, 5);
    }

    void a_page_shows_no_control_of_qt_that_the_kit_has_data()
    {
        QTest::addColumn<QString>("page");
        const QVector<PageInfo> pages = Pages();
        for (const PageInfo &page : pages) {
            if (page.id != QLatin1String("plainwidgets")) // which is there to show them
                QTest::addRow("%s", qPrintable(page.id)) << page.id;
        }
    }

    void a_page_shows_no_control_of_qt_that_the_kit_has()
    {
        QFETCH(QString, page);
        GalleryWindow window(Gallery::Table::Light);
        QVERIFY(window.ShowPage(page));
        window.show();
        DrainEvents();
        const QList<QWidget *> widgets = window.findChildren<QWidget *>();
        for (const QWidget *widget : widgets) {
            const bool isPlain = kPlain.contains(widget->metaObject()->className());
            QVERIFY2(!isPlain || !widget->isVisible() || IsPart(widget), qPrintable(widget->objectName()));
        }
    }

    void a_cell_is_edited_in_a_field_of_the_kit()
    {
        GalleryWindow window(Gallery::Table::Light);
        QVERIFY(window.ShowPage(QStringLiteral("spreadsheets")));
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        auto *table = window.findChild<QTableWidget *>(QStringLiteral("spreadsheetElements"));
        constexpr int kContent = 2;
        const auto edit = [&](int row) -> Velmora::QcLineEdit * {
            table->setFocus();
            table->setCurrentCell(row, kContent);
            table->editItem(table->item(row, kContent));
            auto *field = table->viewport()->findChild<Velmora::QcLineEditFrame *>();
            return field ? field->getLineEdit() : nullptr;
        };

        Velmora::QcLineEdit *field = edit(0);
        QVERIFY(field && field->hasFocus());
        QCOMPARE(field->text(), table->item(0, kContent)->text());
        field->selectAll();
        QTest::keyClicks(field, QStringLiteral("123"));
        QTest::keyClick(field, Qt::Key_Return);
        DrainEvents();
        QCOMPARE(table->item(0, kContent)->text(), QStringLiteral("123"));
        QVERIFY(!table->viewport()->findChild<Velmora::QcLineEditFrame *>());

        field = edit(0);
        QTest::keyClicks(field, QStringLiteral("4"));
        QTest::keyClick(field, Qt::Key_Escape);
        DrainEvents();
        QCOMPARE(table->item(0, kContent)->text(), QStringLiteral("123"));
        QVERIFY(!table->viewport()->findChild<Velmora::QcLineEditFrame *>());

        field = edit(0);
        field->selectAll();
        QTest::keyClicks(field, QStringLiteral("5"));
        window.findChild<QWidget *>(QStringLiteral("searchField"))->setFocus();
        DrainEvents();
        QCOMPARE(table->item(0, kContent)->text(), QStringLiteral("5"));
        QVERIFY(!table->viewport()->findChild<Velmora::QcLineEditFrame *>());
    }

    void an_invoice_is_filled_in_while_it_is_typed_and_says_what_it_refuses()
    {
        GalleryWindow window(Gallery::Table::Light);
        QVERIFY(window.ShowPage(QStringLiteral("spreadsheets")));
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const auto field = [&](const char *name) { return window.findChild<Velmora::QcLineEditFrame *>(QLatin1String(name)); };
        const auto press = [&](const char *name) { window.findChild<QAbstractButton *>(QLatin1String(name))->click(); };
        const auto *names = window.findChild<QTableWidget *>(QStringLiteral("invoiceNames"));
        const auto *message = window.findChild<QLabel *>(QStringLiteral("invoiceMessage"));
        const auto *save = window.findChild<QAbstractButton *>(QStringLiteral("invoiceSave"));
        auto *terms = window.findChild<QComboBox *>(QStringLiteral("invoiceTerms"));
        constexpr int kKind = 1;
        constexpr int kPlace = 2;
        constexpr int kContent = 3;
        const auto textOf = [&](const char *name, int column) {
            const QList<QTableWidgetItem *> found = names->findItems(QLatin1String(name), Qt::MatchExactly);
            return found.isEmpty() ? QStringLiteral("no such name") : names->item(found.first()->row(), column)->text();
        };
        const auto isRefused = [&](const QString &reason) { return !save->isEnabled() && message->text().contains(reason); };
        QVERIFY2(save->isEnabled(), qPrintable(message->text()));
        QCOMPARE(textOf("Customer", kContent), QStringLiteral("ACME Ltd"));
        QCOMPARE(textOf("Terms", kKind), QStringLiteral("list: 14 days, 30 days, 60 days"));

        QTest::keyClick(field("invoiceDate")->getLineEdit(), Qt::Key_Backspace);
        QVERIFY(isRefused(QStringLiteral("Date: ")));
        QVERIFY(field("invoiceDate")->getWarning());
        QCOMPARE(textOf("Date", kContent), QString());
        field("invoiceDate")->setText(QStringLiteral("2026-12-24"));
        QVERIFY(save->isEnabled() && !field("invoiceDate")->getWarning());
        QCOMPARE(textOf("Date", kContent), QStringLiteral("2026-12-24"));

        terms->setCurrentText(QStringLiteral("At once"));
        QVERIFY(isRefused(QStringLiteral("14 days")));
        QCOMPARE(textOf("Terms", kContent), QStringLiteral("30 days"));
        terms->setCurrentIndex(0);
        QCOMPARE(textOf("Terms", kContent), QStringLiteral("14 days"));

        field("invoiceLogo")->setText(QStringLiteral("/no/such/logo.png"));
        QVERIFY(isRefused(QStringLiteral("/no/such/logo.png")));
        field("invoiceLogo")->clear();
        QVERIFY(save->isEnabled());

        QCOMPARE(textOf("Total", kPlace), QStringLiteral("Invoice!$D$11"));
        press("invoiceAddItem");
        QCOMPARE(textOf("Items", kContent), QStringLiteral("3 rows: Chair, Desk, oak, Item 3"));
        QCOMPARE(textOf("Total", kPlace), QStringLiteral("Invoice!$D$12"));
        for (int i = 0; i < 3; ++i)
            press("invoiceRemoveItem");
        QVERIFY(textOf("Items", kKind).contains(QLatin1String("#REF!")));
        QVERIFY(!window.findChild<QAbstractButton *>(QStringLiteral("invoiceRemoveItem"))->isEnabled());
        QVERIFY(save->isEnabled());
    }

    void an_invoice_is_saved_where_the_user_says()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("invoice.xlsx"));
        GalleryWindow window(Gallery::Table::Light);
        QVERIFY(window.ShowPage(QStringLiteral("spreadsheets")));
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const auto saveAs = [&](const QString &file) {
            QTimer::singleShot(0, &window, [&file] {
                auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
                dialog->selectFile(file);
                static_cast<QDialog *>(dialog)->accept();
            });
            window.findChild<QAbstractButton *>(QStringLiteral("invoiceSave"))->click();
            return window.findChild<QLabel *>(QStringLiteral("invoiceMessage"))->text();
        };
        QCOMPARE(saveAs(path), QStringLiteral("Saved to %1.").arg(path));
        Velmora::XlsxTemplate saved;
        QVERIFY(saved.load(path));
        QCOMPARE(saved.value(QStringLiteral("Customer")), QVariant(QStringLiteral("ACME Ltd")));
    }
};

VELMORA_TEST_MAIN(TestGalleryParts)

#include "tst_GalleryParts.moc"
