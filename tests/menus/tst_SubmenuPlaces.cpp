#include "menus/MenuTest.h"

#include <QGuiApplication>
#include <QScreen>

using namespace Velmora;
using namespace VelmoraTest;

/// Where submenus open. At scale 1 alone: a scaled screen has no room beside a wide menu.
class TestSubmenuPlaces : public MenuTest
{
    Q_OBJECT

private Q_SLOTS:
    void a_submenu_opens_beside_its_menu_data()
    {
        QTest::addColumn<bool>("isOurs");
        QTest::addColumn<bool>("isWide");
        QTest::addColumn<bool>("isRightToLeft");
        for (const bool isOurs : {true, false}) {
            for (const bool isWide : {true, false}) {
                for (const bool isRightToLeft : {true, false}) {
                    QTest::addRow("%s submenu of %s menu%s", isOurs ? "our" : "plain", isWide ? "a wide" : "a small",
                                  isRightToLeft ? ", right to left" : "")
                        << isOurs << isWide << isRightToLeft;
                }
            }
        }
    }

    void a_submenu_opens_beside_its_menu()
    {
        QFETCH(bool, isOurs);
        QFETCH(bool, isWide);
        QFETCH(bool, isRightToLeft);
        const std::unique_ptr<QMenu> submenu(isOurs ? new QcMenu : new QMenu);
        submenu->addAction(QStringLiteral("One"));
        QcAction *action = m_menu->addQcMenu(submenu.get());
        if (isWide)
            m_menu->addQcAction(QString(100, 'm'))->setShortcut(Qt::CTRL | Qt::ALT | Qt::SHIFT | Qt::Key_PageDown);
        for (QMenu *menu : {static_cast<QMenu *>(m_menu.get()), submenu.get()})
            menu->setLayoutDirection(isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
        const int screenRight = QGuiApplication::primaryScreen()->availableGeometry().right();
        m_menu->popup(QPoint(isRightToLeft ? screenRight : 0, 0));
        DrainEvents();
        m_menu->setActiveAction(action);
        QTRY_VERIFY(submenu->isVisible());
        if (isRightToLeft)
            QVERIFY2(qAbs(submenu->geometry().right() + 1 - m_menu->x()) <= 1, qPrintable(QString::number(submenu->geometry().right())));
        else
            QVERIFY2(qAbs(submenu->x() - m_menu->geometry().right() - 1) <= 1, qPrintable(QString::number(submenu->x())));
    }

    void a_right_to_left_submenu_without_room_at_the_left_opens_beside_its_menu_at_the_right()
    {
        QcMenu submenu(QStringLiteral("More"));
        submenu.addQcAction(QStringLiteral("One"));
        QcAction *action = m_menu->addQcMenu(&submenu);
        m_menu->addQcAction(QString(100, 'm'))->setShortcut(Qt::CTRL | Qt::ALT | Qt::SHIFT | Qt::Key_PageDown);
        m_menu->setLayoutDirection(Qt::RightToLeft);
        submenu.setLayoutDirection(Qt::RightToLeft);
        Open();
        m_menu->move(0, 0);
        m_menu->setActiveAction(action);
        QTRY_VERIFY(submenu.isVisible());
        QVERIFY2(qAbs(submenu.x() - m_menu->geometry().right() - 1) <= 1, qPrintable(QString::number(submenu.x())));
    }
};

VELMORA_TEST_MAIN(TestSubmenuPlaces)

#include "tst_SubmenuPlaces.moc"
