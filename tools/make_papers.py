#!/usr/bin/env python3
"""Makes a depository's statement and a contract note that fit the sample portfolio, for the pictures
of their windows: make_papers.py CTL APPLICATION_FOLDER IN_FOLDER. The ISINs are made up."""

import csv
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests" / "cli"))

import pdf  # noqa: E402

CLIENT = "ATH001"
DAY = "31/03/2012"
NUMBERS = {"10014501": "IN30999110014501"}


def isin(number: int) -> str:
    """With its check digit: letters as numbers, every second digit from the right doubled."""
    body = f"INE9{number:03d}A010"
    digits = "".join(str(int(letter, 36)) for letter in body)
    total = sum(sum(divmod(int(digit) * (2 if place % 2 == 0 else 1), 10))
                for place, digit in enumerate(reversed(digits)))
    return body + str(-total % 10)


def run(ctl: str, app: str, *arguments) -> str:
    return subprocess.run([ctl, "--quiet", "--data", app, *arguments], check=True,
                          capture_output=True, text=True).stdout


def main(ctl: str, app: str, folder: Path):
    held = {}
    for row in csv.DictReader(run(ctl, app, "layers", "--client", CLIENT, "--as-on",
                                  DAY).splitlines()):
        if row["row"] == "layer":
            place = row["account_no"], row["scrip_code"]
            held[place] = held.get(place, 0) + float(row["quantity"])
    codes = sorted({code for _, code in held})
    isins = {code: isin(place) for place, code in enumerate(codes)}
    portfolio = folder / "isins"
    portfolio.mkdir(parents=True)
    (portfolio / "isins.csv").write_text("scrip_code,isin,from_date\n" + "".join(
        f"{code},{isins[code]},\n" for code in codes))
    run(ctl, app, "import", str(portfolio))

    lines = [f"Holdings as on {DAY}"]
    for account in sorted({account for account, _ in held}):
        lines += ["BO ID : " + NUMBERS.get(account, account),
                  "ISIN            Company Name                    Balance"]
        rows = [(isins[code], code, quantity) for (at, code), quantity in sorted(held.items())
                if at == account]
        for place, (number, code, quantity) in enumerate(rows):
            shown = {1: quantity * 2, 3: quantity * 3 // 2}.get(place, quantity)
            if place != 5:
                lines.append(f"{number}    {code:<28}    {shown:g}")
        lines.append(f"{isin(990)}    KRISHNA PAPER MILLS LTD         25")
    paper = folder / "FrmReconcile"
    paper.mkdir()
    pdf.write(paper / "statement.pdf", "\n".join(lines))

    first, second = isins[codes[0]], isins[codes[1]]
    notes = folder / "ImpNotes"
    notes.mkdir()
    pdf.write(notes / "note.pdf", f"""
KALYANVRIKSHA SHARE BROKERS PVT LTD
CONTRACT NOTE CUM TAX INVOICE
Contract Note No. : KV/2012/0412     Trade Date : 02-Feb-2012
ISIN           Security Name     BUY                                        SELL
{first}   SECURITY ONE      40 412.5000 0.5000 413.0000 16520.00 40 16520.00
{second}   SECURITY TWO      15 96.2000 0.1000 96.3000 1444.50 15 1444.50
{isin(991)}   KAVERI FOODS LTD  20 55.0000 0.0500 55.0500 1101.00 20 1101.00
Pay in/Pay out obligation  (19065.50)
Exchange transaction charges  (0.62)
CGST  (1.12)
SGST  (1.12)
Securities transaction tax  (19.00)
SEBI turnover fees  (0.02)
Stamp duty  (3.00)
Net amount receivable/(payable by client)  (19090.38)
""")


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2], Path(sys.argv[3]))
