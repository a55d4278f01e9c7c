#include "support/Pixels.h"
#include "support/TestMain.h"

#include <Velmora/QcDockContainer.h>

#include <QBuffer>
#include <QDirIterator>
#include <QIcon>
#include <QPluginLoader>
#include <QRegularExpression>
#include <QUiLoader>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// Widgets of public headers that nobody places in a form, and why.
const QHash<QString, QString> kExceptions = {
    {"QcLineEdit", "the field inside of a QcLineEditFrame"},
    {"QcScrollBar", "made for an area, with a direction, which a form's code does not name"},
    {"QcArrowTip", "a window that comes beside a widget"},
    {"QcMenu", "a menu, which code opens"},
    {"QcMaskFrame", "a veil, which the program shows over others"},
    {"QcMaskWindow", "a veil, which the program shows over others"},
    {"QcSplitter", "Designer makes splitters of its own, by laying out in one: promote that"},
    {"QcDockWidget", "a panel, which the program docks or a layout file makes"},
    {"QcDockArea", "made by the container"},
    {"QcDockAreaTabFrame", "a part of an area"},
    {"QcDockAreaTabBar", "a part of an area"},
    {"QcDockAreaTabBarButton", "a part of an area"},
    {"QcDockAreaTabStackedWidget", "a part of an area"},
    {"QcDockIndicator", "shows while a panel is dragged"},
    {"QcDockMask", "shows while a panel is dragged"},
    {"QcToast", "comes by itself, by its manager"},
    {"QcNotification", "comes by itself, by its manager"},
    {"QcNotificationPage", "a part of a notification"},
    {"QcLoadingDialog", "one in the program, made by itself"},
    {"QcProgressDialog", "one in the program, made by itself"},
};

const QSet<QString> kNoWidgets = {"QObject", "QApplication", "QAction", "QIntValidator", "QDoubleValidator"};

/// From each exported class of the public headers to its first base. One that says its base in another way than all others do is a fault.
QHash<QString, QString> ExportedClasses(QStringList &faults)
{
    static const QRegularExpression declaration("^class VELMORA_EXPORT (\\w+) : public (\\w+)", QRegularExpression::MultilineOption);
    static const QRegularExpression otherOne("VELMORA_EXPORT (\\w+)(?! : public)\\b[^;{(]*:[^:]");
    QHash<QString, QString> classes;
    for (QDirIterator headers(HEADERS, {"*.h"}, QDir::Files, QDirIterator::Subdirectories); headers.hasNext();) {
        QFile file(headers.next());
        if (file.fileName().endsWith("_p.h") || !file.open(QIODevice::ReadOnly))
            continue;
        const QString text = QString::fromUtf8(file.readAll());
        for (auto match = declaration.globalMatch(text); match.hasNext();) {
            const QRegularExpressionMatch found = match.next();
            classes.insert(found.captured(1), found.captured(2));
        }
        if (otherOne.match(text).hasMatch())
            faults.append(otherOne.match(text).captured());
    }
    return classes;
}

} // namespace

/// What the plugin says of each control.
class tst_ControlTable : public VelmoraTest::TestCase
{
    Q_OBJECT

private:
    QList<QDesignerCustomWidgetInterface *> Controls()
    {
        auto *plugin = qobject_cast<QDesignerCustomWidgetCollectionInterface *>(m_loader.instance());
        return plugin ? plugin->customWidgets() : QList<QDesignerCustomWidgetInterface *>();
    }

    QPluginLoader m_loader{QStringLiteral(PLUGIN)};

private Q_SLOTS:
    /// Docking has windows of its own, which stay from the first container on.
    void initTestCase() { const QcDockContainer container; }

    void every_widget_of_the_public_headers_is_offered_or_excepted()
    {
        QSet<QString> offered;
        const auto controls = Controls();
        for (const QDesignerCustomWidgetInterface *control : controls)
            offered.insert(control->name().remove("Velmora::"));
        QStringList faults;
        const QHash<QString, QString> classes = ExportedClasses(faults);
        QVERIFY(classes.size() > 50);
        for (auto entry = classes.cbegin(); entry != classes.cend(); ++entry) {
            QString base = *entry;
            while (classes.contains(base))
                base = classes.value(base);
            const bool isWidget = !kNoWidgets.contains(base);
            if (isWidget && offered.contains(entry.key()) == kExceptions.contains(entry.key()))
                faults.append(entry.key());
        }
        for (const QString &name : kExceptions.keys() + offered.values()) {
            if (!classes.contains(name))
                faults.append(name + " is no class of the kit");
        }
        QCOMPARE(faults, QStringList());
    }

    void every_control_is_in_a_form_that_is_compared_with_one_made_by_hand()
    {
        QByteArray forms;
        for (const char *name : {"every_control", "designed_window", "designed_dialog"}) {
            QFile file(QStringLiteral(FORMS "/%1.ui").arg(QLatin1String(name)));
            QVERIFY(file.open(QIODevice::ReadOnly));
            forms += file.readAll();
        }
        QStringList missing;
        const auto controls = Controls();
        for (const QDesignerCustomWidgetInterface *control : controls) {
            if (!forms.contains(QStringLiteral("<widget class=\"%1\"").arg(control->name()).toUtf8()))
                missing.append(control->name());
        }
        QCOMPARE(missing, QStringList());
    }

    void each_control_says_where_it_is_and_what_it_is_for()
    {
        QSet<QString> tips;
        const auto controls = Controls();
        QVERIFY(!controls.isEmpty());
        for (const QDesignerCustomWidgetInterface *control : controls) {
            const QString name = control->name().remove("Velmora::");
            QCOMPARE(control->includeFile(), QStringLiteral("<Velmora/%1.h>").arg(name));
            QVERIFY2(QFile::exists(QStringLiteral(INCLUDES "/Velmora/%1.h").arg(name)), qPrintable(name));
            QVERIFY2(control->group().startsWith("Velmora "), qPrintable(name));
            QVERIFY2(!control->toolTip().isEmpty() && control->whatsThis().startsWith(control->toolTip()), qPrintable(name));
            QVERIFY2(!tips.contains(control->toolTip()), qPrintable(name));
            tips.insert(control->toolTip());
        }
    }

    void each_control_has_an_icon_of_its_own()
    {
        QList<QImage> icons;
        const auto controls = Controls();
        for (const QDesignerCustomWidgetInterface *control : controls) {
            for (const int size : {16, 22, 48}) {
                const QImage icon = control->icon().pixmap(size).toImage();
                QVERIFY2(icon.width() >= size, qPrintable(control->name()));
                QVERIFY2(!InkBox(icon, Qt::transparent).isEmpty(), qPrintable(control->name()));
            }
            const QImage icon = control->icon().pixmap(16).toImage();
            QVERIFY2(!icons.contains(icon), qPrintable(control->name()));
            icons.append(icon);
        }
    }

    void icons_are_in_the_ink_of_the_program_and_soft_inside_data()
    {
        QTest::addColumn<QColor>("ink");
        for (const char *ink : {"#000000", "#ffffff", "#808080", "#0000ff", "#2f7bf5"})
            QTest::newRow(ink) << QColor(ink);
    }

    void icons_are_in_the_ink_of_the_program_and_soft_inside()
    {
        QFETCH(QColor, ink);
        const QPalette palette = QApplication::palette();
        QPalette inked = palette;
        inked.setColor(QPalette::WindowText, ink);
        QApplication::setPalette(inked);
        QImage icon;
        const auto controls = Controls();
        for (const QDesignerCustomWidgetInterface *control : controls) {
            if (control->name() == "Velmora::QcFrame")
                icon = control->icon().pixmap(48).toImage();
        }
        QApplication::setPalette(palette);
        COMPARE_COLOR(icon.pixelColor(5, 24), ink);
        QColor soft = ink;
        soft.setAlphaF(0.25);
        COMPARE_COLOR(icon.pixelColor(24, 24), soft);
    }

    void each_control_is_made_from_what_designer_writes_when_it_is_dropped_data()
    {
        QTest::addColumn<QString>("className");
        QTest::addColumn<QString>("domXml");
        const auto controls = Controls();
        for (const QDesignerCustomWidgetInterface *control : controls)
            QTest::newRow(qPrintable(control->name())) << control->name() << control->domXml();
    }

    void each_control_is_made_from_what_designer_writes_when_it_is_dropped()
    {
        QFETCH(QString, className);
        QFETCH(QString, domXml);
        QByteArray form = domXml.replace("<ui ", "<ui version=\"4.0\" ").toUtf8();
        QBuffer buffer(&form);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        const std::unique_ptr<QWidget> made(QUiLoader().load(&buffer));
        QVERIFY(made);
        QCOMPARE(QString(made->metaObject()->className()), className);
        QVERIFY(!made->objectName().isEmpty());
        made->show();
        DrainEvents();
        static const QRegularExpression size("<width>(\\d+)</width><height>(\\d+)</height>");
        const QRegularExpressionMatch asked = size.match(domXml);
        QCOMPARE(made->size(), QSize(asked.captured(1).toInt(), asked.captured(2).toInt()));
        const QSize needed = made->minimumSizeHint().boundedTo(made->maximumSize());
        QCOMPARE(made->size().expandedTo(needed), made->size()); // nothing is cut
    }
};

VELMORA_TEST_MAIN(tst_ControlTable)

#include "tst_ControlTable.moc"
