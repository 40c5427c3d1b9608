"""quorvanectl under test, in application folders made for the test.

The program's path is in the environment variable QUORVANE_CTL. Most tests share one server and give
each case a database of its own on it, because a case is then ready in a fraction of a second.
"""

import csv
import itertools
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

TESTS = Path(__file__).resolve().parent.parent
ROOT = TESTS.parent
SAMPLE = ROOT / "data" / "sample"

sys.path.insert(0, str(TESTS / "oracle"))

DONE, REFUSED, WRONG_USAGE, FAILURE = range(4)
SECONDS = 120  # longer than any command takes on a busy machine


def program() -> str:
    path = os.environ.get("QUORVANE_CTL", "")
    if not os.access(path, os.X_OK):
        sys.exit("expected the path of quorvanectl in the environment variable QUORVANE_CTL")
    return path


class Unexpected(AssertionError):
    """A command that ended in another way than the test expects."""


def run(folder, *arguments, status=DONE) -> subprocess.CompletedProcess:
    """Runs a command over an application folder and insists on its exit status; None is any."""
    command = [program(), "--data", str(folder), *map(str, arguments)]
    result = subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, text=True,
                            encoding="utf-8", timeout=SECONDS)
    if status is not None and result.returncode != status:
        raise Unexpected(f"{' '.join(command)}\nended with {result.returncode}, not {status}\n"
                         f"{result.stdout}{result.stderr}")
    return result


def start(folder, *arguments) -> subprocess.Popen:
    return subprocess.Popen([program(), "--data", str(folder), *map(str, arguments)],
                            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                            stderr=subprocess.PIPE, text=True, encoding="utf-8")


def files(folder) -> dict[str, bytes]:
    """Every file of a folder by its name."""
    return {path.name: path.read_bytes() for path in sorted(Path(folder).iterdir())}


def portfolio_files(folder) -> dict[str, bytes]:
    return {name: content for name, content in files(folder).items() if name.endswith(".csv")}


def rows(text: str) -> list[dict]:
    return list(csv.DictReader(text.splitlines()))


class Desk:
    """An application folder and what is asked of it most."""

    def __init__(self, folder: Path):
        self.folder = folder
        folder.mkdir(parents=True, exist_ok=True)

    def run(self, *arguments, status=DONE) -> subprocess.CompletedProcess:
        return run(self.folder, *arguments, status=status)

    def take_in(self, folder, status=DONE) -> str:
        """Imports a folder and returns what the program says."""
        return self.run("import", folder, status=status).stderr

    def export(self, *options) -> dict[str, bytes]:
        with tempfile.TemporaryDirectory() as out:
            self.run("export", out, *options)
            return files(out)

    def listed(self, what: str, client: str, year: str = "", *options) -> list[dict]:
        """The rows of the layers, the holdings, or of a statement: demat, transactions, of capital
        gains."""
        if what == "layers":
            return rows(self.run("layers", "--client", client).stdout)
        words = {"holdings": (what,), "statement": (what, "capital-gain")}
        return rows(self.run(*words.get(what, ("statement", what)), "--client", client, "--year",
                             year, *options, "--format", "csv").stdout)

    def tax(self, client: str, year: str) -> list[dict]:
        return rows(self.run("tax", "--client", client, "--year", year, "--format", "csv").stdout)

    def statement(self, client: str, year: str, *options) -> list[dict]:
        return self.listed("statement", client, year, *options)

    def holdings(self, client: str, year: str, *options) -> list[dict]:
        return self.listed("holdings", client, year, *options)


class Server:
    """The database server of an application folder, kept up between commands."""

    def __init__(self, folder: Path):
        self.desk = Desk(folder)
        told = self.desk.run("connect").stdout
        self.socket = re.search(r"--socket='([^']+)'", told)[1]

    def sql(self, statement: str, database: str = "quorvane") -> list[list[str]]:
        result = subprocess.run(
            ["mariadb", "--no-defaults", f"--socket={self.socket}", "--user=root", "--batch",
             "--skip-column-names", database, f"--execute={statement}"],
            capture_output=True, text=True, timeout=SECONDS)
        if result.returncode != 0:
            raise Unexpected(f"{statement}\n{result.stderr}")
        return [line.split("\t") for line in result.stdout.splitlines()]

    def stop(self):
        self.desk.run("check")  # the last program to leave stops the server


def server_processes(folder) -> list[int]:
    """The servers that run over an application folder."""
    wanted = f"--datadir={Path(folder).resolve()}/database/data".encode()
    found = []
    for entry in Path("/proc").iterdir():
        try:
            if entry.name.isdigit() and wanted in (entry / "cmdline").read_bytes().split(b"\0"):
                found.append(int(entry.name))
        except OSError:
            continue  # it has ended meanwhile
    return found


def end_servers(folder):
    """Ends what a failed test has left behind."""
    for process in server_processes(folder):
        try:
            os.kill(process, signal.SIGKILL)
        except ProcessLookupError:
            pass
    deadline = time.monotonic() + 10
    while server_processes(folder) and time.monotonic() < deadline:
        time.sleep(0.01)


def roomy_memory() -> str | None:
    """A folder in memory where the disk is not what is tested; None when there is no such place."""
    folder = "/dev/shm"
    if not os.access(folder, os.W_OK) or shutil.disk_usage(folder).free < 2 << 30:
        return None
    return folder


def generate(folder: Path, lines: int, seed: int, *options) -> Path:
    """A random portfolio."""
    subprocess.run([sys.executable, TESTS / "oracle" / "generate.py", "--lines", str(lines),
                    "--seed", str(seed), *options, "--out", folder], check=True)
    return folder


class Case(unittest.TestCase):
    """Tests over databases of one shared server."""

    maxDiff = 4000

    @classmethod
    def setUpClass(cls):
        cls.home = Path(tempfile.mkdtemp(prefix="quorvane-cli-", dir=roomy_memory()))
        cls.addClassCleanup(shutil.rmtree, cls.home, ignore_errors=True)
        cls.addClassCleanup(end_servers, cls.home / "server")
        cls.server = Server(cls.home / "server")
        cls.addClassCleanup(cls.server.stop)
        cls.numbers = itertools.count(1)

    @classmethod
    def new_desk(cls) -> Desk:
        """An application folder with an empty database."""
        name = f"desk{next(cls.numbers)}"
        cls.server.sql(f"Create Database {name}")
        desk = Desk(cls.home / name)
        desk.sql = lambda statement: cls.server.sql(statement, name)
        (desk.folder / "Confg.ini").write_text(
            f"[Database]\nSocket={cls.server.socket}\nDatabase={name}\nUser=root\n")
        return desk

    def new_folder(self) -> Path:
        folder = Path(tempfile.mkdtemp(dir=self.home))
        self.addCleanup(shutil.rmtree, folder, ignore_errors=True)
        return folder

    def check_is_well(self, desk: Desk):
        self.assertIn("Keys are unique, and every lot agrees with its documents.",
                      desk.run("check").stdout)

    def assert_same_files(self, expected: dict[str, bytes], actual: dict[str, bytes]):
        """Byte for byte; a difference is shown by file and line."""
        self.assertEqual(sorted(expected), sorted(actual))
        for name, content in expected.items():
            if content != actual[name]:
                self.assertEqual(content.decode().splitlines(), actual[name].decode().splitlines(),
                                 name)
                self.fail(f"{name}: line ends differ")
