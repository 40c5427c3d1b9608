#!/usr/bin/env python3
"""Holdings and capital gains of a portfolio folder, worked out a second time with exact numbers.

    portfolio.py FOLDER statement --client C --year Y [--from D --to D] [--charges ...] [--fo ...]
                                  [--gains ...]        the statement as csv
    portfolio.py FOLDER holdings  --client C --year Y [--all]
    portfolio.py FOLDER compare ACTUAL.csv --client C --year Y [...]
                                  exits 1 and tells the differences of a statement or a holdings
                                  csv; numbers are compared by value, an empty number counts as 0
"""

import argparse
import csv
import sys
from datetime import date
from fractions import Fraction
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))

from exact import Refusal, day, dmy, financial_year, money, number, plain  # noqa: E402
from folder import read  # noqa: E402
from ledger import Ledger  # noqa: E402
from statement import CHARGES, FO, GAINS, Choice, Row, statement  # noqa: E402

TEXT_COLUMNS = ("row", "account_no", "scrip_code", "purchase_date", "sale_date")
HOLDING_COLUMNS = ("account_no", "scrip_code", "rate", "quantity")


def cell(value) -> str:
    """Text, date, money (int paise) or a plain number (Fraction)."""
    if value is None:
        return ""
    if isinstance(value, date):
        return dmy(value)
    if isinstance(value, int):
        return money(value)
    return plain(value) if isinstance(value, Fraction) else value


def statement_cells(ledger: Ledger, client: str, year: str, choice: Choice) -> list[dict]:
    return [dict(zip(Row._fields, map(cell, row))) for row in
            statement(ledger, client, year, choice)]


def holding_cells(ledger: Ledger, client: str, year: str, used_up: bool) -> list[dict]:
    """Lots by account, scrip code and rate; those with nothing left only with `used_up`."""
    return [dict(zip(HOLDING_COLUMNS, map(cell, lot)))
            for lot in ledger.holdings(client, year) if lot[3] or used_up]


def differences(expected: list[dict], actual: list[dict], columns) -> list[str]:
    """One text a differing row: its number, the differing columns and the row as expected."""
    found = []
    for index in range(max(len(expected), len(actual))):
        if index >= len(actual):
            found.append(f"row {index + 1} is missing: {_shown(expected[index])}")
        elif index >= len(expected):
            found.append(f"row {index + 1} is too many: {_shown(actual[index])}")
        else:
            wrong = [name for name in columns
                     if not same(name, expected[index][name], actual[index].get(name))]
            if wrong:
                detail = ", ".join(f"{name} is '{actual[index].get(name)}', not "
                                   f"'{expected[index][name]}'" for name in wrong)
                found.append(f"row {index + 1}: {detail}\n    expected "
                             f"{_shown(expected[index])}")
    return found


def same(column: str, expected: str, actual: str | None) -> bool:
    if actual is None:
        return False
    if column in TEXT_COLUMNS:
        return expected == actual
    try:
        return number(expected) == number(actual)
    except Refusal:
        return False


def _shown(cells: dict) -> str:
    return " ".join(f"{name}={value}" for name, value in cells.items() if value)


def compare(ledger: Ledger, path: str, client: str, year: str, choice: Choice) -> list[str]:
    with open(path, encoding="utf-8-sig", newline="") as file:
        reader = csv.DictReader(file)
        header, actual = reader.fieldnames or [], list(reader)
    if "row" in header:
        expected, columns = statement_cells(ledger, client, year, choice), Row._fields
    else:
        # Lots have no order of their own: both sides are sorted by what identifies a lot.
        columns = HOLDING_COLUMNS
        actual = sorted((one for one in actual if number(one.get("quantity", ""))), key=_lot_key)
        expected = sorted(holding_cells(ledger, client, year, used_up=False), key=_lot_key)
    missing = [name for name in columns if name not in header]
    if missing:
        return [f"columns missing: {', '.join(missing)}"]
    return differences(expected, actual, columns)


def _lot_key(cells: dict):
    return cells["account_no"], cells["scrip_code"], number(cells["rate"])


def _print(cells: list[dict], columns):
    writer = csv.DictWriter(sys.stdout, columns, lineterminator="\n")
    writer.writeheader()
    writer.writerows(cells)


def _arguments(argv):
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("folder")
    commands = parser.add_subparsers(dest="command", required=True)
    for name in ("statement", "holdings", "compare"):
        command = commands.add_parser(name)
        if name == "compare":
            command.add_argument("actual")
        command.add_argument("--client", required=True)
        command.add_argument("--year", required=True)
        if name == "holdings":
            command.add_argument("--all", action="store_true", help="with used-up lots")
        else:
            command.add_argument("--from", dest="start", type=day)
            command.add_argument("--to", dest="end", type=day)
            command.add_argument("--charges", choices=CHARGES, default="none")
            command.add_argument("--fo", choices=FO, default="all")
            command.add_argument("--gains", choices=GAINS, default="all")
    return parser, parser.parse_args(argv)


def _check(parser, arguments, ledger: Ledger):
    if arguments.client not in ledger.portfolio.clients:
        parser.error(f"there is no client {arguments.client}")
    for when in (getattr(arguments, "start", None), getattr(arguments, "end", None)):
        if when and financial_year(when) != arguments.year:
            parser.error(f"{dmy(when)} is not in {arguments.year}")


def main(argv=None) -> int:
    parser, arguments = _arguments(argv)
    try:
        ledger = Ledger(read(arguments.folder))
    except Refusal as refusal:
        print(refusal, file=sys.stderr)
        return 1
    _check(parser, arguments, ledger)
    client, year = arguments.client, arguments.year
    if arguments.command == "holdings":
        _print(holding_cells(ledger, client, year, arguments.all), HOLDING_COLUMNS)
        return 0
    choice = Choice(arguments.start, arguments.end, arguments.charges, arguments.fo,
                    arguments.gains)
    if arguments.command == "statement":
        _print(statement_cells(ledger, client, year, choice), Row._fields)
        return 0
    found = compare(ledger, arguments.actual, client, year, choice)
    for difference in found[:20]:
        print(difference)
    if len(found) > 20:
        print(f"... and {len(found) - 20} more")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
