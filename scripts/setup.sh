#!/usr/bin/env bash
# Installs the Debian packages that building and testing Vastrel needs, only those
# that are missing. Run as root on Debian 12 (or with sudo available).
set -euo pipefail

packages=(
    g++ cmake ninja-build pkg-config
    libgtest-dev libgmock-dev libbenchmark-dev
    libintelrdfpmath-dev nlohmann-json3-dev libcli11-dev
)
# Extra groups for the heavier checks: scripts ask for them by name.
for group in "$@"; do
    case "$group" in
        fuzz) packages+=(clang libclang-rt-14-dev) ;;
        valgrind) packages+=(valgrind) ;;
        *) echo "setup.sh: unknown package group '$group'" >&2; exit 2 ;;
    esac
done

missing=()
for pkg in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null | grep -q 'install ok installed'; then
        missing+=("$pkg")
    fi
done

if ((${#missing[@]} > 0)); then
    echo "setup.sh: installing ${missing[*]}"
    sudo_cmd=()
    if [[ $(id -u) -ne 0 ]]; then sudo_cmd=(sudo); fi
    export DEBIAN_FRONTEND=noninteractive
    "${sudo_cmd[@]}" apt-get update -qq
    "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
