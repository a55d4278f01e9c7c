#!/usr/bin/env bash
# try_install.sh CMAKE BUILD_FOLDER: installs what is built there, moves it, and runs it from where nothing else is found.
set -euo pipefail
cd "$2"
rm -rf installed moved
"$1" --install . --prefix installed >/dev/null
mv installed moved
unset LD_LIBRARY_PATH
moved/bin/host
# Not grep -q, which ends at the first find: what writes to it then fails at times, and with it the pipe.
find moved -name 'velmora_de.qm' | grep share/velmora/translations >/dev/null
if find moved -name '*.h' -o -name '*.cmake' -o -name '*.pc' -o -name 'libVelmora.so' | grep .; then
    echo "these are for developers" >&2
    exit 1
fi
# What it loads is what lies beside it.
ldd moved/bin/host | grep "libVelmora.so.1 => $PWD/moved/" >/dev/null
