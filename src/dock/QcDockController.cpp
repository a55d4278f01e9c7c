#include <Velmora/QcDockController.h>

#include "dock/DockLayoutBuilder_p.h"

#include <Velmora/QcDockArea.h>
#include <Velmora/QcDockWidget.h>

#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <memory>

#if defined(Q_OS_UNIX)
#include <sys/stat.h>
#endif

namespace Velmora {

namespace {

bool HasOtherLinks(const QString &path)
{
#if defined(Q_OS_UNIX)
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 && status.st_nlink > 1;
#else
    Q_UNUSED(path);
    return false;
#endif
}

/// Whether a new file may take the place of \a path: a device would become a file, a link would part from what it is linked with.
bool IsReplaceable(const QFileInfo &file)
{
    return file.exists() ? file.isFile() && !HasOtherLinks(file.filePath()) : !file.isSymLink();
}

std::unique_ptr<QFileDevice> OpenForWriting(const QString &path)
{
    if (path.isEmpty()) // Qt would log a line of its own
        return nullptr;
    const QString target = QFileInfo(path).canonicalFilePath();
    if (IsReplaceable(QFileInfo(target.isEmpty() ? path : target))) {
        auto file = std::make_unique<QSaveFile>(target.isEmpty() ? path : target);
        if (file->open(QIODevice::WriteOnly))
            return file;
    }
    auto file = std::make_unique<QFile>(path);
    if (file->open(QIODevice::WriteOnly))
        return file;
    return nullptr;
}

bool WriteFile(const QString &path, const QByteArray &content)
{
    const std::unique_ptr<QFileDevice> file = OpenForWriting(path);
    // On a full disk only the flush fails, and the commit would replace the earlier file by a cut one.
    if (!file || file->write(content) != content.size() || !file->flush())
        return false;
    auto *replacement = qobject_cast<QSaveFile *>(file.get());
    return !replacement || replacement->commit();
}

/// All of \a bytes: QString::fromUtf8() of an array stops at its first zero.
QString Decoded(const QByteArray &bytes)
{
    // The compiler must see that the size is not -1, for which Qt would look for that zero, too.
    return QString::fromUtf8(bytes.constData(), qMax(0, bytes.size()));
}

} // namespace

QcDockController::QcDockController() = default;

QcDockController::~QcDockController() = default;

QcDockController *QcDockController::instance()
{
    static auto *controller = new QcDockController; // never deleted: a host may still ask for it when static objects go
    return controller;
}

void QcDockController::setJsonFilePath(const QString &path)
{
    m_jsonFilePath = path;
}

void QcDockController::setRootDockContainer(QcDockContainer *container)
{
    m_rootDockContainer = container;
}

QPointer<QcDockContainer> QcDockController::getRootDockContainer()
{
    return m_rootDockContainer;
}

void QcDockController::setDockAreaSupportTypeList(QList<QList<int>> supportTypeList)
{
    QcDockArea::setSupportTypeList(supportTypeList);
}

QString QcDockController::toJson(QcDockContainer *container)
{
    return container ? QString::fromUtf8(WriteLayout(Describe(*container))) : QString();
}

void QcDockController::saveToJson(QcDockContainer *container)
{
    const QByteArray text = toJson(container).toUtf8();
    if (!WriteFile(m_jsonFilePath, text))
        qDebug() << "QcDockController::saveToJson: Failed to open file";
}

QcDockContainer *QcDockController::loadFromJson(const QString &path)
{
    const QString name = path.isEmpty() ? m_jsonFilePath : path;
    QFile file(name);
    if (name.isEmpty() || !file.open(QIODevice::ReadOnly)) {
        qDebug() << "QcDockController::loadFromJson: Failed to open file";
        return m_rootDockContainer;
    }
    const QByteArray content = file.read(kMaxLayoutBytes + 1);
    file.close();
    if (content.size() <= kMaxLayoutBytes)
        fromJson(Decoded(content));
    return m_rootDockContainer;
}

QcDockContainer *QcDockController::fromJson(const QString &text)
{
    const std::optional<Layout> layout = ParseLayout(text.toUtf8());
    if (!layout)
        return nullptr;
    m_rootDockContainer = Build(*layout);
    return m_rootDockContainer;
}

QJsonObject QcDockController::serializeDockContainer(QcDockContainer *container)
{
    return WriteContainer(DescribeContainer(*container));
}

QJsonObject QcDockController::serializeDockArea(QcDockArea *area)
{
    return WriteNode(DescribeNode(*area));
}

QJsonObject QcDockController::serializeDockWidget(QcDockWidget *panel)
{
    return WritePanel(DescribePanel(*panel));
}

QcDockContainer *QcDockController::deserializeDockContainer(const QJsonObject &object)
{
    std::optional<Layout> layout = ReadLayout(object);
    if (!layout)
        return nullptr;
    layout->floating.clear(); // they are the root's alone
    return Build(*layout);
}

QcDockWidget *QcDockController::deserializeDockWidget(const QJsonObject &object)
{
    const std::optional<LayoutPanel> panel = ReadPanel(object);
    return panel ? BuildPanel(*panel, nullptr) : nullptr;
}

} // namespace Velmora
