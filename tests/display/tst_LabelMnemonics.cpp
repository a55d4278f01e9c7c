#include "support/Cues.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include <Velmora/QcLabel.h>

#include <QAccessible>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMovie>
#include <QPainter>
#include <QPicture>

#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

void Fill(QcLabel &label, const QString &text)
{
    label.setType(QcLabel::Body);
    label.setText(text);
    label.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label.resize(120, 60);
}

} // namespace

class TestLabelMnemonics : public TestCase
{
    Q_OBJECT

protected:
    void SetUp() override { m_style->underlines = false; }

private Q_SLOTS:
    void initTestCase() { m_style = QuietStyle::Install(); }

    void a_label_of_a_buddy_shows_its_text_without_the_marks_data()
    {
        QTest::addColumn<QString>("marked");
        QTest::addColumn<QString>("shown");
        QTest::newRow("a mark") << QStringLiteral("&Name:") << QStringLiteral("Name:");
        QTest::newRow("a real one") << QStringLiteral("A && B") << QStringLiteral("A & B");
        QTest::newRow("markup") << QStringLiteral("<b>&x</b>") << QStringLiteral("<b>x</b>");
        QTest::newRow("lines") << QStringLiteral("&One\n&two") << QStringLiteral("One\ntwo");
        QTest::newRow("elided") << QStringLiteral("&A text that is longer than the label, && more")
                                << QStringLiteral("A text that is longer than the label, & more");
        QTest::newRow("right to left") << QStringLiteral("\u05E9&\u05DC\u05D5\u05DD") << QStringLiteral("\u05E9\u05DC\u05D5\u05DD");
        QTest::newRow("no letter of its own") << QStringLiteral("\u4FDD\u5B58(&S)") << QStringLiteral("\u4FDD\u5B58(S)");
    }

    void a_label_of_a_buddy_shows_its_text_without_the_marks()
    {
        QFETCH(QString, marked);
        QFETCH(QString, shown);
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            QcLabel plain; // without cues as it stands
            Fill(plain, shown);
            plain.setLayoutDirection(direction);
            const QImage expected = Render(plain);
            const Cues cues;
            QLineEdit buddy;
            QcLabel label;
            label.setBuddy(&buddy);
            Fill(label, marked);
            label.setLayoutDirection(direction);
            QCOMPARE(Render(label), expected);
            QCOMPARE(label.sizeHint(), plain.sizeHint());
            QCOMPARE(label.minimumSizeHint(), plain.minimumSizeHint());
            QCOMPARE(label.heightForWidth(50), plain.heightForWidth(50));
            m_style->underlines = true;
            QVERIFY((Render(label) != expected) == (shown.contains(QLatin1Char('&')) ? marked.startsWith(QLatin1Char('&')) : true));
            m_style->underlines = false;
        }
    }

    void a_label_without_a_buddy_shows_its_text_as_it_stands()
    {
        QcLabel label;
        Fill(label, QStringLiteral("R&D && more"));
        const QImage expected = Render(label);
        const QSize hint = label.sizeHint();
        const Cues cues;
        m_style->underlines = true;
        QCOMPARE(Render(label), expected);
        QCOMPARE(label.sizeHint(), hint);
    }

    void without_cues_a_label_shows_its_text_as_it_stands()
    {
        QcLabel plain;
        Fill(plain, QStringLiteral("R&D && more"));
        QLineEdit buddy;
        QcLabel label;
        label.setBuddy(&buddy);
        Fill(label, plain.text());
        m_style->underlines = true;
        QCOMPARE(Render(label), Render(plain));
        QCOMPARE(label.sizeHint(), plain.sizeHint());
        {
            const Cues cues;
            QVERIFY(Render(label) != Render(plain));
        }
        QCOMPARE(Render(label), Render(plain));
    }

    void a_new_buddy_and_a_switch_lay_the_label_out_anew()
    {
        QWidget window;
        QHBoxLayout row(&window);
        QcLabel label;
        QLineEdit edit;
        label.setType(QcLabel::Body);
        label.setText(QStringLiteral("&a&a&a&a&a&a"));
        label.setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        row.addWidget(&label);
        row.addWidget(&edit);
        window.resize(400, 100);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        DrainEvents();
        const int wide = label.width();
        const Cues cues;
        DrainEvents();
        QCOMPARE(label.width(), wide);
        label.setBuddy(&edit);
        DrainEvents();
        const int narrow = label.width();
        QVERIFY(narrow < wide);
        SetKeyboardCuesEnabled(false);
        DrainEvents();
        QCOMPARE(label.width(), wide);
        SetKeyboardCuesEnabled(true);
        DrainEvents();
        QCOMPARE(label.width(), narrow);
        label.setText(QStringLiteral("&b&b&b&b&b&b"));
        DrainEvents();
        QVERIFY(label.width() < wide);
        label.setBuddy(nullptr);
        label.setText(QStringLiteral("&a&a&a&a&a&a"));
        DrainEvents();
        QCOMPARE(label.width(), wide);
    }

    void marks_stay_out_of_sight_when_the_buddy_goes_as_in_a_plain_label_data()
    {
        QTest::addColumn<bool>("dies");
        QTest::newRow("dies") << true;
        QTest::newRow("is taken away") << false;
    }

    void marks_stay_out_of_sight_when_the_buddy_goes_as_in_a_plain_label()
    {
        QFETCH(bool, dies);
        const Cues cues;
        const QString text = QStringLiteral("&a&a&a&a&a&a");
        QLabel plain(text);
        QcLabel label;
        Fill(label, text);
        const int wide = label.sizeHint().width();
        const int wideInPlain = plain.sizeHint().width();
        const auto areHidden = [&] { return QVector<bool>{plain.sizeHint().width() < wideInPlain, label.sizeHint().width() < wide}; };
        QCOMPARE(areHidden(), (QVector<bool>{false, false}));
        auto buddy = std::make_unique<QLineEdit>();
        for (QLabel *each : {&plain, static_cast<QLabel *>(&label)})
            each->setBuddy(buddy.get());
        QCOMPARE(areHidden(), (QVector<bool>{true, true}));
        const QImage shown = Render(label);
        if (dies) {
            buddy.reset();
        } else {
            for (QLabel *each : {&plain, static_cast<QLabel *>(&label)})
                each->setBuddy(nullptr);
        }
        QCOMPARE(areHidden(), (QVector<bool>{true, true}));
        QCOMPARE(Render(label), shown);
        plain.setText(QString());
        label.setText(QString());
        plain.setText(text);
        label.setText(text);
        QCOMPARE(areHidden(), (QVector<bool>{false, false}));
    }

    void the_marked_letter_goes_to_the_buddy()
    {
        const Cues cues;
        QWidget window;
        QHBoxLayout row(&window);
        QcLabel label;
        QLineEdit first;
        QLineEdit edit;
        label.setText(QStringLiteral("&Name:"));
        label.setBuddy(&edit);
        row.addWidget(&first);
        row.addWidget(&label);
        row.addWidget(&edit);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        first.setFocus();
        QTest::keyClick(&window, Qt::Key_N, Qt::AltModifier);
        QVERIFY(edit.hasFocus());
    }

    void assistive_technology_reads_the_text_that_is_shown()
    {
        QLineEdit buddy;
        QcLabel label;
        label.setText(QStringLiteral("&Name && title"));
        const auto name = [&] { return QAccessible::queryAccessibleInterface(&label)->text(QAccessible::Name); };
        for (const bool hasCues : {false, true}) {
            SetKeyboardCuesEnabled(hasCues);
            label.setBuddy(nullptr);
            label.setText(QString());
            label.setText(QStringLiteral("&Name && title"));
            QCOMPARE(name(), label.text());
            label.setBuddy(&buddy);
            QCOMPARE(name(), QStringLiteral("Name & title"));
        }
        SetKeyboardCuesEnabled(false);
        label.setAccessibleName(QStringLiteral("&A && B"));
        QCOMPARE(name(), label.accessibleName());
    }

    void assistive_technology_reads_no_mark_that_stays_out_of_sight_data()
    {
        marks_stay_out_of_sight_when_the_buddy_goes_as_in_a_plain_label_data();
    }
    void assistive_technology_reads_no_mark_that_stays_out_of_sight()
    {
        QFETCH(bool, dies);
        const Cues cues;
        QcLabel label;
        Fill(label, QStringLiteral("&Name"));
        const auto name = [&] { return QAccessible::queryAccessibleInterface(&label)->text(QAccessible::Name); };
        auto buddy = std::make_unique<QLineEdit>();
        label.setBuddy(buddy.get());
        QVERIFY(!Render(label).isNull());
        if (dies)
            buddy.reset();
        else
            label.setBuddy(nullptr);
        QCOMPARE(name(), QStringLiteral("Name"));
        label.setText(QStringLiteral("R&D"));
        QCOMPARE(name(), QStringLiteral("R&D"));
        label.setText(QStringLiteral("<b>x</b>"));
        QCOMPARE(name(), label.text()); // as it is shown
    }

    void assistive_technology_finds_its_picture_on_the_screen()
    {
        QWidget window;
        QcLabel label(&window);
        label.setGeometry(20, 30, 100, 40);
        label.setPixmap(QPixmap(10, 10));
        window.show();
        QAccessibleImageInterface *image = QAccessible::queryAccessibleInterface(&label)->imageInterface();
        QCOMPARE(image->imagePosition(), window.mapToGlobal(label.pos()));
    }

    void to_assistive_technology_it_is_what_a_label_of_qt_is()
    {
        QWidget window;
        QLineEdit buddy(&window);
        QMovie movie;
        QPicture picture;
        QPainter(&picture).drawLine(0, 0, 9, 9);
        const auto told = [&](QLabel &label) {
            label.setParent(&window);
            label.setGeometry(20, 30, 100, 40);
            label.setToolTip(QStringLiteral("Tip"));
            QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&label);
            QStringList all;
            const auto tell = [&] {
                all << QString::number(accessible->role()) << accessible->text(QAccessible::Name)
                    << accessible->text(QAccessible::Description);
                if (const QAccessibleImageInterface *image = accessible->imageInterface()) {
                    all << image->imageDescription();
                    const QSize size = image->imageSize();
                    all << QString::number(size.width()) << QString::number(size.height());
                }
                const auto relations = accessible->relations();
                for (const auto &relation : relations)
                    all << QString::number(relation.second) << relation.first->object()->objectName();
            };
            label.setText(QStringLiteral("Text"));
            tell();
            label.setBuddy(&buddy);
            tell();
            all << QString::number(accessible->relations(QAccessible::Label).size());
            label.setPixmap(QPixmap(16, 20));
            tell();
            label.setPicture(picture);
            tell();
            label.setMovie(&movie);
            tell();
            return all;
        };
        buddy.setObjectName(QStringLiteral("buddy"));
        QcLabel label;
        QLabel plain;
        QCOMPARE(told(label), told(plain));
    }

private:
    QuietStyle *m_style = nullptr;
};

VELMORA_TEST_MAIN(TestLabelMnemonics)

#include "tst_LabelMnemonics.moc"
