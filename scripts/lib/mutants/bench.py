"""A copy of the tree with a build that is kept warm, and the tests that judge a change to it."""

import os
import resource
import shutil
import signal
import subprocess
import time
from contextlib import ExitStack, contextmanager
from pathlib import Path

PRESET = "dev"
PROGRAM = "unit_tests"
# Beyond this a build, or the first run of the tests, does not end at all, however busy the machine.
PATIENCE_SECONDS = 3600
# Tests that take longer come last, on two cores: most mutants are dead before.
SLOW_TEST_SECONDS = 0.1
SLOW_PARTS = 2
# What a mutant may take: so many times what the unmutated program took, and some seconds more.
LIMIT_FACTOR = 3
LIMIT_SECONDS = 3
# A program that waits uses no processor; one that other work slows down must not count as such.
WAIT_FACTOR = 20
MEMORY_BYTES = 4 << 30
POLL_SECONDS = 0.02


class BenchError(Exception):
    """The unmutated tree cannot be built, or its tests fail."""


def kill_group(process):
    """Ends a process and all that it has started."""
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass
    process.wait()


@contextmanager
def started(command, folder, **more):
    """A process in a group of its own, which does not outlive the block."""
    process = subprocess.Popen(command, cwd=folder, stdin=subprocess.DEVNULL,
                               stderr=subprocess.STDOUT, start_new_session=True, **more)
    try:
        yield process
    finally:
        kill_group(process)


def children_seconds():
    """The processor time of all processes that have ended."""
    usage = resource.getrusage(resource.RUSAGE_CHILDREN)
    return usage.ru_utime + usage.ru_stime


class Bench:
    """The copied tree: files are changed in it, and judged."""

    def __init__(self, root, folder, files):
        self.folder = Path(folder).resolve() / "tree"
        self.log = Path(folder) / "output.log"
        for name in files:
            target = self.folder / name
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy2(Path(root) / name, target, follow_symlinks=False)
        self.stages = []  # each: filters of programs that run at the same time, seconds for each
        self._prepare()

    def text(self, name):
        """A file's text."""
        return (self.folder / name).read_text(encoding="utf-8")

    @contextmanager
    def changed(self, name, text):
        """Gives a file another text for as long as the block lasts."""
        original = self.text(name)
        (self.folder / name).write_text(text, encoding="utf-8")
        try:
            yield
        finally:
            (self.folder / name).write_text(original, encoding="utf-8")

    def builds(self):
        """Builds the tests; False when that fails."""
        return self._ended_well(["cmake", "--build", "--preset", PRESET, "--target", PROGRAM])

    def files_read(self):
        """The files of the tree that the build reads; what it does not, no test can judge."""
        listing = subprocess.run(["ninja", "-C", self._build_folder(), "-t", "deps"], check=True,
                                 capture_output=True, text=True).stdout
        read = {line.strip() for line in listing.splitlines() if line.startswith("    ")}
        return {os.path.relpath(self._build_folder() / path, self.folder) for path in read}

    def tests_pass(self):
        """Runs the tests as they were last built, until one fails."""
        return all(self._passes(filters, seconds) for filters, seconds in self.stages)

    def _build_folder(self):
        return self.folder / "build" / PRESET

    def _ended_well(self, command):
        with self.log.open("w") as log, started(command, self.folder, stdout=log) as process:
            try:
                return process.wait(PATIENCE_SECONDS) == 0
            except subprocess.TimeoutExpired:
                return False

    def _prepare(self):
        if not self._ended_well(["cmake", "--preset", PRESET]) or not self.builds():
            raise BenchError("the tree cannot be built:\n" + self._end_of_log())
        times = self._times_of_tests()
        slow = [name for name, seconds in times.items() if seconds > SLOW_TEST_SECONDS]
        slow.sort(key=lambda name: -times[name])
        parts = [slow[part::SLOW_PARTS] for part in range(SLOW_PARTS)]
        self._add_stage(["-" + ":".join(slow)] if slow else ["*"])
        self._add_stage([":".join(part) for part in parts if part])

    def _times_of_tests(self):
        """What each test takes, in seconds; they all have to pass."""
        if not self._ended_well([self._build_folder() / PROGRAM]):
            raise BenchError("the tests fail without any change:\n" + self._end_of_log())
        times = {}
        for line in self.log.read_text(encoding="utf-8", errors="replace").splitlines():
            if line.startswith("[       OK ]"):
                name, _, duration = line[len("[       OK ] "):].rpartition(" (")
                times[name.partition(",")[0]] = int(duration.split()[0]) / 1000
        return times

    def _add_stage(self, filters):
        before = children_seconds()
        if not self._passes(filters, PATIENCE_SECONDS):
            raise BenchError("the tests fail in another order, without any change")
        taken = children_seconds() - before
        self.stages.append((filters, int(LIMIT_SECONDS + LIMIT_FACTOR * taken)))

    def _passes(self, filters, seconds):
        """Runs the test program once for each filter, all at once; ends with the first failure."""

        def limit():
            resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds))
            resource.setrlimit(resource.RLIMIT_AS, (MEMORY_BYTES, MEMORY_BYTES))
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

        program = [self._build_folder() / PROGRAM, "--gtest_fail_fast", "--gtest_brief=1"]
        end = time.monotonic() + seconds * WAIT_FACTOR
        with ExitStack() as stack:
            running = [stack.enter_context(started([*program, "--gtest_filter=" + one], self.folder,
                                                   stdout=subprocess.DEVNULL, preexec_fn=limit))
                       for one in filters]
            while running and time.monotonic() < end:
                if any(process.poll() for process in running):
                    return False
                running = [process for process in running if process.poll() is None]
                time.sleep(POLL_SECONDS)
        return not running

    def _end_of_log(self):
        return "\n".join(self.log.read_text(errors="replace").splitlines()[-30:])
