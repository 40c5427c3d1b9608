#!/usr/bin/env python3
"""Figures on paper, in the workbook, in rich text and in plain text are the same, to the paisa, and
every total of the workbook is the sum of its lines."""

import datetime
import re
import subprocess
import tempfile
import unittest
from decimal import Decimal
from pathlib import Path

import openpyxl

import base
import ctl

FIGURE = re.compile(r"(?<![\w.])-?\d[\d,]*\.\d\d(?:\d)?(?![\d.])|\d\d/\d\d/\d{4}")
FORMATS = {"#0.00": "{:.2f}", "#0.000": "{:.3f}", "###,###.00": "{:,.2f}"}


def text_of_rtf(content: str) -> str:
    """What a word processor shows of the program's rich text."""
    content = re.sub(r"\{\\(fonttbl|footer)(?:[^{}]|\{[^{}]*\}|\{(?:[^{}]|\{[^{}]*\})*\})*\}", "",
                     content)
    content = re.sub(r"\\u(-?\d+)\?", lambda m: chr(int(m[1]) % 65536), content)
    content = re.sub(r"\\(cell|row|par|line)\b", " \n", content)
    return re.sub(r"\\[a-z*]+-?\d* ?|[{}]", "", content)


def text_of_cell(cell) -> str:
    if isinstance(cell.value, datetime.datetime):
        return cell.value.strftime("%d/%m/%Y")
    if isinstance(cell.value, (int, float)):
        return FORMATS.get(cell.number_format, "{}").format(Decimal(repr(cell.value)))
    return str(cell.value or "")


def text_of_workbook(path: Path) -> str:
    sheet = openpyxl.load_workbook(path).worksheets[0]
    return "\n".join(" ".join(text_of_cell(cell) for cell in row) for row in sheet.iter_rows())


def text_of_pages(path: Path) -> str:
    """Without the titles that are repeated at the head of the later pages."""
    pages = subprocess.run(["pdftotext", "-layout", path, "-"], check=True, capture_output=True,
                           text=True).stdout.split("\f")
    return "\n".join([pages[0], *(page.lstrip().partition("\n")[2] for page in pages[1:])])


class Outputs(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(dir=ctl.roomy_memory())
        cls.addClassCleanup(folder.cleanup)
        cls.demo = Path(folder.name) / "demo"
        cls.addClassCleanup(ctl.end_servers, cls.demo / "data")
        ctl.run(Path(folder.name) / "unused", "demo", "--out", cls.demo)
        cls.stems = sorted(path.with_suffix("") for path in cls.demo.glob("*.pdf"))

    def test_no_file_is_open_to_others(self):
        files = [path for path in self.demo.iterdir()]
        self.assertGreater(len(files), 10)
        self.assertEqual([], [path.name for path in files if path.stat().st_mode & 0o077])

    def test_figures_agree_in_every_format(self):
        self.assertGreater(len(self.stems), 40)
        for stem in self.stems:
            with self.subTest(stem.name):
                figures = FIGURE.findall(Path(f"{stem}.txt").read_text())
                self.assertGreater(len(figures), 10)
                self.assertEqual(FIGURE.findall(text_of_workbook(Path(f"{stem}.xlsx"))), figures)
                self.assertEqual(FIGURE.findall(text_of_rtf(Path(f"{stem}.rtf").read_text())),
                                 figures)
                self.assertEqual(FIGURE.findall(text_of_pages(Path(f"{stem}.pdf"))), figures)
                if stem.name.endswith("summary"):
                    csv = Path(f"{stem}.csv").read_text().replace(",", " ")
                    self.assertEqual(FIGURE.findall(csv), figures)

    def test_totals_of_the_workbook_are_sums(self):
        for stem in (stem for stem in self.stems if stem.name.endswith("gain-summary")):
            sheet = openpyxl.load_workbook(f"{stem}.xlsx").worksheets[0]
            lines, group, whole = [], [], []
            for row in sheet.iter_rows(min_row=6, values_only=True):
                amounts = [Decimal(repr(value) if isinstance(value, (int, float)) else 0)
                           for value in row[7:12]]  # "Transfer" is no amount
                if isinstance(row[0], (int, float)):
                    group.append(amounts)
                elif row[1] == "Total":
                    self.assertEqual(amounts, [sum(column) for column in zip([0] * 5, *group)],
                                     stem.name)
                    whole += group
                    group = []
                elif row[1] == "Net Total":
                    self.assertEqual(amounts, [sum(column) for column in zip(*whole)], stem.name)
                    lines = whole
            self.assertTrue(lines, stem.name)

    def test_clients_whose_codes_make_one_file_name_have_a_file_each(self):
        with tempfile.TemporaryDirectory(dir=ctl.roomy_memory()) as folder:
            contents = {name: content.replace("AN,", "A/N,").replace("BI,", "A_N,")
                        for name, content in base.BASE.items()}
            source = base.write(Path(folder) / "in", contents)
            data = Path(folder) / "data"
            self.addCleanup(ctl.end_servers, data)
            ctl.run(data, "import", source)
            ctl.run(data, "statement", "broker-ledger", "--all", "--year", "2011-12", "--format",
                    "csv", "--out", Path(folder) / "out")
            self.assertEqual({"A_N.csv", "A_N (2).csv"},
                             {path.name for path in (Path(folder) / "out").iterdir()})

    def test_binary_formats_do_not_go_to_the_terminal(self):
        said = ctl.run(self.demo / "data", "statement", "profit", "--client", "ATH001", "--year",
                       "2011-12", "--format", "pdf", status=ctl.WRONG_USAGE).stderr
        self.assertIn("--out", said)


if __name__ == "__main__":
    unittest.main()
