#include "theme/PlainPalette_p.h"

#include "core/ApplicationEvents_p.h"
#include "core/QtCompatibility_p.h"
#include "theme/TokenPainting_p.h"

#include <Velmora/QcStyleManager.h>

#include <QApplication>
#include <QCalendarWidget>
#include <QLinearGradient>
#include <QMetaObject>
#include <QPointer>
#include <QScopedValueRollback>
#include <QWidget>

#include <algorithm>
#include <iterator>

namespace Velmora {

namespace {

/// The tokens of a role, and of it in a disabled widget. A translucent one is laid on the role that it is seen on: styles
/// make shades of what they get, and drop the alpha.
struct Role
{
    QPalette::ColorRole role;
    const char *token;
    const char *disabled;
    QPalette::ColorRole ground;
};

// A role stands behind its ground. Grounds are opaque in every built-in table, and lie on themselves.
constexpr Role kRoles[] = {
    {QPalette::Window, "bg/bg_box", "bg/bg_box", QPalette::Window},
    {QPalette::Base, "bg/bg_float", "bg/bg_box", QPalette::Window},
    {QPalette::AlternateBase, "bg/bg_secondary", "bg/bg_secondary", QPalette::Base},
    {QPalette::Button, "bg/bg_primary", "bg/bg_primary", QPalette::Window},
    {QPalette::ToolTipBase, "bg/bg_float", "bg/bg_float", QPalette::Window},
    {QPalette::WindowText, "text/text_primary", "text/text_disabled", QPalette::Window},
    {QPalette::Text, "text/text_primary", "text/text_disabled", QPalette::Base},
    {QPalette::ButtonText, "text/text_primary", "text/text_disabled", QPalette::Button},
    {QPalette::ToolTipText, "text/text_primary", "text/text_primary", QPalette::ToolTipBase},
    {QPalette::BrightText, "text/text_caption", "text/text_disabled", QPalette::Window},
    {QPalette::PlaceholderText, "text/text_secondary", "text/text_disabled", QPalette::Base},
    {QPalette::Highlight, "brand/brand_press", "bg/bg_transluent_strong_active", QPalette::Base},
    {QPalette::HighlightedText, "${text/text_button, 1}", "text/text_disabled", QPalette::Highlight},
    {QPalette::Link, "link/link", "link/link_disable", QPalette::Base},
    {QPalette::LinkVisited, "link/link_visited", "link/link_disable", QPalette::Base},
    // The shades of bevels and of lines that are sunken or raised.
    {QPalette::Light, "bg/bg_transluent_subtle_hover", "bg/bg_transluent_subtle_hover", QPalette::Window},
    {QPalette::Midlight, "bg/bg_transluent_subtle_active", "bg/bg_transluent_subtle_active", QPalette::Window},
    {QPalette::Mid, "border/border_tertairy", "border/border_tertairy", QPalette::Window},
    {QPalette::Dark, "border/border_tertairy", "border/border_tertairy", QPalette::Window},
    {QPalette::Shadow, "border/border_secondary", "border/border_secondary_disabled", QPalette::Window},
};

/// Classes whose outline the style Fusion takes from what they are said to lie on, made darker: on dark ground nobody would see it.
/// None of them fills itself with that.
constexpr const char *kOutlinedClasses[] = {
    "QPushButton", "QToolButton", "QCheckBox",  "QRadioButton", "QLineEdit",    "QAbstractSpinBox", "QComboBox",
    "QGroupBox",   "QTabBar",     "QTabWidget", "QSlider",      "QProgressBar", "QScrollBar",
};

/// Classes to which a desktop or its style gives a palette of their own.
constexpr const char *kThemedClasses[] = {
    "QToolButton", "QAbstractButton", "QCheckBox", "QRadioButton", "QHeaderView", "QAbstractItemView", "QMessageBoxLabel", "QTabBar",
    "QLabel",      "QGroupBox",       "QMenu",     "QMenuBar",     "QTextEdit",   "QTextControl",      "QTipLabel",
};

QColor Over(const QColor &top, const QColor &ground)
{
    const double share = top.alphaF();
    const auto mixed = [share](int above, int below) { return qRound(share * above + (1 - share) * below); };
    return QColor(mixed(top.red(), ground.red()), mixed(top.green(), ground.green()), mixed(top.blue(), ground.blue()));
}

/// \a palette, by which Fusion outlines in the colour of borders.
QPalette OutlinedPalette(QPalette palette)
{
    using Share = decltype(QColor().valueF());
    constexpr auto kDarker = Share(1.4); // the style's own factor
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const bool isDisabled = group == QPalette::Disabled;
        const QColor token =
            TokenColor(isDisabled ? QStringLiteral("border/border_secondary_disabled") : QStringLiteral("border/border_primary"));
        if (!token.isValid())
            continue;
        const QColor border = Over(token, palette.color(group, QPalette::Window));
        palette.setColor(
            group, QPalette::Window,
            QColor::fromHsvF(qMax(border.hsvHueF(), Share(0)), border.hsvSaturationF(), qMin(border.valueF() * kDarker, Share(1))));
    }
    return palette;
}

/// \a outlined, by which still all is filled with the ground of \a palette: Qt gives the items of a combo box that drops down as a menu
/// the ground of menus. A brush may fill with other colours than the one that styles ask it for.
QPalette FilledPalette(QPalette outlined, const QPalette &palette)
{
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QLinearGradient ground;
        ground.setStops({{0, palette.color(group, QPalette::Window)}, {1, palette.color(group, QPalette::Window)}});
        QBrush brush(ground);
        brush.setColor(outlined.color(group, QPalette::Window));
        outlined.setBrush(group, QPalette::Window, brush);
    }
    return outlined;
}

/// \a palette, of which Fusion makes a ground for white titles: it lightens what is highlighted.
QPalette TitledPalette(QPalette palette)
{
    constexpr int kDarker = 115; // percent
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        palette.setColor(group, QPalette::Highlight, palette.color(group, QPalette::Highlight).darker(kDarker));
    return palette;
}

/// Whether Qt paints parts of a control of the kit from the palette, such as what is selected in an edit. What the kit derives
/// from a frame or dialog it paints itself, and hosts put plain widgets into it.
bool IsPaintedByQt(const QMetaObject *widgetClass)
{
    const auto isOfKit = [](const QMetaObject *one) { return QLatin1String(one->className()).startsWith(QLatin1String("Velmora::")); };
    bool isKit = false;
    for (; widgetClass && (isOfKit(widgetClass) || !isKit); widgetClass = widgetClass->superClass())
        isKit = isKit || isOfKit(widgetClass);
    if (!isKit)
        return false;
    static const QSet<QByteArray> containers = {"QFrame", "QDialog", "QStackedWidget", "QSplitter"};
    return !containers.contains(widgetClass->className());
}

/// Nobody can ask Qt for which classes there is a palette. These may have one.
QSet<QByteArray> NamesOfClasses()
{
    QSet<QByteArray> names;
    for (const char *name : kThemedClasses)
        names.insert(name);
    const QWidgetList widgets = QApplication::allWidgets();
    for (const QWidget *widget : widgets) {
        for (const QMetaObject *one = widget->metaObject(); one; one = one->superClass())
            names.insert(one->className());
    }
    return names;
}

QHash<QByteArray, QPalette> PalettesOfClasses()
{
    QHash<QByteArray, QPalette> palettes;
    const QSet<QByteArray> names = NamesOfClasses();
    const QPalette common = QApplication::palette();
    for (const QByteArray &name : names) {
        const QPalette own = QApplication::palette(name.constData());
        if (own != common || ResolveMaskOf(own) != ResolveMaskOf(common))
            palettes.insert(name, own);
    }
    return palettes;
}

/// What a host says by setting \a palette where \a shown was: not what it took over of that, for which \a before says it.
QPalette WordsOfHost(const QPalette &palette, const QPalette &shown, const QPalette &before)
{
    constexpr QPalette::ColorGroup groups[] = {QPalette::Active, QPalette::Inactive, QPalette::Disabled};
    QPalette words;
    for (int i = 0; i < QPalette::NColorRoles; ++i) {
        const auto role = QPalette::ColorRole(i);
        const auto isTakenOver = [&](QPalette::ColorGroup group) { return palette.brush(group, role) == shown.brush(group, role); };
        const bool isOld = std::all_of(std::begin(groups), std::end(groups), isTakenOver);
        if (role == QPalette::NoRole || !(isOld ? before : palette).isBrushSet(QPalette::Active, role))
            continue;
        for (const QPalette::ColorGroup group : groups)
            words.setBrush(group, role, (isTakenOver(group) ? before : palette).brush(group, role));
    }
    return words;
}

/// What a window is told does not come to what lies in it while the application has a stylesheet.
void TellAllWidgets()
{
    if (!kTellsWindowsOfPaletteLater)
        return;
    const QWidgetList widgets = QApplication::allWidgets();
    const QVector<QPointer<QWidget>> guarded(widgets.cbegin(), widgets.cend());
    for (const QPointer<QWidget> &widget : guarded) {
        QEvent change(QEvent::ApplicationPaletteChange);
        if (widget)
            QCoreApplication::sendEvent(widget, &change);
    }
}

} // namespace

QPalette TablePalette(const QPalette &base)
{
    QPalette palette = base;
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (const Role &role : kRoles) {
            const QColor color = TokenColor(QLatin1String(group == QPalette::Disabled ? role.disabled : role.token));
            if (!color.isValid())
                continue;
            const QColor shown = Over(color, palette.color(group, role.ground));
            palette.setColor(group, role.role, role.role == QPalette::Link ? Marked(shown) : shown);
        }
    }
    return palette;
}

PlainPalette::PlainPalette()
    : QObject(QCoreApplication::instance())
    , m_before(QApplication::palette())
    , m_shown(m_before)
    , m_baked(QtsBakedColors(m_before))
    , m_beforeOfClasses(PalettesOfClasses())
    , m_sheet(qApp->styleSheet())
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        IsNewOfKit(*widget);
        MendDrawings(*widget);
    }
    connect(QcStyleManager::GetInstance(), &QcStyleManager::SignalColorChanged, this, &PlainPalette::TakeOver);
    FollowPalette(true);
    WatchApplicationEvents(this, {QEvent::Polish, QEvent::StyleChange});
    TakeOver();
}

void PlainPalette::FollowPalette(bool follows)
{
    // Qt 6 would have the event handled, of which the application's widgets hear in between.
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    if (follows)
        connect(qApp, &QGuiApplication::paletteChanged, this, &PlainPalette::OnPaletteChanged);
    else
        disconnect(qApp, &QGuiApplication::paletteChanged, this, nullptr);
    QT_WARNING_POP
}

void PlainPalette::GiveBack()
{
    FollowPalette(false);
    QApplication::setPalette(m_before); // which forgets those of all classes
    for (auto one = m_beforeOfClasses.cbegin(); one != m_beforeOfClasses.cend(); ++one)
        QApplication::setPalette(one.value(), one.key().constData());
    TellAllWidgets();
    ReplaceBakedColors(m_baked, QtsBakedColors(m_before));
}

void PlainPalette::TakeOver()
{
    const QScopedValueRollback<bool> ours(m_isOurChange, true);
    m_areClassesSet = false;
    const QPalette tables = TablePalette(m_before);
    QApplication::setPalette(tables);
    if (!m_areClassesSet) // it was the table's already, so that nobody heard of it
        SetClasses();
    TellAllWidgets();
    const BakedColors baked = TablesBakedColors(tables);
    ReplaceBakedColors(m_baked, baked);
    m_shown = tables;
    m_baked = baked;
    LookAtSheet();
}

/// Told before any widget is, so that a class gets no palette that is not its own.
void PlainPalette::OnPaletteChanged(const QPalette &palette)
{
    if (m_isAsking)
        return;
    if (m_isOurChange) {
        SetClasses();
        return;
    }
    TakeWords(palette);
    TakeOver();
}

/// Of a host that has set \a palette, or of another style, which fills in what no host says.
void PlainPalette::TakeWords(const QPalette &palette)
{
    const QScopedValueRollback<bool> asking(m_isAsking, true);
    QApplication::setPalette(WordsOfHost(palette, m_shown, m_before));
    m_before = QApplication::palette();
    m_beforeOfClasses.clear(); // as Qt does
}

/// A host that sets the application's stylesheet may have left out what was put in for plain widgets.
void PlainPalette::LookAtSheet()
{
    const QString sheet = qApp->styleSheet();
    if (sheet == m_sheet)
        return;
    m_sheet = sheet;
    QMetaObject::invokeMethod(
        this, [] { FollowSheet(); }, Qt::QueuedConnection); // a sheet may be on its way to the widgets
}

void PlainPalette::SetClasses()
{
    m_areClassesSet = true;
    // First, so that none is a plain button for a moment.
    for (auto kit = m_ofKit.cbegin(); kit != m_ofKit.cend(); ++kit)
        KeepAsBefore(kit.key(), kit.value());
    const QPalette outlined = OutlinedPalette(QApplication::palette());
    for (const char *name : kOutlinedClasses)
        QApplication::setPalette(outlined, name);
    QApplication::setPalette(FilledPalette(outlined, QApplication::palette()), "QMenu");
    QApplication::setPalette(TitledPalette(QApplication::palette()), "QMdiSubWindow");
}

/// Qt asks for the palette of a widget's very class first, and then for that of any class that it inherits.
void PlainPalette::KeepAsBefore(const QByteArray &name, const ClassChain &chain)
{
    const auto own = std::find_if(chain.cbegin(), chain.cend(), [this](const QByteArray &one) { return m_beforeOfClasses.contains(one); });
    QApplication::setPalette(own != chain.cend() ? m_beforeOfClasses.value(*own) : m_before, name.constData());
}

bool PlainPalette::IsNewOfKit(const QWidget &widget)
{
    const QMetaObject *widgetClass = widget.metaObject();
    const QByteArray name = widgetClass->className();
    if (m_known.contains(name))
        return false;
    m_known.insert(name);
    if (!IsPaintedByQt(widgetClass))
        return false;
    for (; widgetClass; widgetClass = widgetClass->superClass())
        m_ofKit[name].append(widgetClass->className());
    return true;
}

void PlainPalette::MendDrawings(QWidget &widget)
{
    if (!m_ofKit.contains(widget.metaObject()->className()))
        m_drawings.Mend(widget);
}

bool PlainPalette::eventFilter(QObject *watched, QEvent *event)
{
    LookAtSheet();
    if (event->type() != QEvent::Polish || !watched->isWidgetType())
        return false;
    auto &widget = *static_cast<QWidget *>(watched);
    if (IsNewOfKit(widget)) {
        const QByteArray name = widget.metaObject()->className();
        KeepAsBefore(name, m_ofKit.value(name));
    }
    MendDrawings(widget);
    if (qobject_cast<QCalendarWidget *>(&widget))
        ReplaceBakedColors(widget, QtsBakedColors(m_shown), m_baked);
    return false;
}

} // namespace Velmora
