#include "inputs/PlaceholderColor_p.h"

#include <Velmora/QcStyleManager.h>

#include "theme/StyleSheetAlone_p.h"
#include "theme/TokenPainting_p.h"

#include <QEvent>
#include <QPalette>
#include <QWidget>

#include <algorithm>
#include <iterator>

namespace Velmora {

namespace {

constexpr QPalette::ColorGroup kGroups[] = {QPalette::Active, QPalette::Disabled, QPalette::Inactive};

void ApplyPlaceholderToken(QWidget *edit)
{
    const QBrush token(TokenColor(QStringLiteral("text/text_tertairy")));
    QPalette palette = edit->palette();
    const bool isSet = std::all_of(std::begin(kGroups), std::end(kGroups),
                                   [&](QPalette::ColorGroup group) { return palette.brush(group, QPalette::PlaceholderText) == token; });
    if (isSet) // which Qt would find out at the end of a long way
        return;
    palette.setBrush(QPalette::All, QPalette::PlaceholderText, token);
    edit->setPalette(palette);
}

/// Puts the token back whenever something else sets the palette. A stylesheet that names a text colour does, each time that it
/// polishes the widget: with the first show, in a new parent, after a change of the application's stylesheet.
class PlaceholderKeeper : public QObject
{
public:
    explicit PlaceholderKeeper(QWidget *edit)
        : QObject(edit)
    {
        edit->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::PaletteChange && !m_isWaiting) {
            auto *edit = static_cast<QWidget *>(watched);
            const auto apply = [this, edit] {
                m_isWaiting = false;
                ApplyPlaceholderToken(edit);
            };
            m_isWaiting = CallWhenStyled(this, apply);
            if (!m_isWaiting)
                apply();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    bool m_isWaiting = false; // for the end of a pass in which Qt sets the palette several times
};

} // namespace

void FollowPlaceholderToken(QWidget *edit)
{
    new PlaceholderKeeper(edit); // owned by the edit
    QcStyleManager::GetInstance()->RegisterColorHandler(edit, [edit] { ApplyPlaceholderToken(edit); });
}

} // namespace Velmora
