#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

"""Builds the helper that writes Access files, and makes the template of the tax file with it.

What Maven loads lies in the user's own Maven repository, where a second build finds it without a network. Every file of it
that checksums.sha256 names is compared before and after Maven ran; --write-checksums makes that list anew, from an empty
repository.
"""

import argparse
import hashlib
import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import zipfile

SOURCE = pathlib.Path(__file__).resolve().parent
CHECKSUMS = SOURCE / "checksums.sha256"
HEADER = "# SPDX-FileCopyrightText: 2026 The TzAuto team\n# SPDX-License-Identifier: GPL-3.0-or-later\n"
# What Maven says when a file could not be had; a wrong checksum is another matter.
NOT_TO_BE_HAD = re.compile(r"Could not (transfer|find|resolve)|could not be resolved|Unresolveable|Non-resolvable")
WRONG_CHECKSUM = re.compile(r"[Cc]hecksum (validation )?failed")


class BuildError(Exception):
    pass


class NoNetwork(Exception):
    pass


def sha256(path):
    return hashlib.sha256(path.read_bytes()).hexdigest()


def listed_files():
    files = {}
    for line in CHECKSUMS.read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            digest, path = line.split(maxsplit=1)
            files[path] = digest
    return files


def verify(repository):
    """Fails for a listed file that is there with another content."""
    for path, digest in listed_files().items():
        file = repository / path
        if file.is_file() and sha256(file) != digest:
            raise BuildError(f"{file} is not the file that {CHECKSUMS.name} names. Remove it and build again.")


def run_maven(maven, repository, target, *options):
    # -C: a file whose checksum the registry states otherwise is refused.
    command = [maven, "-B", "-q", "-C", *options, f"-Dmaven.repo.local={repository}", f"-Dtz.target={target}",
               "-f", str(SOURCE / "pom.xml"), "package"]
    done = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          encoding="utf-8", errors="replace")
    return done.returncode, done.stdout


def build_jar(maven, repository, target):
    shutil.rmtree(target, ignore_errors=True)
    verify(repository)
    status, said = run_maven(maven, repository, target, "-o")
    if status != 0 and NOT_TO_BE_HAD.search(said):
        print("Fetching what the tax file's helper is built with ...", flush=True)
        status, said = run_maven(maven, repository, target)
        if status != 0 and NOT_TO_BE_HAD.search(said) and not WRONG_CHECKSUM.search(said):
            raise NoNetwork(said)
    if status != 0:
        raise BuildError(said)
    verify(repository)
    return target / "tztaxfile.jar"


def class_path(jar):
    manifest = zipfile.ZipFile(jar).read("META-INF/MANIFEST.MF").decode("utf-8").replace("\r\n ", "").replace("\n ", "")
    return re.search(r"^Class-Path: (.*)$", manifest, re.MULTILINE).group(1).split()


def place_jars(jar, repository, folder):
    """The helper and the libraries it names, each of which has to be a listed one, into a folder that holds nothing else."""
    listed = {pathlib.PurePosixPath(path).name: path for path in listed_files()}
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    for name in class_path(jar):
        if name not in listed:
            raise BuildError(f"{name} is needed at run time and does not stand in {CHECKSUMS.name}")
        file = repository / listed[name]
        if sha256(file) != listed_files()[listed[name]]:
            raise BuildError(f"{file} changed while it was used")
        shutil.copyfile(file, folder / name)
    shutil.copyfile(jar, folder / jar.name)


def escape(word):
    return str(word).replace("\\", "\\\\").replace("\t", "\\t").replace("\n", "\\n").replace("\r", "\\r")


def template_lines(mapping, path):
    yield ["create", path]
    for table in mapping["tables"]:
        yield ["table", table["name"]]
        for field in table["fields"]:
            yield ["field", field["name"], field["type"], field.get("length", 0)]
    yield ["end"]


def make_template(java, jar, mapping, path):
    aside = path.with_suffix(".new")
    aside.unlink(missing_ok=True)
    lines = "".join("\t".join(map(escape, words)) + "\n" for words in template_lines(mapping, aside))
    done = subprocess.run([java, "-jar", str(jar)], input=lines, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          encoding="utf-8")
    if done.returncode != 0:
        aside.unlink(missing_ok=True)
        raise BuildError(f"The template could not be made: {done.stdout}")
    aside.replace(path)


def write_checksums(maven):
    with tempfile.TemporaryDirectory() as folder:
        repository = pathlib.Path(folder, "repository")
        status, said = run_maven(maven, repository, pathlib.Path(folder, "target"))
        if status != 0:
            raise BuildError(said)
        files = sorted(file for file in repository.rglob("*") if file.suffix in (".jar", ".pom"))
        lines = [f"{sha256(file)}  {file.relative_to(repository).as_posix()}\n" for file in files]
    CHECKSUMS.write_text(HEADER + "".join(lines), encoding="utf-8")
    print(f"{len(lines)} files stand in {CHECKSUMS}")


def main():
    options = argparse.ArgumentParser(description=__doc__)
    options.add_argument("--maven", default="mvn")
    options.add_argument("--java", default="java")
    options.add_argument("--repository", type=pathlib.Path, default=pathlib.Path.home() / ".m2" / "repository")
    options.add_argument("--output", type=pathlib.Path, help="folder of the module")
    options.add_argument("--target", type=pathlib.Path, help="folder for what lies between")
    options.add_argument("--write-checksums", action="store_true")
    given = options.parse_args()
    if given.write_checksums:
        write_checksums(given.maven)
        return 0
    mapping_file = SOURCE / "TTMS.mapping.json"
    try:
        jar = build_jar(given.maven, given.repository, given.target)
    except NoNetwork:
        # The program is whole without it but for one export, which then says what is missing.
        print("warning: the tax file's helper is not built, what it needs could not be fetched. The next build tries again.")
        return 0
    place_jars(jar, given.repository, given.output / "taxfile")
    make_template(given.java, given.output / "taxfile" / jar.name, json.loads(mapping_file.read_text(encoding="utf-8")),
                  given.output / "TTMS.mdb")
    shutil.copyfile(mapping_file, given.output / mapping_file.name)
    return 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except BuildError as error:
        sys.exit(f"{error}")
