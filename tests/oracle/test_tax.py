"""The tax year against figures that were worked out by hand."""

import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))

from folder import read  # noqa: E402
from layers import History  # noqa: E402
from ledger import Ledger  # noqa: E402
from tax import tax_cells  # noqa: E402

MASTERS = {
    "clients.csv": "code,name\nAN,ANAND\nBI,BINA\n",
    "accounts.csv": "client_code,account_no\nAN,A1\nBI,B1\n",
    "scrips.csv": "code,name\n600001,ZINC\n600002,ALUM\n",
}
HEADERS = {
    "opening.csv": "client_code,account_no,fyear,scrip_code,quantity,rate,purchase_date",
    "bills.csv": "account_no,bill_date,side,scrip_code,quantity,rate,stt,delivery_type,fo,lot_rate",
    "transfers.csv": "date,from_account,to_account,scrip_code,rate,quantity",
    "corporate_actions.csv": "scrip_code,kind,ex_date,new,old,other_scrip_code,price,cost_percent",
    "corporate_action_lots.csv": "action,client_code,account_no,scrip_code,rate,out",
    "fair_values.csv": "scrip_code,rate",
    "tax_losses.csv": "client_code,fyear,kind,amount,loss_year",
}


def folder_of(home: Path, files: dict[str, str]) -> Path:
    """Rows are parted by semicolons; each row of bills.csv is a bill."""
    for name, content in MASTERS.items():
        (home / name).write_text(content)
    for name, content in files.items():
        name = f"{name}.csv"
        lines, header = content.split(";"), HEADERS[name]
        if name == "bills.csv":
            header = f"client_code,broker,bill_no,{header}"
            lines = [f"{'AN' if line[0] == 'A' else 'BI'},LOTUS,{n},{line}"
                     for n, line in enumerate(lines)]
        (home / name).write_text("\n".join([header, *lines, ""]))
    return home


def rows(year: str, files: dict[str, str], client="AN") -> list[dict]:
    with tempfile.TemporaryDirectory() as home:
        history = History(Ledger(read(folder_of(Path(home), files))))
    return tax_cells(history, client, year)


def told(found: list[dict], row: str, *columns) -> list[tuple]:
    return [tuple(one[name] for name in columns) for one in found if one["row"] == row]


class Pieces(unittest.TestCase):
    def test_fair_value_is_divided_by_a_split(self):
        """The example of a share of face value 2 that was split to 1."""
        found = rows("2018-19", {
            "opening": "AN,A1,2018-19,600001,1000,488,01/06/2017",
            "corporate_actions": "600001,split,13/04/2018,2,1,,0,0",
            "fair_values": "600001,605",
            "bills": "A1,01/08/2018,S,600001,2000,665,1,,,"})
        self.assertEqual([("long-term-stt", "112A", "10", "605000.00", "605000.00", "725000.00")],
                         told(found, "piece", "kind", "section", "percent", "fair_value",
                              "cost_taken", "gain"))
        self.assertEqual([("100000.00",)], told(found, "exemption", "gain"))
        self.assertEqual([("625000.00",)], told(found, "taxable", "gain"))
        self.assertEqual([("62500.00",)], told(found, "tax", "gain"))

    def test_opening_after_the_split_has_the_divided_fair_value(self):
        """Where the first year on record is a later one, the shares are those after the split."""
        found = rows("2019-20", {
            "opening": "AN,A1,2019-20,600001,2000,244,01/06/2017",
            "corporate_actions": "600001,split,13/04/2018,2,1,,0,0",
            "fair_values": "600001,605",
            "bills": "A1,01/08/2019,S,600001,500,665,1,,,"})
        self.assertEqual([("151250.00", "151250.00", "181250.00")],
                         told(found, "piece", "fair_value", "cost_taken", "gain"))

    def test_cost_taken(self):
        for fair, sold, stt, cost, gain in (
                ("80", "150", "1", "1000.00", "500.00"),    # below the cost
                ("120", "150", "1", "1200.00", "300.00"),   # between cost and sale
                ("180", "150", "1", "1500.00", "0.00"),     # above the sale
                ("180", "90", "1", "1000.00", "-100.00"),   # a loss is that of the cost
                ("120", "150", "0", "1000.00", "500.00")):  # only where STT was paid
            with self.subTest(fair=fair, sold=sold, stt=stt):
                found = rows("2018-19", {
                    "opening": "AN,A1,2017-18,600001,10,100,31/01/2017"
                               ";AN,A1,2018-19,600001,10,100,31/01/2017",
                    "fair_values": f"600001,{fair}",
                    "bills": f"A1,02/04/2018,S,600001,10,{sold},{stt},,,"})
                self.assertEqual([(cost, gain)], told(found, "piece", "cost_taken", "gain"))

    def test_fair_value_goes_by_the_day_of_acquisition(self):
        """Of bonus shares by the day from which they are held."""
        for bought, fair in (("31/01/2018", "1200.00"), ("01/02/2018", "")):
            found = rows("2019-20", {
                "opening": f"AN,A1,2018-19,600001,10,100,{bought}"
                           f";AN,A1,2019-20,600001,10,100,{bought}",
                "fair_values": "600001,120",
                "bills": "A1,02/04/2019,S,600001,10,150,1,,,"})
            self.assertEqual([(fair,)], told(found, "piece", "fair_value"), bought)
        for ex_day, fair in (("30/01/2018", ["1200.00", "1200.00"]),
                             ("31/01/2018", ["1200.00", ""])):
            found = rows("2019-20", {
                "opening": "AN,A1,2017-18,600001,10,100,01/06/2016"
                           ";AN,A1,2018-19,600001,20,50,01/06/2016"
                           ";AN,A1,2019-20,600001,20,50,01/06/2016",
                "corporate_actions": f"600001,bonus,{ex_day},1,1,,0,0",
                "fair_values": "600001,120",
                "bills": "A1,02/04/2019,S,600001,20,150,1,,,"})
            self.assertEqual(fair, [one for one, in told(found, "piece", "fair_value")], ex_day)

    def test_fair_value_moves_with_a_gift_and_a_demerger(self):
        found = rows("2018-19", {
            "opening": "AN,A1,2017-18,600001,10,100,01/06/2016"
                       ";AN,A1,2018-19,600001,10,100,01/06/2016",
            "corporate_actions": "600001,demerger,05/04/2018,1,1,600002,0,33.35",
            "transfers": "06/04/2018,A1,B1,600002,33.35,4",
            "fair_values": "600001,120",
            "bills": "A1,01/05/2018,S,600001,10,150,1,,,;B1,01/05/2018,S,600002,4,90,1,,,"}, "BI")
        self.assertEqual([("600002", "01/06/2016", "133.40", "160.08", "360.00")],
                         told(found, "piece", "scrip_code", "acquired", "cost", "fair_value",
                              "sale_value"))

    def test_kinds(self):
        for bought, sold, stt, kind, section, percent in (
                ("31/03/2017", "31/03/2018", "1", "short-term-stt", "111A", "15"),
                ("30/03/2017", "31/03/2018", "1", "exempt", "10(38)", ""),
                ("30/03/2017", "31/03/2018", "0", "long-term", "112", "10"),
                ("01/04/2018", "01/04/2018", "1", "short-term-stt", "111A", "15"),
                ("29/02/2020", "28/02/2021", "1", "short-term-stt", "111A", "15"),
                ("29/02/2020", "01/03/2021", "1", "long-term-stt", "112A", "10"),
                ("22/07/2024", "22/07/2024", "1", "short-term-stt", "111A", "15"),
                ("22/07/2024", "23/07/2024", "1", "short-term-stt", "111A", "20"),
                ("22/07/2023", "22/07/2024", "0", "short-term", "normal rates", ""),
                ("21/07/2023", "22/07/2024", "1", "long-term-stt", "112A", "10"),
                ("21/07/2023", "23/07/2024", "1", "long-term-stt", "112A", "12.5"),
                ("21/07/2023", "23/07/2024", "0", "long-term", "112", "12.5"),
                ("01/04/2025", "01/04/2026", "1", "short-term-stt", "196", "20"),
                ("31/03/2025", "01/04/2026", "1", "long-term-stt", "198", "12.5"),
                ("31/03/2025", "01/04/2026", "0", "long-term", "197", "12.5")):
            with self.subTest(bought=bought, sold=sold, stt=stt):
                day, month, year = map(int, sold.split("/"))
                year -= month < 4
                text = f"{year}-{(year + 1) % 100}"
                found = rows(text, {
                    "opening": f"AN,A1,{text},600001,10,100,{bought}",
                    "bills": f"A1,{sold},S,600001,10,150,{stt},,,"})
                self.assertEqual([(kind, section, percent)],
                                 told(found, "piece", "kind", "section", "percent"))

    def test_buy_back_in_four_times(self):
        """A hundred at 40; 20 go back at 60, 50 are sold at 70 without STT a month later."""
        for day, sold, year, pieces in (
                ("04/07/2019", "05/08/2019", "2019-20", [("long-term", "1200.00", "400.00")]),
                ("05/07/2019", "05/08/2019", "2019-20", [("exempt", "1200.00", "400.00")]),
                ("30/09/2024", "31/10/2024", "2024-25", [("exempt", "1200.00", "400.00")]),
                ("01/10/2024", "01/11/2024", "2024-25",
                 [("long-term", "0.00", "-800.00"), ("dividend", "1200.00", "1200.00")]),
                ("31/03/2026", "31/03/2026", "2025-26",
                 [("long-term", "0.00", "-800.00"), ("dividend", "1200.00", "1200.00")]),
                ("01/04/2026", "01/05/2026", "2026-27", [("long-term", "1200.00", "400.00")])):
            with self.subTest(day):
                found = rows(year, {
                    "opening": f"AN,A1,{year},600001,100,40,01/06/2016",
                    "corporate_actions": f"600001,buy-back,{day},,,,60,0",
                    "corporate_action_lots": "1,AN,A1,600001,40,20",
                    "bills": f"A1,{sold},S,600001,50,70,0,,,"})
                self.assertEqual([*pieces, ("long-term", "3500.00", "1500.00")],
                                 told(found, "piece", "kind", "sale_value", "gain"))

    def test_loss_of_a_buy_back_takes_up_the_gain(self):
        found = rows("2024-25", {
            "opening": "AN,A1,2024-25,600001,100,40,01/06/2016",
            "corporate_actions": "600001,buy-back,01/10/2024,,,,60,0",
            "corporate_action_lots": "1,AN,A1,600001,40,20",
            "bills": "A1,01/11/2024,S,600001,50,70,0,,,"})
        self.assertEqual([("long-term", "700.00")], told(found, "taxable", "kind", "gain"))
        self.assertEqual([("long-term", "700.00"), ("dividend", "1200.00")],
                         told(found, "total", "kind", "gain"))
        self.assertEqual([("87.50",)], told(found, "tax", "gain"))

    def test_windows(self):
        for sold, number_of in (
                ("15/06/2016", "1"), ("16/06/2016", "2"), ("16/09/2016", "3"), ("16/12/2016", "4"),
                ("15/03/2017", "4"), ("16/03/2017", "5"), ("15/06/2015", "1"), ("16/09/2015", "2"),
                ("31/03/2016", "4")):
            day, month, year = map(int, sold.split("/"))
            year -= month < 4
            text = f"{year}-{(year + 1) % 100}"
            found = rows(text, {"opening": f"AN,A1,{text},600001,10,100,01/04/{year}",
                                "bills": f"A1,{sold},S,600001,10,150,0,,,"})
            self.assertEqual([(number_of, "500.00")], told(found, "window", "window", "gain"), sold)


class SetOff(unittest.TestCase):
    def test_exemption_goes_to_the_higher_per_cent_first(self):
        found = rows("2024-25", {
            "opening": "AN,A1,2024-25,600001,2000,100,01/06/2020",
            "bills": "A1,22/07/2024,S,600001,1000,200,1,,,;A1,23/07/2024,S,600001,1000,190,1,,,"})
        self.assertEqual([("12.5", "90000.00"), ("10", "35000.00")],
                         told(found, "exemption", "percent", "gain"))
        self.assertEqual([("10", "65000.00"), ("12.5", "0.00")],
                         told(found, "taxable", "percent", "gain"))
        self.assertEqual([("10", "6500.00")], told(found, "tax", "percent", "gain"))

    def test_losses(self):
        """Gains: short term 100 without and 200 with STT, long term 300 without and 400 with it."""
        gains = {
            "opening": "AN,A1,2025-26,600001,10,100,01/06/2020",
            "bills": "A1,01/05/2025,S,600001,5,160,0,,,;A1,02/05/2025,S,600001,5,180,1,,,"
                     ";A1,03/05/2025,P,600002,10,100,0,,,;A1,04/05/2025,S,600002,5,120,0,,,"
                     ";A1,05/05/2025,S,600002,5,140,1,,,"}
        long, short = ("long-term", "300.00"), ("short-term", "100.00")
        for losses, set_offs, carried, lapsed in (
                ("AN,2025-26,long-term,250,2017-18", [("long-term", "250.00")], [], []),
                ("AN,2025-26,long-term,950.50,2017-18", [long, ("long-term-stt", "400.00")], [],
                 [("2017-18", "long-term", "250.50")]),
                ("AN,2025-26,long-term,950,2016-17", [], [], []),
                ("AN,2025-26,short-term,350,2018-19",
                 [short, ("short-term-stt", "200.00"), ("long-term", "50.00")], [], []),
                ("AN,2025-26,short-term,1300,2018-19;AN,2025-26,long-term,120,2018-19",
                 [("long-term", "120.00"), short, ("short-term-stt", "200.00"),
                  ("long-term", "180.00"), ("long-term-stt", "400.00")],
                 [("2018-19", "short-term", "420.00")], []),
                ("AN,2025-26,speculation,10,2021-22;AN,2025-26,speculation,20,2022-23"
                 ";AN,2025-26,speculation,30,2020-21;BI,2025-26,speculation,40,2022-23"
                 ";AN,2024-25,speculation,50,2022-23", [],
                 [("2022-23", "speculation", "20.00")], [("2021-22", "speculation", "10.00")])):
            with self.subTest(losses):
                found = rows("2025-26", gains | {"tax_losses": losses})
                self.assertEqual(set_offs, told(found, "set_off", "kind", "gain"))
                columns = ("loss_year", "loss_kind", "gain")
                self.assertEqual(carried, told(found, "carried", *columns))
                self.assertEqual(lapsed, told(found, "lapsed", *columns))

    def test_losses_of_the_year_come_before_those_brought_forward(self):
        """Long term -100 with STT and +300 without it, short term -150; 1,000 brought forward."""
        found = rows("2025-26", {
            "opening": "AN,A1,2025-26,600001,10,100,01/06/2020",
            "bills": "A1,01/05/2025,S,600001,5,160,0,,,;A1,02/05/2025,S,600001,5,80,1,,,"
                     ";A1,03/05/2025,P,600002,10,100,0,,,;A1,04/05/2025,S,600002,10,85,1,,,",
            "tax_losses": "AN,2025-26,short-term,1000,2017-18"})
        self.assertEqual([("long-term", "2025-26", "100.00"), ("short-term", "2025-26", "150.00"),
                          ("short-term", "2017-18", "50.00")],
                         told(found, "set_off", "loss_kind", "loss_year", "gain"))
        self.assertEqual([("2017-18", "short-term", "950.00")],
                         told(found, "lapsed", "loss_year", "loss_kind", "gain"))

    def test_speculation_and_futures_stand_apart(self):
        found = rows("2025-26", {
            "bills": "A1,03/05/2025,P,600001,10,100,0,Non Delivery Based,,"
                     ";A1,03/05/2025,S,600001,10,120,0,Non Delivery Based,,"
                     ";A1,04/05/2025,P,600002,10,100,0,,1,;A1,05/05/2025,S,600002,10,70,0,,1,",
            "tax_losses": "AN,2025-26,short-term,1000,2020-21"})
        self.assertEqual([("speculation", "43(5)", "200.00"),
                          ("futures-and-options", "business", "-300.00")],
                         told(found, "total", "kind", "section", "gain"))
        self.assertEqual([], told(found, "set_off", "gain"))
        self.assertEqual([("speculation", "200.00")], told(found, "taxable", "kind", "gain"))
        self.assertEqual([("2020-21", "1000.00")], told(found, "carried", "loss_year", "gain"))


if __name__ == "__main__":
    unittest.main()
