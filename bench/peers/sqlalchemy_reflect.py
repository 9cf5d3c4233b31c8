#!/usr/bin/python3
"""SQLAlchemy's reflection of a whole schema."""
import json
import sys
import time

import sqlalchemy

engine = sqlalchemy.create_engine(sys.argv[1])
start = time.perf_counter()
metadata = sqlalchemy.MetaData()
metadata.reflect(bind=engine, views=True)
print(json.dumps({"peer": "SQLAlchemy reflection", "tables": len(metadata.tables),
                  "columns": sum(len(t.columns) for t in metadata.tables.values()),
                  "seconds": time.perf_counter() - start}))
