"""What a MariaDB server says of a database, read by its shell: the texts of SHOW CREATE, taken apart here, rather than the
tables of information_schema that the dialect asks. What those texts lack (events of triggers, parameters) comes from SHOW
and the server's own tables."""
import re
import subprocess
import xml.etree.ElementTree


class Shell:
    def __init__(self, arguments):
        *self.arguments, self.database = arguments

    def rows(self, sql):
        """Rows as dictionaries; NULL is None."""
        done = subprocess.run(["mariadb", "--no-defaults", "--default-character-set=utf8mb4", *self.arguments, "--xml", "-e", sql, self.database],
                              capture_output=True, check=False)
        if done.returncode != 0:
            raise RuntimeError(done.stderr.decode() + sql)
        # A character that XML cannot hold stands as it is.
        text = re.sub("[\x00-\x08\x0b\x0c\x0e-\x1f]", lambda c: f"\\x{ord(c.group()):02x}", done.stdout.decode("utf-8"))
        if not text.strip():
            return []
        nil = "{http://www.w3.org/2001/XMLSchema-instance}nil"
        return [{field.get("name").upper(): None if field.get(nil) == "true" else field.text or "" for field in row}
                for row in xml.etree.ElementTree.fromstring(text).iter("row")]


def name_of(text):
    return "`" + text.replace("`", "``") + "`"


def unquoted(token):
    return token[1:-1].replace("``", "`")


TOKEN = re.compile(r"`(?:[^`]|``)*`|'(?:[^'\\]|''|\\.)*'|/\*.*?\*/|\s+|[A-Za-z_0-9$.]+|.", re.S)


class Words:
    """Tokens of a server-made text."""

    def __init__(self, text):
        self.tokens = [t for t in TOKEN.findall(text)]
        self.at = 0
        self.skip()

    def skip(self):
        while self.at < len(self.tokens) and self.tokens[self.at].isspace():
            self.at += 1

    @property
    def now(self):
        return self.tokens[self.at] if self.at < len(self.tokens) else ""

    def next(self):
        token = self.now
        self.at += 1
        self.skip()
        return token

    def sees(self, *words):
        here = self.at
        for word in words:
            if self.now.upper() != word:
                self.at = here
                return False
            self.next()
        self.at = here
        return True

    def take(self, *words):
        if not self.sees(*words):
            return False
        for _ in words:
            self.next()
        return True

    def name(self):
        token = self.next()
        assert token.startswith("`"), (token, self.tokens[self.at:self.at + 5])
        return unquoted(token)

    def string(self):
        token = self.next()
        assert token.startswith("'"), token
        escapes = {"n": "\n", "t": "\t", "r": "\r", "0": "\0", "Z": "\x1a"}
        return re.sub(r"''|\\(.)", lambda m: "'" if m.group() == "''" else escapes.get(m.group(1), m.group(1)), token[1:-1], flags=re.S)

    def parentheses(self):
        """The text between here and the closing parenthesis."""
        assert self.next() == "(", self.tokens[self.at - 3:self.at + 5]
        begin, depth = self.at, 1
        while depth:
            depth += {"(": 1, ")": -1}.get(self.now, 0)
            self.at += 1
        text = "".join(self.tokens[begin:self.at - 1])
        self.skip()
        return text

    def until(self, *ends):
        """The text up to a word of `ends`, a comma or a closing parenthesis."""
        begin, end = self.at, self.at
        while self.now and self.now not in (",", ")") and not any(self.sees(*e.split(" ")) for e in ends):
            if self.now == "(":
                self.parentheses()
                end = self.at
                while self.tokens[end - 1].isspace():
                    end -= 1
            else:
                end = self.at + 1
                self.next()
        return "".join(self.tokens[begin:end])


COLUMN_WORDS = ("CHARACTER SET", "COLLATE", "NOT NULL", "NULL", "DEFAULT", "GENERATED", "AUTO_INCREMENT", "ON UPDATE", "INVISIBLE",
                "WITHOUT SYSTEM", "COMMENT", "CHECK", "REF_SYSTEM_ID")


def read_column(words, of, position, facts, collation_of_table):
    name = words.name()
    at = (*of, name)
    facts[("column", *at)] = position
    facts[("type", *at)] = words.until(*COLUMN_WORDS)
    facts[("nullable", *at)] = True
    while words.now and words.now not in (",", ")"):
        if words.take("CHARACTER", "SET"):
            words.next()
        elif words.take("COLLATE"):
            collation = words.next()
            if collation != collation_of_table:
                facts[("collation", *at)] = collation
        elif words.take("NOT", "NULL"):
            facts[("nullable", *at)] = False
        elif words.take("NULL"):
            pass
        elif words.take("DEFAULT"):
            default = words.until(*(w for w in COLUMN_WORDS if w not in ("NULL", "NOT NULL", "DEFAULT", "CHARACTER SET", "COLLATE")))
            if default != "NULL":
                facts[("default", *at)] = default
        elif words.take("GENERATED", "ALWAYS", "AS"):
            if words.sees("ROW"):
                facts[("generated", *at)] = ("stored", f"{words.next()} {words.next()}")
                facts[("nullable", *at)] = False
            else:
                expression = words.parentheses()
                facts[("generated", *at)] = (words.next().lower(), expression)
        elif words.take("AUTO_INCREMENT"):
            facts[("identity", *at)] = "auto increment"
        elif words.take("ON", "UPDATE"):
            facts[("column option", *at, "on update")] = words.until(*COLUMN_WORDS)
        elif words.take("INVISIBLE"):
            facts[("column option", *at, "invisible")] = "1"
        elif words.take("WITHOUT", "SYSTEM", "VERSIONING"):
            facts[("column option", *at, "without system versioning")] = "1"
        elif words.take("COMMENT"):
            facts[("comment", "column", *at)] = words.string()
        elif words.take("CHECK"):
            facts[("check", *of, name, words.parentheses())] = 1
            facts[("check option", *of, name, list(facts)[-1][-1], "level")] = "Column"
        else:
            raise AssertionError(words.tokens[words.at - 4:words.at + 6])


def read_parts(words):
    assert words.next() == "("
    parts = []
    while True:
        part = {"column": words.name(), "expression": None, "descending": False, "included": False}
        if words.now == "(":
            part["prefix"] = words.parentheses()
        if words.take("DESC"):
            part["descending"] = True
        words.take("ASC")
        parts.append(part)
        if words.next() == ")":
            return parts


def read_index(words, of, kind, engine, facts):
    name = "PRIMARY" if kind == "primary" else words.name()
    parts = read_parts(words)
    index = {"unique": kind in ("primary", "unique"), "method": kind.upper() if kind in ("fulltext", "spatial") else None,
             "predicate": None, "parts": parts}
    comment = None
    if engine == "MEMORY":
        index["method"] = "HASH"  # where nothing is written
    while words.now not in (",", ")"):
        if words.take("USING"):
            method = words.next()
            index["method"] = None if method == "BTREE" else method
        elif words.take("COMMENT"):
            comment = words.string()
        elif words.take("IGNORED"):
            index["ignored"] = "1"
        else:
            words.next()
    more = index["method"] or "ignored" in index or any(p["descending"] or "prefix" in p for p in parts)
    if index["unique"]:
        at = (f"{kind} key", *of, name)
        facts[at] = {"columns": [p["column"] for p in parts], "deferrable": None}
        if comment is not None:
            facts[("comment", *at)] = comment
    if not index["unique"] or more:
        facts[("index", *of, name)] = index
        if comment is not None:
            facts[("comment", "index", *of, name)] = comment


def read_foreign_key(words, of, name, facts):
    def names():
        return [p["column"] for p in read_parts(words)]
    value = {"columns": names(), "match": None, "deferrable": None, "enforced": True, "update": "restrict", "delete": "restrict"}
    assert words.take("REFERENCES")
    target = words.name()
    value["target"] = (of[0], target)
    if words.take("."):
        value["target"] = (target, words.name())
    value["target columns"] = names()
    while words.take("ON"):
        what = words.next().lower()
        action = words.next().lower()
        value[what] = f"{action} {words.next().lower()}" if action in ("set", "no") else action
    facts[("foreign key", *of, name)] = value


def read_table(text, of, table, facts):
    words = Words(text)
    while words.next() != "(":
        pass
    position = 0
    while True:
        if words.now.startswith("`"):
            position += 1
            read_column(words, of, position, facts, table["TABLE_COLLATION"])
        elif words.take("PRIMARY", "KEY"):
            read_index(words, of, "primary", table["ENGINE"], facts)
        elif words.take("CONSTRAINT"):
            name = words.name()
            if words.take("CHECK"):
                facts[("check", *of, name, words.parentheses())] = 1
            else:
                assert words.take("FOREIGN", "KEY")
                read_foreign_key(words, of, name, facts)
        elif words.take("PERIOD", "FOR"):
            period = words.until()
            if not period.startswith("SYSTEM_TIME"):
                # Beside its text a period stands in the catalog as a check of its name.
                name, begin, end = (unquoted(token) for token in re.findall("`(?:[^`]|``)*`", period))
                facts[("check", *of, name, f"{name_of(begin)} < {name_of(end)}")] = 1
        else:
            kind = words.next().lower()
            if kind != "key":
                assert words.take("KEY"), (kind, words.now)
            read_index(words, of, kind, table["ENGINE"], facts)
        if words.next() == ")":
            break
    partitions = text[text.rindex("PARTITION BY"):] if "partitioned" in table["CREATE_OPTIONS"] else None
    return "".join(words.tokens[words.at:]), partitions


def read(arguments):
    shell = Shell(arguments)
    owner = shell.database
    facts = {}
    (database,) = shell.rows("SHOW CREATE DATABASE " + name_of(owner))
    charset, collation = re.search(r"DEFAULT CHARACTER SET (\w+)(?: COLLATE (\w+))?", database["CREATE DATABASE"]).groups()
    facts[("schema", owner)] = {"character set": charset, "collation": collation or shell.rows(
        f"SHOW COLLATION WHERE charset = '{charset}' AND `default` = 'Yes'")[0]["COLLATION"]}
    if " COMMENT '" in database["CREATE DATABASE"]:
        facts[("comment", "schema", owner)] = Words(database["CREATE DATABASE"].split(" COMMENT ")[-1].removesuffix(" */")).string()
    for table in shell.rows("SELECT * FROM information_schema.TABLES WHERE TABLE_SCHEMA = DATABASE()"):
        of = (owner, table["TABLE_NAME"])
        if table["TABLE_TYPE"] == "VIEW":
            view(shell, of, table, facts)
        elif table["TABLE_TYPE"] == "SEQUENCE":
            sequence(shell, of, facts)
        elif table["TABLE_TYPE"] in ("BASE TABLE", "SYSTEM VERSIONED"):
            base_table(shell, of, table, facts)
    keys = {}
    for at, value in facts.items():
        if at[0] in ("primary key", "unique key"):
            keys.setdefault(at[1:3], []).append(set(value["columns"]))
    for at, value in list(facts.items()):
        if at[0] == "foreign key" and value["target"][0] == owner:
            facts[("one to one", *at[1:])] = set(value["columns"]) in keys.get(at[1:3], [])
    triggers(shell, owner, facts)
    routines(shell, owner, facts)
    return facts


def base_table(shell, of, table, facts):
    (shown,) = shell.rows("SHOW CREATE TABLE " + name_of(of[1]))
    rest, partitions = read_table(shown["CREATE TABLE"], of, table, facts)
    facts[("table", *of)] = "partitioned table" if partitions else "table"
    set_options = re.search(r"ENGINE=(\w+)", rest), re.search(r"CHARSET=(\w+)", rest), re.search(r" COLLATE=(\w+)", rest)
    facts[("table option", *of, "engine")] = set_options[0].group(1) if set_options[0] else table["ENGINE"]
    facts[("table option", *of, "character set")] = set_options[1].group(1)
    facts[("table option", *of, "collation")] = set_options[2].group(1) if set_options[2] else table["TABLE_COLLATION"]
    if " WITH SYSTEM VERSIONING" in rest:
        facts[("table option", *of, "system versioned")] = "1"
    created = table["CREATE_OPTIONS"].replace("partitioned", "").strip()
    if created:
        facts[("table option", *of, "create options")] = created
    if " COMMENT='" in rest:
        facts[("comment", "table", *of)] = Words(rest[rest.index(" COMMENT='") + len(" COMMENT="):]).string()
    if partitions:
        told = shell.rows(f"""SELECT * FROM information_schema.PARTITIONS WHERE TABLE_SCHEMA = DATABASE() AND TABLE_NAME = {string(of[1])}
                              ORDER BY PARTITION_ORDINAL_POSITION, SUBPARTITION_ORDINAL_POSITION""")
        by = f"{told[0]['PARTITION_METHOD']} ({told[0]['PARTITION_EXPRESSION']})"
        if told[0]["SUBPARTITION_METHOD"]:
            by += f" SUBPARTITION BY {told[0]['SUBPARTITION_METHOD']} ({told[0]['SUBPARTITION_EXPRESSION']})"
        facts[("table option", *of, "partition by")] = by
        parts = {}
        for p in told:
            values = p["PARTITION_DESCRIPTION"]
            if values and not (values == "MAXVALUE" and p["PARTITION_METHOD"] == "RANGE"):
                values = f"({values})"
            word = " VALUES IN " if p["PARTITION_METHOD"].startswith("LIST") else " VALUES LESS THAN "
            parts.setdefault("PARTITION `" + p["PARTITION_NAME"].replace("`", "``") + "`" + (word + values if values else ""), []).append(
                "SUBPARTITION `" + p["SUBPARTITION_NAME"].replace("`", "``") + "`" if p["SUBPARTITION_NAME"] else None)
        facts[("table option", *of, "partitions")] = ", ".join(
            part + (" (" + ", ".join(inner) + ")" if inner[0] else "") for part, inner in parts.items())
        for p in told:
            assert name_of(p["PARTITION_NAME"]) in partitions or p["PARTITION_NAME"] in partitions or "PARTITIONS" in partitions, (p, partitions)


def string(text):
    return "'" + text.replace("\\", "\\\\").replace("'", "''") + "'"


def view(shell, of, table, facts):
    facts[("table", *of)] = "view"
    # Read from another database the text has every name whole.
    (shown,) = Shell([*shell.arguments, "information_schema"]).rows("SHOW CREATE VIEW " + name_of(of[0]) + "." + name_of(of[1]))
    made = re.fullmatch(r"CREATE ALGORITHM=(\w+) DEFINER=.*? SQL SECURITY (\w+) VIEW (?:`(?:[^`]|``)*`\.)?`(?:[^`]|``)*` AS (.*?)(?: WITH (CASCADED|LOCAL) CHECK OPTION)?",
                        shown["CREATE VIEW"], re.S)
    algorithm, security, text, check = made.groups()
    # SHOW tells the character set of literals where it is not the connection's.
    facts[("view text", *of)] = re.sub(r"\b_[a-z0-9]+(?=')", "", text)
    for option, value in (("algorithm", algorithm if algorithm != "UNDEFINED" else None),
                          ("security", security if security != "DEFINER" else None), ("check option", check)):
        if value is not None:
            facts[("table option", *of, option)] = value
    if table["TABLE_COMMENT"] != "VIEW":
        facts[("does not resolve", *of)] = True
        return
    for position, column in enumerate(shell.rows("SHOW FULL COLUMNS FROM " + name_of(of[1])), 1):
        at = (*of, column["FIELD"])
        facts[("column", *at)] = position
        facts[("type", *at)] = column["TYPE"]
        facts[("nullable", *at)] = column["NULL"] == "YES"
        if column["COLLATION"] is not None:
            facts[("collation", *at)] = column["COLLATION"]
        if column["COMMENT"]:
            facts[("comment", "column", *at)] = column["COMMENT"]
        default = shell.rows(f"""SELECT COLUMN_DEFAULT FROM information_schema.COLUMNS WHERE TABLE_SCHEMA = DATABASE() AND TABLE_NAME = {string(of[1])}
                                 AND ORDINAL_POSITION = {position}""")[0]["COLUMN_DEFAULT"]
        if default not in (None, "NULL"):
            facts[("default", *at)] = default


def sequence(shell, of, facts):
    (shown,) = shell.rows("SHOW CREATE SEQUENCE " + name_of(of[1]))
    start, minimum, maximum, increment, cache, cycle = re.search(
        r"start with (-?\d+) minvalue (-?\d+) maxvalue (-?\d+) increment by (-?\d+) (?:cache (\d+)|nocache) (nocycle|cycle)", shown["CREATE TABLE"]).groups()
    facts[("sequence", *of)] = {"type": "bigint", "start": start, "increment": increment, "minimum": minimum, "maximum": maximum,
                                "cycle": cycle == "cycle", "owner": (None, None), "cache": None if cache == "1" else cache or "0"}


def triggers(shell, owner, facts):
    order = {}
    for row in shell.rows("SHOW TRIGGERS"):
        # They come in the order in which they fire.
        place = (row["TABLE"], row["TIMING"], row["EVENT"])
        order[place] = order.get(place, 0) + 1
        facts[("trigger", owner, row["TABLE"], row["TRIGGER"])] = {
            "timing": row["TIMING"].lower(), "events": row["EVENT"].lower(), "text": row["STATEMENT"],
            "order": str(order[place]) if order[place] > 1 else None}


def routines(shell, owner, facts):
    for row in shell.rows("SELECT * FROM mysql.proc WHERE db = DATABASE() AND type IN ('FUNCTION', 'PROCEDURE')"):
        kind = row["TYPE"].lower()
        parameters = tuple((p["PARAMETER_NAME"], p["PARAMETER_MODE"].lower(), p["DTD_IDENTIFIER"], None) for p in shell.rows(
            f"""SELECT * FROM information_schema.PARAMETERS WHERE SPECIFIC_SCHEMA = DATABASE() AND SPECIFIC_NAME = {string(row['NAME'])}
                AND ROUTINE_TYPE = '{row['TYPE']}' AND ORDINAL_POSITION > 0 ORDER BY ORDINAL_POSITION"""))
        at = ("routine", owner, kind, row["NAME"], parameters)
        # As many parameters as the text of their list has commas outside parentheses.
        facts[at] = {"result": re.sub(r" CHARSET .*", "", row["RETURNS"]) or None, "language": row["LANGUAGE"], "text": row["BODY_UTF8"],
                     "deterministic": "YES" if row["IS_DETERMINISTIC"] == "YES" else None,
                     "data access": row["SQL_DATA_ACCESS"].replace("_", " ") if row["SQL_DATA_ACCESS"] != "CONTAINS_SQL" else None,
                     "security": "INVOKER" if row["SECURITY_TYPE"] == "INVOKER" else None}
        if row["COMMENT"]:
            facts[("comment", *at)] = row["COMMENT"]
