"""Reads the files of a portfolio folder that decide quantities and gains."""

import csv
from datetime import date
from fractions import Fraction
from pathlib import Path
from typing import NamedTuple

from exact import Refusal, day, financial_year, number

# file -> (columns that must have a value, columns that may be empty or missing)
COLUMNS = {
    "clients.csv": (
        ("code", "name"),
        ("group_code", "address", "city", "state", "pin", "std", "phone", "mobile", "fax",
         "email", "dob", "pan", "sex", "marital_status"),
    ),
    "accounts.csv": (("client_code", "account_no"), ("participant", "dp_id")),
    "scrips.csv": (("code", "name"), ("ncode", "type", "class")),
    "opening.csv": (
        ("client_code", "account_no", "fyear", "scrip_code", "quantity", "rate", "purchase_date"),
        ("service_tax", "brokerage", "stt", "fo"),
    ),
    "bills.csv": (
        ("client_code", "account_no", "bill_no", "bill_date", "broker", "side", "scrip_code",
         "quantity", "rate"),
        ("exchange", "settlement_no", "brokerage", "service_tax", "stt", "stt_percent",
         "delivery_type", "fo", "lot_rate", "other_charges", "transaction_charges",
         "bill_part"),
    ),
    "transfers.csv": (
        ("date", "from_account", "to_account", "scrip_code", "rate", "quantity"),
        (),
    ),
}


class Opening(NamedTuple):
    client: str
    account: str
    year: str
    scrip: str
    quantity: Fraction
    rate: Fraction
    date: date
    service_tax: Fraction
    brokerage: Fraction
    stt: Fraction
    fo: bool


class Line(NamedTuple):
    """A line of a bill. A sale has a lot rate as soon as it is known which lot it takes from."""

    purchase: bool
    scrip: str
    quantity: Fraction
    rate: Fraction
    brokerage: Fraction
    service_tax: Fraction
    stt: Fraction
    fo: bool
    lot_rate: Fraction | None
    non_delivery: bool
    row: int


class Bill(NamedTuple):
    client: str
    account: str
    date: date
    order: int
    lines: list[Line]


class Transfer(NamedTuple):
    date: date
    source: str
    target: str
    scrip: str
    rate: Fraction
    quantity: Fraction
    row: int


class Portfolio(NamedTuple):
    clients: dict[str, str]   # code -> name
    accounts: dict[str, str]  # account number -> client code
    scrips: dict[str, str]    # code -> name
    openings: list[Opening]
    bills: list[Bill]
    transfers: list[Transfer]


def _rows(folder: Path, name: str):
    """The rows of a file with their line number in it; a missing file has none."""
    path = folder / name
    if not path.exists():
        return
    needed, optional = COLUMNS[name]
    with path.open(encoding="utf-8-sig", newline="") as file:
        reader = csv.DictReader(file, restval="")
        header = reader.fieldnames or []
        for column in header:
            if column not in needed + optional:
                raise Refusal(f"{name}: unknown column '{column}'")
        for column in needed:
            if column not in header:
                raise Refusal(f"{name}: column '{column}' is missing")
        for row in reader:
            where = f"{name} line {reader.line_num}"
            if None in row:
                raise Refusal(f"{where}: too many cells")
            for column in needed:
                if not row[column]:
                    raise Refusal(f"{where}: {column} is empty")
            yield reader.line_num, row


class _Reader:
    def __init__(self, folder: Path):
        self.folder = folder
        self.clients = self._keyed("clients.csv", "code", "name")
        self.accounts = self._keyed("accounts.csv", "account_no", "client_code")
        self.scrips = self._keyed("scrips.csv", "code", "name")

    def _keyed(self, name: str, key: str, value: str) -> dict[str, str]:
        result: dict[str, str] = {}
        for row_number, row in _rows(self.folder, name):
            if row[key] in result:
                raise Refusal(f"{name} line {row_number}: {key} '{row[key]}' is there already")
            result[row[key]] = row[value]
        return result

    def _each(self, name: str, make):
        for row_number, row in _rows(self.folder, name):
            try:
                yield make(row_number, row)
            except Refusal as refusal:
                raise Refusal(f"{name} line {row_number}: {refusal}") from None

    def _check(self, client: str, account: str, scrip: str):
        if self.accounts.get(account) != client:
            raise Refusal(f"client '{client}' has no account '{account}'")
        self._check_scrip(scrip)

    def _check_scrip(self, scrip: str):
        if scrip not in self.scrips:
            raise Refusal(f"there is no scrip '{scrip}'")

    def openings(self) -> list[Opening]:
        return list(self._each("opening.csv", self._opening))

    def _opening(self, _row_number: int, row: dict) -> Opening:
        self._check(row["client_code"], row["account_no"], row["scrip_code"])
        return Opening(
            row["client_code"], row["account_no"], row["fyear"], row["scrip_code"],
            _positive(row["quantity"]), number(row["rate"]), day(row["purchase_date"]),
            number(row.get("service_tax", "")), number(row.get("brokerage", "")),
            number(row.get("stt", "")), _flag(row.get("fo", "")))

    def bills(self) -> list[Bill]:
        bills: dict[tuple, Bill] = {}
        for key, line in self._each("bills.csv", self._line):
            client, account, _broker, _number, when, _part = key
            bill = bills.get(key)
            if bill is None:
                bill = bills[key] = Bill(client, account, when, len(bills), [])
            bill.lines.append(line)
        return list(bills.values())

    def _line(self, row_number: int, row: dict) -> tuple[tuple, Line]:
        self._check(row["client_code"], row["account_no"], row["scrip_code"])
        if row["side"] not in ("P", "S"):
            raise Refusal(f"side '{row['side']}' is neither P nor S")
        lot_rate = row.get("lot_rate", "")
        line = Line(
            row["side"] == "P", row["scrip_code"], _positive(row["quantity"]),
            number(row["rate"]), number(row.get("brokerage", "")),
            number(row.get("service_tax", "")), number(row.get("stt", "")),
            _flag(row.get("fo", "")), number(lot_rate) if lot_rate else None,
            row.get("delivery_type", "") == "Non Delivery Based", row_number)
        key = (row["client_code"], row["account_no"], row["broker"], row["bill_no"],
               day(row["bill_date"]), number(row.get("bill_part", "") or "1"))
        return key, line

    def transfers(self) -> list[Transfer]:
        return list(self._each("transfers.csv", self._transfer))

    def _transfer(self, row_number: int, row: dict) -> Transfer:
        for account in (row["from_account"], row["to_account"]):
            if account not in self.accounts:
                raise Refusal(f"there is no account '{account}'")
        if row["from_account"] == row["to_account"]:
            raise Refusal("a transfer goes to another account")
        self._check_scrip(row["scrip_code"])
        return Transfer(day(row["date"]), row["from_account"], row["to_account"],
                        row["scrip_code"], number(row["rate"]), _positive(row["quantity"]),
                        row_number)


def _positive(text: str) -> Fraction:
    value = number(text)
    if value <= 0:
        raise Refusal("quantity is not above zero")
    return value


def _flag(text: str) -> bool:
    if text not in ("", "0", "1"):
        raise Refusal(f"fo '{text}' is neither 0 nor 1")
    return text == "1"


def read(path) -> Portfolio:
    """Reads a portfolio folder; raises Refusal with file and line."""
    reader = _Reader(Path(path))
    return Portfolio(reader.clients, reader.accounts, reader.scrips, reader.openings(),
                     reader.bills(), reader.transfers())


def years(portfolio: Portfolio) -> list[str]:
    found = {opening.year for opening in portfolio.openings}
    found.update(financial_year(bill.date) for bill in portfolio.bills)
    found.update(financial_year(transfer.date) for transfer in portfolio.transfers)
    return sorted(found)
