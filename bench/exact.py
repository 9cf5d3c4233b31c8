"""The exact reading's part of bench/run: imports of PostgreSQL, MariaDB and SQLite against bare
loops over the same statements, the whole program against a bare program, and other tools; and
imports of generated catalogs of SQL Server, Oracle, DB2 and Informix, which the simulator plays.

Every schema has 12 columns a table, a primary key, 1.5 foreign keys a table and a view for every
ten tables; a rich one has a comment and a default on each column besides.
"""
import json
import os
import statistics
import subprocess
import sys
import tempfile
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
TYPES = ["INTEGER", "VARCHAR(40)", "NUMERIC(12,3)", "DATE", "TIMESTAMP", "CHAR(8)", "REAL", "BIGINT",
         "DOUBLE PRECISION", "SMALLINT"]
DEFAULTS = ["7", "'none'", "1.5", "NULL", "NULL", "'x'", "0", "42", "2.5", "1"]
# import over bare loop, whole program over bare program, at 5,000 tables
GOALS = {"PostgreSQL": (1.25, 1.5), "MariaDB": (1.15, 1.25), "SQLite": (1.2, 1.4)}


def schema(server, tables, rich=False):
    """The script of a schema, in the server's own SQL."""
    lines = ["BEGIN;"]
    comments = []
    for t in range(tables):
        cells = ["id INTEGER PRIMARY KEY" if server != "MariaDB" else "id INTEGER NOT NULL PRIMARY KEY"]
        for c in range(9):
            kind = TYPES[(t + c) % len(TYPES)]
            cell = f"column_{c} {kind}"
            if server == "MariaDB" and kind == "TIMESTAMP":
                cell = f"column_{c} DATETIME"
            if c % 3 == 0:
                cell += " NOT NULL"
            if rich and DEFAULTS[(t + c) % len(TYPES)] != "NULL":
                cell += f" DEFAULT {DEFAULTS[(t + c) % len(TYPES)]}"
            if rich and server == "MariaDB":
                cell += f" COMMENT 'what column {c} of table {t} means'"
            cells.append(cell)
        cells.append("parent_id INTEGER")
        cells.append("other_id INTEGER")
        cells.append(f"CONSTRAINT parent_{t} FOREIGN KEY (parent_id) REFERENCES table_{t // 2} (id)"
                     + (" ON DELETE CASCADE" if t % 4 == 0 else ""))
        if t % 2 == 1:
            cells.append(f"CONSTRAINT other_{t} FOREIGN KEY (other_id) REFERENCES table_{t // 3} (id)")
        lines.append(f"CREATE TABLE table_{t} ({', '.join(cells)});")
        if t % 10 == 9:
            lines.append(f"CREATE VIEW view_{t} AS SELECT id, column_0, column_1, parent_id FROM table_{t};")
        if rich and server == "PostgreSQL":
            comments += [f"COMMENT ON COLUMN table_{t}.column_{c} IS 'what column {c} of table {t} means';"
                         for c in range(9)]
        if t % 200 == 199:
            lines.append("COMMIT; BEGIN;")
    return "\n".join(lines + comments + ["COMMIT;", ""])


def sh(*command, **options):
    return subprocess.run(command, check=True, text=True, stdout=subprocess.PIPE, **options).stdout


def last_json(text):
    return json.loads([line for line in text.splitlines() if line.startswith("{")][-1])


def seconds(command, **options):
    start = time.perf_counter()
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **options)
    return time.perf_counter() - start


class Server:
    """What the three servers differ in; `connection` is ODBC's, for a database of a schema."""

    def __init__(self, name, make, connect, url):
        self.name, self.make, self.connect, self.url = name, make, connect, url


def postgresql():
    port = os.environ["PGPORT"]

    def make(name, script):
        sh("psql", "-q", "-d", "postgres", "-c", f"CREATE DATABASE {name}")
        sh("psql", "-q", "-v", "ON_ERROR_STOP=1", "-d", name, input="SET client_min_messages = warning;\n" + script + "ANALYZE;")

    return Server("PostgreSQL", make,
                  lambda name: f"Driver=PostgreSQL Unicode;Servername=127.0.0.1;Port={port};Username=postgres;Database={name}",
                  lambda name: f"postgresql+psycopg2://postgres@127.0.0.1:{port}/{name}")


def mariadb():
    port = os.environ["MARIADB_PORT"]
    client = ["mariadb", "--no-defaults", "-u", "root", "-S", os.environ["MARIADB_SOCKET"]]

    def make(name, script):
        sh(*client, "-e", f"CREATE DATABASE {name}")
        sh(*client, name, input="SET foreign_key_checks = 0;\n" + script)

    return Server("MariaDB", make,
                  lambda name: f"Driver=MariaDB Unicode;Server=127.0.0.1;Port={port};UID=root;Database={name}",
                  lambda name: f"mysql+pymysql://root@127.0.0.1:{port}/{name}")


def sqlite(folder):
    def make(name, script):
        sh("sqlite3", "-bail", os.path.join(folder, name + ".db"), input="PRAGMA synchronous = OFF;\n" + script)

    return Server("SQLite", make, lambda name: f"Driver=SQLite3;Database={os.path.join(folder, name)}.db",
                  lambda name: f"sqlite:///{os.path.join(folder, name)}.db")


class Measurement:
    def __init__(self, server, build, quick, large, peers, work):
        self.server, self.build, self.quick, self.peers = server, build, quick, peers
        self.sizes = [200, 1000] if quick else [1000, 5000] + ([20000] if large else [])
        self.program = os.path.join(build, "bin", "wbexactbench")
        self.work = work
        self.rows, self.wholes, self.others, self.goals = [], [], [], []

    def goal(self, what, value, limit, at_least=False):
        self.goals.append({"goal": f"{self.server.name}, exact: {what}", "value": value, "limit": limit,
                           "at_least": at_least, "met": value >= limit if at_least else value <= limit})

    def run(self):
        middle = self.sizes[1]
        for tables in self.sizes:
            name = f"exact{tables}"
            print(f"measuring {self.server.name}, exact, {tables} tables ...", file=sys.stderr)
            self.server.make(name, schema(self.server.name, tables))
            row = self.measure(name, tables)
            self.rows.append(row)
            if tables == middle:
                inner, outer = GOALS[self.server.name]
                self.goal(f"import / bare loop, {tables} tables", row["ratio"], inner)
                self.whole_program(name, tables, outer)
                self.goal("bytes a column held", row["held_bytes_a_column"], 300)
                if self.server.name == "PostgreSQL":
                    self.goal("statements", row["statements"], 20)
                if self.peers:
                    self.measure_others(name, tables, row["import_s"])
        self.server.make("exactrich", schema(self.server.name, self.sizes[0], rich=True))
        rich = self.measure("exactrich", self.sizes[0])
        rich["label"] += ", comments and defaults"
        self.rows.append(rich)
        self.goal("bytes a column held, with defaults and comments", rich["held_bytes_a_column"], 600)
        if len(self.sizes) > 2:
            self.growth()
        self.one_table(f"exact{self.sizes[-1]}")
        return {"exact": self.rows, "wholes": self.wholes, "peers": self.others, "goals": self.goals}

    def measure(self, name, tables, *more, least=None):
        rounds = "3" if self.quick or tables > 5000 else "9"
        row = last_json(sh(self.program, self.server.connect(name), "--rounds", rounds,
                           "--label", f"{self.server.name}, exact", "--statements", os.path.join(self.work, name), *more))
        if not row["result"] or row["not_read"] or row["tables"] < (tables if least is None else least):
            sys.exit(f"{self.server.name}: the import failed or left something out: {row}")
        return {**row, "asked": tables}

    def whole_program(self, name, tables, limit):
        """wbimport with its start, connection and workbook file, against a bare program; in turn."""
        out = os.path.join(self.work, "out.json")
        ours = [os.path.join(self.build, "host", "wbimport"), "import", "--connect", self.server.connect(name),
                "--quiet", "--progress", "none", "--format", "json", "-o", out]
        bare = [self.program, "--bare", self.server.connect(name), os.path.join(self.work, name)]
        times, ratios = [], []
        before = seconds(bare)
        for _ in range(3 if self.quick else 9):
            # A file that is there already would be deleted in the time of the one that takes its place.
            if os.path.exists(out):
                os.remove(out)
            ours_took = seconds(ours)
            after = seconds(bare)
            times.append((ours_took, (before + after) / 2))
            ratios.append(ours_took / ((before + after) / 2))
            before = after
        self.wholes.append({"server": self.server.name, "tables": tables, "ratio": statistics.median(ratios),
                            "program_s": statistics.median(t[0] for t in times),
                            "bare_s": statistics.median(t[1] for t in times)})
        self.goal(f"whole program / bare program, {tables} tables", statistics.median(ratios), limit)

    def measure_others(self, name, tables, ours):
        folder = os.path.join(ROOT, "bench", "peers")
        self.others.append({"server": self.server.name, "peer": "exact import", "tables": tables, "asked": tables,
                            "columns": self.rows[-1]["columns"], "seconds": ours})
        commands = [("SQLAlchemy", ["/usr/bin/python3", os.path.join(folder, "sqlalchemy_reflect.py"), self.server.url(name)])]
        if self.server.name == "PostgreSQL":
            commands.append(("pg_dump -s", ["pg_dump", "-s", name]))
            commands.append(("catalog functions", ["/usr/bin/python3", os.path.join(folder, "pyodbc_loop.py"),
                                                   self.server.connect(name), "public"]))
        limits = {"SQLAlchemy": 40 if self.server.name == "PostgreSQL" else 1, "pg_dump -s": 4, "catalog functions": 40}
        for peer, command in commands:
            start = time.perf_counter()
            done = subprocess.run(command, text=True, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
            took = time.perf_counter() - start
            if done.returncode != 0:
                words = done.stderr.strip().splitlines()
                print(f"  left out: {peer}: {words[-1] if words else 'failed'}", file=sys.stderr)
                continue
            found = last_json(done.stdout) if peer != "pg_dump -s" else {"columns": 0, "seconds": took}
            self.others.append({"server": self.server.name, "peer": peer, "tables": tables, "asked": tables,
                                "columns": found["columns"], "seconds": found["seconds"]})
            self.goal(f"{peer} takes times as long, {tables} tables", found["seconds"] / ours, limits[peer], at_least=True)

    def growth(self):
        """In turn: a machine's speed drifts between measurements that are minutes apart."""
        turns = [[self.measure(f"exact{tables}", tables) for tables in self.sizes[1:3]] for _ in range(3)]
        factor, bare = (statistics.median(large[time] / small[time] for small, large in turns) for time in ("import_s", "bare_s"))
        if self.server.name == "SQLite":
            self.goal("20,000 tables over 5,000, as times as its library's", factor / bare, 1.1)
        else:
            self.goal("20,000 tables take times as long as 5,000", factor, 4.6)

    def one_table(self, name):
        """A selection of one table in a large schema, against an import of a database without any."""
        self.server.make("exactempty", "SELECT 1;\n")
        empty = self.measure("exactempty", 0)
        owner = "public." if self.server.name == "PostgreSQL" else f"{name}." if self.server.name == "MariaDB" else ""
        one = self.measure(name, 1, "--table", owner + "table_7", least=1)
        one["label"] += f", one of {self.sizes[-1]}"
        empty["label"] += ", empty"
        self.rows += [empty, one]
        self.goal(f"one table of {self.sizes[-1]} over an empty import", one["import_s"] / empty["import_s"], 3)


PRACTICE = ("sqlserver-2019", "oracle-19", "db2-11", "informix-14")
# The own time is the difference of two times: more rounds for small imports. A machine's speed drifts over
# minutes by more than what is looked for: the sizes are measured in turn, and compared within a turn.
PRACTICE_TURNS = 3
PRACTICE_ROUNDS = {1000: 41, 10000: 11, 100000: 3}


class Practice:
    """Generated catalogs: how the import's own time and memory grow to 100,000 tables of 20 columns."""

    def __init__(self, build, quick, servers=PRACTICE):
        self.program = os.path.join(build, "bin", "wbexactbench")
        self.driver = os.path.join(build, "lib", "libcatalogsim.so")
        self.sizes = [200, 2000] if quick else sorted(PRACTICE_ROUNDS)
        self.servers = servers
        self.rows, self.own_times, self.growth, self.goals = [], [], [], []

    def goal(self, server, what, value, limit):
        self.goals.append({"goal": f"{server}, exact: {what}", "value": value, "limit": limit, "at_least": False,
                           "met": value <= limit})

    def run(self):
        for server in self.servers:
            turns = [{tables: self.measure(server, tables) for tables in self.sizes} for _ in range(PRACTICE_TURNS)]
            for tables in self.sizes:
                self.keep(server, tables, sorted((turn[tables] for turn in turns), key=lambda row: row["own_s"]))
            for small, large in zip(self.sizes, self.sizes[1:]):
                factor = statistics.median(turn[large]["outside_driver_s"] / turn[small]["outside_driver_s"] / (large / small)
                                           for turn in turns)
                self.growth.append({"server": f"{server}, exact", "from": small, "to": large, "factor": factor})
                self.goal(server, f"time outside of the driver, {small} to {large} tables, over linear", factor, 1.1)
        return {"exact": self.rows, "wholes": [], "peers": [], "own_times": self.own_times, "growth": self.growth,
                "goals": self.goals}

    def measure(self, server, tables):
        print(f"measuring {server}, exact, {tables} tables ...", file=sys.stderr)
        rounds = PRACTICE_ROUNDS.get(tables, 9)
        row = last_json(sh(self.program, f"Driver={self.driver};Server={server};Scale={tables};Columns=20;ForeignKeys=1",
                           "--rounds", str(rounds), "--label", f"{server}, exact"))
        if not row["result"] or row["columns"] < 20 * tables or row["relationships"] < tables:
            sys.exit(f"{server}: the import failed or left something out: {row}")
        return row

    def keep(self, server, tables, turns):
        """The row of the turn in the middle, by its own time."""
        row = turns[len(turns) // 2]
        self.rows.append(row)
        self.own_times.append({"server": f"{server}, exact", "tables": tables,
                               "rounds": PRACTICE_TURNS * PRACTICE_ROUNDS.get(tables, 9), "own_s": row["own_s"],
                               "quartiles_s": row["own_quartiles_s"]})
        if tables > self.sizes[0]:
            self.goal(server, f"import / bare loop, {tables} tables", row["ratio"], 1.5)
            self.goal(server, f"bytes a column held, {tables} tables", row["held_bytes_a_column"], 400)
            self.goal(server, f"bytes a column at the peak, {tables} tables", row["peak_bytes_a_column"], 900)


def main():
    """Runs inside scripts/with_...: exact.py SERVER RESULTS BUILD FLAG...; SERVER `practice` is all of PRACTICE."""
    server, results, build, *flags = sys.argv[1:]
    if server == "practice" or server in PRACTICE:
        found = Practice(build, "--quick" in flags, PRACTICE if server == "practice" else (server,)).run()
        with open(results, "w") as out:
            json.dump(found, out)
        return
    with tempfile.TemporaryDirectory() as folder:
        known = {"postgresql": postgresql, "mariadb": mariadb, "sqlite": lambda: sqlite(folder)}
        found = Measurement(known[server](), build, "--quick" in flags, "--large" in flags, "--no-peers" not in flags, folder).run()
    with open(results, "w") as out:
        json.dump(found, out)


if __name__ == "__main__":
    main()
