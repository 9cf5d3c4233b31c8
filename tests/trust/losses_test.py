#!/usr/bin/python3
"""Never wrong in silence: what an error that nobody sees has cost stands on standard error, in the file and in the exit code."""
import json

from program import Case, main, server

class Losses(Case):
    def test_every_consumed_error_is_told(self):
        # What fails, what the file says is missing, how the run ends.
        cases = [("generic", "Fail=SQLTables:*", "tables", 3), ("generic", "Fail=SQLTables:1", "tables", 3),
                 ("generic", "Fail=SQLColumns:3", "columns", 1), ("generic", "Fail=SQLPrimaryKeys:*", "primary keys", 3),
                 ("generic", "Fail=SQLPrimaryKeys:2", "primary keys", 3), ("generic", "Fail=SQLForeignKeys:1", "foreign keys", 3),
                 ("generic", "Fail=SQLProcedures:1", "procedures", 3), ("generic", "FetchError=2", None, 1),
                 ("generic", "RowError=1", None, 3), ("db2", "FetchError=1+", "tables and views", 3),
                 ("oracle", "FetchError=1+", "tables and views", 3), ("informix", "FetchError=1+", "tables and views", 3),
                 ("sqlserver", "Fail=SQLExecDirect:5", None, 3), ("db2", "Fail=SQLExecDirect:2-4", None, 3)]
        for name, fault, kind, code in cases:
            result = self.run_program("import", "--connect", server(f"Server={name};{fault}"), "--reading", "compatible", "-o", "a.json")
            self.assertEqual(result.returncode, code, (name, fault, result.stderr))
            book = json.loads((self.folder / "a.json").read_text())
            self.assertTrue(book["incomplete"], (name, fault))
            missing = {entry["kind"] for entry in book["notRead"]}
            if kind:
                self.assertIn(kind, missing, (name, fault))
            self.assertIn("not read: ", result.stderr, (name, fault))

    def test_one_failing_table_names_all_that_it_cost(self):
        result = self.run_program("import", "--connect", server("Server=generic;Fail=SQLColumns:3"), "-o", "a.json")
        book = json.loads((self.folder / "a.json").read_text())
        bare = {table["name"] for table in book["tables"] if not table["columns"]}
        self.assertEqual(bare, {entry["name"] for entry in book["notRead"] if entry["kind"] == "columns"})
        self.assertEqual(result.stderr.count("not read:"), 2, result.stderr)  # the cause, and the rest as one

    def test_what_a_driver_does_not_have_is_no_loss(self):
        for fault in ("Without=SQLPrimaryKeys", "Without=SQLForeignKeys", "Without=SQLProcedures", "Without=SQLStatistics"):
            result = self.run_program("import", "--connect", server(f"Server=generic;{fault}"), "-o", "a.json")
            self.assertEqual(result.returncode, 0, (fault, result.stderr))
            self.assertNotIn("incomplete", (self.folder / "a.json").read_text())

    def missing(self, *words):
        """What is not read, by kind, and the whole run."""
        result = self.run_program("import", *words, "--reading", "compatible", "-o", "a.json")
        self.assertIn(result.returncode, (1,) if "Server=redbrick" in str(words[1]) else (0,), (words, result.stderr))  # it has no procedures
        kinds = {}
        for entry in json.loads((self.folder / "a.json").read_text()).get("notRead", []):
            kinds.setdefault(entry["kind"], []).append(entry)
        return kinds, result

    def test_names_that_cannot_be_asked_exactly_are_named(self):
        def names(entries):
            return {entry["name"] for entry in entries if "name" in entry}
        long = "n" * 70
        shop = self.database(sql=f'create table a_b(x); create table axb(y); create table plain_one(z); create table "c\\d"(v); create table "{long}"(w)')
        kinds, result = self.missing("--sqlite", shop)
        self.assertEqual(names(kinds["exact columns"]), {"a_b", "c\\d"})  # no other table fits plain_one
        self.assertEqual(names(kinds["exact name"]), {long[:63]})
        self.assertEqual(result.stderr.count("--reading exact"), 3, result.stderr)
        # Of a part of the tables nobody knows the others.
        kinds, _ = self.missing("--sqlite", shop, "--select-table", "plain_one")
        self.assertEqual(names(kinds["exact columns"]), {"plain_one"})
        self.assertNotIn("notRead", (lambda r: (self.folder / "b.json").read_text())(
            self.run_program("import", "--sqlite", shop, "--reading", "exact", "-o", "b.json")))
        # A hundred are named, the others counted, on standard error in one line.
        for count in (100, 101, 130):
            kinds, result = self.missing("--sqlite", self.database(f"{count}.db", "".join(f"create table t_{i}_(a);create table tx{i}_(a);" for i in range(count))))
            told = kinds["exact columns"]
            self.assertEqual(len(told), min(count, 101))
            self.assertEqual([entry["reason"].split(":")[0] for entry in told if "name" not in entry], [f"{count - 100} more"] if count > 100 else [])
            self.assertEqual(result.stderr.count("not read:"), 1 + (count > 100), result.stderr)

    def test_keys_that_the_pairing_drops_are_counted(self):
        cases = [("informix-7", "", "keys"),  # Dynamic Server: none has columns
                 ("db2", 'UPDATE syscat."references" SET fk_colnames = \'NOWHERE\'', "foreign keys"),
                 ("oracle", "DELETE FROM all_cons_columns WHERE constraint_name = (SELECT max(constraint_name) FROM all_constraints WHERE constraint_type = 'R')", "foreign keys"),
                 ("sqlserver", "UPDATE sysreferences SET fkey1 = 99", "foreign keys"),
                 ("redbrick", "UPDATE rbw_constraintcolumns SET cname = 'NOWHERE' WHERE constraint_name IN (SELECT name FROM rbw_constraints WHERE type LIKE 'F%')", "foreign keys")]
        for name, sql, kind in cases:
            kinds, result = self.missing("--connect", server(f"Server={name};Sql={{{sql}}}" if sql else f"Server={name}"))
            self.assertIn(kind, kinds, name)
            self.assertTrue(all("exact reading" in entry["reason"] for entry in kinds[kind]), kinds[kind])
            self.assertIn(f"not read: {kind}", result.stderr)

    def test_formats_carry_the_mark(self):
        """Also where there is nothing else to write."""
        for fault in ("Server=generic;Fail=SQLPrimaryKeys:2", "Server=generic;Fail=SQLTables:*", "Server=db2;FetchError=1+"):
            for name in ("text", "json", "sql", "dot", "svg", "html", "mermaid", "markdown", "plantuml", "dbml", "csv"):
                result = self.run_program("import", "--connect", server(fault), "--reading", "compatible", "-f", name, "-o", "a")
                self.assertEqual(result.returncode, 3, (name, fault))
                self.assertIn("ncomplete", (self.folder / "a").read_text(), (name, fault))

    def test_memory_that_runs_out_is_told(self):
        if self.is_sanitized():
            self.skipTest("a sanitizer takes more room than there is")
        where = server("Server=oracle;Scale=3000;Columns=20")
        self.assertEqual(self.run_program("import", "--connect", where, "-o", "a.json").returncode, 0)
        told = False
        for megabytes in range(42, 70, 4):
            def little(most=megabytes << 20):
                import resource
                resource.setrlimit(resource.RLIMIT_AS, (most, most))
            (self.folder / "a.json").unlink(missing_ok=True)
            result = self.run_program("import", "--connect", where, "-o", "a.json", preexec_fn=little)
            if result.returncode == 0:
                continue
            self.assertTrue(result.stderr, megabytes)  # never without a word
            if result.returncode == 1 and (self.folder / "a.json").exists():
                book = json.loads((self.folder / "a.json").read_text())
                told = told or "memory ran out" in [entry.get("reason") for entry in book["notRead"]]
        self.assertTrue(told)

if __name__ == "__main__":
    main()
