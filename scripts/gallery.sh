#!/usr/bin/env bash
# gallery.sh [ARGUMENT...]: installs what is missing, builds the library and shows the gallery. Without a display it renders
# every page in all four colour tables instead, from left to right and, in Arabic, from right to left, and says where the
# pictures are. The arguments go to the gallery, as --page NAME does, which shows one page.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/help.sh"
cd "$(dirname "${BASH_SOURCE[0]}")/.."

sets=(build)
[ -n "${DISPLAY:-}" ] || [ -z "${WAYLAND_DISPLAY:-}" ] || sets+=(wayland)
scripts/install_packages.sh "${sets[@]}"

echo "== Building (build/release)"
cmake --preset release --log-level=WARNING
cmake --build --preset release
gallery=build/release/examples/gallery/gallery

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    echo "== Starting the gallery"
    exec "$gallery" "$@"
fi

pictures=$PWD/build/gallery
echo "== No display: rendering every page in all colour tables"
rm -rf "$pictures"
mkdir -p "$pictures"
runtime=$(mktemp -d)
trap 'rm -rf "$runtime"' EXIT
render() { env QT_QPA_PLATFORM=offscreen QT_FONT_DPI=96 LC_ALL=C.UTF-8 LANGUAGE= XDG_RUNTIME_DIR="$runtime" "$gallery" --render "$@"; }
render "$pictures" "$@"
render "$pictures/right-to-left" --language ar "$@"
echo "== $(find "$pictures" -name '*.png' | wc -l) pictures are in $pictures"
