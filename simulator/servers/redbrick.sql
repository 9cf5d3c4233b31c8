-- Red Brick Warehouse: a public library as a warehouse has it, without large objects, and what that server alone has:
-- system tables without a creator, relationships that name tables without their owner.
BEGIN;

CREATE TABLE rbw_tables (
  name CHAR(128), type CHAR(10), creator CHAR(128), id INTEGER, maxsegments INTEGER, maxrows_per_seg INTEGER,
  maxsize_rows INTEGER, intact CHAR(1), partial_index CHAR(1), "comment" CHAR(256));
CREATE UNIQUE INDEX i_tables_id ON rbw_tables (id);
CREATE INDEX i_tables_name ON rbw_tables (creator, name);
CREATE INDEX i_tables_name_only ON rbw_tables (name);

CREATE TABLE rbw_columns (
  name CHAR(128), tname CHAR(128), seq INTEGER, type CHAR(16), length INTEGER, precision INTEGER, scale INTEGER,
  nulls CHAR(1), "unique" CHAR(1), pkseq INTEGER, fkseq INTEGER, fillfactor INTEGER, tid INTEGER, "comment" CHAR(256));
CREATE INDEX i_columns_tid ON rbw_columns (tid, seq);
CREATE INDEX i_columns_tname ON rbw_columns (tname);

CREATE TABLE rbw_synonyms (name CHAR(128), tname CHAR(128), creator CHAR(128), "comment" CHAR(256));
CREATE INDEX i_synonyms ON rbw_synonyms (tname);

CREATE TABLE rbw_relationships (
  fktable CHAR(128), fkconstraint CHAR(128), pktable CHAR(128), pkconstraint CHAR(128), delete_action CHAR(10));
CREATE INDEX i_relationships_fk ON rbw_relationships (fkconstraint);
CREATE INDEX i_relationships_pk ON rbw_relationships (pkconstraint);
CREATE INDEX i_relationships_table ON rbw_relationships (fktable);

CREATE TABLE rbw_constraints (name CHAR(128), tname CHAR(128), type CHAR(16), creator CHAR(128));
CREATE INDEX i_constraints ON rbw_constraints (name);

CREATE TABLE rbw_constraintcolumns (constraint_name CHAR(128), tname CHAR(128), cname CHAR(128), colseq INTEGER);
CREATE INDEX i_constraintcolumns ON rbw_constraintcolumns (constraint_name, colseq);

CREATE TABLE rbw_indexes (name CHAR(128), tname CHAR(128), type CHAR(16), creator CHAR(128), id INTEGER, "unique" CHAR(1));
CREATE INDEX i_indexes ON rbw_indexes (tname);
CREATE TABLE rbw_indexcolumns (iname CHAR(128), tname CHAR(128), cname CHAR(128), seq INTEGER);
CREATE INDEX i_indexcolumns ON rbw_indexcolumns (iname);

INSERT INTO rbw_tables (name, type, creator, id) VALUES
  ('RBW_TABLES',    'SYSTEM', NULL,      1),
  ('RBW_COLUMNS',   'SYSTEM', NULL,      2),
  ('BRANCH',        'TABLE',  'LIBRARY', 1001),
  ('OPENING_HOURS', 'TABLE',  'LIBRARY', 1002),
  ('STAFF',         'TABLE',  'LIBRARY', 1003),
  ('PUBLISHER',     'TABLE',  'LIBRARY', 1004),
  ('AUTHOR',        'TABLE',  'LIBRARY', 1005),
  ('GENRE',         'TABLE',  'LIBRARY', 1006),
  ('BOOK',          'TABLE',  'LIBRARY', 1007),
  ('BOOK_AUTHOR',   'TABLE',  'LIBRARY', 1008),
  ('BOOK_GENRE',    'TABLE',  'LIBRARY', 1009),
  ('COPY',          'TABLE',  'LIBRARY', 1010),
  ('MEMBER',        'TABLE',  'LIBRARY', 1011),
  ('LOAN',          'TABLE',  'LIBRARY', 1012),
  ('FINE',          'TABLE',  'LIBRARY', 1013),
  ('RESERVATION',   'TABLE',  'LIBRARY', 1014),
  ('EVENT',         'TABLE',  'LIBRARY', 1015),
  ('EVENT_VISITOR', 'TABLE',  'LIBRARY', 1016),
  ('STOCK_CELL',    'TABLE',  'LIBRARY', 1017),
  ('STOCK_COUNT',   'TABLE',  'LIBRARY', 1018),
  ('OVERDUE_LOAN',  'VIEW',   'LIBRARY', 1019),
  ('SHELF',         'VIEW',   'LIBRARY', 1020),
  ('NORTH_VISIT',   'TABLE',  'NORTH',   1021),
  ('GENRE',         'TABLE',  'NORTH',   1022);

INSERT INTO rbw_columns (name, tname, seq, type, length, precision, scale, nulls, pkseq, tid) VALUES
  ('NAME',          'RBW_TABLES',    1,  'CHARACTER', 128,  0,  0, 'N', 0,  1),
  ('TYPE',          'RBW_TABLES',    2,  'CHARACTER', 10,   0,  0, 'N', 0,  1),
  ('ID',            'RBW_TABLES',    3,  'INTEGER',   4,    10, 0, 'N', 1,  1),
  ('NAME',          'RBW_COLUMNS',   1,  'CHARACTER', 128,  0,  0, 'N', 0,  2),
  ('TNAME',         'RBW_COLUMNS',   2,  'CHARACTER', 128,  0,  0, 'N', 0,  2),
  ('SEQ',           'RBW_COLUMNS',   3,  'INTEGER',   4,    10, 0, 'N', 0,  2),
  ('BRANCH_ID',     'BRANCH',        1,  'INTEGER',   4,    10, 0, 'N', 1,  1001),
  ('NAME',          'BRANCH',        2,  'VARCHAR',   60,   0,  0, 'N', 0,  1001),
  ('ADDRESS',       'BRANCH',        3,  'VARCHAR',   120,  0,  0, 'N', 0,  1001),
  ('CITY',          'BRANCH',        4,  'VARCHAR',   60,   0,  0, 'N', 0,  1001),
  ('OPENED_ON',     'BRANCH',        5,  'DATE',      3,    0,  0, 'Y', 0,  1001),
  ('LATITUDE',      'BRANCH',        6,  'DOUBLE',    8,    53, 0, 'Y', 0,  1001),
  ('LONGITUDE',     'BRANCH',        7,  'DOUBLE',    8,    53, 0, 'Y', 0,  1001),
  ('BRANCH_ID',     'OPENING_HOURS', 1,  'INTEGER',   4,    10, 0, 'N', 1,  1002),
  ('WEEKDAY',       'OPENING_HOURS', 2,  'SMALLINT',  2,    5,  0, 'N', 2,  1002),
  ('OPENS_AT',      'OPENING_HOURS', 3,  'TIME',      5,    0,  0, 'N', 0,  1002),
  ('CLOSES_AT',     'OPENING_HOURS', 4,  'TIME',      5,    0,  0, 'N', 0,  1002),
  ('STAFF_ID',      'STAFF',         1,  'INTEGER',   4,    10, 0, 'N', 1,  1003),
  ('BRANCH_ID',     'STAFF',         2,  'INTEGER',   4,    10, 0, 'N', 0,  1003),
  ('MANAGER_ID',    'STAFF',         3,  'INTEGER',   4,    10, 0, 'Y', 0,  1003),
  ('GIVEN_NAME',    'STAFF',         4,  'VARCHAR',   40,   0,  0, 'N', 0,  1003),
  ('FAMILY_NAME',   'STAFF',         5,  'VARCHAR',   40,   0,  0, 'N', 0,  1003),
  ('EMAIL',         'STAFF',         6,  'VARCHAR',   120,  0,  0, 'N', 0,  1003),
  ('HIRED_ON',      'STAFF',         7,  'DATE',      3,    0,  0, 'N', 0,  1003),
  ('SALARY',        'STAFF',         8,  'DECIMAL',   5,    9,  2, 'N', 0,  1003),
  ('PUBLISHER_ID',  'PUBLISHER',     1,  'INTEGER',   4,    10, 0, 'N', 1,  1004),
  ('NAME',          'PUBLISHER',     2,  'VARCHAR',   80,   0,  0, 'N', 0,  1004),
  ('COUNTRY',       'PUBLISHER',     3,  'CHARACTER', 2,    0,  0, 'Y', 0,  1004),
  ('AUTHOR_ID',     'AUTHOR',        1,  'INTEGER',   4,    10, 0, 'N', 1,  1005),
  ('NAME',          'AUTHOR',        2,  'VARCHAR',   80,   0,  0, 'N', 0,  1005),
  ('BORN_IN',       'AUTHOR',        3,  'SMALLINT',  2,    5,  0, 'Y', 0,  1005),
  ('BIOGRAPHY',     'AUTHOR',        4,  'VARCHAR',   1024, 0,  0, 'Y', 0,  1005),
  ('GENRE_ID',      'GENRE',         1,  'INTEGER',   4,    10, 0, 'N', 1,  1006),
  ('PARENT_ID',     'GENRE',         2,  'INTEGER',   4,    10, 0, 'Y', 0,  1006),
  ('NAME',          'GENRE',         3,  'VARCHAR',   40,   0,  0, 'N', 0,  1006),
  ('ISBN',          'BOOK',          1,  'CHARACTER', 13,   0,  0, 'N', 1,  1007),
  ('TITLE',         'BOOK',          2,  'VARCHAR',   200,  0,  0, 'N', 0,  1007),
  ('PUBLISHER_ID',  'BOOK',          3,  'INTEGER',   4,    10, 0, 'Y', 0,  1007),
  ('PUBLISHED_IN',  'BOOK',          4,  'SMALLINT',  2,    5,  0, 'Y', 0,  1007),
  ('PAGES',         'BOOK',          5,  'INTEGER',   4,    10, 0, 'Y', 0,  1007),
  ('PRICE',         'BOOK',          6,  'NUMERIC',   5,    8,  2, 'Y', 0,  1007),
  ('SUMMARY',       'BOOK',          7,  'VARCHAR',   1024, 0,  0, 'Y', 0,  1007),
  ('ISBN',          'BOOK_AUTHOR',   1,  'CHARACTER', 13,   0,  0, 'N', 1,  1008),
  ('AUTHOR_ID',     'BOOK_AUTHOR',   2,  'INTEGER',   4,    10, 0, 'N', 2,  1008),
  ('CONTRIBUTION',  'BOOK_AUTHOR',   3,  'VARCHAR',   20,   0,  0, 'Y', 0,  1008),
  ('ISBN',          'BOOK_GENRE',    1,  'CHARACTER', 13,   0,  0, 'N', 1,  1009),
  ('GENRE_ID',      'BOOK_GENRE',    2,  'INTEGER',   4,    10, 0, 'N', 2,  1009),
  ('ISBN',          'COPY',          1,  'CHARACTER', 13,   0,  0, 'N', 1,  1010),
  ('COPY_NUMBER',   'COPY',          2,  'SMALLINT',  2,    5,  0, 'N', 2,  1010),
  ('BRANCH_ID',     'COPY',          3,  'INTEGER',   4,    10, 0, 'N', 0,  1010),
  ('BOUGHT_ON',     'COPY',          4,  'DATE',      3,    0,  0, 'Y', 0,  1010),
  ('IS_LENDABLE',   'COPY',          5,  'CHARACTER', 1,    0,  0, 'N', 0,  1010),
  ('MEMBER_ID',     'MEMBER',        1,  'INTEGER',   4,    10, 0, 'N', 1,  1011),
  ('CARD_NUMBER',   'MEMBER',        2,  'CHARACTER', 10,   0,  0, 'N', 0,  1011),
  ('GIVEN_NAME',    'MEMBER',        3,  'VARCHAR',   40,   0,  0, 'N', 0,  1011),
  ('FAMILY_NAME',   'MEMBER',        4,  'VARCHAR',   40,   0,  0, 'N', 0,  1011),
  ('BORN_ON',       'MEMBER',        5,  'DATE',      3,    0,  0, 'Y', 0,  1011),
  ('EMAIL',         'MEMBER',        6,  'VARCHAR',   120,  0,  0, 'Y', 0,  1011),
  ('HOME_BRANCH',   'MEMBER',        7,  'INTEGER',   4,    10, 0, 'Y', 0,  1011),
  ('JOINED_AT',     'MEMBER',        8,  'TIMESTAMP', 8,    0,  0, 'N', 0,  1011),
  ('LOAN_ID',       'LOAN',          1,  'DECIMAL',   7,    12, 0, 'N', 1,  1012),
  ('ISBN',          'LOAN',          2,  'CHARACTER', 13,   0,  0, 'N', 0,  1012),
  ('COPY_NUMBER',   'LOAN',          3,  'SMALLINT',  2,    5,  0, 'N', 0,  1012),
  ('MEMBER_ID',     'LOAN',          4,  'INTEGER',   4,    10, 0, 'N', 0,  1012),
  ('LENT_BY',       'LOAN',          5,  'INTEGER',   4,    10, 0, 'Y', 0,  1012),
  ('LENT_AT',       'LOAN',          6,  'TIMESTAMP', 8,    0,  0, 'N', 0,  1012),
  ('DUE_ON',        'LOAN',          7,  'DATE',      3,    0,  0, 'N', 0,  1012),
  ('RETURNED_AT',   'LOAN',          8,  'TIMESTAMP', 8,    0,  0, 'Y', 0,  1012),
  ('LOAN_ID',       'FINE',          1,  'DECIMAL',   7,    12, 0, 'N', 1,  1013),
  ('AMOUNT',        'FINE',          2,  'NUMERIC',   5,    6,  2, 'N', 0,  1013),
  ('REASON',        'FINE',          3,  'VARCHAR',   80,   0,  0, 'Y', 0,  1013),
  ('PAID_AT',       'FINE',          4,  'TIMESTAMP', 8,    0,  0, 'Y', 0,  1013),
  ('ISBN',          'RESERVATION',   1,  'CHARACTER', 13,   0,  0, 'N', 1,  1014),
  ('MEMBER_ID',     'RESERVATION',   2,  'INTEGER',   4,    10, 0, 'N', 2,  1014),
  ('MADE_AT',       'RESERVATION',   3,  'TIMESTAMP', 8,    0,  0, 'N', 0,  1014),
  ('PICK_UP_AT',    'RESERVATION',   4,  'INTEGER',   4,    10, 0, 'Y', 0,  1014),
  ('EVENT_ID',      'EVENT',         1,  'INTEGER',   4,    10, 0, 'N', 1,  1015),
  ('BRANCH_ID',     'EVENT',         2,  'INTEGER',   4,    10, 0, 'N', 0,  1015),
  ('HELD_BY',       'EVENT',         3,  'INTEGER',   4,    10, 0, 'Y', 0,  1015),
  ('TITLE',         'EVENT',         4,  'VARCHAR',   120,  0,  0, 'N', 0,  1015),
  ('HELD_ON',       'EVENT',         5,  'DATE',      3,    0,  0, 'N', 0,  1015),
  ('BEGINS_AT',     'EVENT',         6,  'TIME',      5,    0,  0, 'N', 0,  1015),
  ('FEE',           'EVENT',         7,  'REAL',      4,    24, 0, 'Y', 0,  1015),
  ('EVENT_ID',      'EVENT_VISITOR', 1,  'INTEGER',   4,    10, 0, 'N', 1,  1016),
  ('MEMBER_ID',     'EVENT_VISITOR', 2,  'INTEGER',   4,    10, 0, 'N', 2,  1016),
  ('SEATS',         'EVENT_VISITOR', 3,  'TINYINT',   1,    3,  0, 'N', 0,  1016),
  ('D01_BRANCH',    'STOCK_CELL',    1,  'INTEGER',   4,    10, 0, 'N', 1,  1017),
  ('D02_SHELF',     'STOCK_CELL',    2,  'INTEGER',   4,    10, 0, 'N', 2,  1017),
  ('D03_GENRE',     'STOCK_CELL',    3,  'INTEGER',   4,    10, 0, 'N', 3,  1017),
  ('D04_PUBLISHER', 'STOCK_CELL',    4,  'INTEGER',   4,    10, 0, 'N', 4,  1017),
  ('D05_AUTHOR',    'STOCK_CELL',    5,  'INTEGER',   4,    10, 0, 'N', 5,  1017),
  ('D06_LANGUAGE',  'STOCK_CELL',    6,  'INTEGER',   4,    10, 0, 'N', 6,  1017),
  ('D07_FORMAT',    'STOCK_CELL',    7,  'INTEGER',   4,    10, 0, 'N', 7,  1017),
  ('D08_CONDITION', 'STOCK_CELL',    8,  'INTEGER',   4,    10, 0, 'N', 8,  1017),
  ('D09_SUPPLIER',  'STOCK_CELL',    9,  'INTEGER',   4,    10, 0, 'N', 9,  1017),
  ('D10_CURRENCY',  'STOCK_CELL',    10, 'INTEGER',   4,    10, 0, 'N', 10, 1017),
  ('D11_BUDGET',    'STOCK_CELL',    11, 'INTEGER',   4,    10, 0, 'N', 11, 1017),
  ('D12_SEASON',    'STOCK_CELL',    12, 'INTEGER',   4,    10, 0, 'N', 12, 1017),
  ('D13_YEAR',      'STOCK_CELL',    13, 'INTEGER',   4,    10, 0, 'N', 13, 1017),
  ('D14_MONTH',     'STOCK_CELL',    14, 'INTEGER',   4,    10, 0, 'N', 14, 1017),
  ('D15_STAFF',     'STOCK_CELL',    15, 'INTEGER',   4,    10, 0, 'N', 15, 1017),
  ('D16_TARGET',    'STOCK_CELL',    16, 'INTEGER',   4,    10, 0, 'N', 16, 1017),
  ('COPIES',        'STOCK_CELL',    17, 'INTEGER',   4,    10, 0, 'N', 0,  1017),
  ('D01_BRANCH',    'STOCK_COUNT',   1,  'INTEGER',   4,    10, 0, 'N', 1,  1018),
  ('D02_SHELF',     'STOCK_COUNT',   2,  'INTEGER',   4,    10, 0, 'N', 2,  1018),
  ('D03_GENRE',     'STOCK_COUNT',   3,  'INTEGER',   4,    10, 0, 'N', 3,  1018),
  ('D04_PUBLISHER', 'STOCK_COUNT',   4,  'INTEGER',   4,    10, 0, 'N', 4,  1018),
  ('D05_AUTHOR',    'STOCK_COUNT',   5,  'INTEGER',   4,    10, 0, 'N', 5,  1018),
  ('D06_LANGUAGE',  'STOCK_COUNT',   6,  'INTEGER',   4,    10, 0, 'N', 6,  1018),
  ('D07_FORMAT',    'STOCK_COUNT',   7,  'INTEGER',   4,    10, 0, 'N', 7,  1018),
  ('D08_CONDITION', 'STOCK_COUNT',   8,  'INTEGER',   4,    10, 0, 'N', 8,  1018),
  ('D09_SUPPLIER',  'STOCK_COUNT',   9,  'INTEGER',   4,    10, 0, 'N', 9,  1018),
  ('D10_CURRENCY',  'STOCK_COUNT',   10, 'INTEGER',   4,    10, 0, 'N', 10, 1018),
  ('D11_BUDGET',    'STOCK_COUNT',   11, 'INTEGER',   4,    10, 0, 'N', 11, 1018),
  ('D12_SEASON',    'STOCK_COUNT',   12, 'INTEGER',   4,    10, 0, 'N', 12, 1018),
  ('D13_YEAR',      'STOCK_COUNT',   13, 'INTEGER',   4,    10, 0, 'N', 13, 1018),
  ('D14_MONTH',     'STOCK_COUNT',   14, 'INTEGER',   4,    10, 0, 'N', 14, 1018),
  ('D15_STAFF',     'STOCK_COUNT',   15, 'INTEGER',   4,    10, 0, 'N', 15, 1018),
  ('D16_TARGET',    'STOCK_COUNT',   16, 'INTEGER',   4,    10, 0, 'N', 16, 1018),
  ('COUNTED_ON',    'STOCK_COUNT',   17, 'DATE',      3,    0,  0, 'N', 0,  1018),
  ('COUNTED',       'STOCK_COUNT',   18, 'INTEGER',   4,    10, 0, 'N', 0,  1018),
  ('LOAN_ID',       'OVERDUE_LOAN',  1,  'DECIMAL',   7,    12, 0, 'N', 0,  1019),
  ('CARD_NUMBER',   'OVERDUE_LOAN',  2,  'CHARACTER', 10,   0,  0, 'N', 0,  1019),
  ('EMAIL',         'OVERDUE_LOAN',  3,  'VARCHAR',   120,  0,  0, 'Y', 0,  1019),
  ('TITLE',         'OVERDUE_LOAN',  4,  'VARCHAR',   200,  0,  0, 'N', 0,  1019),
  ('DUE_ON',        'OVERDUE_LOAN',  5,  'DATE',      3,    0,  0, 'N', 0,  1019),
  ('BRANCH',        'SHELF',         1,  'VARCHAR',   60,   0,  0, 'N', 0,  1020),
  ('TITLE',         'SHELF',         2,  'VARCHAR',   200,  0,  0, 'N', 0,  1020),
  ('ISBN',          'SHELF',         3,  'CHARACTER', 13,   0,  0, 'N', 0,  1020),
  ('COPY_NUMBER',   'SHELF',         4,  'SMALLINT',  2,    5,  0, 'N', 0,  1020),
  ('BRANCH_ID',     'NORTH_VISIT',   1,  'INTEGER',   4,    10, 0, 'N', 1,  1021),
  ('WEEK',          'NORTH_VISIT',   2,  'SMALLINT',  2,    5,  0, 'N', 2,  1021),
  ('VISITORS',      'NORTH_VISIT',   3,  'INTEGER',   4,    10, 0, 'Y', 0,  1021),
  ('LOAD_FACTOR',   'NORTH_VISIT',   4,  'FLOAT',     8,    53, 0, 'Y', 0,  1021),
  ('GENRE_ID',      'GENRE',         1,  'INTEGER',   4,    10, 0, 'N', 1,  1022),
  ('NAME',          'GENRE',         2,  'CHARACTER', 40,   0,  0, 'Y', 0,  1022);

INSERT INTO rbw_synonyms (name, tname, creator) VALUES
  ('BOOKS',  'BOOK',        'LIBRARY'),
  ('LOANS',  'LOAN',        'NORTH'),
  ('VISITS', 'NORTH_VISIT', 'NORTH');

INSERT INTO rbw_constraints (name, tname, type, creator) VALUES
  ('PK_BRANCH',                  'BRANCH',        'PRIMARY KEY', 'LIBRARY'),
  ('PK_OPENING_HOURS',           'OPENING_HOURS', 'PRIMARY KEY', 'LIBRARY'),
  ('PK_STAFF',                   'STAFF',         'PRIMARY KEY', 'LIBRARY'),
  ('PK_PUBLISHER',               'PUBLISHER',     'PRIMARY KEY', 'LIBRARY'),
  ('PK_AUTHOR',                  'AUTHOR',        'PRIMARY KEY', 'LIBRARY'),
  ('PK_GENRE',                   'GENRE',         'PRIMARY KEY', 'LIBRARY'),
  ('PK_BOOK',                    'BOOK',          'PRIMARY KEY', 'LIBRARY'),
  ('PK_BOOK_AUTHOR',             'BOOK_AUTHOR',   'PRIMARY KEY', 'LIBRARY'),
  ('PK_BOOK_GENRE',              'BOOK_GENRE',    'PRIMARY KEY', 'LIBRARY'),
  ('PK_COPY',                    'COPY',          'PRIMARY KEY', 'LIBRARY'),
  ('PK_MEMBER',                  'MEMBER',        'PRIMARY KEY', 'LIBRARY'),
  ('PK_LOAN',                    'LOAN',          'PRIMARY KEY', 'LIBRARY'),
  ('PK_FINE',                    'FINE',          'PRIMARY KEY', 'LIBRARY'),
  ('PK_RESERVATION',             'RESERVATION',   'PRIMARY KEY', 'LIBRARY'),
  ('PK_EVENT',                   'EVENT',         'PRIMARY KEY', 'LIBRARY'),
  ('PK_EVENT_VISITOR',           'EVENT_VISITOR', 'PRIMARY KEY', 'LIBRARY'),
  ('PK_STOCK_CELL',              'STOCK_CELL',    'PRIMARY KEY', 'LIBRARY'),
  ('PK_STOCK_COUNT',             'STOCK_COUNT',   'PRIMARY KEY', 'LIBRARY'),
  ('PK_NORTH_VISIT',             'NORTH_VISIT',   'PRIMARY KEY', 'NORTH'),
  ('PK_NORTH_GENRE',             'GENRE',         'PRIMARY KEY', 'NORTH'),
  ('FK_OPENING_HOURS_BRANCH_ID', 'OPENING_HOURS', 'FOREIGN KEY', 'LIBRARY'),
  ('FK_STAFF_BRANCH_ID',         'STAFF',         'FOREIGN KEY', 'LIBRARY'),
  ('FK_STAFF_MANAGER_ID',        'STAFF',         'FOREIGN KEY', 'LIBRARY'),
  ('FK_GENRE_PARENT_ID',         'GENRE',         'FOREIGN KEY', 'LIBRARY'),
  ('FK_BOOK_PUBLISHER_ID',       'BOOK',          'FOREIGN KEY', 'LIBRARY'),
  ('FK_BOOK_AUTHOR_ISBN',        'BOOK_AUTHOR',   'FOREIGN KEY', 'LIBRARY'),
  ('FK_BOOK_AUTHOR_AUTHOR_ID',   'BOOK_AUTHOR',   'FOREIGN KEY', 'LIBRARY'),
  ('FK_BOOK_GENRE_ISBN',         'BOOK_GENRE',    'FOREIGN KEY', 'LIBRARY'),
  ('FK_BOOK_GENRE_GENRE_ID',     'BOOK_GENRE',    'FOREIGN KEY', 'LIBRARY'),
  ('FK_COPY_ISBN',               'COPY',          'FOREIGN KEY', 'LIBRARY'),
  ('FK_COPY_BRANCH_ID',          'COPY',          'FOREIGN KEY', 'LIBRARY'),
  ('FK_MEMBER_HOME_BRANCH',      'MEMBER',        'FOREIGN KEY', 'LIBRARY'),
  ('FK_LOAN_ISBN',               'LOAN',          'FOREIGN KEY', 'LIBRARY'),
  ('FK_LOAN_MEMBER_ID',          'LOAN',          'FOREIGN KEY', 'LIBRARY'),
  ('FK_LOAN_LENT_BY',            'LOAN',          'FOREIGN KEY', 'LIBRARY'),
  ('FK_FINE_LOAN_ID',            'FINE',          'FOREIGN KEY', 'LIBRARY'),
  ('FK_RESERVATION_ISBN',        'RESERVATION',   'FOREIGN KEY', 'LIBRARY'),
  ('FK_RESERVATION_MEMBER_ID',   'RESERVATION',   'FOREIGN KEY', 'LIBRARY'),
  ('FK_RESERVATION_PICK_UP_AT',  'RESERVATION',   'FOREIGN KEY', 'LIBRARY'),
  ('FK_EVENT_BRANCH_ID',         'EVENT',         'FOREIGN KEY', 'LIBRARY'),
  ('FK_EVENT_HELD_BY',           'EVENT',         'FOREIGN KEY', 'LIBRARY'),
  ('FK_EVENT_VISITOR_EVENT_ID',  'EVENT_VISITOR', 'FOREIGN KEY', 'LIBRARY'),
  ('FK_EVENT_VISITOR_MEMBER_ID', 'EVENT_VISITOR', 'FOREIGN KEY', 'LIBRARY'),
  ('FK_STOCK_COUNT',             'STOCK_COUNT',   'FOREIGN KEY', 'LIBRARY'),
  ('FK_NORTH_VISIT_BRANCH',      'NORTH_VISIT',   'FOREIGN KEY', 'NORTH');
INSERT INTO rbw_constraintcolumns VALUES
  ('PK_BRANCH',                  'BRANCH',        'BRANCH_ID',     1),
  ('PK_OPENING_HOURS',           'OPENING_HOURS', 'BRANCH_ID',     1),
  ('PK_OPENING_HOURS',           'OPENING_HOURS', 'WEEKDAY',       2),
  ('PK_STAFF',                   'STAFF',         'STAFF_ID',      1),
  ('PK_PUBLISHER',               'PUBLISHER',     'PUBLISHER_ID',  1),
  ('PK_AUTHOR',                  'AUTHOR',        'AUTHOR_ID',     1),
  ('PK_GENRE',                   'GENRE',         'GENRE_ID',      1),
  ('PK_BOOK',                    'BOOK',          'ISBN',          1),
  ('PK_BOOK_AUTHOR',             'BOOK_AUTHOR',   'ISBN',          1),
  ('PK_BOOK_AUTHOR',             'BOOK_AUTHOR',   'AUTHOR_ID',     2),
  ('PK_BOOK_GENRE',              'BOOK_GENRE',    'ISBN',          1),
  ('PK_BOOK_GENRE',              'BOOK_GENRE',    'GENRE_ID',      2),
  ('PK_COPY',                    'COPY',          'ISBN',          1),
  ('PK_COPY',                    'COPY',          'COPY_NUMBER',   2),
  ('PK_MEMBER',                  'MEMBER',        'MEMBER_ID',     1),
  ('PK_LOAN',                    'LOAN',          'LOAN_ID',       1),
  ('PK_FINE',                    'FINE',          'LOAN_ID',       1),
  ('PK_RESERVATION',             'RESERVATION',   'ISBN',          1),
  ('PK_RESERVATION',             'RESERVATION',   'MEMBER_ID',     2),
  ('PK_EVENT',                   'EVENT',         'EVENT_ID',      1),
  ('PK_EVENT_VISITOR',           'EVENT_VISITOR', 'EVENT_ID',      1),
  ('PK_EVENT_VISITOR',           'EVENT_VISITOR', 'MEMBER_ID',     2),
  ('PK_STOCK_CELL',              'STOCK_CELL',    'D01_BRANCH',    1),
  ('PK_STOCK_CELL',              'STOCK_CELL',    'D02_SHELF',     2),
  ('PK_STOCK_CELL',              'STOCK_CELL',    'D03_GENRE',     3),
  ('PK_STOCK_CELL',              'STOCK_CELL',    'D04_PUBLISHER', 4),
  ('PK_STOCK_CELL',              'STOCK_CELL',    'D05_AUTHOR',    5),
  ('PK_STOCK_CELL',              'STOCK_CELL',    'D06_LANGUAGE',  6),
  ('PK_STOCK_CELL',              'STOCK_CELL',    'D07_FORMAT',    7),
  ('PK_STOCK_CELL',              'STOCK_CELL',    'D08_CONDITION', 8),
  ('PK_STOCK_CELL',              'STOCK_CELL',    'D09_SUPPLIER',  9),
  ('PK_STOCK_CELL',              'STOCK_CELL',    'D10_CURRENCY',  10),
  ('PK_STOCK_CELL',              'STOCK_CELL',    'D11_BUDGET',    11),
  ('PK_STOCK_CELL',              'STOCK_CELL',    'D12_SEASON',    12),
  ('PK_STOCK_CELL',              'STOCK_CELL',    'D13_YEAR',      13),
  ('PK_STOCK_CELL',              'STOCK_CELL',    'D14_MONTH',     14),
  ('PK_STOCK_CELL',              'STOCK_CELL',    'D15_STAFF',     15),
  ('PK_STOCK_CELL',              'STOCK_CELL',    'D16_TARGET',    16),
  ('PK_STOCK_COUNT',             'STOCK_COUNT',   'D01_BRANCH',    1),
  ('PK_STOCK_COUNT',             'STOCK_COUNT',   'D02_SHELF',     2),
  ('PK_STOCK_COUNT',             'STOCK_COUNT',   'D03_GENRE',     3),
  ('PK_STOCK_COUNT',             'STOCK_COUNT',   'D04_PUBLISHER', 4),
  ('PK_STOCK_COUNT',             'STOCK_COUNT',   'D05_AUTHOR',    5),
  ('PK_STOCK_COUNT',             'STOCK_COUNT',   'D06_LANGUAGE',  6),
  ('PK_STOCK_COUNT',             'STOCK_COUNT',   'D07_FORMAT',    7),
  ('PK_STOCK_COUNT',             'STOCK_COUNT',   'D08_CONDITION', 8),
  ('PK_STOCK_COUNT',             'STOCK_COUNT',   'D09_SUPPLIER',  9),
  ('PK_STOCK_COUNT',             'STOCK_COUNT',   'D10_CURRENCY',  10),
  ('PK_STOCK_COUNT',             'STOCK_COUNT',   'D11_BUDGET',    11),
  ('PK_STOCK_COUNT',             'STOCK_COUNT',   'D12_SEASON',    12),
  ('PK_STOCK_COUNT',             'STOCK_COUNT',   'D13_YEAR',      13),
  ('PK_STOCK_COUNT',             'STOCK_COUNT',   'D14_MONTH',     14),
  ('PK_STOCK_COUNT',             'STOCK_COUNT',   'D15_STAFF',     15),
  ('PK_STOCK_COUNT',             'STOCK_COUNT',   'D16_TARGET',    16),
  ('PK_NORTH_VISIT',             'NORTH_VISIT',   'BRANCH_ID',     1),
  ('PK_NORTH_VISIT',             'NORTH_VISIT',   'WEEK',          2),
  ('PK_NORTH_GENRE',             'GENRE',         'GENRE_ID',      1),
  ('FK_OPENING_HOURS_BRANCH_ID', 'OPENING_HOURS', 'BRANCH_ID',     1),
  ('FK_STAFF_BRANCH_ID',         'STAFF',         'BRANCH_ID',     1),
  ('FK_STAFF_MANAGER_ID',        'STAFF',         'MANAGER_ID',    1),
  ('FK_GENRE_PARENT_ID',         'GENRE',         'PARENT_ID',     1),
  ('FK_BOOK_PUBLISHER_ID',       'BOOK',          'PUBLISHER_ID',  1),
  ('FK_BOOK_AUTHOR_ISBN',        'BOOK_AUTHOR',   'ISBN',          1),
  ('FK_BOOK_AUTHOR_AUTHOR_ID',   'BOOK_AUTHOR',   'AUTHOR_ID',     1),
  ('FK_BOOK_GENRE_ISBN',         'BOOK_GENRE',    'ISBN',          1),
  ('FK_BOOK_GENRE_GENRE_ID',     'BOOK_GENRE',    'GENRE_ID',      1),
  ('FK_COPY_ISBN',               'COPY',          'ISBN',          1),
  ('FK_COPY_BRANCH_ID',          'COPY',          'BRANCH_ID',     1),
  ('FK_MEMBER_HOME_BRANCH',      'MEMBER',        'HOME_BRANCH',   1),
  ('FK_LOAN_ISBN',               'LOAN',          'ISBN',          1),
  ('FK_LOAN_ISBN',               'LOAN',          'COPY_NUMBER',   2),
  ('FK_LOAN_MEMBER_ID',          'LOAN',          'MEMBER_ID',     1),
  ('FK_LOAN_LENT_BY',            'LOAN',          'LENT_BY',       1),
  ('FK_FINE_LOAN_ID',            'FINE',          'LOAN_ID',       1),
  ('FK_RESERVATION_ISBN',        'RESERVATION',   'ISBN',          1),
  ('FK_RESERVATION_MEMBER_ID',   'RESERVATION',   'MEMBER_ID',     1),
  ('FK_RESERVATION_PICK_UP_AT',  'RESERVATION',   'PICK_UP_AT',    1),
  ('FK_EVENT_BRANCH_ID',         'EVENT',         'BRANCH_ID',     1),
  ('FK_EVENT_HELD_BY',           'EVENT',         'HELD_BY',       1),
  ('FK_EVENT_VISITOR_EVENT_ID',  'EVENT_VISITOR', 'EVENT_ID',      1),
  ('FK_EVENT_VISITOR_MEMBER_ID', 'EVENT_VISITOR', 'MEMBER_ID',     1),
  ('FK_STOCK_COUNT',             'STOCK_COUNT',   'D01_BRANCH',    1),
  ('FK_STOCK_COUNT',             'STOCK_COUNT',   'D02_SHELF',     2),
  ('FK_STOCK_COUNT',             'STOCK_COUNT',   'D03_GENRE',     3),
  ('FK_STOCK_COUNT',             'STOCK_COUNT',   'D04_PUBLISHER', 4),
  ('FK_STOCK_COUNT',             'STOCK_COUNT',   'D05_AUTHOR',    5),
  ('FK_STOCK_COUNT',             'STOCK_COUNT',   'D06_LANGUAGE',  6),
  ('FK_STOCK_COUNT',             'STOCK_COUNT',   'D07_FORMAT',    7),
  ('FK_STOCK_COUNT',             'STOCK_COUNT',   'D08_CONDITION', 8),
  ('FK_STOCK_COUNT',             'STOCK_COUNT',   'D09_SUPPLIER',  9),
  ('FK_STOCK_COUNT',             'STOCK_COUNT',   'D10_CURRENCY',  10),
  ('FK_STOCK_COUNT',             'STOCK_COUNT',   'D11_BUDGET',    11),
  ('FK_STOCK_COUNT',             'STOCK_COUNT',   'D12_SEASON',    12),
  ('FK_STOCK_COUNT',             'STOCK_COUNT',   'D13_YEAR',      13),
  ('FK_STOCK_COUNT',             'STOCK_COUNT',   'D14_MONTH',     14),
  ('FK_STOCK_COUNT',             'STOCK_COUNT',   'D15_STAFF',     15),
  ('FK_STOCK_COUNT',             'STOCK_COUNT',   'D16_TARGET',    16),
  ('FK_NORTH_VISIT_BRANCH',      'NORTH_VISIT',   'BRANCH_ID',     1);
INSERT INTO rbw_relationships VALUES
  ('OPENING_HOURS', 'FK_OPENING_HOURS_BRANCH_ID', 'BRANCH',     'PK_BRANCH',     'NO ACTION'),
  ('STAFF',         'FK_STAFF_BRANCH_ID',         'BRANCH',     'PK_BRANCH',     'NO ACTION'),
  ('STAFF',         'FK_STAFF_MANAGER_ID',        'STAFF',      'PK_STAFF',      'NO ACTION'),
  ('GENRE',         'FK_GENRE_PARENT_ID',         'GENRE',      'PK_GENRE',      'NO ACTION'),
  ('BOOK',          'FK_BOOK_PUBLISHER_ID',       'PUBLISHER',  'PK_PUBLISHER',  'NO ACTION'),
  ('BOOK_AUTHOR',   'FK_BOOK_AUTHOR_ISBN',        'BOOK',       'PK_BOOK',       'NO ACTION'),
  ('BOOK_AUTHOR',   'FK_BOOK_AUTHOR_AUTHOR_ID',   'AUTHOR',     'PK_AUTHOR',     'NO ACTION'),
  ('BOOK_GENRE',    'FK_BOOK_GENRE_ISBN',         'BOOK',       'PK_BOOK',       'NO ACTION'),
  ('BOOK_GENRE',    'FK_BOOK_GENRE_GENRE_ID',     'GENRE',      'PK_GENRE',      'NO ACTION'),
  ('COPY',          'FK_COPY_ISBN',               'BOOK',       'PK_BOOK',       'NO ACTION'),
  ('COPY',          'FK_COPY_BRANCH_ID',          'BRANCH',     'PK_BRANCH',     'NO ACTION'),
  ('MEMBER',        'FK_MEMBER_HOME_BRANCH',      'BRANCH',     'PK_BRANCH',     'NO ACTION'),
  ('LOAN',          'FK_LOAN_ISBN',               'COPY',       'PK_COPY',       'NO ACTION'),
  ('LOAN',          'FK_LOAN_MEMBER_ID',          'MEMBER',     'PK_MEMBER',     'NO ACTION'),
  ('LOAN',          'FK_LOAN_LENT_BY',            'STAFF',      'PK_STAFF',      'NO ACTION'),
  ('FINE',          'FK_FINE_LOAN_ID',            'LOAN',       'PK_LOAN',       'NO ACTION'),
  ('RESERVATION',   'FK_RESERVATION_ISBN',        'BOOK',       'PK_BOOK',       'NO ACTION'),
  ('RESERVATION',   'FK_RESERVATION_MEMBER_ID',   'MEMBER',     'PK_MEMBER',     'NO ACTION'),
  ('RESERVATION',   'FK_RESERVATION_PICK_UP_AT',  'BRANCH',     'PK_BRANCH',     'NO ACTION'),
  ('EVENT',         'FK_EVENT_BRANCH_ID',         'BRANCH',     'PK_BRANCH',     'NO ACTION'),
  ('EVENT',         'FK_EVENT_HELD_BY',           'STAFF',      'PK_STAFF',      'NO ACTION'),
  ('EVENT_VISITOR', 'FK_EVENT_VISITOR_EVENT_ID',  'EVENT',      'PK_EVENT',      'NO ACTION'),
  ('EVENT_VISITOR', 'FK_EVENT_VISITOR_MEMBER_ID', 'MEMBER',     'PK_MEMBER',     'NO ACTION'),
  ('STOCK_COUNT',   'FK_STOCK_COUNT',             'STOCK_CELL', 'PK_STOCK_CELL', 'NO ACTION'),
  ('NORTH_VISIT',   'FK_NORTH_VISIT_BRANCH',      'BRANCH',     'PK_BRANCH',     'CASCADE');

-- A primary key has an index of its name, which also tells its creator.
INSERT INTO rbw_indexes (name, tname, type, creator, "unique")
  SELECT name, tname, 'BTREE', creator, 'Y' FROM rbw_constraints WHERE type = 'PRIMARY KEY';
INSERT INTO rbw_indexcolumns
  SELECT k.constraint_name, k.tname, k.cname, k.colseq
  FROM rbw_constraintcolumns k JOIN rbw_indexes i ON i.name = k.constraint_name;
INSERT INTO rbw_indexes (name, tname, type, creator, "unique") VALUES
  ('MEMBER_CARD',    'MEMBER',      'BTREE', 'LIBRARY', 'Y'),
  ('LOAN_DUE',       'LOAN',        'BTREE', 'LIBRARY', 'N'),
  ('NORTH_VISIT_IN', 'NORTH_VISIT', 'STAR',  'NORTH',   'N');
INSERT INTO rbw_indexcolumns VALUES
  ('MEMBER_CARD',    'MEMBER',      'CARD_NUMBER', 1),
  ('LOAN_DUE',       'LOAN',        'DUE_ON',      1),
  ('NORTH_VISIT_IN', 'NORTH_VISIT', 'BRANCH_ID',   1);

CREATE VIEW sim_tables AS
  SELECT creator AS owner, name, CASE type WHEN 'SYSTEM' THEN 'SYSTEM TABLE' ELSE type END AS type, NULL AS remarks
  FROM rbw_tables;
CREATE VIEW sim_columns AS
  SELECT t.creator AS owner, t.name AS table_name, c.seq AS position, c.name AS column_name, c.type AS type_name,
         CASE WHEN c.type IN ('CHARACTER', 'VARCHAR') THEN c.length WHEN c.type IN ('DECIMAL', 'NUMERIC') THEN c.precision END
           AS column_size,
         c.scale AS decimal_digits, c.nulls = 'Y' AS nullable, NULL AS remarks, NULL AS column_def
  FROM rbw_tables t JOIN rbw_columns c ON c.tid = t.id;
CREATE VIEW sim_primary_keys AS
  SELECT t.creator AS owner, t.name AS table_name, c.pkseq AS position, c.name AS column_name, NULL AS key_name
  FROM rbw_tables t JOIN rbw_columns c ON c.tid = t.id WHERE c.pkseq <> 0;
CREATE VIEW sim_foreign_keys AS
  SELECT p.creator AS pk_owner, r.pktable AS pk_table, pk.cname AS pk_column, f.creator AS fk_owner,
         r.fktable AS fk_table, fk.cname AS fk_column, fk.colseq AS position, r.fkconstraint AS fk_name,
         r.pkconstraint AS pk_name
  FROM rbw_relationships r JOIN rbw_constraints f ON f.name = r.fkconstraint JOIN rbw_constraints p ON p.name = r.pkconstraint
       JOIN rbw_constraintcolumns fk ON fk.constraint_name = r.fkconstraint
       JOIN rbw_constraintcolumns pk ON pk.constraint_name = r.pkconstraint AND pk.colseq = fk.colseq;
CREATE VIEW sim_statistics AS
  SELECT i.creator AS owner, i.tname AS table_name, i."unique" = 'N' AS non_unique, i.name AS index_name,
         k.seq AS position, k.cname AS column_name, 0 AS descending
  FROM rbw_indexes i JOIN rbw_indexcolumns k ON k.iname = i.name;
CREATE TABLE sim_procedures (owner CHAR(128), name CHAR(128), type SMALLINT, remarks CHAR(256));

CREATE TABLE sim_types (
  type_name CHAR(128) PRIMARY KEY, data_type SMALLINT, column_size INTEGER, create_params CHAR(64),
  auto_increment SMALLINT, max_scale SMALLINT);
INSERT INTO sim_types VALUES
  ('CHARACTER', 1,  1024, 'length',          NULL, NULL),
  ('VARCHAR',   12, 1024, 'length',          NULL, NULL),
  ('DATE',      91, 10,   NULL,              NULL, NULL),
  ('TIME',      92, 15,   NULL,              NULL, 6),
  ('TIMESTAMP', 93, 26,   NULL,              NULL, 6),
  ('INTEGER',   4,  10,   NULL,              0,    0),
  ('SMALLINT',  5,  5,    NULL,              0,    0),
  ('TINYINT',   -6, 3,    NULL,              0,    0),
  ('FLOAT',     6,  53,   NULL,              0,    NULL),
  ('DOUBLE',    8,  53,   NULL,              0,    NULL),
  ('REAL',      7,  24,   NULL,              0,    NULL),
  ('DECIMAL',   3,  38,   'precision,scale', 0,    38),
  ('NUMERIC',   2,  38,   'precision,scale', 0,    38);

COMMIT;
