#!/usr/bin/env python3
"""Prints how much ostrivane-report reads of each type library below a directory, one line each.

    count_libraries.py PROGRAM DIRECTORY            prints the lines
    count_libraries.py PROGRAM DIRECTORY --golden FILE   compares them with a file; exit status 1 if they differ

A file in which the program finds no library is left out; one that is damaged is marked.
"""
import argparse
import difflib
import json
import pathlib
import subprocess
import sys

ENDINGS = {".tlb", ".olb", ".dll", ".ocx", ".exe", ".oca"}
KINDS = ("enum", "record", "union", "module", "interface", "dispatch", "coclass", "alias")


def may_have_library(path):
    if path.suffix.lower() not in ENDINGS or not path.is_file():
        return False
    content = path.read_bytes()
    return content[:4] in (b"MSFT", b"SLTG") or "TYPELIB".encode("utf-16-le") in content


def line_of(program, directory, path):
    run = subprocess.run([program, "--library", str(path), "--json", "-"], capture_output=True, check=False)
    if run.returncode == 2:
        return None
    library = json.loads(run.stdout)
    of_kind = {kind: [t for t in library["types"] if t["kind"] == kind] for kind in KINDS}
    counts = [f"{kind} {len(types)}" for kind, types in of_kind.items()]
    stored = sum(len(t["members"]) for t in library["types"])
    enum_members = sum(len(t["members"]) for t in of_kind["enum"])
    classes = library["classes"]
    seen = (f"classes {len(classes)} members {sum(len(c['members']) for c in classes)}"
            f" events {sum(len(c['events']) for c in classes)} constants {sum(len(c['constants']) for c in classes)}"
            f" enums {len(library['enums'])} records {len(library['records'])}")
    damage = f" | {library['problems'][0]}" if library["problems"] else ""
    return (f"{path.relative_to(directory)} | {library['name']} {library['version']} {library['format']} | "
            f"{' '.join(counts)} | stored members {stored} of enums {enum_members} | {seen}{damage}")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program")
    parser.add_argument("directory", type=pathlib.Path)
    parser.add_argument("--golden", type=pathlib.Path)
    arguments = parser.parse_args()
    paths = sorted(p for p in arguments.directory.rglob("*") if may_have_library(p))
    lines = [line for path in paths if (line := line_of(arguments.program, arguments.directory, path))]
    if not arguments.golden:
        print("\n".join(lines))
        return 0
    golden = arguments.golden.read_text(encoding="utf-8").splitlines()
    difference = list(difflib.unified_diff(golden, lines, "golden file", "read now", lineterm="", n=0))
    print("\n".join(difference) if difference else f"{len(lines)} libraries as in the golden file")
    return 1 if difference else 0


if __name__ == "__main__":
    sys.exit(main())
