#include "inputs/PlaceholderColor_p.h"

#include <Velmora/QcStyleManager.h>

#include "core/QtCompatibility_p.h"
#include "theme/StyleSheetAlone_p.h"
#include "theme/TokenPainting_p.h"

#include <QEvent>
#include <QPalette>
#include <QWidget>

namespace Velmora {

namespace {

constexpr QPalette::ColorGroup kGroups[] = {QPalette::Active, QPalette::Disabled, QPalette::Inactive};

/// What the placeholder is to be in a group of a palette.
using BrushOf = QBrush (*)(const QPalette &palette, QPalette::ColorGroup group);

void Apply(QWidget *edit, BrushOf brushOf)
{
    QPalette palette = edit->palette();
    bool isSet = true;
    for (const QPalette::ColorGroup group : kGroups) {
        const QBrush brush = brushOf(palette, group);
        isSet = isSet && palette.brush(group, QPalette::PlaceholderText) == brush;
        palette.setBrush(group, QPalette::PlaceholderText, brush);
    }
    if (!isSet) // or Qt would find out at the end of a long way
        edit->setPalette(palette);
}

QBrush TokenBrush(const QPalette & /*palette*/, QPalette::ColorGroup /*group*/)
{
    return TokenColor(QStringLiteral("text/text_tertairy"));
}

/// The colour of text, if the placeholder has that faded.
QBrush UnfadedBrush(const QPalette &palette, QPalette::ColorGroup group)
{
    const QBrush text = palette.brush(group, QPalette::Text);
    const QBrush placeholder = palette.brush(group, QPalette::PlaceholderText);
    QColor faded = text.color();
    faded.setAlpha((faded.alpha() + 1) / 2);
    return placeholder.color() == faded ? text : placeholder;
}

/// Puts the colour back whenever something else sets the palette. A stylesheet that names a text colour does, each time that it
/// polishes the widget: with the first show, in a new parent, after a change of the application's stylesheet.
class PlaceholderKeeper : public QObject
{
public:
    PlaceholderKeeper(QWidget *edit, BrushOf brushOf)
        : QObject(edit)
        , m_brushOf(brushOf)
    {
        edit->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::PaletteChange && !m_isWaiting) {
            auto *edit = static_cast<QWidget *>(watched);
            const auto apply = [this, edit] {
                m_isWaiting = false;
                Apply(edit, m_brushOf);
            };
            m_isWaiting = CallWhenStyled(this, apply);
            if (!m_isWaiting)
                apply();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    BrushOf m_brushOf;
    bool m_isWaiting = false; // for the end of a pass in which Qt sets the palette several times
};

} // namespace

void FollowPlaceholderToken(QWidget *edit)
{
    new PlaceholderKeeper(edit, TokenBrush); // owned by the edit
    QcStyleManager::GetInstance()->RegisterColorHandler(edit, [edit] { Apply(edit, TokenBrush); });
}

void KeepPlaceholderUnfaded(QWidget *edit)
{
    if (kSheetsFadePlaceholders)
        new PlaceholderKeeper(edit, UnfadedBrush); // owned by the edit
}

} // namespace Velmora
