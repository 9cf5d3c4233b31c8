-- Generated tables of Informix 14.10: bulk.bulk_000001 and so on. A foreign key uses the index that is there; a primary key has one of its own, whose name
-- begins with a blank.
INSERT INTO informix.systables SELECT printf('bulk_%06d', n), 'bulk', 1000 + n, (SELECT columns FROM sim_scale), 'T' FROM scale_table;
INSERT INTO informix.syscolumns (colname, tabid, colno, coltype, collength, extended_id)
  SELECT printf('c%02d', c.n), 1000 + t.n, c.n,
         CASE c.n % 5 WHEN 3 THEN 13 WHEN 4 THEN 5 WHEN 0 THEN 7 ELSE 2 END + CASE c.n WHEN 1 THEN 256 ELSE 0 END,
         CASE c.n % 5 WHEN 3 THEN 40 WHEN 4 THEN 9 * 256 + 2 ELSE 4 END, 0
  FROM scale_table t JOIN scale_column c;
INSERT INTO informix.sysconstraints SELECT 1000000 + n * 21, printf('pk_bulk_%06d', n), 'bulk', 1000 + n, 'P', printf(' %d_%d', 1000 + n, n * 21) FROM scale_table;
INSERT INTO informix.sysconstraints SELECT 1000000 + table_number * 21 + k, printf('fk_bulk_%06d_%d', table_number, k), 'bulk', 1000 + table_number, 'R',
  printf('ix_bulk_%06d_%d', table_number, k) FROM scale_key;
INSERT INTO informix.sysobjstate SELECT 'C', 'bulk', printf('pk_bulk_%06d', n), 1000 + n, 'E' FROM scale_table;
INSERT INTO informix.sysobjstate SELECT 'C', 'bulk', printf('fk_bulk_%06d_%d', table_number, k), 1000 + table_number, 'E' FROM scale_key;
INSERT INTO informix.sysreferences SELECT 1000000 + table_number * 21 + k, 1000000 + referenced * 21, 1000 + referenced, 'R', 'R', 'N', 'N' FROM scale_key;
INSERT INTO informix.sysindexes SELECT printf(' %d_%d', 1000 + n, n * 21), 'bulk', 1000 + n, 'U', '', 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0 FROM scale_table;
INSERT INTO informix.sysindexes SELECT printf('ix_bulk_%06d_%d', table_number, k), 'bulk', 1000 + table_number, 'D', '', column_number, 0, 0, 0, 0, 0, 0, 0, 0,
  0, 0, 0, 0, 0, 0, 0 FROM scale_key;
