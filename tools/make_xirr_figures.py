#!/usr/bin/env python3
"""Makes tests/reports/performance/xirr.csv: 50 random sets of cash flows and the XIRR that
LibreOffice Calc computes of each. Needs LibreOffice (soffice), which the project itself does not.
Usage: make_xirr_figures.py"""

import csv
import random
import subprocess
import sys
import tempfile
from datetime import date, timedelta
from pathlib import Path

import openpyxl

SETS = 50
OUT = Path(__file__).resolve().parent.parent / "tests" / "reports" / "performance" / "xirr.csv"


def rupees(low: float, high: float) -> float:
    return round(random.uniform(low, high), 2)


def flows() -> list[tuple[date, float]]:
    """Money that goes in and out over some years, and a value at the end."""
    first = date(2005, 4, 1) + timedelta(random.randrange(4000))
    days = sorted(random.sample(range(1, random.choice((40, 400, 1500, 6000))), random.randrange(1, 14)))
    put_in = rupees(1000, 500000)
    result = [(first, -put_in)]
    for day in days[:-1]:
        amount = rupees(100, 60000)
        came_out = random.random() < 0.4
        result.append((first + timedelta(day), amount if came_out else -amount))
        put_in += -amount if came_out else amount
    end = max(put_in, 1000) * random.uniform(0.4, 1 + days[-1] / 700)
    return [*result, (first + timedelta(days[-1]), round(end, 2))]


def computed(sets: list[list[tuple[date, float]]]) -> list[str]:
    """What LibreOffice makes of a workbook with the sets in its columns."""
    book = openpyxl.Workbook()
    sheet = book.active
    for number, of_set in enumerate(sets):
        days, amounts = (openpyxl.utils.get_column_letter(2 * number + i) for i in (1, 2))
        last = len(of_set) + 1
        for row, (day, amount) in enumerate(of_set, start=2):
            sheet[f"{days}{row}"], sheet[f"{amounts}{row}"] = day, amount
        sheet[f"{days}1"] = f"=XIRR({amounts}2:{amounts}{last},{days}2:{days}{last})"
        sheet[f"{days}1"].number_format = "0.000000000000"
    with tempfile.TemporaryDirectory() as folder:
        book.save(Path(folder) / "xirr.xlsx")
        subprocess.run(["soffice", "--headless", f"-env:UserInstallation=file://{folder}/profile",
                        "--convert-to", "csv", "--outdir", folder, f"{folder}/xirr.xlsx"],
                       check=True, stdout=subprocess.DEVNULL)
        with open(Path(folder) / "xirr.csv", encoding="utf-8") as made:
            return next(csv.reader(made))[0:2 * len(sets):2]


def main():
    random.seed(20180131)
    candidates = [flows() for _ in range(2 * SETS)]
    found = [(of_set, rate) for of_set, rate in zip(candidates, computed(candidates), strict=True)
             if rate.lstrip("-")[:1].isdigit()]
    if len(found) < SETS:
        sys.exit(f"LibreOffice computed {len(found)} sets only")
    with open(OUT, "w", encoding="utf-8", newline="") as out:
        writer = csv.writer(out, lineterminator="\n")
        writer.writerow(("set", "day", "amount", "xirr"))
        for number, (of_set, rate) in enumerate(found[:SETS], start=1):
            for place, (day, amount) in enumerate(of_set):
                writer.writerow((number, day.strftime("%d/%m/%Y"), f"{amount:.2f}",
                                 rate if place == 0 else ""))


if __name__ == "__main__":
    main()
