-- Generated tables of Oracle 19: BULK.BULK_000001 and so on. The server has a row in the views of comments for each table and column, with or without one,
-- and a check of its own for the column that may not be NULL.
INSERT INTO all_users VALUES ('BULK', 1000, NULL, 'N');
INSERT INTO all_tables SELECT 'BULK', printf('BULK_%06d', n), NULL, 'NO', 'N', 'N', 'NO', 'NO' FROM scale_table;
INSERT INTO all_catalog SELECT 'BULK', printf('BULK_%06d', n), 'TABLE' FROM scale_table;
INSERT INTO all_objects SELECT 'BULK', printf('BULK_%06d', n), 100000 + n, 'TABLE', 'VALID' FROM scale_table;
INSERT INTO all_tab_comments SELECT 'BULK', printf('BULK_%06d', n), 'TABLE', NULL FROM scale_table;
INSERT INTO all_tab_cols
  SELECT 'BULK', printf('BULK_%06d', t.n), printf('C%02d', c.n), CASE c.n % 5 WHEN 3 THEN 'VARCHAR2' WHEN 0 THEN 'DATE' ELSE 'NUMBER' END, NULL,
         CASE c.n % 5 WHEN 3 THEN 40 WHEN 0 THEN 7 ELSE 22 END, CASE c.n % 5 WHEN 1 THEN 10 WHEN 2 THEN 10 WHEN 4 THEN 9 END,
         CASE c.n % 5 WHEN 1 THEN 0 WHEN 2 THEN 0 WHEN 4 THEN 2 END, CASE c.n WHEN 1 THEN 'N' ELSE 'Y' END, c.n, NULL, NULL,
         CASE c.n % 5 WHEN 3 THEN 40 ELSE 0 END, CASE c.n % 5 WHEN 3 THEN 'B' END, 'NO', 'NO', c.n, 'NO', 'YES'
  FROM scale_table t JOIN scale_column c;
INSERT INTO all_col_comments SELECT 'BULK', printf('BULK_%06d', t.n), printf('C%02d', c.n), NULL FROM scale_table t JOIN scale_column c;
INSERT INTO all_constraints SELECT 'BULK', printf('SYS_C%07d', n), 'C', printf('BULK_%06d', n), '"C01" IS NOT NULL', '"C01" IS NOT NULL', NULL, NULL, NULL,
  'ENABLED', 'NOT DEFERRABLE', 'IMMEDIATE', 'GENERATED NAME', 'VALIDATED' FROM scale_table;
INSERT INTO all_constraints SELECT 'BULK', printf('PK_BULK_%06d', n), 'P', printf('BULK_%06d', n), NULL, NULL, NULL, NULL, NULL,
  'ENABLED', 'NOT DEFERRABLE', 'IMMEDIATE', 'USER NAME', 'VALIDATED' FROM scale_table;
INSERT INTO all_constraints SELECT 'BULK', printf('FK_BULK_%06d_%d', table_number, k), 'R', printf('BULK_%06d', table_number), NULL, NULL, 'BULK',
  printf('PK_BULK_%06d', referenced), 'NO ACTION', 'ENABLED', 'NOT DEFERRABLE', 'IMMEDIATE', 'USER NAME', 'VALIDATED' FROM scale_key;
INSERT INTO all_cons_columns SELECT 'BULK', printf('SYS_C%07d', n), printf('BULK_%06d', n), 'C01', NULL FROM scale_table;
INSERT INTO all_cons_columns SELECT 'BULK', printf('PK_BULK_%06d', n), printf('BULK_%06d', n), 'C01', 1 FROM scale_table;
INSERT INTO all_cons_columns SELECT 'BULK', printf('FK_BULK_%06d_%d', table_number, k), printf('BULK_%06d', table_number), printf('C%02d', column_number), 1
  FROM scale_key;
INSERT INTO all_indexes SELECT 'BULK', printf('PK_BULK_%06d', n), 'NORMAL', 'BULK', printf('BULK_%06d', n), 'UNIQUE', 'VISIBLE' FROM scale_table;
INSERT INTO all_ind_columns SELECT 'BULK', printf('PK_BULK_%06d', n), 'BULK', printf('BULK_%06d', n), 'C01', 1, 'ASC' FROM scale_table;
INSERT INTO all_indexes SELECT 'BULK', printf('IX_BULK_%06d_%d', table_number, k), 'NORMAL', 'BULK', printf('BULK_%06d', table_number), 'NONUNIQUE', 'VISIBLE'
  FROM scale_key;
INSERT INTO all_ind_columns SELECT 'BULK', printf('IX_BULK_%06d_%d', table_number, k), 'BULK', printf('BULK_%06d', table_number),
  printf('C%02d', column_number), 1, 'ASC' FROM scale_key;
