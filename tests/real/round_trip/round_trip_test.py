#!/usr/bin/python3
"""A schema through a script and back: import, write `sql`, load it into an empty database with the server's own shell, which
stops at the first error, import again: no difference.

    round_trip_test.py WBIMPORT postgres|mariadb|sqlite [FILE...]
    round_trip_test.py WBIMPORT translated [SERVER FILE...]

Without files, the schemas of hard cases in ../catalogs and ../changes. Runs under scripts/with_postgres and
scripts/with_mariadb; WB_KEEP=FOLDER keeps what was written. `translated` needs both servers: the script is for each of the other
servers, which has to load it whole and then have every table and column that the script does not say it leaves out.
"""
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
# What the servers themselves refuse to make again, by a line of the comparison.
EXPECTED = {
    "postgres": {}, "mariadb": {}, "sqlite": {},
}


def run(command, **more):
    done = subprocess.run(command, capture_output=True, text=True, errors="replace", **more)
    if done.returncode != 0:
        raise RuntimeError(f"{' '.join(command)}: exit code {done.returncode}\n{done.stdout[-2000:]}{done.stderr[-4000:]}")
    return done


class PostgreSQL:
    number = 0

    def __init__(self, folder):
        self.number = PostgreSQL.number = PostgreSQL.number + 1
        self.name = self.empty("from")

    def empty(self, prefix):
        self.name = f"{prefix}_{self.number}"
        run(["createdb", "--template=template0", self.name])
        return self.name

    def load(self, script):
        run(["psql", "-q", "-X", "--set", "ON_ERROR_STOP=1", "-d", self.name, "--file", script])

    def make_empty(self):
        self.empty("to")

    def connection(self):
        return ["--connect", "Driver=PostgreSQL Unicode;Servername=127.0.0.1;Port=" + os.environ["PGPORT"] +
                ";Username=postgres;Database=" + self.name]


class MariaDB:
    client = ["mariadb", "--no-defaults", "-u", "root", "-S", os.environ.get("MARIADB_SOCKET", ""),
              "--default-character-set=utf8mb4"]

    def __init__(self, folder):
        self.kept = {line.split("\t")[0] for line in self.ask("SHOW DATABASES").splitlines()}
        self.name = "plain"

    def ask(self, sql, *more):
        return run(self.client + ["-N", *more, "-e", sql]).stdout

    def load(self, script):
        if self.name not in self.ask("SHOW DATABASES").splitlines():
            # A file that makes its own databases, or one for the database it is loaded into.
            if "CREATE DATABASE plain" in pathlib.Path(script).read_text():
                run(self.client, stdin=open(script))
                return
            self.ask("CREATE DATABASE plain")
        run(self.client + [self.name], stdin=open(script))

    # Keys of other databases stay, and hold their tables to it.
    def make_empty(self):
        how = self.ask("SHOW CREATE DATABASE plain").split("\t")[1].strip()
        self.ask("SET foreign_key_checks = 0; DROP DATABASE plain")
        self.ask(how.replace("\\\\", "\\"))

    def connection(self):
        return ["--connect", "Driver=MariaDB Unicode;SERVER=127.0.0.1;PORT=" + os.environ["MARIADB_PORT"] +
                ";UID=root;DATABASE=" + self.name]

    def others(self):
        names = self.ask("SHOW DATABASES", "--raw").splitlines()
        return [name for name in names if name not in self.kept]

    def drop(self):
        for name in self.others():
            self.ask("SET foreign_key_checks = 0; DROP DATABASE `" + name.replace("`", "``") + "`")


class SQLite:

    def __init__(self, folder):
        self.folder = folder
        self.file = folder + "/from.db"

    def load(self, script):
        run(["sqlite3", "-bail", self.file], stdin=open(script))

    def make_empty(self):
        self.file = self.folder + "/to.db"

    def connection(self):
        return ["--sqlite", self.file]


SERVERS = {"postgres": PostgreSQL, "mariadb": MariaDB, "sqlite": SQLite}
SHELLS = {"postgres": "psql", "mariadb": "mariadb", "sqlite": "sqlite3"}
DIALECTS = {"postgres": "postgresql", "mariadb": "mariadb", "sqlite": "sqlite"}


def schema_files(server, folder):
    files = []
    for name in ("catalogs", "changes"):
        text = (HERE.parent / name / (server + ".sql")).read_text().split("-- one at a time")[0]
        # A view of a table that is no more cannot be made again.
        text = "".join(line for line in text.splitlines(True) if not re.search(r"\bgone\b", line))
        files.append(pathlib.Path(folder) / (name + ".sql"))
        files[-1].write_text(text)
    return files


def line(change):
    words = [change["action"], change["object"], change.get("owner"), change.get("table"), change.get("name"),
             change.get("property"), change.get("option")]
    text = " ".join(word for word in words if word)
    return f"{text}: {change.get('from')!r} -> {change.get('to')!r}" if change["action"] == "changed" else text


def round_trip(wbimport, database, schema, folder):
    """The lines of what differs, and what the writer said on its way."""
    database.load(str(schema))
    before, script, after = (f"{folder}/{name}" for name in ("before.json", "script.sql", "after.json"))
    run([wbimport, "import", "--quiet", *database.connection(), "--reading", "exact", "-o", before])
    said = run([wbimport, "render", before, "--format", "sql", "-o", script]).stderr
    database.make_empty()
    database.load(script)
    run([wbimport, "import", "--quiet", *database.connection(), "--reading", "exact", "-o", after])
    done = subprocess.run([wbimport, "diff", before, after, "--fail-on", "any", "--server-names", "--spellings", "--format", "json"],
                          capture_output=True, text=True)
    if done.returncode not in (0, 10):
        raise RuntimeError(done.stderr)
    told = json.loads(done.stdout)
    return [line(change) for change in told["changes"]] + [f"unknown {each}" for each in told["unknown"]], said


def columns_of(workbook):
    """How many columns each table has, by its name in a translation."""
    return sorted(len(table["columns"]) for table in workbook["tables"] if table["type"] == "table")


def translate(wbimport, workbook_file, server, folder):
    """What went wrong on the way into another server, a sentence each."""
    script = f"{folder}/{server}.sql"
    run([wbimport, "render", workbook_file, "--format", "sql", "--dialect-out", DIALECTS[server], "-o", script])
    database = SERVERS[server](folder)
    try:
        if server == "sqlite":
            database.file = f"{folder}/{server}.db"
        database.load(script)
        after = []
        for name in database.others() if server == "mariadb" else [""]:
            if name:
                database.name = name
            run([wbimport, "import", "--quiet", *database.connection(), "--reading", "exact", "-o", f"{folder}/{server}.json"])
            after += columns_of(json.load(open(f"{folder}/{server}.json")))
    finally:
        if hasattr(database, "drop"):
            database.drop()
    left_out = re.findall("^-- Left out: (?:[a-z]* )?(?:table|partition) (.*?)(?:, whose|, which|\\.$)", open(script).read(), re.M)
    workbook = json.load(open(workbook_file))
    workbook["tables"] = [table for table in workbook["tables"] if ".".join(filter(None, (table["owner"], table["name"]))) not in left_out
                          and "shadow table" not in table.get("options", {})]
    before = columns_of(workbook)
    if before == sorted(after) and before:
        print(f"{workbook_file} into {server}: {len(before)} tables with {sum(before)} columns")
        return []
    return [f"{len(before)} tables with {sum(before)} columns became {len(after)} with {sum(after)}"]


def translations(wbimport, chosen):
    bad = 0
    with tempfile.TemporaryDirectory() as top:
        top = os.environ.get("WB_KEEP", top)
        for source, kind in SERVERS.items():
            if chosen and source != chosen[0]:
                continue
            for schema in chosen[1:] or schema_files(source, top):
                folder = f"{top}/{source}_{pathlib.Path(schema).stem}"
                shutil.rmtree(folder, ignore_errors=True)
                os.makedirs(folder)
                database = kind(folder)
                try:
                    database.load(str(schema))
                    run([wbimport, "import", "--quiet", *database.connection(), "--reading", "exact", "-o", folder + "/before.json"])
                finally:
                    if hasattr(database, "drop"):
                        database.drop()
                for server in SERVERS:
                    try:
                        wrong = [] if server == source else translate(wbimport, folder + "/before.json", server, folder)
                    except RuntimeError as error:
                        wrong = [str(error)]
                    for sentence in wrong:
                        print(f"{schema}, {source} to {server}: {sentence}")
                    bad += len(wrong)
    print(f"{bad} wrong")
    return bad != 0


def main():
    wbimport, server, *files = sys.argv[1:]
    bad = 0
    for shell in SHELLS.values() if server == "translated" else [SHELLS[server]]:
        if shutil.which(shell) is None:
            print(f"SKIPPED: there is no {shell}")
            return 77
    if server == "translated":
        return translations(wbimport, files)
    kind = SERVERS[server]
    with tempfile.TemporaryDirectory() as top:
        for schema in files or schema_files(server, top):
            folder = tempfile.mkdtemp(dir=top, prefix=pathlib.Path(schema).stem + "_")
            if "WB_KEEP" in os.environ:
                folder = os.environ["WB_KEEP"] + "/" + pathlib.Path(schema).stem
                shutil.rmtree(folder, ignore_errors=True)
                os.makedirs(folder)
            database = kind(folder)
            try:
                found, said = round_trip(wbimport, database, schema, folder)
            except RuntimeError as error:
                bad += 1
                print(f"{schema}: {error}")
                continue
            finally:
                if hasattr(database, "drop"):
                    database.drop()
            expected = EXPECTED[server].get(pathlib.Path(schema).stem, []) if not files else []
            for text in sorted(set(found) ^ set(expected)):
                bad += 1
                print(f"{schema}: {'differs' if text in found else 'differs no more'}: {text}")
            print(f"{schema}: {len(found)} differences {said.strip()}")
    print(f"{bad} wrong")
    return bad != 0


if __name__ == "__main__":
    sys.exit(main())
