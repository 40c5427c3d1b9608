#!/usr/bin/env python3
"""Checks the order of the source folders: includes run down only, never in a circle and never from
one feature to another, and SQL and the system's own calls stay in their places. Usage: floors.py SOURCE_ROOT"""

import pathlib
import re
import sys

# From the ground up; a folder may include its own floor and those below. The features stand side by
# side: none includes another.
FLOORS = [
    {"core"},
    {"controls"},
    {"documents", "reporting"},
    {"masters", "transactions", "reports", "admin", "portfolio"},
    {"ui", "cli", "reader"},
]
SIDE_BY_SIDE = FLOORS[2] | FLOORS[3]
ALL_WINDOWS = {"controls", "ui"}
SQL = re.compile(r'"(Select [^"]* From |Insert Into |Update \w+ Set |Delete From |Alter Table |Create Table )')
# Records are written by records::Writer and deleted by records::Delete, which log what changes.
RECORDS = ("LoginId|ClientInfo|ClientActDet|RemovedAccount|DepPart|DpIDs|Broker|Script|ScripIsin|ScriptType|"
           "ScriptClass|Exchange|STTPer|TransTaxPer|CorpAction|CorpActionLot|Dividend|StkOpBal|BrOpBal|"
           "SPMaster|SPTrans|ScrTransfer|BrPayment|BrRec|MarketRate|UserRight|"
           "FairValue|TaxLoss|OpeningMark|StatementCheck")
WRITES = re.compile(r'"(?:Insert (?:Ignore )?Into|Replace Into|Delete From|Delete \w+ From|Update) '
                    r'`?(?:' + RECORDS + r'|\{\w*\})(?![A-Za-z])', re.IGNORECASE)
# Works of many rows, each one entry of the log, and the schema's own.
WRITING_PLACES = ("src/core/database/", "src/core/rates/RateBook.cpp", "src/core/rates/IsinBook.cpp",
                  "src/masters/imports/ScripWriter.cpp", "src/masters/clients/ClientBook.cpp",
                  "src/admin/repair/DoubleKeys.cpp", "src/admin/backup/")
SYSTEM = re.compile(r"#include <(unistd|fcntl|signal|csignal|sys/[a-z]+|pwd)(\.h)?>")
# The terminal is the command line's own business.
SYSTEM_PLACES = ("src/core/platform/", "src/cli/TerminalProgress.cpp")


def top_of(path):
    return path.split("/")[1]


def floor_of(path):
    for number, folders in enumerate(FLOORS):
        if top_of(path) in folders:
            return number
    return len(FLOORS)


def is_window(path):
    return "/window/" in path or top_of(path) in ALL_WINDOWS


def goes_wrong(path, target):
    """Why the one file may not include the other; empty when it may."""
    if floor_of(target) > floor_of(path):
        return "lies above it"
    if top_of(target) != top_of(path) and {top_of(path), top_of(target)} <= SIDE_BY_SIDE and (
            floor_of(target) == floor_of(path)):
        return "stands beside it"
    if is_window(target) and not is_window(path) and top_of(path) not in ("main.cpp", "reader"):
        return "is a window's"
    return ""


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
        errors += [f"{name} includes {one}, which {why}" for one in graph[name]
                   if (why := goes_wrong(name, one))]
        errors += [f"{name} includes {one}, which does not exist" for one in graph[name]
                   if not (root / one).exists()]
        if (is_window(name) or top_of(name) == "cli") and SQL.search(text):
            errors.append(f"{name} holds SQL; it belongs into a model")
        if WRITES.search(text) and not name.startswith(WRITING_PLACES):
            errors.append(f"{name} writes records past the log of changes")
        if SYSTEM.search(text) and not name.startswith(SYSTEM_PLACES):
            errors.append(f"{name} calls the system; that belongs into src/core/platform")
    return errors + [f"a circle of includes: {one}" for one in circles(graph)]


if __name__ == "__main__":
    found = check(pathlib.Path(sys.argv[1]))
    print("\n".join(found) or "the floors hold")
    sys.exit(1 if found else 0)
