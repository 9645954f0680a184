"""The trees that are backed up: the same in every run of the benchmark."""

import os
import random
import shutil
from pathlib import Path

FILES_A_FOLDER = 50
SMALLEST, LARGEST = 100, 64 << 10  # bytes
LARGE_FILES, LARGE_SIZE = 20, 200 << 20
DEEP_FOLDERS, DEPTH = 2000, 40
# Far enough back that a copy is never newer by the seconds that making a tree takes.
MODIFIED = 1_600_000_000


def small_files(folder, count, size=None):
    """So many files of random sizes, or of one, in folders of fifty."""
    numbers = random.Random(count)
    content = numbers.randbytes(LARGEST)
    for number in range(count):
        place = Path(folder) / f"folder {number // FILES_A_FOLDER:05}"
        if number % FILES_A_FOLDER == 0:
            place.mkdir(parents=True)
        length = size or int(SMALLEST * (LARGEST / SMALLEST) ** numbers.random())
        file = place / f"file {number:06}.dat"
        file.write_bytes(content[:length])
        os.utime(file, (MODIFIED, MODIFIED))


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


def part_of(tree, folder, share):
    """A tree's folders with every so many of each one's files; links are left out."""
    for place, names, files in os.walk(tree):
        names.sort()
        part = Path(folder) / os.path.relpath(place, tree)
        part.mkdir(parents=True, exist_ok=True)
        for file in sorted(files)[::share]:
            original = Path(place) / file
            if original.is_file() and not original.is_symlink():
                shutil.copy2(original, part / file)


def links_to(tree, folder):
    """A backup of the tree, made of second names of its files, which is as good where nothing is
    copied."""
    shutil.copytree(tree, folder, copy_function=os.link)


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
    shutil.rmtree(folder, ignore_errors=True)
