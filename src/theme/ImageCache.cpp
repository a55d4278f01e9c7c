#include "theme/ImageCache_p.h"

#include "theme/FileStamp_p.h"

#include <QCache>
#include <QCoreApplication>

#include <memory>

namespace Velmora {

namespace {

constexpr int kMaxKibibytes = 32 * 1024;

struct RequestKey
{
    ImageParams params;
};

bool SameColor(const ColorParams &a, const ColorParams &b)
{
    // An alpha that is not a number must equal itself here, or its image would never be found again.
    return a.code == b.code && (a.alpha == b.alpha || (qIsNaN(a.alpha) && qIsNaN(b.alpha)));
}

bool SameSubstitutions(const QHash<QString, ColorParams> &a, const QHash<QString, ColorParams> &b)
{
    if (a.size() != b.size())
        return false;
    for (auto entry = a.cbegin(); entry != a.cend(); ++entry) {
        const auto other = b.constFind(entry.key());
        if (other == b.cend() || !SameColor(*entry, *other))
            return false;
    }
    return true;
}

bool operator==(const RequestKey &a, const RequestKey &b)
{
    return a.params.path == b.params.path && a.params.size == b.params.size && SameColor(a.params.color, b.params.color)
        && SameSubstitutions(a.params.mulColor, b.params.mulColor);
}

using Hash = decltype(qHash(QString())); // of another width in Qt 6

Hash HashOf(const ColorParams &color, Hash seed)
{
    return qHash(color.code, seed) ^ qHash(color.alpha, seed);
}

Hash qHash(const RequestKey &key, Hash seed)
{
    const ImageParams &params = key.params;
    const uint size = uint(params.size.width()) * 31 + uint(params.size.height()); // of any width without overflow
    Hash hash = qHash(params.path, seed) ^ HashOf(params.color, seed) ^ size;
    // A sum, because equal hashes may hold their entries in different orders.
    for (auto entry = params.mulColor.cbegin(); entry != params.mulColor.cend(); ++entry)
        hash += qHash(entry.key(), seed) ^ (HashOf(*entry, seed) * 3);
    return hash;
}

struct Entry
{
    FileStamp stamp;
    QImage image;
    QPixmap pixmap;
};

using Cache = QCache<RequestKey, Entry>;

std::unique_ptr<Cache> cache;

Cache *ActiveCache()
{
    if (!cache && QCoreApplication::instance()) {
        cache = std::make_unique<Cache>(kMaxKibibytes);
        qAddPostRoutine([] { cache.reset(); });
    }
    return cache.get();
}

/// Image and pixmap of the same picture, rounded up.
int CostInKibibytes(const QImage &image)
{
    return int(qMin<qint64>(image.sizeInBytes() * 2 / 1024 + 1, kMaxKibibytes + 1));
}

/// The entry kept for \a params, if its file was then as \a stamp says that it is now; else null.
Entry *FindFresh(Cache &entries, const ImageParams &params, const FileStamp &stamp)
{
    Entry *entry = entries.object(RequestKey{params});
    return entry && entry->stamp == stamp ? entry : nullptr;
}

} // namespace

QImage ImageCache::Image(const ImageParams &params, const Render &render)
{
    const FileStamp stamp = FileStamp::Of(params.path);
    if (!stamp.exists)
        return QImage();
    Cache *entries = ActiveCache();
    if (!entries)
        return render(params);
    if (const Entry *entry = FindFresh(*entries, params, stamp))
        return entry->image;
    QImage image = render(params);
    // Bound to the stamp from before the reading: a file that changes meanwhile is read again.
    entries->insert(RequestKey{params}, new Entry{stamp, image, QPixmap()}, CostInKibibytes(image));
    return image;
}

QPixmap ImageCache::Pixmap(const ImageParams &params, const Render &render)
{
    const FileStamp stamp = FileStamp::Of(params.path);
    if (!stamp.exists)
        return QPixmap();
    Cache *entries = ActiveCache();
    if (!entries)
        return QPixmap::fromImage(render(params));
    Entry *entry = FindFresh(*entries, params, stamp);
    if (!entry) {
        const QImage image = render(params);
        const QPixmap pixmap = QPixmap::fromImage(image);
        entries->insert(RequestKey{params}, new Entry{stamp, image, pixmap}, CostInKibibytes(image));
        return pixmap;
    }
    if (entry->pixmap.isNull())
        entry->pixmap = QPixmap::fromImage(entry->image);
    return entry->pixmap;
}

void ImageCache::Clear()
{
    if (cache)
        cache->clear();
}

} // namespace Velmora
