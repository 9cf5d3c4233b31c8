-- Informix Universal Server 9.40: the system catalog of a database `library`. The public library of the
-- sample database in this server's own types (owner library), the network's types and synonyms
-- (owner joe), a shop's tables (owner sales), and two databases elsewhere: stores on the server tokyo,
-- a Universal Server too, and archive, which a Dynamic Server left behind.
BEGIN;

-- The system catalog ------------------------------------------------------------------------------

CREATE TABLE informix.systables (
  tabname    VARCHAR(128),
  owner      CHAR(32) COLLATE RTRIM,
  partnum    INTEGER,
  tabid      INTEGER PRIMARY KEY,        -- SERIAL
  rowsize    SMALLINT,
  ncols      SMALLINT,
  nindexes   SMALLINT,
  nrows      INTEGER,
  created    DATE,
  version    INTEGER,
  tabtype    CHAR(1),                    -- T table, V view, S synonym, P private synonym
  locklevel  CHAR(1),
  npused     INTEGER,
  fextsize   INTEGER,
  nextsize   INTEGER,
  flags      SMALLINT,
  site       VARCHAR(128),
  dbname     VARCHAR(128),
  type_xid   INTEGER,
  am_id      INTEGER
);
CREATE INDEX informix.systables_name ON systables (owner, tabname);
CREATE INDEX informix.systables_tabname ON systables (tabname, owner);

CREATE TABLE informix.syscolumns (
  colname     VARCHAR(128),
  tabid       INTEGER,
  colno       SMALLINT,
  coltype     SMALLINT,                  -- type number; 256: NOT NULL, 2048: distinct
  collength   SMALLINT,
  colmin      INTEGER,
  colmax      INTEGER,
  extended_id INTEGER
);
CREATE INDEX informix.syscolumns_id ON syscolumns (tabid, colno);

CREATE TABLE informix.syssyntable (
  tabid      INTEGER,
  servername VARCHAR(128),
  dbname     VARCHAR(128),
  owner      CHAR(32) COLLATE RTRIM,
  tabname    VARCHAR(128),
  btabid     INTEGER
);
CREATE INDEX informix.syssyntable_id ON syssyntable (tabid);

CREATE TABLE informix.sysxtdtypes (
  extended_id INTEGER PRIMARY KEY,       -- SERIAL
  domain      CHAR(1),
  mode        CHAR(1),                   -- B base or opaque, C collection or unnamed row, D distinct, R named row
  owner       CHAR(32) COLLATE RTRIM,
  name        VARCHAR(128),
  type        SMALLINT,
  source      INTEGER,
  maxlen      INTEGER,
  length      INTEGER,
  byvalue     CHAR(1),
  cannothash  CHAR(1),
  align       SMALLINT,
  locator     INTEGER
);

CREATE TABLE informix.sysattrtypes (
  extended_id INTEGER,
  seqno       SMALLINT,
  levelno     SMALLINT,
  parent_no   SMALLINT,                  -- 0: the type itself
  fieldname   VARCHAR(128),
  fieldno     SMALLINT,
  type        SMALLINT,
  length      SMALLINT,
  xtd_type_id INTEGER
);
CREATE INDEX informix.sysattrtypes_id ON sysattrtypes (extended_id, seqno);

CREATE TABLE informix.sysconstraints (
  constrid   INTEGER PRIMARY KEY,        -- SERIAL
  constrname VARCHAR(128),
  owner      CHAR(32) COLLATE RTRIM,
  tabid      INTEGER,
  constrtype CHAR(1),                    -- P primary key, U unique, R reference, C check
  idxname    VARCHAR(128)
);
CREATE INDEX informix.sysconstraints_tabid ON sysconstraints (tabid, constrtype);

CREATE TABLE informix.sysindices (
  idxname   VARCHAR(128),
  owner     CHAR(32) COLLATE RTRIM,
  tabid     INTEGER,
  idxtype   CHAR(1),                     -- U unique, D duplicates allowed
  clustered CHAR(1),
  levels    SMALLINT,
  leaves    INTEGER,
  nunique   INTEGER,
  clust     INTEGER,
  nrows     INTEGER,
  indexkeys LVARCHAR,                    -- INDEXKEYARRAY: "3 [1], -1 [1]"
  amid      INTEGER,
  amparam   LVARCHAR,
  collation CHAR(32)
);
CREATE INDEX informix.sysindices_name ON sysindices (tabid, idxname);
CREATE INDEX informix.sysindices_idxname ON sysindices (idxname);

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

CREATE TABLE informix.sysprocedures (
  procname        VARCHAR(128),
  owner           CHAR(32) COLLATE RTRIM,
  procid          INTEGER PRIMARY KEY,   -- SERIAL
  mode            CHAR(1),               -- D, O: of a DBA, an owner; P: protected
  retsize         INTEGER,
  symsize         INTEGER,
  datasize        INTEGER,
  codesize        INTEGER,
  numargs         INTEGER,
  isproc          CHAR(1),               -- t procedure, f function
  specificname    VARCHAR(128),
  externalname    VARCHAR(255),
  paramstyle      CHAR(1),
  langid          INTEGER,
  paramtypes      LVARCHAR,              -- RTNPARAMTYPES
  variant         CHAR(1),
  client          CHAR(1),
  handlesnulls    CHAR(1),
  iterator        CHAR(1),
  percallcost     INTEGER,
  commutator      VARCHAR(128),
  negator         VARCHAR(128),
  selfunc         VARCHAR(128),
  internal        CHAR(1),
  class           CHAR(18),
  stack           INTEGER,
  parallelizable  CHAR(1),
  costfunc        VARCHAR(128),
  selconst        SMALLINT
);

CREATE TABLE informix.sysaggregates (
  aggid        INTEGER PRIMARY KEY,      -- SERIAL
  name         VARCHAR(128),
  owner        CHAR(32) COLLATE RTRIM,
  init_func    VARCHAR(128),
  iter_func    VARCHAR(128),
  combine_func VARCHAR(128),
  final_func   VARCHAR(128),
  handlesnulls CHAR(1)
);

-- Tables, views and synonyms ----------------------------------------------------------------------

INSERT INTO informix.systables (tabid, owner, tabname, tabtype, nindexes, nrows, created, version, locklevel)
SELECT column1, column2, column3, column4, 1, column5, '2004-03-01', 65539, 'P' FROM (VALUES
  (  1, 'informix', 'systables',          'T', 60),
  (  2, 'informix', 'syscolumns',         'T', 260),
  (  3, 'informix', 'sysindices',         'T', 40),
  (  9, 'informix', 'syssyntable',        'T', 5),
  ( 13, 'informix', 'sysprocedures',      'T', 14),
  ( 15, 'informix', 'sysconstraints',     'T', 42),
  ( 16, 'informix', 'sysreferences',      'T', 20),
  ( 35, 'informix', 'sysxtdtypes',        'T', 30),
  ( 36, 'informix', 'sysattrtypes',       'T', 30),
  ( 43, 'informix', 'sysaggregates',      'T', 2),
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
  (120, 'joe',      'catalogue_card',     'T', 41000),
  (121, 'joe',      'currency',           'T', 9),
  (122, 'joe',      'branch',             'T', 3),       -- the name of a table of another owner
  (123, 'joe',      'Branch',             'T', 0),       -- as a delimited name
  (130, 'sales',    'stock_item',         'T', 400),
  (131, 'sales',    'price',              'T', 1100),
  (150, 'joe',      'books',              'S', 0),
  (151, 'sales',    'customers',          'P', 0),
  (152, 'sales',    'orders',             'S', 0),
  (153, 'sales',    'order_lines',        'S', 0),
  (154, 'sales',    'old_loans',          'S', 0),
  (155, 'sales',    'nowhere',            'S', 0));

-- The columns of the catalog's own tables are read off them.
CREATE TABLE informix.sim_declared_types (declared TEXT PRIMARY KEY, coltype INTEGER, collength INTEGER, extended_id INTEGER);
INSERT INTO informix.sim_declared_types VALUES
  ('CHAR(1)', 0, 1, 0), ('CHAR(18)', 0, 18, 0), ('CHAR(32)', 0, 32, 0), ('VARCHAR(128)', 13, 128, 0),
  ('VARCHAR(255)', 13, 255, 0), ('SMALLINT', 1, 2, 0), ('INTEGER', 2, 4, 0), ('DATE', 7, 4, 0),
  ('LVARCHAR', 40, 2048, 1);
INSERT INTO informix.syscolumns (colname, tabid, colno, coltype, collength, extended_id)
SELECT p.name, t.tabid, p.cid + 1, CASE p.pk WHEN 0 THEN d.coltype ELSE 262 END, d.collength, d.extended_id
FROM informix.systables t, pragma_table_info(t.tabname, 'informix') p
JOIN informix.sim_declared_types d ON d.declared = p.type
WHERE t.tabid < 100;

INSERT INTO informix.syscolumns (tabid, colno, colname, coltype, collength, extended_id) VALUES
  -- branch
  (100, 1, 'branch_id',     262, 4, 0),            -- SERIAL NOT NULL
  (100, 2, 'name',          269, 60, 0),           -- VARCHAR(60) NOT NULL
  (100, 3, 'address',       269, 120, 0),
  (100, 4, 'city',          269, 60, 0),
  (100, 5, 'opened_on',       7, 4, 0),            -- DATE
  (100, 6, 'latitude',        3, 8, 0),            -- FLOAT
  (100, 7, 'longitude',       3, 8, 0),
  -- opening_hours
  (101, 1, 'branch_id',     258, 4, 0),            -- INTEGER NOT NULL
  (101, 2, 'weekday',       257, 2, 0),            -- SMALLINT NOT NULL; 1 is Monday
  (101, 3, 'opens_at',      266, 1128, 0),         -- DATETIME HOUR TO MINUTE NOT NULL
  (101, 4, 'closes_at',     266, 1128, 0),
  -- staff
  (102, 1, 'staff_id',      262, 4, 0),
  (102, 2, 'branch_id',     258, 4, 0),
  (102, 3, 'manager_id',      2, 4, 0),            -- null: the head of the library
  (102, 4, 'given_name',    272, 40, 0),           -- NVARCHAR(40) NOT NULL
  (102, 5, 'family_name',   272, 40, 0),
  (102, 6, 'email',         269, 120, 0),
  (102, 7, 'hired_on',      263, 4, 0),
  (102, 8, 'salary',        264, 2306, 0),         -- MONEY(9,2) NOT NULL
  -- publisher
  (103, 1, 'publisher_id',  262, 4, 0),
  (103, 2, 'name',          269, 80, 0),
  (103, 3, 'country',         0, 2, 0),            -- CHAR(2)
  -- author
  (104, 1, 'author_id',     262, 4, 0),
  (104, 2, 'name',          269, 80, 0),
  (104, 3, 'born_in',         1, 2, 0),
  (104, 4, 'biography',      41, 72, 11),          -- CLOB
  -- genre
  (105, 1, 'genre_id',      262, 4, 0),
  (105, 2, 'parent_id',       2, 4, 0),
  (105, 3, 'name',          269, 40, 0),
  -- book
  (106, 1, 'isbn',          256, 13, 0),           -- CHAR(13) NOT NULL
  (106, 2, 'title',         269, 200, 0),
  (106, 3, 'publisher_id',    2, 4, 0),
  (106, 4, 'published_in',    1, 2, 0),
  (106, 5, 'pages',           2, 4, 0),
  (106, 6, 'price',           8, 2050, 0),         -- MONEY(8,2)
  (106, 7, 'summary',        12, 56, 0),           -- TEXT
  (106, 8, 'cover',          41, 72, 10),          -- BLOB
  -- book_author
  (107, 1, 'isbn',          256, 13, 0),
  (107, 2, 'author_id',     258, 4, 0),
  (107, 3, 'contribution',   13, 2580, 0),         -- VARCHAR(20,10): 10 * 256 + 20
  -- book_genre
  (108, 1, 'isbn',          256, 13, 0),
  (108, 2, 'genre_id',      258, 4, 0),
  -- copy
  (109, 1, 'isbn',          256, 13, 0),
  (109, 2, 'copy_number',   257, 2, 0),
  (109, 3, 'branch_id',     258, 4, 0),
  (109, 4, 'bought_on',       7, 4, 0),
  (109, 5, 'is_lendable',   297, 1, 5),            -- BOOLEAN NOT NULL
  -- member
  (110, 1, 'member_id',     262, 4, 0),
  (110, 2, 'card_number',   256, 10, 0),
  (110, 3, 'given_name',    272, 40, 0),
  (110, 4, 'family_name',   272, 40, 0),
  (110, 5, 'born_on',         7, 4, 0),
  (110, 6, 'email',          13, 120, 0),
  (110, 7, 'home_branch',     2, 4, 0),
  (110, 8, 'joined_at',     266, 3594, 0),         -- DATETIME YEAR TO SECOND NOT NULL
  -- loan
  (111, 1, 'loan_id',       274, 10, 0),           -- SERIAL8 NOT NULL
  (111, 2, 'isbn',          256, 13, 0),
  (111, 3, 'copy_number',   257, 2, 0),
  (111, 4, 'member_id',     258, 4, 0),
  (111, 5, 'lent_by',         2, 4, 0),
  (111, 6, 'lent_at',       266, 4365, 0),         -- DATETIME YEAR TO FRACTION(3) NOT NULL
  (111, 7, 'due_on',        263, 4, 0),
  (111, 8, 'returned_at',    10, 4365, 0),
  (111, 9, 'lent_for',       14, 836, 0),          -- INTERVAL DAY(3) TO DAY
  -- fine
  (112, 1, 'loan_id',       273, 10, 0),           -- INT8 NOT NULL
  (112, 2, 'amount',        264, 1538, 0),
  (112, 3, 'reason',         13, 80, 0),
  (112, 4, 'paid_at',        10, 3594, 0),
  -- reservation
  (113, 1, 'isbn',          256, 13, 0),
  (113, 2, 'member_id',     258, 4, 0),
  (113, 3, 'made_at',       266, 3594, 0),
  (113, 4, 'pick_up_at',      2, 4, 0),
  -- event
  (114, 1, 'event_id',      262, 4, 0),
  (114, 2, 'branch_id',     258, 4, 0),
  (114, 3, 'held_by',         2, 4, 0),
  (114, 4, 'title',         269, 120, 0),
  (114, 5, 'held_on',       263, 4, 0),
  (114, 6, 'begins_at',     266, 1128, 0),
  (114, 7, 'lasts',          14, 1128, 0),         -- INTERVAL HOUR TO MINUTE
  (114, 8, 'fee',             4, 4, 0),            -- SMALLFLOAT
  -- event_visitor
  (115, 1, 'event_id',      258, 4, 0),
  (115, 2, 'member_id',     258, 4, 0),
  (115, 3, 'seats',         257, 2, 0),
  -- overdue_loan
  (116, 1, 'loan_id',        17, 10, 0),
  (116, 2, 'card_number',     0, 10, 0),
  (116, 3, 'email',          13, 120, 0),
  (116, 4, 'title',          13, 200, 0),
  (116, 5, 'due_on',          7, 4, 0),
  -- shelf
  (117, 1, 'branch',         13, 60, 0),
  (117, 2, 'title',          13, 200, 0),
  (117, 3, 'isbn',            0, 13, 0),
  (117, 4, 'copy_number',     1, 2, 0),
  -- joe.catalogue_card: a column of every kind of extended type
  (120,  1, 'card_id',       262, 4, 0),
  (120,  2, 'isbn',         2304, 13, 2048),       -- distinct type isbn NOT NULL
  (120,  3, 'price',        2053, 2562, 2049),     -- distinct type euro
  (120,  4, 'deposit',      2053, 2562, 2050),     -- distinct type of euro
  (120,  5, 'shelf_mark',     41, 24, 2051),       -- fixed-length opaque type
  (120,  6, 'outline',        40, 2048, 2052),     -- variable-length opaque type
  (120,  7, 'printed_at',   4118, 200, 2053),      -- named row type address
  (120,  8, 'donor',        4118, 400, 2054),      -- named row type with a row in it
  (120,  9, 'size',           22, 8, 2060),        -- ROW(width INTEGER, height INTEGER)
  (120, 10, 'keywords',       19, 2048, 2061),     -- SET(VARCHAR(40) NOT NULL)
  (120, 11, 'marks',          20, 2048, 2062),     -- MULTISET(INTEGER NOT NULL)
  (120, 12, 'chapters',       21, 2048, 2063),     -- LIST(SET(CHAR(10) NOT NULL) NOT NULL)
  (120, 13, 'branches',       19, 2048, 2065),     -- SET(address NOT NULL)
  (120, 14, 'points',         21, 2048, 2066),     -- LIST(ROW(x INTEGER, y INTEGER) NOT NULL)
  (120, 15, 'note',           40, 2048, 1),        -- LVARCHAR
  -- joe.currency
  (121, 1, 'code',           256, 3, 0),
  (121, 2, 'name',           271, 40, 0),          -- NCHAR(40) NOT NULL
  (121, 3, 'rate',             5, 4351, 0),        -- DECIMAL(16), floating
  -- joe.branch, joe.Branch
  (122, 1, 'branch_id',      258, 4, 0),
  (122, 2, 'remark',          11, 56, 0),          -- BYTE
  (123, 1, 'branch_id',      258, 4, 0),
  -- sales.stock_item, sales.price
  (130, 1, 'item_id',        262, 4, 0),
  (130, 2, 'description',     13, 100, 0),
  (130, 3, 'isbn',             0, 13, 0),
  (131, 1, 'item_id',        258, 4, 0),
  (131, 2, 'valid_from',     263, 4, 0),
  (131, 3, 'currency',       256, 3, 0),
  (131, 4, 'amount',         261, 2562, 0);        -- DECIMAL(10,2) NOT NULL
UPDATE informix.systables SET ncols = (SELECT count(*) FROM informix.syscolumns c WHERE c.tabid = systables.tabid);

INSERT INTO informix.syssyntable (tabid, servername, dbname, owner, tabname, btabid) VALUES
  (150, NULL,    NULL,      NULL,      NULL,       106),
  (151, NULL,    NULL,      NULL,      NULL,       110),
  (152, 'tokyo', 'stores',  'sales',   'orders',   0),
  (153, 'Tokyo', 'Stores',  'sales',   'lines',    0),     -- the same database, in other letters
  (154, NULL,    'archive', 'library', 'loans',    0),
  (155, 'tokyo', 'stores',  'sales',   'dropped',  0);     -- its table is gone

-- Extended types ----------------------------------------------------------------------------------

INSERT INTO informix.sysxtdtypes (extended_id, mode, owner, name, type, source, maxlen, length, byvalue) VALUES
  (   1, 'B', 'informix', 'lvarchar',     40,    0,  2048,  0, 'f'),
  (   2, 'B', 'informix', 'sendrecv',     40,    0,     0,  0, 'f'),
  (   3, 'B', 'informix', 'impexp',       40,    0,     0,  0, 'f'),
  (   5, 'B', 'informix', 'boolean',      41,    0,     0,  1, 't'),
  (  10, 'B', 'informix', 'blob',         41,    0,     0, 72, 'f'),
  (  11, 'B', 'informix', 'clob',         41,    0,     0, 72, 'f'),
  (2048, 'D', 'joe',      'isbn',          0,    0,     0, 13, 'f'),
  (2049, 'D', 'joe',      'euro',          5,    0,     0, 2562, 'f'),
  (2050, 'D', 'joe',      'deposit',       5, 2049,     0, 2562, 'f'),
  (2051, 'B', 'joe',      'shelf_mark',   41,    0,     0, 24, 'f'),
  (2052, 'B', 'joe',      'polygon',      40,    0, 32768,  0, 'f'),
  (2053, 'R', 'joe',      'address',      22,    0,     0,  0, 'f'),
  (2054, 'R', 'joe',      'person',       22,    0,     0,  0, 'f'),
  (2055, 'D', 'joe',      'picture',      41,   10,     0, 72, 'f'),
  (2060, 'C', 'joe',      '',             22,    0,     0,  8, 'f'),
  (2061, 'C', 'joe',      '',             19,    0,     0,  0, 'f'),
  (2062, 'C', 'joe',      '',             20,    0,     0,  0, 'f'),
  (2063, 'C', 'joe',      '',             21,    0,     0,  0, 'f'),
  (2064, 'C', 'joe',      '',             19,    0,     0,  0, 'f'),
  (2065, 'C', 'joe',      '',             19,    0,     0,  0, 'f'),
  (2066, 'C', 'joe',      '',             21,    0,     0,  0, 'f'),
  (2067, 'C', 'joe',      '',             22,    0,     0,  8, 'f');

INSERT INTO informix.sysattrtypes (extended_id, seqno, levelno, parent_no, fieldname, fieldno, type, length, xtd_type_id) VALUES
  (2053, 1, 0, 0, '',         0, 22,  200, 2053),     -- address
  (2053, 2, 1, 1, 'street',   1, 13,   60, 0),
  (2053, 3, 1, 1, 'city',     2, 13,   40, 0),
  (2053, 4, 1, 1, 'zip',      3,  0,   10, 0),
  (2054, 1, 0, 0, '',         0, 22,  400, 2054),     -- person
  (2054, 2, 1, 1, 'name',     1, 15,   80, 0),
  (2054, 3, 1, 1, 'home',     2, 22,  200, 2053),     -- a field of a named type
  (2054, 4, 1, 1, 'phones',   3, 19, 2048, 2061),     -- and one of a type without a name
  (2054, 5, 1, 1, 'balance',  4,  5, 2562, 2049),
  (2060, 1, 0, 0, '',         0, 22,    8, 2060),     -- ROW(width, height)
  (2060, 2, 1, 1, 'width',    1,  2,    4, 0),
  (2060, 3, 1, 1, 'height',   2,  2,    4, 0),
  (2061, 1, 0, 0, '',         0, 19, 2048, 2061),     -- SET(VARCHAR(40) NOT NULL)
  (2061, 2, 1, 1, '',         0, 269,  40, 0),
  (2062, 1, 0, 0, '',         0, 20, 2048, 2062),     -- MULTISET(INTEGER NOT NULL)
  (2062, 2, 1, 1, '',         0, 258,   4, 0),
  (2063, 1, 0, 0, '',         0, 21, 2048, 2063),     -- LIST(SET(CHAR(10) NOT NULL) NOT NULL)
  (2063, 2, 1, 1, '',         0, 275, 2048, 2064),
  (2064, 1, 0, 0, '',         0, 19, 2048, 2064),
  (2064, 2, 1, 1, '',         0, 256,  10, 0),
  (2065, 1, 0, 0, '',         0, 19, 2048, 2065),     -- SET(address NOT NULL)
  (2065, 2, 1, 1, '',         0, 278,  200, 2053),
  (2066, 1, 0, 0, '',         0, 21, 2048, 2066),     -- LIST(ROW(x, y) NOT NULL)
  (2066, 2, 1, 1, '',         0, 278,   8, 2067),
  (2067, 1, 0, 0, '',         0, 22,    8, 2067),
  (2067, 2, 1, 1, 'x',        1,  2,    4, 0),
  (2067, 3, 1, 1, 'y',        2,  2,    4, 0);

-- Keys and indexes --------------------------------------------------------------------------------

-- Constraint, its table, its kind, its index, the index's keys; for a reference the constraint meant.
CREATE TABLE informix.sim_constraints (constrid INTEGER, tabid INTEGER, constrtype TEXT, indexkeys TEXT, parent INTEGER);
INSERT INTO informix.sim_constraints VALUES
  (  1, 100, 'P', '1 [1]', NULL),
  (  2, 101, 'P', '1 [1], 2 [1]', NULL),
  (  3, 102, 'P', '1 [1]', NULL),
  (  4, 103, 'P', '1 [1]', NULL),
  (  5, 104, 'P', '1 [1]', NULL),
  (  6, 105, 'P', '1 [1]', NULL),
  (  7, 106, 'P', '1 [1]', NULL),
  (  8, 107, 'P', '1 [1], 2 [1]', NULL),
  (  9, 108, 'P', '1 [1], 2 [1]', NULL),
  ( 10, 109, 'P', '1 [1], 2 [1]', NULL),
  ( 11, 110, 'P', '1 [1]', NULL),
  ( 12, 111, 'P', '1 [1]', NULL),
  ( 13, 112, 'P', '1 [1]', NULL),
  ( 14, 113, 'P', '1 [1], 2 [1]', NULL),
  ( 15, 114, 'P', '1 [1]', NULL),
  ( 16, 115, 'P', '2 [1], 1 [1]', NULL),        -- not in the order of the columns
  ( 17, 120, 'P', '1 [1]', NULL),
  ( 18, 121, 'P', '1 [1]', NULL),
  ( 19, 121, 'U', '2 [1]', NULL),
  ( 20, 130, 'P', '1 [1]', NULL),
  ( 21, 131, 'P', '1 [1], 3 [1], -2 [1]', NULL), -- the newest price first
  ( 30, 101, 'R', '1 [1]', 1),
  ( 31, 102, 'R', '2 [1]', 1),
  ( 32, 102, 'R', '3 [1]', 3),
  ( 33, 105, 'R', '2 [1]', 6),
  ( 34, 106, 'R', '3 [1]', 4),
  ( 35, 107, 'R', '1 [1]', 7),
  ( 36, 107, 'R', '2 [1]', 5),
  ( 37, 108, 'R', '1 [1]', 7),
  ( 38, 108, 'R', '2 [1]', 6),
  ( 39, 109, 'R', '1 [1]', 7),
  ( 40, 109, 'R', '3 [1]', 1),
  ( 41, 110, 'R', '7 [1]', 1),
  ( 42, 111, 'R', '2 [1], 3 [1]', 10),
  ( 43, 111, 'R', '4 [1]', 11),
  ( 44, 111, 'R', '5 [1]', 3),
  ( 45, 112, 'R', '1 [1]', 12),
  ( 46, 113, 'R', '1 [1]', 7),
  ( 47, 113, 'R', '2 [1]', 11),
  ( 48, 113, 'R', '4 [1]', 1),
  ( 49, 114, 'R', '2 [1]', 1),
  ( 50, 114, 'R', '3 [1]', 3),
  ( 51, 115, 'R', '1 [1]', 15),
  ( 52, 115, 'R', '2 [1]', 11),
  ( 53, 131, 'R', '1 [1]', 20),
  ( 54, 131, 'R', '3 [1]', 18);

INSERT INTO informix.sysconstraints (constrid, constrname, owner, tabid, constrtype, idxname)
SELECT s.constrid, lower(s.constrtype) || s.tabid || '_' || s.constrid, t.owner, s.tabid, s.constrtype, ' ' || s.tabid || '_' || s.constrid
FROM informix.sim_constraints s JOIN informix.systables t ON t.tabid = s.tabid;
INSERT INTO informix.sysreferences (constrid, "primary", ptabid, updrule, delrule, matchtype, pendant)
SELECT s.constrid, s.parent, p.tabid, 'R', 'R', 'N', 'N'
FROM informix.sim_constraints s JOIN informix.sim_constraints p ON p.constrid = s.parent;
-- An index that a constraint made has a name that begins with a blank.
INSERT INTO informix.sysindices (idxname, owner, tabid, idxtype, levels, leaves, nunique, nrows, indexkeys, amid)
SELECT ' ' || s.tabid || '_' || s.constrid, t.owner, s.tabid, CASE s.constrtype WHEN 'R' THEN 'D' ELSE 'U' END, 1, 1, 1, 1, s.indexkeys, 1
FROM informix.sim_constraints s JOIN informix.systables t ON t.tabid = s.tabid;
INSERT INTO informix.sysindices (idxname, owner, tabid, idxtype, levels, leaves, nunique, nrows, indexkeys, amid) VALUES
  ('staff_email',     'library', 102, 'U', 1, 1, 1, 1, '6 [1]', 1),
  ('member_card',     'library', 110, 'U', 1, 1, 1, 1, '2 [1]', 1),
  ('member_name',     'library', 110, 'D', 1, 1, 1, 1, '4 [1], 3 [1]', 1),
  ('loan_due',        'library', 111, 'D', 1, 1, 1, 1, '-7 [1]', 1),
  ('card_title_word', 'joe',     120, 'D', 1, 1, 1, 1, '<101>(2, 15) [1]', 1);

-- Functions, procedures and aggregates ------------------------------------------------------------

INSERT INTO informix.sysprocedures (procid, owner, procname, mode, numargs, isproc, paramtypes, specificname, langid, variant) VALUES
  ( 1, 'informix', 'lessthan',       'D', 2, 'f', 'lvarchar,lvarchar',        'lessthan_lvc',   1, 'f'),
  ( 2, 'informix', 'systdist',       'P', 2, 'f', 'integer,integer',          'systdist',       2, 'f'),
  ( 3, 'informix', 'sysbldprepare',  'O', 2, 't', 'lvarchar,lvarchar',        'sysbldprepare',  1, 't'),
  (10, 'joe',      'area',           'O', 1, 'f', 'shelf_mark',               'area_mark',      1, 'f'),
  (11, 'joe',      'area',           'O', 1, 'f', 'polygon',                  'area_polygon',   1, 'f'),
  (12, 'joe',      'contains',       'O', 2, 'f', 'polygon,polygon',          'contains_pp',    1, 'f'),
  (13, 'joe',      'contains',       'O', 2, 'f', 'polygon,shelf_mark',       'contains_pm',    1, 'f'),
  (14, 'joe',      'euro_in',        'P', 1, 'f', 'lvarchar',                 'euro_in',        1, 'f'),
  (20, 'library',  'days_overdue',   'O', 1, 'f', 'date',                     'days_overdue',   2, 't'),
  (21, 'library',  'is_overdue',     'O', 2, 'f', 'date,date',                'is_overdue',     2, 'f'),
  (22, 'library',  'fine_for',       'O', 3, 'f', 'integer,money(8,2),date',  'fine_for',       2, 'f'),
  (23, 'library',  'close_year',     'O', 1, 't', 'smallint',                 'close_year',     2, 't'),
  (24, 'library',  'send_reminders', 'O', 0, 't', '',                         'send_reminders', 2, 't'),
  (25, 'sales',    'reprice',        'O', 2, 't', 'integer,decimal(10,2)',    'reprice',        2, 't');

INSERT INTO informix.sysaggregates (aggid, name, owner, init_func, iter_func, combine_func, final_func, handlesnulls) VALUES
  (100, 'median',        'joe', NULL, 'median_step', 'median_join', 'median_end', 'f'),
  (101, 'weighted_mean', 'joe', 'wm_begin', 'wm_step', 'wm_join', 'wm_end', 'f');

-- Other databases ---------------------------------------------------------------------------------

CREATE TABLE "stores@tokyo".systables (tabname VARCHAR(128), owner CHAR(32) COLLATE RTRIM, tabid INTEGER PRIMARY KEY, tabtype CHAR(1));
CREATE TABLE "stores@tokyo".syscolumns (
  colname VARCHAR(128), tabid INTEGER, colno SMALLINT, coltype SMALLINT, collength SMALLINT, colmin INTEGER, colmax INTEGER,
  extended_id INTEGER);
INSERT INTO "stores@tokyo".systables (tabid, owner, tabname, tabtype) VALUES
  (2, 'informix', 'syscolumns', 'T'), (100, 'sales', 'orders', 'T'), (101, 'sales', 'lines', 'T');
INSERT INTO "stores@tokyo".syscolumns (tabid, colno, colname, coltype, collength, extended_id) VALUES
  (  2, 1, 'colname',      13, 128, 0),
  (  2, 8, 'extended_id',   2, 4, 0),
  (100, 1, 'order_id',    262, 4, 0),
  (100, 2, 'ordered_at',  266, 3594, 0),
  (100, 3, 'ship_to',    4118, 200, 2053),
  (101, 1, 'order_id',    258, 4, 0),
  (101, 2, 'line',        257, 2, 0),
  (101, 3, 'amount',     2309, 2562, 2049);

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
  ('nvarchar', 12, 255,   'max length',      0, NULL),
  ('int8',     -5, 19,    NULL,              0, 0),
  ('serial8',  -5, 19,    NULL,              1, 0),
  ('boolean',  -7, 1,     NULL,              0, NULL),
  ('blob',     -4, 2147483647, NULL,         0, NULL),
  ('clob',     -1, 2147483647, NULL,         0, NULL),
  ('lvarchar', 12, 2048,  NULL,              0, NULL);

CREATE TABLE informix.sim_type_numbers (number INTEGER PRIMARY KEY, type_name TEXT);
INSERT INTO informix.sim_type_numbers VALUES
  (0, 'char'), (1, 'smallint'), (2, 'integer'), (3, 'float'), (4, 'smallfloat'), (5, 'decimal'), (6, 'serial'), (7, 'date'),
  (8, 'money'), (10, 'datetime'), (11, 'byte'), (12, 'text'), (13, 'varchar'), (14, 'interval'), (15, 'nchar'),
  (16, 'nvarchar'), (17, 'int8'), (18, 'serial8'), (19, 'set'), (20, 'multiset'), (21, 'list'), (22, 'row');
CREATE TABLE informix.sim_positions (n INTEGER PRIMARY KEY);
INSERT INTO informix.sim_positions VALUES (1), (2), (3), (4), (5), (6), (7), (8), (9), (10), (11), (12), (13), (14), (15), (16);

CREATE VIEW informix.sim_tables AS
  SELECT owner, tabname AS name,
         CASE WHEN tabtype IN ('S', 'P') THEN 'SYNONYM' WHEN tabtype = 'V' THEN 'VIEW'
              WHEN tabid < 100 THEN 'SYSTEM TABLE' ELSE 'TABLE' END AS type,
         NULL AS remarks
  FROM informix.systables;

-- A local synonym has its base table's columns; the columns of a remote one are not known here.
CREATE VIEW informix.sim_columns AS
  SELECT t.owner, t.tabname AS table_name, c.colno AS position, c.colname AS column_name,
         coalesce(nullif(x.name, ''), n.type_name) AS type_name,
         CASE WHEN (c.coltype & 255) IN (5, 8) THEN c.collength / 256
              WHEN (c.coltype & 255) IN (0, 15) THEN c.collength
              WHEN (c.coltype & 255) IN (13, 16) THEN c.collength & 255 END AS column_size,
         CASE WHEN (c.coltype & 255) IN (5, 8) AND c.collength & 255 < 255 THEN c.collength & 255 END AS decimal_digits,
         CASE WHEN c.coltype & 256 THEN 0 ELSE 1 END AS nullable,
         NULL AS remarks, NULL AS column_def
  FROM informix.systables t
  LEFT JOIN informix.syssyntable s ON s.tabid = t.tabid
  JOIN informix.syscolumns c ON c.tabid = coalesce(s.btabid, t.tabid)
  LEFT JOIN informix.sysxtdtypes x ON x.extended_id = c.extended_id
  LEFT JOIN informix.sim_type_numbers n ON n.number = (c.coltype & 255);

CREATE VIEW informix.sim_primary_keys AS
  SELECT t.owner, t.tabname AS table_name, p.n AS position, c.colname AS column_name, k.constrname AS key_name
  FROM informix.systables t
  JOIN informix.sysconstraints k ON k.tabid = t.tabid AND k.constrtype = 'P'
  JOIN informix.sysindices i ON i.tabid = k.tabid AND i.idxname = k.idxname
  JOIN informix.sim_positions p
  JOIN informix.syscolumns c ON c.tabid = t.tabid AND c.colno = sim_index_key(i.indexkeys, p.n);

CREATE VIEW informix.sim_foreign_keys AS
  SELECT pt.owner AS pk_owner, pt.tabname AS pk_table, pc.colname AS pk_column,
         ft.owner AS fk_owner, ft.tabname AS fk_table, fc.colname AS fk_column,
         n.n AS position, fk.constrname AS fk_name, pk.constrname AS pk_name
  FROM informix.systables pt
  JOIN informix.sysreferences r ON r.ptabid = pt.tabid
  JOIN informix.sysconstraints pk ON pk.constrid = r."primary"
  JOIN informix.sysindices pi ON pi.tabid = pk.tabid AND pi.idxname = pk.idxname
  JOIN informix.sysconstraints fk ON fk.constrid = r.constrid
  JOIN informix.sysindices fi ON fi.tabid = fk.tabid AND fi.idxname = fk.idxname
  JOIN informix.systables ft ON ft.tabid = fk.tabid
  JOIN informix.sim_positions n
  JOIN informix.syscolumns pc ON pc.tabid = pt.tabid AND pc.colno = sim_index_key(pi.indexkeys, n.n)
  JOIN informix.syscolumns fc ON fc.tabid = ft.tabid AND fc.colno = sim_index_key(fi.indexkeys, n.n);

CREATE VIEW informix.sim_statistics AS
  SELECT t.owner, t.tabname AS table_name, CASE i.idxtype WHEN 'U' THEN 0 ELSE 1 END AS non_unique, i.idxname AS index_name,
         p.n AS position, c.colname AS column_name, 0 AS descending
  FROM informix.systables t
  JOIN informix.sysindices i ON i.tabid = t.tabid
  JOIN informix.sim_positions p
  JOIN informix.syscolumns c ON c.tabid = t.tabid AND c.colno = sim_index_key(i.indexkeys, p.n);

CREATE VIEW informix.sim_procedures AS
  SELECT owner, procname AS name, CASE isproc WHEN 't' THEN 1 ELSE 2 END AS type, NULL AS remarks
  FROM informix.sysprocedures WHERE mode <> 'P';

COMMIT;
