-- Informix: the system catalog of a database, owned by informix; of Dynamic Server 7.3 what is there.
--
-- Columns used, and since when: of 7.3 or older are SYSTABLES, SYSCOLUMNS, SYSSYNTABLE, SYSCONSTRAINTS, SYSREFERENCES, SYSINDEXES (a view since 9),
-- SYSOBJSTATE, SYSDEFAULTS, SYSCHECKS, SYSVIEWS, SYSTRIGGERS, SYSTRIGBODY, SYSPROCEDURES, SYSPROCBODY; since 9 SYSCOLUMNS.EXTENDED_ID, SYSXTDTYPES,
-- SYSATTRTYPES, SYSXTDDESC, SYSPROCEDURES.ISPROC and LANGID, SYSROUTINELANGS; since 9.40 SYSSEQUENCES; since 10 SYSPROCCOLUMNS.
-- A type is a number, 256 more where NULL is forbidden and 2048 and 4096 where it has a name; a length says two or three things at once. Texts are
-- kept in pieces of some characters. User tables are numbered from 100 on. A CASE of literals may be a CHAR as long as the longest, filled with
-- blanks: each is trimmed. NULL alone is no expression of a SELECT (https://help.hcl-software.com/hclinformix/1410/sqs/ids_sqs_0192.html).
--
-- Not here: fragments, rights, access methods, casts, operator classes. An index on a function is listed as not read: its parts are numbers of a function.
--
-- dialect: informix
-- product: Informix*
-- version: 7.3
-- list limit: 500
-- type: BIT = boolean
-- type: SMALLINT = smallint
-- type: INTEGER = integer, serial
-- type: BIGINT = bigint, int8, bigserial, serial8
-- type: REAL = smallfloat
-- type: DOUBLE = float
-- type: DECIMAL = decimal, money
-- type: CHAR = char, nchar
-- type: VARCHAR = varchar, nvarchar, lvarchar
-- type: LONGVARCHAR = text, clob
-- type: LONGVARBINARY = byte, blob
-- type: DATE = date
-- type: TIMESTAMP = datetime
-- type: INTERVAL = interval

-- @server
-- row: sample
SELECT 'ä€' FROM informix.systables t WHERE t.tabid = 1;

-- A server that only calls itself so lacks one of these; one of old age takes no LEFT JOIN.
-- @probe
-- row: -
SELECT COUNT(*) FROM informix.sysdefaults d LEFT JOIN informix.sysobjstate o ON o.tabid = d.tabid WHERE d.tabid = 0;

-- There is no list of owners.
-- @schemas
-- row: schema
SELECT DISTINCT TRIM(t.owner) FROM informix.systables t WHERE (t.tabid >= 100 /*@system OR t.tabid > 0 */)
UNION
SELECT DISTINCT TRIM(p.owner) FROM informix.sysprocedures p WHERE (p.owner <> 'informix' /*@system OR p.procid > 0 */);

-- E: outside the database; P: a synonym of its owner alone. A sequence (Q) is a table to the server.
-- @tables
-- row: table_id|kind{T=table,E=foreign table,V=view,S=synonym,P=synonym}|column_count, schema, table, target_server, target_database, target_schema, target_table
SELECT t.tabid || '|' || t.tabtype || '|' || CASE WHEN t.tabtype IN ('S', 'P') THEN 0 ELSE t.ncols END, TRIM(t.owner), TRIM(t.tabname),
       TRIM(s.servername), TRIM(s.dbname), CASE WHEN s.btabid IS NULL OR s.btabid = 0 THEN TRIM(s.owner) ELSE TRIM(b.owner) END,
       CASE WHEN s.btabid IS NULL OR s.btabid = 0 THEN TRIM(s.tabname) ELSE TRIM(b.tabname) END
FROM informix.systables t
LEFT JOIN informix.syssyntable s ON s.tabid = t.tabid
LEFT JOIN informix.systables b ON b.tabid = s.btabid
WHERE t.tabtype IN ('T', 'E', 'V', 'S', 'P') AND (t.tabid >= 100 /*@system OR t.tabid > 0 */)
  /*@owners AND t.owner IN (?list(owner)) */
  /*@tables AND t.tabname IN (?list(table)) */;

-- Collections and rows without a name are told by their description, of 256 characters, as far as one goes.
-- @columns
-- row: table_id|position|not_null|identity{0=,1=auto increment}, column, type, base_type, type_schema, length, precision, scale
SELECT c.tabid || '|' || c.colno || '|' || MOD(TRUNC(c.coltype / 256), 2) || '|' || CASE WHEN MOD(c.coltype, 256) IN (6, 18, 53) THEN 1 ELSE 0 END,
       TRIM(c.colname),
       TRIM(/*@since 9 CASE WHEN y.description IS NOT NULL THEN y.description WHEN x.name IS NULL OR x.name = '' THEN */
       CASE MOD(c.coltype, 256) WHEN 0 THEN 'CHAR(' || c.collength || ')' WHEN 1 THEN 'SMALLINT' WHEN 2 THEN 'INTEGER' WHEN 3 THEN 'FLOAT' WHEN 4 THEN 'SMALLFLOAT'
         WHEN 5 THEN 'DECIMAL(' || TRUNC(c.collength / 256) || CASE MOD(c.collength, 256) WHEN 255 THEN ')' ELSE ',' || MOD(c.collength, 256) || ')' END
         WHEN 6 THEN 'SERIAL' WHEN 7 THEN 'DATE' WHEN 8 THEN 'MONEY(' || TRUNC(c.collength / 256) || ',' || MOD(c.collength, 256) || ')'
         WHEN 10 THEN 'DATETIME ' || TRIM(CASE TRUNC(MOD(c.collength, 256) / 16) WHEN 0 THEN 'YEAR' WHEN 2 THEN 'MONTH' WHEN 4 THEN 'DAY' WHEN 6 THEN 'HOUR' WHEN 8 THEN 'MINUTE' WHEN 10 THEN 'SECOND' ELSE 'FRACTION' END) ||
           ' TO ' || CASE MOD(c.collength, 16) WHEN 0 THEN 'YEAR' WHEN 2 THEN 'MONTH' WHEN 4 THEN 'DAY' WHEN 6 THEN 'HOUR' WHEN 8 THEN 'MINUTE' WHEN 10 THEN 'SECOND' ELSE 'FRACTION(' || (MOD(c.collength, 16) - 10) || ')' END
         WHEN 11 THEN 'BYTE' WHEN 12 THEN 'TEXT' WHEN 13 THEN 'VARCHAR(' || MOD(c.collength + 65536, 256) ||
           CASE WHEN TRUNC(MOD(c.collength + 65536, 65536) / 256) = 0 THEN ')' ELSE ',' || TRUNC(MOD(c.collength + 65536, 65536) / 256) || ')' END
         WHEN 14 THEN 'INTERVAL ' || TRIM(CASE TRUNC(MOD(c.collength, 256) / 16) WHEN 0 THEN 'YEAR' WHEN 2 THEN 'MONTH' WHEN 4 THEN 'DAY' WHEN 6 THEN 'HOUR' WHEN 8 THEN 'MINUTE' WHEN 10 THEN 'SECOND' ELSE 'FRACTION' END) ||
           '(' || (TRUNC(c.collength / 256) - MOD(c.collength, 16) + TRUNC(MOD(c.collength, 256) / 16)) || ') TO ' || CASE MOD(c.collength, 16) WHEN 0 THEN 'YEAR' WHEN 2 THEN 'MONTH' WHEN 4 THEN 'DAY' WHEN 6 THEN 'HOUR' WHEN 8 THEN 'MINUTE' WHEN 10 THEN 'SECOND' ELSE 'FRACTION(' || (MOD(c.collength, 16) - 10) || ')' END
         WHEN 15 THEN 'NCHAR(' || c.collength || ')' WHEN 16 THEN 'NVARCHAR(' || MOD(c.collength + 65536, 256) ||
           CASE WHEN TRUNC(MOD(c.collength + 65536, 65536) / 256) = 0 THEN ')' ELSE ',' || TRUNC(MOD(c.collength + 65536, 65536) / 256) || ')' END
         WHEN 17 THEN 'INT8' WHEN 18 THEN 'SERIAL8' WHEN 19 THEN 'SET' WHEN 20 THEN 'MULTISET' WHEN 21 THEN 'LIST' WHEN 22 THEN 'ROW'
         WHEN 43 THEN 'LVARCHAR(' || c.collength || ')' WHEN 45 THEN 'BOOLEAN' WHEN 52 THEN 'BIGINT' WHEN 53 THEN 'BIGSERIAL' ELSE 'TYPE ' || MOD(c.coltype, 256) END
       /*@since 9 WHEN x.mode IN ('D', 'R') THEN TRIM(x.owner) || '.' || TRIM(x.name)
       WHEN x.name = 'lvarchar' THEN 'LVARCHAR(' || c.collength || ')' ELSE UPPER(x.name) END */),
       TRIM(/*@since 9 CASE WHEN x.name IS NULL OR x.name = '' THEN */ CASE MOD(c.coltype, 256) WHEN 0 THEN 'CHAR' WHEN 1 THEN 'SMALLINT' WHEN 2 THEN 'INTEGER' WHEN 3 THEN 'FLOAT' WHEN 4 THEN 'SMALLFLOAT' WHEN 5 THEN 'DECIMAL'
         WHEN 6 THEN 'SERIAL' WHEN 7 THEN 'DATE' WHEN 8 THEN 'MONEY' WHEN 10 THEN 'DATETIME' WHEN 11 THEN 'BYTE' WHEN 12 THEN 'TEXT' WHEN 13 THEN 'VARCHAR'
         WHEN 14 THEN 'INTERVAL' WHEN 15 THEN 'NCHAR' WHEN 16 THEN 'NVARCHAR' WHEN 17 THEN 'INT8' WHEN 18 THEN 'SERIAL8' WHEN 19 THEN 'SET'
         WHEN 20 THEN 'MULTISET' WHEN 21 THEN 'LIST' WHEN 22 THEN 'ROW' WHEN 43 THEN 'LVARCHAR' WHEN 45 THEN 'BOOLEAN' WHEN 52 THEN 'BIGINT'
         WHEN 53 THEN 'BIGSERIAL' ELSE 'TYPE ' || MOD(c.coltype, 256) END /*@since 9 ELSE UPPER(x.name) END */),
       /*@since 9 CASE WHEN x.mode IN ('D', 'R') THEN TRIM(x.owner) END @else*/ CASE WHEN 1 = 0 THEN '' END /*@end*/,
       CASE WHEN MOD(c.coltype, 256) IN (0, 15, 40, 43) THEN c.collength WHEN MOD(c.coltype, 256) IN (13, 16) THEN MOD(c.collength + 65536, 256) END,
       CASE WHEN MOD(c.coltype, 256) IN (5, 8) THEN TRUNC(c.collength / 256) WHEN MOD(c.coltype, 256) = 10 AND MOD(c.collength, 16) > 10 THEN MOD(c.collength, 16) - 10 END,
       CASE WHEN MOD(c.coltype, 256) IN (5, 8) AND MOD(c.collength, 256) <> 255 THEN MOD(c.collength, 256) END
FROM informix.syscolumns c
/*@since 9 LEFT JOIN informix.sysxtdtypes x ON x.extended_id = c.extended_id
LEFT JOIN informix.sysxtddesc y ON y.extended_id = x.extended_id AND x.mode = 'C' */
WHERE (c.tabid >= 100 /*@system OR c.tabid > 0 */)
  /*@since 9 AND (y.seqno IS NULL OR y.seqno = (SELECT MIN(z.seqno) FROM informix.sysxtddesc z WHERE z.extended_id = y.extended_id)) */
  /*@ids AND c.tabid IN (?list(table_id)) */;

-- What is no text has its value in a form of the server's before it, and a blank between; a BOOLEAN, which is one of the types 41, has not. A date (7) is
-- written in quotes.
-- @column_defaults
-- row: table_id|position, default
SELECT d.tabid || '|' || d.colno,
       TRIM(CASE d.type WHEN 'C' THEN 'CURRENT' WHEN 'N' THEN 'NULL' WHEN 'S' THEN 'DBSERVERNAME' WHEN 'T' THEN 'TODAY' WHEN 'U' THEN 'USER'
         ELSE CASE WHEN MOD(c.coltype, 256) IN (0, 13, 15, 16, 40, 43, 45) OR MOD(c.coltype, 256) = 41 AND TRIM(d.default) NOT LIKE '% %' THEN '''' || REPLACE(TRIM(d.default), '''', '''''') || '''' ELSE
              CASE MOD(c.coltype, 256) WHEN 7 THEN '''' ELSE '' END ||
              TRIM(CASE WHEN SUBSTR(d.default, 1, 1) = ' ' THEN SUBSTR(d.default, 2)
              WHEN SUBSTR(d.default, 2, 1) = ' ' THEN SUBSTR(d.default, 3)
              WHEN SUBSTR(d.default, 3, 1) = ' ' THEN SUBSTR(d.default, 4)
              WHEN SUBSTR(d.default, 4, 1) = ' ' THEN SUBSTR(d.default, 5)
              WHEN SUBSTR(d.default, 5, 1) = ' ' THEN SUBSTR(d.default, 6)
              WHEN SUBSTR(d.default, 6, 1) = ' ' THEN SUBSTR(d.default, 7)
              WHEN SUBSTR(d.default, 7, 1) = ' ' THEN SUBSTR(d.default, 8)
              WHEN SUBSTR(d.default, 8, 1) = ' ' THEN SUBSTR(d.default, 9)
              WHEN SUBSTR(d.default, 9, 1) = ' ' THEN SUBSTR(d.default, 10)
              WHEN SUBSTR(d.default, 10, 1) = ' ' THEN SUBSTR(d.default, 11)
              WHEN SUBSTR(d.default, 11, 1) = ' ' THEN SUBSTR(d.default, 12)
              WHEN SUBSTR(d.default, 12, 1) = ' ' THEN SUBSTR(d.default, 13)
              WHEN SUBSTR(d.default, 13, 1) = ' ' THEN SUBSTR(d.default, 14)
              WHEN SUBSTR(d.default, 14, 1) = ' ' THEN SUBSTR(d.default, 15)
              WHEN SUBSTR(d.default, 15, 1) = ' ' THEN SUBSTR(d.default, 16)
              WHEN SUBSTR(d.default, 16, 1) = ' ' THEN SUBSTR(d.default, 17)
              WHEN SUBSTR(d.default, 17, 1) = ' ' THEN SUBSTR(d.default, 18)
              WHEN SUBSTR(d.default, 18, 1) = ' ' THEN SUBSTR(d.default, 19)
              WHEN SUBSTR(d.default, 19, 1) = ' ' THEN SUBSTR(d.default, 20)
              WHEN SUBSTR(d.default, 20, 1) = ' ' THEN SUBSTR(d.default, 21)
              WHEN SUBSTR(d.default, 21, 1) = ' ' THEN SUBSTR(d.default, 22)
              WHEN SUBSTR(d.default, 22, 1) = ' ' THEN SUBSTR(d.default, 23)
              WHEN SUBSTR(d.default, 23, 1) = ' ' THEN SUBSTR(d.default, 24)
              WHEN SUBSTR(d.default, 24, 1) = ' ' THEN SUBSTR(d.default, 25)
              WHEN SUBSTR(d.default, 25, 1) = ' ' THEN SUBSTR(d.default, 26)
              WHEN SUBSTR(d.default, 26, 1) = ' ' THEN SUBSTR(d.default, 27)
              WHEN SUBSTR(d.default, 27, 1) = ' ' THEN SUBSTR(d.default, 28)
              WHEN SUBSTR(d.default, 28, 1) = ' ' THEN SUBSTR(d.default, 29)
              WHEN SUBSTR(d.default, 29, 1) = ' ' THEN SUBSTR(d.default, 30)
              WHEN SUBSTR(d.default, 30, 1) = ' ' THEN SUBSTR(d.default, 31) ELSE d.default END) || CASE MOD(c.coltype, 256) WHEN 7 THEN '''' ELSE '' END END END)
FROM informix.sysdefaults d
JOIN informix.syscolumns c ON c.tabid = d.tabid AND c.colno = d.colno
WHERE d.tabid >= 100 /*@since 9 AND d.class = 'T' */
  /*@ids AND d.tabid IN (?list(table_id)) */;

-- @view_texts
-- row: table_id, part, definition
SELECT v.tabid, v.seqno, v.viewtext
FROM informix.sysviews v
WHERE (v.tabid >= 100 /*@system OR v.tabid > 0 */)
  /*@ids AND v.tabid IN (?list(table_id)) */
ORDER BY 1, 2;

-- A key is its index, whose parts are columns by number, negative where descending.
-- @keys
-- row: table_id, name, kind{P=primary,U=unique}, option:enforced{E=,D=no,F=filtering}, column_positions
SELECT k.tabid, TRIM(k.constrname), k.constrtype, o.state,
       ABS(i.part1) || CASE WHEN i.part2 <> 0 THEN ' ' || ABS(i.part2) ELSE '' END ||
         CASE WHEN i.part3 <> 0 THEN ' ' || ABS(i.part3) ELSE '' END || CASE WHEN i.part4 <> 0 THEN ' ' || ABS(i.part4) ELSE '' END ||
         CASE WHEN i.part5 <> 0 THEN ' ' || ABS(i.part5) ELSE '' END || CASE WHEN i.part6 <> 0 THEN ' ' || ABS(i.part6) ELSE '' END ||
         CASE WHEN i.part7 <> 0 THEN ' ' || ABS(i.part7) ELSE '' END || CASE WHEN i.part8 <> 0 THEN ' ' || ABS(i.part8) ELSE '' END ||
         CASE WHEN i.part9 <> 0 THEN ' ' || ABS(i.part9) ELSE '' END || CASE WHEN i.part10 <> 0 THEN ' ' || ABS(i.part10) ELSE '' END ||
         CASE WHEN i.part11 <> 0 THEN ' ' || ABS(i.part11) ELSE '' END || CASE WHEN i.part12 <> 0 THEN ' ' || ABS(i.part12) ELSE '' END ||
         CASE WHEN i.part13 <> 0 THEN ' ' || ABS(i.part13) ELSE '' END || CASE WHEN i.part14 <> 0 THEN ' ' || ABS(i.part14) ELSE '' END ||
         CASE WHEN i.part15 <> 0 THEN ' ' || ABS(i.part15) ELSE '' END || CASE WHEN i.part16 <> 0 THEN ' ' || ABS(i.part16) ELSE '' END
FROM informix.sysconstraints k
JOIN informix.sysindexes i ON i.tabid = k.tabid AND i.idxname = k.idxname
LEFT JOIN informix.sysobjstate o ON o.objtype = 'C' AND o.tabid = k.tabid AND o.name = k.constrname
WHERE k.constrtype IN ('P', 'U') AND (k.tabid >= 100 /*@system OR k.tabid > 0 */)
  /*@ids AND k.tabid IN (?list(table_id)) */;

-- @foreign_keys
-- row: table_id, name, target_id, on_delete{C=cascade,R=restrict}, on_update{R=restrict}, enforced{E=1,D=0,F=1}, column_positions, target_positions
SELECT k.tabid, TRIM(k.constrname), r.ptabid, r.delrule, r.updrule, o.state,
       ABS(i.part1) || CASE WHEN i.part2 <> 0 THEN ' ' || ABS(i.part2) ELSE '' END ||
         CASE WHEN i.part3 <> 0 THEN ' ' || ABS(i.part3) ELSE '' END || CASE WHEN i.part4 <> 0 THEN ' ' || ABS(i.part4) ELSE '' END ||
         CASE WHEN i.part5 <> 0 THEN ' ' || ABS(i.part5) ELSE '' END || CASE WHEN i.part6 <> 0 THEN ' ' || ABS(i.part6) ELSE '' END ||
         CASE WHEN i.part7 <> 0 THEN ' ' || ABS(i.part7) ELSE '' END || CASE WHEN i.part8 <> 0 THEN ' ' || ABS(i.part8) ELSE '' END ||
         CASE WHEN i.part9 <> 0 THEN ' ' || ABS(i.part9) ELSE '' END || CASE WHEN i.part10 <> 0 THEN ' ' || ABS(i.part10) ELSE '' END ||
         CASE WHEN i.part11 <> 0 THEN ' ' || ABS(i.part11) ELSE '' END || CASE WHEN i.part12 <> 0 THEN ' ' || ABS(i.part12) ELSE '' END ||
         CASE WHEN i.part13 <> 0 THEN ' ' || ABS(i.part13) ELSE '' END || CASE WHEN i.part14 <> 0 THEN ' ' || ABS(i.part14) ELSE '' END ||
         CASE WHEN i.part15 <> 0 THEN ' ' || ABS(i.part15) ELSE '' END || CASE WHEN i.part16 <> 0 THEN ' ' || ABS(i.part16) ELSE '' END,
       ABS(p.part1) || CASE WHEN p.part2 <> 0 THEN ' ' || ABS(p.part2) ELSE '' END ||
         CASE WHEN p.part3 <> 0 THEN ' ' || ABS(p.part3) ELSE '' END || CASE WHEN p.part4 <> 0 THEN ' ' || ABS(p.part4) ELSE '' END ||
         CASE WHEN p.part5 <> 0 THEN ' ' || ABS(p.part5) ELSE '' END || CASE WHEN p.part6 <> 0 THEN ' ' || ABS(p.part6) ELSE '' END ||
         CASE WHEN p.part7 <> 0 THEN ' ' || ABS(p.part7) ELSE '' END || CASE WHEN p.part8 <> 0 THEN ' ' || ABS(p.part8) ELSE '' END ||
         CASE WHEN p.part9 <> 0 THEN ' ' || ABS(p.part9) ELSE '' END || CASE WHEN p.part10 <> 0 THEN ' ' || ABS(p.part10) ELSE '' END ||
         CASE WHEN p.part11 <> 0 THEN ' ' || ABS(p.part11) ELSE '' END || CASE WHEN p.part12 <> 0 THEN ' ' || ABS(p.part12) ELSE '' END ||
         CASE WHEN p.part13 <> 0 THEN ' ' || ABS(p.part13) ELSE '' END || CASE WHEN p.part14 <> 0 THEN ' ' || ABS(p.part14) ELSE '' END ||
         CASE WHEN p.part15 <> 0 THEN ' ' || ABS(p.part15) ELSE '' END || CASE WHEN p.part16 <> 0 THEN ' ' || ABS(p.part16) ELSE '' END
FROM informix.sysconstraints k
JOIN informix.sysreferences r ON r.constrid = k.constrid
JOIN informix.sysindexes i ON i.tabid = k.tabid AND i.idxname = k.idxname
JOIN informix.sysconstraints m ON m.constrid = r.primary
JOIN informix.sysindexes p ON p.tabid = m.tabid AND p.idxname = m.idxname
LEFT JOIN informix.sysobjstate o ON o.objtype = 'C' AND o.tabid = k.tabid AND o.name = k.constrname
WHERE k.constrtype = 'R'
  /*@ids AND k.tabid IN (?list(table_id)) */;

-- @checks
-- row: constraint_id, part, table_id, name, enforced{E=1,D=0,F=1}, expression
SELECT k.constrid, c.seqno, k.tabid, TRIM(k.constrname), o.state, c.checktext
FROM informix.sysconstraints k
JOIN informix.syschecks c ON c.constrid = k.constrid
LEFT JOIN informix.sysobjstate o ON o.objtype = 'C' AND o.tabid = k.tabid AND o.name = k.constrname
WHERE k.constrtype = 'C' AND c.type = 'T'
  /*@ids AND k.tabid IN (?list(table_id)) */
ORDER BY 1, 2;

-- An index that a constraint made for itself has a name that begins with a blank.
-- @indexes
-- row: table_id, name, unique{U=1,u=1,D=0,d=0,G=0,g=0}, method{U=,D=,u=bitmap,d=bitmap,G=generalized key,g=generalized key bitmap}, option:clustered{C=yes},
-- row: column_positions, orders
SELECT i.tabid, TRIM(i.idxname), i.idxtype, i.idxtype, TRIM(i.clustered),
       ABS(i.part1) || CASE WHEN i.part2 <> 0 THEN ' ' || ABS(i.part2) ELSE '' END ||
         CASE WHEN i.part3 <> 0 THEN ' ' || ABS(i.part3) ELSE '' END || CASE WHEN i.part4 <> 0 THEN ' ' || ABS(i.part4) ELSE '' END ||
         CASE WHEN i.part5 <> 0 THEN ' ' || ABS(i.part5) ELSE '' END || CASE WHEN i.part6 <> 0 THEN ' ' || ABS(i.part6) ELSE '' END ||
         CASE WHEN i.part7 <> 0 THEN ' ' || ABS(i.part7) ELSE '' END || CASE WHEN i.part8 <> 0 THEN ' ' || ABS(i.part8) ELSE '' END ||
         CASE WHEN i.part9 <> 0 THEN ' ' || ABS(i.part9) ELSE '' END || CASE WHEN i.part10 <> 0 THEN ' ' || ABS(i.part10) ELSE '' END ||
         CASE WHEN i.part11 <> 0 THEN ' ' || ABS(i.part11) ELSE '' END || CASE WHEN i.part12 <> 0 THEN ' ' || ABS(i.part12) ELSE '' END ||
         CASE WHEN i.part13 <> 0 THEN ' ' || ABS(i.part13) ELSE '' END || CASE WHEN i.part14 <> 0 THEN ' ' || ABS(i.part14) ELSE '' END ||
         CASE WHEN i.part15 <> 0 THEN ' ' || ABS(i.part15) ELSE '' END || CASE WHEN i.part16 <> 0 THEN ' ' || ABS(i.part16) ELSE '' END,
       CASE WHEN i.part1 < 0 THEN 3 ELSE 0 END || CASE WHEN i.part2 <> 0 THEN ' ' || CASE WHEN i.part2 < 0 THEN 3 ELSE 0 END ELSE '' END ||
         CASE WHEN i.part3 <> 0 THEN ' ' || CASE WHEN i.part3 < 0 THEN 3 ELSE 0 END ELSE '' END || CASE WHEN i.part4 <> 0 THEN ' ' || CASE WHEN i.part4 < 0 THEN 3 ELSE 0 END ELSE '' END ||
         CASE WHEN i.part5 <> 0 THEN ' ' || CASE WHEN i.part5 < 0 THEN 3 ELSE 0 END ELSE '' END || CASE WHEN i.part6 <> 0 THEN ' ' || CASE WHEN i.part6 < 0 THEN 3 ELSE 0 END ELSE '' END ||
         CASE WHEN i.part7 <> 0 THEN ' ' || CASE WHEN i.part7 < 0 THEN 3 ELSE 0 END ELSE '' END || CASE WHEN i.part8 <> 0 THEN ' ' || CASE WHEN i.part8 < 0 THEN 3 ELSE 0 END ELSE '' END ||
         CASE WHEN i.part9 <> 0 THEN ' ' || CASE WHEN i.part9 < 0 THEN 3 ELSE 0 END ELSE '' END || CASE WHEN i.part10 <> 0 THEN ' ' || CASE WHEN i.part10 < 0 THEN 3 ELSE 0 END ELSE '' END ||
         CASE WHEN i.part11 <> 0 THEN ' ' || CASE WHEN i.part11 < 0 THEN 3 ELSE 0 END ELSE '' END || CASE WHEN i.part12 <> 0 THEN ' ' || CASE WHEN i.part12 < 0 THEN 3 ELSE 0 END ELSE '' END ||
         CASE WHEN i.part13 <> 0 THEN ' ' || CASE WHEN i.part13 < 0 THEN 3 ELSE 0 END ELSE '' END || CASE WHEN i.part14 <> 0 THEN ' ' || CASE WHEN i.part14 < 0 THEN 3 ELSE 0 END ELSE '' END ||
         CASE WHEN i.part15 <> 0 THEN ' ' || CASE WHEN i.part15 < 0 THEN 3 ELSE 0 END ELSE '' END || CASE WHEN i.part16 <> 0 THEN ' ' || CASE WHEN i.part16 < 0 THEN 3 ELSE 0 END ELSE '' END
FROM informix.sysindexes i
WHERE i.idxname NOT LIKE ' %' AND i.part1 <> 0 AND (i.tabid >= 100 /*@system OR i.tabid > 0 */)
  /*@ids AND i.tabid IN (?list(table_id)) */;

-- @not_read
-- row: kind, schema, name, reason, failed
SELECT TRIM('indexes'), TRIM(i.owner), TRIM(i.idxname), TRIM('an index on a function, which the catalog keeps by number'), 0
FROM informix.sysindexes i
WHERE i.part1 = 0 AND i.tabid >= 100
  /*@ids AND i.tabid IN (?list(table_id)) */
/*@since 9 UNION ALL
SELECT TRIM('types'), TRIM(x.owner), TRIM(x.name), TRIM('an opaque type'), 0
FROM informix.sysxtdtypes x
WHERE x.mode = 'B' AND x.owner <> 'informix' */;

-- The head of the statement (D) and what it does (A). Small letters: in place of what is done to a view.
-- @triggers
-- row: trigger_id, part, table_id, name, timing{d=instead of,i=instead of,u=instead of,D=,I=,U=,S=}, events{D=delete,I=insert,U=update,S=select,d=delete,i=insert,u=update}, text
SELECT g.trigid, CASE b.datakey WHEN 'D' THEN b.seqno ELSE b.seqno + 1000000 END, g.tabid, TRIM(g.trigname), g.event, g.event, b.data
FROM informix.systriggers g
JOIN informix.systrigbody b ON b.trigid = g.trigid AND b.datakey IN ('A', 'D')
WHERE g.tabid >= 100
  /*@ids AND g.tabid IN (?list(table_id)) */
ORDER BY 1, 2;

-- D: distinct, R: a row with a name, whose fields are the first level of it.
-- @types since 9
-- row: schema, name, kind{D=distinct,R=composite}, base_type, position, attribute, attribute_type
SELECT TRIM(x.owner), TRIM(x.name), x.mode,
       TRIM(CASE x.mode WHEN 'D' THEN CASE WHEN s.name IS NULL OR s.name = '' THEN CASE MOD(x.type, 256) WHEN 0 THEN 'CHAR' WHEN 1 THEN 'SMALLINT' WHEN 2 THEN 'INTEGER' WHEN 3 THEN 'FLOAT' WHEN 4 THEN 'SMALLFLOAT' WHEN 5 THEN 'DECIMAL'
         WHEN 6 THEN 'SERIAL' WHEN 7 THEN 'DATE' WHEN 8 THEN 'MONEY' WHEN 10 THEN 'DATETIME' WHEN 11 THEN 'BYTE' WHEN 12 THEN 'TEXT' WHEN 13 THEN 'VARCHAR'
         WHEN 14 THEN 'INTERVAL' WHEN 15 THEN 'NCHAR' WHEN 16 THEN 'NVARCHAR' WHEN 17 THEN 'INT8' WHEN 18 THEN 'SERIAL8' WHEN 19 THEN 'SET'
         WHEN 20 THEN 'MULTISET' WHEN 21 THEN 'LIST' WHEN 22 THEN 'ROW' WHEN 43 THEN 'LVARCHAR' WHEN 45 THEN 'BOOLEAN' WHEN 52 THEN 'BIGINT'
         WHEN 53 THEN 'BIGSERIAL' ELSE 'TYPE ' || MOD(x.type, 256) END ELSE UPPER(s.name) END END),
       a.fieldno, TRIM(a.fieldname),
       TRIM(CASE WHEN a.fieldno IS NOT NULL THEN CASE WHEN y.name IS NULL OR y.name = '' THEN
       CASE MOD(a.type, 256) WHEN 0 THEN 'CHAR(' || a.length || ')' WHEN 1 THEN 'SMALLINT' WHEN 2 THEN 'INTEGER' WHEN 3 THEN 'FLOAT' WHEN 4 THEN 'SMALLFLOAT'
         WHEN 5 THEN 'DECIMAL(' || TRUNC(a.length / 256) || CASE MOD(a.length, 256) WHEN 255 THEN ')' ELSE ',' || MOD(a.length, 256) || ')' END
         WHEN 6 THEN 'SERIAL' WHEN 7 THEN 'DATE' WHEN 8 THEN 'MONEY(' || TRUNC(a.length / 256) || ',' || MOD(a.length, 256) || ')'
         WHEN 10 THEN 'DATETIME ' || TRIM(CASE TRUNC(MOD(a.length, 256) / 16) WHEN 0 THEN 'YEAR' WHEN 2 THEN 'MONTH' WHEN 4 THEN 'DAY' WHEN 6 THEN 'HOUR' WHEN 8 THEN 'MINUTE' WHEN 10 THEN 'SECOND' ELSE 'FRACTION' END) ||
           ' TO ' || CASE MOD(a.length, 16) WHEN 0 THEN 'YEAR' WHEN 2 THEN 'MONTH' WHEN 4 THEN 'DAY' WHEN 6 THEN 'HOUR' WHEN 8 THEN 'MINUTE' WHEN 10 THEN 'SECOND' ELSE 'FRACTION(' || (MOD(a.length, 16) - 10) || ')' END
         WHEN 11 THEN 'BYTE' WHEN 12 THEN 'TEXT' WHEN 13 THEN 'VARCHAR(' || MOD(a.length + 65536, 256) ||
           CASE WHEN TRUNC(MOD(a.length + 65536, 65536) / 256) = 0 THEN ')' ELSE ',' || TRUNC(MOD(a.length + 65536, 65536) / 256) || ')' END
         WHEN 14 THEN 'INTERVAL ' || TRIM(CASE TRUNC(MOD(a.length, 256) / 16) WHEN 0 THEN 'YEAR' WHEN 2 THEN 'MONTH' WHEN 4 THEN 'DAY' WHEN 6 THEN 'HOUR' WHEN 8 THEN 'MINUTE' WHEN 10 THEN 'SECOND' ELSE 'FRACTION' END) ||
           '(' || (TRUNC(a.length / 256) - MOD(a.length, 16) + TRUNC(MOD(a.length, 256) / 16)) || ') TO ' || CASE MOD(a.length, 16) WHEN 0 THEN 'YEAR' WHEN 2 THEN 'MONTH' WHEN 4 THEN 'DAY' WHEN 6 THEN 'HOUR' WHEN 8 THEN 'MINUTE' WHEN 10 THEN 'SECOND' ELSE 'FRACTION(' || (MOD(a.length, 16) - 10) || ')' END
         WHEN 15 THEN 'NCHAR(' || a.length || ')' WHEN 16 THEN 'NVARCHAR(' || MOD(a.length + 65536, 256) ||
           CASE WHEN TRUNC(MOD(a.length + 65536, 65536) / 256) = 0 THEN ')' ELSE ',' || TRUNC(MOD(a.length + 65536, 65536) / 256) || ')' END
         WHEN 17 THEN 'INT8' WHEN 18 THEN 'SERIAL8' WHEN 19 THEN 'SET' WHEN 20 THEN 'MULTISET' WHEN 21 THEN 'LIST' WHEN 22 THEN 'ROW'
         WHEN 43 THEN 'LVARCHAR(' || a.length || ')' WHEN 45 THEN 'BOOLEAN' WHEN 52 THEN 'BIGINT' WHEN 53 THEN 'BIGSERIAL' ELSE 'TYPE ' || MOD(a.type, 256) END
       WHEN y.mode IN ('D', 'R') THEN TRIM(y.owner) || '.' || TRIM(y.name)
       WHEN y.name = 'lvarchar' THEN 'LVARCHAR(' || a.length || ')' ELSE UPPER(y.name) END END)
FROM informix.sysxtdtypes x
LEFT JOIN informix.sysxtdtypes s ON s.extended_id = x.source AND x.source <> 0
LEFT JOIN informix.sysattrtypes a ON a.extended_id = x.extended_id AND a.levelno = 1 AND x.mode = 'R'
LEFT JOIN informix.sysxtdtypes y ON y.extended_id = a.xtd_type_id
WHERE x.mode IN ('D', 'R') AND (x.owner <> 'informix' /*@system OR x.extended_id > 0 */)
  /*@owners AND x.owner IN (?list(owner)) */
ORDER BY 1, 2, 5;

-- @sequences since 9.40
-- row: schema, name, type, start, increment, minimum, maximum, cycle, cache
SELECT TRIM(t.owner), TRIM(t.tabname), 'INT8', q.start_val, q.inc_val, q.min_val, q.max_val, q.cycle, q.cache
FROM informix.syssequences q
JOIN informix.systables t ON t.tabid = q.tabid
WHERE t.tabid >= 100
  /*@owners AND t.owner IN (?list(owner)) */;

-- What gives one value has it as a parameter without a name; what gives several as a table.
-- @routines since 10
-- row: id, part, schema, name, kind{t=procedure,f=function}, result, language, text
SELECT p.procid, b.seqno, TRIM(p.owner), TRIM(p.procname), p.isproc,
       TRIM(CASE WHEN r.paramid IS NOT NULL THEN CASE WHEN x.name IS NULL OR x.name = '' THEN
       CASE MOD(r.paramtype, 256) WHEN 0 THEN 'CHAR(' || r.paramlen || ')' WHEN 1 THEN 'SMALLINT' WHEN 2 THEN 'INTEGER' WHEN 3 THEN 'FLOAT' WHEN 4 THEN 'SMALLFLOAT'
         WHEN 5 THEN 'DECIMAL(' || TRUNC(r.paramlen / 256) || CASE MOD(r.paramlen, 256) WHEN 255 THEN ')' ELSE ',' || MOD(r.paramlen, 256) || ')' END
         WHEN 6 THEN 'SERIAL' WHEN 7 THEN 'DATE' WHEN 8 THEN 'MONEY(' || TRUNC(r.paramlen / 256) || ',' || MOD(r.paramlen, 256) || ')'
         WHEN 10 THEN 'DATETIME ' || TRIM(CASE TRUNC(MOD(r.paramlen, 256) / 16) WHEN 0 THEN 'YEAR' WHEN 2 THEN 'MONTH' WHEN 4 THEN 'DAY' WHEN 6 THEN 'HOUR' WHEN 8 THEN 'MINUTE' WHEN 10 THEN 'SECOND' ELSE 'FRACTION' END) ||
           ' TO ' || CASE MOD(r.paramlen, 16) WHEN 0 THEN 'YEAR' WHEN 2 THEN 'MONTH' WHEN 4 THEN 'DAY' WHEN 6 THEN 'HOUR' WHEN 8 THEN 'MINUTE' WHEN 10 THEN 'SECOND' ELSE 'FRACTION(' || (MOD(r.paramlen, 16) - 10) || ')' END
         WHEN 11 THEN 'BYTE' WHEN 12 THEN 'TEXT' WHEN 13 THEN 'VARCHAR(' || MOD(r.paramlen + 65536, 256) ||
           CASE WHEN TRUNC(MOD(r.paramlen + 65536, 65536) / 256) = 0 THEN ')' ELSE ',' || TRUNC(MOD(r.paramlen + 65536, 65536) / 256) || ')' END
         WHEN 14 THEN 'INTERVAL ' || TRIM(CASE TRUNC(MOD(r.paramlen, 256) / 16) WHEN 0 THEN 'YEAR' WHEN 2 THEN 'MONTH' WHEN 4 THEN 'DAY' WHEN 6 THEN 'HOUR' WHEN 8 THEN 'MINUTE' WHEN 10 THEN 'SECOND' ELSE 'FRACTION' END) ||
           '(' || (TRUNC(r.paramlen / 256) - MOD(r.paramlen, 16) + TRUNC(MOD(r.paramlen, 256) / 16)) || ') TO ' || CASE MOD(r.paramlen, 16) WHEN 0 THEN 'YEAR' WHEN 2 THEN 'MONTH' WHEN 4 THEN 'DAY' WHEN 6 THEN 'HOUR' WHEN 8 THEN 'MINUTE' WHEN 10 THEN 'SECOND' ELSE 'FRACTION(' || (MOD(r.paramlen, 16) - 10) || ')' END
         WHEN 15 THEN 'NCHAR(' || r.paramlen || ')' WHEN 16 THEN 'NVARCHAR(' || MOD(r.paramlen + 65536, 256) ||
           CASE WHEN TRUNC(MOD(r.paramlen + 65536, 65536) / 256) = 0 THEN ')' ELSE ',' || TRUNC(MOD(r.paramlen + 65536, 65536) / 256) || ')' END
         WHEN 17 THEN 'INT8' WHEN 18 THEN 'SERIAL8' WHEN 19 THEN 'SET' WHEN 20 THEN 'MULTISET' WHEN 21 THEN 'LIST' WHEN 22 THEN 'ROW'
         WHEN 43 THEN 'LVARCHAR(' || r.paramlen || ')' WHEN 45 THEN 'BOOLEAN' WHEN 52 THEN 'BIGINT' WHEN 53 THEN 'BIGSERIAL' ELSE 'TYPE ' || MOD(r.paramtype, 256) END
       WHEN x.mode IN ('D', 'R') THEN TRIM(x.owner) || '.' || TRIM(x.name)
       WHEN x.name = 'lvarchar' THEN 'LVARCHAR(' || r.paramlen || ')' ELSE UPPER(x.name) END END),
       UPPER(TRIM(l.langname)), b.data
FROM informix.sysprocedures p
LEFT JOIN informix.sysprocbody b ON b.procid = p.procid AND b.datakey = 'T'
LEFT JOIN informix.sysproccolumns r ON r.procid = p.procid AND r.paramattr = 5
LEFT JOIN informix.sysxtdtypes x ON x.extended_id = r.paramxid
LEFT JOIN informix.sysroutinelangs l ON l.langid = p.langid
WHERE (p.owner <> 'informix' /*@system OR p.procid > 0 */)
  /*@owners AND p.owner IN (?list(owner)) */
ORDER BY 1, 2;

-- Before that the parameters stand in the text alone, and before 9 a function is a procedure.
-- @routines
-- row: id, part, schema, name, kind{t=procedure,f=function}, text
SELECT p.procid, b.seqno, TRIM(p.owner), TRIM(p.procname), /*@since 9 p.isproc @else*/ 't' /*@end*/, b.data
FROM informix.sysprocedures p
LEFT JOIN informix.sysprocbody b ON b.procid = p.procid AND b.datakey = 'T'
WHERE (p.owner <> 'informix' /*@system OR p.procid > 0 */)
  /*@owners AND p.owner IN (?list(owner)) */
ORDER BY 1, 2;

-- @parameters since 10
-- row: id, position, mode{0=in,1=in,2=inout,3=table,4=out}, name, type
SELECT p.procid, r.paramid, r.paramattr, TRIM(r.paramname),
       TRIM(CASE WHEN x.name IS NULL OR x.name = '' THEN
       CASE MOD(r.paramtype, 256) WHEN 0 THEN 'CHAR(' || r.paramlen || ')' WHEN 1 THEN 'SMALLINT' WHEN 2 THEN 'INTEGER' WHEN 3 THEN 'FLOAT' WHEN 4 THEN 'SMALLFLOAT'
         WHEN 5 THEN 'DECIMAL(' || TRUNC(r.paramlen / 256) || CASE MOD(r.paramlen, 256) WHEN 255 THEN ')' ELSE ',' || MOD(r.paramlen, 256) || ')' END
         WHEN 6 THEN 'SERIAL' WHEN 7 THEN 'DATE' WHEN 8 THEN 'MONEY(' || TRUNC(r.paramlen / 256) || ',' || MOD(r.paramlen, 256) || ')'
         WHEN 10 THEN 'DATETIME ' || TRIM(CASE TRUNC(MOD(r.paramlen, 256) / 16) WHEN 0 THEN 'YEAR' WHEN 2 THEN 'MONTH' WHEN 4 THEN 'DAY' WHEN 6 THEN 'HOUR' WHEN 8 THEN 'MINUTE' WHEN 10 THEN 'SECOND' ELSE 'FRACTION' END) ||
           ' TO ' || CASE MOD(r.paramlen, 16) WHEN 0 THEN 'YEAR' WHEN 2 THEN 'MONTH' WHEN 4 THEN 'DAY' WHEN 6 THEN 'HOUR' WHEN 8 THEN 'MINUTE' WHEN 10 THEN 'SECOND' ELSE 'FRACTION(' || (MOD(r.paramlen, 16) - 10) || ')' END
         WHEN 11 THEN 'BYTE' WHEN 12 THEN 'TEXT' WHEN 13 THEN 'VARCHAR(' || MOD(r.paramlen + 65536, 256) ||
           CASE WHEN TRUNC(MOD(r.paramlen + 65536, 65536) / 256) = 0 THEN ')' ELSE ',' || TRUNC(MOD(r.paramlen + 65536, 65536) / 256) || ')' END
         WHEN 14 THEN 'INTERVAL ' || TRIM(CASE TRUNC(MOD(r.paramlen, 256) / 16) WHEN 0 THEN 'YEAR' WHEN 2 THEN 'MONTH' WHEN 4 THEN 'DAY' WHEN 6 THEN 'HOUR' WHEN 8 THEN 'MINUTE' WHEN 10 THEN 'SECOND' ELSE 'FRACTION' END) ||
           '(' || (TRUNC(r.paramlen / 256) - MOD(r.paramlen, 16) + TRUNC(MOD(r.paramlen, 256) / 16)) || ') TO ' || CASE MOD(r.paramlen, 16) WHEN 0 THEN 'YEAR' WHEN 2 THEN 'MONTH' WHEN 4 THEN 'DAY' WHEN 6 THEN 'HOUR' WHEN 8 THEN 'MINUTE' WHEN 10 THEN 'SECOND' ELSE 'FRACTION(' || (MOD(r.paramlen, 16) - 10) || ')' END
         WHEN 15 THEN 'NCHAR(' || r.paramlen || ')' WHEN 16 THEN 'NVARCHAR(' || MOD(r.paramlen + 65536, 256) ||
           CASE WHEN TRUNC(MOD(r.paramlen + 65536, 65536) / 256) = 0 THEN ')' ELSE ',' || TRUNC(MOD(r.paramlen + 65536, 65536) / 256) || ')' END
         WHEN 17 THEN 'INT8' WHEN 18 THEN 'SERIAL8' WHEN 19 THEN 'SET' WHEN 20 THEN 'MULTISET' WHEN 21 THEN 'LIST' WHEN 22 THEN 'ROW'
         WHEN 43 THEN 'LVARCHAR(' || r.paramlen || ')' WHEN 45 THEN 'BOOLEAN' WHEN 52 THEN 'BIGINT' WHEN 53 THEN 'BIGSERIAL' ELSE 'TYPE ' || MOD(r.paramtype, 256) END
       WHEN x.mode IN ('D', 'R') THEN TRIM(x.owner) || '.' || TRIM(x.name)
       WHEN x.name = 'lvarchar' THEN 'LVARCHAR(' || r.paramlen || ')' ELSE UPPER(x.name) END)
FROM informix.sysprocedures p
JOIN informix.sysproccolumns r ON r.procid = p.procid AND r.paramattr <> 5
LEFT JOIN informix.sysxtdtypes x ON x.extended_id = r.paramxid
WHERE (p.owner <> 'informix' /*@system OR p.procid > 0 */)
  /*@owners AND p.owner IN (?list(owner)) */;
