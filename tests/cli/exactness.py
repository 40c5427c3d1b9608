#!/usr/bin/env python3
"""A random portfolio is taken in, and every line, lot and statement compared with the exact
computation in tests/oracle, to the paisa.

    exactness.py [--lines 10000] [--seed S] [--portfolios N] [unittest options]

--lines 100000 takes one to two minutes. The seed is told, so that a failure can be had again.
"""

import argparse
import sys
import unittest
from collections import defaultdict
from pathlib import Path
from types import SimpleNamespace

from ctl import Case, files, generate, rows

import portfolio
from exact import day, number
from folder import read, years
from layers import History
from ledger import Ledger
from statement import Choice, remaining
from tax import tax_cells

YEARS = ("2011-12", "2012-13")
OPTIONS = {"start": "--from", "end": "--to", "charges": "--charges", "fo": "--fo",
           "gains": "--gains"}
CHOICES = (
    ("2011-12", {}),
    ("2011-12", {"charges": "stax"}),
    ("2011-12", {"charges": "stt"}),
    ("2011-12", {"charges": "both"}),
    ("2011-12", {"fo": "fo", "charges": "both"}),
    ("2011-12", {"fo": "non-fo", "charges": "stt"}),
    ("2011-12", {"gains": "speculation"}),
    ("2011-12", {"gains": "non-speculation", "charges": "both"}),
    ("2011-12", {"start": "01/07/2011", "end": "30/09/2011"}),
    ("2011-12", {"end": "15/06/2011", "charges": "both"}),
    ("2011-12", {"start": "29/02/2012", "fo": "non-fo", "gains": "non-speculation"}),
    ("2012-13", {}),
    ("2012-13", {"charges": "both"}),
    ("2012-13", {"start": "01/10/2012", "end": "01/10/2012", "charges": "stt"}),
)
GAINS = ("long_term", "short_term", "speculation")


def by_client(ledger: Ledger) -> dict[str, SimpleNamespace]:
    """The ledger as each client sees it: a statement looks through the client's part only."""
    whole = ledger.portfolio
    parts = {code: whole._replace(openings=[], bills=[], transfers=[]) for code in whole.clients}
    for opening in whole.openings:
        parts[opening.client].openings.append(opening)
    for bill in whole.bills:
        parts[bill.client].bills.append(bill)
    for move in whole.transfers:
        for client in {whole.accounts[move.source], whole.accounts[move.target]}:
            parts[client].transfers.append(move)
    return {code: SimpleNamespace(portfolio=part, lines=ledger.lines)
            for code, part in parts.items()}


def words(choice: dict) -> list[str]:
    return [word for name, value in choice.items() for word in (OPTIONS[name], value)]


class Exactness(Case):
    lines = 10000
    seed = 20111125

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.folder = generate(cls.home / "portfolio", cls.lines, cls.seed, "--years", "2")
        cls.ledger = Ledger(read(cls.folder))
        cls.views = by_client(cls.ledger)
        cls.desk = cls.new_desk()
        cls.desk.take_in(cls.folder)

    def statements(self, year: str, *options) -> dict[str, list[dict]]:
        """The statement of every client that has one."""
        out = self.new_folder()
        self.desk.run("statement", "capital-gain", "--all", "--year", year, *options, "--format",
                      "csv", "--out", out)
        return {name.removesuffix(".csv"): rows(content.decode())
                for name, content in files(out).items()}

    def expected(self, client: str, year: str, choice: dict) -> list[dict]:
        given = {name: day(value) if name in ("start", "end") else value
                 for name, value in choice.items()}
        return portfolio.statement_cells(self.views[client], client, year, Choice(**given))

    def test_statements(self):
        for year, choice in CHOICES:
            with self.subTest(year=year, **choice):
                actual = self.statements(year, *words(choice))
                for client in self.views:
                    expected = self.expected(client, year, choice)
                    self.assertEqual(expected, actual.pop(client, []), client)
                self.assertEqual(actual, {}, "statements of clients without movements")

    def test_one_client_and_all_clients_have_the_same_statement(self):
        everyone = self.statements("2011-12", "--charges", "both")
        for client in list(self.views)[:5]:
            self.assertEqual(everyone[client],
                             self.desk.statement(client, "2011-12", "--charges", "both"))

    def test_chosen_accounts_and_scrips_keep_their_rows(self):
        client = next(iter(self.views))
        accounts = [number for number, owner in self.ledger.portfolio.accounts.items()
                    if owner == client]
        scrips = list(self.ledger.portfolio.scrips)[:7]
        whole = self.desk.statement(client, "2011-12")
        chosen = self.desk.statement(client, "2011-12", "--accounts", accounts[0], "--scrips",
                                     ",".join(scrips))
        self.assertEqual([row for row in whole if row["account_no"] == accounts[0]
                          and row["scrip_code"] in scrips],
                         [row for row in chosen if row["account_no"]])
        for name in ("purchase_amount", "sale_amount", "purchase_cost", *GAINS, "stt_paid"):
            self.assertEqual(sum(number(row[name]) for row in chosen if row["account_no"]),
                             number(chosen[-1][name]), name)

    def test_holdings(self):
        columns = portfolio.HOLDING_COLUMNS
        expected = defaultdict(list)
        for (year, account, scrip, rate), quantity in sorted(self.ledger.lots.items()):
            expected[self.ledger.portfolio.accounts[account], year].append(
                dict(zip(columns, map(portfolio.cell, (account, scrip, rate, quantity)))))
        for client in list(self.views)[:200]:
            for year in YEARS:
                actual = [{name: lot[name] for name in columns}
                          for lot in self.desk.holdings(client, year, "--all")]
                self.assertEqual(expected[client, year], actual, f"{client} {year}")

    def test_bill_lines_are_split_by_lot(self):
        out = self.new_folder()
        self.desk.run("export", out)
        recorded = read(out)
        settled = defaultdict(list)
        for bill in self.ledger.portfolio.bills:
            settled[bill.client, bill.account, bill.date].append(self.ledger.lines[bill.order])
        self.assertEqual(len(recorded.bills), len(self.ledger.portfolio.bills))
        for bill in recorded.bills:
            expected = settled[bill.client, bill.account, bill.date].pop(0)
            self.assertEqual([line._replace(row=0, lot_rate=None if line.purchase
                                            else line.lot_rate) for line in expected],
                             [line._replace(row=0) for line in bill.lines],
                             f"{bill.account} {bill.date}")

    def test_carried_lots_open_the_next_year(self):
        """Carried into an empty year, so that the rows are those of the carry forward alone."""
        columns = ("account_no", "scrip_code", "quantity", "rate", "purchase_date", "service_tax",
                   "brokerage", "stt", "fo")
        for client in list(self.views)[:20]:
            self.desk.run("carry-forward", "stock", "--client", client, "--year", "2013-14")
        opened = defaultdict(list)
        for row in rows(self.desk.export()["opening.csv"].decode()):
            if row["fyear"] == "2013-14":
                opened[row["client_code"]].append(
                    tuple(row[name] if name in ("account_no", "scrip_code") else
                          day(row[name]) if name == "purchase_date" else number(row[name])
                          for name in columns))
        for client in list(self.views)[:20]:
            left = [(one.account, one.scrip, one.quantity, one.rate, one.date, one.service_tax,
                     one.brokerage, one.stt, int(one.fo))
                    for one in remaining(self.views[client], client, "2012-13")]
            self.assertEqual(sorted(left), sorted(opened[client]), client)
        self.check_is_well(self.desk)
        self.desk.sql("Delete From StkOpBal Where Fyear='2013-14'")
        self.desk.sql("Delete From Stock Where Fyear='2013-14'")

    def test_rebuild_changes_nothing(self):
        read_lots = "Select * From Stock Order By Id"
        before = self.desk.sql(read_lots)
        for whose in (("--all",), *(("--client", client, "--year", year)
                                    for client in list(self.views)[:5] for year in YEARS)):
            self.assertIn("Lots changed: 0\n", self.desk.run("rebuild", *whose).stderr)
        self.assertEqual(before, self.desk.sql(read_lots))
        self.check_is_well(self.desk)


class WithActions(Case):
    """Corporate actions of every kind among the bills and transfers of three years."""

    portfolios = 2
    seed = 20140333

    def test_history_books_and_export_are_exact(self):
        for n in range(self.portfolios):
            with self.subTest(seed=self.seed + n):
                folder = generate(self.new_folder(), 500, self.seed + n, "--years", "3",
                                  "--clients", "6", "--actions", "9",
                                  *(["--scrips", "28", "--twice"] if n % 2 else
                                    ["--scrips", "14"]))
                self.check_portfolio(folder)

    def check_portfolio(self, folder):
        ledger = Ledger(read(folder))
        self.assertTrue(ledger.portfolio.actions)
        desk = self.new_desk()
        desk.take_in(folder)
        history = History(ledger)
        for client in ledger.portfolio.clients:
            self.assertEqual(history.cells(client), desk.listed("layers", client), client)
            for year in years(ledger.portfolio):
                self.assertEqual(
                    portfolio.holding_cells(ledger, client, year, used_up=False),
                    [{name: lot[name] for name in portfolio.HOLDING_COLUMNS}
                     for lot in desk.holdings(client, year)], f"{client} {year}")
                self.assertEqual(
                    portfolio.statement_cells(ledger, client, year, Choice(charges="both")),
                    desk.statement(client, year, "--charges", "both"), f"{client} {year}")
        self.check_is_well(desk)
        check_export(self, desk)


class TaxYears(Case):
    """Gains by kind and per cent, set-off and tax of every client and year until 2026-27."""

    portfolios = 2
    seed = 20180131
    first_years = (2015, 2018, 2016, 2014, 2017, 2019)
    last = 2026

    def test_tax_years_are_exact(self):
        for n in range(self.portfolios):
            with self.subTest(seed=self.seed + n):
                first = self.first_years[n % len(self.first_years)]
                folder = generate(self.new_folder(), 500, self.seed + n, "--tax", "--clients", "4",
                                  "--first-year", str(first), "--years",
                                  str(self.last + 1 - first), "--scrips", "14", "--actions", "5")
                self.check_portfolio(folder, first)

    def check_portfolio(self, folder, since: int):
        history = History(Ledger(read(folder)))
        desk = self.new_desk()
        desk.take_in(folder)
        for client in history.portfolio.clients:
            self.assertEqual(history.cells(client), desk.listed("layers", client), client)
            for first in range(since, self.last + 1):
                year = f"{first}-{(first + 1) % 100:02d}"
                with self.subTest(client=client, year=year):
                    self.compare(tax_cells(history, client, year), desk.tax(client, year))
        exported, given = read(check_export(self, desk)), history.portfolio
        self.assertEqual(given.fair_values, exported.fair_values)
        self.assertEqual(sorted(given.losses), sorted(exported.losses))

    def compare(self, expected: list[dict], actual: list[dict]):
        """Pieces in any order, what follows them as it stands."""
        def parts(found: list[dict]):
            pieces = [row for row in found if row["row"] == "piece"]
            return (sorted(tuple(row.values()) for row in pieces),
                    [row for row in found if row["row"] != "piece"])
        for some, others in zip(parts(expected), parts(actual)):
            self.assertEqual(some, others)


def check_export(case: Case, desk) -> Path:
    """What is exported and taken in again is exported as it was. Returns the folder with it."""
    exported = desk.export()
    folder = case.new_folder()
    for name, content in exported.items():
        (folder / name).write_bytes(content)
    again = case.new_desk()
    again.take_in(folder)
    case.assertEqual(exported, again.export())
    return folder


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--lines", type=int, default=Exactness.lines)
    parser.add_argument("--seed", type=int, default=Exactness.seed)
    parser.add_argument("--portfolios", type=int, default=WithActions.portfolios,
                        help="with corporate actions, and for the tax")
    given, rest = parser.parse_known_args()
    Exactness.lines, Exactness.seed = given.lines, given.seed
    WithActions.portfolios = TaxYears.portfolios = given.portfolios
    print(f"{given.lines} lines, seed {given.seed}")
    unittest.main(argv=[sys.argv[0], *rest])


if __name__ == "__main__":
    main()
