-- Informix Dynamic Server 7.31: the system catalog of a database `library`, the public library of the sample
-- database in this server's types, with synonyms of owner joe. Names have at most 18 characters, owners 8.
-- No page of 7.31 was at hand: the catalog is what https://www.oninit.com/manual/informix/100/sqlr/ (of 10.0) has without a mark of being newer, with the
-- lengths of names of that age.
BEGIN;

-- The system catalog ------------------------------------------------------------------------------

CREATE TABLE informix.systables (
  tabname   CHAR(18) COLLATE RTRIM,
  owner     CHAR(8) COLLATE RTRIM,
  dirpath   CHAR(64),
  tabid     INTEGER PRIMARY KEY,         -- SERIAL
  rowsize   SMALLINT,
  ncols     SMALLINT,
  nindexes  SMALLINT,
  nrows     INTEGER,
  created   DATE,
  version   INTEGER,
  tabtype   CHAR(1),                     -- T table, V view, S synonym, P private synonym
  audpath   CHAR(64)
);
CREATE INDEX informix.systables_name ON systables (owner, tabname);
CREATE INDEX informix.systables_tabname ON systables (tabname, owner);

CREATE TABLE informix.syscolumns (
  colname   CHAR(18) COLLATE RTRIM,
  tabid     INTEGER,
  colno     SMALLINT,
  coltype   SMALLINT,                    -- type number; 256: NOT NULL
  collength SMALLINT,
  colmin    INTEGER,
  colmax    INTEGER
);
CREATE INDEX informix.syscolumns_id ON syscolumns (tabid, colno);

CREATE TABLE informix.syssyntable (
  tabid      INTEGER,
  servername CHAR(18) COLLATE RTRIM,
  dbname     CHAR(18) COLLATE RTRIM,
  owner      CHAR(8) COLLATE RTRIM,
  tabname    CHAR(18) COLLATE RTRIM,
  btabid     INTEGER
);
CREATE INDEX informix.syssyntable_id ON syssyntable (tabid);

CREATE TABLE informix.sysconstraints (
  constrid   INTEGER PRIMARY KEY,        -- SERIAL
  constrname CHAR(18) COLLATE RTRIM,
  owner      CHAR(8) COLLATE RTRIM,
  tabid      INTEGER,
  constrtype CHAR(1),                    -- P primary key, U unique, R reference, C check
  idxname    CHAR(18) COLLATE RTRIM
);
CREATE INDEX informix.sysconstraints_tabid ON sysconstraints (tabid, constrtype);

-- The parts are column numbers, negative where descending, 0 behind the last.
CREATE TABLE informix.sysindexes (
  idxname   CHAR(18) COLLATE RTRIM,
  owner     CHAR(8) COLLATE RTRIM,
  tabid     INTEGER,
  idxtype   CHAR(1),                     -- U unique, D duplicates allowed
  clustered CHAR(1),
  part1  SMALLINT, part2  SMALLINT, part3  SMALLINT, part4  SMALLINT,
  part5  SMALLINT, part6  SMALLINT, part7  SMALLINT, part8  SMALLINT,
  part9  SMALLINT, part10 SMALLINT, part11 SMALLINT, part12 SMALLINT,
  part13 SMALLINT, part14 SMALLINT, part15 SMALLINT, part16 SMALLINT,
  levels    SMALLINT,
  leaves    INTEGER,
  nunique   INTEGER,
  clust     INTEGER
);
CREATE INDEX informix.sysindexes_name ON sysindexes (tabid, idxname);
CREATE INDEX informix.sysindexes_idxname ON sysindexes (idxname);

CREATE TABLE informix.sysreferences (
  constrid  INTEGER PRIMARY KEY,
  "primary" INTEGER,                     -- the constraint that is referred to
  ptabid    INTEGER,
  updrule   CHAR(1),
  delrule   CHAR(1),
  matchtype CHAR(1),
  pendant   CHAR(1)
);
CREATE INDEX informix.sysreferences_ptabid ON sysreferences (ptabid);

-- Functions are procedures that return a value.
CREATE TABLE informix.sysprocedures (
  procname CHAR(18) COLLATE RTRIM,
  owner    CHAR(8) COLLATE RTRIM,
  procid   INTEGER PRIMARY KEY,          -- SERIAL
  mode     CHAR(1),                      -- D, O: of a DBA, an owner; P: protected
  retsize  INTEGER,
  symsize  INTEGER,
  datasize INTEGER,
  codesize INTEGER,
  numargs  INTEGER
);

-- What the exact reading asks besides: https://www.oninit.com/manual/informix/100/sqlr/ (SYSDEFAULTS, SYSCHECKS, SYSVIEWS, SYSTRIGGERS, SYSTRIGBODY,
-- SYSOBJSTATE, SYSPROCBODY), without what those pages mark as newer.
CREATE TABLE informix.sysdefaults(tabid INTEGER, colno SMALLINT, type CHAR(1), "default" CHAR(256));
CREATE TABLE informix.syschecks(constrid INTEGER, type CHAR(1), seqno SMALLINT, checktext CHAR(32));
CREATE TABLE informix.sysviews(tabid INTEGER, seqno SMALLINT, viewtext CHAR(64));
CREATE TABLE informix.systriggers(trigid INTEGER PRIMARY KEY, trigname CHAR(18), owner CHAR(8), tabid INTEGER, event CHAR(1), mode CHAR(1));
CREATE TABLE informix.systrigbody(trigid INTEGER, datakey CHAR(1), seqno INTEGER, data CHAR(256));
CREATE TABLE informix.sysobjstate(objtype CHAR(1), owner CHAR(8), name CHAR(18) COLLATE RTRIM, tabid INTEGER, state CHAR(1));
CREATE TABLE informix.sysprocbody(procid INTEGER, datakey CHAR(1), seqno INTEGER, data CHAR(256));
INSERT INTO informix.sysdefaults VALUES (111, 6, 'C', NULL), (109, 5, 'L', 't'), (106, 5, 'L', 'AAAAAA 100');
INSERT INTO informix.sysviews VALUES
  (117, 1, 'ch c, "library".book k where c.isbn = k.isbn'), (117, 0, 'create view "library".shelf as select k.title from "library".bran');
INSERT INTO informix.systriggers VALUES (1, 'loan_log', 'library', 111, 'I', 'O');
INSERT INTO informix.systrigbody VALUES (1, 'A', 0, 'for each row (insert into log values (1))'), (1, 'D', 0, 'create trigger loan_log insert on loan');
INSERT INTO informix.sysprocbody VALUES (24, 'T', 1, 'create procedure send_reminders() end procedure');

-- Tables, views and synonyms ----------------------------------------------------------------------

INSERT INTO informix.systables (tabid, owner, tabname, tabtype, nindexes, nrows, created, version)
SELECT column1, column2, column3, column4, 1, column5, '1999-11-15', 65539 FROM (VALUES
  (  1, 'informix', 'systables',      'T', 60),
  (  2, 'informix', 'syscolumns',     'T', 200),
  (  3, 'informix', 'sysindexes',     'T', 40),
  (  9, 'informix', 'syssyntable',    'T', 3),
  ( 13, 'informix', 'sysprocedures',  'T', 6),
  ( 15, 'informix', 'sysconstraints', 'T', 40),
  ( 16, 'informix', 'sysreferences',  'T', 20),
  (100, 'library',  'branch',             'T', 12),
  (101, 'library',  'opening_hours',      'T', 70),
  (102, 'library',  'staff',              'T', 85),
  (103, 'library',  'publisher',          'T', 940),
  (104, 'library',  'author',             'T', 15200),
  (105, 'library',  'genre',              'T', 63),
  (106, 'library',  'book',               'T', 41000),
  (107, 'library',  'book_author',        'T', 58000),
  (108, 'library',  'book_genre',         'T', 69000),
  (109, 'library',  'copy',               'T', 96000),
  (110, 'library',  'member',             'T', 23000),
  (111, 'library',  'loan',               'T', 710000),
  (112, 'library',  'fine',               'T', 8200),
  (113, 'library',  'reservation',        'T', 1900),
  (114, 'library',  'event',              'T', 320),
  (115, 'library',  'event_visitor',      'T', 9100),
  (116, 'library',  'overdue_loan',       'V', 0),
  (117, 'library',  'shelf',              'V', 0),
  (150, 'joe',      'books',              'S', 0),
  (151, 'joe',      'readers',            'P', 0),
  (152, 'joe',      'old_loans',          'S', 0));

-- The columns of the catalog's own tables are read off them.
CREATE TABLE informix.sim_declared_types (declared TEXT PRIMARY KEY, coltype INTEGER, collength INTEGER);
INSERT INTO informix.sim_declared_types VALUES
  ('CHAR(1)', 0, 1), ('CHAR(8)', 0, 8), ('CHAR(18)', 0, 18), ('CHAR(64)', 0, 64), ('SMALLINT', 1, 2), ('INTEGER', 2, 4),
  ('DATE', 7, 4);
INSERT INTO informix.syscolumns (colname, tabid, colno, coltype, collength)
SELECT p.name, t.tabid, p.cid + 1, CASE p.pk WHEN 0 THEN d.coltype ELSE 262 END, d.collength
FROM informix.systables t, pragma_table_info(t.tabname, 'informix') p
JOIN informix.sim_declared_types d ON d.declared = p.type
WHERE t.tabid < 100;

INSERT INTO informix.syscolumns (tabid, colno, colname, coltype, collength) VALUES
  -- branch
  (100, 1, 'branch_id',       262, 4),            -- SERIAL NOT NULL
  (100, 2, 'name',            269, 60),           -- VARCHAR(60) NOT NULL
  (100, 3, 'address',         269, 120),
  (100, 4, 'city',            269, 60),
  (100, 5, 'opened_on',         7, 4),            -- DATE
  (100, 6, 'latitude',          3, 8),            -- FLOAT
  (100, 7, 'longitude',         3, 8),
  -- opening_hours
  (101, 1, 'branch_id',       258, 4),            -- INTEGER NOT NULL
  (101, 2, 'weekday',         257, 2),            -- SMALLINT NOT NULL; 1 is Monday
  (101, 3, 'opens_at',        266, 1128),         -- DATETIME HOUR TO MINUTE NOT NULL
  (101, 4, 'closes_at',       266, 1128),
  -- staff
  (102, 1, 'staff_id',        262, 4),
  (102, 2, 'branch_id',       258, 4),
  (102, 3, 'manager_id',        2, 4),            -- null: the head of the library
  (102, 4, 'given_name',      272, 40),           -- NVARCHAR(40) NOT NULL
  (102, 5, 'family_name',     272, 40),
  (102, 6, 'email',           269, 120),
  (102, 7, 'hired_on',        263, 4),
  (102, 8, 'salary',          264, 2306),         -- MONEY(9,2) NOT NULL
  -- publisher
  (103, 1, 'publisher_id',    262, 4),
  (103, 2, 'name',            269, 80),
  (103, 3, 'country',           0, 2),            -- CHAR(2)
  -- author
  (104, 1, 'author_id',       262, 4),
  (104, 2, 'name',            269, 80),
  (104, 3, 'born_in',           1, 2),
  (104, 4, 'biography',        12, 56),           -- TEXT
  -- genre
  (105, 1, 'genre_id',        262, 4),
  (105, 2, 'parent_id',         2, 4),
  (105, 3, 'name',            269, 40),
  -- book
  (106, 1, 'isbn',            256, 13),           -- CHAR(13) NOT NULL
  (106, 2, 'title',           269, 200),
  (106, 3, 'publisher_id',      2, 4),
  (106, 4, 'published_in',      1, 2),
  (106, 5, 'pages',             2, 4),
  (106, 6, 'price',             8, 2050),         -- MONEY(8,2)
  (106, 7, 'summary',          12, 56),           -- TEXT
  (106, 8, 'cover',            11, 56),           -- BYTE
  -- book_author
  (107, 1, 'isbn',            256, 13),
  (107, 2, 'author_id',       258, 4),
  (107, 3, 'contribution',     13, 2580),         -- VARCHAR(20,10): 10 * 256 + 20
  -- book_genre
  (108, 1, 'isbn',            256, 13),
  (108, 2, 'genre_id',        258, 4),
  -- copy
  (109, 1, 'isbn',            256, 13),
  (109, 2, 'copy_number',     257, 2),
  (109, 3, 'branch_id',       258, 4),
  (109, 4, 'bought_on',         7, 4),
  (109, 5, 'is_lendable',     256, 1),            -- CHAR(1) NOT NULL
  -- member
  (110, 1, 'member_id',       262, 4),
  (110, 2, 'card_number',     256, 10),
  (110, 3, 'given_name',      272, 40),
  (110, 4, 'family_name',     272, 40),
  (110, 5, 'born_on',           7, 4),
  (110, 6, 'email',            13, 120),
  (110, 7, 'home_branch',       2, 4),
  (110, 8, 'joined_at',       266, 3594),         -- DATETIME YEAR TO SECOND NOT NULL
  -- loan
  (111, 1, 'loan_id',         262, 4),            -- SERIAL NOT NULL
  (111, 2, 'isbn',            256, 13),
  (111, 3, 'copy_number',     257, 2),
  (111, 4, 'member_id',       258, 4),
  (111, 5, 'lent_by',           2, 4),
  (111, 6, 'lent_at',         266, 4365),         -- DATETIME YEAR TO FRACTION(3) NOT NULL
  (111, 7, 'due_on',          263, 4),
  (111, 8, 'returned_at',      10, 4365),
  (111, 9, 'lent_for',         14, 836),          -- INTERVAL DAY(3) TO DAY
  -- fine
  (112, 1, 'loan_id',         258, 4),
  (112, 2, 'amount',          264, 1538),
  (112, 3, 'reason',           13, 80),
  (112, 4, 'paid_at',          10, 3594),
  -- reservation
  (113, 1, 'isbn',            256, 13),
  (113, 2, 'member_id',       258, 4),
  (113, 3, 'made_at',         266, 3594),
  (113, 4, 'pick_up_at',        2, 4),
  -- event
  (114, 1, 'event_id',        262, 4),
  (114, 2, 'branch_id',       258, 4),
  (114, 3, 'held_by',           2, 4),
  (114, 4, 'title',           269, 120),
  (114, 5, 'held_on',         263, 4),
  (114, 6, 'begins_at',       266, 1128),
  (114, 7, 'lasts',            14, 1128),         -- INTERVAL HOUR TO MINUTE
  (114, 8, 'fee',               4, 4),            -- SMALLFLOAT
  -- event_visitor
  (115, 1, 'event_id',        258, 4),
  (115, 2, 'member_id',       258, 4),
  (115, 3, 'seats',           257, 2),
  -- overdue_loan
  (116, 1, 'loan_id',           2, 4),
  (116, 2, 'card_number',       0, 10),
  (116, 3, 'email',            13, 120),
  (116, 4, 'title',            13, 200),
  (116, 5, 'due_on',            7, 4),
  -- shelf
  (117, 1, 'branch',           13, 60),
  (117, 2, 'title',            13, 200),
  (117, 3, 'isbn',              0, 13),
  (117, 4, 'copy_number',       1, 2);

UPDATE informix.systables SET ncols = (SELECT count(*) FROM informix.syscolumns c WHERE c.tabid = systables.tabid);

INSERT INTO informix.syssyntable (tabid, servername, dbname, owner, tabname, btabid) VALUES
  (150, NULL, NULL,      NULL,      NULL,    106),
  (151, NULL, NULL,      NULL,      NULL,    110),
  (152, NULL, 'archive', 'library', 'loans', 0);

-- Keys and indexes --------------------------------------------------------------------------------

-- Constraint, its table, its kind, the parts of its index; for a reference the constraint meant.
CREATE TABLE informix.sim_constraints (constrid INTEGER, tabid INTEGER, constrtype TEXT, part1 INTEGER, part2 INTEGER, parent INTEGER);
INSERT INTO informix.sim_constraints VALUES
  (  1, 100, 'P',  1,  0, NULL),
  (  2, 101, 'P',  1,  2, NULL),
  (  3, 102, 'P',  1,  0, NULL),
  (  4, 103, 'P',  1,  0, NULL),
  (  5, 104, 'P',  1,  0, NULL),
  (  6, 105, 'P',  1,  0, NULL),
  (  7, 106, 'P',  1,  0, NULL),
  (  8, 107, 'P',  1,  2, NULL),
  (  9, 108, 'P',  1,  2, NULL),
  ( 10, 109, 'P',  1,  2, NULL),
  ( 11, 110, 'P',  1,  0, NULL),
  ( 12, 111, 'P',  1,  0, NULL),
  ( 13, 112, 'P',  1,  0, NULL),
  ( 14, 113, 'P',  1,  2, NULL),
  ( 15, 114, 'P',  1,  0, NULL),
  ( 16, 115, 'P',  2,  1, NULL),        -- not in the order of the columns
  ( 30, 101, 'R',  1,  0, 1),
  ( 31, 102, 'R',  2,  0, 1),
  ( 32, 102, 'R',  3,  0, 3),
  ( 33, 105, 'R',  2,  0, 6),
  ( 34, 106, 'R',  3,  0, 4),
  ( 35, 107, 'R',  1,  0, 7),
  ( 36, 107, 'R',  2,  0, 5),
  ( 37, 108, 'R',  1,  0, 7),
  ( 38, 108, 'R',  2,  0, 6),
  ( 39, 109, 'R',  1,  0, 7),
  ( 40, 109, 'R',  3,  0, 1),
  ( 41, 110, 'R',  7,  0, 1),
  ( 42, 111, 'R',  2,  3, 10),
  ( 43, 111, 'R',  4,  0, 11),
  ( 44, 111, 'R',  5,  0, 3),
  ( 45, 112, 'R',  1,  0, 12),
  ( 46, 113, 'R',  1,  0, 7),
  ( 47, 113, 'R',  2,  0, 11),
  ( 48, 113, 'R',  4,  0, 1),
  ( 49, 114, 'R',  2,  0, 1),
  ( 50, 114, 'R',  3,  0, 3),
  ( 51, 115, 'R',  1,  0, 15),
  ( 52, 115, 'R',  2,  0, 11);

INSERT INTO informix.sysconstraints (constrid, constrname, owner, tabid, constrtype, idxname)
SELECT s.constrid, lower(s.constrtype) || s.tabid || '_' || s.constrid, t.owner, s.tabid, s.constrtype, ' ' || s.tabid || '_' || s.constrid
FROM informix.sim_constraints s JOIN informix.systables t ON t.tabid = s.tabid;
INSERT INTO informix.sysreferences (constrid, "primary", ptabid, updrule, delrule, matchtype, pendant)
SELECT s.constrid, s.parent, p.tabid, 'R', 'R', 'N', 'N'
FROM informix.sim_constraints s JOIN informix.sim_constraints p ON p.constrid = s.parent;
-- An index that a constraint made has a name that begins with a blank.
INSERT INTO informix.sysindexes (idxname, owner, tabid, idxtype, part1, part2, levels, leaves, nunique)
SELECT ' ' || s.tabid || '_' || s.constrid, t.owner, s.tabid, CASE s.constrtype WHEN 'R' THEN 'D' ELSE 'U' END, s.part1, s.part2, 1, 1, 1
FROM informix.sim_constraints s JOIN informix.systables t ON t.tabid = s.tabid;
INSERT INTO informix.sysindexes (idxname, owner, tabid, idxtype, part1, part2, levels, leaves, nunique) VALUES
  ('staff_email', 'library', 102, 'U',  6, 0, 1, 1, 1),
  ('member_card', 'library', 110, 'U',  2, 0, 1, 1, 1),
  ('member_name', 'library', 110, 'D',  4, 3, 1, 1, 1),
  ('loan_due',    'library', 111, 'D', -7, 0, 1, 1, 1);
UPDATE informix.sysindexes SET part3 = 0, part4 = 0, part5 = 0, part6 = 0, part7 = 0, part8 = 0, part9 = 0, part10 = 0,
  part11 = 0, part12 = 0, part13 = 0, part14 = 0, part15 = 0, part16 = 0;

-- Procedures --------------------------------------------------------------------------------------

INSERT INTO informix.sysprocedures (procid, owner, procname, mode, numargs) VALUES
  ( 1, 'informix', 'systdist',       'P', 2),
  ( 2, 'informix', 'sysbldprepare',  'O', 2),
  (20, 'library',  'days_overdue',   'O', 1),
  (21, 'library',  'is_overdue',     'O', 2),
  (22, 'library',  'fine_for',       'O', 3),
  (23, 'library',  'close_year',     'O', 1),
  (24, 'library',  'send_reminders', 'D', 0);

-- Another database on this server -----------------------------------------------------------------

CREATE TABLE "archive".systables (tabname CHAR(18) COLLATE RTRIM, owner CHAR(8) COLLATE RTRIM, tabid INTEGER PRIMARY KEY, tabtype CHAR(1));
CREATE TABLE "archive".syscolumns (
  colname CHAR(18) COLLATE RTRIM, tabid INTEGER, colno SMALLINT, coltype SMALLINT, collength SMALLINT, colmin INTEGER, colmax INTEGER);
INSERT INTO "archive".systables (tabid, owner, tabname, tabtype) VALUES
  (2, 'informix', 'syscolumns', 'T'), (100, 'library', 'loans', 'T');
INSERT INTO "archive".syscolumns (tabid, colno, colname, coltype, collength) VALUES
  (  2, 1, 'colname',       0, 18),
  (100, 1, 'loan_id',     258, 4),
  (100, 2, 'isbn',        256, 13),
  (100, 3, 'lent_at',     266, 3594),
  (100, 4, 'returned_at',  10, 3594);

-- What the driver's catalog functions answer -----------------------------------------------------------

CREATE TABLE informix.sim_types (
  type_name TEXT PRIMARY KEY, data_type INTEGER, column_size INTEGER, create_params TEXT, auto_increment INTEGER, max_scale INTEGER);
INSERT INTO informix.sim_types VALUES
  ('char',      1, 32767, 'length',          0, NULL),
  ('smallint',  5, 5,     NULL,              0, 0),
  ('integer',   4, 10,    NULL,              0, 0),
  ('float',     8, 15,    NULL,              0, NULL),
  ('smallfloat', 7, 7,    NULL,              0, NULL),
  ('decimal',   3, 32,    'precision,scale', 0, 32),
  ('serial',    4, 10,    NULL,              1, 0),
  ('date',     91, 10,    NULL,              0, NULL),
  ('money',     3, 32,    'precision,scale', 0, 32),
  ('datetime', 93, 25,    NULL,              0, 5),
  ('byte',     -4, 2147483647, NULL,         0, NULL),
  ('text',     -1, 2147483647, NULL,         0, NULL),
  ('varchar',  12, 255,   'max length',      0, NULL),
  ('interval', 110, 20,   NULL,              0, 5),
  ('nchar',     1, 32767, 'length',          0, NULL),
  ('nvarchar', 12, 255,   'max length',      0, NULL);

CREATE TABLE informix.sim_type_numbers (number INTEGER PRIMARY KEY, type_name TEXT);
INSERT INTO informix.sim_type_numbers VALUES
  (0, 'char'), (1, 'smallint'), (2, 'integer'), (3, 'float'), (4, 'smallfloat'), (5, 'decimal'), (6, 'serial'), (7, 'date'),
  (8, 'money'), (10, 'datetime'), (11, 'byte'), (12, 'text'), (13, 'varchar'), (14, 'interval'), (15, 'nchar'),
  (16, 'nvarchar');

-- The columns of an index, one a row.
CREATE VIEW informix.sim_index_parts AS
  SELECT i.tabid, i.idxname, n.n, abs(CASE n.n WHEN 1 THEN i.part1 WHEN 2 THEN i.part2 WHEN 3 THEN i.part3 ELSE i.part4 END) AS colno
  FROM informix.sysindexes i JOIN informix.sim_positions n;
CREATE TABLE informix.sim_positions (n INTEGER PRIMARY KEY);
INSERT INTO informix.sim_positions VALUES (1), (2), (3), (4);

CREATE VIEW informix.sim_tables AS
  SELECT owner, tabname AS name,
         CASE WHEN tabtype IN ('S', 'P') THEN 'SYNONYM' WHEN tabtype = 'V' THEN 'VIEW'
              WHEN tabid < 100 THEN 'SYSTEM TABLE' ELSE 'TABLE' END AS type,
         NULL AS remarks
  FROM informix.systables;

-- A local synonym has its base table's columns; the columns of a remote one are not known here.
CREATE VIEW informix.sim_columns AS
  SELECT t.owner, t.tabname AS table_name, c.colno AS position, c.colname AS column_name, n.type_name,
         CASE WHEN (c.coltype & 255) IN (5, 8) THEN c.collength / 256
              WHEN (c.coltype & 255) IN (0, 15) THEN c.collength
              WHEN (c.coltype & 255) IN (13, 16) THEN c.collength & 255 END AS column_size,
         CASE WHEN (c.coltype & 255) IN (5, 8) AND c.collength & 255 < 255 THEN c.collength & 255 END AS decimal_digits,
         CASE WHEN c.coltype & 256 THEN 0 ELSE 1 END AS nullable,
         NULL AS remarks, NULL AS column_def
  FROM informix.systables t
  LEFT JOIN informix.syssyntable s ON s.tabid = t.tabid
  JOIN informix.syscolumns c ON c.tabid = coalesce(s.btabid, t.tabid)
  LEFT JOIN informix.sim_type_numbers n ON n.number = (c.coltype & 255);

CREATE VIEW informix.sim_primary_keys AS
  SELECT t.owner, t.tabname AS table_name, p.n AS position, c.colname AS column_name, k.constrname AS key_name
  FROM informix.systables t
  JOIN informix.sysconstraints k ON k.tabid = t.tabid AND k.constrtype = 'P'
  JOIN informix.sim_index_parts p ON p.tabid = k.tabid AND p.idxname = k.idxname
  JOIN informix.syscolumns c ON c.tabid = t.tabid AND c.colno = p.colno;

CREATE VIEW informix.sim_foreign_keys AS
  SELECT pt.owner AS pk_owner, pt.tabname AS pk_table, pc.colname AS pk_column,
         ft.owner AS fk_owner, ft.tabname AS fk_table, fc.colname AS fk_column,
         pp.n AS position, fk.constrname AS fk_name, pk.constrname AS pk_name
  FROM informix.systables pt
  JOIN informix.sysreferences r ON r.ptabid = pt.tabid
  JOIN informix.sysconstraints pk ON pk.constrid = r."primary"
  JOIN informix.sim_index_parts pp ON pp.tabid = pk.tabid AND pp.idxname = pk.idxname
  JOIN informix.sysconstraints fk ON fk.constrid = r.constrid
  JOIN informix.sim_index_parts fp ON fp.tabid = fk.tabid AND fp.idxname = fk.idxname AND fp.n = pp.n
  JOIN informix.systables ft ON ft.tabid = fk.tabid
  JOIN informix.syscolumns pc ON pc.tabid = pt.tabid AND pc.colno = pp.colno
  JOIN informix.syscolumns fc ON fc.tabid = ft.tabid AND fc.colno = fp.colno;

CREATE VIEW informix.sim_statistics AS
  SELECT t.owner, t.tabname AS table_name, CASE i.idxtype WHEN 'U' THEN 0 ELSE 1 END AS non_unique, i.idxname AS index_name,
         p.n AS position, c.colname AS column_name, 0 AS descending
  FROM informix.systables t
  JOIN informix.sysindexes i ON i.tabid = t.tabid
  JOIN informix.sim_index_parts p ON p.tabid = i.tabid AND p.idxname = i.idxname
  JOIN informix.syscolumns c ON c.tabid = t.tabid AND c.colno = p.colno;

CREATE VIEW informix.sim_procedures AS
  SELECT owner, procname AS name, 1 AS type, NULL AS remarks FROM informix.sysprocedures WHERE mode <> 'P';

COMMIT;
