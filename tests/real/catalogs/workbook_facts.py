"""The facts of a workbook file, as a dictionary: (what, of whom ...) -> value."""
import json


def options(of):
    return of.get("options", {})


def read(path):
    with open(path, encoding="utf-8") as file:
        return json.load(file)


def key_facts(facts, what, of, key):
    facts[(what, *of)] = {"columns": key["columns"], "deferrable": key.get("deferrable"), **options(key)}
    if "comment" in key:
        facts[("comment", what, *of)] = key["comment"]


def index_part(part):
    return {"column": part.get("column"), "expression": part.get("expression"),
            "descending": part.get("descending", False), "included": part.get("included", False), **options(part)}


def table_facts(facts, table):
    of = (table["owner"], table["name"])
    facts[("table", *of)] = table.get("kind", table["type"])
    for name, value in options(table).items():
        facts[("table option", *of, name)] = value
    if "comment" in table:
        facts[("comment", "table", *of)] = table["comment"]
    if "viewText" in table:
        facts[("view text", *of)] = table["viewText"]
    if "partitionOf" in table:
        facts[("partition of", *of)] = (table["partitionOf"].get("owner", ""), table["partitionOf"]["table"])
    for position, column in enumerate(table["columns"], 1):
        at = (*of, column["name"])
        assert ("column", *at) not in facts, at
        facts[("column", *at)] = position
        facts[("type", *at)] = column.get("databaseType")
        facts[("nullable", *at)] = not column["required"]
        for member in ("default", "identity", "collation"):
            if member in column:
                facts[(member, *at)] = column[member]
        if "generated" in column or "expression" in column:
            facts[("generated", *at)] = (column.get("generated"), column.get("expression"))
        if "comment" in column:
            facts[("comment", "column", *at)] = column["comment"]
        for name, value in options(column).items():
            facts[("column option", *at, name)] = value
        facts[("codes", *at)] = (column["physicalCode"], column["dataType"]["precision"], column["dataType"]["scale"],
                                 column["dataType"]["length"]) if column["dataType"] else None
    if table["primaryKey"]:
        key = table.get("key", {"columns": table["primaryKey"]})
        assert key["columns"] == table["primaryKey"], (of, key, table["primaryKey"])
        assert {c["name"] for c in table["columns"] if c["primaryKey"]} == set(table["primaryKey"]), of
        key_facts(facts, "primary key", (*of, key.get("name")), key)
    for number, key in enumerate(table.get("uniqueKeys", ())):
        name = key.get("name") or tuple(key["columns"])
        while ("unique key", *of, name) in facts:  # two without a name over the same columns
            name = (name, number)
        key_facts(facts, "unique key", (*of, name), key)
    for index in table.get("indexes", ()):
        at = ("index", *of, index.get("name"))
        assert at not in facts, at
        facts[at] = {"unique": index["unique"], "method": index.get("method"), "predicate": index.get("predicate"),
                     "parts": [index_part(part) for part in index["columns"]], **options(index)}
        if "comment" in index:
            facts[("comment", *at)] = index["comment"]
    for check in table.get("checks", ()):
        at = ("check", *of, check.get("name"), check["expression"])
        facts[at] = (facts[at] if at in facts else 0) + 1
        for name, value in options(check).items():
            facts[("check option", *at[1:], name)] = value
        if "comment" in check:
            facts[("comment", *at)] = check["comment"]
    for trigger in table.get("triggers", ()):
        at = ("trigger", *of, trigger["name"])
        facts[at] = {"timing": trigger.get("timing"), "events": trigger.get("events"), "text": trigger.get("text"),
                     **options(trigger)}
        if "comment" in trigger:
            facts[("comment", *at)] = trigger["comment"]


def reference(key, of, columns, target, target_columns):
    return {"columns": columns, "target": target, "target columns": target_columns, "update": key.get("onUpdate"),
            "delete": key.get("onDelete"), "match": key.get("match"), "deferrable": key.get("deferrable"),
            "enforced": key.get("enforced", True), **options(key)}


def foreign_key_facts(facts, tables):
    mirrors = {}
    for table in tables:
        for key in table["foreignKeys"]:
            ends = [key["key"], key["foreignKey"]]
            if key["role"] == "mirror":
                ends.reverse()
            target, source = ends
            of = (source[0]["owner"], source[0]["table"])
            value = reference(key, of, [c["column"] for c in source], (target[0]["owner"], target[0]["table"]),
                              [c["column"] for c in target])
            name = key.get("name") or (tuple(value["columns"]), *value["target"], value["delete"], value["update"])
            at = ("foreign key", *of, name)
            into = facts if key["role"] == "forward" else mirrors
            while at in into:
                at = (*at, "again")
            into[at] = value
            if key["role"] == "forward":
                facts[("one to one", *at[1:])] = key["oneToOne"]
                if "comment" in key:
                    facts[("comment", *at)] = key["comment"]
    forward = {at: value for at, value in facts.items() if at[0] == "foreign key"}
    assert forward == mirrors, "a relationship differs between its two tables"
    for table in tables:
        for key in table.get("outsideKeys", ()):
            target = key["target"]
            of = (table["owner"], table["name"])
            value = reference(key, of, key["columns"], (target.get("owner", ""), target.get("table", "")),
                              target["columns"])
            name = key.get("name") or (tuple(value["columns"]), *value["target"], value["delete"], value["update"])
            at = ("foreign key", *of, name)
            while at in facts:
                at = (*at, "again")
            facts[at] = value
            if "comment" in key:
                facts[("comment", *at)] = key["comment"]


def facts_of(workbook):
    facts = {}
    for schema in workbook.get("schemas", ()):
        facts[("schema", schema["name"])] = options(schema)
        if "comment" in schema:
            facts[("comment", "schema", schema["name"])] = schema["comment"]
    for table in workbook["tables"]:
        table_facts(facts, table)
    foreign_key_facts(facts, workbook["tables"])
    for missing in workbook.get("notRead", ()):
        if missing["kind"] in ("columns", "view_columns") and "name" in missing:
            facts[("does not resolve", missing.get("owner", ""), missing["name"])] = True
    for kind in workbook.get("types", ()):
        at = ("user type", kind["schema"], kind["name"])
        facts[at] = {"kind": kind["kind"], "base": kind.get("baseType"), "nullable": kind.get("nullable", True),
                     "default": kind.get("default"), "labels": kind.get("labels", []),
                     "attributes": [(a["name"], a["type"]) for a in kind.get("attributes", ())],
                     "checks": sorted((c["name"], c["expression"]) for c in kind.get("checks", ())), **options(kind)}
        if "comment" in kind:
            facts[("comment", *at)] = kind["comment"]
        for check in kind.get("checks", ()):
            if "comment" in check:
                facts[("comment", "check", *at[1:], check["name"])] = check["comment"]
    for sequence in workbook.get("sequences", ()):
        at = ("sequence", sequence["schema"], sequence["name"])
        facts[at] = {"type": sequence.get("type"), "start": sequence.get("start"), "increment": sequence.get("increment"),
                     "minimum": sequence.get("minimum"), "maximum": sequence.get("maximum"),
                     "cycle": sequence.get("cycle", False),
                     "owner": (sequence.get("ownerTable"), sequence.get("ownerColumn")), **options(sequence)}
        if "comment" in sequence:
            facts[("comment", *at)] = sequence["comment"]
    for routine in workbook.get("routines", ()):
        parameters = [(p.get("name"), p.get("mode"), p["type"], p.get("default")) for p in routine.get("parameters", ())]
        at = ("routine", routine["schema"], routine["kind"], routine["name"], tuple(parameters))
        assert at not in facts, at
        facts[at] = {"result": routine.get("result"), "language": routine.get("language"), "text": routine.get("text"),
                     **options(routine)}
        if "comment" in routine:
            facts[("comment", *at)] = routine["comment"]
    return facts
