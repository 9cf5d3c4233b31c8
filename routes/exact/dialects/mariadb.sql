-- dialect: mariadb
-- product: MariaDB, MySQL
-- version: 8.0.13
-- schemas: each
-- names: ignore case
-- quote: `
-- statements: SHOW
-- list limit: 20000
-- escape: \
-- unwritten action: restrict

-- MariaDB 10.5 and later; MySQL 8.0.13 and later, whose versions are below 10: `before 10` means MySQL.
--
-- Only `TABLE_SCHEMA = ?` keeps the server in one directory: lists of schemas, CONSTRAINT_SCHEMA of KEY_COLUMN_USAGE and
-- TRIGGER_SCHEMA read every database. Names are compared whatever their case; the reader drops what was not meant.
-- Columns that open the engine's table (TABLE_ROWS, AUTO_INCREMENT, CARDINALITY, CREATE_TIME) are not asked for.
-- A derived table with a LIMIT is read once and joined by a key that the server makes; joined as they stand, the
-- tables of information_schema are compared row by row (11 s with 5,000 tables, where this takes 0.2 s).

-- type: BIT = bit(1)
-- type: BINARY = binary, bit
-- type: VARBINARY = varbinary
-- type: LONGVARBINARY = tinyblob, blob, mediumblob, longblob
-- type: TINYINT = tinyint
-- type: SMALLINT = smallint, year
-- type: INTEGER = int, mediumint
-- type: BIGINT = bigint
-- type: REAL = float
-- type: DOUBLE = double
-- type: DECIMAL = decimal
-- type: CHAR = char
-- type: VARCHAR = varchar
-- type: LONGVARCHAR = tinytext, text, mediumtext, longtext
-- type: DATE = date
-- type: TIME = time
-- type: TIMESTAMP = datetime, timestamp

-- A server that only calls itself so lacks a column of these, or an old one does.
-- @probe since 10
-- row: -
SELECT COUNT(s.SCHEMA_COMMENT) FROM information_schema.SCHEMATA s WHERE s.SCHEMA_NAME = 'information_schema';

-- @probe before 10
-- row: -
SELECT COUNT(s.EXPRESSION) FROM information_schema.STATISTICS s
WHERE s.TABLE_SCHEMA = 'information_schema' AND s.IS_VISIBLE = 'NO';

-- @server
-- row: version, sample, schema, in_transaction, option:character set, option:collation, option:lower case table names{0=}
SELECT VERSION(), 'ä€', DATABASE(), 0, @@character_set_database, @@collation_database, @@lower_case_table_names;

-- @schemas since 10
-- row: schema, is_default, option:character set, option:collation, comment
SELECT s.SCHEMA_NAME, s.SCHEMA_NAME <=> DATABASE(), s.DEFAULT_CHARACTER_SET_NAME, s.DEFAULT_COLLATION_NAME,
       NULLIF(s.SCHEMA_COMMENT, '')
FROM information_schema.SCHEMATA s
WHERE s.SCHEMA_NAME NOT IN ('information_schema', 'mysql', 'performance_schema', 'sys') /*@system OR TRUE */;

-- @schemas before 10
-- row: schema, is_default, option:character set, option:collation
SELECT s.SCHEMA_NAME, s.SCHEMA_NAME <=> DATABASE(), s.DEFAULT_CHARACTER_SET_NAME, s.DEFAULT_COLLATION_NAME
FROM information_schema.SCHEMATA s
WHERE s.SCHEMA_NAME NOT IN ('information_schema', 'mysql', 'performance_schema', 'sys') /*@system OR TRUE */;

-- What the server keeps from this user without a word. What a role gives is not told here, so that nothing is claimed then.
-- @not_read since 10
-- row: kind, reason, failed
SELECT w.kind, w.reason, 0
FROM (SELECT 'triggers' AS kind, 'TRIGGER' AS one, 'TRIGGER' AS other,
             'the server shows triggers to users with the right TRIGGER on their table' AS reason
      UNION ALL
      SELECT 'routines', 'EXECUTE', 'ALTER ROUTINE', 'the server shows routines to users who may execute or alter them') w
WHERE CURRENT_ROLE() IS NULL
  AND NOT EXISTS (SELECT 1 FROM information_schema.USER_PRIVILEGES u WHERE u.PRIVILEGE_TYPE IN (w.one, w.other))
  AND NOT EXISTS (SELECT 1 FROM information_schema.SCHEMA_PRIVILEGES d WHERE d.PRIVILEGE_TYPE IN (w.one, w.other)
                  AND /*@schema ?(schema) @else*/ DATABASE() /*@end*/ LIKE d.TABLE_SCHEMA)
  AND NOT EXISTS (SELECT 1 FROM information_schema.TABLE_PRIVILEGES t WHERE t.PRIVILEGE_TYPE IN (w.one, w.other)
                  AND t.TABLE_SCHEMA = /*@schema ?(schema) @else*/ DATABASE() /*@end*/);

-- The comment of a view is VIEW, or says why it no longer resolves. What has its own collation says so in its columns.
-- @tables
-- row: table, kind{BASE TABLE=table,VIEW=view,SYSTEM VERSIONED=table,SEQUENCE=sequence,SYSTEM VIEW=system table,TEMPORARY=temporary table},
-- row: option:system versioned, option:engine, option:character set, collation, option:create options, comment, reason
SELECT t.TABLE_NAME,
       IF(t.CREATE_OPTIONS LIKE '%partitioned%', 'partitioned table', t.TABLE_TYPE),
       IF(t.TABLE_TYPE = 'SYSTEM VERSIONED', 1, NULL),
       t.ENGINE, SUBSTRING_INDEX(t.TABLE_COLLATION, '_', 1), t.TABLE_COLLATION,
       TRIM(REPLACE(t.CREATE_OPTIONS, 'partitioned', '')),
       IF(t.TABLE_TYPE = 'VIEW', NULL, NULLIF(t.TABLE_COMMENT, '')),
       IF(t.TABLE_TYPE = 'VIEW' AND t.TABLE_COMMENT <> 'VIEW', t.TABLE_COMMENT, NULL)
FROM information_schema.TABLES t
WHERE t.TABLE_SCHEMA = /*@schema ?(schema) @else*/ DATABASE() /*@end*/
  /*@tables AND t.TABLE_NAME IN (?list(table)) */;

-- COLUMN_DEFAULT is the text NULL for every nullable column without a default. Sizes are those that were declared.
-- @columns since 10
-- row: table, position|not_null|length|precision|scale|generated{v=virtual,s=stored}|identity{1=auto increment}|option:invisible|option:without system versioning,
-- row: column, type, base_type, default, option:on update, expression, collation, comment
SELECT c.TABLE_NAME,
       CONCAT_WS('|', c.ORDINAL_POSITION, c.IS_NULLABLE = 'NO',
         IF(c.DATA_TYPE IN ('char', 'varchar', 'binary', 'varbinary'), c.CHARACTER_MAXIMUM_LENGTH, ''),
         CASE WHEN c.DATA_TYPE IN ('decimal', 'bit') THEN c.NUMERIC_PRECISION ELSE IFNULL(c.DATETIME_PRECISION, '') END,
         IF(c.DATA_TYPE = 'decimal', c.NUMERIC_SCALE, ''),
         IF(c.EXTRA LIKE '%VIRTUAL GENERATED%', 'v', IF(c.EXTRA LIKE '%STORED GENERATED%', 's', '')),
         IF(c.EXTRA LIKE '%auto_increment%', 1, ''),
         IF(c.EXTRA LIKE '%INVISIBLE%', 1, ''),
         IF(c.EXTRA LIKE '%WITHOUT SYSTEM VERSIONING%', 1, '')),
       c.COLUMN_NAME, c.COLUMN_TYPE, c.DATA_TYPE,
       NULLIF(c.COLUMN_DEFAULT, 'NULL'),
       IF(c.EXTRA LIKE '%on update %',
          SUBSTRING_INDEX(SUBSTRING(c.EXTRA, LOCATE('on update ', c.EXTRA) + 10), ', ', 1), NULL),
       c.GENERATION_EXPRESSION, c.COLLATION_NAME, NULLIF(c.COLUMN_COMMENT, '')
FROM information_schema.COLUMNS c
WHERE c.TABLE_SCHEMA = /*@schema ?(schema) @else*/ DATABASE() /*@end*/
  /*@tables AND c.TABLE_NAME IN (?list(table)) */;

-- Here COLUMN_DEFAULT is the bare value, and EXTRA tells an expression.
-- @columns before 10
-- row: table, position|not_null|length|precision|scale|generated{v=virtual,s=stored}|identity{1=auto increment}|option:invisible|option:srid,
-- row: column, type, base_type, default, option:on update, expression, collation, comment
SELECT c.TABLE_NAME,
       CONCAT_WS('|', c.ORDINAL_POSITION, c.IS_NULLABLE = 'NO',
         IF(c.DATA_TYPE IN ('char', 'varchar', 'binary', 'varbinary'), c.CHARACTER_MAXIMUM_LENGTH, ''),
         CASE WHEN c.DATA_TYPE IN ('decimal', 'bit') THEN c.NUMERIC_PRECISION ELSE IFNULL(c.DATETIME_PRECISION, '') END,
         IF(c.DATA_TYPE = 'decimal', c.NUMERIC_SCALE, ''),
         IF(c.EXTRA LIKE '%VIRTUAL GENERATED%', 'v', IF(c.EXTRA LIKE '%STORED GENERATED%', 's', '')),
         IF(c.EXTRA LIKE '%auto_increment%', 1, ''),
         IF(c.EXTRA LIKE '%INVISIBLE%', 1, ''),
         IFNULL(c.SRS_ID, '')),
       c.COLUMN_NAME, c.COLUMN_TYPE, c.DATA_TYPE,
       CASE WHEN c.EXTRA LIKE '%DEFAULT_GENERATED%' OR c.COLUMN_DEFAULT IS NULL
              OR c.DATA_TYPE IN ('tinyint', 'smallint', 'mediumint', 'int', 'bigint', 'decimal', 'float', 'double', 'bit')
            THEN c.COLUMN_DEFAULT ELSE QUOTE(c.COLUMN_DEFAULT) END,
       IF(c.EXTRA LIKE '%on update %',
          SUBSTRING_INDEX(SUBSTRING(c.EXTRA, LOCATE('on update ', c.EXTRA) + 10), ' ', 1), NULL),
       NULLIF(c.GENERATION_EXPRESSION, ''), c.COLLATION_NAME, NULLIF(c.COLUMN_COMMENT, '')
FROM information_schema.COLUMNS c
WHERE c.TABLE_SCHEMA = /*@schema ?(schema) @else*/ DATABASE() /*@end*/
  /*@tables AND c.TABLE_NAME IN (?list(table)) */;

-- Users without the right SHOW VIEW get an empty text.
-- @view_texts
-- row: table, text, option:check option{NONE=}, option:security{DEFINER=}, option:algorithm{UNDEFINED=}, reason
SELECT v.TABLE_NAME, v.VIEW_DEFINITION, v.CHECK_OPTION, v.SECURITY_TYPE,
       /*@since 10 v.ALGORITHM @else*/ NULL /*@end*/,
       IF(v.VIEW_DEFINITION = '', 'the server shows the text of a view to users with the right SHOW VIEW on it', NULL)
FROM information_schema.VIEWS v
WHERE v.TABLE_SCHEMA = /*@schema ?(schema) @else*/ DATABASE() /*@end*/
  /*@tables AND v.TABLE_NAME IN (?list(table)) */;

-- Read only for the few tables that have partitions, because it opens every table.
-- @table_options since 10 for each partitioned table
-- row: table, option:partition by, option:partitions
SELECT MAX(p.TABLE_NAME),
       CONCAT(MAX(p.PARTITION_METHOD), IFNULL(CONCAT(' (', MAX(p.PARTITION_EXPRESSION), ')'), ''),
              IFNULL(CONCAT(' SUBPARTITION BY ', MAX(p.SUBPARTITION_METHOD), ' (', MAX(p.SUBPARTITION_EXPRESSION), ')'), '')),
       CONCAT(GROUP_CONCAT(
         IF(IFNULL(p.SUBPARTITION_ORDINAL_POSITION, 1) = 1,
            CONCAT(IF(p.PARTITION_ORDINAL_POSITION = 1, '', IF(p.SUBPARTITION_NAME IS NULL, ', ', '), ')),
                   'PARTITION `', REPLACE(p.PARTITION_NAME, '`', '``'), '`',
                   CASE WHEN p.PARTITION_DESCRIPTION IS NULL THEN ''
                        WHEN p.PARTITION_METHOD = 'SYSTEM_TIME' THEN IF(p.PARTITION_DESCRIPTION = 'CURRENT', ' CURRENT', ' HISTORY')
                        WHEN p.PARTITION_METHOD LIKE 'LIST%' AND p.PARTITION_DESCRIPTION = 'DEFAULT' THEN ' DEFAULT'
                        WHEN p.PARTITION_METHOD LIKE 'LIST%' THEN CONCAT(' VALUES IN (', p.PARTITION_DESCRIPTION, ')')
                        WHEN p.PARTITION_METHOD = 'RANGE' AND p.PARTITION_DESCRIPTION = 'MAXVALUE' THEN ' VALUES LESS THAN MAXVALUE'
                        ELSE CONCAT(' VALUES LESS THAN (', p.PARTITION_DESCRIPTION, ')') END), ', '),
         IFNULL(CONCAT(IF(p.SUBPARTITION_ORDINAL_POSITION = 1, ' (', ''), 'SUBPARTITION `', REPLACE(p.SUBPARTITION_NAME, '`', '``'), '`'), '')
         ORDER BY p.PARTITION_ORDINAL_POSITION, p.SUBPARTITION_ORDINAL_POSITION SEPARATOR ''), IF(MAX(p.SUBPARTITION_NAME) IS NULL, '', ')'))
FROM information_schema.PARTITIONS p
WHERE p.PARTITION_NAME IS NOT NULL
  AND p.TABLE_SCHEMA = /*@each ?(schema) AND p.TABLE_NAME = ?(table) @else*/ DATABASE() AND p.TABLE_NAME = '' /*@end*/;

-- Primary and unique keys are their indexes. A part without a column is an expression; one of a spatial index always has
-- a prefix that nobody wrote.
-- @indexes since 10
-- row: table, name, unique|key{p=primary,u=unique}|position|descending|prefix|option:ignored, column, method{BTREE=}, comment
SELECT i.TABLE_NAME, i.INDEX_NAME,
       CONCAT_WS('|', i.NON_UNIQUE = 0, IF(i.INDEX_NAME = 'PRIMARY', 'p', IF(i.NON_UNIQUE = 0, 'u', '')), i.SEQ_IN_INDEX,
         i.COLLATION <=> 'D', IF(i.INDEX_TYPE = 'SPATIAL', '', IFNULL(i.SUB_PART, '')), /*@since 10.6 IF(i.IGNORED = 'YES', 1, '') @else*/ '' /*@end*/),
       i.COLUMN_NAME, i.INDEX_TYPE, NULLIF(i.INDEX_COMMENT, '')
FROM information_schema.STATISTICS i
WHERE i.TABLE_SCHEMA = /*@schema ?(schema) @else*/ DATABASE() /*@end*/
  /*@tables AND i.TABLE_NAME IN (?list(table)) */;

-- @indexes before 10
-- row: table, name, unique|key{p=primary,u=unique}|position|descending|prefix|option:invisible, column, expression, method{BTREE=}, comment
SELECT i.TABLE_NAME, i.INDEX_NAME,
       CONCAT_WS('|', i.NON_UNIQUE = 0, IF(i.INDEX_NAME = 'PRIMARY', 'p', IF(i.NON_UNIQUE = 0, 'u', '')), i.SEQ_IN_INDEX,
         i.COLLATION <=> 'D', IF(i.INDEX_TYPE = 'SPATIAL', '', IFNULL(i.SUB_PART, '')), IF(i.IS_VISIBLE = 'NO', 1, '')),
       i.COLUMN_NAME, i.EXPRESSION, i.INDEX_TYPE, NULLIF(i.INDEX_COMMENT, '')
FROM information_schema.STATISTICS i
WHERE i.TABLE_SCHEMA = /*@schema ?(schema) @else*/ DATABASE() /*@end*/
  /*@tables AND i.TABLE_NAME IN (?list(table)) */;

-- InnoDB's own tables, which need the right PROCESS: a tenth of the time. Other engines have no foreign keys. Names of
-- databases and tables stand in them as file names. Bits of TYPE: 1 and 2 on delete cascade and set null, 4 and 8 the
-- same on update, 16 and 32 no action. Up to 12.0 a key's name is unique in its database, and its ID is both.
-- Single tables cost less where the server can look them up, which it does where a table's name is compared with constants
-- alone: beside a join by that name it opens every table (1 s of 20,000 tables, 0.4 ms as it stands).
-- @foreign_keys since 10 before 12.1
-- row: table, name, position, column, target_schema, target_table, target_column, on_update, on_delete
/*@tables SELECT k.TABLE_NAME, k.CONSTRAINT_NAME, k.ORDINAL_POSITION, k.COLUMN_NAME, k.REFERENCED_TABLE_SCHEMA,
       k.REFERENCED_TABLE_NAME, k.REFERENCED_COLUMN_NAME, LOWER(r.UPDATE_RULE), LOWER(r.DELETE_RULE)
FROM (SELECT u.TABLE_NAME, u.CONSTRAINT_NAME, u.ORDINAL_POSITION, u.COLUMN_NAME, u.REFERENCED_TABLE_SCHEMA, u.REFERENCED_TABLE_NAME,
             u.REFERENCED_COLUMN_NAME
      FROM information_schema.KEY_COLUMN_USAGE u
      WHERE u.TABLE_SCHEMA = ?(schema) AND u.TABLE_NAME IN (?list(table)) AND u.REFERENCED_TABLE_NAME IS NOT NULL
      LIMIT 1000000000) k
LEFT JOIN (SELECT c.TABLE_NAME, c.CONSTRAINT_NAME, c.UPDATE_RULE, c.DELETE_RULE
           FROM information_schema.REFERENTIAL_CONSTRAINTS c
           WHERE c.CONSTRAINT_SCHEMA = ?(schema) AND c.TABLE_NAME IN (?list(table))
           LIMIT 1000000000) r
  ON r.TABLE_NAME = k.TABLE_NAME AND r.CONSTRAINT_NAME = k.CONSTRAINT_NAME
 AND CAST(r.TABLE_NAME AS BINARY) = CAST(k.TABLE_NAME AS BINARY)
 AND CAST(r.CONSTRAINT_NAME AS BINARY) = CAST(k.CONSTRAINT_NAME AS BINARY) @else*/SELECT CONVERT(CAST(SUBSTRING(f.FOR_NAME, LOCATE('/', f.FOR_NAME) + 1) AS BINARY) USING filename),
       SUBSTRING(f.ID, LOCATE('/', f.ID) + 1), c.POS, c.FOR_COL_NAME,
       CONVERT(CAST(SUBSTRING_INDEX(f.REF_NAME, '/', 1) AS BINARY) USING filename),
       CONVERT(CAST(SUBSTRING(f.REF_NAME, LOCATE('/', f.REF_NAME) + 1) AS BINARY) USING filename),
       c.REF_COL_NAME,
       CASE WHEN f.TYPE & 4 THEN 'cascade' WHEN f.TYPE & 8 THEN 'set null' WHEN f.TYPE & 32 THEN 'no action' ELSE 'restrict' END,
       CASE WHEN f.TYPE & 1 THEN 'cascade' WHEN f.TYPE & 2 THEN 'set null' WHEN f.TYPE & 16 THEN 'no action' ELSE 'restrict' END
FROM (SELECT * FROM information_schema.INNODB_SYS_FOREIGN
      WHERE CAST(SUBSTRING_INDEX(FOR_NAME, '/', 1) AS BINARY) =
            CAST(CONVERT(/*@schema ?(schema) @else*/ DATABASE() /*@end*/ USING filename) AS BINARY)
      LIMIT 1000000000) f
JOIN (SELECT * FROM information_schema.INNODB_SYS_FOREIGN_COLS
      WHERE CAST(SUBSTRING_INDEX(ID, '/', 1) AS BINARY) =
            CAST(CONVERT(/*@schema ?(schema) @else*/ DATABASE() /*@end*/ USING filename) AS BINARY)
      LIMIT 1000000000) c ON c.ID = f.ID AND CAST(c.ID AS BINARY) = CAST(f.ID AS BINARY)/*@end*/;

-- Everybody. Users who may only select from a table get its keys from the one and nothing from the other.
-- @foreign_keys fallback
-- row: table, name, position, column, target_schema, target_table, target_column, on_update, on_delete
SELECT k.TABLE_NAME, k.CONSTRAINT_NAME, k.ORDINAL_POSITION, k.COLUMN_NAME, k.REFERENCED_TABLE_SCHEMA,
       k.REFERENCED_TABLE_NAME, k.REFERENCED_COLUMN_NAME, LOWER(r.UPDATE_RULE), LOWER(r.DELETE_RULE)
FROM (SELECT TABLE_NAME, CONSTRAINT_NAME, ORDINAL_POSITION, COLUMN_NAME, REFERENCED_TABLE_SCHEMA, REFERENCED_TABLE_NAME,
             REFERENCED_COLUMN_NAME
      FROM information_schema.KEY_COLUMN_USAGE
      WHERE TABLE_SCHEMA = /*@schema ?(schema) @else*/ DATABASE() /*@end*/ AND REFERENCED_TABLE_NAME IS NOT NULL
        /*@tables AND TABLE_NAME IN (?list(table)) */
      LIMIT 1000000000) k
LEFT JOIN (SELECT TABLE_NAME, CONSTRAINT_NAME, UPDATE_RULE, DELETE_RULE
           FROM information_schema.REFERENTIAL_CONSTRAINTS
           WHERE CONSTRAINT_SCHEMA = /*@schema ?(schema) @else*/ DATABASE() /*@end*/
             /*@tables AND TABLE_NAME IN (?list(table)) */
           LIMIT 1000000000) r
  ON r.TABLE_NAME = k.TABLE_NAME AND r.CONSTRAINT_NAME = k.CONSTRAINT_NAME
 AND CAST(r.TABLE_NAME AS BINARY) = CAST(k.TABLE_NAME AS BINARY)
 AND CAST(r.CONSTRAINT_NAME AS BINARY) = CAST(k.CONSTRAINT_NAME AS BINARY);

-- What REFERENTIAL_CONSTRAINTS keeps from who may only select, this shows to the same user.
-- @definitions since 10 for each table
-- row: table, definition
SHOW CREATE TABLE /*@each ?name(schema).?name(table) @else*/ information_schema.TABLES /*@end*/;

-- A column's own check has the column's name.
-- @checks since 10
-- row: table, name, expression, column, option:level{Table=}
SELECT k.TABLE_NAME, k.CONSTRAINT_NAME, k.CHECK_CLAUSE,
       /*@since 10.5.10 IF(k.LEVEL = 'Column', k.CONSTRAINT_NAME, NULL), k.LEVEL @else*/ NULL, NULL /*@end*/
FROM information_schema.CHECK_CONSTRAINTS k
WHERE k.CONSTRAINT_SCHEMA = /*@schema ?(schema) @else*/ DATABASE() /*@end*/
  /*@tables AND k.TABLE_NAME IN (?list(table)) */;

-- @checks since 8.0.16 before 10
-- row: table, name, expression, enforced
SELECT t.TABLE_NAME, k.CONSTRAINT_NAME, k.CHECK_CLAUSE, t.ENFORCED = 'YES'
FROM information_schema.CHECK_CONSTRAINTS k
JOIN information_schema.TABLE_CONSTRAINTS t
  ON t.CONSTRAINT_SCHEMA = k.CONSTRAINT_SCHEMA AND t.CONSTRAINT_NAME = k.CONSTRAINT_NAME AND t.CONSTRAINT_TYPE = 'CHECK'
WHERE k.CONSTRAINT_SCHEMA = /*@schema ?(schema) @else*/ DATABASE() /*@end*/
  /*@tables AND t.TABLE_NAME IN (?list(table)) */;

-- @triggers
-- row: table, name, timing, events, text, option:order{1=}
SELECT g.EVENT_OBJECT_TABLE, g.TRIGGER_NAME, LOWER(g.ACTION_TIMING), LOWER(g.EVENT_MANIPULATION), g.ACTION_STATEMENT,
       g.ACTION_ORDER
FROM information_schema.TRIGGERS g
WHERE g.EVENT_OBJECT_SCHEMA = /*@schema ?(schema) @else*/ DATABASE() /*@end*/
  /*@tables AND g.EVENT_OBJECT_TABLE IN (?list(table)) */;

-- A sequence is a table of one row, its type that of any of the values in it.
-- @sequences since 10 for each sequence
-- row: name, type, start, increment, minimum, maximum, cycle, cache
/*@each SELECT ?(table),
       (SELECT c.DATA_TYPE FROM information_schema.COLUMNS c
        WHERE c.TABLE_SCHEMA = ?(schema) AND c.TABLE_NAME = ?(table) AND c.COLUMN_NAME = 'minimum_value'),
       s.start_value, s.increment, s.minimum_value, s.maximum_value, s.cycle_option, s.cache_size
FROM ?name(schema).?name(table) s @else*/ SELECT NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL /*@end*/;

-- A function and a procedure may share a name. The text is shown to who made the routine or may read all of them.
-- @routines
-- row: name, id, kind{FUNCTION=function,PROCEDURE=procedure}, result, language, text, comment, option:deterministic{NO=}, option:data access{CONTAINS SQL=}, option:security{DEFINER=}, reason
SELECT r.ROUTINE_NAME, CONCAT(r.ROUTINE_TYPE, ' ', r.SPECIFIC_NAME), r.ROUTINE_TYPE, r.DTD_IDENTIFIER,
       IFNULL(r.EXTERNAL_LANGUAGE, r.ROUTINE_BODY), r.ROUTINE_DEFINITION, NULLIF(r.ROUTINE_COMMENT, ''), r.IS_DETERMINISTIC,
       r.SQL_DATA_ACCESS, r.SECURITY_TYPE,
       IF(r.ROUTINE_DEFINITION IS NULL, 'the server shows the text of a routine to who made it, or may read all routines', NULL)
FROM information_schema.ROUTINES r
WHERE r.ROUTINE_SCHEMA = /*@schema ?(schema) @else*/ DATABASE() /*@end*/ AND r.ROUTINE_TYPE IN ('FUNCTION', 'PROCEDURE');

-- Position 0 is a function's result.
-- @parameters
-- row: id, position, mode, name, type
SELECT CONCAT(p.ROUTINE_TYPE, ' ', p.SPECIFIC_NAME), p.ORDINAL_POSITION, LOWER(p.PARAMETER_MODE), p.PARAMETER_NAME,
       p.DTD_IDENTIFIER
FROM information_schema.PARAMETERS p
WHERE p.SPECIFIC_SCHEMA = /*@schema ?(schema) @else*/ DATABASE() /*@end*/ AND p.ORDINAL_POSITION > 0;
