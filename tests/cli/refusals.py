#!/usr/bin/env python3
"""What quorvanectl does not take: where it says the fault lies, its exit status, and that nothing
changed."""

import shutil
import socket
import tempfile
import unittest
from pathlib import Path
from typing import NamedTuple

from base import (BASE, BILL_HEADER, CLIENT_HEADER, MONEY_HEADER, OPENING_HEADER, TRANSFER_HEADER,
                  write)
from ctl import DONE, FAILURE, REFUSED, WRONG_USAGE, Case, end_servers, roomy_memory, run


class Bad(NamedTuple):
    """A folder that is refused: its files, and the place and the reason that must be told."""

    files: dict
    told: tuple


def bad(file: str, content, *told: str) -> Bad:
    return Bad({file: content}, told)


def bill(line: str, place: str, *told: str, header: str = BILL_HEADER) -> Bad:
    """A bills.csv of one good line and a bad one under it."""
    good = "AN,A1,77,02/05/2011,LOTUS,NSE,P,600001,1,60,,,,,,"
    return bad("bills.csv", f"{header}\n{good}\n{line}\n", f"bills.csv, line 3{place}", *told)


def bill_with(column: str, value: str, *told: str) -> Bad:
    fields = dict(zip(BILL_HEADER.split(","),
                      "AN,A1,78,02/05/2011,LOTUS,NSE,P,600001,1,60,,,,,,".split(",")))
    fields[column] = value
    return bill(",".join(fields.values()), f", column {column}: ", *told)


def opening(line: str, column: str, *told: str) -> Bad:
    return bad("opening.csv", f"{OPENING_HEADER}\n{line}\n",
               f"opening.csv, line 2, column {column}: ", *told)


def transfer(line: str, column: str, *told: str) -> Bad:
    return bad("transfers.csv", f"{TRANSFER_HEADER}\n{line}\n",
               f"transfers.csv, line 2, column {column}: ", *told)


def client(line: str, column: str, *told: str) -> Bad:
    return bad("clients.csv", f"{CLIENT_HEADER}\n{line}\n",
               f"clients.csv, line 2, column {column}: ", *told)


def payment(line: str, column: str, *told: str) -> Bad:
    return bad("payments.csv", f"{MONEY_HEADER}\n{line}\n",
               f"payments.csv, line 2, column {column}: ", *told)


A_NUMBER = "expected a number of 0 or more"
ABOVE_0 = "expected a number above 0"
A_DATE = "expected a date dd/mm/yyyy"

BAD = {
    # The form of a file
    "unknown column": bad("clients.csv", "code,name,colour\nCE,CEE,RED\n",
                          "clients.csv, line 1, column colour: unknown column"),
    "column twice": bad("clients.csv", "code,name,NAME\nCE,CEE,DEE\n",
                        "clients.csv, line 1, column NAME: ", "twice"),
    "missing column": bad("bills.csv", BILL_HEADER.replace(",quantity", "") + "\n",
                          "bills.csv, line 1, column quantity: ", "missing"),
    "too few fields": bill("AN,A1,78,02/05/2011", ": ", "expected 16 fields, found 4"),
    "unclosed quote": bill('AN,A1,"78,02/05/2011,LOTUS,NSE,P,600001,1,60,,,,,,', ": ",
                           "a quoted field is not closed"),
    "text after a quote": bill('AN,A1,"78"9,02/05/2011,LOTUS,NSE,P,600001,1,60,,,,,,', ": ",
                               "text follows the closing quote"),
    "empty file": bad("bills.csv", "", "bills.csv, line 1: expected a header row",
                      "empty file"),
    "latin-1 far down": bad("clients.csv", "code,name\n".encode() + b"".join(
        b"K%04d,KAY\n" % n for n in range(2000)) + b"CE,JOS\xc9\n",
        "clients.csv, line 2002", "expected UTF-8 text"),
    "zero byte": bad("clients.csv", "code,name\nCE,C\0EE\n", "clients.csv, line 2",
                     "expected UTF-8 text"),
    "empty folder": Bad({}, ("expected at least one file of a portfolio, such as bills.csv",)),
    # Dates and years
    "31 February": bill_with("bill_date", "31/02/2012", A_DATE, '"31/02/2012"'),
    "year that is none": opening("AN,A1,2011-13,600001,1,50,05/05/2010", "fyear",
                                 "expected a financial year such as 2011-12", '"2011-13"'),
    "purchase after the year": opening("AN,A1,2011-12,600001,1,50,01/04/2012", "purchase_date",
                                       "31/03/2012"),
    # Numbers
    "quantity of nothing": bill_with("quantity", "0", ABOVE_0),
    "thousands separator": bill_with("rate", '"1,250.50"', A_NUMBER, '"1,250.50"'),
    "negative rate": bill_with("rate", "-60", A_NUMBER),
    "no rate": bill_with("rate", "", "expected a number"),
    # Words
    "side": bill_with("side", "B", "expected one of P, S", '"B"'),
    "sex": client("CE,CEE,,,X", "sex", "expected one of Male, Female, Other"),
    "PAN": client("CE,CEE,,AAAAA1111,", "pan", "expected a PAN such as AAAPA9999A"),
    "mode": payment("AN,LOTUS,Receving,10,01/06/2011,Cash,,", "mode",
                    "expected one of Payment, Cr. By Broker"),
    # Texts
    "name of 300 characters": client("CE," + "N" * 300 + ",,,", "name",
                                     "expected at most 255 characters, found 300"),
    # Names that are not known
    "client": bill_with("client_code", "ZZ", "expected a known client", '"ZZ"'),
    "account of another client": bill_with("account_no", "B1", "expected an account of the client",
                                           '"B1"'),
    "account": opening("AN,A9,2011-12,600001,1,50,05/05/2010", "account_no",
                       "expected an account of the client", '"A9"'),
    "scrip": bill_with("scrip_code", "999999", "expected a known scrip", '"999999"'),
    "broker": bill_with("broker", "NOBODY", "expected a known broker", '"NOBODY"'),
    "account to": transfer("01/06/2011,A1,C7,600001,50,1", "to_account",
                           "expected a known account number"),
    "participant": bad("accounts.csv", "client_code,participant,account_no\nAN,OTHER,A7\n",
                       "accounts.csv, line 2, column participant: "),
    # Shares that are not there
    "sale above the balance": bill("AN,A1,78,03/05/2011,LOTUS,NSE,S,600001,111.5,60,,,,,,",
                                   ", column quantity: ", "You Can't Sale Scripts More than "
                                   "Balance. Maximum Allowed Value is: 111.00"),
    "sale above the lot": bill("AN,A1,78,03/05/2011,LOTUS,NSE,S,600001,101,60,,,,,50,",
                               ", column quantity: ", "Maximum Allowed Value is: 100.00"),
    "sale of a lot that is not there": bill("AN,A1,78,03/05/2011,LOTUS,NSE,S,600001,1,60,,,,,51,",
                                            ", column lot_rate: ",
                                            "Maximum Allowed Value is: 0.00"),
    "sale before the purchase": bill("AN,A1,78,01/05/2011,LOTUS,NSE,S,600001,101,60,,,,,,",
                                     ", column quantity: ", "Maximum Allowed Value is: 100.00"),
    "transfer above the lot": transfer("01/06/2011,A1,B1,600001,50,100.5", "quantity",
                                       "You Can't Transfer Scripts More than Balance. Maximum "
                                       "Allowed Value is: 100.00"),
    "transfer to itself": transfer("01/06/2011,A1,A1,600001,50,1", "to_account",
                                   "expected another account"),
    "lot rate of a purchase": bill_with("lot_rate", "50", "expected nothing"),
    # Twice
    "client twice": bad("clients.csv", "code,name\nCE,CEE\nDE,DEE\nce,CEE\n",
                        "clients.csv, line 4, column code: stands in this file already"),
    "broker's opening twice": bad(
        "broker_opening.csv", "client_code,fyear,broker,amount,side\nAN,2011-12,LOTUS,5,Dr\n"
        "AN,2011-12,LOTUS,5,Dr\n", "broker_opening.csv, line 3, column broker: "
        "Record Already Exists!"),
    "two rates of one day": bad("rates.csv", "date,scrip_code,rate\n31/03/2012,600001,71\n",
                                "rates.csv, line 2, column rate: ", "the rate 70"),
    "client with another name": client("AN,ANAND SOMEBODY,,,", "code",
                                       "Client Code Already Exists."),
    "scrip with another name": bad("scrips.csv", "code,name,type,class\n600001,LEAD,EQUITY,A\n",
                                   "scrips.csv, line 2, column code: "
                                   "Script Code Already Exists."),
    "recorded bill": bad("bills.csv",
                         BILL_HEADER + "\nAN,A1,1,02/05/2011,LOTUS,NSE,P,600002,3,7,,,,,,\n",
                         "bills.csv, line 2, column bill_no: this bill is recorded already"),
    "recorded payment": payment("AN,LOTUS,Payment,100,01/06/2011,Cash,,", "",
                                )._replace(told=("payments.csv, line 2: this payment is recorded "
                                                 "already",)),
    "charge on a bill's second row": bill(
        "AN,A1,77,02/05/2011,LOTUS,NSE,P,600002,1,60,,,,,,2", ", column other_charges: ",
        "first row, line 2"),
    "two exchanges on a bill": bill(
        "AN,A1,77,02/05/2011,LOTUS,BSE,P,600002,1,60,,,,,,", ", column exchange: ",
        "first row, line 2"),
    "good files beside a bad one": Bad(
        {"clients.csv": "code,name\nCE,CEE\n",
         "rates.csv": "date,scrip_code,rate\n30/03/2012,600001,68\n30/03/2012,600001,69\n"},
        ("rates.csv, line 3, column rate: ",)),
}


class Refusals(Case):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.desk = cls.new_desk()
        cls.desk.take_in(write(cls.home / "base", BASE))
        cls.before = cls.desk.export()

    def test_bad_input_is_refused_with_its_place_and_changes_nothing(self):
        tables = ",".join(name for name, in self.desk.sql("Show Tables"))
        after = self.desk.sql(f"Checksum Table {tables}")
        for name, case in BAD.items():
            with self.subTest(name):
                told = self.desk.run("import", write(self.new_folder(), case.files), status=None)
                before, after = after, self.desk.sql(f"Checksum Table {tables}")
                self.assertEqual(before, after)
                self.assertEqual(told.returncode, REFUSED, told.stderr)
                for text in case.told:
                    self.assertIn(text, told.stderr)
        self.assert_same_files(self.before, self.desk.export())
        self.check_is_well(self.desk)

    def test_every_error_is_told_at_once(self):
        header, line = BILL_HEADER, "AN,A1,78,02/05/2011,LOTUS,NSE,P,600001,{},{},,,,,,"
        folder = write(self.new_folder(), {
            "bills.csv": "\n".join([header, line.format("x", "1"), line.format("1", "y"), ""]),
            "transfers.csv": f"{TRANSFER_HEADER}\n32/01/2012,A1,B1,600001,50,1\n"})
        told = self.desk.take_in(folder, REFUSED)
        for place in ("bills.csv, line 2, column quantity", "bills.csv, line 3, column rate",
                      "transfers.csv, line 2, column date"):
            self.assertIn(place, told)

    def test_hopeless_file_is_not_told_line_by_line(self):
        folder = write(self.new_folder(), {
            "rates.csv": "date,scrip_code,rate\n" + f"{'₹' * 5000},b,c\n" * 5000})
        told = self.desk.take_in(folder, REFUSED)
        self.assertLess(len(told.splitlines()), 70)
        self.assertIn("rates.csv, column date: 4980 more such errors: expected a date", told)
        self.assertIn(f'found "{"₹" * 80}..."', told)
        self.assertNotIn("₹" * 81, told)

    def test_line_is_that_where_the_row_begins(self):
        folder = write(self.new_folder(), {
            "clients.csv": 'code,name,address\nCE,CEE,"Flat 1\nLane 2\nPune"\n\nDE,,\n'})
        self.assertIn("clients.csv, line 6, column name: ", self.desk.take_in(folder, REFUSED))

    def test_names_of_records_that_are_not_there(self):
        for words, told in (
                (("holdings", "--client", "ZZ", "--year", "2011-12"), 'no client "ZZ"'),
                (("holdings", "--client", "AN", "--year", "2011-12", "--account", "B1"),
                 'no demat account "B1"'),
                (("carry-forward", "stock", "--client", "ZZ", "--year", "2012-13"),
                 'no client "ZZ"'),
                (("statement", "profit", "--client", "ZZ", "--year", "2011-12"), 'no client "ZZ"'),
                (("statement", "profit", "--client", "AN", "--year", "2011-12", "--accounts",
                  "A1,B1"), 'no demat account "B1"'),
                (("statement", "capital-gain", "--all", "--year", "2011-12", "--accounts", "C1"),
                 'no demat account "C1"'),
                (("statement", "capital-gain", "--all", "--year", "2011-12", "--scrips",
                  "600001,9"), 'no scrip "9"'),
                (("statement", "capital-gain", "--all", "--year", "2011-12", "--from",
                  "02/06/2011", "--to", "01/06/2011"), "From Date Can't be Greater"),
                (("statement", "broker-account", "--client", "AN", "--year", "2011-12", "--broker",
                  "LOTUS", "--broker", "ROSE"), "no broker ROSE"),
                (("returns", "--group", "ZZ"), 'no client group "ZZ"'),
                (("returns", "--client", "AN", "--account", "B1"), 'no demat account "B1"'),
                (("returns", "--group", "KAM", "--scrip", "9"), 'no scrip "9"'),
                (("returns", "--client", "AN", "--from", "02/06/2011", "--to", "01/06/2011"),
                 "From Date Can't be Greater"),
                (("booklet", "--client", "ZZ", "--year", "2011-12", "--out", "{out}/b.pdf"),
                 'no client "ZZ"'),
                (("booklet", "--client", "AN", "--year", "2098-99", "--out", "{out}/b.pdf"),
                 "2098-99 has not begun")):
            with self.subTest(" ".join(words)):
                out = self.new_folder()
                result = self.desk.run(*(word.format(out=out) for word in words), status=REFUSED)
                self.assertIn(told, result.stderr)
                self.assertEqual(result.stdout, "")
                self.assertEqual(list(out.iterdir()), [])

    def test_wrong_usage(self):
        for words, told in (
                ((), "subcommand"),
                (("import",), "folder"),
                (("holdings", "--client", "AN"), "--year"),
                (("holdings", "--client", "AN", "--year", "2011-13"), "2011-13"),
                (("holdings", "--client", "AN", "--year", "2011-12", "--format", "xml"), "xml"),
                (("statement", "capital-gain", "--year", "2011-12"), "--all"),
                (("statement", "capital-gain", "--client", "AN", "--all", "--year", "2011-12"),
                 "--all"),
                (("statement", "capital-gain", "--all", "--year", "2011-12", "--from",
                  "31/02/2012"), "31/02/2012"),
                (("statement", "capital-gain", "--all", "--year", "2011-12", "--charges", "all"),
                 "all"),
                (("returns", "--to", "01/04/2012"), "--group"),
                (("returns", "--client", "AN", "--group", "KAM"), "--client"),
                (("booklet", "--client", "AN", "--year", "2011-12"), "--out"),
                (("booklet", "--client", "AN", "--year", "2011-12", "--parts", "all", "--out",
                  "b.pdf"), "all"),
                (("rebuild",), "--all"),
                (("carry-forward",), "subcommand"),
                (("carry-forward", "stock", "--client", "AN"), "--year")):
            with self.subTest(" ".join(words)):
                result = self.desk.run(*words, status=WRONG_USAGE)
                self.assertIn(told, result.stderr)
                self.assertEqual(result.stdout, "")
        self.assert_same_files(self.before, self.desk.export())

    def test_folder_that_cannot_be_read(self):
        missing = self.home / "nowhere"
        self.assertIn(str(missing), self.desk.run("import", missing, status=FAILURE).stderr)
        folder = write(self.new_folder(), {"clients.csv": "code,name\nCE,CEE\n"})
        (folder / "bills.csv").mkdir()
        self.assertIn("bills.csv", self.desk.run("import", folder, status=FAILURE).stderr)
        self.assert_same_files(self.before, self.desk.export())

    def test_place_that_cannot_be_written(self):
        file = self.new_folder() / "file"
        file.write_text("kept")
        self.assertIn(str(file), self.desk.run("export", file, status=FAILURE).stderr)
        self.assertIn(str(file), self.desk.run(
            "statement", "profit", "--client", "AN", "--year", "2011-12", "--out", file / "x",
            status=FAILURE).stderr)
        self.assertEqual(file.read_text(), "kept")

    def test_database_that_cannot_be_used(self):
        with socket.socket() as free:
            free.bind(("127.0.0.1", 0))
            port = free.getsockname()[1]
        here = f"Socket={self.server.socket}\n"
        for settings, told in (
                (f"Server=127.0.0.1\nPort={port}\nDatabase=x\nUser=root\n", "127.0.0.1"),
                (f"Socket={self.home}/no.sock\nDatabase=x\nUser=root\n", "no.sock"),
                (here + "Database=nothing\nUser=root\n", "nothing"),
                (here + "Database=quorvane\nUser=stranger\nPassword=guess\n", "stranger"),
                ("Server=127.0.0.1\nPort=many\nDatabase=x\n", "Port"),
                ("Server=127.0.0.1\nDatabase=x\nTlsVerify=perhaps\n", "TlsVerify"),
                (here + "Database=x\nDriver=No Such Driver\n", "No Such Driver")):
            with self.subTest(settings.splitlines()):
                folder = write(self.new_folder(), {"Confg.ini": "[Database]\n" + settings})
                result = run(folder, "check", status=FAILURE)
                self.assertIn(told, result.stderr)
                self.assertNotIn("guess", result.stderr)
                self.assertFalse((folder / "database").exists(), "a server of its own was made")

    def test_application_folder_that_is_a_file(self):
        file = self.new_folder() / "file"
        file.write_text("kept")
        self.assertIn(str(file), run(file, "check", status=FAILURE).stderr)
        self.assertEqual(file.read_text(), "kept")


class FirstStart(unittest.TestCase):
    def test_database_folder_that_cannot_be_made(self):
        folder = Path(tempfile.mkdtemp(prefix="quorvane-cli-", dir=roomy_memory()))
        self.addCleanup(shutil.rmtree, folder)
        self.addCleanup(end_servers, folder)
        blocked = folder / "database"
        blocked.write_text("not a folder")
        self.assertIn(str(blocked), run(folder, "check", status=FAILURE).stderr)
        blocked.unlink()
        run(folder, "check", status=DONE)


if __name__ == "__main__":
    unittest.main()
