"""What a PostgreSQL server says of a database, read by psql: server-made texts of constraints, indexes, sequences and
routines (pg_get_...def) that are taken apart here, and information_schema, rather than the statements of the dialect."""
import json
import re
import subprocess


class Shell:
    def __init__(self, arguments):
        self.command = ["psql", "-X", "-q", "-A", "-t", *arguments]

    def rows(self, sql, search_path=None):
        """Rows as lists of JSON values."""
        before = f"SET search_path = {search_path};" if search_path is not None else ""
        text = f"{before} SELECT coalesce(json_agg(to_json(r)), '[]') FROM ({sql}) r"
        done = subprocess.run([*self.command, "-c", text], capture_output=True, check=False)
        if done.returncode != 0:
            raise RuntimeError(done.stderr.decode() + sql)
        return [list(row.values()) for row in json.loads(done.stdout.decode("utf-8"), strict=False)]


class Text:
    """A server-made text, taken apart from the front."""

    def __init__(self, text):
        self.rest = text

    def take(self, word):
        if not self.rest.startswith(word):
            return False
        self.rest = self.rest[len(word):]
        return True

    def name(self):
        match = re.match(r'"((?:[^"]|"")*)"|([^\s(),."]+)', self.rest)
        self.rest = self.rest[match.end():]
        return match.group(1).replace('""', '"') if match.group(1) is not None else match.group(2)

    def qualified(self):
        first = self.name()
        return (first, self.name()) if self.take(".") else ("", first)

    def items(self):
        """What stands between here and the closing parenthesis, cut at its commas."""
        assert self.take("("), self.rest
        items, depth, begin, at = [], 0, 0, 0
        while True:
            c = self.rest[at]
            if c in "\"'":
                escapes = c == "'" and at > 0 and self.rest[at - 1] == "E"
                at += 1
                while self.rest[at] != c:
                    at += 2 if escapes and self.rest[at] == "\\" else 1
            elif c in "([":
                depth += 1
            elif c == ")" and depth == 0 or c == "," and depth == 0:
                items.append(self.rest[begin:at].strip())
                if c == ")":
                    self.rest = self.rest[at + 1:]
                    return items
                begin = at + 1
            elif c in ")]":
                depth -= 1
            at += 1

    def names(self):
        return [Text(item).name() for item in self.items()]


def deferrable(text):
    if text.take(" DEFERRABLE"):
        return "deferred" if text.take(" INITIALLY DEFERRED") else "immediate"
    return None


ACTION = r"(NO ACTION|RESTRICT|CASCADE|SET NULL|SET DEFAULT)"
USER = "n.nspname !~ '^pg_' AND n.nspname <> 'information_schema'"


def own(column, catalog):
    """Not a part of an extension."""
    return (f"NOT EXISTS (SELECT FROM pg_depend e WHERE e.deptype = 'e' AND e.objid = {column} "
            f"AND e.classid = '{catalog}'::regclass)")


def foreign_key(text):
    assert text.take("FOREIGN KEY "), text.rest
    columns = text.names()
    assert text.take(" REFERENCES "), text.rest
    target = text.qualified()
    value = {"columns": columns, "target": target, "target columns": text.names(), "update": "no action",
             "delete": "no action", "match": "simple", "deferrable": None, "enforced": True}
    if text.take(" MATCH FULL"):
        value["match"] = "full"
    for what in ("UPDATE", "DELETE"):
        match = re.match(f" ON {what} {ACTION}", text.rest)
        if match:
            text.rest = text.rest[match.end():]
            value[what.lower()] = match.group(1).lower()
            if what == "DELETE" and text.rest.startswith(" ("):
                text.take(" ")
                value["on delete columns"] = ", ".join(text.names())
    value["deferrable"] = deferrable(text)
    if text.take(" NOT VALID"):
        value["validated"] = "no"
    assert not text.rest, text.rest
    return value


def with_schema(schema, name):
    quoted = ['"' + part.replace('"', '""') + '"' for part in (schema, name)]
    return ".".join(quoted) if schema else name


def read(arguments):
    shell = Shell(arguments)
    facts = {}
    for name, owner, comment in shell.rows(
            f"SELECT n.nspname, n.nspowner::regrole::text, obj_description(n.oid, 'pg_namespace') FROM pg_namespace n WHERE {USER}"):
        facts[("schema", name)] = {"owner": Text(owner).name()}
        if comment is not None:
            facts[("comment", "schema", name)] = comment
    tables(shell, facts)
    columns(shell, facts)
    constraints(shell, facts)
    indexes(shell, facts)
    objects(shell, facts)
    routines(shell, facts)
    return facts


def tables(shell, facts):
    for (schema, name, kind, persistence, partition, comment, parent_schema, parent, parents, text, bound, key, options, typed, security,
         server, server_options, column_options) in shell.rows(
            f"""SELECT n.nspname, c.relname, c.relkind, c.relpersistence, c.relispartition, obj_description(c.oid, 'pg_class') AS comment, pn.nspname AS ps,
                p.relname AS pr, (SELECT json_agg(json_build_array(qn.nspname, q.relname) ORDER BY inhseqno) FROM pg_inherits h
                 JOIN pg_class q ON q.oid = h.inhparent JOIN pg_namespace qn ON qn.oid = q.relnamespace WHERE inhrelid = c.oid) AS parents,
                CASE WHEN c.relkind IN ('v', 'm') THEN pg_get_viewdef(c.oid) END AS viewdef, pg_get_expr(c.relpartbound, c.oid) AS bound,
                pg_get_partkeydef(c.oid) AS key, c.reloptions::text, CASE WHEN c.reloftype <> 0 THEN c.reloftype::regtype::text END AS typed,
                c.relrowsecurity, (SELECT json_build_array(srvname, srvtype, srvversion, srvoptions::text, fdwname, CASE fdwhandler WHEN 0 THEN 'NO HANDLER' END)
                 FROM pg_foreign_server s JOIN pg_foreign_data_wrapper w ON w.oid = s.srvfdw WHERE s.oid = f.ftserver) AS srv, f.ftoptions::text,
                (SELECT array_agg(v ORDER BY a.attnum, o)::text FROM pg_attribute a, LATERAL (VALUES (1, a.attname::text), (2, a.attfdwoptions::text)) x(o, v)
                 WHERE a.attrelid = c.oid AND c.relkind = 'f' AND a.attfdwoptions IS NOT NULL) AS column_options
                FROM pg_class c JOIN pg_namespace n ON n.oid = c.relnamespace
                LEFT JOIN pg_inherits i ON i.inhrelid = c.oid AND c.relispartition LEFT JOIN pg_class p ON p.oid = i.inhparent LEFT JOIN pg_namespace pn ON pn.oid = p.relnamespace
                LEFT JOIN pg_foreign_table f ON f.ftrelid = c.oid
                WHERE c.relkind IN ('r', 'p', 'v', 'm', 'f') AND {USER} AND {own("c.oid", "pg_class")}"""):
        of = (schema, name)
        facts[("table", *of)] = "partition" if partition else {
            "r": "table", "p": "partitioned table", "v": "view", "m": "materialized view", "f": "foreign table"}[kind]
        if comment is not None:
            facts[("comment", "table", *of)] = comment
        if text is not None:
            facts[("view text", *of)] = text
        if partition:
            facts[("partition of", *of)] = (parent_schema, parent)
        elif parents:
            facts[("table option", *of, "inherits")] = ", ".join(n if s == schema else f"{s}.{n}" for s, n in parents)
        for option, value in (("partition bound", bound), ("partition key", key), ("storage parameters", options), ("of type", typed),
                              *zip(("foreign server", "server type", "server version", "server options", "foreign wrapper", "wrapper clauses"), server or ()),
                              ("foreign options", server_options), ("column options", column_options),
                              ("unlogged", "yes" if persistence == "u" else None), ("row security", "yes" if security else None)):
            if value is not None:
                facts[("table option", *of, option)] = value


def columns(shell, facts):
    identity = {"ALWAYS": "always", "BY DEFAULT": "by default", None: None}
    told = {}
    for row in shell.rows("""SELECT table_schema, table_name, column_name, is_nullable, column_default, is_identity, identity_generation,
                             is_generated, generation_expression, collation_name FROM information_schema.columns
                             WHERE table_schema !~ '^pg_' AND table_schema <> 'information_schema'"""):
        told[tuple(row[:3])] = row[3:]
    position = 0
    last = None
    for (schema, table, name, type_text, not_null, default, generated, number, comment, collation, type_collation) in shell.rows(
            f"""SELECT n.nspname, c.relname, a.attname, format_type(a.atttypid, a.atttypmod) || repeat('[]', greatest(a.attndims - 1, 0)) AS t, a.attnotnull,
                pg_get_expr(d.adbin, d.adrelid) AS d, a.attgenerated, a.attnum, col_description(c.oid, a.attnum) AS comment, l.oid::regcollation::text, tl.oid::regcollation::text AS tcoll
                FROM pg_attribute a JOIN pg_class c ON c.oid = a.attrelid JOIN pg_namespace n ON n.oid = c.relnamespace JOIN pg_type t ON t.oid = a.atttypid
                LEFT JOIN pg_attrdef d ON d.adrelid = c.oid AND d.adnum = a.attnum
                LEFT JOIN pg_collation l ON l.oid = a.attcollation LEFT JOIN pg_collation tl ON tl.oid = t.typcollation
                WHERE a.attnum > 0 AND NOT a.attisdropped AND c.relkind IN ('r', 'p', 'v', 'm', 'f') AND {USER} AND {own("c.oid", "pg_class")}
                ORDER BY c.oid, a.attnum"""):
        position = position + 1 if last == (schema, table) else 1
        last = (schema, table)
        at = (schema, table, name)
        facts[("column", *at)] = position
        facts[("type", *at)] = type_text
        facts[("nullable", *at)] = not not_null
        if comment is not None:
            facts[("comment", "column", *at)] = comment
        if collation != type_collation:
            facts[("collation", *at)] = with_schema(*Text(collation).qualified())
        if generated:
            facts[("generated", *at)] = ("stored", default)
        elif default is not None:
            facts[("default", *at)] = default
        if at in told:  # information_schema has no materialized views, and nothing that the user may not see
            nullable, default_told, is_identity, generation, is_generated, expression, collation_told = told[at]
            assert (default_told if is_generated == "NEVER" else expression) == default, (at, told[at])
            if is_identity == "YES":
                facts[("identity", *at)] = identity[generation]
            assert nullable == ("NO" if not_null else "YES") or nullable == "NO" and type_text, (at, told[at])
            if collation_told is not None and '"' not in facts.get(("collation", *at), ""):
                assert facts.get(("collation", *at)) in (collation_told, None), (at, told[at])


def constraints(shell, facts):
    for schema, table, name, kind, text, comment, copy in shell.rows(
            f"""SELECT n.nspname, c.relname, o.conname, o.contype, pg_get_constraintdef(o.oid) AS def, obj_description(o.oid, 'pg_constraint') AS comment, o.conparentid <> 0 AS copy
                FROM pg_constraint o JOIN pg_class c ON c.oid = o.conrelid JOIN pg_namespace n ON n.oid = c.relnamespace
                WHERE o.contype IN ('p', 'u', 'f') AND {USER} AND {own("c.oid", "pg_class")}""", "''"):
        if kind == "f" and copy:
            continue  # a copy of a partition
        of = (schema, table, name)
        parts = Text(text)
        if kind == "f":
            what = "foreign key"
            facts[(what, *of)] = foreign_key(parts)
        else:
            what = "primary key" if kind == "p" else "unique key"
            value = {}
            parts.take("PRIMARY KEY ") or parts.take("UNIQUE ")
            parts.take("NULLS NOT DISTINCT ")  # that, and what it includes, is told of its index
            value["columns"] = parts.names()
            if parts.take(" INCLUDE "):
                parts.names()
            value["deferrable"] = deferrable(parts)
            assert not parts.rest, parts.rest
            facts[(what, *of)] = value
        if comment is not None:
            facts[("comment", what, *of)] = comment
    for schema, table, name, text, comment in shell.rows(
            f"""SELECT n.nspname, c.relname, o.conname, pg_get_constraintdef(o.oid) AS def, obj_description(o.oid, 'pg_constraint') AS comment
                FROM pg_constraint o JOIN pg_class c ON c.oid = o.conrelid JOIN pg_namespace n ON n.oid = c.relnamespace
                WHERE o.contype IN ('c', 'x') AND {USER} AND {own("c.oid", "pg_class")}"""):
        found = {}
        if text.endswith(" NOT VALID"):
            text = text[:-len(" NOT VALID")]
            found["validated"] = "no"
        if text.endswith(" NO INHERIT"):
            text = text[:-len(" NO INHERIT")]
            found["no inherit"] = "1"
        if text.startswith("CHECK ("):
            text = text[len("CHECK ("):-1]
        else:
            rest = Text(text[-len(" DEFERRABLE INITIALLY DEFERRED"):])
            found["deferrable"] = ("deferred" if text.endswith(" DEFERRABLE INITIALLY DEFERRED") else
                                   "immediate" if text.endswith(" DEFERRABLE") else None)
        at = ("check", schema, table, name, text)
        facts[at] = 1
        for option, value in found.items():
            if value is not None:
                facts[("check option", *at[1:], option)] = value
        if comment is not None:
            facts[("comment", *at)] = comment
    keys = {}
    for at, value in facts.items():
        if at[0] in ("primary key", "unique key"):
            keys.setdefault(at[1:3], []).append(set(value["columns"]))
    for at, value in list(facts.items()):
        if at[0] == "foreign key":
            facts[("one to one", *at[1:])] = set(value["columns"]) in keys.get(at[1:3], [])


def index_parts(shell, text):
    """The text of pg_get_indexdef as a value; the operator classes of keys are left to the text."""
    parts = Text(text)
    unique = parts.take("CREATE UNIQUE INDEX ")
    unique or parts.take("CREATE INDEX ")
    name = parts.name()
    assert parts.take(" ON "), text
    parts.take("ONLY ")
    parts.qualified()
    assert parts.take(" USING "), text
    value = {"unique": unique, "method": parts.name(), "predicate": None, "parts": []}
    parts.take(" ")
    for item in parts.items():
        value["parts"].append(index_part(item))
    if parts.take(" INCLUDE "):
        value["parts"] += [{"column": Text(i).name(), "expression": None, "descending": False, "included": True} for i in parts.items()]
    if parts.take(" NULLS NOT DISTINCT"):
        value["nulls not distinct"] = "yes"
    if parts.take(" WITH "):
        value["storage parameters"] = "{" + ",".join(item.replace("'", "") for item in parts.items()) + "}"
    if parts.take(" WHERE "):
        value["predicate"] = parts.rest
    else:
        assert not parts.rest, text
    return name, value


def index_part(item):
    part = {"column": None, "expression": None, "descending": False, "included": False}
    nulls = None
    for word in ("FIRST", "LAST"):
        if item.endswith(" NULLS " + word):
            item, nulls = item[:-len(" NULLS " + word)], word.lower()
    if item.endswith(" DESC"):
        item, part["descending"] = item[:-len(" DESC")], True
    if nulls is not None:
        part["nulls"] = nulls
    text = Text(item)
    if item.startswith("("):
        (inside,) = text.items()
        part["expression"] = f"({inside})"
    else:
        match = re.match(r'((?:"(?:[^"]|"")*"|[^\s(),."]+)(?:\.(?:"(?:[^"]|"")*"|[^\s(),."]+))?)\(', item)
        if match or re.match(r"(COALESCE|CAST|GREATEST|LEAST|NULLIF|EXTRACT|SUBSTRING|OVERLAY|POSITION|TRIM)\(", item):
            text.rest = item[item.index("(", match.end() - 1 if match else 0):]
            text.items()
            part["expression"] = item[:len(item) - len(text.rest)]
        else:
            part["column"] = text.name()
    if text.take(" COLLATE "):
        part["collation"] = with_schema(*text.qualified())
    if text.take(" "):
        part["operator class"] = text.qualified()[1]
        if text.rest.startswith(" (") or text.rest.startswith("("):
            part["operator class options"] = text.rest.strip()[1:-1]
            text.rest = ""
    assert not text.rest, (item, text.rest)
    return part


def indexes(shell, facts):
    for schema, table, name, text, valid, comment in shell.rows(
            f"""SELECT n.nspname, c.relname, x.relname AS index, pg_get_indexdef(x.oid) AS def, i.indisvalid, obj_description(x.oid, 'pg_class') AS comment
                FROM pg_index i JOIN pg_class x ON x.oid = i.indexrelid JOIN pg_class c ON c.oid = i.indrelid JOIN pg_namespace n ON n.oid = c.relnamespace
                WHERE c.relkind IN ('r', 'p', 'm') AND {USER} AND {own("c.oid", "pg_class")}"""):
        told, value = index_parts(shell, text)
        assert told == name, (told, name)
        if not valid:
            value["valid"] = "no"
        facts[("index", schema, table, name)] = value
        if comment is not None:
            facts[("comment", "index", schema, table, name)] = comment


def objects(shell, facts):
    for schema, table, name, text, enabled, comment in shell.rows(
            f"""SELECT n.nspname, c.relname, g.tgname, pg_get_triggerdef(g.oid) AS def, g.tgenabled, obj_description(g.oid, 'pg_trigger') AS comment FROM pg_trigger g
                JOIN pg_class c ON c.oid = g.tgrelid JOIN pg_namespace n ON n.oid = c.relnamespace WHERE NOT g.tgisinternal AND {USER} AND {own("c.oid", "pg_class")}"""):
        match = re.match(r'CREATE (?:CONSTRAINT )?TRIGGER (?:"(?:[^"]|"")*"|[^\s"]+) (BEFORE|AFTER|INSTEAD OF) (.*?) ON ', text, re.S)
        events = [(e.lower() if not e.startswith("UPDATE OF") else "update of " + ", ".join(Text(c).name() for c in e[len("UPDATE OF "):].split(", ")))
                  for e in match.group(2).split(" OR ")]
        order = ["insert", "update", "delete", "truncate"]
        events.sort(key=lambda e: order.index(e.split(" ")[0]))
        value = {"timing": match.group(1).lower(), "events": ", ".join(events), "text": text}
        if enabled != "O":
            value["enabled"] = {"D": "no", "R": "replica", "A": "always"}[enabled]
        facts[("trigger", schema, table, name)] = value
        if comment is not None:
            facts[("comment", "trigger", schema, table, name)] = comment
    for schema, name, kind, base, not_null, default, labels, attributes, checks, comment, collation in shell.rows(
            f"""SELECT n.nspname, t.typname, t.typtype, CASE t.typtype WHEN 'd' THEN format_type(t.typbasetype, t.typtypmod) WHEN 'r' THEN g.rngsubtype::regtype::text END AS base,
                t.typnotnull, pg_get_expr(t.typdefaultbin, 0) AS d, (SELECT array_agg(enumlabel::text ORDER BY enumsortorder) FROM pg_enum e WHERE e.enumtypid = t.oid) AS labels,
                (SELECT json_agg(json_build_array(attname, format_type(atttypid, atttypmod)) ORDER BY attnum) FROM pg_attribute a WHERE a.attrelid = t.typrelid AND attnum > 0 AND NOT attisdropped) AS attributes,
                (SELECT json_agg(json_build_array(conname, pg_get_constraintdef(o.oid), obj_description(o.oid, 'pg_constraint'))) FROM pg_constraint o WHERE o.contypid = t.oid) AS checks,
                obj_description(t.oid, 'pg_type') AS comment,
                (SELECT l.oid::regcollation::text FROM pg_collation l WHERE l.oid = t.typcollation AND t.typcollation <> b.typcollation) AS coll
                FROM pg_type t JOIN pg_namespace n ON n.oid = t.typnamespace LEFT JOIN pg_range g ON g.rngtypid = t.oid LEFT JOIN pg_type b ON b.oid = t.typbasetype
                WHERE t.typtype IN ('e', 'd', 'r', 'c') AND (t.typtype <> 'c' OR (SELECT relkind FROM pg_class k WHERE k.oid = t.typrelid) = 'c') AND {USER} AND {own("t.oid", "pg_type")}"""):
        at = ("user type", schema, name)
        checks = [(c, re.fullmatch(r"CHECK \((.*)\)( NOT VALID)?", text, re.S).group(1), note) for c, text, note in checks or ()]
        value = {"kind": {"e": "enum", "d": "domain", "r": "range", "c": "composite"}[kind], "base": base, "nullable": not not_null,
                 "default": default, "labels": labels or [], "attributes": [tuple(a) for a in attributes or ()],
                 "checks": sorted((c, text) for c, text, _ in checks)}
        if collation is not None:
            value["collation"] = with_schema(*Text(collation).qualified())
        facts[at] = value
        if comment is not None:
            facts[("comment", *at)] = comment
        for check, _, note in checks:
            if note is not None:
                facts[("comment", "check", *at[1:], check)] = note
    for schema, name, kind, start, increment, minimum, maximum, cycle, cache, table, column, internal, comment in shell.rows(
            f"""SELECT n.nspname, s.sequencename, s.data_type::text, s.start_value::text, s.increment_by::text, s.min_value::text, s.max_value::text, s.cycle, s.cache_size::text,
                o.relname, a.attname, d.deptype, obj_description(c.oid, 'pg_class') AS comment FROM pg_sequences s JOIN pg_namespace n ON n.nspname = s.schemaname JOIN pg_class c ON c.relname = s.sequencename AND c.relnamespace = n.oid
                LEFT JOIN pg_depend d ON d.objid = c.oid AND d.classid = 'pg_class'::regclass AND d.refclassid = 'pg_class'::regclass AND d.deptype IN ('a', 'i') AND d.refobjsubid > 0
                LEFT JOIN pg_class o ON o.oid = d.refobjid LEFT JOIN pg_attribute a ON a.attrelid = d.refobjid AND a.attnum = d.refobjsubid WHERE {USER} AND {own("c.oid", "pg_class")}"""):
        at = ("sequence", schema, name)
        facts[at] = {"type": kind, "start": start, "increment": increment, "minimum": minimum, "maximum": maximum, "cycle": cycle, "owner": (table, column)}
        if cache != "1":
            facts[at]["cache"] = cache
        if internal == "i":
            facts[at]["identity"] = "yes"
        if comment is not None:
            facts[("comment", *at)] = comment


def setting(name, value):
    return f"SET {name} TO " + (value if name == "search_path" else "'" + value.replace("'", "''") + "'")


def aggregate_text(row, parallel):
    """What stands in the parentheses of CREATE AGGREGATE."""
    clauses = []
    for word, column in (("SFUNC", "aggtransfn"), ("STYPE", "aggtranstype"), ("SSPACE", "aggtransspace"), ("FINALFUNC", "aggfinalfn"),
                         ("FINALFUNC_EXTRA", "aggfinalextra"), ("FINALFUNC_MODIFY", "aggfinalmodify"), ("COMBINEFUNC", "aggcombinefn"),
                         ("SERIALFUNC", "aggserialfn"), ("DESERIALFUNC", "aggdeserialfn"), ("INITCOND", "agginitval"), ("MSFUNC", "aggmtransfn"),
                         ("MINVFUNC", "aggminvtransfn"), ("MSTYPE", "aggmtranstype"), ("MSSPACE", "aggmtransspace"), ("MFINALFUNC", "aggmfinalfn"),
                         ("MFINALFUNC_EXTRA", "aggmfinalextra"), ("MFINALFUNC_MODIFY", "aggmfinalmodify"), ("MINITCOND", "aggminitval"),
                         ("SORTOP", "aggsortop")):
        value = row[column]
        if word.endswith("_MODIFY"):
            value = {"r": "READ_ONLY", "s": "SHAREABLE", "w": "READ_WRITE"}[value] if row[column.replace("modify", "fn")] != "-" else None
        elif word in ("STYPE", "MSTYPE"):
            value = {"25": "text", "23": "integer", "2281": "internal", "0": None}[str(value)]
        elif word == "SORTOP":
            value = {"0": None, "666": "OPERATOR(pg_catalog.>)"}[str(value)]
        elif word.endswith("COND") and value is not None:
            value = "'" + value.replace("'", "''") + "'"
        if value not in (None, "-", 0, False):
            clauses.append(word if value is True else f"{word} = {value}")
    if parallel != "u":
        clauses.append("PARALLEL = " + {"s": "SAFE", "r": "RESTRICTED"}[parallel])
    return ", ".join(clauses)


def routines(shell, facts):
    modes = {"IN": "in", "OUT": "out", "INOUT": "inout", "VARIADIC": "variadic", "TABLE": "table"}
    for (schema, name, kind, arguments, result, language, text, body, volatility, strict, definer, comment, parameters, parallel, leakproof, cost, rows,
         settings, library, aggregate, ordered) in shell.rows(
            f"""SELECT n.nspname, p.proname, p.prokind, pg_get_function_arguments(p.oid) AS args, pg_get_function_result(p.oid) AS result, l.lanname, p.prosrc, pg_get_function_sqlbody(p.oid) AS body,
                p.provolatile, p.proisstrict, p.prosecdef, obj_description(p.oid, 'pg_proc') AS comment,
                (SELECT json_agg(json_build_array(CASE WHEN coalesce(p.proargnames[i], '') <> '' THEN p.proargnames[i] END, coalesce(p.proargmodes[i], 'i'), format_type(coalesce(p.proallargtypes[i], p.proargtypes[i - 1]), NULL),
                 pg_get_function_arg_default(p.oid, i)) ORDER BY i) FROM generate_series(1, coalesce(array_length(p.proallargtypes, 1), p.pronargs)) i) AS parameters,
                p.proparallel, p.proleakproof, p.procost, CASE WHEN p.proretset THEN p.prorows ELSE 1000 END AS rws, to_json(p.proconfig), p.probin,
                (SELECT row_to_json(a) FROM pg_aggregate a WHERE a.aggfnoid = p.oid) AS agg,
                (SELECT a.aggkind <> 'n' FROM pg_aggregate a WHERE a.aggfnoid = p.oid) AS ordered
                FROM pg_proc p JOIN pg_namespace n ON n.oid = p.pronamespace JOIN pg_language l ON l.oid = p.prolang WHERE {USER} AND {own("p.oid", "pg_proc")}
                AND NOT EXISTS (SELECT 1 FROM pg_depend x WHERE x.objid = p.oid AND x.classid = 'pg_proc'::regclass AND x.deptype = 'i')"""):
        letters = {"i": "in", "o": "out", "b": "inout", "v": "variadic", "t": "table"}
        made = [(a, letters[m], t, d) for a, m, t, d in parameters or ()]
        kinds = {"f": "function", "p": "procedure", "a": "aggregate", "w": "window"}
        at = ("routine", schema, kinds[kind], name, tuple(made))
        if aggregate is not None:
            text = aggregate_text(aggregate, parallel)
        value = {"result": result, "language": language, "text": body if body is not None else text}
        for option, found in (("parallel", {"s": "safe", "r": "restricted"}.get(parallel)), ("leakproof", "yes" if leakproof else None),
                              ("cost", None if aggregate or cost == (1 if language in ("c", "internal") else 100) else str(cost)),
                              ("rows", None if rows == 1000 else str(rows)), ("library", library), ("arguments", arguments if ordered else None),
                              ("settings", " ".join(setting(*each.split("=", 1)) for each in settings) if settings else None)):
            if found is not None:
                value[option] = found
        for option, found in (("volatility", {"i": "immutable", "s": "stable", "v": None}[volatility]), ("strict", "yes" if strict else None),
                              ("security definer", "yes" if definer else None)):
            if found is not None:
                value[option] = found
        facts[at] = value
        if comment is not None:
            facts[("comment", *at)] = comment
