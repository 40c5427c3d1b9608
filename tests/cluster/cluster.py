#!/usr/bin/env python3
"""Three writers on three nodes of a real cluster, of which one dies on the way and comes back.

    cluster.py [--rounds 20] [--imports 7] [unittest options]

The environment names quorvanectl (QUORVANE_CTL) and the program of the writers
(QUORVANE_CLUSTER_WRITER).
"""

import argparse
import csv
import io
import os
import signal
import subprocess
import sys
import tempfile
import threading
import time
import unittest
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "cli"))

from base import BASE, BILL_HEADER, write
from ctl import DONE, Desk, roomy_memory

NODES = (1, 2, 3)
DYING = 2
LONGEST = 120  # seconds


def port(node: int) -> str:
    return os.environ[f"NODE{node}"]


def sql(node: int, statement: str) -> list[list[str]]:
    told = subprocess.run(
        ["mariadb", "--no-defaults", "-uquorvane", "-h127.0.0.1", f"-P{port(node)}", "-N", "-B",
         "quorvane", "-e", statement], capture_output=True, text=True, check=True).stdout
    return [line.split("\t") for line in told.splitlines()]


def small_folder(folder: Path, name: str) -> Path:
    """A new client with an account, a broker and a bill, and a bill of the client of all."""
    return write(folder, {
        "clients.csv": f"code,name\n{name},{name}\n",
        "accounts.csv": f"client_code,participant,dp_id,account_no\n{name},NIDHI,IN399901,{name}1\n",
        "brokers.csv": f"name,city\nB {name},PUNE\n",
        "bills.csv": BILL_HEADER + "".join(
            f"\n{client},{account},I{name},03/05/2011,LOTUS,NSE,P,600001,5,{rate},,,,0,,"
            for client, account, rate in ((name, f"{name}1", 60), ("AN", "A1", 101))) + "\n"})


class Cluster(unittest.TestCase):
    rounds = 20
    imports = 7

    def setUp(self):
        self.home = Path(os.environ["FOLDER"])
        self.desks = {}
        for node in NODES:
            others = [n for n in NODES if n != node]
            desk = Desk(self.home / f"desk{node}")
            servers = ",".join(f"127.0.0.1:{port(n)}" for n in (node, *others))
            (desk.folder / "Confg.ini").write_text(
                f"[Database]\nServer={servers}\nDatabase=quorvane\nUser=quorvane\n")
            self.desks[node] = desk
        self.told = {node: "" for node in NODES}
        self.failures = []
        self.taken_in = 0  # imports on all nodes

    def write_bills(self, node: int):
        writer = subprocess.Popen(
            [os.environ["QUORVANE_CLUSTER_WRITER"], self.desks[node].folder, str(node),
             str(self.rounds)], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        try:
            self.told[node], told = writer.communicate(timeout=LONGEST)
        except subprocess.TimeoutExpired:
            writer.kill()
            self.told[node], told = writer.communicate()
            told += "took too long"
        if writer.returncode != 0:
            self.failures.append(f"writer {node}: {told}")

    def take_in(self, node: int):
        for n in range(self.imports):
            folder = small_folder(self.home / f"folder{node}-{n}", f"C{node}{n}")
            result = self.desks[node].run("import", folder, status=None)
            self.taken_in += 1
            if result.returncode != DONE:
                self.failures.append(f"import {node}-{n}: {result.stderr}")

    def kill_a_node_and_let_it_rejoin(self):
        os.kill(int((self.home / f"n{DYING}.pid").read_text()), signal.SIGKILL)
        time.sleep(1)
        subprocess.run([HERE / "nodes.sh", self.home, "--join", str(DYING)], check=True)

    def test_nothing_is_lost_doubled_or_refused(self):
        self.desks[1].take_in(write(self.home / "base", BASE))
        began = time.monotonic()
        threads = [threading.Thread(target=work, args=(node,))
                   for node in NODES for work in (self.write_bills, self.take_in)]
        for thread in threads:
            thread.start()
        while self.taken_in < self.imports and not self.failures:
            time.sleep(0.05)
        self.kill_a_node_and_let_it_rejoin()
        for thread in threads:
            thread.join()
        print(f"written in {time.monotonic() - began:.1f} s", file=sys.stderr)
        self.assertEqual(self.failures, [])
        self.assert_every_document_stands_once()
        self.assert_the_log_tells_all_of_it_once()
        self.assert_nodes_are_alike()
        for node in NODES:
            self.desks[node].run("check")

    def assert_every_document_stands_once(self):
        expected = {f"IC{node}{n}": 10.0 for node in NODES for n in range(self.imports)}
        expected["1"] = 10.0
        transferred = 0.0
        for told in self.told.values():
            *bills, last = told.splitlines()
            expected.update((number, float(shares)) for number, shares in map(str.split, bills))
            transferred += float(last.removeprefix("transferred "))
        found = {}
        for row in csv.DictReader(io.StringIO(self.desks[1].export()["bills.csv"].decode())):
            found[row["bill_no"]] = found.get(row["bill_no"], 0.0) + float(row["quantity"])
        self.assertEqual(found, {number: shares for number, shares in expected.items() if shares})
        moved = csv.DictReader(io.StringIO(self.desks[1].export()["transfers.csv"].decode()))
        self.assertEqual(sum(float(row["quantity"]) for row in moved), transferred)

    def assert_the_log_tells_all_of_it_once(self):
        """`check` follows the chain."""
        added, deleted, imported = 1, 3, 6
        counts = {(int(kind), table): int(count) for kind, table, count in sql(
            1, "Select Kind,TableName,Count(*) From ChangeLog Group By Kind,TableName")}
        writers = len(NODES)
        self.assertEqual(counts[imported, ""], writers * self.imports + 1)
        for table in ("SPMaster", "ScrTransfer"):
            self.assertEqual(counts[added, table], writers * self.rounds)
            self.assertEqual(counts[deleted, table], writers * (self.rounds // 4))
        entries, last = sql(1, "Select Count(*),Max(Id) From ChangeLog")[0]
        self.assertEqual(entries, last)

    def assert_nodes_are_alike(self):
        tables = [table for table, in sql(1, "Show Tables")]
        statement = f"Set Session wsrep_sync_wait=1; Checksum Table {','.join(tables)}"
        first = sql(1, statement)
        for node in NODES[1:]:
            self.assertEqual(sql(node, statement), first)


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--rounds", type=int, default=Cluster.rounds)
    parser.add_argument("--imports", type=int, default=Cluster.imports)
    given, rest = parser.parse_known_args()
    if "FOLDER" not in os.environ:  # outside the cluster yet
        with tempfile.TemporaryDirectory(prefix="quorvane-cluster-", dir=roomy_memory()) as folder:
            os.chmod(folder, 0o755)
            sys.exit(subprocess.run([HERE / "nodes.sh", f"{folder}/c", sys.executable, __file__,
                                     *sys.argv[1:]]).returncode)
    Cluster.rounds, Cluster.imports = given.rounds, given.imports
    unittest.main(argv=[sys.argv[0], *rest])


if __name__ == "__main__":
    main()
