#include "dock/DockTestCase.h"
#include "dock/LayoutMutator.h"
#include "support/LeaksExcused.h"
#include "support/NumberFromEnvironment.h"
#include "support/TestMain.h"
#include "theme/TestFiles.h"

#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockController.h>

#include <QVBoxLayout>

using namespace Velmora;
using VelmoraTest::Comparable;
using VelmoraTest::DrainEvents;

namespace {

constexpr int kMutationsOfARow = 50;

QcDockController &Controller()
{
    return *QcDockController::instance();
}

QByteArrayList Recorded()
{
    QByteArrayList layouts;
    QDir folder(QStringLiteral(VELMORA_DOCK_LAYOUTS));
    for (const QString &name : folder.entryList(QDir::Files, QDir::Name)) {
        QFile file(folder.filePath(name));
        if (file.open(QIODevice::ReadOnly))
            layouts.append(file.readAll().trimmed());
    }
    return layouts;
}

/// A host that shows whatever it loads, in place of what it showed.
class Host
{
public:
    Host()
    {
        auto *column = new QVBoxLayout(&m_window);
        column->setContentsMargins(0, 0, 0, 0);
        m_window.resize(900, 600);
        m_window.show();
    }
    ~Host() { delete Controller().getRootDockContainer(); }

    /// Whether the layout was accepted.
    bool Load(const QByteArray &text)
    {
        QcDockContainer *earlier = Controller().getRootDockContainer();
        QcDockContainer *root = Controller().loadFromJson(m_files.Write(QStringLiteral("layout.json"), text));
        if (root == earlier)
            return false;
        delete earlier;
        m_window.layout()->addWidget(root);
        DrainEvents();
        return true;
    }

    static QByteArray Saved() { return Controller().toJson(Controller().getRootDockContainer()).toUtf8(); }

private:
    VelmoraTest::TestFiles m_files;
    QWidget m_window;
};

bool ComesBack(Host &host, const QByteArray &layout)
{
    return host.Load(layout) && Comparable(QString::fromUtf8(Host::Saved())) == Comparable(QString::fromUtf8(layout));
}

/// Whether \a text was accepted. If so, what is saved of it can be loaded; if not, it has changed nothing.
bool LoadDamaged(Host &host, const QByteArray &text, QStringList &faults)
{
    const QcDockContainer *before = Controller().getRootDockContainer();
    const auto widgets = QApplication::allWidgets().size();
    const bool isAccepted = [&] {
        const VelmoraTest::LeaksExcused excused; // where a key stands twice, Qt's parser forgets what the first one held
        return host.Load(text);
    }();
    if (isAccepted) {
        if (!host.Load(Host::Saved()))
            faults.append(QStringLiteral("what was saved is refused"));
        return true;
    }
    if (QApplication::allWidgets().size() != widgets || before != Controller().getRootDockContainer())
        faults.append(QStringLiteral("a refused layout that changes something"));
    return false;
}

} // namespace

/// Layouts that were recorded, damaged 300 times and loaded for real. VELMORA_MONKEY asks for another number, VELMORA_MONKEY_SEED for
/// another first seed.
class tst_DockMutations : public VelmoraTest::DockTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void recorded_layouts_come_back_as_they_were()
    {
        const QByteArrayList layouts = Recorded();
        QCOMPARE(layouts.size(), 12);
        Host host;
        for (const QByteArray &layout : layouts)
            QVERIFY2(ComesBack(host, layout), layout);
    }

    void a_damaged_layout_is_refused_or_loaded_whole_and_harms_none_after_it_data()
    {
        QTest::addColumn<quint32>("first");
        const int first = VelmoraTest::NumberFromEnvironment("VELMORA_MONKEY_SEED", 1);
        const int count = VelmoraTest::NumberFromEnvironment("VELMORA_MONKEY", 300);
        for (int seed = first; seed < first + count; seed += kMutationsOfARow)
            QTest::addRow("from seed %d", seed) << quint32(seed);
    }
    void a_damaged_layout_is_refused_or_loaded_whole_and_harms_none_after_it()
    {
        QFETCH(quint32, first);
        const QByteArrayList layouts = Recorded();
        Host host;
        int accepted = 0;
        for (quint32 seed = first; seed < first + kMutationsOfARow; ++seed) {
            const QByteArray text = [&] {
                const VelmoraTest::LeaksExcused excused; // it reads what it has damaged
                return VelmoraTest::LayoutMutator(seed, layouts).Next();
            }();
            QStringList faults;
            accepted += LoadDamaged(host, text, faults) ? 1 : 0;
            faults += VelmoraTest::DockViolations() + Log().TakeFaults();
            if (seed % 25 == 0 && !ComesBack(host, layouts.at(int(seed / 25) % layouts.size())))
                faults.append(QStringLiteral("a good layout that does not come back after it"));
            if (!faults.isEmpty())
                QFAIL(qPrintable(QStringLiteral("seed %1: %2\n%3").arg(seed).arg(faults.join(QLatin1Char('\n')), QString::fromUtf8(text))));
        }
        QVERIFY2(accepted > kMutationsOfARow / 4, "too many were refused to tell anything");
        QVERIFY2(accepted < kMutationsOfARow, "none was refused");
    }
};

VELMORA_TEST_MAIN(tst_DockMutations)
#include "tst_DockMutations.moc"
