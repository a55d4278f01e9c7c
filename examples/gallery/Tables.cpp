#include "Tables.h"

#include <Velmora/FileAndDesktop.h>
#include <Velmora/QcStyleManager.h>

#include <QApplication>
#include <QHash>
#include <QPalette>
#include <QSettings>

#include <algorithm>

namespace Gallery {

QStringList TokensOf(const QString &path)
{
    QStringList tokens = QSettings(path, QSettings::IniFormat).allKeys();
    // QSettings sorts by name; the file's own order says more: ranks and states stand as they are meant.
    const QStringList lines = Velmora::GetFileContent(path).split(QLatin1Char('\n'));
    QHash<QString, int> places;
    for (int i = 0; i < lines.size(); ++i)
        places.insert(lines.at(i).section(QLatin1Char('='), 0, 0).trimmed(), i);
    std::stable_sort(tokens.begin(), tokens.end(),
                     [&places](const QString &a, const QString &b) { return places.value(a) < places.value(b); });
    return tokens;
}

QColor TokenColor(const QString &token)
{
    return Velmora::QcStyleManager::GetInstance()->GetColor(token);
}

QString ColorText(const QColor &color)
{
    if (!color.isValid())
        return QStringLiteral("invalid");
    const QString rgb = color.name(QColor::HexRgb).toUpper();
    return color.alpha() == 255 ? rgb : QStringLiteral("%1, %2").arg(rgb, QString::number(color.alphaF(), 'g', 2));
}

void ApplyPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Window, TokenColor(QStringLiteral("bg/bg_bottom")));
    palette.setColor(QPalette::Base, TokenColor(QStringLiteral("bg/bg_box")));
    palette.setColor(QPalette::Button, TokenColor(QStringLiteral("bg/bg_float")));
    palette.setColor(QPalette::Highlight, TokenColor(QStringLiteral("brand/brand")));
    palette.setColor(QPalette::HighlightedText, TokenColor(QStringLiteral("text/text_button")));
    palette.setColor(QPalette::PlaceholderText, TokenColor(QStringLiteral("text/text_tertairy")));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, TokenColor(QStringLiteral("text/text_primary")));
        palette.setColor(QPalette::Disabled, role, TokenColor(QStringLiteral("text/text_disabled")));
    }
    QApplication::setPalette(palette);
}

} // namespace Gallery
