-- Generated tables of SQL Server: bulk_000001 and so on, owned by dbo.
INSERT INTO sysobjects (name, id, xtype, uid, type)
  SELECT printf('bulk_%06d', n), 100000000 + n, 'U', 1, 'U' FROM scale_table;
INSERT INTO syscolumns (name, id, xtype, xusertype, length, colid, colorder, prec, scale, usertype, isnullable, iscomputed)
  SELECT printf('c%02d', c.n), 100000000 + t.n, y.xtype, y.xusertype,
         CASE y.name WHEN 'varchar' THEN 40 WHEN 'decimal' THEN 5 ELSE y.length END, c.n, c.n,
         CASE y.name WHEN 'varchar' THEN 40 WHEN 'decimal' THEN 9 ELSE y.prec END,
         CASE y.name WHEN 'decimal' THEN 2 ELSE y.scale END, y.usertype, c.n > 1, 0
  FROM scale_table t JOIN scale_column c
       JOIN systypes y ON y.name = CASE c.n % 5 WHEN 1 THEN 'int' WHEN 2 THEN 'int' WHEN 3 THEN 'varchar'
                                     WHEN 4 THEN 'decimal' ELSE 'email' END;
INSERT INTO sysindexes (id, indid, status, keycnt, name)
  SELECT 100000000 + n, 1, 2066, 1, printf('PK_bulk_%06d', n) FROM scale_table;
INSERT INTO sim_index_columns SELECT 100000000 + n, 1, 1, 1 FROM scale_table;
INSERT INTO sysobjects (name, id, xtype, uid, parent_obj)
  SELECT printf('FK_bulk_%06d_%d', table_number, k), 200000000 + table_number * 20 + k, 'F', 1, 100000000 + table_number
  FROM scale_key;
INSERT INTO sysreferences (constid, fkeyid, rkeyid, rkeyindid, keycnt, fkey1, rkey1)
  SELECT 200000000 + table_number * 20 + k, 100000000 + table_number, 100000000 + referenced, 1, 1, column_number, 1
  FROM scale_key;
