#include <Velmora/QcLabel.h>
#include <Velmora/QcStyleManager.h>

#include "core/InstallAccessible_p.h"
#include "display/LabelAccessible_p.h"
#include "display/TextStyles_p.h"
#include "theme/Mnemonics_p.h"
#include "theme/ThemedPixmap_p.h"
#include "theme/TokenPainting_p.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QtMath>

namespace Velmora {

QcLabel::QcLabel(QWidget *parent)
    : QLabel(parent, Qt::WindowFlags())
{
    InstallAccessible<LabelAccessible, QcLabel>();
    QcStyleManager::GetInstance()->RegisterColorHandler(this, [this] {
        UpdateIcon();
        update();
    });
}

void QcLabel::setType(LabelType type)
{
    m_type = type;
    QFont font;
    if (const std::optional<TextStyle> style = TextStyleOf(type)) {
        m_textColorParams = style->colorCode;
        font = style->font;
    }
    setFont(font);
    update();
}

void QcLabel::setText(const QString &text)
{
    if (text != QLabel::text())
        m_markedText.clear();
    QLabel::setText(text);
    if (text.isEmpty())
        UpdateIcon();
    updateGeometry();
}

// --- Size ---

QSize QcLabel::sizeHint() const
{
    return QLabel::text().isEmpty() ? QLabel::sizeHint() : TextSize();
}

QSize QcLabel::minimumSizeHint() const
{
    return QLabel::text().isEmpty() ? QLabel::minimumSizeHint() : TextSize();
}

int QcLabel::heightForWidth(int width) const
{
    return QLabel::text().isEmpty() ? QLabel::heightForWidth(width) : TextSize().height();
}

/// As in any QLabel, an & marks a letter only for a buddy's sake, and then for as long as the text stays.
bool QcLabel::MarksKeys() const
{
    if (buddy())
        m_markedText = QLabel::text();
    return buddy() || m_markedText == QLabel::text();
}

/// The room that the text takes uncut.
QSize QcLabel::TextSize() const
{
    ensurePolished();
    const QFontMetricsF metrics(font(), this);
    const QString text = MarksKeys() ? ShownText(QLabel::text()) : QLabel::text();
    // Eliding takes all lines for one, and cuts what is wider by a fraction of a pixel.
    const qreal run = metrics.horizontalAdvance(text);
    const QSizeF lines = metrics.size(0, text);
    return QSize(qCeil(qMax(run, lines.width())), qCeil(lines.height())).expandedTo(minimumSize());
}

// --- Icon ---

void QcLabel::SetIconPath(const QString &path)
{
    m_iconPath = path;
    UpdateIcon();
}

void QcLabel::SetIconColorParams(const QString &code)
{
    m_iconColorParams = code;
    UpdateIcon();
}

ImageParams QcLabel::IconParams() const
{
    ImageParams params;
    params.path = m_iconPath;
    params.size = size();
    params.color = ColorParams(m_iconColorParams);
    return params;
}

void QcLabel::UpdateIcon()
{
    if (m_iconPath.isEmpty() || m_iconColorParams.isEmpty())
        return;
    // A label has either content: setting a pixmap would empty the text.
    if (!QLabel::text().isEmpty())
        return;
    const QPixmap icon = QcStyleManager::GetInstance()->GetPixmap(IconParams());
    m_shownIcon = icon.cacheKey();
    setPixmap(icon);
}

// --- Painting ---

void QcLabel::resizeEvent(QResizeEvent * /*event*/)
{
    UpdateIcon();
}

void QcLabel::paintEvent(QPaintEvent *event)
{
    if (QLabel::text().isEmpty()) {
        // The text may have gone through the base class (clear(), a pointer to QLabel), which knows nothing of the icon.
        if (pixmap(Qt::ReturnByValue).isNull() && !m_iconColorParams.isEmpty()
            && !QcStyleManager::GetInstance()->GetPixmap(IconParams()).isNull())
            UpdateIcon();
        if (ShowsIcon())
            PaintIcon();
        else
            QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setLayoutDirection(layoutDirection()); // a painter begins with the application's
    painter.setPen(TokenColor(isEnabled() ? m_textColorParams : QStringLiteral("text/text_disabled")));
    const QString text = QLabel::text();
    if (MarksKeys())
        DrawMarked(painter, rect(), int(alignment()), ElidedMarked(painter.fontMetrics(), text, width()), style(), this);
    else
        painter.drawText(rect(), int(alignment()), painter.fontMetrics().elidedText(text, Qt::ElideRight, width(), 0));
}

/// True while QLabel would paint our icon as it is: not one that keeps a colour which was taken away, not a picture that the host has
/// set since, and not at another size.
bool QcLabel::ShowsIcon() const
{
    const QPixmap shown = pixmap(Qt::ReturnByValue);
    return !shown.isNull() && !m_iconColorParams.isEmpty() && shown.cacheKey() == m_shownIcon
        && (!hasScaledContents() || ContentsPlace() == rect());
}

QRect QcLabel::ContentsPlace() const
{
    return contentsRect().adjusted(margin(), margin(), -margin(), -margin());
}

/// What QLabel paints of a pixmap, in the pixels of the device.
void QcLabel::PaintIcon()
{
    QPainter painter(this);
    drawFrame(&painter);
    ThemedPixmap icon = PixmapFor(painter, IconParams(), pixmap(Qt::ReturnByValue));
    if (!isEnabled()) {
        QStyleOption option;
        option.initFrom(this);
        icon.pixmap = style()->generatedIconPixmap(QIcon::Disabled, icon.pixmap, &option);
    }
    const QRect contents = ContentsPlace();
    const Qt::Alignment alignment = QStyle::visualAlignment(layoutDirection(), this->alignment());
    const QRect place = QStyle::alignedRect(QGuiApplication::layoutDirection(), alignment, icon.size, contents);
    if (!contents.contains(place))
        painter.setClipRect(contents);
    DrawPixmap(painter, place, icon);
}

} // namespace Velmora
