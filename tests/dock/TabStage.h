#pragma once

#include <Velmora/QcDockAreaTabBar.h>
#include <Velmora/QcDockAreaTabBarButton.h>
#include <Velmora/QcDockAreaTabFrame.h>
#include <Velmora/QcDockWidget.h>
#include <Velmora/QcIconButton.h>

#include "support/Pixels.h"
#include "support/TestCase.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include <functional>
#include <initializer_list>

namespace VelmoraTest {

/// A content that takes the focus and decides about its closing.
class Content : public QWidget
{
public:
    explicit Content(const QString &title = QString())
    {
        setWindowTitle(title);
        setFocusPolicy(Qt::StrongFocus);
    }

    bool refusesClose = false;
    int closes = 0;
    std::function<void()> whenAsked;

protected:
    void closeEvent(QCloseEvent *event) override
    {
        ++closes;
        const QPointer<QWidget> self(this);
        if (const std::function<void()> ask = whenAsked) // a copy: this may die of the answer
            ask();
        if (self)
            event->setAccepted(!refusesClose);
    }
};

/// A mouse with a left button, as the window system would move it: what is pressed gets the moves, wherever they lead.
class Mouse
{
public:
    explicit Mouse(Qt::MouseButton button = Qt::LeftButton)
        : m_button(button)
    {
    }

    static void HoverAt(const QPoint &global)
    {
        QCursor::setPos(global);
        QCoreApplication::processEvents();
    }

    void PressAt(QWidget &widget, const QPoint &at)
    {
        m_window = widget.window()->windowHandle();
        HoverAt(widget.mapToGlobal(at));
        QTest::mousePress(m_window, m_button, Qt::NoModifier, widget.mapTo(widget.window(), at));
    }

    void MoveTo(const QPoint &global) { HoverAt(global); }
    void MoveBy(int dx, int dy) { HoverAt(QCursor::pos() + QPoint(dx, dy)); }

    void Release()
    {
        QWindow *window = m_window ? m_window.data() : QGuiApplication::topLevelWindows().constFirst(); // somebody has to hear of it
        QTest::mouseRelease(window, m_button, Qt::NoModifier, window->mapFromGlobal(QCursor::pos()));
        QCoreApplication::processEvents();
    }

private:
    const Qt::MouseButton m_button;
    QPointer<QWindow> m_window;
};

inline Velmora::QcDockWidget *NewPanel(const QString &title)
{
    auto *panel = new Velmora::QcDockWidget;
    panel->setContentWidget(new Content(title));
    return panel;
}

inline bool ShowActive(QWidget &window)
{
    window.show();
    const bool isActive = QTest::qWaitForWindowActive(&window);
    DrainEvents();
    return isActive;
}

template <typename T = QWidget>
T *PartOf(const QWidget &widget, const char *name)
{
    return widget.findChild<T *>(QLatin1String(name));
}

/// What an enabled button of 24 by 24 pixels with the icon at \a iconPath shows.
inline QImage PictureOf(const QString &iconPath)
{
    Velmora::QcIconButton button(nullptr);
    button.SetIconPath(iconPath);
    DrainEvents();
    return Render(button);
}

inline Content *ContentOf(Velmora::QcDockWidget *panel)
{
    return static_cast<Content *>(panel->getContentWidget());
}

/// A window with a row of tabs over its pages, 600 by 400 pixels, with a panel for each of the first titles.
class TabStage
{
public:
    explicit TabStage(std::initializer_list<const char *> titles = {})
        : frame(new Velmora::QcDockAreaTabFrame(&window))
    {
        auto *layout = new QHBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(frame);
        // At other scale factors the offscreen platform knows the cursor right only for windows at (0, 0).
        const int corner = qApp->devicePixelRatio() == 1.0 ? 100 : 0;
        window.setGeometry(corner, corner, 600, 400);
        for (const char *title : titles)
            Add(QLatin1String(title));
    }

    Velmora::QcDockWidget *Add(const QString &title)
    {
        Velmora::QcDockWidget *panel = NewPanel(title);
        frame->addTab(title, panel);
        return panel;
    }

    bool Show() { return ShowActive(window); }

    Velmora::QcDockAreaTabBar *Row() const { return PartOf<Velmora::QcDockAreaTabBar>(*frame, "m_tabBar"); }
    Velmora::QcDockAreaTabBarButton *Tab(int index) const { return Row()->getTab(index); }
    QString TitleOf(int index) const { return Tab(index) ? PartOf<QLabel>(*Tab(index), "m_textLabel")->text() : QString(); }
    /// The titles of the tabs, the current one in brackets.
    QString Tabs() const
    {
        QStringList titles;
        for (int i = 0; Tab(i); ++i)
            titles.append(Tab(i)->isChecked() ? QStringLiteral("[%1]").arg(TitleOf(i)) : TitleOf(i));
        return titles.join(QLatin1Char(' '));
    }
    /// The same by the pages.
    QString Pages() const
    {
        QStringList titles;
        for (int i = 0; i < frame->count(); ++i) {
            const QWidget *page = frame->widget(i);
            titles.append(page->isVisible() ? QStringLiteral("[%1]").arg(page->windowTitle()) : page->windowTitle());
        }
        return titles.join(QLatin1Char(' '));
    }

    QWidget window;
    Velmora::QcDockAreaTabFrame *frame;
};

inline bool HasTitleRow(const Velmora::QcDockWidget &panel)
{
    return !PartOf(panel, "m_titleFrame")->isHidden();
}

inline QWidget *TitleRowOf(const Velmora::QcDockWidget &panel)
{
    return PartOf(panel, "m_titleFrame");
}

} // namespace VelmoraTest
