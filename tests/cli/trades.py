#!/usr/bin/env python3
"""Trade books of brokers: a made-up one of 500 trades over two years is taken in, and holdings and
gains are compared with bills that are worked out here from the same trades in exact fractions."""

import csv
import io
import random
import unittest
import zipfile
from collections import defaultdict
from datetime import date, timedelta
from fractions import Fraction
from xml.sax.saxutils import escape

from base import BASE, write
from ctl import DONE, REFUSED, SECONDS, WRONG_USAGE, Case, rows, start

import portfolio
from exact import dmy, financial_year, rounded
from folder import read
from ledger import Ledger
from statement import Choice, remaining

HEADER = ("symbol,isin,trade_date,exchange,segment,series,trade_type,auction,quantity,price,"
          "trade_id,order_id,order_execution_time").split(",")
SCRIPS = {"600001": ("ZINC", "ZINC ALLOYS LTD"), "600002": ("ALUM", "ALUM CASTINGS LTD"),
          "600003": ("COPPER", "COPPER WIRES LTD"), "600004": ("TIN", "TIN PLATES LTD")}
CODES = {symbol: code for code, (symbol, _name) in SCRIPS.items()}
FIRST, SECOND = "2023-24", "2024-25"
FOLDER = {**{name: BASE[name] for name in ("participants.csv", "clients.csv", "accounts.csv",
                                           "brokers.csv")},
          "scrips.csv": "code,name,type,class,ncode\n" + "".join(
              f"{code},{name},EQUITY,A,{symbol}\n" for code, (symbol, name) in SCRIPS.items())}
OPTIONS = ("--account", "A1", "--broker", "lotus")
BILL_COLUMNS = ("client_code,account_no,bill_no,bill_date,broker,exchange,side,scrip_code,quantity,"
                "rate,brokerage,service_tax,stt,delivery_type").split(",")
OPENING_COLUMNS = ("client_code,account_no,fyear,scrip_code,quantity,rate,purchase_date,service_tax,"
                   "brokerage,stt").split(",")


def made_up(count: int, seed: int) -> list[dict]:
    """Trades of two years in the order of their time; nobody sells what is not there."""
    chance = random.Random(seed)
    held = defaultdict(int)
    trades = []
    when, order = date(2023, 4, 3), 0
    while len(trades) < count:
        clock = 9 * 3600
        for _ in range(chance.randint(1, 4)):
            order += 1
            clock += chance.randint(60, 3000)
            symbol = chance.choice(list(CODES))
            sells = held[symbol] > 10 and chance.random() < 0.5
            quantity = chance.randint(1, held[symbol] if sells else 200)
            held[symbol] += -quantity if sells else quantity
            price = chance.randint(5000, 60000)
            fills = chance.randint(1, min(3, quantity))
            for fill in range(fills):
                part = quantity // fills + (quantity % fills if fill == 0 else 0)
                at = f"{clock // 3600:02}:{clock // 60 % 60:02}:{clock % 60:02}"
                trades.append(dict(zip(HEADER, (
                    symbol, "", when.isoformat(), "NSE", "EQ", "EQ", "sell" if sells else "buy",
                    "false", f"{part}.000000", f"{price / 100:.6f}", f"T{len(trades)}",
                    f"O{order}", f"{when.isoformat()}T{at}"))))
                price += chance.choice((0, 0, 5, -5))
        when += timedelta(days=chance.randint(3, 8))
    return trades[:count]


def book(trades: list[dict]) -> str:
    out = io.StringIO()
    writer = csv.DictWriter(out, HEADER, lineterminator="\n")
    writer.writeheader()
    writer.writerows(trades)
    return out.getvalue()


def fifteen(value: Fraction) -> Fraction:
    """The program keeps rates as numbers of fifteen digits."""
    return Fraction(f"{float(value):.15g}")


def orders_of(trades: list[dict]) -> list[list]:
    """Of one day: symbol, whether bought, quantity, rate."""
    orders = {}
    for trade in trades:
        one = orders.setdefault(trade["order_id"],
                                [trade["symbol"], trade["trade_type"] == "buy", 0, Fraction()])
        one[2] += int(float(trade["quantity"]))
        one[3] += int(float(trade["quantity"])) * Fraction(trade["price"])
    return [[symbol, bought, quantity, fifteen(value / quantity)]
            for symbol, bought, quantity, value in orders.values()]


def parts_of(orders: list[list]) -> list[tuple]:
    """What was bought and sold on the day apart from the rest, the earliest orders first."""
    total = defaultdict(int)
    for symbol, bought, quantity, _rate in orders:
        total[symbol, bought] += quantity
    left = {key: min(total[key[0], True], total[key[0], False]) for key in list(total)}
    parts = []
    for symbol, bought, quantity, rate in orders:
        matched = min(left[symbol, bought], quantity)
        left[symbol, bought] -= matched
        parts += [(symbol, bought, part, rate, intraday)
                  for part, intraday in ((matched, True), (quantity - matched, False)) if part]
    return parts


def taxes(when: date, parts: list[tuple]) -> list[tuple[Fraction, Fraction]]:
    """Service tax and securities transaction tax of each part: the latter whole rupees a day."""
    fee = Fraction("0.00334" if when < date(2024, 10, 1) else "0.00297") + Fraction("0.0001")
    raw = []
    for _symbol, bought, quantity, rate, intraday in parts:
        percent = "0.1" if not intraday else "0" if bought else "0.025"
        raw.append(quantity * rate * Fraction(percent) / 100)
    whole = Fraction(int(sum(raw) + Fraction(1, 2)))
    result, so_far, given = [], Fraction(), Fraction()
    for (_symbol, _bought, quantity, rate, _intraday), stt in zip(parts, raw):
        so_far += stt
        up_to = rounded(whole * so_far / sum(raw)) if sum(raw) else Fraction()
        result.append((rounded(quantity * rate * fee / 100 * Fraction(18, 100)), up_to - given))
        given = up_to
    return result


def bills_of(trades: list[dict]) -> str:
    """bills.csv of the trades."""
    days = defaultdict(list)
    for trade in trades:
        days[date.fromisoformat(trade["trade_date"])].append(trade)
    lines = [",".join(BILL_COLUMNS)]
    for when, own in sorted(days.items()):
        parts = parts_of(orders_of(own))
        for part, (service_tax, stt) in zip(parts, taxes(when, parts)):
            symbol, bought, quantity, rate, intraday = part
            lines.append(",".join(map(str, (
                "AN", "A1", f"NSE-{when:%Y%m%d}", dmy(when), "LOTUS", "NSE",
                "P" if bought else "S", CODES[symbol], quantity, f"{float(rate):.15g}", 0,
                float(service_tax), float(stt),
                "Non Delivery Based" if intraday else "Delivery Based"))))
    return "\n".join(lines) + "\n"


def opening_of(ledger: Ledger) -> str:
    """opening.csv of what the first year leaves."""
    lines = [",".join(OPENING_COLUMNS)]
    for lot in remaining(ledger, "AN", FIRST):
        lines.append(",".join(map(str, (
            "AN", lot.account, SECOND, lot.scrip, float(lot.quantity), f"{float(lot.rate):.15g}",
            dmy(lot.date), float(lot.service_tax), float(lot.brokerage), float(lot.stt)))))
    return "\n".join(lines) + "\n"


def workbook(lines: list[list]) -> bytes:
    """A workbook with one sheet, as small as it can be."""
    cells = "".join(
        f'<row r="{number}">' + "".join(
            f'<c r="{chr(65 + place)}{number}" t="inlineStr"><is><t>{escape(str(cell))}</t></is></c>'
            for place, cell in enumerate(row) if cell != "") + "</row>"
        for number, row in enumerate(lines, 1))
    main = "http://schemas.openxmlformats.org/spreadsheetml/2006/main"
    relations = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
    package = "http://schemas.openxmlformats.org/package/2006/relationships"
    out = io.BytesIO()
    with zipfile.ZipFile(out, "w") as archive:
        archive.writestr("[Content_Types].xml", "<Types/>")
        archive.writestr("xl/workbook.xml", f'<workbook xmlns="{main}" xmlns:r="{relations}">'
                         '<sheets><sheet name="Equity" sheetId="1" r:id="rId1"/></sheets></workbook>')
        archive.writestr("xl/_rels/workbook.xml.rels", f'<Relationships xmlns="{package}">'
                         f'<Relationship Id="rId1" Type="{relations}/worksheet" '
                         'Target="worksheets/sheet1.xml"/></Relationships>')
        archive.writestr("xl/worksheets/sheet1.xml",
                         f'<worksheet xmlns="{main}"><sheetData>{cells}</sheetData></worksheet>')
    return out.getvalue()


class Trades(Case):
    def setUp(self):
        self.desk = self.new_desk()
        self.desk.take_in(write(self.new_folder(), FOLDER))
        self.folder = self.new_folder()

    def file(self, content, name="book.csv"):
        path = self.folder / name
        path.write_bytes(content if isinstance(content, bytes) else content.encode())
        return path

    def trades(self, *files, options=OPTIONS, status=DONE) -> str:
        result = self.desk.run("trades", *files, *options, status=status)
        return result.stdout + result.stderr

    def counts(self):
        return [self.desk.sql(f"Select Count(*) From {table}")[0][0]
                for table in ("SPMaster", "SPTrans", "TradeKey", "Stock", "StkOpBal")]

    def expected(self, trades: list[dict]) -> dict[str, Ledger]:
        """The ledger of each year."""
        folder = write(self.new_folder(), {
            **FOLDER, "bills.csv": bills_of([one for one in trades if financial_year(
                date.fromisoformat(one["trade_date"])) == FIRST])})
        first = Ledger(read(folder))
        folder = write(self.new_folder(), {
            **FOLDER, "opening.csv": opening_of(first), "bills.csv": bills_of(
                [one for one in trades if financial_year(
                    date.fromisoformat(one["trade_date"])) == SECOND])})
        return {FIRST: first, SECOND: Ledger(read(folder))}

    def test_a_book_of_500_trades_gives_the_exact_holdings_and_gains(self):
        trades = made_up(500, 20240723)
        path = self.file(book(trades))
        self.assertIn("500 trades", self.trades(path))
        for year, ledger in self.expected(trades).items():
            self.assertEqual(
                portfolio.holding_cells(ledger, "AN", year, False),
                [{name: row[name] for name in portfolio.HOLDING_COLUMNS}
                 for row in self.desk.holdings("AN", year)], year)
            for charges in ("none", "both"):
                self.assertEqual(
                    portfolio.statement_cells(ledger, "AN", year, Choice(charges=charges)),
                    self.desk.statement("AN", year, "--charges", charges), (year, charges))
        before = self.counts()
        self.assertIn("nothing was written", self.trades(path))
        self.assertEqual(before, self.counts())
        grown = made_up(500, 20240723) + [{**trades[-1], "trade_id": "T500", "order_id": "O9999",
                                           "trade_type": "buy"}]
        told = self.trades(self.file(book(grown)), options=(*OPTIONS, "--dry-run"))
        self.assertEqual(1, told.count("\nNew,1,"), told)
        self.assertIn(" 1 trades", self.trades(self.file(book(grown))))
        self.assertEqual("501", self.counts()[2])
        self.check_is_well(self.desk)
        exported = self.desk.export()
        again = self.new_desk()
        again.take_in(write(self.new_folder(), exported))
        self.assert_same_files(exported, again.export())

    def test_files_of_several_years_and_kinds_come_in_oldest_first(self):
        trades = made_up(60, 7)
        later = self.file(book(trades[30:]), "a.csv")
        banner = [["Tradebook for Equity"], [], ["Client ID", "AB0001"]]
        titles = [name.replace("_", " ").title() for name in HEADER]
        cells = banner + [titles] + [[""] * 13] + [list(one.values()) for one in trades[:30]]
        earlier = self.file(workbook(cells), "b.xlsx")
        self.assertIn("60 trades", self.trades(later, earlier))

    def test_what_is_refused_changes_nothing(self):
        good = book(made_up(20, 3))
        row = good.splitlines()[1]
        future = good.replace(row.split(",")[2], "2999-01-01")
        unknown = book([{**made_up(1, 3)[0], "symbol": f"S{number}", "trade_id": f"T{number}"}
                        for number in range(10000)])
        oversold = book([{**made_up(1, 3)[0], "trade_type": "sell", "quantity": "50"}])
        for name, content, options, status, told in (
                ("cut.csv", good[:-60], OPTIONS, REFUSED, "ends in the middle of line"),
                ("future.csv", future, OPTIONS, REFUSED, "expected a date up to today"),
                ("unknown.csv", unknown, OPTIONS, REFUSED, "Unknown Script"),
                ("sold.csv", oversold, OPTIONS, REFUSED, "50.00 shares that were sold are missing"),
                ("other.csv", "A,B\n1,2\n", OPTIONS, REFUSED, "Zerodha trade book: symbol"),
                ("broken.xlsx", b"PK\3\4 nothing", OPTIONS, REFUSED, "quorvanectl:"),
                ("good.csv", good, ("--account", "X9", "--broker", "LOTUS"), REFUSED,
                 "There is no demat account X9."),
                ("good.csv", good, ("--account", "A1", "--broker", "ROSE"), REFUSED,
                 "There is no broker ROSE."),
                ("good.csv", good, ("--account", "A1"), WRONG_USAGE, "--broker")):
            with self.subTest(name=name, options=options):
                self.assertIn(told, self.trades(self.file(content, name), options=options,
                                                status=status))
        self.assertEqual(["0"] * 5, self.counts())

    def test_programs_at_once_take_a_book_in_once(self):
        path = self.file(book(made_up(60, 11)))
        programs = [start(self.desk.folder, "trades", path, *OPTIONS) for _ in range(3)]
        told = [program.communicate(timeout=SECONDS) + (program.returncode,)
                for program in programs]
        self.assertEqual(1, sum("60 trades" in err for _out, err, _status in told), told)
        for _out, err, status in told:
            self.assertIn(status, (DONE, REFUSED), err)
            self.assertTrue(any(words in err for words in (
                "60 trades", "nothing was written", "were recorded meanwhile")), err)
        self.assertEqual("60", self.counts()[2])

    def test_taking_back_leaves_nothing_of_new_scrips(self):
        trades = [{**one, "symbol": "NOVEL", "isin": "INE999C01037"} for one in made_up(1, 3)]
        path = self.file(book(trades))
        before = self.desk.export()
        self.trades(path, options=(*OPTIONS, "--new-scrips"))
        taken_in = self.desk.export()
        self.assertIn(b"INE999C01037", taken_in["isins.csv"])
        told = self.desk.run("log", "--client", "AN", "--kind", "imported").stdout
        self.assertIn("Trade book, 1 bills (AN ", told)
        self.desk.run("undo", "--client", "AN")
        self.assert_same_files(before, self.desk.export())
        self.check_is_well(self.desk)
        self.trades(path, options=(*OPTIONS, "--new-scrips"))
        self.assert_same_files(taken_in, self.desk.export())

    def test_taxes_are_whole_paise(self):
        self.trades(self.file(book(made_up(60, 5))))
        for row in rows(self.desk.export()["bills.csv"].decode()):
            self.assertLessEqual(len(row["stt"].partition(".")[2]), 2, row)

    def test_columns_and_scrips_are_told_by_a_map_and_remembered(self):
        path = self.file("When,What,How,Many,At\n2024-07-23,METAL,buy,5,10\n"
                         "2024-07-23,NOVEL,buy,1,2\n")
        self.trades(path, status=REFUSED)
        own = self.file("layout,meaning,heading,words\nown,date,When,\nown,own_code,What,\n"
                        "own,side,How,\nown,quantity,Many,\nown,price,At,\nown,scrip,METAL,600001\n"
                        "own,scrip,NOVEL,new\n", "map.csv")
        self.assertIn("1 new scrips", self.trades(path, options=(*OPTIONS, "--map", own)))
        self.assertIn("nothing was written", self.trades(path))


if __name__ == "__main__":
    unittest.main()
