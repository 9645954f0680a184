"""Says whether each copy was synced before it got its name.

order.py TRACE: what strace -f -y -ttt wrote of the program and of Wine's server. Fails when a
temporary was renamed without a sync of it before, or when no rename was seen at all.
"""

import re
import sys

CALL = re.compile(r"^\d+ +(?P<time>[0-9.]+) (?P<call>\w+)\((?P<what>.*)$")
SYNC = re.compile(r"^(?:\d+)<(?P<path>[^>]*~ambrio-[^>]*\.tmp)")
RENAME = re.compile(r'"(?P<path>[^"]*~ambrio-[^"]*\.tmp)", (?:AT_FDCWD(?:<[^>]*>)?, )?"(?P<to>[^"]*)"')


def main():
    synced, renames, early = set(), 0, []
    with open(sys.argv[1], errors="replace") as trace:
        for line in trace:
            call = CALL.match(line)
            if not call:
                continue
            name = lambda path: path.rsplit("/", 1)[-1]
            if call["call"] in ("fsync", "fdatasync"):
                sync = SYNC.match(call["what"])
                if sync:
                    synced.add(name(sync["path"]))
            elif rename := RENAME.search(call["what"]):
                if "= -1" in call["what"]:
                    continue
                renames += 1
                if name(rename["path"]) not in synced:
                    early.append(rename["to"])
    for path in early[:10]:
        print(f"{path} got its name before it was synced")
    print(f"{renames} copies renamed, {len(early)} of them before their sync")
    return 1 if early or renames == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
