#include <Velmora/QcApplication.h>
#include <Velmora/QcDockArea.h>
#include <Velmora/QcDockAreaTabBarButton.h>
#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockController.h>
#include <Velmora/QcDockIndicator.h>
#include <Velmora/QcDockMask.h>
#include <Velmora/QcDockWidget.h>
#include <Velmora/QcStyleManager.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QTextStream>
#include <QTimer>
#include <QVBoxLayout>
#include <QVariant>
#include <QWindow>

using namespace Velmora;

namespace {

QJsonArray PlaceOf(const QWidget &widget)
{
    const QPoint corner = widget.mapToGlobal(QPoint(0, 0));
    return {corner.x(), corner.y(), widget.width(), widget.height()};
}

template <typename T>
T *Enclosing(const QWidget &widget)
{
    for (QWidget *parent = widget.parentWidget(); parent; parent = parent->parentWidget())
        if (auto *found = qobject_cast<T *>(parent))
            return found;
    return nullptr;
}

QJsonObject Describe(QcDockWidget &panel)
{
    QJsonObject described{{QStringLiteral("floating"), panel.isFloating()},
                          {QStringLiteral("visible"), panel.isVisible()},
                          {QStringLiteral("place"), PlaceOf(panel)},
                          {QStringLiteral("cursor"), int(panel.cursor().shape())},
                          {QStringLiteral("window"), panel.property("window").toBool()},
                          {QStringLiteral("draging"), panel.property("draging").toBool()}};
    described[QStringLiteral("title")] = PlaceOf(*panel.findChild<QFrame *>(QStringLiteral("m_titleFrame")));
    described[QStringLiteral("tip")] = panel.findChild<QLabel *>(QStringLiteral("m_dragTipLabel"))->isVisible();
    if (const auto *area = Enclosing<QcDockArea>(panel); area && !panel.isFloating()) {
        described[QStringLiteral("area")] = PlaceOf(*area);
        described[QStringLiteral("neighbours")] = area->count() - 1;
    }
    return described;
}

QJsonObject Describe(const QcDockIndicator &indicator)
{
    QJsonObject labels;
    const auto children = indicator.findChildren<QLabel *>();
    for (const QLabel *label : children)
        if (label->isEnabled())
            labels[label->property("object_property_dock_position").toString()] = PlaceOf(*label);
    return {{QStringLiteral("visible"), indicator.isVisible()},
            {QStringLiteral("place"), PlaceOf(indicator)},
            {QStringLiteral("labels"), labels}};
}

/// Tells on the standard output, a line each, how panels, tabs, indicator and mask stand, whenever that has changed.
class Reporter : public QObject
{
public:
    explicit Reporter(QObject *parent)
        : QObject(parent)
    {
        auto *timer = new QTimer(this);
        connect(timer, &QTimer::timeout, this, &Reporter::Report);
        timer->start(10);
        qApp->installEventFilter(this);
    }

private:
    void Report()
    {
        QJsonObject panels;
        QJsonObject tabs;
        QJsonObject windows;
        QJsonObject state;
        const QWidgetList widgets = QApplication::allWidgets();
        for (QWidget *widget : widgets) {
            if (auto *panel = qobject_cast<QcDockWidget *>(widget))
                panels[panel->windowTitle()] = Describe(*panel);
            else if (const auto *tab = qobject_cast<QcDockAreaTabBarButton *>(widget); tab && tab->isVisible())
                tabs[tab->findChild<QLabel *>(QStringLiteral("m_textLabel"))->text()] = PlaceOf(*tab);
            else if (const auto *indicator = qobject_cast<QcDockIndicator *>(widget))
                state[QStringLiteral("indicator")] = Describe(*indicator);
            else if (qobject_cast<QcDockMask *>(widget))
                state[QStringLiteral("mask")] =
                    QJsonObject{{QStringLiteral("visible"), widget->isVisible()}, {QStringLiteral("place"), PlaceOf(*widget)}};
            else if (widget->objectName().startsWith(QLatin1String("window")) && widget->isVisible() && widget->windowHandle()->isExposed())
                windows[widget->objectName()] = PlaceOf(*widget);
        }
        state[QStringLiteral("panels")] = panels;
        state[QStringLiteral("tabs")] = tabs;
        state[QStringLiteral("windows")] = windows;
        const auto *focus = QApplication::focusWidget();
        state[QStringLiteral("focus")] = focus ? focus->objectName() : QString();
        state[QStringLiteral("presses")] = m_presses;
        m_rounds = state == m_last ? m_rounds + 1 : 0;
        m_last = state;
        if (m_rounds > 0 && m_rounds != kRoundsToSettle)
            return;
        state[QStringLiteral("settled")] = m_rounds == kRoundsToSettle;
        QTextStream(stdout) << QJsonDocument(state).toJson(QJsonDocument::Compact) << Qt::endl;
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::MouseButtonPress && watched->isWindowType())
            ++m_presses;
        return false;
    }

    static constexpr int kRoundsToSettle = 20;

    QJsonObject m_last;
    int m_rounds = 0;
    int m_presses = 0;
};

QcDockWidget *NewPanel(const QString &title, int type)
{
    auto *panel = new QcDockWidget(nullptr); // goes to a container
    auto *content = new QWidget(panel);
    content->setWindowTitle(title);
    content->setProperty("dock_widget_content_type", type);
    auto *edit = new QLineEdit(content);
    edit->setObjectName(title);
    auto *column = new QVBoxLayout(content);
    column->addWidget(edit, 0, Qt::AlignTop);
    panel->setContentWidget(content);
    return panel;
}

QcDockContainer *ShowRoot(QWidget &window, const QString &name, const QRect &place)
{
    window.setObjectName(name);
    window.setWindowTitle(name);
    auto *column = new QVBoxLayout(&window);
    column->setContentsMargins(0, 0, 0, 0);
    auto *root = new QcDockContainer(&window);
    root->setEmptyKeep(true);
    column->addWidget(root);
    window.setGeometry(place);
    return root;
}

QRect Place(const QString &text)
{
    const QStringList numbers = text.split(QLatin1Char(','));
    return {numbers.value(0).toInt(), numbers.value(1).toInt(), numbers.value(2).toInt(), numbers.value(3).toInt()};
}

} // namespace

/// dock_stage PLACE [PLACE]: a window with "Files" at the left and the tabs "One" and "Two" at the right, and another one with "Output".
/// With "floating" a panel "Back" floats over the first one from the start.
/// Types: Files 1, One and Two 2, Output 3; type 9 would join none of them but Files.
int main(int argc, char **argv)
{
    QcApplication application(argc, argv);
    QcStyleManager::GetInstance()->SetColorFilePath(QStringLiteral(":/colors/blue_light.ini"));
    application.Initialize();
    QcDockController::instance()->setDockAreaSupportTypeList({{1, 2}, {3}});
    const QStringList arguments = QCoreApplication::arguments();

    QWidget window;
    QcDockContainer *root = ShowRoot(window, QStringLiteral("window"), Place(arguments.value(1)));
    QcDockController::instance()->setRootDockContainer(root);
    QcDockWidget *files = NewPanel(QStringLiteral("Files"), 1);
    QcDockWidget *one = NewPanel(QStringLiteral("One"), 2);
    root->addWidget(files, nullptr, Center);
    root->addWidget(one, files, Right);
    root->addWidget(NewPanel(QStringLiteral("Two"), 2), one, Center);

    // As a layout of the last run brings it back, over the window's lower left corner.
    if (arguments.contains(QLatin1String("floating"))) {
        auto *back = new QcDockWidget(root);
        back->setWindowTitle(QStringLiteral("Back"));
        back->SetWindowFlags();
        back->setWindowStyle(true);
        back->setGeometry(window.x() - 40, window.y() + 300, 240, 200);
    }

    QWidget second;
    QcDockContainer *other = ShowRoot(second, QStringLiteral("window2"), Place(arguments.value(2)));
    other->addWidget(NewPanel(QStringLiteral("Output"), 3), nullptr, Center);

    new Reporter(&application); // the application's
    if (arguments.value(2).contains(QLatin1Char(',')))
        second.show();
    window.show();
    return QApplication::exec();
}
