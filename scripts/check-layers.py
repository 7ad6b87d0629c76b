#!/usr/bin/env python3
"""Holds every #include of the product against the targets that CMake knows.

A file may include files of its own target and of those that its target links, directly or through
others. Every source outside tests, benchmarks and fuzzers belongs to a target.

    check-layers.py SOURCE_FOLDER TARGETS_FILE

A line of TARGETS_FILE: target|folder|source,source…|linked target,linked target…
"""
import os
import re
import sys

INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)
FOLDERS = ("app", "cli", "firmware", "modules", "QxKivEmuLib", "resources", "tools")
NOT_SHIPPED = {"tests", "bench", "fuzz"}


def read_targets(path):
    """Target -> what it links, and file -> its targets."""
    links, owners = {}, {}
    with open(path, encoding="utf-8") as lines:
        for line in filter(None, map(str.strip, lines)):
            target, folder, sources, linked = line.split("|")
            links[target] = [name for name in linked.split(",") if name]
            for source in filter(None, sources.split(",")):
                path = os.path.normpath(os.path.join(folder, source))
                owners.setdefault(path, set()).add(target)
    return links, owners


def reachable(links, target, seen=None):
    seen = set() if seen is None else seen
    if target not in seen:
        seen.add(target)
        for below in links.get(target, []):
            reachable(links, below, seen)
    return seen


def shipped_sources(top):
    for folder in FOLDERS:
        for path, names, files in os.walk(os.path.join(top, folder)):
            names[:] = [name for name in names if name not in NOT_SHIPPED]
            for name in files:
                if name.endswith((".cpp", ".h", ".c")):
                    yield os.path.join(path, name)


def included_files(including, name, by_name):
    """The files of the product that may be meant; none when it is another library's or generated."""
    beside = os.path.normpath(os.path.join(os.path.dirname(including), name))
    if os.path.exists(beside):
        return [beside]
    ending = os.sep + os.path.normpath(name)
    return [path for path in by_name.get(os.path.basename(name), []) if path.endswith(ending)]


def main(top, targets_file):
    links, owners = read_targets(targets_file)
    allowed = {target: reachable(links, target) for target in links}
    by_name = {}
    for path in owners:
        by_name.setdefault(os.path.basename(path), []).append(path)

    faults = []
    for source in shipped_sources(top):
        shown = os.path.relpath(source, top)
        if source not in owners:
            faults.append(f"{shown}: belongs to no target")
            continue
        with open(source, encoding="utf-8") as file:
            text = file.read()
        for match in INCLUDE.finditer(text):
            meant = included_files(source, match.group(1), by_name)
            for target in owners[source]:
                if meant and not any(owners.get(path, set()) & allowed[target] for path in meant):
                    line = text.count("\n", 0, match.start(1)) + 1
                    faults.append(f"{shown}:{line}: {target} must not know "
                                  f"{os.path.relpath(meant[0], top)}")
    print("\n".join(faults) or f"{len(owners)} files keep to their layers")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(os.path.abspath(sys.argv[1]), sys.argv[2]))
