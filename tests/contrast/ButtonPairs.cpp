#include "contrast/Pairs.h"
#include "support/PrivateMember.h"
#include "support/TestCase.h"

#include <Velmora/ImageParams.h>
#include <Velmora/QcCombinedToolButton.h>
#include <Velmora/QcGhostButton.h>
#include <Velmora/QcHighlightButton.h>
#include <Velmora/QcIconButton.h>
#include <Velmora/QcMenuTextButton.h>
#include <Velmora/QcMenuToolButton.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcSecondaryButton.h>
#include <Velmora/QcSwitchButton.h>
#include <Velmora/QcTertiaryButton.h>
#include <Velmora/QcTextButton.h>
#include <Velmora/QcTextLinkButton.h>
#include <Velmora/QcToolButton.h>
#include <Velmora/QcToolColorButton.h>

#include <QStyle>

#include <array>

using namespace Velmora;

namespace VelmoraTest {

using Codes = QHash<QStyle::State, QString>;
using Icons = QHash<QStyle::State, ImageParams>;

#define VELMORA_TEST_MEMBER(Tag, Class, Value, member) \
    struct Tag \
    { \
        using Type = Value Class::*; \
        friend Type MemberOf(Tag); \
    }; \
    template struct PrivateMember<Tag, &Class::member>;

VELMORA_TEST_MEMBER(ButtonBackgrounds, QcButton, Codes, m_backgroundColorParams)
VELMORA_TEST_MEMBER(ButtonBorders, QcButton, Codes, m_borderColorParams)
VELMORA_TEST_MEMBER(ButtonTexts, QcButton, Codes, m_textColorParams)
VELMORA_TEST_MEMBER(ButtonIcons, QcButton, Icons, m_iconParams)
VELMORA_TEST_MEMBER(MenuTextBackgrounds, QcMenuTextButton, Codes, m_backgroundColors)
VELMORA_TEST_MEMBER(MenuTextBorders, QcMenuTextButton, Codes, m_borderColors)
VELMORA_TEST_MEMBER(MenuTextTexts, QcMenuTextButton, Codes, m_textColors)
VELMORA_TEST_MEMBER(MenuTextArrows, QcMenuTextButton, Icons, m_arrowIconParams)
VELMORA_TEST_MEMBER(ToolBackgrounds, QcToolButton, Codes, m_backgroundColors)
VELMORA_TEST_MEMBER(ToolIcons, QcToolButton, Icons, m_iconParams)
VELMORA_TEST_MEMBER(CombinedBackgrounds, QcCombinedToolButton, Codes, m_backgroundColors)
VELMORA_TEST_MEMBER(CombinedIcons, QcCombinedToolButton, Icons, m_mainIconParams)
VELMORA_TEST_MEMBER(CombinedArrows, QcCombinedToolButton, Icons, m_arrowIconParams)
VELMORA_TEST_MEMBER(MenuToolBackgrounds, QcMenuToolButton, Codes, m_backgroundColors)
VELMORA_TEST_MEMBER(MenuToolIcons, QcMenuToolButton, Icons, m_mainIconParams)
VELMORA_TEST_MEMBER(MenuToolArrows, QcMenuToolButton, Icons, m_arrowIconParams)

namespace {

/// The state tables of a button, as it has them.
struct Tables
{
    Codes background;
    Codes border;
    Codes text;
    QVector<Icons> icons;
};

Tables TablesOf(const QcButton &button)
{
    return {button.*MemberOf(ButtonBackgrounds()),
            button.*MemberOf(ButtonBorders()),
            button.*MemberOf(ButtonTexts()),
            {button.*MemberOf(ButtonIcons())}};
}

Tables TablesOf(const QcMenuTextButton &button)
{
    return {button.*MemberOf(MenuTextBackgrounds()),
            button.*MemberOf(MenuTextBorders()),
            button.*MemberOf(MenuTextTexts()),
            {button.*MemberOf(MenuTextArrows())}};
}

Tables TablesOf(const QcToolButton &button)
{
    return {button.*MemberOf(ToolBackgrounds()), {}, {}, {button.*MemberOf(ToolIcons())}};
}

Tables TablesOf(const QcCombinedToolButton &button)
{
    return {button.*MemberOf(CombinedBackgrounds()), {}, {}, {button.*MemberOf(CombinedIcons()), button.*MemberOf(CombinedArrows())}};
}

Tables TablesOf(const QcMenuToolButton &button)
{
    return {button.*MemberOf(MenuToolBackgrounds()), {}, {}, {button.*MemberOf(MenuToolIcons()), button.*MemberOf(MenuToolArrows())}};
}

template <typename Class>
Tables TablesOfNew()
{
    Class button(nullptr);
    DrainEvents(); // variants fill their tables on the first turn of the main loop
    return TablesOf(button);
}

struct Maker
{
    const char *name;
    Tables (*tables)();
};

constexpr Maker kMakers[] = {
    {"QcPrimaryButton", TablesOfNew<QcPrimaryButton>},     {"QcSecondaryButton", TablesOfNew<QcSecondaryButton>},
    {"QcTertiaryButton", TablesOfNew<QcTertiaryButton>},   {"QcGhostButton", TablesOfNew<QcGhostButton>},
    {"QcHighlightButton", TablesOfNew<QcHighlightButton>}, {"QcTextButton", TablesOfNew<QcTextButton>},
    {"QcTextLinkButton", TablesOfNew<QcTextLinkButton>},   {"QcIconButton", TablesOfNew<QcIconButton>},
    {"QcSwitchButton", TablesOfNew<QcSwitchButton>},       {"QcToolButton", TablesOfNew<QcToolButton>},
    {"QcToolColorButton", TablesOfNew<QcToolColorButton>}, {"QcCombinedToolButton", TablesOfNew<QcCombinedToolButton>},
    {"QcMenuTextButton", TablesOfNew<QcMenuTextButton>},   {"QcMenuToolButton", TablesOfNew<QcMenuToolButton>},
};

/// A button's border is centred on its edge, where half of it is clipped.
constexpr double kBorderCoverage = 0.5;

constexpr int kEnabled = QStyle::State_Enabled;
constexpr int kChecked = QStyle::State_Selected;

struct NamedState
{
    const char *name;
    int state;
};

constexpr NamedState kStates[] = {
    {"disabled", 0},
    {"normal", kEnabled},
    {"hovered", kEnabled | QStyle::State_MouseOver},
    {"pressed", kEnabled | QStyle::State_Sunken},
    {"checked, disabled", kChecked},
    {"checked", kChecked | kEnabled},
    {"checked, hovered", kChecked | kEnabled | QStyle::State_MouseOver},
    {"checked, pressed", kChecked | kEnabled | QStyle::State_Sunken},
};

QString TextOf(const ColorParams &params)
{
    return params.alpha < 0 ? params.code : QStringLiteral("${%1, %2}").arg(params.code).arg(params.alpha);
}

/// What lies under text and icon in a state.
QStringList GroundsOf(const Tables &tables, QStyle::State state)
{
    QStringList grounds(QStringLiteral("*"));
    if (Paints(tables.background.value(state)))
        grounds.append(tables.background.value(state));
    return grounds;
}

/// A picture of several colours: the track lies on the button, and on it the knob that the file draws white.
void AddTrack(Looks &looks, Pair pair, const ColorParams &track)
{
    pair.code = TextOf(track);
    looks.pairs.append(pair);
    pair.where += QStringLiteral(", knob");
    pair.grounds.append(pair.code);
    pair.code = QStringLiteral("#FFFFFF");
    looks.pairs.append(pair);
}

void AddState(Looks &looks, const QString &control, const Tables &tables, const NamedState &named)
{
    const QStyle::State state(QFlag(named.state));
    const bool isEnabled = named.state & kEnabled;
    const Kind graphic = isEnabled ? Kind::Graphic : Kind::DisabledGraphic;
    const QStringList grounds = GroundsOf(tables, state);
    const QString name = QString::fromLatin1(named.name);
    const auto add = [&](const char *part, Kind kind, const QString &code, const QStringList &below, double coverage = 1.0) {
        if (Paints(code))
            looks.pairs.append({control, QStringLiteral("%1, %2").arg(QLatin1String(part), name), kind, code, below, coverage});
    };
    add("text", KindOfText(tables.text.value(state), isEnabled), tables.text.value(state), grounds);
    add("border", graphic, tables.border.value(state), QStringList(QStringLiteral("*")), kBorderCoverage);
    for (const Icons &icons : tables.icons) {
        const ImageParams icon = icons.value(state);
        add("icon", graphic, TextOf(icon.color), grounds);
        for (const ColorParams &track : icon.mulColor)
            AddTrack(looks, {control, QStringLiteral("track, ") + name, graphic, QString(), grounds}, track);
    }
}

/// In the tables of one part: wherever two of the looks are to be told apart by it.
void AddChanges(Looks &looks, const QString &control, const char *part, const Codes &codes, bool isGround, double coverage = 1.0)
{
    constexpr std::array<std::array<int, 2>, 4> kSteps = {{{1, 2}, {2, 3}, {1, 3}, {1, 5}}}; // normal to hovered to pressed; to checked
    for (const auto &step : kSteps) {
        const NamedState &from = kStates[step[0]];
        const NamedState &to = kStates[step[1]];
        const QString before = codes.value(QStyle::State(QFlag(from.state)));
        const QString after = codes.value(QStyle::State(QFlag(to.state)));
        if (before != after && (Paints(after) || isGround))
            looks.changes.append({control, QStringLiteral("%1 and %2").arg(QLatin1String(from.name), QLatin1String(to.name)),
                                  QString::fromLatin1(part), before, after, QStringList(QStringLiteral("*")), coverage});
    }
}

} // namespace

Looks ButtonLooks()
{
    Looks looks;
    for (const Maker &maker : kMakers) {
        const QString control = QString::fromLatin1(maker.name);
        const Tables tables = maker.tables();
        for (const NamedState &state : kStates)
            AddState(looks, control, tables, state);
        AddChanges(looks, control, "background", tables.background, true);
        AddChanges(looks, control, "border", tables.border, false, kBorderCoverage);
        AddChanges(looks, control, "text", tables.text, false);
    }
    return looks;
}

QStringList ButtonClasses()
{
    QStringList names;
    for (const Maker &maker : kMakers)
        names.append(QString::fromLatin1(maker.name));
    return names;
}

} // namespace VelmoraTest
