"""Holdings and capital gains, worked out a second time with exact numbers, in the cells of the
program's csv."""

from datetime import date
from fractions import Fraction

from exact import dmy, money, plain
from ledger import Ledger
from statement import Choice, Row, statement

HOLDING_COLUMNS = ("account_no", "scrip_code", "rate", "quantity")


def cell(value) -> str:
    """Text, date, money (int paise) or a plain number (Fraction)."""
    if value is None:
        return ""
    if isinstance(value, date):
        return dmy(value)
    if isinstance(value, int):
        return money(value)
    if isinstance(value, Fraction):
        text = plain(value)
        # The program prints at most fifteen digits.
        return text if len(text) <= 16 else f"{float(value):.15g}"
    return value


def statement_cells(ledger: Ledger, client: str, year: str, choice: Choice) -> list[dict]:
    return [dict(zip(Row._fields, map(cell, row))) for row in
            statement(ledger, client, year, choice)]


def holding_cells(ledger: Ledger, client: str, year: str, used_up: bool) -> list[dict]:
    """Lots by account, scrip code and rate; those with nothing left only with `used_up`."""
    return [dict(zip(HOLDING_COLUMNS, map(cell, lot)))
            for lot in ledger.holdings(client, year) if lot[3] or used_up]
