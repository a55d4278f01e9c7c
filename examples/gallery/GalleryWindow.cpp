#include "GalleryWindow.h"

#include "Kit.h"
#ifdef EXAMPLES_HAVE_DBUS
#include "DesktopWish.h"
#endif

#include <Velmora/QcLineEdit.h>
#include <Velmora/QcStyleManager.h>

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QListWidget>
#include <QScrollArea>
#include <QScrollBar>
#include <QSet>
#include <QShortcut>
#include <QSizeGrip>
#include <QVBoxLayout>

namespace Gallery {

using Velmora::QcStyleManager;

namespace {

constexpr int kSidebarWidth = 30 * kGrid;
constexpr int kGripSize = 2 * kGrid;
constexpr int kPageRow = Qt::UserRole; // id of the page of a row; headings have none
constexpr int kSearchText = Qt::UserRole + 1;

} // namespace

GalleryWindow::GalleryWindow(Table table, QWidget *parent)
    : QcWindow(parent)
    , m_pages(Pages())
{
    setObjectName(QStringLiteral("galleryWindow"));
    setMinimumSize(960, 560);
    resize(1280, 800);

    setTitle(QStringLiteral("Velmora Gallery"));
    static_cast<QHBoxLayout *>(getTitleFrame()->layout())
        ->insertWidget(1, MakeLabel(QStringLiteral("Version " GALLERY_VERSION), QcLabel::Hint)); // behind the title

    auto *layout = new QHBoxLayout(getContentFrame());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(MakeSidebar());

    auto *ground = new QcFrame;
    ground->setBackgroundColorParams(QStringLiteral("bg/bg_bottom"));
    auto *right = new QVBoxLayout(ground);
    right->setContentsMargins(0, 0, 0, 0);
    right->setSpacing(0);
    right->addWidget(MakeHeader());
    m_scroll = new QScrollArea;
    m_scroll->setObjectName(QStringLiteral("pageScroll"));
    m_scroll->setWidgetResizable(true);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->viewport()->setAutoFillBackground(false);
    FloatScrollBars(m_scroll);
    right->addWidget(m_scroll, 1);
    layout->addWidget(ground, 1);

    m_grip = new QSizeGrip(this); // the edges of a frameless window do not resize it
    m_grip->setFixedSize(kGripSize, kGripSize);
    UpdateOutline();

    AddShortcuts();
    FollowDesktop(table);
    if (!m_pages.isEmpty())
        ShowPage(m_pages.first().id);
}

// --- The frame ---

void GalleryWindow::UpdateOutline()
{
    // On a ground of its own colour a window would not show where it ends; one that fills the screen needs no line.
    const bool outlined = !(windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen));
    setBorderSides(outlined ? BorderSides(Left | Top | Right | Bottom) : BorderSides());
    setBorderColorParams(QStringLiteral("border/border_secondary"));
    QWidget::layout()->setContentsMargins(outlined, outlined, outlined, outlined);
}

void GalleryWindow::changeEvent(QEvent *event)
{
    QcWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        UpdateOutline();
}

void GalleryWindow::resizeEvent(QResizeEvent *event)
{
    QcWindow::resizeEvent(event);
    m_grip->move(width() - kGripSize - 1, height() - kGripSize - 1);
}

// --- Parts of the window ---

QWidget *GalleryWindow::MakeSidebar()
{
    auto *sidebar = new QcFrame;
    sidebar->setFixedWidth(kSidebarWidth);
    sidebar->setBackgroundColorParams(QStringLiteral("bg/bg_secondary"));
    sidebar->setBorderColorParams(QStringLiteral("border/border_tertairy"));
    sidebar->setBorderSides(QcFrame::Right);
    auto *layout = new QVBoxLayout(sidebar);
    layout->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, 2 * kGrid);
    layout->setSpacing(0);

    m_search = new Field;
    m_search->getLineEdit()->setObjectName(QStringLiteral("searchField")); // which has the keyboard
    m_search->setPlaceholderText(QStringLiteral("Search pages"));
    m_search->setAccessibleName(QStringLiteral("Search pages"));
    m_search->setToolTip(QStringLiteral("Ctrl+F"));
    m_search->getLineEdit()->installEventFilter(this);
    connect(m_search, &Field::signalTextChanged, this, &GalleryWindow::FilterList);
    layout->addWidget(m_search);
    layout->addSpacing(kGrid);

    m_nothingFound = MakeLabel(QStringLiteral("No page matches"), QcLabel::BodySecondary);
    m_nothingFound->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_nothingFound->setFixedHeight(4 * kGrid);
    m_nothingFound->hide();
    layout->addWidget(m_nothingFound);

    m_list = new QListWidget;
    m_list->setObjectName(QStringLiteral("pageList"));
    m_list->setAccessibleName(QStringLiteral("Pages"));
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    FloatScrollBars(m_list);
    QcStyleManager::GetInstance()->RegisterStyleSheet(m_list, QStringLiteral(R"(
        QListWidget { border: none; background: transparent; outline: none; }
        QListWidget::item { padding: 0 8px; border-radius: 4px; color: ${text/text_secondary}; }
        QListWidget::item:hover { background: ${bg/bg_transluent_subtle_hover}; color: ${text/text_primary}; }
        QListWidget::item:selected { background: ${brand/brand_bg}; color: ${text/text_caption}; }
        QListWidget::item:disabled { background: transparent; })"));
    FillList();
    connect(m_list, &QListWidget::currentItemChanged, this, &GalleryWindow::ShowItem);
    layout->addWidget(m_list, 1);

    layout->addSpacing(2 * kGrid);
    QcLabel *hint = MakeLabel(QStringLiteral("Ctrl+F  search     Ctrl+T  colours"), QcLabel::Hint);
    hint->setAlignment(Qt::AlignCenter);
    layout->addWidget(hint);
    return sidebar;
}

QWidget *GalleryWindow::MakeHeader()
{
    auto *header = new QWidget;
    auto *layout = new QHBoxLayout(header);
    layout->setContentsMargins(4 * kGrid, 3 * kGrid, 4 * kGrid, 2 * kGrid);
    layout->setSpacing(3 * kGrid);

    auto *words = new QVBoxLayout;
    words->setSpacing(kGrid / 2);
    m_title = MakeElidingLabel(QString(), QcLabel::Display);
    m_title->setObjectName(QStringLiteral("pageTitle"));
    m_summary = MakeElidingLabel(QString(), QcLabel::BodySecondary);
    words->addWidget(m_title);
    words->addWidget(m_summary);
    layout->addLayout(words, 1);

    m_tableSwitch =
        new Segmented({QStringLiteral("Light"), QStringLiteral("Dark"), QStringLiteral("Light contrast"), QStringLiteral("Dark contrast")});
    m_tableSwitch->setObjectName(QStringLiteral("tableSwitch"));
    m_tableSwitch->setAccessibleName(QStringLiteral("Colour table"));
    m_tableSwitch->setToolTip(QStringLiteral("Colour table (Ctrl+T)"));
    m_tableSwitch->Segment(0)->setObjectName(QStringLiteral("tableLight"));
    m_tableSwitch->Segment(1)->setObjectName(QStringLiteral("tableDark"));
    m_tableSwitch->Segment(2)->setObjectName(QStringLiteral("tableContrastLight"));
    m_tableSwitch->Segment(3)->setObjectName(QStringLiteral("tableContrastDark"));
    connect(m_tableSwitch, &Segmented::SignalCurrentChanged, this, [this](int index) {
        m_hasOwnChoice = m_hasOwnChoice || !m_isFollowing;
        ApplyTable(Table(index));
    });
    layout->addWidget(m_tableSwitch, 0, Qt::AlignTop);
    return header;
}

void GalleryWindow::AddShortcuts()
{
    const auto add = [this](const QKeySequence &keys, const std::function<void()> &run) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, run);
    };
    add(QKeySequence::Find, [this] {
        m_search->setFocus();
        m_search->getLineEdit()->selectAll();
    });
    add(QKeySequence(QStringLiteral("Ctrl+T")),
        [this] { m_tableSwitch->SetCurrentIndex((m_tableSwitch->CurrentIndex() + 1) % int(kTables.size())); });
    add(QKeySequence(QStringLiteral("Ctrl+Q")), [this] { close(); });
}

// --- The list ---

void GalleryWindow::FillList()
{
    QString family;
    for (const PageInfo &page : qAsConst(m_pages)) {
        if (page.family != family) {
            family = page.family;
            auto *heading = new QListWidgetItem(m_list);
            heading->setFlags(Qt::NoItemFlags);
            heading->setSizeHint(QSize(0, 5 * kGrid));
            heading->setData(Qt::AccessibleTextRole, family); // the label in its place is no part of the list
            QcLabel *label = MakeLabel(family, QcLabel::CaptionSmall);
            auto *place = new QWidget;
            auto *layout = new QVBoxLayout(place);
            layout->setContentsMargins(3, kGrid, kGrid, kGrid / 2);
            label->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
            layout->addWidget(label);
            m_list->setItemWidget(heading, place);
        }
        auto *item = new QListWidgetItem(page.title, m_list);
        item->setSizeHint(QSize(0, 4 * kGrid));
        item->setData(kPageRow, page.id);
        item->setData(kSearchText, QStringLiteral("%1 %2 %3 %4").arg(page.id, page.family, page.title, page.summary));
    }
}

void GalleryWindow::FilterList(const QString &text)
{
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QListWidgetItem *heading = nullptr;
    QListWidgetItem *first = nullptr;
    for (int row = 0; row < m_list->count(); ++row) {
        QListWidgetItem *item = m_list->item(row);
        if (!item->data(kPageRow).isValid()) {
            heading = item;
            heading->setHidden(true);
            continue;
        }
        const QString content = item->data(kSearchText).toString();
        bool matches = true;
        for (const QString &word : words)
            matches = matches && content.contains(word, Qt::CaseInsensitive);
        item->setHidden(!matches);
        if (!matches)
            continue;
        if (heading)
            heading->setHidden(false);
        if (!first)
            first = item;
    }
    m_nothingFound->setVisible(!first);
    // What is typed shows its best answer at once; an emptied field stays where it was.
    if (first && !words.isEmpty() && (!m_list->currentItem() || m_list->currentItem()->isHidden()))
        m_list->setCurrentItem(first);
}

void GalleryWindow::MoveInList(int step)
{
    for (int row = m_list->currentRow() + step; row >= 0 && row < m_list->count(); row += step) {
        QListWidgetItem *item = m_list->item(row);
        if (!item->isHidden() && item->data(kPageRow).isValid()) {
            m_list->setCurrentItem(item);
            return;
        }
    }
}

bool GalleryWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (m_search && watched == m_search->getLineEdit() && event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent *>(event)->key()) {
        case Qt::Key_Down:
            MoveInList(1);
            return true;
        case Qt::Key_Up:
            MoveInList(-1);
            return true;
        case Qt::Key_Escape:
            m_search->clear();
            return true;
        default:
            break;
        }
    }
    return QcWindow::eventFilter(watched, event);
}

// --- Pages and tables ---

bool GalleryWindow::ShowPage(const QString &id)
{
    for (int row = 0; row < m_list->count(); ++row) {
        if (m_list->item(row)->data(kPageRow).toString() == id) {
            m_list->setCurrentRow(row);
            return true;
        }
    }
    return false;
}

void GalleryWindow::ShowItem(QListWidgetItem *item)
{
    const QString id = item ? item->data(kPageRow).toString() : QString();
    if (id.isEmpty() || id == m_currentId)
        return;
    for (const PageInfo &page : qAsConst(m_pages)) {
        if (page.id != id)
            continue;
        m_currentId = id;
        m_title->setText(page.title);
        m_summary->setText(page.summary);
        setWindowTitle(QStringLiteral("%1 - Velmora Gallery").arg(page.title));
        if (QWidget *old = m_scroll->takeWidget()) {
            old->hide();
            old->setParent(this);
        }
        QWidget *&widget = m_widgets[id];
        if (!widget)
            widget = page.factory();
        m_scroll->setWidget(widget);
        widget->setAutoFillBackground(false); // the scroll area asked for it
        widget->show();
        m_scroll->verticalScrollBar()->setValue(0);
    }
}

void GalleryWindow::SetTable(Table table)
{
    m_tableSwitch->SetCurrentIndex(int(table));
}

void GalleryWindow::FollowDesktop(Table table)
{
    if (m_hasOwnChoice)
        return;
    m_isFollowing = true;
    SetTable(table);
    m_isFollowing = false;
}

bool GalleryWindow::GrowToContent()
{
    const int missing = m_scroll->verticalScrollBar()->maximum();
    if (missing > 0)
        resize(width(), height() + missing);
    return missing > 0;
}

QString GalleryWindow::ControlPositions() const
{
    QString lines;
    QSet<QString> names; // a page may show windows, whose parts have the names of this one's
    for (const QWidget *widget : findChildren<QWidget *>()) {
        if (!widget->isVisible() || widget->objectName().isEmpty() || widget->objectName().startsWith(QLatin1String("qt_")))
            continue;
        if (names.contains(widget->objectName()))
            continue;
        names.insert(widget->objectName());
        const QPoint at = widget->mapTo(this, QPoint(0, 0));
        lines +=
            QStringLiteral("%1 %2 %3 %4 %5\n").arg(widget->objectName()).arg(at.x()).arg(at.y()).arg(widget->width()).arg(widget->height());
    }
    return lines + QStringLiteral("end\n");
}

#ifdef EXAMPLES_HAVE_DBUS
void Follow(GalleryWindow &window, const Examples::DesktopWish &wish)
{
    const auto follow = [&window, &wish] {
        if (const std::optional<Table> table = wish.WishedTable())
            window.FollowDesktop(*table);
    };
    QObject::connect(&wish, &Examples::DesktopWish::SignalWishChanged, &window, follow);
    follow(); // to what was said while the window was made
}
#endif

} // namespace Gallery
