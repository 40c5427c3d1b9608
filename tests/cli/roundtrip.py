#!/usr/bin/env python3
"""What is taken in comes out again: import, export, and import of the export."""

import shutil
import unittest

from base import BASE, BILL_HEADER, TRANSFER_HEADER, write
from ctl import REFUSED, SAMPLE, Case, generate, portfolio_files, rows

MASTERS = ("participants.csv", "clients.csv", "accounts.csv", "brokers.csv", "scrips.csv",
           "percentages.csv")
ALL_LOTS = "Select * From Stock Order By Id"


def lots(desk) -> list[list[str]]:
    return desk.sql("Select Fyear,O.Code,Coalesce(A.ACNo,'-'),C.Code,Rate,Qty From Stock S Join "
                    "Script C On C.Id=S.ScriptId Join ClientInfo O On O.Id=S.Cid Left Join "
                    "ClientActDet A On A.id=S.AcId Order By Fyear,O.Code,A.ACNo,C.Code,Rate")


class Sample(Case):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.desk = cls.new_desk()
        cls.desk.take_in(SAMPLE)

    def test_export_is_the_folder_that_was_taken_in(self):
        self.assert_same_files(portfolio_files(SAMPLE), self.desk.export())

    def test_transfers_know_whether_they_leave_the_client(self):
        self.assertEqual(self.desk.sql("Select Distinct TransTo,Cid=ToClientID From ScrTransfer "
                                       "Order By TransTo"), [["0", "1"], ["1", "0"]])

    def part_of_sample(self, *names):
        folder = self.new_folder()
        for name in names:
            shutil.copy(SAMPLE / name, folder)
        return folder

    def test_each_kind_of_document_is_refused_a_second_time(self):
        before, lots = self.desk.export(), self.desk.sql(ALL_LOTS)
        for name, text in (("opening.csv", "opening.csv, line 2: this opening lot"),
                           ("bills.csv", "bills.csv, line 2, column bill_no: this bill"),
                           ("transfers.csv", "transfers.csv, line 2"),
                           ("broker_opening.csv", "broker_opening.csv, line 2, column broker: "
                                                  "Record Already Exists!"),
                           ("payments.csv", "payments.csv, line 2: this payment"),
                           ("receipts.csv", "receipts.csv, line 2: this payment")):
            with self.subTest(name):
                self.assertIn(text, self.desk.take_in(self.part_of_sample(name), REFUSED))
                self.assert_same_files(before, self.desk.export())
                self.assertEqual(lots, self.desk.sql(ALL_LOTS))

    def test_masters_and_rates_may_be_taken_in_again(self):
        before = self.desk.export()
        self.desk.take_in(self.part_of_sample(*MASTERS, "rates.csv"))
        self.assert_same_files(before, self.desk.export())
        self.check_is_well(self.desk)

    def test_dry_run_writes_nothing(self):
        desk = self.new_desk()
        before = desk.export()
        self.assertIn("487 bill lines", desk.run("import", SAMPLE, "--dry-run").stderr)
        self.assert_same_files(before, desk.export())
        self.assertEqual(desk.sql(ALL_LOTS), [])
        desk.take_in(SAMPLE)
        self.assert_same_files(portfolio_files(SAMPLE), desk.export())

    def test_dry_run_tells_the_same_errors(self):
        before = self.desk.export()
        dry = self.desk.run("import", SAMPLE, "--dry-run", status=REFUSED).stderr
        self.assertEqual(dry, self.desk.take_in(SAMPLE, REFUSED))
        self.assert_same_files(before, self.desk.export())

    def test_documents_go_on_top_of_masters_that_are_there(self):
        desk = self.new_desk()
        for names in (MASTERS, ("opening.csv",), ("bills.csv", "transfers.csv"),
                      ("broker_opening.csv", "payments.csv"), ("receipts.csv", "rates.csv")):
            desk.take_in(self.part_of_sample(*names))
        self.assert_same_files(portfolio_files(SAMPLE), desk.export())
        self.check_is_well(desk)

    def test_day_by_day_gives_the_same_as_all_at_once(self):
        """Each day is an import on top of what the days before have left, so that first in, first
        out has to come from the recorded documents."""
        folder = generate(self.new_folder(), 40, 5, "--clients", "2", "--scrips", "4")
        whole, desk = self.new_desk(), self.new_desk()
        whole.take_in(folder)
        days: dict[str, dict[str, list[str]]] = {}
        for name, column in (("bills.csv", 3), ("transfers.csv", 0)):
            for line in (folder / name).read_text(encoding="utf-8").splitlines()[1:]:
                day = "/".join(reversed(line.split(",")[column].split("/")))
                days.setdefault(day, {}).setdefault(name, []).append(line)
        headers = {name: (folder / name).read_text(encoding="utf-8").splitlines()[0]
                   for name in ("bills.csv", "transfers.csv")}
        for name in headers:
            (folder / name).unlink()
        desk.take_in(folder)
        for _day, documents in sorted(days.items()):
            part = self.new_folder()
            for name, lines in documents.items():
                (part / name).write_text("\n".join([headers[name], *lines]) + "\n",
                                         encoding="utf-8")
            desk.take_in(part)
        self.assert_same_files(whole.export(), desk.export())
        self.check_is_well(desk)

    def test_export_of_one_client(self):
        """ATH001 has dealt with ATH004, and ATH002 with ATH003: each pair comes out together."""
        for asked, codes, moves in (("ATH001", {"ATH001", "ATH004"}, 2),
                                    ("ATH003", {"ATH002", "ATH003"}, 1)):
            with self.subTest(asked):
                part = {name: rows(content.decode())
                        for name, content in self.desk.export("--client", asked).items()}
                self.assertEqual({row["code"] for row in part["clients.csv"]}, codes)
                for name in ("accounts.csv", "opening.csv", "bills.csv", "payments.csv"):
                    self.assertEqual({row["client_code"] for row in part[name]}, codes, name)
                self.assertEqual(len(part["transfers.csv"]), moves)
                used = {row["broker"] for name in ("bills.csv", "payments.csv", "receipts.csv",
                                                   "broker_opening.csv") for row in part[name]}
                self.assertEqual({row["name"] for row in part["brokers.csv"]}, used)
                used = {row["scrip_code"] for name in ("bills.csv", "opening.csv", "transfers.csv")
                        for row in part[name]}
                self.assertEqual({row["code"] for row in part["scrips.csv"]}, used)

    def test_parts_of_clients_taken_in_apart_make_the_whole(self):
        desk = self.new_desk()
        for client in ("ATH002", "ATH001"):
            folder = self.new_folder()
            self.desk.run("export", folder, "--client", client)
            desk.take_in(folder)
        self.assert_same_files(portfolio_files(SAMPLE), desk.export())
        for client in ("ATH001", "ATH002", "ATH003", "ATH004"):
            for year in ("2011-12", "2012-13", "2013-14"):
                self.assertEqual(self.desk.statement(client, year), desk.statement(client, year))


class ComesAgain(Case):
    """What a folder that was exported makes of a new program."""

    def assert_comes_again(self, desk, fault=""):
        folder, again = self.new_folder(), self.new_desk()
        desk.run("export", folder)
        again.take_in(folder)
        self.assert_same_files(portfolio_files(folder), again.export())
        self.assertEqual(lots(desk), lots(again))
        if fault:
            self.assertIn(fault, again.run("check", status=REFUSED).stdout)
        else:
            self.check_is_well(again)
        self.assert_same_statements(desk, again)

    def assert_same_statements(self, first, second):
        for year in ("2011-12", "2012-13"):
            ask = ("statement", "capital-gain", "--all", "--year", year, "--charges", "both",
                   "--format", "csv")
            self.assertEqual(first.run(*ask).stdout, second.run(*ask).stdout)


class Recorded(ComesAgain):
    """What windows record and no folder has to hold comes out and in again."""

    def taken_in(self, contents: dict):
        desk = self.new_desk()
        desk.take_in(write(self.new_folder(), BASE | contents))
        return desk

    def test_two_bills_of_one_number_stay_two(self):
        line = "AN,A1,7,02/05/2011,LOTUS,NSE,P,600002,{},60,,,,,,{}"
        desk = self.taken_in({"bills.csv": "\n".join(
            [BILL_HEADER + ",bill_part", line.format(1, "5,"), line.format(2, "6,2"),
             line.format(3, ",2"), line.format(4, ",1"), "AN,,7,02/05/2011,LOTUS,NSE,P,600002,5,60"
             ",,,,,,,", ""])})
        self.assertEqual(desk.sql("Select OthCharge,Total From SPMaster Order By ID"),
                         [["5", "305"], ["6", "306"], ["0", "300"]])
        self.assert_comes_again(desk)

    def test_sale_of_no_lot_is_taken_from_none(self):
        line = "AN,A1,{},{},LOTUS,NSE,{},600002,{},60,0.25,1,2,0,{},"
        desk = self.taken_in({"bills.csv": "\n".join(
            [BILL_HEADER, line.format(1, "01/06/2011", "S", 4, "None"),
             line.format(2, "02/05/2011", "P", 10, ""), line.format(3, "02/06/2011", "S", 3, ""),
             ""])})
        self.assertEqual(desk.sql("Select Qty,StkId=0 From SPTrans Where SP=0 Order By Id,SID"),
                         [["4", "1"], ["3", "0"]])
        self.assertIn(["2011-12", "AN", "A1", "600002", "60", "7"], lots(desk))
        self.assert_comes_again(
            desk, 'AN, dated "01/06/2011", sells shares from no lot of its account')

    def test_sale_dated_before_the_purchase_of_its_lot(self):
        line = "AN,A1,{},{},LOTUS,NSE,{},600002,{},60,0.25,1,2,0,{},"
        desk = self.taken_in({"bills.csv": "\n".join(
            [BILL_HEADER, line.format(1, "01/06/2011", "S", 4, "60"),
             line.format(2, "02/06/2011", "P", 10, ""), line.format(3, "03/06/2011", "S", 6, ""),
             ""])})
        self.assertIn(["2011-12", "AN", "A1", "600002", "60", "0"], lots(desk))
        self.assert_comes_again(desk)

    def test_charge_with_fractions_of_a_paisa_over_two_lots(self):
        line = "AN,A1,{},{},LOTUS,NSE,{},600002,{},{},0,{},{},0,,"
        desk = self.taken_in({"bills.csv": "\n".join(
            [BILL_HEADER, line.format(1, "02/05/2011", "P", 99, 60, 0, 0),
             line.format(2, "03/05/2011", "P", 1, 61, 0, 0),
             line.format(3, "04/05/2011", "S", 100, 70, 0.004, 0.016), ""])})
        self.assertEqual(desk.sql("Select Qty,STax,STT From SPTrans Where SP=0 Order By Id"),
                         [["99", "0", "0.016"], ["1", "0.004", "0"]])
        self.assert_comes_again(desk)

    def test_accounts_of_two_clients_with_one_number(self):
        line = "AN,A1,1,02/05/2011,LOTUS,NSE,P,600002,10,60,,,,0,,\n"
        contents = {
            "accounts.csv": BASE["accounts.csv"] + "BI,NIDHI,IN399901,A1\n",
            "bills.csv": f"{BILL_HEADER}\n{line}{line.replace('AN', 'BI').replace('10,60', '7,60')}"}
        transfers = f"{TRANSFER_HEADER}\n03/05/2011,A1,A1,600002,60,4\n"
        told = self.new_desk().take_in(write(self.new_folder(), BASE | contents | {
            "transfers.csv": transfers.replace("A1,A1", "A1,A2")}), REFUSED)
        self.assertIn("transfers.csv, line 2, column from_account: several clients have", told)
        desk = self.taken_in(contents | {"transfers.csv": transfers.replace(
            "quantity", "quantity,from_client,to_client").replace(",60,4", ",60,4,an,BI")})
        self.assertEqual(sorted(lot[-1] for lot in lots(desk) if lot[3] == "600002"), ["11", "6"])
        self.assert_comes_again(desk)

    def test_stock_carried_forward_without_an_account(self):
        desk = self.taken_in({"bills.csv": BILL_HEADER + "\nAN,,1,02/05/2011,LOTUS,NSE,P,600002,"
                                                         "10,60,0.25,1.5,2,0,,5\n"})
        desk.run("carry-forward", "stock", "--client", "AN", "--year", "2012-13")
        desk.take_in(write(self.new_folder(), {
            "bills.csv": BILL_HEADER + "\nAN,,2,02/05/2012,LOTUS,NSE,S,600002,4,70,,,,0,,\n"}))
        self.assertIn(["2012-13", "AN", "-", "600002", "60", "6"], lots(desk))
        self.assert_comes_again(desk)


class TaxRecords(ComesAgain):
    """Fair values and losses brought forward."""

    FILES = {"fair_values.csv": "scrip_code,rate\n600002,964.9\n600001,0.05\n",
             "tax_losses.csv": "client_code,fyear,kind,amount,loss_year\n"
                               "BI,2011-12,speculation,0.01,2007-08\n"
                               "AN,2011-12,Short-Term,1234567.89,\n"
                               "AN,2011-12,long-term,5,2003-04\n"}

    def test_they_come_out_and_in_again(self):
        desk = self.new_desk()
        desk.take_in(write(self.new_folder(), BASE | self.FILES))
        out = {name: content.decode() for name, content in desk.export().items()}
        self.assertEqual(out["fair_values.csv"],
                         "scrip_code,rate\n600001,0.05\n600002,964.9\n")
        self.assertEqual(out["tax_losses.csv"],
                         "client_code,fyear,kind,amount,loss_year\n"
                         "AN,2011-12,long-term,5,2003-04\n"
                         "AN,2011-12,short-term,1234567.89,2010-11\n"
                         "BI,2011-12,speculation,0.01,2007-08\n")
        self.assert_comes_again(desk)
        desk.take_in(write(self.new_folder(), self.FILES))
        part = {name: content.decode()
                for name, content in desk.export("--client", "AN").items()}
        self.assertEqual(len(rows(part["tax_losses.csv"])), 2)
        self.assertEqual(part["fair_values.csv"],
                         "scrip_code,rate\n600001,0.05\n")

    def test_what_cannot_be_is_refused(self):
        desk = self.new_desk()
        desk.take_in(write(self.new_folder(), BASE | self.FILES))
        before = desk.export()
        for name, line, told in (
                ("fair_values.csv", "600001,0", "column rate: expected a number above 0"),
                ("fair_values.csv", "600001,1000000000", "column rate: Enter a Rate Above Zero"),
                ("fair_values.csv", "600001,0.06", "has the fair value 0.05 already"),
                ("fair_values.csv", "699999,1", "column scrip_code: expected a known scrip"),
                ("tax_losses.csv", "AN,2011-12,other,1,", "column kind: expected one of"),
                ("tax_losses.csv", "AN,2011-12,long-term,0,", "column amount: expected"),
                ("tax_losses.csv", "AN,2011-12,long-term,0.001,", "column amount: Enter an"),
                ("tax_losses.csv", "AN,2012-13,long-term,1,2003-04", "column loss_year: Long-Term"),
                ("tax_losses.csv", "AN,2012-13,speculation,1,2007-08", "column loss_year: Specul"),
                ("tax_losses.csv", "AN,2012-13,speculation,1,2012-13", "column loss_year: Enter"),
                ("tax_losses.csv", "AN,2012-13,speculation,1,2012", "column loss_year: expected"),
                ("tax_losses.csv", "XX,2012-13,speculation,1,", "expected a known client"),
                ("tax_losses.csv", "AN,2011-12,long-term,6,2003-04", "recorded already, with 5")):
            with self.subTest(line):
                header = self.FILES[name].splitlines()[0]
                folder = write(self.new_folder(), {name: f"{header}\n{line}\n"})
                self.assertIn(told, desk.take_in(folder, REFUSED))
                self.assert_same_files(before, desk.export())


class Marks(ComesAgain):
    """What imports of statements and trade books leave to be known."""

    KEY = "AN,A1,1,02/05/2011,LOTUS,{},{},{}\n"
    FILES = {"opening.csv": BASE["opening.csv"] + "AN,A1,2011-12,600002,5,0,31/03/2011\n",
             "opening_marks.csv": "client_code,account_no,fyear,scrip_code\nAN,A1,2011-12,600002\n",
             "bills.csv": f"{BILL_HEADER},bill_part\nAN,A1,1,02/05/2011,LOTUS,NSE,P,600001,10,60,0,"
                          ",,0,,5,\nAN,A1,1,02/05/2011,LOTUS,NSE,P,600001,4,61,0,,,0,,,2\n",
             "trade_keys.csv": "client_code,account_no,bill_no,bill_date,broker,trade_key,"
                               "scrip_code,bill_part\n" +
                               KEY.format("C|NSE|15096||P|10000000|60|1", "600001", "") +
                               KEY.format("T|NSE|15096|O1|T1|P", "", "2"),
             "statement_checks.csv": "client_code,account_no,statement_day,compared,differing,"
                                     "checked_on\nAN,A1,31/03/2012,12,4,05/04/2012\n"}
    NAMES = ("opening_marks.csv", "trade_keys.csv", "statement_checks.csv")

    def test_they_come_out_and_in_again(self):
        desk = self.new_desk()
        desk.take_in(write(self.new_folder(), BASE | self.FILES))
        self.assertEqual([["C|NSE|15096|1|P|10000000|60|1", "1"], ["T|NSE|15096|O1|T1|P", "2"]],
                         desk.sql("Select TradeKey,BillId From TradeKey Order By BillId"))
        out = desk.export("--client", "AN")
        for name in self.NAMES:
            self.assertEqual(self.FILES[name], out[name].decode())
        self.assert_comes_again(desk)
        part = {name: self.FILES[name] for name in self.NAMES}
        desk.take_in(write(self.new_folder(), part))
        self.assert_same_files(out, desk.export("--client", "AN"))
        self.assertNotIn("trade_keys.csv", desk.export("--client", "BI"))

    def test_bill_numbers_that_differ_in_capitals_keep_their_own_trades(self):
        desk = self.new_desk()
        line = "AN,A1,{},02/05/2011,LOTUS,NSE,P,600001,10,60,0,,,0,,5\n"
        keys = ("client_code,account_no,bill_no,bill_date,broker,trade_key\n"
                "AN,A1,A1,02/05/2011,LOTUS,T|NSE|15096|O1|T1|P\n")
        desk.take_in(write(self.new_folder(), BASE | {
            "bills.csv": f"{BILL_HEADER}\n{line.format('a1')}{line.format('A1')}",
            "trade_keys.csv": keys}))
        self.assertEqual([["A1"]], desk.sql("Select B.BillNo From SPMaster B Join TradeKey T On "
                                            "T.BillId=B.ID"))
        # A comparison of an account that is gone is left out.
        desk.sql("Insert Into StatementCheck Select Id,99,'31/03/2012',1,0,'05/04/2012' From "
                 "ClientInfo Where Code='AN'")
        self.assertNotIn("statement_checks.csv", desk.export())
        self.assert_comes_again(desk)

    def test_what_cannot_be_is_refused(self):
        desk = self.new_desk()
        desk.take_in(write(self.new_folder(), BASE | self.FILES))
        before = desk.export()
        key = "T|NSE|15096|O1|T2|P"
        for name, line, told in (
                ("opening_marks.csv", "AN,A2,2011-12,600002", "expected opening stock of the scrip"),
                ("opening_marks.csv", "AN,X9,2011-12,600002", "expected opening stock of the scrip"),
                ("opening_marks.csv", "AN,A1,2011-12,699999", "expected a known scrip"),
                ("trade_keys.csv", self.KEY.format(key, "", "3"), "bill_no: expected a bill of"),
                ("trade_keys.csv", self.KEY.format(key, "", "0"), "expected a whole number from 1"),
                ("trade_keys.csv", self.KEY.format(key, "", "").replace("A1", "B1"),
                 "account_no: expected an account of the client"),
                ("trade_keys.csv", self.KEY.format("T|NSE|15096|O1|T1|P", "", ""),
                 "trade_key: this trade is in another bill already"),
                ("trade_keys.csv", self.KEY.format("T|NSE|15096|O1|T1|P  ", "", ""),
                 "trade_key: this trade is in another bill already"),
                ("trade_keys.csv", self.KEY.format("C|NSE|15096||P|10000000|60|2", "", ""),
                 "scrip_code: expected the scrip of the trade"),
                ("statement_checks.csv", "AN,B1,31/03/2012,1,0,05/04/2012",
                 "account_no: expected an account of the client"),
                ("statement_checks.csv", "AN,A1,31/03/2012,1.5,0,05/04/2012",
                 "compared: expected a whole number from 0 on")):
            with self.subTest(line):
                header = self.FILES[name].splitlines()[0]
                folder = write(self.new_folder(), {name: f"{header}\n{line}"})
                self.assertIn(told, desk.take_in(folder, REFUSED))
                self.assert_same_files(before, desk.export())


class Generated(ComesAgain):
    def test_import_of_an_export_exports_the_same(self):
        for seed, options in ((11, ("--years", "2")), (12, ("--order", "client", "--scrips", "5")),
                              (13, ("--clients", "2", "--scrips", "3", "--years", "3"))):
            with self.subTest(seed=seed):
                desk = self.new_desk()
                desk.take_in(generate(self.new_folder(), 2000, seed, *options))
                self.assert_comes_again(desk)


if __name__ == "__main__":
    unittest.main()
