#include "buttons/ButtonTables_p.h"

#include <Velmora/QcButton.h>

namespace Velmora {

namespace {

/// Calls \a enter(state, code) for each entry of \a tokens.
template <typename Enter>
void ForEachEntry(const StateTokens &tokens, const Enter &enter)
{
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (tokens[i])
            enter(QStyle::State(ButtonState::kAll[i]), tokens[i]);
    }
}

ImageParams TintedIcon(const char *code, const char *path, const QSize &size)
{
    ImageParams icon;
    icon.path = QString::fromLatin1(path);
    icon.size = size;
    icon.color = ColorParams(code);
    return icon;
}

} // namespace

CodeTable CodesOf(const StateTokens &tokens)
{
    CodeTable table;
    ForEachEntry(tokens, [&table](QStyle::State state, const char *code) { table[state] = QString::fromLatin1(code); });
    return table;
}

IconTable IconsOf(const StateTokens &tokens, const char *path, const QSize &size)
{
    IconTable table;
    ForEachEntry(tokens, [&](QStyle::State state, const char *code) { table[state] = TintedIcon(code, path, size); });
    return table;
}

const CodeTable &ToolBackgrounds()
{
    static const CodeTable table = CodesOf(kToolBackground);
    return table;
}

const IconTable &ToolIcons()
{
    static const IconTable table = IconsOf(kToolIcon);
    return table;
}

FilledTables::FilledTables(const ButtonTables &tables)
    : background(CodesOf(tables.background))
    , border(CodesOf(tables.border))
    , text(CodesOf(tables.text))
    , icon(IconsOf(tables.icon))
{
}

void InstallTables(QcButton &button, const FilledTables &tables)
{
    Enter(button.m_backgroundColorParams, tables.background);
    Enter(button.m_borderColorParams, tables.border);
    Enter(button.m_textColorParams, tables.text);
    Enter(button.m_iconParams, tables.icon);
    button.updateGeometry();
    button.update();
}

} // namespace Velmora
