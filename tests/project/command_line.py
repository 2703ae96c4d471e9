# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

"""Compares the options that the programs name in their help with the manual pages and with what bash completes.

usage: command_line.py TZHOST TZ_DEMO_DATA FOLDER

FOLDER holds the manual pages and the completion.
"""

import os
import re
import subprocess
import sys
from pathlib import Path

OPTION = re.compile(r"(?<![\w-])--[a-z][a-z-]+")
# Of Qt's own, for every program.
OF_QT = {"--help-all"}


def options_of_help(program):
    environment = dict(os.environ, LC_ALL="C.UTF-8", LANGUAGE="", QT_QPA_PLATFORM="offscreen")
    run = subprocess.run([program, "--help"], capture_output=True, text=True, env=environment, timeout=60, check=True)
    # A line of the list begins with its option; the words about it may name another.
    begun = [line.strip() for line in run.stdout.splitlines() if line.strip().startswith("-")]
    return {OPTION.search(line).group() for line in begun if OPTION.search(line)} - OF_QT


def options_of_page(page):
    text = page.read_text(encoding="utf-8").replace("\\-", "-")
    section = text.partition(".SH OPTIONS")[2].partition("\n.SH ")[0]
    headings = re.findall(r"^\.TP\n(.*)$", section, re.MULTILINE)
    return {OPTION.search(heading).group() for heading in headings if OPTION.search(heading)}


def completed(script, words):
    """What bash offers behind these words, the last of which is being typed."""
    quoted = " ".join(f"'{word}'" for word in words)
    line = " ".join(words)
    run = subprocess.run(
        ["bash", "--noprofile", "--norc", "-c",
         f". /usr/share/bash-completion/bash_completion; . '{script}'; COMP_WORDS=({quoted}); COMP_CWORD={len(words) - 1}; "
         f"COMP_LINE='{line}'; COMP_POINT={len(line)}; _tzhost; printf '%s\\n' \"${{COMPREPLY[@]}}\""],
        capture_output=True, text=True, timeout=60, check=True)
    return {offered for offered in run.stdout.split("\n") if offered}


def compare(faults, what, found, wanted):
    for option in sorted(wanted - found):
        faults.append(f"{what} lacks {option}")
    for option in sorted(found - wanted):
        faults.append(f"{what} has {option}, which the program has not")


def main(host, demo, folder):
    faults = []
    packaging = Path(folder)
    options = options_of_help(host)
    if len(options) < 10:
        faults.append(f"--help names {len(options)} options only")
    compare(faults, "the manual page of tzhost", options_of_page(packaging / "tzhost.1"), options)
    compare(faults, "the manual page of tz-demo-data", options_of_page(packaging / "tz-demo-data.1"), options_of_help(demo))
    completion = packaging / "tzhost.bash-completion"
    compare(faults, "the completion", completed(completion, ["tzhost", "--"]), options)
    if completed(completion, ["tzhost", "--list-b"]) != {"--list-backups"}:
        faults.append("the completion does not finish --list-backups")
    if completed(completion, ["tzhost", "--to", ""]) != {"now"}:
        faults.append("the completion does not offer a moment behind --to")
    for page in sorted(packaging.glob("*.1")):
        run = subprocess.run(["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", str(page)], capture_output=True, text=True,
                             env=dict(os.environ, LC_ALL="C.UTF-8", MANROFFSEQ=""), timeout=60, check=False)
        if run.returncode or run.stderr.strip():
            faults.append(f"{page.name}: {run.stderr.strip() or 'man cannot read it'}")
    for fault in faults:
        print(fault, file=sys.stderr)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
