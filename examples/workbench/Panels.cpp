#include "Panels.h"

#include "Editor.h"

#include <Velmora/QcCheckBox.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcScrollBar.h>
#include <Velmora/QcSpinBox.h>
#include <Velmora/QcStyleManager.h>

#include <QDir>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

using namespace Velmora;

namespace {

constexpr int kDeepest = 6;
constexpr int kPathRole = Qt::UserRole;
constexpr const char *kTypeProperty = "dock_widget_content_type";

} // namespace

void SetUpContent(QWidget *content, int type, const QString &title)
{
    content->setProperty(kTypeProperty, type);
    content->setWindowTitle(title);
    if (content->accessibleName().isEmpty())
        content->setAccessibleName(title);
}

int TypeOf(const QWidget *content)
{
    return content->property(kTypeProperty).toInt();
}

void SetUpView(QAbstractScrollArea *view)
{
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    for (QScrollBar *original : {view->verticalScrollBar(), view->horizontalScrollBar()}) {
        auto *bar = new QcScrollBar(original->orientation(), view); // floats over the view
        bar->SetOriginalScrollBar(original);
    }
    QcStyleManager::GetInstance()->RegisterStyleSheet(view, QStringLiteral(R"(
        QAbstractScrollArea { border: none; background: ${bg/bg_primary}; color: ${text/text_primary};
                              selection-background-color: ${brand/brand_bg}; selection-color: ${text/text_primary}; }
        QAbstractItemView { border: 1px solid transparent; padding: 3px 0; show-decoration-selected: 1; outline: none; }
        QAbstractItemView:focus { border-color: ${brand/brand}; }
        QAbstractItemView::item { border: none; padding: 3px 4px; }
        QAbstractItemView::item:hover { background: ${bg/bg_transluent_subtle_hover}; }
        QAbstractItemView::item:selected { background: ${brand/brand_bg}; color: ${text/text_primary}; }
        Velmora--QcScrollBar[objectPropertyHover=true]::handle { background: ${border/border_secondary}; }
        Velmora--QcScrollBar::handle:hover, Velmora--QcScrollBar::handle:pressed { background: ${border/border_secondary_press}; })"));
}

// --- Files ---

FilesPanel::FilesPanel(const QString &folder, QWidget *parent)
    : QTreeWidget(parent)
{
    SetUpContent(this, FilesType, tr("Files"));
    SetUpView(this);
    setHeaderHidden(true);
    setRootIsDecorated(false);
    Fill(folder, invisibleRootItem(), 0);
    expandAll();
    connect(this, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem *item) {
        const QString path = item->data(0, kPathRole).toString();
        if (!path.isEmpty())
            Q_EMIT SignalChosen(path);
    });
}

void FilesPanel::Fill(const QString &folder, QTreeWidgetItem *parent, int depth)
{
    const QStringList names = {QStringLiteral("*.md"), QStringLiteral("*.txt")};
    const auto entries = QDir(folder).entryInfoList(names, QDir::AllDirs | QDir::Files | QDir::NoDotAndDotDot | QDir::NoSymLinks,
                                                    QDir::DirsFirst | QDir::Name);
    for (const QFileInfo &entry : entries) {
        if (entry.isDir() && depth == kDeepest)
            continue;
        auto *item = new QTreeWidgetItem(parent, {entry.fileName()});
        if (entry.isDir())
            Fill(entry.filePath(), item, depth + 1);
        else
            item->setData(0, kPathRole, entry.absoluteFilePath());
    }
}

QMap<int, QString> FilesPanel::FirstFiles() const
{
    QMap<int, QString> files;
    for (QTreeWidgetItemIterator it(const_cast<FilesPanel *>(this)); *it && files.size() < 2; ++it) {
        const QString path = (*it)->data(0, kPathRole).toString();
        if (!path.isEmpty())
            files.insert(FirstEditorType + int(files.size()), path);
    }
    return files;
}

// --- Outline ---

OutlinePanel::OutlinePanel(QWidget *parent)
    : QListWidget(parent)
{
    SetUpContent(this, OutlineType, tr("Outline"));
    SetUpView(this);
    const auto go = [this](QListWidgetItem *item) {
        if (!m_editor)
            return;
        m_editor->setTextCursor(QTextCursor(m_editor->document()->findBlockByNumber(item->data(Qt::UserRole).toInt())));
        m_editor->setFocus();
    };
    connect(this, &QListWidget::itemClicked, this, go);
    connect(this, &QListWidget::itemActivated, this, go);
}

void OutlinePanel::Follow(Editor *editor)
{
    if (m_editor == editor)
        return;
    if (m_editor)
        m_editor->disconnect(this);
    m_editor = editor;
    if (m_editor) {
        connect(m_editor, &QPlainTextEdit::textChanged, this, &OutlinePanel::Fill);
        connect(m_editor, &QObject::destroyed, this, &QListWidget::clear);
    }
    Fill();
}

void OutlinePanel::Fill()
{
    clear();
    if (!m_editor)
        return;
    for (QTextBlock block = m_editor->document()->begin(); block.isValid(); block = block.next()) {
        if (!block.text().startsWith(QLatin1Char('#')))
            continue;
        auto *item = new QListWidgetItem(block.text(), this);
        item->setData(Qt::UserRole, block.blockNumber());
    }
}

// --- Output ---

OutputPanel::OutputPanel(QWidget *parent)
    : QPlainTextEdit(parent)
{
    SetUpContent(this, OutputType, tr("Output"));
    SetUpView(this);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard); // read only, yet with a caret to go by
    setMaximumBlockCount(1000);
    setProperty("dock_widget_close_forbidden", true); // its panel has a disabled close button
}

// --- Properties ---

PropertiesPanel::PropertiesPanel(QWidget *parent)
    : QcFrame(parent)
    , m_fontSize(new QcSpinBox(this))
    , m_wrap(new QcCheckBox(this))
{
    SetUpContent(this, PropertiesType, tr("Properties"));
    setBackgroundColorParams(QStringLiteral("bg/bg_primary"));
    m_fontSize->setRange(6, 40);
    m_fontSize->setFixedHeight(32);
    m_wrap->setText(tr("Wra&p lines"));
    auto *label = new QcLabel;
    label->setType(QcLabel::Body);
    label->setText(tr("Font si&ze"));
    label->setBuddy(m_fontSize);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_fontSize);
    layout->addWidget(m_wrap);
    layout->addStretch();
    connect(m_fontSize, QOverload<int>::of(&QSpinBox::valueChanged), this, &PropertiesPanel::Apply);
    connect(m_wrap, &QAbstractButton::toggled, this, &PropertiesPanel::Apply);
    Follow(nullptr);
}

void PropertiesPanel::Follow(Editor *editor)
{
    m_editor = editor;
    setEnabled(editor);
    if (!editor)
        return;
    const QSignalBlocker keepsSize(m_fontSize);
    const QSignalBlocker keepsWrap(m_wrap);
    m_fontSize->setValue(editor->font().pointSize());
    m_wrap->setChecked(editor->lineWrapMode() != QPlainTextEdit::NoWrap);
}

void PropertiesPanel::Apply()
{
    if (!m_editor)
        return;
    QFont font = m_editor->font();
    font.setPointSize(m_fontSize->value());
    m_editor->setFont(font);
    m_editor->setLineWrapMode(m_wrap->isChecked() ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
}
