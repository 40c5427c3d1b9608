#!/usr/bin/env python3
"""Trade books of brokers: a made-up one of 500 trades over two years is taken in, and holdings and
gains are compared with bills that are worked out here from the same trades in exact fractions."""

import csv
import io
import random
import unittest
from collections import defaultdict
from datetime import date, datetime, time, timedelta
from fractions import Fraction

from base import BASE, write
from ctl import DONE, REFUSED, SECONDS, WRONG_USAGE, Case, rows, start

import portfolio
import workbook
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


ANGEL = ("Scrip/Contract,Buy/Sell,Buy Price,Sell Price,Quantity,Brokerage,GST,STT,Sebi Tax,"
         "Exchange Turnover Charges,Stamp Duty,Other Charges,IPFT Charges,Order Type,Segment,"
         "Exchange,Order ID,Trade ID,Date").split(",")
UPSTOX = ("Date,Company,Amount,Exchange,Segment,Scrip Code,Instrument Type,Strike Price,Expiry,"
          "Trade Num,Trade Time,Side,Quantity,Price").split(",")
GROWW = ("Stock name,Symbol,ISIN,Type,Quantity,Value,Exchange,Exchange Order Id,"
         "Execution date and time,Order status").split(",")
PAYTM = ("Date,Script,ISIN,Exchange,Product Type,Type,Quantity,Price,Brokerage,ETT,GST,STT,SEBI,"
         "Stamp Duty,Order Number,Trade Number,Trade Time").split(",")
ZINC, ALUM = "ZINC ALLOYS LTD", "ALUM CASTINGS LTD"
DAY = date(2025, 5, 2)

# Of each broker its workbook, and what of it is to be in the bills: exchange, side, scrip, quantity,
# rate, brokerage a share, tax, STT, other and transaction charges.
BOOKS = {
    "Angel One": (
        [["Angel One Limited"], ["Client Name", "SOMEBODY"], ["Client ID", "A100001"], [],
         ["From", DAY, "To", DAY]] + [[]] * 26 + [ANGEL] + [
            [ZINC, "Buy", 100.0, None, 10, 1.0, 0.18, 1, 0.01, 0.03, 0.15, 0, 0, "Delivery",
             "CAPITAL", "NSE", 241202000123456, 50100001, DAY],
            [ZINC, "Sell", None, 102.5, 4, 0, 0, 0, 0.01, 0.02, 0, 0, 0.01, "Delivery", "CAPITAL",
             "NSE", 241202000123457, 50100002, date(2025, 5, 5)],
            [ZINC, "Sell", None, 0, 0, 20, 3.6, 0, 0, 0, 0, 0, 0, "Delivery", "CAPITAL", "NSE",
             241202000123457, None, date(2025, 5, 5)],
            ["NIFTY 25JUN 24000 CE", "Buy", 10, None, 75, 0, 0, 0, 0, 0, 0, 0, 0, "", "FUTOPT",
             "NSE", 241202000123458, 50100003, DAY],
            ["Total", None, None, None, None, 21.0, 3.78]],
        [("NSE", "P", ZINC, "10", "100", "0.1", "0.18", "1", "0.15", "0.04"),
         ("NSE", "S", ZINC, "4", "102.5", "5", "3.6", "0", "0.01", "0.03")]),
    "Upstox": (
        [["UPSTOX SECURITIES PRIVATE LIMITED"], ["Trade Report"], ["UCC", "2TC123"]] + [[]] * 7
        + [UPSTOX] + [
            ["02-05-2025", ZINC, "₹ 12,345.00", "BSE", "EQ", 600001, "EQUITY", None, None, 77001,
             "10:11:12", "Buy", 10, "₹ 1,234.50"],
            [DAY, ALUM, 500.0, "NSE", "EQ", 13061, "EQUITY", None, None, 77002, time(10, 11, 13),
             "Buy", 5, 100.0],
            ["02-05-2025", "NIFTY", "₹ 10.00", "NFO", "FO", 1, "OPTIDX", "₹ 24,000.00", DAY, 77003,
             "10:12:00", "Buy", 1, "₹ 10.00"]],
        [("BSE", "P", ZINC, "10", "1234.5"), ("NSE", "P", ALUM, "5", "100")]),
    "Groww": (
        [["Name", "SOMEBODY"], ["Unique Client Code", 9876543210], [],
         ["Order history for stocks from 02-05-2025 to 02-05-2025"], [], GROWW] + [
            [ZINC, "ZINC", "INE999A01015", "BUY", 30, 3050.1, "NSE", "1300000000000001",
             "02-05-2025 09:15 AM", "Executed"],
            [ALUM, "ALUM", "INE999B01021", "BUY", 10, 1000, "BSE", "1300000000000002",
             "02-05-2025 02:15 PM", "Cancelled"],
            [ZINC, "ZINC", "INE999A01015", "SELL", 30, 3100.2, "NSE", 1300000000000003,
             datetime(2025, 5, 5, 14, 15), "Executed"],
            # Of a day in the order of its times.
            [ZINC, "ZINC", "INE999A01015", "BUY", 2, 206, "NSE", 1300000000000005,
             datetime(2025, 5, 6, 14, 15), "Executed"],
            [ZINC, "ZINC", "INE999A01015", "BUY", 2, 204, "NSE", 1300000000000004,
             datetime(2025, 5, 6, 9, 15), "Executed"]],
        [("NSE", "P", ZINC, "30", "101.67"), ("NSE", "S", ZINC, "30", "103.34"),
         ("NSE", "P", ZINC, "2", "102"), ("NSE", "P", ZINC, "2", "103")]),
    "Paytm Money": (
        [["Paytm Money Limited"], ["Transaction statement"], ["From", DAY], [], [], PAYTM] + [
            [DAY, ZINC, "INE999A01015", "NSE", "CNC", "Buy", 10, 100, 2.5, 0.03, 0.46, 1, 0.01,
             0.15, 1100000000000042, 0, time(10, 0)],
            ["02-05-2025", ZINC, "INE999A01015", "NSE", "CNC", "Buy", 5, 100.5, 2.5, 0.02, 0.45,
             0.5, 0.01, 0.08, 1100000000000043, 0, "10:00:01"]],
        [("NSE", "P", ZINC, "10", "100", "0.25", "0.46", "1", "0.23", "0.07"),
         ("NSE", "P", ZINC, "5", "100.5", "0.5", "0.45", "0.5", "", "")]),
}
BOOKS["5paisa"] = (
    [["5paisa Capital Limited"], ["Equity Transaction Report"]] + [[]] * 5
    + ["Transaction Date,Company Name,Exchange,Type,Quantity,Price,Tax/Charges,Brokerage,"
       "Remarks".split(","),
       ["May 02 2025", ZINC, "BSE", "Buy", 65, 324.25, 25.64, 20, "Buy Trade"],
       ["May 05 2025", ZINC, "BSE", "Sell", 65, "324.75", 25.64, 20, "Sell Trade"],
       ["May 06 2025", ZINC, "BSE", "Buy", 65, 0, 0, 0, "Bonus"]],
    [("BSE", "P", ZINC, "65", "324.25"), ("BSE", "S", ZINC, "65", "324.75")])
GIVEN_AS = {"Upstox": ("xlsx",), "Paytm Money": ("xlsx",), "5paisa": ("xls",)}
FORMS = {"xlsx": workbook.xlsx, "ods": workbook.ods, "xls": workbook.xls}


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
        # Keys of scrips differ there, and still every trade is known.
        told = again.run("trades", self.file(book(grown)), *OPTIONS).stderr
        self.assertIn("nothing was written", told)

    def test_files_of_several_years_and_kinds_come_in_oldest_first(self):
        trades = made_up(60, 7)
        later = self.file(book(trades[30:]), "a.csv")
        banner = [["Tradebook for Equity"], [], ["Client ID", "AB0001"]]
        titles = [name.replace("_", " ").title() for name in HEADER]
        cells = banner + [titles] + [[""] * 13] + [list(one.values()) for one in trades[:30]]
        earlier = self.file(workbook.xlsx(cells), "b.xlsx")
        self.assertIn("60 trades", self.trades(later, earlier))

    def test_workbooks_of_brokers_are_read_with_their_banners_and_kinds_of_cells(self):
        columns = ("exchange", "side", "scrip_code", "quantity", "rate", "brokerage", "service_tax",
                   "stt", "other_charges", "transaction_charges")
        names_of_scrips = self.file("layout,meaning,heading,words\n" + "".join(
            f"own,scrip,{name},{code}\n" for code, (_symbol, name) in SCRIPS.items()), "map.csv")
        for broker, (lines, wanted) in BOOKS.items():
            for form in GIVEN_AS.get(broker, FORMS):
                with self.subTest(broker=broker, form=form):
                    desk = self.new_desk()
                    desk.take_in(write(self.new_folder(), FOLDER))
                    path = self.file(FORMS[form](lines), f"book.{form}")
                    desk.run("trades", path, *OPTIONS, "--map", names_of_scrips)
                    bills = desk.export()["bills.csv"].decode()
                    names = {code: name for code, (_symbol, name) in SCRIPS.items()}
                    self.assertEqual(wanted, [
                        tuple(names.get(row[column], row[column])
                              for column in columns[:len(wanted[0])]) for row in rows(bills)])
                    told = desk.run("trades", path, *OPTIONS).stderr
                    self.assertIn("nothing was written", told)
            # Trades without numbers are known by scrips, whose keys are others in another database.
            again = self.new_desk()
            again.take_in(write(self.new_folder(), {
                "scrips.csv": "code,name,type,class\n599999,FIRST LTD,EQUITY,A\n"}))
            again.take_in(write(self.new_folder(), desk.export()))
            told = again.run("trades", path, *OPTIONS, "--map", names_of_scrips).stderr
            self.assertIn("nothing was written", told)

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
