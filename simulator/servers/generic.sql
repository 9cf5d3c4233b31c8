-- A server that does not tell its name. It keeps an information schema after the standard, and two
-- owners: the fines belong to the accounts department.
CREATE TABLE information_schema.tables(
  table_schema NVARCHAR(128), table_name NVARCHAR(128), table_type VARCHAR(30));
CREATE TABLE information_schema.columns(
  table_schema NVARCHAR(128), table_name NVARCHAR(128), column_name NVARCHAR(128),
  ordinal_position INTEGER, is_nullable VARCHAR(3), data_type NVARCHAR(128),
  character_maximum_length INTEGER, numeric_precision INTEGER, numeric_scale INTEGER);
CREATE TABLE information_schema.key_column_usage(
  constraint_name NVARCHAR(128), constraint_type VARCHAR(11), table_schema NVARCHAR(128),
  table_name NVARCHAR(128), column_name NVARCHAR(128), ordinal_position INTEGER);
CREATE TABLE information_schema.referential_constraints(
  constraint_name NVARCHAR(128), unique_constraint_name NVARCHAR(128));
CREATE TABLE information_schema.indexes(
  table_schema NVARCHAR(128), table_name NVARCHAR(128), index_name NVARCHAR(128),
  is_unique SMALLINT, ordinal_position SMALLINT, column_name NVARCHAR(128));
CREATE TABLE information_schema.routines(
  routine_schema NVARCHAR(128), routine_name NVARCHAR(128), routine_type VARCHAR(9));
CREATE INDEX information_schema.tables_name ON tables(table_name, table_schema);
CREATE INDEX information_schema.columns_name ON columns(table_name, table_schema);
CREATE INDEX information_schema.keys_name ON key_column_usage(table_name, table_schema);
CREATE INDEX information_schema.keys_constraint ON key_column_usage(constraint_name);
CREATE INDEX information_schema.references_target
  ON referential_constraints(unique_constraint_name);
CREATE INDEX information_schema.indexes_name ON indexes(table_name, table_schema);

CREATE TEMP TABLE seed_owner AS
  SELECT number, name, CASE name WHEN 'fine' THEN 'accounts' ELSE 'library' END AS owner
  FROM seed_table;
INSERT INTO information_schema.tables
  SELECT owner, name, CASE type WHEN 'TABLE' THEN 'BASE TABLE' ELSE type END
  FROM seed_table JOIN seed_owner USING (number, name);
INSERT INTO information_schema.columns
  SELECT o.owner, o.name, c.name, c.position, CASE c.nullable WHEN 0 THEN 'NO' ELSE 'YES' END,
         CASE c.type WHEN 'VARCHAR' THEN 'CHARACTER VARYING' WHEN 'CHAR' THEN 'CHARACTER'
                     WHEN 'DOUBLE' THEN 'DOUBLE PRECISION' WHEN 'TINYINT' THEN 'SMALLINT'
                     WHEN 'TEXT' THEN 'CHARACTER LARGE OBJECT'
                     WHEN 'BLOB' THEN 'BINARY LARGE OBJECT' ELSE c.type END,
         CASE WHEN c.type IN ('CHAR', 'VARCHAR') THEN c.size END,
         CASE c.type WHEN 'DECIMAL' THEN c.size END, c.digits
  FROM seed_column c JOIN seed_owner o ON o.number = c.table_number;
INSERT INTO information_schema.key_column_usage
  SELECT 'pk_' || o.name, 'PRIMARY KEY', o.owner, o.name, c.name, c.key_position
  FROM seed_column c JOIN seed_owner o ON o.number = c.table_number
  WHERE c.key_position IS NOT NULL;
INSERT INTO information_schema.key_column_usage
  SELECT 'fk_' || k.number, 'FOREIGN KEY', o.owner, o.name, k.column_name, k.position
  FROM seed_foreign_key k JOIN seed_owner o ON o.number = k.table_number;
INSERT INTO information_schema.referential_constraints
  SELECT DISTINCT 'fk_' || k.number, 'pk_' || o.name
  FROM seed_foreign_key k JOIN seed_owner o ON o.number = k.target_number;
INSERT INTO information_schema.indexes
  SELECT table_schema, table_name, constraint_name, 1, ordinal_position, column_name
  FROM information_schema.key_column_usage WHERE constraint_type = 'PRIMARY KEY'
  UNION ALL
  SELECT o.owner, o.name, i.name, i.is_unique, i.position, i.column_name
  FROM seed_index i JOIN seed_owner o ON o.number = i.table_number;
INSERT INTO information_schema.routines VALUES
  ('library', 'lend_copy', 'PROCEDURE'), ('library', 'return_copy', 'PROCEDURE'),
  ('accounts', 'fine_of', 'FUNCTION'), ('accounts', 'return_copy', 'PROCEDURE');

-- The information schema describes itself, from its own declarations.
INSERT INTO information_schema.tables
  SELECT 'information_schema', name, 'SYSTEM TABLE'
  FROM pragma_table_list WHERE schema = 'information_schema' AND type = 'table'
                           AND name NOT LIKE 'sqlite%';
INSERT INTO information_schema.columns
  SELECT t.table_schema, t.table_name, c.name, c.cid + 1, 'YES',
         CASE WHEN c.type LIKE '%CHAR%' THEN 'CHARACTER VARYING' ELSE c.type END,
         CASE WHEN c.type LIKE '%CHAR%' THEN 128 END, NULL, NULL
  FROM information_schema.tables t, pragma_table_info(t.table_name, 'information_schema') c
  WHERE t.table_schema = 'information_schema';

CREATE TABLE information_schema.sim_types(
  type_name TEXT PRIMARY KEY, data_type INTEGER, column_size INTEGER, create_params TEXT,
  auto_increment INTEGER, max_scale INTEGER);
INSERT INTO information_schema.sim_types VALUES
  ('CHARACTER', -8, 254, 'length', NULL, NULL),
  ('CHARACTER VARYING', -9, 4000, 'length', NULL, NULL),
  ('CHARACTER LARGE OBJECT', -10, 1073741823, NULL, NULL, NULL),
  ('BINARY LARGE OBJECT', -4, 2147483647, NULL, NULL, NULL),
  ('BOOLEAN', -7, 1, NULL, NULL, NULL),
  ('SMALLINT', 5, 5, NULL, 0, 0), ('INTEGER', 4, 10, NULL, 0, 0), ('BIGINT', -5, 19, NULL, 0, 0),
  ('DECIMAL', 3, 38, 'precision,scale', 0, 38),
  ('REAL', 7, 7, NULL, 0, NULL), ('DOUBLE PRECISION', 8, 15, NULL, 0, NULL),
  ('DATE', 91, 10, NULL, NULL, NULL), ('TIME', 92, 8, NULL, NULL, NULL),
  ('TIMESTAMP', 93, 26, NULL, NULL, 6);

CREATE VIEW information_schema.sim_tables AS
  SELECT table_schema AS owner, table_name AS name,
         CASE table_type WHEN 'BASE TABLE' THEN 'TABLE' ELSE table_type END AS type,
         NULL AS remarks
  FROM tables;
CREATE VIEW information_schema.sim_columns AS
  SELECT table_schema AS owner, table_name, ordinal_position AS position, column_name,
         data_type AS type_name,
         coalesce(character_maximum_length, numeric_precision) AS column_size,
         numeric_scale AS decimal_digits,
         CASE is_nullable WHEN 'NO' THEN 0 ELSE 1 END AS nullable, NULL AS remarks,
         NULL AS column_def
  FROM columns;
CREATE VIEW information_schema.sim_primary_keys AS
  SELECT table_schema AS owner, table_name, ordinal_position AS position, column_name,
         constraint_name AS key_name
  FROM key_column_usage WHERE constraint_type = 'PRIMARY KEY';
CREATE VIEW information_schema.sim_foreign_keys AS
  SELECT p.table_schema AS pk_owner, p.table_name AS pk_table, p.column_name AS pk_column,
         f.table_schema AS fk_owner, f.table_name AS fk_table, f.column_name AS fk_column,
         f.ordinal_position AS position, r.constraint_name AS fk_name,
         r.unique_constraint_name AS pk_name
  FROM key_column_usage p, referential_constraints r, key_column_usage f
  WHERE p.constraint_name = r.unique_constraint_name AND f.constraint_name = r.constraint_name
    AND f.ordinal_position = p.ordinal_position;
CREATE VIEW information_schema.sim_statistics AS
  SELECT table_schema AS owner, table_name, 1 - is_unique AS non_unique, index_name,
         ordinal_position AS position, column_name, 0 AS descending
  FROM indexes;
CREATE VIEW information_schema.sim_procedures AS
  SELECT routine_schema AS owner, routine_name AS name,
         CASE routine_type WHEN 'FUNCTION' THEN 2 ELSE 1 END AS type, NULL AS remarks
  FROM routines;
