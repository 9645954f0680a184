"""Measures Ambrio: python3 FOLDER_OF_THIS WORK_FOLDER REAL_TREE COMMIT [ROW...], in a folder with the
programs and in a world in which Wine runs (scripts/bench makes it)."""

import datetime
import os
import platform
import re
import subprocess
import sys
import time
from pathlib import Path
from statistics import median

import trees
from programs import (ALL, AMBRIO, CP, ENGINE, LOOP, POLLING_LOOP, RSYNC, XCOPY, BenchError,
                      engine_alone, run)
from report import Table, draw_chart, slope

REPETITIONS = 5
SMALL, LARGE = 2000, 20000
LARGEST_PROGRAM = 600_000  # bytes
# What may still be newer than the copies of the last repetition.
CHANGED_FROM = trees.MODIFIED + 100_000


class Bench:
    """The rows, and what they share."""

    def __init__(self, work, real_tree, table):
        self.work = Path(work)
        self.real_tree = Path(real_tree)
        self.table = table
        self.chart = {}
        self.changes = CHANGED_FROM

    def tree(self, name, make):
        """A tree that is made once."""
        folder = self.work / name
        if not folder.exists():
            make(folder)
        return folder

    def small(self, count):
        """A tree of so many small files."""
        return self.tree(f"small-{count}", lambda folder: trees.small_files(folder, count))

    def timed(self, programs, source, prepare, repetitions=REPETITIONS):
        """The seconds of each program, the programs taking turns."""
        times = {program.name: [] for program in programs}
        for _ in range(repetitions):
            for program in programs:
                destination = self.work / "copy"
                prepare(source, destination)
                os.sync()
                times[program.name].append(program.time(source, destination))
        return times

    def slopes(self, programs, prepare, repetitions=REPETITIONS):
        """Microseconds a file of each program, start-up taken out by two sizes."""
        times = {count: self.timed(programs, self.small(count), prepare, repetitions)
                 for count in (SMALL, LARGE)}
        for count in times:
            for name, seconds in times[count].items():
                self.chart.setdefault(prepare.__name__, {}).setdefault(name, []).append(
                    (count, median(seconds) / count * 1e6))
        return {program.name: slope({count: times[count][program.name] for count in times},
                                    SMALL, LARGE) for program in programs}

    @staticmethod
    def nothing(_, destination):
        """Nothing has been copied yet."""
        trees.remove(destination)

    @staticmethod
    def everything(source, destination):
        """Everything has been copied."""
        trees.copy_of(source, destination)

    def some(self, source, destination):
        """Everything has been copied, and a hundredth has changed since."""
        trees.copy_of(source, destination)
        self.changes += 10
        trees.change_some(source, 100, self.changes)

    def show_slopes(self, what, slopes, bars):
        """A line for each program, then one for each ratio with its bar."""
        for name, value in slopes.items():
            self.table.add(f"{what}: {name}", f"{value:.1f} µs a file")
        for program, other, bar in bars:
            ratio = slopes[program.name] / slopes[other.name]
            self.table.add(f"{what}: {program.name} against {other.name}", f"{ratio:.2f}",
                           f"at most {bar:.2f}", ratio <= bar)

    def unchanged(self):
        """Nothing changed."""
        self.show_slopes("nothing changed", self.slopes(ALL, self.everything),
                         [(ENGINE, LOOP, 1.0), (AMBRIO, POLLING_LOOP, 1.3), (AMBRIO, XCOPY, 0.25)])

    def changed(self):
        """1 % changed."""
        self.show_slopes("1 % changed", self.slopes(ALL, self.some), [])

    def first(self):
        """First copy of small files."""
        self.show_slopes("first copy", self.slopes(ALL, self.nothing),
                         [(ENGINE, LOOP, 1.1), (AMBRIO, POLLING_LOOP, 1.2), (AMBRIO, XCOPY, 1.2)])

    def whole(self, what, source, programs, bars, repetitions=REPETITIONS):
        """First copies of one tree, start-up and all."""
        times = self.timed(programs, source, self.nothing, repetitions)
        for name, seconds in times.items():
            self.table.add(f"{what}: {name}", f"{median(seconds):.2f} s")
        for program, other, bar in bars:
            ratio = median(times[program.name]) / median(times[other.name])
            self.table.add(f"{what}: {program.name} against {other.name}", f"{ratio:.2f}",
                           f"at most {bar:.2f}", ratio <= bar)
        trees.remove(self.work / "copy")

    def large(self):
        """20 files of 200 MiB."""
        source = self.tree("large", trees.large_files)
        self.whole("large files", source, [AMBRIO, LOOP, CP], [(AMBRIO, LOOP, 1.03)])
        trees.remove(source)

    def deep(self):
        """2,000 folders, 40 deep."""
        source = self.tree("deep", trees.deep_folders)
        self.whole("deep folders", source, [AMBRIO, ENGINE, LOOP, XCOPY, RSYNC], [])

    def real(self):
        """The machine's own files."""
        files, folders = trees.count_files(self.real_tree)
        self.table.add("the real tree", f"{files:,} files in {folders:,} folders")
        self.whole("the real tree", self.real_tree, [AMBRIO, XCOPY], [(AMBRIO, XCOPY, 1.2)], 1)

    def growth(self):
        """Time and memory at 20,000 and 200,000 files."""
        figures = {}
        for count in (LARGE, 10 * LARGE):
            source = self.tree(f"tiny-{count}",
                               lambda folder, files=count: trees.small_files(folder, files, 100))
            trees.copy_of(source, self.work / "copy")
            figures[count] = (AMBRIO.time(source, self.work / "copy") / count * 1e6, AMBRIO.peak)
            trees.remove(self.work / "copy")
        few, many = figures[LARGE], figures[10 * LARGE]
        self.table.add("time a file, 200,000 against 20,000 files", f"{many[0] / few[0]:.2f}",
                       "at most 1.10", many[0] / few[0] <= 1.1)
        growth = (many[1] - few[1]) / (1 << 20)
        self.table.add("peak memory, 20,000 files", f"{few[1] / (1 << 20):.1f} MiB")
        self.table.add("growth of peak memory to 200,000 files", f"{growth:.2f} MiB",
                       "below 2 MiB", growth < 2)
        trees.remove(self.work / f"tiny-{10 * LARGE}")

    def latency(self):
        """What a slow destination costs."""
        source = self.small(LARGE)
        trees.copy_of(source, self.work / "copy")
        _, folders = trees.count_files(source)
        for milliseconds in (1, 10):
            base = engine_alone(source, self.work / "copy")[5]
            _, _, _, calls, listings, lasted = engine_alone(source, self.work / "copy",
                                                            milliseconds)
            over = (lasted - base) / (calls * milliseconds / 1000) - 1
            self.table.add(f"{milliseconds} ms a call of the destination, nothing changed",
                           f"{calls:.0f} calls, {listings:.0f} listings of {folders + 1} folders, "
                           f"{over:+.0%} beyond calls × latency", "within 10 %", over <= 0.1)

    def requests(self):
        """Requests to the Wine server."""
        for what, prepare in (("unchanged", self.everything), ("copied", self.nothing)):
            counts = {}
            for count in (100, 1100):
                source = self.small(count)
                prepare(source, self.work / "copy")
                counts[count] = server_requests(source, self.work / "copy")
            self.table.add(f"server requests of the engine for each {what} file",
                           f"{(counts[1100] - counts[100]) / 1000:.2f}")

    def captions(self):
        """One caption change on the panel."""
        for line in run(["wine", "CaptionCost.exe"]).splitlines():
            name, figure = line.split()
            self.table.add(f"a change of the panel's caption ({name})", f"{float(figure):.1f} µs",
                           "at most 20 µs", float(figure) <= 20)

    def start(self):
        """Start to the first painted panel."""
        times = {"panel": [], "empty": []}
        AMBRIO.settings(self.small(100), self.work / "copy")
        for _ in range(REPETITIONS):
            times["panel"].append(float(run(["wine", "StartTime.exe", "Ambrio Screen Saver",
                                             "AmbrioStatusPanel", "Ambrio.scr", "/S"])))
            times["empty"].append(float(run(["wine", "StartTime.exe", "AmbrioEmptyProgram", "-",
                                             "EmptyProgram.exe"])))
        over = median(times["panel"]) - median(times["empty"])
        self.table.add("start to the first painted panel, beyond an empty program",
                       f"{over:.0f} ms", "below 100 ms", over < 100)

    def size(self):
        """Size of the program."""
        size = Path("Ambrio.scr").stat().st_size
        self.table.add("size of the program", f"{size:,} bytes", f"below {LARGEST_PROGRAM:,}",
                       size < LARGEST_PROGRAM)

    def idle(self):
        """Processor share of the saver after its run."""
        AMBRIO.settings(self.small(100), self.work / "copy")
        seconds = 10
        with subprocess.Popen(["wine", "Ambrio.scr", "/S"], start_new_session=True) as process:
            time.sleep(5)
            before = processor_seconds(process.pid)
            time.sleep(seconds)
            share = (processor_seconds(process.pid) - before) / seconds
            process.kill()
        self.table.add("processor share of the idle saver at 1024 x 768", f"{share:.1%}")


ROWS = {row.__name__: row for row in (
    Bench.size, Bench.start, Bench.captions, Bench.idle, Bench.requests, Bench.latency,
    Bench.unchanged, Bench.changed, Bench.first, Bench.deep, Bench.large, Bench.growth,
    Bench.real)}


def processor_seconds(pid):
    """What a process has used of the processors so far."""
    fields = Path(f"/proc/{pid}/stat").read_text(encoding="ascii").rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def server_requests(source, destination):
    """What the engine asks of the Wine server, as Wine's own trace counts it."""
    command = ENGINE.command[:2] + [word.format(
        source=source, destination=destination,
        wsource="Z:" + str(source).replace("/", "\\"),
        wdestination="Z:" + str(destination).replace("/", "\\")) for word in ENGINE.command[2:]]
    done = subprocess.run(command, env={**os.environ, "WINEDEBUG": "+server"},
                          stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                          stderr=subprocess.PIPE, check=True)
    return len(re.findall(rb"^[0-9a-f]{4}: [a-z_]+\(", done.stderr, re.MULTILINE))


def main():
    """Runs the rows that are asked for."""
    work, real_tree, commit, *names = sys.argv[1:]
    if names == ["list"]:
        for name, row in ROWS.items():
            print(f"{name:10} {row.__doc__}")
        return
    unknown = [name for name in names if name not in ROWS]
    if unknown:
        sys.exit(f"no such row: {' '.join(unknown)} (scripts/bench list names them)")
    title = (f"Commit {commit}, {datetime.date.today()}, {os.cpu_count()} processors, "
             f"{run(['wine', '--version']).strip()}, {platform.system()} {platform.release()}.")
    table = Table(Path(work) / "table.md", title)
    bench = Bench(work, real_tree, table)
    start = time.monotonic()
    for name in names or ROWS:
        print(f"[{time.monotonic() - start:4.0f}s] {ROWS[name].__doc__}")
        ROWS[name](bench)
    draw_chart(Path(work) / "chart.svg", bench.chart.get("nothing", {}))


if __name__ == "__main__":
    try:
        main()
    except BenchError as error:
        sys.exit(f"bench: {error}")
