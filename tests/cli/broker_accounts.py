#!/usr/bin/env python3
"""The broker accounts of the sample portfolio, worked out a second time from its files: every account
closes as its bills, payments and receipts say, and every year opens with the closing before."""

import csv
import unittest
from collections import defaultdict
from datetime import date
from decimal import ROUND_HALF_UP, Decimal

import ctl

PAISA = Decimal("0.01")
YEARS = ("2011-12", "2012-13", "2013-14")


def paise(value) -> Decimal:
    return Decimal(value or 0).quantize(PAISA, ROUND_HALF_UP)


def day(text: str) -> date:
    return date(int(text[6:]), int(text[3:5]), int(text[:2]))


def sample(name: str) -> list[dict]:
    return ctl.rows((ctl.SAMPLE / name).read_text(encoding="utf-8"))


def owed_by(line: dict) -> Decimal:
    """What a line of a bill owes the broker."""
    side = 1 if line["side"] == "P" else -1
    rate = Decimal(line["rate"]) + side * Decimal(line["brokerage"] or 0)
    charges = ("service_tax", "stt", "other_charges", "transaction_charges")
    return (side * paise(rate * Decimal(line["quantity"])) +
            sum(paise(line[charge]) for charge in charges))


def balances() -> dict[tuple[str, str], list[tuple[date, Decimal]]]:
    """(day, what it adds to what is owed) by client and broker."""
    changes = defaultdict(list)
    for line in sample("bills.csv"):
        changes[line["client_code"], line["broker"]].append((day(line["bill_date"]), owed_by(line)))
    for name, sign in (("payments.csv", -1), ("receipts.csv", 1)):
        for row in sample(name):
            changes[row["client_code"], row["broker"]].append(
                (day(row["date"]), sign * Decimal(row["amount"])))
    for row in sample("broker_opening.csv"):
        sign = 1 if row["side"] == "Dr" else -1
        changes[row["client_code"], row["broker"]].append(
            (date(int(row["fyear"][:4]), 4, 1), sign * Decimal(row["amount"])))
    return changes


def owed(text: str) -> Decimal:
    """A balance as it is printed."""
    return Decimal(text[:-2]) * (1 if text.endswith("Dr") else -1)


class BrokerAccounts(ctl.Case):
    def test_every_account_closes_as_its_payments_say(self):
        desk = self.new_desk()
        desk.take_in(ctl.SAMPLE)
        changes = balances()
        self.assertEqual(len(changes), 6)
        for (client, broker), of_account in changes.items():
            before = None
            for year in YEARS:
                with self.subTest(f"{client} {broker} {year}"):
                    out = desk.run("statement", "broker-account", "--client", client, "--year", year,
                                   "--broker", broker, "--format", "csv").stdout
                    header, *lines = (row for row in csv.reader(out.splitlines()) if len(row) == 10)
                    balance = header.index("Balance")
                    end = date(int(year[:4]) + 1, 3, 31)
                    closing = sum(amount for when, amount in of_account if when <= end)
                    self.assertEqual(owed(lines[-1][balance]), closing)
                    if before is not None:
                        self.assertEqual(owed(lines[0][balance]), before)
                    before = closing
                    *lines, total = lines
                    for column in {*range(2, 10)} - {balance}:
                        self.assertEqual(sum(Decimal(line[column] or 0) for line in lines),
                                         Decimal(total[column] or 0))


if __name__ == "__main__":
    unittest.main()
