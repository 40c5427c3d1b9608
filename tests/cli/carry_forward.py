#!/usr/bin/env python3
"""Carries the stock of the sample's first year into the second, which comes without opening rows
of its own."""

import shutil
import unittest

from ctl import SAMPLE, Case

from exact import day, financial_year

FIRST, SECOND = "2011-12", "2012-13"
CLIENTS = ("ATH001", "ATH002", "ATH003", "ATH004")
WHEN = {"opening.csv": 2, "bills.csv": 3, "transfers.csv": 0}  # the column that tells the year


def of_years(name: str, *years: str) -> list[str]:
    """The sample's lines of some years, under their header."""
    def is_wanted(line: str) -> bool:
        when = line.split(",")[WHEN[name]]
        return (when if "-" in when else financial_year(day(when))) in years
    header, *lines = (SAMPLE / name).read_text(encoding="utf-8").splitlines()
    return [header, *filter(is_wanted, lines)]


class CarryForward(Case):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.first = cls.home / "first-year"
        shutil.copytree(SAMPLE, cls.first)
        cls.second = cls.home / "second-year"
        cls.second.mkdir()
        for folder, year, names in ((cls.first, FIRST, WHEN),
                                    (cls.second, SECOND, ("bills.csv", "transfers.csv"))):
            for name in names:
                (folder / name).write_text("\n".join(of_years(name, year)) + "\n",
                                           encoding="utf-8")

    def setUp(self):
        self.desk = self.new_desk()
        self.desk.take_in(self.first)
        self.carry()

    def carry(self):
        for client in CLIENTS:
            self.desk.run("carry-forward", "stock", "--client", client, "--year", SECOND)

    def carry_changes_nothing(self):
        before, lots = self.desk.export(), self.lots()
        self.carry()
        self.assert_same_files(before, self.desk.export())
        self.assertEqual(lots, self.lots())
        self.check_is_well(self.desk)

    def lots(self):
        """Without those that hold nothing any more."""
        return self.desk.sql("Select Fyear,AcId,ScriptId,Rate,Qty From Stock Where Qty<>0 Order By "
                             "Fyear,AcId,ScriptId,Rate")

    def test_carried_lots_are_the_next_years_opening_rows(self):
        self.assertEqual(of_years("opening.csv", FIRST, SECOND),
                         self.desk.export()["opening.csv"].decode().splitlines())
        self.check_is_well(self.desk)
        self.carry_changes_nothing()
        self.desk.take_in(self.second)
        # The second year's gains depend on the purchase dates of the first.
        whole = self.new_desk()
        whole.take_in(SAMPLE)
        long_term = 0
        for client in CLIENTS:
            statement = self.desk.statement(client, SECOND, "--charges", "both")
            self.assertEqual(whole.statement(client, SECOND, "--charges", "both"), statement)
            long_term += sum(row["row"] == "match" and row["long_term"] != "0.00"
                             for row in statement)
        self.assertGreater(long_term, 10)

    def test_shares_that_are_sold_meanwhile_keep_their_opening_rows(self):
        self.desk.take_in(self.second)
        self.carry_changes_nothing()


if __name__ == "__main__":
    unittest.main()
