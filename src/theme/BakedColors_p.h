#pragma once

#include <QBrush>
#include <QColor>

QT_BEGIN_NAMESPACE
class QPalette;
class QTextDocument;
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

/// Colours that Qt takes from the application's palette once, or makes up, and keeps: of links in a label, of the ground of an MDI area,
/// of the weekend in a calendar.
struct BakedColors
{
    QColor link;
    QBrush ground;
    QColor weekend;
};

/// Those that Qt has with \a palette.
BakedColors QtsBakedColors(const QPalette &palette);
/// Those of the table, with \a palette of it.
BakedColors TablesBakedColors(const QPalette &palette);

/// Those of plain widgets that are of \a before become those of \a after.
void ReplaceBakedColors(const BakedColors &before, const BakedColors &after);
/// Those of one widget.
void ReplaceBakedColors(QWidget &widget, const BakedColors &before, const BakedColors &after);

/// \a color as a screen shows it, yet unlike what anybody would write: what Qt has taken from a palette can be told by it from a host's
/// own.
QColor Marked(const QColor &color);

/// Links of a control of the kit, just set, that have the table's colour from the palette get that of the palette without the table.
void KeepOwnLinks(QTextDocument &document);

} // namespace Velmora
