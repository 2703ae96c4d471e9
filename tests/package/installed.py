#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

"""Installs the .deb in a clean Debian root, uses it as an ordinary user, upgrades it, and removes it.

usage: installed.py PACKAGE [--before PACKAGE] [--work FOLDER] [--pictures FOLDER]

Needs root, mmdebstrap and the package sources of this machine. PACKAGE of --before is the version that is upgraded; without it the same
files are packed as an earlier version, which proves the package's own upgrade and not that of the database. The clean root is kept in
FOLDER as an archive, so that a second run begins sooner.
"""

import argparse
import contextlib
import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

TREE = Path(__file__).resolve().parents[2]
USER = "clerk"
HOME = f"/home/{USER}"
DEMO = f"{HOME}/demo"
OFFICE = f"{HOME}/prepared"
DATABASE = "tzauto"
# What the journeys drive the program with; none of it is needed to use the program.
DRIVERS = ("at-spi2-core", "dbus", "gir1.2-atspi-2.0", "imagemagick", "mdbtools", "openbox", "poppler-utils", "python3-gi", "xdotool",
           "xvfb")
# The first one makes an office of its own, the others work in the demo office.
JOURNEYS = (("main_job", ("--driver", "tree")), ("letter_contract", ("--office", OFFICE)),
            ("seasonal_report", ("--seconds", "280", "--office", OFFICE)))
TEXTS = ("/usr/share/man/man1/tzhost.1.gz", "/usr/share/bash-completion/completions/tzhost",
         "/usr/share/doc/tzauto/changelog.gz", "/usr/share/doc/tzauto/copyright", "/usr/share/applications/tzhost.desktop",
         "/usr/share/metainfo/io.tzauto.tzhost.metainfo.xml")
KEPT_TABLES = ("AutomobilContracts", "AutomobilInformations", "AutomobilDemands", "Persons", "Documents", "Docs", "CarBrands")
# That a clerk's files are where a clerk may write, and nowhere else.
OWN_FOLDERS = ("/usr", "/etc", "/var/lib", "/opt")


def say(words):
    print(f"[package] {words}", flush=True)


def check(holds, words):
    if not holds:
        raise AssertionError(words)


def run(*command, **options):
    return subprocess.run([str(word) for word in command], check=True, **options)


class Root:
    """A clean Debian in a folder of its own. What runs in it ends with the call."""

    def __init__(self, folder):
        self.folder = folder

    def inside(self, *command, user=None, capture=False, may_fail=False, environment=()):
        prepare = ('mount --bind "$1/dev" "$1/dev" 2>/dev/null; mount -t proc proc "$1/proc"; mount -t sysfs sys "$1/sys"; '
                   'mount -t tmpfs -o mode=1777 tmpfs "$1/dev/shm"; mount -t devpts -o newinstance,ptmxmode=0666 devpts "$1/dev/pts"; '
                   'root=$1; shift; exec chroot "$root" "$@"')
        as_user = ["runuser", "-u", user, "--"] if user else []
        settings = ["env", "-i", "PATH=/usr/sbin:/usr/bin:/sbin:/bin", "LC_ALL=C.UTF-8", f"HOME={HOME if user else '/root'}",
                    "DEBIAN_FRONTEND=noninteractive", *environment]
        words = ["unshare", "--mount", "--pid", "--fork", "--kill-child=KILL", "--propagation", "private", "sh", "-c", prepare, "_",
                 str(self.folder), *as_user, *settings, *[str(word) for word in command]]
        return subprocess.run(words, check=not may_fail, stdin=subprocess.DEVNULL, text=True, capture_output=capture)

    def path(self, inside):
        return self.folder / inside.lstrip("/")

    def files(self):
        """Everything below the folders that belong to the system, and to nobody else."""
        listed = set()
        for top in OWN_FOLDERS:
            for folder, _, names in os.walk(self.path(top)):
                listed.update(os.path.join(folder, name) for name in names)
        return listed


def clean_root(work, folder):
    archive = work / "root.tar"
    if not archive.exists():
        say("a clean root")
        sources = sorted(Path("/etc/apt/sources.list.d").glob("*.sources")) + [Path("/etc/apt/sources.list")]
        settings = work / "apt.conf"
        settings.write_text(run("apt-config", "dump", "Acquire", capture_output=True, text=True).stdout, encoding="utf-8")
        fresh = work / "root.tar.new"
        run("mmdebstrap", "--variant=minbase", "--quiet", f"--aptopt={settings}", "--include=ca-certificates", "--format=tar",
            "bookworm", fresh, *[source for source in sources if source.exists()])
        fresh.rename(archive)
    run("tar", "-C", folder, "--exclude=./dev/*", "-xf", archive)
    for node, kind in (("null", (1, 3)), ("zero", (1, 5)), ("random", (1, 8)), ("urandom", (1, 9)), ("tty", (5, 0))):
        path = folder / "dev" / node
        if not path.exists():
            os.mknod(path, 0o20666, os.makedev(*kind))
            path.chmod(0o666)
    for name in ("shm", "pts"):
        (folder / "dev" / name).mkdir(exist_ok=True)
    with contextlib.suppress(FileExistsError):
        (folder / "dev" / "fd").symlink_to("/proc/self/fd")
    with contextlib.suppress(FileExistsError):
        (folder / "dev" / "ptmx").symlink_to("pts/ptmx")
    shutil.copy("/etc/resolv.conf", folder / "etc/resolv.conf")
    shutil.copy("/etc/hosts", folder / "etc/hosts")
    return Root(folder)


def packed_as_earlier(package, work):
    """The same files under an earlier version."""
    folder = work / "earlier"
    shutil.rmtree(folder, ignore_errors=True)
    run("dpkg-deb", "-R", package, folder)
    control = folder / "DEBIAN/control"
    text = control.read_text(encoding="utf-8")
    version = next(line for line in text.splitlines() if line.startswith("Version:"))
    control.write_text(text.replace(version, "Version: 0.9.0-1"), encoding="utf-8")
    earlier = work / "tzauto_earlier.deb"
    run("dpkg-deb", "--root-owner-group", "-b", folder, earlier, stdout=subprocess.DEVNULL)
    return earlier


def install(root, package):
    shutil.copy(package, root.path("/root/tzauto.deb"))
    root.inside("apt-get", "install", "-y", "-q", "/root/tzauto.deb", capture=True)
    found = root.inside("dpkg-query", "-W", "-f", "${db:Status-Abbrev} ${Version}", "tzauto", capture=True).stdout.split()
    check(found[0] == "ii", f"the package is not installed: {found}")
    return found[1]


def check_files(root, texts):
    listed = root.inside("dpkg", "-L", "tzauto", capture=True).stdout.split("\n")
    binaries = [name for name in listed if name.startswith(("/usr/bin/", "/usr/lib/")) and (name.endswith(".so") or "/bin/" in name)]
    check(len(binaries) >= 5, f"too few programs and libraries: {binaries}")
    for name in binaries:
        told = root.inside("ldd", name, capture=True, may_fail=True)
        check("not found" not in told.stdout, f"{name}: {told.stdout}")
    for name in texts:
        check(name in listed, f"{name} is not in the package")


def opened_and_left(root):
    """The demo office, made when there is none, upgraded when it is of an earlier version; without a screen."""
    root.inside("tzhost", "--data-dir", DEMO, "--demo", "--demo-size", "60", "--quit-after-login-shown", user=USER,
                environment=("QT_QPA_PLATFORM=offscreen", f"XDG_RUNTIME_DIR={HOME}"), capture=True)


def ask(root, *statements):
    """Asks the office's database with the server's own tools, whatever version of the program it is of."""
    account = dict(line.split("=", 1) for line in root.path(f"{DEMO}/client.cnf").read_text(encoding="utf-8").splitlines() if "=" in line)
    account = {name.strip(): value.strip().strip('"') for name, value in account.items()}
    options = root.path(f"{HOME}/asking.cnf")
    options.write_text(f"[client]\nuser={account['user']}\npassword=\"{account['password']}\"\nsocket={HOME}/asking.sock\n",
                       encoding="utf-8")
    root.inside("chown", f"{USER}:", f"{HOME}/asking.cnf")
    told = root.inside(
        "sh", "-c",
        f"mariadbd --no-defaults --datadir={DEMO}/database --socket={HOME}/asking.sock --skip-networking --pid-file={HOME}/asking.pid "
        f"2>{HOME}/asking.log & for n in $(seq 100); do mariadb-admin --defaults-file={HOME}/asking.cnf ping >/dev/null 2>&1 && break; "
        f"sleep 0.2; done; mariadb --defaults-file={HOME}/asking.cnf -N -B {account.get('database', DATABASE)} -e \"{';'.join(statements)}\"; "
        f"status=$?; mariadb-admin --defaults-file={HOME}/asking.cnf shutdown; wait; exit $status",
        user=USER, capture=True)
    return [line.split("\t") for line in told.stdout.splitlines()]


def counted(root):
    """Rows of the tables that every version has, and what all documents book on either side."""
    rows = ask(root, *[f"SELECT '{table}',COUNT(*) FROM {table}" for table in KEPT_TABLES],
               "SELECT 'booked',CAST(SUM(dBed) AS DECIMAL(30,4)) FROM Docs", "SELECT 'owed',CAST(SUM(dBes) AS DECIMAL(30,4)) FROM Docs")
    counts = {name: float(number) for name, number in rows}
    check(set(counts) == {*KEPT_TABLES, "booked", "owed"} and all(counts.values()), f"an office without rows: {counts}")
    return counts


def check_upgraded(root, before):
    opened_and_left(root)
    after = counted(root)
    check(after == before, f"before the upgrade {before}, after it {after}")
    check(abs(after["booked"] - after["owed"]) < 0.01, f"the books do not balance: {after}")
    backup = f"{HOME}/after.sql.zst"
    for command in ("--backup", "--verify"):
        root.inside("tzhost", "--data-dir", DEMO, command, backup, user=USER, capture=True,
                    environment=("QT_QPA_PLATFORM=offscreen", f"XDG_RUNTIME_DIR={HOME}"))


def play(root, name, options, pictures):
    folder = f"{HOME}/pictures-{name}"
    try:
        root.inside("python3", "-B", f"{HOME}/journey/{name}.py", "/usr/bin/tzhost", "--pictures", folder, *options, user=USER)
    finally:
        if pictures and root.path(folder).is_dir():
            shutil.copytree(root.path(folder), pictures / name, dirs_exist_ok=True)


def play_all(root, pictures):
    shutil.copytree(TREE / "tests/journey", root.path(f"{HOME}/journey"))
    root.inside("chown", "-R", f"{USER}:", f"{HOME}/journey")
    root.inside("python3", "-B", f"{HOME}/journey/prepare_demo_office.py", "/usr/bin/tzhost", "--keep", OFFICE, user=USER)
    for name, options in JOURNEYS:
        say(f"journey {name} as an ordinary user")
        play(root, name, options, pictures)


def check_removed(root, files_before):
    root.inside("apt-get", "purge", "-y", "-q", "tzauto", capture=True)
    left = sorted(name for name in root.files() - files_before if "tzauto" in name or "tzhost" in name)
    left = [name for name in left if "/var/lib/dpkg/" not in name and "/var/lib/apt/" not in name]
    check(not left, f"left behind: {left}")
    check(root.path(DEMO).is_dir(), "the office's data went with the package")


def main():
    parser = argparse.ArgumentParser(description=__doc__.partition("\n")[0])
    parser.add_argument("package", type=Path)
    parser.add_argument("--before", type=Path)
    parser.add_argument("--work", type=Path, default=TREE / "build/package")
    parser.add_argument("--pictures", type=Path)
    options = parser.parse_args()
    options.work.mkdir(parents=True, exist_ok=True)
    before = options.before or packed_as_earlier(options.package, options.work)
    with tempfile.TemporaryDirectory(dir=options.work, prefix="root-") as folder:
        root = clean_root(options.work, Path(folder))
        files = root.files()
        root.inside("apt-get", "update", "-q", capture=True)
        say(f"the version before: {install(root, before)}")
        root.inside("useradd", "--create-home", USER)
        check_files(root, ())
        opened_and_left(root)
        rows = counted(root)
        say(f"upgraded to {install(root, options.package)}")
        check_files(root, TEXTS)
        check_upgraded(root, rows)
        say("what the journeys need")
        root.inside("apt-get", "install", "-y", "-q", "--no-install-recommends", *DRIVERS, capture=True)
        play_all(root, options.pictures)
        say("removed")
        check_removed(root, files)
    say("done")


if __name__ == "__main__":
    sys.exit(main())
