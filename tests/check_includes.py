#!/usr/bin/env python3
"""Fails when a room of src/ includes a room that it may not know, or Qt where no Qt may be."""

import argparse
import pathlib
import re
import sys

ANALYSIS = ["platform", "shell", "source", "model", "structure", "libraries", "calls", "findings", "reach",
            "xgraph", "project", "display"]
WITH_QT = ["widgets", "charts", "canvas", "views", "desktop"]

# Room to the rooms whose headers it may include besides its own.
MAY_INCLUDE = {
    "platform": [],
    "shell": ["platform"],
    "source": ["shell", "platform"],
    "model": ["source", "shell", "platform"],
    "structure": ["source", "model", "shell", "platform"],
    "libraries": ["model", "source", "shell", "platform"],
    "calls": ["structure", "source", "model", "shell", "platform"],
    "findings": ["calls", "structure", "libraries", "source", "model", "shell", "platform"],
    "reach": ["findings", "calls", "structure", "libraries", "source", "model", "shell", "platform"],
    "xgraph": ["findings", "calls", "structure", "libraries", "source", "model", "shell", "platform"],
    "project": ["reach", "findings", "calls", "structure", "libraries", "source", "model", "shell", "platform"],
    "display": [room for room in ANALYSIS if room != "display"],
    "widgets": ANALYSIS,
    "charts": ANALYSIS + ["widgets"],
    "canvas": ANALYSIS + ["widgets"],
    "views": ANALYSIS + ["widgets", "charts", "canvas"],
    "console": ANALYSIS,
    "desktop": ANALYSIS + ["widgets", "charts", "canvas", "views", "console"],
}
SOURCES = {".h", ".hpp", ".cpp", ".cc", ".in"}
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')


def complaints(src):
    canvas_doors = set()  # the views use the diagram through one header
    for path in sorted(p for p in src.rglob("*") if p.suffix in SOURCES):
        parts = path.relative_to(src).parts
        room = parts[0] if len(parts) > 1 else ""
        if room not in MAY_INCLUDE:
            yield path, 0, f"stands in no room: {room or 'src itself'}"
            continue
        for number, line in enumerate(path.read_text(encoding="utf-8", errors="replace").splitlines(), 1):
            found = INCLUDE.match(line)
            if not found:
                continue
            quote, header = found.groups()
            target = header.split("/")[0]
            if re.match(r"Q[A-Z]|Qt[A-Z]", target):
                if room not in WITH_QT:
                    yield path, number, f"{room} knows no Qt: {header}"
            elif target in MAY_INCLUDE and "/" in header:
                if target != room and target not in MAY_INCLUDE[room]:
                    yield path, number, f"{room} may not include {target}: {header}"
                if (room, target) == ("views", "canvas"):
                    canvas_doors.add(header)
                    if len(canvas_doors) > 1:
                        yield path, number, "views use canvas through one header, not " + ", ".join(sorted(canvas_doors))
            elif quote == '"':
                yield path, number, f"no room is named: {header}"


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--root", type=pathlib.Path, default=pathlib.Path(__file__).resolve().parent.parent,
                        help="the repository, which holds src/")
    root = parser.parse_args().root
    src = root / "src"
    if not src.is_dir() or not any(src.rglob("*.cpp")):
        sys.exit(f"{src}: no sources")
    found = list(complaints(src))
    for path, number, text in found:
        print(f"{path.relative_to(root)}:{number}: {text}")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
