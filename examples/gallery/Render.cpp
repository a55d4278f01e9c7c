#include "Render.h"

#include "GalleryWindow.h"

#include <Velmora/PostOwnedTask.h>

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QImage>
#include <QTextStream>

namespace Gallery {

namespace {

constexpr int kWidth = 1280;
constexpr int kMinimumHeight = 860;

// Lets all queued theme work run: tasks keep their order, so one more at the end tells when the others are done.
// Twice, because a task may post another.
void Settle(QObject *owner)
{
    for (int round = 0; round < 2; ++round) {
        QEventLoop loop;
        Velmora::PostOwnedTask(
            owner, [&loop] { loop.quit(); }, "settle");
        loop.exec();
    }
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QImage RenderPage(GalleryWindow &window, const QString &id, Table table)
{
    if (!window.ShowPage(id))
        return QImage();
    window.SetTable(table);
    window.resize(kWidth, kMinimumHeight);
    Settle(&window);
    // A label that wraps anew at another width may need a second round.
    for (int round = 0; round < 8 && window.GrowToContent(); ++round)
        Settle(&window);
    return window.grab().toImage();
}

} // namespace

int RenderPages(const QString &folder, const QString &onlyPage)
{
    QTextStream out(stdout);
    QTextStream err(stderr);
    const QDir dir(folder);
    if (!dir.mkpath(QStringLiteral("."))) {
        err << "gallery: cannot make the folder " << folder << '\n';
        return 1;
    }

    int failures = 0;
    int files = 0;
    GalleryWindow window(Table::Light);
    window.setAttribute(Qt::WA_DontShowOnScreen); // laid out and themed as when shown, but never on a screen
    window.show();
    for (const Table table : kTables) {
        for (const PageInfo &page : Pages()) {
            if (!onlyPage.isEmpty() && page.id != onlyPage)
                continue;
            const QString file = dir.absoluteFilePath(QStringLiteral("%1-%2.png").arg(page.id, TableName(table)));
            const QImage image = RenderPage(window, page.id, table);
            if (image.isNull() || !image.save(file, "PNG")) {
                err << "gallery: cannot write " << file << '\n';
                ++failures;
                continue;
            }
            out << file << '\n';
            ++files;
        }
    }
    out << files << " pictures in " << QDir::cleanPath(dir.absolutePath()) << '\n';
    return failures == 0 && files > 0 ? 0 : 1;
}

} // namespace Gallery
