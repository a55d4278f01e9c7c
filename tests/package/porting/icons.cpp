#include "Ported.h"

#include "ThemedIcon.h"

#include <Velmora/PlainWidgets.h>
#include <Velmora/QcMenu.h>

#include <QAction>
#include <QMainWindow>
#include <QMenuBar>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

namespace {

using namespace Velmora;

QColor Token(const char *code)
{
    return QcStyleManager::GetInstance()->GetColor(code);
}

/// \a color as it shows on \a ground.
QColor Over(const QColor &color, const QColor &ground)
{
    QImage pixel(1, 1, QImage::Format_RGB32);
    pixel.fill(ground);
    QPainter(&pixel).fillRect(0, 0, 1, 1, color);
    return pixel.pixelColor(0, 0);
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

/// One action in a menu and a tool bar: both ask its icon for Active, for a row that is highlighted and a button under the mouse.
void CheckHighlight()
{
    SetPlainWidgetsFollowTable(true);
    QMainWindow window;
    auto *bar = window.addToolBar(QStringLiteral("Tools"));
    QAction *close = bar->addAction(ThemedIcon::of(QStringLiteral(":/images/close.svg")), QStringLiteral("\u2007"));
    QMenu *menu = window.menuBar()->addMenu(QStringLiteral("&File"));
    QMenu *inner = menu->addMenu(ThemedIcon::of(QStringLiteral(":/images/close.svg")), QStringLiteral("\u2007"));
    inner->addAction(close);
    auto *button = static_cast<QToolButton *>(bar->widgetForAction(close));
    for (const char *table : {"blue_light", "blue_dark", "contrast_light", "contrast_dark"}) {
        UseTable(table);
        Shot(window);
        button->setAttribute(Qt::WA_UnderMouse); // as by the mouse
        Check(Has(Shot(*button), Token("icon/icon_toolbar")), "the icon of a hovered tool button keeps its colour");
        menu->popup(QPoint(0, 0));
        menu->setActiveAction(inner->menuAction());
        inner->popup(QPoint(100, 0));
        inner->setActiveAction(close);
        Drain();
        for (QMenu *shown : {menu, inner}) {
            const QRect row = shown->actionGeometry(shown->activeAction());
            const QImage look = shown->grab(QRect(row.left(), row.top(), row.height() * 2, row.height())).toImage();
            Check(Has(look, Over(Token("text/text_button"), Token("brand/brand_press"))),
                  "that of a highlighted row has the colour of its text");
        }
        inner->setActiveAction(nullptr);
        Drain();
        Check(Has(inner->grab().toImage(), Token("icon/icon_toolbar")), "and its own again behind it");
        menu->hide();
        Drain();
    }
    UseTable("blue_light");
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
    CheckHighlight();
    CheckMenuBar();
}
