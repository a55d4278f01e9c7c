#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

namespace VelmoraTest {

/// What the upper colour of a pair is, and so how much it must stand out from what lies under it.
enum class Kind {
    Body,            ///< text that is read: 7 to 1
    Text,            ///< any other text: 4.5 to 1
    Graphic,         ///< a border, icon, handle or indicator that carries meaning: 3 to 1
    Line,            ///< around or between what stands apart without it: 2 to 1, as its token fills a disabled number field too
    DisabledText,    ///< 3 to 1, though nobody asks for it
    DisabledGraphic, ///< 2 to 1, likewise
};

/// A colour code on the colour codes that lie under it, the lowest first. "*" as the lowest is each surface in turn.
struct Pair
{
    QString control;
    QString where; ///< part and state, for the reader of a failure
    Kind kind;
    QString code;
    QStringList grounds;
    double coverage = 1.0; ///< what an antialiased line covers of its pixels: one centred on an edge half of each
};

/// Two codes that one part of a control has in two states. A user is to see the difference of the states, by this part or by another.
struct Change
{
    QString control;
    QString states;
    QString part;
    QString before;
    QString after;
    QStringList grounds;
    double coverage = 1.0;
};

struct Looks
{
    QVector<Pair> pairs;
    QVector<Change> changes;
};

/// What windows, panels, cards and floating layers are filled with: a control that has no ground of its own may lie on any.
QStringList Surfaces();

double LeastOf(Kind kind);

/// The kind of a text in \a code, by the rank that its token has.
Kind KindOfText(const QString &code, bool isEnabled);
/// Whether \a code paints anything.
bool Paints(const QString &code);

/// Of all buttons that keep their colours in state tables, read from the buttons themselves.
Looks ButtonLooks();
/// The classes of which ButtonLooks() tells.
QStringList ButtonClasses();
/// Of check box and radio button, read from the tables in the sources under \a sources.
Looks IndicatorLooks(const QString &sources);
/// Of the palette that plain widgets of Qt have, read from its table in the sources under \a sources.
Looks PaletteLooks(const QString &sources);
/// Of one stylesheet, and of all in the library. What a rule for a state does not say it has from the rule at rest.
Looks LooksOfSheet(const QString &text);
Looks SheetLooks();

/// What the classes paint by hand, and what hosts are told to do with the tokens: a list, to be written as the painting is.
Looks PaintedLooks();
/// The files with which the rows of PaintedLooks() begin, and of each the codes that its rows name.
QMap<QString, QStringList> PaintedCodes();

/// All of the above.
Looks AllLooks(const QString &sources);

} // namespace VelmoraTest
