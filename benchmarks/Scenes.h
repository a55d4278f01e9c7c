#pragma once

#include <QColor>
#include <QEvent>
#include <QHash>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <memory>
#include <vector>

namespace Bench {

enum class Table { Light, Dark };

QString TablePath(Table table);
/// The tokens of \a table with their colours, as any program could hold them.
QHash<QString, QColor> TableColors(Table table);

/// Keeps what the library set as the application's stylesheet, so that plain Qt can be measured without it.
void RememberApplicationStyleSheet();

/// What the widgets of all scenes counted since the last reset.
struct Counters
{
    long paints = 0;
    long styleChanges = 0;

    static Counters &Get();
    static void Reset() { Get() = Counters(); }
};

/// \a Base, counting what a theme switch costs it.
template <typename Base>
class Counted : public Base
{
public:
    using Base::Base;

protected:
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::StyleChange)
            ++Counters::Get().styleChanges;
        return Base::event(event);
    }
    void paintEvent(QPaintEvent *event) override
    {
        ++Counters::Get().paints;
        Base::paintEvent(event);
    }
};

/// The colours of a scene without the library, in the two tables by turns.
class TwoTables
{
public:
    const QHash<QString, QColor> &Active() const { return m_isDark ? m_darkColors : m_lightColors; }
    void Switch() { m_isDark = !m_isDark; }

private:
    QHash<QString, QColor> m_lightColors = TableColors(Table::Light);
    QHash<QString, QColor> m_darkColors = TableColors(Table::Dark);
    bool m_isDark = false;
};

/// One way to make a screenful of counted widgets that follow a theme.
class Scene
{
public:
    virtual ~Scene();

    /// A widget of a fixed size, numbered \a index, without a parent; the caller owns it.
    virtual std::unique_ptr<QWidget> MakeWidget(int index) = 0;
    /// Dresses the application and all widgets on show in the other table's colours.
    virtual void SwitchTheme() = 0;

protected:
    Scene() = default;
};

/// Widgets of the library.
class VelmoraScene : public Scene
{
public:
    VelmoraScene();
    ~VelmoraScene() override;

    void SwitchTheme() override;

private:
    bool m_isDark = false;
};

/// Widgets of plain Qt, each with a stylesheet of its own.
class SheetOnEachScene : public Scene
{
public:
    std::unique_ptr<QWidget> MakeWidget(int index) final;
    void SwitchTheme() override;

protected:
    virtual std::unique_ptr<QWidget> MakePlain(int index) = 0;
    virtual QString Sheet(const QHash<QString, QColor> &colors) const = 0;

private:
    TwoTables m_tables;
    std::vector<QPointer<QWidget>> m_widgets;
};

/// The scenes of push buttons: the library, and what plain Qt offers for the same. All show the same: buttons of 110 by 32 with a
/// text and a 32-pixel icon, ten different icons among them.
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

/// A window with \a count widgets of \a scene in a grid, not yet shown.
std::unique_ptr<QWidget> MakeWindow(Scene &scene, int count);
/// The same, shown, painted and idle.
std::unique_ptr<QWidget> ShowWindow(Scene &scene, int count);

/// Handles events until \a paints paints are counted and nothing more is due.
void RunUntilPainted(long paints);
/// Handles all events that are due, those that they cause included.
void Settle();

} // namespace Bench
