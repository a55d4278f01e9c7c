#pragma once

#include <QFontMetrics>
#include <QString>

#include <optional>

namespace Velmora {

/// How wide a text is, measured anew only for another text or font: shaping it costs as much as to draw it.
class TextWidth
{
public:
    int Of(const QString &text, const QFontMetrics &metrics)
    {
        if (m_metrics != metrics || m_text != text) {
            m_metrics = metrics;
            m_text = text;
            m_width = metrics.horizontalAdvance(text);
        }
        return m_width;
    }

private:
    std::optional<QFontMetrics> m_metrics;
    QString m_text;
    int m_width = 0;
};

} // namespace Velmora
