"""Measures Ambrio: python3 FOLDER_OF_THIS WORK_FOLDER REAL_TREE COMMIT [ROW...], in a folder with the
programs and in a world in which Wine runs (scripts/bench makes it)."""

import datetime
import os
import platform
import signal
import subprocess
import sys
import time
from pathlib import Path
from statistics import median

import ahead
import trees
from programs import (ALL, AMBRIO, CP, DESKTOP, ENGINE, FLUSHING_LOOP, LOOP, POLLING_LOOP, RSYNC,
                      XCOPY, BenchError, engine_alone, run, traced_server)
from report import Chart, Table, slope

REPETITIONS = 5
# Start-up is taken out by two sizes of a tree; fewer files where each costs more, and where nothing
# is judged.
SMALL, LARGE = 2000, 20000
MEDIUM = 8000
FEW, MANY = 500, 2500
SHARE = 8  # of the real tree
LARGEST_PROGRAM = 600_000  # bytes
# What may still be newer than the copies of the last repetition.
CHANGED_FROM = trees.MODIFIED + 100_000


class Bench:
    """The rows, and what they share."""

    def __init__(self, work, real_tree, table, chart):
        self.work = work
        self.real_tree = real_tree
        self.table = table
        self.chart = chart
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

    # Each of these three gives the folder that a program is to copy a tree to.

    def nothing(self, _):
        """Nothing has been copied yet."""
        trees.remove(self.work / "copy")
        return self.work / "copy"

    def everything(self, source):
        """Everything has been copied."""
        return self.tree(f"copy of {source.name}", lambda folder: trees.copy_of(source, folder))

    def some(self, source):
        """Everything has been copied, and a hundredth has changed since."""
        self.changes += 10
        trees.change_some(source, 100, self.changes)
        return self.everything(source)

    @staticmethod
    def timed(programs, sources, prepare, repetitions=REPETITIONS):
        """The seconds of each program for each tree, the programs taking turns. One that nothing is
        judged by closely takes fewer."""
        times = {source: {program.name: [] for program in programs} for source in sources}
        for repetition in range(repetitions):
            for number, program in enumerate(programs):
                if repetition >= program.most_repetitions:
                    continue
                show_progress(repetition * len(programs) + number,
                              repetitions * len(programs), program.name)
                for source in sources:
                    destination = prepare(source)
                    os.sync()
                    times[source][program.name].append(program.time(source, destination))
                    # Not the folders: Wine takes two whose names differ in case for one.
                    if trees.count_files(source)[0] != trees.count_files(destination)[0]:
                        raise BenchError(f"{program.name} has not copied all of {source.name}")
        show_progress()
        return times

    def slopes(self, job, sizes, programs, prepare, repetitions=REPETITIONS):
        """Microseconds a file of each program, start-up taken out by two sizes."""
        sources = {self.small(count): count for count in sizes}
        times = self.timed(programs, list(sources), prepare, repetitions)
        for source, count in sources.items():
            for name, seconds in times[source].items():
                self.chart.add(job, name, count, median(seconds) / count * 1e6)
        return {program.name: slope({count: times[source][program.name]
                                     for source, count in sources.items()}, *sizes)
                for program in programs}

    def show_slopes(self, what, slopes, bars):
        """A line for each program, then one for each ratio with its bar."""
        for name, value in slopes.items():
            self.table.add(f"{what}: {name}", f"{value:.1f} µs a file")
        for program, other, bar in bars:
            if min(slopes[program.name], slopes[other.name]) <= 0:
                raise BenchError(f"{program.name} against {other.name}: too much noise to tell")
            ratio = slopes[program.name] / slopes[other.name]
            self.table.add(f"{what}: {program.name} against {other.name}", f"{ratio:.2f}",
                           f"at most {bar:.2f}", ratio <= bar)

    def unchanged(self):
        """Nothing changed."""
        self.show_slopes("nothing changed",
                         self.slopes("nothing changed", (SMALL, LARGE), ALL, self.everything),
                         [(ENGINE, LOOP, 1.0), (AMBRIO, POLLING_LOOP, 1.3), (AMBRIO, XCOPY, 0.25)])

    def changed(self):
        """1 % changed."""
        self.show_slopes("1 % changed",
                         self.slopes("1 % changed", (SMALL, MEDIUM), ALL, self.some, 2), [])

    def first(self):
        """First copy of small files."""
        self.show_slopes("first copy", self.slopes("first copy", (FEW, MANY), ALL, self.nothing, 3),
                         [(ENGINE, LOOP, 1.1), (AMBRIO, POLLING_LOOP, 1.2), (AMBRIO, XCOPY, 1.2)])

    def show_whole(self, what, source, programs, bars, repetitions):
        """First copies of one tree, start-up and all."""
        times = self.timed(programs, [source], self.nothing, repetitions)[source]
        for name, seconds in times.items():
            self.table.add(f"{what}: {name}", f"{median(seconds):.2f} s")
        for program, other, bar in bars:
            ratio = median(times[program.name]) / median(times[other.name])
            self.table.add(f"{what}: {program.name} against {other.name}", f"{ratio:.2f}",
                           f"at most {bar:.2f}", ratio <= bar)
        trees.remove(self.work / "copy")

    def large(self):
        """10 files of 200 MiB."""
        source = self.tree("large", trees.large_files)
        self.show_whole("large files", source, [AMBRIO, FLUSHING_LOOP, LOOP, CP],
                        [(AMBRIO, FLUSHING_LOOP, 1.03), (AMBRIO, LOOP, 1.03)], 3)
        trees.remove(source)

    def deep(self):
        """2,000 folders, 40 deep."""
        source = self.tree("deep", trees.deep_folders)
        self.show_whole("deep folders", source, [AMBRIO, ENGINE, LOOP, XCOPY, RSYNC], [], 1)

    def real(self):
        """A part of the machine's own files (the row "whole" takes them all)."""
        self._real(f"every {SHARE}th folder of the real tree", SHARE)

    def whole(self):
        """All of the machine's own files; takes minutes, so only when it is named."""
        self._real("the real tree", 1)

    def _real(self, what, share):
        source = self.tree(what, lambda folder: trees.part_of(self.real_tree, folder, share))
        files, folders = trees.count_files(source)
        all_files, all_folders = trees.count_files(self.real_tree)
        self.table.add(what, f"{files:,} files in {folders:,} folders of {self.real_tree}, which "
                       f"has {all_files:,} in {all_folders:,}")
        self.show_whole(what, source, [AMBRIO, XCOPY], [(AMBRIO, XCOPY, 1.2)], 1)
        trees.remove(source)

    def growth(self):
        """Time and memory at 20,000 and 200,000 files."""
        figures = {}
        for count in (LARGE, 10 * LARGE):
            source = self.tree(f"tiny-{count}",
                               lambda folder, files=count: trees.small_files(folder, files, 100))
            copied = self.tree(f"copy of tiny-{count}",
                               lambda folder, tree=source: trees.links_to(tree, folder))
            goes = 3 if count == LARGE else 1  # ten times the files, and as much less chance
            seconds = []
            for go in range(goes):
                show_progress(go, goes, f"{count:,} files")
                seconds.append(AMBRIO.time(source, copied))
            show_progress()
            figures[count] = (median(seconds), AMBRIO.peak)
            if count != LARGE:
                self.chart.add("nothing changed", AMBRIO.name, count, seconds[0] / count * 1e6)
        few, many = figures[LARGE], figures[10 * LARGE]
        # Start-up, which both have in common, is that of an empty tree.
        empty = self.tree("empty", lambda folder: folder.mkdir())
        start = median(AMBRIO.time(empty, self.nothing(empty)) for _ in range(3))
        ratio = (many[0] - start) / 10 / (few[0] - start)
        self.table.add("time a file, 200,000 against 20,000 files", f"{ratio:.2f}",
                       "at most 1.10", ratio <= 1.1)
        growth = (many[1] - few[1]) / (1 << 20)
        self.table.add("peak memory, 20,000 files", f"{few[1] / (1 << 20):.1f} MiB")
        self.table.add("growth of peak memory to 200,000 files", f"{growth:.2f} MiB",
                       "below 2 MiB", growth < 2)
        for count in (LARGE, 10 * LARGE):
            trees.remove(self.work / f"tiny-{count}")
            trees.remove(self.work / f"copy of tiny-{count}")

    def latency(self):
        """What a slow destination costs."""
        source = self.small(LARGE)
        copied = self.everything(source)
        _, folders = trees.count_files(source)
        base = min(engine_alone(source, copied)[5] for _ in range(3))
        for milliseconds in (1, 10):
            _, _, _, calls, listings, lasted = min(
                (engine_alone(source, copied, milliseconds) for _ in range(3)),
                key=lambda figures: figures[5])
            over = (lasted - base) / (calls * milliseconds / 1000) - 1
            self.table.add(
                f"{milliseconds} ms a call of the destination, nothing changed",
                f"{calls:.0f} calls ({listings:.0f} listings, {calls - listings:.0f} tests of "
                f"{folders + 1} folders), {over:+.1%} beyond calls × latency", "within 10 %",
                abs(over) <= 0.1)

    def requests(self):
        """Requests to the Wine server."""
        with traced_server() as requests:
            for job, prepare in (("unchanged", self.everything), ("copied", self.nothing)):
                for program in (ENGINE, LOOP, XCOPY):
                    counts = []
                    for count in (100, 1100):
                        source = self.small(count)
                        destination = prepare(source)
                        requests.forget()
                        program.time(source, destination)
                        counts.append(requests.counted())
                    asked, opened = ((many - few) / 1000 for few, many in zip(*counts))
                    self.table.add(
                        f"requests to the Wine server for each {job} file: {program.name}",
                        f"{asked:.2f}, {opened:.2f} of them opening a file")

    def captions(self):
        """One caption change on the panel."""
        for line in run(["wine", "CaptionCost.exe"]).splitlines():
            name, figure = line.split()
            self.table.add(f"a change of the panel's caption ({name})", f"{float(figure):.1f} µs",
                           "at most 20 µs", float(figure) <= 20)

    def start(self):
        """Start to the first painted panel."""
        times = {"panel": [], "empty": []}
        DESKTOP.hold()
        AMBRIO.settings(self.small(100), self.work / "copy")
        for _ in range(REPETITIONS):
            times["panel"].append(float(run(["wine", "StartTime.exe", "Ambrio Screen Saver",
                                             "AmbrioStatusPanel", "Ambrio.scr", "/S"])))
            times["empty"].append(float(run(["wine", "StartTime.exe", "AmbrioEmptyProgram", "-",
                                             "EmptyProgram.exe"])))
        panel, empty = median(times["panel"]), median(times["empty"])
        self.table.add("start to the first painted panel, beyond an empty program",
                       f"{panel - empty:.0f} ms ({panel:.0f} against {empty:.0f})", "below 100 ms",
                       panel - empty < 100)

    def size(self):
        """Size of the program."""
        size = Path("Ambrio.scr").stat().st_size
        self.table.add("size of the program", f"{size:,} bytes", f"below {LARGEST_PROGRAM:,}",
                       size < LARGEST_PROGRAM)

    def idle(self):
        """Processor share of the saver after its run."""
        AMBRIO.settings(self.small(100), self.work / "copy")
        seconds = 10
        DESKTOP.hold()
        with subprocess.Popen(["wine", "Ambrio.scr", "/S"], start_new_session=True) as process:
            time.sleep(5)
            before = processor_seconds(process.pid)
            time.sleep(seconds)
            share = (processor_seconds(process.pid) - before) / seconds
            os.killpg(process.pid, signal.SIGKILL)
        self.table.add("processor share of the idle saver at 1024 x 768", f"{share:.1%}")


ROWS = {row.__name__: row for row in (
    Bench.size, Bench.start, Bench.captions, Bench.idle, Bench.latency, Bench.unchanged,
    Bench.changed, Bench.first, Bench.deep, Bench.large, Bench.growth, Bench.real,
    Bench.requests)} | {"ahead": ahead.ahead}
NAMED = {"whole": Bench.whole}  # rows that are run only when they are named


def processor_seconds(pid):
    """What a process has used of the processors so far."""
    fields = Path(f"/proc/{pid}/stat").read_text(encoding="ascii").rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def show_progress(done=0, of=0, what=""):
    """A line that says how far a row has come, where somebody sits before it."""
    if sys.stdout.isatty():
        text = f"  {done} of {of}: {what}" if of else ""
        print(f"\r{text:60}\r", end="", flush=True)


def main():
    """Runs the rows that are asked for."""
    work, real_tree, commit, *names = sys.argv[1:]
    if names == ["list"]:
        for name, row in (ROWS | NAMED).items():
            print(f"{name:10} {row.__doc__}")
        return
    unknown = [name for name in names if name not in ROWS | NAMED]
    if unknown:
        sys.exit(f"no such row: {' '.join(unknown)} (scripts/bench list names them)")
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") >> 30
    title = (f"Commit {commit}, {datetime.date.today()}, {os.cpu_count()} processors, "
             f"{memory} GiB of memory, {run(['wine', '--version']).strip()}, "
             f"{platform.system()} {platform.release()}; load {os.getloadavg()[0]:.1f}.")
    work = Path(work)
    table = Table(work / "table.md", title)
    bench = Bench(work, Path(real_tree), table, Chart(work / "performance.svg"))
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    start = time.monotonic()
    failed = []
    for name in names or ROWS:
        row = (ROWS | NAMED)[name]
        print(f"[{time.monotonic() - start:4.0f}s] {row.__doc__}")
        try:
            row(bench)
        except (BenchError, OSError, subprocess.SubprocessError) as error:
            failed.append(name)
            table.add(f"{row.__doc__.rstrip('.')}: FAILED", " ".join(str(error).split()))
        except KeyboardInterrupt:
            table.add("BROKEN OFF", f"in the row \"{name}\"; nothing after it was measured")
            sys.exit(130)
    print(f"[{time.monotonic() - start:4.0f}s] The end.")
    if failed:
        sys.exit(f"bench: these rows failed: {' '.join(failed)}")


if __name__ == "__main__":
    main()
