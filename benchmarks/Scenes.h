#pragma once

#include <QColor>
#include <QHash>
#include <QString>
#include <QWidget>

#include <memory>

namespace Bench {

enum class Table { Light, Dark };

QString TablePath(Table table);
/// The tokens of \a table with their colours, as any program could hold them.
QHash<QString, QColor> TableColors(Table table);

/// Keeps what the library set as the application's stylesheet, so that plain Qt can be measured without it.
void RememberApplicationStyleSheet();

/// What the buttons of all scenes counted since the last reset.
struct Counters
{
    long paints = 0;
    long styleChanges = 0;

    static Counters &Get();
    static void Reset() { Get() = Counters(); }
};

/// One way to make a screenful of buttons with text and icon that follow a theme.
///
/// All scenes show the same: buttons of 110 by 32 with a text and a 32-pixel icon, ten different icons among them.
class Scene
{
public:
    virtual ~Scene();

    /// A button, numbered \a index, without a parent; the caller owns it.
    virtual std::unique_ptr<QWidget> MakeButton(int index) = 0;
    /// Dresses the application and all buttons on show in the other table's colours.
    virtual void SwitchTheme() = 0;

protected:
    Scene() = default;
};

/// The kinds of scene: the library, and what plain Qt offers for the same.
enum class Kind {
    Velmora,
    BarePainter,      ///< a widget with its own painter, colours from a hash, icons from one shared cache
    ApplicationSheet, ///< QPushButton under one stylesheet of the application
    SheetOnEach,      ///< QPushButton with a stylesheet of its own
    Palette,          ///< QPushButton under Fusion and a palette
};

/// Prepares the application for the scene; its end puts the application back.
std::unique_ptr<Scene> MakeScene(Kind kind);

constexpr int kDistinctIcons = 10;
QString IconPath(int index);

/// A window with \a count buttons of \a scene in a grid, not yet shown.
std::unique_ptr<QWidget> MakeWindow(Scene &scene, int count);

/// Handles events until \a paints paints are counted and nothing more is due.
void RunUntilPainted(long paints);
/// Handles all events that are due, those that they cause included.
void Settle();

} // namespace Bench
