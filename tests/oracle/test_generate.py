"""The generated portfolios are legal, repeatable and hold what they are meant to exercise."""

import csv
import subprocess
import sys
import tempfile
import unittest
from collections import Counter, defaultdict
from fractions import Fraction
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE))

from exact import financial_year  # noqa: E402
from folder import read  # noqa: E402
from ledger import Ledger  # noqa: E402
from statement import Choice, remaining, statement  # noqa: E402

FACES = (
    ("--lines", "3000", "--seed", "1"),
    ("--lines", "2000", "--seed", "2", "--years", "3", "--order", "client"),
    ("--lines", "1500", "--seed", "3", "--clients", "2", "--scrips", "3"),
)


class Generated(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.temporary.cleanup)
        cls.folders = [cls.generate(f"{n}", face) for n, face in enumerate(FACES)]
        cls.ledgers = [Ledger(read(folder)) for folder in cls.folders]  # refuses what is illegal

    @classmethod
    def generate(cls, name, face) -> Path:
        folder = Path(cls.temporary.name) / name
        subprocess.run([sys.executable, HERE / "generate.py", *face, "--out", folder], check=True)
        return folder

    def test_same_arguments_give_the_same_files(self):
        again = self.generate("again", FACES[0])
        for file in sorted(self.folders[0].iterdir()):
            self.assertEqual(file.read_bytes(), (again / file.name).read_bytes(), file.name)

    def test_number_of_lines_is_the_one_asked_for(self):
        for face, folder in zip(FACES, self.folders):
            lines = (folder / "bills.csv").read_text(encoding="utf-8").count("\n") - 1
            self.assertEqual(lines, int(face[1]))

    def test_every_feature_occurs(self):
        with (self.folders[0] / "bills.csv").open(encoding="utf-8", newline="") as file:
            lines = list(csv.DictReader(file))
        sales = [line for line in lines if line["side"] == "S"]
        portfolio = self.ledgers[0].portfolio
        owners = portfolio.accounts
        bought = Counter((line["account_no"], line["scrip_code"], line["rate"])
                         for line in lines if line["side"] == "P")
        found = {
            "fractional quantity": any("." in line["quantity"] for line in lines),
            "rate of four decimals": any(len(line["rate"].partition(".")[2]) > 2
                                         for line in lines),
            "sale with its lot": any(line["lot_rate"] for line in sales),
            "sale without": any(not line["lot_rate"] for line in sales),
            "sale over several lots": any(
                len(settled) > len(portfolio.bills[order].lines)
                for order, settled in self.ledgers[0].lines.items()),
            "line without charges": any(line["brokerage"] == line["stt"] == "0"
                                        for line in lines),
            "intraday": any(line["delivery_type"] == "Non Delivery Based" for line in sales),
            "futures and options": any(line["fo"] == "1" for line in sales),
            "purchases at one rate": bought.most_common(1)[0][1] > 1,
            "transfer within a client": any(owners[one.source] == owners[one.target]
                                            for one in portfolio.transfers),
            "transfer to another": any(owners[one.source] != owners[one.target]
                                       for one in portfolio.transfers),
            "sale of shares that come in on its day": self.sold_on_arrival(portfolio),
        }
        self.assertEqual([name for name, there in found.items() if not there], [])

    @staticmethod
    def sold_on_arrival(portfolio) -> bool:
        arrivals = {(one.date, one.target, one.scrip): one.quantity
                    for one in portfolio.transfers}
        return any(arrivals.get((bill.date, bill.account, line.scrip)) == line.quantity
                   for bill in portfolio.bills for line in bill.lines if not line.purchase)

    def test_statement_leaves_no_share_and_no_paisa_out(self):
        for ledger in self.ledgers:
            for client in ledger.portfolio.clients:
                rows = statement(ledger, client, "2011-12", Choice(charges="both"))
                left = sum(row.quantity for row in rows if row.row == "unsold")
                held = sum(lot[3] for lot in ledger.holdings(client, "2011-12"))
                carried = sum(row.quantity for row in remaining(ledger, client, "2011-12"))
                self.assertEqual((left, carried), (held, held))
                self.assertEqual([row for row in rows if row.row == "unmatched"], [])
                # What left by a transfer is neither sold nor gained.
                without_gain = 0
                for row in rows:
                    if row.row == "transfer":
                        without_gain += row.sale_amount - row.purchase_cost
                    elif row.row in ("match", "net_total"):
                        rest = without_gain if row.row == "net_total" else 0
                        self.assertEqual(row.long_term + row.short_term + row.speculation + rest,
                                         row.sale_amount - row.purchase_cost - row.stt_paid)


if __name__ == "__main__":
    unittest.main()
