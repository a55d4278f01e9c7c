#include "support/TestMain.h"

#include <Velmora/QcMenu.h>

#include <QApplication>
#include <QProxyStyle>
#include <QPushButton>
#include <QStyleFactory>

#include <functional>
#include <memory>
#include <vector>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

using Setup = std::function<void(QcApplication &)>;

/// A host's proxy, which makes buttons' frames 9 pixels wide.
class HostStyle : public QProxyStyle
{
public:
    using QProxyStyle::QProxyStyle;

    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override
    {
        return metric == PM_DefaultFrameWidth ? 9 : QProxyStyle::pixelMetric(metric, option, widget);
    }
};

/// What a host can see of the application's style, by a plain button and a plain menu.
struct StyleFacts
{
    explicit StyleFacts(const QcApplication &application)
    {
        for (QStyle *style = application.style(); style; style = style->findChild<QStyle *>(QString(), Qt::FindDirectChildrenOnly)) {
            chain.append(style);
            parents.append(style->parent());
            proxies.append(style->proxy());
        }
        const QPushButton button;
        QMenu menu;
        menu.addAction(QStringLiteral("Open"))->setShortcut(Qt::CTRL | Qt::Key_O);
        for (int metric = QStyle::PM_ButtonMargin; metric <= int(QStyle::PM_TitleBarButtonSize); ++metric) {
            metrics.append(button.style()->pixelMetric(QStyle::PixelMetric(metric), nullptr, &button));
            metrics.append(menu.style()->pixelMetric(QStyle::PixelMetric(metric), nullptr, &menu));
        }
        metrics.append(menu.style()->styleHint(QStyle::SH_Menu_Scrollable, nullptr, &menu));
        menu.ensurePolished();
        menuSize = menu.sizeHint();
        menu.resize(menuSize);
        menuPicture = menu.grab().toImage();
    }

    bool operator==(const StyleFacts &other) const
    {
        return chain == other.chain && parents == other.parents && proxies == other.proxies && metrics == other.metrics
            && menuSize == other.menuSize && menuPicture == other.menuPicture;
    }

    QList<const QStyle *> chain;
    QList<const QObject *> parents;
    QList<const QStyle *> proxies;
    QList<int> metrics;
    QSize menuSize;
    QImage menuPicture;
};

void AddSetups()
{
    QTest::addColumn<Setup>("setup");
    QTest::newRow("as Qt starts") << Setup([](QcApplication & /*application*/) {});
    QTest::newRow("initialized") << Setup([](QcApplication &application) { application.Initialize(); });
    QTest::newRow("with a stylesheet") << Setup(
        [](QcApplication &application) { application.setStyleSheet(QStringLiteral("QPushButton { padding: 3px; }")); });
    QTest::newRow("with another style") << Setup(
        [](QcApplication & /*application*/) { QApplication::setStyle(QStringLiteral("Windows")); });
    QTest::newRow("with a host's proxy") << Setup(
        [](QcApplication & /*application*/) { QApplication::setStyle(new HostStyle(QStyleFactory::create(QStringLiteral("Fusion")))); });
    QTest::newRow("with a host's proxy under a stylesheet") << Setup([](QcApplication &application) {
        QApplication::setStyle(new HostStyle(QStyleFactory::create(QStringLiteral("Fusion"))));
        application.Initialize();
    });
}

/// An application object of a test's own, whose start-up facts are no fault.
class Application
{
public:
    explicit Application(const Setup &setup)
    {
        QcStyleManager::GetInstance()->SetColorFilePath(TablePath(Table::Light));
        setup(*m_application);
    }

    QcApplication *operator->() { return m_application.get(); }
    QcApplication &operator*() { return *m_application; }

private:
    static inline char s_name[] = "tst_MenuStyle";
    int m_count = 1;
    char *m_arguments[2] = {s_name, nullptr};
    std::unique_ptr<QcApplication> m_application = std::make_unique<QcApplication>(m_count, m_arguments);
};

void OpenAndClose(QMenu &menu)
{
    menu.popup(QPoint(0, 0));
    DrainEvents();
    menu.grab();
    menu.close();
}

std::unique_ptr<QcMenu> MakeMenu()
{
    auto menu = std::make_unique<QcMenu>(QStringLiteral("File"));
    menu->addQcAction(QStringLiteral("Open"))->setShortcut(Qt::CTRL | Qt::Key_O);
    menu->addSeparator();
    menu->addQcMenu(new QcMenu(QStringLiteral("Recent"), menu.get()))->menu()->addAction(QStringLiteral("One"));
    return menu;
}

} // namespace

Q_DECLARE_METATYPE(Setup)

/// Menus have a style of their own, and leave the application's alone. Each test has an application object of its own.
class TestMenuStyle : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_style_of_the_application_is_what_it_was_after_twenty_menus_lived_and_died_data() { AddSetups(); }
    void the_style_of_the_application_is_what_it_was_after_twenty_menus_lived_and_died()
    {
        QFETCH(Setup, setup);
        Application application(setup);
        StartUpIsNoFault();
        const StyleFacts before(*application);
        {
            std::vector<std::unique_ptr<QcMenu>> menus;
            for (int i = 0; i < 20; ++i)
                menus.push_back(MakeMenu());
            QVERIFY(before == StyleFacts(*application));
            OpenAndClose(*menus.front());
            QVERIFY(before == StyleFacts(*application));
        }
        DrainEvents();
        QVERIFY(before == StyleFacts(*application));
        QPushButton button(QStringLiteral("Still painted"));
        QVERIFY(!button.grab().isNull());
    }

    void menus_share_one_style_which_no_menu_takes_along_data() { AddSetups(); }
    void menus_share_one_style_which_no_menu_takes_along()
    {
        QFETCH(Setup, setup);
        Application application(setup);
        StartUpIsNoFault();
        const std::unique_ptr<QcMenu> first = MakeMenu();
        {
            const std::unique_ptr<QcMenu> second = MakeMenu();
            if (application->styleSheet().isEmpty()) // else each widget has a proxy of its own
                QCOMPARE(second->style(), first->style());
        }
        QCOMPARE(first->style()->pixelMetric(QStyle::PM_MenuPanelWidth, nullptr, first.get()), 1);
        QCOMPARE(first->style()->pixelMetric(QStyle::PM_SubMenuOverlap, nullptr, first.get()), 0);
        OpenAndClose(*first);
    }

    void a_menu_keeps_its_look_when_the_application_gets_another_style_or_stylesheet()
    {
        Application application([](QcApplication & /*application*/) {});
        StartUpIsNoFault();
        const std::unique_ptr<QcMenu> menu = MakeMenu();
        menu->ensurePolished();
        menu->resize(menu->sizeHint());
        const QImage picture = menu->grab().toImage();
        QApplication::setStyle(QStringLiteral("Windows"));
        QCOMPARE(menu->grab().toImage(), picture);
        application->setStyleSheet(QStringLiteral("QPushButton { padding: 3px; }"));
        QCOMPARE(menu->grab().toImage(), picture);
        OpenAndClose(*menu);
        application->setStyleSheet(QString());
        QApplication::setStyle(QStringLiteral("Fusion"));
        QCOMPARE(menu->grab().toImage(), picture);
        OpenAndClose(*menu);
        OpenAndClose(*MakeMenu());
    }

    void a_stylesheet_for_menus_wins_over_the_look()
    {
        Application application([](QcApplication &started) { started.setStyleSheet(QStringLiteral("QMenu { background: #123456; }")); });
        StartUpIsNoFault();
        const std::unique_ptr<QcMenu> menu = MakeMenu();
        menu->ensurePolished();
        menu->resize(menu->sizeHint());
        QCOMPARE(menu->grab().toImage().pixelColor(menu->width() / 2, 8), QColor(0x12, 0x34, 0x56));
    }

private:
    void StartUpIsNoFault() { Log().TakeFaults(); }
};

VELMORA_BARE_TEST_MAIN(TestMenuStyle)

#include "tst_MenuStyle.moc"
