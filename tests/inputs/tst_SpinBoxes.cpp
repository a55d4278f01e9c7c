#include "support/AccessibleEvents.h"
#include "support/Pixels.h"
#include "support/ReadPieces.h"
#include "support/TestMain.h"

#include "buttons/ButtonLooks.h"

#include <Velmora/QcDoubleSpinBox.h>
#include <Velmora/QcSpinBox.h>

#include <QAccessible>
#include <QLineEdit>
#include <QStyleOptionSpinBox>
#include <QWheelEvent>

#include <limits>
#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

constexpr QSize kSize(120, 32);

constexpr const char *kSecondary = "text/text_secondary";
constexpr const char *kTertiary = "text/text_tertairy";
constexpr const char *kFaint = "border/border_tertairy";
constexpr const char *kStrong = "border/border_primary";
constexpr const char *kBrand = "brand/brand";
constexpr const char *kNone = "transparent";

/// Texts of both tables stand out from it.
const QColor kBelow(0x80, 0x80, 0x80);

struct BoxLook
{
    const char *border; ///< null where Qt blends it with a ground that is seen through
    const char *ground;
    const char *text;
};

/// Disabled, normal, hovered, with the keyboard.
using BoxLooks = BoxLook[4];

constexpr BoxLooks kSpinBox = {
    {kFaint, kNone, kTertiary}, {kFaint, kNone, kSecondary}, {kBrand, kNone, kSecondary}, {kBrand, kNone, kSecondary}};
constexpr BoxLooks kBordered = {
    {nullptr, kFaint, kTertiary}, {kStrong, kNone, kSecondary}, {kBrand, kNone, kSecondary}, {kBrand, kNone, kSecondary}};
constexpr BoxLooks kUnbordered = {
    {kNone, kNone, kSecondary}, {kStrong, kNone, kSecondary}, {kBrand, kNone, kSecondary}, {kBrand, kNone, kSecondary}};

void Wheel(QWidget &widget)
{
    const QPointF middle = widget.rect().center();
    QWheelEvent event(middle, widget.mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
}

/// Where the style has the arrow up of \a box.
QRect ArrowUp(const QAbstractSpinBox &box)
{
    QStyleOptionSpinBox option;
    option.initFrom(&box);
    option.buttonSymbols = box.buttonSymbols();
    option.frame = box.hasFrame();
    option.subControls = QStyle::SC_All;
    return box.style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, &box);
}

} // namespace

class TestSpinBoxes : public TestCase
{
    Q_OBJECT

private:
    std::unique_ptr<QWidget> m_window;
    QLineEdit *m_elsewhere = nullptr;

    template <typename Box>
    Box *Make()
    {
        auto *box = new Box(m_window.get());
        box->setGeometry(QRect(QPoint(10, 60), kSize));
        box->setSpecialValueText(QString(2, QChar(0x2588))); // full blocks, whose colour is the text's
        box->show();
        DrainEvents();
        return box;
    }

    void CheckLooks(QAbstractSpinBox &box, const BoxLooks &looks)
    {
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            box.setEnabled(false);
            CheckLook(box, table, looks[0]);
            box.setEnabled(true);
            CheckLook(box, table, looks[1]);
            MoveCursorOver(box);
            CheckLook(box, table, looks[2]);
            MoveCursorAway();
            CheckLook(box, table, looks[1]);
            box.setFocus();
            box.findChild<QLineEdit *>()->deselect();
            CheckLook(box, table, looks[3]);
            m_elsewhere->setFocus();
        }
    }

    static void CheckLook(QAbstractSpinBox &box, Table table, const BoxLook &look)
    {
        const QImage image = Render(box, kBelow);
        const QColor ground = Painted(table, QLatin1String(look.ground), kBelow);
        COMPARE_COLOR(PixelAt(image, QPointF(70.5, 5.5)), ground);
        if (look.border)
            COMPARE_COLOR(PixelAt(image, QPointF(60.5, 0.5)), Painted(table, QLatin1String(look.border), ground));
        const QColor text = MainInk(Part(image, QRectF(2, 4, 40, 24)), ground);
        COMPARE_COLOR(text, Painted(table, QLatin1String(look.text), ground));
    }

protected:
    void SetUp() override
    {
        MoveCursorAway();
        m_window = std::make_unique<QWidget>();
        m_window->setGeometry(kWindowPlace);
        m_elsewhere = new QLineEdit(m_window.get());
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_elsewhere->setFocus();
    }

    void TearDown() override
    {
        m_window.reset();
        UseTable(Table::Light);
    }

private Q_SLOTS:
    // --- Looks ---

    void a_new_spin_box_is_in_theme_colours_at_once()
    {
        QcSpinBox *box = Make<QcSpinBox>();
        QCOMPARE(box->font().pixelSize(), 14);
        CheckLooks(*box, kSpinBox);
    }

    void a_new_double_spin_box_looks_like_one_of_qt()
    {
        QcDoubleSpinBox *box = Make<QcDoubleSpinBox>();
        const auto *plain = Make<QDoubleSpinBox>();
        QVERIFY(box->styleSheet().isEmpty());
        const auto grab = [](const QWidget *widget) { return const_cast<QWidget *>(widget)->grab().toImage(); };
        QCOMPARE(grab(box), grab(plain));
        box->bSetBorder(true);
        QVERIFY(grab(box) != grab(plain));
    }

    void one_without_theme_colours_keeps_the_palette_that_it_was_made_under()
    {
        const QPalette before = QApplication::palette();
        const QcDoubleSpinBox *old = Make<QcDoubleSpinBox>();
        QPalette dark = before;
        dark.setColor(QPalette::Base, Qt::black);
        QApplication::setPalette(dark);
        const QcDoubleSpinBox *young = Make<QcDoubleSpinBox>();
        QCOMPARE(old->palette().color(QPalette::Base), before.color(QPalette::Base));
        QCOMPARE(young->palette().color(QPalette::Base), QColor(Qt::black));
        QApplication::setPalette(before);
    }

    void a_bordered_double_spin_box_keeps_its_border_while_disabled()
    {
        QcDoubleSpinBox *box = Make<QcDoubleSpinBox>();
        box->bSetBorder(true);
        QCOMPARE(box->font().pixelSize(), 14);
        CheckLooks(*box, kBordered);
    }

    void one_without_a_border_has_it_until_it_is_disabled()
    {
        QcDoubleSpinBox *box = Make<QcDoubleSpinBox>();
        box->bSetBorder(false);
        CheckLooks(*box, kUnbordered);
    }

    void a_second_choice_adds_to_the_first()
    {
        QcDoubleSpinBox *box = Make<QcDoubleSpinBox>();
        box->bSetBorder(true);
        box->bSetBorder(false);
        box->setEnabled(false);
        // Of the two disabled looks: the later one's border and text, and the ground of the only one that names it.
        CheckLook(*box, Table::Light, {kNone, kFaint, kSecondary});
    }

    void a_hundred_choices_are_survived()
    {
        QcDoubleSpinBox *box = Make<QcDoubleSpinBox>();
        for (int i = 0; i < 100; ++i)
            box->bSetBorder(i % 2 == 0);
        box->setEnabled(false);
        CheckLook(*box, Table::Light, {kNone, kFaint, kSecondary});
    }

    void no_arrow_shows_and_a_click_in_its_place_steps()
    {
        QcSpinBox *box = Make<QcSpinBox>();
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QRect arrow = ArrowUp(*box);
            QVERIFY(arrow.isValid());
            const QRectF inside = QRectF(arrow).adjusted(1, 1, -2, -1); // of the border, at each scale
            QVERIFY(InkBox(Part(Render(*box, kBelow), inside), kBelow, 0).isNull());
        }
        QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, ArrowUp(*box).center());
        QCOMPARE(box->value(), 1);
        box->setButtonSymbols(QAbstractSpinBox::NoButtons);
        QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(110, 8));
        QCOMPARE(box->value(), 1);
    }

    void right_to_left_the_arrows_are_at_the_left()
    {
        QcSpinBox *box = Make<QcSpinBox>();
        QVERIFY(ArrowUp(*box).left() > box->width() / 2);
        box->setLayoutDirection(Qt::RightToLeft);
        QVERIFY(ArrowUp(*box).right() < box->width() / 2);
        QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, ArrowUp(*box).center());
        QCOMPARE(box->value(), 1);
    }

    // --- Wheel and keys ---

    void wheel_and_keys_step_as_in_a_spin_box_of_qt()
    {
        auto *plain = Make<QSpinBox>();
        auto *box = Make<QcSpinBox>();
        auto *decimal = Make<QcDoubleSpinBox>();
        decimal->bSetBorder(true);
        decimal->setRange(0, 99);
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_PageUp, Qt::Key_Down}) {
            for (QAbstractSpinBox *each :
                 {static_cast<QAbstractSpinBox *>(plain), static_cast<QAbstractSpinBox *>(box), static_cast<QAbstractSpinBox *>(decimal)})
                QTest::keyClick(each, key);
        }
        QCOMPARE(plain->value(), 10);
        QCOMPARE(box->value(), 10);
        QCOMPARE(decimal->value(), 10.0);
        Wheel(*box);
        Wheel(*decimal);
        QCOMPARE(box->value(), 11);
        QCOMPARE(decimal->value(), 11.0);
    }

    void a_number_is_typed()
    {
        auto *box = Make<QcDoubleSpinBox>();
        box->bSetBorder(false);
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, QStringLiteral("12.5x"));
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(box->value(), 12.5);
    }

    // --- Bad input ---

    void values_beyond_all_bounds_are_as_with_qt()
    {
        QDoubleSpinBox plain;
        auto *box = Make<QcDoubleSpinBox>();
        box->bSetBorder(true);
        box->setSpecialValueText(QString());
        for (QDoubleSpinBox *each : {&plain, static_cast<QDoubleSpinBox *>(box)}) {
            for (const double value : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), 1e308, -1e308})
                each->setValue(value);
            each->setRange(9, 3);
            each->setDecimals(1000);
            each->setDecimals(-1);
            each->setValue(7);
        }
        QCOMPARE(box->text(), plain.text());
        QCOMPARE(box->maximum(), plain.maximum());
        QCOMPARE(box->decimals(), plain.decimals());
        Render(*box);

        auto *whole = Make<QcSpinBox>();
        whole->setRange(std::numeric_limits<int>::max(), std::numeric_limits<int>::min());
        QCOMPARE(whole->value(), std::numeric_limits<int>::max());
        whole->setRange(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
        whole->stepBy(std::numeric_limits<int>::min());
        Render(*whole);
    }

    // --- Assistive technology ---

    void assistive_technology_reads_and_sets_the_value_data() { AddBoths(); }
    void assistive_technology_reads_and_sets_the_value()
    {
        QAbstractSpinBox *box = MakeFour(false);
        box->setAccessibleName(QStringLiteral("Copies"));
        QAccessibleInterface *described = Described(*box);
        QCOMPARE(described->text(QAccessible::Name), QStringLiteral("Copies"));
        QCOMPARE(described->text(QAccessible::Value).toDouble(), 4.0);
        QAccessibleValueInterface *value = described->valueInterface();
        QVERIFY(value);
        QCOMPARE(value->currentValue().toDouble(), 4.0);
        QCOMPARE(value->minimumValue().toDouble(), 1.0);
        QCOMPARE(value->maximumValue().toDouble(), 9.0);
        QCOMPARE(value->minimumStepSize().toDouble(), 2.0);
        value->setCurrentValue(7);
        QCOMPARE(value->currentValue().toDouble(), 7.0);
        value->setCurrentValue(99);
        QCOMPARE(value->currentValue().toDouble(), 9.0);
    }

    void to_assistive_technology_it_is_what_a_spin_box_of_qt_is_data() { AddBoths(); }
    void to_assistive_technology_it_is_what_a_spin_box_of_qt_is()
    {
        QAbstractSpinBox *box = MakeFour(false);
        QAbstractSpinBox *plain = MakeFour(true);
        for (QAbstractSpinBox *each : {box, plain}) {
            each->setProperty("suffix", QStringLiteral(" mm"));
            each->setProperty("prefix", QStringLiteral("about "));
            each->setAccessibleDescription(QStringLiteral("Thickness"));
            each->setSpecialValueText(QStringLiteral("none"));
        }
        const auto told = [](QAbstractSpinBox *each, double value, bool isEnabled) {
            each->setEnabled(isEnabled);
            each->setProperty("value", value);
            each->setFocus();
            each->selectAll();
            return AllToldOf(*Described(*each));
        };
        for (const double value : {4.0, 1.0}) {
            for (const bool isEnabled : {true, false})
                QCOMPARE(told(box, value, isEnabled), told(plain, value, isEnabled));
        }
    }

    void words_are_read_at_the_end_of_its_text_data() { AddBoths(); }
    void words_are_read_at_the_end_of_its_text()
    {
        QAbstractSpinBox *box = MakeFour(false);
        QAccessibleTextInterface *text = Described(*box)->textInterface();
        for (const char *suffix : {"", " mm", " "}) {
            box->setProperty("suffix", QLatin1String(suffix));
            QCOMPARE(FaultOfPieces(*text), QString());
        }
        box->setProperty("suffix", QStringLiteral(" mm"));
        int start = -1;
        int end = -1;
        const int length = text->characterCount();
        QCOMPARE(text->textAtOffset(length, QAccessible::WordBoundary, &start, &end), QStringLiteral("mm"));
        QCOMPARE(start, length - 2);
        QCOMPARE(end, length);
    }

    void assistive_technology_types_what_a_user_could_data() { AddBoths(); }
    void assistive_technology_types_what_a_user_could()
    {
        QAbstractSpinBox *box = MakeFour(false);
        QAccessibleEditableTextInterface *text = Described(*box)->editableTextInterface();
        text->replaceText(0, 1, QStringLiteral("6"));
        QCOMPARE(box->property("value").toDouble(), 6.0);
        text->replaceText(0, 1, QStringLiteral("12")); // out of range
        text->insertText(1, QStringLiteral("x"));
        QCOMPARE(box->property("value").toDouble(), 6.0);
        QCOMPARE(box->text().left(1), QStringLiteral("6"));
        box->setReadOnly(true);
        text->replaceText(0, 1, QStringLiteral("7"));
        QCOMPARE(box->property("value").toDouble(), 6.0);
    }

    void assistive_technology_hears_of_a_typed_number_data() { AddBoths(); }
    void assistive_technology_hears_of_a_typed_number()
    {
        QAbstractSpinBox *box = MakeFour(false);
        box->setFocus();
        AccessibleEvents told(*box);
        QTest::keyClick(box, Qt::Key_End);
        told.Take();
        QTest::keyClick(box, Qt::Key_Up);
        QVERIFY(told.Take().contains(QStringLiteral("ValueChanged")));
    }

private:
    static QAccessibleInterface *Described(QAbstractSpinBox &box) { return QAccessible::queryAccessibleInterface(&box); }

    static void AddBoths()
    {
        QTest::addColumn<bool>("isWhole");
        QTest::newRow("whole numbers") << true;
        QTest::newRow("decimals") << false;
    }

    /// Of the kind that the row names, from 1 to 9 by 2, at 4.
    QAbstractSpinBox *MakeFour(bool isPlain)
    {
        QFETCH(bool, isWhole);
        QAbstractSpinBox *box = nullptr;
        if (isWhole)
            box = isPlain ? Make<QSpinBox>() : Make<QcSpinBox>();
        else
            box = isPlain ? Make<QDoubleSpinBox>() : static_cast<QDoubleSpinBox *>(Make<QcDoubleSpinBox>());
        box->setSpecialValueText(QString());
        box->setProperty("minimum", 1);
        box->setProperty("maximum", 9);
        box->setProperty("singleStep", 2);
        box->setProperty("value", 4);
        return box;
    }

    static QStringList AllToldOf(QAccessibleInterface &box)
    {
        QStringList told{QString::number(box.role())};
        for (int i = 0; i < box.childCount(); ++i)
            told << QString::number(box.child(i)->role());
        for (const auto kind : {QAccessible::Name, QAccessible::Description, QAccessible::Value, QAccessible::Help})
            told << box.text(kind);
        const QAccessible::State state = box.state();
        told << QString::fromLatin1(QByteArray(reinterpret_cast<const char *>(&state), sizeof state).toHex());
        told << box.actionInterface()->actionNames();
        const QAccessibleValueInterface &value = *box.valueInterface();
        for (const QVariant &number : {value.currentValue(), value.minimumValue(), value.maximumValue()})
            told << QString::fromLatin1(number.typeName()) << number.toString();
        const QAccessibleTextInterface &text = *box.textInterface();
        const int count = text.characterCount();
        int start = -1;
        int end = -1;
        text.selection(0, &start, &end);
        told << text.text(1, count);
        for (const int number : {count, text.cursorPosition(), text.selectionCount(), start, end})
            told << QString::number(number);
        return told;
    }
};

VELMORA_TEST_MAIN(TestSpinBoxes)

#include "tst_SpinBoxes.moc"
