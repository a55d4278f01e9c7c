#include "contrast/Measures.h"
#include "core/QtCompatibility_p.h"
#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/TestMain.h"
#include "theme/PlainSpecimens.h"
#include "theme/TokenNow.h"

#include <Velmora/PlainWidgets.h>
#include <Velmora/QcButton.h>
#include <Velmora/QcLineEdit.h>

#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QMdiArea>
#include <QPushButton>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTemporaryDir>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

constexpr double kReadable = 4.5;

/// Of a host, with a class of its own.
class HostButton : public QcButton
{
    Q_OBJECT

public:
    using QcButton::QcButton;
};

} // namespace

/// Plain widgets of Qt in the colours of the table.
class TestPlainWidgets : public TestCase
{
    Q_OBJECT

protected:
    void SetUp() override { UseTable(Table::Light); }
    void TearDown() override
    {
        SetPlainWidgetsFollowTable(false);
        UseTable(Table::Light);
    }

private Q_SLOTS:
    void initTestCase() { QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion"))); }

    void it_is_off_until_a_host_asks()
    {
        QVERIFY(!PlainWidgetsFollowTable());
        const QPalette before = QApplication::palette();
        UseTable(Table::Dark);
        QCOMPARE(QApplication::palette(), before);
        QVERIFY(ContrastOfText(PlainSpecimens().first().make) < 1.5); // black on dark grey
    }

    void every_text_can_be_read_data()
    {
        QTest::addColumn<QString>("table");
        QTest::addColumn<int>("specimen");
        const QStringList tables = TableNames();
        for (const QString &table : tables) {
            int index = 0;
            for (const Specimen &specimen : PlainSpecimens())
                QTest::addRow("%s, %s", qPrintable(table), specimen.name) << table << index++;
        }
    }

    void every_text_can_be_read()
    {
        QFETCH(QString, table);
        QFETCH(int, specimen);
        SetPlainWidgetsFollowTable(true);
        UseTableNamed(table);
        DrainEvents();
        const double contrast = ContrastOfText(PlainSpecimens().at(specimen).make);
        QVERIFY2(contrast >= kReadable, qPrintable(QString::number(contrast)));
    }

    void every_role_is_of_the_table_and_opaque()
    {
        SetPlainWidgetsFollowTable(true);
        for (const QString &table : TableNames()) {
            UseTableNamed(table);
            const QPalette palette = QApplication::palette();
            for (int role = 0; role < QPalette::NColorRoles; ++role) {
                if (role == QPalette::NoRole)
                    continue;
                for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
                    QVERIFY2(palette.isBrushSet(group, QPalette::ColorRole(role)), qPrintable(QString::number(role)));
                    QCOMPARE(palette.color(group, QPalette::ColorRole(role)).alpha(), 255);
                }
            }
            QCOMPARE(palette.color(QPalette::Window), TokenNow("bg/bg_box"));
            COMPARE_COLOR(palette.color(QPalette::WindowText), Over(TokenNow("text/text_primary"), TokenNow("bg/bg_box")));
            COMPARE_COLOR(palette.color(QPalette::Disabled, QPalette::WindowText),
                          Over(TokenNow("text/text_disabled"), TokenNow("bg/bg_box")));
        }
    }

    void an_empty_check_box_can_be_seen_in_every_table()
    {
        SetPlainWidgetsFollowTable(true);
        for (const QString &table : TableNames()) {
            UseTableNamed(table);
            QCheckBox box;
            box.setText(QString());
            const QColor ground = TokenNow("bg/bg_box");
            const double contrast = Contrast(InkColor(Render(box, ground), ground), ground);
            QVERIFY2(contrast >= (table.startsWith(QLatin1String("contrast")) ? 3.0 : 2.0), qPrintable(QString::number(contrast)));
        }
    }

    void a_change_of_table_is_one_change_of_palette()
    {
        SetPlainWidgetsFollowTable(true);
        QLabel label;
        QPushButton button;
        HostButton kit;
        for (QWidget *widget : {static_cast<QWidget *>(&label), static_cast<QWidget *>(&button), static_cast<QWidget *>(&kit)})
            widget->ensurePolished();
        EventCounter ofLabel(label, QEvent::PaletteChange);
        EventCounter ofButton(button, QEvent::PaletteChange);
        EventCounter ofKit(kit, QEvent::PaletteChange);
        UseTable(Table::Dark);
        QCOMPARE(ofLabel.Take(), 1);
        QVERIFY(ofButton.Take() <= 2); // it has a palette of its class, told after the common one
        QCOMPARE(ofKit.Take(), 0);
    }

    void what_the_kit_paints_by_the_palette_stays()
    {
        const QPalette before = QApplication::palette();
        HostButton early;
        QcLineEdit field;
        field.ensurePolished();
        early.ensurePolished();
        SetPlainWidgetsFollowTable(true);
        UseTable(Table::Dark);
        HostButton late;
        late.ensurePolished();
        QCOMPARE(early.palette().color(QPalette::ButtonText), before.color(QPalette::ButtonText));
        QCOMPARE(late.palette().color(QPalette::ButtonText), before.color(QPalette::ButtonText));
        QCOMPARE(field.palette().color(QPalette::Highlight), before.color(QPalette::Highlight));
    }

    void off_again_brings_back_what_was()
    {
        QPalette own(Qt::green);
        QApplication::setPalette(own, "QLabel");
        const QPalette before = QApplication::palette();
        const QString sheet = qApp->styleSheet();
        QLabel label;
        QMdiArea area;
        label.ensurePolished();
        const QPalette ofLabel = label.palette();
        const QBrush ground = area.background();
        SetPlainWidgetsFollowTable(true);
        UseTable(Table::Dark);
        QVERIFY(QApplication::palette() != before);
        QCOMPARE(label.palette().color(QPalette::WindowText), QApplication::palette().color(QPalette::WindowText));
        QVERIFY(area.background() != ground);
        SetPlainWidgetsFollowTable(false);
        QCOMPARE(QApplication::palette(), before);
        QCOMPARE(ResolveMaskOf(QApplication::palette()), ResolveMaskOf(before));
        QCOMPARE(qApp->styleSheet(), sheet);
        QCOMPARE(label.palette(), ofLabel);
        QCOMPARE(area.background(), ground);
        QCOMPARE(QApplication::palette("QLabel"), own);
        QCOMPARE(QApplication::palette("QPushButton"), before);
        UseTable(Table::Light);
        QCOMPARE(QApplication::palette(), before);
        QApplication::setPalette(before, "QLabel");
    }

    void a_hosts_palette_of_a_widget_wins()
    {
        QLabel label;
        QPalette own;
        own.setColor(QPalette::WindowText, Qt::magenta);
        label.setPalette(own);
        SetPlainWidgetsFollowTable(true);
        UseTable(Table::Dark);
        QCOMPARE(label.palette().color(QPalette::WindowText), QColor(Qt::magenta));
        QCOMPARE(label.palette().color(QPalette::Window), TokenNow("bg/bg_box"));
    }

    void a_hosts_stylesheet_of_a_widget_wins()
    {
        QWidget window;
        QLabel label(QStringLiteral("x"), &window);
        label.setStyleSheet(QStringLiteral("color: #ff00ff; background: #00ff00"));
        SetPlainWidgetsFollowTable(true);
        UseTable(Table::Dark);
        label.ensurePolished();
        QCOMPARE(label.palette().color(QPalette::WindowText), QColor(Qt::magenta));
        COMPARE_COLOR(PixelAt(Render(label), QPointF(label.width() - 2, label.height() - 2)), QColor(Qt::green));
    }

    void a_palette_that_the_application_gets_meanwhile_waits()
    {
        const QPalette before = QApplication::palette();
        SetPlainWidgetsFollowTable(true);
        QPalette later = before;
        later.setColor(QPalette::Window, Qt::yellow);
        QApplication::setPalette(later);
        QCOMPARE(QApplication::palette().color(QPalette::Window), TokenNow("bg/bg_box"));
        SetPlainWidgetsFollowTable(false);
        QCOMPARE(QApplication::palette().color(QPalette::Window), QColor(Qt::yellow));
        QApplication::setPalette(before);
    }

    void a_token_that_a_table_lacks_leaves_its_role()
    {
        const QPalette before = QApplication::palette();
        QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("short.ini")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("text/text_primary = #102030\n");
        file.close();
        SetPlainWidgetsFollowTable(true);
        QcStyleManager::GetInstance()->SetColorFilePath(file.fileName());
        QCOMPARE(QApplication::palette().color(QPalette::WindowText), QColor(0x10, 0x20, 0x30));
        QCOMPARE(QApplication::palette().color(QPalette::Window), before.color(QPalette::Window));
        QCOMPARE(QApplication::palette().color(QPalette::Highlight), before.color(QPalette::Highlight));
    }

    void a_link_that_is_shown_follows_the_table()
    {
        SetPlainWidgetsFollowTable(true);
        QLabel label(QStringLiteral("<a href=\"#\">HHH</a>"));
        QFont font = label.font();
        font.setPixelSize(60);
        label.setFont(font);
        label.show();
        DrainEvents();
        for (const QString &table : TableNames()) {
            UseTableNamed(table);
            const QColor ground = TokenNow("bg/bg_box");
            COMPARE_COLOR(InkColor(Render(label, ground), ground), TokenNow("link/link"));
        }
    }

    void what_lies_in_an_outlined_widget_has_the_common_palette()
    {
        SetPlainWidgetsFollowTable(true);
        QGroupBox group;
        QLabel inGroup(&group);
        QWidget plainInGroup(&group);
        QTabWidget tabs;
        QWidget page;
        tabs.addTab(&page, QString());
        QMdiArea area;
        auto *inner = new QListWidget;
        area.addSubWindow(inner);
        for (const QString &table : TableNames()) {
            UseTableNamed(table);
            for (QWidget *widget : std::initializer_list<QWidget *>{&inGroup, &plainInGroup, &page, inner}) {
                widget->ensurePolished();
                QVERIFY(widget->palette() == QApplication::palette());
            }
        }
    }

    void the_ground_of_inner_windows_follows_the_table()
    {
        SetPlainWidgetsFollowTable(true);
        QMdiArea area;
        QMdiArea own;
        own.setBackground(Qt::magenta);
        for (const QString &table : TableNames()) {
            UseTableNamed(table);
            QCOMPARE(area.background(), QApplication::palette().dark());
            QCOMPARE(own.background(), QBrush(Qt::magenta));
        }
    }
};

VELMORA_TEST_MAIN(TestPlainWidgets)
#include "tst_PlainWidgets.moc"
