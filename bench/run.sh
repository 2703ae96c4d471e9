#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# Installs what is missing, builds and runs every benchmark; each prints the ratio to its bare loop.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
"$root/scripts/setup.sh" run build font java bench
cd "$root"
cmake --preset bench
cmake --build build/bench
export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen} LC_ALL=C.UTF-8
failed=0
for program in \
        ReadContracts \
        ContractList \
        FillContract \
        ReportOfContracts \
        SaveContract \
        SaveWithBinaryLog \
        NoteValues \
        MatchDemand \
        CarList \
        CarGallery \
        Search \
        ExportSeason \
        GatherSeason; do
    "build/bench/bench/$program" --benchmark_enable_random_interleaving=true "$@" || failed=1
done
"$root/bench/startup.py" build/bench/bin/tzhost || failed=1
exit $failed
