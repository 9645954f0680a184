"""Small copies that are made ahead of their turn, several at once, against one after the other."""

from statistics import median

import trees
from programs import BenchError, run, windows_path

FILES, SIZE = 2000, 4 << 10
GOES = 3
# By the milliseconds a call of the destination: times faster at least, files. Each folder is begun
# and ended by itself, so that a quarter of the folders stands to itself as all of them do.
LATENCIES = {10: (5, FILES // 4), 1: (3, FILES)}
LOCAL = 1.3
MOST_MEMORY = 4 << 20  # bytes on top


def copying(source, destination, how, latency=0):
    """The calls on the destination, the most bytes in memory and the seconds of a first copy."""
    words = run(["wine", "AheadCost.exe", windows_path(source), windows_path(destination), how,
                 str(latency)]).split()
    copied, failed, calls, memory, seconds = (float(word) for word in words[-5:])
    if copied < 1 or failed > 0:
        raise BenchError(f"{copied:.0f} copied, {failed:.0f} failed")
    return calls, memory, seconds


def in_turns(bench, source, latency=0, goes=GOES):
    """The median of each figure with and without, which take turns."""
    figures = {"with": [], "without": []}
    for _ in range(goes):
        for how, seen in figures.items():
            seen.append(copying(source, bench.nothing(source), how, latency))
    return ([median(column) for column in zip(*seen)] for seen in figures.values())


def ahead(bench):
    """Small copies made ahead of their turn, against one after the other."""
    def of(files):
        return bench.tree(f"equal-{files}", lambda folder: trees.small_files(folder, files, SIZE))
    for latency, (least, files) in LATENCIES.items():
        (calls, _, seconds), (_, _, alone) = in_turns(bench, of(files), latency, 2)
        bench.table.add(
            f"{files:,} new files, {latency} ms a call of the destination: made ahead",
            f"{alone / seconds:.1f} times faster ({alone:.1f} s to {seconds:.1f} s, "
            f"{calls / files:.2f} calls a file)", f"at least {least} times",
            alone >= least * seconds)
    source = of(FILES)
    (_, memory, seconds), (_, less, alone) = in_turns(bench, source)
    bench.table.add(f"{FILES:,} new files on this machine: made ahead",
                    f"{alone / seconds:.2f} times faster ({alone / FILES * 1e6:.0f} µs to "
                    f"{seconds / FILES * 1e6:.0f} µs a file)", f"at least {LOCAL} times",
                    alone >= LOCAL * seconds)
    bench.table.add("memory for copies made ahead, at most", f"{(memory - less) / (1 << 20):.1f} MiB",
                    "below 4 MiB", memory - less < MOST_MEMORY)
