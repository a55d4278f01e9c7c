#include "theme/PlainSpecimens.h"

#include "contrast/Measures.h"
#include "support/Pixels.h"
#include "support/TestCase.h"

#include <Velmora/QcFrame.h>

#include <QCheckBox>
#include <QComboBox>
#include <QCommandLinkButton>
#include <QDateEdit>
#include <QDockWidget>
#include <QGroupBox>
#include <QInputDialog>
#include <QItemDelegate>
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
#include <QTabWidget>
#include <QTableWidget>
#include <QToolBar>
#include <QToolBox>
#include <QToolButton>
#include <QToolTip>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QWizard>

namespace VelmoraTest {

namespace {

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

QWidget *MakeOldList(const QString &text)
{
    QWidget *list = MakeList(text);
    static_cast<QListWidget *>(list)->setItemDelegate(new QItemDelegate(list));
    return list;
}

QWidget *MakeEditedItem(const QString &text)
{
    auto *list = new QListWidget;
    list->addItem(text);
    list->openPersistentEditor(list->item(0));
    return list;
}

QWidget *MakeDate(const QString &text)
{
    auto *date = new QDateEdit(QDate(2026, 11, 22));
    date->setDisplayFormat(text.isEmpty() ? QStringLiteral("'_'") : QStringLiteral("yyyy"));
    return date;
}

QWidget *MakeMdiTitle(const QString &text)
{
    auto *area = new QMdiArea;
    QMdiSubWindow *window = area->addSubWindow(new QLabel);
    window->setGeometry(0, 0, 300, 150);
    window->setWindowTitle(text);
    return area;
}

QWidget *MakeMdiTitleBehind(const QString &text)
{
    auto *area = static_cast<QMdiArea *>(MakeMdiTitle(text));
    area->addSubWindow(new QLabel)->setGeometry(0, 100, 300, 90);
    area->setActiveSubWindow(area->subWindowList().last());
    return area;
}

QWidget *MakeInformation(const QString &text)
{
    auto *box = new QMessageBox(QMessageBox::NoIcon, QString(), QStringLiteral("-"));
    box->setInformativeText(text.isEmpty() ? QStringLiteral(" ") : text);
    return Embedded(box);
}

template <QWizard::WizardStyle style, bool isTitle>
QWidget *MakeWizard(const QString &text)
{
    auto *wizard = new QWizard;
    wizard->setWizardStyle(style);
    auto *page = new QWizardPage;
    page->setTitle(isTitle && !text.isEmpty() ? text : QStringLiteral(" "));
    page->setSubTitle(QStringLiteral(" "));
    (new QVBoxLayout(page))->addWidget(new QLabel(isTitle ? QString() : text));
    wizard->addPage(page);
    return Embedded(wizard);
}

QImage Shot(const Maker &make, const QString &text)
{
    Velmora::QcFrame ground;
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

} // namespace

const QVector<Specimen> &PlainSpecimens()
{
    static const QVector<Specimen> specimens = {
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
        {"wizard, classic", MakeWizard<QWizard::ClassicStyle, true>},
        {"wizard, modern", MakeWizard<QWizard::ModernStyle, true>},
        {"wizard, as on a Mac", MakeWizard<QWizard::MacStyle, true>},
        {"wizard, aero", MakeWizard<QWizard::AeroStyle, true>},
        {"page of a wizard, classic", MakeWizard<QWizard::ClassicStyle, false>},
        {"page of a wizard, modern", MakeWizard<QWizard::ModernStyle, false>},
        {"page of a wizard, as on a Mac", MakeWizard<QWizard::MacStyle, false>},
        {"page of a wizard, aero", MakeWizard<QWizard::AeroStyle, false>},
        {"old delegate", MakeOldList},
        {"editor of an item", MakeEditedItem},
        {"date", MakeDate},
        {"title of an inner window", MakeMdiTitle},
        {"title of an inner window behind", MakeMdiTitleBehind},
        {"information in a message box", MakeInformation},
    };
    return specimens;
}

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

} // namespace VelmoraTest
