#!/usr/bin/env python3
"""Input that looks odd and is right: quorvanectl takes it in and gives it out again."""

import csv
import unittest
from pathlib import Path

from base import BASE, BILL_HEADER, OPENING_HEADER, write
from ctl import Case, portfolio_files, rows


class Accepted(Case):
    def taken_in(self, contents: dict):
        desk = self.new_desk()
        desk.take_in(write(self.new_folder(), contents))
        return desk

    def test_form_of_the_files_does_not_matter(self):
        plain = self.taken_in(BASE).export()
        shuffled = BASE | {"scrips.csv": "Class,TYPE, name ,code\nA,EQUITY,ZINC ALLOYS LTD,600001\n"
                                         "A,EQUITY,ALUM CASTINGS LTD,600002\n"}
        for name, contents in (
                ("byte order mark", {file: "\ufeff" + text for file, text in BASE.items()}),
                ("CRLF", {file: text.replace("\n", "\r\n") for file, text in BASE.items()}),
                ("no last line end", {file: text.rstrip("\n") for file, text in BASE.items()}),
                ("blank lines", {file: text.replace("\n", "\n\n") for file, text in BASE.items()}),
                ("quoted headers", BASE | {"rates.csv": '"date","scrip_code","rate"\n'
                                                        '"31/03/2012","600001","70"\n'}),
                ("columns in another order", shuffled),
                ("blanks around numbers", BASE | {
                    "rates.csv": "date,scrip_code,rate\n 31/03/2012 ,600001, 70.00 \n"}),
                ("another case", BASE | {"bills.csv": BASE["bills.csv"].replace(",P,", ",p,")
                                         .replace("AN,A1", "an,a1").replace("LOTUS", "Lotus")}),
                ("files that are none of ours", BASE | {"notes.txt": "?", "bills.csv~": "?"})):
            with self.subTest(name):
                self.assert_same_files(plain, self.taken_in(contents).export())

    def test_shares_are_kept_to_six_decimals(self):
        lots = ("1.0000004", "2.0000004")
        desk = self.taken_in(BASE | {
            "opening.csv": "\n".join([OPENING_HEADER] + [
                f"AN,A1,2011-12,600001,{lot},50,05/05/2010" for lot in lots]) + "\n",
            "bills.csv": "\n".join([BILL_HEADER] + [
                f"AN,A1,1,02/05/2011,LOTUS,NSE,P,600001,{lot},60,0.25,,,0,," for lot in lots])
                         + "\n"})
        self.check_is_well(desk)

    def test_texts_come_out_as_they_went_in(self):
        names = ("O'BRIEN & SONS", 'SAY ""HELLO""', "BACK\\\\SLASH\\", "100% _REAL_",
                 "-- NOT A COMMENT", "'); Drop Table ClientInfo; --",
                 "\u0936\u094d\u0930\u0940 \u0917\u0923\u0947\u0936",
                 "FISH \U0001f41f AND \U00020000", "COMMA, LIMITED", "TWO\nLINES", "TAB\tHERE",
                 "\u20b9 LENDER", "  BLANKS AT BOTH ENDS  ", "N" * 255, "\U0001f41f" * 255)
        quoted = [f'"{name}"' for name in names]
        contents = BASE | {
            "clients.csv": "code,name,address\n" + "".join(
                f"K{n:02d},{name},{name}\n" for n, name in enumerate(quoted)),
            "brokers.csv": "name,address\n" + "".join(
                f"{name},{name}\n" for name in quoted),
            "scrips.csv": "code,name,type,class\n" + "".join(
                f"{700000 + n},{name},EQUITY,A\n" for n, name in enumerate(quoted))}
        for name in ("accounts.csv", "opening.csv", "bills.csv", "payments.csv", "rates.csv"):
            contents.pop(name)
        desk = self.taken_in(contents)
        wanted = [name.replace('""', '"') for name in names]
        out = self.new_folder()
        desk.run("export", out)
        for file, columns in (("clients.csv", ("name", "address")), ("scrips.csv", ("name",)),
                              ("brokers.csv", ("name", "address"))):
            exported = self.read(out / file)
            for column in columns:
                self.assertEqual(sorted(wanted), sorted(row[column] for row in exported), file)
        again = self.new_desk()
        again.take_in(out)
        self.assert_same_files(portfolio_files(out), again.export())
        again.take_in(out)  # the same details again are no other details
        self.assert_same_files(portfolio_files(out), again.export())

    @staticmethod
    def read(path: Path) -> list[dict]:
        with path.open(encoding="utf-8", newline="") as file:
            return list(csv.DictReader(file))

    def test_odd_names_find_their_records(self):
        code = 'O\'BR"IEN \U0001f41f \\'
        field = '"' + code.replace('"', '""') + '"'
        contents = {name: text.replace("AN,", field + ",") for name, text in BASE.items()}
        desk = self.taken_in(contents)
        self.assertEqual([(lot["rate"], lot["quantity"]) for lot in desk.holdings(code, "2011-12")],
                         [("50", "100"), ("60", "10")])
        self.assertEqual([row["row"] for row in desk.statement(code, "2011-12")],
                         ["unsold", "unsold", "total", "net_total"])
        self.assertIn("Lots changed: 0",
                      desk.run("rebuild", "--client", code, "--year", "2011-12").stderr)

    def test_bill_of_one_number_in_two_places_of_the_file_is_one_bill(self):
        line = "AN,A1,{},02/05/2011,LOTUS,NSE,P,600002,1,{},,,,,,"
        desk = self.taken_in(BASE | {"bills.csv": "\n".join(
            [BILL_HEADER, line.format(7, 10), line.format(8, 20), line.format(7, 30), ""])})
        self.assertEqual([(row["bill_no"], row["rate"])
                          for row in rows(desk.export()["bills.csv"].decode())],
                         [("7", "10"), ("7", "30"), ("8", "20")])
        self.assertEqual(desk.sql("Select Count(*) From SPMaster"), [["2"]])

    def test_same_number_of_another_broker_day_or_account_is_another_bill(self):
        desk = self.taken_in(BASE | {"brokers.csv": BASE["brokers.csv"] + "KAMAL,PUNE\n"})
        line = "AN,{},1,{},{},NSE,P,600002,1,10,,,,,,"
        desk.take_in(write(self.new_folder(), {"bills.csv": "\n".join(
            [BILL_HEADER, line.format("A1", "02/05/2011", "KAMAL"),
             line.format("A1", "03/05/2011", "LOTUS"),
             line.format("A2", "02/05/2011", "LOTUS"), ""])}))
        self.assertEqual(desk.sql("Select Count(*) From SPMaster"), [["4"]])
        self.check_is_well(desk)


if __name__ == "__main__":
    unittest.main()
