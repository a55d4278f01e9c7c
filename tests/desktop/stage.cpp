#include "windows/QcWindowHandler_p.h"

#include <Velmora/ModalDialogs.h>
#include <Velmora/QcApplication.h>
#include <Velmora/QcArrowTip.h>
#include <Velmora/QcDialog.h>
#include <Velmora/QcLoadingDialog.h>
#include <Velmora/QcMaskFrame.h>
#include <Velmora/QcMaskWindow.h>
#include <Velmora/QcMenu.h>
#include <Velmora/QcMenuTextButton.h>
#include <Velmora/QcNotificationManager.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcProgressDialog.h>
#include <Velmora/QcSelector.h>
#include <Velmora/QcStyleManager.h>
#include <Velmora/QcToastManager.h>
#include <Velmora/QcWindow.h>

#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenu>
#include <QRect>
#include <QTextStream>
#include <QTimer>

#include <functional>

using namespace Velmora;

namespace {

constexpr QRect kPlace(200, 150, 400, 300);
constexpr int kBorder = 8;
constexpr int kMenuWidth = 160;
constexpr int kMenuTop = 100;

/// Tells on the standard output, a line each, whatever changes in a window that a test drives with a real mouse.
class Reporter : public QObject
{
public:
    explicit Reporter(QWidget *window)
        : QObject(window)
        , m_window(window)
    {
        auto *timer = new QTimer(this);
        connect(timer, &QTimer::timeout, this, [this] { Report(); });
        timer->start(10);
    }

private:
    void Report()
    {
        QString text = QStringLiteral("state %1 %2 %3 %4 cursor %5 maximized %6 minimized %7 active %8")
                           .arg(m_window->x())
                           .arg(m_window->y())
                           .arg(m_window->width())
                           .arg(m_window->height())
                           .arg(int(m_window->cursor().shape()))
                           .arg(m_window->isMaximized())
                           .arg(m_window->isMinimized())
                           .arg(m_window->isActiveWindow());
        for (const QWidget *widget : m_window->findChildren<QWidget *>()) {
            if (!widget->isVisible() || widget->objectName().isEmpty())
                continue;
            const QPoint at = widget->mapTo(m_window, QPoint());
            text += QStringLiteral(" widget %1 %2 %3 %4 %5")
                        .arg(widget->objectName())
                        .arg(at.x())
                        .arg(at.y())
                        .arg(widget->width())
                        .arg(widget->height());
        }
        if (text == m_last)
            return;
        m_last = text;
        QTextStream(stdout) << text << Qt::endl;
    }

    QWidget *m_window;
    QString m_last;
};

void Say(const QString &what)
{
    QTextStream(stdout) << "said " << what << Qt::endl;
}

/// A button that tells of its clicks.
QAbstractButton *AddButton(QWidget *place)
{
    auto *row = new QHBoxLayout(place);
    auto *button = new QcPrimaryButton;
    button->setObjectName(QStringLiteral("pushMe"));
    button->setText(QStringLiteral("Push me"));
    QObject::connect(button, &QAbstractButton::clicked, button, [] { Say(QStringLiteral("clicked")); });
    row->addWidget(button, 0, Qt::AlignCenter);
    return button;
}

void ShowAt(QWidget *window)
{
    new Reporter(window); // the window's child
    window->setGeometry(kPlace);
    window->show();
}

template <typename Window>
QAbstractButton *SetUp(Window &window, const QString &option)
{
    window.setTitle(QStringLiteral("Stage"));
    window.setWindowTitle(QStringLiteral("main window"));
    if (option == QLatin1String("unfiltered"))
        window.removeEventFilter();
    return AddButton(window.getContentFrame());
}

/// A dialog over the window, which it belongs to unless told otherwise, run until it is answered.
void Ask(QWidget *window, bool isOwned = true)
{
    QcDialog dialog(isOwned ? window : nullptr);
    dialog.setTitle(QStringLiteral("Question"));
    dialog.setWindowTitle(QStringLiteral("question"));
    dialog.setBottomFrameVisible(true);
    dialog.resize(240, 160);
    Say(QStringLiteral("answer%1").arg(Velmora::exec(&dialog, window)));
}

/// Keeps every press from the widget that it filters.
class PressKeeper : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override { return event->type() == QEvent::MouseButtonPress; }
};

/// Has a window come as it would if it had been maximised when its program last ran.
void ShowAsLeftMaximised(QWidget *window)
{
    new Reporter(window); // the window's child
    window->setGeometry(kPlace);
    window->setWindowState(Qt::WindowMaximized);
    const QByteArray geometry = window->saveGeometry();
    window->setWindowState(Qt::WindowNoState);
    window->restoreGeometry(geometry);
    window->show();
}

int ShowWindow(const QString &option)
{
    QcWindow window(nullptr);
    QAbstractButton *button = SetUp(window, option);
    QObject::connect(&window, &QcWindow::signalClose, [] { Say(QStringLiteral("closed")); });
    if (option == QLatin1String("asking"))
        QObject::connect(button, &QAbstractButton::clicked, &window, [&window] { Ask(&window); });
    if (option == QLatin1String("asking-alone"))
        QObject::connect(button, &QAbstractButton::clicked, &window, [&window] { Ask(&window, false); });
    if (option == QLatin1String("keeping"))
        window.getTitleFrame()->installEventFilter(new PressKeeper(&window)); // the window's
    QcArrowTip tip(&window);
    tip.setReferenceWidget(button);
    tip.setText(QStringLiteral("Here"));
    if (option == QLatin1String("returning"))
        ShowAsLeftMaximised(&window);
    else
        ShowAt(&window);
    if (option == QLatin1String("tipped"))
        tip.show();
    return QApplication::exec();
}

int ShowDialog(const QString &option)
{
    QcDialog dialog(nullptr);
    SetUp(dialog, option);
    dialog.controlMinMaxBtn(true);
    dialog.setBottomFrameVisible(true);
    dialog.setTitleBarVisible(option != QLatin1String("untitled"));
    QObject::connect(&dialog, &QcDialog::signalClose, [] { Say(QStringLiteral("closed")); });
    ShowAt(&dialog);
    return QApplication::exec();
}

/// A bare window whose edges resize it, as those of a floating panel do. Its button opens a menu that hangs over its right edge.
int ShowPanel()
{
    QWidget panel(nullptr, Qt::Window | Qt::FramelessWindowHint);
    panel.setWindowTitle(QStringLiteral("main window"));
    auto *handler = new QcWindowHandler(&panel); // the panel's child
    handler->setWidget(&panel);
    handler->setBorderWidth(kBorder);
    QMenu menu(&panel);
    menu.setMinimumWidth(kMenuWidth);
    QObject::connect(menu.addAction(QStringLiteral("Choose me")), &QAction::triggered, [] { Say(QStringLiteral("chosen")); });
    QObject::connect(AddButton(&panel), &QAbstractButton::clicked, &menu,
                     [&] { menu.popup(panel.mapToGlobal(QPoint(panel.width() - kMenuWidth / 2, kMenuTop))); });
    ShowAt(&panel);
    return QApplication::exec();
}

/// Tells of a menu where it has opened, and that it has closed.
class MenuReporter : public QObject
{
public:
    explicit MenuReporter(QMenu *menu)
        : QObject(menu)
        , m_menu(menu)
    {
        menu->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Show)
            QTimer::singleShot(0, this, [this] { SayPlace(); });
        else if (event->type() == QEvent::Hide)
            Say(m_menu->title() + QStringLiteral("-closed"));
        return false;
    }

private:
    void SayPlace()
    {
        const QRect place = m_menu->geometry();
        Say(QStringLiteral("%1@%2,%3,%4,%5").arg(m_menu->title()).arg(place.x()).arg(place.y()).arg(place.width()).arg(place.height()));
    }

    QMenu *m_menu;
};

QcMenu *MakeMenu(const QString &title, QWidget *parent)
{
    auto *menu = new QcMenu(title, parent);
    new MenuReporter(menu); // the menu's child
    QObject::connect(menu, &QMenu::triggered, menu, [](const QAction *action) { Say(QStringLiteral("chosen-") + action->text()); });
    return menu;
}

/// A window with a button that has a menu: of three items, the last of which has a submenu, or of sixty.
int ShowMenu(const QString &option)
{
    QcWindow window(nullptr);
    window.setTitle(QStringLiteral("Stage"));
    window.setWindowTitle(QStringLiteral("main window"));
    QcMenu *menu = MakeMenu(QStringLiteral("menu"), &window);
    if (option == QLatin1String("sixty")) {
        for (int i = 1; i <= 60; ++i)
            menu->addQcAction(QString::number(i));
    } else {
        menu->addQcAction(QStringLiteral("first"));
        // As wide as a menu can be, and wider than it shows.
        menu->addQcAction(QStringLiteral("A label as long as any that a menu may have to show"))
            ->setShortcut(Qt::CTRL | Qt::ALT | Qt::SHIFT | Qt::Key_PageDown);
        QcMenu *submenu = MakeMenu(QStringLiteral("submenu"), menu);
        submenu->addQcAction(QStringLiteral("inner"));
        menu->addQcMenu(submenu);
    }
    auto *button = new QcMenuTextButton;
    button->setObjectName(QStringLiteral("opener"));
    button->setText(QStringLiteral("Open"));
    button->setMenu(menu);
    auto *row = new QHBoxLayout(window.getContentFrame());
    row->addWidget(button, 0, Qt::AlignCenter);
    ShowAt(&window);
    return QApplication::exec();
}

/// A window with a frame of the window manager, and another one centred on it.
int ShowFramed()
{
    QWidget framed;
    framed.setWindowTitle(QStringLiteral("main window"));
    ShowAt(&framed);
    QcWindow window(nullptr);
    window.setWindowTitle(QStringLiteral("centred"));
    window.setFixedSize(200, 120);
    // Once the window manager has framed it.
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &window, [&] {
        if (framed.frameGeometry() == framed.geometry() || window.isVisible())
            return;
        window.setAttribute(Qt::WA_ShowWithoutActivating);
        window.showToCenter(&framed);
    });
    timer.start(10);
    return QApplication::exec();
}

/// A selector of twenty items that tells of its choices.
int ShowSelector()
{
    QcWindow window(nullptr);
    window.setTitle(QStringLiteral("Stage"));
    window.setWindowTitle(QStringLiteral("main window"));
    auto *selector = new QcSelector(window.getContentFrame());
    selector->setObjectName(QStringLiteral("selector"));
    selector->setGeometry(40, 40, 200, selector->height());
    for (int i = 0; i < 20; ++i)
        selector->addItem(QStringLiteral("Item %1").arg(i));
    QObject::connect(selector, QOverload<int>::of(&QComboBox::activated), selector,
                     [](int index) { Say(QStringLiteral("chose%1").arg(index)); });
    ShowAt(&window);
    return QApplication::exec();
}

/// Shows \a window with a field that tells what is typed into it, and does \a work once that has the keyboard.
int ShowWithField(QcWindow &window, const std::function<void()> &work)
{
    window.setTitle(QStringLiteral("Stage"));
    window.setWindowTitle(QStringLiteral("main window"));
    auto *field = new QLineEdit(window.getContentFrame());
    field->setObjectName(QStringLiteral("field"));
    field->setGeometry(60, 30, 200, 24);
    field->setFocus();
    QObject::connect(field, &QLineEdit::textChanged, field, [](const QString &text) { Say(QStringLiteral("typed-") + text); });
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &window, [&] {
        if (!field->hasFocus() || !window.isActiveWindow())
            return;
        timer.stop();
        work();
    });
    timer.start(10);
    ShowAt(&window);
    return QApplication::exec();
}

/// A toast covers the field, inside of the window or apart.
int ShowToast(const QString &option)
{
    QcWindow window(nullptr);
    return ShowWithField(window, [&] {
        QcToast::Params params;
        params.text = QStringLiteral("Saved");
        params.duration = 600000;
        QcToastManager::getInstance()->showToast(params, &window, option == QLatin1String("apart"));
        auto *toast = window.findChild<QcToast *>();
        toast->setObjectName(QStringLiteral("toast"));
        QObject::connect(toast, &QObject::destroyed, [] { Say(QStringLiteral("gone")); });
    });
}

/// Two notifications cover the field, each of which tells that its button was clicked.
int ShowNotifications()
{
    QcWindow window(nullptr);
    return ShowWithField(window, [&] {
        for (const char *title : {"one", "two"}) {
            const QString called = QStringLiteral("called-") + QLatin1String(title);
            QcNotificationManager::getInstance()->showNotification(
                QLatin1String(title), QString(), QStringLiteral("Call back"), [called] { Say(called); }, &window, QRect());
        }
    });
}

/// The progress of work over the window that began it. It tells of being cancelled.
int ShowProgress()
{
    QcWindow window(nullptr);
    return ShowWithField(window, [&] {
        auto *progress = QcProgressDialog::getInstance();
        progress->setParent(&window);
        progress->setObjectName(QStringLiteral("progress"));
        progress->setWindowTitle(QStringLiteral("progress"));
        progress->setRange(0, 4);
        progress->setValue(3);
        QObject::connect(progress, &QDialog::rejected, &window, [] { Say(QStringLiteral("cancelled")); });
        progress->show();
    });
}

/// A veil over a window with a button and a field, as told with a button of its own, which asks something in a dialog of the veil's and
/// then lifts it, or with the loading dialog in it.
int ShowVeil(const QString &option)
{
    QcWindow window(nullptr);
    AddButton(window.getContentFrame());
    return ShowWithField(window, [&] {
        const bool isApart = option == QLatin1String("apart");
        QFrame *veil = isApart ? static_cast<QFrame *>(new QcMaskWindow(&window)) : new QcMaskFrame(&window); // the window's
        veil->setObjectName(QStringLiteral("veil"));
        veil->setGeometry(isApart ? window.geometry() : window.rect());
        if (option == QLatin1String("loading")) {
            auto *loading = QcLoadingDialog::getInstance();
            loading->setObjectName(QStringLiteral("loading"));
            veil->layout()->addWidget(loading);
            loading->show();
        } else {
            auto *lift = new QcPrimaryButton(veil);
            lift->setObjectName(QStringLiteral("lift"));
            lift->setText(QStringLiteral("Lift"));
            veil->layout()->addWidget(lift);
            veil->layout()->setAlignment(lift, Qt::AlignBottom);
            QObject::connect(lift, &QAbstractButton::clicked, veil, [veil] {
                Ask(veil);
                veil->hide();
                Say(QStringLiteral("lifted"));
            });
        }
        veil->show();
    });
}

} // namespace

int main(int argc, char **argv)
{
    QcApplication application(argc, argv);
    QcStyleManager::GetInstance()->SetColorFilePath(QStringLiteral(":/colors/blue_light.ini"));
    application.Initialize();
    const QStringList arguments = QCoreApplication::arguments();
    const QString what = arguments.value(1);
    if (what == QLatin1String("window"))
        return ShowWindow(arguments.value(2));
    if (what == QLatin1String("dialog"))
        return ShowDialog(arguments.value(2));
    if (what == QLatin1String("menu"))
        return ShowMenu(arguments.value(2));
    if (what == QLatin1String("panel"))
        return ShowPanel();
    if (what == QLatin1String("framed"))
        return ShowFramed();
    if (what == QLatin1String("selector"))
        return ShowSelector();
    if (what == QLatin1String("toast"))
        return ShowToast(arguments.value(2));
    if (what == QLatin1String("progress"))
        return ShowProgress();
    if (what == QLatin1String("veil"))
        return ShowVeil(arguments.value(2));
    if (what == QLatin1String("notifications"))
        return ShowNotifications();
    return 1;
}
