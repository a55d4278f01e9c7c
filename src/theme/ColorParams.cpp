#include <Velmora/ColorParams.h>

#include <QStringView>
#include <QVector>

namespace Velmora {

ColorParams::ColorParams(const QString &text)
{
    if (text.isEmpty())
        return;

    QStringView parts = QStringView(text).trimmed();
    // The slice is taken from the text as given: blanks around a wrapped code shift it, and callers rely on that.
    if (parts.startsWith(QLatin1String("${")) && parts.endsWith(QLatin1Char('}')))
        parts = QStringView(text).mid(2, text.size() - 3);

    const auto comma = parts.indexOf(QLatin1Char(','));
    const QStringView name = parts.left(comma < 0 ? parts.size() : comma).trimmed();
    // Controls parse a code at every paint, mostly a bare token: sharing its text allocates nothing.
    code = name.size() == text.size() ? text : name.toString();
    const bool exactlyTwo = comma >= 0 && parts.indexOf(QLatin1Char(','), comma + 1) < 0;
    if (!exactlyTwo)
        return;
    bool isNumber = false;
    const double value = parts.mid(comma + 1).trimmed().toString().toDouble(&isNumber);
    if (isNumber)
        alpha = value;
}

ColorParams::ColorParams(const char *const text)
    : ColorParams(QString::fromLatin1(text))
{
}

} // namespace Velmora
