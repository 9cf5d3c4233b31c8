-- Generated tables of Universal Server: bulk_000001 and so on, owned by bulk.
INSERT INTO informix.systables (tabid, owner, tabname, tabtype, ncols, nindexes, nrows, version)
  SELECT 1000 + n, 'bulk', printf('bulk_%06d', n), 'T', (SELECT columns FROM sim_scale), 1, 0, 65539 FROM scale_table;
INSERT INTO informix.syscolumns (tabid, colno, colname, coltype, collength, extended_id)
  SELECT 1000 + t.n, c.n, printf('c%02d', c.n),
         CASE WHEN c.n = 1 THEN 262 WHEN c.n % 5 = 0 THEN 2048 WHEN c.n % 5 < 3 THEN 2
              WHEN c.n % 5 = 3 THEN 13 ELSE 5 END,
         CASE c.n % 5 WHEN 0 THEN 13 WHEN 3 THEN 40 WHEN 4 THEN 2306 ELSE 4 END,
         CASE c.n % 5 WHEN 0 THEN 2048 ELSE 0 END
  FROM scale_table t JOIN scale_column c;
INSERT INTO informix.sysconstraints (constrid, constrname, owner, tabid, constrtype, idxname)
  SELECT 1000000 + n * 20, printf('u%d_%d', 1000 + n, n * 20), 'bulk', 1000 + n, 'P', printf(' %d_%d', 1000 + n, n * 20)
  FROM scale_table;
INSERT INTO informix.sysindices (idxname, owner, tabid, idxtype, levels, leaves, nunique, nrows, indexkeys, amid)
  SELECT printf(' %d_%d', 1000 + n, n * 20), 'bulk', 1000 + n, 'U', 1, 1, 1, 1, '1 [1]', 1 FROM scale_table;
INSERT INTO informix.sysconstraints (constrid, constrname, owner, tabid, constrtype, idxname)
  SELECT 1000000 + table_number * 20 + k, printf('r%d_%d', 1000 + table_number, table_number * 20 + k), 'bulk',
         1000 + table_number, 'R', printf(' %d_%d', 1000 + table_number, table_number * 20 + k)
  FROM scale_key;
INSERT INTO informix.sysindices (idxname, owner, tabid, idxtype, levels, leaves, nunique, nrows, indexkeys, amid)
  SELECT printf(' %d_%d', 1000 + table_number, table_number * 20 + k), 'bulk', 1000 + table_number, 'D', 1, 1, 1, 1,
         column_number || ' [1]', 1
  FROM scale_key;
INSERT INTO informix.sysreferences (constrid, "primary", ptabid, updrule, delrule, matchtype, pendant)
  SELECT 1000000 + table_number * 20 + k, 1000000 + referenced * 20, 1000 + referenced, 'R', 'R', 'N', 'N' FROM scale_key;
