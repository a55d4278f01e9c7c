#include "theme/PlainDrawings_p.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QGroupBox>
#include <QImage>
#include <QListView>
#include <QMenu>
#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <QStyleFactory>
#include <QStyleOption>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

namespace Velmora {

namespace {

constexpr int kIconSize = 16;

/// As the style Fusion does it.
QColor OutlineColor(const QPalette &palette)
{
    constexpr int kDarker = 140; // percent
    return palette.color(QPalette::Window).darker(kDarker);
}

/// What \a widget itself, which has just painted, paints in \a rect. Where it paints to is forgotten by that: a painter that is needed
/// is made before.
QImage Painted(QWidget &widget, const QRect &rect)
{
    QImage image(rect.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    widget.setAttribute(Qt::WA_WState_InPaintEvent, false); // or Qt takes it for a recursion
    widget.render(&image, QPoint(), rect, QWidget::RenderFlags());
    widget.setAttribute(Qt::WA_WState_InPaintEvent, true);
    return image;
}

/// Whether \a line is what Fusion makes of \a ground: a translucent black on it.
bool IsFusionsLine(QRgb line, QRgb ground)
{
    constexpr int kLeft = 255 - 60;
    const auto isDarkened = [](int dark, int light) { return qAbs(dark - light * kLeft / 255) <= 1; };
    return line != ground && isDarkened(qRed(line), qRed(ground)) && isDarkened(qGreen(line), qGreen(ground))
        && isDarkened(qBlue(line), qBlue(ground));
}

/// The line in the lower row of \a rows, or nothing. A section has its title beside it.
QRect FusionsLine(const QImage &rows, bool endsLeft)
{
    const auto isLine = [&rows](int x) { return IsFusionsLine(rows.pixel(x, 1), rows.pixel(x, 0)); };
    const int step = endsLeft ? 1 : -1;
    int end = endsLeft ? 0 : rows.width() - 1;
    while (rows.rect().contains(end, 1) && !isLine(end))
        end += step;
    int begin = end;
    while (rows.rect().contains(begin, 1) && isLine(begin))
        begin += step;
    return begin == end ? QRect() : QRect(qMin(end, begin - step), 1, qAbs(begin - end), 1);
}

bool HasPictureOf(const QIcon &icon, const QWidget &widget, QStyle::StandardPixmap standard)
{
    return icon.pixmap(kIconSize).toImage() == widget.style()->standardIcon(standard, nullptr, &widget).pixmap(kIconSize).toImage();
}

QIcon Tinted(const QIcon &icon, const QColor &color)
{
    QPixmap pixmap = icon.pixmap(kIconSize);
    QPainter painter(&pixmap);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRect(QPoint(), pixmap.size()), color);
    painter.end();
    return QIcon(pixmap);
}

/// Whether two pictures of one size are the same but for roundings: Qt 6 stretches a picture a little otherwise in another place.
bool IsAbout(const QImage &one, const QImage &other)
{
    const auto isNear = [](int a, int b) { return qAbs(a - b) <= 2; };
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            if (!isNear(qAlpha(a), qAlpha(b)) || !isNear(qRed(a), qRed(b)) || !isNear(qGreen(a), qGreen(b)) || !isNear(qBlue(a), qBlue(b)))
                return false;
        }
    }
    return true;
}

QStyleOptionGroupBox OptionOf(const QGroupBox &group)
{
    QStyleOptionGroupBox option;
    option.initFrom(&group);
    option.text = group.title();
    option.textAlignment = group.alignment();
    option.lineWidth = 1;
    option.features = group.isFlat() ? QStyleOptionFrame::Flat : QStyleOptionFrame::None;
    option.subControls = QStyle::SC_GroupBoxFrame;
    if (!group.title().isEmpty())
        option.subControls |= QStyle::SC_GroupBoxLabel;
    if (group.isCheckable())
        option.subControls |= QStyle::SC_GroupBoxCheckBox;
    return option;
}

/// What \a fusion paints in \a part for the outline in \a frame.
QImage FusionsFrame(const QStyle &fusion, const QGroupBox &group, const QStyleOptionGroupBox &option, const QRect &frame, const QRect &part)
{
    QStyleOptionFrame outline;
    outline.QStyleOption::operator=(option);
    outline.features = option.features;
    outline.lineWidth = option.lineWidth;
    outline.rect = frame.translated(-part.topLeft());
    QImage image(part.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    fusion.drawPrimitive(QStyle::PE_FrameGroupBox, &outline, &painter, &group);
    return image;
}

} // namespace

PlainDrawings::PlainDrawings()
    : m_fusion(QStyleFactory::create(QStringLiteral("Fusion")))
{
}

PlainDrawings::~PlainDrawings()
{
    for (const Arrows &arrows : qAsConst(m_arrows)) {
        if (arrows.button && arrows.button->icon().cacheKey() == arrows.given.cacheKey())
            arrows.button->setIcon(arrows.own);
    }
}

void PlainDrawings::Mend(QWidget &widget)
{
    const bool isOfComboBox = widget.parentWidget() && widget.parentWidget()->inherits("QComboBoxListView");
    if (qobject_cast<QMenu *>(&widget) || qobject_cast<QGroupBox *>(&widget) || isOfComboBox || widget.inherits("QToolBarExtension")
        || widget.inherits("QToolBarSeparator"))
        widget.installEventFilter(this);
}

bool PlainDrawings::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Paint || watched == m_painted)
        return false;
    if (auto *button = qobject_cast<QToolButton *>(watched)) {
        MendArrows(*button);
        return false;
    }
    const QPointer<PlainDrawings> self(this);
    const QPointer<QObject> widget(watched);
    const QObject *outer = m_painted;
    m_painted = watched;
    QCoreApplication::sendEvent(watched, event);
    if (!self)
        return true;
    if (auto *menu = qobject_cast<QMenu *>(widget.data()))
        PaintSeparators(*menu);
    else if (auto *group = qobject_cast<QGroupBox *>(widget.data()))
        PaintOutline(*group);
    else if (auto *list = widget ? qobject_cast<QListView *>(widget->parent()) : nullptr)
        PaintSeparators(*list);
    else if (widget)
        PaintSeparator(*static_cast<QWidget *>(widget.data()));
    m_painted = outer;
    return true;
}

/// Qt sets the icon again when the tool bar turns.
void PlainDrawings::MendArrows(QToolButton &button)
{
    m_arrows.erase(std::remove_if(m_arrows.begin(), m_arrows.end(), [](const Arrows &one) { return !one.button; }), m_arrows.end());
    auto known = std::find_if(m_arrows.begin(), m_arrows.end(), [&button](const Arrows &one) { return one.button == &button; });
    if (known == m_arrows.end())
        known = m_arrows.insert(m_arrows.end(), Arrows{&button, QIcon(), QIcon(), QColor()});
    const QIcon icon = button.icon();
    const QColor color = button.palette().color(QPalette::ButtonText);
    const bool isOurs = !known->given.isNull() && icon.cacheKey() == known->given.cacheKey();
    if (isOurs && color == known->color)
        return;
    if (!isOurs && !HasPictureOf(icon, button, QStyle::SP_ToolBarHorizontalExtensionButton)
        && !HasPictureOf(icon, button, QStyle::SP_ToolBarVerticalExtensionButton))
        return;
    if (!isOurs)
        known->own = icon;
    known->color = color;
    known->given = Tinted(known->own, color);
    button.setIcon(known->given);
}

void PlainDrawings::PaintSeparators(QMenu &menu) const
{
    QPainter painter(&menu);
    const QList<QAction *> actions = menu.actions();
    for (const QAction *action : actions) {
        const QRect item = action->isSeparator() && action->isVisible() ? menu.actionGeometry(const_cast<QAction *>(action)) : QRect();
        if (item.height() < 2)
            continue;
        const QRect rows(item.left(), item.center().y() - 1, item.width(), 2);
        const QRect line = FusionsLine(Painted(menu, rows), menu.isRightToLeft());
        if (!line.isEmpty())
            painter.fillRect(line.translated(rows.topLeft()), OutlineColor(menu.palette()));
    }
}

/// Of a combo box, which shows them as a menu or, with a line to edit, as a tool bar does.
void PlainDrawings::PaintSeparators(QListView &list) const
{
    QWidget &viewport = *list.viewport();
    QPainter painter(&viewport);
    for (QModelIndex index = list.indexAt(QPoint()); index.isValid(); index = index.sibling(index.row() + 1, index.column())) {
        const QRect row(0, list.visualRect(index).top(), viewport.width(), list.visualRect(index).height());
        if (row.top() >= viewport.height())
            return;
        const bool isSeparator = index.data(Qt::AccessibleDescriptionRole).toString() == QLatin1String("separator"); // as Qt marks it
        if (!isSeparator || row.isEmpty())
            continue;
        const QImage painted = Painted(viewport, row);
        QStyleOption option;
        option.rect = painted.rect();
        const bool isBar = IsFusionsSeparator(painted, option);
        const int y = isBar ? row.height() / 2 : painted.rect().center().y();
        const QRgb line = painted.pixel(row.width() / 2, y);
        if (!isBar && !IsFusionsLine(line, painted.pixel(0, y)))
            continue;
        int margin = 0;
        while (painted.pixel(margin, y) != line)
            ++margin;
        painter.fillRect(QRect(margin, row.top() + y, row.width() - 2 * margin, 1), OutlineColor(QApplication::palette("QMenu")));
    }
}

/// Of a tool bar.
void PlainDrawings::PaintSeparator(QWidget &separator) const
{
    QStyleOption option;
    option.initFrom(&separator);
    const auto *bar = qobject_cast<QToolBar *>(separator.parentWidget());
    const bool isUpright = bar && bar->orientation() == Qt::Horizontal;
    if (isUpright)
        option.state |= QStyle::State_Horizontal;
    QPainter painter(&separator);
    if (!IsFusionsSeparator(Painted(separator, separator.rect()), option))
        return;
    constexpr int kMargin = 6; // of Fusion's line
    const QRect all = separator.rect();
    const QRect line = isUpright ? QRect(all.width() / 2, kMargin, 1, all.height() - 2 * kMargin)
                                 : QRect(kMargin, all.height() / 2, all.width() - 2 * kMargin, 1);
    painter.fillRect(line, OutlineColor(QApplication::palette("QToolButton")));
}

/// Whether \a painted is what Fusion paints between the buttons of a tool bar by \a option.
bool PlainDrawings::IsFusionsSeparator(const QImage &painted, const QStyleOption &option) const
{
    QImage fusions(painted.size(), QImage::Format_ARGB32_Premultiplied);
    fusions.fill(Qt::transparent);
    QPainter painter(&fusions);
    m_fusion->drawPrimitive(QStyle::PE_IndicatorToolBarSeparator, &option, &painter);
    painter.end();
    bool isAny = false;
    for (int y = 0; y < fusions.height(); ++y) {
        for (int x = 0; x < fusions.width(); ++x) {
            const QRgb pixel = fusions.pixel(x, y);
            if (qAlpha(pixel) == 0)
                continue;
            if (painted.pixel(x, y) != pixel)
                return false;
            isAny = true;
        }
    }
    return isAny;
}

void PlainDrawings::PaintOutline(QGroupBox &group) const
{
    const QStyleOptionGroupBox option = OptionOf(group);
    constexpr int kRounded = 6; // of Fusion's picture
    const QRect all = group.style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxFrame, &group);
    const QImage column = FusionsFrame(*m_fusion, group, option, all, QRect(all.center().x(), all.top(), 1, all.height()));
    int top = 0;
    while (top < column.height() && qAlpha(column.pixel(0, top)) == 0)
        ++top;
    const QRect frame = all.adjusted(0, top, 0, 0); // below the title
    if (frame.width() < 2 * kRounded || frame.height() < 2 * kRounded)
        return;

    const QRect probe(frame.left(), frame.center().y(), kRounded, 1);
    QPainter painter(&group);
    if (!IsAbout(Painted(group, probe), FusionsFrame(*m_fusion, group, option, all, probe)))
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(OutlineColor(group.palette()));
    painter.drawRoundedRect(QRectF(frame).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
}

} // namespace Velmora
