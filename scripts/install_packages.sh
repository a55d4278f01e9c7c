#!/usr/bin/env bash
# install_packages.sh SET...: installs the packages of scripts/packages.txt that belong to one of the sets and are missing.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/help.sh"
list=$(dirname "${BASH_SOURCE[0]}")/packages.txt

missing=()
for set in "$@"; do
    names=$(awk -v set="$set" '$1 == set { print $2 }' "$list")
    [ -n "$names" ] || { echo "install_packages.sh: no set named $set in $list" >&2; exit 2; }
    for name in $names; do
        [ "$(dpkg-query --show --showformat='${db:Status-Status}' "$name" 2>/dev/null || true)" = installed ] || missing+=("$name")
    done
done
[ ${#missing[@]} -gt 0 ] || exit 0

echo "== Installing: ${missing[*]}"
as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || {
        echo "Neither root nor sudo. Have these installed first: apt-get install --no-install-recommends ${missing[*]}" >&2
        exit 1
    }
    as_root=(sudo)
fi
# Through env, because sudo does not pass the variable on.
apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get --quiet=2 -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0)

update() {
    echo "== Updating the package lists"
    "${apt[@]}" update
}
install() { "${apt[@]}" install --yes --no-install-recommends "${missing[@]}" >/dev/null; }

# The lists are fetched only where they are wanting: a fresh machine has none, and old ones name files that are gone.
fresh=
for name in "${missing[@]}"; do
    apt-cache show --no-all-versions "$name" >/dev/null 2>&1 || { update; fresh=yes; break; }
done
install || { [ -z "$fresh" ] && update && install; }
