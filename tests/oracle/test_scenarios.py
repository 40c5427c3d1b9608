"""Runs tests/scenarios against the exact computation; their format is told in the README there."""

import csv
import shutil
import sys
import tempfile
import unittest
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE))

import portfolio  # noqa: E402
from exact import Refusal, day  # noqa: E402
from folder import read  # noqa: E402
from ledger import Ledger  # noqa: E402
from statement import Choice  # noqa: E402

SCENARIOS = HERE.parent / "scenarios"
OPTIONS = {"--from": ("start", day), "--to": ("end", day), "--charges": ("charges", str),
           "--fo": ("fo", str), "--gains": ("gains", str)}


def sections(text: str) -> list[tuple[list[str], list[str]]]:
    """(words of the heading, lines) in the order of the file."""
    found: list[tuple[list[str], list[str]]] = []
    for line in text.splitlines():
        if line.startswith("[") and line.endswith("]"):
            found.append((line[1:-1].split(), []))
        elif line and not line.startswith("#"):
            found[-1][1].append(line)
    return found


def table(lines: list[str]) -> list[dict]:
    header, *rows = [[cell.strip() for cell in row] for row in csv.reader(lines)]
    for row in rows:
        assert len(row) == len(header), f"{len(header)} columns, but {row}"
    return [dict(zip(header, row)) for row in rows]


def choice(words: list[str]) -> Choice:
    given = {}
    for name, value in zip(words[::2], words[1::2], strict=True):
        field, convert = OPTIONS[name]
        given[field] = convert(value)
    return Choice(**given)


class Scenario(unittest.TestCase):
    maxDiff = None

    def run_file(self, path: Path):
        with tempfile.TemporaryDirectory() as name:
            folder = Path(name)
            shutil.copytree(SCENARIOS / "common", folder, dirs_exist_ok=True)
            expectations = []
            for heading, lines in sections(path.read_text(encoding="utf-8")):
                if heading[0] == "expect":
                    expectations.append((heading[1:], lines))
                else:
                    (folder / heading[0]).write_text("\n".join(lines) + "\n", encoding="utf-8")
            self.assertTrue(expectations, "nothing is expected")
            if expectations[0][0] == ["refusal"]:
                with self.assertRaises(Refusal) as refusal:
                    Ledger(read(folder))
                for line in expectations[0][1]:
                    self.assertIn(line, str(refusal.exception))
                return
            ledger = Ledger(read(folder))
        for heading, lines in expectations:
            with self.subTest(" ".join(heading)):
                self.check(ledger, heading, lines)

    def check(self, ledger: Ledger, heading: list[str], lines: list[str]):
        what, client, year, *options = heading
        if what in ("demat", "transactions"):
            return  # lists what the documents hold; there is nothing to compute
        if what == "statement":
            actual = portfolio.statement_cells(ledger, client, year, choice(options))
        else:
            self.assertEqual(what, "holdings")
            actual = portfolio.holding_cells(ledger, client, year, used_up=False)
        expected = table(lines)
        columns = [cell.strip() for cell in lines[0].split(",")]
        self.assertEqual(expected, [{name: row[name] for name in columns} for row in actual])


def load_tests(loader, tests, pattern):
    suite = unittest.TestSuite()
    paths = sorted(SCENARIOS.glob("*.txt"))
    assert paths, "there are no scenarios"
    for path in paths:
        suite.addTest(loader.loadTestsFromTestCase(_case(path)))
    return suite


def _case(path: Path):
    def run(self):
        self.run_file(path)

    return type(path.stem, (Scenario,), {f"test_{path.stem}": run})


if __name__ == "__main__":
    unittest.main()
