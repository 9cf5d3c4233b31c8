-- Generated tables of DB2 11.5: BULK.BULK_000001 and so on.
INSERT INTO SYSCAT.SCHEMATA VALUES ('BULK    ', 'DB2INST1', NULL);
INSERT INTO SYSCAT.TABLES SELECT 'BULK    ', printf('BULK_%06d', n), 'T', NULL, NULL, 'N', NULL FROM scale_table;
INSERT INTO SYSCAT.COLUMNS
  SELECT 'BULK    ', printf('BULK_%06d', t.n), printf('C%02d', c.n), c.n - 1, 'SYSIBM  ',
         CASE c.n % 5 WHEN 3 THEN 'VARCHAR' WHEN 4 THEN 'DECIMAL' WHEN 0 THEN 'DATE' ELSE 'INTEGER' END,
         CASE c.n % 5 WHEN 3 THEN 40 WHEN 4 THEN 9 ELSE 4 END, CASE c.n % 5 WHEN 4 THEN 2 ELSE 0 END, CASE c.n % 5 WHEN 3 THEN 'OCTETS' END,
         CASE c.n % 5 WHEN 3 THEN 40 END, NULL, CASE c.n WHEN 1 THEN 'N' ELSE 'Y' END, CASE c.n % 5 WHEN 3 THEN 1208 ELSE 0 END, '', 'N', '', NULL, NULL,
         CASE c.n WHEN 1 THEN 1 END
  FROM scale_table t JOIN scale_column c;
INSERT INTO SYSCAT.TABCONST SELECT printf('PK_BULK_%06d', n), 'BULK    ', printf('BULK_%06d', n), 'P', 'Y', NULL FROM scale_table;
INSERT INTO SYSCAT.TABCONST SELECT printf('FK_BULK_%06d_%d', table_number, k), 'BULK    ', printf('BULK_%06d', table_number), 'F', 'Y', NULL FROM scale_key;
INSERT INTO SYSCAT.KEYCOLUSE SELECT printf('PK_BULK_%06d', n), 'BULK    ', printf('BULK_%06d', n), 'C01', 1 FROM scale_table;
INSERT INTO SYSCAT.KEYCOLUSE SELECT printf('FK_BULK_%06d_%d', table_number, k), 'BULK    ', printf('BULK_%06d', table_number), printf('C%02d', column_number), 1
  FROM scale_key;
INSERT INTO SYSCAT."REFERENCES" SELECT printf('FK_BULK_%06d_%d', table_number, k), 'BULK    ', printf('BULK_%06d', table_number),
  printf('PK_BULK_%06d', referenced), 'BULK    ', printf('BULK_%06d', referenced), 1, 'A', 'A', '', '' FROM scale_key;
INSERT INTO SYSCAT.INDEXES SELECT 'BULK    ', printf('PK_BULK_%06d', n), 'BULK    ', printf('BULK_%06d', n), 'P', 'REG', NULL FROM scale_table;
INSERT INTO SYSCAT.INDEXCOLUSE SELECT 'BULK    ', printf('PK_BULK_%06d', n), 'C01', 1, 'A', NULL FROM scale_table;
INSERT INTO SYSCAT.INDEXES SELECT 'BULK    ', printf('IX_BULK_%06d_%d', table_number, k), 'BULK    ', printf('BULK_%06d', table_number), 'D', 'REG', NULL
  FROM scale_key;
INSERT INTO SYSCAT.INDEXCOLUSE SELECT 'BULK    ', printf('IX_BULK_%06d_%d', table_number, k), printf('C%02d', column_number), 1, 'A', NULL FROM scale_key;
