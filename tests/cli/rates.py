#!/usr/bin/env python3
"""The rates of a day from a price file and from an exchange on this machine."""

import http.server
import io
import threading
import unittest
import zipfile

from base import BASE, write
from ctl import DONE, REFUSED, WRONG_USAGE, Case

FILE = ("SC_CODE,SC_NAME,SC_GROUP,SC_TYPE,CLOSE,TRADING_DATE\n"
        "600001,ZINC ALLOYS,A ,Q,71.255,30-Mar-2012\n"
        "600009,STRANGER,A ,Q,5,30-Mar-2012\n")


class Exchange(http.server.BaseHTTPRequestHandler):
    def do_GET(self):
        found = self.path == "/Hisbhav/eq300312_csv.zip"
        body = io.BytesIO()
        with zipfile.ZipFile(body, "w") as archive:
            archive.writestr("EQ300312.CSV", FILE)
        self.send_response(200 if found else 404)
        self.end_headers()
        if found:
            self.wfile.write(body.getvalue())

    def log_message(self, *_):
        pass


class Rates(Case):
    def setUp(self):
        self.desk = self.new_desk()
        self.desk.take_in(write(self.new_folder(), BASE))
        self.file = self.new_folder() / "prices.csv"
        self.file.write_text(FILE)

    def rates(self):
        return sorted(self.desk.export()["rates.csv"].decode().splitlines()[1:])

    def test_file_is_saved_and_taken_in_again(self):
        for _ in range(2):
            told = self.desk.run("rates", self.file, "--date", "30/03/2012").stderr
            self.assertIn("1 rates of 30/03/2012 saved; 1 rows of the file belong to no scrip.",
                          told)
            self.assertEqual(["30/03/2012,600001,71.26", "31/03/2012,600001,70"], self.rates())

    def test_what_is_refused_changes_nothing(self):
        self.file.with_name("bad.csv").write_text("A,B\n1,2\n")
        foreign = self.file.with_name("foreign.csv")
        foreign.write_text(FILE.replace("600001", "699999"))
        undated = self.file.with_name("day.zip")
        with zipfile.ZipFile(undated, "w") as archive:
            archive.writestr("EQ300312.CSV", FILE.replace(",TRADING_DATE", "").replace(
                ",30-Mar-2012", ""))
        for arguments, status, told in (
                ((undated, "--date", "29/03/2012"), REFUSED,
                 "The file holds the prices of 30/03/2012, not of 29/03/2012."),
                ((self.file, "--date", "29/03/2012"), REFUSED,
                 "The file holds the prices of 30/03/2012, not of 29/03/2012."),
                ((self.file, "--date", "01/01/2999"), REFUSED, "You can't insert future Date"),
                ((self.file.with_name("bad.csv"), "--date", "30/03/2012"), REFUSED,
                 "Invalid File."),
                ((foreign, "--date", "30/03/2012"), REFUSED, "no rate was saved"),
                ((self.file, "--date", "2012-03-30"), WRONG_USAGE, "--date"),
                ((self.file,), WRONG_USAGE, "--date"),
                (("--fetch", "--date", "30/03/2012"), WRONG_USAGE, "--exchange"),
                ((self.file, "--fetch", "--date", "30/03/2012", "--exchange", "BSE"), WRONG_USAGE,
                 "expected FILE")):
            with self.subTest(arguments=arguments):
                self.assertIn(told, self.desk.run("rates", *arguments, status=status).stderr)
        self.assertEqual(["31/03/2012,600001,70"], self.rates())

    def test_archive_is_asked_for_the_day(self):
        server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Exchange)
        threading.Thread(target=server.serve_forever, daemon=True).start()
        self.addCleanup(server.server_close)
        self.addCleanup(server.shutdown)
        with open(self.desk.folder / "Confg.ini", "a", encoding="utf-8") as settings:
            settings.write(f"[Internet]\nArchiveHost=http://127.0.0.1:{server.server_port}\n")
        fetch = ("rates", "--fetch", "--exchange", "BSE", "--date")
        self.desk.run(*fetch, "30/03/2012", status=DONE)
        self.assertIn("30/03/2012,600001,71.26", self.rates())
        self.assertIn("File Not Found.This Date Bhav Copy Not available on site.",
                      self.desk.run(*fetch, "29/03/2012", status=REFUSED).stderr)


BSE = ("SC_CODE,SC_NAME,SC_GROUP,SC_TYPE,OPEN,HIGH,LOW,CLOSE,LAST,PREVCLOSE,NO_TRADES,NO_OF_SHRS,"
       "NET_TURNOV,TDCLOINDI\r\n")
BSE_ROW = "{},ZINC ALLOYS ,A ,Q,950.00,{},942.00,961.15,961.15,949.25,5985,457062,4382304.00,"
NSE = ("SYMBOL,SERIES,OPEN,HIGH,LOW,CLOSE,LAST,PREVCLOSE,TOTTRDQTY,TOTTRDVAL,TIMESTAMP,TOTALTRADES,"
       "ISIN,\nZINC,EQ,950,{},940,961,961,949,10,10,{},1,INE002A01018,\n")
WITH_ISIN = BSE.strip() + ",ISIN_CODE,TRADING_DATE,FILLER2,FILLER3\r\n"


class FairValues(Case):
    """The highest prices of 31-Jan-2018."""

    def setUp(self):
        self.desk = self.new_desk()
        self.desk.take_in(write(self.new_folder(), BASE | {
            "scrips.csv": BASE["scrips.csv"].replace("code,", "code,ncode,").replace(
                "600001,", "600001,ZINC,").replace("600002,", "600002,,"),
            "isins.csv": "scrip_code,isin\n600002,INE467B01029\n"}))
        self.folder = self.new_folder()

    def file(self, name, text):
        (self.folder / name).write_text(text, newline="")
        return self.folder / name

    def bse(self, *rows, name="EQ310118.CSV"):
        return self.file(name, BSE + "\r\n".join(BSE_ROW.format(*row) for row in rows) + "\r\n")

    def values(self):
        return self.desk.export().get("fair_values.csv", b"").decode().splitlines()[1:]

    def missing(self, *arguments):
        return self.desk.run("fair-values", "--missing", *arguments).stdout.splitlines()[1:]

    def test_the_higher_price_of_both_exchanges_counts(self):
        self.assertEqual(self.missing(), ["600001,ZINC,ZINC ALLOYS LTD"])
        bse = self.bse((600001, "964.90"), (699999, 5))
        nse = self.file("cm31JAN2018bhav.csv", NSE.format("965.05", "31-JAN-2018"))
        told = self.desk.run("fair-values", bse, nse, "--dry-run").stderr
        self.assertIn("Nothing was written. 1 fair values are new, 0 are higher", told)
        self.assertEqual(self.values(), [])
        self.desk.run("fair-values", bse)
        self.assertEqual(self.values(), ["600001,964.9"])
        for _ in range(2):
            told = self.desk.run("fair-values", nse, bse).stderr
            self.assertEqual(self.values(), ["600001,965.05"])
        self.assertIn("0 fair values are new, 0 are higher than before, 1 stay; 1 rows", told)
        self.assertEqual(self.missing(), [])

    def test_what_the_exchanges_files_do(self):
        """Two records on one line, a scrip known by its ISIN alone, no trade, a day in the name of
        the file in the archive."""
        with zipfile.ZipFile(self.folder / "day.zip", "w") as archive:
            archive.writestr("EQ310118.CSV", BSE + BSE_ROW.format(600001, "70.5")
                             + BSE_ROW.format(600002, "-") + "\r\n")
        self.desk.run("fair-values", self.folder / "day.zip")
        self.assertEqual(self.values(), ["600001,70.5"])
        isin = self.file("a.csv", WITH_ISIN + BSE_ROW.format(512345, "80.25")
                         + ",INE467B01029,31-Jan-18,,\r\n")
        self.desk.run("fair-values", isin)
        self.assertEqual(self.values(), ["600001,70.5", "600002,80.25"])

    def test_of_a_client(self):
        self.assertEqual(self.missing("--client", "BI"), [])
        self.assertEqual(self.missing("--client", "AN"), ["600001,ZINC,ZINC ALLOYS LTD"])

    def test_what_is_refused_changes_nothing(self):
        good = self.bse((600001, 964))
        for arguments, status, told in (
                ((good, self.bse((600001, 964), name="EQ010218.CSV")), REFUSED,
                 "EQ010218.CSV: The file holds the prices of 01/02/2018, not of 31/01/2018."),
                ((self.file("b.csv", NSE.format(1, "30-JAN-2018")),), REFUSED, "of 30/01/2018"),
                ((good, self.bse((600001, 964), name="prices.csv")), REFUSED, "with --date"),
                ((good, "--date", "01/02/2018"), REFUSED, "of 31/01/2018, not of 01/02/2018"),
                ((self.file("c.csv", "<html><title>Not here</title></html>"),), REFUSED, "Invalid"),
                ((self.file("d.csv", FILE.replace("30-Mar-2012", "31-Jan-2018")),), REFUSED,
                 "no highest prices"),
                ((good, self.bse((600001, "x"), name="EQ_ISINCODE_310118.CSV")), REFUSED,
                 "x is no rate"),
                (("--missing", "--client", "XX"), REFUSED, "XX"),
                ((), WRONG_USAGE, "expected FILE"), ((good, "--missing"), WRONG_USAGE, "expected"),
                ((good, "--client", "AN"), WRONG_USAGE, "expected")):
            with self.subTest(arguments=arguments):
                self.assertIn(told, self.desk.run("fair-values", *arguments, status=status).stderr)
        self.assertEqual(self.values(), [])
        self.desk.run("fair-values", self.folder / "prices.csv", "--date", "31/01/2018")
        self.assertEqual(self.values(), ["600001,964"])


if __name__ == "__main__":
    unittest.main()
