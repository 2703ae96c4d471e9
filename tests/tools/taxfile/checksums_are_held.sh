#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# usage: checksums_are_held.sh PYTHON REPOSITORY
#
# The helper is built from a Maven repository that holds the listed files of REPOSITORY and nothing else, without a network:
# so the list is whole. One changed byte in any kind of listed file is found, before what it changed gets beside the module.

set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/../../project/assert.sh"

python=$1
repository=$2
source_folder=$source_root/tools/taxfile
placed=$work/lib
library=com/healthmarketscience/jackcess/jackcess

fresh_repository() {
    rm -rf "$work/repository" "$placed"
    mkdir -p "$work/repository" "$placed"
    grep -v '^#' "$source_folder/checksums.sha256" | while read -r _ path; do
        mkdir -p "$work/repository/$(dirname "$path")"
        cp "$repository/$path" "$work/repository/$path"
    done
}

build() {
    "$python" -B "$source_folder/build_helper.py" --maven "$work/mvn" --repository "$work/repository" --output "$placed" \
        --target "$work/target"
}

# Maven that may not reach anything.
printf '#!/bin/bash\necho mvn >>"%s/calls"\nexec mvn -o "$@"\n' "$work" >"$work/mvn"
chmod +x "$work/mvn"

fresh_repository
expect_status 0 'only the listed files' build
[ -s "$placed/TTMS.mdb" ] && [ -s "$placed/TTMS.mapping.json" ] || fault "only the listed files: $(ls "$placed")"
first=$(sha256sum <"$placed/taxfile/tztaxfile.jar")
expect_status 0 'once more' build
[ "$first" = "$(sha256sum <"$placed/taxfile/tztaxfile.jar")" ] || fault 'the same sources gave another jar'

# A library, a plugin of the build, a description.
for pattern in "$library/*.jar" 'org/apache/maven/plugins/maven-jar-plugin/*.jar' "$library/*.pom"; do
    fresh_repository
    file=$(find "$work/repository" -path "$work/repository/${pattern%/*}/*" -name "${pattern##*/}" | head -n 1)
    printf 'x' >>"$file"
    : >"$work/calls"
    expect_status 1 "changed $(basename "$file")" build
    expect_output "changed $(basename "$file")" "$file is not the file that checksums.sha256 names"
    [ ! -s "$work/calls" ] || fault "changed $(basename "$file"), and Maven was called"
    [ -z "$(ls -A "$placed")" ] || fault "changed $(basename "$file"), and still there is $(ls "$placed")"
done

# What cannot be fetched does not stop the build of everything else, and leaves nothing half made.
fresh_repository
rm -r "${work:?}/repository/com"
expect_status 0 'nothing to fetch from' build
expect_output 'nothing to fetch from' 'could not be fetched. The next build tries again'
[ -z "$(ls -A "$placed")" ] || fault "nothing to fetch from, and still there is $(ls "$placed")"

# A mistake of ours does stop it.
fresh_repository
printf '#!/bin/bash\necho "COMPILATION ERROR"\nexit 1\n' >"$work/mvn"
expect_status 1 'does not compile' build
expect_output 'does not compile' 'COMPILATION ERROR'
finish
