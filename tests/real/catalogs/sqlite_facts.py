"""What a SQLite file says of itself, read by the pragmas, one a table, and for what stands in no pragma by taking the texts
of the CREATE statements apart with regular expressions."""
import re
import sqlite3

TOKEN = re.compile(r"""--[^\n]*|/\*.*?(?:\*/|$)|\s+|[xX]'[^']*'|"(?:[^"]|"")*"|'(?:[^']|'')*'|`(?:[^`]|``)*`|\[[^\]]*\]|[\w$]+|.""", re.S)


def name_of(text):
    return '"' + text.replace('"', '""') + '"'


def unquote(token):
    if token[:1] in "\"'`":
        return token[1:-1].replace(token[0] * 2, token[0])
    return token[1:-1] if token[:1] == "[" else token


def is_blank(token):
    return token.isspace() or token.startswith(("--", "/*"))


def group(tokens):
    """Tokens without blanks, what stands in parentheses as one list with its own text in front."""
    stack = [[""]]
    for token in tokens:
        if token == "(":
            stack.append([""])
            continue
        if token == ")" and len(stack) > 1:
            inner = stack.pop()
            stack[-1][0] += "(" + inner[0] + ")"
            inner[0] = strip(inner[0])
            stack[-1].append(inner)
            continue
        stack[-1][0] += token
        if not is_blank(token):
            stack[-1].append(token)
    while len(stack) > 1:
        inner = stack.pop()
        stack[-1].append(inner)
    return stack[0]


def strip(text):
    """Without blanks and comments at its ends."""
    tokens = TOKEN.findall(text)
    while tokens and is_blank(tokens[0]):
        tokens.pop(0)
    while tokens and is_blank(tokens[-1]):
        tokens.pop()
    return "".join(tokens)


def split(tokens):
    items = [[]]
    for token in tokens:
        if token == ",":
            items.append([])
        else:
            items[-1].append(token)
    return [item for item in items if item]


def words(item):
    return [t.upper() if isinstance(t, str) and t[:1] not in "\"'`[" else t for t in item]


def names(group_of_columns):
    return [unquote(item[0]) for item in split(group_of_columns[1:])]


CONSTRAINTS = ("CONSTRAINT", "PRIMARY", "UNIQUE", "CHECK", "FOREIGN")


class Definition:
    """What only the text of a table says."""

    def __init__(self, sql):
        self.collations, self.auto_increment, self.not_null = {}, set(), {}
        self.on_null, self.expressions = {}, {}
        self.keys, self.foreign_keys, self.checks = [], [], []
        self.rowid_type, self.descending = {}, False
        self.module = None
        tokens = TOKEN.findall(sql)
        if re.match(r"CREATE\s+VIRTUAL", sql, re.I):
            self.module = strip(re.split(r"\sUSING\s", sql, maxsplit=1, flags=re.I)[1])
            return
        whole = group(tokens)
        at = next(i for i, t in enumerate(whole[1:], 1) if isinstance(t, list))
        for item in split(whole[at][1:]):
            if words(item)[0] in CONSTRAINTS:
                self.table_constraints(item)
            else:
                self.column(item)
        self.options = words([t for t in whole[at + 1:] if t != ","])

    def conflict(self, rest):
        return rest[2].lower() if words(rest[:2]) == ["ON", "CONFLICT"] else None

    def key(self, name, primary, columns, rest):
        self.keys.append({"name": name, "primary": primary, "columns": columns, "conflict": self.conflict(rest)})

    def table_constraints(self, item):
        name = None
        for i, word in enumerate(words(item)):
            if word == "CONSTRAINT":
                name = unquote(item[i + 1])
                continue
            if not isinstance(word, str) or word not in CONSTRAINTS or item[i] != word and item[i].upper() != word:
                continue
            rest = item[i + 1:]
            if word == "PRIMARY":
                self.key(name, True, names(rest[1]), rest[2:])
                if "AUTOINCREMENT" in words(rest[1][1:]):
                    self.auto_increment.add(names(rest[1])[0].lower())
            elif word == "UNIQUE":
                self.key(name, False, names(rest[0]), rest[1:])
            elif word == "CHECK":
                self.checks.append((name, rest[0][0]))
            elif word == "FOREIGN":
                self.reference(name, names(rest[1]), rest[3:])
            name = None

    def reference(self, name, columns, rest):
        text = " ".join(t for t in words(rest) if isinstance(t, str))
        # Up to the next constraint of the column or the table.
        text = re.split(r" (?:CONSTRAINT|CHECK|UNIQUE|PRIMARY|FOREIGN|REFERENCES|DEFAULT|COLLATE)\b", text, maxsplit=1)[0]
        match = re.search(r"(NOT )?DEFERRABLE( INITIALLY DEFERRED)?", text)
        value = None if match is None or match.group(1) else "deferred" if match.group(2) else "immediate"
        self.foreign_keys.append({"name": name, "columns": columns, "deferrable": value})

    def column(self, item):
        column = unquote(item[0])
        known = words(item)
        name = None
        first = next((i for i, w in enumerate(known[1:], 1) if isinstance(w, str) and item[i] is not None and w in (
            *CONSTRAINTS, "NOT", "NULL", "DEFAULT", "COLLATE", "REFERENCES", "AS", "DEFERRABLE") or known[i:i + 2] == ["GENERATED", "ALWAYS"]), len(item))
        self.rowid_type[column.lower()] = " ".join(unquote(t) if isinstance(t, str) else "()" for t in item[1:first]).upper()
        i = first
        while i < len(item):
            word, rest = known[i], item[i + 1:]
            if word == "CONSTRAINT":
                name = unquote(rest[0])
                i += 2
                continue
            if word == "DEFAULT":
                i += 2
                while i < len(item) and item[i - 1] in "+-." and isinstance(item[i - 1], str):
                    i += 1
                name = None
                continue
            if word == "PRIMARY":
                after = [t for t in rest[1:]]
                if words(after[:1]) == ["DESC"]:
                    self.descending = True
                if words(after[:1]) in (["DESC"], ["ASC"]):
                    after = after[1:]
                self.key(name, True, [column], after)
                if "AUTOINCREMENT" in words(after):
                    self.auto_increment.add(column.lower())
                name = None
            elif word == "UNIQUE":
                self.key(name, False, [column], rest)
                name = None
            elif word == "NOT" and words(rest[:1]) == ["NULL"]:
                self.not_null[column], self.on_null[column] = name, self.conflict(rest[1:])
                name = None
            elif word == "CHECK":
                self.checks.append((name, rest[0][0]))
                name = None
            elif word == "COLLATE":
                self.collations[column] = unquote(rest[0])
                i += 1
            elif word == "REFERENCES":
                self.reference(name, [column], rest)
                name = None
            elif word == "AS":
                self.expressions[column] = rest[0][0]
            i += 1


def read(arguments):
    (path,) = arguments
    base = sqlite3.connect(f"file:{path}?mode=ro", uri=True)
    facts = {}
    rows = list(base.execute("SELECT type, name, tbl_name, sql FROM sqlite_master"))
    kinds = {name: (kind, wr, strict) for name, kind, wr, strict in base.execute("SELECT name, type, wr, strict FROM pragma_table_list WHERE schema = 'main'")}
    tables = {name.lower(): name for kind, name, _, _ in rows if kind in ("table", "view")}
    keys = {}
    for kind, name, _, sql in rows:
        if kind not in ("table", "view") or name.lower().startswith("sqlite_"):
            continue
        at = ("", name)
        facts[("table", *at)] = kind
        if kind == "view":
            facts[("view text", *at)] = view_text(sql)
            try:
                columns(base, at, facts)
            except sqlite3.OperationalError:
                facts[("does not resolve", *at)] = True
            continue
        definition = Definition(sql)
        columns(base, at, facts, definition)
        table_options(at, definition, kinds[name], facts)
        keys[name] = table_keys(base, at, definition, facts)
        for check in definition.checks:
            place = ("check", *at, *check)
            facts[place] = (facts[place] if place in facts else 0) + 1
    for kind, name, _, sql in rows:
        if kind == "table" and not name.lower().startswith("sqlite_") and not sql.upper().startswith("CREATE VIRTUAL"):
            foreign_keys(base, name, Definition(sql), tables, keys, facts)
    for kind, name, table, sql in rows:
        if kind == "trigger":
            trigger(name, table, sql, facts)
        elif kind == "index" and sql is not None:
            index(base, name, table, sql, facts)
    for table in keys:
        key_indexes(base, table, facts)
    return facts


def view_text(sql):
    tokens = TOKEN.findall(sql)
    depth = 0
    for i, token in enumerate(tokens):
        depth += {"(": 1, ")": -1}.get(token, 0)
        if depth == 0 and token.upper() == "AS":
            return strip("".join(tokens[i + 1:]))
    raise AssertionError(sql)


def columns(base, at, facts, definition=None):
    for position, (_, name, kind, not_null, default, _, hidden) in enumerate(base.execute(f"PRAGMA main.table_xinfo({name_of(at[1])})"), 1):
        of = (*at, name)
        facts[("column", *of)] = position
        facts[("type", *of)] = kind
        facts[("nullable", *of)] = not not_null
        if default is not None:
            facts[("default", *of)] = default
        if hidden == 1:
            facts[("column option", *of, "hidden")] = "1"
        if definition is None:
            continue
        if hidden in (2, 3):
            facts[("generated", *of)] = ({2: "virtual", 3: "stored"}[hidden], definition.expressions[name])
        if name in definition.collations:
            facts[("collation", *of)] = definition.collations[name]
        if definition.not_null.get(name):
            facts[("column option", *of, "not null constraint")] = definition.not_null[name]
        if definition.on_null.get(name):
            facts[("column option", *of, "on conflict")] = definition.on_null[name]
        if name.lower() in definition.auto_increment:
            facts[("identity", *of)] = "auto increment"


def table_options(at, definition, kind, facts):
    if definition.module:
        facts[("table option", *at, "using")] = definition.module
    if kind[0] == "shadow":
        facts[("table option", *at, "shadow table")] = "1"
    if kind[1]:
        facts[("table option", *at, "without rowid")] = "1"
    if kind[2]:
        facts[("table option", *at, "strict")] = "1"


def table_keys(base, at, definition, facts):
    """The sets of columns that are unique."""
    info = list(base.execute(f"PRAGMA main.table_xinfo({name_of(at[1])})"))
    primary = [name for _, name, _, _, _, place, _ in sorted(info, key=lambda row: row[5]) if place]
    found = []
    written = [key for key in definition.keys if key["primary"]]
    if primary:
        assert not written or [c.lower() for c in written[0]["columns"]] == [c.lower() for c in primary], (at, written, primary)
        facts[("primary key", *at, written[0]["name"] if written else None)] = {
            "columns": primary, "deferrable": None, "on conflict": written[0]["conflict"] if written else None}
        found.append(set(primary))
    uniques = {}
    indexes = list(base.execute(f"PRAGMA main.index_list({name_of(at[1])})"))
    for _, name, _, origin, _ in indexes:
        if origin == "u":
            uniques[name] = [row[2] for row in base.execute(f"PRAGMA main.index_xinfo({name_of(name)})") if row[5]]
    if len(primary) == 1 and not any(origin == "pk" for _, _, _, origin, _ in indexes) and not definition.module:
        (column,) = primary
        facts[("column option", *at, column, "rowid")] = "1"
    for number, (_, parts) in enumerate(sorted(uniques.items(), key=lambda item: int(item[0].rsplit("_", 1)[1]))):
        name, conflict = None, None
        for key in definition.keys:
            if not key["primary"] and [c.lower() for c in key["columns"]] == [c.lower() for c in parts] and "used" not in key:
                key["used"], name, conflict = True, key["name"], key["conflict"]
                break
        place = name or tuple(parts)
        facts[("unique key", *at, place)] = {"columns": parts, "deferrable": None, "on conflict": conflict}
        found.append(set(parts))
    return found


def foreign_keys(base, name, definition, tables, keys, facts):
    actual = {c.lower(): c for _, c, *_ in base.execute(f"PRAGMA main.table_xinfo({name_of(name)})")}
    found = {}
    for number, place, target, source, to, update, delete, _ in base.execute(f"PRAGMA main.foreign_key_list({name_of(name)})"):
        key = found.setdefault(number, {"columns": {}, "to": {}, "target": target, "update": update.lower(), "delete": delete.lower()})
        key["columns"][place] = actual[source.lower()]
        key["to"][place] = to
    assert len(found) == len(definition.foreign_keys), (name, found, definition.foreign_keys)
    # The pragma counts them from the last.
    for number, written in zip(sorted(found, reverse=True), definition.foreign_keys):
        key = found[number]
        of = [key["columns"][i] for i in sorted(key["columns"])]
        assert [c.lower() for c in of] == [c.lower() for c in written["columns"]], (name, of, written)
        target = tables.get(key["target"].lower(), key["target"])
        to = [key["to"][i] for i in sorted(key["to"])]
        known = list(base.execute(f"PRAGMA main.table_xinfo({name_of(target)})"))
        if None in to:
            to = [row[1] for row in sorted(known, key=lambda row: row[5]) if row[5]]
        exact = {row[1].lower(): row[1] for row in known}
        to = [exact.get(c.lower(), c) for c in to]
        at = ("foreign key", "", name, written["name"] or (tuple(of), "", target, key["delete"], key["update"]))
        while at in facts:
            at = (*at, "again")
        facts[at] = {"columns": of, "target": ("", target), "target columns": to, "update": key["update"], "delete": key["delete"],
                     "match": None, "deferrable": written["deferrable"], "enforced": True}
        if target.lower() in tables and len(to) == len(of):
            facts[("one to one", *at[1:])] = set(of) in keys[name]


def trigger(name, table, sql, facts):
    tokens = [t for t in TOKEN.findall(sql) if not is_blank(t)]
    at = next(i for i, t in enumerate(tokens) if t.upper() == "ON" and not isinstance(t, list))
    events = next(i for i, t in enumerate(tokens[3:], 3) if t.upper() in ("INSERT", "UPDATE", "DELETE"))
    text = tokens[events].lower()
    if at > events + 1:
        text += " of " + ", ".join(unquote(t) for t in tokens[events + 2:at] if t != ",")
    timing = " ".join(t.lower() for t in tokens[3:events]) or "before"
    facts[("trigger", "", table, name)] = {"timing": timing, "events": text, "text": sql}


def key_indexes(base, table, facts):
    """Of keys, the indexes that say more than their columns."""
    for _, name, unique, origin, _ in base.execute(f"PRAGMA main.index_list({name_of(table)})"):
        if origin not in ("pk", "u"):
            continue
        parts = []
        for _, _, column, descending, collation, key in base.execute(f"PRAGMA main.index_xinfo({name_of(name)})"):
            if key:
                parts.append({"column": column, "expression": None, "descending": bool(descending), "included": False})
                if collation.upper() != facts.get(("collation", "", table, column), "BINARY").upper():
                    parts[-1]["collation"] = collation
        if any(part["descending"] or "collation" in part for part in parts):
            facts[("index", "", table, name)] = {"unique": True, "method": None, "predicate": None, "parts": parts}


def index(base, name, table, sql, facts):
    rows = [row for row in base.execute(f"PRAGMA main.index_xinfo({name_of(name)})") if row[5]]
    unique, partial = next((u, p) for _, n, u, _, p in base.execute(f"PRAGMA main.index_list({name_of(table)})") if n == name)
    whole = group(TOKEN.findall(sql))
    at = next(i for i, t in enumerate(whole[1:], 1) if isinstance(t, list))
    parts = []
    inside = whole[at][0]
    depth, begin, texts = 0, 0, []
    tokens = TOKEN.findall(inside)
    for i, token in enumerate([*tokens, ","]):
        depth += {"(": 1, ")": -1}.get(token, 0)
        if depth == 0 and token == ",":
            texts.append("".join(tokens[begin:i]))
            begin = i + 1
    for (_, cid, column, descending, collation, _), text in zip(rows, texts):
        part = {"column": column, "expression": None, "descending": bool(descending), "included": False}
        if cid == -2:
            text = re.sub(r"\s+(ASC|DESC)\s*$", "", strip(text), flags=re.I)
            part["expression"] = strip(re.sub(r"\s+COLLATE\s+\S+\s*$", "", text, flags=re.I))
        own = facts.get(("collation", "", table, column), "BINARY").upper()
        if collation.upper() != own or re.search(r"COLLATE\s+BINARY", text, re.I) and own == "BINARY":
            part["collation"] = collation
        parts.append(part)
    predicate = None
    if partial:
        predicate = strip(re.split(r"\)\s*WHERE\s", sql, maxsplit=1, flags=re.I)[1])
    facts[("index", "", table, name)] = {"unique": bool(unique), "method": None, "predicate": predicate, "parts": parts}
