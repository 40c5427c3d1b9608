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


if __name__ == "__main__":
    unittest.main()
