#pragma once

#include <QString>

namespace Velmora {

/// A text of ours that a host may replace by its own: put in when a form is made, and again in another language for as long as the host
/// has left it alone.
class OwnText
{
public:
    /// Puts \a text into \a widget, which holds one that \a read reads and \a write writes.
    template <typename Widget>
    void PutInto(Widget &widget, QString (Widget::*read)() const, void (Widget::*write)(const QString &), const QString &text)
    {
        if (m_isGiven && (widget.*read)() != m_text)
            return;
        m_isGiven = true;
        m_text = text;
        (widget.*write)(text);
    }

private:
    QString m_text;
    bool m_isGiven = false;
};

} // namespace Velmora
