#include "support/FontLines.h"
#include "support/TestMain.h"

#include <Velmora/FileAndDesktop.h>
#include <Velmora/QcArrowTip.h>
#include <Velmora/QcCheckBox.h>
#include <Velmora/QcCombinedToolButton.h>
#include <Velmora/QcIconButton.h>
#include <Velmora/QcLineEdit.h>
#include <Velmora/QcLineEditFrame.h>
#include <Velmora/QcMenuTextButton.h>
#include <Velmora/QcMenuToolButton.h>
#include <Velmora/QcMultiLineText.h>
#include <Velmora/QcRadioButton.h>
#include <Velmora/QcToolButton.h>

#include <QAccessible>

using namespace Velmora;
using VelmoraTest::Table;
using VelmoraTest::UseTable;

/// From the first call of a host to the end of its application object, and once more in the same process.
class tst_ThemeStart : public VelmoraTest::TestCase
{
    Q_OBJECT

private:
    int m_argc = 1;
    char m_name[5] = "test";
    char *m_argv[2] = {m_name, nullptr};

private Q_SLOTS:
    // First, because Qt forgets what was installed only with the first application of a process.
    void assistive_technology_sees_our_interfaces_in_every_application_of_the_process()
    {
        const auto roleOf = [](QWidget &widget) { return QAccessible::queryAccessibleInterface(&widget)->role(); };
        const auto nameOf = [](QWidget &widget) { return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name); };
        for (int i = 0; i < 2; ++i) {
            QcApplication application(m_argc, m_argv);
            QcIconButton button;
            QcToolButton toolButton;
            QcMenuTextButton menuTextButton;
            QcMenuToolButton menuToolButton;
            for (QWidget *widget : {static_cast<QWidget *>(&button), static_cast<QWidget *>(&toolButton),
                                    static_cast<QWidget *>(&menuTextButton), static_cast<QWidget *>(&menuToolButton)}) {
                widget->setToolTip(QStringLiteral("Close"));
                QCOMPARE(nameOf(*widget), QStringLiteral("Close"));
            }
            // Plain Qt's action would have switched it by now.
            QcCheckBox box;
            QAccessible::queryAccessibleInterface(&box)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
            QVERIFY(!box.isChecked());
            QcRadioButton radio;
            QAccessible::queryAccessibleInterface(&radio)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
            QVERIFY(!radio.isChecked());
            QcMultiLineText text;
            text.setText(QStringLiteral("Some <b>text</b>"));
            QCOMPARE(nameOf(text), QStringLiteral("Some text"));
            QcLineEdit edit;
            edit.setPlaceholderText(QStringLiteral("Width"));
            QCOMPARE(nameOf(edit), QStringLiteral("Width"));
            QcCombinedToolButton combined;
            QCOMPARE(roleOf(combined), QAccessible::Grouping);
            QcLineEditFrame frame;
            QCOMPARE(roleOf(frame), QAccessible::Grouping);
            QcArrowTip tip;
            QCOMPARE(roleOf(tip), QAccessible::ToolTip);
        }
    }

    void without_a_table_every_token_is_unknown()
    {
        QVERIFY(!QcStyleManager::GetInstance()->GetColor("brand/brand").isValid());
        QCOMPARE(QcStyleManager::GetInstance()->ReplaceStyleSheetColorCodes(QStringLiteral("${brand/brand}")),
                 QStringLiteral("rgba(0, 0, 0, 1)"));
    }

    void without_an_application_images_are_made_and_not_kept()
    {
        ImageParams params;
        params.path = QStringLiteral(":/images/close.svg");
        params.size = QSize(16, 16);
        const QImage image = QcStyleManager::GetInstance()->GetImage(params);
        QCOMPARE(image.size(), QSize(16, 16));
        QVERIFY(QcStyleManager::GetInstance()->GetImage(params).cacheKey() != image.cacheKey());
    }

    void initialising_tells_the_fonts_and_appends_the_global_stylesheet()
    {
        QcApplication application(m_argc, m_argv);
        UseTable(Table::Light);
        const QString own = QStringLiteral("QLabel { color: ${brand/brand}; }");
        application.setStyleSheet(own);
        ExpectFontLines(Log());
        application.Initialize();
        QCOMPARE(Log().Announced().first(), QStringLiteral("QcStyleManager::LoadFont"));
        QVERIFY(Log().Announced().at(1).contains(QLatin1String("(\"Roboto\")")));

        const QString global = GetFileContent(QStringLiteral(":/qss/Global.qss"));
        const QString light = QStringLiteral("QLabel { color: rgba(51, 111, 255, 1); }") + global;
        QCOMPARE(application.styleSheet(), light);
        // Resolved this once: a later table does not touch it.
        UseTable(Table::Dark);
        QCOMPARE(application.styleSheet(), light);
        UseTable(Table::Light);
    }

    void a_second_application_in_the_process_themes_as_the_first()
    {
        ImageParams params;
        params.path = QStringLiteral(":/images/close.svg");
        params.size = QSize(16, 16);
        params.color = "brand/brand";
        qint64 firstKey = 0;
        {
            QcApplication application(m_argc, m_argv);
            firstKey = QcStyleManager::GetInstance()->GetPixmap(params).cacheKey();
            QCOMPARE(QcStyleManager::GetInstance()->GetPixmap(params).cacheKey(), firstKey);
        }
        QcApplication application(m_argc, m_argv);
        ExpectFontLines(Log());
        application.Initialize();
        const QPixmap pixmap = QcStyleManager::GetInstance()->GetPixmap(params);
        QVERIFY(pixmap.cacheKey() != firstKey); // no pixmap outlives its application
        QCOMPARE(QcStyleManager::GetInstance()->GetPixmap(params).cacheKey(), pixmap.cacheKey());

        QWidget widget;
        const QString sheet = QStringLiteral("QWidget { color: ${brand/brand}; }");
        QcStyleManager::GetInstance()->RegisterStyleSheet(&widget, sheet);
        widget.show();
        VelmoraTest::DrainEvents();
        UseTable(Table::Dark);
        QCOMPARE(widget.styleSheet(), QcStyleManager::GetInstance()->ReplaceStyleSheetColorCodes(sheet));
        QVERIFY(QcStyleManager::GetInstance()->GetPixmap(params).cacheKey() != pixmap.cacheKey());
    }
};

VELMORA_BARE_TEST_MAIN(tst_ThemeStart)
#include "tst_ThemeStart.moc"
