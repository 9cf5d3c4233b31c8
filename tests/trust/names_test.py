#!/usr/bin/python3
"""Names are data: none of them becomes a part of a statement on the routes with SQL of their own."""
import json
import pathlib

from program import Case, main, server

UNSAFE = ["o'brien", "'; DROP TABLE victim; --", "a\\", "a\u2019b", "\uff07", "a\u02bcb", "a\0b"]
SAFE = ["o\"brien", "a b", "a;b", "--", "_%", "\u00e9\u4e2d\U0001f4da", "a`b"]

class Names(Case):
    def statements(self, name, request, *words):
        """What the server was asked, and how the run ended."""
        log = self.folder / "log"
        log.unlink(missing_ok=True)
        self.file("request.json", json.dumps(request))
        result = self.run_program("import", "--connect", server(f"Server={name}"), "--request", "request.json", "-o", "a.json",
                                  "--record", "record.jsonl", *words)
        record = self.folder / "record.jsonl"
        asked = record.read_text() if record.exists() else ""
        record.unlink(missing_ok=True)
        return result, asked

    def places(self, name):
        return [{"ownerRestriction": name}, {"selectedOwners": [name]}, {"selectedTables": [{"owner": name, "name": "x"}]},
                {"selectedTables": [{"name": name}]}, {"singleTable": name, "items": ["column-names"]},
                {"singleItemOwner": name, "singleTable": "x", "items": ["column-names"]},
                {"selectedSynonyms": [{"name": "x", "baseTableName": name}]}, {"selectedSynonyms": [{"name": "x", "baseOwner": name}]},
                {"selectedSynonyms": [{"name": name}]}]

    def test_what_could_leave_its_quotes_is_refused_before_any_statement_has_it(self):
        for kind in ("informix", "oracle", "db2", "sqlserver"):
            for name in UNSAFE:
                for request in self.places(name) if kind == "informix" or name == UNSAFE[1] else self.places(name)[:3]:
                    result, asked = self.statements(kind, request)
                    self.assertEqual(result.returncode, 2, (kind, request, result.stderr))
                    self.assertIn("is not put into a statement", result.stderr)
                    for way_out in ("--reading exact", "--unsafe-names"):
                        self.assertIn(way_out, result.stderr)
                    self.assertNotIn(json.dumps(name)[1:-1], "".join(line for line in asked.splitlines(True) if "ExecDirect" in line))

    def test_it_passes_as_it_stands_where_somebody_says_so(self):
        for request, words in (({"selectedOwners": ["o'brien"]}, ("--unsafe-names",)), ({"selectedOwners": ["o'brien"], "unsafeNames": True}, ())):
            result, asked = self.statements("oracle", request, *words)
            self.assertNotEqual(result.returncode, 2, result.stderr)
            self.assertIn("OWNER='o'brien'", asked)

    def test_a_workbook_file_cannot_say_so(self):
        where = ("--connect", server("Server=oracle"))
        self.assertEqual(self.run_program("import", *where, "--reading", "compatible", "-o", "a.json").returncode, 0)
        book = json.loads((self.folder / "a.json").read_text())
        book["source"]["choices"] = {"unsafeNames": True, "selectedOwners": [UNSAFE[1]]}
        self.file("a.json", json.dumps(book))
        result = self.run_program("diff", "a.json", *where)
        self.assertEqual(result.returncode, 2, result.stderr)
        self.assertIn("is not put into a statement", result.stderr)

    def test_other_names_and_other_routes_pass(self):
        for name in SAFE:
            for request in self.places(name)[:4]:
                result, asked = self.statements("oracle", request)
                self.assertNotEqual(result.returncode, 2, (request, result.stderr))
        for words in (("--generic",),):
            result, asked = self.statements("oracle", {"selectedTables": [{"name": "o'brien"}]}, *words)
            self.assertNotEqual(result.returncode, 2, result.stderr)
        database = self.database(sql="create table \"o'brien\"(x)")
        result = self.run_program("import", "--sqlite", database, "--select-table", "o'brien", "-o", "a.json")
        self.assertEqual(result.returncode, 0, result.stderr)

    def test_the_databases_of_synonyms_are_plain_names(self):
        for details in ({"databaseName": "stores; DROP"}, {"databaseName": "stores", "serverName": "a b"}, {"databaseName": "x--"},
                        {"databaseName": "a:b"}, {"serverName": "a/*"}):
            request = {"selectedSynonyms": [{"name": "x", **details}], "items": ["synonyms"]}
            result, asked = self.statements("informix", request)
            self.assertEqual(result.returncode, 2, (details, result.stderr))
        request = {"selectedSynonyms": [{"name": "x", "databaseName": "stores", "serverName": "tokyo", "baseTableName": "y"}], "items": ["synonyms"]}
        self.assertNotEqual(self.statements("informix", request)[0].returncode, 2)

    def test_a_row_that_the_importer_read_is_no_statement_either(self):
        # The database of a synonym stands in the catalog of the server, which others fill.
        sql = "UPDATE informix.syssyntable SET dbname = 'x:informix.systables; DROP' WHERE servername IS NOT NULL"
        result = self.run_program("import", "--connect", server(f"Server=informix;Sql={{{sql}}}"), "--select-synonym", "*", "--items", "synonyms")
        self.assertEqual(result.returncode, 2, result.stderr)
        self.assertIn("stands without quotes", result.stderr)

if __name__ == "__main__":
    main()
