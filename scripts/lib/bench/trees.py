"""The trees that are backed up: the same in every run of the benchmark."""

import os
import random
import shutil
import subprocess
from pathlib import Path

FILES_A_FOLDER = 50
SMALLEST, LARGEST = 100, 64 << 10  # bytes
LARGE_FILES, LARGE_SIZE = 10, 200 << 20
DEEP_FOLDERS, DEPTH = 2000, 40
LARGE_FOLDER = 1000  # files; few folders have so many
# Far enough back that a copy is never newer by the seconds that making a tree takes.
MODIFIED = 1_600_000_000


def small_files(folder, count, size=None):
    """So many files of random sizes, or of one, in folders of fifty."""
    numbers = random.Random(count)
    content = numbers.randbytes(LARGEST)
    for number in range(count):
        place = f"{folder}/folder {number // FILES_A_FOLDER:05}"
        if number % FILES_A_FOLDER == 0:
            os.makedirs(place)
        length = size or int(SMALLEST * (LARGEST / SMALLEST) ** numbers.random())
        with open(f"{place}/file {number:06}.dat", "wb", buffering=0) as file:
            file.write(content[:length])
            os.utime(file.fileno(), (MODIFIED, MODIFIED))


def large_files(folder, count=LARGE_FILES):
    """Files of random content, so that no file system keeps them as holes."""
    Path(folder).mkdir(parents=True)
    block = random.Random(1).randbytes(1 << 20)
    for number in range(count):
        file = Path(folder) / f"large {number:02}.dat"
        with open(file, "wb") as stream:
            for _ in range(LARGE_SIZE >> 20):
                stream.write(block)
        os.utime(file, (MODIFIED, MODIFIED))


def deep_folders(folder, count=DEEP_FOLDERS):
    """Chains of folders forty deep, a file in each. Their names are short, as xcopy knows no paths
    of more than 260 characters."""
    for chain in range(max(1, count // DEPTH)):
        place = Path(folder) / f"c{chain:02}"
        for level in range(DEPTH):
            place = place / f"{level:02}"
            place.mkdir(parents=True)
            (place / "file.dat").write_bytes(b"x" * 1000)
            os.utime(place / "file.dat", (MODIFIED, MODIFIED))


def copy_of(tree, folder):
    """A backup of the tree as it is after a first copy."""
    remove(folder)
    shutil.copytree(tree, folder, symlinks=True, copy_function=shutil.copy2)


def _possible(place, names, taken):
    """The names that a Windows program can copy beside those that are taken, and no links. Two that
    differ in nothing but their case are one under Wine."""
    kept = []
    for name in sorted(names):
        is_plain = name == name.rstrip(". ") and not set(name) & set('<>:"|?*\\')
        if is_plain and name.lower() not in taken and not (Path(place) / name).is_symlink():
            taken.add(name.lower())
            kept.append(name)
    return kept


def part_of(tree, folder, share):
    """Every so many of a tree's folders with all of their files, so that a folder has as many as in
    the tree; of each of the few large folders every so many files, as it would count for too much
    or not at all."""
    number = 0
    for place, names, files in os.walk(tree):
        taken = set()
        names[:] = _possible(place, names, taken)
        files = _possible(place, files, taken)
        if len(files) > LARGE_FOLDER:
            files = files[::share]
        elif files:
            number += 1
            if number % share != 0:
                continue
        part = Path(folder) / os.path.relpath(place, tree)
        for file in files:
            part.mkdir(parents=True, exist_ok=True)
            if (Path(place) / file).is_file():
                shutil.copy2(Path(place) / file, part / file)


def links_to(tree, folder):
    """A backup of the tree, made of second names of its files, which is as good where nothing is
    copied."""
    subprocess.run(["cp", "-alT", tree, folder], check=True)


def change_some(tree, share, time):
    """Gives every so many files another time, later than any before."""
    for number, file in enumerate(sorted(path for path in Path(tree).rglob("*") if path.is_file())):
        if number % share == 0:
            os.utime(file, (time, time))


def count_files(tree):
    """Files and folders below a folder."""
    files = folders = 0
    for _, names, entries in os.walk(tree):
        folders += len(names)
        files += len(entries)
    return files, folders


def remove(folder):
    """Removes a tree; one that is not there is no failure."""
    subprocess.run(["rm", "-rf", folder], check=True)
