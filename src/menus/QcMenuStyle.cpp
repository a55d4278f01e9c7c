#include "menus/QcMenuStyle_p.h"

#include "core/QtCompatibility_p.h"
#include "display/OneLine_p.h"
#include "display/TextStyles_p.h"
#include "menus/MenuIcon_p.h"
#include "theme/Mnemonics_p.h"
#include "theme/ThemedPixmap_p.h"
#include "theme/TokenPainting_p.h"

#include <Velmora/PaintingHelpers.h>

#include <QApplication>
#include <QFontMetrics>
#include <QHash>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QStyleFactory>
#include <QStyleOptionMenuItem>

#include <algorithm>

namespace Velmora {

namespace {

constexpr int kMinimumWidth = 100;
constexpr int kMaximumWidth = 250;
constexpr int kItemHeight = 28;
constexpr int kSeparatorHeight = 8;
constexpr int kSeparatorMargin = 7;
constexpr int kTextSlack = 4; // room beside a label
constexpr int kArrowSize = 24;
constexpr int kPanelRadius = 3;
constexpr int kShadowWidth = 3;

// --- Texts ---

/// The font of all items. Every property counts as set, so that the font of a menu does not shine through.
QFont ItemFont()
{
    QFont font = TextStyleOf(QcLabel::Body)->font;
    SetResolveMask(font, QFont::AllPropertiesResolved);
    return font;
}

/// The texts of an item, which Qt hands over as one: the label, a tab, and the shortcut.
struct ItemText
{
    explicit ItemText(const QString &text)
        : whole(text)
        , tab(text.indexOf(QLatin1Char('\t')))
        , label(OneLine(BeforeTab(text)))
        , shortcut(tab < 0 ? QString() : OneLine(QStringView(text).mid(tab + 1)))
    {
    }

    bool IsOf(const QAction &action) const
    {
        const QString text = action.text();
        return (text.contains(QLatin1Char('\t')) ? BeforeTab(text) : QStringView(text)) == BeforeTab(whole);
    }

    /// What stands in \a text before the place where this one has its tab; all of it if this one has none.
    QStringView BeforeTab(QStringView text) const { return tab < 0 ? text : text.left(qMin<qsizetype>(tab, text.size())); }

    const QString whole;
    const QString::size_type tab;
    const QString label;
    const QString shortcut;
};

/// The first action of the menu \a widget that has the label, or null.
const QAction *FindAction(const QWidget *widget, const ItemText &text)
{
    const auto *menu = qobject_cast<const QMenu *>(widget);
    const QList<QAction *> actions = menu ? menu->actions() : QList<QAction *>();
    const auto found = std::find_if(actions.cbegin(), actions.cend(), [&](const QAction *action) { return text.IsOf(*action); });
    return found == actions.cend() ? nullptr : *found;
}

// --- Places ---

/// The widths of which an item consists, from its leading to its trailing edge.
struct ItemWidths
{
    ItemWidths(const ItemText &text, bool isSubMenu, bool hasIconColumn, const QFontMetrics &metrics)
        : iconWidth(hasIconColumn ? kMenuIconSize : 0)
        , iconSpacing(hasIconColumn ? -8 : 0)
        , textWidth(metrics.horizontalAdvance(ShownText(text.label)) + kTextSlack)
    {
        if (!text.shortcut.isEmpty()) {
            rightWidth = metrics.horizontalAdvance(text.shortcut);
            rightMargin = 24;
        } else if (isSubMenu) {
            rightWidth = kArrowSize;
            rightSpacing = 2;
            rightMargin = 16;
        }
    }

    int Sum() const { return LabelLeft() + textWidth + rightWidth + rightSpacing + rightMargin; }
    int LabelLeft() const { return iconWidth + leftMargin + iconSpacing; }

    int iconWidth;
    int leftMargin = 12;
    int iconSpacing;
    int textWidth;
    int rightWidth = 0;
    int rightSpacing = 8;
    int rightMargin = 0;
};

/// The part of an item that its menu shows inside of the outline. Qt makes items wider than a menu may be: it adds the width of the longest
/// shortcut to a width in which that is contained already.
QRect ShownPart(const QRect &item, const QWidget *menu)
{
    if (!menu || !menu->isVisible())
        return item;
    const QRect inside = menu->rect().adjusted(1, 1, -1, -1);
    return QRect(QPoint(std::max(item.left(), inside.left()), item.top()), QPoint(std::min(item.right(), inside.right()), item.bottom()));
}

/// A square of \a size pixels from \a left, in the middle of the height of \a item.
QRect SquareIn(const QRect &item, int left, int size)
{
    return QRect(left, item.top() + (item.height() - size) / 2, size, size);
}

// --- Painting ---

void PaintPanel(QPainter &painter, const QRect &rect)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect panel = QRectF(rect).adjusted(1, 1, -2.0 / 3.0, -2.0 / 3.0).toRect();
    ShadowParams shadow;
    shadow.margins = QMargins(kShadowWidth, kShadowWidth, kShadowWidth, kShadowWidth);
    shadow.radius = RadiusParams{kPanelRadius, kPanelRadius, kPanelRadius, kPanelRadius};
    shadow.maxOpacity = 0.1;
    DrawShadow(painter, panel, shadow);
    QPainterPath path;
    path.addRoundedRect(panel, kPanelRadius, kPanelRadius, Qt::AbsoluteSize);
    painter.fillPath(path, QBrush(TokenColor(QStringLiteral("bg/bg_float")), Qt::SolidPattern));
    SetBorderPen(painter, QStringLiteral("border/border_tertairy"));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path);
    painter.restore();
}

void PaintSeparator(QPainter &painter, const QRect &rect)
{
    painter.save();
    painter.setPen(TokenColor(QStringLiteral("border/border_tertairy")));
    const int y = rect.center().y();
    painter.drawLine(rect.left() + kSeparatorMargin, y, rect.right() - kSeparatorMargin, y);
    painter.restore();
}

void PaintItemBackground(QPainter &painter, const QRect &rect, QStyle::State state)
{
    if (state & QStyle::State_Sunken)
        painter.fillRect(rect, TokenColor(QStringLiteral("bg/bg_transluent_strong_press")));
    else if (state & QStyle::State_Selected)
        painter.fillRect(rect, TokenColor(QStringLiteral("bg/bg_transluent_subtle_hover")));
}

/// A picture of the kit's own, in one token.
ThemedPixmap Picture(const QPainter &painter, const QString &path, const QString &code, int size)
{
    ImageParams params;
    params.path = path;
    params.size = QSize(size, size);
    params.color = ColorParams(code);
    return PixmapFor(painter, params);
}

void PaintArrow(QPainter &painter, const QRect &place, Qt::LayoutDirection direction, const QString &code)
{
    ThemedPixmap arrow = Picture(painter, QStringLiteral(":/images/arrow_right.svg"), code, place.width());
    if (direction == Qt::RightToLeft)
        arrow.pixmap = arrow.pixmap.transformed(QTransform::fromScale(-1, 1));
    DrawPixmap(painter, place, arrow);
}

/// The strip at an end of a menu that is taller than the screen, where there is more. The panel lies under it, and no item.
void PaintScroller(QPainter &painter, const QStyleOption &option)
{
    const bool isDown = option.state & QStyle::State_DownArrow;
    const QString path = isDown ? QStringLiteral(":/images/arrow_down.svg") : QStringLiteral(":/images/arrow_up.svg");
    QRect place(0, 0, kArrowSize, kArrowSize);
    place.moveCenter(option.rect.center());
    DrawPixmap(painter, place, Picture(painter, path, QStringLiteral("icon/icon_ordinary"), kArrowSize));
}

// --- The style below ---

/// The name of the application's style, under a stylesheet and a host's proxies, which hold it as their child; empty if no style can be
/// made by it.
QString ApplicationStyleKey()
{
    const QStringList keys = QStyleFactory::keys();
    const QStyle *style = QApplication::style();
    while (style && !keys.contains(style->objectName(), Qt::CaseInsensitive))
        style = style->findChild<const QStyle *>(QString(), Qt::FindDirectChildrenOnly);
    return style ? style->objectName().toLower() : QString();
}

} // namespace

QcMenuStyle *QcMenuStyle::Shared()
{
    static auto *const styles = new QHash<QString, QcMenuStyle *>; // never deleted, nor are the styles: a menu may live as long
    const QString key = ApplicationStyleKey();
    QcMenuStyle *&style = (*styles)[key];
    if (!style)
        style = new QcMenuStyle(QStyleFactory::create(key)); // without a key QProxyStyle takes Qt's default
    return style;
}

QcMenuStyle::QcMenuStyle(QStyle *base)
    : QProxyStyle(base)
    , m_itemFont(ItemFont())
{
}

void QcMenuStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter, const QWidget *widget) const
{
    if (element == PE_PanelMenu)
        PaintPanel(*painter, option->rect);
    else if (element != PE_FrameMenu) // the panel has an outline
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void QcMenuStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter, const QWidget *widget) const
{
    if (element == CE_MenuScroller) {
        PaintScroller(*painter, *option);
        return;
    }
    if (element != CE_MenuItem) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    if (!item)
        return;
    if (item->menuItemType == QStyleOptionMenuItem::Separator)
        PaintSeparator(*painter, ShownPart(item->rect, widget));
    else
        PaintItem(*item, *painter, widget);
}

void QcMenuStyle::PaintItem(const QStyleOptionMenuItem &option, QPainter &painter, const QWidget *widget) const
{
    const QRect rect = ShownPart(option.rect, widget);
    const ItemText text(option.text);
    PaintItemBackground(painter, rect, option.state);
    const QAction *action = FindAction(widget, text);
    if (!action)
        return;

    painter.save();
    painter.setFont(m_itemFont);
    painter.setRenderHint(QPainter::SmoothPixmapTransform); // for images that are no SVG
    const QFontMetrics metrics = painter.fontMetrics();
    const bool isSubMenu = option.menuItemType == QStyleOptionMenuItem::SubMenu;
    const ItemWidths widths(text, isSubMenu, HasIcons(widget), metrics);
    const bool isEnabled = action->isEnabled() && (option.state & State_Enabled);
    const QString iconCode = isEnabled ? QStringLiteral("icon/icon_ordinary") : QStringLiteral("icon/icon_disabled");
    const auto mirrored = [&](const QRect &place) { return visualRect(option.direction, rect, place); };

    if (widths.iconWidth > 0) {
        const ImageParams icon = MenuIcon(option, *action, iconCode);
        if (!icon.path.isEmpty())
            DrawPixmap(painter, mirrored(SquareIn(rect, rect.left(), kMenuIconSize)), PixmapFor(painter, icon));
    }

    painter.setPen(TokenColor(isEnabled ? QStringLiteral("text/text_primary") : QStringLiteral("text/text_disabled")));
    const auto flagsFor = [&](Qt::Alignment alignment) { return int(visualAlignment(option.direction, alignment) | Qt::AlignAbsolute); };
    const int left = rect.left() + widths.LabelLeft();
    const int labelWidth = std::max(0, rect.right() - widths.rightMargin - widths.rightWidth - widths.rightSpacing - left);
    const bool labelFits = widths.textWidth - kTextSlack < labelWidth; // eliding would lay the text out once more
    // The application's style knows whether the user reaches for Alt; the one below has never been told.
    DrawMarked(painter, mirrored(QRect(left, rect.top(), labelWidth, rect.height())), flagsFor(Qt::AlignLeft | Qt::AlignVCenter),
               labelFits ? text.label : ElidedMarked(metrics, text.label, labelWidth), QApplication::style(), widget);

    const int rightEnd = rect.right() + 1 - widths.rightSpacing;
    if (!text.shortcut.isEmpty()) {
        const int width = std::min(widths.rightWidth, rightEnd - left);
        const bool fits = width == widths.rightWidth; // else it is wider than the menu; asked, eliding would take one that just fits
        painter.drawText(mirrored(QRect(rightEnd - width, rect.top(), width, rect.height())), flagsFor(Qt::AlignRight | Qt::AlignVCenter),
                         fits ? text.shortcut : metrics.elidedText(text.shortcut, Qt::ElideRight, width));
    } else if (isSubMenu) {
        PaintArrow(painter, mirrored(SquareIn(rect, rightEnd - widths.rightWidth, kArrowSize)), option.direction, iconCode);
    }
    painter.restore();
}

int QcMenuStyle::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    switch (metric) {
    case PM_MenuPanelWidth:
        return 1;
    case PM_SubMenuOverlap:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QSize QcMenuStyle::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size, const QWidget *widget) const
{
    if (type != CT_MenuItem)
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    if (item && item->menuItemType == QStyleOptionMenuItem::Separator)
        return QSize(kMinimumWidth, kSeparatorHeight);
    const ItemText text(item ? item->text : QString());
    const bool isSubMenu = item && item->menuItemType == QStyleOptionMenuItem::SubMenu;
    const ItemWidths widths(text, isSubMenu, HasIcons(widget), QFontMetrics(m_itemFont));
    return QSize(std::clamp(widths.Sum(), kMinimumWidth, kMaximumWidth), std::max(size.height(), kItemHeight));
}

int QcMenuStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget, QStyleHintReturn *returnData) const
{
    if (hint == SH_Menu_Scrollable)
        return 1; // else Qt would lay a tall menu out in columns, most of them beyond its greatest width
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

} // namespace Velmora
