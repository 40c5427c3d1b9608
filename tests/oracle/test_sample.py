"""The committed sample portfolio: what make_sample.py writes, legal, and with its cases in it."""

import csv
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

HERE = Path(__file__).resolve().parent
ROOT = HERE.parent.parent
SAMPLE = ROOT / "data" / "sample"
sys.path.insert(0, str(HERE))

import portfolio  # noqa: E402
from folder import read  # noqa: E402
from ledger import Ledger  # noqa: E402
from statement import Choice, remaining  # noqa: E402

R1, R2 = "10014501", "1209990000010017"
S1, N1, M1 = "10014519", "10014527", "1209990000030031"


def rows_of(name: str) -> list[dict]:
    with (SAMPLE / name).open(encoding="utf-8", newline="") as file:
        return list(csv.DictReader(file))


class Sample(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.ledger = Ledger(read(SAMPLE))  # refuses what is illegal

    def matches(self, client, year, account, scrip):
        """'purchase date, sale date, quantity, kind' of each match."""
        found = []
        for row in portfolio.statement_cells(self.ledger, client, year, Choice()):
            if (row["row"], row["account_no"], row["scrip_code"]) == ("match", account, scrip):
                kind = next(name for name in ("long_term", "short_term", "speculation")
                            if row[name] != "0.00")
                found.append(f"{row['purchase_date']} {row['sale_date']} {row['quantity']} {kind}")
        return found

    def test_files_are_those_that_the_tool_writes(self):
        with tempfile.TemporaryDirectory() as name:
            subprocess.run([sys.executable, ROOT / "tools" / "make_sample.py", name], check=True)
            written = {path.name: path.read_bytes() for path in Path(name).iterdir()}
        committed = {path.name: path.read_bytes() for path in SAMPLE.glob("*.csv")}
        self.assertEqual(sorted(written), sorted(committed))
        for file, content in written.items():
            self.assertEqual(content, committed[file], file)

    def test_sales_are_split_by_lot_already(self):
        for bill in self.ledger.portfolio.bills:
            self.assertEqual(sorted(bill.lines), sorted(self.ledger.lines[bill.order]))
        for row in rows_of("bills.csv"):
            self.assertEqual(bool(row["lot_rate"]), row["side"] == "S", row)

    def test_opening_of_a_year_is_what_the_year_before_left(self):
        for before, year in (("2011-12", "2012-13"), ("2012-13", "2013-14")):
            for client in self.ledger.portfolio.clients:
                opened = sorted((one.account, one.scrip, one.date, one.rate, one.quantity,
                                 one.service_tax, one.brokerage, one.stt)
                                for one in self.ledger.portfolio.openings
                                if (one.client, one.year) == (client, year))
                left = sorted((one.account, one.scrip, one.date, one.rate, one.quantity,
                               one.service_tax, one.brokerage, one.stt)
                              for one in remaining(self.ledger, client, before))
                self.assertEqual(opened, left)

    def test_cases(self):
        for client, year, account, scrip, expected in (
                ("ATH001", "2011-12", R1, "500470",
                 ["18/05/2011 18/05/2011 100 speculation",
                  "21/11/2011 21/11/2011 150 speculation"]),
                ("ATH001", "2012-13", R1, "500696",
                 ["05/07/2011 05/07/2012 50 short_term", "05/07/2011 06/07/2012 50 long_term"]),
                ("ATH004", "2013-14", M1, "532540",
                 ["12/12/2012 12/12/2013 20 short_term", "12/12/2012 13/12/2013 20 long_term"]),
                ("ATH002", "2012-13", S1, "500875",
                 ["29/02/2012 28/02/2013 100 short_term", "29/02/2012 01/03/2013 100 long_term"]),
                ("ATH002", "2011-12", S1, "500010",
                 ["10/05/2011 17/10/2011 60 short_term", "23/05/2011 17/10/2011 40 short_term"]),
                ("ATH001", "2011-12", R2, "532555",
                 ["23/07/2010 26/07/2011 150 long_term", "10/01/2011 26/07/2011 50 short_term"]),
                ("ATH004", "2011-12", M1, "500124",
                 ["02/05/2011 27/03/2012 15 short_term", "25/08/2011 27/03/2012 10 short_term",
                  "20/09/2011 27/03/2012 15 short_term"]),
                ("ATH003", "2011-12", N1, "532281", ["05/12/2011 28/03/2012 60 short_term"])):
            self.assertEqual(self.matches(client, year, account, scrip), expected, scrip)


if __name__ == "__main__":
    unittest.main()
