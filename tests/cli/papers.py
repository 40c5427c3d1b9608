#!/usr/bin/env python3
"""Statements of depositories and contract notes of brokers: what is read of their PDF documents,
what is told, and what is recorded."""

import unittest
from datetime import date
from html import escape
from pathlib import Path

import pdf
import workbook
from base import write
from ctl import REFUSED, Case, rows

PORTFOLIO = {
    "participants.csv": "name,depository,dp_id\nNIDHI,NSDL,IN399901\n",
    "clients.csv": "code,name,dob,pan\nAN,ANAND KAMDHENU,01/02/1970,ABCPK1234L\n"
                   "BI,BINA KAMDHENU,,ABCPK4321L\nNEW,NEELA KAMDHENU,,\n",
    "accounts.csv": "client_code,participant,dp_id,account_no\nAN,NIDHI,IN399901,10000001\n"
                    "BI,NIDHI,IN399901,20000002\nNEW,NIDHI,IN399901,30000003\n",
    "brokers.csv": "name,city\nLOTUS SECURITIES,MUMBAI\n",
    "scrips.csv": "code,name,type,class\n600001,ZINC ALLOYS LTD,EQUITY,A\n"
                  "600002,ALUM CASTINGS LTD,EQUITY,A\n",
    "isins.csv": "scrip_code,isin,from_date\n600001,INE999A01015,\n600002,INE999B01021,\n",
    "bills.csv": "client_code,account_no,bill_no,bill_date,broker,exchange,side,scrip_code,"
                 "quantity,rate\n"
                 "AN,10000001,1,02/05/2025,LOTUS SECURITIES,NSE,P,600001,100,50\n"
                 "AN,10000001,2,29/10/2025,LOTUS SECURITIES,NSE,P,600002,50,10\n",
}


def statement(account="10000001", day="31-Oct-2025", zinc="200", extra="") -> str:
    return f"""
NSDL Consolidated Account Statement for the period from 01-Oct-2025 to {day}
DP ID: IN399901   Client ID: {account}
Holdings as on {day}
Equities (E)
ISIN            Company Name          Face Value    No. of     Market Price    Value
Stock Symbol                          in Rs         Shares     in Rs           in Rs
INE999A01015    ZINC ALLOYS LIMITED   10.00         {zinc:<8}   1,375.20        0.00
ZINC.NSE
{extra}
"""


UNKNOWN = "INE999C01037    COPPER WIRES LTD      1.00          30         10.00           300.00"


def note(number="LT/1", net="(4126.84)", zinc="10 462.0000 0.0500 462.0500 4620.50 10 4620.50",
         pan="ABCPK1234L", title="", day="03-Nov-2025", obligation="(4120.55)",
         sold="INE999B01021    ALUM CASTINGS  5 100.0000 0.0100 99.9900 499.95 -5 499.95") -> str:
    return f"""
LOTUS SECURITIES LIMITED     PAN : AAACL1234C
{title} CONTRACT NOTE CUM TAX INVOICE
Contract Note No. : {number}      Trade Date : {day}
PAN of Client : {pan}
ISIN            Security Name  BUY                                      SELL
INE999A01015    ZINC ALLOYS LTD  {zinc}
{sold}
Pay in/Pay out obligation  {obligation}
Taxable value of Supply (Brokerage)  (0.55)
Exchange transaction charges  (0.16)
CGST (0.06)
SGST (0.06)
Securities transaction tax  (5.00)
SEBI turnover fees  (0.01)
Stamp duty  (1.00)
Net amount receivable/(payable by client)  {net}
"""


def note_table(net=-4126.84) -> list[list]:
    """The same note as a table: what stands beside its heading, and what stands below it."""
    return [
        ["LOTUS SECURITIES LIMITED", None, "PAN :", "AAACL1234C"],
        ["CONTRACT NOTE CUM TAX INVOICE"],
        ["Contract Note No.", None, "Trade Date"],
        ["LT/1", None, date(2025, 11, 3)],
        ["PAN of Client", "ABCPK1234L"],
        ["ISIN", "Security Name", "BUY", None, None, None, None, "SELL", None, None, None, None,
         "Net Obligation"],
        ["INE999A01015", "ZINC ALLOYS LTD", 10, 462, 0.05, 462.05, 4620.5, None, None, None, None,
         None, 10, 4620.5],
        ["INE999B01021", "ALUM CASTINGS", None, None, None, None, None, 5, "₹ 100.0000", 0.01, 99.99,
         "499.95", 5, 499.95],
        [], ["", "NCL-Cash", "NET TOTAL"],
        ["Pay in/Pay out obligation (₹)", -4120.55, -4120.55],
        ["Taxable value of Supply (Brokerage)", -0.55, -0.55],
        ["Exchange transaction charges", -0.16, -0.16], ["CGST", -0.06, -0.06],
        ["SGST", -0.06, -0.06], ["Securities transaction tax", -5, -5],
        ["SEBI turnover fees", -0.01, -0.01], ["Stamp duty", -1, -1],
        ["Net amount receivable/(payable by client)", net, net]]


def web_page(table: list[list]) -> bytes:
    """As brokers' programs write it: tables within a table, headings over several columns."""
    def cell(value, span=1) -> str:
        shown = value.strftime("%d-%b-%Y") if isinstance(value, date) else str(value or "")
        return f'<td colspan="{span}"><font size=1>{escape(shown) or "&nbsp;"}</font></td>'

    def row(values: list) -> str:
        spans = {2: 5, 3: 5} if values[:1] == ["ISIN"] else {}
        kept = [value for value in values if value is not None or not spans]
        return "<tr>" + "".join(cell(value, spans.get(place, 1))
                                for place, value in enumerate(kept)) + "</tr>"

    inner = ["<table>" + "".join(map(row, part)) + "</table>"
             for part in (table[:5], table[5:8], table[9:])]
    return ("<!DOCTYPE html><html><head><style>td { color: black }</style></head><body>"
            f"<table><tr><td>{inner[0]}<p>Dear investor,<br>your trades:</td></tr></table>"
            f"{inner[1]}<div>{inner[2]}</div></body></html>").encode()


def day_note(number: str, *lines) -> str:
    """A note of one day without charges; of a line ISIN, shares (below 0 sold) and rate."""
    net = sum(-shares * rate for _isin, shares, rate in lines)
    printed = "\n".join(f"{isin}  SHARES  {abs(shares)} {rate:.3f} 0.00 {rate:.3f} "
                        f"{abs(shares) * rate:.2f} {shares} {abs(shares) * rate:.2f}"
                        for isin, shares, rate in lines)
    return f"""
LOTUS SECURITIES LIMITED
Contract Note No. : {number}      Trade Date : 03-Nov-2025
{printed}
Pay in/Pay out obligation  {net:.2f}
Net amount receivable/(payable by client)  {net:.2f}
"""


class Papers(Case):
    def setUp(self):
        self.desk = self.new_desk()
        self.folder = self.new_folder()
        self.desk.take_in(write(self.folder / "portfolio", PORTFOLIO))
        self.paper = self.folder / "paper.pdf"

    def reconciled(self, *options) -> list[tuple]:
        told = self.desk.run("reconcile", self.paper, "--client", "AN", "--format", "csv",
                             *options).stdout
        return [(row["name"], row["recorded"], row["stated"], row["result"], row["cause"])
                for row in rows(told)]

    def refused(self, told: str, *command):
        before = self.desk.export()
        self.assertIn(told, self.desk.run(*command, status=REFUSED).stderr)
        self.assert_same_files(before, self.desk.export())

    def test_differences_are_told_with_their_causes(self):
        pdf.write(self.paper, statement(extra=UNKNOWN))
        self.assertEqual([
            ("ALUM CASTINGS LTD", "50", "0", "missing-there",
             "Bill 2 of 29/10/2025 was not settled on that day"),
            ("COPPER WIRES LTD", "0", "30", "unknown-isin", ""),
            ("ZINC ALLOYS LTD", "100", "200", "differs", "Suggests: Bonus 1:1 or Split 2:1"),
        ], self.reconciled())
        self.assertEqual(["unknown-isin", "missing-here"],
                         [row[3] for row in self.reconciled("--as-on", "01/05/2025")])

    def test_recorded_action_is_named(self):
        self.desk.sql("Insert Into CorpAction(Id,Kind,ScrId,ExDay,NewShares,OldShares) Select "
                      "1,1,Id,'01/08/2025',2,1 From Script Where Code='600001'")
        pdf.write(self.paper, statement())
        self.assertIn("Split 2:1 of 01/08/2025 is recorded and not applied",
                      [row[4] for row in self.reconciled()])

    def test_report_has_every_format(self):
        pdf.write(self.paper, statement())
        for form in ("pdf", "xlsx"):
            out = self.folder / f"report.{form}"
            self.desk.run("reconcile", self.paper, "--client", "AN", "--format", form, "--out", out)
            self.assertGreater(out.stat().st_size, 1000)
        self.assertIn("2 of 2 holdings do not agree.",
                      self.desk.run("reconcile", self.paper, "--client", "AN").stdout)

    def test_passwords(self):
        for bits in (128, 256):
            with self.subTest(bits=bits):
                pdf.write(self.paper, statement(), "ABCPK1234L", bits)
                self.assertEqual(2, len(self.reconciled()))
        pdf.write(self.paper, statement(), "other")
        self.refused("None of the Passwords Opens the Document",
                     "reconcile", self.paper, "--client", "AN")
        (self.folder / "password").write_text("wrong\nother\n")
        self.assertEqual(2, len(self.reconciled("--password-file", self.folder / "password")))

    def test_bad_papers_change_nothing(self):
        whole = pdf.document(statement())
        cases = {
            "picture of paper": (pdf.document(""), "The Document has no Text"),
            "cut in the middle": (whole[:len(whole) // 3], ""),
            "no PDF": (b"%PDF-1.4 nothing", "The PDF Document is Broken."),
            "another client's": (pdf.document(statement("20000002")),
                                 "The Account IN39990120000002 is of Another Client: BINA"),
            "nobody's": (pdf.document(statement("40000004")),
                         "No Account of the Statement is a Demat A/c of the Client"),
            "of the future": (pdf.document(statement(day="31-Oct-2999")), "a Day in the Future"),
            "no holdings": (pdf.document("Dear investor"), "no Holdings that can be Read"),
            "empty table": (b"a,b\n1,2\n", "no Headings of a Statement of Holdings"),
            "too large a page": (b"<html>" + bytes(64 << 20), "holds more than can be read"),
        }
        for name, (content, told) in cases.items():
            with self.subTest(name):
                self.paper.write_bytes(content)
                self.refused(told, "reconcile", self.paper, "--client", "AN")
        self.paper.write_bytes(whole)
        self.refused("The Client has Records Already", "reconcile", self.paper, "--client", "AN",
                     "--opening")

    def test_opening_stock_of_a_new_client(self):
        pdf.write(self.paper, statement("30000003", extra=UNKNOWN))
        take = ("reconcile", self.paper, "--client", "NEW", "--opening")
        self.refused("These Securities are of no Script with a Code", *take)
        pdf.write(self.paper, statement("30000003", day="31-Mar-2025"))
        self.desk.run(*take)
        self.assertEqual([("2025-26", "200", "0", "31/03/2025")],
                         [(row["fyear"], row["quantity"], row["rate"], row["purchase_date"])
                          for row in rows(self.desk.export()["opening.csv"].decode())])
        self.assertIn("opening stock 2025-26 of client NEW was taken from a statement; 1 scrips",
                      self.desk.run("check").stdout)
        self.refused("The Client has Records Already", *take)
        exported = self.desk.export()
        self.assertEqual([{"client_code": "NEW", "account_no": "30000003", "fyear": "2025-26",
                           "scrip_code": "600001"}], rows(exported["opening_marks.csv"].decode()))
        again = self.new_desk()
        again.take_in(write(self.folder / "again", exported))
        self.assert_same_files(exported, again.export())
        self.desk.sql("Update StkOpBal Set Rate=5")
        self.assertNotIn("was taken from a statement", self.desk.run("check", status=None).stdout)

    def take(self, *options, status=0):
        return self.desk.run("note", self.paper, "--client", "AN", "--account", "10000001",
                             *options, status=status)

    def test_note_becomes_a_bill_once(self):
        pdf.write(self.paper, note(pan="XXXXXX234L"), "ABCPK1234L")
        self.take("--dry-run")
        self.assertNotIn(b"LT/1", self.desk.export()["bills.csv"])
        self.take()
        bills = [row for row in rows(self.desk.export()["bills.csv"].decode())
                 if row["bill_no"] == "LT/1"]
        self.assertEqual([("P", "600001", "10", "462", "0.05"), ("S", "600002", "5", "100", "0.01")],
                         [(row["side"], row["scrip_code"], row["quantity"], row["rate"],
                           row["brokerage"]) for row in bills])
        self.assertEqual(["10"], [row["lot_rate"] for row in bills if row["side"] == "S"])
        self.check_is_well(self.desk)
        self.refused("The Note is Entered Already", "note", self.paper, "--client", "AN",
                     "--account", "10000001")

    def test_notes_of_other_forms_become_the_same_bill(self):
        pdf.write(self.paper, note())
        self.take()
        expected = self.desk.export()
        def behind_a_comment(table: list[list]) -> bytes:
            return f"<!--{'x' * 70000}-->{web_page(table).decode()}".encode("utf-16")

        for form, make in {"html": web_page, "comment": behind_a_comment, "xlsx": workbook.xlsx, "ods": workbook.ods,
                           "xls": workbook.xls}.items():
            with self.subTest(form):
                self.desk = self.new_desk()
                self.desk.take_in(write(self.folder / form, PORTFOLIO))
                # The contents say what a file is.
                self.paper.write_bytes(make(note_table(-4226.84)))
                self.refused("obligation and charges come to 4126.84, its net amount is 4226.84",
                             "note", self.paper, "--client", "AN", "--account", "10000001")
                self.paper.write_bytes(make(note_table()))
                self.take()
                self.assert_same_files(expected, self.desk.export())

    def test_what_two_notes_of_a_day_buy_and_sell_is_without_delivery(self):
        zinc, alum = "INE999A01015", "INE999B01021"
        one, two = self.folder / "one.pdf", self.folder / "two.pdf"
        pdf.write(one, day_note("A1", (zinc, 10, 70.005), (alum, 5, 20)))
        pdf.write(two, day_note("B1", (zinc, -4, 75), (zinc, -3, 76)))
        options = ("--client", "AN", "--account", "10000001")
        self.desk.run("note", one, two, *options)
        bills = [row for row in rows(self.desk.export()["bills.csv"].decode())
                 if row["bill_no"] in ("A1", "B1")]
        self.assertEqual([
            ("A1", "P", "600001", "7", "Non Delivery Based", ""),
            ("A1", "P", "600001", "3", "Delivery Based", ""),
            ("A1", "P", "600002", "5", "Delivery Based", ""),
            ("B1", "S", "600001", "4", "Non Delivery Based", "70.005"),
            ("B1", "S", "600001", "3", "Non Delivery Based", "70.005")],
            [(row["bill_no"], row["side"], row["scrip_code"], row["quantity"],
              row["delivery_type"], row["lot_rate"]) for row in bills])
        self.check_is_well(self.desk)
        # Amounts of divided lines are rounded, and each note is still the same.
        for paper in (one, two):
            self.refused("The Note is Entered Already", "note", paper, *options)

    def test_recorded_bills_of_the_day_stay_and_are_told(self):
        zinc = "INE999A01015"
        pdf.write(self.paper, day_note("A1", (zinc, 10, 70)))
        self.take()
        recorded = self.desk.export()["bills.csv"].decode().splitlines()
        told = "Recorded bills of 03/11/2025 bought {} of ZINC ALLOYS LTD"
        pdf.write(self.paper, day_note("B1", (zinc, -4, 75)))
        self.assertIn(told.format("4.00"), self.take("--dry-run").stdout)
        book = self.folder / "book.csv"
        book.write_text("symbol,isin,trade_date,exchange,segment,series,trade_type,auction,quantity,"
                        "price,trade_id,order_id,order_execution_time\n" + "".join(
                            f"ZINC,INE999A01015,2025-11-03,NSE,EQ,EQ,sell,false,{quantity},75,{trade},"
                            f"O{trade},2025-11-03T1{trade}:00:00\n"
                            for trade, quantity in ((1, 4), (2, 9))))
        command = ("trades", book, "--account", "10000001", "--broker", "LOTUS SECURITIES")
        self.assertIn(told.format("10.00"), self.desk.run(*command).stderr)
        self.assertLessEqual(set(recorded),
                             set(self.desk.export()["bills.csv"].decode().splitlines()))
        self.check_is_well(self.desk)

    def test_note_of_a_trade_book_is_told(self):
        book = self.folder / "book.csv"
        book.write_text("symbol,isin,trade_date,exchange,segment,series,trade_type,auction,quantity,"
                        "price,trade_id,order_id,order_execution_time\nZINC,INE999A01015,2025-11-03,"
                        "NSE,EQ,EQ,buy,false,10,70,T1,O1,2025-11-03T10:00:00\n")
        self.desk.run("trades", book, "--account", "10000001", "--broker", "LOTUS SECURITIES")
        pdf.write(self.paper, day_note("A1", ("INE999A01015", 10, 70)))
        before = self.desk.export()
        self.refused("Give --by-hand", "note", self.paper, "--client", "AN", "--account",
                     "10000001")
        self.assert_same_files(before, self.desk.export())
        self.take("--by-hand")
        self.assertIn(b",A1,", self.desk.export()["bills.csv"])

    def test_revised_note_replaces_the_bill(self):
        pdf.write(self.paper, note())
        self.take()
        pdf.write(self.paper, note(title="REVISED", obligation="(4582.60)", net="(4588.89)",
                                   zinc="11 462.0000 0.0500 462.0500 5082.55 11 5082.55"))
        self.refused("Give --replace", "note", self.paper, "--client", "AN", "--account",
                     "10000001")
        self.take("--replace")
        bought = [row["quantity"] for row in rows(self.desk.export()["bills.csv"].decode())
                  if row["bill_no"] == "LT/1" and row["side"] == "P"]
        self.assertEqual(["11"], bought)
        self.check_is_well(self.desk)

    def test_revised_note_of_a_trade_book_keeps_its_trades(self):
        book = self.folder / "book.csv"
        book.write_text("symbol,isin,trade_date,exchange,segment,series,trade_type,auction,quantity,"
                        "price,trade_id,order_id,order_execution_time\nZINC,INE999A01015,2025-11-03,"
                        "NSE,EQ,EQ,buy,false,9,462,T1,O1,2025-11-03T10:00:00\n")
        trades = ("trades", book, "--account", "10000001", "--broker", "LOTUS SECURITIES")
        self.desk.run(*trades)
        recorded = self.desk.export()
        pdf.write(self.paper, note(number="NSE-20251103"))
        self.take("--replace")
        self.assertEqual("imported", rows(self.desk.run("log", "--format", "csv").stdout)[-1]["kind"])
        before = self.desk.export()
        self.assertIn("nothing was written", self.desk.run(*trades).stderr)
        self.assert_same_files(before, self.desk.export())
        self.desk.run("undo")
        self.assert_same_files(recorded, self.desk.export())

    def test_bad_notes_change_nothing(self):
        cases = {
            "does not add up": (note(net="(4226.84)"), "The Note does not Add Up"),
            "another's PAN": (note(pan="ABCPK4321L"), "Another PAN than the Client"),
            "no such scrip": (note(sold=note().split("\n")[7].replace("999B01021", "999C01037")),
                              "There is no Script for INE999C01037"),
            "of the future": (note(day="03-Nov-2999"), "a Day in the Future"),
            "no number": (note(number=""), "The Note's Number cannot be Read"),
            "more than is held": (note(
                sold="INE999B01021    ALUM  60 100.0000 0.0100 99.9900 5999.40 -60 5999.40",
                obligation="1378.90", net="1372.61"),
                "You Can't Sale Scripts More than Balance"),
        }
        for name, (text, told) in cases.items():
            with self.subTest(name):
                pdf.write(self.paper, text)
                self.refused(told, "note", self.paper, "--client", "AN", "--account", "10000001")


if __name__ == "__main__":
    unittest.main()
