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

    def test_formats_carry_the_mark(self):
        formats = {"text": "txt", "json": "json", "sql": "sql", "dot": "dot", "svg": "svg", "html": "html", "mermaid": "mmd", "markdown": "md"}
        for name, end in formats.items():
            self.run_program("import", "--connect", server("Server=generic;Fail=SQLPrimaryKeys:2"), "-f", name, "-o", f"a.{end}")
            self.assertIn("ncomplete", (self.folder / f"a.{end}").read_text(), name)

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
