#include "Kit.h"
#include "Page.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QCommandLinkButton>
#include <QDateTimeEdit>
#include <QDial>
#include <QDockWidget>
#include <QFileDialog>
#include <QFontDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QInputDialog>
#include <QLCDNumber>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTextEdit>
#include <QToolBar>
#include <QToolBox>
#include <QToolButton>
#include <QToolTip>
#include <QTreeWidget>
#include <QWizard>

using namespace Gallery;

namespace {

const char *const kRivers[][3] = {{"Danube", "2850", "Black Sea"}, {"Rhine", "1233", "North Sea"}, {"Rhone", "813", "Mediterranean"}};

template <typename Widget>
Widget *Disabled(Widget *widget)
{
    widget->setEnabled(false);
    return widget;
}

/// For a screen reader, where no label or text of its own names it.
template <typename Widget>
Widget *Named(Widget *widget, const char *name)
{
    widget->setAccessibleName(QLatin1String(name));
    return widget;
}

template <typename Button>
Button *WithText(Button *button, const char *text, bool isChecked = false)
{
    button->setText(QLatin1String(text));
    button->setCheckable(true);
    button->setAutoExclusive(false);
    button->setChecked(isChecked);
    return button;
}

/// A dialog or main window that lies on the page.
void Embed(QBoxLayout *row, QWidget *window)
{
    window->setWindowFlags(Qt::Widget);
    window->setAutoFillBackground(true);
    MakeSpecimen(window);
    row->addWidget(window, 1);
}

class PlainWidgetsPage : public PageWidget
{
public:
    PlainWidgetsPage()
    {
        AddButtons();
        AddGroups();
        AddFields();
        AddViews();
        AddValues();
        AddWindow();
        AddDialogs();
    }

private:
    void AddButtons()
    {
        Card *card = AddSection(QStringLiteral("Texts and buttons"),
                                QStringLiteral("Widgets of Qt as they are, without a stylesheet. SetPlainWidgetsFollowTable(true) gives "
                                               "them the table's colours. Where the kit has a control, a program shows that one."));
        QHBoxLayout *row = card->AddRow(2 * kGrid);
        row->addWidget(new QLabel(QStringLiteral("A label with <a href=\"#\">a link</a>")));
        row->addWidget(Disabled(new QLabel(QStringLiteral("A disabled one"))));
        auto *tip = new QLabel(QStringLiteral("As a tool tip"));
        tip->setToolTip(QStringLiteral("A tool tip"));
        tip->setForegroundRole(QPalette::ToolTipText);
        tip->setBackgroundRole(QPalette::ToolTipBase);
        tip->setAutoFillBackground(true);
        tip->setMargin(kGrid / 2);
        row->addWidget(tip);
        row->addStretch();
        row = card->AddRow(2 * kGrid);
        row->addWidget(new QPushButton(QStringLiteral("Push button")));
        row->addWidget(WithText(new QPushButton, "Checked", true));
        row->addWidget(Disabled(new QPushButton(QStringLiteral("Disabled"))));
        row->addWidget(WithText(new QToolButton, "Tool button"));
        row->addWidget(WithText(new QCheckBox, "Check box", true));
        row->addWidget(WithText(new QCheckBox, "Unchecked"));
        row->addWidget(Disabled(WithText(new QCheckBox, "Disabled", true)));
        row->addWidget(WithText(new QRadioButton, "Radio button", true));
        row->addWidget(WithText(new QRadioButton, "Unchecked"));
        row->addStretch();
        card->AddRow()->addWidget(
            new QCommandLinkButton(QStringLiteral("Command link"), QStringLiteral("With a description of what it does")));
    }

    void AddGroups()
    {
        QHBoxLayout *row = AddSection(QStringLiteral("Groups and tabs"))->AddRow(2 * kGrid);
        auto *group = new QGroupBox(QStringLiteral("Group box"));
        auto *inside = new QVBoxLayout(group);
        inside->addWidget(new QLabel(QStringLiteral("Content of a group")));
        auto *checkable = new QGroupBox(QStringLiteral("Checkable group"));
        checkable->setCheckable(true);
        (new QVBoxLayout(checkable))->addWidget(new QLabel(QStringLiteral("Content")));
        inside->addWidget(checkable);
        row->addWidget(group, 1);
        auto *tabs = new QTabWidget;
        tabs->addTab(new QLabel(QStringLiteral("Content of a tab")), QStringLiteral("Current"));
        tabs->addTab(new QLabel, QStringLiteral("Other"));
        tabs->addTab(new QLabel, QStringLiteral("Disabled"));
        tabs->setTabEnabled(2, false);
        row->addWidget(tabs, 1);
        auto *box = new QToolBox;
        box->addItem(new QLabel(QStringLiteral("Content of a tool box")), QStringLiteral("Open"));
        box->addItem(new QLabel, QStringLiteral("Closed"));
        row->addWidget(box, 1);
    }

    void AddFields()
    {
        auto *grid = new QGridLayout;
        AddSection(QStringLiteral("Fields"))->Body()->addLayout(grid);
        grid->setSpacing(kGrid);
        auto *line = Named(new QLineEdit(QStringLiteral("Line edit, selected")), "Selected");
        line->selectAll();
        grid->addWidget(line, 0, 0);
        auto *empty = Named(new QLineEdit, "Empty");
        empty->setPlaceholderText(QStringLiteral("Placeholder"));
        grid->addWidget(empty, 0, 1);
        grid->addWidget(Disabled(Named(new QLineEdit(QStringLiteral("Disabled")), "Disabled")), 0, 2);
        grid->addWidget(Named(new QSpinBox, "Number"), 0, 3);
        grid->addWidget(Disabled(Named(new QDoubleSpinBox, "Disabled number")), 0, 4);
        for (const bool isEditable : {false, true}) {
            auto *combo = new QComboBox;
            combo->addItems({QStringLiteral("Combo box"), QStringLiteral("Other")});
            combo->setEditable(isEditable);
            grid->addWidget(combo, 1, isEditable);
        }
        auto *date = Named(new QDateEdit(QDate(2026, 11, 22)), "Date");
        date->setCalendarPopup(true);
        grid->addWidget(date, 1, 2);
        grid->addWidget(Named(new QTimeEdit(QTime(12, 30)), "Time"), 1, 3);
        grid->addWidget(Disabled(Named(new QDateTimeEdit(QDate(2026, 11, 22)), "Disabled date")), 1, 4);
        auto *rich = Named(new QTextEdit(QStringLiteral("A <b>text edit</b> with <a href=\"#\">a link</a>")), "Rich text");
        rich->setTabChangesFocus(true);
        rich->setFixedHeight(8 * kGrid);
        grid->addWidget(rich, 2, 0, 1, 2);
        auto *plain = Named(new QPlainTextEdit(QStringLiteral("A plain text edit")), "Plain text");
        plain->setTabChangesFocus(true);
        plain->setFixedHeight(8 * kGrid);
        grid->addWidget(plain, 2, 2, 1, 3);
    }

    void AddViews()
    {
        Card *card = AddSection(QStringLiteral("Lists, tables, trees"));
        QHBoxLayout *row = card->AddRow(2 * kGrid);
        auto *list = new QListWidget;
        auto *table = new QTableWidget(3, 3);
        auto *tree = new QTreeWidget;
        table->setHorizontalHeaderLabels({QStringLiteral("River"), QStringLiteral("Length"), QStringLiteral("Mouth")});
        table->setTabKeyNavigation(false);
        table->setAlternatingRowColors(true);
        tree->setHeaderLabels({QStringLiteral("River"), QStringLiteral("Length")});
        auto *rivers = new QTreeWidgetItem(tree, {QStringLiteral("Rivers"), QStringLiteral("km")});
        for (int i = 0; i < 3; ++i) {
            list->addItem(QLatin1String(kRivers[i][0]));
            for (int column = 0; column < 3; ++column)
                table->setItem(i, column, new QTableWidgetItem(QLatin1String(kRivers[i][column])));
            new QTreeWidgetItem(rivers, {QLatin1String(kRivers[i][0]), QLatin1String(kRivers[i][1])});
        }
        tree->expandAll();
        list->setCurrentRow(1);
        list->item(2)->setFlags(Qt::NoItemFlags);
        table->selectRow(1);
        for (QAbstractItemView *view :
             {static_cast<QAbstractItemView *>(list), static_cast<QAbstractItemView *>(table), static_cast<QAbstractItemView *>(tree)}) {
            view->setFixedHeight(17 * kGrid);
            row->addWidget(view, 1);
        }
    }

    void AddValues()
    {
        Card *card = AddSection(QStringLiteral("Values"));
        QHBoxLayout *row = card->AddRow(2 * kGrid);
        auto *progress = new QProgressBar;
        progress->setValue(40);
        row->addWidget(progress, 1);
        auto *slider = Named(new QSlider(Qt::Horizontal), "Slider");
        slider->setValue(40);
        slider->setTickPosition(QSlider::TicksBelow);
        row->addWidget(slider, 1);
        auto *bar = new QScrollBar(Qt::Horizontal);
        bar->setFocusPolicy(Qt::NoFocus);
        row->addWidget(bar, 1);
        auto *number = new QLCDNumber;
        number->display(1233);
        row->addWidget(number);
        auto *dial = Named(new QDial, "Dial");
        dial->setNotchesVisible(true);
        row->addWidget(dial);
        auto *splitter = new QSplitter;
        splitter->addWidget(new QLabel(QStringLiteral("Left")));
        splitter->addWidget(new QLabel(QStringLiteral("Right")));
        row->addWidget(splitter, 1);
    }

    void AddWindow()
    {
        QHBoxLayout *row = AddSection(QStringLiteral("A main window"))->AddRow(2 * kGrid);
        auto *window = new QMainWindow;
        window->setFixedHeight(30 * kGrid);
        for (const char *title : {"File", "Edit", "Help"})
            window->menuBar()->addMenu(QLatin1String(title))->addAction(QStringLiteral("Open"));
        QToolBar *tools = window->addToolBar(QStringLiteral("Tools"));
        for (const char *name : {"New", "Open", "Save"})
            tools->addAction(QLatin1String(name));
        tools->actions().last()->setEnabled(false);
        auto *dock = new QDockWidget(QStringLiteral("Dock widget"));
        dock->setWidget(new QLabel(QStringLiteral("Content of a dock")));
        window->addDockWidget(Qt::LeftDockWidgetArea, dock);
        auto *area = new QMdiArea;
        area->addSubWindow(new QLabel(QStringLiteral("Content of a window")))->resize(28 * kGrid, 10 * kGrid);
        area->subWindowList().first()->setWindowTitle(QStringLiteral("Inner window"));
        window->setCentralWidget(area);
        window->statusBar()->showMessage(QStringLiteral("Status bar"));
        window->statusBar()->addPermanentWidget(new QLabel(QStringLiteral("1233 km")));
        Embed(row, window);
        auto *calendar = new QCalendarWidget;
        calendar->setSelectedDate(QDate(2026, 11, 22));
        Named(calendar->findChild<QToolButton *>(QStringLiteral("qt_calendar_prevmonth")), "Previous month");
        Named(calendar->findChild<QToolButton *>(QStringLiteral("qt_calendar_nextmonth")), "Next month");
        MakeSpecimen(calendar);
        row->addWidget(calendar);
    }

    void AddDialogs()
    {
        Card *card = AddSection(QStringLiteral("Dialogs"));
        QHBoxLayout *row = card->AddRow(2 * kGrid);
        auto *message = new QMessageBox(QMessageBox::Question, QStringLiteral("Save"), QStringLiteral("Keep the changes?"));
        message->addButton(QStringLiteral("Keep"), QMessageBox::AcceptRole);
        message->addButton(QStringLiteral("Discard"), QMessageBox::DestructiveRole);
        message->setInformativeText(QStringLiteral("What is not kept is lost."));
        Embed(row, message);
        auto *wizard = new QWizard;
        wizard->setWizardStyle(QWizard::ModernStyle);
        wizard->setButtonText(QWizard::NextButton, QStringLiteral("Onwards"));
        wizard->setButtonText(QWizard::BackButton, QStringLiteral("Back"));
        wizard->setButtonText(QWizard::CancelButton, QStringLiteral("Leave"));
        auto *page = new QWizardPage;
        page->setTitle(QStringLiteral("Wizard"));
        page->setSubTitle(QStringLiteral("The first of two pages"));
        (new QVBoxLayout(page))->addWidget(new QLabel(QStringLiteral("Content of a page")));
        wizard->addPage(page);
        wizard->addPage(new QWizardPage);
        wizard->setFixedHeight(28 * kGrid);
        Embed(row, wizard);

        row = card->AddRow(2 * kGrid);
        AddOpener<QFileDialog>(row, QStringLiteral("File dialog"), QFileDialog::DontUseNativeDialog);
        AddOpener<QColorDialog>(row, QStringLiteral("Colour dialog"), QColorDialog::DontUseNativeDialog);
        AddOpener<QFontDialog>(row, QStringLiteral("Font dialog"), QFontDialog::DontUseNativeDialog);
        AddOpener<QInputDialog>(row, QStringLiteral("Input dialog"), QInputDialog::NoButtons, false);
        row->addStretch();
    }

    template <typename Dialog, typename Option>
    void AddOpener(QHBoxLayout *row, const QString &name, Option option, bool isOn = true)
    {
        auto *button = new QPushButton(name);
        connect(button, &QPushButton::clicked, this, [this, option, isOn] {
            auto *dialog = new Dialog(this);
            dialog->setAttribute(Qt::WA_DeleteOnClose);
            dialog->setOption(option, isOn);
            dialog->open();
        });
        row->addWidget(button);
    }
};

const PageRegistrar
    registrar({QStringLiteral("plainwidgets"), QStringLiteral("Tools"), QStringLiteral("Plain Qt widgets"),
               QStringLiteral("What the kit has no control for, in the colours of the table: by SetPlainWidgetsFollowTable()."), 890,
               [] { return new PlainWidgetsPage; }});

} // namespace
