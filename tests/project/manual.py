# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

"""Checks the manual: `manual.py [TREE]`. Each window has a page, each page stands in the contents and each of the contents is a page,
each link and each picture has its target, each picture is one that the windows' own test takes, what is quoted is a text of the program, and
Persian letters are Persian."""

import pathlib
import re
import sys

MOST_PICTURES = 60
LARGEST_PICTURE = 200_000
# What no user meets as a window: bases, and what only opens another window.
NO_WINDOWS = {"CDlgRecordEditor"}
LINK = re.compile(r"(!?)\[[^\]]*\]\(([^)\s]+)\)")
ARABIC = re.compile("[\u064a\u0643]")


def anchor(heading):
    return re.sub(r"[^\w\s-]", "", heading.strip().lower()).replace(" ", "-")


def windows(tree):
    for top in ("auto", "suite", "host"):
        for header in sorted((tree / top).rglob("CDlg*.h")):
            if header.stem not in NO_WINDOWS:
                yield header.stem


def window_pages(manual):
    """Class of a window: page, as the table says; and its faults."""
    pages, faults = {}, []
    for line in (manual / "windows.md").read_text(encoding="utf-8").splitlines():
        page = re.search(r"\]\(([\w-]+)\.md\)", line)
        if not line.startswith("|") or not page:
            continue
        for name in re.findall(r"`(\w+)`", line):
            if name in pages:
                faults.append(f"windows.md: {name} stands twice")
            pages[name] = page[1]
    return pages, faults


def check_windows(tree, manual):
    pages, faults = window_pages(manual)
    known = set(windows(tree))
    if not known:
        faults.append("no window found")
    faults += [f"{name} has no page" for name in sorted(known - set(pages))]
    for name in pages:
        if not any(found for top in ("auto", "suite", "host") for found in (tree / top).rglob(f"{name}.h")):
            faults.append(f"windows.md: there is no {name}")
    return faults


def check_shown(manual):
    """A clerk who is lost sees on the page of a window what is in front of him."""
    pages, _ = window_pages(manual)
    shown = [(page, manual / f"{page}.md") for page in sorted(set(pages.values()))]
    return [f"{page}.md: no picture of its window" for page, path in shown
            if path.exists() and not any(is_picture for is_picture, _ in LINK.findall(path.read_text(encoding="utf-8")))]


def check_contents(manual):
    text = (manual / "index.md").read_text(encoding="utf-8")
    listed = re.findall(r"^- \[[^\]]+\]\(([\w-]+)\.md\)", text, re.M)
    there = {page.stem for page in manual.glob("*.md")} - {"index"}
    faults = [f"index.md: {page} stands twice" for page in sorted(set(listed)) if listed.count(page) > 1]
    faults += [f"{page}.md: not in the contents" for page in sorted(there - set(listed))]
    titles = dict((page, title) for title, page in re.findall(r"^- \[([^\]]+)\]\(([\w-]+)\.md\)", text, re.M))
    for page in sorted(there & set(listed)):
        heading = re.search(r"^# (.+)$", (manual / f"{page}.md").read_text(encoding="utf-8"), re.M)
        if not heading or heading[1].strip() != titles[page]:
            faults.append(f"{page}.md: its title is not that of the contents")
    return faults


def check_links(manual, page):
    faults = []
    text = page.read_text(encoding="utf-8")
    for is_picture, target in LINK.findall(text):
        name, _, place = target.partition("#")
        file = manual / name if name else page
        if not file.is_file():
            faults.append(f"{page.name}: {target} is not there")
        elif place and not is_picture:
            headings = re.findall(r"^#+ (.+)$", file.read_text(encoding="utf-8"), re.M)
            if place not in [anchor(heading) for heading in headings]:
                faults.append(f"{page.name}: {target} is not there")
    return faults


def check_letters(page):
    lines = page.read_text(encoding="utf-8").splitlines()
    # What is quoted from a window is as the window has it, and so are the titles of pages.
    def own(line):
        return re.sub(r"«[^»]*»|`[^`]*`", "", line)
    return [f"{page.name}:{number}: Arabic letter" for number, line in enumerate(lines, 1) if ARABIC.search(own(line))]


def texts_of_program(tree):
    """The sources in one, texts that are broken over several lines joined, without the marks of menu keys."""
    texts = []
    for top in ("auto", "suite", "host"):
        for source in sorted((tree / top).rglob("*.[ch]*")):
            joined = re.sub(r'"(?:_s)?\s*\n\s*u?"', "", source.read_text(encoding="utf-8", errors="ignore"))
            texts.append(joined.replace("&", ""))
    return "\n".join(texts)


def check_quotes(page, program):
    """What stands in quotation marks is shown by the program; an ellipsis stands for a value, and what begins with a digit is an example."""
    faults = []
    for quote in re.findall(r"«((?:[^«»]|«[^«»]*»)*)»", page.read_text(encoding="utf-8")):
        parts = [part.strip(" «»") for part in quote.split("…")]
        if not quote[:1].isdigit() and any(part and part not in program and part.rstrip(".") not in program for part in parts):
            faults.append(f"{page.name}: the program does not say «{quote}»")
    return faults


def check_pictures(tree, manual):
    pictures = sorted((manual / "pictures").glob("*"))
    taken = set()
    for source in (tree / "tests/look").glob("*.cpp"):
        taken |= set(re.findall(r'push_back\(\{"([\w-]+)"', source.read_text(encoding="utf-8")))
    used = set()
    for page in manual.glob("*.md"):
        used |= {target for is_picture, target in LINK.findall(page.read_text(encoding="utf-8")) if is_picture}
    faults = []
    for picture in pictures:
        # The test appends what of a window is shown, such as its second tab or the third step of a tour.
        name = re.sub(r"-(?:tab|step|place)?\d+$", "", picture.stem)
        if picture.stem not in taken and name not in taken:
            faults.append(f"pictures/{picture.name}: no window of that name is looked at")
        if f"pictures/{picture.name}" not in used:
            faults.append(f"pictures/{picture.name}: on no page")
        if picture.stat().st_size > LARGEST_PICTURE:
            faults.append(f"pictures/{picture.name}: larger than {LARGEST_PICTURE} bytes")
    if len(pictures) > MOST_PICTURES:
        faults.append(f"{len(pictures)} pictures, more than {MOST_PICTURES}")
    return faults


def main():
    tree = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parents[2]).resolve()
    manual = tree / "docs/manual"
    pages = sorted(manual.glob("*.md"))
    faults = check_windows(tree, manual) + check_contents(manual) + check_shown(manual) + check_pictures(tree, manual)
    program = texts_of_program(tree)
    for page in pages:
        faults += check_quotes(page, program)
        faults += check_links(manual, page) + check_letters(page)
    for fault in faults:
        print(fault)
    print(f"{len(faults)} fault(s) in {len(pages)} pages")
    return 1 if faults or not pages else 0


if __name__ == "__main__":
    sys.exit(main())
