-- Generated tables of SQL Server 2019: sales.bulk_000001 and so on.
INSERT INTO sys.objects SELECT printf('bulk_%06d', n), 100000000 + n, NULL, 5, 0, 'U', 'USER_TABLE', 0 FROM scale_table;
INSERT INTO sys.tables SELECT printf('bulk_%06d', n), 100000000 + n, 5, 0, 0, NULL FROM scale_table;
INSERT INTO sys.columns
  SELECT 100000000 + t.n, printf('c%02d', c.n), c.n, y.id, y.id, CASE y.name WHEN 'varchar' THEN 40 ELSE y.length END, CASE y.name WHEN 'decimal' THEN 9 ELSE y.precision END,
         CASE y.name WHEN 'decimal' THEN 2 ELSE 0 END, CASE y.name WHEN 'varchar' THEN 'Latin1_General_CI_AS' END, c.n > 1, 0, 0, 0, 0, 0, 0, 0
  FROM scale_table t JOIN scale_column c
  JOIN (SELECT 1 AS k, 56 AS id, 'int' AS name, 4 AS length, 10 AS precision UNION ALL SELECT 2, 56, 'int', 4, 10 UNION ALL SELECT 3, 167, 'varchar', 40, 0
        UNION ALL SELECT 4, 106, 'decimal', 5, 9 UNION ALL SELECT 0, 40, 'date', 3, 10) y ON y.k = c.n % 5;
INSERT INTO sys.objects SELECT printf('PK_bulk_%06d', n), 200000000 + n, NULL, 5, 100000000 + n, 'PK', 'PRIMARY_KEY_CONSTRAINT', 0 FROM scale_table;
INSERT INTO sys.key_constraints SELECT printf('PK_bulk_%06d', n), 200000000 + n, 5, 100000000 + n, 'PK', 1, 0 FROM scale_table;
INSERT INTO sys.indexes SELECT 100000000 + n, printf('PK_bulk_%06d', n), 1, 1, 'CLUSTERED', 1, 1, 0, 0, 0, NULL FROM scale_table;
INSERT INTO sys.index_columns SELECT 100000000 + n, 1, 1, 1, 1, 0, 0, 0 FROM scale_table;
INSERT INTO sys.indexes SELECT 100000000 + table_number, printf('IX_bulk_%06d_%d', table_number, k), 1 + k, 2, 'NONCLUSTERED', 0, 0, 0, 0, 0, NULL FROM scale_key;
INSERT INTO sys.index_columns SELECT 100000000 + table_number, 1 + k, 1, column_number, 1, 0, 0, 0 FROM scale_key;
INSERT INTO sys.objects SELECT printf('FK_bulk_%06d_%d', table_number, k), 300000000 + table_number * 20 + k, NULL, 5, 100000000 + table_number, 'F',
  'FOREIGN_KEY_CONSTRAINT', 0 FROM scale_key;
INSERT INTO sys.foreign_keys SELECT printf('FK_bulk_%06d_%d', table_number, k), 300000000 + table_number * 20 + k, 5, 100000000 + table_number, 100000000 + referenced, 0, 0, 0, 0
  FROM scale_key;
INSERT INTO sys.foreign_key_columns SELECT 300000000 + table_number * 20 + k, 1, 100000000 + table_number, column_number, 100000000 + referenced, 1 FROM scale_key;
INSERT INTO sys.sysreferences (constid, fkeyid, rkeyid, keycnt, fkey1, rkey1)
  SELECT 300000000 + table_number * 20 + k, 100000000 + table_number, 100000000 + referenced, 1, column_number, 1 FROM scale_key;
