#include "support/Cues.h"
#include "support/TestMain.h"
#include "theme/Mnemonics_p.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QRandomGenerator>
#include <QWidget>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QString kArabic = QStringLiteral("\u062D\u0641\u0638 &\u0627\u0644\u0645\u0644\u0641");
const QString kChinese = QStringLiteral("\u4FDD\u5B58(&S)");

QFont TextFont()
{
    QFont font;
    font.setPixelSize(14);
    return font;
}

/// What \a paint(painter, place) leaves on white.
template <typename Paint>
QImage Picture(const Paint &paint)
{
    QImage image(400, 30, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(TextFont());
    paint(painter, image.rect());
    return image;
}

QImage DrawnByUs(const QString &text, int flags = Qt::AlignCenter)
{
    QWidget widget;
    return Picture([&](QPainter &painter, const QRect &place) { DrawMarked(painter, place, flags, text, widget.style(), &widget); });
}

QImage DrawnByQt(const QString &text, int flags = Qt::AlignCenter)
{
    return Picture([&](QPainter &painter, const QRect &place) { painter.drawText(place, flags, text); });
}

/// Letters, blanks, marks, line breaks, of several directions.
QString RandomText(QRandomGenerator &random)
{
    static const QString letters = QStringLiteral("ab &&&& \u05E9\u05DC\u4FDD\u5B58(<>)\n\u0627\u0644");
    QString text;
    const int length = random.bounded(1, 14);
    for (int i = 0; i < length; ++i)
        text += letters.at(random.bounded(letters.size()));
    return text;
}

} // namespace

class TestMnemonics : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_style = QuietStyle::Install(); }

    void without_cues_a_text_is_shown_as_it_stands_data()
    {
        QTest::addColumn<QString>("text");
        for (const QString &text : {QStringLiteral("&Save"), QStringLiteral("R & D"), QStringLiteral("A && B"), QStringLiteral("Save &"),
                                    QStringLiteral("<b>&x</b>"), kArabic, kChinese, QString()})
            QTest::newRow(qUtf8Printable(text)) << text;
    }

    void without_cues_a_text_is_shown_as_it_stands()
    {
        QFETCH(QString, text);
        const QFontMetrics metrics(TextFont());
        QCOMPARE(ShownText(text), text);
        for (int width = 0; width < 90; ++width)
            QCOMPARE(ElidedMarked(metrics, text, width), metrics.elidedText(text, Qt::ElideRight, width));
        for (const bool underlines : {false, true}) {
            m_style->underlines = underlines;
            QCOMPARE(DrawnByUs(text), DrawnByQt(text));
        }
    }

    void with_cues_a_text_is_read_without_its_marks_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("shown");
        const auto row = [](const char *name, const QString &text, const QString &shown) { QTest::newRow(name) << text << shown; };
        row("none", QStringLiteral("Save"), QStringLiteral("Save"));
        row("empty", QString(), QString());
        row("first letter", QStringLiteral("&Save"), QStringLiteral("Save"));
        row("inside", QStringLiteral("Save &as"), QStringLiteral("Save as"));
        row("two marks", QStringLiteral("&Save &as"), QStringLiteral("Save as"));
        row("a real one", QStringLiteral("A && B"), QStringLiteral("A & B"));
        row("a real one and a mark", QStringLiteral("A &&&B"), QStringLiteral("A &B"));
        row("a blank is marked", QStringLiteral("R & D"), QStringLiteral("R  D"));
        row("nothing is marked", QStringLiteral("Save &"), QStringLiteral("Save "));
        row("alone", QStringLiteral("&"), QString());
        row("markup", QStringLiteral("<b>&x</b> &amp;"), QStringLiteral("<b>x</b> amp;"));
        row("right to left", kArabic, QString(kArabic).remove(QLatin1Char('&')));
        row("no letter of its own", kChinese, QStringLiteral("\u4FDD\u5B58(S)"));
    }

    void with_cues_a_text_is_read_without_its_marks()
    {
        QFETCH(QString, text);
        QFETCH(QString, shown);
        const Cues cues;
        QCOMPARE(ShownText(text), shown);
    }

    void what_is_shown_is_what_qt_draws_and_measures()
    {
        const Cues cues;
        QRandomGenerator random(1);
        const QFontMetrics metrics(TextFont());
        for (int i = 0; i < 2000; ++i) {
            const QString text = RandomText(random);
            m_style->underlines = false;
            const int hidden = Qt::TextShowMnemonic | Qt::TextHideMnemonic;
            QVERIFY2(DrawnByUs(text) == DrawnByQt(text, Qt::AlignCenter | hidden), qUtf8Printable(text));
            QVERIFY2(DrawnByUs(text) == DrawnByQt(ShownText(text)), qUtf8Printable(text));
            m_style->underlines = true;
            QVERIFY2(DrawnByUs(text) == DrawnByQt(text, Qt::AlignCenter | Qt::TextShowMnemonic), qUtf8Printable(text));
            QVERIFY2(metrics.size(0, ShownText(text)) == metrics.size(Qt::TextShowMnemonic, text), qUtf8Printable(text));
        }
    }

    void an_elided_text_is_the_elided_text_that_is_shown()
    {
        const Cues cues;
        m_style->underlines = false;
        QRandomGenerator random(2);
        const QFontMetrics metrics(TextFont());
        for (int i = 0; i < 500; ++i) {
            const QString text = RandomText(random);
            for (int width = 0; width < 120; width += 7) {
                const QString elided = metrics.elidedText(ShownText(text), Qt::ElideRight, width);
                QCOMPARE(ShownText(ElidedMarked(metrics, text, width)), elided);
            }
        }
    }

    void the_letters_that_are_left_keep_their_marks()
    {
        const Cues cues;
        const QFontMetrics metrics(TextFont());
        const QString text = QStringLiteral("&Save && &close");
        QCOMPARE(ElidedMarked(metrics, text, 1000), text);
        const int width = metrics.horizontalAdvance(QStringLiteral("Save & c\u2026")) + 1;
        QCOMPARE(ElidedMarked(metrics, text, width), QStringLiteral("&Save && &c\u2026"));
        QCOMPARE(ElidedMarked(metrics, text, metrics.horizontalAdvance(QStringLiteral("Sa\u2026")) + 1), QStringLiteral("&Sa\u2026"));
    }

    void an_ellipsis_takes_no_mark_of_a_letter_that_was_cut_away()
    {
        const Cues cues;
        const QFontMetrics metrics(TextFont());
        const QString text = QStringLiteral("Save &xyz");
        for (int width = 0; width < metrics.horizontalAdvance(text); ++width) {
            const QString elided = ElidedMarked(metrics, text, width);
            QCOMPARE(elided.contains(QLatin1Char('&')), elided.contains(QLatin1Char('x')));
        }
    }

    void a_switch_of_cues_is_told_to_widgets_as_a_change_of_style()
    {
        class Listener : public QWidget
        {
        public:
            int changes = 0;

        protected:
            void changeEvent(QEvent *event) override { changes += event->type() == QEvent::StyleChange ? 1 : 0; }
        };
        Listener listener;
        SetKeyboardCuesEnabled(false); // as they are
        QCOMPARE(listener.changes, 0);
        {
            const Cues cues;
            QCOMPARE(listener.changes, 1);
            SetKeyboardCuesEnabled(true);
            QCOMPARE(listener.changes, 1);
        }
        QCOMPARE(listener.changes, 2);
    }

    void a_switch_of_cues_survives_a_widget_that_another_does_away_with()
    {
        class Killer : public QWidget
        {
        public:
            QWidget *victim = nullptr;

        protected:
            void changeEvent(QEvent * /*event*/) override { delete std::exchange(victim, nullptr); }
        };
        // Whichever of them is asked first.
        Killer one;
        Killer two;
        one.victim = new QWidget;
        two.victim = new QWidget;
        const Cues cues;
        QVERIFY(!one.victim);
        QVERIFY(!two.victim);
    }

private:
    QuietStyle *m_style = nullptr;
};

VELMORA_TEST_MAIN(TestMnemonics)

#include "tst_Mnemonics.moc"
