#include "theme/EachClass.h"
#include "theme/FocusStage.h"

#include "support/TestMain.h"

#include <QCalendarWidget>
#include <QDateEdit>
#include <QDial>
#include <QDialogButtonBox>
#include <QDirIterator>
#include <QGraphicsView>
#include <QGroupBox>
#include <QKeySequenceEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTableWidget>
#include <QTextBrowser>
#include <QTreeWidget>

#include <functional>
#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

Q_DECLARE_METATYPE(Make)

namespace {

QWidget *NewGroup(QWidget *page)
{
    auto *group = new QGroupBox(QStringLiteral("Group"), page);
    group->setCheckable(true);
    return group;
}

QWidget *NewList(QWidget *page)
{
    auto *list = new QListWidget(page);
    list->addItems({QStringLiteral("One"), QStringLiteral("Two")});
    list->setCurrentRow(0);
    return list;
}

QWidget *NewTabs(QWidget *page)
{
    auto *tabs = new QTabWidget(page);
    tabs->addTab(new QWidget, QStringLiteral("One"));
    tabs->addTab(new QWidget, QStringLiteral("Two"));
    return tabs;
}

QWidget *NewTable(QWidget *page)
{
    auto *table = new QTableWidget(2, 2, page);
    table->setCurrentCell(0, 0);
    return table;
}

QWidget *NewTree(QWidget *page)
{
    auto *tree = new QTreeWidget(page);
    tree->addTopLevelItems({new QTreeWidgetItem({QStringLiteral("One")}), new QTreeWidgetItem({QStringLiteral("Two")})});
    tree->setCurrentItem(tree->topLevelItem(0));
    return tree;
}

QWidget *NewLinks(QWidget *page)
{
    auto *label = new QLabel(QStringLiteral("Some words and <a href=\"x\">a link</a>"), page);
    label->setTextInteractionFlags(Qt::TextBrowserInteraction);
    return label;
}

QWidget *NewButtonBox(QWidget *page)
{
    return new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, page);
}

const Case kPlain[] = {
    {"QPushButton", NewButton<QPushButton>},
    {"QToolButton", NewButton<QToolButton>},
    {"QCheckBox", NewButton<QCheckBox>},
    {"QRadioButton", NewButton<QRadioButton>},
    {"QGroupBox", NewGroup},
    {"QLineEdit", New<QLineEdit>},
    {"QComboBox", New<QComboBox>},
    {"QSpinBox", New<QSpinBox>},
    {"QDateEdit", New<QDateEdit>},
    {"QKeySequenceEdit", New<QKeySequenceEdit>},
    {"QSlider", New<QSlider>},
    {"QDial", New<QDial>},
    {"QTextEdit", New<QTextEdit>},
    {"QPlainTextEdit", New<QPlainTextEdit>},
    {"QTextBrowser", New<QTextBrowser>},
    {"QListWidget", NewList},
    {"QTreeWidget", NewTree},
    {"QTableWidget", NewTable},
    {"QTabWidget", NewTabs},
    {"QLabel", NewLinks},
    {"QDialogButtonBox", NewButtonBox},
    {"QDoubleSpinBox", New<QDoubleSpinBox>},
    {"QScrollArea", New<QScrollArea>},
    {"QGraphicsView", New<QGraphicsView>},
    {"QCalendarWidget", New<QCalendarWidget>},
};

/// Those that the Tab key does not reach: they show something, lie around controls of the classes above, or highlight what is chosen.
const QStringList kNoStops = {
    "QcArrowTip",
    "QcDialog",
    "QcDockArea",
    "QcDockAreaTabBar",
    "QcDockAreaTabFrame",
    "QcDockAreaTabStackedWidget",
    "QcDockContainer",
    "QcDockIndicator",
    "QcDockMask",
    "QcDockWidget",
    "QcFrame",
    "QcLabel",
    "QcLoadingDialog",
    "QcMaskFrame",
    "QcMaskWindow",
    "QcMenu",
    "QcNotification",
    "QcNotificationPage",
    "QcProgressDialog",
    "QcScrollBar",
    "QcStackedWidget",
    "QcToast",
    "QcWindow",
};

/// The classes that the library's public headers tell of, with what they derive from.
QHash<QString, QString> PublicClasses()
{
    static const QRegularExpression declaration(QStringLiteral(R"(^class VELMORA_EXPORT (\w+) : public (\w+))"),
                                                QRegularExpression::MultilineOption);
    QHash<QString, QString> classes;
    QDirIterator headers(QStringLiteral(VELMORA_SOURCES), {QStringLiteral("*.h")}, QDir::Files, QDirIterator::Subdirectories);
    while (headers.hasNext()) {
        QFile file(headers.next());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        auto found = declaration.globalMatch(QString::fromUtf8(file.readAll()));
        while (found.hasNext()) {
            const QRegularExpressionMatch match = found.next();
            classes.insert(match.captured(1), match.captured(2));
        }
    }
    return classes;
}

bool IsWidget(const QHash<QString, QString> &classes, QString name)
{
    while (classes.contains(name))
        name = classes.value(name);
    const QSet<QString> others = {"QObject", "QApplication", "QAction", "QIntValidator", "QDoubleValidator"};
    return !others.contains(name);
}

bool IsStop(const QWidget *widget)
{
    return (widget->focusPolicy() & Qt::TabFocus) && widget->isVisible();
}

/// The first stop of the Tab key in \a widget.
QWidget *StopIn(QWidget *widget)
{
    if (IsStop(widget))
        return widget;
    const auto children = widget->findChildren<QWidget *>();
    const auto found = std::find_if(children.begin(), children.end(), IsStop);
    return found == children.end() ? nullptr : *found;
}

int CountOf(const QColor &color, const QImage &image, const QImage &before)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == color && before.pixelColor(x, y) != color ? 1 : 0;
    }
    return count;
}

} // namespace

/// That no control is left out.
class TestFocusRingOfEachClass : public TestCase
{
    Q_OBJECT

private:
    void SetUp() override { SetKeyboardCuesEnabled(false); }
    void TearDown() override
    {
        SetKeyboardCuesEnabled(false);
        SetPlainWidgetsFollowTable(false);
    }

private Q_SLOTS:
    /// A new control belongs into one of the lists above.
    void every_public_widget_is_listed()
    {
        QSet<QString> listed(kNoStops.begin(), kNoStops.end());
        for (const Case &one : kKit)
            listed.insert(QString::fromLatin1(one.className));
        const QHash<QString, QString> classes = PublicClasses();
        QVERIFY(classes.size() > 40);
        QSet<QString> widgets;
        for (auto one = classes.cbegin(); one != classes.cend(); ++one) {
            if (IsWidget(classes, one.key()))
                widgets.insert(one.key());
        }
        QCOMPARE(widgets - listed, QSet<QString>());
        QCOMPARE(listed - widgets, QSet<QString>());
    }

    void tab_shows_a_ring_on_it_data()
    {
        QTest::addColumn<Make>("make");
        QTest::addColumn<bool>("followsTable");
        for (const Case &one : kKit)
            QTest::newRow(one.className) << one.make << false;
        for (const Case &one : kPlain) {
            QTest::newRow(one.className) << one.make << false;
            QTest::addRow("%s in the table's colours", one.className) << one.make << true;
        }
    }

    void tab_shows_a_ring_on_it()
    {
        QFETCH(Make, make);
        QFETCH(bool, followsTable);
        SetPlainWidgetsFollowTable(followsTable);
        FocusStage stage;
        stage.Add<QcButton>(QRect(0, 0, 20, 24)); // has the keyboard at first
        QWidget *control = make(&stage);
        control->resize(control->sizeHint().expandedTo(QSize(40, 20)).boundedTo(QSize(300, 200)));
        control->move(50, 50);
        QVERIFY(stage.Begin());
        QWidget *stop = StopIn(control);
        QVERIFY(stop);
        // What it shows of its own, off.
        stop->setFocus(Qt::TabFocusReason);
        const QImage off = stage.Look();
        QVERIFY(!RingIn(stage));
        stage.findChild<QcButton *>()->setFocus();
        SetKeyboardCuesEnabled(true);
        stop->setFocus(Qt::TabFocusReason);
        QVERIFY(stop->hasFocus() || stop->focusProxy());
        const QFocusFrame *ring = RingIn(stage);
        QVERIFY(ring);
        QVERIFY(ring->geometry().intersects(control->geometry()));
        QVERIFY(control->geometry().adjusted(-4, -4, 4, 4).contains(ring->geometry()));
        // At least half of its sides are in the ring's colour now.
        const QSize size = ring->size() - QSize(8, 8);
        QVERIFY(CountOf(TokenOf(VelmoraTest::Table::Light, QStringLiteral("others/focus")), stage.Look(), off)
                >= 2 * (size.width() + size.height()));
    }

    void a_frame_is_ringed_not_the_edit_inside_data()
    {
        QTest::addColumn<Make>("make");
        for (const Case &one : kKit) {
            if (QByteArray(one.className).contains("EditFrame") || QByteArray(one.className).contains("Limiter"))
                QTest::newRow(one.className) << one.make;
        }
    }

    void a_frame_is_ringed_not_the_edit_inside()
    {
        QFETCH(Make, make);
        SetKeyboardCuesEnabled(true);
        FocusStage stage;
        QWidget *frame = make(&stage);
        frame->move(50, 50);
        frame->resize(200, 60);
        QVERIFY(stage.Begin());
        QWidget *edit = frame->focusProxy();
        edit->clearFocus();
        edit->setFocus(Qt::TabFocusReason);
        const QFocusFrame *ring = RingIn(stage);
        QVERIFY(ring && ring->geometry() == frame->geometry().adjusted(-4, -4, 4, 4));
    }

    void a_view_shows_besides_on_which_item_the_keyboard_is_data()
    {
        QTest::addColumn<Make>("make");
        QTest::addColumn<bool>("followsTable");
        for (const bool followsTable : {false, true}) {
            const char *colors = followsTable ? ", in the table's colours" : "";
            QTest::addRow("list%s", colors) << Make(NewList) << followsTable;
            QTest::addRow("tree%s", colors) << Make(NewTree) << followsTable;
            QTest::addRow("table%s", colors) << Make(NewTable) << followsTable;
        }
    }

    void a_view_shows_besides_on_which_item_the_keyboard_is()
    {
        QFETCH(Make, make);
        QFETCH(bool, followsTable);
        SetPlainWidgetsFollowTable(followsTable);
        SetKeyboardCuesEnabled(true);
        FocusStage stage;
        auto *other = stage.Add<QcButton>(QRect(0, 0, 20, 24));
        auto *view = static_cast<QAbstractItemView *>(make(&stage));
        view->setGeometry(50, 50, 250, 150);
        view->setSelectionMode(QAbstractItemView::NoSelection); // which would show it as well
        QVERIFY(stage.Begin());
        other->setFocus();
        stage.Press(Qt::Key_Tab);
        QVERIFY(view->hasFocus());
        QVERIFY(RingIn(stage));
        const QModelIndex first = view->currentIndex();
        const QImage before = stage.Look();
        stage.Press(Qt::Key_Down);
        QVERIFY(view->currentIndex() != first);
        const QRectF changed = Difference(before, stage.Look());
        const QRect second = view->visualRect(view->currentIndex()).translated(view->viewport()->mapTo(&stage, QPoint()));
        QVERIFY(changed.intersects(second));
        QVERIFY(RingIn(stage)->geometry().intersects(view->geometry()));
    }

    void a_page_that_passes_its_focus_on_gets_none()
    {
        SetKeyboardCuesEnabled(true);
        FocusStage stage;
        auto *page = stage.Add<QWidget>(QRect(10, 10, 380, 280));
        auto *field = stage.Add<QcSpinBox>(QRect(40, 40, 80, 24), page);
        stage.Add<QcButton>(QRect(40, 100, 80, 24), page)->setFocusPolicy(Qt::NoFocus);
        page->setFocusProxy(field);
        QVERIFY(stage.Begin());
        field->clearFocus();
        page->setFocus(Qt::TabFocusReason);
        const QFocusFrame *ring = RingIn(stage);
        QVERIFY(ring && ring->width() == 88);
    }

    void the_ring_is_on_the_link_that_has_the_keyboard()
    {
        SetKeyboardCuesEnabled(true);
        FocusStage stage;
        auto *text = stage.Add<QcMultiLineText>(QRect(20, 20, 300, 60));
        text->setText(QStringLiteral("<a href=\"1\">First</a> and then, much later, <a href=\"2\">second</a>"));
        QVERIFY(stage.Begin());
        text->clearFocus();
        const QImage rest = text->grab().toImage();
        text->setFocus(Qt::TabFocusReason);
        QCOMPARE(text->grab().toImage(), rest); // which the text does not mark besides
        const QRect first = RingIn(stage)->geometry();
        QVERIFY(first.width() < 100);
        stage.Press(Qt::Key_Tab);
        QVERIFY(text->hasFocus());
        const QRect second = RingIn(stage)->geometry();
        QVERIFY(second.left() > first.right());
    }

    void halves_of_a_control_are_ringed_within()
    {
        SetKeyboardCuesEnabled(true);
        FocusStage stage;
        auto *control = new QcCombinedToolButton(&stage);
        control->move(50, 50);
        QVERIFY(stage.Begin());
        QWidget *half = StopIn(control);
        half->clearFocus();
        half->setFocus(Qt::TabFocusReason);
        const QRect place(half->mapTo(&stage, QPoint()), half->size());
        QCOMPARE(RingIn(stage)->geometry(), place.adjusted(-1, -1, 1, 1));
    }

    void a_tab_and_a_handle_leave_the_showing_to_the_ring_data()
    {
        QTest::addColumn<Make>("make");
        QTest::newRow("a tab") << Make(NewTab);
        QTest::newRow("a handle") << Make(NewHandle);
    }

    void a_tab_and_a_handle_leave_the_showing_to_the_ring()
    {
        QFETCH(Make, make);
        FocusStage stage;
        auto *other = stage.Add<QcButton>(QRect(0, 0, 20, 24));
        QWidget *control = make(&stage);
        control->setGeometry(50, 50, 200, 40);
        QVERIFY(stage.Begin());
        QWidget *stop = StopIn(control);
        other->setFocus();
        const QImage rest = stage.Look();
        stop->setFocus(Qt::OtherFocusReason);
        QVERIFY(stage.Look() != rest); // off: of its own
        SetKeyboardCuesEnabled(true);
        QCOMPARE(stage.Look(), rest); // on: not before the keyboard moved
        other->setFocus();
        stop->setFocus(Qt::TabFocusReason);
        QVERIFY(RingIn(stage));
    }
};

VELMORA_TEST_MAIN(TestFocusRingOfEachClass)

#include "tst_FocusRingOfEachClass.moc"
