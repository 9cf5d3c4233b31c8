#!/usr/bin/python3
"""Each rule of `wbimport lint`, broken and kept, on SQLite and on workbook files; options, formats and docs/lint.md.

    lint_test.py WBIMPORT
"""
import json
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
WBIMPORT = str(pathlib.Path(sys.argv.pop(1)).resolve())

# Each finding stands behind the table that has it.
SCHEMA = """
CREATE TABLE good (id INTEGER PRIMARY KEY, code TEXT NOT NULL UNIQUE, parent_id INTEGER REFERENCES good);
CREATE INDEX good_parent ON good (parent_id, code);
CREATE TABLE no_key (a INTEGER);
--> L001 no_key
CREATE TABLE only_index (a INTEGER NOT NULL, b TEXT NOT NULL);
CREATE UNIQUE INDEX only_index_a ON only_index (a);
--> L002 only_index
CREATE TABLE no_index (id INTEGER PRIMARY KEY, a INTEGER REFERENCES good, b INTEGER REFERENCES good, c INTEGER REFERENCES good);
CREATE INDEX no_index_a ON no_index (a) WHERE a > 0;
CREATE INDEX no_index_b ON no_index (c, b);
--> L003 no_index  no index begins with the columns of the foreign key (a) to good
--> L003 no_index  no index begins with the columns of the foreign key (b) to good
CREATE TABLE nulls (id INTEGER PRIMARY KEY, a INTEGER, b INTEGER NOT NULL, CONSTRAINT nulls_ab UNIQUE (b, a));
CREATE UNIQUE INDEX nulls_a ON nulls (a);
CREATE UNIQUE INDEX nulls_part ON nulls (a) WHERE a IS NOT NULL;
--> L004 nulls nulls_ab
--> L004 nulls nulls_a
CREATE TABLE twice (id INTEGER PRIMARY KEY, a INTEGER NOT NULL, b INTEGER NOT NULL, c INTEGER NOT NULL, UNIQUE (a, b));
CREATE INDEX twice_ab ON twice (a, b);
CREATE INDEX twice_a ON twice (a);
CREATE INDEX twice_desc ON twice (a DESC);
CREATE INDEX twice_lower ON twice (lower(a));
CREATE UNIQUE INDEX twice_c ON twice (c);
CREATE UNIQUE INDEX twice_cb ON twice (c, b);
--> L005 twice twice_ab
--> L006 twice twice_a
CREATE TABLE other_type (id INTEGER PRIMARY KEY, a TEXT REFERENCES good, b INT REFERENCES good, c VARCHAR(10) REFERENCES sized (code));
CREATE INDEX other_type_a ON other_type (a);
CREATE INDEX other_type_b ON other_type (b);
CREATE INDEX other_type_c ON other_type (c);
CREATE TABLE sized (code VARCHAR(20) NOT NULL PRIMARY KEY);
--> L007 other_type a is TEXT, and refers to good.id, which is INTEGER
--> L007 other_type c is VARCHAR(10), and refers to sized.code, which is VARCHAR(20)
CREATE TABLE to_no_key (id INTEGER PRIMARY KEY REFERENCES nulls (b));
--> L008 to_no_key  refers to nulls (b), which no key holds
CREATE TABLE one (id INTEGER PRIMARY KEY, two_id INTEGER NOT NULL REFERENCES two, one_id INTEGER NOT NULL REFERENCES one);
CREATE INDEX one_two ON one (two_id);
CREATE INDEX one_one ON one (one_id);
CREATE TABLE two (id INTEGER PRIMARY KEY, three_id INTEGER NOT NULL REFERENCES three);
CREATE INDEX two_three ON two (three_id);
CREATE TABLE three (id INTEGER PRIMARY KEY, one_id INTEGER NOT NULL REFERENCES one, late INTEGER NOT NULL REFERENCES late DEFERRABLE INITIALLY DEFERRED);
CREATE INDEX three_one ON three (one_id);
CREATE INDEX three_late ON three (late);
CREATE TABLE late (id INTEGER PRIMARY KEY, three_id INTEGER NOT NULL REFERENCES three);
CREATE INDEX late_three ON late (three_id);
--> L009 one  3 tables require a row of one another: one, three, two
CREATE TABLE "quo ted" (id INTEGER PRIMARY KEY, "1st" TEXT, "a-b" TEXT, plain$1 TEXT, größe TEXT);
--> L010 quo ted  its name needs quotes
--> L010 quo ted  columns whose names need quotes: 1st, a-b
CREATE TABLE "order" (id INTEGER PRIMARY KEY, "group" TEXT, "Select" TEXT, grouped TEXT);
--> L011 order  its name is a reserved word
--> L011 order  columns whose names are reserved words: group, Select
CREATE TABLE long_one (id INTEGER PRIMARY KEY, aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa TEXT, äaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa TEXT);
--> L012 long_one äaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa the name of the column has 64 bytes
CREATE TABLE CamelTable (id INTEGER PRIMARY KEY, someThing TEXT);
--> L013   2 of 23 names of tables are not in snake_case as the others: CamelTable, quo ted
--> L013   6 of 21 names of columns are not in snake_case as the others: someThing, äaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa, a code, Select, a-b and 1 more
CREATE TABLE same_fk (id INTEGER PRIMARY KEY, a INTEGER, CONSTRAINT first_fk FOREIGN KEY (a) REFERENCES good (id), CONSTRAINT second_fk FOREIGN KEY (a) REFERENCES good (id));
CREATE INDEX same_fk_a ON same_fk (a);
--> L015 same_fk first_fk says the same as the foreign key second_fk: (a) to good
CREATE TABLE pair (a INTEGER NOT NULL, b INTEGER NOT NULL, PRIMARY KEY (a, b));
CREATE TABLE half (id INTEGER PRIMARY KEY, a INTEGER NOT NULL, b INTEGER, FOREIGN KEY (a, b) REFERENCES pair);
CREATE INDEX half_ba ON half (b, a);
--> L016 half  the foreign key (a, b) to pair refers to nothing where one of its columns is NULL
CREATE TABLE null_key (a TEXT PRIMARY KEY);
CREATE TABLE null_key_less (a TEXT PRIMARY KEY) WITHOUT ROWID;
--> L017 null_key  the primary key takes NULL in a
CREATE VIEW looks AS SELECT id, code AS "a code" FROM good;
--> L010 looks  columns whose names need quotes: a code
CREATE VIRTUAL TABLE search USING fts5(title);
"""


def column(name, kind="integer", required=True):
    return {"name": name, "required": required, "dataType": {"typeName": kind, "name": "", "databaseType": kind}, "databaseType": kind}


# What SQLite does not have.
WORKBOOK = {"format": "workbook", "version": 1, "source": {"dbmsName": "PostgreSQL", "route": "exact", "dialect": "postgresql"}, "result": True,
            "schemas": [{"name": "s"}], "tables": [
    {"owner": "s", "name": "Big", "type": "table", "kind": "table", "columns": [column("a"), column("A"), column("b", required=False)],
     "primaryKey": ["a"], "keyName": "big_pkey", "uniqueKeys": [{"name": "big_b", "kind": "unique", "columns": ["b"]}],
     "indexes": [{"name": "big_b", "unique": True, "columns": [{"column": "b"}], "options": {"nulls not distinct": "yes"}},
                 {"name": "broken", "unique": False, "columns": [{"column": "A"}], "options": {"valid": "no"}}],
     "checks": [{"name": "positive", "expression": "a > 0", "options": {"validated": "no"}}]},
    {"owner": "s", "name": "big", "type": "table", "kind": "partitioned table", "columns": []},
    {"owner": "s", "name": "big_1", "type": "table", "kind": "partition", "partitionOf": {"owner": "s", "name": "big"}, "columns": [column("A B")]}]}


class Rules(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.workbook = self.folder / "w.json"
        self.workbook.write_text(json.dumps(WORKBOOK))
        self.database = self.folder / "shop.db"
        with sqlite3.connect(self.database) as database:
            database.executescript(re.sub(r"-->.*", "", SCHEMA))
        database.close()

    def lint(self, *words):
        return subprocess.run([WBIMPORT, "lint", *map(str, words)], capture_output=True, text=True, cwd=self.folder,
                              env={"PATH": "/usr/bin:/bin", "HOME": str(self.folder), "XDG_CONFIG_HOME": str(self.folder)})

    def found(self, *words):
        done = self.lint(*words)
        self.assertIn(done.returncode, (0, 10), done.stderr)
        return json.loads(done.stdout)

    def test_each_is_found_where_it_is_broken_and_nowhere_else(self):
        told = self.found("--sqlite", self.database)
        found = [(f["rule"], f["table"], f["part"], f["text"]) for f in told["findings"]]
        expected = [line.strip() for line in re.findall(r"^--> (.*)$", SCHEMA, re.M)]
        for line in expected:
            match = [f for f in found if " ".join(f[:3]).strip() == line or " ".join(f) == line]
            self.assertEqual(len(match), 1, f"{line}: {match}\n" + "\n".join(map(str, found)))
            found.remove(match[0])
        self.assertEqual(found, [])
        self.assertEqual(told["notChecked"], [])

    def test_those_of_other_servers(self):
        told = self.found(self.workbook, "--rules", "all", "--no-rule", "no-comment,isolated-table")
        self.assertEqual([(f["rule"], f["table"], f["part"], f["text"]) for f in told["findings"]], [
            ("L013", "", "", "1 of 2 names of tables are not in snake_case as the others: Big"),
            ("L013", "", "", "1 of 3 names of columns are not in snake_case as the others: A"),
            ("L014", "", "", "tables whose names differ in case alone: Big, big"),
            ("L010", "Big", "", "its name needs quotes"),
            ("L010", "Big", "", "columns whose names need quotes: A"),
            ("L014", "Big", "", "columns whose names differ in case alone: a, A"),
            ("L018", "Big", "positive", "the check was not made on the rows that were there"),
            ("L018", "Big", "broken", "the index is not valid: it was never built to its end"),
            ("L019", "big", "", "has no columns")])

    def test_rules_off_by_themselves(self):
        told = self.found("--sqlite", self.database, "--rules", "L021,same-name-other-type,L020")
        alone = {f["table"] for f in told["findings"] if f["rule"] == "L021"}
        self.assertLess({"no_key", "order"}, alone)
        self.assertFalse({"good", "pair", "half"} & alone)
        types = [f["text"] for f in told["findings"] if f["rule"] == "L022"]
        self.assertIn("column code is TEXT in good; VARCHAR(20) in sized", types)
        self.assertIn("has no comment", {f["text"] for f in told["findings"]})

    def test_a_rule_that_cannot_be_known_is_not_checked(self):
        told = self.found("--sqlite", self.database, "--reading", "compatible", "--rules", "L001,L003,L007,L010")
        self.assertEqual([(n["rule"], n["reason"]) for n in told["notChecked"]],
                         [("L001", "needs an exact reading"), ("L003", "needs an exact reading")])
        self.assertEqual([r["id"] for r in told["rules"]], ["L007", "L010"])
        told = self.found("--sqlite", self.database, "--no-keys", "--rules", "L002,L015")
        self.assertEqual([n["rule"] for n in told["notChecked"]], ["L002", "L015"])

    def test_options_and_the_configuration_file(self):
        rules = lambda *words: {f["rule"] for f in self.found("--sqlite", self.database, *words)["findings"]}
        self.assertEqual(rules("--rules", "l001,quoted-name"), {"L001", "L010"})
        self.assertEqual(rules("--rules", "all", "--no-rule", "L001") & {"L001", "L021"}, {"L021"})
        self.assertIn("L021", rules("--rule", "isolated-table"))
        self.assertEqual(rules("--rules", "L001", "--exclude", "no_*"), set())
        (self.folder / "wbimport").mkdir()
        config = self.folder / "wbimport/config.toml"
        config.write_text('[lint]\nrules = ["L001", "L010"]\nno-rule = "no-key"\n')
        self.assertEqual(rules(), {"L010"})
        self.assertEqual(rules("--rules", "L002"), {"L002"})
        config.write_text("[lint]\nrules = 3\n")
        self.assertEqual(self.lint(self.workbook).returncode, 2)

    def test_exit_codes(self):
        for words, code, text in (
                ([], 2, "a workbook file or a connection"), ([self.workbook, "--sqlite", self.database], 2, "not both"),
                ([self.workbook, "--owner", "s"], 2, "not both"), ([self.workbook, "--rules", "no-keys"], 2, "did you mean 'no-key'"),
                ([self.workbook, "--rules", "L001", "--no-rule", "L001"], 2, "no rule"), (["gone.json"], 2, "cannot read"),
                (["--sqlite", "gone.db"], 5, ""), ([self.workbook], 10, ""), ([self.workbook, "--fail-on", "error"], 0, ""),
                ([self.workbook, "--rules", "L001"], 0, ""), ([self.workbook, "-o", "/dev/null/x"], 6, "")):
            done = self.lint(*words)
            self.assertEqual(done.returncode, code, (words, done.stderr))
            self.assertIn(text, done.stderr)

    def test_formats(self):
        text = self.lint(self.workbook, "--format", "text").stdout
        self.assertIn("\ns.Big\n  note     L010 quoted-name: its name needs quotes\n", text)
        self.assertTrue(text.endswith("8 findings in 1 of 2 tables: 4 warnings, 4 notes.\n"), text)
        self.assertIn("Nothing found in 2 tables by 1 rule.\n", self.lint(self.workbook, "--rules", "L001", "--format", "text").stdout)
        markdown = self.lint(self.workbook, "-o", "lint.md")
        self.assertEqual(markdown.returncode, 10)
        self.assertIn("| s.Big | warning | L018 not-enforced | positive: the check", (self.folder / "lint.md").read_text())

    def test_json_is_as_its_schema_says(self):
        for words in ((self.workbook, "--rules", "all"), ("--sqlite", self.database, "--reading", "compatible")):
            faults = json_schema.faults("lint.schema.json", self.found(*words))
            if faults is None:
                self.skipTest("no python3-jsonschema")
            self.assertEqual(faults, [])

    def test_the_page_lists_the_rules(self):
        page = (SOURCE / "docs/lint.md").read_text()
        listed = re.findall(r"^\| (L\d+) \| (\S+) \| (\S+) \| (on|off) \| (.*) \|$", page, re.M)
        on = {rule["id"] for rule in self.found(self.workbook)["rules"]}
        rules = self.found(self.workbook, "--rules", "all")["rules"]
        self.assertEqual(listed, [(r["id"], r["name"], r["severity"], "on" if r["id"] in on else "off", r["description"]) for r in rules])
        self.assertEqual(re.findall(r"^\*\*(L\d+ \S+)\*\*: ", page, re.M), [f"{r['id']} {r['name']}" for r in rules])


if __name__ == "__main__":
    unittest.main()
