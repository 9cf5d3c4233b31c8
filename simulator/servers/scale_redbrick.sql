-- Generated tables of Red Brick: BULK_000001 and so on, created by BULK.
INSERT INTO rbw_tables (name, type, creator, id) SELECT printf('BULK_%06d', n), 'TABLE', 'BULK', 1000000 + n FROM scale_table;
INSERT INTO rbw_columns (name, tname, seq, type, length, precision, scale, nulls, pkseq, tid)
  SELECT printf('C%02d', c.n), printf('BULK_%06d', t.n), c.n,
         CASE c.n % 5 WHEN 3 THEN 'VARCHAR' WHEN 4 THEN 'DECIMAL' WHEN 0 THEN 'DATE' ELSE 'INTEGER' END,
         CASE c.n % 5 WHEN 3 THEN 40 WHEN 4 THEN 5 WHEN 0 THEN 3 ELSE 4 END,
         CASE c.n % 5 WHEN 3 THEN 0 WHEN 4 THEN 9 WHEN 0 THEN 0 ELSE 10 END,
         CASE c.n % 5 WHEN 4 THEN 2 ELSE 0 END, CASE c.n WHEN 1 THEN 'N' ELSE 'Y' END, CASE c.n WHEN 1 THEN 1 ELSE 0 END,
         1000000 + t.n
  FROM scale_table t JOIN scale_column c;
INSERT INTO rbw_constraints
  SELECT printf('PK_BULK_%06d', n), printf('BULK_%06d', n), 'PRIMARY KEY', 'BULK' FROM scale_table;
INSERT INTO rbw_constraintcolumns SELECT printf('PK_BULK_%06d', n), printf('BULK_%06d', n), 'C01', 1 FROM scale_table;
INSERT INTO rbw_indexes (name, tname, type, creator, "unique")
  SELECT printf('PK_BULK_%06d', n), printf('BULK_%06d', n), 'BTREE', 'BULK', 'Y' FROM scale_table;
INSERT INTO rbw_indexcolumns SELECT printf('PK_BULK_%06d', n), printf('BULK_%06d', n), 'C01', 1 FROM scale_table;
INSERT INTO rbw_constraints
  SELECT printf('FK_BULK_%06d_%d', table_number, k), printf('BULK_%06d', table_number), 'FOREIGN KEY', 'BULK'
  FROM scale_key;
INSERT INTO rbw_constraintcolumns
  SELECT printf('FK_BULK_%06d_%d', table_number, k), printf('BULK_%06d', table_number), printf('C%02d', column_number), 1
  FROM scale_key;
INSERT INTO rbw_relationships
  SELECT printf('BULK_%06d', table_number), printf('FK_BULK_%06d_%d', table_number, k), printf('BULK_%06d', referenced),
         printf('PK_BULK_%06d', referenced), 'NO ACTION'
  FROM scale_key;
