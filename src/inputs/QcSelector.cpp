#include <Velmora/FileAndDesktop.h>
#include <Velmora/ImageParams.h>
#include <Velmora/QcScrollBar.h>
#include <Velmora/QcSelector.h>
#include <Velmora/QcStyleManager.h>

#include "core/QtCompatibility_p.h"
#include "display/OneLine_p.h"
#include "inputs/InnerEdit_p.h"
#include "inputs/QcSelectorViewItemDelegate_p.h"
#include "inputs/SelectorAccessible_p.h"
#include "theme/FocusShape_p.h"
#include "theme/ThemedPixmap_p.h"
#include "theme/TokenPainting_p.h"

#include <QCoreApplication>
#include <QHoverEvent>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionComboBox>

namespace Velmora {

namespace {

constexpr int kHeight = 28;
constexpr int kRadius = 3; // as the stylesheet says
constexpr int kMostRows = 7;

} // namespace

QcSelector::QcSelector(QWidget *parent)
    : QComboBox(parent)
{
    InstallSelectorAccessibility();
    InstallFocusShape<QcSelector>([](const QcSelector &selector) { return FocusShape{selector.rect(), kRadius}; });
    setFixedHeight(kHeight);
    setContentsMargins(m_leftPadding, 0, m_rightPadding, 0);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(0);
    setMaxVisibleItems(kMostRows);
    SetUpPopup();
    setItemDelegate(new QcSelectorViewItemDelegate(this));
    FollowModel();

    const QString paddings = QStringLiteral("Velmora--QcSelector { padding-left: %1px; } Velmora--QcSelector::drop-down { width: %2px;}")
                                 .arg(m_leftPadding)
                                 .arg(m_arrowSize.width());
    QcStyleManager::GetInstance()->RegisterStyleSheet(this, GetFileContent(QStringLiteral(":/qss/Selector.qss")) + paddings);
}

void QcSelector::SetUpPopup()
{
    view(); // makes the popup
    const auto widgets = findChildren<QWidget *>();
    for (QWidget *popup : widgets) {
        if (!popup->inherits("QComboBoxPrivateContainer"))
            continue;
        popup->setWindowFlags(popup->windowFlags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
        popup->setAttribute(Qt::WA_TranslucentBackground);
        popup->installEventFilter(this);
    }
    view()->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view()->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    if (auto *list = qobject_cast<QListView *>(view()))
        list->setUniformItemSizes(true); // or ten thousand rows are asked for their one height
    auto *bar = new QcScrollBar(Qt::Vertical, view());
    bar->SetOriginalScrollBar(view()->verticalScrollBar());
    // Our rows show a hover and no selection: the one that the keyboard is on gets the hover too.
    connect(this, QOverload<int>::of(&QComboBox::highlighted), this,
            [this](int row) { ShowKeyboardRow(model()->index(row, modelColumn(), rootModelIndex())); });
}

void QcSelector::setEditable(bool editable)
{
    const Qt::ScrollBarPolicy policy = view()->verticalScrollBarPolicy();
    const QLineEdit *before = lineEdit();
    QComboBox::setEditable(editable);
    if (lineEdit() && lineEdit() != before) // else it may be a host's own
        setLineEdit(InnerEdit::InPlaceOf(*lineEdit(), this));
    view()->setVerticalScrollBarPolicy(policy); // before the stylesheet is on Qt brings back its own bar
    if (lineEdit())
        lineEdit()->setStyleSheet(QStringLiteral("padding-left: -2px;"));
}

// --- Icons of items ---

// Signals that tell of rows elsewhere in a tree cost a look and change nothing.

bool QcSelector::hasItemsWithIcons() const
{
    const_cast<QcSelector *>(this)->FollowModel(); // a combo box tells nobody of another model
    return m_hasItemsWithIcons;
}

void QcSelector::FollowModel()
{
    const bool isFollowed = m_followedModel == model() && m_followedRoot == rootModelIndex() && m_followedColumn == modelColumn();
    if (isFollowed && m_following)
        return;
    m_followedModel = model();
    m_followedRoot = rootModelIndex();
    m_followedColumn = modelColumn();
    m_following = std::make_unique<QObject>();
    connect(model(), &QAbstractItemModel::dataChanged, m_following.get(),
            [this](const QModelIndex &topLeft, const QModelIndex &bottomRight) { OnDataChanged(topLeft.row(), bottomRight.row()); });
    connect(model(), &QAbstractItemModel::rowsInserted, m_following.get(),
            [this](const QModelIndex & /*parent*/, int first, int last) { OnRowsInserted(first, last); });
    connect(model(), &QAbstractItemModel::rowsRemoved, m_following.get(), [this] { OnRowsRemoved(); });
    connect(model(), &QAbstractItemModel::modelReset, m_following.get(), [this] { updateIconPresence(); });
    checkIconPresence();
}

void QcSelector::checkIconPresence()
{
    m_hasItemsWithIcons = false;
    LookForIcon(0, count() - 1);
}

void QcSelector::updateIconPresence()
{
    checkIconPresence();
    UpdateView();
}

void QcSelector::LookForIcon(int first, int last)
{
    for (int row = first; row <= last && !m_hasItemsWithIcons; ++row) {
        if (itemIcon(row).isNull())
            continue;
        m_hasItemsWithIcons = true;
        m_itemWithIcon = model()->index(row, modelColumn(), rootModelIndex());
    }
}

void QcSelector::OnRowsInserted(int first, int last)
{
    LookForIcon(first, last);
    UpdateView();
}

void QcSelector::OnRowsRemoved()
{
    if (m_hasItemsWithIcons && !m_itemWithIcon.isValid())
        checkIconPresence();
    UpdateView();
}

void QcSelector::OnDataChanged(int first, int last)
{
    if (m_hasItemsWithIcons && itemIcon(m_itemWithIcon.row()).isNull())
        checkIconPresence();
    else
        LookForIcon(first, last);
    UpdateView();
}

void QcSelector::UpdateView()
{
    view()->update();
}

// --- The popup ---

/// Gives the hover to the row of \a index, and to none if that has no place in the list, as a hidden row.
void QcSelector::ShowKeyboardRow(const QModelIndex &index)
{
    const QRect place = view()->visualRect(index);
    const QPointF middle = QRectF(place).center();
    QHoverEvent hover = HoverEventAt(place.isEmpty() ? QEvent::HoverLeave : QEvent::HoverMove, middle, middle);
    QCoreApplication::sendEvent(view()->viewport(), &hover);
}

bool QcSelector::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Paint:
        if (lineEdit() && watched == lineEdit()) // for who looks where the edit lies: a debugging host installs this filter there
            QPainter(lineEdit()).fillRect(lineEdit()->rect(), Qt::red);
        break;
    case QEvent::Show:                           // of the popup
        ShowKeyboardRow(view()->currentIndex()); // the row that the list closed with may still have the hover
        update();                                // the arrow turns
        break;
    case QEvent::Hide:
        update();
        break;
    default:
        break;
    }
    return QComboBox::eventFilter(watched, event);
}

// --- Painting ---

void QcSelector::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    style()->drawPrimitive(QStyle::PE_PanelButtonCommand, &option, &painter, this);
    PaintText(painter, option.currentText);
    PaintArrow(painter);
}

void QcSelector::PaintText(QPainter &painter, const QString &currentText)
{
    if (!currentText.isEmpty() && isEditable())
        return; // the line edit shows it
    const QRect contents = contentsRect();
    const QRect place(contents.left(), 0, contents.width() - iconSize().width(), contents.height());
    const bool isPlaceholder = currentText.isEmpty();
    const QString text = isPlaceholder ? OneLine(placeholderText()) : ElidedLine(painter.fontMetrics(), currentText, place.width());
    painter.setPen(TokenColor(isPlaceholder ? QStringLiteral("text/text_secondary") : QStringLiteral("text/text_primary")));
    painter.setLayoutDirection(layoutDirection()); // else it has that of the application
    painter.drawText(QStyle::visualRect(layoutDirection(), rect(), place), Qt::AlignLeft | Qt::AlignVCenter, text);
}

void QcSelector::PaintArrow(QPainter &painter)
{
    const QRect place(QPoint(rect().right() - m_arrowSize.width(), (contentsRect().height() - m_arrowSize.height()) / 2), m_arrowSize);
    ImageParams arrow;
    arrow.path = view() && view()->isVisible() ? QStringLiteral(":/images/arrow_up.svg") : QStringLiteral(":/images/arrow_down.svg");
    arrow.size = m_arrowSize;
    arrow.color = QStringLiteral("icon/icon_secondary");
    DrawPixmap(painter, QStyle::visualRect(layoutDirection(), rect(), place), PixmapFor(painter, arrow));
}

} // namespace Velmora
