#include "gallery/GalleryTestCase.h"
#include "support/TestMain.h"

#include "GalleryWindow.h"
#include "Page.h"

#include <Velmora/QcLineEdit.h>
#include <Velmora/QcLineEditFrame.h>

#include <QSet>
#include <QTableWidget>
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
    void a_page_shows_no_control_of_qt_that_the_kit_has_data()
    {
        QTest::addColumn<QString>("page");
        const QVector<PageInfo> pages = Pages();
        for (const PageInfo &page : pages)
            QTest::addRow("%s", qPrintable(page.id)) << page.id;
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
};

VELMORA_TEST_MAIN(TestGalleryParts)

#include "tst_GalleryParts.moc"
