"""Reads the files of a portfolio folder that decide quantities and gains."""

import csv
from datetime import date
from fractions import Fraction
from pathlib import Path
from typing import NamedTuple

from exact import day, financial_year, number


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
    no_lot: bool = False  # a sale that takes from none


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


class Action(NamedTuple):
    kind: str
    scrip: str
    ex_day: date
    record_day: date | None
    allotment: date | None
    new: Fraction
    old: Fraction
    other: str
    price: Fraction
    percent: Fraction
    given: dict[str, list[Fraction]] | None = None  # or subscribed: account -> shares, lot by lot


class Loss(NamedTuple):
    """Brought forward into a year."""

    client: str
    year: str
    kind: str
    amount: Fraction
    loss_year: str


class Portfolio(NamedTuple):
    clients: dict[str, str]   # code -> name
    accounts: dict[str, str]  # account number -> client code
    scrips: dict[str, str]    # code -> name
    openings: list[Opening]
    bills: list[Bill]
    transfers: list[Transfer]
    actions: list[Action]
    fair_values: dict[str, Fraction] = {}  # scrip code -> highest price of 31/01/2018
    losses: list[Loss] = []


def _rows(folder: Path, name: str):
    """The rows of a file with their line number in it; a missing file has none. What the program
    refuses is no business of the computation."""
    path = folder / name
    if path.exists():
        with path.open(encoding="utf-8-sig", newline="") as file:
            reader = csv.DictReader(file, restval="")
            for row in reader:
                yield reader.line_num, row


class _Reader:
    def __init__(self, folder: Path):
        self.folder = folder
        self.clients = self.keyed("clients.csv", "code", "name")
        self.accounts = self.keyed("accounts.csv", "account_no", "client_code")
        self.scrips = self.keyed("scrips.csv", "code", "name")

    def keyed(self, name: str, key: str, value: str) -> dict[str, str]:
        return {row[key]: row[value] for _row_number, row in _rows(self.folder, name)}

    def openings(self) -> list[Opening]:
        return [Opening(
            row["client_code"], row["account_no"], row["fyear"], row["scrip_code"],
            number(row["quantity"]), number(row["rate"]), day(row["purchase_date"]),
            number(row.get("service_tax", "")), number(row.get("brokerage", "")),
            number(row.get("stt", "")), row.get("fo", "") == "1")
            for _row_number, row in _rows(self.folder, "opening.csv")]

    def bills(self) -> list[Bill]:
        bills: dict[tuple, Bill] = {}
        for row_number, row in _rows(self.folder, "bills.csv"):
            client, account, when = row["client_code"], row["account_no"], day(row["bill_date"])
            key = (client, account, row["broker"], row["bill_no"], when,
                   number(row.get("bill_part", "") or "1"))
            bill = bills.setdefault(key, Bill(client, account, when, len(bills), []))
            bill.lines.append(self._line(row_number, row))
        return list(bills.values())

    @staticmethod
    def _line(row_number: int, row: dict) -> Line:
        lot_rate = row.get("lot_rate", "")
        return Line(
            row["side"] == "P", row["scrip_code"], number(row["quantity"]), number(row["rate"]),
            number(row.get("brokerage", "")), number(row.get("service_tax", "")),
            number(row.get("stt", "")), row.get("fo", "") == "1",
            number(lot_rate) if lot_rate not in ("", "none") else None,
            row.get("delivery_type", "") == "Non Delivery Based", row_number, lot_rate == "none")

    def transfers(self) -> list[Transfer]:
        return [Transfer(day(row["date"]), row["from_account"], row["to_account"],
                         row["scrip_code"], number(row["rate"]), number(row["quantity"]),
                         row_number)
                for row_number, row in _rows(self.folder, "transfers.csv")]

    def actions(self) -> list[Action]:
        def maybe_day(text: str) -> date | None:
            return day(text) if text else None

        return [Action(row["kind"], row["scrip_code"], day(row["ex_date"]),
                       maybe_day(row.get("record_date", "")),
                       maybe_day(row.get("allotment_date", "")), number(row.get("new", "")),
                       number(row.get("old", "")), row.get("other_scrip_code", ""),
                       number(row.get("price", "")), number(row.get("cost_percent", "")),
                       self._given(n, row["kind"]))
                for n, (_row_number, row) in
                enumerate(_rows(self.folder, "corporate_actions.csv"), 1)]

    def _given(self, action: int, kind: str) -> dict[str, list[Fraction]] | None:
        """What the folder says about rights and buy-backs, where it says anything."""
        column = {"rights": "in", "buy-back": "out"}.get(kind)
        if not column or not (self.folder / "corporate_action_lots.csv").exists():
            return None
        given: dict[str, list[Fraction]] = {}
        for _row_number, row in _rows(self.folder, "corporate_action_lots.csv"):
            if row["action"] == str(action):
                given.setdefault(row["account_no"], []).append(number(row[column]))
        return given

    def losses(self) -> list[Loss]:
        return [Loss(row["client_code"], row["fyear"], row["kind"], number(row["amount"]),
                     row["loss_year"]) for _row_number, row in _rows(self.folder, "tax_losses.csv")]


def read(path) -> Portfolio:
    reader = _Reader(Path(path))
    return Portfolio(reader.clients, reader.accounts, reader.scrips, reader.openings(),
                     reader.bills(), reader.transfers(), reader.actions(),
                     {code: number(rate) for code, rate in
                      reader.keyed("fair_values.csv", "scrip_code", "rate").items()},
                     reader.losses())


def years(portfolio: Portfolio) -> list[str]:
    found = {opening.year for opening in portfolio.openings}
    found.update(financial_year(bill.date) for bill in portfolio.bills)
    found.update(financial_year(transfer.date) for transfer in portfolio.transfers)
    found.update(financial_year(action.ex_day) for action in portfolio.actions)
    return sorted(found)
