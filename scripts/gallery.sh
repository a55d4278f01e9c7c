#!/usr/bin/env bash
# gallery.sh [--qt 5|6] [ARGUMENT...]: installs what is missing, builds the library and shows the gallery, with Qt 5 unless told
# otherwise. Without a display it renders every page in all four colour tables instead, from left to right and, in Arabic, from right
# to left, and says where the pictures are. The other arguments go to the gallery, as --page NAME does, which shows one page.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/help.sh"
cd "$(dirname "${BASH_SOURCE[0]}")/.."

qt=5
arguments=()
while [ $# -gt 0 ]; do
    case $1 in
    --qt) qt=${2-} && shift ;;
    --qt=*) qt=${1#--qt=} ;;
    *) arguments+=("$1") ;;
    esac
    [ $# -eq 0 ] || shift
done
case $qt in
5) preset=release pictures=$PWD/build/gallery ;;
6) preset=release6 pictures=$PWD/build/gallery-qt6 ;;
*) echo "gallery.sh: --qt takes 5 or 6, and not \"$qt\"" >&2; exit 2 ;;
esac

sets=(build "build$qt")
[ -n "${DISPLAY:-}" ] || [ -z "${WAYLAND_DISPLAY:-}" ] || sets+=("wayland$qt")
scripts/install_packages.sh "${sets[@]}"

echo "== Building (build/$preset)"
cmake --preset "$preset" --log-level=WARNING
cmake --build --preset "$preset"
gallery=build/$preset/examples/gallery/gallery

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    echo "== Starting the gallery"
    exec "$gallery" "${arguments[@]}"
fi

echo "== No display: rendering every page in all colour tables"
rm -rf "$pictures"
mkdir -p "$pictures"
runtime=$(mktemp -d)
trap 'rm -rf "$runtime"' EXIT
render() { env QT_QPA_PLATFORM=offscreen QT_FONT_DPI=96 LC_ALL=C.UTF-8 LANGUAGE= XDG_RUNTIME_DIR="$runtime" "$gallery" --render "$@"; }
render "$pictures" "${arguments[@]}"
render "$pictures/right-to-left" --language ar "${arguments[@]}"
echo "== $(find "$pictures" -name '*.png' | wc -l) pictures are in $pictures"
