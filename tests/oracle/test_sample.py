"""The committed sample portfolio is what make_sample.py writes, and legal."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

HERE = Path(__file__).resolve().parent
ROOT = HERE.parent.parent
SAMPLE = ROOT / "data" / "sample"
sys.path.insert(0, str(HERE))

from folder import read  # noqa: E402
from ledger import Ledger  # noqa: E402


class Sample(unittest.TestCase):
    def test_files_are_those_that_the_tool_writes(self):
        Ledger(read(SAMPLE))  # refuses what is illegal
        with tempfile.TemporaryDirectory() as name:
            subprocess.run([sys.executable, ROOT / "tools" / "make_sample.py", name], check=True)
            written = {path.name: path.read_bytes() for path in Path(name).iterdir()}
        committed = {path.name: path.read_bytes() for path in SAMPLE.glob("*.csv")}
        self.assertEqual(sorted(written), sorted(committed))
        for file, content in written.items():
            self.assertEqual(content, committed[file], file)


if __name__ == "__main__":
    unittest.main()
