#include <Velmora/QcLabel.h>
#include <Velmora/QcStyleManager.h>

#include "display/TextStyles_p.h"
#include "theme/TokenPainting_p.h"

#include <QPainter>

namespace Velmora {

QcLabel::QcLabel(QWidget *parent)
    : QLabel(parent, Qt::WindowFlags())
{
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
    QLabel::setText(text);
    if (text.isEmpty())
        UpdateIcon();
    updateGeometry();
}

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

QPixmap QcLabel::IconPixmap() const
{
    ImageParams params;
    params.path = m_iconPath;
    params.size = size();
    params.color = ColorParams(m_iconColorParams);
    return QcStyleManager::GetInstance()->GetPixmap(params);
}

void QcLabel::UpdateIcon()
{
    if (m_iconPath.isEmpty() || m_iconColorParams.isEmpty())
        return;
    // A label has either content: setting a pixmap would empty the text.
    if (QLabel::text().isEmpty())
        setPixmap(IconPixmap());
}

void QcLabel::resizeEvent(QResizeEvent * /*event*/)
{
    UpdateIcon();
}

void QcLabel::paintEvent(QPaintEvent *event)
{
    if (QLabel::text().isEmpty()) {
        // The text may have gone through the base class (clear(), a pointer to QLabel), which knows nothing of the icon.
        if (pixmap(Qt::ReturnByValue).isNull() && !m_iconColorParams.isEmpty() && !IconPixmap().isNull())
            UpdateIcon();
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setLayoutDirection(layoutDirection()); // a painter begins with the application's
    painter.setPen(TokenColor(isEnabled() ? m_textColorParams : QStringLiteral("text/text_disabled")));
    const QString elided = painter.fontMetrics().elidedText(QLabel::text(), Qt::ElideRight, width(), 0);
    painter.drawText(rect(), int(alignment()), elided);
}

} // namespace Velmora
