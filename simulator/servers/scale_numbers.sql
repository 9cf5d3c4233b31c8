-- What the scale scripts count with. The driver fills sim_scale with the numbers of the connection string.
CREATE TEMP TABLE scale_table (n INTEGER PRIMARY KEY);
INSERT INTO scale_table
  WITH RECURSIVE c(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM c WHERE n < (SELECT tables FROM sim_scale)) SELECT n FROM c;
CREATE TEMP TABLE scale_column (n INTEGER PRIMARY KEY);
INSERT INTO scale_column
  WITH RECURSIVE c(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM c WHERE n < (SELECT columns FROM sim_scale)) SELECT n FROM c;
-- Key k of table n leads from its column k + 1 (the last where there are fewer) to column 1, the primary key, of an
-- earlier table.
CREATE TEMP TABLE scale_key (table_number INTEGER, k INTEGER, column_number INTEGER, referenced INTEGER);
INSERT INTO scale_key
  WITH RECURSIVE c(k) AS (SELECT 1 UNION ALL SELECT k + 1 FROM c WHERE k < (SELECT foreign_keys FROM sim_scale))
  SELECT n, k, min(k + 1, (SELECT columns FROM sim_scale)), 1 + (n * 7919 + k) % max(n - 1, 1)
  FROM scale_table JOIN c WHERE (SELECT foreign_keys FROM sim_scale) > 0;
