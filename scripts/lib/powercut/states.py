"""Mounts what a power failure can leave of a recorded disk, and reads the copies on it.

states.py JOURNAL SIZE VERSIONS COUNT SEED [--until-torn]

The disk after a power failure holds all that was written before some flush, and any part of what
was written from there to the next flush. VERSIONS is a folder with a folder for each generation of
the sources; a copy must be whole one of them. From the mark "end-N" on, the log must hold the end of
run N. Prints a line a finding and a summary, and fails where something was torn; with --until-torn it
stops at the first torn copy, and that is the success.
"""

import os
import random
import struct
import subprocess
import sys
import tempfile

BLOCK = 4096
END_OF_RUN = b"Ambrio completed "


def read_journal(path):
    """The writes up to each flush, block by block, and how many runs had ended at each flush."""
    epochs, ended = [[]], [-1]
    runs = -1  # until the disk is ready for the first one
    with open(path, "rb") as journal:
        while header := journal.read(13):
            kind, (offset, length) = header[:1], struct.unpack("<QI", header[1:])
            content = journal.read(length)
            if kind == b"W":
                for start in range(0, length, BLOCK):
                    epochs[-1].append((offset + start, content[start:start + BLOCK]))
            elif kind == b"F":
                epochs.append([])
                ended.append(runs)
            elif content.startswith(b"end-"):
                runs = int(content[len(b"end-"):])
    return epochs, ended


def known_versions(folder):
    """All contents that a copy of each name may have."""
    versions = {}
    for generation in sorted(os.listdir(folder)):
        root = os.path.join(folder, generation)
        for place, _, names in os.walk(root):
            for name in names:
                path = os.path.join(place, name)
                with open(path, "rb") as file:
                    versions.setdefault(os.path.relpath(path, root), set()).add(file.read())
    return versions


def look(image, place, versions, runs_ended):
    """What is torn on a disk: a list of findings, and how many copies there are."""
    mount = ["mount", "-o", "loop,noauto_da_alloc", image, place]
    done = subprocess.run(mount, capture_output=True, text=True)
    if done.returncode != 0:
        return ["the disk cannot be mounted: " + done.stderr.strip()], 0
    findings, copies = [], 0
    try:
        root = os.path.join(place, "copies")
        for folder, _, names in os.walk(root):
            for name in names:
                if name.startswith("~ambrio-"):
                    continue
                path = os.path.join(folder, name)
                relative = os.path.relpath(path, root)
                with open(path, "rb") as file:
                    content = file.read()
                copies += 1
                if content not in versions.get(relative, set()):
                    kind = "empty" if not content else "zeros" if not content.strip(b"\0") else "short"
                    findings.append(f"{relative} is torn ({kind}, {len(content)} bytes)")
        log = os.path.join(place, "program", "Ambrio.log")
        ends = 0
        if os.path.exists(log):
            with open(log, "rb") as file:
                ends = file.read().count(END_OF_RUN)
        if ends < runs_ended:
            findings.append(f"the log holds {ends} ends of runs, not {runs_ended}")
    finally:
        subprocess.run(["umount", place], check=True)
    return findings, copies


def main():
    journal, size, versions_folder, count, seed = sys.argv[1:6]
    until_torn = "--until-torn" in sys.argv
    epochs, ended = read_journal(journal)
    versions = known_versions(versions_folder)
    chance = random.Random(int(seed))
    first = next(i for i, runs in enumerate(ended) if runs >= 0)
    cuts = sorted(chance.randrange(first, len(epochs)) for _ in range(int(count)))
    disk = bytearray(int(size))
    applied = torn = copies = states = 0
    with tempfile.TemporaryDirectory(dir="/dev/shm") as folder:
        place = os.path.join(folder, "place")
        os.mkdir(place)
        for cut in cuts:
            for epoch in epochs[applied:cut]:
                for offset, content in epoch:
                    disk[offset:offset + len(content)] = content
            applied = cut
            # A file of its own, as a loop device may outlive its mount by a moment.
            image = os.path.join(folder, f"image{states}")
            with open(image, "wb") as file:
                file.write(disk)
                share = chance.random()
                for offset, content in epochs[cut]:
                    if chance.random() < share:
                        file.seek(offset)
                        file.write(content)
            findings, seen = look(image, place, versions, ended[cut])
            os.remove(image)
            states += 1
            copies += seen
            torn += len(findings)
            for finding in findings[:3]:
                print(f"after flush {cut}: {finding}")
            if torn and until_torn:
                break
    print(f"{states} states of {len(epochs)} flushes, {copies} copies read, {torn} findings")
    if copies == 0:
        print("no copy was seen at all")
        return 1
    return 0 if (torn > 0) == until_torn else 1


if __name__ == "__main__":
    sys.exit(main())
