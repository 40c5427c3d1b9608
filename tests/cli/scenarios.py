#!/usr/bin/env python3
"""Runs tests/scenarios through quorvanectl; their format is told in the README there."""

import csv
import shutil
import unittest
from pathlib import Path

from ctl import DONE, REFUSED, TESTS, Case

SCENARIOS = TESTS / "scenarios"


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
        for heading, lines in expectations:
            with self.subTest(" ".join(heading)):
                self.check_table(desk, heading, lines)
        self.check_is_well(desk)

    def check_refusal(self, folder: Path, texts: list[str]):
        desk = self.new_desk()
        desk.take_in(SCENARIOS / "common")
        before = desk.export()
        told = desk.take_in(folder, REFUSED)
        for text in texts:
            self.assertIn(text, told)
        self.assertEqual(before, desk.export())

    def check_table(self, desk, heading: list[str], lines: list[str]):
        what, client, year, *options = heading
        ask = {"statement": desk.statement, "holdings": desk.holdings, "demat": desk.demat,
               "transactions": desk.transactions}[what]
        columns, expected = table(lines)
        self.assertEqual(expected, [{name: row[name] for name in columns}
                                    for row in ask(client, year, *options)])


def _add(path: Path):
    setattr(Scenarios, f"test_{path.stem}", lambda self: self.run_file(path))


_paths = sorted(SCENARIOS.glob("*.txt"))
assert _paths, "there are no scenarios"
for _path in _paths:
    _add(_path)

if __name__ == "__main__":
    unittest.main()
