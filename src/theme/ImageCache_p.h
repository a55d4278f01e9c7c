#pragma once

#include <Velmora/ImageParams.h>

#include <QImage>
#include <QPixmap>

#include <functional>

namespace Velmora {

/// Keeps the images that were made for requests, at most a bounded amount of memory, the least recently used going first.
///
/// A request is known by all of its fields and by the state of its file on disk, so that a changed file is seen.
/// The cache goes with the application object, because pixmaps must not outlive it; without one nothing is kept.
namespace ImageCache {

using Render = std::function<QImage(const ImageParams &)>;

/// The image of \a params: kept from an earlier request, else made by \a render. Null if there is no such file.
QImage Image(const ImageParams &params, const Render &render);
QPixmap Pixmap(const ImageParams &params, const Render &render);

/// Forgets everything: colour codes stand for other colours now.
void Clear();

} // namespace ImageCache

} // namespace Velmora
