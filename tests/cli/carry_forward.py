#!/usr/bin/env python3
"""Carries the stock of the sample's first year into the second, which comes without opening rows
of its own."""

import shutil
import unittest

from ctl import SAMPLE, Case


class CarryForward(Case):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.folder = cls.home / "two-years"
        shutil.copytree(SAMPLE, cls.folder)
        cls.expected = cls.without_other_opening(lambda year: year in ("2011-12", "2012-13"))
        for name, column in (("bills.csv", 3), ("transfers.csv", 0)):
            path = cls.folder / name
            header, *lines = path.read_text(encoding="utf-8").splitlines()
            path.write_text("\n".join([header, *(
                line for line in lines if cls.of_first_year(line.split(",")[column]))]) + "\n",
                encoding="utf-8")
        cls.without_other_opening(lambda year: year == "2011-12")
        cls.second = cls.home / "second-year"
        cls.second.mkdir()
        for name, column in (("bills.csv", 3), ("transfers.csv", 0)):
            header, *lines = (SAMPLE / name).read_text(encoding="utf-8").splitlines()
            (cls.second / name).write_text("\n".join([header, *(
                line for line in lines if cls.of_second_year(line.split(",")[column]))]) + "\n",
                encoding="utf-8")

    @staticmethod
    def of_first_year(date: str) -> bool:
        return (date[6:], date[3:5]) < ("2012", "04")

    @staticmethod
    def of_second_year(date: str) -> bool:
        return ("2012", "04") <= (date[6:], date[3:5]) < ("2013", "04")

    @classmethod
    def without_other_opening(cls, keep) -> list[str]:
        path = cls.folder / "opening.csv"
        header, *lines = path.read_text(encoding="utf-8").splitlines()
        kept = [header, *(line for line in lines if keep(line.split(",")[2]))]
        path.write_text("\n".join(kept) + "\n", encoding="utf-8")
        return kept

    def carry(self, desk):
        for client in ("ATH001", "ATH002", "ATH003", "ATH004"):
            desk.run("carry-forward", "stock", "--client", client, "--year", "2012-13")

    def test_carried_lots_are_the_next_years_opening_rows(self):
        desk = self.new_desk()
        desk.take_in(self.folder)
        self.carry(desk)
        self.assertEqual(self.expected, desk.export()["opening.csv"].decode().splitlines())
        self.check_is_well(desk)
        before, lots = desk.export(), self.lots(desk)
        self.carry(desk)  # a second time gives the same
        self.assert_same_files(before, desk.export())
        self.assertEqual(lots, self.lots(desk))
        self.check_is_well(desk)
        desk.take_in(self.second)
        self.check_statements(desk)

    @staticmethod
    def lots(desk):
        """Without those that hold nothing any more."""
        return desk.sql("Select Fyear,AcId,ScriptId,Rate,Qty From Stock Where Qty<>0 Order By "
                        "Fyear,AcId,ScriptId,Rate")

    def check_statements(self, desk):
        """The second year's gains depend on the purchase dates of the first."""
        whole = self.new_desk()
        whole.take_in(SAMPLE)
        long_term = 0
        for client in ("ATH001", "ATH002", "ATH003", "ATH004"):
            statement = desk.statement(client, "2012-13", "--charges", "both")
            self.assertEqual(whole.statement(client, "2012-13", "--charges", "both"), statement)
            long_term += sum(row["row"] == "match" and row["long_term"] != "0.00"
                             for row in statement)
        self.assertGreater(long_term, 10)

    def test_shares_that_are_sold_meanwhile_keep_their_opening_rows(self):
        """Carrying again after sales of the second year leaves those sales covered."""
        desk = self.new_desk()
        desk.take_in(self.folder)
        self.carry(desk)
        desk.take_in(self.second)
        before, lots = desk.export(), self.lots(desk)
        self.carry(desk)
        self.assert_same_files(before, desk.export())
        self.assertEqual(lots, self.lots(desk))
        self.check_is_well(desk)


if __name__ == "__main__":
    unittest.main()
