#!/usr/bin/python3
"""Every wait has an end, and what was read before it is written and marked."""
import json
import os
import pathlib
import signal
import socket
import threading
import time

from program import Case, main, server

class Server:
    """A TCP server that takes connections and answers with bytes of its own, or not at all."""
    def __init__(self, case, answer):
        self.socket = socket.create_server(("127.0.0.1", 0))
        case.addCleanup(self.socket.close)
        self.port = self.socket.getsockname()[1]
        self.answer = answer
        threading.Thread(target=self.serve, daemon=True).start()

    def serve(self):
        self.peers = []
        while True:
            try:
                peer, _ = self.socket.accept()
            except OSError:
                return
            self.peers.append(peer)
            threading.Thread(target=self.talk, args=(peer,), daemon=True).start()

    def talk(self, peer):
        try:
            self.answer(peer)
        except OSError:
            pass

def silent(peer):
    time.sleep(60)

def message(kind, body):
    return kind + (len(body) + 4).to_bytes(4, "big") + body

def postgres_rows(peer):
    """Lets anybody in, and answers every question with rows that never end."""
    first = peer.recv(10000)
    if len(first) == 8:  # asks for TLS
        peer.sendall(b"N")
        peer.recv(10000)
    peer.sendall(message(b"R", bytes(4)) + message(b"S", b"server_version\0" b"15.0\0") + message(b"Z", b"I"))
    while peer.recv(100000):
        peer.sendall(message(b"T", b"\0\1" + b"a\0" + bytes(6) + (25).to_bytes(4, "big") + b"\xff\xff" + b"\xff\xff\xff\xff" + bytes(2)))
        row = message(b"D", b"\0\1" + (1).to_bytes(4, "big") + b"x") * 1000
        while True:
            peer.sendall(row)

class Waits(Case):
    def needs(self, *drivers):
        file = pathlib.Path("/etc/odbcinst.ini")
        known = file.read_text() if file.exists() else ""
        for driver in drivers:
            if f"[{driver}]" not in known:
                self.skipTest(f"no driver {driver}")

    def check(self, words, code, within, after=None, how=signal.SIGTERM):
        process = self.start(*words)
        if self.is_sanitized():  # it starts late, above all beside other tests
            within *= 3
            after = after and after * 4
        if after is not None:
            time.sleep(after)
            for _ in range(2 if how == signal.SIGINT else 1):
                process.send_signal(how)
                time.sleep(0.02)
        began = time.monotonic()
        try:
            out, err = process.communicate(timeout=30)
        except Exception:
            process.kill()
            process.communicate()
            raise
        self.assertLess(time.monotonic() - began, within, (words, err))
        self.assertEqual(process.returncode, code, (words, err))
        return out, err

    def test_a_stalled_import_is_cancelled_within_a_second(self):
        for how in (signal.SIGTERM, signal.SIGINT):
            for function in ("SQLTables", "SQLColumns", "SQLPrimaryKeys", "SQLForeignKeys"):
                words = ("import", "--connect", server(f"Server=generic;Slow={function}:20000"), "-o", f"{function}.json")
                self.check(words, 4, 1.0, 0.6, how)
                book = json.loads((self.folder / f"{function}.json").read_text())
                self.assertTrue(book["incomplete"] and book["notRead"])
                self.assertEqual(book["status"], 4)
        self.assertTrue(json.loads((self.folder / "SQLForeignKeys.json").read_text())["tables"])

    def test_an_output_that_nobody_reads_is_given_up(self):
        where = ("import", "--connect", server("Server=oracle;Scale=200;Columns=20"), "-f", "json")
        os.mkfifo(self.folder / "fifo")
        fifo = os.open(self.folder / "fifo", os.O_RDONLY | os.O_NONBLOCK)
        for words in ((), ("-o", "fifo"), ("-o", "fifo")):
            process = self.start(*where, *words)
            time.sleep(1.5 if not self.is_sanitized() else 4)
            self.assertIsNone(process.poll(), words)
            begin = time.monotonic()
            process.terminate()
            self.assertEqual(process.wait(timeout=20), 4, words)
            self.assertLess(time.monotonic() - begin, 1.0, words)
            self.assertIn("nobody reads", process.communicate()[1])
            if words:
                os.close(fifo)  # the last one waits for a reader
                fifo = os.open(os.devnull, os.O_RDONLY)
        os.close(fifo)

    def test_a_wait_before_anything_is_read_ends_at_once(self):
        """Secrets, requests and files that are written beside the output may be pipes of which nothing comes, or which nobody reads."""
        where = ("import", "--connect", server("Server=generic"))
        os.mkfifo(self.folder / "fifo")
        silent_end, other_end = os.pipe()
        for how in (signal.SIGTERM, signal.SIGINT):
            for words in ((*where, "--user", "x", "--password-stdin"), ("import", "--connect-stdin"), ("import", "--request", "fifo"), ("import", "--dialect", "fifo"),
                          ("diff", "fifo", *where[1:]), ("lint", "fifo"), *((*where, option, "fifo") for option in ("--log", "--trace", "--errors", "--record"))):
                process = self.start(*words, stdin=silent_end)
                time.sleep(0.4 if not self.is_sanitized() else 2)
                process.send_signal(how)
                self.assertEqual(process.wait(timeout=5), 130, (words, how))
                process.communicate()
        os.close(silent_end)
        os.close(other_end)

    def test_an_output_that_is_read_slowly_arrives_whole(self):
        process = self.start("import", "--connect", server("Server=oracle;Scale=200;Columns=20"), "-f", "json")
        text = ""
        while piece := process.stdout.read(200_000):
            text += piece
            time.sleep(0.7)
        self.assertEqual(len(json.loads(text)["tables"]), 229)
        self.assertEqual(process.wait(10), 0)
        process.communicate()

    def test_a_result_of_many_slow_rows_is_left(self):
        self.check(("import", "--connect", server("Server=oracle;Slow=SQLExtendedFetch:5,SQLFetch:5;Scale=3000;Columns=3"), "--generic", "-o", "a.json"), 4, 1.0, 1.0)
        self.assertTrue(json.loads((self.folder / "a.json").read_text())["incomplete"])

    def test_no_call_takes_longer_than_it_may(self):
        for function, words in (("SQLColumns", ("import", "-o", "a.json")), ("SQLForeignKeys", ("import", "-o", "a.json"))):
            out, err = self.check((*words, "--timeout", "1", "--connect", server(f"Server=generic;Slow={function}:20000")), 5, 2.5)
            self.assertIn("incomplete", err)
            self.assertTrue(json.loads((self.folder / "a.json").read_text())["incomplete"])
        # The edge: a call that is just in time, and no limit at all.
        for limit in ("2", "0"):
            self.check(("import", "-o", "a.json", "--timeout", limit, "--connect", server("Server=generic;Slow=SQLTables:1300")), 0, 9)
        for words in (("list", "tables"), ("info",)):
            self.check((*words, "--timeout", "1", "--connect", server("Server=generic;Slow=SQLTables:20000,SQLGetInfo:20000")), 5, 2.5)

    def test_a_server_that_says_nothing_is_given_up(self):
        self.needs("PostgreSQL Unicode", "MariaDB Unicode")
        for driver in ("PostgreSQL Unicode", "MariaDB Unicode"):
            port = Server(self, silent).port
            where = f"Driver={driver};Server=127.0.0.1;Port={port};Database=x;UID=x"
            out, err = self.check(("import", "--connect", where, "--login-timeout", "1", "-o", "a.json"), 5, 3)
            self.assertIn("cannot connect", err)
            self.check(("import", "--connect", where, "-o", "a.json"), 4, 1.0, 0.6)
            self.assertFalse((self.folder / "a.json").exists())

    def test_rows_that_never_end_are_left(self):
        self.needs("PostgreSQL Unicode")
        port = Server(self, postgres_rows).port
        where = f"Driver=PostgreSQL Unicode;Server=127.0.0.1;Port={port};Database=x;UID=x"
        self.check(("import", "--connect", where, "--login-timeout", "2"), 5, 4)
        self.check(("import", "--connect", where), 4, 1.0, 0.8)

    def test_a_result_has_a_largest_size(self):
        where = server("Server=oracle;Scale=500;Columns=2")
        for words in (("--result-rows", "100"), ("--result-bytes", "2000")):
            for route in ((), ("--generic",)):
                result = self.run_program("import", "--connect", where, *words, *route, "-o", "a.json")
                self.assertIn(result.returncode, (1, 3), result.stderr)
                self.assertIn("more rows or bytes", result.stderr)
                self.assertTrue(json.loads((self.folder / "a.json").read_text())["incomplete"])
        # At the edge all of them are read; the end of a result is no row.
        sql = ";".join(f"create table t{i}(x)" for i in range(50))
        self.database(sql=sql)
        for rows, code in ((50, 0), (49, 3)):
            result = self.run_program("list", "tables", "--sqlite", "shop.db", "--reading", "compatible", "--result-rows", str(rows))
            self.assertEqual(result.returncode, code, (rows, result.stderr))

class IniFiles(Case):
    def test_twenty_thousand_entries_take_no_time(self):
        count = 20_000
        whole = "".join(f"[Thing{i}]\nDriver=Driver{i}\n" for i in range(count))
        broken = "".join(f"[Thing{i}\nDriver=Driver{i}\n=\n]]\n" for i in range(count))
        for text, names in ((whole, 2 * count), (broken, 0), ("[" * 1_000_000, 0)):
            self.file("odbc.ini", text)
            self.file("odbcinst.ini", text)
            self.file("user.ini", text)
            environment = {**self.environment, "ODBCSYSINI": str(self.folder), "ODBCINI": str(self.folder / "user.ini")}
            # The driver manager joins both files for a data source, slowly; what waits for it has an end.
            for words, code, seconds in ((("drivers",), 0, 5), (("info", "--connect", "Driver=nobody's"), 5, 20),
                                         (("import", "--dsn", "Nothing", "-o", "a.json"), 5, 25)):
                begin = time.monotonic()
                result = self.run_program(*words, env=environment, timeout=100)
                self.assertEqual(result.returncode, code, result.stderr[:500])
                self.assertLess(time.monotonic() - begin, seconds, (words, names))
                self.assertLess(len(result.stderr), 1000)
                if words == ("drivers",):
                    self.assertEqual(sum("Thing" in line for line in result.stdout.splitlines()), names)

if __name__ == "__main__":
    main()
