#include "gallery/GalleryTestCase.h"
#include "support/Cues.h"
#include "support/TestMain.h"

#include "GalleryWindow.h"
#include "Page.h"

#include <Velmora/KeyboardCues.h>

#include <Velmora/QcSwitchButton.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFocusFrame>
#include <QKeySequence>
#include <QLabel>
#include <QSet>
#include <QTableWidget>
#include <QWindow>

#include <algorithm>

#include <algorithm>

using namespace Gallery;
using namespace VelmoraTest;

namespace {

constexpr int kTooMany = 400; // presses on one page

bool IsSpecimen(const QWidget *widget)
{
    for (; widget; widget = widget->parentWidget()) {
        if (widget->property("isSpecimen").toBool())
            return true;
    }
    return false;
}

/// The key that a text of \a widget names.
QString KeyOf(const QWidget &widget)
{
    if (const auto *button = qobject_cast<const QAbstractButton *>(&widget))
        return QKeySequence::mnemonic(button->text()).toString();
    const auto *label = qobject_cast<const QLabel *>(&widget);
    return label && label->buddy() ? QKeySequence::mnemonic(label->text()).toString() : QString();
}

QString Describe(const QWidget *widget)
{
    return widget ? QStringLiteral("%1 \"%2\"").arg(QString::fromLatin1(widget->metaObject()->className()), widget->objectName())
                  : QStringLiteral("nothing");
}

bool IsRinged(const QWidget &window)
{
    DrainEvents();
    const auto rings = window.findChildren<QFocusFrame *>();
    return std::any_of(rings.begin(), rings.end(), [](const QWidget *ring) { return ring->isVisible(); });
}

} // namespace

/// The gallery without a mouse.
class TestGalleryKeyboard : public GalleryTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void tab_goes_round_every_page_with_its_ring_and_enters_no_specimen_data()
    {
        QTest::addColumn<QString>("page");
        QTest::addColumn<Qt::Key>("key");
        const QVector<PageInfo> pages = Pages();
        for (const PageInfo &page : pages) {
            QTest::addRow("%s, forwards", qPrintable(page.id)) << page.id << Qt::Key_Tab;
            QTest::addRow("%s, backwards", qPrintable(page.id)) << page.id << Qt::Key_Backtab;
        }
    }

    void tab_goes_round_every_page_with_its_ring_and_enters_no_specimen()
    {
        QFETCH(QString, page);
        QFETCH(Qt::Key, key);
        Velmora::SetKeyboardCuesEnabled(true);
        GalleryWindow window(Gallery::Table::Light);
        QVERIFY(window.ShowPage(page));
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        DrainEvents();
        auto *start = window.findChild<QWidget *>(QStringLiteral("searchField"));
        start->setFocus();
        QSet<QWidget *> visited;
        int presses = 0;
        do {
            QTest::keyClick(window.windowHandle(), key);
            if (!QApplication::focusWidget()) // the tip of what has it now shows, and the offscreen platform activates each window that
                                              // shows
                QApplication::setActiveWindow(&window);
            QWidget *focus = QApplication::focusWidget();
            QVERIFY2(focus && focus->window() == &window, qPrintable(Describe(focus)));
            QVERIFY2(!IsSpecimen(focus), qPrintable(Describe(focus)));
            QVERIFY2(++presses < kTooMany, qPrintable(Describe(focus)));
            QVERIFY2(IsRinged(window), qPrintable(Describe(focus)));
            visited.insert(focus);
        } while (QApplication::focusWidget() != start);
        QVERIFY(visited.contains(window.findChild<QWidget *>(QStringLiteral("pageList"))));
        QVERIFY(visited.contains(window.findChild<QWidget *>(QStringLiteral("tableLight")))); // the chosen segment, and no other
        QVERIFY(!visited.contains(window.findChild<QWidget *>(QStringLiteral("tableDark"))));
        const QList<QWidget *> widgets = window.findChildren<QWidget *>();
        for (QWidget *widget : widgets) {
            const bool isOpen = widget->isVisibleTo(&window) && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus);
            QVERIFY2(!isOpen || widget->focusProxy() || visited.contains(widget), qPrintable(Describe(widget)));
        }
    }

    void no_key_is_given_twice_on_a_page()
    {
        GalleryWindow window(Gallery::Table::Light);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        int given = 0;
        const QVector<PageInfo> pages = Pages();
        for (const PageInfo &page : pages) {
            QVERIFY(window.ShowPage(page.id));
            QSet<QString> keys;
            const QList<QWidget *> widgets = window.findChildren<QWidget *>();
            for (const QWidget *widget : widgets) {
                const QString key = KeyOf(*widget);
                if (key.isEmpty() || !widget->isVisibleTo(&window) || !widget->isEnabled())
                    continue;
                QVERIFY2(!keys.contains(key), qPrintable(page.id + QLatin1Char(' ') + key));
                keys.insert(key);
            }
            given += int(keys.size());
        }
        QVERIFY(given > 20);
    }

    void a_marked_letter_of_a_label_operates_what_it_names()
    {
        const Cues cues;
        GalleryWindow window(Gallery::Table::Light);
        QVERIFY(window.ShowPage(QStringLiteral("checkables")));
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const QList<Velmora::QcSwitchButton *> switches = window.findChildren<Velmora::QcSwitchButton *>();
        const auto isOn = [&] {
            return std::any_of(switches.begin(), switches.end(), [](auto *one) { return one->isChecked() && !IsSpecimen(one); });
        };
        QVERIFY(!isOn());
        QTest::keyClick(window.windowHandle(), Qt::Key_S, Qt::AltModifier);
        QTRY_VERIFY(isOn());
    }

    void arrows_choose_a_segment()
    {
        GalleryWindow window(Gallery::Table::Light);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        auto *light = window.findChild<QAbstractButton *>(QStringLiteral("tableLight"));
        auto *dark = window.findChild<QAbstractButton *>(QStringLiteral("tableDark"));
        light->setFocus();
        QTest::keyClick(light, Qt::Key_Right);
        QVERIFY(dark->hasFocus() && dark->isChecked());
        QTest::keyClick(dark, Qt::Key_Left);
        QVERIFY(light->hasFocus() && light->isChecked());
    }

    void the_keyboard_reaches_all_four_tables()
    {
        GalleryWindow window(Gallery::Table::Light);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QSet<QString> brands;
        for (const Gallery::Table table :
             {Gallery::Table::Dark, Gallery::Table::ContrastLight, Gallery::Table::ContrastDark, Gallery::Table::Light}) {
            QTest::keyClick(&window, Qt::Key_T, Qt::ControlModifier);
            QVERIFY(LastTable() == table);
            brands.insert(TokenColor(QStringLiteral("brand/brand")).name());
        }
        QCOMPARE(brands.size(), 4);
    }

    void a_table_shows_which_cell_has_the_keyboard()
    {
        GalleryWindow window(Gallery::Table::Light);
        QVERIFY(window.ShowPage(QStringLiteral("inspector")));
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        auto *table = window.findChild<QTableWidget *>(QStringLiteral("inspectorTable"));
        QVERIFY(table && table->rowCount() > 1);
        const QRect second = table->visualRect(table->model()->index(0, 1));
        const auto look = [&] {
            DrainEvents();
            return table->viewport()->grab(second).toImage();
        };
        const QImage rest = look();
        table->setFocus(Qt::TabFocusReason); // on the first cell
        QCOMPARE(look(), rest);
        QTest::keyClick(table, Qt::Key_Right);
        QVERIFY(look() != rest);
        QTest::keyClick(table, Qt::Key_Down);
        QCOMPARE(look(), rest);
    }
};

VELMORA_TEST_MAIN(TestGalleryKeyboard)

#include "tst_GalleryKeyboard.moc"
