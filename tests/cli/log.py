#!/usr/bin/env python3
"""The log of changes and taking back, as users of quorvanectl have them."""

import shutil
import tempfile
import unittest
from pathlib import Path

from base import BASE, write
from ctl import DONE, REFUSED, SAMPLE, WRONG_USAGE, Desk, Server, end_servers, roomy_memory, rows

ACTION = "scrip_code,kind,ex_date,new,old\n600001,bonus,01/09/2011,1,1\n"


class Log(unittest.TestCase):
    def setUp(self):
        home = Path(tempfile.mkdtemp(prefix="quorvane-log-", dir=roomy_memory()))
        self.addCleanup(shutil.rmtree, home, ignore_errors=True)
        self.home = home
        self.desk = Desk(home / "desk")
        self.addCleanup(end_servers, self.desk.folder)

    def sql(self, statement: str) -> list[list[str]]:
        """The next command stops the server again."""
        return Server(self.desk.folder).sql(statement)

    def entries(self, *options) -> list[dict]:
        return rows(self.desk.run("log", "--format", "csv", *options).stdout)

    def kinds(self) -> list[str]:
        return [entry["kind"] for entry in self.entries()]

    def test_work_of_many_rows_is_one_entry(self):
        self.desk.take_in(SAMPLE)
        self.desk.run("import", SAMPLE, "--dry-run", status=None)
        year = self.sql("Select Max(Fyear) From SPMaster")[0][0]
        code = self.sql("Select C.Code From SPMaster B Join ClientInfo C On C.Id=B.Cid Where "
                               f"B.Fyear='{year}' Limit 1")[0][0]
        following = f"{int(year[:4]) + 1}-{(int(year[:4]) + 2) % 100:02}"
        self.desk.run("carry-forward", "stock", "--client", code, "--year", following)
        self.desk.run("rebuild", "--all")  # changes nothing
        self.sql("Update Stock Set Qty=Qty+1 Limit 1")
        self.desk.run("rebuild", "--all")
        self.assertEqual(self.kinds(), ["imported", "carried-forward", "rebuilt"])
        self.assertEqual([e["kind"] for e in self.entries("--client", code)], ["carried-forward"])
        lines = self.sql("Select Count(*) From SPTrans")[0][0]
        self.assertIn(f'"SPTrans":[0,{lines}]', self.entries()[0]["after"])
        told = self.desk.run("undo", status=REFUSED).stderr
        self.assertIn("computed from other records", told)

    def test_undo_takes_a_command_back(self):
        self.desk.take_in(write(self.home / "base", BASE))
        before = self.desk.export()
        actions = self.home / "actions.csv"
        actions.write_text(ACTION)
        self.desk.run("corporate-action", actions, "--apply")
        self.assertNotEqual(self.desk.export(), before)
        shown = self.desk.run("undo", "--show").stdout
        self.assertIn("Applied, Corporate Action 01/09/2011", shown)
        self.desk.run("undo")
        self.assertEqual(self.desk.export(), before)
        self.assertEqual(self.entries()[-1]["undoes"], self.entries()[-2]["entry"])
        self.assertIn("an import", self.desk.run("undo", status=REFUSED).stderr)
        self.desk.run("check")

    def test_check_finds_what_was_done_to_the_log(self):
        self.desk.take_in(write(self.home / "base", BASE))
        actions = self.home / "actions.csv"
        actions.write_text(ACTION)
        self.desk.run("corporate-action", actions, "--apply")
        self.desk.run("undo")
        self.assertIn("the log of changes ends at entry 3, ", self.desk.run("check").stdout)
        for harm, told in (("Update ChangeLog Set UserName='nobody' Where Id=2",
                            "Entry 2 of the log was edited"),
                           ("Delete From ChangeLog Where Id=3", "Entry 3 of the log was removed")):
            self.sql(harm)
            self.assertIn(told, self.desk.run("check", status=REFUSED).stdout)

    def test_old_entries_are_written_out_and_removed(self):
        self.desk.take_in(write(self.home / "base", BASE))
        old = self.home / "old.csv"
        self.desk.run("log", "--remove-before", "01/01/2999", status=WRONG_USAGE)
        self.desk.run("log", "--remove-before", "01/04/2011", "--out", old, status=REFUSED)
        self.assertFalse(old.exists())
        self.desk.run("log", "--remove-before", "01/01/2999", "--out", old)
        self.assertEqual([row["kind"] for row in rows(old.read_text())], ["imported"])
        self.assertEqual(self.kinds(), ["cleared"])
        self.desk.run("check", status=DONE)


if __name__ == "__main__":
    unittest.main()
