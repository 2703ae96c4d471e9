#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# usage: scripts/setup.sh SECTION...
#
# Installs the Debian packages of the named sections of packages.txt, and fetches the font where "font" is among them. The
# packages of the section "unpacked" are not installed: the scripts in them are put into build/unpacked. Only what is missing
# is installed, so that a second run is quick and needs no network.

set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

say() { printf '[setup] %s\n' "$*"; }

# packages_of SECTION: the packages of that section, one per line.
packages_of() {
    awk -v wanted="[$1]" '
        { sub(/#.*/, ""); gsub(/[ \t\r]+/, "") }
        /^\[/ { inside = ($0 == wanted); found = found || inside; next }
        inside && $0 != "" { print }
        END { exit found ? 0 : 1 }' "$root/packages.txt"
}

# missing_of PACKAGE...: those that are neither installed nor provided by an installed package.
missing_of() {
    local package
    for package in "$@"; do
        # No pipes into a grep that ends at its first find: whoever still writes then would count as failed.
        [[ $(dpkg-query -W -f '${db:Status-Abbrev}\n' "$package" 2>/dev/null) == ?i* ]] && continue
        grep -qxF -- "$package" <<<"$provided" || printf '%s\n' "$package"
    done
}

install_packages() {
    local as_root=(env DEBIAN_FRONTEND=noninteractive)
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            say "Only root may install packages, and there is no sudo here. Missing: $*"
            return 1
        fi
        as_root=(sudo "${as_root[@]}")
    fi
    say "Installing $# missing package(s): $*"
    "${as_root[@]}" apt-get update -q </dev/null ||
        say "The package lists could not be refreshed; trying with those that are here."
    if ! "${as_root[@]}" apt-get install -y -q --no-install-recommends "$@" </dev/null; then
        say "Could not install: $*"
        say "They are needed once; check the network and the package sources, then start again."
        return 1
    fi
}

font_is_here() {
    local wanted have
    wanted=$(sed -n 's/.*"vazirmatn": *"\([0-9.]*\)".*/\1/p' "$root/package.json")
    have=$(sed -n 's/^ *"version": *"\([0-9.]*\)".*/\1/p' "$root/node_modules/vazirmatn/package.json" 2>/dev/null) || true
    [ -n "$wanted" ] && [ "$wanted" = "$have" ]
}

# The font is worth waiting for, but the program works without: Noto then takes its place.
fetch_font() {
    if font_is_here; then
        return 0
    fi
    say "Fetching the Vazirmatn font with npm ..."
    if command -v npm >/dev/null && (cd "$root" && timeout 300 npm ci --ignore-scripts --no-audit --no-fund \
            --fetch-retries=2 --fetch-retry-mintimeout=1000 --fetch-retry-maxtimeout=5000 </dev/null) && font_is_here; then
        return 0
    fi
    say "The font could not be fetched; going on with Noto. The next start tries again."
}

# unpack PACKAGE: the scripts of a package beside build/unpacked/PACKAGE, which says of which version they are.
unpack() {
    local package=$1 folder=$root/build/unpacked version
    # Of the same source as the server that is installed.
    version=$(dpkg-query -W -f '${Version}' "$package-core" 2>/dev/null || true)
    if [ -e "$folder/$package" ] && [ "$(cat "$folder/$package")" = "$version" ]; then
        return 0
    fi
    say "Unpacking $package ..."
    rm -rf "$folder"
    mkdir -p "$folder/aside"
    if ! download "$folder/aside" "$package${version:+=$version}"; then
        say "Could not download: $package"
        say "It is needed once; check the network and the package sources, then start again."
        return 1
    fi
    dpkg-deb -x "$folder"/aside/*.deb "$folder/aside/tree"
    mv "$folder"/aside/tree/usr/bin/wsrep_sst_* "$folder/"
    rm -rf "$folder/aside"
    printf '%s' "$version" >"$folder/$package"
}

# download FOLDER PACKAGE: with the package lists that are here, or else with new ones.
download() {
    (cd "$1" && apt-get download -q "$2" </dev/null) && return 0
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    "${as_root[@]}" apt-get update -q </dev/null || return 1
    (cd "$1" && apt-get download -q "$2" </dev/null)
}

provided=$(dpkg-query -W -f '${db:Status-Abbrev}\t${Provides}\n' |
    awk -F '\t' '$1 ~ /^.i/ { gsub(/\([^)]*\)/, "", $2); gsub(/[ ,]+/, "\n", $2); print $2 }')

wanted=()
want_font=no
unpacked=
for section in "$@"; do
    listed=$(packages_of "$section") || { say "packages.txt has no section [$section]"; exit 2; }
    if [ "$section" = font ]; then
        want_font=yes
        if font_is_here || command -v npm >/dev/null; then
            continue
        fi
    fi
    if [ "$section" = unpacked ]; then
        unpacked=$listed
        continue
    fi
    if [ "$section" = java ] && command -v mvn >/dev/null && command -v javac >/dev/null; then
        continue
    fi
    mapfile -t -O "${#wanted[@]}" wanted <<<"$listed"
done

mapfile -t missing < <(missing_of "${wanted[@]}")
if [ "${#missing[@]}" -gt 0 ]; then
    install_packages "${missing[@]}"
elif [ "${#wanted[@]}" -gt 0 ]; then
    say "All ${#wanted[@]} packages are there."
fi
if [ "$want_font" = yes ]; then
    fetch_font
fi
for package in $unpacked; do
    unpack "$package"
done
