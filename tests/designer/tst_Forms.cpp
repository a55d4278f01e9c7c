#include "ByHand.h"
#include "Looks.h"

#include "ui_designed_dialog.h"
#include "ui_designed_window.h"
#include "ui_every_control.h"

#include "support/Pixels.h"
#include "support/TestMain.h"

#include <Velmora/QcDockContainer.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcStackedWidget.h>

#include <QFile>
#include <QUiLoader>

#include <functional>

using namespace Velmora;
using namespace VelmoraTest;

using Make = std::function<std::unique_ptr<QWidget>()>;

Q_DECLARE_METATYPE(Make)

namespace {

template <typename Form, typename Ui>
std::unique_ptr<QWidget> ByUic()
{
    auto form = std::make_unique<Form>();
    Ui().setupUi(form.get());
    return form;
}

} // namespace

/// Forms in a program of the kit: made into code by uic, and loaded while it runs.
class tst_Forms : public VelmoraTest::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    /// Docking has windows of its own, which stay from the first container on.
    void initTestCase() { const QcDockContainer container; }

    void a_form_looks_and_is_as_if_made_by_hand_data()
    {
        QTest::addColumn<Make>("byHand");
        QTest::addColumn<Make>("made");
        QTest::newRow("every control, by uic") << Make(EveryControlByHand) << Make(ByUic<QWidget, Ui::EveryControl>);
        QTest::newRow("every control, loaded") << Make(EveryControlByHand) << Make([] { return Loaded("every_control"); });
        QTest::newRow("a window, by uic") << Make(WindowByHand) << Make(ByUic<QcWindow, Ui::DesignedWindow>);
        QTest::newRow("a window, loaded") << Make(WindowByHand) << Make([] { return Loaded("designed_window"); });
        QTest::newRow("a dialog, by uic") << Make(DialogByHand) << Make(ByUic<QcDialog, Ui::DesignedDialog>);
        QTest::newRow("a dialog, loaded") << Make(DialogByHand) << Make([] { return Loaded("designed_dialog"); });
    }

    void a_form_looks_and_is_as_if_made_by_hand()
    {
        QFETCH(Make, byHand);
        QFETCH(Make, made);
        const Look expected = LookOf(*byHand());
        const Look actual = LookOf(*made());
        QVERIFY2(Differences(actual, expected).isEmpty(), qPrintable(Differences(actual, expected).join('\n')));
        QVERIFY(expected.facts.size() > 50);
        QCOMPARE(actual.picture, expected.picture);
    }

    void a_loaded_form_has_the_classes_of_the_kit()
    {
        const auto form = Loaded("every_control");
        QVERIFY(form->findChild<QcPrimaryButton *>("primaryButton"));
        auto *stack = form->findChild<QcStackedWidget *>("stackedWidget");
        QVERIFY(stack);
        QCOMPARE(stack->count(), 2);
        QCOMPARE(stack->currentWidget()->objectName(), QStringLiteral("page"));
    }

    void a_loader_begins_nothing_that_the_program_has_begun()
    {
        const QString sheet = qApp->styleSheet();
        const auto form = Loaded("every_control"); // fonts that were loaded again would say so
        QCOMPARE(qApp->styleSheet(), sheet);
        QWidget widget;
        int runs = 0;
        QcStyleManager::GetInstance()->RegisterColorHandler(&widget, [&runs] { ++runs; });
        widget.show();
        DrainEvents();
        runs = 0;
        UseTable(Table::Dark);
        DrainEvents();
        QCOMPARE(runs, 1);
        UseTable(Table::Light);
    }

    void a_loader_leaves_the_table_that_the_program_chose()
    {
        QCOMPARE(QcStyleManager::GetInstance()->GetColor("brand/brand"), TokenOf(Table::Light, "brand/brand"));
        UseTable(Table::Dark);
        const auto form = Loaded("every_control");
        QCOMPARE(QcStyleManager::GetInstance()->GetColor("brand/brand"), TokenOf(Table::Dark, "brand/brand"));
        UseTable(Table::Light);
    }
};

VELMORA_TEST_MAIN(tst_Forms)

#include "tst_Forms.moc"
