-- DB2 for Linux, UNIX and Windows 10.1 and later: the views of SYSCAT. Tables are found by their names.
--
-- Columns used (https://www.ibm.com/docs/en/db2/11.5?topic=sql-catalog-views, the pages of SYSCAT.TABLES, SYSCAT.COLUMNS, ...), all of 9.7
-- but for: SYSCAT.TABLES.TEMPORALTYPE, SYSCAT.TRIGGERS.EVENTINSERT, EVENTUPDATE and EVENTDELETE 10.1; SYSCAT.INDEXCOLUSE.TEXT 10.5;
-- SYSCAT.COLUMNS.TYPESTRINGUNITS and STRINGUNITSLENGTH, which a fix pack of 10.5 brought, are asked for from 11.1 on.
-- A schema's name of less than 8 bytes fills 8 with blanks in the catalog (TABLE_SCHEMA on the page of that function gives such a one). They
-- are cut off where a name is shown; comparisons take no notice of them. What is made in a module has the module's name before its own.
-- An alias is a synonym; a nickname, a table of another server, a foreign table.
--
-- dialect: db2
-- product: DB2/*
-- version: 10.1
-- quote: "
-- list limit: 1000
-- type: BIT = boolean
-- type: SMALLINT = smallint
-- type: INTEGER = integer
-- type: BIGINT = bigint
-- type: REAL = real
-- type: DOUBLE = double
-- type: DECIMAL = decimal
-- type: NUMERIC = decfloat
-- type: CHAR = character, graphic
-- type: VARCHAR = varchar, vargraphic
-- type: LONGVARCHAR = clob, dbclob, long varchar, long vargraphic
-- type: BINARY = binary
-- type: VARBINARY = varbinary
-- type: LONGVARBINARY = blob
-- type: DATE = date
-- type: TIME = time
-- type: TIMESTAMP = timestamp

-- @server
-- row: catalog, schema, sample, in_transaction
SELECT CURRENT_SERVER, RTRIM(CURRENT_SCHEMA), 'ä€', 0 FROM SYSIBM.SYSDUMMY1;

-- @probe
-- row: -
SELECT COUNT(t.TEMPORALTYPE) FROM SYSCAT.TABLES t WHERE t.TABSCHEMA = 'SYSCAT' AND t.TABNAME = 'TABLES';

-- @schemas
-- row: schema, comment
SELECT RTRIM(s.SCHEMANAME), s.REMARKS FROM SYSCAT.SCHEMATA s WHERE ((s.SCHEMANAME NOT LIKE 'SYS%' AND s.SCHEMANAME NOT IN ('NULLID', 'SQLJ')) /*@system OR 1 = 1 */);

-- @tables
-- row: schema, table, kind{T=table,U=table,V=view,W=view,S=materialized view,G=temporary table,N=foreign table,A=synonym,L=table}, option:temporal{N=,S=system,A=application,B=both},
-- row: comment, target_schema, target_table
SELECT RTRIM(t.TABSCHEMA), t.TABNAME, t.TYPE, t.TEMPORALTYPE, t.REMARKS, RTRIM(t.BASE_TABSCHEMA), t.BASE_TABNAME
FROM SYSCAT.TABLES t
WHERE t.TYPE IN ('T', 'U', 'V', 'W', 'S', 'G', 'N', 'A', 'L') AND ((t.TABSCHEMA NOT LIKE 'SYS%' AND t.TABSCHEMA NOT IN ('NULLID', 'SQLJ')) /*@system OR 1 = 1 */)
  /*@owners AND t.TABSCHEMA IN (?list(owner)) */
  /*@tables AND t.TABNAME IN (?list(table)) */;

-- One column of a table at most numbers itself.
-- @table_options
-- row: schema, table, option:server, option:remote schema, option:remote table, option:identity start{1=}, option:identity increment{1=}
SELECT RTRIM(n.TABSCHEMA), n.TABNAME, n.SERVERNAME, n.REMOTE_SCHEMA, n.REMOTE_TABLE, CAST(NULL AS DECIMAL(31, 0)), CAST(NULL AS DECIMAL(31, 0))
FROM SYSCAT.NICKNAMES n
WHERE ((n.TABSCHEMA NOT LIKE 'SYS%' AND n.TABSCHEMA NOT IN ('NULLID', 'SQLJ')) /*@system OR 1 = 1 */)
  /*@owners AND n.TABSCHEMA IN (?list(owner)) */
  /*@tables AND n.TABNAME IN (?list(table)) */
UNION ALL
SELECT RTRIM(i.TABSCHEMA), i.TABNAME, CAST(NULL AS VARCHAR(128)), CAST(NULL AS VARCHAR(128)), CAST(NULL AS VARCHAR(128)), i.START, i.INCREMENT
FROM SYSCAT.COLIDENTATTRIBUTES i
WHERE ((i.TABSCHEMA NOT LIKE 'SYS%' AND i.TABSCHEMA NOT IN ('NULLID', 'SQLJ')) /*@system OR 1 = 1 */)
  /*@owners AND i.TABSCHEMA IN (?list(owner)) */
  /*@tables AND i.TABNAME IN (?list(table)) */;

-- Codepage 0: FOR BIT DATA. Lengths are bytes, or characters where the column is declared so. The text of a computed column begins with AS.
-- @columns
-- row: schema, table, position, column, type, base_type, type_schema, length, precision, scale, nullable{Y=1,N=0}, default, generated,
-- row: expression, identity{A=always,D=by default}, option:for bit data, option:hidden{=,N=,I=yes,S=yes}, comment
SELECT RTRIM(c.TABSCHEMA), c.TABNAME, c.COLNO + 1, c.COLNAME,
       CASE WHEN c.TYPESCHEMA <> 'SYSIBM' THEN RTRIM(c.TYPESCHEMA) || '.' || c.TYPENAME
            /*@since 11.1 WHEN c.TYPESTRINGUNITS = 'CODEUNITS32' THEN c.TYPENAME || '(' || c.STRINGUNITSLENGTH || ' CODEUNITS32)' */
            WHEN c.TYPENAME IN ('CHARACTER', 'VARCHAR', 'GRAPHIC', 'VARGRAPHIC', 'BINARY', 'VARBINARY', 'CLOB', 'DBCLOB', 'BLOB')
              THEN c.TYPENAME || '(' || c.LENGTH || ')'
            WHEN c.TYPENAME = 'DECIMAL' THEN 'DECIMAL(' || c.LENGTH || ',' || c.SCALE || ')'
            WHEN c.TYPENAME = 'DECFLOAT' THEN CASE c.LENGTH WHEN 8 THEN 'DECFLOAT(16)' ELSE 'DECFLOAT(34)' END
            WHEN c.TYPENAME = 'TIMESTAMP' THEN 'TIMESTAMP(' || c.SCALE || ')'
            ELSE c.TYPENAME END,
       c.TYPENAME, CASE WHEN c.TYPESCHEMA <> 'SYSIBM' THEN RTRIM(c.TYPESCHEMA) END,
       CASE /*@since 11.1 WHEN c.TYPESTRINGUNITS = 'CODEUNITS32' THEN c.STRINGUNITSLENGTH */ WHEN c.TYPENAME IN ('CHARACTER', 'VARCHAR', 'GRAPHIC', 'VARGRAPHIC', 'BINARY', 'VARBINARY', 'CLOB', 'DBCLOB', 'BLOB') THEN c.LENGTH END,
       CASE WHEN c.TYPENAME = 'DECIMAL' THEN c.LENGTH WHEN c.TYPENAME = 'TIMESTAMP' THEN c.SCALE END,
       CASE WHEN c.TYPENAME = 'DECIMAL' THEN c.SCALE END,
       c.NULLS, c."DEFAULT", CASE WHEN c.GENERATED = 'A' AND c.IDENTITY = 'N' AND c.TEXT IS NOT NULL THEN 'stored' END,
       CASE WHEN c.GENERATED = 'A' AND c.IDENTITY = 'N' THEN SUBSTR(c.TEXT, 4) END,
       CASE WHEN c.IDENTITY = 'Y' THEN c.GENERATED END,
       CASE WHEN c.CODEPAGE = 0 AND c.TYPENAME IN ('CHARACTER', 'VARCHAR') THEN 1 END, RTRIM(c.HIDDEN), c.REMARKS
FROM SYSCAT.COLUMNS c
WHERE ((c.TABSCHEMA NOT LIKE 'SYS%' AND c.TABSCHEMA NOT IN ('NULLID', 'SQLJ')) /*@system OR 1 = 1 */)
  /*@owners AND c.TABSCHEMA IN (?list(owner)) */
  /*@tables AND c.TABNAME IN (?list(table)) */;

-- @view_texts
-- row: schema, table, definition, option:check option{N=,L=local,C=cascaded}
SELECT RTRIM(v.VIEWSCHEMA), v.VIEWNAME, v.TEXT, v.VIEWCHECK
FROM SYSCAT.VIEWS v
WHERE ((v.VIEWSCHEMA NOT LIKE 'SYS%' AND v.VIEWSCHEMA NOT IN ('NULLID', 'SQLJ')) /*@system OR 1 = 1 */)
  /*@owners AND v.VIEWSCHEMA IN (?list(owner)) */
  /*@tables AND v.VIEWNAME IN (?list(table)) */;

-- @keys
-- row: schema, table, name, kind{P=primary,U=unique}, position, column, comment
SELECT RTRIM(k.TABSCHEMA), k.TABNAME, k.CONSTNAME, k.TYPE, u.COLSEQ, u.COLNAME, k.REMARKS
FROM SYSCAT.TABCONST k
JOIN SYSCAT.KEYCOLUSE u ON u.TABSCHEMA = k.TABSCHEMA AND u.TABNAME = k.TABNAME AND u.CONSTNAME = k.CONSTNAME
WHERE k.TYPE IN ('P', 'U') AND ((k.TABSCHEMA NOT LIKE 'SYS%' AND k.TABSCHEMA NOT IN ('NULLID', 'SQLJ')) /*@system OR 1 = 1 */)
  /*@owners AND k.TABSCHEMA IN (?list(owner)) */
  /*@tables AND k.TABNAME IN (?list(table)) */;

-- The columns pair by their place in the two keys; FK_COLNAMES cuts long names.
-- @foreign_keys
-- row: schema, table, name, position, column, target_schema, target_table, target_column, on_update{A=no action,R=restrict},
-- row: on_delete{A=no action,R=restrict,C=cascade,N=set null}, enforced{Y=1,N=0}
SELECT RTRIM(f.TABSCHEMA), f.TABNAME, f.CONSTNAME, c.COLSEQ, c.COLNAME, RTRIM(f.REFTABSCHEMA), f.REFTABNAME, r.COLNAME, f.UPDATERULE, f.DELETERULE, k.ENFORCED
FROM SYSCAT."REFERENCES" f
JOIN SYSCAT.TABCONST k ON k.TABSCHEMA = f.TABSCHEMA AND k.TABNAME = f.TABNAME AND k.CONSTNAME = f.CONSTNAME
JOIN SYSCAT.KEYCOLUSE c ON c.TABSCHEMA = f.TABSCHEMA AND c.TABNAME = f.TABNAME AND c.CONSTNAME = f.CONSTNAME
JOIN SYSCAT.KEYCOLUSE r ON r.TABSCHEMA = f.REFTABSCHEMA AND r.TABNAME = f.REFTABNAME AND r.CONSTNAME = f.REFKEYNAME AND r.COLSEQ = c.COLSEQ
WHERE ((f.TABSCHEMA NOT LIKE 'SYS%' AND f.TABSCHEMA NOT IN ('NULLID', 'SQLJ')) /*@system OR 1 = 1 */)
  /*@owners AND f.TABSCHEMA IN (?list(owner)) */
  /*@tables AND f.TABNAME IN (?list(table)) */;

-- The others are what the server makes of generated columns and of functional dependencies.
-- @checks
-- row: schema, table, name, expression
SELECT RTRIM(k.TABSCHEMA), k.TABNAME, k.CONSTNAME, k.TEXT
FROM SYSCAT.CHECKS k
WHERE k.TYPE = 'C' AND ((k.TABSCHEMA NOT LIKE 'SYS%' AND k.TABSCHEMA NOT IN ('NULLID', 'SQLJ')) /*@system OR 1 = 1 */)
  /*@owners AND k.TABSCHEMA IN (?list(owner)) */
  /*@tables AND k.TABNAME IN (?list(table)) */;

-- Not those that the server makes for itself: page maps, states, the paths and regions of XML, the files behind its indexes.
-- @indexes
-- row: schema, table, name, unique{P=1,U=1,D=0}, position, column, expression, descending{A=0,D=1,I=0,R=0}, included{A=0,D=0,I=1,R=0},
-- row: option:clustering{REG=,CLUS=yes}, comment
SELECT RTRIM(i.TABSCHEMA), i.TABNAME, i.INDNAME, i.UNIQUERULE, c.COLSEQ, /*@before 10.5 c.COLNAME, CAST(NULL AS VARCHAR(1)), @else*/ CASE WHEN c.TEXT IS NULL THEN c.COLNAME END, c.TEXT, /*@end*/
       c.COLORDER, c.COLORDER, RTRIM(i.INDEXTYPE), i.REMARKS
FROM SYSCAT.INDEXES i
JOIN SYSCAT.INDEXCOLUSE c ON c.INDSCHEMA = i.INDSCHEMA AND c.INDNAME = i.INDNAME
WHERE i.INDEXTYPE NOT IN ('CPMA', 'MDST', 'XPTH', 'XRGN', 'XVIP') AND ((i.TABSCHEMA NOT LIKE 'SYS%' AND i.TABSCHEMA NOT IN ('NULLID', 'SQLJ')) /*@system OR 1 = 1 */)
  /*@owners AND i.TABSCHEMA IN (?list(owner)) */
  /*@tables AND i.TABNAME IN (?list(table)) */;

-- @triggers
-- row: schema, table, name, timing{A=after,B=before,I=instead of}, events, text, option:granularity{R=row,S=statement}, option:valid{Y=,N=no,X=no}, comment
SELECT RTRIM(g.TABSCHEMA), g.TABNAME, g.TRIGNAME, g.TRIGTIME,
       SUBSTR(CASE WHEN g.EVENTINSERT = 'Y' THEN ', insert' ELSE '' END || CASE WHEN g.EVENTUPDATE = 'Y' THEN ', update' ELSE '' END ||
              CASE WHEN g.EVENTDELETE = 'Y' THEN ', delete' ELSE '' END, 3),
       g.TEXT, g.GRANULARITY, g.VALID, g.REMARKS
FROM SYSCAT.TRIGGERS g
WHERE ((g.TABSCHEMA NOT LIKE 'SYS%' AND g.TABSCHEMA NOT IN ('NULLID', 'SQLJ')) /*@system OR 1 = 1 */)
  /*@owners AND g.TABSCHEMA IN (?list(owner)) */
  /*@tables AND g.TABNAME IN (?list(table)) */;

-- A distinct type has one row, a structured one a row for each attribute, a row type one for each field.
-- @types
-- row: schema, name, kind{T=distinct,R=composite,F=composite}, base_type, comment, position, attribute, attribute_type
SELECT RTRIM(t.TYPESCHEMA), COALESCE(t.TYPEMODULENAME || '.', '') || t.TYPENAME, t.METATYPE,
       CASE WHEN t.METATYPE <> 'T' THEN NULL
            WHEN t.SOURCENAME IN ('CHARACTER', 'VARCHAR', 'GRAPHIC', 'VARGRAPHIC', 'BINARY', 'VARBINARY', 'CLOB', 'DBCLOB', 'BLOB')
              THEN t.SOURCENAME || '(' || t.LENGTH || ')'
            WHEN t.SOURCENAME = 'DECIMAL' THEN 'DECIMAL(' || t.LENGTH || ',' || t.SCALE || ')'
            WHEN t.SOURCENAME = 'DECFLOAT' THEN CASE t.LENGTH WHEN 8 THEN 'DECFLOAT(16)' ELSE 'DECFLOAT(34)' END
            WHEN t.SOURCENAME = 'TIMESTAMP' THEN 'TIMESTAMP(' || t.SCALE || ')'
            ELSE t.SOURCENAME END,
       t.REMARKS, a.ORDINAL + 1, a.ATTR_NAME,
       CASE WHEN a.ATTR_TYPESCHEMA <> 'SYSIBM' THEN RTRIM(a.ATTR_TYPESCHEMA) || '.' || a.ATTR_TYPENAME
            WHEN a.ATTR_TYPENAME IN ('CHARACTER', 'VARCHAR', 'GRAPHIC', 'VARGRAPHIC', 'BINARY', 'VARBINARY', 'CLOB', 'DBCLOB', 'BLOB')
              THEN a.ATTR_TYPENAME || '(' || a.LENGTH || ')'
            WHEN a.ATTR_TYPENAME = 'DECIMAL' THEN 'DECIMAL(' || a.LENGTH || ',' || a.SCALE || ')'
            WHEN a.ATTR_TYPENAME = 'DECFLOAT' THEN CASE a.LENGTH WHEN 8 THEN 'DECFLOAT(16)' ELSE 'DECFLOAT(34)' END
            WHEN a.ATTR_TYPENAME = 'TIMESTAMP' THEN 'TIMESTAMP(' || a.SCALE || ')'
            ELSE a.ATTR_TYPENAME END
FROM SYSCAT.DATATYPES t
LEFT JOIN SYSCAT.ATTRIBUTES a ON a.TYPESCHEMA = t.TYPESCHEMA AND a.TYPENAME = t.TYPENAME AND t.METATYPE = 'R'
WHERE t.METATYPE IN ('T', 'R') AND ((t.TYPESCHEMA NOT LIKE 'SYS%' AND t.TYPESCHEMA NOT IN ('NULLID', 'SQLJ')) /*@system OR 1 = 1 */)
  /*@owners AND t.TYPESCHEMA IN (?list(owner)) */
UNION ALL
SELECT RTRIM(t.TYPESCHEMA), COALESCE(t.TYPEMODULENAME || '.', '') || t.TYPENAME, t.METATYPE, CAST(NULL AS VARCHAR(128)), t.REMARKS, a.ORDINAL + 1, a.FIELDNAME,
       CASE WHEN a.FIELDTYPESCHEMA <> 'SYSIBM' THEN RTRIM(a.FIELDTYPESCHEMA) || '.' || COALESCE(a.FIELDTYPEMODULENAME || '.', '') || a.FIELDTYPENAME
            WHEN a.FIELDTYPENAME IN ('CHARACTER', 'VARCHAR', 'GRAPHIC', 'VARGRAPHIC', 'BINARY', 'VARBINARY', 'CLOB', 'DBCLOB', 'BLOB')
              THEN a.FIELDTYPENAME || '(' || a.LENGTH || ')'
            WHEN a.FIELDTYPENAME = 'DECIMAL' THEN 'DECIMAL(' || a.LENGTH || ',' || a.SCALE || ')'
            WHEN a.FIELDTYPENAME = 'DECFLOAT' THEN CASE a.LENGTH WHEN 8 THEN 'DECFLOAT(16)' ELSE 'DECFLOAT(34)' END
            WHEN a.FIELDTYPENAME = 'TIMESTAMP' THEN 'TIMESTAMP(' || a.SCALE || ')'
            ELSE a.FIELDTYPENAME END
FROM SYSCAT.DATATYPES t
JOIN SYSCAT.ROWFIELDS a ON a.TYPESCHEMA = t.TYPESCHEMA AND a.TYPENAME = t.TYPENAME AND COALESCE(a.TYPEMODULENAME, '') = COALESCE(t.TYPEMODULENAME, '')
WHERE t.METATYPE = 'F' AND ((t.TYPESCHEMA NOT LIKE 'SYS%' AND t.TYPESCHEMA NOT IN ('NULLID', 'SQLJ')) /*@system OR 1 = 1 */)
  /*@owners AND t.TYPESCHEMA IN (?list(owner)) */;

-- @not_read
-- row: kind, schema, name, reason, failed
SELECT 'types', RTRIM(t.TYPESCHEMA), COALESCE(t.TYPEMODULENAME || '.', '') || t.TYPENAME,
       CASE t.METATYPE WHEN 'C' THEN 'a cursor type' ELSE 'an array type' END, 0
FROM SYSCAT.DATATYPES t
WHERE t.METATYPE IN ('A', 'C', 'L') AND ((t.TYPESCHEMA NOT LIKE 'SYS%' AND t.TYPESCHEMA NOT IN ('NULLID', 'SQLJ')) /*@system OR 1 = 1 */)
  /*@owners AND t.TYPESCHEMA IN (?list(owner)) */;

-- Those of identity columns are the columns' affair.
-- @sequences
-- row: schema, name, type, start, increment, minimum, maximum, cycle{Y=1,N=0}, cache, comment
SELECT RTRIM(q.SEQSCHEMA), q.SEQNAME, CASE d.TYPENAME WHEN 'DECIMAL' THEN 'DECIMAL(' || q.PRECISION || ',0)' ELSE d.TYPENAME END, q.START, q.INCREMENT, q.MINVALUE, q.MAXVALUE, q.CYCLE, q.CACHE, q.REMARKS
FROM SYSCAT.SEQUENCES q LEFT JOIN SYSCAT.DATATYPES d ON d.TYPEID = q.DATATYPEID
WHERE q.SEQTYPE = 'S' AND ((q.SEQSCHEMA NOT LIKE 'SYS%' AND q.SEQSCHEMA NOT IN ('NULLID', 'SQLJ')) /*@system OR 1 = 1 */)
  /*@owners AND q.SEQSCHEMA IN (?list(owner)) */;

-- Not what the server made: built in (B), for types and their casts (R, S), transforms (T).
-- @routines
-- row: schema, name, id, kind, result, language, text, option:specific name, comment
SELECT RTRIM(r.ROUTINESCHEMA), COALESCE(r.ROUTINEMODULENAME || '.', '') || r.ROUTINENAME,
       RTRIM(r.ROUTINESCHEMA) || '.' || COALESCE(r.ROUTINEMODULENAME || '.', '') || r.SPECIFICNAME,
       CASE WHEN r.ROUTINETYPE = 'P' THEN 'procedure' WHEN r.FUNCTIONTYPE = 'C' THEN 'aggregate' ELSE 'function' END,
       CASE WHEN r.FUNCTIONTYPE = 'T' THEN 'TABLE'
            WHEN p.TYPESCHEMA <> 'SYSIBM' THEN RTRIM(p.TYPESCHEMA) || '.' || p.TYPENAME
            WHEN p.TYPENAME IN ('CHARACTER', 'VARCHAR', 'GRAPHIC', 'VARGRAPHIC', 'BINARY', 'VARBINARY', 'CLOB', 'DBCLOB', 'BLOB')
              THEN p.TYPENAME || '(' || p.LENGTH || ')'
            WHEN p.TYPENAME = 'DECIMAL' THEN 'DECIMAL(' || p.LENGTH || ',' || p.SCALE || ')'
            WHEN p.TYPENAME = 'DECFLOAT' THEN CASE p.LENGTH WHEN 8 THEN 'DECFLOAT(16)' ELSE 'DECFLOAT(34)' END
            WHEN p.TYPENAME = 'TIMESTAMP' THEN 'TIMESTAMP(' || p.SCALE || ')'
            ELSE p.TYPENAME END,
       NULLIF(RTRIM(r.LANGUAGE), ''), r.TEXT, r.SPECIFICNAME, r.REMARKS
FROM SYSCAT.ROUTINES r
LEFT JOIN SYSCAT.ROUTINEPARMS p ON p.ROUTINESCHEMA = r.ROUTINESCHEMA AND p.SPECIFICNAME = r.SPECIFICNAME
  AND COALESCE(p.ROUTINEMODULENAME, '') = COALESCE(r.ROUTINEMODULENAME, '') AND p.ORDINAL = 0 AND p.ROWTYPE = 'C'
WHERE r.ORIGIN NOT IN ('B', 'R', 'S', 'T') AND ((r.ROUTINESCHEMA NOT LIKE 'SYS%' AND r.ROUTINESCHEMA NOT IN ('NULLID', 'SQLJ')) /*@system OR 1 = 1 */)
  /*@owners AND r.ROUTINESCHEMA IN (?list(owner)) */;

-- @parameters
-- row: id, position, mode{P=in,O=out,B=inout}, name, type
SELECT RTRIM(p.ROUTINESCHEMA) || '.' || COALESCE(p.ROUTINEMODULENAME || '.', '') || p.SPECIFICNAME, p.ORDINAL, p.ROWTYPE, p.PARMNAME,
       CASE WHEN p.TYPESCHEMA <> 'SYSIBM' THEN RTRIM(p.TYPESCHEMA) || '.' || p.TYPENAME
            WHEN p.TYPENAME IN ('CHARACTER', 'VARCHAR', 'GRAPHIC', 'VARGRAPHIC', 'BINARY', 'VARBINARY', 'CLOB', 'DBCLOB', 'BLOB')
              THEN p.TYPENAME || '(' || p.LENGTH || ')'
            WHEN p.TYPENAME = 'DECIMAL' THEN 'DECIMAL(' || p.LENGTH || ',' || p.SCALE || ')'
            WHEN p.TYPENAME = 'DECFLOAT' THEN CASE p.LENGTH WHEN 8 THEN 'DECFLOAT(16)' ELSE 'DECFLOAT(34)' END
            WHEN p.TYPENAME = 'TIMESTAMP' THEN 'TIMESTAMP(' || p.SCALE || ')'
            ELSE p.TYPENAME END
FROM SYSCAT.ROUTINEPARMS p
WHERE p.ROWTYPE IN ('P', 'O', 'B') AND ((p.ROUTINESCHEMA NOT LIKE 'SYS%' AND p.ROUTINESCHEMA NOT IN ('NULLID', 'SQLJ')) /*@system OR 1 = 1 */)
  /*@owners AND p.ROUTINESCHEMA IN (?list(owner)) */;
