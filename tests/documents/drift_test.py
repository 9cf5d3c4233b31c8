#!/usr/bin/python3
"""The scripts of docs/drift.md as they stand, on SQLite, and the JSON of a comparison against its schema."""
import json
import os
import pathlib
import re
import sqlite3
import subprocess
import sys
import tempfile
import unittest

SOURCE = pathlib.Path(__file__).resolve().parent.parent.parent
sys.dont_write_bytecode = True
sys.path.insert(0, str(SOURCE / "tests/support"))
import json_schema
HOST = pathlib.Path(sys.argv.pop(1)).resolve() / "host"
PAGE = (SOURCE / "docs/drift.md").read_text()
SCRIPTS = {re.search(r"# (\w+\.sh)", text)[1]: text for text in re.findall(r"```sh\n(.*?)```", PAGE, re.S)}

class Scripts(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.sql("CREATE TABLE customer(id INTEGER PRIMARY KEY, name VARCHAR(60) NOT NULL, mail TEXT)")
        self.wbimport("import", "--sqlite", "shop.db", "-o", "shop.json")
        for name, text in SCRIPTS.items():
            (self.folder / name).write_text(text)

    def sql(self, statement):
        with sqlite3.connect(self.folder / "shop.db") as database:
            database.execute(statement)
        database.close()

    def run_in(self, *command):
        outside = {name: value for name, value in os.environ.items() if not name.startswith("GIT_")}
        environment = dict(outside, PATH=f"{HOST}:{os.environ['PATH']}", XDG_CONFIG_HOME=str(self.folder),
                           GIT_CONFIG_GLOBAL="/dev/null", GIT_AUTHOR_NAME="a", GIT_AUTHOR_EMAIL="a@b",
                           GIT_COMMITTER_NAME="a", GIT_COMMITTER_EMAIL="a@b")
        return subprocess.run(command, cwd=self.folder, env=environment, capture_output=True, text=True)

    def wbimport(self, *words):
        done = self.run_in("wbimport", *words)
        self.assertEqual(done.returncode, 0, done.stderr)

    def script(self, name, *words):
        return self.run_in("sh", name, *words)

    def text(self, name):
        return (self.folder / name).read_text()

    def test_are_three(self):
        self.assertEqual(sorted(SCRIPTS), ["before_release.sh", "nightly.sh", "pull_request.sh"])

    def test_before_a_release(self):
        self.sql("ALTER TABLE customer ADD COLUMN phone TEXT")
        done = self.script("before_release.sh", "shop.json", "shop.db")
        self.assertEqual((done.returncode, done.stdout), (0, "nothing breaks\n"), done.stderr)
        self.assertIn("`phone` added", self.text("release_notes.md"))
        self.assertIn('"phone"', self.text("shop.json"))
        self.sql("ALTER TABLE customer DROP COLUMN mail")
        before = self.text("shop.json")
        done = self.script("before_release.sh", "shop.json", "shop.db")
        self.assertEqual(done.returncode, 10, done.stderr)
        self.assertIn("**breaking** | column `mail` removed", self.text("release_notes.md"))
        self.assertEqual(self.text("shop.json"), before)
        self.assertEqual(self.script("before_release.sh", "shop.json", "no.db").returncode, 5)

    def test_nightly(self):
        self.sql("CREATE TABLE tmp_1(a INT)")
        done = self.script("nightly.sh", "shop.json", "shop.db")
        self.assertEqual((done.returncode, done.stdout), (0, ""), done.stderr)
        self.sql("CREATE VIEW mails AS SELECT mail FROM customer")
        done = self.script("nightly.sh", "shop.json", "shop.db")
        self.assertEqual(done.returncode, 10)
        self.assertIn("+ view added", done.stdout)
        done = self.script("nightly.sh", "shop.json", "no.db")
        self.assertEqual((done.returncode, done.stdout.count("exit code 5")), (5, 1))

    def test_in_a_pull_request(self):
        for command in (["init", "-q", "-b", "main"], ["add", "shop.json"], ["commit", "-qm", "schema"]):
            self.assertEqual(self.run_in("git", *command).returncode, 0)
        done = self.script("pull_request.sh", "main", "shop.json")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("No differences", done.stdout)
        self.sql("ALTER TABLE customer RENAME TO client")
        self.wbimport("import", "--sqlite", "shop.db", "-o", "shop.json")
        done = self.script("pull_request.sh", "main", "shop.json")
        self.assertEqual(done.returncode, 10, done.stderr)
        self.assertIn("perhaps renamed to client", done.stdout)

class Schema(unittest.TestCase):
    def test_describes_what_is_written(self):
        faults = json_schema.faults("diff.schema.json", json.loads((SOURCE / "tests/compare/golden/later.json").read_text()))
        if faults is None:
            self.skipTest("no python3-jsonschema")
        self.assertEqual(faults, [])

if __name__ == "__main__":
    unittest.main()
