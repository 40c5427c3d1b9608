#!/usr/bin/env python3
"""Ends quorvanectl or its database server with SIGKILL at a random instant of a command, or asks
quorvanectl to end, starts again and looks whether the portfolio is exactly what it was before the
command or exactly what it is after it.

    kill.py [--times 15] [--seed S] [--lines 4000] [unittest options]

Also: several programs at once over one application folder. Only processes of folders that this
script has made are ended.
"""

import argparse
import hashlib
import json
import os
import random
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

from ctl import (DONE, FAILURE, REFUSED, SAMPLE, SECONDS, Desk, Server, end_servers, generate,
                 portfolio_files, roomy_memory, run, server_processes, start)

YEAR, NEXT_YEAR = "2011-12", "2012-13"
DOCUMENTS = ("opening.csv", "bills.csv", "transfers.csv", "broker_opening.csv", "payments.csv",
             "receipts.csv", "rates.csv")


def copy(source: Path, target: Path) -> Path:
    """A database folder is mostly holes."""
    subprocess.run(["cp", "-r", "--sparse=always", source, target], check=True)
    return target


class State:
    """Everything that an application folder holds, and whether it is sound."""

    def __init__(self, folder: Path):
        with tempfile.TemporaryDirectory() as out:
            run(folder, "export", out)
            self.files = portfolio_files(out)
        # The ledger and its scratch copy are in no file.
        server = Server(folder)
        self.lots = server.sql("Select Cid,Fyear,AcId,ScriptId,Rate,Qty From Stock Order By "
                               "Cid,Fyear,AcId,ScriptId,Rate")
        self.scratch = server.sql("Select Count(*) From Stock_Temp")
        # What was done is in the log, once, and what was not done is not. `check` follows its chain.
        self.log = server.sql("Select Id,Kind,TableName,RecordId,OldRows,NewRows From ChangeLog "
                              "Order By Id")
        self.documents = {str(path.relative_to(folder)): path.read_bytes()
                          for path in sorted((folder / "SignDocs").rglob("*")) if path.is_file()}
        self.sound = server.desk.run("check", status=None).returncode == DONE

    def __eq__(self, other) -> bool:
        return vars(self) == vars(other)


class Command:
    """A command to be interrupted: the folder before it, and both states that may come of it."""

    def __init__(self, name: str, folder: Path, *words):
        self.name, self.folder, self.words = name, folder, words
        self.before = State(folder)
        whole = copy(folder, folder.with_name(f"{folder.name}-whole"))
        began = time.monotonic()
        run(whole, *words)
        self.seconds = time.monotonic() - began
        self.after = State(whole)
        shutil.rmtree(whole)
        assert self.before != self.after, f"{name} changes nothing"
        assert self.after.sound


def sign(folder: Path, name: str, content: str):
    """A scanned document of a client."""
    path = folder / "SignDocs" / name
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(content)


def is_whole(backup: Path) -> bool:
    """Judged without the program: by the checksums that every system's own tool can read."""
    manifest = json.loads((backup / "manifest.json").read_text())
    named = {file["path"]: file["sha256"] for file in manifest["files"]}
    found = {str(path.relative_to(backup)): hashlib.sha256(path.read_bytes()).hexdigest()
             for path in backup.rglob("*")
             if path.is_file() and not path.name.startswith("manifest.")}
    return named == found


class Folders(unittest.TestCase):
    """Tests with application folders that have servers of their own."""

    @classmethod
    def setUpClass(cls):
        cls.home = Path(tempfile.mkdtemp(prefix="quorvane-kill-", dir=roomy_memory()))
        cls.addClassCleanup(shutil.rmtree, cls.home, ignore_errors=True)

    def new_folder(self) -> Path:
        folder = Path(tempfile.mkdtemp(dir=self.home))
        self.addCleanup(shutil.rmtree, folder, ignore_errors=True)
        self.addCleanup(end_servers, folder / "desk")
        return folder / "desk"

    def assert_no_server_left(self, folder: Path):
        deadline = time.monotonic() + SECONDS
        while server_processes(folder) and time.monotonic() < deadline:
            time.sleep(0.02)
        self.assertEqual(server_processes(folder), [], "a server was left running")


class Killed(Folders):
    times = 15
    seed = 0
    lines = 4000

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.random = random.Random(cls.seed)
        whole = generate(cls.home / "portfolio", cls.lines, 17, "--clients", "8")
        documents = cls.home / "documents"
        documents.mkdir()
        masters = cls.home / "masters"
        shutil.copytree(whole, masters)
        for name in DOCUMENTS:
            shutil.move(masters / name, documents / name)
        empty, filled, wrong, other = (cls.home / name
                                       for name in ("empty", "filled", "wrong", "other"))
        for folder in (empty, filled, wrong, other):
            cls.addClassCleanup(end_servers, folder)
        run(empty, "import", masters)
        copy(empty, filled)
        run(filled, "import", documents)
        copy(filled, wrong)
        server = Server(wrong)
        server.sql("Update Stock Set Qty=Qty+1 Where Id%3=0")
        server.desk.run("check", status=REFUSED)
        sign(filled, "1/sign.png", "signature")
        cls.filled = filled
        began = time.monotonic()
        backup = run(filled, "backup", cls.home / "backups").stdout.strip()
        cls.backup_seconds = time.monotonic() - began
        run(other, "import", SAMPLE)
        sign(other, "1/sign.png", "another")
        sign(other, "2/more.png", "more")
        actions = cls.home / "actions.csv"
        actions.write_text("scrip_code,kind,ex_date,new,old\n"
                           + "".join(f"{code},bonus,31/03/2012,1,2\n"
                                     for code in ("600001", "600008", "600015")))
        cls.commands = (
            Command("import", empty, "import", documents),
            Command("restore", other, "restore", backup, "--yes"),
            Command("rebuild", wrong, "rebuild", "--all"),
            Command("corporate action", filled, "corporate-action", actions, "--apply"),
            Command("carry forward", filled, "carry-forward", "stock", "--client", "C00001",
                    "--year", NEXT_YEAR))

    def test_portfolio_is_as_before_or_as_after(self):
        for n in range(self.times):
            command = self.commands[n // 3 % len(self.commands)]
            victim = ("program", "server", "program by its own")[n % 3]
            # Mostly late, where the command writes and commits; early its server still starts.
            instant = self.random.triangular(0, 1.3 * command.seconds, 0.9 * command.seconds)
            with self.subTest(f"{command.name}, {victim} after {instant:.4f} s, seed {self.seed}"):
                self.interrupt(command, victim, instant)

    def test_backup_is_whole_or_seen_as_unfinished(self):
        for n in range(max(4, self.times)):
            folder = copy(self.filled, self.new_folder())
            before = State(folder)
            out = folder.with_name("out")
            instant = self.random.uniform(0, 1.2 * self.backup_seconds)
            with self.subTest(f"after {instant:.4f} s, seed {self.seed}"):
                process = start(folder, "backup", out)
                time.sleep(instant)
                process.kill() if n % 2 == 0 else end_servers(folder)
                process.communicate(timeout=SECONDS)
                for made in out.iterdir() if out.exists() else ():
                    if made.name.endswith(".part"):
                        told = run(folder, "restore", made, "--yes", status=REFUSED).stderr
                        self.assertIn("was not finished", told)
                    else:
                        self.assertTrue(is_whole(made))
                run(folder, "backup", out)
                self.assertTrue(all(is_whole(made) for made in out.iterdir()), "litter is left")
                self.assertTrue(State(folder) == before)
                self.assert_no_server_left(folder)

    def interrupt(self, command: Command, victim: str, instant: float):
        folder = copy(command.folder, self.new_folder())
        process = start(folder, *command.words)
        time.sleep(instant)
        if victim == "program":
            process.kill()
        elif victim == "server":
            end_servers(folder)
        else:
            process.terminate()
        _output, told = process.communicate(timeout=SECONDS)
        if victim == "program by its own":
            self.assert_no_server_left(folder)
        if victim == "server":
            self.assertIn(process.returncode, (DONE, FAILURE), told)
            self.assertEqual(process.returncode == DONE, "quorvanectl: " not in told, told)
        state = State(folder)
        self.assert_no_server_left(folder)
        if process.returncode == DONE:
            self.assertTrue(state == command.after, "what was reported as done is not there")
            return
        if state == command.after:
            return
        if state != command.before:
            self.fail(f"neither before nor after; sound: {state.sound}")
        # A second try goes through whatever the first one has left.
        run(folder, *command.words)
        self.assertTrue(State(folder) == command.after)

class KilledOnTheFirstStart(Folders):
    times = 2
    seed = 0

    def test_folder_is_made_whole_by_the_next_start(self):
        chance = random.Random(self.seed)
        whole = self.new_folder()
        began = time.monotonic()
        run(whole, "import", SAMPLE)
        seconds = time.monotonic() - began
        for _time in range(self.times):
            instant = chance.uniform(0, seconds)
            with self.subTest(f"after {instant:.4f} s, seed {self.seed}"):
                folder = self.new_folder()
                process = start(folder, "check")
                time.sleep(instant)
                process.kill()
                process.communicate(timeout=SECONDS)
                run(folder, "import", SAMPLE)
                self.assertEqual(State(folder).files, portfolio_files(SAMPLE))
                self.assert_no_server_left(folder)


class AtOnce(Folders):
    """Several programs over one application folder."""

    def together(self, folder: Path, *commands) -> list[tuple[int, str]]:
        """Exit status and standard error of each."""
        processes = [start(folder, *words) for words in commands]
        told = [process.communicate(timeout=SECONDS)[1] for process in processes]
        self.assert_no_server_left(folder)
        return [(process.returncode, text) for process, text in zip(processes, told)]

    def parts(self) -> list[Path]:
        """Two folders that make up the sample."""
        desk = Desk(self.new_folder())
        desk.take_in(SAMPLE)
        parts = [self.new_folder() for _part in range(2)]
        for client, part in zip(("ATH001", "ATH002"), parts):
            desk.run("export", part, "--client", client)
        return parts

    def test_two_imports_into_a_folder_that_is_new(self):
        folder = self.new_folder()
        for status, told in self.together(folder, *(("import", part) for part in self.parts())):
            self.assertEqual(status, DONE, told)
        state = State(folder)
        self.assertTrue(state.sound)
        self.assertEqual(state.files, portfolio_files(SAMPLE))

    def test_two_imports_of_one_folder_are_one_import(self):
        made = self.new_folder()
        run(made, "check")
        for _time in range(2):
            folder = copy(made, self.new_folder())
            outcomes = self.together(folder, ("import", SAMPLE), ("import", SAMPLE))
            self.assertEqual(sorted(status for status, _told in outcomes), [DONE, REFUSED],
                             outcomes)
            state = State(folder)
            self.assertTrue(state.sound)
            self.assertEqual(state.files, portfolio_files(SAMPLE))

    def test_two_imports_into_one_lot(self):
        made = self.new_folder()
        run(made, "import", SAMPLE)
        parts = []
        for number in ("ONE", "TWO"):
            part = self.new_folder()
            part.mkdir()
            (part / "bills.csv").write_text(
                "client_code,account_no,bill_no,bill_date,broker,exchange,side,scrip_code,"
                "quantity,rate\n" + "".join(
                    f"ATH001,10014501,{number}{n},06/04/2011,TARANGINI EQUITIES LTD,NSE,P,500010,"
                    f"1,777.5\n" for n in range(500)))
            parts.append(part)
        for _time in range(2):
            folder = copy(made, self.new_folder())
            for status, told in self.together(folder, *(("import", part) for part in parts)):
                self.assertEqual(status, DONE, told)
            lots = run(folder, "holdings", "--client", "ATH001", "--year", YEAR, "--format",
                       "csv").stdout
            self.assertRegex(lots, r"10014501,500010,\d+,777\.5,1000\n")
            run(folder, "check")

    def test_readers_and_writers(self):
        folder = self.new_folder()
        run(folder, "import", SAMPLE)
        before = State(folder)
        out = self.new_folder()
        statement = ("statement", "capital-gain", "--all", "--year", YEAR, "--format", "csv")
        for status, told in self.together(
                folder, ("export", out), statement, ("rebuild", "--all"), ("check",), statement,
                ("holdings", "--client", "ATH001", "--year", YEAR)):
            self.assertEqual(status, DONE, told)
        self.assertEqual(portfolio_files(out), portfolio_files(SAMPLE))
        self.assertTrue(State(folder) == before)

    def test_carry_forward_twice_at_once(self):
        folder = self.new_folder()
        run(folder, "import", SAMPLE)
        carry = ("carry-forward", "stock", "--client", "ATH001", "--year", "2014-15")
        for status, told in self.together(folder, carry, carry):
            self.assertEqual(status, DONE, told)
        twice = State(folder)
        alone = self.new_folder()
        run(alone, "import", SAMPLE)
        run(alone, *carry)
        once = State(alone)
        # The second one is in the log, too.
        entries, last = twice.log, once.log[-1]
        self.assertEqual([entry[1] for entry in entries], [entry[1] for entry in once.log + [last]])
        twice.log = once.log
        self.assertTrue(twice == once)

    def test_server_stays_for_a_client_of_its_own_until_the_next_command(self):
        folder = self.new_folder()
        server = Server(folder)
        self.assertEqual(len(server_processes(folder)), 1)
        self.assertEqual(server.sql("Select 1"), [["1"]])
        self.assertTrue(server.sql("Select @@tmpdir")[0][0].startswith(str(folder)),
                        "a server that starts clears the scratch tables in a shared folder away")
        run(folder, "check")
        self.assert_no_server_left(folder)


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--times", type=int, default=Killed.times)
    parser.add_argument("--seed", type=int, default=int.from_bytes(os.urandom(3), "big"))
    parser.add_argument("--lines", type=int, default=Killed.lines)
    given, rest = parser.parse_known_args()
    Killed.times, Killed.seed, Killed.lines = given.times, given.seed, given.lines
    KilledOnTheFirstStart.times = max(2, given.times // 5)
    KilledOnTheFirstStart.seed = given.seed
    unittest.main(argv=[sys.argv[0], *rest])


if __name__ == "__main__":
    main()
