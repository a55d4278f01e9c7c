#include "gallery/FakePortal.h"
#include "support/TestMain.h"
#include "theme/PrivateBus.h"

#include "TableChoice.h"
#include "TableSelector.h"

#include <QDBusVariant>

using namespace Examples;
using namespace VelmoraTest;

using Tables = QVector<std::optional<Examples::Table>>;

namespace {

QVariantList Change(const QString &key, uint value)
{
    return {QStringLiteral("org.freedesktop.appearance"), key, QVariant::fromValue(QDBusVariant(value))};
}

const QString kDark = QStringLiteral("color-scheme");
const QString kContrast = QStringLiteral("contrast");

} // namespace

/// The colour table of the examples: their user's choice, or the desktop's wish.
class TestTableChoice : public TestCase
{
    Q_OBJECT

    void SetUp() override { m_portal = std::make_unique<FakePortal>(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS")); }
    void TearDown() override { m_portal.reset(); }

    std::unique_ptr<FakePortal> m_portal;

private Q_SLOTS:
    void a_program_begins_and_stays_with_the_desktop()
    {
        ApplyTable(Examples::Table::Light);
        m_portal->SetAnswer(kDark, 1u);
        TableChoice choice;
        QTRY_VERIFY(LastTable() == Examples::Table::Dark); // a busy machine may answer late
        m_portal->Announce(Change(kContrast, 1u));
        QTRY_VERIFY(LastTable() == Examples::Table::ContrastDark);
        m_portal->Announce(Change(kDark, 2u));
        QTRY_VERIFY(LastTable() == Examples::Table::ContrastLight);
    }

    void a_choice_holds_until_it_is_given_back_to_the_desktop()
    {
        m_portal->SetAnswer(kDark, 1u);
        TableChoice choice(Examples::Table::ContrastLight);
        QVERIFY(LastTable() == Examples::Table::ContrastLight);
        m_portal->Announce(Change(kContrast, 1u));
        DesktopWish wish; // whose answers come behind that
        wish.AwaitAnswers(std::chrono::seconds(10));
        DrainEvents();
        QVERIFY(LastTable() == Examples::Table::ContrastLight);
        choice.Choose(Examples::Table::Light);
        QVERIFY(LastTable() == Examples::Table::Light);
        choice.Choose(std::nullopt);
        QVERIFY(LastTable() == Examples::Table::ContrastDark);
    }

    void a_desktop_that_says_nothing_gets_the_light_table()
    {
        m_portal.reset();
        ApplyTable(Examples::Table::Dark);
        const TableChoice choice;
        QVERIFY(LastTable() == Examples::Table::Light);
    }

    void a_user_may_choose_each_table_or_that_of_the_desktop()
    {
        TableSelector selector;
        QVERIFY(!selector.Chosen());
        Tables offered;
        for (int row = 0; row < selector.count(); ++row) {
            selector.setCurrentIndex(row);
            offered.append(selector.Chosen());
        }
        QVERIFY(offered
                == (Tables{std::nullopt, Examples::Table::Light, Examples::Table::Dark, Examples::Table::ContrastLight,
                           Examples::Table::ContrastDark}));
        for (const auto &table : qAsConst(offered)) {
            selector.Choose(table);
            QVERIFY(selector.Chosen() == table);
        }
    }
};

int main(int argc, char **argv)
{
    const PrivateBus bus;
    if (bus.Address().isEmpty())
        qFatal("no session bus");
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.Address().toUtf8());
    return RunInApplication<TestTableChoice>(argc, argv);
}

#include "tst_TableChoice.moc"
