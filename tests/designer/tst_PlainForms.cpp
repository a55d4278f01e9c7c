#include "ByHand.h"
#include "Looks.h"

#include "support/FontLines.h"
#include "support/TestMain.h"

#include <Velmora/PlainApplication.h>
#include <Velmora/QcPrimaryButton.h>

#include <QApplication>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

int argc = 1;
char name[] = "tst_PlainForms";
char *argv[] = {name, nullptr};

} // namespace

/// Forms that a program loads whose application object is a plain one.
class tst_PlainForms : public VelmoraTest::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // First: nobody has chosen a table in this process yet.
    void controls_are_painted_in_a_plain_program_and_nothing_is_said()
    {
        QApplication application(argc, argv);
        ExpectFontLines(Log());
        const auto form = Loaded("every_control");
        form->show();
        DrainEvents();
        auto *button = form->findChild<QcPrimaryButton *>("primaryButton");
        QVERIFY(button);
        const QImage picture = Render(*form);
        COMPARE_COLOR(PixelAt(picture, button->geometry().topLeft() + QPointF(8, 4)), TokenOf(Table::Light, "brand/brand"));
        QVERIFY(application.styleSheet().isEmpty());
        QCOMPARE(LookOf(*form).picture, LookOf(*EveryControlByHand()).picture);
    }

    void controls_look_as_in_a_program_of_the_kit()
    {
        Look plain;
        {
            QApplication application(argc, argv);
            ExpectFontLines(Log());
            plain = LookOf(*Loaded("every_control"));
        }
        QcApplication application(argc, argv);
        ExpectFontLines(Log());
        application.Initialize();
        const Look ours = LookOf(*Loaded("every_control"));
        QCOMPARE(plain.picture, ours.picture);
    }

    void a_form_in_a_plain_program_follows_the_table()
    {
        QApplication application(argc, argv);
        ExpectFontLines(Log());
        const auto form = Loaded("every_control");
        form->show();
        DrainEvents();
        UseTable(Table::Dark);
        DrainEvents();
        const QImage followed = Render(*form);
        QCOMPARE(followed, LookOf(*EveryControlByHand()).picture);
        UseTable(Table::Light);
        DrainEvents();
        QVERIFY(followed != Render(*form));
    }

    void a_table_that_the_program_chose_stays()
    {
        QApplication application(argc, argv);
        UseTable(Table::Dark);
        ExpectFontLines(Log());
        const auto form = Loaded("every_control");
        QCOMPARE(QcStyleManager::GetInstance()->GetColor("brand/brand"), TokenOf(Table::Dark, "brand/brand"));
        UseTable(Table::Light);
    }
};

VELMORA_BARE_TEST_MAIN(tst_PlainForms)

#include "tst_PlainForms.moc"
