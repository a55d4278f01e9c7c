#include "beside.h"
#include "forward.h"
#include "layouts.h"
#include "texts.h"

#include "../Check.h"

#include <Velmora/QcApplication.h>
#include <Velmora/QcDockArea.h>
#include <Velmora/QcStyleManager.h>

#include <QLabel>
#include <QTemporaryDir>

namespace {

QWidget *MakeContent(int type)
{
    auto *content = new QWidget;
    content->setProperty("dock_widget_content_type", type);
    return content;
}

void CheckBesideAndLayouts()
{
    auto *controller = Velmora::QcDockController::instance();
    Velmora::QcDockContainer first;
    first.setEmptyKeep(true);
    controller->setRootDockContainer(&first);
    auto *upper = new Velmora::QcDockWidget(nullptr);
    upper->setContentWidget(MakeContent(1));
    first.addWidget(upper, nullptr, Velmora::Center);
    addBelow(&first, MakeContent(2), upper);
    Check(first.getOrientation() == Qt::Vertical, "a panel below another makes a column");
    Check(first.getDockAreaList().size() == 2, "of two areas");

    QTemporaryDir folder;
    const QString path = folder.filePath("layout.json");
    Check(!restoredLayout(path, {}), "there is no layout before the first is kept");
    controller->setJsonFilePath(path);
    controller->saveToJson(&first);
    QWidget *content = MakeContent(2);
    Velmora::QcDockContainer *second = restoredLayout(path, {content});
    Check(second && second != &first, "a kept layout comes back as a new root");
    if (!second)
        return;
    Check(second->getDockWidgetTypeList().size() == 2, "with as many panels");
    Check(content->parentWidget(), "of which one has the content");
    delete second;
}

void CheckTextsAndForward()
{
    DockingTexts texts;
    QCoreApplication::installTranslator(&texts);
    Velmora::QcDockContainer root;
    auto *behind = new Velmora::QcDockWidget(nullptr);
    behind->setContentWidget(MakeContent(1));
    root.addWidget(behind, nullptr, Velmora::Center);
    auto *inFront = new Velmora::QcDockWidget(nullptr);
    inFront->setContentWidget(MakeContent(1));
    root.addWidget(inFront, behind, Velmora::Center);
    root.show();
    Check(!behind->isVisible(), "a panel may be behind another");
    bringForward(behind);
    Check(behind->isVisible(), "and is brought forward");
    const auto *tip = behind->findChild<QLabel *>(QStringLiteral("m_dragTipLabel"));
    Check(tip && tip->text() == QLatin1String("Drop it on a place of the cross"), "the tip of a dragged panel has the program's wording");
    QCoreApplication::removeTranslator(&texts);
}

} // namespace

int main(int argc, char **argv)
{
    Velmora::QcApplication app(argc, argv);
    Velmora::QcStyleManager::GetInstance()->SetColorFilePath(QStringLiteral(":/colors/blue_light.ini"));
    app.Initialize();
    CheckBesideAndLayouts();
    CheckTextsAndForward();
    return failures;
}
