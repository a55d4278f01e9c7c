#include "dock/DockTestCase.h"
#include "dock/DragStage.h"
#include "dock/RandomLayout.h"
#include "dock/TabStage.h"
#include "support/TestMain.h"
#include "theme/TestFiles.h"

#include <Velmora/QcDockArea.h>
#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockController.h>
#include <Velmora/QcDockDragController.h>
#include <Velmora/QcDockWidget.h>

#include "dock/DockLayoutBuilder_p.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QPointer>
#include <QSplitter>
#include <QVBoxLayout>

#ifdef Q_OS_UNIX
#include <csignal>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace Velmora;
using VelmoraTest::DrainEvents;
using VelmoraTest::TestFiles;

namespace {

const QString cannotLoad = QStringLiteral("QcDockController::loadFromJson: Failed to open file");
const QString cannotSave = QStringLiteral("QcDockController::saveToJson: Failed to open file");

QcDockController &Controller()
{
    return *QcDockController::instance();
}

/// Names one of the controller's own functions. An explicit instantiation may name what is private.
template <typename Function>
struct Named
{
    using Type = Function;
};
struct FromJson : Named<QcDockContainer *(QcDockController::*)(const QString &)>
{
    friend Type Reach(FromJson);
};
struct SerializeContainer : Named<QJsonObject (QcDockController::*)(QcDockContainer *)>
{
    friend Type Reach(SerializeContainer);
};
struct SerializeArea : Named<QJsonObject (QcDockController::*)(QcDockArea *)>
{
    friend Type Reach(SerializeArea);
};
struct SerializeWidget : Named<QJsonObject (QcDockController::*)(QcDockWidget *)>
{
    friend Type Reach(SerializeWidget);
};
struct DeserializeContainer : Named<QcDockContainer *(QcDockController::*)(const QJsonObject &)>
{
    friend Type Reach(DeserializeContainer);
};
struct DeserializeWidget : Named<QcDockWidget *(QcDockController::*)(const QJsonObject &)>
{
    friend Type Reach(DeserializeWidget);
};

template <typename Name, typename Name::Type member>
struct Opener
{
    friend typename Name::Type Reach(Name) { return member; }
};
template struct Opener<FromJson, &QcDockController::fromJson>;
template struct Opener<SerializeContainer, &QcDockController::serializeDockContainer>;
template struct Opener<SerializeArea, &QcDockController::serializeDockArea>;
template struct Opener<SerializeWidget, &QcDockController::serializeDockWidget>;
template struct Opener<DeserializeContainer, &QcDockController::deserializeDockContainer>;
template struct Opener<DeserializeWidget, &QcDockController::deserializeDockWidget>;

/// Calls it.
template <typename Name, typename Argument>
auto Part(const Argument &argument)
{
    return (Controller().*Reach(Name()))(argument);
}

/// A host's window, of one size in every test.
class Host : public QWidget
{
public:
    explicit Host(QcDockContainer *root)
    {
        auto *layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(root);
        resize(900, 600);
    }

    void ShowSettled()
    {
        show();
        QVERIFY(QTest::qWaitForWindowExposed(this));
        DrainEvents();
    }
};

#ifdef Q_OS_UNIX
/// While it lives this process can make no file in \a folder, not even when root runs the tests.
class ClosedFolder
{
public:
    explicit ClosedFolder(const QString &folder)
        : m_folder(folder)
        , m_wasRoot(geteuid() == 0)
    {
        QFile::setPermissions(folder, QFileDevice::Permissions(0x5555));
        QFile::setPermissions(QFileInfo(folder).path(), QFileDevice::Permissions(0x7755));
        if (m_wasRoot && seteuid(65534) != 0)
            qFatal("cannot become nobody");
    }
    ~ClosedFolder()
    {
        if (m_wasRoot && seteuid(0) != 0)
            qFatal("cannot become root again");
        QFile::setPermissions(m_folder, QFileDevice::Permissions(0x7700));
    }

private:
    Q_DISABLE_COPY(ClosedFolder)

    QString m_folder;
    bool m_wasRoot;
};
#endif

QByteArray ContentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

QWidget *Content(int type, const QString &title = QString())
{
    auto *content = new QWidget;
    content->setProperty("dock_widget_content_type", type);
    content->setWindowTitle(title);
    return content;
}

QList<int> TypesIn(const QcDockArea &area)
{
    QList<int> types;
    for (int i = 0; i < area.count(); ++i) {
        auto *panel = qobject_cast<QcDockWidget *>(area.widget(i));
        types.append(panel ? panel->getType() : -99);
    }
    return types;
}

/// The tree as text: "<" and ">" hold a vertical container, "(" and ")" a horizontal one, "[" and "]" the types in an area.
QString Shape(QcDockContainer &container)
{
    QStringList parts;
    const auto areas = container.getDockAreaList();
    for (QcDockArea *area : areas) {
        if (auto *nested = qobject_cast<QcDockContainer *>(area->widget(0))) {
            parts.append(Shape(*nested));
            continue;
        }
        QStringList types;
        for (const int type : TypesIn(*area))
            types.append(QString::number(type));
        parts.append(QLatin1Char('[') + types.join(QLatin1Char(' ')) + QLatin1Char(']'));
    }
    const bool vertical = container.getOrientation() == Qt::Vertical;
    return (vertical ? QLatin1Char('<') : QLatin1Char('(')) + parts.join(QLatin1Char(' '))
        + (vertical ? QLatin1Char('>') : QLatin1Char(')'));
}

QJsonObject ObjectOf(const QString &json)
{
    return QJsonDocument::fromJson(json.toUtf8()).object();
}

/// Without the geometry of docked panels: pages that are not current keep another one.
QByteArray WithoutDockedGeometry(const QString &json)
{
    std::optional<Layout> layout = ParseLayout(json.toUtf8());
    if (!layout)
        return "no layout";
    std::function<void(LayoutContainer &)> clear = [&](LayoutContainer &container) {
        for (LayoutNode &child : container.children) {
            if (auto *nested = std::get_if<LayoutContainer>(&child)) {
                clear(*nested);
                continue;
            }
            for (LayoutPanel &panel : std::get<LayoutArea>(child).panels)
                panel.geometry = QRect(0, 0, 0, 0);
        }
    };
    clear(layout->root);
    return WriteLayout(*layout);
}

} // namespace

class tst_QcDockController : public VelmoraTest::DockTestCase
{
    Q_OBJECT

private:
    TestFiles m_files;

    void SetUp() override { QVERIFY(!Controller().getRootDockContainer()); }
    void TearDown() override
    {
        DockTestCase::TearDown();
        delete Controller().getRootDockContainer();
        Controller().setJsonFilePath(QString());
        Controller().setDockAreaSupportTypeList({});
    }

    /// Loads \a json from a file.
    QcDockContainer *Load(const QByteArray &json) { return Controller().loadFromJson(m_files.Write(QStringLiteral("layout.json"), json)); }

    void ExpectDebug(const QString &text) { Log().Expect(QtDebugMsg, text); }

private Q_SLOTS:
    // --- The instance ---

    void there_is_one_controller()
    {
        QCOMPARE(QcDockController::instance(), QcDockController::instance());
        QVERIFY(!QcDockController::instance()->parent());
    }

    void it_knows_its_root_until_that_is_deleted()
    {
        auto *root = new QcDockContainer;
        Controller().setRootDockContainer(root);
        QCOMPARE(Controller().getRootDockContainer().data(), root);
        delete root;
        QVERIFY(Controller().getRootDockContainer().isNull());
    }

    void groups_of_types_go_to_the_areas()
    {
        QcDockContainer root;
        root.addDockWidgetContent(Content(1), Left);
        QcDockArea *area = root.getDockAreaList().constFirst();
        QVERIFY(area->isSupportType(3));
        Controller().setDockAreaSupportTypeList({{1, 2}, {3}});
        QVERIFY(!area->isSupportType(3));
        QVERIFY(area->isSupportType(2));
    }

    void another_root_leaves_panels_floating_where_they_are()
    {
        auto *first = Load(R"({"floatingWidgets":[{"type":1,"width":50,"height":50}]})");
        QcDockWidget *panel = first->getDockWidgetWindow().constFirst();
        QcDockContainer second;
        Controller().setRootDockContainer(&second);
        DrainEvents();
        QCOMPARE(panel->parentWidget(), first);
        QVERIFY(second.getDockWidgetWindow().isEmpty());
        delete first;
    }

    // --- Files ---

    void a_file_that_cannot_be_read_is_one_line_and_the_present_root_stays_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("none at all") << QString();
        QTest::newRow("missing") << m_files.Path(QStringLiteral("missing.json"));
        QTest::newRow("a folder") << m_files.Path(QStringLiteral("."));
    }
    void a_file_that_cannot_be_read_is_one_line_and_the_present_root_stays()
    {
        QFETCH(QString, path);
        ExpectDebug(cannotLoad);
        QVERIFY(!Controller().loadFromJson(path));
        QcDockContainer root;
        Controller().setRootDockContainer(&root);
        ExpectDebug(cannotLoad);
        QCOMPARE(Controller().loadFromJson(path), &root);
    }

    void a_locked_file_is_one_line_too()
    {
        const QString path = m_files.Write(QStringLiteral("locked.json"), "{}");
        const VelmoraTest::LockedFile locked(path);
        ExpectDebug(cannotLoad);
        QVERIFY(!Controller().loadFromJson(path));
    }

    void an_empty_path_reads_the_file_of_the_controller_and_a_path_wins()
    {
        Controller().setJsonFilePath(m_files.Write(QStringLiteral("own.json"), R"({"children":[{"dockWidgetList":[{"type":1}]}]})"));
        QPointer<QcDockContainer> own = Controller().loadFromJson(QString());
        QCOMPARE(Shape(*own), QStringLiteral("([1])"));
        delete own;
        QCOMPARE(Shape(*Load(R"({"children":[{"dockWidgetList":[{"type":2}]}]})")), QStringLiteral("([2])"));
    }

    void a_refused_file_makes_no_widget_and_says_nothing_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("blank") << QByteArray(" \n");
        QTest::newRow("no JSON") << QByteArray("layout");
        QTest::newRow("cut off") << QByteArray(R"({"children":[{"dockWidgetList":[{"type":1},)");
        QTest::newRow("text after the end") << QByteArray(R"({"children":[]} {})");
        QTest::newRow("comma before the end") << QByteArray(R"({"children":[],})");
        QTest::newRow("single quotes") << QByteArray("{'children':[]}");
        QTest::newRow("zeros inside") << QByteArray("{\"children\":\0\0[]}", 16);
        QTest::newRow("zeros after the end") << QByteArray("{}\0\0", 4);
        QTest::newRow("array") << QByteArray(R"([{"children":[]}])");
        QTest::newRow("string") << QByteArray(R"("children")");
        QTest::newRow("number") << QByteArray("1");
        QTest::newRow("null") << QByteArray("null");
        QTest::newRow("nested beyond the parser") << QByteArray(2000, '[') + QByteArray(2000, ']');
        QByteArray deep("{\"orientation\":1}");
        for (int i = 0; i < kMaxLayoutDepth; ++i)
            deep = "{\"orientation\":1,\"children\":[" + deep + "]}";
        QTest::newRow("containers too deep") << deep;
        QByteArray areas;
        for (int i = 0; i <= kMaxLayoutWidgets; ++i)
            areas += i > 0 ? ",{}" : "{}";
        QTest::newRow("too many areas") << "{\"children\":[" + areas + "]}";
        QTest::newRow("too long") << "{}" + QByteArray(kMaxLayoutBytes, ' ');
    }
    void a_refused_file_makes_no_widget_and_says_nothing()
    {
        QFETCH(QByteArray, text);
        QcDockContainer root;
        Controller().setRootDockContainer(&root);
        const auto widgets = QApplication::allWidgets().size();
        QCOMPARE(Load(text), &root);
        QCOMPARE(QApplication::allWidgets().size(), widgets);
        QCOMPARE(Controller().getRootDockContainer().data(), &root);
    }

    void an_empty_object_is_a_root_with_its_default_area()
    {
        QcDockContainer *root = Load("{}");
        QCOMPARE(Shape(*root), QStringLiteral("([])"));
        QCOMPARE(root->getDockAreaList().constFirst()->count(), 0);
    }

#ifdef Q_OS_LINUX
    void a_file_without_end_is_read_no_further_than_a_layout_may_be_long()
    {
        QcDockContainer root;
        Controller().setRootDockContainer(&root);
        QCOMPARE(Controller().loadFromJson(QStringLiteral("/dev/zero")), &root);
    }
#endif

    void a_mark_is_skipped_and_broken_characters_are_replaced()
    {
        QCOMPARE(Shape(*Load("\xEF\xBB\xBF{\"orientation\":2,\"children\":[{\"note\":\"\xFF\xC0\",\"dockWidgetList\":[{\"type\":3}]}]}")),
                 QStringLiteral("<[3]>"));
    }

    void a_save_writes_the_layout_into_the_file()
    {
        QcDockContainer root;
        root.addDockWidgetContent(Content(4), Left);
        Controller().setJsonFilePath(m_files.Path(QStringLiteral("saved.json")));
        Controller().saveToJson(&root);
        QCOMPARE(ContentOf(m_files.Path(QStringLiteral("saved.json"))), Controller().toJson(&root).toUtf8());
        QVERIFY(ContentOf(m_files.Path(QStringLiteral("saved.json"))).contains("\"type\":4"));
    }

    void a_save_of_nothing_leaves_an_empty_file()
    {
        Controller().setJsonFilePath(m_files.Write(QStringLiteral("saved.json"), "earlier"));
        Controller().saveToJson(nullptr);
        QCOMPARE(ContentOf(m_files.Path(QStringLiteral("saved.json"))), QByteArray());
        QCOMPARE(Controller().toJson(nullptr), QString());
    }

    void a_file_that_cannot_be_written_is_one_line_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("none at all") << QString();
        QTest::newRow("in a missing folder") << m_files.Path(QStringLiteral("missing/saved.json"));
        QTest::newRow("a folder") << m_files.Path(QStringLiteral("."));
#ifdef Q_OS_LINUX
        QTest::newRow("a full device") << QStringLiteral("/dev/full");
#endif
    }
    void a_file_that_cannot_be_written_is_one_line()
    {
        QFETCH(QString, path);
        QcDockContainer root;
        Controller().setJsonFilePath(path);
        ExpectDebug(cannotSave);
        Controller().saveToJson(&root);
    }

#ifdef Q_OS_UNIX
    void a_save_that_fails_half_way_keeps_the_earlier_file()
    {
        const QString path = m_files.Write(QStringLiteral("kept.json"), "earlier");
        QcDockContainer root;
        Controller().setJsonFilePath(path);
        // As on a full disk: the first bytes fit.
        rlimit before;
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
        rlimit tight = before;
        tight.rlim_cur = 8;
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &tight), 0);
        ExpectDebug(cannotSave);
        Controller().saveToJson(&root);
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);
        std::signal(SIGXFSZ, handler);
        QCOMPARE(ContentOf(path), QByteArray("earlier"));
        QCOMPARE(QDir(QFileInfo(path).path()).entryList({QStringLiteral("kept.json*")}, QDir::Files).size(), 1); // nothing lies beside it
    }

    void a_save_replaces_the_file_as_a_whole()
    {
        const QString path = m_files.Write(QStringLiteral("whole.json"), "earlier");
        QFile reader(path); // somebody reads the earlier file meanwhile
        QVERIFY(reader.open(QIODevice::ReadOnly));
        QcDockContainer root;
        Controller().setJsonFilePath(path);
        Controller().saveToJson(&root);
        QCOMPARE(reader.readAll(), QByteArray("earlier"));
        QCOMPARE(ContentOf(path), Controller().toJson(&root).toUtf8());
    }

    void a_save_through_a_link_keeps_the_link()
    {
        const QString path = m_files.Write(QStringLiteral("target.json"), "earlier");
        const QString near = m_files.Path(QStringLiteral("near.json"));
        const QString far = m_files.Path(QStringLiteral("far.json"));
        QVERIFY(QFile::link(path, near));
        QVERIFY(QFile::link(near, far));
        QcDockContainer root;
        Controller().setJsonFilePath(far);
        Controller().saveToJson(&root);
        QVERIFY(QFileInfo(far).isSymLink() && QFileInfo(near).isSymLink() && !QFileInfo(path).isSymLink());
        QCOMPARE(ContentOf(path), Controller().toJson(&root).toUtf8());
    }

    void a_save_through_a_link_to_nowhere_makes_its_target()
    {
        const QString path = m_files.Path(QStringLiteral("nowhere.json"));
        const QString link = m_files.Path(QStringLiteral("to_nowhere.json"));
        QVERIFY(QFile::link(path, link));
        QcDockContainer root;
        Controller().setJsonFilePath(link);
        Controller().saveToJson(&root);
        QVERIFY(QFileInfo(link).isSymLink());
        QCOMPARE(ContentOf(path), Controller().toJson(&root).toUtf8());
    }

    void a_save_keeps_hard_links_together()
    {
        const QString path = m_files.Write(QStringLiteral("one.json"), "earlier, and longer than a layout" + QByteArray(1000, ' '));
        const QString twin = m_files.Path(QStringLiteral("other.json"));
        QCOMPARE(::link(QFile::encodeName(path).constData(), QFile::encodeName(twin).constData()), 0);
        QcDockContainer root;
        Controller().setJsonFilePath(path);
        Controller().saveToJson(&root);
        QCOMPARE(ContentOf(twin), Controller().toJson(&root).toUtf8());
    }

    void a_save_writes_into_what_is_no_regular_file()
    {
        const QByteArray path = QFile::encodeName(m_files.Path(QStringLiteral("pipe")));
        QCOMPARE(::mkfifo(path.constData(), 0600), 0);
        const int reader = ::open(path.constData(), O_RDONLY | O_NONBLOCK);
        QVERIFY(reader >= 0);
        QcDockContainer root;
        Controller().setJsonFilePath(QFile::decodeName(path));
        Controller().saveToJson(&root);
        QByteArray heard(4096, '\0');
        heard.resize(int(qMax(ssize_t(0), ::read(reader, heard.data(), size_t(heard.size())))));
        ::close(reader);
        QCOMPARE(heard, Controller().toJson(&root).toUtf8());
        struct stat status = {};
        QVERIFY(::stat(path.constData(), &status) == 0 && S_ISFIFO(status.st_mode));
    }

    void a_save_works_where_no_file_can_be_made_beside()
    {
        QDir folder(m_files.Path(QStringLiteral(".")));
        QVERIFY(folder.mkdir(QStringLiteral("closed")));
        const QString path = m_files.Write(QStringLiteral("closed/layout.json"), "earlier");
        QVERIFY(QFile::setPermissions(path, QFileDevice::Permissions(0x6666)));
        QcDockContainer root;
        Controller().setJsonFilePath(path);
        {
            const ClosedFolder closed(QFileInfo(path).path());
            Controller().saveToJson(&root);
        }
        QCOMPARE(ContentOf(path), Controller().toJson(&root).toUtf8());
    }
#endif

    // --- What a layout tells ---

    void an_empty_container_is_one_empty_area_and_reads_back_as_such()
    {
        QcDockContainer root;
        QCOMPARE(Controller().toJson(&root),
                 QStringLiteral("{\"children\":[{\"currentIndex\":-1,\"dockWidgetList\":[],\"nodeType\":\"dockArea\"}],"
                                "\"nodeType\":\"dockContainer\",\"orientation\":1,\"sizes\":[0]}"));
        QcDockContainer *read = Load(Controller().toJson(&root).toUtf8());
        QVERIFY(read && read != &root);
        QCOMPARE(Shape(*read), QStringLiteral("([])"));
        QVERIFY(read->isEmpty());
    }

    void a_nested_container_comes_back_in_a_new_wrapper()
    {
        const QByteArray json = R"({"orientation":1,"children":[{"dockWidgetList":[{"type":1}]},
            {"orientation":2,"children":[{"dockWidgetList":[{"type":2}]},{"dockWidgetList":[{"type":3},{"type":4}]}]}]})";
        QcDockContainer *root = Load(json);
        QCOMPARE(Shape(*root), QStringLiteral("([1] <[2] [3 4]>)"));
        QcDockArea *wrapper = root->getDockAreaList().at(1);
        QCOMPARE(wrapper->count(), 1);
        QVERIFY(qobject_cast<QcDockContainer *>(wrapper->widget(0)));
        QVERIFY(!Controller().toJson(root).contains(QLatin1String("wrapper")));
        const QPointer<QcDockContainer> first = root;
        QCOMPARE(Shape(*Load(Controller().toJson(root).toUtf8())), QStringLiteral("([1] <[2] [3 4]>)"));
        delete first;
    }

    void an_empty_nested_layout_lives_until_its_host_places_it()
    {
        const QPointer<QcDockContainer> root = Load(R"({"children":[{"orientation":2,"children":[{},{}]},{"orientation":2}]})");
        DrainEvents();
        QVERIFY(root);
        QCOMPARE(Shape(*root), QStringLiteral("(<[] []> <[]>)"));
    }

    void a_nested_container_that_is_alone_stays_nested()
    {
        QcDockContainer *root =
            Load(R"({"children":[{"orientation":2,"children":[{"orientation":1,"children":[{"dockWidgetList":[{"type":1}]}]}]}]})");
        QCOMPARE(Shape(*root), QStringLiteral("(<([1])>)"));
    }

    void the_current_tab_comes_back_unless_an_entry_was_skipped()
    {
        QcDockContainer *root = Load(R"({"children":[{"currentIndex":1,"dockWidgetList":[{"type":1},{"type":2},{"type":3}]},
            {"currentIndex":1,"dockWidgetList":[{"x":1},{"type":2},{"type":3}]}]})");
        const auto areas = root->getDockAreaList();
        QCOMPARE(areas.at(0)->currentIndex(), 1);
        QCOMPARE(qobject_cast<QcDockWidget *>(areas.at(0)->widget(1))->getType(), 2);
        QCOMPARE(areas.at(1)->currentIndex(), 1);
        QCOMPARE(qobject_cast<QcDockWidget *>(areas.at(1)->widget(1))->getType(), 3); // one further than was meant
    }

    void without_a_usable_current_index_the_last_tab_is_current_data()
    {
        QTest::addColumn<QByteArray>("entry");
        QTest::addColumn<int>("index");
        QTest::newRow("missing") << QByteArray() << 2;
        QTest::newRow("negative") << QByteArray(",\"currentIndex\":-1") << 2;
        QTest::newRow("too far") << QByteArray(",\"currentIndex\":3") << 2;
        QTest::newRow("no number") << QByteArray(",\"currentIndex\":\"1\"") << 0;
    }
    void without_a_usable_current_index_the_last_tab_is_current()
    {
        QFETCH(QByteArray, entry);
        QFETCH(int, index);
        QcDockContainer *root = Load("{\"children\":[{\"dockWidgetList\":[{\"type\":1},{\"type\":2},{\"type\":3}]" + entry + "}]}");
        QCOMPARE(root->getDockAreaList().constFirst()->currentIndex(), index);
    }

    void only_2_is_vertical_whatever_else_a_file_says()
    {
        QcDockContainer *root = Load(R"({"orientation":77,"children":[{},{"orientation":0}]})");
        QCOMPARE(root->getOrientation(), Qt::Horizontal);
        QVERIFY(Controller().toJson(root).contains(QLatin1String("\"orientation\":1")));
        QVERIFY(!Controller().toJson(root).contains(QLatin1String("\"orientation\":77")));
    }

    void docked_panels_are_written_with_their_geometry_too()
    {
        auto *root = new QcDockContainer;
        root->addDockWidgetContent(Content(1), Left);
        Host host(root);
        host.ShowSettled();
        const QJsonObject area = ObjectOf(Controller().toJson(root)).value(QLatin1String("children")).toArray().first().toObject();
        const QJsonObject panel = area.value(QLatin1String("dockWidgetList")).toArray().first().toObject();
        QCOMPARE(panel.value(QLatin1String("type")).toInt(), 1);
        QVERIFY(panel.value(QLatin1String("width")).toInt() > 800);
        QVERIFY(panel.value(QLatin1String("height")).toInt() > 500);
    }

    void docking_inside_of_a_panel_leaves_no_trace_in_the_file()
    {
        QcDockContainer root;
        root.addDockWidgetContent(Content(1), Left);
        const QByteArray before = WithoutDockedGeometry(Controller().toJson(&root));
        auto *panel = qobject_cast<QcDockWidget *>(root.getDockAreaList().constFirst()->widget(0));
        auto *inner = new QcDockContainer(panel->getContentWidget());
        inner->addDockWidgetContent(Content(2), Left);
        QCOMPARE(WithoutDockedGeometry(Controller().toJson(&root)), before);
        QVERIFY(Controller().toJson(inner).contains(QLatin1String("\"type\":2")));
    }

    void docked_geometry_in_a_file_means_nothing()
    {
        QcDockContainer *root = Load(R"({"children":[{"dockWidgetList":[{"type":1,"x":70,"y":80,"width":5000,"height":6000}]}]})");
        Host host(root);
        host.ShowSettled();
        QCOMPARE(host.size(), QSize(900, 600));
        QVERIFY(root->getDockAreaList().constFirst()->widget(0)->width() < 900);
    }

    void restored_panels_are_empty_and_untitled_until_contents_are_dealt()
    {
        QcDockContainer *root = Load(R"({"children":[{"dockWidgetList":[{"type":7},{"type":7}]}]})");
        QcDockArea *area = root->getDockAreaList().constFirst();
        auto *first = qobject_cast<QcDockWidget *>(area->widget(0));
        auto *second = qobject_cast<QcDockWidget *>(area->widget(1));
        QVERIFY(!first->getContentWidget() && !second->getContentWidget());
        QCOMPARE(first->windowTitle(), QString());
        QWidget *one = Content(7, QStringLiteral("One"));
        QWidget *two = Content(7, QStringLiteral("Two"));
        root->setDockWidgetContentList({one, two});
        const auto panels = root->findChildren<QcDockWidget *>();
        QCOMPARE(panels.size(), 2);
        QCOMPARE(panels.first()->getContentWidget(), one); // in their order
        QCOMPARE(panels.last()->getContentWidget(), two);
        QCOMPARE(first->windowTitle(), first->getContentWidget()->windowTitle());
        QCOMPARE(second->windowTitle(), second->getContentWidget()->windowTitle());
    }

    void a_layout_comes_back_the_same_data()
    {
        QTest::addColumn<quint32>("seed");
        for (quint32 seed = 1; seed <= 25; ++seed)
            QTest::addRow("seed %u", seed) << seed;
    }
    void a_layout_comes_back_the_same()
    {
        QFETCH(quint32, seed);
        QPointer<QcDockContainer> first = Load(WriteLayout(VelmoraTest::RandomLayout(seed)));
        const QString shape = Shape(*first);
        QString saved;
        {
            Host host(first);
            host.ShowSettled();
            saved = Controller().toJson(first);
        }
        QPointer<QcDockContainer> second = Load(saved.toUtf8());
        QCOMPARE(Shape(*second), shape);
        Host host(second);
        host.ShowSettled();
        QCOMPARE(WithoutDockedGeometry(Controller().toJson(second)), WithoutDockedGeometry(saved));
    }

    // --- Its parts, which nothing else calls ---

    void a_text_is_read_into_the_root()
    {
        QcDockContainer *root = Part<FromJson>(QStringLiteral(R"({"children":[{"dockWidgetList":[{"type":4}]}]})"));
        QVERIFY(root);
        QCOMPARE(Controller().getRootDockContainer().data(), root);
        QCOMPARE(Shape(*root), QStringLiteral("([4])"));
        QVERIFY(!Part<FromJson>(QStringLiteral("[]")));
        QCOMPARE(Controller().getRootDockContainer().data(), root);
    }

    void a_container_is_written_with_its_four_keys_and_read_back()
    {
        QcDockContainer *root = Load(R"({"orientation":2,"sizes":[150,446],"floatingWidgets":[{"type":8}],
            "children":[{"dockWidgetList":[{"type":4}]},{"orientation":1,"children":[{},{}]}]})");
        const QJsonObject object = Part<SerializeContainer>(root);
        QCOMPARE(object.keys(),
                 QStringList({QStringLiteral("children"), QStringLiteral("nodeType"), QStringLiteral("orientation"),
                              QStringLiteral("sizes")})); // those that float are the file's
        QCOMPARE(object.value(QLatin1String("nodeType")).toString(), QStringLiteral("dockContainer"));
        QCOMPARE(object.value(QLatin1String("orientation")).toInt(), 2);
        QCOMPARE(object.value(QLatin1String("sizes")).toArray(), (QJsonArray{150, 446}));
        QCOMPARE(object.value(QLatin1String("children")).toArray(),
                 (QJsonArray{Part<SerializeArea>(root->getDockAreaList().at(0)), Part<SerializeArea>(root->getDockAreaList().at(1))}));

        QcDockContainer *read = Part<DeserializeContainer>(object);
        QVERIFY(!read->parent());
        QCOMPARE(Shape(*read), Shape(*root));
        QCOMPARE(Controller().getRootDockContainer().data(), root);
        Host host(read);
        host.ShowSettled();
        QCOMPARE(read->getSizes(), (QList<int>{150, 446}));
    }

    void what_floats_is_read_from_the_file_alone()
    {
        const QScopedPointer<QcDockContainer> read(
            Part<DeserializeContainer>(QJsonObject{{QStringLiteral("floatingWidgets"), QJsonArray{QJsonObject{{"type", 8}}}}}));
        QVERIFY(read->getDockWidgetWindow().isEmpty());
    }

    void an_area_is_written_with_its_panels_and_a_wrapper_as_what_is_in_it()
    {
        QcDockContainer *root = Load(R"({"children":[{"currentIndex":0,"dockWidgetList":[{"type":4},{"type":5}]},{"orientation":2}]})");
        const auto areas = root->getDockAreaList();
        const QJsonObject area = Part<SerializeArea>(areas.at(0));
        QCOMPARE(area.keys(), QStringList({QStringLiteral("currentIndex"), QStringLiteral("dockWidgetList"), QStringLiteral("nodeType")}));
        QCOMPARE(area.value(QLatin1String("nodeType")).toString(), QStringLiteral("dockArea"));
        QCOMPARE(area.value(QLatin1String("currentIndex")).toInt(), 0);
        auto *panel = qobject_cast<QcDockWidget *>(areas.at(0)->widget(1));
        QCOMPARE(area.value(QLatin1String("dockWidgetList")).toArray().at(1).toObject(), Part<SerializeWidget>(panel));
        QCOMPARE(Part<SerializeArea>(areas.at(1)), Part<SerializeContainer>(qobject_cast<QcDockContainer *>(areas.at(1)->widget(0))));
    }

    void a_panel_is_written_with_its_type_and_geometry_and_read_as_an_empty_frame()
    {
        QcDockWidget panel(nullptr);
        panel.setType(-7);
        panel.setGeometry(1, 2, 300, 400);
        const QJsonObject object = Part<SerializeWidget>(&panel);
        QCOMPARE(object, (QJsonObject{{"nodeType", "dockWidget"}, {"type", -7}, {"x", 1}, {"y", 2}, {"width", 300}, {"height", 400}}));
        const QScopedPointer<QcDockWidget> read(Part<DeserializeWidget>(object));
        QCOMPARE(read->getType(), -7);
        QVERIFY(!read->parent() && !read->getContentWidget());
        QVERIFY(!Part<DeserializeWidget>(QJsonObject{{"x", 1}}));
    }

    // --- Sizes ---

    void sizes_take_effect_in_the_next_turn()
    {
        QcDockContainer *root = Load(R"({"sizes":[200,400,292],"children":[{},{},{}]})");
        Host host(root);
        host.ShowSettled();
        QCOMPARE(root->getSizes(), (QList<int>{200, 400, 292})); // and two handles of 4 pixels
    }

    void sizes_take_effect_over_what_was_set_in_between()
    {
        QcDockContainer *root = Load(R"({"sizes":[300,592],"children":[{},{}]})");
        Host host(root);
        host.show();
        root->setSizes({600, 292});
        DrainEvents();
        QCOMPARE(root->getSizes(), (QList<int>{301, 595}));
    }

    void sizes_of_a_root_that_is_shown_later_are_kept()
    {
        QcDockContainer *root = Load(R"({"sizes":[224,672],"children":[{},{"orientation":2,"sizes":[149,447],"children":[{},{}]}]})");
        DrainEvents();
        Host host(root);
        host.ShowSettled();
        QCOMPARE(root->getSizes(), (QList<int>{224, 672}));
        QCOMPARE(qobject_cast<QcDockContainer *>(root->getDockAreaList().at(1)->widget(0))->getSizes(), (QList<int>{149, 445}));
    }

    void sizes_that_a_host_sets_later_replace_those_of_the_file()
    {
        QcDockContainer *root = Load(R"({"sizes":[224,672],"children":[{},{}]})");
        DrainEvents();
        root->setSizes({672, 224});
        Host host(root);
        host.ShowSettled();
        QCOMPARE(root->getSizes(), (QList<int>{672, 224}));
    }

    void a_layout_that_is_saved_before_it_was_shown_keeps_its_sizes()
    {
        QcDockContainer *root = Load(R"({"sizes":[224,672],"children":[{},{"orientation":2,"sizes":[150,450],"children":[{},{}]}]})");
        const auto sizes = [&] { return ObjectOf(Controller().toJson(root)).value(QLatin1String("sizes")).toArray(); };
        QCOMPARE(sizes(), (QJsonArray{224, 672}));
        DrainEvents();
        QCOMPARE(sizes(), (QJsonArray{224, 672}));
        QVERIFY(Controller().toJson(root).contains(QLatin1String("\"sizes\":[150,450]")));
    }

    void the_sizes_of_a_root_that_was_deleted_are_dropped()
    {
        delete Load(R"({"sizes":[224,672],"children":[{},{"orientation":2,"sizes":[150,450],"children":[{},{}]}]})");
        DrainEvents();
    }

    void sizes_of_any_kind_leave_every_pane_its_place_data()
    {
        QTest::addColumn<QByteArray>("sizes");
        for (const char *sizes : {"[]", "[1]", "[-5,-5,-5]", "[1e300,1e300,1e300]", "[16777215,16777215,16777215]", "[0,0,0]",
                                  "[\"x\",null,{}]", "[1,2,3,4,5]", "null", "7"})
            QTest::newRow(sizes) << QByteArray(sizes);
    }
    void sizes_of_any_kind_leave_every_pane_its_place()
    {
        QFETCH(QByteArray, sizes);
        QcDockContainer *root = Load("{\"sizes\":" + sizes + ",\"children\":[{},{},{}]}");
        Host host(root);
        host.ShowSettled();
        const QList<int> panes = root->getSizes();
        QCOMPARE(panes.size(), 3);
        int sum = 0;
        for (const int pane : panes) {
            QVERIFY(pane > 0);
            sum += pane;
        }
        QCOMPARE(sum, 900 - 2 * 4);
    }

    // --- Floating panels ---

    void floating_panels_wait_hidden_under_their_root_until_it_is_shown()
    {
        QcDockContainer *root = Load(R"({"floatingWidgets":[{"type":1,"x":30,"y":40,"width":320,"height":240}]})");
        QcDockWidget *panel = root->getDockWidgetWindow().constFirst();
        QCOMPARE(panel->parentWidget(), root);
        QVERIFY(panel->isFloating());
        QVERIFY(panel->property("window").toBool());
        QCOMPARE(panel->windowFlags() & Qt::FramelessWindowHint, Qt::FramelessWindowHint);
        QCOMPARE(panel->geometry(), QRect(30, 40, 320, 240));
        DrainEvents();
        QVERIFY(!panel->isVisible());
        Host host(root);
        host.ShowSettled();
        QTRY_VERIFY(panel->isVisible());
        QCOMPARE(panel->geometry(), QRect(30, 40, 320, 240));
    }

    void dealing_contents_shows_what_floats_under_a_visible_root()
    {
        QcDockContainer *root = Load(R"({"floatingWidgets":[{"type":1,"width":320,"height":240}]})");
        QcDockWidget *panel = root->getDockWidgetWindow().constFirst();
        Host host(root);
        host.ShowSettled();
        panel->hide();
        root->setDockWidgetContentList({Content(1)});
        QVERIFY(panel->isVisible());
    }

    void floating_panels_are_written_and_read_as_such()
    {
        QcDockContainer *root =
            Load(R"({"floatingWidgets":[{"type":1,"x":30,"y":40,"width":320,"height":240},{"x":1},{"type":2,"width":200,"height":100}]})");
        QCOMPARE(root->getDockWidgetWindow().size(), 2);
        const QJsonArray floating = ObjectOf(Controller().toJson(root)).value(QLatin1String("floatingWidgets")).toArray();
        QCOMPARE(floating.size(), 2);
        QCOMPARE(floating.at(0).toObject(),
                 (QJsonObject{{"nodeType", "dockWidget"}, {"type", 1}, {"x", 30}, {"y", 40}, {"width", 320}, {"height", 240}}));
        QCOMPARE(floating.at(1).toObject().value(QLatin1String("type")).toInt(), 2);
    }

    void a_floating_geometry_is_taken_as_it_is_within_reason_data()
    {
        QTest::addColumn<QByteArray>("keys");
        QTest::addColumn<QRect>("geometry");
        QTest::newRow("0 by 0") << QByteArray(",\"x\":5,\"y\":6,\"width\":0,\"height\":0") << QRect(5, 6, 0, 0);
        QTest::newRow("missing") << QByteArray() << QRect(0, 0, 0, 0);
        QTest::newRow("text") << QByteArray(",\"x\":\"5\",\"width\":\"300\"") << QRect(0, 0, 0, 0);
        QTest::newRow("negative") << QByteArray(",\"width\":-300,\"height\":-1") << QRect(0, 0, 0, 0);
        QTest::newRow("too large") << QByteArray(",\"width\":30000,\"height\":16777215") << QRect(0, 0, 4096, 4096);
        QTest::newRow("far away") << QByteArray(",\"x\":1e300,\"y\":-1e300,\"width\":30,\"height\":40")
                                  << QRect(kMaxLayoutLength, -kMaxLayoutLength, 30, 40);
    }
    void a_floating_geometry_is_taken_as_it_is_within_reason()
    {
        QFETCH(QByteArray, keys);
        QFETCH(QRect, geometry);
        QcDockContainer *root = Load("{\"floatingWidgets\":[{\"type\":1" + keys + "}]}");
        QCOMPARE(root->getDockWidgetWindow().constFirst()->geometry(), geometry);
    }

    void a_panel_restored_floating_takes_no_root_with_it()
    {
        const QPointer<QcDockContainer> root = Load(R"({"floatingWidgets":[{"type":1,"width":50,"height":50}]})");
        QVERIFY(!root->isEmpty());
        delete root->getDockWidgetWindow().constFirst();
        VERIFY_SETTLED();
        QVERIFY(root);
        QVERIFY(root->isEmpty());
    }

    void a_floating_panel_of_no_size_can_be_shown()
    {
        QcDockContainer *root = Load(R"({"floatingWidgets":[{"type":1}]})");
        Host host(root);
        host.ShowSettled();
        QVERIFY(root->getDockWidgetWindow().constFirst()->isVisible());
    }

    void floating_panels_of_a_nested_container_mean_nothing()
    {
        QcDockContainer *root = Load(R"({"children":[{"orientation":1,"floatingWidgets":[{"type":6}]}],"floatingWidgets":{"type":7}})");
        QVERIFY(root->getDockWidgetWindow().isEmpty());
        QVERIFY(root->isEmpty());
    }

    void a_panel_floats_under_the_registered_root_whichever_it_came_from()
    {
        auto *first = new QcDockContainer;
        first->addDockWidgetContent(Content(1), Left);
        Host host(first);
        host.ShowSettled();
        QcDockContainer other;
        Controller().setRootDockContainer(&other);
        auto *panel = qobject_cast<QcDockWidget *>(first->getDockAreaList().constFirst()->widget(0));
        panel->swichToFloating();
        QCOMPARE(panel->parentWidget(), &other);
    }

    void a_panel_that_floats_keeps_its_docked_size_and_docks_into_a_half()
    {
        auto *root = new QcDockContainer;
        root->addDockWidgetContent(Content(1), Left);
        auto *panel = new QcDockWidget(nullptr);
        root->addWidget(panel, root->getDockAreaList().constFirst(), Right);
        Controller().setRootDockContainer(root);
        Host host(root);
        host.ShowSettled();
        root->setSizes({596, 300});
        DrainEvents();
        const QSize docked = panel->size();
        panel->swichToFloating();
        DrainEvents();
        QCOMPARE(panel->size(), docked);
        root->addWidget(panel, root->getDockAreaList().constFirst(), Right);
        DrainEvents();
        QCOMPARE(root->getSizes(), (QList<int>{448, 448}));
    }

    // --- Roots ---

    void a_second_load_makes_a_second_root()
    {
        const QPointer<QcDockContainer> first = Load(R"({"children":[{"dockWidgetList":[{"type":1}]}]})");
        const QPointer<QcDockContainer> second = Load(R"({"children":[{"dockWidgetList":[{"type":2}]}]})");
        DrainEvents();
        QVERIFY(first && second && first != second);
        QCOMPARE(Controller().getRootDockContainer().data(), second.data());
        QCOMPARE(Shape(*first), QStringLiteral("([1])"));
        QVERIFY(!first->parent() && !second->parent());
        delete first;
        QCOMPARE(Controller().getRootDockContainer().data(), second.data());
    }

    void loading_in_the_middle_of_a_drag_lets_the_drag_go_on()
    {
        auto *drag = QcDockDragController::instance();
        QcDockContainer *first = Load(R"({"floatingWidgets":[{"type":1,"width":200,"height":100}]})");
        const QPointer<QcDockWidget> panel = first->getDockWidgetWindow().constFirst();
        Host host(first);
        host.ShowSettled();
        QCursor::setPos(host.geometry().center());
        drag->processDockWidgetDraging(panel);
        const auto *indicator = VelmoraTest::TopLevel<QcDockIndicator>();
        QVERIFY(indicator->isVisible());

        QcDockContainer *second = Load(R"({"children":[{"dockWidgetList":[{"type":2}]}]})");
        Host other(second);
        other.move(host.geometry().bottomLeft() + QPoint(0, 50));
        other.ShowSettled();
        QVERIFY(panel && panel->property("draging").toBool());
        QVERIFY(indicator->isVisible());
        QCursor::setPos(other.geometry().center());
        drag->processDockWidgetDraging(panel);
        QVERIFY(qAbs(indicator->geometry().center().y() - other.geometry().center().y()) < 5);
        drag->processDockWidgetDragFinished(panel);
        QCOMPARE(Shape(*second), QStringLiteral("([2 1])"));
    }

    void a_layout_that_is_loaded_while_the_mouse_drags_takes_part_in_the_drag_data()
    {
        QTest::addColumn<bool>("goes");
        QTest::newRow("the earlier root stays") << false;
        QTest::newRow("the earlier root goes, and with it what floats under it") << true;
    }
    void a_layout_that_is_loaded_while_the_mouse_drags_takes_part_in_the_drag()
    {
        QFETCH(bool, goes);
        QcDockContainer *first = Load(R"({"children":[{"dockWidgetList":[{"type":1}]},{"dockWidgetList":[{"type":2}]}]})");
        Host host(first);
        host.setGeometry(0, 0, 400, 250);
        host.ShowSettled();
        const QPointer<QWidget> panel = first->getDockAreaList().constFirst()->widget(0);
        VelmoraTest::Mouse mouse;
        mouse.PressAt(*panel, QPoint(60, 15));
        mouse.MoveBy(0, 10);
        mouse.MoveTo(host.geometry().center());
        DrainEvents();
        const auto *indicator = VelmoraTest::TopLevel<QcDockIndicator>();
        QVERIFY(indicator->isVisible());

        QcDockContainer *second = Load(R"({"children":[{"dockWidgetList":[{"type":3}]}]})");
        Host other(second);
        other.setGeometry(0, 270, 400, 250);
        other.ShowSettled();
        if (goes)
            delete first;
        QCOMPARE(panel.isNull(), goes);
        QCOMPARE(indicator->isVisible(), !goes);
        mouse.MoveTo(other.geometry().center());
        DrainEvents();
        QCOMPARE(indicator->isVisible(), !goes);
        mouse.Release();
        QCOMPARE(Settled(), QString());
        QCOMPARE(Shape(*second), goes ? QStringLiteral("([3])") : QStringLiteral("([3 1])"));
    }

    void a_refused_second_load_leaves_the_first_root()
    {
        QcDockContainer *first = Load(R"({"children":[{"dockWidgetList":[{"type":1}]}]})");
        QCOMPARE(Load("{\"children\":"), first);
        QCOMPARE(Shape(*first), QStringLiteral("([1])"));
    }
};

VELMORA_TEST_MAIN(tst_QcDockController)
#include "tst_QcDockController.moc"
