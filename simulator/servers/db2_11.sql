-- DB2 11.5 for Linux, UNIX and Windows: the shop, in the views of SYSCAT. Names and types of the columns are those of
-- https://www.ibm.com/docs/en/db2/11.5?topic=sql-catalog-views (the pages SYSCAT.SCHEMATA, TABLES, NICKNAMES, COLUMNS, COLIDENTATTRIBUTES, DATATYPES, ATTRIBUTES, ROWFIELDS, TABCONST, KEYCOLUSE,
-- REFERENCES, CHECKS, INDEXES, INDEXCOLUSE, TRIGGERS, SEQUENCES, VIEWS, ROUTINES, ROUTINEPARMS); columns that nobody asks for are left out.
-- The names of special registers are columns of SYSDUMMY1 here. A schema's name of less than 8 bytes is kept with blanks up to 8 (the page of the function
-- TABLE_SCHEMA has such a one), which comparisons take no notice of.
BEGIN;
CREATE TABLE SYSIBM.SYSDUMMY1 (IBMREQD CHAR(1), CURRENT_SERVER VARCHAR(18), CURRENT_SCHEMA VARCHAR(128) COLLATE RTRIM);
INSERT INTO SYSIBM.SYSDUMMY1 VALUES ('Y', 'SHOP', 'sales   ');
CREATE TABLE SYSCAT.SCHEMATA (SCHEMANAME VARCHAR(128) COLLATE RTRIM, OWNER VARCHAR(128), REMARKS VARCHAR(254));
CREATE TABLE SYSCAT.TABLES (TABSCHEMA VARCHAR(128) COLLATE RTRIM, TABNAME VARCHAR(128), TYPE CHAR(1), BASE_TABSCHEMA VARCHAR(128) COLLATE RTRIM, BASE_TABNAME VARCHAR(128),
  TEMPORALTYPE CHAR(1), REMARKS VARCHAR(254));
CREATE TABLE SYSCAT.NICKNAMES (TABSCHEMA VARCHAR(128) COLLATE RTRIM, TABNAME VARCHAR(128), REMOTE_TABLE VARCHAR(128), REMOTE_SCHEMA VARCHAR(128) COLLATE RTRIM, SERVERNAME VARCHAR(128));
CREATE TABLE SYSCAT.COLUMNS (TABSCHEMA VARCHAR(128) COLLATE RTRIM, TABNAME VARCHAR(128), COLNAME VARCHAR(128), COLNO SMALLINT, TYPESCHEMA VARCHAR(128) COLLATE RTRIM, TYPENAME VARCHAR(128),
  LENGTH INTEGER, SCALE SMALLINT, TYPESTRINGUNITS VARCHAR(11), STRINGUNITSLENGTH INTEGER, "DEFAULT" CLOB(64), NULLS CHAR(1), CODEPAGE SMALLINT, HIDDEN CHAR(1), IDENTITY CHAR(1), "GENERATED" CHAR(1), TEXT CLOB(2097152),
  REMARKS VARCHAR(254), KEYSEQ SMALLINT);
CREATE INDEX SYSCAT.IC ON COLUMNS (TABSCHEMA, TABNAME, COLNO);
CREATE TABLE SYSCAT.COLIDENTATTRIBUTES (TABSCHEMA VARCHAR(128) COLLATE RTRIM, TABNAME VARCHAR(128), COLNAME VARCHAR(128), START DECIMAL(31), INCREMENT DECIMAL(31));
CREATE TABLE SYSCAT.DATATYPES (TYPESCHEMA VARCHAR(128) COLLATE RTRIM, TYPEMODULENAME VARCHAR(128), TYPENAME VARCHAR(128), SOURCESCHEMA VARCHAR(128) COLLATE RTRIM, SOURCENAME VARCHAR(128), METATYPE CHAR(1), TYPEID SMALLINT,
  LENGTH INTEGER, SCALE SMALLINT, REMARKS VARCHAR(254), SOURCETYPEID SMALLINT);
CREATE TABLE SYSCAT.ATTRIBUTES (TYPESCHEMA VARCHAR(128) COLLATE RTRIM, TYPENAME VARCHAR(128), ATTR_NAME VARCHAR(128), ATTR_TYPESCHEMA VARCHAR(128) COLLATE RTRIM, ATTR_TYPENAME VARCHAR(128),
  ORDINAL SMALLINT, LENGTH INTEGER, SCALE SMALLINT);
CREATE TABLE SYSCAT.ROWFIELDS (TYPESCHEMA VARCHAR(128) COLLATE RTRIM, TYPEMODULENAME VARCHAR(128), TYPENAME VARCHAR(128), FIELDNAME VARCHAR(128),
  FIELDTYPESCHEMA VARCHAR(128) COLLATE RTRIM, FIELDTYPEMODULENAME VARCHAR(128), FIELDTYPENAME VARCHAR(128), ORDINAL SMALLINT, LENGTH INTEGER, SCALE SMALLINT);
CREATE TABLE SYSCAT.TABCONST (CONSTNAME VARCHAR(128), TABSCHEMA VARCHAR(128) COLLATE RTRIM, TABNAME VARCHAR(128), TYPE CHAR(1), ENFORCED CHAR(1), REMARKS VARCHAR(254));
CREATE INDEX SYSCAT.ITC ON TABCONST (TABSCHEMA, TABNAME, CONSTNAME);
CREATE TABLE SYSCAT.KEYCOLUSE (CONSTNAME VARCHAR(128), TABSCHEMA VARCHAR(128) COLLATE RTRIM, TABNAME VARCHAR(128), COLNAME VARCHAR(128), COLSEQ SMALLINT);
CREATE INDEX SYSCAT.IK ON KEYCOLUSE (TABSCHEMA, TABNAME, CONSTNAME, COLSEQ);
CREATE TABLE SYSCAT."REFERENCES" (CONSTNAME VARCHAR(128), TABSCHEMA VARCHAR(128) COLLATE RTRIM, TABNAME VARCHAR(128), REFKEYNAME VARCHAR(128), REFTABSCHEMA VARCHAR(128) COLLATE RTRIM,
  REFTABNAME VARCHAR(128), COLCOUNT SMALLINT, DELETERULE CHAR(1), UPDATERULE CHAR(1), FK_COLNAMES VARCHAR(640), PK_COLNAMES VARCHAR(640));
CREATE TABLE SYSCAT.CHECKS (CONSTNAME VARCHAR(128), TABSCHEMA VARCHAR(128) COLLATE RTRIM, TABNAME VARCHAR(128), TYPE CHAR(1), TEXT CLOB(2097152));
CREATE TABLE SYSCAT.INDEXES (INDSCHEMA VARCHAR(128) COLLATE RTRIM, INDNAME VARCHAR(128), TABSCHEMA VARCHAR(128) COLLATE RTRIM, TABNAME VARCHAR(128), UNIQUERULE CHAR(1), INDEXTYPE CHAR(4),
  REMARKS VARCHAR(254));
CREATE TABLE SYSCAT.INDEXCOLUSE (INDSCHEMA VARCHAR(128) COLLATE RTRIM, INDNAME VARCHAR(128), COLNAME VARCHAR(128), COLSEQ SMALLINT, COLORDER CHAR(1), TEXT CLOB(2097152));
CREATE INDEX SYSCAT.II ON INDEXCOLUSE (INDSCHEMA, INDNAME);
CREATE TABLE SYSCAT.TRIGGERS (TRIGSCHEMA VARCHAR(128) COLLATE RTRIM, TRIGNAME VARCHAR(128), TABSCHEMA VARCHAR(128) COLLATE RTRIM, TABNAME VARCHAR(128), TRIGTIME CHAR(1), EVENTUPDATE CHAR(1),
  EVENTDELETE CHAR(1), EVENTINSERT CHAR(1), GRANULARITY CHAR(1), VALID CHAR(1), TEXT CLOB(2097152), REMARKS VARCHAR(254));
CREATE TABLE SYSCAT.SEQUENCES (SEQSCHEMA VARCHAR(128) COLLATE RTRIM, SEQNAME VARCHAR(128), SEQTYPE CHAR(1), START DECIMAL(31), INCREMENT DECIMAL(31), MINVALUE DECIMAL(31),
  MAXVALUE DECIMAL(31), CYCLE CHAR(1), CACHE INTEGER, DATATYPEID INTEGER, PRECISION SMALLINT, REMARKS VARCHAR(254));
CREATE TABLE SYSCAT.VIEWS (VIEWSCHEMA VARCHAR(128) COLLATE RTRIM, VIEWNAME VARCHAR(128), VIEWCHECK CHAR(1), TEXT CLOB(2097152));
CREATE TABLE SYSCAT.ROUTINES (ROUTINESCHEMA VARCHAR(128) COLLATE RTRIM, ROUTINEMODULENAME VARCHAR(128), ROUTINENAME VARCHAR(128), ROUTINETYPE CHAR(1),
  SPECIFICNAME VARCHAR(128), ORIGIN CHAR(1), FUNCTIONTYPE CHAR(1), LANGUAGE CHAR(8),
  TEXT CLOB(2097152), REMARKS VARCHAR(254));
CREATE TABLE SYSCAT.ROUTINEPARMS (ROUTINESCHEMA VARCHAR(128) COLLATE RTRIM, ROUTINEMODULENAME VARCHAR(128), SPECIFICNAME VARCHAR(128), PARMNAME VARCHAR(128), ROWTYPE CHAR(1), ORDINAL SMALLINT,
  TYPESCHEMA VARCHAR(128) COLLATE RTRIM, TYPENAME VARCHAR(128), LENGTH INTEGER, SCALE SMALLINT);

UPDATE shop_schema SET name = printf('%-8s', name);
UPDATE shop_synonym SET target_schema = printf('%-8s', target_schema) WHERE server IS NULL;
INSERT INTO SYSCAT.SCHEMATA VALUES ('SYSCAT  ', 'SYSIBM  ', NULL), ('NULLID  ', 'SYSIBM  ', NULL);
INSERT INTO SYSCAT.SCHEMATA SELECT name, 'DB2INST1', comment FROM shop_schema;
INSERT INTO SYSCAT.TABLES VALUES ('SYSCAT  ', 'TABLES', 'V', NULL, NULL, 'N', NULL);
-- The shop's types, as this server has them.
CREATE TEMP TABLE here(type TEXT PRIMARY KEY, name TEXT, length INT, scale INT);
INSERT INTO here VALUES ('INTEGER', 'INTEGER', 4, 0), ('SMALLINT', 'SMALLINT', 2, 0), ('BIGINT', 'BIGINT', 8, 0), ('CHAR', 'CHARACTER', NULL, 0), ('VARCHAR', 'VARCHAR', NULL, 0),
  ('DECIMAL', 'DECIMAL', NULL, NULL), ('DATE', 'DATE', 4, 0), ('TIMESTAMP', 'TIMESTAMP', 10, 6), ('DOUBLE', 'DOUBLE', 8, 0), ('CLOB', 'CLOB', 1048576, 0), ('BLOB', 'BLOB', 1048576, 0);
INSERT INTO SYSCAT.DATATYPES SELECT 'SYSIBM  ', NULL, name, NULL, NULL, 'S', rowid, length, scale, NULL, NULL FROM here;
INSERT INTO SYSCAT.DATATYPES SELECT s.name, NULL, t.name, 'SYSIBM  ', h.name, 'T', 1000 + t.number, t.size, coalesce(t.digits, 0), NULL, h.rowid
  FROM shop_type t JOIN shop_schema s ON s.number = t.schema_number JOIN here h ON h.type = t.type;
CREATE TEMP VIEW shop AS SELECT t.number, s.name AS owner, t.name, t.kind, t.comment, t.text FROM shop_table t JOIN shop_schema s ON s.number = t.schema_number;
INSERT INTO SYSCAT.TABLES SELECT owner, name, CASE kind WHEN 'view' THEN 'V' ELSE 'T' END, NULL, NULL, 'N', comment FROM shop;
INSERT INTO SYSCAT.VIEWS SELECT owner, name, 'N', 'CREATE OR REPLACE VIEW "' || trim(owner) || '".' || name || ' (id, name) AS ' || text FROM shop WHERE kind = 'view';
INSERT INTO SYSCAT.COLUMNS
  SELECT t.owner, t.name, c.name, c.position - 1, coalesce(ys.name, 'SYSIBM  '), coalesce(y.name, h.name), coalesce(h.length, c.size), coalesce(h.scale, c.digits),
         CASE WHEN c.type IN ('CHAR', 'VARCHAR', 'CLOB') THEN 'OCTETS' END, CASE WHEN c.type IN ('CHAR', 'VARCHAR', 'CLOB') THEN coalesce(h.length, c.size) END, c.default_text,
         CASE c.nullable WHEN 1 THEN 'Y' ELSE 'N' END, CASE WHEN c.type IN ('CHAR', 'VARCHAR', 'CLOB') THEN 1208 ELSE 0 END, '', CASE WHEN c.identity IS NULL THEN 'N' ELSE 'Y' END,
         CASE WHEN c.identity = 'by default' THEN 'D' WHEN c.identity IS NOT NULL OR c.expression IS NOT NULL THEN 'A' ELSE '' END, 'AS (' || c.expression || ')', c.comment,
         (SELECT p.position FROM shop_key k JOIN shop_key_column p ON p.key_number = k.number AND p.column_number = c.position WHERE k.kind = 'P' AND k.table_number = t.number)
  FROM shop t JOIN shop_column c ON c.table_number = t.number JOIN here h ON h.type = c.type
  LEFT JOIN shop_type y ON y.number = c.type_number LEFT JOIN shop_schema ys ON ys.number = y.schema_number;
INSERT INTO SYSCAT.TABCONST SELECT k.name, t.owner, t.name, CASE k.kind WHEN 'C' THEN 'K' ELSE k.kind END, 'Y', NULL FROM shop_key k JOIN shop t ON t.number = k.table_number;
INSERT INTO SYSCAT.KEYCOLUSE SELECT k.name, t.owner, t.name, c.name, p.position FROM shop_key k JOIN shop t ON t.number = k.table_number
  JOIN shop_key_column p ON p.key_number = k.number JOIN shop_column c ON c.table_number = k.table_number AND c.position = p.column_number;
INSERT INTO SYSCAT."REFERENCES" SELECT k.name, t.owner, t.name, g.name, r.owner, r.name, (SELECT count(*) FROM shop_key_column p WHERE p.key_number = k.number),
  CASE k.on_delete WHEN 'cascade' THEN 'C' WHEN 'set null' THEN 'N' ELSE 'A' END, 'A', '', ''
  FROM shop_key k JOIN shop t ON t.number = k.table_number JOIN shop_key g ON g.number = k.target_number JOIN shop r ON r.number = g.table_number;
INSERT INTO SYSCAT.CHECKS SELECT k.name, t.owner, t.name, 'C', k.expression FROM shop_key k JOIN shop t ON t.number = k.table_number WHERE k.kind = 'C';
INSERT INTO SYSCAT.INDEXES SELECT t.owner, k.name, t.owner, t.name, k.kind, 'REG', NULL FROM shop_key k JOIN shop t ON t.number = k.table_number WHERE k.kind IN ('P', 'U');
INSERT INTO SYSCAT.INDEXCOLUSE SELECT t.owner, k.name, c.name, p.position, 'A', NULL FROM shop_key k JOIN shop t ON t.number = k.table_number
  JOIN shop_key_column p ON p.key_number = k.number JOIN shop_column c ON c.table_number = k.table_number AND c.position = p.column_number WHERE k.kind IN ('P', 'U');
INSERT INTO SYSCAT.INDEXES SELECT t.owner, i.name, t.owner, t.name, CASE i.is_unique WHEN 1 THEN 'U' ELSE 'D' END, 'REG', NULL
  FROM shop_index i JOIN shop t ON t.number = i.table_number;
INSERT INTO SYSCAT.INDEXCOLUSE SELECT t.owner, i.name, c.name, p.position, CASE p.descending WHEN 1 THEN 'D' ELSE 'A' END, NULL FROM shop_index i
  JOIN shop t ON t.number = i.table_number JOIN shop_index_column p ON p.index_number = i.number JOIN shop_column c ON c.table_number = i.table_number AND c.position = p.column_number;
INSERT INTO SYSCAT.TRIGGERS SELECT t.owner, g.name, t.owner, t.name, 'A', 'N', 'N', 'Y', 'R', 'Y', g.text, NULL FROM shop_trigger g JOIN shop t ON t.number = g.table_number;
INSERT INTO SYSCAT.SEQUENCES SELECT s.name, q.name, 'S', q.start, q.increment, q.minimum, q.maximum, CASE q.cycle WHEN 1 THEN 'Y' ELSE 'N' END, q.cache,
  (SELECT rowid FROM here WHERE type = 'BIGINT'), 19, NULL FROM shop_sequence q JOIN shop_schema s ON s.number = q.schema_number;
INSERT INTO SYSCAT.TABLES SELECT s.name, y.name, CASE WHEN y.server IS NULL THEN 'A' ELSE 'N' END, CASE WHEN y.server IS NULL THEN y.target_schema END,
  CASE WHEN y.server IS NULL THEN y.target END, 'N', NULL FROM shop_synonym y JOIN shop_schema s ON s.number = y.schema_number;
INSERT INTO SYSCAT.NICKNAMES SELECT s.name, y.name, y.target, y.target_schema, y.server FROM shop_synonym y JOIN shop_schema s ON s.number = y.schema_number
  WHERE y.server IS NOT NULL;
INSERT INTO SYSCAT.ROUTINES SELECT s.name, NULL, r.name, upper(substr(r.kind, 1, 1)), r.name, 'Q', CASE r.kind WHEN 'function' THEN 'S' ELSE '' END, 'SQL', r.text, NULL FROM shop_routine r JOIN shop_schema s ON s.number = r.schema_number;
INSERT INTO SYSCAT.ROUTINEPARMS SELECT s.name, NULL, r.name, '', 'C', 0, 'SYSIBM  ', h.name, coalesce(h.length, r.size), coalesce(h.scale, r.digits)
  FROM shop_routine r JOIN shop_schema s ON s.number = r.schema_number JOIN here h ON h.type = r.result;
INSERT INTO SYSCAT.ROUTINEPARMS SELECT s.name, NULL, r.name, p.name, CASE p.mode WHEN 'in' THEN 'P' WHEN 'out' THEN 'O' ELSE 'B' END, p.position, 'SYSIBM  ', h.name,
  coalesce(h.length, p.size), coalesce(h.scale, p.digits)
  FROM shop_parameter p JOIN shop_routine r ON r.number = p.routine_number JOIN shop_schema s ON s.number = r.schema_number JOIN here h ON h.type = p.type;

-- What this server alone has: a table of versions, a materialized query table, a length in characters, structured types, a row type in a module, an array type,
-- functions of one name, one of them in a module and giving a table, an index on an expression that carries a column, an index that the server made for XML.
INSERT INTO SYSCAT.TABLES VALUES ('stock   ', 'shelf', 'T', NULL, NULL, 'S', NULL), ('stock   ', 'shelf_sum', 'S', NULL, NULL, 'N', NULL);
INSERT INTO SYSCAT.COLUMNS VALUES ('stock   ', 'shelf', 'id', 0, 'SYSIBM  ', 'INTEGER', 4, 0, NULL, NULL, NULL, 'N', 0, '', 'Y', 'D', NULL, NULL, NULL),
  ('stock   ', 'shelf', 'raw', 1, 'SYSIBM  ', 'VARCHAR', 20, 0, NULL, NULL, NULL, 'Y', 0, 'I', 'N', '', NULL, NULL, NULL),
  ('stock   ', 'shelf', 'label', 2, 'SYSIBM  ', 'VARCHAR', 160, 0, 'CODEUNITS32', 40, NULL, 'Y', 1208, '', 'N', '', NULL, NULL, NULL),
  ('stock   ', 'shelf_sum', 'n', 0, 'SYSIBM  ', 'BIGINT', 8, 0, NULL, NULL, NULL, 'Y', 0, '', 'N', '', NULL, NULL, NULL);
INSERT INTO SYSCAT.COLIDENTATTRIBUTES SELECT TABSCHEMA, TABNAME, COLNAME, CASE TABNAME WHEN 'shelf' THEN 100 ELSE 1 END, CASE TABNAME WHEN 'shelf' THEN 10 ELSE 1 END
  FROM SYSCAT.COLUMNS WHERE IDENTITY = 'Y';
INSERT INTO SYSCAT.INDEXES VALUES ('stock   ', 'shelf_index', 'stock   ', 'shelf', 'U', 'REG', NULL), ('SYSIBM  ', 'SQL1', 'stock   ', 'shelf', 'D', 'XPTH', NULL);
INSERT INTO SYSCAT.INDEXCOLUSE VALUES ('stock   ', 'shelf_index', 'K00', 1, 'D', 'UPPER(raw)'), ('stock   ', 'shelf_index', 'id', 2, 'I', NULL), ('SYSIBM  ', 'SQL1', 'raw', 1, 'A', NULL);
INSERT INTO SYSCAT.DATATYPES VALUES ('stock   ', NULL, 'shelf_place', NULL, NULL, 'R', 2000, 0, 0, NULL, NULL), ('stock   ', 'shelves', 'pair', NULL, NULL, 'F', 2001, 0, 0, NULL, NULL),
  ('stock   ', NULL, 'names', 'SYSIBM  ', 'VARCHAR', 'A', 2002, 20, 0, NULL, NULL);
INSERT INTO SYSCAT.ATTRIBUTES VALUES ('stock   ', 'shelf_place', 'row', 'SYSIBM  ', 'SMALLINT', 0, 2, 0), ('stock   ', 'shelf_place', 'mail', 'sales   ', 'email', 1, 0, 0);
INSERT INTO SYSCAT.ROWFIELDS VALUES ('stock   ', 'shelves', 'pair', 'left', 'SYSIBM  ', NULL, 'DECIMAL', 0, 7, 2), ('stock   ', 'shelves', 'pair', 'right', 'stock   ', NULL, 'shelf_place', 1, 0, 0);
INSERT INTO SYSCAT.ROUTINES VALUES ('stock   ', NULL, 'shelf_fill', 'F', 'SQL1', 'Q', 'S', 'SQL', 'RETURN 1', NULL), ('stock   ', NULL, 'shelf_fill', 'F', 'SQL2', 'Q', 'S', 'SQL', 'RETURN 2', NULL),
  ('stock   ', 'shelves', 'shelf_fill', 'F', 'SQL1', 'Q', 'T', 'SQL', 'RETURN 3', NULL), ('stock   ', NULL, 'shelf_place', 'F', 'SQL4', 'S', 'S', '', NULL, NULL),
  ('stock   ', NULL, 'shelf_most', 'F', 'SQL5', 'U', 'C', '', NULL, NULL);
INSERT INTO SYSCAT.ROUTINEPARMS VALUES ('stock   ', NULL, 'SQL1', 'a', 'P', 1, 'SYSIBM  ', 'INTEGER', 4, 0), ('stock   ', NULL, 'SQL2', 'a', 'P', 1, 'SYSIBM  ', 'DECFLOAT', 8, 0),
  ('stock   ', NULL, 'SQL1', '', 'C', 0, 'SYSIBM  ', 'INTEGER', 4, 0), ('stock   ', NULL, 'SQL2', '', 'C', 0, 'SYSIBM  ', 'INTEGER', 4, 0),
  ('stock   ', 'shelves', 'SQL1', 'b', 'P', 1, 'SYSIBM  ', 'DATE', 4, 0), ('stock   ', 'shelves', 'SQL1', 'n', 'R', 1, 'SYSIBM  ', 'DATE', 4, 0),
  ('stock   ', NULL, 'SQL5', 'a', 'P', 1, 'SYSIBM  ', 'INTEGER', 4, 0), ('stock   ', NULL, 'SQL5', '', 'C', 0, 'SYSIBM  ', 'INTEGER', 4, 0);

-- What the statements of older versions ask for. Of the columns of foreign keys the pages say since 10.1 that they are no longer used: they are empty here.
CREATE VIEW SYSCAT.FUNCTIONS AS SELECT ROUTINESCHEMA AS FUNCSCHEMA, ROUTINENAME AS FUNCNAME, SPECIFICNAME,
  (SELECT count(*) FROM ROUTINEPARMS p WHERE p.ROUTINESCHEMA = r.ROUTINESCHEMA AND p.SPECIFICNAME = r.SPECIFICNAME AND p.ROUTINEMODULENAME IS NULL AND p.ROWTYPE = 'P') AS PARM_COUNT, 'N' AS CAST_FUNCTION
  FROM ROUTINES r WHERE ROUTINETYPE = 'F' AND ROUTINEMODULENAME IS NULL;
CREATE VIEW SYSCAT.FUNCPARMS AS SELECT ROUTINESCHEMA AS FUNCSCHEMA, SPECIFICNAME, ORDINAL, TYPENAME, ROWTYPE FROM ROUTINEPARMS WHERE ROUTINEMODULENAME IS NULL;
CREATE VIEW SYSCAT.PROCEDURES AS SELECT ROUTINESCHEMA AS PROCSCHEMA, ROUTINENAME AS PROCNAME FROM ROUTINES WHERE ROUTINETYPE = 'P' AND ROUTINEMODULENAME IS NULL;

CREATE TABLE SYSCAT.sim_types (type_name, data_type, column_size, create_params, auto_increment, max_scale);
INSERT INTO SYSCAT.sim_types VALUES ('INTEGER', 4, 10, NULL, 0, NULL), ('VARCHAR', 12, 32672, 'max length', 0, NULL);
CREATE VIEW SYSCAT.sim_tables AS SELECT TABSCHEMA AS owner, TABNAME AS name, CASE TYPE WHEN 'V' THEN 'VIEW' WHEN 'A' THEN 'ALIAS' ELSE 'TABLE' END AS type, REMARKS AS remarks FROM TABLES;
CREATE VIEW SYSCAT.sim_columns AS SELECT TABSCHEMA AS owner, TABNAME AS table_name, COLNO + 1 AS position, COLNAME AS column_name, TYPENAME AS type_name, LENGTH AS column_size,
  SCALE AS decimal_digits, NULLS = 'Y' AS nullable, REMARKS AS remarks, "DEFAULT" AS column_def FROM COLUMNS;
CREATE VIEW SYSCAT.sim_primary_keys AS SELECT k.TABSCHEMA AS owner, k.TABNAME AS table_name, u.COLSEQ AS position, u.COLNAME AS column_name, k.CONSTNAME AS key_name FROM TABCONST k
  JOIN KEYCOLUSE u ON u.TABSCHEMA = k.TABSCHEMA AND u.TABNAME = k.TABNAME AND u.CONSTNAME = k.CONSTNAME WHERE k.TYPE = 'P';
CREATE VIEW SYSCAT.sim_foreign_keys AS SELECT f.REFTABSCHEMA AS pk_owner, f.REFTABNAME AS pk_table, r.COLNAME AS pk_column, f.TABSCHEMA AS fk_owner, f.TABNAME AS fk_table,
  c.COLNAME AS fk_column, c.COLSEQ AS position, f.CONSTNAME AS fk_name, f.REFKEYNAME AS pk_name FROM "REFERENCES" f
  JOIN KEYCOLUSE c ON c.TABSCHEMA = f.TABSCHEMA AND c.TABNAME = f.TABNAME AND c.CONSTNAME = f.CONSTNAME
  JOIN KEYCOLUSE r ON r.TABSCHEMA = f.REFTABSCHEMA AND r.TABNAME = f.REFTABNAME AND r.CONSTNAME = f.REFKEYNAME AND r.COLSEQ = c.COLSEQ;
CREATE VIEW SYSCAT.sim_statistics AS SELECT i.TABSCHEMA AS owner, i.TABNAME AS table_name, i.UNIQUERULE = 'D' AS non_unique, i.INDNAME AS index_name, c.COLSEQ AS position,
  c.COLNAME AS column_name, c.COLORDER = 'D' AS descending FROM INDEXES i JOIN INDEXCOLUSE c ON c.INDSCHEMA = i.INDSCHEMA AND c.INDNAME = i.INDNAME;
CREATE VIEW SYSCAT.sim_procedures AS SELECT ROUTINESCHEMA AS owner, ROUTINENAME AS name, CASE ROUTINETYPE WHEN 'P' THEN 1 ELSE 2 END AS type, REMARKS AS remarks FROM ROUTINES;
COMMIT;
