#include "ControlTable.h"

#include <Velmora/Velmora.h>

#include <QMetaProperty>

#include <initializer_list>

namespace VelmoraDesigner {

namespace {

template <typename Class>
QWidget *Make(QWidget *parent)
{
    return new Class(parent);
}

constexpr auto kButtons = "Velmora Buttons";
constexpr auto kInputs = "Velmora Inputs";
constexpr auto kDisplay = "Velmora Display";
constexpr auto kContainers = "Velmora Containers";

// Setters that are not called as their properties tell are reached by setProperty(): stdset="0".
constexpr auto kButtonText = R"(<property name="text"><string>Button</string></property>)";
constexpr auto kIcon = R"(<property name="iconPath" stdset="0"><string notr="true">:/images/select.svg</string></property>)";
constexpr auto kSurface = R"(<property name="backgroundColorParams"><string notr="true">bg/bg_secondary</string></property>)"
                          R"(<property name="borderColorParams"><string notr="true">border/border_tertairy</string></property>)"
                          R"(<property name="borderRadius"><number>4</number></property>)"
                          R"(<property name="borderSides"><set>Velmora::QcFrame::Bottom|Velmora::QcFrame::Left|)"
                          R"(Velmora::QcFrame::Right|Velmora::QcFrame::Top</set></property>)";
constexpr auto kLabelText = R"(<property name="text"><string>Label</string></property>)"
                            R"(<property name="type"><enum>Velmora::QcLabel::Body</enum></property>)";
constexpr auto kSmallText =
    R"(<property name="fontPixelSize" stdset="0"><number>12</number></property>)"
    R"(<property name="text"><string>Text with &lt;a href=&quot;link&quot;&gt;a link&lt;/a&gt;</string></property>)";
constexpr auto kDialogButtons = R"(<property name="bottomFrameVisible"><bool>true</bool></property>)"
                                R"(<property name="okButtonText"><string>OK</string></property>)"
                                R"(<property name="cancelButtonText"><string>Cancel</string></property>)"
                                R"(<property name="title"><string>Dialog</string></property>)";
constexpr auto kTwoPages = R"(<widget class="QWidget" name="page"/><widget class="QWidget" name="page_2"/>)";
constexpr auto kContent = R"(<widget class="QWidget" name="content"/>)";

// clang-format off
const std::vector<Control> &Table()
{
    using namespace Velmora;
    static const std::vector<Control> table = {
        // --- Buttons ---
        {&QcPrimaryButton::staticMetaObject, Make<QcPrimaryButton>, kButtons, "Primary Button", 96, 24, Room::Nothing,
            "A push button filled in the brand colour, for the main action",
            "24 pixels high, with a text, an icon by iconPath or both. Use one in a window.", kButtonText, ""},
        {&QcSecondaryButton::staticMetaObject, Make<QcSecondaryButton>, kButtons, "Secondary Button", 96, 24, Room::Nothing,
            "A push button outlined in the brand colour",
            "24 pixels high, with a text, an icon by iconPath or both.", kButtonText, ""},
        {&QcTertiaryButton::staticMetaObject, Make<QcTertiaryButton>, kButtons, "Tertiary Button", 96, 24, Room::Nothing,
            "A push button outlined in a neutral colour",
            "24 pixels high, with a text, an icon by iconPath or both.", kButtonText, ""},
        {&QcGhostButton::staticMetaObject, Make<QcGhostButton>, kButtons, "Ghost Button", 96, 24, Room::Nothing,
            "A push button without a border, in secondary text",
            "A soft fill shows under the mouse. 24 pixels high, with a text, an icon by iconPath or both.", kButtonText, ""},
        {&QcHighlightButton::staticMetaObject, Make<QcHighlightButton>, kButtons, "Highlight Button", 96, 24, Room::Nothing,
            "A push button without a border, in primary text",
            "A soft fill shows under the mouse. 24 pixels high, with a text, an icon by iconPath or both.", kButtonText, ""},
        {&QcTextButton::staticMetaObject, Make<QcTextButton>, kButtons, "Text Button", 96, 24, Room::Nothing,
            "A push button that is a text in the colours of links", "24 pixels high.", kButtonText, ""},
        {&QcTextLinkButton::staticMetaObject, Make<QcTextLinkButton>, kButtons, "Link Button", 96, 24, Room::Nothing,
            "A push button that is an underlined text in the colours of links", "24 pixels high.", kButtonText, ""},
        {&QcButton::staticMetaObject, Make<QcButton>, kButtons, "Button", 96, 24, Room::Nothing,
            "A push button whose colours the program sets",
            "It paints only its text until the program fills its tables: SetBackgroundColorParams and its fellows.", kButtonText, ""},
        {&QcIconButton::staticMetaObject, Make<QcIconButton>, kButtons, "Icon Button", 24, 24, Room::Nothing,
            "A square push button that is an icon, filled while checked",
            "24 by 24 pixels. Name the icon by iconPath and give it a tool tip: that names the button to screen readers, too.", kIcon, ""},
        {&QcToolButton::staticMetaObject, Make<QcToolButton>, kButtons, "Tool Button", 24, 24, Room::Nothing,
            "A button for tool bars that is an icon",
            "Name the icon by iconPath and give it a tool tip. Text and menu arrow are not painted.", kIcon, ""},
        {&QcToolColorButton::staticMetaObject, Make<QcToolColorButton>, kButtons, "Tool Button in Colour", 24, 24, Room::Nothing,
            "A tool button whose icon has colours of its own",
            "Choose the icon by iconPath, its colours by iconColorParams and iconDisableColorParams.", kIcon, ""},
        {&QcMenuToolButton::staticMetaObject, Make<QcMenuToolButton>, kButtons, "Tool Button with Menu", 44, 32, Room::Nothing,
            "A checkable tool button with an arrow for a menu",
            "44 by 32 pixels. The program sets the menu; popupMode says how it opens.", kIcon, ""},
        {&QcCombinedToolButton::staticMetaObject, Make<QcCombinedToolButton>, kButtons, "Split Tool Button", 44, 32, Room::Nothing,
            "A tool button in two halves: one acts, one opens a menu",
            "44 by 32 pixels. The program sets menu and current action, whose icon takes the place of iconPath.", kIcon, ""},
        {&QcMenuTextButton::staticMetaObject, Make<QcMenuTextButton>, kButtons, "Button with Menu", 96, 24, Room::Nothing,
            "A push button with a text and an arrow for a menu", "The program sets the menu.", kButtonText, ""},
        {&QcCheckBox::staticMetaObject, Make<QcCheckBox>, kButtons, "Check Box", 144, 28, Room::Nothing,
            "A check box", "The font is the kit's: set none.", R"(<property name="text"><string>Check box</string></property>)", ""},
        {&QcRadioButton::staticMetaObject, Make<QcRadioButton>, kButtons, "Radio Button", 144, 28, Room::Nothing,
            "A radio button", "The font is the kit's: set none.", R"(<property name="text"><string>Radio button</string></property>)", ""},
        {&QcSwitchButton::staticMetaObject, Make<QcSwitchButton>, kButtons, "Switch", 28, 14, Room::Nothing,
            "A switch that is on or off",
            "28 by 14 pixels, and no text: give it an accessible name, or a label as its buddy.", "", ""},

        // --- Inputs ---
        {&QcLineEditFrame::staticMetaObject, Make<QcLineEditFrame>, kInputs, "Line Edit", 160, 24, Room::Nothing,
            "A field for one line or a number",
            "With a unit, a button by buttonIconPath, and a warning if they are wanted. With decimals, minimum and maximum it takes "
            "numbers only: set decimals first.", "", ""},
        {&QcTextEditFrame::staticMetaObject, Make<QcTextEditFrame>, kInputs, "Text Edit", 240, 96, Room::Nothing,
            "A field for a longer text, which counts what may still be added",
            "maxLength limits the text, 0 does not. The property text reads HTML.", "", ""},
        {&QcTextEditLimiter::staticMetaObject, Make<QcTextEditLimiter>, kInputs, "Text Edit with Limit", 240, 96, Room::Nothing,
            "A field for a text of limited length, with a counter in its corner",
            "maxNum is the limit: with 0 nothing can be entered.", R"(<property name="maxNum"><number>200</number></property>)", ""},
        {&QcSpinBox::staticMetaObject, Make<QcSpinBox>, kInputs, "Spin Box", 96, 24, Room::Nothing,
            "A spin box for whole numbers", "No arrows are painted; a click where they would be steps all the same.", "", ""},
        {&QcDoubleSpinBox::staticMetaObject, Make<QcDoubleSpinBox>, kInputs, "Double Spin Box", 96, 24, Room::Nothing,
            "A spin box for numbers with decimals",
            "It has the look of the kit once bordered is set: true keeps the border while it is disabled, false takes it away then.",
            R"(<property name="bordered" stdset="0"><bool>true</bool></property>)", ""},
        {&QcSelector::staticMetaObject, Make<QcSelector>, kInputs, "Selector", 160, 28, Room::Nothing,
            "A drop-down list",
            "28 pixels high. Its items count for nothing in its width: set a minimum.",
            R"(<property name="minimumSize"><size><width>120</width><height>0</height></size></property>)", ""},
        {&QCSlider::staticMetaObject, Make<QCSlider>, kInputs, "Slider", 160, 24, Room::Nothing,
            "A slider", "Ticks and the inverted appearance are not painted.",
            R"(<property name="orientation"><enum>Qt::Horizontal</enum></property>)", ""},

        // --- Display ---
        {&QcLabel::staticMetaObject, Make<QcLabel>, kDisplay, "Label", 96, 20, Room::Nothing,
            "A line of text in one of the kit's styles, or an icon",
            "type gives font and colour in one. For an icon set iconPath, iconColorParams and a fixed size.", kLabelText, ""},
        {&QcMultiLineText::staticMetaObject, Make<QcMultiLineText>, kDisplay, "Multi-line Text", 240, 48, Room::Nothing,
            "A text of many lines, with links",
            "It is read as HTML. heightAdaptive gives it the height that its text takes, lineCount cuts it to lines.", kSmallText, ""},

        // --- Containers ---
        {&QcFrame::staticMetaObject, Make<QcFrame>, kContainers, "Frame", 240, 160, Room::Children,
            "A surface with a ground, borders and round corners", "Choose its colours by backgroundColorParams and borderColorParams.",
            kSurface, ""},
        {&QcStackedWidget::staticMetaObject, Make<QcStackedWidget>, kContainers, "Stacked Pages", 240, 160, Room::Pages,
            "One of several pages at a time",
            "The context menu adds, removes and shows pages; a program begins with the first. No size of a page reaches the stack: give it a "
            "minimum size.", "", kTwoPages},
        {&QcWindow::staticMetaObject, Make<QcWindow>, kContainers, "Window", 600, 400, Room::Content,
            "A window without a system frame",
            "For a form of its own: File, New, Custom Widgets. What it holds goes on its page.",
            R"(<property name="title"><string>Window</string></property>)", kContent},
        {&QcDialog::staticMetaObject, Make<QcDialog>, kContainers, "Dialog", 600, 400, Room::Content,
            "A dialog without a system frame, with OK and Cancel",
            "For a form of its own: File, New, Custom Widgets. What it holds goes on its page. 10 pixels at each side are its shadow's.",
            kDialogButtons, kContent},
        {&QcDockContainer::staticMetaObject, Make<QcDockContainer>, kContainers, "Dock Container", 400, 300, Room::Nothing,
            "The place of dock panels", "The program docks its panels there, or loads a layout.", "", ""},
    };
    return table;
}
// clang-format on

QString Element(const char *name, const QString &content)
{
    return QStringLiteral("<%1>%2</%1>").arg(QLatin1String(name), content);
}

/// What no translator is to see: file names and colour codes.
QString UntranslatedProperties(const QMetaObject &type)
{
    QString result;
    for (int i = 0; i < type.propertyCount(); ++i) {
        const QMetaProperty property = type.property(i);
        const QString name = QLatin1String(property.name());
        if (IsColorCode(name) || name.endsWith(QLatin1String("conPath")))
            result += QStringLiteral(R"(<stringpropertyspecification name="%1" notr="true" type="singleline"/>)").arg(name);
    }
    return result;
}

QString AddPageMethod(Room room)
{
    switch (room) {
    case Room::Content:
        return Element("addpagemethod", QStringLiteral("setContentWidget"));
    case Room::Pages:
        return Element("addpagemethod", QStringLiteral("addWidget"));
    case Room::Nothing:
    case Room::Children:
        break;
    }
    return QString();
}

} // namespace

const std::vector<Control> &Controls()
{
    return Table();
}

bool IsColorCode(const QString &name)
{
    return name.endsWith(QLatin1String("ColorParams"));
}

QString Control::ClassName() const
{
    return QLatin1String(type->className());
}

QString Control::ShortName() const
{
    return ClassName().mid(QStringLiteral("Velmora::").size());
}

QString Control::QtClass() const
{
    const QMetaObject *base = type;
    while (QLatin1String(base->className()).startsWith(QLatin1String("Velmora::")))
        base = base->superClass();
    return QLatin1String(base->className());
}

QString Control::Header() const
{
    return QStringLiteral("Velmora/%1.h").arg(ShortName());
}

QString Control::ObjectName() const
{
    QString name = ShortName().mid(2); // "Qc", or "QC"
    name[0] = name.at(0).toLower();
    return name;
}

QString Control::DomXml() const
{
    const QString geometry = QStringLiteral(R"(<property name="geometry"><rect><x>0</x><y>0</y><width>%1</width><height>%2</height>)"
                                            R"(</rect></property>)")
                                 .arg(width)
                                 .arg(height);
    const QString widget = QStringLiteral(R"(<widget class="%1" name="%2">%3</widget>)")
                               .arg(ClassName(), ObjectName(), geometry + QLatin1String(firstProperties) + QLatin1String(firstPages));
    const QString customWidget = Element("class", ClassName()) + Element("extends", QtClass())
        + QStringLiteral(R"(<header location="global">%1</header>)").arg(Header()) + AddPageMethod(room)
        + Element("propertyspecifications", UntranslatedProperties(*type));
    return QStringLiteral(R"(<ui language="c++" displayname="%1">%2<customwidgets><customwidget>%3</customwidget></customwidgets></ui>)")
        .arg(QLatin1String(title), widget, customWidget);
}

} // namespace VelmoraDesigner
