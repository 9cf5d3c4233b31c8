-- Generated tables of Oracle: BULK_000001 and so on, owned by BULK.
INSERT INTO all_tables (owner, table_name) SELECT 'BULK', printf('BULK_%06d', n) FROM scale_table;
INSERT INTO all_catalog SELECT 'BULK', printf('BULK_%06d', n), 'TABLE' FROM scale_table;
INSERT INTO all_objects (owner, object_name, object_type, status)
  SELECT 'BULK', printf('BULK_%06d', n), 'TABLE', 'VALID' FROM scale_table;
INSERT INTO all_tab_columns
  (owner, table_name, column_name, data_type, data_length, data_precision, data_scale, nullable, column_id)
  SELECT 'BULK', printf('BULK_%06d', t.n), printf('C%02d', c.n),
         CASE c.n % 5 WHEN 3 THEN 'VARCHAR2' WHEN 0 THEN 'DATE' ELSE 'NUMBER' END,
         CASE c.n % 5 WHEN 3 THEN 40 WHEN 0 THEN 7 ELSE 22 END,
         CASE c.n % 5 WHEN 1 THEN 10 WHEN 2 THEN 10 WHEN 4 THEN 9 END,
         CASE c.n % 5 WHEN 1 THEN 0 WHEN 2 THEN 0 WHEN 4 THEN 2 END, CASE c.n WHEN 1 THEN 'N' ELSE 'Y' END, c.n
  FROM scale_table t JOIN scale_column c;
INSERT INTO all_constraints (owner, constraint_name, constraint_type, table_name, status)
  SELECT 'BULK', printf('PK_BULK_%06d', n), 'P', printf('BULK_%06d', n), 'ENABLED' FROM scale_table;
INSERT INTO all_cons_columns
  SELECT 'BULK', printf('PK_BULK_%06d', n), printf('BULK_%06d', n), 'C01', 1 FROM scale_table;
INSERT INTO all_indexes
  SELECT 'BULK', printf('PK_BULK_%06d', n), 'BULK', printf('BULK_%06d', n), 'TABLE', 'UNIQUE' FROM scale_table;
INSERT INTO all_ind_columns (index_owner, index_name, table_owner, table_name, column_name, column_position)
  SELECT 'BULK', printf('PK_BULK_%06d', n), 'BULK', printf('BULK_%06d', n), 'C01', 1 FROM scale_table;
INSERT INTO all_constraints
  (owner, constraint_name, constraint_type, table_name, r_owner, r_constraint_name, status)
  SELECT 'BULK', printf('FK_BULK_%06d_%d', table_number, k), 'R', printf('BULK_%06d', table_number), 'BULK',
         printf('PK_BULK_%06d', referenced), 'ENABLED'
  FROM scale_key;
INSERT INTO all_cons_columns
  SELECT 'BULK', printf('FK_BULK_%06d_%d', table_number, k), printf('BULK_%06d', table_number),
         printf('C%02d', column_number), 1
  FROM scale_key;
