#include "contrast/Pairs.h"
#include "contrast/Sources.h"

#include <QRegularExpression>

namespace VelmoraTest {

namespace {

/// What a palette has for a role while enabled and disabled.
struct Role
{
    QString token;
    QString disabled;
    QString ground; ///< the role that it is seen on
};

const QString kControl = QStringLiteral("Plain widgets");

/// A text in \a role, on \a ground.
void AddText(Looks &looks, const QString &where, const Role &role, const Role &ground)
{
    looks.pairs.append({kControl, where, KindOfText(role.token, true), role.token, {ground.token}});
    if (role.disabled != role.token)
        looks.pairs.append({kControl, where + QStringLiteral(", disabled"), Kind::DisabledText, role.disabled, {ground.disabled}});
}

/// A line in \a role, and what it becomes while disabled.
void AddLine(Looks &looks, const QString &where, const Role &role, const Role &ground)
{
    looks.pairs.append({kControl, where, Kind::Graphic, role.token, {ground.token}});
    looks.pairs.append({kControl, where + QStringLiteral(", disabled"), Kind::DisabledGraphic, role.disabled, {ground.disabled}});
}

} // namespace

Looks PaletteLooks(const QString &sources)
{
    static const QRegularExpression row(QStringLiteral("\\{QPalette::(\\w+), \"([^\"]+)\", \"([^\"]+)\", QPalette::(\\w+)\\}"));
    QMap<QString, Role> roles;
    const QString file = QStringLiteral("theme/PlainPalette.cpp");
    const QString code = SourcesBelow(sources).contains(file) ? CodeOf(sources + QLatin1Char('/') + file) : QString();
    for (auto match = row.globalMatch(code); match.hasNext();) {
        const auto cells = match.next();
        roles.insert(cells.captured(1), {cells.captured(2), cells.captured(3), cells.captured(4)});
    }
    Looks looks;
    if (roles.isEmpty())
        return looks;
    for (auto role = roles.cbegin(); role != roles.cend(); ++role) {
        if (role.key().contains(QLatin1String("Text")) || role.key().startsWith(QLatin1String("Link")))
            AddText(looks, role.key(), role.value(), roles.value(role.value().ground));
    }
    const Role text = roles.value(QStringLiteral("Text"));
    for (const char *ground : {"AlternateBase", "Light", "Midlight"})
        AddText(looks, QStringLiteral("text on %1").arg(QLatin1String(ground)), text, roles.value(QLatin1String(ground)));
    for (const char *line : {"Mid", "Dark", "Shadow"})
        AddLine(looks, QLatin1String(line), roles.value(QLatin1String(line)), roles.value(QStringLiteral("Window")));
    const Role outline = {QStringLiteral("border/border_primary"), QStringLiteral("border/border_secondary_disabled"), QString()};
    AddLine(looks, QStringLiteral("outlines"), outline, roles.value(QStringLiteral("Window")));
    looks.changes.append({kControl,
                          QStringLiteral("an item, normal and selected"),
                          QStringLiteral("ground"),
                          roles.value(QStringLiteral("Base")).token,
                          roles.value(QStringLiteral("Highlight")).token,
                          {QStringLiteral("bg/bg_box")}});
    return looks;
}

} // namespace VelmoraTest
