-- DB2 Universal Database 7: a public library, and what that server alone has: distinct types, functions with overloads,
-- aliases, and relationships that name their columns in one text of 20 characters a column.
BEGIN;

CREATE TABLE syscat.tables (
  tabschema VARCHAR(128), tabname VARCHAR(128), definer VARCHAR(128), type CHAR(1), status CHAR(1),
  base_tabschema VARCHAR(128), base_tabname VARCHAR(128), create_time TIMESTAMP, stats_time TIMESTAMP, colcount SMALLINT,
  tableid SMALLINT, tbspaceid SMALLINT, card INTEGER, npages INTEGER, fpages INTEGER, overflow INTEGER,
  tbspace VARCHAR(18), parents SMALLINT, children SMALLINT, selfrefs SMALLINT, keycolumns SMALLINT, keyindexid SMALLINT,
  keyunique SMALLINT, checkcount SMALLINT, remarks VARCHAR(254));
CREATE INDEX syscat.indtables01 ON tables (tabschema, tabname);

CREATE TABLE syscat.columns (
  tabschema VARCHAR(128), tabname VARCHAR(128), colname VARCHAR(128), colno SMALLINT, typeschema VARCHAR(128),
  typename VARCHAR(18), length INTEGER, scale SMALLINT, "default" VARCHAR(254), nulls CHAR(1), codepage SMALLINT,
  logged CHAR(1), compact CHAR(1), colcard INTEGER, avgcollen INTEGER, keyseq SMALLINT, partkeyseq SMALLINT,
  remarks VARCHAR(254));
CREATE INDEX syscat.indcolumns01 ON columns (tabschema, tabname, colno);

CREATE TABLE syscat.datatypes (
  typeschema VARCHAR(128), typename VARCHAR(18), definer VARCHAR(128), sourceschema VARCHAR(128), sourcename VARCHAR(18),
  metatype CHAR(1), typeid SMALLINT, sourcetypeid SMALLINT, length INTEGER, scale SMALLINT, codepage SMALLINT,
  create_time TIMESTAMP, attrcount SMALLINT, instantiable CHAR(1), remarks VARCHAR(254));
CREATE INDEX syscat.inddatatypes01 ON datatypes (typename);

CREATE TABLE syscat."references" (
  constname VARCHAR(18), tabschema VARCHAR(128), tabname VARCHAR(128), definer VARCHAR(128), refkeyname VARCHAR(18),
  reftabschema VARCHAR(128), reftabname VARCHAR(128), colcount SMALLINT, deleterule CHAR(1), updaterule CHAR(1),
  create_time TIMESTAMP, fk_colnames VARCHAR(640), pk_colnames VARCHAR(640));
CREATE INDEX syscat.indreferences01 ON "references" (tabschema, tabname);
CREATE INDEX syscat.indreferences02 ON "references" (reftabschema, reftabname);

CREATE TABLE syscat.indexes (
  indschema VARCHAR(128), indname VARCHAR(18), definer VARCHAR(128), tabschema VARCHAR(128), tabname VARCHAR(128),
  colnames VARCHAR(640), uniquerule CHAR(1), colcount SMALLINT);
CREATE INDEX syscat.indindexes01 ON indexes (tabschema, tabname);
CREATE TABLE syscat.indexcoluse (
  indschema VARCHAR(128), indname VARCHAR(18), colname VARCHAR(128), colseq SMALLINT, colorder CHAR(1));
CREATE INDEX syscat.indindexcoluse01 ON indexcoluse (indschema, indname);

CREATE TABLE syscat.functions (
  funcschema VARCHAR(128), funcname VARCHAR(18), specificname VARCHAR(18), definer VARCHAR(128), funcid INTEGER,
  return_type SMALLINT, origin CHAR(1), type CHAR(1), parm_count SMALLINT, parm_signature VARCHAR(180),
  create_time TIMESTAMP, cast_function CHAR(1), language CHAR(8), remarks VARCHAR(254));
CREATE INDEX syscat.indfunctions01 ON functions (specificname);

CREATE TABLE syscat.funcparms (
  funcschema VARCHAR(128), funcname VARCHAR(18), specificname VARCHAR(18), rowtype CHAR(1), ordinal SMALLINT,
  parmname VARCHAR(128), typeschema VARCHAR(128), typename VARCHAR(18), length INTEGER, scale SMALLINT,
  codepage SMALLINT, cast_funcid INTEGER, as_locator CHAR(1));
CREATE INDEX syscat.indfuncparms01 ON funcparms (specificname, ordinal);

CREATE TABLE syscat.procedures (
  procschema VARCHAR(128), procname VARCHAR(128), specificname VARCHAR(18), procedure_id INTEGER, definer VARCHAR(128),
  parm_count SMALLINT, parm_signature VARCHAR(180), origin CHAR(1), create_time TIMESTAMP, language CHAR(8),
  remarks VARCHAR(254));

-- Metatype S: predefined, T: a distinct type with its source.
INSERT INTO syscat.datatypes (typeschema, typename, sourceschema, sourcename, metatype, typeid, sourcetypeid, length, scale)
VALUES
  ('SYSIBM',  'SMALLINT',     NULL,     NULL,        'S', 28,   NULL, 2,     0),
  ('SYSIBM',  'INTEGER',      NULL,     NULL,        'S', 24,   NULL, 4,     0),
  ('SYSIBM',  'BIGINT',       NULL,     NULL,        'S', 20,   NULL, 8,     0),
  ('SYSIBM',  'DECIMAL',      NULL,     NULL,        'S', 16,   NULL, 0,     0),
  ('SYSIBM',  'REAL',         NULL,     NULL,        'S', 12,   NULL, 4,     0),
  ('SYSIBM',  'DOUBLE',       NULL,     NULL,        'S', 8,    NULL, 8,     0),
  ('SYSIBM',  'CHARACTER',    NULL,     NULL,        'S', 56,   NULL, 0,     0),
  ('SYSIBM',  'VARCHAR',      NULL,     NULL,        'S', 64,   NULL, 0,     0),
  ('SYSIBM',  'LONG VARCHAR', NULL,     NULL,        'S', 68,   NULL, 32700, 0),
  ('SYSIBM',  'CLOB',         NULL,     NULL,        'S', 140,  NULL, 0,     0),
  ('SYSIBM',  'GRAPHIC',      NULL,     NULL,        'S', 104,  NULL, 0,     0),
  ('SYSIBM',  'VARGRAPHIC',   NULL,     NULL,        'S', 100,  NULL, 0,     0),
  ('SYSIBM',  'DATE',         NULL,     NULL,        'S', 4,    NULL, 4,     0),
  ('SYSIBM',  'TIME',         NULL,     NULL,        'S', 72,   NULL, 3,     0),
  ('SYSIBM',  'TIMESTAMP',    NULL,     NULL,        'S', 76,   NULL, 10,    0),
  ('SYSIBM',  'BLOB',         NULL,     NULL,        'S', 144,  NULL, 0,     0),
  ('SYSIBM',  'DATALINK',     NULL,     NULL,        'S', 80,   NULL, 0,     0),
  ('LIBRARY', 'ISBN',         'SYSIBM', 'CHARACTER', 'T', 1001, 56,   13,    0),
  ('LIBRARY', 'EMAIL',        'SYSIBM', 'VARCHAR',   'T', 1002, 64,   120,   0),
  ('LIBRARY', 'EURO',         'SYSIBM', 'DECIMAL',   'T', 1003, 16,   9,     2),
  ('NORTH',   'STAMP',        'SYSIBM', 'TIMESTAMP', 'T', 1004, 76,   10,    0),
  ('NORTH',   'ESSAY',        'SYSIBM', 'CLOB',      'T', 1005, 140,  65536, 0);

-- Type T: table, V: view, A: alias.
INSERT INTO syscat.tables (tabschema, tabname, type, status, colcount) VALUES
  ('LIBRARY', 'BRANCH',        'T', 'N', 7),
  ('LIBRARY', 'OPENING_HOURS', 'T', 'N', 4),
  ('LIBRARY', 'STAFF',         'T', 'N', 8),
  ('LIBRARY', 'PUBLISHER',     'T', 'N', 3),
  ('LIBRARY', 'AUTHOR',        'T', 'N', 4),
  ('LIBRARY', 'GENRE',         'T', 'N', 3),
  ('LIBRARY', 'BOOK',          'T', 'N', 8),
  ('LIBRARY', 'BOOK_AUTHOR',   'T', 'N', 3),
  ('LIBRARY', 'BOOK_GENRE',    'T', 'N', 2),
  ('LIBRARY', 'COPY',          'T', 'N', 5),
  ('LIBRARY', 'MEMBER',        'T', 'N', 8),
  ('LIBRARY', 'LOAN',          'T', 'N', 8),
  ('LIBRARY', 'FINE',          'T', 'N', 4),
  ('LIBRARY', 'RESERVATION',   'T', 'N', 4),
  ('LIBRARY', 'EVENT',         'T', 'N', 7),
  ('LIBRARY', 'EVENT_VISITOR', 'T', 'N', 3),
  ('LIBRARY', 'STOCK_CELL',    'T', 'N', 17),
  ('LIBRARY', 'STOCK_COUNT',   'T', 'N', 18),
  ('LIBRARY', 'OVERDUE_LOAN',  'V', 'N', 5),
  ('LIBRARY', 'SHELF',         'V', 'N', 4),
  ('NORTH',   'MEMBER',        'T', 'N', 3),
  ('NORTH',   'NOTICE',        'T', 'N', 4),
  ('NORTH',   'ACQUISITION',   'T', 'N', 2),
  ('LIBRARY', 'BOOKS',         'A', 'N', 0),
  ('SYSIBM',  'SYSTABLES',     'T', 'N', 3),
  ('SYSCAT',  'TABLES',        'V', 'N', 3);
UPDATE syscat.tables SET base_tabschema = 'LIBRARY', base_tabname = 'BOOK' WHERE type = 'A';

INSERT INTO syscat.columns (tabschema, tabname, colname, colno, typeschema, typename, length, scale, nulls, keyseq) VALUES
  ('LIBRARY', 'BRANCH',        'BRANCH_ID',                    0,  'SYSIBM',  'INTEGER',      4,       0, 'N', 1),
  ('LIBRARY', 'BRANCH',        'NAME',                         1,  'SYSIBM',  'VARCHAR',      60,      0, 'N', NULL),
  ('LIBRARY', 'BRANCH',        'ADDRESS',                      2,  'SYSIBM',  'VARCHAR',      120,     0, 'N', NULL),
  ('LIBRARY', 'BRANCH',        'CITY',                         3,  'SYSIBM',  'VARCHAR',      60,      0, 'N', NULL),
  ('LIBRARY', 'BRANCH',        'OPENED_ON',                    4,  'SYSIBM',  'DATE',         4,       0, 'Y', NULL),
  ('LIBRARY', 'BRANCH',        'LATITUDE',                     5,  'SYSIBM',  'DOUBLE',       8,       0, 'Y', NULL),
  ('LIBRARY', 'BRANCH',        'LONGITUDE',                    6,  'SYSIBM',  'DOUBLE',       8,       0, 'Y', NULL),
  ('LIBRARY', 'OPENING_HOURS', 'BRANCH_ID',                    0,  'SYSIBM',  'INTEGER',      4,       0, 'N', 1),
  ('LIBRARY', 'OPENING_HOURS', 'WEEKDAY',                      1,  'SYSIBM',  'SMALLINT',     2,       0, 'N', 2),
  ('LIBRARY', 'OPENING_HOURS', 'OPENS_AT',                     2,  'SYSIBM',  'TIME',         3,       0, 'N', NULL),
  ('LIBRARY', 'OPENING_HOURS', 'CLOSES_AT',                    3,  'SYSIBM',  'TIME',         3,       0, 'N', NULL),
  ('LIBRARY', 'STAFF',         'STAFF_ID',                     0,  'SYSIBM',  'INTEGER',      4,       0, 'N', 1),
  ('LIBRARY', 'STAFF',         'BRANCH_ID',                    1,  'SYSIBM',  'INTEGER',      4,       0, 'N', NULL),
  ('LIBRARY', 'STAFF',         'MANAGER_ID',                   2,  'SYSIBM',  'INTEGER',      4,       0, 'Y', NULL),
  ('LIBRARY', 'STAFF',         'GIVEN_NAME',                   3,  'SYSIBM',  'VARCHAR',      40,      0, 'N', NULL),
  ('LIBRARY', 'STAFF',         'FAMILY_NAME',                  4,  'SYSIBM',  'VARCHAR',      40,      0, 'N', NULL),
  ('LIBRARY', 'STAFF',         'EMAIL',                        5,  'LIBRARY', 'EMAIL',        120,     0, 'N', NULL),
  ('LIBRARY', 'STAFF',         'HIRED_ON',                     6,  'SYSIBM',  'DATE',         4,       0, 'N', NULL),
  ('LIBRARY', 'STAFF',         'SALARY',                       7,  'SYSIBM',  'DECIMAL',      9,       2, 'N', NULL),
  ('LIBRARY', 'PUBLISHER',     'PUBLISHER_ID',                 0,  'SYSIBM',  'INTEGER',      4,       0, 'N', 1),
  ('LIBRARY', 'PUBLISHER',     'NAME',                         1,  'SYSIBM',  'VARCHAR',      80,      0, 'N', NULL),
  ('LIBRARY', 'PUBLISHER',     'COUNTRY',                      2,  'SYSIBM',  'CHARACTER',    2,       0, 'Y', NULL),
  ('LIBRARY', 'AUTHOR',        'AUTHOR_ID',                    0,  'SYSIBM',  'INTEGER',      4,       0, 'N', 1),
  ('LIBRARY', 'AUTHOR',        'NAME',                         1,  'SYSIBM',  'VARCHAR',      80,      0, 'N', NULL),
  ('LIBRARY', 'AUTHOR',        'BORN_IN',                      2,  'SYSIBM',  'SMALLINT',     2,       0, 'Y', NULL),
  ('LIBRARY', 'AUTHOR',        'BIOGRAPHY',                    3,  'SYSIBM',  'CLOB',         1048576, 0, 'Y', NULL),
  ('LIBRARY', 'GENRE',         'GENRE_ID',                     0,  'SYSIBM',  'INTEGER',      4,       0, 'N', 1),
  ('LIBRARY', 'GENRE',         'PARENT_ID',                    1,  'SYSIBM',  'INTEGER',      4,       0, 'Y', NULL),
  ('LIBRARY', 'GENRE',         'NAME',                         2,  'SYSIBM',  'VARCHAR',      40,      0, 'N', NULL),
  ('LIBRARY', 'BOOK',          'ISBN',                         0,  'LIBRARY', 'ISBN',         13,      0, 'N', 1),
  ('LIBRARY', 'BOOK',          'TITLE',                        1,  'SYSIBM',  'VARCHAR',      200,     0, 'N', NULL),
  ('LIBRARY', 'BOOK',          'PUBLISHER_ID',                 2,  'SYSIBM',  'INTEGER',      4,       0, 'Y', NULL),
  ('LIBRARY', 'BOOK',          'PUBLISHED_IN',                 3,  'SYSIBM',  'SMALLINT',     2,       0, 'Y', NULL),
  ('LIBRARY', 'BOOK',          'PAGES',                        4,  'SYSIBM',  'INTEGER',      4,       0, 'Y', NULL),
  ('LIBRARY', 'BOOK',          'PRICE',                        5,  'LIBRARY', 'EURO',         9,       2, 'Y', NULL),
  ('LIBRARY', 'BOOK',          'SUMMARY',                      6,  'SYSIBM',  'CLOB',         1048576, 0, 'Y', NULL),
  ('LIBRARY', 'BOOK',          'COVER',                        7,  'SYSIBM',  'BLOB',         1048576, 0, 'Y', NULL),
  ('LIBRARY', 'BOOK_AUTHOR',   'ISBN',                         0,  'LIBRARY', 'ISBN',         13,      0, 'N', 1),
  ('LIBRARY', 'BOOK_AUTHOR',   'AUTHOR_ID',                    1,  'SYSIBM',  'INTEGER',      4,       0, 'N', 2),
  ('LIBRARY', 'BOOK_AUTHOR',   'CONTRIBUTION',                 2,  'SYSIBM',  'VARCHAR',      20,      0, 'Y', NULL),
  ('LIBRARY', 'BOOK_GENRE',    'ISBN',                         0,  'LIBRARY', 'ISBN',         13,      0, 'N', 1),
  ('LIBRARY', 'BOOK_GENRE',    'GENRE_ID',                     1,  'SYSIBM',  'INTEGER',      4,       0, 'N', 2),
  ('LIBRARY', 'COPY',          'ISBN',                         0,  'LIBRARY', 'ISBN',         13,      0, 'N', 1),
  ('LIBRARY', 'COPY',          'COPY_NUMBER',                  1,  'SYSIBM',  'SMALLINT',     2,       0, 'N', 2),
  ('LIBRARY', 'COPY',          'BRANCH_ID',                    2,  'SYSIBM',  'INTEGER',      4,       0, 'N', NULL),
  ('LIBRARY', 'COPY',          'BOUGHT_ON',                    3,  'SYSIBM',  'DATE',         4,       0, 'Y', NULL),
  ('LIBRARY', 'COPY',          'IS_LENDABLE',                  4,  'SYSIBM',  'CHARACTER',    1,       0, 'N', NULL),
  ('LIBRARY', 'MEMBER',        'MEMBER_ID',                    0,  'SYSIBM',  'INTEGER',      4,       0, 'N', 1),
  ('LIBRARY', 'MEMBER',        'CARD_NUMBER',                  1,  'SYSIBM',  'CHARACTER',    10,      0, 'N', NULL),
  ('LIBRARY', 'MEMBER',        'GIVEN_NAME',                   2,  'SYSIBM',  'VARCHAR',      40,      0, 'N', NULL),
  ('LIBRARY', 'MEMBER',        'FAMILY_NAME',                  3,  'SYSIBM',  'VARCHAR',      40,      0, 'N', NULL),
  ('LIBRARY', 'MEMBER',        'BORN_ON',                      4,  'SYSIBM',  'DATE',         4,       0, 'Y', NULL),
  ('LIBRARY', 'MEMBER',        'EMAIL',                        5,  'LIBRARY', 'EMAIL',        120,     0, 'Y', NULL),
  ('LIBRARY', 'MEMBER',        'HOME_BRANCH',                  6,  'SYSIBM',  'INTEGER',      4,       0, 'Y', NULL),
  ('LIBRARY', 'MEMBER',        'JOINED_AT',                    7,  'SYSIBM',  'TIMESTAMP',    10,      0, 'N', NULL),
  ('LIBRARY', 'LOAN',          'LOAN_ID',                      0,  'SYSIBM',  'BIGINT',       8,       0, 'N', 1),
  ('LIBRARY', 'LOAN',          'ISBN',                         1,  'LIBRARY', 'ISBN',         13,      0, 'N', NULL),
  ('LIBRARY', 'LOAN',          'COPY_NUMBER',                  2,  'SYSIBM',  'SMALLINT',     2,       0, 'N', NULL),
  ('LIBRARY', 'LOAN',          'MEMBER_ID',                    3,  'SYSIBM',  'INTEGER',      4,       0, 'N', NULL),
  ('LIBRARY', 'LOAN',          'LENT_BY',                      4,  'SYSIBM',  'INTEGER',      4,       0, 'Y', NULL),
  ('LIBRARY', 'LOAN',          'LENT_AT',                      5,  'SYSIBM',  'TIMESTAMP',    10,      0, 'N', NULL),
  ('LIBRARY', 'LOAN',          'DUE_ON',                       6,  'SYSIBM',  'DATE',         4,       0, 'N', NULL),
  ('LIBRARY', 'LOAN',          'RETURNED_AT',                  7,  'SYSIBM',  'TIMESTAMP',    10,      0, 'Y', NULL),
  ('LIBRARY', 'FINE',          'LOAN_ID',                      0,  'SYSIBM',  'BIGINT',       8,       0, 'N', 1),
  ('LIBRARY', 'FINE',          'AMOUNT',                       1,  'LIBRARY', 'EURO',         9,       2, 'N', NULL),
  ('LIBRARY', 'FINE',          'REASON',                       2,  'SYSIBM',  'VARCHAR',      80,      0, 'Y', NULL),
  ('LIBRARY', 'FINE',          'PAID_AT',                      3,  'SYSIBM',  'TIMESTAMP',    10,      0, 'Y', NULL),
  ('LIBRARY', 'RESERVATION',   'ISBN',                         0,  'LIBRARY', 'ISBN',         13,      0, 'N', 1),
  ('LIBRARY', 'RESERVATION',   'MEMBER_ID',                    1,  'SYSIBM',  'INTEGER',      4,       0, 'N', 2),
  ('LIBRARY', 'RESERVATION',   'MADE_AT',                      2,  'SYSIBM',  'TIMESTAMP',    10,      0, 'N', NULL),
  ('LIBRARY', 'RESERVATION',   'PICK_UP_AT',                   3,  'SYSIBM',  'INTEGER',      4,       0, 'Y', NULL),
  ('LIBRARY', 'EVENT',         'EVENT_ID',                     0,  'SYSIBM',  'INTEGER',      4,       0, 'N', 1),
  ('LIBRARY', 'EVENT',         'BRANCH_ID',                    1,  'SYSIBM',  'INTEGER',      4,       0, 'N', NULL),
  ('LIBRARY', 'EVENT',         'HELD_BY',                      2,  'SYSIBM',  'INTEGER',      4,       0, 'Y', NULL),
  ('LIBRARY', 'EVENT',         'TITLE',                        3,  'SYSIBM',  'VARCHAR',      120,     0, 'N', NULL),
  ('LIBRARY', 'EVENT',         'HELD_ON',                      4,  'SYSIBM',  'DATE',         4,       0, 'N', NULL),
  ('LIBRARY', 'EVENT',         'BEGINS_AT',                    5,  'SYSIBM',  'TIME',         3,       0, 'N', NULL),
  ('LIBRARY', 'EVENT',         'FEE',                          6,  'SYSIBM',  'REAL',         4,       0, 'Y', NULL),
  ('LIBRARY', 'EVENT_VISITOR', 'EVENT_ID',                     0,  'SYSIBM',  'INTEGER',      4,       0, 'N', 1),
  ('LIBRARY', 'EVENT_VISITOR', 'MEMBER_ID',                    1,  'SYSIBM',  'INTEGER',      4,       0, 'N', 2),
  ('LIBRARY', 'EVENT_VISITOR', 'SEATS',                        2,  'SYSIBM',  'SMALLINT',     2,       0, 'N', NULL),
  ('LIBRARY', 'STOCK_CELL',    'D01_BRANCH',                   0,  'SYSIBM',  'INTEGER',      4,       0, 'N', 1),
  ('LIBRARY', 'STOCK_CELL',    'D02_SHELF',                    1,  'SYSIBM',  'INTEGER',      4,       0, 'N', 2),
  ('LIBRARY', 'STOCK_CELL',    'D03_GENRE',                    2,  'SYSIBM',  'INTEGER',      4,       0, 'N', 3),
  ('LIBRARY', 'STOCK_CELL',    'D04_PUBLISHER',                3,  'SYSIBM',  'INTEGER',      4,       0, 'N', 4),
  ('LIBRARY', 'STOCK_CELL',    'D05_AUTHOR',                   4,  'SYSIBM',  'INTEGER',      4,       0, 'N', 5),
  ('LIBRARY', 'STOCK_CELL',    'D06_LANGUAGE',                 5,  'SYSIBM',  'INTEGER',      4,       0, 'N', 6),
  ('LIBRARY', 'STOCK_CELL',    'D07_FORMAT',                   6,  'SYSIBM',  'INTEGER',      4,       0, 'N', 7),
  ('LIBRARY', 'STOCK_CELL',    'D08_CONDITION',                7,  'SYSIBM',  'INTEGER',      4,       0, 'N', 8),
  ('LIBRARY', 'STOCK_CELL',    'D09_SUPPLIER',                 8,  'SYSIBM',  'INTEGER',      4,       0, 'N', 9),
  ('LIBRARY', 'STOCK_CELL',    'D10_CURRENCY',                 9,  'SYSIBM',  'INTEGER',      4,       0, 'N', 10),
  ('LIBRARY', 'STOCK_CELL',    'D11_BUDGET',                   10, 'SYSIBM',  'INTEGER',      4,       0, 'N', 11),
  ('LIBRARY', 'STOCK_CELL',    'D12_SEASON',                   11, 'SYSIBM',  'INTEGER',      4,       0, 'N', 12),
  ('LIBRARY', 'STOCK_CELL',    'D13_YEAR',                     12, 'SYSIBM',  'INTEGER',      4,       0, 'N', 13),
  ('LIBRARY', 'STOCK_CELL',    'D14_MONTH',                    13, 'SYSIBM',  'INTEGER',      4,       0, 'N', 14),
  ('LIBRARY', 'STOCK_CELL',    'D15_STAFF',                    14, 'SYSIBM',  'INTEGER',      4,       0, 'N', 15),
  ('LIBRARY', 'STOCK_CELL',    'D16_TARGET',                   15, 'SYSIBM',  'INTEGER',      4,       0, 'N', 16),
  ('LIBRARY', 'STOCK_CELL',    'COPIES',                       16, 'SYSIBM',  'INTEGER',      4,       0, 'N', NULL),
  ('LIBRARY', 'STOCK_COUNT',   'D01_BRANCH',                   0,  'SYSIBM',  'INTEGER',      4,       0, 'N', 1),
  ('LIBRARY', 'STOCK_COUNT',   'D02_SHELF',                    1,  'SYSIBM',  'INTEGER',      4,       0, 'N', 2),
  ('LIBRARY', 'STOCK_COUNT',   'D03_GENRE',                    2,  'SYSIBM',  'INTEGER',      4,       0, 'N', 3),
  ('LIBRARY', 'STOCK_COUNT',   'D04_PUBLISHER',                3,  'SYSIBM',  'INTEGER',      4,       0, 'N', 4),
  ('LIBRARY', 'STOCK_COUNT',   'D05_AUTHOR',                   4,  'SYSIBM',  'INTEGER',      4,       0, 'N', 5),
  ('LIBRARY', 'STOCK_COUNT',   'D06_LANGUAGE',                 5,  'SYSIBM',  'INTEGER',      4,       0, 'N', 6),
  ('LIBRARY', 'STOCK_COUNT',   'D07_FORMAT',                   6,  'SYSIBM',  'INTEGER',      4,       0, 'N', 7),
  ('LIBRARY', 'STOCK_COUNT',   'D08_CONDITION',                7,  'SYSIBM',  'INTEGER',      4,       0, 'N', 8),
  ('LIBRARY', 'STOCK_COUNT',   'D09_SUPPLIER',                 8,  'SYSIBM',  'INTEGER',      4,       0, 'N', 9),
  ('LIBRARY', 'STOCK_COUNT',   'D10_CURRENCY',                 9,  'SYSIBM',  'INTEGER',      4,       0, 'N', 10),
  ('LIBRARY', 'STOCK_COUNT',   'D11_BUDGET',                   10, 'SYSIBM',  'INTEGER',      4,       0, 'N', 11),
  ('LIBRARY', 'STOCK_COUNT',   'D12_SEASON',                   11, 'SYSIBM',  'INTEGER',      4,       0, 'N', 12),
  ('LIBRARY', 'STOCK_COUNT',   'D13_YEAR',                     12, 'SYSIBM',  'INTEGER',      4,       0, 'N', 13),
  ('LIBRARY', 'STOCK_COUNT',   'D14_MONTH',                    13, 'SYSIBM',  'INTEGER',      4,       0, 'N', 14),
  ('LIBRARY', 'STOCK_COUNT',   'D15_STAFF',                    14, 'SYSIBM',  'INTEGER',      4,       0, 'N', 15),
  ('LIBRARY', 'STOCK_COUNT',   'D16_TARGET',                   15, 'SYSIBM',  'INTEGER',      4,       0, 'N', 16),
  ('LIBRARY', 'STOCK_COUNT',   'COUNTED_ON',                   16, 'SYSIBM',  'DATE',         4,       0, 'N', NULL),
  ('LIBRARY', 'STOCK_COUNT',   'COUNTED',                      17, 'SYSIBM',  'INTEGER',      4,       0, 'N', NULL),
  ('LIBRARY', 'OVERDUE_LOAN',  'LOAN_ID',                      0,  'SYSIBM',  'BIGINT',       8,       0, 'N', NULL),
  ('LIBRARY', 'OVERDUE_LOAN',  'CARD_NUMBER',                  1,  'SYSIBM',  'CHARACTER',    10,      0, 'N', NULL),
  ('LIBRARY', 'OVERDUE_LOAN',  'EMAIL',                        2,  'LIBRARY', 'EMAIL',        120,     0, 'Y', NULL),
  ('LIBRARY', 'OVERDUE_LOAN',  'TITLE',                        3,  'SYSIBM',  'VARCHAR',      200,     0, 'N', NULL),
  ('LIBRARY', 'OVERDUE_LOAN',  'DUE_ON',                       4,  'SYSIBM',  'DATE',         4,       0, 'N', NULL),
  ('LIBRARY', 'SHELF',         'BRANCH',                       0,  'SYSIBM',  'VARCHAR',      60,      0, 'N', NULL),
  ('LIBRARY', 'SHELF',         'TITLE',                        1,  'SYSIBM',  'VARCHAR',      200,     0, 'N', NULL),
  ('LIBRARY', 'SHELF',         'ISBN',                         2,  'LIBRARY', 'ISBN',         13,      0, 'N', NULL),
  ('LIBRARY', 'SHELF',         'COPY_NUMBER',                  3,  'SYSIBM',  'SMALLINT',     2,       0, 'N', NULL),
  ('NORTH',   'MEMBER',        'MEMBER_ID',                    0,  'SYSIBM',  'INTEGER',      4,       0, 'N', 1),
  ('NORTH',   'MEMBER',        'SHELF_NOTE',                   1,  'SYSIBM',  'LONG VARCHAR', 32700,   0, 'Y', NULL),
  ('NORTH',   'MEMBER',        'LAST_SEEN',                    2,  'NORTH',   'STAMP',        10,      0, 'Y', NULL),
  ('NORTH',   'NOTICE',        'NOTICE_ID',                    0,  'SYSIBM',  'INTEGER',      4,       0, 'N', 1),
  ('NORTH',   'NOTICE',        'BODY',                         1,  'NORTH',   'ESSAY',        65536,   0, 'Y', NULL),
  ('NORTH',   'NOTICE',        'MEMBER_ID',                    2,  'SYSIBM',  'INTEGER',      4,       0, 'Y', NULL),
  ('NORTH',   'NOTICE',        'ACQUISITION_REFERENCE_NUMBER', 3,  'SYSIBM',  'INTEGER',      4,       0, 'Y', NULL),
  ('NORTH',   'ACQUISITION',   'ACQUISITION_REFERENCE_NUMBER', 0,  'SYSIBM',  'INTEGER',      4,       0, 'N', 1),
  ('NORTH',   'ACQUISITION',   'PLAN',                         1,  'SYSIBM',  'VARGRAPHIC',   60,      0, 'Y', NULL),
  ('SYSIBM',  'SYSTABLES',     'NAME',                         0,  'SYSIBM',  'VARCHAR',      128,     0, 'N', NULL),
  ('SYSIBM',  'SYSTABLES',     'CREATOR',                      1,  'SYSIBM',  'VARCHAR',      128,     0, 'N', NULL),
  ('SYSIBM',  'SYSTABLES',     'TYPE',                         2,  'SYSIBM',  'CHARACTER',    1,       0, 'N', NULL),
  ('SYSCAT',  'TABLES',        'TABSCHEMA',                    0,  'SYSIBM',  'VARCHAR',      128,     0, 'N', NULL),
  ('SYSCAT',  'TABLES',        'TABNAME',                      1,  'SYSIBM',  'VARCHAR',      128,     0, 'N', NULL),
  ('SYSCAT',  'TABLES',        'TYPE',                         2,  'SYSIBM',  'CHARACTER',    1,       0, 'N', NULL);

-- Names of columns are cut at 20 characters here, as the server cuts them.
INSERT INTO syscat."references" (constname, tabschema, tabname, refkeyname, reftabschema, reftabname, colcount, deleterule,
                                 updaterule, fk_colnames, pk_colnames)
VALUES
  ('SQL01124090003700', 'LIBRARY', 'OPENING_HOURS', 'SQL_PK_BRANCH', 'LIBRARY', 'BRANCH', 1, 'A', 'A',
   'BRANCH_ID           ',
   'BRANCH_ID           '),
  ('SQL01124090007400', 'LIBRARY', 'STAFF', 'SQL_PK_BRANCH', 'LIBRARY', 'BRANCH', 1, 'A', 'A',
   'BRANCH_ID           ',
   'BRANCH_ID           '),
  ('SQL01124090011100', 'LIBRARY', 'STAFF', 'SQL_PK_STAFF', 'LIBRARY', 'STAFF', 1, 'A', 'A',
   'MANAGER_ID          ',
   'STAFF_ID            '),
  ('SQL01124090014800', 'LIBRARY', 'GENRE', 'SQL_PK_GENRE', 'LIBRARY', 'GENRE', 1, 'A', 'A',
   'PARENT_ID           ',
   'GENRE_ID            '),
  ('SQL01124090018500', 'LIBRARY', 'BOOK', 'SQL_PK_PUBLISHER', 'LIBRARY', 'PUBLISHER', 1, 'A', 'A',
   'PUBLISHER_ID        ',
   'PUBLISHER_ID        '),
  ('SQL01124090022200', 'LIBRARY', 'BOOK_AUTHOR', 'SQL_PK_BOOK', 'LIBRARY', 'BOOK', 1, 'A', 'A',
   'ISBN                ',
   'ISBN                '),
  ('SQL01124090025900', 'LIBRARY', 'BOOK_AUTHOR', 'SQL_PK_AUTHOR', 'LIBRARY', 'AUTHOR', 1, 'A', 'A',
   'AUTHOR_ID           ',
   'AUTHOR_ID           '),
  ('SQL01124090029600', 'LIBRARY', 'BOOK_GENRE', 'SQL_PK_BOOK', 'LIBRARY', 'BOOK', 1, 'A', 'A',
   'ISBN                ',
   'ISBN                '),
  ('SQL01124090033300', 'LIBRARY', 'BOOK_GENRE', 'SQL_PK_GENRE', 'LIBRARY', 'GENRE', 1, 'A', 'A',
   'GENRE_ID            ',
   'GENRE_ID            '),
  ('SQL01124090037000', 'LIBRARY', 'COPY', 'SQL_PK_BOOK', 'LIBRARY', 'BOOK', 1, 'A', 'A',
   'ISBN                ',
   'ISBN                '),
  ('SQL01124090040700', 'LIBRARY', 'COPY', 'SQL_PK_BRANCH', 'LIBRARY', 'BRANCH', 1, 'A', 'A',
   'BRANCH_ID           ',
   'BRANCH_ID           '),
  ('SQL01124090044400', 'LIBRARY', 'MEMBER', 'SQL_PK_BRANCH', 'LIBRARY', 'BRANCH', 1, 'A', 'A',
   'HOME_BRANCH         ',
   'BRANCH_ID           '),
  ('SQL01124090048100', 'LIBRARY', 'LOAN', 'SQL_PK_COPY', 'LIBRARY', 'COPY', 2, 'A', 'A',
   'ISBN                COPY_NUMBER         ',
   'ISBN                COPY_NUMBER         '),
  ('SQL01124090051800', 'LIBRARY', 'LOAN', 'SQL_PK_MEMBER', 'LIBRARY', 'MEMBER', 1, 'A', 'A',
   'MEMBER_ID           ',
   'MEMBER_ID           '),
  ('SQL01124090055500', 'LIBRARY', 'LOAN', 'SQL_PK_STAFF', 'LIBRARY', 'STAFF', 1, 'A', 'A',
   'LENT_BY             ',
   'STAFF_ID            '),
  ('SQL01124090059200', 'LIBRARY', 'FINE', 'SQL_PK_LOAN', 'LIBRARY', 'LOAN', 1, 'A', 'A',
   'LOAN_ID             ',
   'LOAN_ID             '),
  ('SQL01124090062900', 'LIBRARY', 'RESERVATION', 'SQL_PK_BOOK', 'LIBRARY', 'BOOK', 1, 'A', 'A',
   'ISBN                ',
   'ISBN                '),
  ('SQL01124090066600', 'LIBRARY', 'RESERVATION', 'SQL_PK_MEMBER', 'LIBRARY', 'MEMBER', 1, 'A', 'A',
   'MEMBER_ID           ',
   'MEMBER_ID           '),
  ('SQL01124090070300', 'LIBRARY', 'RESERVATION', 'SQL_PK_BRANCH', 'LIBRARY', 'BRANCH', 1, 'A', 'A',
   'PICK_UP_AT          ',
   'BRANCH_ID           '),
  ('SQL01124090074000', 'LIBRARY', 'EVENT', 'SQL_PK_BRANCH', 'LIBRARY', 'BRANCH', 1, 'A', 'A',
   'BRANCH_ID           ',
   'BRANCH_ID           '),
  ('SQL01124090077700', 'LIBRARY', 'EVENT', 'SQL_PK_STAFF', 'LIBRARY', 'STAFF', 1, 'A', 'A',
   'HELD_BY             ',
   'STAFF_ID            '),
  ('SQL01124090081400', 'LIBRARY', 'EVENT_VISITOR', 'SQL_PK_EVENT', 'LIBRARY', 'EVENT', 1, 'A', 'A',
   'EVENT_ID            ',
   'EVENT_ID            '),
  ('SQL01124090085100', 'LIBRARY', 'EVENT_VISITOR', 'SQL_PK_MEMBER', 'LIBRARY', 'MEMBER', 1, 'A', 'A',
   'MEMBER_ID           ',
   'MEMBER_ID           '),
  ('SQL01124090088800', 'LIBRARY', 'STOCK_COUNT', 'SQL_PK_STOCK_CELL', 'LIBRARY', 'STOCK_CELL', 16, 'A', 'A',
   'D01_BRANCH          D02_SHELF           D03_GENRE           D04_PUBLISHER       D05_AUTHOR          ' ||
   'D06_LANGUAGE        D07_FORMAT          D08_CONDITION       D09_SUPPLIER        D10_CURRENCY        ' ||
   'D11_BUDGET          D12_SEASON          D13_YEAR            D14_MONTH           D15_STAFF           ' ||
   'D16_TARGET          ',
   'D01_BRANCH          D02_SHELF           D03_GENRE           D04_PUBLISHER       D05_AUTHOR          ' ||
   'D06_LANGUAGE        D07_FORMAT          D08_CONDITION       D09_SUPPLIER        D10_CURRENCY        ' ||
   'D11_BUDGET          D12_SEASON          D13_YEAR            D14_MONTH           D15_STAFF           ' ||
   'D16_TARGET          '),
  ('NOTICE_MEMBER', 'NORTH', 'NOTICE', 'PK_MEMBER', 'NORTH', 'MEMBER', 1, 'C', 'A',
   'MEMBER_ID           ',
   'MEMBER_ID           '),
  ('NOTICE_ACQUISITION', 'NORTH', 'NOTICE', 'PK_ACQUISITION', 'NORTH', 'ACQUISITION', 1, 'N', 'A',
   'ACQUISITION_REFERENC',
   'ACQUISITION_REFERENC'),
  ('MEMBER_MEMBER', 'NORTH', 'MEMBER', 'SQL_PK_MEMBER', 'LIBRARY', 'MEMBER', 1, 'A', 'A',
   'MEMBER_ID           ',
   'MEMBER_ID           ');

-- Uniqueness P: of the primary key, U: unique, D: with duplicates. Column order A: ascending.
INSERT INTO syscat.indexes (indschema, indname, tabschema, tabname, uniquerule, colcount)
  SELECT tabschema, 'SQL_PK_' || substr(tabname, 1, 11), tabschema, tabname, 'P', count(*)
  FROM syscat.columns WHERE keyseq IS NOT NULL GROUP BY tabschema, tabname;
INSERT INTO syscat.indexcoluse
  SELECT tabschema, 'SQL_PK_' || substr(tabname, 1, 11), colname, keyseq, 'A' FROM syscat.columns WHERE keyseq IS NOT NULL;
INSERT INTO syscat.indexes (indschema, indname, tabschema, tabname, uniquerule, colcount) VALUES
  ('LIBRARY', 'STAFF_EMAIL', 'LIBRARY', 'STAFF',  'U', 1),
  ('LIBRARY', 'MEMBER_CARD', 'LIBRARY', 'MEMBER', 'U', 1),
  ('LIBRARY', 'MEMBER_NAME', 'LIBRARY', 'MEMBER', 'D', 2),
  ('LIBRARY', 'LOAN_DUE',    'LIBRARY', 'LOAN',   'D', 1);
INSERT INTO syscat.indexcoluse VALUES
  ('LIBRARY', 'STAFF_EMAIL', 'EMAIL',       1, 'A'),
  ('LIBRARY', 'MEMBER_CARD', 'CARD_NUMBER', 1, 'A'),
  ('LIBRARY', 'MEMBER_NAME', 'FAMILY_NAME', 1, 'A'),
  ('LIBRARY', 'MEMBER_NAME', 'GIVEN_NAME',  2, 'A'),
  ('LIBRARY', 'LOAN_DUE',    'DUE_ON',      1, 'D');

-- Two of DAYS_LATE, three of FINE_FOR; ISBN and CHARACTER convert a distinct type and do not count.
INSERT INTO syscat.functions (funcschema, funcname, specificname, funcid, origin, type, parm_count, cast_function, language)
VALUES
  ('LIBRARY', 'DAYS_LATE',      'DAYS_LATE_DATE',   5000, 'U', 'S', 2, 'N', 'SQL'),
  ('LIBRARY', 'DAYS_LATE',      'DAYS_LATE_TS',     5001, 'U', 'S', 2, 'N', 'SQL'),
  ('LIBRARY', 'FINE_FOR',       'FINE_FOR_1',       5002, 'U', 'S', 1, 'N', 'SQL'),
  ('LIBRARY', 'FINE_FOR',       'FINE_FOR_2',       5003, 'U', 'S', 2, 'N', 'SQL'),
  ('LIBRARY', 'FINE_FOR',       'FINE_FOR_3',       5004, 'U', 'S', 3, 'N', 'SQL'),
  ('LIBRARY', 'SHELF_MARK',     'SHELF_MARK_1',     5005, 'U', 'S', 1, 'N', 'SQL'),
  ('NORTH',   'NEAREST_BRANCH', 'NEAREST_BRANCH_1', 5006, 'U', 'S', 2, 'N', 'SQL'),
  ('LIBRARY', 'ISBN',           'SQL011240900700',  5007, 'U', 'S', 1, 'Y', 'SQL'),
  ('LIBRARY', 'CHARACTER',      'SQL011240900701',  5008, 'U', 'S', 1, 'Y', 'SQL'),
  ('SYSFUN',  'ABS',            'ABSINT',           5009, 'S', 'S', 1, 'N', 'C'),
  ('SYSFUN',  'ABS',            'ABSDOUBLE',        5010, 'S', 'S', 1, 'N', 'C'),
  ('SYSFUN',  'ATAN2',          'ATAN2DOUBLE',      5011, 'S', 'S', 2, 'N', 'C'),
  ('SYSFUN',  'LOCATE',         'LOCATE3',          5012, 'S', 'S', 3, 'N', 'C');
-- Row type P: a parameter, R: the result.
INSERT INTO syscat.funcparms (funcschema, funcname, specificname, rowtype, ordinal, typeschema, typename) VALUES
  ('LIBRARY', 'DAYS_LATE',      'DAYS_LATE_DATE',   'P', 1, 'SYSIBM',  'DATE'),
  ('LIBRARY', 'DAYS_LATE',      'DAYS_LATE_DATE',   'P', 2, 'SYSIBM',  'DATE'),
  ('LIBRARY', 'DAYS_LATE',      'DAYS_LATE_DATE',   'R', 0, 'SYSIBM',  'INTEGER'),
  ('LIBRARY', 'DAYS_LATE',      'DAYS_LATE_TS',     'P', 1, 'SYSIBM',  'TIMESTAMP'),
  ('LIBRARY', 'DAYS_LATE',      'DAYS_LATE_TS',     'P', 2, 'SYSIBM',  'DATE'),
  ('LIBRARY', 'DAYS_LATE',      'DAYS_LATE_TS',     'R', 0, 'SYSIBM',  'INTEGER'),
  ('LIBRARY', 'FINE_FOR',       'FINE_FOR_1',       'P', 1, 'SYSIBM',  'INTEGER'),
  ('LIBRARY', 'FINE_FOR',       'FINE_FOR_1',       'R', 0, 'LIBRARY', 'EURO'),
  ('LIBRARY', 'FINE_FOR',       'FINE_FOR_2',       'P', 1, 'SYSIBM',  'INTEGER'),
  ('LIBRARY', 'FINE_FOR',       'FINE_FOR_2',       'P', 2, 'LIBRARY', 'EURO'),
  ('LIBRARY', 'FINE_FOR',       'FINE_FOR_2',       'R', 0, 'LIBRARY', 'EURO'),
  ('LIBRARY', 'FINE_FOR',       'FINE_FOR_3',       'P', 1, 'SYSIBM',  'INTEGER'),
  ('LIBRARY', 'FINE_FOR',       'FINE_FOR_3',       'P', 2, 'LIBRARY', 'EURO'),
  ('LIBRARY', 'FINE_FOR',       'FINE_FOR_3',       'P', 3, 'SYSIBM',  'VARCHAR'),
  ('LIBRARY', 'FINE_FOR',       'FINE_FOR_3',       'R', 0, 'LIBRARY', 'EURO'),
  ('LIBRARY', 'SHELF_MARK',     'SHELF_MARK_1',     'P', 1, 'LIBRARY', 'ISBN'),
  ('LIBRARY', 'SHELF_MARK',     'SHELF_MARK_1',     'R', 0, 'SYSIBM',  'VARCHAR'),
  ('NORTH',   'NEAREST_BRANCH', 'NEAREST_BRANCH_1', 'P', 1, 'SYSIBM',  'DOUBLE'),
  ('NORTH',   'NEAREST_BRANCH', 'NEAREST_BRANCH_1', 'P', 2, 'SYSIBM',  'DOUBLE'),
  ('NORTH',   'NEAREST_BRANCH', 'NEAREST_BRANCH_1', 'R', 0, 'SYSIBM',  'INTEGER'),
  ('LIBRARY', 'ISBN',           'SQL011240900700',  'P', 1, 'SYSIBM',  'CHARACTER'),
  ('LIBRARY', 'ISBN',           'SQL011240900700',  'R', 0, 'LIBRARY', 'ISBN'),
  ('LIBRARY', 'CHARACTER',      'SQL011240900701',  'P', 1, 'LIBRARY', 'ISBN'),
  ('LIBRARY', 'CHARACTER',      'SQL011240900701',  'R', 0, 'SYSIBM',  'CHARACTER'),
  ('SYSFUN',  'ABS',            'ABSINT',           'P', 1, 'SYSIBM',  'INTEGER'),
  ('SYSFUN',  'ABS',            'ABSINT',           'R', 0, 'SYSIBM',  'DOUBLE'),
  ('SYSFUN',  'ABS',            'ABSDOUBLE',        'P', 1, 'SYSIBM',  'DOUBLE'),
  ('SYSFUN',  'ABS',            'ABSDOUBLE',        'R', 0, 'SYSIBM',  'DOUBLE'),
  ('SYSFUN',  'ATAN2',          'ATAN2DOUBLE',      'P', 1, 'SYSIBM',  'DOUBLE'),
  ('SYSFUN',  'ATAN2',          'ATAN2DOUBLE',      'P', 2, 'SYSIBM',  'DOUBLE'),
  ('SYSFUN',  'ATAN2',          'ATAN2DOUBLE',      'R', 0, 'SYSIBM',  'DOUBLE'),
  ('SYSFUN',  'LOCATE',         'LOCATE3',          'P', 1, 'SYSIBM',  'VARCHAR'),
  ('SYSFUN',  'LOCATE',         'LOCATE3',          'P', 2, 'SYSIBM',  'VARCHAR'),
  ('SYSFUN',  'LOCATE',         'LOCATE3',          'P', 3, 'SYSIBM',  'INTEGER'),
  ('SYSFUN',  'LOCATE',         'LOCATE3',          'R', 0, 'SYSIBM',  'INTEGER');
INSERT INTO syscat.procedures (procschema, procname, specificname, procedure_id, parm_count, origin, language) VALUES
  ('LIBRARY', 'LEND_BOOK',     'LEND_BOOK_1',  7001, 3, 'E', 'SQL'),
  ('LIBRARY', 'TAKE_BACK',     'TAKE_BACK_1',  7002, 2, 'E', 'SQL'),
  ('NORTH',   'REFRESH_NOTES', 'REFRESH_1',    7003, 0, 'E', 'SQL'),
  ('SYSIBM',  'SQLTABLES',     'SQLTABLES_1',  7004, 6, 'E', 'C');

CREATE VIEW syscat.sim_tables AS
  SELECT tabschema AS owner, tabname AS name,
         CASE WHEN tabschema IN ('SYSIBM', 'SYSCAT') THEN 'SYSTEM TABLE' WHEN type = 'V' THEN 'VIEW'
              WHEN type = 'A' THEN 'ALIAS' ELSE 'TABLE' END AS type,
         remarks
  FROM tables;
CREATE VIEW syscat.sim_columns AS
  SELECT tabschema AS owner, tabname AS table_name, colno + 1 AS position, colname AS column_name, typename AS type_name,
         CASE WHEN typename IN ('SMALLINT', 'INTEGER', 'BIGINT', 'REAL', 'DOUBLE', 'DATE', 'TIME', 'TIMESTAMP') THEN NULL
              ELSE length END AS column_size,
         scale AS decimal_digits, nulls = 'Y' AS nullable, remarks, "default" AS column_def
  FROM columns;
CREATE VIEW syscat.sim_primary_keys AS
  SELECT tabschema AS owner, tabname AS table_name, keyseq AS position, colname AS column_name,
         'SQL_PK_' || substr(tabname, 1, 11) AS key_name
  FROM columns WHERE keyseq IS NOT NULL;
CREATE TABLE syscat.sim_numbers (n INTEGER PRIMARY KEY);
INSERT INTO syscat.sim_numbers VALUES (1), (2), (3), (4), (5), (6), (7), (8), (9), (10), (11), (12), (13), (14), (15), (16);
CREATE VIEW syscat.sim_foreign_keys AS
  SELECT r.reftabschema AS pk_owner, r.reftabname AS pk_table, sim_slice(r.pk_colnames, n.n, 20) AS pk_column,
         r.tabschema AS fk_owner, r.tabname AS fk_table, sim_slice(r.fk_colnames, n.n, 20) AS fk_column, n.n AS position,
         r.constname AS fk_name, r.refkeyname AS pk_name
  FROM "references" r JOIN sim_numbers n ON n.n <= r.colcount;
CREATE VIEW syscat.sim_statistics AS
  SELECT i.tabschema AS owner, i.tabname AS table_name, i.uniquerule = 'D' AS non_unique, i.indname AS index_name,
         k.colseq AS position, k.colname AS column_name, k.colorder = 'D' AS descending
  FROM indexes i JOIN indexcoluse k ON k.indschema = i.indschema AND k.indname = i.indname;
CREATE VIEW syscat.sim_procedures AS
  SELECT procschema AS owner, procname AS name, 1 AS type, remarks FROM procedures;

CREATE TABLE syscat.sim_types (
  type_name VARCHAR(128) PRIMARY KEY, data_type SMALLINT, column_size INTEGER, create_params VARCHAR(64),
  auto_increment SMALLINT, max_scale SMALLINT);
INSERT INTO syscat.sim_types VALUES
  ('SMALLINT',     5,  5,          NULL,              0,    0),
  ('INTEGER',      4,  10,         NULL,              0,    0),
  ('BIGINT',       -5, 19,         NULL,              0,    0),
  ('DECIMAL',      3,  31,         'precision,scale', 0,    31),
  ('REAL',         7,  24,         NULL,              0,    NULL),
  ('DOUBLE',       8,  53,         NULL,              0,    NULL),
  ('CHARACTER',    1,  254,        'length',          NULL, NULL),
  ('VARCHAR',      12, 32672,      'max length',      NULL, NULL),
  ('LONG VARCHAR', -1, 32700,      NULL,              NULL, NULL),
  ('CLOB',         -1, 2147483647, 'length',          NULL, NULL),
  ('VARGRAPHIC',   -9, 16336,      'max length',      NULL, NULL),
  ('DATE',         91, 10,         NULL,              NULL, NULL),
  ('TIME',         92, 8,          NULL,              NULL, NULL),
  ('TIMESTAMP',    93, 26,         NULL,              NULL, 6),
  ('BLOB',         -4, 2147483647, 'length',          NULL, NULL),
  ('ISBN',         1,  13,         NULL,              NULL, NULL),
  ('EMAIL',        12, 120,        NULL,              NULL, NULL),
  ('EURO',         3,  9,          NULL,              0,    2),
  ('STAMP',        93, 26,         NULL,              NULL, 6),
  ('ESSAY',        -1, 65536,      NULL,              NULL, NULL);

COMMIT;
