#include "support/FontLines.h"
#include "support/TestMain.h"

#include <Velmora/QcPrimaryButton.h>

#include <QAccessible>
#include <QApplication>
#include <QSignalSpy>

using namespace Velmora;
using VelmoraTest::Table;

namespace {

const QString kSheet = QStringLiteral("QWidget { color: ${brand/brand}; }");

} // namespace

/// A program whose application object is a plain QApplication: the theme works at the moment of the call, and not behind it.
class tst_PlainApplication : public VelmoraTest::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // First, because it is said once a process.
    void the_first_registration_warns_and_says_what_to_do()
    {
        ExpectWarning(QStringLiteral("QcStyleManager::RegisterColorHandler: the application object is not a QcApplication, so controls "
                                     "stay unpainted and do not follow the colour table; make a QcApplication in its place and call its "
                                     "Initialize()."));
        QcStyleManager *manager = QcStyleManager::GetInstance();
        manager->RegisterColorHandler(nullptr, [] {}); // says nothing
        QVERIFY(Log().Announced().isEmpty());
        QWidget widget;
        manager->RegisterColorHandler(&widget, [] {});
        QCOMPARE(Log().Announced().size(), 1);
        manager->RegisterColorHandler(&widget, [] {});
        manager->RegisterStyleSheet(&widget, kSheet);
        ExpectFontLines(Log());
        manager->Initialize();
    }

    void registrations_act_at_once_and_never_again()
    {
        QcStyleManager *manager = QcStyleManager::GetInstance();
        QWidget shown;
        QWidget hidden;
        int runs = 0;
        for (QWidget *widget : {&shown, &hidden}) {
            manager->RegisterStyleSheet(widget, kSheet);
            manager->RegisterColorHandler(widget, [&runs] { ++runs; });
        }
        QCOMPARE(runs, 2);
        const QString light = manager->ReplaceStyleSheetColorCodes(kSheet);
        QCOMPARE(shown.styleSheet(), light);
        shown.show();
        VelmoraTest::DrainEvents();
        QCOMPARE(runs, 2);

        VelmoraTest::UseTable(Table::Dark);
        QVERIFY(manager->ReplaceStyleSheetColorCodes(kSheet) != light);
        QCOMPARE(runs, 2);
        QCOMPARE(shown.styleSheet(), light);
        QCOMPARE(hidden.property("uNeedProcesUpdateColor"), QVariant(true));
        hidden.show();
        VelmoraTest::DrainEvents();
        QCOMPARE(runs, 2);
        QCOMPARE(hidden.styleSheet(), light);
        QCOMPARE(hidden.property("uNeedProcesUpdateColor"), QVariant(false));
    }

    void assistive_technology_presses_buttons_there_too()
    {
        QcPrimaryButton button;
        QSignalSpy clicks(&button, &QAbstractButton::clicked);
        QAccessible::queryAccessibleInterface(&button)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(clicks.count(), 0);
        QTRY_COMPARE(clicks.count(), 1);
    }

    void images_are_kept_there_too()
    {
        ImageParams params;
        params.path = QStringLiteral(":/images/close.svg");
        params.size = QSize(16, 16);
        params.color = "brand/brand";
        const QImage image = QcStyleManager::GetInstance()->GetImage(params);
        QCOMPARE(image.size(), QSize(16, 16));
        QCOMPARE(QcStyleManager::GetInstance()->GetImage(params).cacheKey(), image.cacheKey());
    }
};

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    VelmoraTest::UseTable(Table::Light);
    tst_PlainApplication test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_PlainApplication.moc"
