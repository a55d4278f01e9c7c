#include "ButtonLooks.h"
#include "support/Cues.h"
#include "support/EventCounter.h"
#include "support/TestMain.h"

#include <Velmora/QcCheckBox.h>
#include <Velmora/QcGhostButton.h>
#include <Velmora/QcHighlightButton.h>
#include <Velmora/QcMenu.h>
#include <Velmora/QcMenuTextButton.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcRadioButton.h>
#include <Velmora/QcSecondaryButton.h>
#include <Velmora/QcTertiaryButton.h>
#include <Velmora/QcTextButton.h>
#include <Velmora/QcTextLinkButton.h>

#include <QAccessible>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QSignalSpy>
#include <QTimer>

#include <functional>
#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

using Maker = std::function<QAbstractButton *(QWidget *, const QString &)>;

template <typename Button>
QAbstractButton *Make(QWidget *parent, const QString &text)
{
    auto *button = new Button(parent);
    button->setText(text);
    return button;
}

QAbstractButton *MakeWithIcon(QWidget *parent, const QString &text)
{
    auto *button = new QcButton(parent);
    button->setText(text);
    button->SetIconPath(QStringLiteral(":/images/close.svg"));
    return button;
}

void AddMakers()
{
    QTest::addColumn<Maker>("make");
    QTest::newRow("plain") << Maker(Make<QcButton>);
    QTest::newRow("with an icon") << Maker(MakeWithIcon);
    QTest::newRow("primary") << Maker(Make<QcPrimaryButton>);
    QTest::newRow("secondary") << Maker(Make<QcSecondaryButton>);
    QTest::newRow("tertiary") << Maker(Make<QcTertiaryButton>);
    QTest::newRow("ghost") << Maker(Make<QcGhostButton>);
    QTest::newRow("highlight") << Maker(Make<QcHighlightButton>);
    QTest::newRow("text") << Maker(Make<QcTextButton>);
    QTest::newRow("link") << Maker(Make<QcTextLinkButton>);
    QTest::newRow("menu") << Maker(Make<QcMenuTextButton>);
    QTest::newRow("check box") << Maker(Make<QcCheckBox>);
    QTest::newRow("radio button") << Maker(Make<QcRadioButton>);
}

/// A button in a shown, active window.
class Stage
{
public:
    Stage(const Maker &make, const QString &text, const QSize &size = QSize())
        : button(make(&window, text))
    {
        button->resize(size.isValid() ? size : button->sizeHint());
        window.setGeometry(kWindowPlace);
        window.show();
        if (!QTest::qWaitForWindowActive(&window))
            qFatal("the window is not active");
        DrainEvents();
    }

    QImage Picture() const { return Render(*button); }

    QWidget window;
    QAbstractButton *const button;
};

/// Check boxes and radio buttons leave their label to the style.
bool IsIndicator(const Maker &make)
{
    QWidget parent;
    const QAbstractButton *button = make(&parent, QString());
    return qobject_cast<const QCheckBox *>(button) || qobject_cast<const QRadioButton *>(button);
}

const QString kMarked = QStringLiteral("S&ave && ex&it");
const QString kShown = QStringLiteral("Save & exit");
const QSize kAmple(200, 24);

} // namespace

Q_DECLARE_METATYPE(Maker)

class TestButtonMnemonics : public TestCase
{
    Q_OBJECT

protected:
    void SetUp() override
    {
        MoveCursorAway();
        m_style->underlines = false;
    }

private Q_SLOTS:
    void initTestCase() { m_style = QuietStyle::Install(); }

    void each_button_shows_its_text_without_the_marks_data() { AddMakers(); }
    void each_button_shows_its_text_without_the_marks()
    {
        QFETCH(Maker, make);
        Stage plain(make, IsIndicator(make) ? QStringLiteral("Save && exit") : kShown, kAmple);
        const QImage picture = plain.Picture(); // without cues, as it stands
        const QSize hint = plain.button->sizeHint();
        const QSize minimum = plain.button->minimumSizeHint();
        plain.window.hide();
        const Cues cues;
        const Stage marked(make, kMarked, kAmple);
        QCOMPARE(marked.Picture(), picture);
        QCOMPARE(marked.button->sizeHint(), hint);
        QCOMPARE(marked.button->minimumSizeHint(), minimum);
    }

    void each_button_underlines_the_letters_where_the_style_does_data() { AddMakers(); }
    void each_button_underlines_the_letters_where_the_style_does()
    {
        QFETCH(Maker, make);
        const Cues cues;
        const Stage stage(make, QStringLiteral("aaaa&aaaa"), kAmple);
        if (stage.button->font().underline())
            return; // as a link has all its letters
        const QImage without = stage.Picture();
        m_style->underlines = true;
        const QImage with = stage.Picture();
        const QRect line = Difference(without, with);
        QVERIFY(!line.isEmpty());
        const qreal letter = QFontMetricsF(stage.button->font()).horizontalAdvance(QLatin1Char('a')) * with.devicePixelRatio();
        QVERIFY2(line.width() <= letter + 2, "more than a letter is underlined");
        QVERIFY2(line.width() >= letter / 2, "less than a letter is underlined");
        QVERIFY2(line.height() <= 2 * with.devicePixelRatio(), "more than a line is drawn");
    }

    void without_cues_no_button_changes_when_the_style_underlines_data() { AddMakers(); }
    void without_cues_no_button_changes_when_the_style_underlines()
    {
        QFETCH(Maker, make);
        const Stage stage(make, kMarked, kAmple);
        if (IsIndicator(make))
            return; // the style has always drawn its label, keys and all
        const QImage before = stage.Picture();
        m_style->underlines = true;
        QCOMPARE(stage.Picture(), before);
    }

    void without_cues_marks_are_shown_and_counted_data() { AddMakers(); }
    void without_cues_marks_are_shown_and_counted()
    {
        QFETCH(Maker, make);
        const Stage stage(make, kMarked, kAmple);
        const QImage before = stage.Picture();
        const QSize hint = stage.button->sizeHint();
        const QSize minimum = stage.button->minimumSizeHint();
        {
            const Cues cues;
            m_style->underlines = true;
            QVERIFY(stage.Picture() != before);
            m_style->underlines = false;
        }
        QCOMPARE(stage.Picture(), before);
        QCOMPARE(stage.button->sizeHint(), hint);
        QCOMPARE(stage.button->minimumSizeHint(), minimum);
        if (IsIndicator(make))
            return;
        const Stage none(make, QString(), kAmple);
        QCOMPARE(hint.width() - none.button->sizeHint().width(), QFontMetrics(stage.button->font()).horizontalAdvance(kMarked));
    }

    void a_switch_lays_buttons_out_and_paints_them_anew_data() { AddMakers(); }
    void a_switch_lays_buttons_out_and_paints_them_anew()
    {
        QFETCH(Maker, make);
        QWidget window;
        QHBoxLayout row(&window);
        QAbstractButton *button = make(&window, QStringLiteral("&a&a&a&a&a&a"));
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        row.addWidget(button);
        row.addStretch();
        window.setGeometry(kWindowPlace);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        DrainEvents();
        const int before = button->width();
        EventCounter paints(*button, QEvent::Paint);
        const Cues cues;
        DrainEvents();
        QVERIFY(paints.Take() > 0);
        QCOMPARE(button->width(), button->sizeHint().width());
        if (!IsIndicator(make))
            QVERIFY(button->width() < before);
        SetKeyboardCuesEnabled(false);
        DrainEvents();
        QCOMPARE(button->width(), before);
    }

    void the_marked_letter_clicks_data() { AddMakers(); }
    void the_marked_letter_clicks()
    {
        QFETCH(Maker, make);
        const Cues cues;
        Stage stage(make, kMarked);
        QSignalSpy clicks(stage.button, &QAbstractButton::clicked);
        QTest::keyClick(&stage.window, Qt::Key_A, Qt::AltModifier);
        QTRY_COMPARE(clicks.count(), 1);
    }

    void the_marked_letter_opens_a_menu_once()
    {
        const Cues cues;
        Stage stage(Make<QcMenuTextButton>, kMarked);
        QcMenu menu;
        menu.addQcAction(QStringLiteral("Item"));
        static_cast<QcMenuTextButton *>(stage.button)->setMenu(&menu);
        QSignalSpy openings(&menu, &QMenu::aboutToShow);
        QSignalSpy clicks(stage.button, &QAbstractButton::clicked);
        connect(&menu, &QMenu::aboutToShow, &menu, [&] { QTimer::singleShot(0, &menu, &QWidget::close); });
        QTest::keyClick(&stage.window, Qt::Key_A, Qt::AltModifier); // returns when the menu has closed
        QTRY_COMPARE(clicks.count(), 1);
        QCOMPARE(openings.count(), 1);
        QVERIFY(!stage.button->isDown());
    }

    void assistive_technology_reads_the_text_that_is_shown_data() { AddMakers(); }
    void assistive_technology_reads_the_text_that_is_shown()
    {
        QFETCH(Maker, make);
        const Stage stage(make, kMarked);
        const auto name = [&] { return QAccessible::queryAccessibleInterface(stage.button)->text(QAccessible::Name); };
        QCOMPARE(name(), kShown);
        const Cues cues;
        QCOMPARE(name(), kShown);
    }

    void a_check_box_is_whole_at_its_size_hint()
    {
        const Cues cues;
        const QString text = QStringLiteral("&iiii && iiii && iiii && iiii");
        const Stage narrow(Make<QcCheckBox>, text);
        const Stage wide(Make<QcCheckBox>, text, QSize(300, narrow.button->height()));
        QCOMPARE(narrow.Picture(), Part(wide.Picture(), narrow.button->rect()));
    }

    void a_check_box_is_elided_by_what_it_shows()
    {
        const Cues cues;
        m_style->underlines = true;
        const Stage marked(Make<QcCheckBox>, QStringLiteral("&iiii && wwwwwwwwwwwwww"), QSize(80, 24));
        QWidget parent;
        auto *expected = Make<QcCheckBox>(&parent, QStringLiteral("iiii && wwwwwwwwwwwwww"));
        expected->resize(80, 24);
        DrainEvents();
        // All the same but the line under the first letter.
        const QRect line = Difference(marked.Picture(), Render(*expected));
        QVERIFY(!line.isEmpty());
        QVERIFY(line.width() <= 6 * marked.Picture().devicePixelRatio());
    }

private:
    /// The pixels in which two pictures differ.
    static QRect Difference(const QImage &one, const QImage &other)
    {
        QRect rect;
        for (int y = 0; y < one.height(); ++y) {
            for (int x = 0; x < one.width(); ++x) {
                if (one.pixel(x, y) != other.pixel(x, y))
                    rect |= QRect(x, y, 1, 1);
            }
        }
        return rect;
    }

    QuietStyle *m_style = nullptr;
};

VELMORA_TEST_MAIN(TestButtonMnemonics)

#include "tst_ButtonMnemonics.moc"
