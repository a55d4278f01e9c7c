#include "buttons/ButtonTables_p.h"

#include <Velmora/QcButton.h>

namespace Velmora {

ImageParams TintedIcon(const char *code, const char *path, const QSize &size)
{
    ImageParams icon;
    icon.path = QString::fromLatin1(path);
    icon.size = size;
    icon.color = ColorParams(code);
    return icon;
}

void EnterCodes(QHash<QStyle::State, QString> &table, const StateTokens &tokens)
{
    ForEachEntry(tokens, [&table](QStyle::State state, const char *code) { table[state] = QString::fromLatin1(code); });
}

void EnterIcons(QHash<QStyle::State, ImageParams> &table, const StateTokens &tokens, const char *path, const QSize &size)
{
    ForEachEntry(tokens, [&](QStyle::State state, const char *code) { table[state] = TintedIcon(code, path, size); });
}

void InstallTables(QcButton &button, const ButtonTables &tables)
{
    const auto codes = [&button](auto setter) {
        return [&button, setter](QStyle::State state, const char *code) { (button.*setter)(state, QString::fromLatin1(code)); };
    };
    ForEachEntry(tables.background, codes(&QcButton::SetBackgroundColorParams));
    ForEachEntry(tables.border, codes(&QcButton::SetBorderColorParams));
    ForEachEntry(tables.text, codes(&QcButton::SetTextColorParams));
    ForEachEntry(tables.icon, [&button](QStyle::State state, const char *code) { button.SetIconParam(state, TintedIcon(code)); });
}

} // namespace Velmora
