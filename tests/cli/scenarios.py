#!/usr/bin/env python3
"""Runs tests/scenarios through quorvanectl and through the exact computation; their format is told
in the README there."""

import csv
import shutil
import unittest
from pathlib import Path

from ctl import DONE, REFUSED, TESTS, Case

import portfolio
from exact import Refusal, day
from folder import read
from layers import History
from ledger import Ledger
from statement import Choice
from tax import tax_cells

SCENARIOS = TESTS / "scenarios"
OPTIONS = {"--from": ("start", day), "--to": ("end", day), "--charges": ("charges", str),
           "--fo": ("fo", str), "--gains": ("gains", str)}

PRINTED = {"broker-account": ("statement", "broker-account"), "returns": ("returns",)}


def sections(text: str) -> list[tuple[list[str], list[str]]]:
    """(words of the heading, lines) in the order of the file."""
    found: list[tuple[list[str], list[str]]] = []
    for line in text.splitlines():
        if line.startswith("[") and line.endswith("]"):
            found.append((line[1:-1].split(), []))
        elif line and not line.startswith("#"):
            found[-1][1].append(line)
    return found


def table(lines: list[str]) -> tuple[list[str], list[dict]]:
    header, *rows = [[cell.strip() for cell in row] for row in csv.reader(lines)]
    return header, [dict(zip(header, row, strict=True)) for row in rows]


def printed(desk, columns: list[str], what: str, *options: str) -> list[dict]:
    """The rows of the first table of a report for people that has all these columns."""
    lines = desk.run(*PRINTED[what], *options, "--format", "csv").stdout.splitlines()
    header, found = [], []
    for row in csv.reader(lines):
        if not header and set(columns) <= set(row):
            header = row
        elif len(row) == len(header):
            found.append({name: dict(zip(header, row))[name] for name in columns})
        elif found:
            break
    return found


def computed(ledger: Ledger, what: str, client: str, year: str = "", *options: str) -> list[dict] | None:
    """None for what lists the documents; there is nothing to compute."""
    if what == "holdings":
        return portfolio.holding_cells(ledger, client, year, used_up=False)
    if what == "layers":
        return History(ledger).cells(client)
    if what == "tax":
        return tax_cells(History(ledger), client, year)
    if what != "statement":
        return None
    given = {}
    for name, value in zip(options[::2], options[1::2], strict=True):
        field, convert = OPTIONS[name]
        given[field] = convert(value)
    return portfolio.statement_cells(ledger, client, year, Choice(**given))


class Scenarios(Case):
    def run_file(self, path: Path):
        folder = self.new_folder()
        shutil.copytree(SCENARIOS / "common", folder, dirs_exist_ok=True)
        expectations = []
        for heading, lines in sections(path.read_text(encoding="utf-8")):
            if heading[0] == "expect":
                expectations.append((heading[1:], lines))
            else:
                (folder / heading[0]).write_text("\n".join(lines) + "\n", encoding="utf-8")
        self.assertTrue(expectations, "nothing is expected")
        if expectations[0][0] == ["refusal"]:
            self.assertEqual(len(expectations), 1, "nothing else follows from a refusal")
            self.check_refusal(folder, expectations[0][1])
            return
        desk = self.new_desk()
        desk.take_in(folder, DONE)
        ledger = Ledger(read(folder))
        for heading, lines in expectations:
            with self.subTest(" ".join(heading)):
                columns, expected = table(lines)
                if heading[0] in PRINTED:
                    self.assertEqual(expected, printed(desk, columns, *heading))
                    continue
                for actual in (desk.listed(*heading), computed(ledger, *heading)):
                    if actual is not None:
                        self.assertEqual(expected, [{name: row[name] for name in columns}
                                                    for row in actual])
        self.check_is_well(desk)

    def check_refusal(self, folder: Path, texts: list[str]):
        desk = self.new_desk()
        desk.take_in(SCENARIOS / "common")
        before = desk.export()
        told = desk.take_in(folder, REFUSED)
        with self.assertRaises(Refusal) as refusal:
            Ledger(read(folder))
        for text in texts:
            self.assertIn(text, told)
            self.assertIn(text, str(refusal.exception))
        self.assertEqual(before, desk.export())


def _add(path: Path):
    setattr(Scenarios, f"test_{path.stem}", lambda self: self.run_file(path))


_paths = sorted(SCENARIOS.glob("*.txt"))
assert _paths, "there are no scenarios"
for _path in _paths:
    _add(_path)

if __name__ == "__main__":
    unittest.main()
