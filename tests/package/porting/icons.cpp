#include "Ported.h"

#include "ThemedIcon.h"

#include <Velmora/PlainWidgets.h>
#include <Velmora/QcMenu.h>

#include <QAction>
#include <QMainWindow>
#include <QMenuBar>
#include <QTest>
#include <QToolBar>

namespace {

using namespace Velmora;

QColor Token(const char *code)
{
    return QcStyleManager::GetInstance()->GetColor(code);
}

bool Has(const QImage &look, const QColor &color)
{
    for (int x = 0; x < look.width(); ++x) {
        for (int y = 0; y < look.height(); ++y) {
            const QColor pixel = look.pixelColor(x, y);
            if (qAbs(pixel.red() - color.red()) + qAbs(pixel.green() - color.green()) + qAbs(pixel.blue() - color.blue()) < 12)
                return true;
        }
    }
    return false;
}

void CheckToolBar()
{
    SetPlainWidgetsFollowTable(true);
    QMainWindow window;
    auto *bar = window.addToolBar(QStringLiteral("Tools"));
    QAction *close = bar->addAction(ThemedIcon::of(QStringLiteral(":/images/close.svg")), QStringLiteral("Close"));
    Check(!close->icon().isNull(), "it is an icon");
    QMenu *menu = window.menuBar()->addMenu(QStringLiteral("&File"));
    menu->addAction(close);
    for (const char *table : {"blue_light", "blue_dark", "contrast_light", "contrast_dark"}) {
        UseTable(table);
        Check(Has(Shot(*bar), Token("icon/icon_toolbar")), "an icon of a tool bar follows the table");
        menu->popup(QPoint(0, 0));
        Drain();
        Check(Has(menu->grab().toImage(), Token("icon/icon_toolbar")), "and that of a menu");
        menu->hide();
    }
    UseTable("blue_light");
    Check(close->icon().pixmap(QSize(24, 24)).toImage() != close->icon().pixmap(QSize(24, 24), QIcon::Disabled).toImage(),
          "disabled it is paler");
    const QImage small = close->icon().pixmap(QSize(16, 16)).toImage();
    Check(small.size() == QSize(16, 16), "it is drawn in each size anew");
    SetPlainWidgetsFollowTable(false);
}

void CheckMenuBar()
{
    QMainWindow window;
    Check(!qobject_cast<QcMenu *>(window.menuBar()->addMenu(QStringLiteral("&Edit"))), "menus of a menu bar stay plain");
    auto *file = new QcMenu(QStringLiteral("&File"), window.menuBar());
    window.menuBar()->addMenu(file);
    int closed = 0;
    QcAction *close = file->addQcAction(QStringLiteral("&Close"));
    close->SetIconPath(QStringLiteral(":/images/close.svg"));
    QObject::connect(close, &QAction::triggered, &window, [&closed] { ++closed; });
    window.show();
    Check(QTest::qWaitForWindowActive(&window), "a main window shows");
    QTest::keyClick(window.windowHandle(), Qt::Key_F, Qt::AltModifier);
    Check(QTest::qWaitFor([file] { return file->isVisible(); }), "one of the kit's opens from it");
    Drain();
    Check(Has(file->grab().toImage(), Token("icon/icon_ordinary")), "and shows its icons");
    QTest::keyClick(file, Qt::Key_C);
    Check(closed == 1, "and works as any menu");
}

} // namespace

void CheckIcons()
{
    CheckToolBar();
    CheckMenuBar();
}
