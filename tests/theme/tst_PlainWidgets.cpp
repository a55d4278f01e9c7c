#include "contrast/Measures.h"
#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include <Velmora/PlainWidgets.h>
#include <Velmora/QcButton.h>
#include <Velmora/QcFrame.h>
#include <Velmora/QcLineEdit.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QCommandLinkButton>
#include <QDockWidget>
#include <QFile>
#include <QGroupBox>
#include <QHeaderView>
#include <QInputDialog>
#include <QLCDNumber>
#include <QLabel>
#include <QListWidget>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QToolBar>
#include <QToolBox>
#include <QToolButton>
#include <QToolTip>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QWizard>

#include <functional>
#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

constexpr double kReadable = 4.5;

using Maker = std::function<QWidget *(const QString &)>;

template <typename Widget>
QWidget *WithText(const QString &text)
{
    auto *widget = new Widget;
    widget->setText(text);
    return widget;
}

QWidget *MakeTabs(const QString &text)
{
    auto *tabs = new QTabWidget;
    tabs->addTab(new QLabel, text);
    return tabs;
}

QWidget *MakeToolBox(const QString &text)
{
    auto *box = new QToolBox;
    box->addItem(new QLabel, text);
    return box;
}

QWidget *MakeGroup(const QString &text)
{
    return new QGroupBox(text);
}

QWidget *MakeLabelInTabs(const QString &text)
{
    auto *tabs = new QTabWidget;
    tabs->addTab(new QLabel(text), QString());
    return tabs;
}

QWidget *MakeTip(const QString &text)
{
    auto *tip = new QLabel(text);
    tip->setPalette(QToolTip::palette());
    tip->setForegroundRole(QPalette::ToolTipText);
    tip->setBackgroundRole(QPalette::ToolTipBase);
    tip->setAutoFillBackground(true);
    return tip;
}

QWidget *MakeList(const QString &text)
{
    auto *list = new QListWidget;
    list->addItem(text);
    return list;
}

QWidget *MakeSelectedList(const QString &text)
{
    QWidget *list = MakeList(text);
    static_cast<QListWidget *>(list)->setCurrentRow(0);
    return list;
}

QWidget *MakeTable(const QString &text)
{
    auto *table = new QTableWidget(1, 1);
    table->setItem(0, 0, new QTableWidgetItem(text));
    return table;
}

QWidget *MakeTableHeader(const QString &text)
{
    auto *table = new QTableWidget(1, 1);
    table->setHorizontalHeaderLabels({text});
    return table;
}

QWidget *MakeTree(const QString &text)
{
    auto *tree = new QTreeWidget;
    tree->setHeaderHidden(true);
    new QTreeWidgetItem(tree, {text});
    return tree;
}

QWidget *MakeTreeHeader(const QString &text)
{
    auto *tree = new QTreeWidget;
    tree->setHeaderLabels({text});
    return tree;
}

QWidget *MakeCombo(const QString &text)
{
    auto *combo = new QComboBox;
    combo->addItem(text);
    return combo;
}

QWidget *MakeSpin(const QString &text)
{
    auto *spin = new QSpinBox;
    spin->setPrefix(text);
    return spin;
}

QWidget *MakeProgress(const QString &text)
{
    auto *bar = new QProgressBar;
    bar->setFormat(text);
    bar->setValue(0);
    return bar;
}

QWidget *MakeNumber(const QString &text)
{
    auto *number = new QLCDNumber;
    number->display(text.isEmpty() ? QString() : QStringLiteral("888"));
    number->setSegmentStyle(QLCDNumber::Flat);
    return number;
}

QWidget *MakePlaceholder(const QString &text)
{
    auto *line = new QLineEdit;
    line->setPlaceholderText(text);
    return line;
}

QWidget *MakeSelectedLine(const QString &text)
{
    auto *line = new QLineEdit(text);
    line->selectAll();
    return line;
}

QWidget *MakePlainEdit(const QString &text)
{
    return new QPlainTextEdit(text);
}

QWidget *MakeRichLabel(const QString &text)
{
    return new QLabel(QStringLiteral("<a href=\"#\">%1</a>").arg(text));
}

QWidget *MakeWindow(const std::function<void(QMainWindow &)> &fill)
{
    auto *window = new QMainWindow;
    fill(*window);
    window->setWindowFlags(Qt::Widget);
    return window;
}

QWidget *MakeMenuBar(const QString &text)
{
    return MakeWindow([&text](QMainWindow &window) { window.menuBar()->addMenu(text.isEmpty() ? QStringLiteral(" ") : text); });
}

QWidget *MakeToolBar(const QString &text)
{
    return MakeWindow([&text](QMainWindow &window) { window.addToolBar(QString())->addAction(text); });
}

QWidget *MakeStatusBar(const QString &text)
{
    return MakeWindow([&text](QMainWindow &window) { window.statusBar()->showMessage(text); });
}

QWidget *MakeDock(const QString &text)
{
    return MakeWindow([&text](QMainWindow &window) { window.addDockWidget(Qt::TopDockWidgetArea, new QDockWidget(text)); });
}

QWidget *MakeMenu(const QString &text)
{
    auto *menu = new QMenu;
    menu->addAction(text);
    menu->setWindowFlags(Qt::Widget);
    return menu;
}

QWidget *MakeMdi(const QString &text)
{
    auto *area = new QMdiArea;
    area->addSubWindow(new QLabel(text))->setGeometry(0, 0, 300, 150);
    return area;
}

template <typename Dialog>
QWidget *Embedded(Dialog *dialog)
{
    dialog->setWindowFlags(Qt::Widget);
    return dialog;
}

QWidget *MakeMessage(const QString &text)
{
    return Embedded(new QMessageBox(QMessageBox::NoIcon, QString(), text));
}

QWidget *MakeInputDialog(const QString &text)
{
    auto *dialog = new QInputDialog;
    dialog->setLabelText(text);
    return Embedded(dialog);
}

QWidget *MakeWizard(const QString &text)
{
    auto *wizard = new QWizard;
    wizard->setWizardStyle(QWizard::ModernStyle);
    auto *page = new QWizardPage;
    page->setTitle(text.isEmpty() ? QStringLiteral(" ") : text);
    page->setSubTitle(QStringLiteral(" "));
    wizard->addPage(page);
    return Embedded(wizard);
}

struct Specimen
{
    const char *name;
    Maker make;
};

const Specimen kSpecimens[] = {
    {"label", WithText<QLabel>},
    {"link", MakeRichLabel},
    {"push button", WithText<QPushButton>},
    {"tool button", WithText<QToolButton>},
    {"check box", WithText<QCheckBox>},
    {"radio button", WithText<QRadioButton>},
    {"command link", WithText<QCommandLinkButton>},
    {"group box", MakeGroup},
    {"tab", MakeTabs},
    {"label on a tab", MakeLabelInTabs},
    {"tool box", MakeToolBox},
    {"line edit", WithText<QLineEdit>},
    {"placeholder", MakePlaceholder},
    {"selected text", MakeSelectedLine},
    {"text edit", WithText<QTextEdit>},
    {"plain text edit", MakePlainEdit},
    {"spin box", MakeSpin},
    {"combo box", MakeCombo},
    {"progress bar", MakeProgress},
    {"number", MakeNumber},
    {"tool tip", MakeTip},
    {"list", MakeList},
    {"selected item", MakeSelectedList},
    {"table", MakeTable},
    {"header of a table", MakeTableHeader},
    {"tree", MakeTree},
    {"header of a tree", MakeTreeHeader},
    {"menu", MakeMenu},
    {"menu bar", MakeMenuBar},
    {"tool bar", MakeToolBar},
    {"status bar", MakeStatusBar},
    {"dock widget", MakeDock},
    {"inner window", MakeMdi},
    {"message box", MakeMessage},
    {"input dialog", MakeInputDialog},
    {"wizard", MakeWizard},
};

QImage Shot(const Maker &make, const QString &text)
{
    QcFrame ground;
    ground.setBackgroundColorParams(QStringLiteral("bg/bg_box"));
    QWidget *widget = make(text);
    widget->setParent(&ground);
    QFont font = widget->font();
    font.setPixelSize(32);
    widget->setFont(font);
    widget->setGeometry(20, 20, 400, 200);
    ground.resize(440, 240);
    ground.show();
    widget->show();
    DrainEvents();
    return Render(ground);
}

/// How much a text stands out, by the pixel of it that does most from what is there without it.
double ContrastOfText(const Maker &make)
{
    const QImage with = Shot(make, QStringLiteral("HIT"));
    const QImage without = Shot(make, QString());
    double most = 1;
    for (int y = 0; y < with.height(); ++y) {
        for (int x = 0; x < with.width(); ++x) {
            if (with.pixel(x, y) != without.pixel(x, y))
                most = qMax(most, Contrast(with.pixelColor(x, y), without.pixelColor(x, y)));
        }
    }
    return most;
}

QColor TokenNow(const char *token)
{
    return QcStyleManager::GetInstance()->GetColor(ColorParams(QLatin1String(token)));
}

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
        QVERIFY(ContrastOfText(WithText<QLabel>) < 1.5); // black on dark grey
    }

    void every_text_can_be_read_data()
    {
        QTest::addColumn<QString>("table");
        QTest::addColumn<int>("specimen");
        const QStringList tables = TableNames();
        for (const QString &table : tables) {
            int index = 0;
            for (const Specimen &specimen : kSpecimens)
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
        const double contrast = ContrastOfText(kSpecimens[specimen].make);
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
        QCOMPARE(QApplication::palette().resolve(), before.resolve());
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
