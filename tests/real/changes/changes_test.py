#!/usr/bin/python3
"""Each statement of a file alone between two imports: the comparison tells its one change, and no other.

    changes_test.py WBIMPORT postgres|mariadb|sqlite

The file of the server makes a schema; behind "-- one at a time" stands a line of `-->` under each statement: the
change. Runs under scripts/with_postgres and scripts/with_mariadb.
"""
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

FOLDER = pathlib.Path(__file__).resolve().parent


class PostgreSQL:

    def __init__(self, folder):
        self.connection = ["--connect", "Driver=PostgreSQL Unicode;Servername=127.0.0.1;Port=" + os.environ["PGPORT"] +
                           ";Username=postgres;Database=changes"]
        subprocess.run(["createdb", "changes"], check=True)

    def run(self, sql):
        subprocess.run(["psql", "-q", "-v", "ON_ERROR_STOP=1", "-d", "changes"], input=sql, text=True, check=True)


class MariaDB:

    def __init__(self, folder):
        self.connection = ["--connect", "Driver=MariaDB Unicode;SERVER=127.0.0.1;PORT=" + os.environ["MARIADB_PORT"] +
                           ";UID=root;DATABASE=shop"]
        self.client = ["mariadb", "--no-defaults", "-u", "root", "-S", os.environ["MARIADB_SOCKET"]]
        subprocess.run(self.client + ["-e", "CREATE DATABASE shop"], check=True)

    def run(self, sql):
        subprocess.run(self.client + ["shop"], input=sql, text=True, check=True)


class SQLite:

    def __init__(self, folder):
        self.file = folder + "/shop.db"
        self.connection = ["--sqlite", self.file]

    def run(self, sql):
        subprocess.run(["sqlite3", "-bail", self.file], input=sql, text=True, check=True)


def path(change, *members):
    return ".".join(change[member] for member in members if change.get(member))


def line(change):
    text = f"{change['action']} {change['object']} {path(change, 'owner', 'table', 'name')}"
    if change["action"] == "changed":
        text += " " + change["property"] + (" " + change["option"] if "option" in change else "")
        if "diff" in change:
            return text
        value = [change[side] if change[side] is not None else "none" for side in ("from", "to")]
        return text + ": " + " -> ".join(value)
    if change["action"] == "renamed":
        now = {"owner": change.get("newOwner", change["owner"]), "table": change.get("newTable", change["table"]),
               "name": change["newName"]}
        text += " -> " + path(now, "owner", "table", "name") + (" (guess)" if change["guess"] else "")
    return text


def main():
    wbimport, server = sys.argv[1:]
    schema, steps = (FOLDER / (server + ".sql")).read_text().split("-- one at a time\n")
    steps = re.findall(r"(.*?)\n--> (.*?)\n", steps, re.S)
    bad = 0
    with tempfile.TemporaryDirectory() as folder:
        database = {"postgres": PostgreSQL, "mariadb": MariaDB, "sqlite": SQLite}[server](folder)
        reading = ["--reading", "exact"]

        def read(name):
            file = f"{folder}/{name}.json"
            subprocess.run([wbimport, "import", "--quiet", *database.connection, *reading, "-o", file], check=True)
            return file

        database.run(schema)
        before = read("0")

        def compare_live(*how):
            done = subprocess.run([wbimport, "diff", before, *database.connection, *how], capture_output=True, text=True)
            if done.returncode != 0:
                print(f"nothing has changed, but {how}: {done.stdout}{done.stderr}")
            return done.returncode != 0

        # The two readings agree in what both can know.
        bad += compare_live("--reading", "compatible")
        for number, (statement, expected) in enumerate(steps, 1):
            database.run(statement)
            after = read(str(number))
            done = subprocess.run([wbimport, "diff", before, after, "--format", "json"], capture_output=True, text=True)
            told = json.loads(done.stdout)
            found = [line(change) for change in told["changes"]]
            if (done.returncode, found, told["unknown"]) != (10, [expected], []):
                bad += 1
                print(f"{statement}\n  expected: {expected}\n  found (exit code {done.returncode}): {found} {told['unknown']}")
            before = after
        # The last import and the database are one.
        bad += compare_live()
    print(f"{len(steps)} statements, {bad} wrong")
    return bad != 0 or len(steps) < 40


if __name__ == "__main__":
    sys.exit(main())
