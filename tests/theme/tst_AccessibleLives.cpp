#include "theme/EachClass.h"
#include "theme/FocusStage.h"

#include "support/TestMain.h"

#include <QAccessible>
#include <QPointer>
#include <QSignalSpy>

#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <private/qguiapplication_p.h>

#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

Q_DECLARE_METATYPE(Make)

namespace {

constexpr int kDeep = 12;

/// Asks for all that \a one tells, and what lies below it.
int ReadAll(QAccessibleInterface *one, int depth = 0)
{
    if (!one || !one->isValid() || depth > kDeep)
        return 0;
    one->role();
    one->state();
    one->rect();
    one->window();
    one->parent();
    one->focusChild();
    for (const QAccessible::Text kind :
         {QAccessible::Name, QAccessible::Description, QAccessible::Value, QAccessible::Help, QAccessible::Accelerator})
        one->text(kind);
    if (QAccessibleTextInterface *text = one->textInterface()) {
        int start = 0;
        int end = 0;
        const int count = text->characterCount();
        text->text(0, count);
        text->cursorPosition();
        text->selection(0, &start, &end);
        for (const int offset : {-1, 0, count / 2, count, count + 9}) {
            text->characterRect(offset);
            text->textAtOffset(offset, QAccessible::WordBoundary, &start, &end);
            text->textBeforeOffset(offset, QAccessible::LineBoundary, &start, &end);
            text->textAfterOffset(offset, QAccessible::CharBoundary, &start, &end);
        }
        text->offsetAtPoint(one->rect().center());
    }
    if (QAccessibleValueInterface *value = one->valueInterface()) {
        value->currentValue();
        value->maximumValue();
    }
    if (QAccessibleActionInterface *action = one->actionInterface()) {
        const QStringList names = action->actionNames();
        for (const QString &name : names)
            action->keyBindingsForAction(name);
    }
    const QPoint centre = one->rect().center();
    one->childAt(centre.x(), centre.y());
    int read = 1;
    for (int i = 0; i < one->childCount(); ++i) {
        QAccessibleInterface *child = one->child(i);
        if (child)
            one->indexOfChild(child);
        read += ReadAll(child, depth + 1);
    }
    return read;
}

/// A client that reads all of an object each time that it is told anything of it, for as long as this lives.
class EagerReader
{
public:
    EagerReader()
    {
        s_read = 0;
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
        m_previous = QAccessible::installUpdateHandler([](QAccessibleEvent *event) {
            if (event->type() != QAccessible::ObjectDestroyed)
                s_read += ReadAll(event->accessibleInterface());
        });
    }
    ~EagerReader()
    {
        QAccessible::installUpdateHandler(m_previous);
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(false);
    }
    EagerReader(const EagerReader &) = delete;
    EagerReader &operator=(const EagerReader &) = delete;

    int Read() const { return s_read; }

private:
    static inline int s_read = 0;
    QAccessible::UpdateHandler m_previous;
};

QWidget *NewAdaptiveText(QWidget *page)
{
    auto *text = static_cast<QcMultiLineText *>(NewText(page));
    text->setHeightAdaptive(true);
    return text;
}

QWidget *NewEditableSelector(QWidget *page)
{
    auto *selector = new QcSelector(page);
    selector->addItems({QStringLiteral("One"), QStringLiteral("Two")});
    selector->setEditable(true);
    return selector;
}

QWidget *NewMenuButton(QWidget *page)
{
    auto *button = new QcMenuTextButton(page);
    auto *menu = new QcMenu(QStringLiteral("Menu"), button);
    menu->addQcAction(QStringLiteral("One"));
    auto *submenu = new QcMenu(QStringLiteral("More"), menu);
    submenu->addQcAction(QStringLiteral("Two"));
    menu->addQcMenu(submenu);
    button->setMenu(menu);
    return button;
}

QWidget *NewTabs(QWidget *page)
{
    auto *tabs = new QcDockAreaTabFrame(page);
    tabs->addTab(QStringLiteral("One"), new QcDockWidget);
    tabs->addTab(QStringLiteral("Two"), new QcDockWidget);
    return tabs;
}

QWidget *NewLabelWithBuddy(QWidget *page)
{
    auto *row = new QWidget(page);
    auto *label = new QcLabel(row);
    label->setText(QStringLiteral("&Name"));
    label->setBuddy(new QcLineEditFrame(row));
    return row;
}

const Case kOthers[] = {
    {"a text of its own height", NewAdaptiveText}, {"QcSelector, editable", NewEditableSelector},
    {"a button with a menu", NewMenuButton},       {"QcDockAreaTabFrame", NewTabs},
    {"a label and its field", NewLabelWithBuddy},  {"QcMaskFrame", New<QcMaskFrame>},
};

void AddEach()
{
    QTest::addColumn<Make>("make");
    for (const Case &one : kKit)
        QTest::newRow(one.className) << one.make;
    for (const Case &one : kOthers)
        QTest::newRow(one.className) << one.make;
}

/// \a one and all that lies below it.
QVector<QAccessibleInterface *> Tree(QAccessibleInterface *one)
{
    QVector<QAccessibleInterface *> tree{one};
    for (int i = 0; i < one->childCount(); ++i) {
        if (QAccessibleInterface *child = one->child(i))
            tree += Tree(child);
    }
    return tree;
}

/// Asks each of \a tree for all that it can do.
void AskForEverything(const QVector<QAccessibleInterface *> &tree)
{
    for (QAccessibleInterface *one : tree) {
        QAccessibleActionInterface *action = one->actionInterface();
        const QStringList names = action ? action->actionNames() : QStringList();
        for (const QString &name : names) {
            if (name != QAccessibleActionInterface::setFocusAction()) // which is done at once
                action->doAction(name);
        }
    }
}

} // namespace

/// What assistive technology holds of objects that come and go.
class TestAccessibleLives : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void all_may_be_read_whenever_anything_is_told_data() { AddEach(); }
    void all_may_be_read_whenever_anything_is_told()
    {
        QFETCH(Make, make);
        const EagerReader reader;
        auto stage = std::make_unique<FocusStage>();
        QPointer<QWidget> control = make(stage.get());
        control->setAccessibleName(QStringLiteral("Control"));
        control->move(50, 50);
        QVERIFY(stage->Begin());
        control->setFocus(Qt::TabFocusReason);
        stage->Press(Qt::Key_Tab);
        for (QMenu *menu : control->findChildren<QMenu *>()) {
            menu->popup(stage->mapToGlobal(QPoint()));
            QTest::keyClick(menu, Qt::Key_Down);
            menu->close();
        }
        if (!control->findChild<QMenu *>()) // which a key would open until it closes
            stage->Press(Qt::Key_Space);
        if (QWidget *popup = QApplication::activePopupWidget())
            popup->close();
        control->setEnabled(false);
        control->setAccessibleName(QStringLiteral("Another name"));
        control->hide();
        control->setEnabled(true);
        control->show();
        DrainEvents();
        QVERIFY(reader.Read() > 0);
        const int read = reader.Read();
        delete control;
        QVERIFY(reader.Read() >= read);
        stage.reset();
        DrainEvents();
    }

    void what_is_asked_of_the_dying_is_not_done_data() { AddEach(); }
    void what_is_asked_of_the_dying_is_not_done()
    {
        QFETCH(Make, make);
        FocusStage stage;
        QWidget *control = make(&stage);
        QVERIFY(stage.Begin());
        const QVector<QAccessibleInterface *> tree = Tree(QAccessible::queryAccessibleInterface(control));
        QVector<QAccessible::Id> ids;
        for (QAccessibleInterface *one : tree)
            ids.append(QAccessible::uniqueId(one));
        QVector<std::shared_ptr<QSignalSpy>> clicks;
        for (QAbstractButton *button : control->findChildren<QAbstractButton *>())
            clicks.append(std::make_shared<QSignalSpy>(button, &QAbstractButton::clicked));
        const auto before = QApplication::topLevelWidgets().size();
        AskForEverything(tree);
        delete control;
        DrainEvents();
        for (const auto &spy : clicks)
            QCOMPARE(spy->count(), 0);
        QVERIFY(!QApplication::activePopupWidget());
        QVERIFY(QApplication::topLevelWidgets().size() <= before);
        for (const QAccessible::Id id : qAsConst(ids))
            QVERIFY(!QAccessible::accessibleInterface(id));
    }

    void one_action_may_end_what_another_was_asked_of()
    {
        FocusStage stage;
        auto *button = stage.Add<QcButton>(QRect(10, 10, 80, 24));
        QPointer<QcMultiLineText> text = stage.Add<QcMultiLineText>(QRect(10, 50, 200, 60));
        text->setText(QStringLiteral("<a href=\"1\">One</a> and <a href=\"2\">two</a>"));
        QVERIFY(stage.Begin());
        connect(button, &QAbstractButton::clicked, this, [&] { delete text; });
        QSignalSpy followed(text, &QcMultiLineText::signalAnchorClicked);
        AskForEverything(Tree(QAccessible::queryAccessibleInterface(button)) + Tree(QAccessible::queryAccessibleInterface(text)));
        DrainEvents();
        QVERIFY(!text);
        QCOMPARE(followed.count(), 0);
    }

    void a_link_that_a_reader_presses_may_end_or_change_its_text()
    {
        FocusStage stage;
        QPointer<QcMultiLineText> text = stage.Add<QcMultiLineText>(QRect(10, 50, 200, 60));
        text->setText(QStringLiteral("<a href=\"1\">One</a> and <a href=\"2\">two</a>"));
        QVERIFY(stage.Begin());
        int followed = 0;
        const auto change = connect(text, &QcMultiLineText::signalAnchorClicked, this, [&] {
            ++followed;
            text->setText(QStringLiteral("<a href=\"3\">Three</a>"));
        });
        AskForEverything(Tree(QAccessible::queryAccessibleInterface(text)));
        DrainEvents();
        QCOMPARE(followed, 1); // the other one was of a text that is no more
        disconnect(change);
        connect(text, &QcMultiLineText::signalAnchorClicked, this, [&] { delete text; });
        AskForEverything(Tree(QAccessible::queryAccessibleInterface(text)));
        DrainEvents();
        QVERIFY(!text);
    }
};

VELMORA_TEST_MAIN(TestAccessibleLives)

#include "tst_AccessibleLives.moc"
