-- Generated tables of DB2: BULK_000001 and so on, in the schema BULK.
INSERT INTO syscat.tables (tabschema, tabname, type, status, colcount)
  SELECT 'BULK', printf('BULK_%06d', n), 'T', 'N', (SELECT columns FROM sim_scale) FROM scale_table;
INSERT INTO syscat.columns (tabschema, tabname, colname, colno, typeschema, typename, length, scale, nulls, keyseq)
  SELECT 'BULK', printf('BULK_%06d', t.n), printf('C%02d', c.n), c.n - 1,
         CASE c.n % 5 WHEN 0 THEN 'LIBRARY' ELSE 'SYSIBM' END,
         CASE c.n % 5 WHEN 3 THEN 'VARCHAR' WHEN 4 THEN 'DECIMAL' WHEN 0 THEN 'EMAIL' ELSE 'INTEGER' END,
         CASE c.n % 5 WHEN 3 THEN 40 WHEN 4 THEN 9 WHEN 0 THEN 120 ELSE 4 END,
         CASE c.n % 5 WHEN 4 THEN 2 ELSE 0 END, CASE c.n WHEN 1 THEN 'N' ELSE 'Y' END, CASE c.n WHEN 1 THEN 1 END
  FROM scale_table t JOIN scale_column c;
INSERT INTO syscat.indexes (indschema, indname, tabschema, tabname, uniquerule, colcount)
  SELECT 'BULK', printf('SQL_PK_%06d', n), 'BULK', printf('BULK_%06d', n), 'P', 1 FROM scale_table;
INSERT INTO syscat.indexcoluse SELECT 'BULK', printf('SQL_PK_%06d', n), 'C01', 1, 'A' FROM scale_table;
INSERT INTO syscat."references"
  (constname, tabschema, tabname, refkeyname, reftabschema, reftabname, colcount, deleterule, updaterule, fk_colnames,
   pk_colnames)
  SELECT printf('FK_%06d_%d', table_number, k), 'BULK', printf('BULK_%06d', table_number), printf('SQL_PK_%06d', referenced),
         'BULK', printf('BULK_%06d', referenced), 1, 'A', 'A', printf('%-20s', printf('C%02d', column_number)),
         printf('%-20s', 'C01')
  FROM scale_key;
