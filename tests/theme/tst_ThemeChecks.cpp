#include "support/TestMain.h"

#include <Velmora/ColorParams.h>
#include <Velmora/QcApplication.h>
#include <Velmora/QcFrame.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcStyleManager.h>
#include <Velmora/ThemeChecks.h>

#include <QLabel>
#include <QTemporaryDir>

#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

QcStyleManager &Theme()
{
    return *QcStyleManager::GetInstance();
}

/// What is wrong before there is a table comes first: once one is loaded, there always is one.
class tst_ThemeChecks : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void off_at_first_and_silent();
    void the_environment_switches_them_on();
    void a_control_painted_before_a_table_is_named_once();
    void a_registered_widget_painted_before_a_table_is_named();
    void a_plain_widget_is_not_named();
    void no_token_is_named_before_a_table();
    void no_widget_is_named_once_a_table_is_loaded();
    void a_token_that_the_table_lacks_is_named_once();
    void tokens_of_stylesheets_and_images_are_named();
    void what_the_table_or_qt_knows_is_not_named();
    void nothing_is_named_once_they_are_off_and_anew_once_on();

protected:
    void SetUp() override
    {
        static int argc = 1;
        static char name[] = "tst_ThemeChecks";
        static char *argv[] = {name, nullptr};
        m_application = std::make_unique<QcApplication>(argc, argv);
    }
    void TearDown() override
    {
        SetThemeChecksEnabled(false);
        m_application.reset();
    }

    void UseTheTable() { UseTable(Table::Light); }
    void ExpectUnknown(const QString &token)
    {
        ExpectWarning(QStringLiteral("Theme check: :/colors/blue_light.ini has no token \"%1\"").arg(token));
    }
    void ExpectEarly(const QString &widget)
    {
        ExpectWarning(QStringLiteral("Theme check: %1 is painted before a colour table is loaded").arg(widget));
    }

private:
    std::unique_ptr<QcApplication> m_application;
};

void tst_ThemeChecks::off_at_first_and_silent()
{
    QVERIFY(!ThemeChecksEnabled());
    QcFrame frame;
    frame.grab();
    Theme().GetColor(ColorParams("no/such"));
}

void tst_ThemeChecks::the_environment_switches_them_on()
{
    TearDown();
    qputenv("VELMORA_THEME_CHECKS", "0");
    SetUp();
    QVERIFY(!ThemeChecksEnabled());
    TearDown();
    qputenv("VELMORA_THEME_CHECKS", "1");
    SetUp();
    qunsetenv("VELMORA_THEME_CHECKS");
    QVERIFY(ThemeChecksEnabled());
    QcFrame frame;
    ExpectEarly(QStringLiteral("Velmora::QcFrame \"\""));
    frame.grab();
}

void tst_ThemeChecks::a_control_painted_before_a_table_is_named_once()
{
    class Hosts : public QcFrame
    {
    };
    SetThemeChecksEnabled(true);
    QWidget window;
    auto *frame = new QcFrame(&window);
    frame->setObjectName(QStringLiteral("sidebar"));
    ExpectEarly(QStringLiteral("Velmora::QcFrame \"sidebar\""));
    window.grab();
    window.grab();
    auto *second = new Hosts;
    second->setParent(&window);
    second->show();
    ExpectEarly(QStringLiteral("Velmora::QcFrame \"\""));
    window.grab();
    delete frame;
    window.grab();
}

void tst_ThemeChecks::a_registered_widget_painted_before_a_table_is_named()
{
    SetThemeChecksEnabled(true);
    QLabel styled;
    styled.setObjectName(QStringLiteral("styled"));
    Theme().RegisterStyleSheet(&styled, QStringLiteral("QLabel { padding: 1px; }"));
    ExpectEarly(QStringLiteral("QLabel \"styled\""));
    styled.grab();
    QWidget handled;
    Theme().RegisterColorHandler(&handled, [] {});
    ExpectEarly(QStringLiteral("QWidget \"\""));
    handled.grab();
}

void tst_ThemeChecks::a_plain_widget_is_not_named()
{
    SetThemeChecksEnabled(true);
    QLabel plain(QStringLiteral("plain"));
    plain.grab();
}

void tst_ThemeChecks::no_token_is_named_before_a_table()
{
    SetThemeChecksEnabled(true);
    Theme().GetColor(ColorParams("brand/brand"));
}

void tst_ThemeChecks::no_widget_is_named_once_a_table_is_loaded()
{
    SetThemeChecksEnabled(true);
    QcFrame frame;
    UseTheTable();
    frame.grab();
    SetThemeChecksEnabled(false);
    SetThemeChecksEnabled(true);
    frame.grab();
}

void tst_ThemeChecks::a_token_that_the_table_lacks_is_named_once()
{
    UseTheTable();
    SetThemeChecksEnabled(true);
    ExpectUnknown(QStringLiteral("brand/bran"));
    Theme().GetColor(ColorParams("brand/bran"));
    Theme().GetColor(ColorParams("${brand/bran, 0.5}"));
    ExpectUnknown(QStringLiteral("bg/bgbox"));
    QcFrame frame;
    frame.setBackgroundColorParams(QStringLiteral("bg/bgbox"));
    frame.grab();
    frame.grab();
}

void tst_ThemeChecks::tokens_of_stylesheets_and_images_are_named()
{
    UseTheTable();
    SetThemeChecksEnabled(true);
    ExpectUnknown(QStringLiteral("text/text_primry"));
    Theme().ReplaceStyleSheetColorCodes(QStringLiteral("QLabel { color: ${text/text_primry, 0.5}; background: ${bg/bg_box}; }"));
    ExpectUnknown(QStringLiteral("icon/non"));
    ImageParams params;
    params.path = QStringLiteral(":/images/close.svg");
    params.size = QSize(16, 16);
    params.color = ColorParams("icon/non");
    Theme().GetImage(params);
}

void tst_ThemeChecks::what_the_table_or_qt_knows_is_not_named()
{
    UseTheTable();
    SetThemeChecksEnabled(true);
    for (const char *code : {"brand/brand", "transparent", "red", "#123456", ""})
        Theme().GetColor(ColorParams(code));
}

void tst_ThemeChecks::nothing_is_named_once_they_are_off_and_anew_once_on()
{
    UseTheTable();
    SetThemeChecksEnabled(true);
    ExpectUnknown(QStringLiteral("no/such"));
    Theme().GetColor(ColorParams("no/such"));
    SetThemeChecksEnabled(false);
    Theme().GetColor(ColorParams("none/such"));
    SetThemeChecksEnabled(true);
    ExpectUnknown(QStringLiteral("no/such"));
    Theme().GetColor(ColorParams("no/such"));
}

} // namespace

VELMORA_BARE_TEST_MAIN(tst_ThemeChecks)

#include "tst_ThemeChecks.moc"
