#include "contrast/Pairs.h"

#include <QMap>

namespace VelmoraTest {

namespace {

/// What a class paints by hand. "*" is each surface.
struct Row
{
    const char *file; ///< that paints it
    const char *part;
    Kind kind;
    const char *code;
    std::initializer_list<const char *> grounds;
    double coverage = 1.0;
};

/// Of a line between two pixels.
constexpr double kHalf = 0.5;

constexpr const char *kHover = "bg/bg_transluent_subtle_hover";
constexpr const char *kPress = "bg/bg_transluent_strong_press";
constexpr const char *kBubble = "base/neutral/neutral_invert";
constexpr const char *kVeil = "overlay/overlay_primary";

/// Hosts fill and write with all tokens, by the uses that the page of tokens tells.
constexpr const char *kGuide = "docs/tokens.md";

const Row kRows[] = {
    // --- Theme ---
    {"src/theme/BakedColors.cpp", "weekend of a calendar", Kind::Text, "tip/danger", {"bg/bg_float"}},
    {"src/theme/FocusRing.cpp", "ring", Kind::Graphic, "others/focus", {"*"}},
    {"src/theme/FocusRing.cpp", "ring on a row of tabs", Kind::Graphic, "others/focus", {"bg/bg_unselected"}},
    {"src/theme/FocusRing.cpp", "ring of a filled button", Kind::Graphic, "others/focus", {"brand/brand"}},
    {"src/theme/FocusRing.cpp", "line in a ring that lies within", Kind::Graphic, "bg/bg_box", {"others/focus"}},
    {"src/theme/PlainPalette.cpp", "text of a window", Kind::Body, "text/text_primary", {"bg/bg_box"}},
    {"src/theme/PlainPalette.cpp", "text of a field, list or tool tip", Kind::Body, "text/text_primary", {"bg/bg_float"}},
    {"src/theme/PlainPalette.cpp", "text of every other row", Kind::Body, "text/text_primary", {"bg/bg_secondary"}},
    {"src/theme/PlainPalette.cpp", "text of a button", Kind::Body, "text/text_primary", {"bg/bg_primary"}},
    {"src/theme/PlainPalette.cpp", "text on a light shade", Kind::Body, "text/text_primary", {"bg/bg_transluent_subtle_hover"}},
    {"src/theme/PlainPalette.cpp", "text on a middle shade", Kind::Body, "text/text_primary", {"bg/bg_transluent_subtle_active"}},
    {"src/theme/PlainPalette.cpp", "bright text", Kind::Body, "text/text_caption", {"bg/bg_box"}},
    {"src/theme/PlainPalette.cpp", "placeholder", Kind::Body, "text/text_secondary", {"bg/bg_float"}},
    {"src/theme/PlainPalette.cpp", "disabled text", Kind::DisabledText, "text/text_disabled", {"bg/bg_box"}},
    {"src/theme/PlainPalette.cpp", "disabled text of a button", Kind::DisabledText, "text/text_disabled", {"bg/bg_primary"}},
    {"src/theme/PlainPalette.cpp", "disabled text, selected", Kind::DisabledText, "text/text_disabled", {"bg/bg_transluent_strong_active"}},
    {"src/theme/PlainPalette.cpp", "selected text", Kind::Text, "text/text_button", {"brand/brand_press"}},
    {"src/theme/PlainPalette.cpp", "link", Kind::Text, "link/link", {"bg/bg_box"}},
    {"src/theme/PlainPalette.cpp", "visited link", Kind::Text, "link/link_visited", {"bg/bg_box"}},
    {"src/theme/PlainPalette.cpp", "disabled link", Kind::DisabledText, "link/link_disable", {"bg/bg_box"}},
    {"src/theme/PlainPalette.cpp", "outline of a field or button", Kind::Graphic, "border/border_primary", {"bg/bg_box"}},
    {"src/theme/PlainPalette.cpp",
     "outline of a disabled field or button",
     Kind::DisabledGraphic,
     "border/border_secondary_disabled",
     {"bg/bg_box"}},
    {"src/theme/PlainPalette.cpp", "line", Kind::Line, "border/border_tertairy", {"bg/bg_box"}},
    {"src/theme/PlainPalette.cpp", "shadow", Kind::Line, "border/border_secondary", {"bg/bg_box"}},
    // --- Display ---
    {"src/display/QcArrowTip.cpp", "text, unless told otherwise", Kind::Body, "text/text_primary", {kBubble}},
    {"src/display/TipInfo.h", "text, unless told otherwise", Kind::Body, "text/text_primary", {kBubble}},
    {"src/display/QcLabel.cpp", "disabled text", Kind::DisabledText, "text/text_disabled", {"*"}},
    {"src/display/QcMultiLineText.h", "text", Kind::Body, "text/text_primary", {"*"}},
    {"src/display/TextStyles.cpp", "headings and body", Kind::Body, "text/text_primary", {"*"}},
    {"src/display/TextStyles.cpp", "captions", Kind::Body, "text/text_caption", {"*"}},
    {"src/display/TextStyles.cpp", "secondary body", Kind::Body, "text/text_secondary", {"*"}},
    {"src/display/TextStyles.cpp", "hints", Kind::Text, "text/text_tertairy", {"*"}},
    // --- Buttons ---
    {"src/buttons/QcSwitchButton.cpp", "knob, on", Kind::Graphic, "#FFFFFF", {"#336FFF"}},
    {"src/buttons/QcSwitchButton.cpp", "knob, on, hovered", Kind::Graphic, "#FFFFFF", {"#3A90FF"}},
    {"src/buttons/QcSwitchButton.cpp", "knob, on, pressed", Kind::Graphic, "#FFFFFF", {"#005CD1"}},
    {"src/buttons/QcSwitchButton.cpp", "track, on", Kind::Graphic, "#336FFF", {"*"}},
    {"src/buttons/QcSwitchButton.cpp", "track, on, hovered", Kind::Graphic, "#3A90FF", {"*"}},
    {"src/buttons/QcSwitchButton.cpp", "track, on, pressed", Kind::Graphic, "#005CD1", {"*"}},
    {"src/buttons/QcRadioButton.cpp", "text, black or white by its ground", Kind::Body, "text/text_primary", {"bg/bg_secondary"}},
    // --- Inputs ---
    {"src/inputs/PlaceholderColor.cpp", "placeholder", Kind::Text, "text/text_tertairy", {"*"}},
    {"src/inputs/PlaceholderColor.cpp", "placeholder of a text edit", Kind::Text, "text/text_tertairy", {"bg/bg_secondary"}},
    {"src/inputs/QcLineEditFrame.cpp", "warning", Kind::Text, "base/red/red-60", {kBubble}},
    {"src/inputs/QcSelector.cpp", "text", Kind::Body, "text/text_primary", {"*"}},
    {"src/inputs/QcSelector.cpp", "placeholder", Kind::Body, "text/text_secondary", {"*"}},
    {"src/inputs/QcSelector.cpp", "placeholder, disabled", Kind::DisabledText, "text/text_secondary", {"*", "bg/bg_transluent_strong_dis"}},
    {"src/inputs/QcSelector.cpp", "arrow", Kind::Graphic, "icon/icon_secondary", {"*"}},
    {"src/inputs/QcSelectorViewItemDelegate.cpp", "text of a row", Kind::Body, "text/text_primary", {"bg/bg_float"}},
    {"src/inputs/QcSelectorViewItemDelegate.cpp", "text of a row, hovered", Kind::Body, "text/text_primary", {"bg/bg_float", kHover}},
    {"src/inputs/QCSlider.cpp", "groove", Kind::Graphic, "border/border_secondary", {"*"}},
    {"src/inputs/QCSlider.cpp", "groove, disabled", Kind::DisabledGraphic, "border/border_secondary_disabled", {"*"}},
    {"src/inputs/QCSlider.cpp", "handle, disabled", Kind::DisabledGraphic, "brand/brand_disable", {"*"}},
    {"src/inputs/QCSlider.cpp", "handle", Kind::Graphic, "brand/brand", {"*"}},
    {"src/inputs/QCSlider.cpp", "handle, hovered", Kind::Graphic, "brand/brand_hover", {"*"}},
    {"src/inputs/QCSlider.cpp", "handle, pressed", Kind::Graphic, "brand/brand_press", {"*"}},
    {"src/inputs/QCSlider.cpp", "ring of the handle", Kind::Graphic, "border/border_normal", {"*"}},
    {"src/inputs/QCSlider.cpp", "handle in its ring", Kind::Graphic, "brand/brand", {"border/border_normal"}},
    {"src/inputs/QCSlider.cpp", "ring of the handle, disabled", Kind::DisabledGraphic, "border/border_disable", {"*"}},
    // --- Menus ---
    {"src/menus/QcMenuStyle.cpp", "outline", Kind::Line, "border/border_tertairy", {"*"}, kHalf},
    {"src/menus/QcMenuStyle.cpp", "separator", Kind::Graphic, "border/border_tertairy", {"bg/bg_float"}},
    {"src/menus/QcMenuStyle.cpp", "text", Kind::Body, "text/text_primary", {"bg/bg_float"}},
    {"src/menus/QcMenuStyle.cpp", "text, hovered", Kind::Body, "text/text_primary", {"bg/bg_float", kHover}},
    {"src/menus/QcMenuStyle.cpp", "text, pressed", Kind::Body, "text/text_primary", {"bg/bg_float", kPress}},
    {"src/menus/QcMenuStyle.cpp", "text, disabled", Kind::DisabledText, "text/text_disabled", {"bg/bg_float"}},
    {"src/menus/QcMenuStyle.cpp", "text, disabled, hovered", Kind::DisabledText, "text/text_disabled", {"bg/bg_float", kHover}},
    {"src/menus/QcMenuStyle.cpp", "icon", Kind::Graphic, "icon/icon_ordinary", {"bg/bg_float"}},
    {"src/menus/QcMenuStyle.cpp", "icon, hovered", Kind::Graphic, "icon/icon_ordinary", {"bg/bg_float", kHover}},
    {"src/menus/QcMenuStyle.cpp", "icon, pressed", Kind::Graphic, "icon/icon_ordinary", {"bg/bg_float", kPress}},
    {"src/menus/QcMenuStyle.cpp", "icon, disabled", Kind::DisabledGraphic, "icon/icon_disabled", {"bg/bg_float"}},
    // --- Windows ---
    {"src/windows/QcWindow.cpp", "text", Kind::Body, "text/text_primary", {"bg/bg_box"}},
    {"src/windows/QcDialog.h", "text", Kind::Body, "text/text_primary", {"bg/bg_box"}},
    {"src/windows/QcDialog.h", "outline", Kind::Line, "border/border_tertairy", {"*"}, kHalf},
    {"src/windows/WindowParts.cpp", "line under the title", Kind::Line, "border/border_tertairy", {"bg/bg_box"}, kHalf},
    // --- Feedback ---
    {"src/feedback/QcLoadingDialog.cpp", "ring of the picture", Kind::Graphic, "#3A90FF", {"*", kVeil}},
    {"src/feedback/QcLoadingDialog.cpp", "gap in the ring", Kind::Graphic, "#FFFFFF", {"*", kVeil}},
    {"src/feedback/QcNotificationPage.cpp", "title", Kind::Body, "text/text_caption", {"bg/bg_float"}},
    {"src/feedback/QcNotificationPage.cpp", "text", Kind::Body, "text/text_secondary", {"bg/bg_float"}},
    // --- Docking ---
    {"src/dock/QcDockArea.cpp", "outline", Kind::Graphic, "border/border_tertairy", {"*"}},
    {"src/dock/QcDockAreaTabBarButton.cpp", "title, current", Kind::Body, "text/text_caption", {"bg/bg_primary"}},
    {"src/dock/QcDockAreaTabBarButton.cpp", "title", Kind::Body, "text/text_secondary", {"bg/bg_unselected"}},
    {"src/dock/QcDockAreaTabBarButton.cpp", "focus", Kind::Graphic, "brand/brand", {"bg/bg_primary"}},
    {"src/dock/QcDockAreaTabFrame.cpp", "arrows of the row", Kind::Graphic, "icon/icon_secondary", {"bg/bg_unselected"}},
    {"src/dock/QcDockIndicator.cpp", "cross", Kind::Graphic, "base/neutral/neutral-80", {"*"}},
    {"src/dock/QcDockIndicator.cpp", "place on the cross", Kind::Graphic, "#FFFFFF", {"*", "base/neutral/neutral-80"}},
    {"src/dock/QcDockIndicator.cpp", "picture of a place", Kind::Graphic, "#336FFF", {"#FFFFFF"}},
    {"src/dock/QcDockIndicator.cpp", "ring, by the keyboard", Kind::Graphic, "brand/brand", {"*"}},
    {"src/dock/QcSplitterHandle.cpp", "handle, hovered", Kind::Graphic, "brand/brand", {"*"}},
    // --- What a host does by the guide ---
    {"docs/feedback.md", "caption on a veil", Kind::Text, "#FFFFFF, 0.7", {"*", kVeil}},
    {kGuide, "text/text_caption", Kind::Body, "text/text_caption", {"*"}},
    {kGuide, "text/text_primary", Kind::Body, "text/text_primary", {"*"}},
    {kGuide, "text/text_secondary", Kind::Body, "text/text_secondary", {"*"}},
    {kGuide, "text/text_tertairy", Kind::Text, "text/text_tertairy", {"*"}},
    {kGuide, "text/text_disabled", Kind::DisabledText, "text/text_disabled", {"*"}},
    {kGuide, "text/text_button on brand/brand", Kind::Text, "text/text_button", {"brand/brand"}},
    {kGuide,
     "text/text_button_disable on brand/brand_disable",
     Kind::DisabledText,
     "text/text_button_disable",
     {"*", "brand/brand_disable"}},
    {kGuide, "text/text_caption on brand/brand_bg", Kind::Body, "text/text_caption", {"*", "brand/brand_bg"}},
    {kGuide, "text/text_primary on brand/brand_secondary", Kind::Text, "text/text_primary", {"*", "brand/brand_secondary"}},
    {kGuide, "text/text_primary on brand/brand_secondary_hover", Kind::Text, "text/text_primary", {"brand/brand_secondary_hover"}},
    {kGuide, "text/text_primary on brand/brand_secondary_press", Kind::Text, "text/text_primary", {"brand/brand_secondary_press"}},
    {kGuide, "text/text_primary on brand/brand_secondary_bg", Kind::Text, "text/text_primary", {"*", "brand/brand_secondary_bg"}},
    {kGuide,
     "text/text_disabled on brand/brand_secondary_disable",
     Kind::DisabledText,
     "text/text_disabled",
     {"*", "brand/brand_secondary_disable"}},
    {kGuide, "brand/brand_tertiary", Kind::Graphic, "brand/brand_tertiary", {"*"}},
    {kGuide, "tip/danger", Kind::Text, "tip/danger", {"*"}},
    {kGuide, "tip/warning", Kind::Text, "tip/warning", {"*"}},
    {kGuide, "tip/remind", Kind::Text, "tip/remind", {"*"}},
    {kGuide, "tip/success", Kind::Text, "tip/success", {"*"}},
    {kGuide, "tip/info", Kind::Text, "tip/info", {"*"}},
    {kGuide, "link/link", Kind::Text, "link/link", {"*"}},
    {kGuide, "link/link_visited", Kind::Text, "link/link_visited", {"*"}},
    {kGuide, "icon/icon_caption", Kind::Graphic, "icon/icon_caption", {"*"}},
    {kGuide, "icon/icon_primary", Kind::Graphic, "icon/icon_primary", {"*"}},
    {kGuide, "icon/icon_secondary", Kind::Graphic, "icon/icon_secondary", {"*"}},
    {kGuide, "icon/icon_tertiary", Kind::Graphic, "icon/icon_tertiary", {"*"}},
    {kGuide, "icon/icon_ordinary", Kind::Graphic, "icon/icon_ordinary", {"*"}},
    {kGuide, "icon/icon_toolbar", Kind::Graphic, "icon/icon_toolbar", {"*"}},
    {kGuide, "icon/icon_tree", Kind::Graphic, "icon/icon_tree", {"*"}},
    {kGuide, "icon/icon_tree_disable", Kind::DisabledGraphic, "icon/icon_tree_disable", {"*"}},
    {kGuide, "border/border_primary", Kind::Graphic, "border/border_primary", {"*"}},
    {kGuide, "border/border_primary_hover", Kind::Graphic, "border/border_primary_hover", {"*"}},
    {kGuide, "border/border_primary_press", Kind::Graphic, "border/border_primary_press", {"*"}},
    {kGuide, "border/border_secondary", Kind::Graphic, "border/border_secondary", {"*"}},
    {kGuide, "border/border_tertairy", Kind::Graphic, "border/border_tertairy", {"*"}},
    {kGuide, "table/table_divider", Kind::Graphic, "table/table_divider", {"*"}},
    {kGuide, "text/text_primary on bg/bg_unselected", Kind::Body, "text/text_primary", {"bg/bg_unselected"}},
    {kGuide, "text/text_primary on bg/bg_tertiary", Kind::Body, "text/text_primary", {"bg/bg_tertiary"}},
    {kGuide, "text/text_primary on bg/bg_tertiary_hover", Kind::Body, "text/text_primary", {"bg/bg_tertiary_hover"}},
    {kGuide, "text/text_primary on bg/bg_tertiary_press", Kind::Body, "text/text_primary", {"bg/bg_tertiary_press"}},
    {kGuide, "text/text_disabled on bg/bg_tertiary_disable", Kind::DisabledText, "text/text_disabled", {"bg/bg_tertiary_disable"}},
    {kGuide, "text/text_primary on bg/bg_primary_hover", Kind::Body, "text/text_primary", {"bg/bg_primary_hover"}},
    {kGuide, "text/text_primary on bg/bg_primary_press", Kind::Body, "text/text_primary", {"bg/bg_primary_press"}},
    {kGuide, "text/text_disabled on bg/bg_primary_disabled", Kind::DisabledText, "text/text_disabled", {"bg/bg_primary_disabled"}},
    {kGuide, "text/text_primary on bg/bg_secondary_hover", Kind::Body, "text/text_primary", {"bg/bg_secondary_hover"}},
    {kGuide, "text/text_primary on bg/bg_secondary_press", Kind::Body, "text/text_primary", {"bg/bg_secondary_press"}},
    {kGuide, "text/text_disabled on bg/bg_secondary_disable", Kind::DisabledText, "text/text_disabled", {"bg/bg_secondary_disable"}},
    {kGuide, "text/text_primary on bg/bg_transluent_subtle_press", Kind::Body, "text/text_primary", {"bg/bg_transluent_subtle_press"}},
    {kGuide, "text/text_primary on bg/bg_transluent_subtle_active", Kind::Body, "text/text_primary", {"bg/bg_transluent_subtle_active"}},
    {kGuide, "base/neutral/neutral on base/neutral/neutral_theme", Kind::Body, "base/neutral/neutral", {"base/neutral/neutral_theme"}},
    {kGuide, "base/neutral/neutral on base/neutral/neutral_invert", Kind::Body, "base/neutral/neutral", {kBubble}},
};

/// Two codes between which a user is to see a difference.
struct ChangeRow
{
    const char *file;
    const char *states;
    const char *before;
    const char *after;
    std::initializer_list<const char *> grounds;
};

const ChangeRow kChangeRows[] = {
    {"src/display/QcArrowTip.cpp", "bubble and what it lies on", "transparent", kBubble, {"*"}},
    {"src/inputs/QcSelectorViewItemDelegate.cpp", "row, normal and hovered", "transparent", kHover, {"bg/bg_float"}},
    // The handle tells the value; what is filled repeats it.
    {"src/inputs/QCSlider.cpp", "groove and its filled part", "border/border_secondary", "brand/brand", {"*"}},
    {"src/inputs/QCSlider.cpp", "handle, normal and hovered", "brand/brand", "brand/brand_hover", {"*"}},
    {"src/inputs/QCSlider.cpp", "handle, hovered and pressed", "brand/brand_hover", "brand/brand_press", {"*"}},
    {"src/menus/QcMenuStyle.cpp", "item, normal and hovered", "transparent", kHover, {"bg/bg_float"}},
    {"src/menus/QcMenuStyle.cpp", "item, hovered and pressed", kHover, kPress, {"bg/bg_float"}},
    {"src/dock/QcDockAreaTabBarButton.cpp", "tab, current and not", "bg/bg_primary", "bg/bg_unselected", {"*"}},
    {"src/dock/QcDockMask.cpp", "place of a drop and what it lies on", "transparent", "brand/brand_bg", {"*"}},
    {"src/dock/QcSplitterHandle.cpp", "handle, normal and hovered", "transparent", "brand/brand", {"*"}},
    {"src/windows/Veil.cpp", "window and veil", "transparent", kVeil, {"bg/bg_box"}},
};

/// By which a reader knows what a file paints.
QString ControlOf(const QString &file)
{
    static const QMap<QString, QString> others = {
        {QString::fromLatin1(kGuide), QStringLiteral("A host, by the guides")},
        {QStringLiteral("docs/feedback.md"), QStringLiteral("A host, by the guides")},
        {QStringLiteral("src/display/TextStyles.cpp"), QStringLiteral("QcLabel")},
        {QStringLiteral("src/display/TipInfo.h"), QStringLiteral("QcArrowTip")},
        {QStringLiteral("src/inputs/PlaceholderColor.cpp"), QStringLiteral("QcLineEdit")},
        {QStringLiteral("src/inputs/QcSelectorViewItemDelegate.cpp"), QStringLiteral("QcSelector")},
        {QStringLiteral("src/menus/QcMenuStyle.cpp"), QStringLiteral("QcMenu")},
        {QStringLiteral("src/theme/BakedColors.cpp"), QStringLiteral("Weekends, to which some of the text's colour is added")},
        {QStringLiteral("src/theme/FocusRing.cpp"), QStringLiteral("The ring of the focus")},
        {QStringLiteral("src/windows/Veil.cpp"), QStringLiteral("QcMaskFrame")},
        {QStringLiteral("src/windows/WindowParts.cpp"), QStringLiteral("QcWindow")},
    };
    return others.value(file, file.section(QLatin1Char('/'), -1).section(QLatin1Char('.'), 0, 0));
}

QStringList GroundsOf(const std::initializer_list<const char *> &codes)
{
    QStringList grounds;
    for (const char *code : codes)
        grounds.append(QString::fromLatin1(code));
    return grounds;
}

} // namespace

Looks PaintedLooks()
{
    Looks looks;
    for (const Row &row : kRows)
        looks.pairs.append({ControlOf(QString::fromLatin1(row.file)), QString::fromLatin1(row.part), row.kind,
                            QString::fromLatin1(row.code), GroundsOf(row.grounds), row.coverage});
    for (const ChangeRow &row : kChangeRows)
        looks.changes.append({ControlOf(QString::fromLatin1(row.file)), QString::fromLatin1(row.states), QString(),
                              QString::fromLatin1(row.before), QString::fromLatin1(row.after), GroundsOf(row.grounds)});
    return looks;
}

QMap<QString, QStringList> PaintedCodes()
{
    QMap<QString, QStringList> codes;
    for (const Row &row : kRows) {
        codes[QString::fromLatin1(row.file)] += GroundsOf(row.grounds);
        codes[QString::fromLatin1(row.file)] += QString::fromLatin1(row.code);
    }
    for (const ChangeRow &row : kChangeRows)
        codes[QString::fromLatin1(row.file)] += {QString::fromLatin1(row.before), QString::fromLatin1(row.after)};
    return codes;
}

} // namespace VelmoraTest
