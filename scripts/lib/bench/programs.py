"""The programs that are compared: each copies a folder with its subfolders to another one."""

import contextlib
import os
import re
import signal
import subprocess
import time
from math import inf
from pathlib import Path

LIMIT_SECONDS = 1800
POLL_SECONDS = 0.002
LOG = Path("Ambrio.log")


class BenchError(Exception):
    """A program did not do its work, so its time means nothing."""


def windows_path(path):
    """How a program under Wine names a file of this machine."""
    return "Z:" + str(path).replace("/", "\\")


def run(command, check=True):
    """Runs a command to its end and gives what it printed."""
    done = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, timeout=LIMIT_SECONDS, check=False)
    if check and done.returncode != 0:
        raise BenchError(f"{' '.join(map(str, command))} ended with {done.returncode}")
    return done.stdout.decode("utf-8", "replace").replace("\r", "")


def engine_alone(source, destination, latency=0):
    """What the engine itself says of a run: files, copies, failures, calls, listings, seconds."""
    words = run(["wine", "EngineAlone.exe", windows_path(source), windows_path(destination),
                 str(latency)]).split()
    return [float(word) for word in words[-6:]]


class Timed:
    """A command that ends when its work is done."""

    def __init__(self, name, command, most_repetitions=inf):
        self.name = name
        self.command = command
        self.most_repetitions = most_repetitions

    def time(self, source, destination):
        """The seconds from start to end."""
        command = [word.format(source=source, destination=destination,
                               wsource=windows_path(source), wdestination=windows_path(destination))
                   for word in self.command]
        start = time.monotonic()
        run(command)
        return time.monotonic() - start


class Desktop:
    """Wine's desktop, which it makes for the first program with a window and takes away soon after
    the last one. A start without it can wait ten seconds, which no figure is to say anything of."""

    def __init__(self):
        self.holder = None

    def hold(self):
        """Keeps it from here on, until the Wine server ends."""
        if self.holder is None or self.holder.poll() is not None:
            self.holder = subprocess.Popen(
                ["wine", "EmptyProgram.exe", "stay"], stdin=subprocess.DEVNULL,
                stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, start_new_session=True)
            self.holder.stdout.readline()


class Ambrio:
    """The real program with its panel; it is done when its log says so."""

    name = "Ambrio /S"
    most_repetitions = inf
    TREE = r"HKEY_CURRENT_USER\Software\VB and VBA Program Settings\Ambrio"

    def __init__(self):
        self.peak = 0  # bytes of its own that were in memory at most, of the last run

    def settings(self, source, destination):
        """Makes this its only Set."""
        def quoted(path):
            return windows_path(path).replace("\\", "\\\\")
        text = ("REGEDIT4\n\n"
                f"[{self.TREE}\\General]\n\"Sets\"=\"Bench\"\n\n"
                f"[{self.TREE}\\Bench]\n\"Source\"=\"{quoted(source)}\"\n"
                f"\"Destination\"=\"{quoted(destination)}\"\n\"Recursive\"=\"Yes\"\n")
        Path("bench.reg").write_text(text, encoding="ascii")
        run(["wine", "regedit", "/S", "bench.reg"])

    def time(self, source, destination):
        """The seconds from its start to the last line of its log."""
        self.settings(source, destination)
        LOG.unlink(missing_ok=True)
        DESKTOP.hold()
        start = time.monotonic()
        with subprocess.Popen(["wine", "Ambrio.scr", "/S"], stdin=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              start_new_session=True) as process:
            try:
                self._await_end(process, start)
                lasted = time.monotonic() - start
                self.peak = peak_memory(process.pid)
            finally:
                with contextlib.suppress(ProcessLookupError):  # where it has ended by itself
                    os.killpg(process.pid, signal.SIGKILL)
        if b" completed " not in LOG.read_bytes():
            raise BenchError(f"Ambrio says: {LOG.read_text(encoding='latin-1')}")
        return lasted

    @staticmethod
    def _await_end(process, start):
        while True:
            if LOG.exists() and re.search(rb"Ambrio (completed|ended) ", LOG.read_bytes()):
                return
            if process.poll() is not None or time.monotonic() - start > LIMIT_SECONDS:
                raise BenchError("Ambrio has not come to the end of its run")
            time.sleep(POLL_SECONDS)


def peak_memory(pid):
    """The most bytes of its own that a process has had in memory, from the kernel."""
    status = Path(f"/proc/{pid}/status").read_text(encoding="ascii", errors="replace")
    found = re.search(r"VmHWM:\s+(\d+) kB", status)
    return int(found[1]) * 1024 if found else 0


class Requests:
    """What has been asked of the Wine server, from the trace that it writes."""

    def __init__(self, trace):
        self.trace = trace
        self.start = 0

    def forget(self):
        """Counts from here on."""
        self.start = self.trace.stat().st_size

    def counted(self):
        """The requests, and how many of them open something."""
        with open(self.trace, "rb") as stream:
            stream.seek(self.start)
            asked = stream.read()
        return [len(re.findall(pattern, asked, re.MULTILINE))
                for pattern in (rb"^[0-9a-f]{4}: [a-z_]+\((?!\) =)",
                                rb"^[0-9a-f]{4}: create_file\((?!\) =)")]


@contextlib.contextmanager
def traced_server():
    """A Wine server that writes every request down, in the place of the usual one meanwhile."""
    trace = Path("requests.txt")
    run(["wineserver", "-k"], check=False)
    run(["wineserver", "-w"], check=False)
    with open(trace, "wb") as output:
        with subprocess.Popen(["wineserver", "-f", "-p", "-d1"], stdin=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL, stderr=output) as server:
            try:
                run(["wine", "EmptyProgram.exe"])  # starts Wine's services
                yield Requests(trace)
            finally:
                run(["wineserver", "-k"], check=False)
                server.wait()
                trace.unlink()
    run(["wineserver", "-p"], check=False)


DESKTOP = Desktop()
AMBRIO = Ambrio()
ENGINE = Timed("engine alone", ["wine", "EngineAlone.exe", "{wsource}", "{wdestination}"])
LOOP = Timed("bare loop", ["wine", "BareLoop.exe", "{wsource}", "{wdestination}"])
POLLING_LOOP = Timed("bare loop that polls",
                     ["wine", "BareLoop.exe", "{wsource}", "{wdestination}", "poll"], 3)
FLUSHING_LOOP = Timed("bare loop that flushes",
                      ["wine", "BareLoop.exe", "{wsource}", "{wdestination}", "flush"])
XCOPY = Timed("xcopy", ["wine", "xcopy", "/D", "/S", "/E", "/I", "/Y", "/Q", "/H", "/R", "/K",
                        "{wsource}", "{wdestination}"], 2)
# For the record alone.
RSYNC = Timed("rsync -a (native)", ["rsync", "-a", "{source}/", "{destination}"], 1)
CP = Timed("cp -au (native)", ["cp", "-auT", "{source}", "{destination}"], 1)
ALL = [AMBRIO, ENGINE, LOOP, POLLING_LOOP, XCOPY, RSYNC, CP]
