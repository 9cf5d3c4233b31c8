#!/usr/bin/python3
"""The loop that a Python user writes: columns, primary and foreign keys of every table, in dicts."""
import json
import sys
import time

import pyodbc

connection = pyodbc.connect(sys.argv[1])
start = time.perf_counter()
cursor = connection.cursor()
tables = {}
for row in cursor.tables().fetchall():
    if row[3] not in ("TABLE", "VIEW"):
        continue
    if len(sys.argv) > 2 and row[1] != sys.argv[2]:
        continue
    tables[(row[1], row[2])] = {"columns": [], "key": [], "references": []}
columns = 0
for (schema, name), table in tables.items():
    for row in cursor.columns(table=name, schema=schema):
        table["columns"].append((row[3], row[5], row[6], row[10]))
        columns += 1
    table["key"] = [row[3] for row in cursor.primaryKeys(table=name, schema=schema)]
for (schema, name), table in tables.items():
    for row in cursor.foreignKeys(table=name, schema=schema):
        table["references"].append((row[6], row[7], row[3]))
print(json.dumps({"peer": "pyodbc loop", "tables": len(tables), "columns": columns,
                  "seconds": time.perf_counter() - start}))
