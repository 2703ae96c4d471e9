#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# usage: scripts/setup.sh SECTION...
#
# Installs the Debian packages of the named sections of packages.txt, and fetches the font
# where "font" is among them. Only what is missing is installed, so that a second run is quick and needs no network.

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
        dpkg-query -W -f '${db:Status-Abbrev}\n' "$package" 2>/dev/null | grep -q '^.i' && continue
        printf '%s\n' "$provided" | grep -qxF -- "$package" || printf '%s\n' "$package"
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

provided=$(dpkg-query -W -f '${db:Status-Abbrev}\t${Provides}\n' |
    awk -F '\t' '$1 ~ /^.i/ { gsub(/\([^)]*\)/, "", $2); gsub(/[ ,]+/, "\n", $2); print $2 }')

wanted=()
want_font=no
for section in "$@"; do
    listed=$(packages_of "$section") || { say "packages.txt has no section [$section]"; exit 2; }
    if [ "$section" = font ]; then
        want_font=yes
        if font_is_here || command -v npm >/dev/null; then
            continue
        fi
    fi
    if [ "$section" = java ] && command -v mvn >/dev/null && command -v javac >/dev/null; then
        continue
    fi
    mapfile -t -O "${#wanted[@]}" wanted <<<"$listed"
done

mapfile -t missing < <(missing_of "${wanted[@]}")
if [ "${#missing[@]}" -gt 0 ]; then
    install_packages "${missing[@]}"
else
    say "All ${#wanted[@]} packages are there."
fi
if [ "$want_font" = yes ]; then
    fetch_font
fi
