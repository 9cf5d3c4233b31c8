-- Generated tables of Dynamic Server: bulk_000001 and so on, owned by bulk.
INSERT INTO informix.systables (tabid, owner, tabname, tabtype, ncols, nindexes, nrows, version)
  SELECT 1000 + n, 'bulk', printf('bulk_%06d', n), 'T', (SELECT columns FROM sim_scale), 1, 0, 65539 FROM scale_table;
INSERT INTO informix.syscolumns (tabid, colno, colname, coltype, collength)
  SELECT 1000 + t.n, c.n, printf('c%02d', c.n),
         CASE WHEN c.n = 1 THEN 262 WHEN c.n % 5 = 3 THEN 13 WHEN c.n % 5 = 4 THEN 5 WHEN c.n % 5 = 0 THEN 0 ELSE 2 END,
         CASE c.n % 5 WHEN 0 THEN 13 WHEN 3 THEN 40 WHEN 4 THEN 2306 ELSE 4 END
  FROM scale_table t JOIN scale_column c;
INSERT INTO informix.sysconstraints (constrid, constrname, owner, tabid, constrtype, idxname)
  SELECT 1000000 + n * 20, printf('u%d_%d', 1000 + n, n * 20), 'bulk', 1000 + n, 'P', printf(' %d_%d', 1000 + n, n * 20)
  FROM scale_table;
INSERT INTO informix.sysindexes (idxname, owner, tabid, idxtype, part1, part2, levels, leaves, nunique)
  SELECT printf(' %d_%d', 1000 + n, n * 20), 'bulk', 1000 + n, 'U', 1, 0, 1, 1, 1 FROM scale_table;
INSERT INTO informix.sysconstraints (constrid, constrname, owner, tabid, constrtype, idxname)
  SELECT 1000000 + table_number * 20 + k, printf('r%d_%d', 1000 + table_number, table_number * 20 + k), 'bulk',
         1000 + table_number, 'R', printf(' %d_%d', 1000 + table_number, table_number * 20 + k)
  FROM scale_key;
INSERT INTO informix.sysindexes (idxname, owner, tabid, idxtype, part1, part2, levels, leaves, nunique)
  SELECT printf(' %d_%d', 1000 + table_number, table_number * 20 + k), 'bulk', 1000 + table_number, 'D', column_number, 0, 1, 1, 1
  FROM scale_key;
INSERT INTO informix.sysreferences (constrid, "primary", ptabid, updrule, delrule, matchtype, pendant)
  SELECT 1000000 + table_number * 20 + k, 1000000 + referenced * 20, 1000 + referenced, 'R', 'R', 'N', 'N' FROM scale_key;
