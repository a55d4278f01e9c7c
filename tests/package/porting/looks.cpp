#include "Ported.h"

#include "highlight.h"

#include <Velmora/PlainWidgets.h>
#include <Velmora/QcApplication.h>
#include <Velmora/QcFrame.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcStyleManager.h>

#include <QHeaderView>
#include <QLabel>
#include <QListView>
#include <QLoggingCategory>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>
#include <QTableView>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

QStringList *toldOnStart = nullptr;

Velmora::QcStyleManager *Theme()
{
    return Velmora::QcStyleManager::GetInstance();
}

QColor ShownOnGreen(QWidget *widget)
{
    QWidget ground;
    ground.setPalette(QPalette(Qt::green));
    auto *column = new QVBoxLayout(&ground);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(widget);
    ground.resize(200, 200);
    return Shot(ground).pixelColor(100, 150);
}

void CheckPlainWidgets()
{
    QLabel label;
    label.setFrameShape(QFrame::Box);
    QListView list;
    QFrame line;
    line.setFrameShape(QFrame::HLine);
    line.resize(50, 4);
    line.ensurePolished();
    const QImage lines = Shot(line);
    Shot(label);
    Shot(list);
    Check(label.frameWidth() == 0 && list.frameWidth() == 0, "plain frames have no border");
    Check(lines.pixelColor(10, 1) == lines.pixelColor(10, 0) && lines.pixelColor(10, 2) == lines.pixelColor(10, 0), "lines are gone");
    Theme()->RegisterStyleSheet(&list, QStringLiteral("QListView { border: 1px solid ${border/border_secondary}; }"));
    Drain();
    Check(list.frameWidth() == 1, "a more specific sheet brings a border back");

    const QColor green(Qt::green);
    Check(ShownOnGreen(new QTreeView) == green, "a tree has no ground");
    auto *area = new QScrollArea;
    auto *content = new QWidget;
    content->setFixedSize(180, 180);
    content->setPalette(QPalette(Qt::red));
    content->setAutoFillBackground(true);
    Check(ShownOnGreen(content) == QPalette(Qt::red).color(QPalette::Window), "a widget has its own ground");
    auto *scrolled = new QWidget;
    scrolled->setFixedSize(180, 180);
    scrolled->setPalette(QPalette(Qt::red));
    scrolled->setAutoFillBackground(true);
    area->setWidget(scrolled);
    Check(ShownOnGreen(area) != QPalette(Qt::red).color(QPalette::Window), "and not as the content of a scroll area");
    Check(ShownOnGreen(new QListView) == QColor(Qt::white), "a list has");
}

void CheckSheets()
{
    Velmora::QcLineEditFrame field;
    field.resize(100, 24);
    const QColor usual = Shot(field).pixelColor(0, 12);
    field.setStyleSheet(QStringLiteral("Velmora--QcLineEditFrame { border: 1px solid #00ff00; }"));
    Check(Shot(field).pixelColor(0, 12) == QColor(Qt::green), "a host's sheet takes the place of the kit's");
    UseTable("blue_dark");
    Check(Shot(field).pixelColor(0, 12) != QColor(Qt::green), "until the next colour table");
    UseTable("blue_light");
    Check(Shot(field).pixelColor(0, 12) == usual, "which brings the kit's back");
    highlight(&field);
    Check(Shot(field).pixelColor(0, 12) == Theme()->GetColor("brand/brand"), "a registered one is added to the kit's");
    UseTable("contrast_dark");
    Check(Shot(field).pixelColor(0, 12) == Theme()->GetColor("brand/brand"), "and follows the table");
    UseTable("blue_light");

    QLabel label;
    Shot(label);
    label.setFont(Large());
    label.setStyleSheet(QStringLiteral("color: red;"));
    Check(label.font() != Large(), "Qt takes a font away with a sheet");
    label.setFont(Large());
    Check(label.font() == Large(), "and takes it again");
}

/// In a dark table that plain widgets follow.
void CheckGroundOfTrees()
{
    Velmora::SetPlainWidgetsFollowTable(true);
    UseTable("blue_dark");
    QWidget window;
    QTreeView tree(&window);
    QTableView table(&window);
    table.move(0, 200);
    window.resize(200, 400);
    const auto groundOf = [&](const QWidget &view) { return Shot(window).pixelColor(view.x() + 50, view.y() + 50); };
    Check(groundOf(tree) != groundOf(table), "a tree has another ground than a table beside it");
    Theme()->RegisterStyleSheet(&tree, QStringLiteral("QTreeView { background: ${bg/bg_float}; }"));
    Check(groundOf(tree) == groundOf(table), "until it is given the table's");
    Velmora::SetPlainWidgetsFollowTable(false);
    UseTable("blue_light");
}

} // namespace

void CheckProgram()
{
    QStringList told;
    toldOnStart = &told;
    const QtMessageHandler usual = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &context, const QString &text) {
        Check(type == QtInfoMsg && QLatin1String(context.category) == QLatin1String("default"), "a start tells information alone");
        toldOnStart->append(text);
    });
    const QFont font = QApplication::font();
    const QPalette palette = QApplication::palette();
    auto *app = static_cast<Velmora::QcApplication *>(qApp);
    const QString own = QStringLiteral("QPushButton { background: #00ff00; border: none; }");
    app->setStyleSheet(own);
    UseTable("blue_light");
    app->Initialize();
    Check(told.size() == 3, "of the three lines of a start");
    for (const QString &line : qAsConst(told))
        Check(line.startsWith(QStringLiteral("QcStyleManager::LoadFont")), "each tells of fonts");
    told.clear();
    QLoggingCategory::setFilterRules(QStringLiteral("default.info=false"));
    app->Initialize();
    Check(told.isEmpty(), "and none comes once they are switched off");
    QLoggingCategory::setFilterRules(QString());
    qInstallMessageHandler(usual);
    Check(QApplication::font() == font && QApplication::palette() == palette, "font and palette of the application stay");
    Check(app->styleSheet().startsWith(own) && app->styleSheet().size() > own.size(), "the kit's sheet is appended to the application's");
    QPushButton plain(QStringLiteral("plain"));
    Velmora::QcPrimaryButton button;
    button.setText(QStringLiteral("button"));
    Check(Shot(plain).pixelColor(1, 1) == QColor(Qt::green), "which plain widgets go on following");
    Check(Shot(button).pixelColor(4, 12) == Theme()->GetColor("brand/brand"), "and a button of the kit's does not");
    const QString kits = app->styleSheet();
    app->setStyleSheet(own);
    QTreeView tree;
    Shot(tree);
    Check(tree.frameWidth() > 0, "a sheet set afterwards replaces the kit's");
    app->setStyleSheet(kits.mid(own.size()));
}

void CheckLooks()
{
    CheckPlainWidgets();
    CheckSheets();
    CheckGroundOfTrees();
    Velmora::QcFrame surface;
    surface.resize(40, 40);
    Check(Ignores(surface, [&] { surface.setFrameShape(QFrame::Box); }), "a frame shape plays no part in a surface");
}
