"""Tries small changes on the portable rooms and counts those that the tests notice.

Called by scripts/mutants: FOLDER (for the copy of the tree) COUNT SEED [PATH]...
"""

import argparse
import os
import random
import re
import signal
import subprocess
import sys
import time
from dataclasses import dataclass
from itertools import islice

from bench import Bench, BenchError
from mutations import Mutation, mutations_of

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__)))))
# The rooms whose every line the build machine's own tests run.
PORTABLE = re.compile(r"(engine|settings|platform)/|(app|config|saver)/(.*/)?(model|animation)/")
REPORT_EVERY = 10


@dataclass(frozen=True, order=True)
class Mutant:
    """One change of one file."""

    name: str
    mutation: Mutation


def files_of_tree():
    """The names of the files that git knows or would, changed or not."""
    listing = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard", "-z"],
                             cwd=ROOT, check=True, capture_output=True, text=True).stdout
    return sorted({name for name in listing.split("\0")
                   if name and os.path.isfile(os.path.join(ROOT, name))})


def is_portable(name):
    """True for a source file of the portable rooms."""
    return (name.endswith((".cpp", ".h")) and "/win32/" not in name
            and PORTABLE.match(name) is not None)


def mutants_of(bench, names, paths):
    """Every mutant of the files that lie below one of the paths."""
    read = bench.files_read()
    chosen = [name for name in names if is_portable(name) and name in read and
              (not paths or any(f"{name}/".startswith(f"{path}/") for path in paths))]
    return [Mutant(name, mutation) for name in chosen for mutation in mutations_of(bench.text(name))]


def survives(bench, mutant):
    """What becomes of a mutant: True or False, or None when it cannot be built."""
    with bench.changed(mutant.name, mutant.mutation.apply(bench.text(mutant.name))):
        return bench.tests_pass() if bench.builds() else None


def report_survivor(bench, mutant):
    """Names a survivor, with its lines before and after the change."""
    text, mutation = bench.text(mutant.name), mutant.mutation
    line = text.count("\n", 0, mutation.start) + 1
    print(f"survived: {mutant.name}:{line}: {mutation.kind}")
    first = text.rfind("\n", 0, mutation.start) + 1
    last = text.index("\n", mutation.end)
    for sign, part in (("-", text[first:last]),
                       ("+", mutation.apply(text)[first:last + len(mutation.apply(text)) - len(text)])):
        for row in part.splitlines():
            print(f"    {sign} {row}")
    sys.stdout.flush()


def try_mutants(bench, drawn, count):
    """Judges so many mutants, in rounds: those that do not build are replaced in the next one."""
    killed = survived = 0
    began = time.monotonic()
    candidates = iter(drawn)
    while killed + survived < count:
        # In the order of the files, as two changes of one file cost but one compilation.
        current = sorted(islice(candidates, count - killed - survived))
        if not current:
            break
        for mutant in current:
            verdict = survives(bench, mutant)
            if verdict is None:
                continue
            killed, survived = killed + (not verdict), survived + verdict
            if verdict:
                report_survivor(bench, mutant)
            if (killed + survived) % REPORT_EVERY == 0:
                each = (time.monotonic() - began) / (killed + survived)
                step(f"{killed + survived} of {count} mutants, {killed} killed, {each:.1f} s each")
    return killed, killed + survived


def step(text):
    """One line of progress, with the seconds since the script was started."""
    print(f"[{int(time.time()) - int(os.environ['AMBRIO_STARTED']):3d}s] {text}", flush=True)


def end_on_signals():
    """Lets a signal end the program as an exception does, so that nothing goes on running."""

    def end(number, _frame):
        sys.exit(128 + number)

    for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, end)


def arguments():
    """The command line."""
    parser = argparse.ArgumentParser(prog="scripts/mutants")
    parser.add_argument("folder")
    parser.add_argument("count", type=int)
    parser.add_argument("seed", type=int)
    parser.add_argument("paths", nargs="*")
    return parser.parse_args()


def main():
    """Draws mutants, judges them and says how many were killed."""
    end_on_signals()
    wanted = arguments()
    paths = [os.path.relpath(path, ROOT) if os.path.isabs(path) else os.path.normpath(path)
             for path in wanted.paths]
    names = files_of_tree()
    step("Building a copy of the tree")
    try:
        bench = Bench(ROOT, wanted.folder, names)
    except BenchError as error:
        sys.exit(f"ambrio: {error}")
    drawn = mutants_of(bench, names, paths)
    if not drawn:
        sys.exit("ambrio: nothing can be changed there")
    random.Random(wanted.seed).shuffle(drawn)
    step(f"Trying {wanted.count} of {len(drawn)} mutants, drawn with seed {wanted.seed}")
    killed, tried = try_mutants(bench, drawn, wanted.count)
    print(f"{killed} of {tried} mutants killed")


main()
