#!/usr/bin/env bash
# Installs the Debian packages that building and testing Vastrel needs, only those
# that are missing. Run as root on Debian 12 (or with sudo available).
set -euo pipefail

packages=(
    g++ cmake ninja-build pkg-config
    libgtest-dev libgmock-dev libbenchmark-dev
    libintelrdfpmath-dev nlohmann-json3-dev libcli11-dev iso-codes python3 libmbedtls-dev
)
# Extra groups for the heavier checks: scripts ask for them by name.
foreign_architectures=()
for group in "$@"; do
    case "$group" in
        # The Python package's tests and install check, and the C interface's ABI check.
        test) packages+=(python3-pytest python3-venv python3-setuptools python3-pip abigail-tools) ;;
        kotlin) packages+=(kotlin) ;;
        fuzz) packages+=(clang libclang-rt-14-dev) ;;
        valgrind) packages+=(valgrind) ;;
        java) packages+=(default-jdk-headless junit5) ;;
        cross)
            foreign_architectures+=(arm64 armhf)
            packages+=(crossbuild-essential-arm64 crossbuild-essential-armhf qemu-user)
            for arch in arm64 armhf; do
                packages+=("libintelrdfpmath-dev:$arch" "libmbedtls-dev:$arch" "libgtest-dev:$arch"
                           "libgmock-dev:$arch")
            done
            ;;
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
    for arch in "${foreign_architectures[@]}"; do
        if ! dpkg --print-foreign-architectures | grep -qx "$arch"; then
            "${sudo_cmd[@]}" dpkg --add-architecture "$arch"
        fi
    done
    # A mirror being synced can fail one index (seen for the armhf security index). Try the
    # update again, then go on: the install below is what must succeed.
    for attempt in 1 2 3; do
        if "${sudo_cmd[@]}" apt-get update -qq; then break; fi
        echo "setup.sh: apt-get update failed (attempt $attempt of 3)" >&2
        if ((attempt < 3)); then sleep 10; fi
    done
    "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
