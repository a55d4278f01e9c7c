#include <Velmora/FileAndDesktop.h>
#include <Velmora/PostOwnedTask.h>
#include <Velmora/QcStyleManager.h>

#include "core/MainThreadPosting_p.h"
#include "core/QtCompatibility_p.h"
#include "theme/ColorTable_p.h"
#include "theme/ImageCache_p.h"
#include "theme/StyleSheetAlone_p.h"
#include "theme/SvgRecoloring_p.h"
#include "theme/ThemeChecks_p.h"
#include "theme/WholeRepaint_p.h"

#include <QApplication>
#include <QDebug>
#include <QEvent>
#include <QFileInfo>
#include <QFontDatabase>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QVector>

#include <algorithm>
#include <utility>
#include <vector>

namespace Velmora {

namespace {

QString ClassName(const QWidget *widget)
{
    return QString::fromLatin1(widget->metaObject()->className());
}

/// Once a process: nothing else tells why controls stay unpainted and do not follow the table.
void WarnOfPlainApplication(const char *operation)
{
    static bool warned = false;
    if (warned || HasPostingDispatcher())
        return;
    warned = true;
    qWarning("QcStyleManager::%s: the application object is not a QcApplication, so controls stay unpainted and do not follow the "
             "colour table; make a QcApplication in its place and call its Initialize().",
             operation);
}

using Widgets = std::vector<QPointer<QWidget>>;

/// The living widgets of \a registry, the first registered first.
template <typename Registry>
Widgets InOrder(const Registry &registry)
{
    std::vector<std::pair<quint64, QPointer<QWidget>>> widgets;
    widgets.reserve(registry.size());
    for (const auto &entry : registry) {
        if (entry.first)
            widgets.emplace_back(entry.second.serial, entry.first);
    }
    // Widgets are mostly registered as they lie on the screen, and Qt joins what is to be painted much faster in that order
    // than in the map's.
    std::sort(widgets.begin(), widgets.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    Widgets result;
    result.reserve(widgets.size());
    for (auto &entry : widgets)
        result.push_back(std::move(entry.second));
    return result;
}

/// From about a hundred widgets of a window on, one repaint of it is cheaper than theirs.
void RequestRepaintOfCrowdedWindows(const Widgets &widgets)
{
    constexpr int kCrowd = 100;
    QHash<QWidget *, int> visible;
    for (const QPointer<QWidget> &widget : widgets) {
        if (widget->isVisible() && ++visible[widget->window()] == kCrowd)
            RequestWholeRepaint(widget->window());
    }
}

/// Hands each visible widget of \a registry to \a refresh and marks each hidden one with the property \a hiddenMark.
template <typename Registry, typename Refresh>
void RefreshVisible(const Registry &registry, const char *hiddenMark, const Refresh &refresh)
{
    const Widgets widgets = InOrder(registry);
    RequestRepaintOfCrowdedWindows(widgets);
    // A property change may run code of the host, which may register or delete widgets.
    for (const QPointer<QWidget> &widget : widgets) {
        if (!widget)
            continue;
        if (widget->isVisible())
            refresh(widget);
        else
            widget->setProperty(hiddenMark, true);
    }
}

/// The colour that Qt knows by that name. One that it does not know either is no colour, of which a developer may want to hear.
QColor ColorOfQt(const QString &name, const QString &table)
{
    const QColor color(name);
    if (ThemeChecks *checks = color.isValid() ? nullptr : ActiveThemeChecks())
        checks->TellUnknown(name, table);
    return color;
}

} // namespace

QcStyleManager *QcStyleManager::GetInstance()
{
    static QcStyleManager instance;
    return &instance;
}

QcStyleManager::QcStyleManager()
{
    // The first connection of the signal, so that no other receiver sees an image of the earlier table.
    connect(this, &QcStyleManager::SignalColorChanged, this, [] { ImageCache::Clear(); });
}

QcStyleManager::~QcStyleManager() = default;

void QcStyleManager::Initialize()
{
    WarnOfPlainApplication("Initialize");
    LoadFont();
    LoadGlobalQss();
    FollowTable();
}

void QcStyleManager::FollowTable()
{
    // Stylesheets are queued before handlers, so a handler finds its widget polished for the new table. The connections end with
    // the application object: one that comes after it in the process makes its own.
    connect(this, &QcStyleManager::SignalColorChanged, qApp, [this] { OnUpdateRegisteredWidgetsStyleSheet(); });
    connect(this, &QcStyleManager::SignalColorChanged, qApp, [this] { OnRunRegisteredWidgetsColorHandler(); });
    m_initializedFor = qApp;
}

void QcStyleManager::LoadFont()
{
    qInfo() << "QcStyleManager::LoadFont";
    const int ids[] = {
        QFontDatabase::addApplicationFont(QStringLiteral(":/fonts/Roboto-Bold.ttf")),
        QFontDatabase::addApplicationFont(QStringLiteral(":/fonts/OpenSans-Medium.ttf")),
    };
    for (const int id : ids)
        qInfo().nospace() << "QcStyleManager::LoadFont: " << QFontDatabase::applicationFontFamilies(id);
}

QFont QcStyleManager::GetDefaultFont()
{
    QFont font;
    SetFamily(font, QStringLiteral("Microsoft YaHei UI, Segoe UI"));
    font.setPixelSize(14);
    return font;
}

void QcStyleManager::LoadGlobalQss()
{
    QString styleSheet = qApp->styleSheet();
    // A second call finds it there, and so does the next application object of a process, to which Qt hands on the stylesheet.
    const QString global = GetFileContent(QStringLiteral(":/qss/Global.qss"));
    if (!styleSheet.contains(global))
        styleSheet += global;
    qApp->setStyleSheet(ReplaceStyleSheetColorCodes(styleSheet));
}

// --- Colours ---

void QcStyleManager::SetColorFilePath(const QString &path)
{
    if (path == m_colorFilePath)
        return;
    if (!QFileInfo::exists(path)) {
        qWarning().noquote() << QStringLiteral("QcStyleManager::SetColorTableList: %1 not exists").arg(path);
        return;
    }
    m_colorFilePath = path;
    m_colorTable = ReadColorTable(path);
    m_resolvedTexts.clear();
    TellChecksOfTable();
    Q_EMIT SignalColorChanged();
}

QColor QcStyleManager::GetColor(const ColorParams &params)
{
    if (params.code.isEmpty())
        return QColor();
    const auto found = m_colorTable.constFind(params.code);
    QColor color;
    if (found != m_colorTable.cend())
        color = *found;
    else if (params.code == QLatin1String("transparent"))
        color = Qt::transparent;
    else
        color = ColorOfQt(params.code, m_colorFilePath);
    if (params.alpha >= 0.0)
        SetAlphaQuietly(color, params.alpha);
    return color;
}

QString QcStyleManager::GetStyleSheetColor(const QColor &color)
{
    return QStringLiteral("rgba(%1, %2, %3, %4)").arg(color.red()).arg(color.green()).arg(color.blue()).arg(color.alphaF());
}

QString QcStyleManager::ReplaceStyleSheetColorCodes(const QString &styleSheet)
{
    // Lazy, so that two codes on one line are two matches.
    static const QRegularExpression codePattern(QStringLiteral("\\$\\{.*\\}"), QRegularExpression::InvertedGreedinessOption);
    QString result;
    QString::size_type copiedTo = 0;
    for (auto match = codePattern.globalMatch(styleSheet); match.hasNext();) {
        const QRegularExpressionMatch code = match.next();
        result += QStringView(styleSheet).mid(copiedTo, code.capturedStart() - copiedTo);
        result += ParseStyleSheetColorCodeToStyleSheetColor(code.captured());
        copiedTo = code.capturedEnd();
    }
    if (copiedTo == 0)
        return styleSheet;
    return result += QStringView(styleSheet).mid(copiedTo);
}

QString QcStyleManager::ParseStyleSheetColorCodeToStyleSheetColor(const QString &code)
{
    return GetStyleSheetColor(GetColor(ColorParams(code)));
}

bool QcStyleManager::IsColorCode(const QString &text)
{
    return m_colorTable.contains(text);
}

// --- Registry ---

void QcStyleManager::RegisterQss(QPointer<QWidget> widget, const QString &path)
{
    RegisterStyleSheet(widget, GetFileContent(path));
}

void QcStyleManager::RegisterStyleSheet(QPointer<QWidget> widget, const QString &styleSheet)
{
    if (!widget)
        return;
    WarnOfPlainApplication("RegisterStyleSheet");
    if (m_styleSheets.find(widget) == m_styleSheets.end())
        WatchWidget(widget);
    EntryOf(m_styleSheets, widget).text += styleSheet;

    UpdateWidgetStyleSheet(widget);
    // Once more when the constructors of the widget's class are through.
    PostOwnedTask(
        widget.data(), [this, widget] { UpdateWidgetStyleSheet(widget); }, std::string());
}

void QcStyleManager::RegisterColorHandler(QPointer<QWidget> widget, const std::function<void()> &handler)
{
    if (!widget)
        return;
    WarnOfPlainApplication("RegisterColorHandler");
    const auto install = [this, widget, handler] {
        if (m_styleSheets.find(widget) == m_styleSheets.end() && m_colorHandlers.find(widget) == m_colorHandlers.end())
            WatchWidget(widget);
        EntryOf(m_colorHandlers, widget) = handler;
        handler();
    };
    install();
    PostOwnedTask(widget.data(), install, std::string());
}

template <typename Content>
Content &QcStyleManager::EntryOf(Registry<Content> &registry, const QPointer<QWidget> &widget)
{
    Registered<Content> &entry = registry[widget];
    static quint64 lastSerial = 0;
    if (entry.serial == 0)
        entry.serial = ++lastSerial;
    return entry.content;
}

void QcStyleManager::WatchWidget(QWidget *widget)
{
    widget->installEventFilter(this);
    connect(widget, &QObject::destroyed, this, &QcStyleManager::OnRegisteredWidgetDestroyed);
    if (ThemeChecks *checks = ActiveThemeChecks())
        checks->NoteRegistered(widget);
}

/// Told who dies: Qt finds sender() by a search of all that are registered, for each widget of a window that goes.
void QcStyleManager::OnRegisteredWidgetDestroyed(QObject *object)
{
    // A widget announces its end while guarded pointers to it still hold, so its entries are found by their key.
    const QPointer<QWidget> widget(static_cast<QWidget *>(object));
    if (m_styleSheets.erase(widget) > 0)
        m_resolvedTexts.clear(); // a text goes with its last widget
    // A handler lives to the end of the process: nothing may rely on its being destroyed with its widget. But a dead key would
    // keep its place among those of its address, where later widgets come to lie, and slow down every look-up of theirs.
    const auto found = m_colorHandlers.find(widget);
    if (found == m_colorHandlers.end())
        return;
    m_handlersOfTheDead.push_back(std::move(found->second.content));
    m_colorHandlers.erase(found);
}

void QcStyleManager::UpdateWidgetStyleSheet(QPointer<QWidget> widget)
{
    if (!widget)
        return;
    const auto found = m_styleSheets.find(widget);
    if (found == m_styleSheets.end())
        return;
    StyleSheet &styleSheet = found->second.content;
    const QString resolved = ResolvedOnce(styleSheet.text);
    // Qt applies an equal text in full again. Only a class that was not yet complete makes a difference: rules name classes.
    const QMetaObject *styledAs = std::exchange(styleSheet.styledAs, widget->metaObject());
    if (styledAs == widget->metaObject() && widget->styleSheet() == resolved)
        widget->update();
    else
        SetStyleSheetAlone(widget, resolved);
}

/// Widgets of one class mostly have one text.
QString QcStyleManager::ResolvedOnce(const QString &styleSheet)
{
    constexpr int kMostKept = 64; // a host may give each of its widgets a text of its own
    auto found = m_resolvedTexts.constFind(styleSheet);
    if (found == m_resolvedTexts.constEnd()) {
        if (m_resolvedTexts.size() == kMostKept)
            m_resolvedTexts.clear();
        found = m_resolvedTexts.insert(styleSheet, ReplaceStyleSheetColorCodes(styleSheet));
    }
    return *found;
}

void QcStyleManager::RunWidgetColorHandler(QPointer<QWidget> widget)
{
    if (!widget)
        return;
    const auto found = m_colorHandlers.find(widget);
    if (found == m_colorHandlers.end())
        return;
    // A copy: the handler may register another in its own place.
    const std::function<void()> handler = found->second.content;
    handler();
}

void QcStyleManager::OnUpdateRegisteredWidgetsStyleSheet()
{
    RefreshVisible(m_styleSheets, m_needUpdateProperty, [this](const QPointer<QWidget> &widget) {
        QueueStyleSheetUpdate(widget, QStringLiteral("QcStyleManager::OnUpdateRegisteredStyleSheets: %1 %2 \n"));
    });
}

void QcStyleManager::OnRunRegisteredWidgetsColorHandler()
{
    RefreshVisible(m_colorHandlers, m_needUpdateProperty, [this](const QPointer<QWidget> &widget) {
        QueueHandlerRun(widget, std::string("QcStyleManager::OnUpdateRegisteredStyleSheets: ") + widget->metaObject()->className() + ' ');
    });
}

void QcStyleManager::QueueStyleSheetUpdate(QPointer<QWidget> widget, const QString &taskName)
{
    const QString name = taskName.arg(ClassName(widget), m_styleSheets.at(widget).content.text);
    PostOwnedTask(
        this, [this, widget] { UpdateWidgetStyleSheet(widget); }, name.toStdString());
}

void QcStyleManager::QueueHandlerRun(QPointer<QWidget> widget, const std::string &taskName)
{
    PostOwnedTask(
        this, [this, widget] { RunWidgetColorHandler(widget); }, taskName);
}

bool QcStyleManager::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show && watched->isWidgetType() && watched->property(m_needUpdateProperty).toBool()) {
        const QPointer<QWidget> widget = static_cast<QWidget *>(watched);
        if (m_styleSheets.find(widget) != m_styleSheets.end()) {
            QueueStyleSheetUpdate(widget, QStringLiteral("QcStyleManager::eventFilter: Show %1 %2 \n"));
            widget->setProperty(m_needUpdateProperty, false);
        }
        if (m_colorHandlers.find(widget) != m_colorHandlers.end()) {
            QueueHandlerRun(widget, std::string("QcStyleManager::eventFilter: Show ") + widget->metaObject()->className());
            widget->setProperty(m_needUpdateProperty, false);
        }
    }
    return QObject::eventFilter(watched, event);
}

// --- Images ---

QImage QcStyleManager::GetImage(const ImageParams &params)
{
    if (params.size.isEmpty())
        return QImage();
    return ImageCache::Image(params, [this](const ImageParams &request) { return RenderImage(request); });
}

QPixmap QcStyleManager::GetPixmap(const ImageParams &params)
{
    if (params.size.isEmpty())
        return QPixmap();
    return ImageCache::Pixmap(params, [this](const ImageParams &request) { return RenderImage(request); });
}

QImage QcStyleManager::RenderImage(const ImageParams &params)
{
    if (!IsSvg(params.path))
        return QImage(params.path);

    QImage image(params.size, QImage::Format_ARGB32);
    if (image.isNull())
        return image; // too large for the memory there is
    image.fill(Qt::transparent);
    const QByteArray svg = GetAdjustedSvgData(params);
    if (!svg.isEmpty()) {
        QSvgRenderer renderer(svg);
        QPainter painter(&image);
        renderer.render(&painter);
    }
    return image;
}

/// Empty for a document that Qt could not render without exhausting the stack.
QByteArray QcStyleManager::GetAdjustedSvgData(const ImageParams &params)
{
    QString text = GetFileContent(params.path);
    if (!params.color.code.isEmpty()) {
        text = RecolorSvg(text, params.path, GetColor(params.color));
    } else {
        QVector<SvgSubstitution> substitutions;
        substitutions.reserve(params.mulColor.size());
        for (auto entry = params.mulColor.cbegin(); entry != params.mulColor.cend(); ++entry)
            substitutions.append({entry.key(), GetColor(*entry)});
        text = RecolorSvg(text, params.path, substitutions);
    }
    return IsNestedTooDeep(text) ? QByteArray() : text.toUtf8();
}

QIcon QcStyleManager::GetIcon(const ImageParams &params)
{
    const QPixmap pixmap = GetPixmap(params);
    QIcon icon;
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Active, QIcon::Selected, QIcon::Disabled})
        icon.addPixmap(pixmap, mode, QIcon::Off);
    return icon;
}

} // namespace Velmora
