#!/usr/bin/env python3
"""Checks the order of the source folders: includes run down only, never in a circle, and SQL and
the system's own calls stay in their places. Usage: floors.py SOURCE_ROOT"""

import pathlib
import re
import sys

# From the ground up; a folder may include its own floor and those below.
FLOORS = [
    {"core"},
    {"controls"},
    {"masters", "reports", "admin"},
    {"transactions"},
    {"portfolio"},
    {"ui", "cli", "reader"},
]
WINDOW = re.compile(r"^(Frm|frm|Rpt|ImpScr|MDIForm|RepairTable)|(View|Viewer|Page|Pane|Window)\.|^main\.cpp$")
SQL = re.compile(r'"(Select [^"]* From |Insert Into |Update \w+ Set |Delete From |Alter Table |Create Table )')
SYSTEM = re.compile(r"#include <(unistd|fcntl|signal|csignal|sys/[a-z]+|pwd)(\.h)?>")
# The terminal is the command line's own business.
SYSTEM_PLACES = ("src/core/platform/", "src/cli/TerminalProgress.cpp")


def floor_of(path):
    top = path.split("/")[1] if path.startswith("src/") else path.split("/")[0]
    for number, folders in enumerate(FLOORS):
        if top in folders:
            return number
    return len(FLOORS)


def includes_of(text):
    return re.findall(r'^#include "([^"]+)"', text, re.MULTILINE)


def circles(graph):
    done, path = set(), []

    def visit(node):
        if node in path:
            return [" -> ".join([*path[path.index(node):], node])]
        if node in done:
            return []
        path.append(node)
        found = [circle for target in graph.get(node, ()) for circle in visit(target)]
        path.pop()
        done.add(node)
        return found

    return [circle for node in sorted(graph) for circle in visit(node)]


def check(root):
    errors, graph = [], {}
    files = sorted(p for p in (root / "src").rglob("*") if p.suffix in (".h", ".cpp"))
    if not files:
        return ["no source file was found"]
    for file in files:
        name, text = str(file.relative_to(root)), file.read_text(encoding="utf-8")
        graph[name] = [f"src/{one}" for one in includes_of(text)]
        errors += [f"{name} includes {one}, which lies above it" for one in graph[name]
                   if floor_of(one) > floor_of(name)]
        errors += [f"{name} includes {one}, which does not exist" for one in graph[name]
                   if not (root / one).exists()]
        if (WINDOW.match(file.name) or floor_of(name) == floor_of("src/cli/x")) and SQL.search(text):
            errors.append(f"{name} holds SQL; it belongs into a model")
        if SYSTEM.search(text) and not name.startswith(SYSTEM_PLACES):
            errors.append(f"{name} calls the system; that belongs into src/core/platform")
    return errors + [f"a circle of includes: {one}" for one in circles(graph)]


if __name__ == "__main__":
    found = check(pathlib.Path(sys.argv[1]))
    print("\n".join(found) or "the floors hold")
    sys.exit(1 if found else 0)
