-- Informix 14.10: the shop, in the system catalog. Names and types of the columns are those of
-- https://www.ibm.com/docs/en/informix-servers/14.10?topic=reference-system-catalog-tables (the pages SYSTABLES, SYSCOLUMNS, SYSSYNTABLE, SYSXTDTYPES,
-- SYSATTRTYPES, SYSXTDDESC, SYSCONSTRAINTS, SYSREFERENCES, SYSINDEXES, SYSOBJSTATE, SYSDEFAULTS, SYSCHECKS, SYSVIEWS, SYSTRIGGERS, SYSTRIGBODY, SYSSEQUENCES,
-- SYSPROCEDURES, SYSPROCBODY, SYSPROCCOLUMNS, SYSROUTINELANGS, SYSAGGREGATES); columns that nobody asks for are left out.
BEGIN;
CREATE TABLE informix.systables(tabname VARCHAR(128), owner CHAR(32) COLLATE RTRIM, tabid INTEGER PRIMARY KEY, ncols SMALLINT, tabtype CHAR(1));
CREATE TABLE informix.syscolumns(colname VARCHAR(128), tabid INTEGER, colno SMALLINT, coltype SMALLINT, collength SMALLINT, extended_id INTEGER,
  PRIMARY KEY (tabid, colno));
CREATE TABLE informix.syssyntable(tabid INTEGER PRIMARY KEY, servername VARCHAR(128), dbname VARCHAR(128), owner CHAR(32), tabname VARCHAR(128), btabid INTEGER);
CREATE TABLE informix.sysxtdtypes(extended_id INTEGER PRIMARY KEY, domain CHAR(1), mode CHAR(1), owner CHAR(32) COLLATE RTRIM, name VARCHAR(128), type SMALLINT,
  source INTEGER, maxlen INTEGER, length INTEGER);
CREATE TABLE informix.sysxtddesc(extended_id INTEGER, seqno SMALLINT, description CHAR(256));
CREATE TABLE informix.sysattrtypes(extended_id INTEGER, seqno SMALLINT, levelno SMALLINT, parent_no SMALLINT, fieldname VARCHAR(128), fieldno SMALLINT,
  type SMALLINT, length SMALLINT, xtd_type_id INTEGER);
CREATE TABLE informix.sysconstraints(constrid INTEGER PRIMARY KEY, constrname VARCHAR(128), owner CHAR(32), tabid INTEGER, constrtype CHAR(1),
  idxname VARCHAR(128));
CREATE TABLE informix.sysreferences(constrid INTEGER PRIMARY KEY, "primary" INTEGER, ptabid INTEGER, updrule CHAR(1), delrule CHAR(1), matchtype CHAR(1),
  pendant CHAR(1));
CREATE TABLE informix.sysindexes(idxname VARCHAR(128), owner CHAR(32), tabid INTEGER, idxtype CHAR(1), clustered CHAR(1),
  part1 SMALLINT, part2 SMALLINT, part3 SMALLINT, part4 SMALLINT, part5 SMALLINT, part6 SMALLINT, part7 SMALLINT, part8 SMALLINT, part9 SMALLINT,
  part10 SMALLINT, part11 SMALLINT, part12 SMALLINT, part13 SMALLINT, part14 SMALLINT, part15 SMALLINT, part16 SMALLINT, PRIMARY KEY (tabid, idxname));
CREATE TABLE informix.sysobjstate(objtype CHAR(1), owner CHAR(32), name VARCHAR(128), tabid INTEGER, state CHAR(1), PRIMARY KEY (objtype, tabid, name));
CREATE TABLE informix.sysdefaults(tabid INTEGER, colno SMALLINT, type CHAR(1), "default" CHAR(256), class CHAR(1));
CREATE TABLE informix.syschecks(constrid INTEGER, type CHAR(1), seqno SMALLINT, checktext CHAR(32));
CREATE TABLE informix.sysviews(tabid INTEGER, seqno SMALLINT, viewtext CHAR(64));
CREATE TABLE informix.systriggers(trigid INTEGER PRIMARY KEY, trigname VARCHAR(128), owner CHAR(32), tabid INTEGER, event CHAR(1), mode CHAR(1));
CREATE TABLE informix.systrigbody(trigid INTEGER, datakey CHAR(1), seqno INTEGER, data CHAR(256));
CREATE TABLE informix.syssequences(seqid INTEGER PRIMARY KEY, tabid INTEGER, start_val INT8, inc_val INT8, max_val INT8, min_val INT8, cycle CHAR(1),
  restart_val INT8, cache INTEGER, "order" CHAR(1));
CREATE TABLE informix.sysprocedures(procname VARCHAR(128), owner CHAR(32) COLLATE RTRIM, procid INTEGER PRIMARY KEY, mode CHAR(1), numargs INTEGER,
  isproc CHAR(1), specificname VARCHAR(128), langid INTEGER);
CREATE TABLE informix.sysprocbody(procid INTEGER, datakey CHAR(1), seqno INTEGER, data CHAR(256));
CREATE TABLE informix.sysproccolumns(procid INTEGER, paramid INTEGER, paramname VARCHAR(128), paramtype SMALLINT, paramlen SMALLINT, paramxid INTEGER,
  paramattr INTEGER);
CREATE TABLE informix.sysaggregates(name VARCHAR(128), owner CHAR(32), aggid INTEGER PRIMARY KEY, init_func VARCHAR(128), iter_func VARCHAR(128),
  combine_func VARCHAR(128), final_func VARCHAR(128), handlesnulls CHAR(1));
CREATE TABLE informix.sysroutinelangs(langid INTEGER PRIMARY KEY, langname CHAR(30));
INSERT INTO informix.sysroutinelangs VALUES (1, 'c'), (2, 'spl');
CREATE TEMP TABLE numbers AS WITH RECURSIVE n(k) AS (SELECT 0 UNION ALL SELECT k + 1 FROM n WHERE k < 20) SELECT k FROM n;

-- The shop's types, as this server has them: number, length, number of the named type.
CREATE TEMP TABLE here(type TEXT PRIMARY KEY, coltype INT, collength INT, extended_id INT);
INSERT INTO here VALUES ('INTEGER', 2, 4, 0), ('SMALLINT', 1, 2, 0), ('BIGINT', 52, 8, 0), ('CHAR', 0, NULL, 0), ('VARCHAR', 13, NULL, 0), ('DECIMAL', 5, NULL, 0),
  ('DATE', 7, 4, 0), ('TIMESTAMP', 10, 17 * 256 + 13, 0), ('DOUBLE', 3, 8, 0), ('CLOB', 41, 72, 11), ('BLOB', 41, 72, 10);
INSERT INTO informix.sysxtdtypes VALUES (1, '', 'B', 'informix', 'lvarchar', 40, 0, 2048, 0), (5, '', 'B', 'informix', 'boolean', 41, 0, 0, 1),
  (10, '', 'B', 'informix', 'blob', 41, 0, 0, 72), (11, '', 'B', 'informix', 'clob', 41, 0, 0, 72);
INSERT INTO informix.sysxtdtypes SELECT 2048 + t.number, '', 'D', s.name, t.name, h.coltype, 0, t.size, 0
  FROM shop_type t JOIN here h USING (type) JOIN shop_schema s ON s.number = t.schema_number;

INSERT INTO informix.systables VALUES ('systables', 'informix', 1, 5, 'T'), ('syscolumns', 'informix', 2, 6, 'T');
INSERT INTO informix.systables SELECT t.name, s.name, 100 + t.number, (SELECT count(*) FROM shop_column c WHERE c.table_number = t.number),
  CASE t.kind WHEN 'view' THEN 'V' ELSE 'T' END FROM shop_table t JOIN shop_schema s ON s.number = t.schema_number;
INSERT INTO informix.sysviews SELECT number, k, substr(text, k * 64 + 1, 64)
  FROM (SELECT 100 + number AS number, 'create view "sales".' || name || ' (id,name) as ' || text AS text FROM shop_table WHERE text IS NOT NULL) JOIN numbers WHERE k * 64 < length(text);
-- A column that numbers itself is a SERIAL; one that is computed is none here.
INSERT INTO informix.syscolumns SELECT c.name, 100 + c.table_number, c.position,
  CASE WHEN c.identity IS NOT NULL THEN 6 ELSE h.coltype END + CASE c.nullable WHEN 1 THEN 0 ELSE 256 END + CASE WHEN c.type_number IS NULL THEN 0 ELSE 2048 END,
  coalesce(h.collength, CASE c.type WHEN 'DECIMAL' THEN c.size * 256 + c.digits ELSE c.size END), coalesce(2048 + c.type_number, h.extended_id)
  FROM shop_column c JOIN here h USING (type);
INSERT INTO informix.sysdefaults SELECT 100 + c.table_number, c.position, 'L',
  CASE WHEN c.default_text LIKE '''%' THEN replace(trim(c.default_text, ''''), '''''', '''') ELSE 'AAAAAA ' || c.default_text END, 'T'
  FROM shop_column c WHERE c.default_text IS NOT NULL;

INSERT INTO informix.sysconstraints SELECT k.number, k.name, s.name, 100 + k.table_number, CASE k.kind WHEN 'F' THEN 'R' ELSE k.kind END,
  CASE WHEN k.kind <> 'C' THEN ' ' || (100 + k.table_number) || '_' || k.number END
  FROM shop_key k JOIN shop_table t ON t.number = k.table_number JOIN shop_schema s ON s.number = t.schema_number;
INSERT INTO informix.sysobjstate SELECT 'C', owner, constrname, tabid, 'E' FROM informix.sysconstraints;
INSERT INTO informix.sysreferences SELECT k.number, k.target_number, 100 + g.table_number, 'R', CASE k.on_delete WHEN 'cascade' THEN 'C' ELSE 'R' END, 'N', 'N'
  FROM shop_key k JOIN shop_key g ON g.number = k.target_number;
INSERT INTO informix.syschecks SELECT number, 'T', k, substr(expression, k * 32 + 1, 32) FROM shop_key JOIN numbers WHERE kind = 'C' AND k * 32 < length(expression);
INSERT INTO informix.syschecks SELECT number, 'B', 0, 'AAAABBBB' FROM shop_key WHERE kind = 'C';
CREATE TEMP TABLE part(tabid INT, idxname TEXT, position INT, colno INT, PRIMARY KEY (tabid, idxname, position));
INSERT INTO part SELECT 100 + k.table_number, ' ' || (100 + k.table_number) || '_' || k.number, c.position, c.column_number
  FROM shop_key k JOIN shop_key_column c ON c.key_number = k.number;
INSERT INTO part SELECT 100 + i.table_number, i.name, c.position, CASE c.descending WHEN 1 THEN -c.column_number ELSE c.column_number END
  FROM shop_index i JOIN shop_index_column c ON c.index_number = i.number;
INSERT INTO informix.sysindexes
  SELECT p.idxname, t.owner, p.tabid,
         CASE WHEN EXISTS (SELECT 1 FROM shop_index i WHERE i.name = p.idxname AND i.is_unique = 0)
                OR EXISTS (SELECT 1 FROM informix.sysconstraints k WHERE k.idxname = p.idxname AND k.constrtype = 'R') THEN 'D' ELSE 'U' END, '',
         sum(CASE position WHEN 1 THEN colno ELSE 0 END),
         sum(CASE position WHEN 2 THEN colno ELSE 0 END), sum(CASE position WHEN 3 THEN colno ELSE 0 END), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0
  FROM part p JOIN informix.systables t ON t.tabid = p.tabid GROUP BY p.idxname, t.owner, p.tabid;

INSERT INTO informix.systriggers SELECT rowid, name, 'sales', 100 + table_number, upper(substr(event, 1, 1)), 'O' FROM shop_trigger;
INSERT INTO informix.systrigbody SELECT rowid, 'D', 0, 'create trigger ' || name || ' ' || event || ' on orders' FROM shop_trigger;
INSERT INTO informix.systrigbody SELECT g.rowid, 'A', k, substr(text, k * 256 + 1, 256) FROM shop_trigger g JOIN numbers WHERE k * 256 < length(text);
INSERT INTO informix.systrigbody SELECT rowid, 'B', 0, 'AAAABBBB' FROM shop_trigger;
INSERT INTO informix.systables SELECT q.name, s.name, 200 + q.rowid, 0, 'Q' FROM shop_sequence q JOIN shop_schema s ON s.number = q.schema_number;
INSERT INTO informix.syssequences SELECT rowid, 200 + rowid, start, increment, maximum, minimum, cycle, start, cache, '0' FROM shop_sequence;
INSERT INTO informix.systables SELECT y.name, s.name, 300 + y.rowid, 0, 'S' FROM shop_synonym y JOIN shop_schema s ON s.number = y.schema_number;
INSERT INTO informix.syssyntable SELECT 300 + y.rowid, y.server, y.database, CASE WHEN y.server IS NOT NULL THEN y.target_schema END,
  CASE WHEN y.server IS NOT NULL THEN y.target END, CASE WHEN y.server IS NULL THEN t.tabid END
  FROM shop_synonym y LEFT JOIN informix.systables t ON t.owner = y.target_schema AND t.tabname = y.target;
INSERT INTO informix.sysprocedures SELECT r.name, s.name, 400 + r.number, 'O', (SELECT count(*) FROM shop_parameter p WHERE p.routine_number = r.number),
  CASE r.kind WHEN 'procedure' THEN 't' ELSE 'f' END, r.name, 2 FROM shop_routine r JOIN shop_schema s ON s.number = r.schema_number;
INSERT INTO informix.sysprocedures VALUES ('systdist', 'informix', 1, 'P', 2, 'f', 'systdist', 2);
INSERT INTO informix.sysprocbody SELECT 400 + number, 'T', k + 1, substr(text, k * 256 + 1, 256) FROM shop_routine JOIN numbers WHERE k * 256 < length(text);
INSERT INTO informix.sysprocbody SELECT 400 + number, 'P', 1, 'AAAABBBB' FROM shop_routine;
INSERT INTO informix.sysproccolumns SELECT 400 + r.number, 0, '', h.coltype, coalesce(h.collength, CASE r.result WHEN 'DECIMAL' THEN r.size * 256 + r.digits ELSE r.size END),
  h.extended_id, 5 FROM shop_routine r JOIN here h ON h.type = r.result;
INSERT INTO informix.sysproccolumns SELECT 400 + p.routine_number, p.position, p.name, h.coltype, coalesce(h.collength, p.size), h.extended_id,
  CASE p.mode WHEN 'out' THEN 4 WHEN 'inout' THEN 2 ELSE 1 END FROM shop_parameter p JOIN here h USING (type);

-- What this server alone has: qualified times and intervals, a least length, a row with a name, a bitmap index, a disabled check of more than one
-- piece with a blank at the end of the first, a view of two, an index on a function.
INSERT INTO informix.systables VALUES ('shelf', 'stock', 500, 11, 'T');
INSERT INTO informix.syscolumns VALUES ('opens', 500, 1, 10, 4 * 256 + 6 * 16 + 8, 0), ('stamp', 500, 2, 266, 17 * 256 + 0 * 16 + 15, 0),
  ('lasts', 500, 3, 14, 5 * 256 + 4 * 16 + 6, 0), ('label', 500, 4, 13, 10 * 256 + 40, 0), ('long_label', 500, 5, 13, 200 * 256 + 250 - 65536, 0),
  ('essay', 500, 6, 40, 4000, 1), ('open', 500, 7, 41, 1, 5), ('place', 500, 8, 22 + 4096, 8, 2100), ('marks', 500, 10, 19, 2048, 2102), ('since', 500, 11, 7, 4, 0), ('money', 500, 9, 8, 9 * 256 + 2, 0);
INSERT INTO informix.sysxtdtypes VALUES (2100, '', 'R', 'stock', 'place', 22, 0, 0, 8), (2101, '', 'B', 'stock', 'polygon', 40, 0, 2048, 0),
  (2102, '', 'C', 'stock', '', 19, 0, 2048, 0);
INSERT INTO informix.sysxtddesc VALUES (2102, 1, 'SET(INTEGER NOT NULL)'), (2102, 2, ' '), (2100, 1, 'ROW(hall CHAR(3))');
INSERT INTO informix.sysattrtypes VALUES (2102, 1, 0, 0, NULL, 0, 19, 2048, 2102), (2102, 2, 1, 1, NULL, 0, 258, 4, 0);
INSERT INTO informix.sysattrtypes VALUES (2100, 1, 0, 0, '', 0, 22, 8, 2100), (2100, 2, 1, 1, 'hall', 1, 0, 3, 0), (2100, 3, 1, 1, 'shelf', 2, 2, 4, 0);
INSERT INTO informix.sysindexes VALUES ('shelf_by_label', 'stock', 500, 'd', 'C', 4, -2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0),
  ('shelf_by_hall', 'stock', 500, 'D', '', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
INSERT INTO informix.sysconstraints VALUES (90, 'shelf_money', 'stock', 500, 'C', NULL);
INSERT INTO informix.sysobjstate VALUES ('C', 'stock', 'shelf_money', 500, 'D');
INSERT INTO informix.syschecks VALUES (90, 'T', 1, '''x'' ))'), (90, 'T', 0, '((money > 0.00 ) AND (label <>');
INSERT INTO informix.sysdefaults VALUES (500, 2, 'C', NULL, 'T'), (500, 7, 'L', 't', 'T'), (500, 11, 'L', 'AAAgAA 01/31/2000', 'T');
-- What the statements of older versions ask for. No index of the shop has more than three parts.
ALTER TABLE informix.syscolumns ADD COLUMN colmin INTEGER;
ALTER TABLE informix.syscolumns ADD COLUMN colmax INTEGER;
ALTER TABLE informix.sysprocedures ADD COLUMN paramtypes LVARCHAR;
UPDATE informix.sysprocedures SET paramtypes = (SELECT group_concat(lower(p.type)) FROM shop_parameter p WHERE p.routine_number = procid - 400);
CREATE VIEW informix.sysindices AS SELECT idxname, owner, tabid, idxtype, clustered,
  part1 || ' [1]' || CASE part2 WHEN 0 THEN '' ELSE ', ' || part2 || ' [1]' END || CASE part3 WHEN 0 THEN '' ELSE ', ' || part3 || ' [1]' END AS indexkeys
  FROM sysindexes;
CREATE TABLE informix.sim_types(type_name, data_type, column_size, create_params, auto_increment, max_scale);
INSERT INTO informix.sim_types VALUES ('integer', 4, 10, NULL, 0, NULL), ('varchar', 12, 255, 'max length', 0, NULL);
CREATE VIEW informix.sim_tables AS SELECT owner, tabname AS name, CASE WHEN tabtype IN ('S', 'P') THEN 'SYNONYM' WHEN tabtype = 'V' THEN 'VIEW'
  WHEN tabid < 100 THEN 'SYSTEM TABLE' ELSE 'TABLE' END AS type, NULL AS remarks FROM systables WHERE tabtype <> 'Q';
CREATE VIEW informix.sim_columns AS SELECT t.owner, t.tabname AS table_name, c.colno AS position, c.colname AS column_name, 'integer' AS type_name,
  c.collength AS column_size, 0 AS decimal_digits, CASE WHEN c.coltype & 256 THEN 0 ELSE 1 END AS nullable, NULL AS remarks, NULL AS column_def
  FROM systables t JOIN syscolumns c ON c.tabid = t.tabid;
CREATE VIEW informix.sim_primary_keys AS SELECT t.owner, t.tabname AS table_name, 1 AS position, c.colname AS column_name, k.constrname AS key_name
  FROM systables t JOIN sysconstraints k ON k.tabid = t.tabid AND k.constrtype = 'P' JOIN sysindexes i ON i.tabid = k.tabid AND i.idxname = k.idxname
  JOIN syscolumns c ON c.tabid = t.tabid AND c.colno = i.part1;
CREATE VIEW informix.sim_foreign_keys AS SELECT pt.owner AS pk_owner, pt.tabname AS pk_table, NULL AS pk_column, ft.owner AS fk_owner, ft.tabname AS fk_table,
  NULL AS fk_column, 1 AS position, k.constrname AS fk_name, NULL AS pk_name
  FROM sysreferences r JOIN systables pt ON pt.tabid = r.ptabid JOIN sysconstraints k ON k.constrid = r.constrid JOIN systables ft ON ft.tabid = k.tabid;
CREATE VIEW informix.sim_statistics AS SELECT t.owner, t.tabname AS table_name, i.idxtype <> 'U' AS non_unique, i.idxname AS index_name, 1 AS position,
  c.colname AS column_name, 0 AS descending FROM systables t JOIN sysindexes i ON i.tabid = t.tabid JOIN syscolumns c ON c.tabid = t.tabid AND c.colno = abs(i.part1);
CREATE VIEW informix.sim_procedures AS SELECT owner, procname AS name, CASE isproc WHEN 't' THEN 1 ELSE 2 END AS type, NULL AS remarks FROM sysprocedures;
COMMIT;
