#include "support/TestMain.h"

#include <Velmora/QcDialog.h>
#include <Velmora/QcDockWidget.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcLoadingDialog.h>
#include <Velmora/QcNotification.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcProgressDialog.h>
#include <Velmora/QcTextEditFrame.h>
#include <Velmora/QcTextEditLimiter.h>
#include <Velmora/QcToast.h>
#include <Velmora/QcWindow.h>
#include <Velmora/Translations.h>
#include <Velmora/XlsxTemplate.h>

#include <QAbstractButton>
#include <QDir>
#include <QLabel>
#include <QTextEdit>
#include <QTranslator>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

QStringList Languages()
{
    return {QStringLiteral("ar"), QStringLiteral("de"), QStringLiteral("en"), QStringLiteral("es"),
            QStringLiteral("fr"), QStringLiteral("ja"), QStringLiteral("ru"), QStringLiteral("zh_CN")};
}

bool Load(QTranslator &texts, const QString &locale)
{
    return texts.load(QLocale(locale), QStringLiteral("velmora"), QStringLiteral("_"), TranslationsFolder(), QStringLiteral(".qm"));
}

/// The kit's texts in a language, from its making to its end.
class Speaking
{
public:
    explicit Speaking(const QString &locale)
    {
        m_isLoaded = Load(m_texts, locale) && QCoreApplication::installTranslator(&m_texts);
        DrainEvents();
    }
    ~Speaking()
    {
        QCoreApplication::removeTranslator(&m_texts);
        DrainEvents();
    }

    bool IsLoaded() const { return m_isLoaded; }

private:
    QTranslator m_texts;
    bool m_isLoaded = false;
};

/// What shows or tells texts of the kit's own.
struct Widgets
{
    QcWindow window;
    QcDialog dialog{&window};
    QcToast toast{&window};
    QcNotification notification{&window};
    QcTextEditLimiter field{&window};
    QcDockWidget panel{&window};

    Widgets() { panel.setWindowTitle(QStringLiteral("Files")); }

    QStringList Texts() const
    {
        QStringList texts;
        const auto tell = [&texts](const QWidget &owner, const char *name) {
            const auto *widget = owner.findChild<QWidget *>(QLatin1String(name));
            const QVariant text = widget ? widget->property("text") : QVariant();
            texts.append(text.toString());
            if (widget && !widget->accessibleName().isEmpty())
                texts.last() = widget->accessibleName();
        };
        texts.append(window.windowTitle());
        for (const char *name : {"m_titleLabel", "m_minButton", "m_maxRestoreButton", "m_closeButton"})
            tell(window, name);
        texts.append(dialog.windowTitle());
        for (const char *name : {"m_titleLabel", "m_minButton", "m_maxButton", "m_closeButton", "m_okButton", "m_cancelButton"})
            tell(dialog, name);
        tell(toast, "m_closeButton");
        for (const char *name : {"m_closeButton", "m_firstButton", "m_previousButton", "m_nextButton", "m_lastButton"})
            tell(notification, name);
        texts.append(field.findChild<QTextEdit *>()->placeholderText());
        texts.append(panel.findChild<QAbstractButton *>()->accessibleName());
        tell(panel, "m_dragTipLabel");
        tell(*QcLoadingDialog::getInstance(), "m_loadingLabel");
        tell(*QcProgressDialog::getInstance(), "m_tipLabel");
        return texts;
    }
};

class tst_Translations : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_library_loads_none_by_itself();
    void every_language_is_beside_the_library();
    void a_user_gets_the_language_of_the_locale_data();
    void a_user_gets_the_language_of_the_locale();
    void a_switch_of_language_relabels_what_the_kit_shows();
    void texts_of_a_host_survive_a_switch();
    void the_tip_of_a_dragged_panel_fits_into_a_small_one();
    void numbers_take_the_form_of_their_language_data();
    void numbers_take_the_form_of_their_language();
    void faults_of_a_workbook_are_told_in_the_language();
    void arabic_lays_the_program_out_from_right_to_left();
    void a_direction_that_a_host_sets_afterwards_stays();

public:
    tst_Translations()
    {
        QcLoadingDialog::getInstance(); // made before the first test, as they outlive each
        QcProgressDialog::getInstance();
    }
};

void tst_Translations::the_library_loads_none_by_itself()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
    const QcWindow window;
    QLocale::setDefault(before);
    QCOMPARE(window.windowTitle(), QStringLiteral("window"));
}

void tst_Translations::every_language_is_beside_the_library()
{
    QStringList expected = {QStringLiteral("velmora.qm")};
    for (const QString &language : Languages())
        expected.append(QStringLiteral("velmora_%1.qm").arg(language));
    expected.sort();
    const QDir folder(TranslationsFolder());
    QVERIFY(folder.isAbsolute());
    QCOMPARE(folder.entryList({QStringLiteral("*.qm")}, QDir::Files, QDir::Name), expected);
    QCOMPARE(QDir(QStringLiteral(TRANSLATION_SOURCES)).entryList({QStringLiteral("*.ts")}).size(), Languages().size());
}

void tst_Translations::a_user_gets_the_language_of_the_locale_data()
{
    QTest::addColumn<QString>("close");
    QTest::addColumn<QString>("enter");
    QTest::newRow("ar_EG") << QStringLiteral("إغلاق") << QStringLiteral("أدخل نصًا");
    QTest::newRow("de_AT") << QStringLiteral("Schließen") << QStringLiteral("Bitte Text eingeben");
    QTest::newRow("en_GB") << QStringLiteral("Close") << QStringLiteral("Please enter a text");
    QTest::newRow("es_MX") << QStringLiteral("Cerrar") << QStringLiteral("Escriba un texto");
    QTest::newRow("fr_CA") << QStringLiteral("Fermer") << QStringLiteral("Saisissez un texte");
    QTest::newRow("ja_JP") << QStringLiteral("閉じる") << QStringLiteral("テキストを入力してください");
    QTest::newRow("ru_RU") << QStringLiteral("Закрыть") << QStringLiteral("Введите текст");
    QTest::newRow("zh_CN") << QStringLiteral("关闭") << QStringLiteral("请输入文字");
    for (const char *other : {"it_IT", "tlh", "C"})
        QTest::newRow(other) << QStringLiteral("Close") << QStringLiteral("Please enter a text");
}

void tst_Translations::a_user_gets_the_language_of_the_locale()
{
    QFETCH(QString, close);
    QFETCH(QString, enter);
    const Speaking language{QLatin1String(QTest::currentDataTag())};
    QVERIFY(language.IsLoaded());
    QCOMPARE(QCoreApplication::translate("QcWindow", "Close"), close);
    QCOMPARE(QCoreApplication::translate("Velmora::QcTextEditLimiter", "PleaseEnterMsg"), enter);
}

void tst_Translations::a_switch_of_language_relabels_what_the_kit_shows()
{
    const Widgets widgets;
    const QStringList plain = widgets.Texts();
    QVERIFY2(!plain.contains(QString()), qPrintable(plain.join(QLatin1Char('|'))));
    QStringList before = plain;
    for (const QString &name : Languages()) {
        const Speaking language(name);
        const QStringList now = widgets.Texts();
        QVERIFY2(!now.contains(QString()), qPrintable(name));
        const Widgets late; // what is made after the switch says the same
        QCOMPARE(now, late.Texts());
        for (int i = 0; i < now.size(); ++i) {
            const bool isEnglish = name == QLatin1String("en") && now.at(i) == plain.at(i);
            QVERIFY2(isEnglish || now.at(i) != plain.at(i), qPrintable(name + QLatin1Char(' ') + plain.at(i)));
        }
        QVERIFY(now != before);
        before = now;
    }
    QCOMPARE(widgets.Texts(), plain);
}

void tst_Translations::texts_of_a_host_survive_a_switch()
{
    QcWindow window;
    window.setWindowTitle(QStringLiteral("Post"));
    window.setTitle(QStringLiteral("Letters"));
    QcTextEditLimiter field(&window);
    field.setPlaceholderText(QStringLiteral("Dear Sir"));
    const Speaking german(QStringLiteral("de"));
    QCOMPARE(window.windowTitle(), QStringLiteral("Post"));
    QCOMPARE(window.findChild<QcLabel *>(QStringLiteral("m_titleLabel"))->text(), QStringLiteral("Letters"));
    QCOMPARE(field.findChild<QTextEdit *>()->placeholderText(), QStringLiteral("Dear Sir"));
}

void tst_Translations::the_tip_of_a_dragged_panel_fits_into_a_small_one()
{
    QcDockWidget panel;
    panel.resize(240, 160);
    panel.show();
    for (const QString &name : Languages()) {
        const Speaking language(name);
        panel.SetDragTipVisible(true);
        DrainEvents();
        const auto *tip = panel.findChild<QLabel *>(QStringLiteral("m_dragTipLabel"));
        QVERIFY(tip->isVisible());
        QVERIFY2(panel.rect().contains(tip->geometry()), qPrintable(QStringLiteral("%1 %2").arg(name).arg(tip->width())));
    }
}

void tst_Translations::numbers_take_the_form_of_their_language_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("end");
    const auto row = [](const char *locale, int number, const QString &end) {
        QTest::addRow("%s %d", locale, number) << QString::fromLatin1(locale) << number << end;
    };
    row("en", 1, QStringLiteral("1 column."));
    row("en", 2, QStringLiteral("2 columns."));
    row("de", 1, QStringLiteral("1 Spalte."));
    row("de", 2, QStringLiteral("2 Spalten."));
    row("ja", 2, QStringLiteral("2 列です。"));
    row("ru", 1, QStringLiteral("1 столбец."));
    row("ru", 3, QStringLiteral("3 столбца."));
    row("ru", 11, QStringLiteral("11 столбцов."));
    row("ru", 21, QStringLiteral("21 столбец."));
    row("ar", 1, QStringLiteral("عمودًا واحدًا."));
    row("ar", 2, QStringLiteral("عمودين."));
    row("ar", 3, QStringLiteral("3 أعمدة."));
    row("ar", 11, QStringLiteral("11 عمودًا."));
    row("ar", 100, QStringLiteral("100 عمود."));
}

void tst_Translations::numbers_take_the_form_of_their_language()
{
    QFETCH(QString, locale);
    QFETCH(int, number);
    QFETCH(QString, end);
    const Speaking language(locale);
    const QString text =
        QCoreApplication::translate("XlsxTemplate", "There are %1 values, but %2 has %n columns.", nullptr, number).arg(5).arg("Items");
    QVERIFY2(text.endsWith(end), qPrintable(text));
}

void tst_Translations::faults_of_a_workbook_are_told_in_the_language()
{
    const Speaking german(QStringLiteral("de"));
    XlsxTemplate invoice;
    QVERIFY(!invoice.setValue(QStringLiteral("Customer"), 1));
    QCOMPARE(invoice.errorString(), QStringLiteral("Es gibt noch keine Vorlage."));
}

void tst_Translations::arabic_lays_the_program_out_from_right_to_left()
{
    const QcWindow window;
    QVERIFY(!window.isRightToLeft());
    {
        const Speaking arabic(QStringLiteral("ar"));
        QVERIFY(QGuiApplication::isRightToLeft());
        QVERIFY(window.isRightToLeft());
    }
    QVERIFY(!window.isRightToLeft());
    const Speaking german(QStringLiteral("de"));
    QVERIFY(!window.isRightToLeft());
}

void tst_Translations::a_direction_that_a_host_sets_afterwards_stays()
{
    const QcWindow window;
    const Speaking arabic(QStringLiteral("ar"));
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    DrainEvents();
    QVERIFY(!window.isRightToLeft());
    QCOMPARE(window.windowTitle(), QStringLiteral("نافذة"));
}

} // namespace

VELMORA_TEST_MAIN(tst_Translations)

#include "tst_Translations.moc"
