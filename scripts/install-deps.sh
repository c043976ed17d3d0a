#!/usr/bin/env bash
# Installs what building, testing and running Tallymere needs on Debian 12, and only what is missing,
# so that a second run costs a dpkg query and nothing more.
set -euo pipefail

packages=(
    build-essential cmake ninja-build pkg-config
    qt6-base-dev qt6-multimedia-dev qt6-qpa-plugins libgl1-mesa-dev
    libsqlite3-dev sqlite3 libsodium-dev
    libgtest-dev libgmock-dev googletest libbenchmark-dev
    xvfb xauth fonts-dejavu-core fonts-liberation
    clang-format
)

missing=()
for p in "${packages[@]}"; do
    status=$(dpkg-query -W -f='${db:Status-Status}' "$p" 2>/dev/null || true)
    [[ "$status" == installed ]] || missing+=("$p")
done

if ((${#missing[@]} == 0)); then
    exit 0
fi

if ((EUID != 0)); then
    echo "Tallymere needs these packages, which are not installed:" >&2
    echo "    sudo apt-get update && sudo apt-get install -y --no-install-recommends ${missing[*]}" >&2
    exit 1
fi

echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
apt-get update
apt-get install -y --no-install-recommends "${missing[@]}" </dev/null
