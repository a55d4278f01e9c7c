// Hover tips in a process that has one application object after the other.

#include "support/CommandLine.h"
#include "support/TestMain.h"

#include <Velmora/QcArrowTipGlobal.h>

#include <QCursor>
#include <QTextDocument>

#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

QcArrowTip *SharedTip()
{
    const auto widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        if (auto *tip = qobject_cast<QcArrowTip *>(widget))
            return tip;
    }
    return nullptr;
}

} // namespace

class TestArrowTipLives : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void each_application_has_its_tip_and_takes_it_along()
    {
        for (const char *text : {"first", "second", "third"}) {
            auto application = std::make_unique<QcApplication>(commandLine.count, commandLine.values);
            auto window = std::make_unique<QWidget>();
            window->setGeometry(0, 0, 400, 300);
            QWidget hovered(window.get());
            hovered.setGeometry(50, 100, 60, 30);
            window->show();
            DrainEvents();
            QcArrowTipGlobal::instance()->registerWidget(&hovered, QLatin1String(text));
            for (int times = 0; times < 2; ++times) {
                QCursor::setPos(window->mapToGlobal(QPoint(5, 295)));
                QTRY_VERIFY(!SharedTip() || !SharedTip()->isVisible());
                QCursor::setPos(window->mapToGlobal(hovered.geometry().center()));
                QTRY_VERIFY(SharedTip() && SharedTip()->isVisible());
                QCOMPARE(SharedTip()->findChild<QTextDocument *>()->toPlainText(), QLatin1String(text));
            }
            const QPointer<QcArrowTip> tip = SharedTip();
            hovered.setParent(nullptr);
            window.reset();
            QVERIFY(tip);
            hovered.hide();
            application.reset();
            QVERIFY(!tip);
        }
    }

    void an_application_without_a_hover_ends_well()
    {
        for (int life = 0; life < 2; ++life) {
            QcApplication application(commandLine.count, commandLine.values);
            QWidget widget;
            QcArrowTipGlobal::instance()->registerWidget(&widget, QStringLiteral("never seen"));
        }
        QVERIFY(!QCoreApplication::instance());
    }
};

VELMORA_BARE_TEST_MAIN(TestArrowTipLives)

#include "tst_ArrowTipLives.moc"
