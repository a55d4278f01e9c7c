#include "Workbench.h"

#include "Editor.h"
#include "Panels.h"
#include "TableSelector.h"

#include <Velmora/QcDockArea.h>
#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockController.h>
#include <Velmora/QcDockWidget.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcSecondaryButton.h>
#include <Velmora/QcToastManager.h>

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>

using namespace Velmora;

namespace {

// Editors join only editors, the others only each other; a type in no group would join any.
QList<QList<int>> TypeGroups()
{
    QList<int> editors;
    for (int type = FirstEditorType; type <= LastEditorType; ++type)
        editors.append(type);
    return {{FilesType, OutlineType, OutputType, PropertiesType}, editors};
}

QcDockWidget *MakePanel(QWidget *content)
{
    auto *panel = new QcDockWidget(nullptr);
    panel->setContentWidget(content);
    return panel;
}

// A floating panel is a window, yet the root's child: QWidget::isAncestorOf() would stop at it.
bool IsBelow(const QWidget *widget, const QWidget *root)
{
    while (widget && widget != root)
        widget = widget->parentWidget();
    return widget;
}

template <typename T>
T *Enclosing(QWidget *widget)
{
    while (widget && !qobject_cast<T *>(widget))
        widget = widget->parentWidget();
    return static_cast<T *>(widget);
}

/// Shows the panel of \a content, whose tab may be behind others and whose window behind the workbench, and gives the content the
/// keyboard: setFocus() by itself would leave it to a page that nobody sees.
void BringForward(QWidget *content)
{
    auto *panel = Enclosing<QcDockWidget>(content);
    if (auto *area = panel ? Enclosing<QcDockArea>(panel) : nullptr) {
        for (int i = 0; i < area->count(); ++i) {
            if (area->widget(i) == panel)
                area->setCurrentIndex(i);
        }
    }
    content->window()->raise();
    content->window()->activateWindow();
    content->setFocus();
}

template <typename T>
void MakeIfMissing(QPointer<T> &content)
{
    if (!content)
        content = new T;
}

} // namespace

Workbench::Workbench(const QString &folder, const QString &stateFolder, QWidget *parent)
    : QcFrame(parent)
    , m_folder(folder)
    , m_stateFolder(stateFolder)
    , m_session(LoadSession(stateFolder))
    , m_table(m_session.table)
{
    QDir().mkpath(stateFolder);
    setWindowTitle(tr("Workbench"));
    setBackgroundColorParams(QStringLiteral("bg/bg_bottom"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addWidget(MakeToolRow());

    // The groups come before the first drag, the root before the first panel that floats.
    auto *controller = QcDockController::instance();
    controller->setDockAreaSupportTypeList(TypeGroups());
    controller->setJsonFilePath(LayoutOfLastRun(stateFolder));
    MakeMissingContents();
    if (m_session.geometry.isEmpty()) // the first run
        m_session.files = m_files->FirstFiles();
    for (auto it = m_session.files.cbegin(); it != m_session.files.cend(); ++it)
        MakeEditor(it.key(), it.value());
    QcDockContainer *last = QFileInfo::exists(LayoutOfLastRun(stateFolder)) ? controller->loadFromJson(QString()) : nullptr;
    Use(last ? last : MakeFirstLayout());
    FocusShownEditor();

    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) { FollowFocus(now); });
    new QShortcut(QKeySequence::Save, this, this, &Workbench::SaveText);
    resize(1100, 700);
    restoreGeometry(m_session.geometry);
}

Workbench::~Workbench() = default;

QcDockContainer *Workbench::Root() const
{
    return m_root;
}

QWidget *Workbench::MakeToolRow()
{
    auto *row = new QWidget(this);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(4, 0, 4, 0);
    layout->setSpacing(8);
    const auto add = [this, layout](const QString &text, const QString &name, void (Workbench::*slot)()) {
        auto *button = new QcSecondaryButton;
        button->setText(text);
        button->setObjectName(name);
        button->setFixedHeight(28);
        button->setMinimumWidth(112);
        connect(button, &QAbstractButton::clicked, this, slot);
        layout->addWidget(button);
    };
    add(tr("&Save layout"), QStringLiteral("saveLayout"), &Workbench::SaveLayout);
    add(tr("&Load layout"), QStringLiteral("loadLayout"), &Workbench::LoadLayout);
    add(tr("&Reset layout"), QStringLiteral("resetLayout"), &Workbench::ResetLayout);
    add(tr("Second &window"), QStringLiteral("secondWindow"), &Workbench::ShowSecondWindow);
    layout->addStretch();
    auto *selector = new Examples::TableSelector;
    selector->setObjectName(QStringLiteral("table"));
    selector->setAccessibleName(tr("Colours"));
    selector->setFixedWidth(128);
    selector->Choose(m_session.table);
    auto *label = new QcLabel;
    label->setType(QcLabel::Body);
    label->setText(tr("&Colours"));
    label->setBuddy(selector);
    layout->addWidget(label);
    layout->addWidget(selector);
    connect(selector, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this, selector] {
        m_session.table = selector->Chosen();
        m_table.Choose(m_session.table);
    });
    return row;
}

// --- Contents ---

void Workbench::MakeMissingContents()
{
    if (!m_files) {
        m_files = new FilesPanel(m_folder);
        connect(m_files, &FilesPanel::SignalChosen, this, &Workbench::Open);
    }
    MakeIfMissing(m_outline);
    MakeIfMissing(m_output);
    MakeIfMissing(m_properties);
}

Editor *Workbench::MakeEditor(int type, const QString &path)
{
    auto *editor = new Editor(path);
    editor->setProperty("dock_widget_content_type", type);
    editor->Load();
    m_editors.append(editor);
    return editor;
}

QList<Editor *> Workbench::Editors() const
{
    QList<Editor *> editors;
    for (const QPointer<Editor> &editor : m_editors) {
        if (editor)
            editors.append(editor);
    }
    return editors;
}

QList<QWidget *> Workbench::Contents() const
{
    QList<QWidget *> contents;
    for (QWidget *content : std::initializer_list<QWidget *>{m_files, m_outline, m_output, m_properties}) {
        if (content)
            contents.append(content);
    }
    for (Editor *editor : Editors())
        contents.append(editor);
    return contents;
}

int Workbench::FreeEditorType() const
{
    int type = FirstEditorType;
    const QList<Editor *> editors = Editors();
    const auto isTaken = [&editors](int number) {
        return std::any_of(editors.begin(), editors.end(), [number](const Editor *editor) { return TypeOf(editor) == number; });
    };
    while (isTaken(type))
        ++type;
    return type;
}

void Workbench::Open(const QString &path)
{
    for (Editor *editor : Editors()) {
        if (editor->Path() == path)
            return BringForward(editor);
    }
    const int type = FreeEditorType();
    if (type > LastEditorType)
        return Say(tr("Too many files are open."));
    Editor *editor = MakeEditor(type, path);
    Place(editor);
    BringForward(editor);
    Say(tr("Opened %1.").arg(path));
}

void Workbench::Place(Editor *editor)
{
    QcDockWidget *output = m_output ? Enclosing<QcDockWidget>(m_output) : nullptr;
    const auto types = m_root->getDockWidgetTypeList();
    const bool isFirst = std::all_of(types.begin(), types.end(), [](int type) { return type < FirstEditorType; });
    if (isFirst && output && !output->isFloating() && IsBelow(output, m_root))
        m_root->addWidget(MakePanel(editor), output, DockPosition::Top);
    else
        m_root->addDockWidgetContent(editor, DockPosition::Right); // joins the first area with editors
}

// Outline and properties have an editor to follow from the start.
void Workbench::FocusShownEditor()
{
    const QList<Editor *> editors = Editors();
    for (Editor *editor : editors) {
        const auto *area = Enclosing<QcDockArea>(editor);
        if (area && area->widget(area->currentIndex()) == Enclosing<QcDockWidget>(editor))
            return editor->setFocus();
    }
}

void Workbench::SaveText()
{
    if (m_current)
        Say(m_current->Save() ? tr("Saved %1.").arg(m_current->Path()) : tr("%1 could not be saved.").arg(m_current->Path()));
}

void Workbench::FollowFocus(QWidget *focus)
{
    auto *editor = qobject_cast<Editor *>(focus);
    if (!editor || editor == m_current)
        return;
    m_current = editor;
    if (m_outline)
        m_outline->Follow(editor);
    if (m_properties)
        m_properties->Follow(editor);
}

void Workbench::Say(const QString &text)
{
    if (m_output)
        m_output->appendPlainText(text);
}

// --- Layouts ---

QcDockContainer *Workbench::MakeFirstLayout()
{
    auto *root = new QcDockContainer(nullptr);
    QcDockController::instance()->setRootDockContainer(root);
    QcDockWidget *output = MakePanel(m_output);
    QcDockWidget *files = MakePanel(m_files);
    // Without a target a panel goes to an edge of the whole; beside a panel it takes half of that one's place.
    root->addWidget(output, nullptr, DockPosition::Center);
    root->addWidget(files, nullptr, DockPosition::Left);
    root->addWidget(MakePanel(m_properties), nullptr, DockPosition::Right);
    root->addWidget(MakePanel(m_outline), files, DockPosition::Bottom);
    QcDockWidget *firstEditor = nullptr;
    const QList<Editor *> editors = Editors();
    for (Editor *editor : editors) {
        QcDockWidget *panel = MakePanel(editor);
        root->addWidget(panel, firstEditor ? static_cast<QWidget *>(firstEditor) : output,
                        firstEditor ? DockPosition::Center : DockPosition::Top);
        firstEditor = firstEditor ? firstEditor : panel;
    }
    root->setSizes({220, 660, 220});
    if (firstEditor)
        Enclosing<QcDockContainer>(output)->setSizes({470, 180});
    root->resetAllTabFramesToFirstTab();
    return root;
}

void Workbench::Use(QcDockContainer *root)
{
    root->setEmptyKeep(true); // the last panel may be torn out, and dropped here again
    QcDockContainer *old = m_root;
    m_root = root;
    if (old)
        layout()->removeWidget(old);
    static_cast<QVBoxLayout *>(layout())->addWidget(root, 1);
    PlaceTheRest();
    root->show();
    if (old)
        old->deleteLater();
}

void Workbench::PlaceTheRest()
{
    m_root->setDockWidgetContentList(Contents());
    // A panel for which there is no content any more: its file is not open.
    const auto panels = m_root->findChildren<QcDockWidget *>();
    for (QcDockWidget *panel : panels) {
        if (!panel->getContentWidget())
            panel->close();
    }
    // A content for which the layout has no panel.
    const auto contents = Contents();
    for (QWidget *content : contents) {
        if (!IsBelow(content, m_root))
            m_root->addDockWidgetContent(content, DockPosition::Right);
    }
}

void Workbench::SaveLayout()
{
    auto *controller = QcDockController::instance();
    controller->setJsonFilePath(SavedLayout(m_stateFolder));
    controller->saveToJson(m_root);
    // A failed save leaves the old file as it was.
    QFile file(SavedLayout(m_stateFolder));
    const bool isSaved = file.open(QIODevice::ReadOnly) && file.readAll() == controller->toJson(m_root).toUtf8();
    QcToastManager::getInstance()->showToast(isSaved ? tr("Layout saved.") : tr("The layout could not be saved."),
                                             isSaved ? QcToast::Success : QcToast::Error, this, false);
}

void Workbench::LoadLayout()
{
    const QString path = SavedLayout(m_stateFolder);
    QcDockContainer *loaded = QFileInfo::exists(path) ? QcDockController::instance()->loadFromJson(path) : m_root.data();
    if (loaded == m_root)
        return QcToastManager::getInstance()->showToast(tr("There is no layout to load."), QcToast::Warning, this, false);
    if (m_secondWindow)
        m_secondWindow->close(); // its panels come back, and get their places with the others
    MakeMissingContents();
    Use(loaded);
}

void Workbench::ResetLayout()
{
    if (m_secondWindow)
        m_secondWindow->close();
    MakeMissingContents();
    Use(MakeFirstLayout());
}

void Workbench::ShowSecondWindow()
{
    if (!m_secondWindow) {
        m_secondWindow = new SecondWindow;
        connect(m_secondWindow, &SecondWindow::SignalClosing, this, [this] {
            const auto contents = m_secondWindow->Contents();
            for (QWidget *content : contents)
                m_root->addDockWidgetContent(content, DockPosition::Right);
        });
    }
    m_secondWindow->show();
    m_secondWindow->activateWindow();
}

void Workbench::closeEvent(QCloseEvent *event)
{
    const QPointer<Workbench> alive = this;
    for (const QPointer<Editor> &editor : qAsConst(m_editors)) {
        if (editor && !editor->MayClose()) {
            event->ignore();
            return;
        }
        if (!alive)
            return;
    }
    if (m_secondWindow)
        m_secondWindow->close();
    m_session.files.clear();
    for (Editor *editor : Editors())
        m_session.files.insert(TypeOf(editor), editor->Path());
    m_session.geometry = saveGeometry();
    SaveSession(m_session, m_stateFolder);
    auto *controller = QcDockController::instance();
    controller->setJsonFilePath(LayoutOfLastRun(m_stateFolder));
    controller->saveToJson(m_root);
    event->accept();
}

// --- The second window ---

SecondWindow::SecondWindow(QWidget *parent)
    : QcFrame(parent)
    , m_root(new QcDockContainer(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Second window"));
    setBackgroundColorParams(QStringLiteral("bg/bg_bottom"));
    m_root->setEmptyKeep(true);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_root);
    resize(500, 400);
}

QList<QWidget *> SecondWindow::Contents() const
{
    QList<QWidget *> contents;
    const auto panels = m_root->findChildren<QcDockWidget *>();
    for (QcDockWidget *panel : panels) {
        if (panel->getContentWidget())
            contents.append(panel->getContentWidget());
    }
    return contents;
}

void SecondWindow::closeEvent(QCloseEvent *event)
{
    Q_EMIT SignalClosing();
    QcFrame::closeEvent(event);
}
