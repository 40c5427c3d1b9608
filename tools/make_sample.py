#!/usr/bin/env python3
"""Writes the sample portfolio: make_sample.py [FOLDER], by default data/sample of this tree.

The same files come out every time. Sales are assigned to their lots, and the opening rows of the
second and third year are worked out, by the exact computation in tests/oracle.
"""

import csv
import random
import sys
from collections import defaultdict
from datetime import date, timedelta
from fractions import Fraction
from pathlib import Path
from typing import NamedTuple

ROOT = Path(__file__).resolve().parent.parent
sys.path[:0] = [str(ROOT / "tests" / "oracle"), str(Path(__file__).resolve().parent)]

import sample_tables as tables  # noqa: E402
from exact import (day, dmy, financial_year, first_day, last_day, number, paise, plain,  # noqa: E402
                   rounded)
from folder import Bill, Line, Opening, Portfolio, Transfer  # noqa: E402
from ledger import Ledger  # noqa: E402
from statement import remaining  # noqa: E402

CODES = {symbol: code for code, symbol, _name, _prices in tables.SCRIPS}
NAMES = {code: name for code, _symbol, name, _prices in tables.SCRIPS}
PRICES = {code: prices for code, _symbol, _name, prices in tables.SCRIPS}
CLOSED = {day(text) for text in tables.HOLIDAYS}
DELIVERY = {"D": "Delivery Based", "N": "Non Delivery Based"}
TRADING_DAYS_A_YEAR = 10


class Trade(NamedTuple):
    date: date
    account: str  # short name
    side: str
    scrip: str
    quantity: Fraction
    rate: Fraction
    lot_rate: Fraction | None
    delivery: str  # D or N


class Percents(NamedTuple):
    brokerage: Fraction
    stt: Fraction
    service_tax: Fraction


def percents(year: str, delivery: str) -> Percents:
    texts = tables.PERCENTAGES[year]
    first = 0 if delivery == "D" else 1
    return Percents(number(texts[first]), number(texts[first + 2]), number(texts[4]))


def charges(percent: Percents, side: str, quantity: Fraction, rate: Fraction):
    """(brokerage a share, service tax and STT of the line)"""
    brokerage = rounded(rate * percent.brokerage / 100)
    net = rate + brokerage if side == "P" else rate - brokerage
    service_tax = rounded(brokerage * percent.service_tax * quantity / 100)
    return brokerage, service_tax, rounded(rounded(net * quantity) * percent.stt / 100)


def trading_day(when: date) -> bool:
    return when.weekday() < 5 and when not in CLOSED


class Market:
    """Prices near those of the time, the same ones on every run."""

    def __init__(self):
        self._random = random.Random(20110401)
        self._days = [day(text) for text in tables.PRICE_DAYS]

    def below(self, bound: int) -> int:
        return int(self._random.random() * bound)

    def paise_at(self, scrip: str, when: date) -> int:
        prices = PRICES[scrip]
        index = max(n for n in range(len(prices) - 1) if self._days[n] <= when or n == 0)
        span = (self._days[index + 1] - self._days[index]).days
        gone = (when - self._days[index]).days
        return 100 * (prices[index] * (span - gone) + prices[index + 1] * gone) // span

    def rate(self, scrip: str, when: date) -> Fraction:
        """Within two per cent of the day's price, in steps of five paise."""
        moved = self.paise_at(scrip, when) * (980 + self.below(41)) // 1000
        return Fraction(moved // 5 * 5, 100)


class Trader:
    """Invents what happens besides the listed cases, so that no sale lacks balance."""

    def __init__(self, market: Market):
        self.market = market
        self.held: dict[tuple[str, str], int] = defaultdict(int)

    def openings(self):
        """(account, scrip, quantity, rate, purchase date) of stock older than the first year."""
        for account, symbols in tables.UNIVERSE.items():
            for symbol in symbols.split()[::2]:
                scrip = CODES[symbol]
                when = date(2010, 11, 8) + timedelta(days=self.market.below(130))
                while when.weekday() > 4:
                    when += timedelta(days=1)
                quantity = self.lot_size(scrip, when)
                self.held[account, scrip] += quantity
                yield account, scrip, Fraction(quantity), self.market.rate(scrip, when), when

    def lot_size(self, scrip: str, when: date) -> int:
        """Shares for some thirty to ninety thousand rupees."""
        value = 3_000_000 + self.market.below(6_000_000)
        return max(5, value // self.market.paise_at(scrip, when) // 5 * 5)

    def year(self, year: str) -> list[Trade]:
        trades = []
        for account, symbols in tables.UNIVERSE.items():
            scrips = [CODES[symbol] for symbol in symbols.split()]
            for when in self.days(year):
                chosen = list(scrips)
                for _line in range(1 + self.market.below(3)):
                    scrip = chosen.pop(self.market.below(len(chosen)))
                    trades += self.trades(account, scrip, when)
        return trades

    def days(self, year: str) -> list[date]:
        span = (last_day(year) - first_day(year)).days
        days = set()
        while len(days) < TRADING_DAYS_A_YEAR:
            when = first_day(year) + timedelta(days=self.market.below(span))
            if trading_day(when):
                days.add(when)
        return sorted(days)

    def trades(self, account: str, scrip: str, when: date) -> list[Trade]:
        held, dice = self.held[account, scrip], self.market.below(100)
        if dice < 8:
            quantity = Fraction(self.lot_size(scrip, when))
            bought, sold = self.market.rate(scrip, when), self.market.rate(scrip, when)
            return [Trade(when, account, "P", scrip, quantity, bought, None, "N"),
                    Trade(when, account, "S", scrip, quantity, sold, bought, "N")]
        if held and dice < 60:
            quantity = held if dice < 25 else max(5, held * (30 + self.market.below(50)) // 500 * 5)
            quantity = min(quantity, held)
            side = "S"
        else:
            quantity, side = self.lot_size(scrip, when), "P"
        self.held[account, scrip] += quantity if side == "P" else -quantity
        return [Trade(when, account, side, scrip, Fraction(quantity),
                      self.market.rate(scrip, when), None, "D")]


def listed_trades() -> list[Trade]:
    trades = [Trade(day(when), account, side, CODES[symbol], number(quantity), number(rate),
                    number(lot) if lot else None, delivery)
              for when, account, side, symbol, quantity, rate, lot, delivery in tables.CASE_TRADES]
    others = {(account, CODES[symbol]) for account, symbols in tables.UNIVERSE.items()
              for symbol in symbols.split()}
    for trade in trades:
        assert trading_day(trade.date), f"the exchanges are closed on {dmy(trade.date)}"
        assert (trade.account, trade.scrip) not in others, f"{trade} is not alone in its scrip"
    return trades


class BillHead(NamedTuple):
    number: str
    settlement: str
    broker: str
    exchange: str
    transaction_charges: Fraction
    other_charges: Fraction


class Sample:
    def __init__(self):
        self.bills: list[Bill] = []
        self.heads: list[BillHead] = []
        self.deliveries: dict[tuple[int, int], str] = {}  # (bill, line's row) -> D or N
        self.openings: list[Opening] = []
        self.accounts = {row[3]: row[0] for row in tables.ACCOUNTS.values()}
        self.clients = {row.split(",")[0]: row.split(",")[2] for row in tables.CLIENTS}
        self.transfers = [
            Transfer(day(when), tables.ACCOUNTS[source][3], tables.ACCOUNTS[target][3],
                     CODES[symbol], number(rate), number(quantity), n)
            for n, (when, source, target, symbol, rate, quantity)
            in enumerate(tables.CASE_TRANSFERS)]
        self.market = Market()
        self._build()
        self.ledger = Ledger(self.portfolio())

    def portfolio(self, year: str | None = None) -> Portfolio:
        """All of it, or what belongs to one year."""
        def within(rows):
            return [row for row in rows if year in (None, financial_year(row.date))]

        openings = [row for row in self.openings if year in (None, row.year)]
        return Portfolio(self.clients, self.accounts, NAMES, openings, within(self.bills),
                         within(self.transfers), [])

    def _build(self):
        trader = Trader(self.market)
        self._first_openings(trader)
        cases = listed_trades()
        for year in tables.YEARS:
            trades = trader.year(year)
            trades += [one for one in cases if financial_year(one.date) == year]
            self._bill(year, trades)
            ledger = Ledger(self.portfolio(year))
            if year != tables.YEARS[-1]:
                self._carry_forward(ledger, year)

    def _first_openings(self, trader: Trader):
        rows = list(trader.openings())
        rows += [(account, CODES[symbol], number(quantity), number(rate), day(when))
                 for account, symbol, quantity, rate, when in tables.CASE_OPENINGS]
        for account, scrip, quantity, rate, when in rows:
            client, number_ = tables.ACCOUNTS[account][0], tables.ACCOUNTS[account][3]
            brokerage, tax, stt = charges(percents("2010-11", "D"), "P", quantity, rate)
            self.openings.append(Opening(client, number_, tables.YEARS[0], scrip, quantity, rate,
                                         when, tax, brokerage, stt, False))
        self._sort_openings()

    def _carry_forward(self, ledger: Ledger, year: str):
        following = tables.YEARS[tables.YEARS.index(year) + 1]
        for client in self.clients:
            for row in remaining(ledger, client, year):
                self.openings.append(Opening(
                    client, row.account, following, row.scrip, row.quantity, row.rate, row.date,
                    row.service_tax, row.brokerage, row.stt, row.fo))
        self._sort_openings()

    def _sort_openings(self):
        self.openings.sort(key=lambda row: (row.client, row.account, row.year, row.scrip,
                                            row.date))
        assert len(set(self.openings)) == len(self.openings), "two opening rows are identical"

    def _bill(self, year: str, trades: list[Trade]):
        """One bill an account and day, numbered by broker in date order."""
        of_day: dict[tuple[date, str], list[Trade]] = defaultdict(list)
        for trade in trades:
            of_day[trade.date, trade.account].append(trade)
        counts: dict[str, int] = defaultdict(int)
        for when, account in sorted(of_day):
            client, _participant, _dp, number_, broker, exchange = tables.ACCOUNTS[account]
            counts[broker] += 1
            order = len(self.bills)
            lines = [self._line(year, trade, order, row) for row, trade in enumerate(
                sorted(of_day[when, account], key=lambda one: one.side))]
            turnover = sum(line.rate * line.quantity for line in lines)
            self.bills.append(Bill(client, number_, when, order, lines))
            self.heads.append(BillHead(
                f"{tables.BROKER_PREFIX[broker]}/{year[2:4]}{year[5:]}/{counts[broker]:04d}",
                f"{year[:4]}{self._days_since_april(when):03d}", broker, exchange,
                rounded(turnover * Fraction("0.0000325")),
                rounded(turnover * Fraction("0.0001")) if exchange == "NSE" else Fraction(0)))

    @staticmethod
    def _days_since_april(when: date) -> int:
        start = first_day(financial_year(when))
        return sum(trading_day(start + timedelta(days=n)) for n in range((when - start).days + 1))

    def _line(self, year: str, trade: Trade, order: int, row: int) -> Line:
        self.deliveries[order, row] = trade.delivery
        brokerage, tax, stt = charges(percents(year, trade.delivery), trade.side, trade.quantity,
                                      trade.rate)
        return Line(trade.side == "P", trade.scrip, trade.quantity, trade.rate, brokerage, tax,
                    stt, False, trade.lot_rate, trade.delivery == "N", row)


class Files:
    """The sample as the files of a portfolio folder."""

    def __init__(self, sample: Sample, folder: Path):
        self.sample = sample
        self.folder = folder
        folder.mkdir(parents=True, exist_ok=True)

    def write(self):
        self._masters()
        self._openings()
        self._bills()
        self._rows("transfers.csv", "date,from_account,to_account,scrip_code,rate,quantity", (
            (dmy(row.date), row.source, row.target, row.scrip, plain(row.rate),
             plain(row.quantity)) for row in self.sample.transfers))
        self._money()

    def _rows(self, name: str, header: str, rows):
        with (self.folder / name).open("w", encoding="utf-8", newline="") as file:
            file.write(header + "\n")
            csv.writer(file, lineterminator="\n").writerows(rows)

    def _texts(self, name: str, header: str, texts):
        with (self.folder / name).open("w", encoding="utf-8", newline="") as file:
            file.writelines(text + "\n" for text in (header, *sorted(texts)))

    def _masters(self):
        address = "address,city,state,pin,std,phone,mobile,fax,email"
        self._texts("participants.csv", f"name,depository,dp_id,{address},person,designation",
                    tables.PARTICIPANTS)
        self._texts("clients.csv", f"code,group_code,name,{address},dob,pan,sex,marital_status",
                    tables.CLIENTS)
        self._rows("accounts.csv", "client_code,participant,dp_id,account_no",
                   sorted((row[:4] for row in tables.ACCOUNTS.values()),
                          key=lambda row: (row[0], row[3])))
        self._texts("brokers.csv", f"name,{address}", tables.BROKERS)
        self._rows("scrips.csv", "code,ncode,name,type,class", sorted(
            (code, symbol, name, "EQUITY", "A") for code, symbol, name, _prices in tables.SCRIPS))
        self._rows("percentages.csv", "fyear,name,percent,as_on", sorted(
            (year, kind, percent, f"01/04/{year[:4]}") for year in tables.YEARS
            for kind, percent in zip(tables.KINDS, tables.PERCENTAGES[year])))
        market = self.sample.market
        self._rows("rates.csv", "date,scrip_code,rate", (
            (dmy(last_day(year)), code,
             plain(Fraction(market.paise_at(code, last_day(year)) // 5 * 5, 100)))
            for year in tables.YEARS for code in sorted(NAMES)))

    def _openings(self):
        self._rows(
            "opening.csv",
            "client_code,account_no,fyear,scrip_code,quantity,rate,purchase_date,service_tax,"
            "brokerage,stt,fo",
            ((row.client, row.account, row.year, row.scrip, plain(row.quantity), plain(row.rate),
              dmy(row.date), plain(row.service_tax), plain(row.brokerage), plain(row.stt), "0")
             for row in self.sample.openings))

    def _bills(self):
        bills = sorted(self.sample.bills, key=lambda bill: (
            bill.client, bill.account, bill.date, self.sample.heads[bill.order].number))
        self._rows(
            "bills.csv",
            "client_code,account_no,bill_no,bill_date,settlement_no,broker,exchange,side,"
            "scrip_code,quantity,rate,brokerage,service_tax,stt,stt_percent,delivery_type,fo,"
            "lot_rate,other_charges,transaction_charges",
            (row for bill in bills for row in self._bill_rows(bill)))

    def _bill_rows(self, bill: Bill):
        head = self.sample.heads[bill.order]
        extra = plain(head.other_charges), plain(head.transaction_charges)
        for line in self.sample.ledger.lines[bill.order]:
            delivery = self.sample.deliveries[bill.order, line.row]
            percent = percents(financial_year(bill.date), delivery)
            yield (bill.client, bill.account, head.number, dmy(bill.date), head.settlement,
                   head.broker, head.exchange, "P" if line.purchase else "S", line.scrip,
                   plain(line.quantity), plain(line.rate), plain(line.brokerage),
                   plain(line.service_tax), plain(line.stt), plain(percent.stt),
                   DELIVERY[delivery], "0",
                   "" if line.purchase else plain(line.lot_rate), *extra)
            extra = "", ""

    def _money(self):
        self._rows("broker_opening.csv", "client_code,fyear,broker,amount,side", sorted(
            (client, tables.YEARS[0], broker, amount, side)
            for client, broker, amount, side in tables.BROKER_OPENING))
        header = ("client_code,broker,mode,amount,date,payment_mode,cheque_no,cheque_date,"
                  "drawn_on,remark")
        payments, receipts = [], []
        for n, ((client, broker, when), due) in enumerate(sorted(self._quarters().items())):
            amount = (abs(due) + 5000) // 10000 * 100
            if amount:
                ours, modes = ((payments, ("Payment", "Cr. By Broker")) if due > 0 else
                               (receipts, ("Receving", "Dr. By Broker")))
                ours.append(self._payment(client, broker, modes, amount, when, n))
        for name, rows in (("payments.csv", payments), ("receipts.csv", receipts)):
            self._rows(name, header, [row for _when, row in sorted(
                rows, key=lambda pair: (pair[1][0], pair[0], pair[1]))])

    @staticmethod
    def _payment(client, broker, modes, amount: int, when: date, n: int):
        if amount < 20000 and n % 2:
            return when, (client, broker, modes[1], amount, dmy(when), "Cash", "", "", "",
                          "PART OF THE QUARTER")
        return when, (client, broker, modes[0], amount, dmy(when), "Cheque", f"{410001 + 7 * n}",
                      dmy(when), tables.BANKS[client], "")

    def _quarters(self) -> dict[tuple[str, str, date], int]:
        """(client, broker, settling day) -> paise that the client owes for the quarter's bills."""
        due: dict[tuple[str, str, date], int] = defaultdict(int)
        for bill in self.sample.bills:
            head = self.sample.heads[bill.order]
            total = paise(head.other_charges + head.transaction_charges)
            for line in bill.lines:
                if line.purchase:
                    total += paise((line.rate + line.brokerage) * line.quantity)
                else:
                    total -= paise((line.rate - line.brokerage) * line.quantity)
                total += paise(line.service_tax + line.stt)
            due[bill.client, head.broker, settling_day(bill.date)] += total
        return due


def settling_day(when: date) -> date:
    """The last trading day up to the 28th of the quarter's last month."""
    settling = date(when.year, (when.month + 2) // 3 * 3, 28)
    while not trading_day(settling):
        settling -= timedelta(days=1)
    return settling


def main():
    folder = Path(sys.argv[1]) if len(sys.argv) > 1 else ROOT / "data" / "sample"
    Files(Sample(), folder).write()


if __name__ == "__main__":
    main()
