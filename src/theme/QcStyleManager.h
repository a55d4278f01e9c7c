#pragma once

#include <Velmora/ColorParams.h>
#include <Velmora/ImageParams.h>
#include <Velmora/PointerFunctors.h>
#include <Velmora/VelmoraExport.h>

#include <QByteArray>
#include <QColor>
#include <QFont>
#include <QHash>
#include <QIcon>
#include <QImage>
#include <QObject>
#include <QPixmap>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

namespace Velmora {

/// The theme engine: the active colour table, and the registry that keeps widgets in step with it. Main thread only.
///
/// Colour tables are INI files as QSettings reads them, without sections: `key = #RRGGBB` or `key = #RRGGBB, alpha`,
/// where the key is the token's name and `;` begins a comment. Nothing picks a table by default: before the first
/// SetColorFilePath() every token resolves as an unknown name.
class VELMORA_EXPORT QcStyleManager : public QObject
{
    Q_OBJECT

public:
    /// The one instance, made at its first use, destroyed when the process ends.
    static QcStyleManager *GetInstance();

    /// Adds the built-in fonts, appends the global stylesheet to the application's, unless it is there already, and makes
    /// registered widgets follow the colour table for as long as the application object lives.
    /// QcApplication::Initialize() calls it.
    void Initialize();

    /// Loads the colour table at \a path in place of the active one and emits SignalColorChanged(). The current
    /// path again does nothing, even if the file changed; a missing file gives a warning and changes nothing.
    /// A malformed colour is stored as an invalid one.
    void SetColorFilePath(const QString &path);
    /// The colour of a token, `#RRGGBB`, colour name of Qt or "transparent"; an alpha of \a params replaces the colour's
    /// own. An empty code or a name that neither the table nor Qt knows gives an invalid colour.
    QColor GetColor(const ColorParams &params);
    /// \a color as a stylesheet writes it: "rgba(red, green, blue, alpha)", alpha from 0 to 1.
    QString GetStyleSheetColor(const QColor &color);
    /// \a styleSheet with each `${...}` in it replaced by its colour; an unknown name becomes black, opaque unless the code says
    /// an alpha.
    QString ReplaceStyleSheetColorCodes(const QString &styleSheet);

    /// Appends \a styleSheet to what \a widget has registered so far and applies the whole, now and once more on the
    /// next turn of the main loop, if the widget has become of another class by then; from then on it is applied after each
    /// change of the table. A text that the widget has already is not applied again: the widget is only repainted. A hidden
    /// widget catches up when it is shown. A null or dead widget is ignored; one that dies is forgotten.
    void RegisterStyleSheet(QPointer<QWidget> widget, const QString &styleSheet);
    /// RegisterStyleSheet() with the text of the file at \a path; an unreadable file registers an empty text.
    void RegisterQss(QPointer<QWidget> widget, const QString &path);
    /// Sets the function that runs after each change of the table, in place of an earlier one. It also runs now
    /// and once more on the next turn of the main loop, so it must not mind being repeated.
    /// It and what it captured live until it is replaced, or to the end of the process, even after the widget. A null or dead
    /// widget is ignored. An empty function throws std::bad_function_call when it is called.
    void RegisterColorHandler(QPointer<QWidget> widget, const std::function<void()> &handler);

    /// The image that \a params asks for, at exactly its size and device pixel ratio 1. An SVG is recoloured; a raster
    /// image comes as its file holds it. A missing file or an empty size gives a null image. An SVG that does not
    /// parse gives a warning a colour and renders as far as Qt can.
    /// Images are cached until the table or the file changes, the most recently asked for up to 32 MiB.
    /// For a picture of one's own painting that is as sharp as the screen, ask for the size times QWidget::devicePixelRatioF()
    /// and give the result that ratio.
    QImage GetImage(const ImageParams &params);
    QPixmap GetPixmap(const ImageParams &params);
    /// GetPixmap() for all four modes, so that Qt does not grey the disabled one.
    QIcon GetIcon(const ImageParams &params);

    /// The library's base font, 14 pixels.
    static QFont GetDefaultFont();

Q_SIGNALS:
    /// Emitted after a table was loaded; registered widgets follow on the next turn of the main loop, hidden ones when they are shown.
    void SignalColorChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void OnRegisteredWidgetDestroyed(QObject *object);
    void OnUpdateRegisteredWidgetsStyleSheet();
    void OnRunRegisteredWidgetsColorHandler();

private:
    QcStyleManager();
    ~QcStyleManager() override;

    template <typename Content>
    struct Registered
    {
        Content content;
        quint64 serial = 0; // the order of registration
    };
    template <typename Content>
    using Registry = std::unordered_map<QPointer<QWidget>, Registered<Content>, PointerHashFunc, PointerEqualFunc>;
    struct StyleSheet
    {
        QString text;                          // with its codes
        const QMetaObject *styledAs = nullptr; // the widget's class when it was last applied
    };

    QString ParseStyleSheetColorCodeToStyleSheetColor(const QString &code);
    bool IsColorCode(const QString &text);
    QByteArray GetAdjustedSvgData(const ImageParams &params);
    QString ResolvedOnce(const QString &styleSheet);
    void UpdateWidgetStyleSheet(QPointer<QWidget> widget);
    void RunWidgetColorHandler(QPointer<QWidget> widget);
    void LoadFont();
    void LoadGlobalQss();
    void WatchWidget(QWidget *widget);
    template <typename Content>
    Content &EntryOf(Registry<Content> &registry, const QPointer<QWidget> &widget);
    void QueueStyleSheetUpdate(QPointer<QWidget> widget, const QString &taskName);
    void QueueHandlerRun(QPointer<QWidget> widget, const std::string &taskName);
    QImage RenderImage(const ImageParams &params);
    friend struct PlainService; // starts it without a QcApplication
    void FollowTable();

    const char *m_needUpdateProperty = "uNeedProcesUpdateColor";
    QString m_colorFilePath;
    QHash<QString, QColor> m_colorTable;
    Registry<StyleSheet> m_styleSheets;
    Registry<std::function<void()>> m_colorHandlers;
    std::vector<std::function<void()>> m_handlersOfTheDead; // never called again, never destroyed before the manager
    QHash<QString, QString> m_resolvedTexts;                // with the active table
    QPointer<QObject> m_initializedFor;                     // the application object
};

} // namespace Velmora
