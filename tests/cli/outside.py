#!/usr/bin/env python3
"""quorvanectl with a database server of its users' own, named in the settings file."""

import os
import shutil
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

from base import BASE, write
from ctl import DONE, FAILURE, REFUSED, SECONDS, Desk, roomy_memory, start


class OutsideServer:
    """A server on a socket, with a database and a user."""

    def __init__(self, folder: Path, *options: str):
        self.socket = folder / "s.sock"
        self.folder = folder
        os.chmod(folder, 0o755)
        own = [f"--datadir={folder / 'data'}"]
        if os.getuid() == 0:
            own.append("--user=mysql")
            shutil.chown(folder, "mysql")
        subprocess.run(["mariadb-install-db", "--no-defaults", *own, "--skip-test-db",
                        "--auth-root-authentication-method=normal"], check=True,
                       capture_output=True, timeout=SECONDS)
        with (folder / "log").open("w") as log:
            self.process = subprocess.Popen(
                ["mariadbd", "--no-defaults", *own, f"--socket={self.socket}", "--skip-networking",
                 "--innodb-flush-log-at-trx-commit=0", *options], stdout=log, stderr=log)
        deadline = time.monotonic() + SECONDS
        while self.sql("Select 1", check=False) != 0:
            if self.process.poll() is not None or time.monotonic() > deadline:
                raise AssertionError((folder / "log").read_text())
            time.sleep(0.05)
        self.sql("Create Database quorvane Character Set utf8mb4; Create User clerk@localhost")

    def sql(self, statements: str, check=True) -> int:
        return subprocess.run(["mariadb", "--no-defaults", "-uroot", f"-S{self.socket}", "-e",
                               statements], capture_output=True, check=check).returncode

    def stop(self):
        self.process.terminate()
        self.process.wait(SECONDS)


class Outside(unittest.TestCase):
    options: tuple[str, ...] = ("--lower-case-table-names=1",)

    @classmethod
    def setUpClass(cls):
        cls.home = Path(tempfile.mkdtemp(prefix="quorvane-outside-", dir=roomy_memory()))
        cls.addClassCleanup(shutil.rmtree, cls.home, ignore_errors=True)
        cls.server = OutsideServer(cls.home, *cls.options)
        cls.addClassCleanup(cls.server.stop)

    def setUp(self):
        self.server.sql("Drop Database quorvane; Create Database quorvane Character Set utf8mb4;"
                        "Create Or Replace User clerk@localhost")

    def new_desk(self, database="quorvane") -> Desk:
        desk = Desk(Path(tempfile.mkdtemp(dir=self.home)))
        (desk.folder / "Confg.ini").write_text(
            f"[Database]\nSocket={self.server.socket}\nDatabase={database}\nUser=clerk\n")
        return desk


class TellsNamesApart(Outside):
    options = ("--lower-case-table-names=0",)

    def test_is_refused_with_the_setting_to_change(self):
        self.server.sql("Grant All On quorvane.* To clerk@localhost")
        told = self.new_desk().run("check", status=FAILURE).stderr
        self.assertIn("lower_case_table_names=1", told)


class Rights(Outside):
    def test_a_user_without_them_is_refused_by_name(self):
        self.server.sql("Grant Select,Insert,Update,Delete,Create On quorvane.* To clerk@localhost")
        told = self.new_desk().run("check", status=FAILURE).stderr
        self.assertIn("clerk", told)
        self.assertIn("ALTER, INDEX, DROP", told)

    def test_a_role_gives_them_as_well(self):
        self.server.sql("Create Or Replace Role desk; Grant All On quorvane.* To desk; "
                        "Grant desk To clerk@localhost; Set Default Role desk For clerk@localhost")
        self.new_desk().run("check")

    def test_connect_prints_what_the_shell_takes(self):
        name = "it's \"$0\" `x`"
        quoted = name.replace("`", "``")
        self.server.sql(f"Create Or Replace Database `{quoted}`;"
                        "Grant All On *.* To clerk@localhost")
        command = self.new_desk(name).run("connect").stdout.strip()
        told = subprocess.run(f"{command} -N -e 'Select Database()'", shell=True, check=True,
                              capture_output=True, text=True, timeout=SECONDS).stdout
        self.assertEqual(told.strip(), name)


class Check(Outside):
    def setUp(self):
        super().setUp()
        self.server.sql("Grant All On quorvane.* To clerk@localhost")
        self.desk = self.new_desk()
        self.desk.take_in(write(self.home / "base", BASE))

    def test_a_damaged_table_is_named_and_the_others_are_looked_into(self):
        self.server.sql("Alter Table quorvane.SPMaster Discard Tablespace")
        told = self.desk.run("check", status=REFUSED).stdout
        self.assertRegex(told, r"(?m)^SPMaster: the server says: ")
        self.assertRegex(told, r"(?m)^ +1 SPTrans$")

    def test_a_statement_that_was_skipped_is_no_good_end(self):
        # A table has one key of this kind, and this one has another already.
        self.server.sql("Alter Table quorvane.Broker Drop Index IxBrokerId, Drop Column RowKey, "
                        "Add Other int Auto_Increment Invisible Primary Key")
        told = self.desk.run("check", status=REFUSED).stdout
        self.assertIn("skipped: Alter Table Broker", told)

    def test_lines_of_a_bill_that_is_gone_are_listed(self):
        self.server.sql("Delete From quorvane.SPMaster; Delete From quorvane.Stock")
        told = self.desk.run("check", status=None).stdout
        self.assertIn("1 lines of bill 1 (AN, 2011-12), which is gone", told)


class ManyAtOnce(Outside):
    commands = 20

    def test_no_deadlock_reaches_the_user(self):
        self.server.sql("Grant All On quorvane.* To clerk@localhost")
        desks = [self.new_desk() for _n in range(5)]
        desks[0].take_in(write(self.home / "base", BASE))
        words = (("rebuild", "--all"), ("carry-forward", "stock", "--client", "AN", "--year",
                                        "2012-13"), ("rebuild", "--client", "AN", "--year",
                                                     "2011-12"), ("import",))
        processes = []
        for n in range(self.commands):
            command = list(words[n % len(words)])
            if command == ["import"]:
                bills = BASE["bills.csv"].replace("A1,1,", f"A1,N{n},")
                command.append(write(self.home / f"more{n}", {"bills.csv": bills}))
            processes.append(start(desks[n % len(desks)].folder, *command))
        for process in processes:
            told = process.communicate(timeout=SECONDS)[1]
            self.assertEqual(process.returncode, DONE, told)
        desks[0].run("check")


if __name__ == "__main__":
    unittest.main()
