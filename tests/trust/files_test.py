#!/usr/bin/python3
"""Files: what is written is whole, nothing that is read is written over, and no file that is read ends the program."""
import json
import os
import resource
import signal
import subprocess
import time
import unittest

from program import WBIMPORT, Case, main, server

LONG = os.environ.get("WB_LONG")

def room(most):
    """For a process whose files cannot become longer; a signal tells it of the first that would."""
    def limit():
        signal.signal(signal.SIGXFSZ, signal.SIG_DFL)
        resource.setrlimit(resource.RLIMIT_FSIZE, (most, most))
    return limit

class Descriptors(Case):
    def test_closed_ones_are_no_drivers_files(self):
        database = self.database()
        before = database.read_bytes()
        # The driver's file would be the first descriptor that is free.
        where = ("import", "--connect", f"Driver=SQLite3;Database={database}")
        for closed in ([0], [1], [2], [0, 1, 2]):
            def close(closed=closed):
                for fd in closed:
                    os.close(fd)
            for more in ((), ("--format", "html"), ("-o", "a.json")):
                result = self.run_program(*where, *more, preexec_fn=close)
                self.assertEqual(result.returncode, 0, closed)
                self.assertEqual(database.read_bytes(), before, closed)
            json.loads((self.folder / "a.json").read_text())

class Clashes(Case):
    def test_an_output_is_no_input_and_no_other_output(self):
        database = self.database()
        request = self.file("request.json", "{}")
        dialect = self.file("own.sql", "-- none")
        for link in ("soft.db", "hard.db"):
            (os.symlink if link == "soft.db" else os.link)(database, self.folder / link)
        book = self.file("book.json", '{"format":"workbook","version":1}')
        at = ("import", "--sqlite", "shop.db")
        by_text = ("import", "--connect", f"Driver=SQLite3;Database={database}")
        cases = [(*at, "-o", "shop.db"), (*at, "-o", "soft.db"), (*at, "-o", "hard.db"), (*at, "-o", "./x/../shop.db"),
                 (*at, "--trace", "shop.db"), (*at, "--log", "hard.db"), (*at, "--errors", "soft.db"), (*at, "--record", "shop.db"),
                 (*at, "-o", "shop.db-wal"), (*by_text, "-o", "shop.db"), (*by_text, "--trace", "soft.db"),
                 ("import", "--request", "request.json", "-o", "request.json"), ("import", "--dialect", "own.sql", "-o", "own.sql"),
                 ("import", "-o", "new", "--trace", "new"), ("import", "--log", "new", "--errors", "x/../new"),
                 ("render", "book.json", "-o", "book.json"), ("diff", "book.json", "request.json", "-o", "request.json")]
        before = {path: path.read_bytes() for path in (database, request, dialect, book)}
        names = sorted(os.listdir(self.folder))
        (self.folder / "x").mkdir()
        for words in cases:
            result = self.run_program(*words)
            self.assertEqual(result.returncode, 2, (words, result.stderr))
            self.assertIn("nothing was touched", result.stderr)
        with open(database, "ab") as appended:
            self.assertEqual(self.run_program(*at, stdout=appended).returncode, 2)
        self.assertEqual(before, {path: path.read_bytes() for path in before})
        self.assertEqual(sorted(set(os.listdir(self.folder)) - {"x"}), names)
        # Devices may be written by everybody.
        self.assertEqual(self.run_program(*at, "-o", "/dev/null", "--trace", "/dev/null").returncode, 0)

    def test_nothing_is_cut_before_the_connection_stands(self):
        names = ("out.json", "trace", "log", "errors", "record")
        for name in names:
            self.file(name, "old")
        result = self.run_program("import", "--connect", "Driver=/no/such.so", "-o", "out.json", "--trace", "trace", "--log",
                                  "log", "--errors", "errors", "--record", "record")
        self.assertEqual(result.returncode, 5)
        self.assertEqual({(self.folder / name).read_text() for name in names}, {"old"})

class Output(Case):
    def test_left_overs_of_a_kill_go_and_those_in_use_stay(self):
        process = self.start("import", "--connect", server("Server=generic;Tables=3"), "-o", "a.json")
        process.wait(60)
        process.communicate()
        stale, other = self.file(".wbimport-abcdef", "x"), self.file(".wbimport-long-name", "x")
        (self.folder / ".wbimport-ghijkl").mkdir()
        used = self.file(".wbimport-inused", "x")
        import fcntl
        with open(used) as held:
            fcntl.flock(held, fcntl.LOCK_EX)
            self.assertEqual(self.run_program("import", "-o", "a.json").returncode, 0)
        self.assertFalse(stale.exists() or (self.folder / ".wbimport-ghijkl").exists())
        self.assertTrue(other.exists() and used.exists())

    def needs_strace(self):
        try:
            subprocess.run(["strace", "-V"], capture_output=True, check=True)
        except FileNotFoundError:
            self.skipTest("no strace")

    def test_is_on_the_disk_before_it_has_its_name(self):
        trace = self.folder / "strace"
        self.needs_strace()
        subprocess.run(["strace", "-f", "-e", "trace=fsync,rename", "-o", trace, WBIMPORT,
                        "import", "-o", "a.json"], env=self.environment, cwd=self.folder, capture_output=True, check=True)
        calls = [line.split(" ", 1)[1].split("(")[0].strip() for line in trace.read_text().splitlines() if "sync(" in line or "rename(" in line]
        self.assertEqual(calls[-3:], ["fsync", "rename", "fsync"])

    def test_calls_fail_in_turn(self):
        """A file of several blocks, of which any call may fail: written whole, or as it was with the reason told."""
        self.needs_strace()
        self.database(sql="begin;" + "".join(f"create table table_of_some_length_{i}(a, b, c);" for i in range(4000)) + "commit")
        self.assertEqual(self.run_program("import", "--sqlite", "shop.db", "-o", "book.json").returncode, 0)
        words = ("render", "book.json", "--format", "json", "-o")
        self.assertEqual(self.run_program(*words, "whole.json").returncode, 0)
        whole = (self.folder / "whole.json").read_bytes()
        self.assertGreater(len(whole), 3 << 20)
        target = self.folder / "a.json"
        for call, error, turns, reason in (("write", "ENOSPC", 4, "No space left"), ("fsync", "EIO", 2, "Input/output error"),
                                           ("rename", "EACCES", 1, "Permission denied"), ("clone3", "EAGAIN", 1, None)):
            failed, told = 0, ""
            for turn in range(1, turns + 1):
                target.write_text("before")
                result = subprocess.run(["strace", "-f", "--seccomp-bpf", "-o", "/dev/null", "-e", f"trace={call}", "-e", f"inject={call}:error={error}:when={turn}",
                                         WBIMPORT, *words, target], env=self.environment, cwd=self.folder, capture_output=True, text=True)
                if "SanitizerTool: CHECK failed" in result.stderr:
                    break  # the sanitizers write to a pipe of their own, over and over
                self.assertIn(result.returncode, (0, 6), (call, error, turn, result.stderr))
                failed += result.returncode == 6
                # A folder whose name alone may be lost has the new file already.
                is_new = result.returncode == 0 or (call == "fsync" and turn == 2)
                self.assertEqual(target.read_bytes() == (whole if is_new else b"before"), True, (call, error, turn))
                told += result.stderr
            if "SanitizerTool" in result.stderr:
                continue
            self.assertEqual(failed > 0, reason is not None, (call, error))
            # Of writes that fail one may be that of the message.
            self.assertIn(reason or "", told)
        self.assertEqual([name for name in os.listdir(self.folder) if name.startswith(".wbimport")], [])

    def test_keeps_owner_mode_and_links(self):
        if os.geteuid() == 0:
            kept = self.file("kept.json", "old")
            os.chown(kept, 12345, 23456)
            os.chmod(kept, 0o640)
            self.assertEqual(self.run_program("import", "-o", "kept.json").returncode, 0)
            status = kept.stat()
            self.assertEqual((status.st_uid, status.st_gid, status.st_mode & 0o7777), (12345, 23456, 0o640))
            json.loads(kept.read_text())
            # Somebody who may write the file but not own it writes into it.
            shared = self.folder / "shared"
            shared.mkdir(mode=0o777)
            os.chmod(shared, 0o777)
            os.chmod(self.folder, 0o755)
            target = shared / "a.json"
            target.write_text("old")
            os.chmod(target, 0o666)
            os.chown(target, 12345, 23456)
            def as_somebody():
                os.setgroups([])
                os.setgid(40001)
                os.setuid(40001)
            result = self.run_program("import", "-o", target, preexec_fn=as_somebody)
            self.assertEqual(result.returncode, 0, result.stderr)
            self.assertEqual((target.stat().st_uid, target.stat().st_mode & 0o7777), (12345, 0o666))
            json.loads(target.read_text())
        os.symlink("new.json", self.folder / "dangling.json")
        self.assertEqual(self.run_program("import", "-o", "dangling.json").returncode, 0)
        self.assertTrue((self.folder / "dangling.json").is_symlink())
        json.loads((self.folder / "new.json").read_text())

    def test_a_folder_of_pages_comes_whole(self):
        self.assertEqual(self.run_program("import", "--format", "markdown", "-o", "pages/").returncode, 0)
        first = sorted(path.name for path in (self.folder / "pages/tables").iterdir())
        self.assertTrue(first)
        mask = os.umask(0)
        os.umask(mask)
        self.assertEqual((self.folder / "pages").stat().st_mode & 0o777, 0o777 & ~mask)
        (self.folder / "pages/mine.md").write_text("mine")
        self.assertEqual(self.run_program("import", "--format", "markdown", "-o", "pages/").returncode, 0)
        self.assertEqual((self.folder / "pages/mine.md").read_text(), "mine")
        # One page that cannot be written leaves the folder as it was.
        (self.folder / "pages/README.md").write_text("before")
        result = self.run_program("import", "--format", "markdown", "-o", "pages/", preexec_fn=room(1024))
        self.assertEqual(result.returncode, 6, result.stderr)
        self.assertEqual((self.folder / "pages/README.md").read_text(), "before")
        self.assertEqual([name for name in os.listdir(self.folder) if name.startswith(".wbimport")], [])

    def test_writes_fail_in_turn(self):
        self.assertEqual(self.run_program("import", "-o", "book.json").returncode, 0)
        ends = {"text": "txt", "json": "json", "sql": "sql", "dot": "dot", "svg": "svg", "png": "png", "html": "html", "mermaid": "mmd",
                "plantuml": "puml", "markdown": "md", "dbml": "dbml", "csv": "csv"}
        for name, end in ends.items():
            words = ("render", "book.json", "--format", name, "-o")
            self.assertEqual(self.run_program(*words, f"whole.{end}").returncode, 0, name)
            whole = (self.folder / f"whole.{end}").read_bytes()
            target = self.file(f"a.{end}", "before")
            places = sorted({0, 1, len(whole) // 2, len(whole) - 1} | (set(range(0, len(whole), 4096)) if LONG else set()))
            for most in places:
                result = self.run_program(*words, target, preexec_fn=room(most))
                self.assertEqual(result.returncode, 6, (name, most, result.stderr))
                self.assertEqual(target.read_text(), "before", (name, most))
            self.assertEqual(self.run_program(*words, target, preexec_fn=room(len(whole))).returncode, 0, name)
            self.assertEqual(target.read_bytes(), whole)
            self.assertEqual(self.run_program(*words, "/dev/full").returncode, 6, name)
        # What a run writes beside its output.
        for option in ("--log", "--trace", "--errors", "--record"):
            for most in (0, 20):
                result = self.run_program("import", "--connect", server("Server=generic;Fail=SQLColumns:2"), "-o", "/dev/null", option, "b.jsonl",
                                          preexec_fn=room(most))
                self.assertIn(result.returncode, (1, 6), (option, most, result.stderr))
                self.assertTrue(result.stderr)
        self.assertEqual([name for name in os.listdir(self.folder) if name.startswith(".wbimport")], [])

class Pictures(Case):
    """What cannot be drawn is told within ten seconds, and the import is not lost with the picture."""
    def tables(self, count):
        return self.database(f"{count}.db", "begin;" + "".join(f"create table t{i}(a);" for i in range(count)) + "commit")

    def check(self, result, code, kept, count):
        self.assertEqual(result.returncode, code, result.stderr)
        if code == 6:
            self.assertIn("Draw less of it: no --whole, --around TABLE", result.stderr)
        self.assertIn(f"kept in {kept}", result.stderr)
        self.assertEqual(len(json.loads((self.folder / kept).read_text())["tables"]), count)

    def test_a_size_that_is_hopeless_is_told_at_once(self):
        large = self.tables(3001)
        self.file("a.svg", "before")
        self.file("a.svg.json", "mine")
        for name, kept in (("svg", "a.svg-2.json"), ("png", "a.svg-3.json")):
            self.check(self.run_program("import", "--sqlite", large, "--whole", "--format", name, "-o", "a.svg"), 6, kept, 3001)
        self.assertEqual([(self.folder / name).read_text() for name in ("a.svg", "a.svg.json")], ["before", "mine"])
        self.check(self.run_program("import", "--sqlite", large, "--whole", "--format", "svg"), 6, "wbimport-kept.json", 3001)
        result = self.run_program("render", "a.svg-2.json", "--whole", "-o", "b.svg")
        self.assertEqual(result.returncode, 6)
        self.assertIn("3001 tables that nothing relates", result.stderr)
        self.assertFalse((self.folder / "b.svg").exists())
        # Nowhere to keep it: told, too.
        result = self.run_program("import", "--sqlite", large, "--whole", "--format", "svg", cwd="/proc")
        self.assertIn("what was read is lost", result.stderr)

    def test_any_other_is_told_in_time_and_a_layout_can_be_cancelled(self):
        large = self.tables(2990)
        words = ("import", "--sqlite", large, "--whole", "-o", "a.svg")
        begin = time.monotonic()
        self.assertEqual(self.run_program("import", "--sqlite", large, "-o", "a.txt").returncode, 0)
        reading = time.monotonic() - begin
        begin = time.monotonic()
        self.check(self.run_program(*words), 6, "a.svg.json", 2990)
        # Reading is part of both, and writing the workbook too.
        self.assertLess(time.monotonic() - begin, 10 + 2 * reading)
        process = self.start(*words)
        time.sleep(2 + 2 * reading)
        process.terminate()
        begin = time.monotonic()
        _, told = process.communicate(timeout=20)
        self.assertLess(time.monotonic() - begin, 1 + reading)
        self.check(subprocess.CompletedProcess(words, process.returncode, "", told), 4, "a.svg-2.json", 2990)

class Inputs(Case):
    def deep(self, what):
        many = 100_000
        return {"list": "a = " + "[" * many + "]" * many, "table": "a = " + "{a=" * many + "1" + "}" * many,
                "header": "[" + ".".join("a" * 1 for _ in range(many)) + "]\n", "key": ".".join(["a"] * many) + " = 1\n",
                "large": "# " + "x" * (1 << 20)}[what]

    def test_configuration_and_settings_have_limits(self):
        for what in ("list", "table", "header", "key", "large"):
            path = self.file("deep.toml", self.deep(what))
            result = self.run_program("--config", path, "list", "tables")
            self.assertEqual(result.returncode, 2, (what, result.stderr))
            result = self.run_program("list", "tables", env={**self.environment, "WBIMPORT_SETTINGS": str(path)})
            self.assertEqual(result.returncode, 0, (what, result.stderr))
            self.assertIn("the settings file", result.stderr)
        edge = self.file("edge.toml", "[" + ".".join(["a"] * 32) + "]\n'" + "." * 200 + "' = 1 # " + "." * 200 + "\n")
        result = self.run_program("list", "tables", env={**self.environment, "WBIMPORT_SETTINGS": str(edge)})
        self.assertNotIn("settings file", result.stderr)

    def test_requests_and_workbooks_have_limits(self):
        deep = self.file("deep.json", "[" * 100_000 + "]" * 100_000)
        inside = self.file("inside.json", '{"items": ' + "[" * 100_000 + "]" * 100_000 + "}")
        for words in (("import", "--request", deep), ("import", "--request", inside), ("import", "--request", "/dev/zero"),
                      ("render", deep), ("render", inside), ("diff", deep, deep), ("import", "--dialect", "/dev/zero")):
            result = self.run_program(*words)
            self.assertEqual(result.returncode, 2, (words, result.stderr))

    @unittest.skipUnless(LONG, "writes 4 GiB into a pipe, with WB_LONG=1")
    def test_a_workbook_of_four_gigabytes_is_the_largest(self):
        most = 4 << 30
        for size in (most, most + 1):
            process = self.start("render", "-", "--format", "text", stdin=subprocess.PIPE, text=False)
            blanks = b" " * (1 << 20)
            left = size
            try:
                left -= process.stdin.write(b'{"format":"workbook","version":1}')
                while left > 0:
                    left -= process.stdin.write(blanks[:left])
                process.stdin.close()
            except BrokenPipeError:
                pass
            process.stdin = None
            _, told = process.communicate(timeout=3600)
            self.assertEqual(process.returncode, 0 if size == most else 2, told)
            self.assertEqual(b"more than 4294967296 bytes" in told, size > most)

    def test_limits_hold_at_their_edges(self):
        """Each limit of a file: what is just as large is taken, one more is not, and says so."""
        mib = 1 << 20
        sqlite = self.run_program("dialects", "show", "sqlite").stdout
        def filled(start, size, end="", fill="x"):
            return start + fill * (size - len(start.encode()) - len(end)) + end
        def nested(start, depth, end):
            return start + "[" * depth + "]" * depth + end
        def with_settings(size):
            return self.run_program("list", "tables", env={**self.environment, "WBIMPORT_SETTINGS": str(self.file("s.toml", filled("# ", size, "\n")))})
        def with_drivers(size):
            self.file("odbcinst.ini", filled("# ", size, "\n[Edge]") + "\nDriver=x\n")
            return self.run_program("drivers", env={**self.environment, "ODBCSYSINI": str(self.folder)})
        cases = [  # the limit, a run at a size, what tells that it was too much
            ("configuration", mib, lambda n: self.run_program("--config", self.file("c.toml", filled("# ", n, "\n")), "list", "tables"), "more than"),
            ("configuration's depth", 32, lambda n: self.run_program("--config", self.file("c.toml", nested("a = ", n, "\n")), "list", "tables"), "nests too deep"),
            ("configuration's key", 32, lambda n: self.run_program("--config", self.file("c.toml", ".".join(["a"] * n) + " = 1\n"), "list", "tables"), "nests too deep"),
            ("settings", mib, with_settings, "larger than 1 MiB"),
            ("dialect", 4 * mib, lambda n: self.run_program("dialects", "check", self.file("d.sql", filled(sqlite + "\n-- ", n, "\n"))), "more than"),
            ("request", 64 * mib, lambda n: self.run_program("import", "--request", self.file("r.json", filled('{"items": ["tables"]', n, "}", " ")), "-o", "a.json"), "more than"),
            ("request's depth", 32, lambda n: self.run_program("import", "--request", self.file("r.json", nested('{"items": ', n, "}"))), "nests deeper"),
            ("workbook's depth", 64, lambda n: self.run_program("render", self.file("w.json", nested('{"x": ', n + 1, "}"))), "nested too deep"),
            ("secret", 64 * 1024, lambda n: self.run_program("import", "--connect", "Driver=nobody's", "--user", "x", "--password-stdin", stdin=self.opened("p", "x" * n)), "is not taken")]
        for name, limit, run, told in cases:
            for size, is_told in ((limit, False), (limit + 1, True)):
                result = run(size)
                self.assertEqual(told in result.stderr, is_told, (name, size, result.stderr[:300]))
        self.assertIn("Edge", with_drivers(16 * mib).stdout)
        self.assertNotIn("Edge", with_drivers(16 * mib + 1).stdout)

if __name__ == "__main__":
    main()
