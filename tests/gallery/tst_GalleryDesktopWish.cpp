#include "gallery/FakePortal.h"
#include "gallery/GalleryTestCase.h"
#include "support/TestMain.h"
#include "theme/PrivateBus.h"

#include "DesktopWish.h"
#include "GalleryWindow.h"

#include <QAbstractButton>
#include <QDBusVariant>
#include <QElapsedTimer>
#include <QSignalSpy>

using namespace Gallery;
using Examples::ApplyWishedTable;
using Examples::DesktopWish;
using namespace VelmoraTest;
using namespace std::chrono_literals;

Q_DECLARE_METATYPE(std::optional<Gallery::Table>)

namespace {

const QString kSpace = QStringLiteral("org.freedesktop.appearance");
const QString kDark = QStringLiteral("color-scheme");
const QString kContrast = QStringLiteral("contrast");

QVariantList Change(const QString &space, const QString &key, const QVariant &value)
{
    return {space, key, QVariant::fromValue(QDBusVariant(value))};
}

} // namespace

/// What the gallery makes of the wishes of a desktop.
class TestGalleryDesktopWish : public GalleryTestCase
{
    Q_OBJECT

    void SetUp() override { m_portal = std::make_unique<FakePortal>(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS")); }
    void TearDown() override { m_portal.reset(); }

    std::unique_ptr<FakePortal> m_portal;

private Q_SLOTS:
    void the_desktop_gets_the_table_that_it_wishes_data()
    {
        QTest::addColumn<QVariant>("dark");
        QTest::addColumn<QVariant>("contrast");
        QTest::addColumn<std::optional<Gallery::Table>>("wished");
        const auto wish = [](Gallery::Table table) { return std::optional<Gallery::Table>(table); };
        const QVariant none;
        QTest::newRow("dark") << QVariant(1u) << none << wish(Gallery::Table::Dark);
        QTest::newRow("light") << QVariant(2u) << none << wish(Gallery::Table::Light);
        QTest::newRow("dark without contrast") << QVariant(1u) << QVariant(0u) << wish(Gallery::Table::Dark);
        QTest::newRow("contrast") << none << QVariant(1u) << wish(Gallery::Table::ContrastLight);
        QTest::newRow("dark with contrast") << QVariant(1u) << QVariant(1u) << wish(Gallery::Table::ContrastDark);
        QTest::newRow("no preference") << QVariant(0u) << QVariant(0u) << wish(Gallery::Table::Light);
        QTest::newRow("what nobody knows yet") << QVariant(7u) << QVariant(9u) << wish(Gallery::Table::Light);
        const std::optional<Gallery::Table> nothing;
        QTest::newRow("neither setting") << none << none << nothing;
        QTest::newRow("texts") << QVariant(QStringLiteral("dark")) << QVariant(QStringLiteral("1")) << nothing;
        QTest::newRow("other numbers") << QVariant(1) << QVariant(1.0) << nothing;
        QTest::newRow("a list") << QVariant(QStringList(QStringLiteral("1"))) << QVariant(true) << nothing;
    }

    void the_desktop_gets_the_table_that_it_wishes()
    {
        QFETCH(QVariant, dark);
        QFETCH(QVariant, contrast);
        QFETCH(std::optional<Gallery::Table>, wished);
        if (dark.isValid())
            m_portal->SetAnswer(kDark, dark);
        if (contrast.isValid())
            m_portal->SetAnswer(kContrast, contrast);
        for (const FakePortal::Age age : {FakePortal::Age::New, FakePortal::Age::Old}) {
            m_portal->SetAge(age);
            DesktopWish wish;
            QSignalSpy answered(&wish, &DesktopWish::SignalAnswered);
            QTRY_COMPARE(answered.size(), 1);
            QVERIFY(wish.WishedTable() == wished);
        }
    }

    void the_gallery_starts_dark_where_the_desktop_is_dark()
    {
        m_portal->SetAnswer(kDark, 1u);
        ApplyTable(Gallery::Table::Light);
        DesktopWish wish;
        wish.AwaitAnswers(10s);
        QVERIFY(ApplyWishedTable(wish, Gallery::Table::Light) == Gallery::Table::Dark);
        QVERIFY(LastTable() == Gallery::Table::Dark);
    }

    void the_gallery_changes_with_the_desktop()
    {
        DesktopWish wish;
        wish.AwaitAnswers(10s);
        GalleryWindow window(Gallery::Table::Light);
        Follow(window, wish);
        QVERIFY(LastTable() == Gallery::Table::Light);
        m_portal->Announce(Change(kSpace, kDark, 1u));
        QTRY_VERIFY(LastTable() == Gallery::Table::Dark);
        QVERIFY(window.findChild<QAbstractButton *>(QStringLiteral("tableDark"))->isChecked());
        m_portal->Announce(Change(kSpace, kContrast, 1u));
        QTRY_VERIFY(LastTable() == Gallery::Table::ContrastDark);
        m_portal->Announce(Change(kSpace, kDark, 2u));
        QTRY_VERIFY(LastTable() == Gallery::Table::ContrastLight);
    }

    void a_wish_that_came_while_the_window_was_made_is_not_lost()
    {
        m_portal->SetAnswer(kDark, 1u);
        DesktopWish wish;
        wish.AwaitAnswers(10s);
        GalleryWindow window(Gallery::Table::Light);
        Follow(window, wish);
        QVERIFY(LastTable() == Gallery::Table::Dark);
    }

    void what_the_user_chose_in_the_gallery_stays()
    {
        DesktopWish wish;
        wish.AwaitAnswers(10s);
        GalleryWindow window(Gallery::Table::Light);
        Follow(window, wish);
        window.findChild<QAbstractButton *>(QStringLiteral("tableContrastLight"))->click();
        QVERIFY(LastTable() == Gallery::Table::ContrastLight);
        QSignalSpy changed(&wish, &DesktopWish::SignalWishChanged);
        m_portal->Announce(Change(kSpace, kDark, 1u));
        QTRY_COMPARE(changed.size(), 1);
        QVERIFY(LastTable() == Gallery::Table::ContrastLight);
    }

    void an_announcement_that_makes_no_sense_changes_nothing()
    {
        DesktopWish wish;
        wish.AwaitAnswers(10s);
        QSignalSpy changed(&wish, &DesktopWish::SignalWishChanged);
        m_portal->Announce({});
        m_portal->Announce({kSpace});
        m_portal->Announce({kSpace, kDark, 1u}); // no variant
        m_portal->Announce(Change(kSpace, kDark, QStringLiteral("1")));
        m_portal->Announce(Change(kSpace, kDark, 1));
        m_portal->Announce(Change(kSpace, QStringLiteral("accent-color"), 1u));
        m_portal->Announce(Change(QStringLiteral("org.gnome.desktop.interface"), kDark, 1u));
        m_portal->Announce(Change(kSpace, kContrast, 1u)); // the last of them is understood
        QTRY_COMPARE(changed.size(), 1);
        QVERIFY(wish.WishedTable() == Gallery::Table::ContrastLight);
    }

    void without_a_portal_there_is_no_wish()
    {
        m_portal.reset();
        DesktopWish wish;
        QSignalSpy answered(&wish, &DesktopWish::SignalAnswered);
        wish.AwaitAnswers(10s);
        QCOMPARE(answered.size(), 1); // at once: nobody is there to be waited for
        QVERIFY(!wish.WishedTable());
        QVERIFY(ApplyWishedTable(wish, Gallery::Table::ContrastDark) == Gallery::Table::ContrastDark);
    }

    void a_portal_that_hangs_holds_up_nothing()
    {
        m_portal->SetAnswer(kDark, 1u);
        m_portal->HoldCalls();
        DesktopWish wish;
        QSignalSpy answered(&wish, &DesktopWish::SignalAnswered);
        ApplyTable(Gallery::Table::Light);
        QElapsedTimer time;
        time.start();
        QVERIFY(ApplyWishedTable(wish, Gallery::Table::Light) == Gallery::Table::Light);
        QVERIFY2(time.elapsed() < 5000, "of the 25 s that the bus waits for an answer");
        QCOMPARE(answered.size(), 0);

        GalleryWindow window(Gallery::Table::Light);
        Follow(window, wish);
        m_portal->AnswerHeldCalls(); // late, but heard
        QTRY_VERIFY(LastTable() == Gallery::Table::Dark);
    }

    void a_wish_may_go_while_it_is_being_asked_for()
    {
        DesktopWish witness;
        witness.AwaitAnswers(10s);
        m_portal->HoldCalls();
        auto wish = std::make_unique<DesktopWish>();
        DrainEvents();
        wish.reset();
        m_portal->AnswerHeldCalls();
        m_portal->Announce(Change(kSpace, kDark, 1u));
        QTRY_COMPARE(witness.WishedTable(), std::optional(Gallery::Table::Dark)); // it has come where the other listened
        DesktopWish later;                                                        // which asks only now
        later.AwaitAnswers(10s);
        QVERIFY(!later.WishedTable());
    }
};

int main(int argc, char **argv)
{
    const PrivateBus bus;
    if (bus.Address().isEmpty())
        qFatal("no session bus");
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.Address().toUtf8());
    return RunInApplication<TestGalleryDesktopWish>(argc, argv);
}

#include "tst_GalleryDesktopWish.moc"
