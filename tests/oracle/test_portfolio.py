"""Hand-worked cases: every figure below was worked out on paper from the rules in its comment."""

import contextlib
import io
import sys
import tempfile
import unittest
from datetime import date
from fractions import Fraction
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))

import portfolio  # noqa: E402
from exact import (Refusal, anniversary, day, financial_year, money, number, paise,  # noqa: E402
                   plain)
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


class Case(unittest.TestCase):
    def write(self, files) -> Path:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        for name, text in {**MASTERS, **files}.items():
            (Path(folder.name) / name).write_text(text, encoding="utf-8")
        return Path(folder.name)

    def ledger(self, bills="", opening="", transfers="") -> Ledger:
        files = {"bills.csv": BILL + bills, "opening.csv": OPENING + opening,
                 "transfers.csv": TRANSFER + transfers}
        return Ledger(read(self.write(files)))

    def rows(self, ledger, *columns, row=None, client="AN", year="2011-12", **choice):
        """The chosen cells of each row as one text, such as '50 01/06/2011 10.00'."""
        cells = portfolio.statement_cells(ledger, client, year, Choice(**choice))
        return [" ".join(one[name] or "-" for name in columns) for one in cells
                if row is None or one["row"] == row]

    def lots(self, ledger, client="AN", year="2011-12"):
        return [f"{a} {plain(rate)} {plain(left)}"
                for a, _scrip, rate, left in ledger.holdings(client, year)]


class Numbers(unittest.TestCase):
    def test_paise_round_half_away_from_zero(self):
        for text, expected in (("1.005", 101), ("-1.005", -101), ("1.0049999", 100),
                               ("-0.004", 0), ("2.675", 268), ("1234567.125", 123456713)):
            self.assertEqual(paise(number(text)), expected, text)

    def test_numbers_are_written_without_needless_zeros(self):
        for text, expected in (("100.50", "100.5"), ("0", "0"), ("-0.050", "-0.05"),
                               ("1200", "1200"), ("10.1234", "10.1234")):
            self.assertEqual(plain(number(text)), expected)

    def test_money_has_two_decimals_and_no_negative_zero(self):
        self.assertEqual([money(n) for n in (0, 5, -5, -12345)], ["0.00", "0.05", "-0.05",
                                                                  "-123.45"])

    def test_texts_that_are_no_numbers_are_refused(self):
        for text in ("1,000", "1e3", "nan", "12.", "+5", "0x10"):
            with self.assertRaises(Refusal, msg=text):
                number(text)

    def test_days_that_do_not_exist_are_refused(self):
        for text in ("29/02/2011", "31/04/2012", "1/4/2011", "2011-04-01", ""):
            with self.assertRaises(Refusal, msg=text):
                day(text)

    def test_financial_year_runs_from_april_to_march(self):
        for text, expected in (("31/03/2012", "2011-12"), ("01/04/2012", "2012-13"),
                               ("31/03/2000", "1999-00")):
            self.assertEqual(financial_year(day(text)), expected)

    def test_anniversary_of_29_february_is_28_february(self):
        self.assertEqual(anniversary(date(2012, 2, 29)), date(2013, 2, 28))
        self.assertEqual(anniversary(date(2011, 3, 1)), date(2012, 3, 1))


class Kinds(Case):
    def kind(self, bought, sold):
        year = financial_year(day(sold))
        ledger = self.ledger(opening=f"AN,A1,{year},500001,10,100,{bought},,,,\n",
                             bills=bill("1", sold, "S 10 110"))
        return self.rows(ledger, "long_term", "short_term", "speculation", row="match", year=year)

    def test_kind_follows_the_holding_period(self):
        short, long_, same_day = (["0.00 100.00 0.00"], ["100.00 0.00 0.00"],
                                  ["0.00 0.00 100.00"])
        for bought, sold, expected in (
                ("15/06/2011", "15/06/2011", same_day),
                ("15/06/2010", "16/06/2010", short),
                ("15/06/2010", "15/06/2011", short),   # the first anniversary itself
                ("15/06/2010", "16/06/2011", long_),
                ("29/02/2012", "28/02/2013", short),   # anniversary of 29 February
                ("29/02/2012", "01/03/2013", long_),
                ("28/02/2011", "28/02/2012", short),
                ("28/02/2011", "29/02/2012", long_),
                ("20/08/2011", "10/08/2011", short)):  # opening row dated after its sale
            self.assertEqual(self.kind(bought, sold), expected, f"{bought} to {sold}")


class Costs(Case):
    # Bought 100 at 200.50 + 1.25 = 201.75; service tax 12.88, STT 25.22.
    # Sold 40 at 250.10 - 1.50 = 248.60: 9944.00; STT 12.43.
    BILLS = (bill("1", "02/05/2011", "P 100 200.50 1.25 12.88 25.22")
             + bill("2", "01/08/2011", "S 40 250.10 1.50 6.18 12.43 - 200.5"))

    def test_charges_choose_what_counts(self):
        # 40 * 201.75 = 8070.00; service tax 40 * 0.1288 = 5.152; STT 40 * 0.2522 = 10.088.
        for charges, cost, gain in (
                ("none", "8070.00", "1874.00"),
                ("stax", "8075.15", "1868.85"),
                ("stt", "8080.09", "1851.48"),   # 9944.00 - 8080.09 - 12.43
                ("both", "8085.24", "1846.33")):  # 9944.00 - 8085.24 - 12.43
            rows = self.rows(self.ledger(self.BILLS), "purchase_net", "purchase_amount",
                             "sale_net", "sale_amount", "purchase_cost", "short_term", "stt_paid",
                             row="match", charges=charges)
            self.assertEqual(rows, [f"201.75 8070.00 248.6 9944.00 {cost} {gain} 12.43"], charges)

    def test_cost_is_rounded_once_from_the_exact_sum(self):
        # 1 of 3 bought at 10.004, service tax 0.01: 10.004 + 0.003333 = 10.007333 -> 10.01, while
        # 10.00 + 0.00 would be the sum of rounded parts.
        ledger = self.ledger(bill("1", "02/05/2011", "P 3 10.004 0 0.01")
                             + bill("2", "01/08/2011", "S 1 11 - - - - 10.004"))
        self.assertEqual(self.rows(ledger, "purchase_amount", "purchase_cost", row="match",
                                   charges="stax"), ["10.00 10.01"])

    def test_sale_amount_and_stt_of_the_parts_add_up_to_the_whole(self):
        # 3 sold at 3.335: 10.005 -> 10.01, STT 0.02; one share from each of three purchases.
        # Amounts: 3.34 (3.3367), 6.67 (6.6733) - 3.34 = 3.33, 10.01 - 6.67 = 3.34.
        # STT: 0.01 (0.0067), 0.01 (0.0133) - 0.01 = 0.00, 0.02 - 0.01 = 0.01.
        ledger = self.ledger(bill("1", "02/05/2011", "P 1 3", "P 1 3", "P 1 3")
                             + bill("2", "01/08/2011", "S 3 3.335 0 0 0.02"))
        self.assertEqual(
            self.rows(ledger, "row", "sale_quantity", "sale_amount", "purchase_cost", "short_term",
                      "stt_paid", charges="stt"),
            ["match 1 3.34 3.00 0.33 0.01", "match 1 3.33 3.00 0.33 0.00",
             "match 1 3.34 3.00 0.33 0.01", "total 3 10.01 9.00 0.99 0.02",
             "net_total - 10.01 9.00 0.99 0.02"])

    def test_parts_are_of_the_rounded_sale_amount(self):
        # 2 at 1.0025 are 2.005 -> 2.01; half of it 1.005 -> 1.01, the rest 1.00.
        ledger = self.ledger(bill("1", "02/05/2011", "P 1 1", "P 1 1")
                             + bill("2", "01/08/2011", "S 2 1.0025"))
        self.assertEqual(self.rows(ledger, "sale_amount", row="match"), ["1.01", "1.00"])

    def test_opening_row_costs_its_rate_and_brokerage(self):
        # 10 at 50 + 0.50, service tax 1.00 and STT 2.00 for the row; 4 sold: 4 * (50.5 + .1 + .2).
        ledger = self.ledger(opening="AN,A1,2011-12,500001,10,50,10/01/2011,1,0.5,2,0\n",
                             bills=bill("1", "04/04/2011", "S 4 60"))
        self.assertEqual(self.rows(ledger, "purchase_date", "quantity", "purchase_net",
                                   "purchase_amount", "purchase_cost", charges="both"),
                         ["10/01/2011 4 50.5 202.00 203.20", "10/01/2011 6 50.5 303.00 -",
                          "- 10 - 505.00 203.20", "- - - 505.00 203.20"])

    def test_fractional_quantities_leave_no_dust(self):
        # 0.1 + 0.2 - 0.3 is nothing, so nothing is unsold.
        ledger = self.ledger(bill("1", "02/05/2011", "P 0.1 100", "P 0.2 100")
                             + bill("2", "03/05/2011", "S 0.3 110"))
        self.assertEqual(self.rows(ledger, "row", "quantity"),
                         ["match 0.1", "match 0.2", "total 0.3", "net_total -"])
        self.assertEqual(self.lots(ledger), ["A1 100 0"])


class Matching(Case):
    def test_sale_spans_purchases_of_its_rate_earliest_first(self):
        ledger = self.ledger(bill("1", "02/05/2011", "P 10 100") + bill("2", "10/05/2011",
                             "P 10 100") + bill("3", "01/06/2011", "S 15 120"))
        self.assertEqual(self.rows(ledger, "row", "purchase_date", "quantity", "sale_quantity"),
                         ["match 02/05/2011 10 10", "match 10/05/2011 5 5",
                          "unsold 10/05/2011 5 -", "total - 20 15", "net_total - - -"])

    def test_lot_of_another_rate_is_never_used_even_when_older(self):
        ledger = self.ledger(bill("1", "02/05/2011", "P 10 90") + bill("2", "10/05/2011",
                             "P 10 100") + bill("3", "01/06/2011", "S 5 120 - - - - 100"))
        self.assertEqual(self.rows(ledger, "purchase_date", "purchase_net", row="match"),
                         ["10/05/2011 100"])
        self.assertEqual(self.lots(ledger), ["A1 90 10", "A1 100 5"])

    def test_openings_come_before_bills_before_transfers_of_one_date(self):
        ledger = self.ledger(
            opening="AN,A1,2011-12,500001,1,100,02/05/2011,,1,,\n"
                    "AN,A2,2011-12,500001,4,100,01/01/2011,,,,\n",
            bills=bill("1", "02/05/2011", "P 2 100 2") + bill("2", "02/05/2011", "S 3 120"),
            transfers="02/05/2011,A2,A1,500001,100,4\n")
        self.assertEqual(self.rows(ledger, "account_no", "row", "purchase_net", "quantity")[:3],
                         ["A1 match 101 1", "A1 match 102 2", "A1 unsold 100 4"])

    def test_accounts_do_not_share_lots(self):
        bills = (bill("1", "02/05/2011", "P 5 100") + bill("2", "03/05/2011", "P 5 100",
                                                           account="A2"))
        with self.assertRaises(Shortage):
            self.ledger(bills + bill("3", "04/05/2011", "S 6 110"))
        ledger = self.ledger(bills + bill("3", "04/05/2011", "S 5 110", account="A2"))
        self.assertEqual(self.rows(ledger, "row", "account_no", "purchase_date")[:2],
                         ["unsold A1 02/05/2011", "match A2 03/05/2011"])

    def test_order_of_the_file_does_not_matter_across_dates(self):
        ledger = self.ledger(bill("9", "01/06/2011", "S 5 120") + bill("1", "02/05/2011",
                                                                       "P 5 100"))
        self.assertEqual(self.rows(ledger, "purchase_date", "sale_date", row="match"),
                         ["02/05/2011 01/06/2011"])

    def test_years_are_separate(self):
        bills = bill("1", "30/03/2012", "P 5 100")
        with self.assertRaises(Shortage):
            self.ledger(bills + bill("2", "02/04/2012", "S 1 110"))
        ledger = self.ledger(bills + bill("2", "02/04/2012", "S 1 110"),
                             opening="AN,A1,2012-13,500001,5,100,30/03/2012,,,,\n")
        self.assertEqual(self.lots(ledger), ["A1 100 5"])
        self.assertEqual(self.lots(ledger, year="2012-13"), ["A1 100 4"])

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


class SalesWithoutLot(Case):
    def test_lots_are_taken_by_purchase_date_and_charges_shared_pro_rata(self):
        # 6 at 90, bought in 2010, then 4 at 80. Service tax 1.00: 0.60 and 0.40; STT 0.05: 0.03
        # and 0.02.
        ledger = self.ledger(
            opening="AN,A1,2011-12,500001,6,90,05/05/2010,,,,\n"
                    "AN,A1,2011-12,500001,6,80,05/05/2011,,,,\n",
            bills=bill("1", "01/06/2011", "S 10 100 0 1 0.05"))
        lines = ledger.lines[0]
        self.assertEqual([(plain(one.lot_rate), plain(one.quantity), plain(one.service_tax),
                           plain(one.stt)) for one in lines],
                         [("90", "6", "0.6", "0.03"), ("80", "4", "0.4", "0.02")])
        self.assertEqual(self.lots(ledger), ["A1 80 2", "A1 90 0"])

    def test_charges_of_a_split_sale_add_up_and_are_never_negative(self):
        # 0.10 over three equal parts: 0.03, 0.07 - 0.03 and 0.10 - 0.07.
        ledger = self.ledger(bill("1", "02/05/2011", "P 1 10", "P 1 11", "P 1 12")
                             + bill("2", "03/05/2011", "S 3 20 0 0.10 0.20"))
        self.assertEqual([(plain(one.service_tax), plain(one.stt)) for one in ledger.lines[1]],
                         [("0.03", "0.07"), ("0.04", "0.06"), ("0.03", "0.07")])

    def test_neighbouring_takes_of_one_rate_are_one_line(self):
        ledger = self.ledger(
            bill("1", "02/05/2011", "P 1 10", "P 2 10", "P 3 11", "P 4 10")
            + bill("2", "03/05/2011", "S 8 20"))
        self.assertEqual([(plain(one.lot_rate), plain(one.quantity)) for one in ledger.lines[1]],
                         [("10", "3"), ("11", "3"), ("10", "2")])

    def test_sale_naming_a_lot_leaves_that_lots_earliest_layer_to_nobody_else(self):
        # Lot 10 came on 02/05 (2) and 04/05 (2), lot 11 on 03/05 (2). Selling 2 of lot 10 leaves
        # lot 11 as the earliest for a sale that names none.
        ledger = self.ledger(
            bill("1", "02/05/2011", "P 2 10") + bill("2", "03/05/2011", "P 2 11")
            + bill("3", "04/05/2011", "P 2 10") + bill("4", "05/05/2011", "S 2 20 - - - - 10")
            + bill("5", "06/05/2011", "S 3 20"))
        self.assertEqual([(plain(one.lot_rate), plain(one.quantity)) for one in ledger.lines[4]],
                         [("11", "2"), ("10", "1")])

    def test_purchases_of_a_bill_come_before_its_sales(self):
        ledger = self.ledger(bill("1", "02/05/2011", "S 5 101", "P 5 100"))
        self.assertEqual(self.rows(ledger, "speculation", row="match"), ["5.00"])

    def test_more_than_the_balance_is_refused_with_the_balance(self):
        bought = bill("1", "02/05/2011", "P 5 100", "P 2.5 101")
        for sale, balance in (("S 8 110", "7.5"), ("S 6 110 - - - - 100", "5"),
                              ("S 1 110 - - - - 99", "0")):
            with self.assertRaisesRegex(Shortage, "line 4: You Can't Sale .* More than Balance. "
                                                  f"Maximum Allowed Value is: {balance}$"):
                self.ledger(bought + bill("2", "03/05/2011", sale))

    def test_a_later_bill_of_the_day_does_not_help_an_earlier_one(self):
        with self.assertRaises(Shortage):
            self.ledger(bill("1", "02/05/2011", "S 5 101") + bill("2", "02/05/2011", "P 5 100"))


class Transfers(Case):
    BOUGHT = bill("1", "02/05/2011", "P 10 100 1 5 5")

    def test_transfer_keeps_the_lot_rate_and_starts_a_new_holding(self):
        ledger = self.ledger(self.BOUGHT + bill("2", "04/05/2011", "S 4 120", account="A2"),
                             transfers="03/05/2011,A1,A2,500001,100,6\n")
        self.assertEqual(self.lots(ledger), ["A1 100 4", "A2 100 2"])
        self.assertEqual(
            self.rows(ledger, "row", "account_no", "purchase_date", "quantity", "sale_amount",
                      "purchase_cost", "short_term", charges="both"),
            # 6 x 100 = 600.00 at the purchase rate; they cost 6 x (101 + 0.50 + 0.50) = 612.00.
            ["transfer A1 02/05/2011 6 600.00 612.00 0.00", "unsold A1 02/05/2011 4 - - -",
             "match A2 03/05/2011 4 480.00 400.00 80.00", "unsold A2 03/05/2011 2 - - -",
             "total - - 16 1080.00 1012.00 80.00", "net_total - - - 1080.00 1012.00 80.00"])
        self.assertEqual(self.rows(ledger, "row", "account_no", start=date(2011, 5, 4))[:2],
                         ["unsold A1", "match A2"])

    def test_transfer_to_another_client_leaves_one_statement_and_enters_the_other(self):
        ledger = self.ledger(self.BOUGHT, transfers="03/05/2011,A1,B1,500001,100,10\n")
        self.assertEqual(self.rows(ledger, "row"), ["transfer", "total", "net_total"])
        self.assertEqual(self.rows(ledger, "row", gains="speculation"), ["total", "net_total"])
        self.assertEqual(self.rows(ledger, "row", "account_no", "quantity", client="BI"),
                         ["unsold B1 10", "total - 10", "net_total - -"])
        self.assertEqual(self.lots(ledger, client="BI"), ["B1 100 10"])

    def test_transfer_of_more_than_the_lot_is_refused(self):
        for row in ("03/05/2011,A1,A2,500001,100,11", "03/05/2011,A1,A2,500001,99,1",
                    "01/05/2011,A1,A2,500001,100,1"):
            with self.assertRaisesRegex(Shortage, "transfers.csv line 2: You Can't Transfer"):
                self.ledger(self.BOUGHT, transfers=row + "\n")

    def test_transfers_of_a_day_come_in_file_order(self):
        there, onward = "03/05/2011,A1,A2,500001,100,10\n", "03/05/2011,A2,B1,500001,100,10\n"
        self.assertEqual(self.lots(self.ledger(self.BOUGHT, transfers=there + onward)),
                         ["A1 100 0", "A2 100 0"])
        with self.assertRaises(Shortage):
            self.ledger(self.BOUGHT, transfers=onward + there)

    def test_sales_are_matched_by_date_whatever_the_file_order(self):
        ledger = self.ledger(bill("1", "02/05/2011", "P 1 100") + bill("2", "03/05/2011",
                             "P 1 100") + bill("3", "09/06/2011", "S 1 120")
                             + bill("4", "08/06/2011", "S 1 110"))
        self.assertEqual(self.rows(ledger, "purchase_date", "sale_date", row="match"),
                         ["02/05/2011 08/06/2011", "03/05/2011 09/06/2011"])

    def test_bills_of_a_day_come_before_its_transfers(self):
        sale = bill("2", "03/05/2011", "S 10 110")
        with self.assertRaisesRegex(Shortage, "You Can't Transfer"):
            self.ledger(self.BOUGHT + sale, transfers="03/05/2011,A1,A2,500001,100,1\n")

    def test_bill_that_lacks_balance_waits_for_the_transfers_of_its_day(self):
        sale = bill("2", "03/05/2011", "S 3 110", account="A2")
        ledger = self.ledger(self.BOUGHT + sale, transfers="03/05/2011,A1,A2,500001,100,3\n")
        self.assertEqual(self.lots(ledger), ["A1 100 7", "A2 100 0"])
        self.assertEqual(self.rows(ledger, "speculation", row="match"), ["30.00"])
        with self.assertRaisesRegex(Shortage, "You Can't Sale"):
            self.ledger(self.BOUGHT + sale, transfers="03/05/2011,A1,A2,500001,100,2\n")

    def test_refused_attempt_leaves_nothing_behind_for_the_second(self):
        # The bill buys 5 and sells 8: its purchase must not count twice when it is tried again.
        bills = self.BOUGHT + bill("2", "03/05/2011", "P 5 90", "S 8 110", account="A2")
        ledger = self.ledger(bills, transfers="03/05/2011,A1,A2,500001,100,4\n")
        self.assertEqual(self.lots(ledger), ["A1 100 6", "A2 90 1", "A2 100 0"])


class Choices(Case):
    BILLS = (bill("1", "02/05/2011", "P 10 100 - - - 0", "P 10 100 - - - 1")
             + bill("2", "01/06/2011", "S 15 110 - - - 1")
             + bill("3", "01/07/2011", "P 1 50", "S 1 60 - - - - 50"))

    def test_fo_choice_takes_only_its_lines_on_both_sides(self):
        ledger = self.ledger(self.BILLS)
        columns = ("row", "quantity", "sale_quantity", "sale_amount", "short_term")
        self.assertEqual(self.rows(ledger, *columns, fo="fo")[:3],
                         ["match 10 10 1100.00 100.00", "unmatched - 5 550.00 -",
                          "total 10 15 1650.00 100.00"])
        for gains, unmatched in (("speculation", 0), ("non-speculation", 1)):
            self.assertEqual(len(self.rows(ledger, "row", row="unmatched", fo="fo", gains=gains)),
                             unmatched)
        self.assertEqual(self.rows(ledger, *columns, fo="non-fo")[:2],
                         ["match 1 1 60.00 0.00", "unsold 10 - - -"])
        self.assertEqual(self.rows(ledger, *columns)[:4],
                         ["match 10 10 1100.00 100.00", "match 5 5 550.00 50.00",
                          "match 1 1 60.00 0.00", "unsold 5 - - -"])

    def test_transfers_do_not_count_as_fo(self):
        ledger = self.ledger(bill("1", "02/05/2011", "P 4 100 - - - 1"),
                             transfers="03/05/2011,A1,A2,500001,100,1\n")
        self.assertEqual(self.rows(ledger, "row", "account_no", "quantity", fo="fo")[:1],
                         ["unsold A1 4"])
        self.assertEqual(self.rows(ledger, "row", "account_no", "quantity", "sale_amount",
                                   fo="non-fo")[:2], ["transfer A1 - 100.00", "unsold A2 1 -"])

    def test_gains_choice_lists_kinds_and_totals_what_is_listed(self):
        ledger = self.ledger(self.BILLS)
        columns = ("row", "quantity", "sale_amount", "short_term", "speculation")
        self.assertEqual(self.rows(ledger, *columns, gains="speculation"),
                         ["match 1 60.00 0.00 10.00", "total 1 60.00 0.00 10.00",
                          "net_total - 60.00 0.00 10.00"])
        self.assertEqual(self.rows(ledger, *columns, gains="non-speculation"),
                         ["match 10 1100.00 100.00 0.00", "match 5 550.00 50.00 0.00",
                          "unsold 5 - - -", "total 20 1650.00 150.00 0.00",
                          "net_total - 1650.00 150.00 0.00"])

    def test_sale_before_the_period_uses_lots_but_is_not_listed(self):
        ledger = self.ledger(bill("1", "02/05/2011", "P 10 100") + bill("2", "09/05/2011",
                             "P 10 100") + bill("3", "01/06/2011", "S 12 110")
                             + bill("4", "01/07/2011", "S 3 120"))
        self.assertEqual(
            self.rows(ledger, "row", "purchase_date", "quantity", "sale_date",
                      start=date(2011, 7, 1), end=date(2011, 7, 31)),
            ["match 09/05/2011 3 01/07/2011", "unsold 09/05/2011 5 -", "total - 8 -",
             "net_total - - -"])

    def test_nothing_after_the_period_counts(self):
        ledger = self.ledger(bill("1", "02/05/2011", "P 10 100") + bill("2", "01/06/2011",
                             "S 4 110", "P 2 105") + bill("3", "02/06/2011", "S 1 110"),
                             transfers="02/06/2011,A1,A2,500001,105,1\n")
        self.assertEqual(self.rows(ledger, "row", "quantity", end=date(2011, 5, 31))[:2],
                         ["unsold 10", "total 10"])
        self.assertEqual(self.rows(ledger, "row", "quantity", end=date(2011, 6, 1))[:3],
                         ["match 4", "unsold 6", "unsold 2"])


class CarryForward(Case):
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


class Command(Case):
    def run_command(self, *arguments):
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            status = portfolio.main([str(one) for one in arguments])
        return status, output.getvalue()

    def setUp(self):
        self.folder = self.write({"bills.csv": BILL + bill("1", "02/05/2011", "P 10 100.5")
                                  + bill("2", "03/05/2011", "S 4 110")})
        self.who = ("--client", "AN", "--year", "2011-12")

    def test_statement_agrees_with_itself_and_a_changed_paisa_is_told(self):
        status, text = self.run_command(self.folder, "statement", *self.who)
        self.assertEqual(status, 0)
        actual = self.folder / "actual"
        actual.write_text(text, encoding="utf-8")
        self.assertEqual(self.run_command(self.folder, "compare", actual, *self.who), (0, ""))
        actual.write_text(text.replace("402.00", "402.01", 1), encoding="utf-8")
        status, told = self.run_command(self.folder, "compare", actual, *self.who)
        self.assertEqual(status, 1)
        self.assertIn("row 1: purchase_amount is '402.01', not '402.00'", told)

    def test_missing_and_surplus_rows_are_told(self):
        lines = self.run_command(self.folder, "statement", *self.who)[1].splitlines(True)
        actual = self.folder / "actual"
        for text, word in (("".join(lines[:-1]), "missing"),
                           ("".join(lines + lines[-1:]), "too many")):
            actual.write_text(text, encoding="utf-8")
            status, told = self.run_command(self.folder, "compare", actual, *self.who)
            self.assertEqual(status, 1)
            self.assertIn(word, told)

    def test_holdings_compare_by_value_in_any_order_without_used_up_lots(self):
        actual = self.folder / "actual"
        actual.write_text("account_no,scrip_code,lot_id,rate,quantity\nA1,500002,9,5,0\n"
                          "A1,500001,7,100.50,6.00\n", encoding="utf-8")
        self.assertEqual(self.run_command(self.folder, "compare", actual, *self.who), (0, ""))
        actual.write_text("account_no,scrip_code,lot_id,rate,quantity\nA1,500001,7,100.5,6.01\n",
                          encoding="utf-8")
        self.assertEqual(self.run_command(self.folder, "compare", actual, *self.who)[0], 1)


class Files(Case):
    def test_faults_are_refused_with_file_and_line(self):
        good = bill("1", "02/05/2011", "P 10 100")
        for text, message in (
                (good.replace(",P,", ",B,"), "bills.csv line 2: side 'B'"),
                (good.replace("A1", "B1"), "line 2: client 'AN' has no account 'B1'"),
                (good.replace("500001", "599999"), "line 2: there is no scrip '599999'"),
                (good.replace(",10,", ",0,"), "line 2: quantity is not above zero"),
                (good.replace("02/05", "32/05"), "line 2: '32/05/2011' is not a date"),
                (good.replace(",10,", ",,"), "line 2: quantity is empty")):
            with self.assertRaisesRegex(Refusal, message):
                self.ledger(text)

    def test_rows_of_one_bill_may_stand_apart(self):
        one = bill("1", "02/05/2011", "S 5 101")
        ledger = self.ledger(one + bill("2", "02/05/2011", "P 1 90")
                             + bill("1", "02/05/2011", "P 5 100"))
        self.assertEqual(self.rows(ledger, "purchase_net", row="match"), ["100"])

    def test_unknown_column_is_refused(self):
        with self.assertRaisesRegex(Refusal, "bills.csv: unknown column 'colour'"):
            read(self.write({"bills.csv": BILL.strip() + ",colour\n"}))

    def test_transfer_to_the_same_account_is_refused(self):
        with self.assertRaisesRegex(Refusal, "another account"):
            self.ledger(bill("1", "02/05/2011", "P 5 100"),
                        transfers="03/05/2011,A1,A1,500001,100,1\n")


if __name__ == "__main__":
    unittest.main()
