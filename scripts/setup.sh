#!/usr/bin/env bash
# Installs from Debian what building and testing Krolle needs, and nothing
# when everything is already there. Works as root, or through sudo.
set -euo pipefail

PACKAGES=(cmake ninja-build g++ make qtbase5-dev libgtest-dev libgmock-dev libbenchmark-dev)
# Printed boards: the font the pages embed, and the PDF readers the tests check them with.
PACKAGES+=(fonts-dejavu-core poppler-utils)

missing=()
for pkg in "${PACKAGES[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null | grep -q "install ok installed"; then
        missing+=("$pkg")
    fi
done

if [ ${#missing[@]} -eq 0 ]; then
    exit 0
fi

if [ "$(id -u)" -eq 0 ]; then
    SUDO=()
elif command -v sudo >/dev/null 2>&1; then
    SUDO=(sudo)
else
    echo "setup: missing packages (${missing[*]}) and no sudo to install them; install them as root." >&2
    exit 1
fi

echo "setup: installing from Debian: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${SUDO[@]}" apt-get update -qq
"${SUDO[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
echo "setup: done"
