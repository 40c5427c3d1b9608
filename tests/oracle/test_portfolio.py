"""Hand-worked cases beside those in tests/scenarios: every figure below was worked out on paper from
the rule in its comment."""

import sys
import tempfile
import unittest
from datetime import date
from fractions import Fraction
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))

import portfolio  # noqa: E402
from exact import money, number, paise, plain  # noqa: E402
from folder import read  # noqa: E402
from ledger import Ledger, Shortage  # noqa: E402
from statement import Choice, remaining  # noqa: E402

MASTERS = {
    "clients.csv": "code,name\nAN,ANAND\nBI,BINA\n",
    "accounts.csv": "client_code,account_no\nAN,A1\nAN,A2\nBI,B1\n",
    "scrips.csv": "code,name\n500001,ZINC\n500002,ALUM\n",
}
BILL = ("client_code,account_no,bill_no,bill_date,broker,side,scrip_code,quantity,rate,brokerage,"
        "service_tax,stt,fo,lot_rate\n")
OPENING = ("client_code,account_no,fyear,scrip_code,quantity,rate,purchase_date,service_tax,"
           "brokerage,stt,fo\n")
TRANSFER = "date,from_account,to_account,scrip_code,rate,quantity\n"


def bill(number_, when, *lines, account="A1", client="AN"):
    """Lines as 'side quantity rate [brokerage service_tax stt fo lot_rate]' of scrip 500001;
    '-' leaves a cell empty."""
    rows = []
    for line in lines:
        side, quantity, rate, *rest = line.split()
        rest = [cell.replace("-", "") for cell in rest] + [""] * (5 - len(rest))
        rows.append(",".join((client, account, number_, when, "BRK", side, "500001", quantity,
                              rate, *rest)))
    return "\n".join(rows) + "\n"


class HandWorked(unittest.TestCase):
    BOUGHT = bill("1", "02/05/2011", "P 10 100 1 5 5")

    def ledger(self, bills="", opening="", transfers="") -> Ledger:
        files = MASTERS | {"bills.csv": BILL + bills, "opening.csv": OPENING + opening,
                           "transfers.csv": TRANSFER + transfers}
        with tempfile.TemporaryDirectory() as folder:
            for name, text in files.items():
                (Path(folder) / name).write_text(text, encoding="utf-8")
            return Ledger(read(folder))

    def rows(self, ledger, *columns, row=None, client="AN", year="2011-12", **choice):
        """The chosen cells of each row as one text, such as '50 01/06/2011 10.00'."""
        cells = portfolio.statement_cells(ledger, client, year, Choice(**choice))
        return [" ".join(one[name] or "-" for name in columns) for one in cells
                if row is None or one["row"] == row]

    def lots(self, ledger, client="AN", year="2011-12"):
        return [f"{a} {plain(rate)} {plain(left)}"
                for a, _scrip, rate, left in ledger.holdings(client, year)]

    def settled(self, ledger, order, *names):
        return [" ".join(plain(getattr(line, name)) for name in names)
                for line in ledger.lines[order]]

    def test_paise_round_half_away_from_zero(self):
        for text, expected in (("1.005", "1.01"), ("-1.005", "-1.01"), ("1.0049999", "1.00"),
                               ("-0.004", "0.00"), ("2.675", "2.68"), ("-0.05", "-0.05")):
            self.assertEqual(money(paise(number(text))), expected, text)

    def test_cost_is_rounded_once_from_the_exact_sum(self):
        # 1 of 3 bought at 10.004, service tax 0.01: 10.004 + 0.003333 = 10.007333 -> 10.01, while
        # 10.00 + 0.00 would be the sum of rounded parts.
        ledger = self.ledger(bill("1", "02/05/2011", "P 3 10.004 0 0.01")
                             + bill("2", "01/08/2011", "S 1 11 - - - - 10.004"))
        self.assertEqual(self.rows(ledger, "purchase_amount", "purchase_cost", row="match",
                                   charges="stax"), ["10.00 10.01"])

    def test_parts_are_of_the_rounded_sale_amount(self):
        # 2 at 1.0025 are 2.005 -> 2.01; half of it 1.005 -> 1.01, the rest 1.00.
        ledger = self.ledger(bill("1", "02/05/2011", "P 1 1", "P 1 1")
                             + bill("2", "01/08/2011", "S 2 1.0025"))
        self.assertEqual(self.rows(ledger, "sale_amount", row="match"), ["1.01", "1.00"])

    def test_openings_come_before_bills_before_transfers_of_one_date(self):
        ledger = self.ledger(
            opening="AN,A1,2011-12,500001,1,100,02/05/2011,,1,,\n"
                    "AN,A2,2011-12,500001,4,100,01/01/2011,,,,\n",
            bills=bill("1", "02/05/2011", "P 2 100 2") + bill("2", "02/05/2011", "S 3 120"),
            transfers="02/05/2011,A2,A1,500001,100,4\n")
        self.assertEqual(self.rows(ledger, "account_no", "row", "purchase_net", "quantity")[:3],
                         ["A1 match 101 1", "A1 match 102 2", "A1 unsold 100 4"])

    def test_scrips_come_by_name_and_have_a_total_even_when_nothing_is_listed(self):
        text = bill("1", "02/05/2011", "P 5 100", "P 1 90").splitlines()
        text[1] = text[1].replace("500001", "500002")
        ledger = self.ledger("\n".join(text) + "\n")
        self.assertEqual(self.rows(ledger, "row", "scrip_code", "purchase_amount"),
                         ["unsold 500002 90.00", "total 500002 90.00", "unsold 500001 500.00",
                          "total 500001 500.00", "net_total - 590.00"])
        self.assertEqual(
            self.rows(ledger, "row", "scrip_code", "purchase_amount", gains="speculation"),
            ["total 500002 0.00", "total 500001 0.00", "net_total - 0.00"])
        self.assertEqual(self.rows(ledger, "row", client="BI"), [])

    def test_charges_of_a_split_sale_add_up_and_are_never_negative(self):
        # 0.10 over three equal parts: 0.03, 0.07 - 0.03 and 0.10 - 0.07.
        ledger = self.ledger(bill("1", "02/05/2011", "P 1 10", "P 1 11", "P 1 12")
                             + bill("2", "03/05/2011", "S 3 20 0 0.10 0.20"))
        self.assertEqual(self.settled(ledger, 1, "service_tax", "stt"),
                         ["0.03 0.07", "0.04 0.06", "0.03 0.07"])

    def test_named_lot_gives_its_earliest_and_neighbours_of_one_rate_are_one_line(self):
        ledger = self.ledger(
            bill("1", "02/05/2011", "P 2 10", "P 1 10") + bill("2", "03/05/2011", "P 2 11")
            + bill("3", "04/05/2011", "P 2 10") + bill("4", "05/05/2011", "S 2 20 - - - - 10")
            + bill("5", "06/05/2011", "S 4 20"))
        self.assertEqual(self.settled(ledger, 4, "lot_rate", "quantity"), ["10 1", "11 2", "10 1"])

    def test_what_is_not_there_is_refused(self):
        for bills, transfers in (
                (bill("2", "03/05/2011", "S 11 110"), ""),
                (bill("2", "03/05/2011", "S 1 110 - - - - 99"), ""),
                (bill("2", "03/05/2011", "S 1 110", account="A2"), ""),
                (bill("2", "02/04/2012", "S 1 110"), ""),
                (bill("2", "01/05/2011", "S 5 101") + bill("3", "01/05/2011", "P 5 100"), ""),
                (bill("2", "03/05/2011", "S 10 110"), "03/05/2011,A1,A2,500001,100,1\n"),
                ("", "01/05/2011,A1,A2,500001,100,1\n"),
                ("", "03/05/2011,A2,B1,500001,100,9\n03/05/2011,A1,A2,500001,100,9\n")):
            with self.subTest(bills + transfers), self.assertRaises(Shortage):
                self.ledger(self.BOUGHT + bills, transfers=transfers)

    def test_refused_attempt_leaves_nothing_behind_for_the_second(self):
        # The bill buys 5 and sells 8: its purchase must not count twice when it is tried again.
        bills = self.BOUGHT + bill("2", "03/05/2011", "P 5 90", "S 8 110", account="A2")
        ledger = self.ledger(bills, transfers="03/05/2011,A1,A2,500001,100,4\n")
        self.assertEqual(self.lots(ledger), ["A1 100 6", "A2 90 1", "A2 100 0"])

    def test_transfers_do_not_count_as_fo(self):
        ledger = self.ledger(bill("1", "02/05/2011", "P 4 100 - - - 1"),
                             transfers="03/05/2011,A1,A2,500001,100,1\n")
        self.assertEqual(self.rows(ledger, "row", "account_no", "quantity", fo="fo")[:1],
                         ["unsold A1 4"])
        self.assertEqual(self.rows(ledger, "row", "account_no", "quantity", "sale_amount",
                                   fo="non-fo")[:2], ["transfer A1 - 100.00", "unsold A2 1 -"])

    def test_remaining_rows_keep_date_rate_and_share_of_charges(self):
        # 3 of 7 left: service tax 1.00 * 3/7 = 0.43, STT 2.00 * 3/7 = 0.86.
        ledger = self.ledger(bill("1", "02/05/2011", "P 7 100.25 0.5 1 2")
                             + bill("2", "03/06/2011", "S 4 110"),
                             transfers="04/06/2011,A1,A2,500001,100.25,1\n")
        rows = [tuple(plain(one) if isinstance(one, Fraction) else one for one in row)
                for row in remaining(ledger, "AN", "2011-12")]
        self.assertEqual(rows, [
            ("A1", "500001", "2", "100.25", date(2011, 5, 2), "0.29", "0.5", "0.57", False),
            ("A2", "500001", "1", "100.25", date(2011, 6, 4), "0", "0", "0", False)])


if __name__ == "__main__":
    unittest.main()
