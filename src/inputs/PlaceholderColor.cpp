#include "inputs/PlaceholderColor_p.h"

#include <Velmora/QcStyleManager.h>

#include "theme/TokenPainting_p.h"

#include <QEvent>
#include <QPalette>
#include <QWidget>

namespace Velmora {

namespace {

void ApplyPlaceholderToken(QWidget *edit)
{
    QPalette palette = edit->palette();
    palette.setBrush(QPalette::All, QPalette::PlaceholderText, QBrush(TokenColor(QStringLiteral("text/text_tertairy"))));
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
        if (event->type() == QEvent::PaletteChange)
            ApplyPlaceholderToken(static_cast<QWidget *>(watched)); // the same palette again is no change: no second event
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

void FollowPlaceholderToken(QWidget *edit)
{
    new PlaceholderKeeper(edit); // owned by the edit
    QcStyleManager::GetInstance()->RegisterColorHandler(edit, [edit] { ApplyPlaceholderToken(edit); });
}

} // namespace Velmora
