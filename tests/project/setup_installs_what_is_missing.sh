#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# setup.sh with package tools that only record how they were called.

set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/assert.sh"

tree=$work/tree
tools=$work/tools
calls=$work/calls
mkdir -p "$tree/scripts" "$tools"
cp "$source_root/scripts/setup.sh" "$tree/scripts/"
cat >"$tree/packages.txt" <<'END'
# comment
[run]
server   # with a comment
icons-dev
[build]
compiler
[font]
npm
[java]
jdk
maven
[unpacked]
server
END
printf '{ "dependencies": {\n "vazirmatn": "33.0.3"\n} }\n' >"$tree/package.json"

tool() {
    printf '#!/bin/bash\n%s\n' "$2" >"$tools/$1"
    chmod +x "$tools/$1"
}
# Installed: the packages in the file "installed"; the package "icons" provides icons-dev.
tool dpkg-query '[ "$3" = "\${Version}" ] && exec cat "$WORK/version"
shift 3
if [ "$#" -eq 0 ]; then
    grep -qx icons "$WORK/installed" && printf "ii \ticons-dev (= 1), other\n"
    exit 0
fi
grep -qx -- "$1" "$WORK/installed" && echo "ii "'
tool apt-get 'echo "apt-get $*" >>"$WORK/calls"
[ "$1" != download ] || [ -e "$WORK/offline" ] || [ -e "$WORK/nolists" ] || echo "$3" >server.deb
[ "$1" != update ] || rm -f "$WORK/nolists"
[ ! -e "$WORK/offline" ] && { [ "$1" != download ] || [ -e server.deb ]; }'
tool dpkg-deb 'mkdir -p "$3/usr/bin" && echo "one" >"$3/usr/bin/wsrep_sst_one"'
tool sudo 'echo "sudo" >>"$WORK/calls"; exec "$@"'
tool id 'cat "$WORK/uid"'
tool npm 'echo "npm $*" >>"$WORK/calls"
[ -e "$WORK/offline" ] && exit 1
mkdir -p node_modules/vazirmatn && printf "{\n  \"version\": \"33.0.3\"\n}\n" >node_modules/vazirmatn/package.json'

# Nothing else of this machine is in reach, least of all its own package tools.
mkdir "$work/bin"
for command in awk bash cat dirname env grep mkdir mv rm sed timeout; do
    ln -s "$(command -v "$command")" "$work/bin/$command"
done

setup() {
    : >"$calls"
    (cd / && WORK=$work PATH=$tools:$work/bin "$tree/scripts/setup.sh" "$@")
}
called() { grep -qF -- "$1" "$calls"; }

echo 0 >"$work/uid"

printf 'server\nicons\ncompiler\n' >"$work/installed"
expect_status 0 'everything installed' setup run build
[ ! -s "$calls" ] || fault "everything installed, and still called: $(cat "$calls")"
expect_output 'everything installed' 'All 3 packages are there'

printf 'icons\n' >"$work/installed"
expect_status 0 'two missing' setup run build
called 'apt-get install -y -q --no-install-recommends server compiler' || fault "two missing: $(cat "$calls")"
called sudo && fault 'root needs no sudo'
expect_output 'two missing' 'Installing 2 missing package(s): server compiler'

echo 1000 >"$work/uid"
expect_status 0 'two missing, not root' setup run build
called sudo || fault 'not root: sudo was not asked'
mv "$tools/sudo" "$work/sudo"
expect_status 1 'not root, no sudo' setup run
expect_output 'not root, no sudo' 'there is no sudo here. Missing: server'
[ ! -s "$calls" ] || fault "not root, no sudo, and still called: $(cat "$calls")"
mv "$work/sudo" "$tools/sudo"
echo 0 >"$work/uid"

touch "$work/offline"
expect_status 1 'missing and offline' setup run
expect_output 'missing and offline' 'Could not install: server'
printf 'server\nicons\ncompiler\n' >"$work/installed"
expect_status 0 'offline with everything there' setup run build
[ ! -s "$calls" ] || fault "offline with everything there, and still called: $(cat "$calls")"

expect_status 0 'no font, offline' setup run font
expect_output 'no font, offline' 'going on with Noto'
rm "$work/offline"
expect_status 0 'font fetched' setup run font
called 'npm ci --ignore-scripts' || fault "font: $(cat "$calls")"
expect_status 0 'font is there' setup run font
[ ! -s "$calls" ] || fault "font is there, and still called: $(cat "$calls")"

# Java may have been installed without packages: its commands are what counts.
expect_status 0 'no Java' setup run java
called 'apt-get install -y -q --no-install-recommends jdk maven' || fault "no Java: $(cat "$calls")"
tool javac true
expect_status 0 'Java without Maven' setup run java
called 'apt-get install -y -q --no-install-recommends jdk maven' || fault "Java without Maven: $(cat "$calls")"
tool mvn true
expect_status 0 'Java and Maven' setup run java
[ ! -s "$calls" ] || fault "Java and Maven are there, and still called: $(cat "$calls")"
expect_output 'Java and Maven' 'All 2 packages are there'

# Scripts of a package that is not installed, once per version of the server.
echo 2.0 >"$work/version"
touch "$work/offline"
expect_status 1 'unpacked, offline' setup unpacked
expect_output 'unpacked, offline' 'Could not download: server'
rm "$work/offline"
touch "$work/nolists"
expect_status 0 'unpacked' setup unpacked
called 'apt-get download -q server=2.0' || fault "unpacked: $(cat "$calls")"
called 'apt-get install' && fault 'unpacked: something was installed'
[ "$(cat "$tree/build/unpacked/wsrep_sst_one")" = one ] || fault 'unpacked: the scripts are not there'
expect_status 0 'unpacked again' setup unpacked
[ ! -s "$calls" ] || fault "unpacked again: $(cat "$calls")"
echo 2.1 >"$work/version"
expect_status 0 'unpacked, another version' setup unpacked
called 'apt-get download -q server=2.1' || fault "unpacked, another version: $(cat "$calls")"

expect_status 2 'unknown section' setup runn
expect_output 'unknown section' 'no section [runn]'
finish
