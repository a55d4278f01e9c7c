#include "controls/ButtonTables_p.h"

#include "controls/ButtonState_p.h"

#include <Velmora/ImageParams.h>
#include <Velmora/QcButton.h>

namespace Velmora {

void InstallTables(QcButton &button, const ButtonTables &tables)
{
    for (std::size_t i = 0; i < ButtonState::kAll.size(); ++i) {
        const QStyle::State state(ButtonState::kAll[i]);
        if (tables.background[i])
            button.SetBackgroundColorParams(state, QString::fromLatin1(tables.background[i]));
        if (tables.border[i])
            button.SetBorderColorParams(state, QString::fromLatin1(tables.border[i]));
        if (tables.text[i])
            button.SetTextColorParams(state, QString::fromLatin1(tables.text[i]));
        if (tables.icon[i]) {
            ImageParams icon;
            icon.color = ColorParams(tables.icon[i]);
            button.SetIconParam(state, icon);
        }
    }
}

} // namespace Velmora
