#include "support/EventCounter.h"
#include "support/PartsBeforeSheet.h"
#include "support/Pixels.h"
#include "support/SquareIcon.h"
#include "support/TestMain.h"

#include "buttons/ButtonLooks.h"

#include <Velmora/QcArrowTip.h>
#include <Velmora/QcDoubleValidator.h>
#include <Velmora/QcGhostButton.h>
#include <Velmora/QcIntValidator.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcLineEdit.h>
#include <Velmora/QcLineEditFrame.h>
#include <Velmora/QcMultiLineText.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QSignalSpy>
#include <QTextDocument>
#include <QVBoxLayout>
#include <QWindow>

#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <limits>
#include <memory>
#include <utility>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QString kBlocks(4, QChar(0x2588)); // full blocks

/// The check that clamps is in no service. An explicit instantiation may name what is private.
struct ClampingCheck
{
    using Type = void (QcLineEditFrame::*)();
    friend Type Reach(ClampingCheck);
};

template <typename Tag, typename Tag::Type member>
struct Opener
{
    friend typename Tag::Type Reach(Tag) { return member; }
};

template struct Opener<ClampingCheck, &QcLineEditFrame::editControlCheckV2>;

void Clamp(QcLineEditFrame &frame)
{
    (frame.*Reach(ClampingCheck()))();
}

/// The end of editing, past what Qt's own edit lets end.
void Finish(QcLineEditFrame &frame)
{
    QMetaObject::invokeMethod(&frame, "onEditingFinished");
}

QcLabel *UnitOf(const QcLineEditFrame &frame)
{
    return frame.findChild<QcLabel *>();
}

QcGhostButton *ButtonOf(const QcLineEditFrame &frame)
{
    return frame.findChild<QcGhostButton *>();
}

QcArrowTip *TipOf(const QcLineEditFrame &frame)
{
    return frame.findChild<QcArrowTip *>();
}

/// Where the warning's tip belongs: above the frame.
QPoint TipPlace(const QcLineEditFrame &frame)
{
    const QPoint origin = frame.mapToGlobal(QPoint(0, 0));
    const QcArrowTip *tip = TipOf(frame);
    return {origin.x() + frame.width() / 2 - tip->width() / 2, origin.y() - 8 - tip->height()};
}

QObjectList described; // the objects whose changed description was announced

void NoteDescription(QAccessibleEvent *event)
{
    if (event->type() == QAccessible::DescriptionChanged)
        described << event->object();
}

/// As if a screen reader were there, noting whose changed description is announced.
class Reader
{
public:
    Reader()
    {
        Platform()->setActive(true);
        m_previous = QAccessible::installUpdateHandler(NoteDescription);
        described.clear();
    }
    ~Reader()
    {
        QAccessible::installUpdateHandler(m_previous);
        Platform()->setActive(false);
    }
    Q_DISABLE_COPY(Reader)

    static QObjectList Take() { return std::exchange(described, QObjectList()); }

private:
    static QPlatformAccessibility *Platform() { return QGuiApplicationPrivate::platformIntegration()->accessibility(); }

    QAccessible::UpdateHandler m_previous = nullptr;
};

/// Deletes an object at its next change of a property.
class Undertaker : public QObject
{
public:
    explicit Undertaker(QObject &victim) { victim.installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::DynamicPropertyChange)
            return false;
        delete watched;
        return true; // nobody else sees the event of a dead object
    }
};

enum State { Rest, Hover, Focus, Warning, Disabled, WarningHover, WarningFocus, WarningDisabled };

} // namespace

class TestQcLineEditFrame : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // --- What a new frame is ---

    void a_new_frame_is_24_pixels_high_and_holds_edit_unit_and_button()
    {
        QcLineEditFrame frame;
        QCOMPARE(frame.minimumHeight(), 24);
        QCOMPARE(frame.maximumHeight(), 24);
        auto *layout = qobject_cast<QHBoxLayout *>(frame.layout());
        QVERIFY(layout);
        QCOMPARE(layout->contentsMargins(), QMargins(8, 0, 8, 0));
        QCOMPARE(layout->spacing(), 0);
        QCOMPARE(layout->count(), 3);
        QCOMPARE(layout->itemAt(0)->widget(), frame.getLineEdit());
        QCOMPARE(layout->itemAt(1)->widget(), UnitOf(frame));
        QCOMPARE(layout->itemAt(2)->widget(), ButtonOf(frame));
        QVERIFY(UnitOf(frame)->isHidden());
        QVERIFY(ButtonOf(frame)->isHidden());
        QCOMPARE(ButtonOf(frame)->minimumSize(), QSize(22, 22));
        QCOMPARE(ButtonOf(frame)->maximumSize(), QSize(22, 22));
        QCOMPARE(TipOf(frame)->parentWidget(), &frame);
        QVERIFY(TipOf(frame)->isHidden());
        QCOMPARE(frame.getText(), QString());
        QVERIFY(!frame.getWarning());
        QVERIFY(!frame.property("objectPropertyWarning").isValid());
        QVERIFY(!frame.property("objectPropertyFocus").isValid());
        QVERIFY(!frame.getLineEdit()->validator());
        DrainEvents();
    }

    void the_sheet_comes_when_the_parts_are_there()
    {
        const PartsBeforeSheet parts("Velmora::QcLineEditFrame");
        const QcLineEditFrame frame;
        QVERIFY(parts.Before() >= 4); // edit, unit, button, warning
        QCOMPARE(parts.After(), 0);
        DrainEvents();
    }

    void the_unit_is_in_the_style_of_secondary_text()
    {
        m_frame->setUnit(kBlocks);
        DrainEvents();
        QCOMPARE(UnitOf(*m_frame)->font().pixelSize(), 12);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            COMPARE_COLOR(MainInk(Render(*UnitOf(*m_frame), Qt::red), Qt::red),
                          Over(TokenOf(table, QStringLiteral("text/text_secondary")), Qt::red));
        }
    }

    void the_text_stands_in_the_middle()
    {
        const QRect edit = m_frame->getLineEdit()->geometry();
        QCOMPARE(edit.height() % 2, 0);
        QCOMPARE(edit.top(), 24 - edit.bottom() - 1);
    }

    // --- Look ---

    void each_state_has_its_border_and_ground_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<QString>("border");
        QTest::addColumn<QString>("background");
        const QString brand = QStringLiteral("brand/brand");
        const QString red = QStringLiteral("base/red/red-60");
        const QString disabled = QStringLiteral("border/border_tertairy");
        const QString ground = QStringLiteral("base/neutral/neutral-30");
        QTest::newRow("rest") << int(Rest) << QStringLiteral("border/border_secondary") << QString();
        QTest::newRow("hover") << int(Hover) << brand << QString();
        QTest::newRow("focus") << int(Focus) << brand << QString();
        QTest::newRow("warning") << int(Warning) << red << QString();
        QTest::newRow("disabled") << int(Disabled) << disabled << ground;
        QTest::newRow("warning, hover") << int(WarningHover) << red << QString();
        QTest::newRow("warning, focus") << int(WarningFocus) << red << QString();
        QTest::newRow("warning, disabled") << int(WarningDisabled) << disabled << ground;
    }

    void each_state_has_its_border_and_ground()
    {
        QFETCH(int, state);
        QFETCH(QString, border);
        QFETCH(QString, background);
        BringFrameTo(State(state));
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QColor canvas(120, 140, 120);
            const QColor ground = background.isEmpty() ? canvas : Over(TokenOf(table, background), canvas);
            const QImage image = Render(*m_frame, canvas);
            COMPARE_COLOR(PixelAt(image, QPointF(4.5, 12)), ground);
            // Qt lets the ground reach under a part of the border.
            const QColor inside = Over(TokenOf(table, border), ground);
            const QColor outside = Over(TokenOf(table, border), canvas);
            for (const QPointF &place : {QPointF(0.2, 12), QPointF(m_frame->width() - 0.2, 12), QPointF(100, 0.2), QPointF(100, 23.8)})
                QVERIFY2(IsBetween(PixelAt(image, place), inside, outside), qPrintable(PixelAt(image, place).name()));
            QVERIFY(Close(PixelAt(image, QPointF(0.1, 0.1)), canvas, 60)); // hardly covered: the corner is round
        }
    }

    void text_and_placeholder_have_their_tokens_data()
    {
        QTest::addColumn<bool>("isPlaceholder");
        QTest::addColumn<bool>("isEnabled");
        QTest::addColumn<QString>("token");
        const QString tertiary = QStringLiteral("text/text_tertairy");
        QTest::newRow("text") << false << true << QStringLiteral("text/text_primary");
        QTest::newRow("disabled text") << false << false << tertiary;
        QTest::newRow("placeholder") << true << true << tertiary;
        QTest::newRow("disabled placeholder") << true << false << tertiary;
    }

    void text_and_placeholder_have_their_tokens()
    {
        QFETCH(bool, isPlaceholder);
        QFETCH(bool, isEnabled);
        QFETCH(QString, token);
        if (isPlaceholder)
            m_frame->setPlaceholderText(kBlocks);
        else
            m_frame->setText(kBlocks);
        m_frame->setEnabled(isEnabled);
        QCOMPARE(m_frame->getLineEdit()->font().pixelSize(), 12);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            COMPARE_COLOR(MainInk(Render(*m_frame->getLineEdit(), Qt::red), Qt::red), Over(TokenOf(table, token), Qt::red));
        }
    }

    void the_placeholder_has_its_token_in_the_first_picture()
    {
        QcLineEditFrame frame;
        frame.setPlaceholderText(kBlocks);
        DrainEvents(); // so that no task of the construction comes after the first show
        frame.resize(200, 24);
        frame.show();
        COMPARE_COLOR(MainInk(Render(*frame.getLineEdit()), Qt::white), Over(TokenOf(Table::Light, QStringLiteral("text/text_tertairy"))));
    }

    void a_changed_warning_repaints()
    {
        EventCounter paints(*m_frame, QEvent::Paint);
        m_frame->setWarning(true);
        DrainEvents();
        QVERIFY(paints.Take() > 0);
        m_frame->setWarning(false);
        DrainEvents();
        QVERIFY(paints.Take() > 0);
    }

    // --- Content ---

    void text_goes_to_the_edit_and_comes_from_it()
    {
        QSignalSpy changes(m_frame, &QcLineEditFrame::signalTextChanged);
        m_frame->setText(QStringLiteral("one"));
        QCOMPARE(m_frame->getText(), QStringLiteral("one"));
        QCOMPARE(m_frame->getLineEdit()->text(), QStringLiteral("one"));
        QTest::keyClicks(m_frame->getLineEdit(), QStringLiteral("!"));
        QCOMPARE(m_frame->getText(), QStringLiteral("one!"));
        m_frame->clear();
        QCOMPARE(m_frame->getText(), QString());
        QCOMPARE(changes.count(), 3);
        QCOMPARE(changes.at(1).at(0).toString(), QStringLiteral("one!"));
        QCOMPARE(changes.at(2).at(0).toString(), QString());
        m_frame->setPlaceholderText(QStringLiteral("hint"));
        QCOMPARE(m_frame->getLineEdit()->placeholderText(), QStringLiteral("hint"));
        m_frame->setAlignment(Qt::AlignRight);
        QCOMPARE(m_frame->getLineEdit()->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignRight);
    }

    void unit_and_button_come_and_go_with_their_distances()
    {
        const SquareIcon icon(QStringLiteral("#000000"));
        m_frame->setUnit(QStringLiteral("mm"));
        QCOMPARE(UnitOf(*m_frame)->text(), QStringLiteral("mm"));
        QVERIFY(UnitOf(*m_frame)->isVisible());
        CompareDistances(8, 8);
        m_frame->setButtonIconPath(icon.Path());
        QVERIFY(ButtonOf(*m_frame)->isVisible());
        CompareDistances(4, 4); // the last call wins
        DrainEvents();
        // From edge to edge: margin and border, edit, unit, button, margin.
        const QRect edit = m_frame->getLineEdit()->geometry();
        const QRect unit = UnitOf(*m_frame)->geometry();
        const QRect button = ButtonOf(*m_frame)->geometry();
        QCOMPARE(unit.left() - edit.right() - 1, 4);
        QCOMPARE(button.left() - unit.right() - 1, 4);
        QCOMPARE(button.size(), QSize(22, 22));

        m_frame->setUnit(QStringLiteral("mm"));
        CompareDistances(8, 8);
        m_frame->setButtonIconPath(QString());
        QVERIFY(!ButtonOf(*m_frame)->isVisible());
        CompareDistances(8, 0);
        m_frame->setButtonIconPath(icon.Path());
        m_frame->setUnit(QString());
        QVERIFY(!UnitOf(*m_frame)->isVisible());
        CompareDistances(8, 0);
    }

    void button_first_and_unit_second_leaves_8_between()
    {
        const SquareIcon icon(QStringLiteral("#000000"));
        m_frame->setButtonIconPath(icon.Path());
        CompareDistances(4, 4);
        m_frame->setUnit(QStringLiteral("mm"));
        CompareDistances(8, 8);
    }

    void the_button_shows_its_icon_and_signals_clicks()
    {
        const SquareIcon icon(QStringLiteral("#000000"));
        m_frame->setButtonIconPath(icon.Path());
        DrainEvents();
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QImage image = Render(*ButtonOf(*m_frame), Qt::red);
            COMPARE_COLOR(PixelAt(image, QPointF(11, 11)), Over(TokenOf(table, QStringLiteral("text/text_secondary")), Qt::red));
        }
        QSignalSpy clicks(m_frame, &QcLineEditFrame::signalButtonClicked);
        QTest::mouseClick(ButtonOf(*m_frame), Qt::LeftButton);
        ButtonOf(*m_frame)->setFocus();
        QTest::keyClick(ButtonOf(*m_frame), Qt::Key_Space);
        QCOMPARE(clicks.count(), 2);
    }

    void enter_in_a_dialog_does_not_press_the_button()
    {
        const SquareIcon icon(QStringLiteral("#000000"));
        for (const bool isShown : {false, true}) {
            QDialog dialog;
            QVBoxLayout layout(&dialog);
            auto *frame = new QcLineEditFrame;
            frame->setButtonIconPath(isShown ? icon.Path() : QString());
            layout.addWidget(frame);
            dialog.show();
            QVERIFY(QTest::qWaitForWindowActive(&dialog));
            QSignalSpy clicks(frame, &QcLineEditFrame::signalButtonClicked);
            QTest::keyClick(frame->getLineEdit(), Qt::Key_Return);
            QCOMPARE(clicks.count(), 0);
        }
    }

    // --- Numbers ---

    void numbers_are_normalised_or_give_way_to_the_last_accepted_text_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("taken"); // in the field before the end of editing
        QTest::addColumn<QString>("final"); // null: the editing does not end
        const auto add = [](const char *locale, int decimals, const char *typed, const char *taken, const char *final) {
            QTest::addRow("%s, %d places, %s", locale, decimals, typed)
                << QLocale(QLatin1String(locale)) << decimals << QString::fromUtf8(typed) << QString::fromUtf8(taken)
                << (final ? QString::fromUtf8(final) : QString());
        };
        add("en", 0, "99", "99", "99");
        add("en", 0, "1234", "1234", "1,234");
        add("en", 0, "1,234", "1234", "1,234"); // a comma cannot be typed: the groups behind it would be incomplete
        add("en", 0, "5000", "5000", "5,000");
        add("en", 0, "5001", "5001", "42");
        add("en", 0, "-", "", "42");
        add("en", 0, "", "", "42");
        add("en", 0, "12a3", "123", "123");
        add("en", 0, "1.5", "15", "15");
        add("en", 0, "007", "007", "7");
        add("en", 2, "99", "99", "99.00");
        add("en", 2, "1234.5", "1234.5", "1,234.50");
        add("en", 2, "1.239", "1.23", "1.23");
        add("en", 2, "5000.01", "5000.01", "42");
        add("C", 0, "99", "99", "99");
        add("C", 0, "1234", "1234", "1234");
        add("C", 2, "1234.5", "1234.5", "1234.50");
        // The locale reads points as separators of thousands and writes them so.
        add("de_DE", 0, "99", "99", "99");
        add("de_DE", 0, "1234", "1234", "1.234");
        add("de_DE", 2, "99", "99", "99,00");
        add("de_DE", 2, "1.234", "1.234", "1.234,00");
        add("de_DE", 2, "1.5", "1.5", nullptr);
        // Digits of its own.
        add("ar_EG", 0, "99", "99", "\u0669\u0669");
        add("ar_EG", 0, "1234", "1234", "\u0661\u066C\u0662\u0663\u0664");
        add("ar_EG", 0, "6000", "6000", "42");
        add("ar_EG", 2, "1.5", "15", "\u0661\u0665\u066B\u0660\u0660");
    }

    void numbers_are_normalised_or_give_way_to_the_last_accepted_text()
    {
        QFETCH(QLocale, locale);
        QFETCH(int, decimals);
        QFETCH(QString, typed);
        QFETCH(QString, taken);
        QFETCH(QString, final);
        QLocale::setDefault(locale);
        m_frame->setText(QStringLiteral("42"));
        m_frame->setValidator(0, 5000, decimals);
        m_frame->getLineEdit()->setFocus();
        m_frame->clear();
        QTest::keyClicks(m_frame->getLineEdit(), typed);
        QCOMPARE(m_frame->getText(), taken);
        QSignalSpy ends(m_frame, &QcLineEditFrame::signalEditingFinished);
        QTest::keyClick(m_frame->getLineEdit(), Qt::Key_Return);
        QCOMPARE(ends.count(), final.isNull() ? 0 : 1);
        QCOMPARE(m_frame->getText(), final.isNull() ? taken : final);
    }

    void a_number_written_unlike_the_form_ends_no_editing_until_it_is_replaced_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::newRow("German") << QLocale(QStringLiteral("de_DE"));
        QTest::newRow("Arabic") << QLocale(QStringLiteral("ar_EG"));
    }

    void a_number_written_unlike_the_form_ends_no_editing_until_it_is_replaced()
    {
        QFETCH(QLocale, locale);
        QLocale::setDefault(locale);
        m_frame->setValidator(0, 5000, 0);
        QcLineEdit *edit = m_frame->getLineEdit();
        edit->setFocus();
        QTest::keyClicks(edit, QStringLiteral("1234"));
        QTest::keyClick(edit, Qt::Key_Return);
        const QString written = locale.toString(1234);
        QCOMPARE(m_frame->getText(), written);
        QCOMPARE(m_frame->valueInt(), 1234);
        QSignalSpy ends(m_frame, &QcLineEditFrame::signalEditingFinished);
        QTest::keyClicks(edit, QStringLiteral("1x"));
        QCOMPARE(m_frame->getText(), written + QStringLiteral("1x"));
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(ends.count(), 0);
        edit->selectAll();
        QTest::keyClicks(edit, QStringLiteral("7"));
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(ends.count(), 1);
        QCOMPARE(m_frame->getText(), locale.toString(7));
    }

    void a_pasted_number_may_have_separators()
    {
        QLocale::setDefault(QLocale(QStringLiteral("en")));
        m_frame->setText(QStringLiteral("42"));
        m_frame->setValidator(0, 100, 0);
        Paste(QStringLiteral("1,000"));
        QCOMPARE(m_frame->getText(), QStringLiteral("1,000"));
        QTest::keyClick(m_frame->getLineEdit(), Qt::Key_Return);
        QCOMPARE(m_frame->getText(), QStringLiteral("42"));
        m_frame->setValidator(0, 5000, 0);
        Paste(QStringLiteral("1,23")); // replaces the text, or would
        QCOMPARE(m_frame->getText(), QStringLiteral("42"));
        Paste(QStringLiteral("1,000"));
        QTest::keyClick(m_frame->getLineEdit(), Qt::Key_Return);
        QCOMPARE(m_frame->getText(), QStringLiteral("1,000"));
        QCOMPARE(m_frame->valueInt(), 1000);
        QCOMPARE(m_frame->valueDb(), 1000.0);
    }

    void leaving_the_field_ends_editing_too()
    {
        QLocale::setDefault(QLocale(QStringLiteral("en")));
        m_frame->setValidator(0, 5000, 2);
        m_frame->getLineEdit()->setFocus();
        QTest::keyClicks(m_frame->getLineEdit(), QStringLiteral("1234"));
        QSignalSpy ends(m_frame, &QcLineEditFrame::signalEditingFinished);
        QTest::keyClick(m_frame->getLineEdit(), Qt::Key_Tab);
        QCOMPARE(ends.count(), 1);
        QCOMPARE(m_frame->getText(), QStringLiteral("1,234.00"));
    }

    void the_signal_comes_after_the_text_is_final()
    {
        m_frame->setText(QStringLiteral("42"));
        m_frame->setValidator(0, 100, 0);
        m_frame->getLineEdit()->setFocus();
        m_frame->clear();
        QTest::keyClicks(m_frame->getLineEdit(), QStringLiteral("999"));
        QString seen;
        QObject listener; // the field ends editing once more as its window closes
        connect(m_frame, &QcLineEditFrame::signalEditingFinished, &listener, [&] { seen = m_frame->getText(); });
        QTest::keyClick(m_frame->getLineEdit(), Qt::Key_Return);
        QCOMPARE(seen, QStringLiteral("42"));
    }

    void a_field_that_dies_with_the_keyboard_ends_no_editing_data()
    {
        QTest::addColumn<bool>("isWindow");
        QTest::newRow("in a window") << false;
        QTest::newRow("a window itself") << true;
    }

    void a_field_that_dies_with_the_keyboard_ends_no_editing()
    {
        QFETCH(bool, isWindow);
        if (isWindow) {
            m_frame->setParent(nullptr);
            m_frame->show();
            QVERIFY(QTest::qWaitForWindowActive(m_frame));
        }
        m_frame->getLineEdit()->setFocus();
        QTest::keyClicks(m_frame->getLineEdit(), QStringLiteral("accepted"));
        QTest::keyClick(m_frame->getLineEdit(), Qt::Key_Return);
        QTest::keyClicks(m_frame->getLineEdit(), QStringLiteral(" and more"));
        QVERIFY(m_frame->getLineEdit()->hasFocus());
        QSignalSpy ends(m_frame, &QcLineEditFrame::signalEditingFinished);
        delete m_frame;
        m_frame = nullptr;
        QCOMPARE(ends.count(), 0);
        DrainEvents();
    }

    void a_lone_minus_stays_until_the_end_of_editing_if_the_range_has_negative_numbers()
    {
        m_frame->setText(QStringLiteral("42"));
        m_frame->setValidator(-10, 100, 0);
        m_frame->getLineEdit()->setFocus();
        m_frame->clear();
        QTest::keyClicks(m_frame->getLineEdit(), QStringLiteral("-"));
        QCOMPARE(m_frame->getText(), QStringLiteral("-"));
        QStringList texts;
        QObject listener;
        connect(m_frame, &QcLineEditFrame::signalTextChanged, &listener, [&](const QString &text) { texts << text; });
        QTest::keyClick(m_frame->getLineEdit(), Qt::Key_Return);
        QCOMPARE(texts, QStringList({QString(), QStringLiteral("42")})); // cleared first, then the last accepted text
    }

    void an_emptied_field_gets_the_last_accepted_text_back()
    {
        m_frame->setValidator(0, 100, 2);
        m_frame->getLineEdit()->setFocus();
        QTest::keyClicks(m_frame->getLineEdit(), QStringLiteral("5.5"));
        QTest::keyClick(m_frame->getLineEdit(), Qt::Key_Return);
        m_frame->clear();
        QTest::keyClick(m_frame->getLineEdit(), Qt::Key_Return);
        QCOMPARE(m_frame->getText(), QStringLiteral("5.50"));
    }

    void a_set_text_counts_as_accepted_without_being_judged()
    {
        m_frame->setValidator(0, 100, 0);
        m_frame->setText(QStringLiteral("a lot"));
        QCOMPARE(m_frame->getText(), QStringLiteral("a lot"));
        m_frame->getLineEdit()->setFocus();
        m_frame->getLineEdit()->clear();
        QTest::keyClicks(m_frame->getLineEdit(), QStringLiteral("999"));
        QTest::keyClick(m_frame->getLineEdit(), Qt::Key_Return);
        QCOMPARE(m_frame->getText(), QStringLiteral("a lot"));
    }

    void a_number_just_outside_of_the_range_is_written_as_the_bound()
    {
        m_frame->setValidator(0, 1, 2);
        m_frame->setText(QStringLiteral("1.00005"));
        Finish(*m_frame);
        QCOMPARE(m_frame->getText(), QStringLiteral("1.00"));
        m_frame->setText(QStringLiteral("-0.00005"));
        Finish(*m_frame);
        QCOMPARE(m_frame->getText(), QStringLiteral("-0.00"));
        m_frame->setText(QStringLiteral("1.00011"));
        Finish(*m_frame);
        QCOMPARE(m_frame->getText(), QStringLiteral("1.00011")); // refused: the text that was set counts as accepted
    }

    void bounds_are_rounded_to_the_places_or_cut_to_whole_numbers()
    {
        m_frame->setValidator(-1.239, 7.456, 1);
        const auto *doubles = qobject_cast<const QcDoubleValidator *>(m_frame->getLineEdit()->validator());
        QVERIFY(doubles);
        QCOMPARE(doubles->parent(), m_frame->getLineEdit());
        QCOMPARE(doubles->bottom(), -1.2);
        QCOMPARE(doubles->top(), 7.5);
        QCOMPARE(doubles->decimals(), 1);
        QCOMPARE(doubles->notation(), QDoubleValidator::StandardNotation);
        m_frame->setValidator(-1.9, 7.9, 0);
        const auto *integers = qobject_cast<const QcIntValidator *>(m_frame->getLineEdit()->validator());
        QVERIFY(integers);
        QCOMPARE(integers->parent(), m_frame->getLineEdit());
        QCOMPARE(integers->bottom(), -1);
        QCOMPARE(integers->top(), 7);
        QCOMPARE(m_frame->getLineEdit()->findChildren<QValidator *>().size(), 2); // the first one stays
    }

    void strange_bounds_become_data()
    {
        QTest::addColumn<double>("min");
        QTest::addColumn<double>("max");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<double>("bottom");
        QTest::addColumn<double>("top");
        QTest::addColumn<bool>("holdsThree");
        const double least = std::numeric_limits<int>::min();
        const double most = std::numeric_limits<int>::max();
        QTest::newRow("whole, cut to an int") << -1e300 << 1e300 << 0 << least << most << true;
        QTest::newRow("whole, just beyond an int") << least - 1 << most + 1 << 0 << least << most << true;
        QTest::newRow("whole, infinite") << -qInf() << qInf() << 0 << least << most << true;
        QTest::newRow("whole, no numbers") << qQNaN() << qQNaN() << 0 << 0.0 << 0.0 << false;
        QTest::newRow("whole, turned round") << 10.0 << -10.0 << 0 << 10.0 << -10.0 << false;
        QTest::newRow("too large for places") << -1e308 << 1e308 << 2 << -1e308 << 1e308 << true;
        QTest::newRow("infinite") << -qInf() << qInf() << 2 << -qInf() << qInf() << true;
        QTest::newRow("no numbers") << qQNaN() << qQNaN() << 2 << qQNaN() << qQNaN() << false;
        QTest::newRow("turned round") << 10.0 << -10.0 << 2 << 10.0 << -10.0 << false;
        QTest::newRow("more places than a double has") << 1.25 << 9.75 << 400 << 1.25 << 9.75 << true;
        QTest::newRow("hundreds") << -149.0 << 150.0 << -2 << -100.0 << 200.0 << true;
        QTest::newRow("more than a double has before the point") << 1.25 << 9.75 << -400 << 1.25 << 9.75 << true;
    }

    void strange_bounds_become()
    {
        QFETCH(double, min);
        QFETCH(double, max);
        QFETCH(int, decimals);
        QFETCH(double, bottom);
        QFETCH(double, top);
        QFETCH(bool, holdsThree);
        m_frame->setText(QStringLiteral("before"));
        m_frame->setValidator(min, max, decimals);
        const QValidator *validator = m_frame->getLineEdit()->validator();
        const char *const names[] = {"bottom", "top"};
        const double bounds[] = {bottom, top};
        for (int i = 0; i < 2; ++i) {
            const double bound = validator->property(names[i]).toDouble();
            QVERIFY2(bound == bounds[i] || (qIsNaN(bound) && qIsNaN(bounds[i])), qPrintable(QString::number(bound)));
        }
        m_frame->getLineEdit()->setText(QStringLiteral("3"));
        Finish(*m_frame);
        QCOMPARE(m_frame->getText().startsWith(QLatin1Char('3')), holdsThree);
        QCOMPARE(m_frame->getText() == QStringLiteral("before"), !holdsThree);
    }

    void strange_bounds_and_places_do_no_harm_data()
    {
        QTest::addColumn<double>("min");
        QTest::addColumn<double>("max");
        QTest::addColumn<int>("decimals");
        for (const int decimals : {0, 2, -2, 400, -400, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
            QTest::addRow("huge, %d places", decimals) << -1e300 << 1e300 << decimals;
            QTest::addRow("infinite, %d places", decimals) << -qInf() << qInf() << decimals;
            QTest::addRow("no numbers, %d places", decimals) << qQNaN() << qQNaN() << decimals;
            QTest::addRow("turned round, %d places", decimals) << 10.0 << -10.0 << decimals;
        }
    }

    void strange_bounds_and_places_do_no_harm()
    {
        QFETCH(double, min);
        QFETCH(double, max);
        QFETCH(int, decimals);
        m_frame->setValidator(min, max, decimals);
        m_frame->getLineEdit()->setFocus();
        QTest::keyClicks(m_frame->getLineEdit(), QStringLiteral("-12.5"));
        QTest::keyClick(m_frame->getLineEdit(), Qt::Key_Return);
        m_frame->setText(QStringLiteral("3"));
        Finish(*m_frame);
        QCOMPARE(m_frame->valueDb(), 3.0);
        Clamp(*m_frame);
        DrainEvents();
    }

    void qts_own_validators_act_at_the_end_of_editing_too()
    {
        QIntValidator integers(0, 10);
        m_frame->setText(QStringLiteral("5"));
        m_frame->setValidator(&integers);
        QCOMPARE(m_frame->getLineEdit()->validator(), &integers);
        m_frame->getLineEdit()->setText(QStringLiteral("007"));
        Finish(*m_frame);
        QCOMPARE(m_frame->getText(), QStringLiteral("7"));
        m_frame->getLineEdit()->setText(QStringLiteral("11"));
        Finish(*m_frame);
        QCOMPARE(m_frame->getText(), QStringLiteral("7"));
        QDoubleValidator doubles(0, 10, 3, nullptr);
        m_frame->setValidator(&doubles);
        m_frame->getLineEdit()->setText(QStringLiteral("2.5"));
        Finish(*m_frame);
        QCOMPARE(m_frame->getText(), QStringLiteral("2.500"));
    }

    void any_other_validator_leaves_the_text_alone()
    {
        QRegularExpressionValidator letters(QRegularExpression(QStringLiteral("[a-z]*")));
        m_frame->setText(QStringLiteral("before"));
        m_frame->setValidator(&letters);
        m_frame->getLineEdit()->setFocus();
        m_frame->clear();
        QTest::keyClicks(m_frame->getLineEdit(), QStringLiteral("abc"));
        QSignalSpy ends(m_frame, &QcLineEditFrame::signalEditingFinished);
        QTest::keyClick(m_frame->getLineEdit(), Qt::Key_Return);
        QCOMPARE(ends.count(), 1);
        QCOMPARE(m_frame->getText(), QStringLiteral("abc"));
        // Nor is it remembered.
        m_frame->setValidator(0, 10, 0);
        Finish(*m_frame);
        QCOMPARE(m_frame->getText(), QStringLiteral("before"));
    }

    void without_a_validator_every_text_is_accepted()
    {
        m_frame->getLineEdit()->setFocus();
        QTest::keyClicks(m_frame->getLineEdit(), QStringLiteral("anything"));
        QSignalSpy ends(m_frame, &QcLineEditFrame::signalEditingFinished);
        QSignalSpy changes(m_frame, &QcLineEditFrame::signalTextChanged);
        QTest::keyClick(m_frame->getLineEdit(), Qt::Key_Return);
        QCOMPARE(ends.count(), 1);
        QCOMPARE(changes.count(), 0); // nothing is written back
        m_frame->setValidator(0, 10, 0);
        m_frame->clear();
        Finish(*m_frame);
        QCOMPARE(m_frame->getText(), QStringLiteral("anything"));
    }

    void a_null_validator_does_nothing_and_a_dead_one_is_forgotten()
    {
        auto validator = std::make_unique<QIntValidator>(0, 10);
        m_frame->setValidator(validator.get());
        m_frame->setValidator(nullptr);
        QCOMPARE(m_frame->getLineEdit()->validator(), validator.get());
        validator.reset();
        QVERIFY(!m_frame->getLineEdit()->validator());
        m_frame->getLineEdit()->setFocus();
        QTest::keyClicks(m_frame->getLineEdit(), QStringLiteral("abc"));
        QTest::keyClick(m_frame->getLineEdit(), Qt::Key_Return);
        QCOMPARE(m_frame->getText(), QStringLiteral("abc"));
    }

    void a_validator_may_die_as_the_refused_text_gives_way()
    {
        auto validator = std::make_unique<QIntValidator>(0, 10);
        m_frame->setText(QStringLiteral("5"));
        m_frame->setValidator(validator.get());
        m_frame->getLineEdit()->setText(QStringLiteral("77"));
        QObject listener;
        connect(m_frame, &QcLineEditFrame::signalTextChanged, &listener, [&] { validator.reset(); });
        QSignalSpy ends(m_frame, &QcLineEditFrame::signalEditingFinished);
        Finish(*m_frame);
        QVERIFY(!validator);
        QCOMPARE(m_frame->getText(), QStringLiteral("5"));
        QCOMPARE(ends.count(), 1);
    }

    void the_frame_may_die_as_the_refused_text_gives_way_in_an_edit_taken_out_of_it()
    {
        m_frame->setText(QStringLiteral("5"));
        m_frame->setValidator(0, 10, 0);
        QcLineEdit *edit = m_frame->getLineEdit();
        edit->setParent(m_window.get());
        edit->setText(QStringLiteral("77"));
        connect(m_frame, &QcLineEditFrame::signalTextChanged, m_spare, [this] { delete std::exchange(m_frame, nullptr); });
        QSignalSpy ends(m_frame, &QcLineEditFrame::signalEditingFinished);
        Finish(*m_frame);
        QVERIFY(!m_frame);
        QCOMPARE(ends.count(), 0);
        QCOMPARE(edit->text(), QStringLiteral("5"));
    }

    void unit_and_button_come_and_go_without_the_layout_that_the_host_deleted()
    {
        delete m_frame->layout();
        m_frame->setUnit(QStringLiteral("mm"));
        m_frame->setButtonIconPath(QStringLiteral(":/images/close.svg"));
        QVERIFY(UnitOf(*m_frame)->isVisible());
        QVERIFY(ButtonOf(*m_frame)->isVisible());
    }

    void the_button_may_delete_the_field_data()
    {
        QTest::addColumn<bool>("isKey");
        QTest::newRow("mouse") << false;
        QTest::newRow("keyboard") << true;
    }

    void the_button_may_delete_the_field()
    {
        QFETCH(bool, isKey);
        const SquareIcon icon(QStringLiteral("#000000"));
        m_frame->setButtonIconPath(icon.Path());
        DrainEvents();
        QcGhostButton *button = ButtonOf(*m_frame);
        connect(m_frame, &QcLineEditFrame::signalButtonClicked, m_spare, [this] {
            delete m_frame;
            m_frame = nullptr;
        });
        button->setFocus();
        if (isKey)
            QTest::keyClick(m_window->windowHandle(), Qt::Key_Space);
        else
            QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                              button->mapTo(m_window.get(), button->rect().center()));
        QVERIFY(!m_frame);
        DrainEvents();
    }

    void values_are_read_as_the_locale_reads_them_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("number");
        QTest::addColumn<int>("whole");
        QTest::newRow("English") << QLocale(QStringLiteral("en")) << "1,234" << 1234.0 << 1234;
        QTest::newRow("English decimals") << QLocale(QStringLiteral("en")) << "1.5" << 1.5 << 0;
        QTest::newRow("German") << QLocale(QStringLiteral("de_DE")) << "1.234" << 1234.0 << 1234;
        QTest::newRow("German decimals") << QLocale(QStringLiteral("de_DE")) << "1,5" << 1.5 << 0;
        QTest::newRow("Arabic") << QLocale(QStringLiteral("ar_EG")) << QStringLiteral("\u0661\u0662") << 12.0 << 12;
        QTest::newRow("C") << QLocale::c() << "-7" << -7.0 << -7;
        QTest::newRow("no number") << QLocale::c() << "seven" << 0.0 << 0;
        QTest::newRow("nothing") << QLocale::c() << "" << 0.0 << 0;
    }

    void values_are_read_as_the_locale_reads_them()
    {
        QFETCH(QLocale, locale);
        QFETCH(QString, text);
        QFETCH(double, number);
        QFETCH(int, whole);
        QLocale::setDefault(locale);
        m_frame->setText(text);
        QCOMPARE(m_frame->valueDb(), number);
        QCOMPARE(m_frame->valueInt(), whole);
    }

    void the_clamping_check_clamps_and_minds_no_locale_data()
    {
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("final");
        QTest::newRow("whole") << 0 << "1234"
                               << "1234";
        QTest::newRow("above") << 0 << "9999"
                               << "5000";
        QTest::newRow("below") << 0 << "-9999"
                               << "-1";
        QTest::newRow("separators") << 0 << "1,234"
                                    << "42";
        QTest::newRow("no number") << 0 << "a"
                                   << "42";
        QTest::newRow("decimals") << 2 << "1234.5"
                                  << "1234.50";
        QTest::newRow("decimals above") << 2 << "5000.00005"
                                        << "5000.00";
        QTest::newRow("decimals below") << 2 << "-1.01"
                                        << "-1.00";
        QTest::newRow("decimals with separators") << 2 << "1,234.5"
                                                  << "42";
    }

    void the_clamping_check_clamps_and_minds_no_locale()
    {
        QFETCH(int, decimals);
        QFETCH(QString, text);
        QFETCH(QString, final);
        QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
        m_frame->setText(QStringLiteral("42"));
        m_frame->setValidator(-1, 5000, decimals);
        m_frame->getLineEdit()->setText(text);
        QSignalSpy ends(m_frame, &QcLineEditFrame::signalEditingFinished);
        Clamp(*m_frame);
        QCOMPARE(m_frame->getText(), final);
        QCOMPARE(ends.count(), 1);
    }

    void the_clamping_check_without_a_validator_accepts_every_text()
    {
        m_frame->getLineEdit()->setText(QStringLiteral("anything"));
        QSignalSpy ends(m_frame, &QcLineEditFrame::signalEditingFinished);
        Clamp(*m_frame);
        QCOMPARE(ends.count(), 1);
        m_frame->setValidator(0, 10, 0);
        m_frame->clear();
        Clamp(*m_frame);
        QCOMPARE(m_frame->getText(), QStringLiteral("anything"));
    }

    // --- Hostile input ---

    void a_megabyte_is_pasted_without_harm()
    {
        const QString megabyte(1 << 20, QLatin1Char('7'));
        Paste(megabyte);
        QCOMPARE(m_frame->getText().size(), 32767); // as much as Qt's edit takes
        m_frame->clear();
        for (const int decimals : {0, 2}) {
            m_frame->setText(QStringLiteral("42"));
            m_frame->setValidator(0, 100, decimals);
            Paste(megabyte);
            QTest::keyClick(m_frame->getLineEdit(), Qt::Key_Return);
            QCOMPARE(m_frame->valueDb(), 42.0);
            m_frame->setText(megabyte);
            Finish(*m_frame);
        }
        m_frame->setWarningText(megabyte.left(10000));
        m_frame->setUnit(megabyte.left(10000));
        m_frame->setPlaceholderText(megabyte);
        m_frame->grab();
    }

    void control_characters_and_emoji_are_text_like_any_other()
    {
        const QString strange = QString::fromUtf8("a\u0001b\u200F\U0001F600\U0001F468\u200D\U0001F469c\u0301") + QChar(0) + QChar(0xD800);
        m_frame->setText(strange);
        QCOMPARE(m_frame->getText(), strange);
        m_frame->grab();
        m_frame->setUnit(strange);
        m_frame->setPlaceholderText(strange);
        m_frame->setWarningText(strange);
        m_frame->setWarning(true);
        m_frame->clear();
        m_frame->grab();
        m_frame->setText(QStringLiteral("42"));
        m_frame->setValidator(0, 100, 2);
        for (const QString &hostile :
             {strange, QStringLiteral("\u0661"), QStringLiteral("1\n2"), QStringLiteral("4\u00A02"), QStringLiteral("\U0001F600")}) {
            Paste(hostile);
            QCOMPARE(m_frame->getText(), QStringLiteral("42"));
        }
        Paste(QStringLiteral("7"));
        QCOMPARE(m_frame->getText(), QStringLiteral("7"));
    }

    // --- Warning ---

    void the_tip_is_there_while_frame_warning_and_text_are()
    {
        QcArrowTip *tip = TipOf(*m_frame);
        m_frame->setWarning(true);
        QVERIFY(m_frame->getWarning());
        QCOMPARE(m_frame->property("objectPropertyWarning"), QVariant(true));
        QVERIFY(!tip->isVisible()); // no text: the border only
        m_frame->setWarningText(QStringLiteral("Too long"));
        QVERIFY(tip->isVisible());
        m_frame->setWarning(false);
        QVERIFY(!m_frame->getWarning());
        QCOMPARE(m_frame->property("objectPropertyWarning"), QVariant(false));
        QVERIFY(!tip->isVisible());
        m_frame->setWarning(true);
        QVERIFY(tip->isVisible());
        m_frame->setWarningText(QString());
        QVERIFY(!tip->isVisible());
    }

    void an_unchanged_warning_is_no_work()
    {
        m_frame->setWarningText(QStringLiteral("Too long"));
        m_frame->setWarning(true);
        QTRY_COMPARE(TipOf(*m_frame)->pos(), TipPlace(*m_frame));
        DrainEvents();
        EventCounter paints(*m_frame, QEvent::Paint);
        EventCounter changes(*m_frame, QEvent::DynamicPropertyChange);
        EventCounter palettes(*m_frame, QEvent::PaletteChange); // of the polished
        EventCounter repaints(*TipOf(*m_frame), QEvent::UpdateRequest);
        m_frame->setWarning(true);
        m_frame->setWarningText(QStringLiteral("Too long"));
        DrainEvents();
        for (EventCounter *counter : {&paints, &changes, &palettes, &repaints})
            QCOMPARE(counter->Take(), 0);
        m_frame->setWarningText(QStringLiteral("Too short"));
        DrainEvents();
        QVERIFY(repaints.Take() > 0); // which would have been seen
    }

    void a_frame_may_die_as_its_warning_changes()
    {
        const Undertaker undertaker(*m_frame);
        m_frame->setWarningText(QStringLiteral("Too long"));
        const QPointer<QcLineEditFrame> guard(m_frame);
        std::exchange(m_frame, nullptr)->setWarning(true);
        QVERIFY(!guard);
        DrainEvents();
    }

    void a_frame_may_die_as_its_tip_grows()
    {
        m_frame->setWarningText(QStringLiteral("one line"));
        const auto *content = TipOf(*m_frame)->findChild<QcMultiLineText *>();
        QVERIFY(content);
        connect(content, &QcMultiLineText::signalHeightChanged, m_spare, [this] { delete std::exchange(m_frame, nullptr); });
        m_frame->setWarningText(QStringLiteral("one<br>two<br>three"));
        QVERIFY(!m_frame);
        DrainEvents();
    }

    void a_frame_may_die_as_its_focus_property_changes()
    {
        const Undertaker undertaker(*m_frame);
        m_window->windowHandle()->installEventFilter(m_frame);
        const QPointer<QcLineEditFrame> guard(m_frame);
        ClickAt(*std::exchange(m_frame, nullptr));
        QVERIFY(!guard);
        DrainEvents();
    }

    void the_tips_contents_come_with_the_first_text()
    {
        const QcArrowTip *tip = TipOf(*m_frame);
        QVERIFY(tip);
        m_frame->setWarning(true);
        QVERIFY(tip->children().isEmpty()); // a form has hundreds of fields and few warnings
        m_frame->setWarningText(QStringLiteral("Too long"));
        QCOMPARE(tip->findChild<QTextDocument *>()->toPlainText(), QStringLiteral("Too long"));
    }

    void the_tip_hides_with_the_frame_and_returns_with_it()
    {
        QcArrowTip *tip = TipOf(*m_frame);
        m_frame->setWarningText(QStringLiteral("Too long"));
        m_frame->setWarning(true);
        QVERIFY(tip->isVisible());
        m_frame->hide();
        QVERIFY(!tip->isVisible());
        m_frame->show();
        QVERIFY(tip->isVisible());
        m_window->hide();
        QVERIFY(!tip->isVisible());
        m_window->show();
        QVERIFY(tip->isVisible());
        QcLineEditFrame unseen;
        unseen.setWarningText(QStringLiteral("Too long"));
        unseen.setWarning(true);
        QVERIFY(!TipOf(unseen)->isVisible());
        DrainEvents();
    }

    void the_tip_stands_above_in_red()
    {
        m_window->move(100, 100);
        m_frame->setWarningText(QStringLiteral("<span style=\"font-size:60px;font-weight:bold\">I</span>"));
        m_frame->setWarning(true);
        QTRY_COMPARE(TipOf(*m_frame)->pos(), TipPlace(*m_frame));
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QcArrowTip *tip = TipOf(*m_frame);
            const QColor bubble = TokenOf(table, QStringLiteral("base/neutral/neutral_invert"));
            const QImage image = Part(Render(*TipOf(*m_frame)), QRectF(QPointF(15, 11), QSizeF(tip->size() - QSize(30, 22))));
            COMPARE_COLOR(InkColor(image, bubble), TokenOf(table, QStringLiteral("base/red/red-60")));
            // The triangle is on the lower edge.
            const QImage whole = Render(*TipOf(*m_frame), Qt::red);
            COMPARE_COLOR(PixelAt(whole, QPointF(tip->width() / 2, tip->height() - 2)), bubble);
        }
    }

    void the_tip_follows_the_window_into_which_the_frame_came()
    {
        QWidget window;
        window.setGeometry(50, 60, 300, 100);
        QVBoxLayout layout(&window);
        auto *frame = new QcLineEditFrame(nullptr); // its own window for now
        frame->setWarningText(QStringLiteral("Too long"));
        frame->setWarning(true);
        layout.addWidget(frame);
        window.show();
        QTRY_COMPARE(TipOf(*frame)->pos(), TipPlace(*frame));
        for (const QPoint &place :
             {QPoint(90, 110), QPoint(130, 170), QPoint(40, 90)}) { // the first may be met by the show's own placement
            const QPoint before = TipOf(*frame)->pos();
            window.move(place);
            QTRY_COMPARE(TipOf(*frame)->pos(), TipPlace(*frame));
            QVERIFY(TipOf(*frame)->pos() != before);
        }
    }

    void the_tip_belongs_to_the_window_into_which_the_frame_came()
    {
        m_frame->setWarningText(QStringLiteral("Too long"));
        m_frame->setWarning(true);
        const QWindow *tip = TipOf(*m_frame)->windowHandle();
        QCOMPARE(tip->transientParent(), m_window->windowHandle());
        QWidget window;
        window.resize(300, 100);
        window.show();
        m_frame->setParent(&window);
        m_frame->show();
        QVERIFY(TipOf(*m_frame)->isVisible());
        QCOMPARE(tip->transientParent(), window.windowHandle());
        // With the panel that holds it.
        QWidget panel(&window);
        panel.show();
        m_frame->setParent(&panel);
        m_frame->show();
        panel.setParent(m_window.get());
        panel.show();
        QVERIFY(TipOf(*m_frame)->isVisible());
        QCOMPARE(tip->transientParent(), m_window->windowHandle());
        m_frame->setParent(m_window.get()); // the panel dies before the window
    }

    void a_frame_that_dies_takes_its_tip_along()
    {
        m_frame->setWarningText(QStringLiteral("Too long"));
        m_frame->setWarning(true);
        const QPointer<QcArrowTip> tip = TipOf(*m_frame);
        delete m_frame;
        m_frame = nullptr;
        QVERIFY(!tip);
        DrainEvents();
    }

    void the_warning_is_the_hosts_alone()
    {
        m_frame->setValidator(0, 10, 0);
        m_frame->getLineEdit()->setFocus();
        QTest::keyClicks(m_frame->getLineEdit(), QStringLiteral("99"));
        QTest::keyClick(m_frame->getLineEdit(), Qt::Key_Return);
        QVERIFY(!m_frame->property("objectPropertyWarning").isValid());
    }

    void a_subclass_hears_of_warnings()
    {
        class Listening : public QcLineEditFrame
        {
        public:
            void setWarning(bool on) override
            {
                heard = on;
                QcLineEditFrame::setWarning(on);
            }
            bool heard = false;
        };
        Listening frame;
        static_cast<QcLineEditFrame &>(frame).setWarning(true);
        QVERIFY(frame.heard);
        QVERIFY(frame.getWarning());
        DrainEvents();
    }

    // --- Keyboard, focus and assistive technology ---

    void focus_goes_to_the_edit()
    {
        static_cast<QWidget *>(m_frame)->setFocus();
        QVERIFY(m_frame->getLineEdit()->hasFocus());
        m_other->setFocus();
        QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier, m_frame->mapTo(m_window.get(), QPoint(4, 12)));
        QVERIFY(m_frame->getLineEdit()->hasFocus()); // a click on the margin
        m_other->setFocus();
        m_frame->setUnit(QStringLiteral("mm"));
        DrainEvents();
        QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          UnitOf(*m_frame)->mapTo(m_window.get(), UnitOf(*m_frame)->rect().center()));
        QVERIFY(m_frame->getLineEdit()->hasFocus());
    }

    void tab_visits_edit_and_button_once_each()
    {
        const SquareIcon icon(QStringLiteral("#000000"));
        QVERIFY(TabStops() == QWidgetList({m_frame->getLineEdit(), m_other->getLineEdit()}));
        m_frame->setButtonIconPath(icon.Path());
        QVERIFY(TabStops() == QWidgetList({m_frame->getLineEdit(), ButtonOf(*m_frame), m_other->getLineEdit()}));
        QWidget::setTabOrder(m_other, m_frame);
        QVERIFY(TabStops().first() == m_frame->getLineEdit() && TabStops().size() == 3);
        m_frame->setEnabled(false);
        QVERIFY(TabStops() == QWidgetList({m_other->getLineEdit()}));
    }

    void a_label_leads_to_the_edit()
    {
        auto *label = new QLabel(QStringLiteral("&Length"), m_window.get());
        label->setBuddy(m_frame);
        label->show();
        m_other->setFocus();
        QTest::keyClick(m_window->windowHandle(), Qt::Key_L, Qt::AltModifier);
        QTRY_VERIFY(m_frame->getLineEdit()->hasFocus());
    }

    void the_focus_border_needs_the_events_of_the_window()
    {
        QcLineEdit *edit = m_frame->getLineEdit();
        ClickAt(*m_frame);
        QVERIFY(edit->hasFocus());
        QVERIFY(!m_frame->property("objectPropertyFocus").isValid());

        m_window->windowHandle()->installEventFilter(m_frame);
        ClickAt(*m_frame);
        QVERIFY(edit->hasFocus());
        QCOMPARE(m_frame->property("objectPropertyFocus"), QVariant(true));
        QTest::keyClicks(edit, QStringLiteral("text"));
        QSignalSpy ends(m_frame, &QcLineEditFrame::signalEditingFinished);
        MoveCursorOver(*m_spare);
        QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier, m_spare->geometry().center());
        QVERIFY(!edit->hasFocus());
        QCOMPARE(m_frame->property("objectPropertyFocus"), QVariant(false));
        QCOMPARE(ends.count(), 1);
    }

    void the_frame_filters_its_own_events()
    {
        class Listening : public QcLineEditFrame
        {
        public:
            bool eventFilter(QObject *watched, QEvent *event) override
            {
                heard += watched == this && event->type() == QEvent::User ? 1 : 0;
                return QcLineEditFrame::eventFilter(watched, event);
            }
            int heard = 0;
        };
        Listening frame;
        QEvent event(QEvent::User);
        QCoreApplication::sendEvent(&frame, &event);
        QCOMPARE(frame.heard, 1);
        DrainEvents();
    }

    void a_press_on_the_frame_reaches_the_edit_through_its_window()
    {
        m_window->windowHandle()->installEventFilter(m_frame);
        m_other->setFocus();
        MoveCursorOver(*m_frame);
        QTest::mousePress(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier, m_frame->mapTo(m_window.get(), QPoint(100, 12)));
        QVERIFY(m_frame->getLineEdit()->hasFocus());
        QTest::mouseRelease(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier, m_frame->mapTo(m_window.get(), QPoint(100, 12)));
    }

    void assistive_technology_hears_name_and_description()
    {
        QAccessibleInterface *frame = QAccessible::queryAccessibleInterface(m_frame);
        QAccessibleInterface *edit = QAccessible::queryAccessibleInterface(m_frame->getLineEdit());
        QCOMPARE(frame->role(), QAccessible::Grouping);
        QCOMPARE(edit->role(), QAccessible::EditableText);
        QCOMPARE(edit->parent(), frame);
        m_frame->setPlaceholderText(QStringLiteral("placeholder"));
        QCOMPARE(edit->text(QAccessible::Name), QStringLiteral("placeholder"));
        QLabel label(QStringLiteral("&Buddy"), m_window.get());
        label.setBuddy(m_frame);
        QCOMPARE(edit->text(QAccessible::Name), QStringLiteral("Buddy"));
        m_frame->setAccessibleName(QStringLiteral("Length"));
        QCOMPARE(frame->text(QAccessible::Name), QStringLiteral("Length"));
        QCOMPARE(edit->text(QAccessible::Name), QStringLiteral("Length"));
        m_frame->getLineEdit()->setAccessibleName(QStringLiteral("Own"));
        QCOMPARE(edit->text(QAccessible::Name), QStringLiteral("Own"));

        m_frame->setWarningText(QStringLiteral("<b>Too</b> long"));
        QCOMPARE(edit->text(QAccessible::Description), QString());
        m_frame->setWarning(true);
        QCOMPARE(edit->text(QAccessible::Description), QStringLiteral("Too long"));
        m_frame->setUnit(QStringLiteral("mm"));
        QCOMPARE(edit->text(QAccessible::Description), QStringLiteral("mm, Too long"));
        m_frame->setWarning(false);
        QCOMPARE(edit->text(QAccessible::Description), QStringLiteral("mm"));
        m_frame->setAccessibleDescription(QStringLiteral("of the frame"));
        QCOMPARE(edit->text(QAccessible::Description), QStringLiteral("mm, of the frame"));
        m_frame->getLineEdit()->setAccessibleDescription(QStringLiteral("of the edit"));
        QCOMPARE(edit->text(QAccessible::Description), QStringLiteral("mm, of the edit"));
        m_frame->setUnit(QString());
        QCOMPARE(edit->text(QAccessible::Description), QStringLiteral("of the edit"));
    }

    void the_button_is_named_by_its_tool_tip()
    {
        ButtonOf(*m_frame)->setToolTip(QStringLiteral("Choose a file"));
        QCOMPARE(QAccessible::queryAccessibleInterface(ButtonOf(*m_frame))->text(QAccessible::Name), QStringLiteral("Choose a file"));
    }

    void a_changed_description_is_announced_and_an_unchanged_one_is_not()
    {
        const QObjectList once{m_frame->getLineEdit()};
        const Reader reader;
        m_frame->setWarningText(QStringLiteral("Too long"));
        QCOMPARE(Reader::Take(), QObjectList()); // of a warning that is not given
        for (const bool on : {true, false, true}) {
            m_frame->setWarning(on);
            QCOMPARE(Reader::Take(), once);
            m_frame->setWarning(on);
            QCOMPARE(Reader::Take(), QObjectList());
        }
        m_frame->setWarningText(QStringLiteral("Too short"));
        QCOMPARE(Reader::Take(), once);
        m_frame->setWarningText(QStringLiteral("Too short"));
        QCOMPARE(Reader::Take(), QObjectList());
        for (const char *unit : {"mm", "in", ""}) {
            m_frame->setUnit(QLatin1String(unit));
            QCOMPARE(Reader::Take(), once);
            m_frame->setUnit(QLatin1String(unit));
            QCOMPARE(Reader::Take(), QObjectList());
        }
        m_other->setWarning(true);
        QCOMPARE(Reader::Take(), QObjectList()); // without a text it says nothing
    }

    void a_right_to_left_layout_turns_the_order_round()
    {
        const SquareIcon icon(QStringLiteral("#000000"));
        m_frame->setUnit(QStringLiteral("mm"));
        m_frame->setButtonIconPath(icon.Path());
        m_window->setLayoutDirection(Qt::RightToLeft);
        DrainEvents();
        QVERIFY(ButtonOf(*m_frame)->geometry().right() < UnitOf(*m_frame)->geometry().left());
        QVERIFY(UnitOf(*m_frame)->geometry().right() < m_frame->getLineEdit()->geometry().left());
        QVERIFY(m_frame->rect().contains(ButtonOf(*m_frame)->geometry()));
        m_frame->getLineEdit()->setFocus();
        QTest::sendKeyEvent(QTest::Click, m_frame->getLineEdit(), Qt::Key_unknown, QStringLiteral("\u05D0\u05D1"), Qt::NoModifier);
        QCOMPARE(m_frame->getText(), QStringLiteral("\u05D0\u05D1"));
    }

protected:
    void SetUp() override
    {
        MoveCursorAway();
        m_window = std::make_unique<QWidget>();
        m_window->setGeometry(kWindowPlace);
        m_frame = new QcLineEditFrame(m_window.get());
        m_frame->setGeometry(20, 20, 200, 24);
        m_other = new QcLineEditFrame(m_window.get());
        m_other->setGeometry(20, 70, 200, 24);
        m_spare = new QWidget(m_window.get());
        m_spare->setGeometry(20, 120, 200, 40);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_spare->setFocus();
        DrainEvents();
    }

    void TearDown() override
    {
        m_window.reset();
        QLocale::setDefault(QLocale::c());
        UseTable(Table::Light);
    }

private:
    void CompareDistances(int rightMargin, int spacing)
    {
        QCOMPARE(m_frame->layout()->contentsMargins(), QMargins(8, 0, rightMargin, 0));
        QCOMPARE(m_frame->layout()->spacing(), spacing);
    }

    void BringFrameTo(State state)
    {
        if (state == Warning || state == WarningHover || state == WarningFocus || state == WarningDisabled)
            m_frame->setWarning(true);
        if (state == Hover || state == WarningHover)
            MoveCursorOver(*m_frame);
        if (state == Focus || state == WarningFocus) {
            m_window->windowHandle()->installEventFilter(m_frame);
            ClickAt(*m_frame);
            MoveCursorAway();
        }
        m_frame->setEnabled(state != Disabled && state != WarningDisabled);
    }

    void ClickAt(const QWidget &widget)
    {
        MoveCursorOver(widget);
        QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier, widget.mapTo(m_window.get(), widget.rect().center()));
    }

    /// Pastes \a text in place of all that is in the field.
    void Paste(const QString &text)
    {
        QApplication::clipboard()->setText(text);
        m_frame->getLineEdit()->setFocus();
        m_frame->getLineEdit()->selectAll();
        QTest::keySequence(m_frame->getLineEdit(), QKeySequence::Paste);
        QApplication::clipboard()->clear();
    }

    /// Where Tab leads, from the first frame on until it comes back.
    QWidgetList TabStops()
    {
        QWidgetList stops;
        QWidget *first = m_frame->isEnabled() ? m_frame->getLineEdit() : m_other->getLineEdit();
        first->setFocus();
        do {
            stops << QApplication::focusWidget();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        } while (QApplication::focusWidget() != first && stops.size() < 10);
        return stops;
    }

    std::unique_ptr<QWidget> m_window;
    QcLineEditFrame *m_frame = nullptr;
    QcLineEditFrame *m_other = nullptr;
    QWidget *m_spare = nullptr;
};

VELMORA_TEST_MAIN(TestQcLineEditFrame)

#include "tst_QcLineEditFrame.moc"
