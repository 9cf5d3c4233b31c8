-- Sybase SQL Server 11. Close to Microsoft's catalog, with differences that matter: sysobjects has
-- `type` and no `xtype`, and user types are told apart by usertype alone.
CREATE TABLE sysusers(suid INTEGER, uid SMALLINT, gid SMALLINT, name VARCHAR(30));
CREATE TABLE sysobjects(
  name VARCHAR(30), id INTEGER PRIMARY KEY, uid SMALLINT, type CHAR(2), userstat SMALLINT,
  sysstat SMALLINT, indexdel SMALLINT, schemacnt SMALLINT);
CREATE TABLE systypes(
  uid SMALLINT, usertype SMALLINT PRIMARY KEY, "variable" BIT, allownulls BIT, type TINYINT,
  length TINYINT, name VARCHAR(30), prec TINYINT, scale TINYINT, hierarchy TINYINT);
-- status: 8 nulls are allowed, 0x80 an identity column.
CREATE TABLE syscolumns(
  id INTEGER, number SMALLINT, colid TINYINT, status TINYINT, type TINYINT, length TINYINT,
  offset SMALLINT, usertype SMALLINT, name VARCHAR(30), prec TINYINT, scale TINYINT);
-- status: 2 unique, 0x800 primary key.
CREATE TABLE sysindexes(
  name VARCHAR(30), id INTEGER, indid SMALLINT, keycnt SMALLINT, status SMALLINT);
CREATE TABLE sysreferences(
  constrid INTEGER, tableid INTEGER, reftabid INTEGER, keycnt SMALLINT, status SMALLINT,
  fokey1 SMALLINT, fokey2 SMALLINT, refkey1 SMALLINT, refkey2 SMALLINT);
CREATE INDEX sysobjects_name ON sysobjects(name);
CREATE INDEX syscolumns_id ON syscolumns(id, name);
CREATE INDEX sysindexes_id ON sysindexes(id);
CREATE INDEX sysreferences_target ON sysreferences(reftabid);
-- What index_col reads out of the binary keys of an index.
CREATE TABLE sim_index_keys(
  table_name VARCHAR(30), indid SMALLINT, keyno SMALLINT, column_name VARCHAR(30));
CREATE INDEX sim_index_keys_name ON sim_index_keys(table_name);

INSERT INTO sysusers VALUES (1, 1, 0, 'dbo'), (NULL, 0, 0, 'public'), (3, 3, 0, 'librarian');
INSERT INTO systypes VALUES
  (1, 1, 0, 1, 47, 255, 'char', NULL, NULL, 24),     (1, 2, 1, 1, 39, 255, 'varchar', NULL, NULL, 25),
  (1, 3, 0, 1, 45, 255, 'binary', NULL, NULL, 26),   (1, 4, 1, 1, 37, 255, 'varbinary', NULL, NULL, 27),
  (1, 5, 0, 1, 48, 1, 'tinyint', 3, 0, 18),          (1, 6, 0, 1, 52, 2, 'smallint', 5, 0, 17),
  (1, 7, 0, 1, 56, 4, 'int', 10, 0, 16),             (1, 8, 0, 1, 62, 8, 'float', 15, NULL, 8),
  (1, 10, 0, 1, 63, 17, 'numeric', 38, 38, 10),      (1, 11, 0, 1, 60, 8, 'money', 19, 4, 13),
  (1, 12, 0, 1, 61, 8, 'datetime', NULL, NULL, 1),   (1, 16, 0, 0, 50, 1, 'bit', NULL, NULL, 20),
  (1, 19, 1, 1, 35, 16, 'text', NULL, NULL, 28),     (1, 20, 1, 1, 34, 16, 'image', NULL, NULL, 29),
  (1, 22, 0, 1, 58, 4, 'smalldatetime', NULL, NULL, 2), (1, 23, 0, 1, 59, 4, 'real', 7, NULL, 9),
  (1, 26, 0, 1, 55, 17, 'decimal', 38, 38, 12),      (1, 24, 0, 1, 47, 255, 'nchar', NULL, NULL, 22),
  (3, 100, 1, 1, 39, 120, 'email_address', NULL, NULL, 25);

INSERT INTO sysobjects
  SELECT name, 16003088 + 32 * number, 3, CASE type WHEN 'VIEW' THEN 'V' ELSE 'U' END, 0, 0, 0, 0
  FROM seed_table;
INSERT INTO sysobjects
  SELECT name, row_number() OVER (), 1, 'S', 0, 0, 0, 0
  FROM pragma_table_list
  WHERE schema = 'main' AND type = 'table' AND (name LIKE 'sys%');
INSERT INTO sysobjects VALUES
  ('lend_copy', 32003145, 3, 'P', 0, 0, 0, 0), ('return_copy', 32003177, 3, 'P', 0, 0, 0, 0),
  ('sp_help', 32003209, 1, 'P', 0, 0, 0, 0), ('loan_lent', 32003241, 3, 'TR', 0, 0, 0, 0);

CREATE TEMP TABLE seed_type(type TEXT PRIMARY KEY, usertype INTEGER);
INSERT INTO seed_type VALUES
  ('INTEGER', 7), ('SMALLINT', 6), ('TINYINT', 5), ('BIGINT', 10), ('DECIMAL', 26), ('REAL', 23),
  ('DOUBLE', 8), ('CHAR', 1), ('VARCHAR', 2), ('TEXT', 19), ('BLOB', 20), ('DATE', 22),
  ('TIME', 12), ('TIMESTAMP', 12), ('BOOLEAN', 16), ('INT', 7), ('BIT', 16);
-- Numbered columns are numeric(10) identity, large ones too.
INSERT INTO syscolumns
  SELECT 16003088 + 32 * c.table_number, 0, c.position,
         (CASE c.nullable WHEN 1 THEN 8 ELSE 0 END) | (CASE c.serial WHEN 1 THEN 0x80 ELSE 0 END),
         t.type, CASE WHEN c.type IN ('CHAR', 'VARCHAR') THEN c.size ELSE t.length END, 0,
         t.usertype, c.name,
         CASE c.type WHEN 'DECIMAL' THEN c.size WHEN 'BIGINT' THEN 19 ELSE
              CASE c.serial WHEN 1 THEN 10 ELSE t.prec END END,
         CASE c.type WHEN 'DECIMAL' THEN c.digits ELSE CASE WHEN t.prec IS NOT NULL THEN 0 END END
  FROM seed_column c
  JOIN systypes t ON t.usertype = CASE WHEN c.serial = 1 THEN 10 WHEN c.name = 'email' THEN 100 ELSE
                                  (SELECT usertype FROM seed_type s WHERE s.type = c.type) END;
-- The system tables describe themselves, from their own declarations.
INSERT INTO syscolumns
  SELECT o.id, 0, c.cid + 1, 8, t.type, t.length, 0, t.usertype, c.name, t.prec, t.scale
  FROM sysobjects o, pragma_table_info(o.name) c
  JOIN seed_type s ON s.type = CASE WHEN c.type LIKE 'VARCHAR%' THEN 'VARCHAR'
                                    WHEN c.type LIKE 'CHAR%' THEN 'CHAR' ELSE c.type END
  JOIN systypes t ON t.usertype = s.usertype
  WHERE o.type = 'S';
INSERT INTO sysindexes
  SELECT t.name || '_pk', 16003088 + 32 * t.number, 1, max(c.key_position), 0x802
  FROM seed_table t JOIN seed_column c ON c.table_number = t.number
  WHERE c.key_position IS NOT NULL GROUP BY t.number;
INSERT INTO sysindexes
  SELECT name, 16003088 + 32 * table_number, 1 + dense_rank() OVER (
           PARTITION BY table_number ORDER BY name), max(position), 2 * max(is_unique)
  FROM seed_index GROUP BY table_number, name;
INSERT INTO sim_index_keys
  SELECT t.name, 1, c.key_position, c.name
  FROM seed_table t JOIN seed_column c ON c.table_number = t.number
  WHERE c.key_position IS NOT NULL;
INSERT INTO sim_index_keys
  SELECT o.name, x.indid, i.position, i.column_name
  FROM seed_index i JOIN sysindexes x ON x.name = i.name JOIN sysobjects o ON o.id = x.id;
INSERT INTO sysreferences
  SELECT 48003200 + k.number, 16003088 + 32 * k.table_number, 16003088 + 32 * k.target_number,
         max(k.position), 0,
         max(CASE k.position WHEN 1 THEN f.position END),
         max(CASE k.position WHEN 2 THEN f.position END),
         max(CASE k.position WHEN 1 THEN p.position END),
         max(CASE k.position WHEN 2 THEN p.position END)
  FROM seed_foreign_key k
  JOIN seed_column f ON f.table_number = k.table_number AND f.name = k.column_name
  JOIN seed_column p ON p.table_number = k.target_number AND p.name = k.target_column
  GROUP BY k.number;

CREATE TABLE sim_types(
  type_name TEXT PRIMARY KEY, data_type INTEGER, column_size INTEGER, create_params TEXT,
  auto_increment INTEGER, max_scale INTEGER);
INSERT INTO sim_types VALUES
  ('char', 1, 255, 'length', NULL, NULL), ('nchar', 1, 255, 'length', NULL, NULL),
  ('varchar', 12, 255, 'max length', NULL, NULL), ('text', -1, 2147483647, NULL, NULL, NULL),
  ('binary', -2, 255, 'length', NULL, NULL), ('varbinary', -3, 255, 'max length', NULL, NULL),
  ('image', -4, 2147483647, NULL, NULL, NULL), ('bit', -7, 1, NULL, NULL, NULL),
  ('tinyint', -6, 3, NULL, 0, 0), ('smallint', 5, 5, NULL, 0, 0), ('int', 4, 10, NULL, 0, 0),
  ('numeric', 2, 38, 'precision,scale', 0, 38), ('decimal', 3, 38, 'precision,scale', 0, 38),
  ('numeric identity', 2, 38, 'precision', 1, 0), ('money', 3, 19, NULL, 0, 4),
  ('float', 6, 15, NULL, 0, NULL), ('real', 7, 7, NULL, 0, NULL),
  ('datetime', 93, 23, NULL, NULL, 3), ('smalldatetime', 93, 16, NULL, NULL, 0),
  ('email_address', 12, 120, NULL, NULL, NULL);
CREATE VIEW sim_tables AS
  SELECT u.name AS owner, o.name AS name,
         CASE o.type WHEN 'U' THEN 'TABLE' WHEN 'V' THEN 'VIEW' ELSE 'SYSTEM TABLE' END AS type,
         NULL AS remarks
  FROM sysobjects o, sysusers u WHERE u.uid = o.uid AND o.type IN ('U', 'V', 'S');
CREATE VIEW sim_columns AS
  SELECT u.name AS owner, o.name AS table_name, c.colid AS position, c.name AS column_name,
         CASE WHEN c.status & 0x80 THEN t.name || ' identity' ELSE t.name END AS type_name,
         CASE WHEN c.prec IS NOT NULL THEN c.prec
              WHEN t.type IN (47, 39, 45, 37) THEN c.length END AS column_size,
         c.scale AS decimal_digits, CASE WHEN c.status & 8 THEN 1 ELSE 0 END AS nullable,
         NULL AS remarks, NULL AS column_def
  FROM sysobjects o, sysusers u, syscolumns c, systypes t
  WHERE u.uid = o.uid AND c.id = o.id AND t.usertype = c.usertype;
CREATE VIEW sim_primary_keys AS
  SELECT u.name AS owner, o.name AS table_name, k.keyno AS position, k.column_name,
         x.name AS key_name
  FROM sysobjects o, sysusers u, sysindexes x, sim_index_keys k
  WHERE u.uid = o.uid AND x.id = o.id AND (x.status & 0x800) = 0x800 AND k.table_name = o.name
    AND k.indid = x.indid;
CREATE VIEW sim_foreign_keys AS
  SELECT pu.name AS pk_owner, p.name AS pk_table, pc.name AS pk_column, fu.name AS fk_owner,
         f.name AS fk_table, fc.name AS fk_column, n.n AS position, r.constrid AS fk_name,
         NULL AS pk_name
  FROM sysobjects p, sysusers pu, sysreferences r, (SELECT 1 AS n UNION ALL SELECT 2) n,
       syscolumns pc, sysobjects f, sysusers fu, syscolumns fc
  WHERE pu.uid = p.uid AND r.reftabid = p.id AND n.n <= r.keycnt AND pc.id = p.id
    AND pc.colid = CASE n.n WHEN 1 THEN r.refkey1 ELSE r.refkey2 END AND f.id = r.tableid
    AND fu.uid = f.uid AND fc.id = f.id
    AND fc.colid = CASE n.n WHEN 1 THEN r.fokey1 ELSE r.fokey2 END;
CREATE VIEW sim_statistics AS
  SELECT u.name AS owner, o.name AS table_name, CASE WHEN x.status & 2 THEN 0 ELSE 1 END AS non_unique,
         x.name AS index_name, k.keyno AS position, k.column_name, 0 AS descending
  FROM sysobjects o, sysusers u, sysindexes x, sim_index_keys k
  WHERE u.uid = o.uid AND x.id = o.id AND k.table_name = o.name AND k.indid = x.indid;
CREATE VIEW sim_procedures AS
  SELECT u.name AS owner, o.name AS name, 1 AS type, NULL AS remarks
  FROM sysobjects o, sysusers u WHERE u.uid = o.uid AND o.type = 'P';
