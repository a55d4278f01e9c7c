#include "GalleryWindow.h"
#include "Render.h"
#include "Tables.h"
#ifdef EXAMPLES_HAVE_DBUS
#include "DesktopWish.h"
#endif

#include <Velmora/KeyboardCues.h>
#include <Velmora/PlainWidgets.h>
#include <Velmora/QcApplication.h>
#include <Velmora/QcStyleManager.h>
#include <Velmora/Translations.h>
#include <Velmora/Veils.h>

#include <QAbstractItemView>
#include <QCommandLineParser>
#include <QDir>
#include <QFont>
#include <QKeyEvent>
#include <QLocale>
#include <QStyleFactory>
#include <QTextStream>
#include <QTranslator>

#include <algorithm>
#include <memory>
#include <optional>

using namespace Gallery;

namespace {

// Before there is an application object to parse the command line: the platform plugin is chosen in its constructor.
bool HasArgument(int argc, char **argv, const QByteArray &name)
{
    for (int i = 1; i < argc; ++i) {
        const QByteArray argument(argv[i]);
        if (argument == name || argument.startsWith(name + '='))
            return true;
    }
    return false;
}

bool HasDisplay()
{
#ifdef Q_OS_LINUX
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
#else
    return true;
#endif
}

// Text-only calls and rendering need no display. False if one is needed and missing.
bool ChoosePlatform(int argc, char **argv)
{
    if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        return true;
    for (const char *name : {"--render", "--list", "--help", "-h", "--help-all", "--version", "-v"}) {
        if (HasArgument(argc, argv, name)) {
            qputenv("QT_QPA_PLATFORM", "offscreen");
            return true;
        }
    }
    return HasDisplay();
}

/// The languages that the kit's texts are compiled into, as QLocale names them.
QStringList Languages()
{
    QStringList names;
    for (const QString &file : QDir(Velmora::TranslationsFolder()).entryList({QStringLiteral("velmora_*.qm")}))
        names.append(file.mid(8).chopped(3));
    return names;
}

void SetUpLook()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion"))); // the same ground everywhere
    QFont font = Velmora::QcStyleManager::GetDefaultFont();
    font.setFamilies({QStringLiteral("Open Sans Medium"), font.family()});
    font.setPixelSize(12);
    QApplication::setFont(font);
}

/// Prints which widget has the keyboard after each press of the Tab key, and where on the screen: "stop name class x y width height".
class StopPrinter : public QObject
{
public:
    explicit StopPrinter(QObject *parent)
        : QObject(parent)
    {
        qApp->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const bool isRelease = watched->isWindowType() && event->type() == QEvent::KeyRelease;
        const int key = isRelease ? static_cast<QKeyEvent *>(event)->key() : 0;
        if (key == Qt::Key_Tab || key == Qt::Key_Backtab)
            QMetaObject::invokeMethod(this, &StopPrinter::Print, Qt::QueuedConnection);
        return false;
    }

private:
    void Print()
    {
        const QWidget *focus = QApplication::focusWidget();
        if (!focus)
            return;
        const QPoint at = focus->mapToGlobal(QPoint());
        const QString name = focus->objectName().isEmpty() ? QStringLiteral("-") : focus->objectName();
        QTextStream(stdout) << "stop " << name << ' ' << focus->metaObject()->className() << ' ' << at.x() << ' ' << at.y() << ' '
                            << focus->width() << ' ' << focus->height() << '\n'
                            << Qt::flush;
    }
};

/// Prints of which class each widget in sight is, and where on the screen, when a window gets a new title, as it does with each page, and
/// when something has moved since: "class name x y width height", or "specimen" for one that is to be looked at only, and at last
/// "classes" and the title.
class ClassPrinter : public QObject
{
public:
    explicit ClassPrinter(QWidget *window)
        : QObject(window)
    {
        window->installEventFilter(this);
        constexpr int kLookAgain = 250; // milliseconds
        startTimer(kLookAgain);
    }

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::WindowTitleChange)
            QMetaObject::invokeMethod(this, &ClassPrinter::Print, Qt::QueuedConnection);
        return false;
    }

    void timerEvent(QTimerEvent * /*event*/) override { Print(); }

private:
    /// Of which a view tells assistive technology nothing, but of its items.
    static bool LiesInItemView(const QWidget &widget)
    {
        const auto isViewport = [](const QWidget *ground) {
            const auto *view = qobject_cast<const QAbstractItemView *>(ground->parentWidget());
            return view && view->viewport() == ground;
        };
        const QWidget *ground = widget.parentWidget();
        while (ground && !isViewport(ground))
            ground = ground->parentWidget();
        return ground;
    }

    void Print()
    {
        const auto *window = static_cast<QWidget *>(parent());
        QString text;
        QTextStream out(&text);
        for (const QWidget *widget : window->findChildren<QWidget *>()) {
            if (!widget->isVisible() || LiesInItemView(*widget))
                continue;
            const QPoint at = widget->mapToGlobal(QPoint());
            out << (widget->property("isSpecimen").toBool() ? "specimen " : "class ") << widget->metaObject()->className() << ' ' << at.x()
                << ' ' << at.y() << ' ' << widget->width() << ' ' << widget->height() << '\n';
        }
        out << "classes " << window->windowTitle() << '\n';
        if (text != m_printed)
            QTextStream(stdout) << text << Qt::flush;
        m_printed = text;
    }

    QString m_printed;
};

/// With a table of the user's choice, or else the one that the desktop wishes, now and later.
int ShowWindow(Table table, [[maybe_unused]] bool isChosen, const QString &page, bool printPositions)
{
#ifdef EXAMPLES_HAVE_DBUS
    std::unique_ptr<Examples::DesktopWish> wish;
    if (!isChosen) {
        wish = std::make_unique<Examples::DesktopWish>();
        table = Examples::ApplyWishedTable(*wish, table);
    }
#endif
    GalleryWindow window(table);
#ifdef EXAMPLES_HAVE_DBUS
    if (wish)
        Follow(window, *wish);
#endif
    if (!page.isEmpty())
        window.ShowPage(page);
    window.show();
    if (printPositions) {
        // Asked for by programs that drive the gallery with a real mouse: once it stands still, where is what?
        QObject::connect(qApp, &QGuiApplication::applicationStateChanged, &window, [&window](Qt::ApplicationState state) {
            if (state == Qt::ApplicationActive)
                QTextStream(stdout) << window.ControlPositions() << Qt::flush;
        });
        new StopPrinter(&window);
        new ClassPrinter(&window);
    }
    return QApplication::exec();
}

} // namespace

int main(int argc, char *argv[])
{
    if (!ChoosePlatform(argc, argv)) {
        QTextStream(stderr) << "gallery: there is no display. \"gallery --render DIR\" draws every page to a file.\n";
        return 1;
    }

    Velmora::QcApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("gallery"));
    QCoreApplication::setApplicationVersion(QStringLiteral(GALLERY_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("The gallery of Velmora: every control, token and image in all colour tables."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption renderOption(QStringLiteral("render"),
                                          QStringLiteral("Render the pages in all tables to PNG files in DIR, without a display."),
                                          QStringLiteral("DIR"));
    const QCommandLineOption pageOption(QStringLiteral("page"), QStringLiteral("Open, or render, the page NAME."), QStringLiteral("NAME"));
    const QCommandLineOption tableOption(QStringLiteral("table"),
                                         QStringLiteral("Start with the table light, dark, contrast-light or contrast-dark, and not with "
                                                        "the one that the desktop wishes."),
                                         QStringLiteral("TABLE"), QStringLiteral("light"));
    const QCommandLineOption languageOption(QStringLiteral("language"),
                                            QStringLiteral("Show the kit's texts in LANGUAGE (as in de or zh_CN) in place of the user's."),
                                            QStringLiteral("LANGUAGE"));
    const QCommandLineOption listOption(QStringLiteral("list"), QStringLiteral("Print the names of the pages."));
    QCommandLineOption positionsOption(
        QStringLiteral("print-positions"),
        QStringLiteral("Print where the named controls are in the window, each time it becomes active, where Tab leads, and of "
                       "which classes a page is."));
    positionsOption.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOptions({renderOption, pageOption, tableOption, languageOption, listOption, positionsOption});
    parser.process(app);

    const QVector<PageInfo> pages = Pages();
    if (parser.isSet(listOption)) {
        QTextStream out(stdout);
        for (const PageInfo &page : pages)
            out << page.id << '\n';
        return 0;
    }
    const QString page = parser.value(pageOption);
    const auto hasId = [&page](const PageInfo &info) { return info.id == page; };
    if (parser.isSet(pageOption) && std::none_of(pages.cbegin(), pages.cend(), hasId)) {
        QTextStream(stderr) << "gallery: no page \"" << page << "\"; --list names them.\n";
        return 1;
    }
    const std::optional<Table> table = TableNamed(parser.value(tableOption));
    if (!table) {
        QTextStream(stderr) << "gallery: the table is light, dark, contrast-light or contrast-dark, not \"" << parser.value(tableOption)
                            << "\".\n";
        return 1;
    }

    const QString language = parser.value(languageOption);
    if (parser.isSet(languageOption) && !Languages().contains(language)) {
        QTextStream(stderr) << "gallery: the language is one of " << Languages().join(QStringLiteral(", ")) << ", not \"" << language
                            << "\".\n";
        return 1;
    }
    if (parser.isSet(languageOption))
        QLocale::setDefault(QLocale(language));
    QTranslator texts;
    if (texts.load(QLocale(), QStringLiteral("velmora"), QStringLiteral("_"), Velmora::TranslationsFolder(), QStringLiteral(".qm")))
        QCoreApplication::installTranslator(&texts);

    ApplyTable(*table);
    app.Initialize();
    Velmora::SetKeyboardCuesEnabled(true);
    Velmora::SetVeilsStopKeyboard(true);
    app.setDebugTipEnabled(true);
    SetUpLook();
    ApplyPalette();
    Velmora::SetPlainWidgetsFollowTable(true);
    QObject::connect(Velmora::QcStyleManager::GetInstance(), &Velmora::QcStyleManager::SignalColorChanged, &app, [] { ApplyPalette(); });

    if (parser.isSet(renderOption))
        return RenderPages(parser.value(renderOption), page);
    return ShowWindow(*table, parser.isSet(tableOption), page, parser.isSet(positionsOption));
}
