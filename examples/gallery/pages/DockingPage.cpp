#include "Kit.h"
#include "Page.h"

#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockController.h>
#include <Velmora/QcDockWidget.h>
#include <Velmora/QcSecondaryButton.h>

#include <QHBoxLayout>
#include <QPointer>
#include <QVBoxLayout>

using namespace Gallery;
using Velmora::DockPosition;
using Velmora::QcDockContainer;
using Velmora::QcDockController;
using Velmora::QcDockWidget;
using Velmora::QcSecondaryButton;

namespace {

constexpr int kToolType = 1;
constexpr int kDocumentType = 2;

QWidget *MakeContent(const QString &title, int type, const QString &text)
{
    auto *content = new QWidget;
    content->setWindowTitle(title);
    content->setProperty("dock_widget_content_type", type);
    auto *layout = new QVBoxLayout(content);
    layout->addWidget(MakeParagraph(text));
    layout->addStretch();
    return content;
}

QcDockWidget *MakePanel(QWidget *content)
{
    auto *panel = new QcDockWidget(nullptr);
    panel->setContentWidget(content);
    return panel;
}

class DockingPage : public PageWidget
{
public:
    DockingPage()
    {
        Card *card =
            AddSection(QStringLiteral("A window's panels"),
                       QStringLiteral("Drag a panel by its title or by its tab: it drops where the cross shows, or stays a window of its "
                                      "own. Documents join only documents."));
        m_place = card->Body();
        QHBoxLayout *buttons = card->AddRow();
        auto *reset = new QcSecondaryButton;
        reset->setText(QStringLiteral("Reset"));
        reset->setHorizontalMargin(kGrid);
        connect(reset, &QAbstractButton::clicked, this, &DockingPage::Build);
        buttons->addWidget(reset);
        buttons->addStretch();
        Build();

        Card *floating = AddSection(QStringLiteral("A floating panel"),
                                    QStringLiteral("Resting, and while it is dragged with the tip under its title."));
        QHBoxLayout *row = floating->AddRow(3 * kGrid);
        row->addWidget(MakeHeldPanel(QStringLiteral("Resting"), false));
        row->addWidget(MakeHeldPanel(QStringLiteral("Dragged"), true));
        row->addStretch();
    }

private:
    void Build()
    {
        delete m_root;
        QcDockController::instance()->setDockAreaSupportTypeList({{kToolType}, {kDocumentType}});
        m_root = new QcDockContainer(this);
        m_root->setEmptyKeep(true);
        m_root->setFixedHeight(48 * kGrid);
        QcDockController::instance()->setRootDockContainer(m_root);
        m_place->insertWidget(0, m_root);

        QcDockWidget *first =
            MakePanel(MakeContent(QStringLiteral("Plan"), kDocumentType, QStringLiteral("The tabs of an area share its width.")));
        m_root->addWidget(first, nullptr, DockPosition::Center);
        for (const QString &title : {QStringLiteral("A title of more words than a tab has room for"),
                                     QStringLiteral("\u062e\u0631\u064a\u0637\u0629"), QStringLiteral("Budget")})
            m_root->addWidget(MakePanel(MakeContent(title, kDocumentType, QStringLiteral("The text fades at the end of its tab."))), first,
                              DockPosition::Center);
        QcDockWidget *layers =
            MakePanel(MakeContent(QStringLiteral("Layers"), kToolType, QStringLiteral("One panel alone has a title row.")));
        m_root->addWidget(layers, nullptr, DockPosition::Left);
        QWidget *forbidden = MakeContent(QStringLiteral("History"), kToolType, QStringLiteral("Its close button is disabled."));
        forbidden->setProperty("dock_widget_close_forbidden", true);
        m_root->addWidget(MakePanel(forbidden), layers, DockPosition::Bottom);
        m_root->addWidget(MakePanel(MakeContent(QStringLiteral("Properties"), kToolType, QStringLiteral("The last of three panes."))),
                          nullptr, DockPosition::Right);
        m_root->setSizes({220, 500, 220});
        m_root->resetAllTabFramesToFirstTab();
    }

    // A panel looks like a window's when told so; held inside of the page it can be in a picture.
    static QcDockWidget *MakeHeldPanel(const QString &title, bool isDragged)
    {
        QcDockWidget *panel = MakePanel(MakeContent(title, kToolType, QString()));
        panel->setFixedSize(34 * kGrid, 16 * kGrid);
        panel->setWindowStyle(true);
        panel->setDragingStyle(isDragged);
        panel->SetDragTipVisible(isDragged);
        MakeSpecimen(panel);
        return panel;
    }

    QVBoxLayout *m_place = nullptr;
    QPointer<QcDockContainer> m_root;
};

const PageRegistrar registrar({QStringLiteral("docking"), QStringLiteral("Docking"), QStringLiteral("Panels"),
                               QStringLiteral("QcDockContainer and QcDockWidget: panels that are split, tabbed, torn off and dropped."),
                               600, [] { return new DockingPage; }});

} // namespace
