#include "MenuTest.h"
#include "support/Cues.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QSignalSpy>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

constexpr QRect kNone;

/// The pixels in which two pictures differ.
QRect Difference(const QImage &one, const QImage &other)
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

} // namespace

class TestMenuMnemonics : public MenuTest
{
    Q_OBJECT

protected:
    void SetUp() override
    {
        MenuTest::SetUp();
        m_style->underlines = false;
    }

private Q_SLOTS:
    void initTestCase()
    {
        UseTable(Table::Light);
        m_style = QuietStyle::Install();
    }

    void items_show_their_texts_without_the_marks_data()
    {
        QTest::addColumn<QString>("marked");
        QTest::addColumn<QString>("shown");
        QTest::newRow("a mark") << QStringLiteral("Save &as") << QStringLiteral("Save as");
        QTest::newRow("a real one") << QStringLiteral("A && B") << QStringLiteral("A & B");
        QTest::newRow("with a shortcut") << QStringLiteral("&Save\tCtrl+&") << QStringLiteral("Save\tCtrl+&");
        QTest::newRow("elided") << QStringLiteral("&A text that is much longer than any menu of the kit may be, &and more")
                                << QStringLiteral("A text that is much longer than any menu of the kit may be, and more");
        QTest::newRow("wide enough without") << QString(20, QLatin1Char('&')).append(QStringLiteral("iiiiiiiiiiiiiiiiiiiiiiiiiii"))
                                             << QString(10, QLatin1Char('&')).append(QStringLiteral("iiiiiiiiiiiiiiiiiiiiiiiiiii"));
        QTest::newRow("right to left") << QStringLiteral("\u05E9&\u05DC\u05D5\u05DD") << QStringLiteral("\u05E9\u05DC\u05D5\u05DD");
        QTest::newRow("no letter of its own") << QStringLiteral("\u4FDD\u5B58(&S)") << QStringLiteral("\u4FDD\u5B58(S)");
    }

    void items_show_their_texts_without_the_marks()
    {
        QFETCH(QString, marked);
        QFETCH(QString, shown);
        m_menu->addQcAction(shown); // without cues as it stands
        Open();
        const QImage expected = Picture();
        const QRect place = m_menu->actionGeometry(m_menu->actions().constFirst());
        m_menu = std::make_unique<QcMenu>();
        const Cues cues;
        m_menu->addQcAction(marked);
        Open();
        QCOMPARE(m_menu->actionGeometry(m_menu->actions().constFirst()), place);
        QCOMPARE(Picture(), expected);
    }

    void without_cues_items_show_their_marks()
    {
        QAction *item = m_menu->addQcAction(QStringLiteral("&Save && exit"));
        Open();
        const QRect label = Place(item).adjusted(12, 0, 0, 0);
        const QColor color = TokenOf(Table::Light, QStringLiteral("text/text_primary"));
        for (const bool underlines : {false, true}) {
            m_style->underlines = underlines;
            QVERIFY(ShowsText(label, Qt::AlignLeft | Qt::AlignVCenter, item->text(), color, Panel(Table::Light)));
        }
    }

    void the_letter_is_underlined_where_the_applications_style_does()
    {
        const Cues cues;
        const QAction *item = m_menu->addQcAction(QStringLiteral("&Save"));
        m_menu->addQcAction(QStringLiteral("More"));
        Open();
        const QImage without = Picture();
        m_style->underlines = true;
        const QRect line = Difference(without, Picture());
        QVERIFY(line != kNone);
        const qreal ratio = without.devicePixelRatio();
        QVERIFY(line.height() <= 2 * ratio);
        QVERIFY(line.width() <= (Advance(QStringLiteral("S")) + 2) * ratio);
        QVERIFY(line.top() / ratio > m_menu->actionGeometry(const_cast<QAction *>(item)).center().y());
        QVERIFY(line.left() / ratio >= 12);
    }

    void a_submenu_and_its_item_show_their_text_without_the_mark()
    {
        QcMenu submenu(QStringLiteral("Tools"));
        m_menu->addQcMenu(&submenu);
        Open();
        const QImage expected = Picture();
        m_menu->hide();
        const Cues cues;
        submenu.setTitle(QStringLiteral("&Tools"));
        m_menu->actions().constFirst()->setText(QStringLiteral("&Tools"));
        Open();
        QCOMPARE(Picture(), expected);
    }

    void an_open_menu_follows_a_switch()
    {
        m_menu->addQcAction(QStringLiteral("&a&a&a&a&a&a&a&a&a&a&a&a&a&a&a&a&a&a"));
        Open();
        const int with = m_menu->width();
        {
            const Cues cues;
            QVERIFY(m_menu->width() < with);
        }
        QCOMPARE(m_menu->width(), with);
    }

    void the_marked_letter_chooses()
    {
        const Cues cues;
        QSignalSpy chosen(m_menu->addQcAction(QStringLiteral("Save &as")), &QAction::triggered);
        m_menu->addQcAction(QStringLiteral("S&how"));
        Open();
        QTest::keyClick(m_menu.get(), Qt::Key_A);
        QCOMPARE(chosen.count(), 1);
        QVERIFY(!m_menu->isVisible());
    }

    void assistive_technology_reads_the_text_that_is_shown()
    {
        m_menu->addQcAction(QStringLiteral("Save && &exit"));
        const Cues cues;
        QCOMPARE(QAccessible::queryAccessibleInterface(m_menu.get())->child(0)->text(QAccessible::Name), QStringLiteral("Save & exit"));
    }

    void a_held_key_chooses_once_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("hasCues");
        for (const bool hasCues : {false, true}) {
            const char *with = hasCues ? "cues" : "none";
            QTest::addRow("Enter, %s", with) << int(Qt::Key_Enter) << hasCues;
            QTest::addRow("Return, %s", with) << int(Qt::Key_Return) << hasCues;
        }
    }

    /// As one, still held, that pressed the button of the menu: Qt goes to the first item with one repeat and chooses it with the next.
    void a_held_key_chooses_once()
    {
        QFETCH(int, key);
        QFETCH(bool, hasCues);
        const auto cues = hasCues ? std::make_unique<Cues>() : nullptr;
        QSignalSpy chosen(m_menu->addQcAction(QStringLiteral("One")), &QAction::triggered);
        Open();
        for (int i = 0; i < 4 && m_menu->isVisible(); ++i) {
            QKeyEvent repeat(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
            QCoreApplication::sendEvent(m_menu.get(), &repeat);
        }
        QCOMPARE(chosen.count(), hasCues ? 0 : 1);
        if (!hasCues)
            return;
        m_menu->setActiveAction(m_menu->actions().constFirst());
        QTest::keyClick(m_menu.get(), Qt::Key(key));
        QCOMPARE(chosen.count(), 1);
    }

private:
    QuietStyle *m_style = nullptr;
};

VELMORA_TEST_MAIN(TestMenuMnemonics)

#include "tst_MenuMnemonics.moc"
