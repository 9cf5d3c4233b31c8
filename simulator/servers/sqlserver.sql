-- Microsoft SQL Server 2000: a public library, and what that server alone has: user-defined types, keys
-- of 16 columns, object numbers instead of names in its relationships.
BEGIN;

CREATE TABLE sysusers (
  uid SMALLINT, status SMALLINT, name SYSNAME, sid VARBINARY(85), roles VARBINARY(2048), createdate DATETIME,
  updatedate DATETIME, altuid SMALLINT, password VARBINARY(256), gid SMALLINT, environ VARCHAR(255), hasdbaccess INT,
  islogin INT, isntname INT, isntgroup INT, isntuser INT, issqluser INT, isaliased INT, issqlrole INT, isapprole INT);
CREATE UNIQUE INDEX ncsysusers1 ON sysusers (name);
CREATE UNIQUE INDEX csysusers ON sysusers (uid);

CREATE TABLE systypes (
  name SYSNAME, xtype TINYINT, status TINYINT, xusertype SMALLINT, length SMALLINT, xprec TINYINT, xscale TINYINT,
  tdefault INT, domain INT, uid SMALLINT, reserved SMALLINT, collationid INT, usertype SMALLINT, variable BIT,
  allownulls BIT, type TINYINT, printfmt VARCHAR(255), prec SMALLINT, scale TINYINT, collation SYSNAME);
CREATE UNIQUE INDEX csystypes ON systypes (xusertype);
CREATE INDEX ncsystypes1 ON systypes (xtype);

CREATE TABLE sysobjects (
  name SYSNAME, id INT, xtype CHAR(2), uid SMALLINT, info SMALLINT, status INT, base_schema_ver INT, replinfo INT,
  parent_obj INT, crdate DATETIME, ftcatid SMALLINT, schema_ver INT, stats_schema_ver INT, type CHAR(2),
  userstat SMALLINT, sysstat SMALLINT, indexdel SMALLINT, refdate DATETIME, version INT, deltrig INT, instrig INT,
  updtrig INT, seltrig INT, category INT, cache SMALLINT);
CREATE UNIQUE INDEX csysobjects ON sysobjects (id);
CREATE INDEX ncsysobjects1 ON sysobjects (name, uid);
CREATE INDEX ncsysobjects2 ON sysobjects (uid, name);

CREATE TABLE syscolumns (
  name SYSNAME, id INT, xtype TINYINT, typestat TINYINT, xusertype SMALLINT, length SMALLINT, xprec TINYINT,
  xscale TINYINT, colid SMALLINT, xoffset SMALLINT, bitpos TINYINT, reserved TINYINT, colstat SMALLINT, cdefault INT,
  domain INT, number SMALLINT, colorder SMALLINT, autoval VARBINARY(255), offset SMALLINT, collationid INT,
  language INT, status TINYINT, type TINYINT, usertype SMALLINT, printfmt VARCHAR(255), prec SMALLINT, scale INT,
  iscomputed INT, isoutparam INT, isnullable INT, collation SYSNAME);
CREATE INDEX csyscolumns ON syscolumns (id, colid);
CREATE INDEX ncsyscolumns1 ON syscolumns (id, name);

CREATE TABLE sysindexes (
  id INT, status INT, first BINARY(6), indid SMALLINT, root BINARY(6), minlen SMALLINT, keycnt SMALLINT,
  groupid SMALLINT, dpages INT, reserved INT, used INT, rowcnt BIGINT, rowmodctr INT, xmaxlen SMALLINT,
  maxirow SMALLINT, OrigFillFactor TINYINT, StatVersion TINYINT, reserved2 INT, FirstIAM BINARY(6), impid SMALLINT,
  lockflags SMALLINT, pgmodctr INT, keys VARBINARY(1088), name SYSNAME, statblob IMAGE, maxlen INT, rows INT);
CREATE UNIQUE INDEX csysindexes ON sysindexes (id, indid);

CREATE TABLE sysreferences (
  constid INT, fkeyid INT, rkeyid INT, rkeyindid SMALLINT, keycnt SMALLINT, forkeys VARBINARY(32),
  refkeys VARBINARY(32), fkeydbid SMALLINT, rkeydbid SMALLINT,
  fkey1 SMALLINT, fkey2 SMALLINT, fkey3 SMALLINT, fkey4 SMALLINT, fkey5 SMALLINT, fkey6 SMALLINT, fkey7 SMALLINT,
  fkey8 SMALLINT, fkey9 SMALLINT, fkey10 SMALLINT, fkey11 SMALLINT, fkey12 SMALLINT, fkey13 SMALLINT, fkey14 SMALLINT,
  fkey15 SMALLINT, fkey16 SMALLINT,
  rkey1 SMALLINT, rkey2 SMALLINT, rkey3 SMALLINT, rkey4 SMALLINT, rkey5 SMALLINT, rkey6 SMALLINT, rkey7 SMALLINT,
  rkey8 SMALLINT, rkey9 SMALLINT, rkey10 SMALLINT, rkey11 SMALLINT, rkey12 SMALLINT, rkey13 SMALLINT, rkey14 SMALLINT,
  rkey15 SMALLINT, rkey16 SMALLINT);
CREATE INDEX csysreferences ON sysreferences (fkeyid);
CREATE INDEX ncsysreferences1 ON sysreferences (rkeyid);

-- The key columns of an index, which the server keeps in sysindexes.keys in a form of its own.
CREATE TABLE sim_index_columns (id INT, indid SMALLINT, keyno SMALLINT, colid SMALLINT, PRIMARY KEY (id, indid, keyno))
  WITHOUT ROWID;
CREATE VIEW sim_index_keys AS
  SELECT o.name AS table_name, k.indid AS indid, k.keyno AS keyno, c.name AS column_name
  FROM sysobjects o JOIN sim_index_columns k ON k.id = o.id JOIN syscolumns c ON c.id = k.id AND c.colid = k.colid;

INSERT INTO sysusers (uid, status, name, gid, hasdbaccess, islogin, issqluser, issqlrole) VALUES
  (0,     0, 'public',             0,     0, 0, 0, 1),
  (1,     2, 'dbo',                0,     1, 1, 1, 0),
  (2,     0, 'guest',              0,     0, 1, 1, 0),
  (3,     0, 'INFORMATION_SCHEMA', 0,     0, 1, 1, 0),
  (5,     2, 'north',              0,     1, 1, 1, 0),
  (16384, 0, 'db_owner',           16384, 0, 0, 0, 1);

INSERT INTO systypes (name, xtype, xusertype, length, prec, scale, uid, usertype, allownulls) VALUES
  ('image',            34,  34,  16,   NULL, NULL, 1, 20,  1),
  ('text',             35,  35,  16,   NULL, NULL, 1, 19,  1),
  ('uniqueidentifier', 36,  36,  16,   NULL, NULL, 1, 0,   1),
  ('tinyint',          48,  48,  1,    3,    0,    1, 5,   1),
  ('smallint',         52,  52,  2,    5,    0,    1, 6,   1),
  ('int',              56,  56,  4,    10,   0,    1, 7,   1),
  ('smalldatetime',    58,  58,  4,    16,   0,    1, 22,  1),
  ('real',             59,  59,  4,    24,   NULL, 1, 23,  1),
  ('money',            60,  60,  8,    19,   4,    1, 11,  1),
  ('datetime',         61,  61,  8,    23,   3,    1, 12,  1),
  ('float',            62,  62,  8,    53,   NULL, 1, 8,   1),
  ('sql_variant',      98,  98,  8016, 0,    NULL, 1, 0,   1),
  ('ntext',            99,  99,  16,   NULL, NULL, 1, 0,   1),
  ('bit',              104, 104, 1,    1,    NULL, 1, 16,  1),
  ('decimal',          106, 106, 17,   38,   38,   1, 24,  1),
  ('numeric',          108, 108, 17,   38,   38,   1, 10,  1),
  ('smallmoney',       122, 122, 4,    10,   4,    1, 21,  1),
  ('bigint',           127, 127, 8,    19,   0,    1, 0,   1),
  ('varbinary',        165, 165, 8000, 8000, NULL, 1, 4,   1),
  ('varchar',          167, 167, 8000, 8000, NULL, 1, 2,   1),
  ('binary',           173, 173, 8000, 8000, NULL, 1, 3,   1),
  ('char',             175, 175, 8000, 8000, NULL, 1, 1,   1),
  ('timestamp',        189, 189, 8,    8,    NULL, 1, 80,  1),
  ('sysname',          231, 256, 256,  128,  NULL, 1, 18,  0),
  ('nvarchar',         231, 231, 8000, 4000, NULL, 1, 0,   1),
  ('nchar',            239, 239, 8000, 4000, NULL, 1, 0,   1),
  -- The library's own.
  ('isbn',             175, 257, 13,   13,   NULL, 1, 257, 0),
  ('email',            167, 258, 120,  120,  NULL, 1, 258, 1),
  ('closing_time',     58,  259, 4,    16,   0,    5, 259, 1);

INSERT INTO sysobjects (name, id, xtype, uid) VALUES
  ('sysobjects',    1,          'S',  1),
  ('sysindexes',    2,          'S',  1),
  ('syscolumns',    3,          'S',  1),
  ('systypes',      4,          'S',  1),
  ('sysusers',      10,         'S',  1),
  ('sysreferences', 14,         'S',  1),
  ('branch',        1673056996, 'U',  1),
  ('opening_hours', 1689057053, 'U',  1),
  ('staff',         1705057110, 'U',  1),
  ('publisher',     1721057167, 'U',  1),
  ('author',        1737057224, 'U',  1),
  ('genre',         1753057281, 'U',  1),
  ('book',          1769057338, 'U',  1),
  ('book_author',   1785057395, 'U',  1),
  ('book_genre',    1801057452, 'U',  1),
  ('copy',          1817057509, 'U',  1),
  ('member',        1833057566, 'U',  1),
  ('loan',          1849057623, 'U',  1),
  ('fine',          1865057680, 'U',  1),
  ('reservation',   1881057737, 'U',  1),
  ('event',         1897057794, 'U',  1),
  ('event_visitor', 1913057851, 'U',  1),
  ('stock_cell',    1929057908, 'U',  1),
  ('stock_count',   1945057965, 'U',  1),
  ('overdue_loan',  1961058022, 'V',  1),
  ('shelf',         1977058079, 'V',  1),
  ('member',        2107153497, 'U',  5),
  ('notice',        2123153554, 'U',  5),
  ('open_notice',   2139153611, 'V',  5),
  ('lend_book',     37575172,   'P',  1),
  ('take_back',     53575229,   'P',  1),
  ('xp_print_card', 69575286,   'X',  1),
  ('next_notice',   85575343,   'P',  5),
  ('days_late',     101575400,  'FN', 1);
UPDATE sysobjects SET type = xtype;

CREATE TEMP TABLE library (uid, table_name, colid, column_name, type_name, length, prec, scale, isnullable);
INSERT INTO library VALUES
  (1, 'branch',        1,  'branch_id',     'int',              4,   10,   0,    0),
  (1, 'branch',        2,  'name',          'varchar',          60,  60,   NULL, 0),
  (1, 'branch',        3,  'address',       'varchar',          120, 120,  NULL, 0),
  (1, 'branch',        4,  'city',          'varchar',          60,  60,   NULL, 0),
  (1, 'branch',        5,  'opened_on',     'smalldatetime',    4,   16,   0,    1),
  (1, 'branch',        6,  'latitude',      'float',            8,   53,   NULL, 1),
  (1, 'branch',        7,  'longitude',     'float',            8,   53,   NULL, 1),
  (1, 'opening_hours', 1,  'branch_id',     'int',              4,   10,   0,    0),
  (1, 'opening_hours', 2,  'weekday',       'smallint',         2,   5,    0,    0),
  (1, 'opening_hours', 3,  'opens_at',      'smalldatetime',    4,   16,   0,    0),
  (1, 'opening_hours', 4,  'closes_at',     'smalldatetime',    4,   16,   0,    0),
  (1, 'staff',         1,  'staff_id',      'int',              4,   10,   0,    0),
  (1, 'staff',         2,  'branch_id',     'int',              4,   10,   0,    0),
  (1, 'staff',         3,  'manager_id',    'int',              4,   10,   0,    1),
  (1, 'staff',         4,  'given_name',    'varchar',          40,  40,   NULL, 0),
  (1, 'staff',         5,  'family_name',   'varchar',          40,  40,   NULL, 0),
  (1, 'staff',         6,  'email',         'email',            120, 120,  NULL, 0),
  (1, 'staff',         7,  'hired_on',      'smalldatetime',    4,   16,   0,    0),
  (1, 'staff',         8,  'salary',        'decimal',          5,   9,    2,    0),
  (1, 'publisher',     1,  'publisher_id',  'int',              4,   10,   0,    0),
  (1, 'publisher',     2,  'name',          'varchar',          80,  80,   NULL, 0),
  (1, 'publisher',     3,  'country',       'char',             2,   2,    NULL, 1),
  (1, 'author',        1,  'author_id',     'int',              4,   10,   0,    0),
  (1, 'author',        2,  'name',          'varchar',          80,  80,   NULL, 0),
  (1, 'author',        3,  'born_in',       'smallint',         2,   5,    0,    1),
  (1, 'author',        4,  'biography',     'text',             16,  NULL, NULL, 1),
  (1, 'genre',         1,  'genre_id',      'int',              4,   10,   0,    0),
  (1, 'genre',         2,  'parent_id',     'int',              4,   10,   0,    1),
  (1, 'genre',         3,  'name',          'varchar',          40,  40,   NULL, 0),
  (1, 'book',          1,  'isbn',          'isbn',             13,  13,   NULL, 0),
  (1, 'book',          2,  'title',         'varchar',          200, 200,  NULL, 0),
  (1, 'book',          3,  'publisher_id',  'int',              4,   10,   0,    1),
  (1, 'book',          4,  'published_in',  'smallint',         2,   5,    0,    1),
  (1, 'book',          5,  'pages',         'int',              4,   10,   0,    1),
  (1, 'book',          6,  'price',         'money',            8,   19,   4,    1),
  (1, 'book',          7,  'summary',       'text',             16,  NULL, NULL, 1),
  (1, 'book',          8,  'cover',         'image',            16,  NULL, NULL, 1),
  (1, 'book_author',   1,  'isbn',          'isbn',             13,  13,   NULL, 0),
  (1, 'book_author',   2,  'author_id',     'int',              4,   10,   0,    0),
  (1, 'book_author',   3,  'contribution',  'varchar',          20,  20,   NULL, 1),
  (1, 'book_genre',    1,  'isbn',          'isbn',             13,  13,   NULL, 0),
  (1, 'book_genre',    2,  'genre_id',      'int',              4,   10,   0,    0),
  (1, 'copy',          1,  'isbn',          'isbn',             13,  13,   NULL, 0),
  (1, 'copy',          2,  'copy_number',   'smallint',         2,   5,    0,    0),
  (1, 'copy',          3,  'branch_id',     'int',              4,   10,   0,    0),
  (1, 'copy',          4,  'bought_on',     'smalldatetime',    4,   16,   0,    1),
  (1, 'copy',          5,  'is_lendable',   'bit',              1,   1,    NULL, 0),
  (1, 'member',        1,  'member_id',     'int',              4,   10,   0,    0),
  (1, 'member',        2,  'card_number',   'char',             10,  10,   NULL, 0),
  (1, 'member',        3,  'given_name',    'varchar',          40,  40,   NULL, 0),
  (1, 'member',        4,  'family_name',   'varchar',          40,  40,   NULL, 0),
  (1, 'member',        5,  'born_on',       'smalldatetime',    4,   16,   0,    1),
  (1, 'member',        6,  'email',         'email',            120, 120,  NULL, 1),
  (1, 'member',        7,  'home_branch',   'int',              4,   10,   0,    1),
  (1, 'member',        8,  'joined_at',     'datetime',         8,   23,   3,    0),
  (1, 'loan',          1,  'loan_id',       'numeric',          9,   12,   0,    0),
  (1, 'loan',          2,  'isbn',          'isbn',             13,  13,   NULL, 0),
  (1, 'loan',          3,  'copy_number',   'smallint',         2,   5,    0,    0),
  (1, 'loan',          4,  'member_id',     'int',              4,   10,   0,    0),
  (1, 'loan',          5,  'lent_by',       'int',              4,   10,   0,    1),
  (1, 'loan',          6,  'lent_at',       'datetime',         8,   23,   3,    0),
  (1, 'loan',          7,  'due_on',        'smalldatetime',    4,   16,   0,    0),
  (1, 'loan',          8,  'returned_at',   'datetime',         8,   23,   3,    1),
  (1, 'fine',          1,  'loan_id',       'numeric',          9,   12,   0,    0),
  (1, 'fine',          2,  'amount',        'money',            8,   19,   4,    0),
  (1, 'fine',          3,  'reason',        'varchar',          80,  80,   NULL, 1),
  (1, 'fine',          4,  'paid_at',       'datetime',         8,   23,   3,    1),
  (1, 'reservation',   1,  'isbn',          'isbn',             13,  13,   NULL, 0),
  (1, 'reservation',   2,  'member_id',     'int',              4,   10,   0,    0),
  (1, 'reservation',   3,  'made_at',       'datetime',         8,   23,   3,    0),
  (1, 'reservation',   4,  'pick_up_at',    'int',              4,   10,   0,    1),
  (1, 'event',         1,  'event_id',      'int',              4,   10,   0,    0),
  (1, 'event',         2,  'branch_id',     'int',              4,   10,   0,    0),
  (1, 'event',         3,  'held_by',       'int',              4,   10,   0,    1),
  (1, 'event',         4,  'title',         'varchar',          120, 120,  NULL, 0),
  (1, 'event',         5,  'held_on',       'smalldatetime',    4,   16,   0,    0),
  (1, 'event',         6,  'begins_at',     'smalldatetime',    4,   16,   0,    0),
  (1, 'event',         7,  'fee',           'real',             4,   24,   NULL, 1),
  (1, 'event_visitor', 1,  'event_id',      'int',              4,   10,   0,    0),
  (1, 'event_visitor', 2,  'member_id',     'int',              4,   10,   0,    0),
  (1, 'event_visitor', 3,  'seats',         'tinyint',          1,   3,    0,    0),
  (1, 'stock_cell',    1,  'd01_branch',    'int',              4,   10,   0,    0),
  (1, 'stock_cell',    2,  'd02_shelf',     'int',              4,   10,   0,    0),
  (1, 'stock_cell',    3,  'd03_genre',     'int',              4,   10,   0,    0),
  (1, 'stock_cell',    4,  'd04_publisher', 'int',              4,   10,   0,    0),
  (1, 'stock_cell',    5,  'd05_author',    'int',              4,   10,   0,    0),
  (1, 'stock_cell',    6,  'd06_language',  'int',              4,   10,   0,    0),
  (1, 'stock_cell',    7,  'd07_format',    'int',              4,   10,   0,    0),
  (1, 'stock_cell',    8,  'd08_condition', 'int',              4,   10,   0,    0),
  (1, 'stock_cell',    9,  'd09_supplier',  'int',              4,   10,   0,    0),
  (1, 'stock_cell',    10, 'd10_currency',  'int',              4,   10,   0,    0),
  (1, 'stock_cell',    11, 'd11_budget',    'int',              4,   10,   0,    0),
  (1, 'stock_cell',    12, 'd12_season',    'int',              4,   10,   0,    0),
  (1, 'stock_cell',    13, 'd13_year',      'int',              4,   10,   0,    0),
  (1, 'stock_cell',    14, 'd14_month',     'int',              4,   10,   0,    0),
  (1, 'stock_cell',    15, 'd15_staff',     'int',              4,   10,   0,    0),
  (1, 'stock_cell',    16, 'd16_target',    'int',              4,   10,   0,    0),
  (1, 'stock_cell',    17, 'copies',        'int',              4,   10,   0,    0),
  (1, 'stock_count',   1,  'd01_branch',    'int',              4,   10,   0,    0),
  (1, 'stock_count',   2,  'd02_shelf',     'int',              4,   10,   0,    0),
  (1, 'stock_count',   3,  'd03_genre',     'int',              4,   10,   0,    0),
  (1, 'stock_count',   4,  'd04_publisher', 'int',              4,   10,   0,    0),
  (1, 'stock_count',   5,  'd05_author',    'int',              4,   10,   0,    0),
  (1, 'stock_count',   6,  'd06_language',  'int',              4,   10,   0,    0),
  (1, 'stock_count',   7,  'd07_format',    'int',              4,   10,   0,    0),
  (1, 'stock_count',   8,  'd08_condition', 'int',              4,   10,   0,    0),
  (1, 'stock_count',   9,  'd09_supplier',  'int',              4,   10,   0,    0),
  (1, 'stock_count',   10, 'd10_currency',  'int',              4,   10,   0,    0),
  (1, 'stock_count',   11, 'd11_budget',    'int',              4,   10,   0,    0),
  (1, 'stock_count',   12, 'd12_season',    'int',              4,   10,   0,    0),
  (1, 'stock_count',   13, 'd13_year',      'int',              4,   10,   0,    0),
  (1, 'stock_count',   14, 'd14_month',     'int',              4,   10,   0,    0),
  (1, 'stock_count',   15, 'd15_staff',     'int',              4,   10,   0,    0),
  (1, 'stock_count',   16, 'd16_target',    'int',              4,   10,   0,    0),
  (1, 'stock_count',   17, 'counted_on',    'smalldatetime',    4,   16,   0,    0),
  (1, 'stock_count',   18, 'counted',       'int',              4,   10,   0,    0),
  (1, 'overdue_loan',  1,  'loan_id',       'numeric',          9,   12,   0,    0),
  (1, 'overdue_loan',  2,  'card_number',   'char',             10,  10,   NULL, 0),
  (1, 'overdue_loan',  3,  'email',         'email',            120, 120,  NULL, 1),
  (1, 'overdue_loan',  4,  'title',         'varchar',          200, 200,  NULL, 0),
  (1, 'overdue_loan',  5,  'due_on',        'smalldatetime',    4,   16,   0,    0),
  (1, 'shelf',         1,  'branch',        'varchar',          60,  60,   NULL, 0),
  (1, 'shelf',         2,  'title',         'varchar',          200, 200,  NULL, 0),
  (1, 'shelf',         3,  'isbn',          'isbn',             13,  13,   NULL, 0),
  (1, 'shelf',         4,  'copy_number',   'smallint',         2,   5,    0,    0),
  (1, 'sysobjects',    1,  'name',          'sysname',          256, 128,  NULL, 0),
  (1, 'sysobjects',    2,  'id',            'int',              4,   10,   0,    0),
  (1, 'sysobjects',    3,  'xtype',         'char',             2,   2,    NULL, 0),
  (1, 'sysobjects',    4,  'uid',           'smallint',         2,   5,    0,    0),
  (1, 'syscolumns',    1,  'name',          'sysname',          256, 128,  NULL, 1),
  (1, 'syscolumns',    2,  'id',            'int',              4,   10,   0,    0),
  (1, 'syscolumns',    3,  'xusertype',     'smallint',         2,   5,    0,    0),
  (1, 'syscolumns',    4,  'colid',         'smallint',         2,   5,    0,    0),
  (1, 'sysusers',      1,  'uid',           'smallint',         2,   5,    0,    0),
  (1, 'sysusers',      2,  'name',          'sysname',          256, 128,  NULL, 0),
  (1, 'sysusers',      3,  'sid',           'varbinary',        85,  85,   NULL, 1),
  (5, 'member',        1,  'member_id',     'int',              4,   10,   0,    0),
  (5, 'member',        2,  'shelf_note',    'varchar',          200, 200,  NULL, 1),
  (5, 'member',        3,  'closes_at',     'closing_time',     4,   16,   0,    1),
  (5, 'notice',        1,  'notice_id',     'int',              4,   10,   0,    0),
  (5, 'notice',        2,  'member_id',     'int',              4,   10,   0,    0),
  (5, 'notice',        3,  'body',          'ntext',            16,  NULL, NULL, 1),
  (5, 'notice',        4,  'token',         'uniqueidentifier', 16,  NULL, NULL, 1),
  (5, 'notice',        5,  'row_version',   'timestamp',        8,   8,    NULL, 0),
  (5, 'notice',        6,  'big',           'bigint',           8,   19,   0,    1),
  (5, 'open_notice',   1,  'notice_id',     'int',              4,   10,   0,    0),
  (5, 'open_notice',   2,  'email',         'email',            120, 120,  NULL, 1);

INSERT INTO syscolumns (name, id, xtype, xusertype, length, colid, colorder, prec, scale, usertype, isnullable, iscomputed)
  SELECT l.column_name, o.id, t.xtype, t.xusertype, l.length, l.colid, l.colid, l.prec, l.scale, t.usertype, l.isnullable, 0
  FROM library l JOIN sysobjects o ON o.name = l.table_name AND o.uid = l.uid JOIN systypes t ON t.name = l.type_name;
DROP TABLE library;

-- Status 2066: a unique, clustered primary key. Status 2: a unique index.
INSERT INTO sysindexes (id, indid, status, keycnt, name) SELECT id, 1, 2066, 0, 'PK_' || name FROM sysobjects WHERE xtype = 'U';
-- The key of north.notice is (member_id, notice_id), against the order of its columns.
INSERT INTO sim_index_columns (id, indid, keyno, colid) VALUES
  (1673056996, 1, 1, 1),
  (1689057053, 1, 1, 1), (1689057053, 1, 2, 2),
  (1705057110, 1, 1, 1),
  (1721057167, 1, 1, 1),
  (1737057224, 1, 1, 1),
  (1753057281, 1, 1, 1),
  (1769057338, 1, 1, 1),
  (1785057395, 1, 1, 1), (1785057395, 1, 2, 2),
  (1801057452, 1, 1, 1), (1801057452, 1, 2, 2),
  (1817057509, 1, 1, 1), (1817057509, 1, 2, 2),
  (1833057566, 1, 1, 1),
  (1849057623, 1, 1, 1),
  (1865057680, 1, 1, 1),
  (1881057737, 1, 1, 1), (1881057737, 1, 2, 2),
  (1897057794, 1, 1, 1),
  (1913057851, 1, 1, 1), (1913057851, 1, 2, 2),
  (1929057908, 1, 1, 1), (1929057908, 1, 2, 2), (1929057908, 1, 3, 3), (1929057908, 1, 4, 4), (1929057908, 1, 5, 5), (1929057908, 1, 6, 6),
  (1929057908, 1, 7, 7), (1929057908, 1, 8, 8), (1929057908, 1, 9, 9), (1929057908, 1, 10, 10), (1929057908, 1, 11, 11), (1929057908, 1, 12, 12),
  (1929057908, 1, 13, 13), (1929057908, 1, 14, 14), (1929057908, 1, 15, 15), (1929057908, 1, 16, 16),
  (1945057965, 1, 1, 1), (1945057965, 1, 2, 2), (1945057965, 1, 3, 3), (1945057965, 1, 4, 4), (1945057965, 1, 5, 5), (1945057965, 1, 6, 6),
  (1945057965, 1, 7, 7), (1945057965, 1, 8, 8), (1945057965, 1, 9, 9), (1945057965, 1, 10, 10), (1945057965, 1, 11, 11), (1945057965, 1, 12, 12),
  (1945057965, 1, 13, 13), (1945057965, 1, 14, 14), (1945057965, 1, 15, 15), (1945057965, 1, 16, 16),
  (2107153497, 1, 1, 1),
  (2123153554, 1, 1, 2), (2123153554, 1, 2, 1);
INSERT INTO sysindexes (id, indid, status, keycnt, name) VALUES
  (1705057110, 2, 2, 0, 'IX_staff_email'),
  (1833057566, 2, 2, 0, 'member_card'),
  (1833057566, 3, 0, 0, 'member_name'),
  (1849057623, 2, 0, 0, 'loan_due');
INSERT INTO sim_index_columns (id, indid, keyno, colid) VALUES
  (1705057110, 2, 1, 6),
  (1833057566, 2, 1, 2),
  (1833057566, 3, 1, 4), (1833057566, 3, 2, 3),
  (1849057623, 2, 1, 7);
UPDATE sysindexes SET keycnt = (SELECT count(*) FROM sim_index_columns k WHERE k.id = sysindexes.id AND k.indid = sysindexes.indid);

INSERT INTO sysobjects (name, id, xtype, uid, parent_obj) VALUES
  ('FK_opening_hours_branch_id', 500000016, 'F', 1, 1689057053),
  ('FK_staff_branch_id',         500000032, 'F', 1, 1705057110),
  ('FK_staff_manager_id',        500000048, 'F', 1, 1705057110),
  ('FK_genre_parent_id',         500000064, 'F', 1, 1753057281),
  ('FK_book_publisher_id',       500000080, 'F', 1, 1769057338),
  ('FK_book_author_isbn',        500000096, 'F', 1, 1785057395),
  ('FK_book_author_author_id',   500000112, 'F', 1, 1785057395),
  ('FK_book_genre_isbn',         500000128, 'F', 1, 1801057452),
  ('FK_book_genre_genre_id',     500000144, 'F', 1, 1801057452),
  ('FK_copy_isbn',               500000160, 'F', 1, 1817057509),
  ('FK_copy_branch_id',          500000176, 'F', 1, 1817057509),
  ('FK_member_home_branch',      500000192, 'F', 1, 1833057566),
  ('FK_loan_isbn',               500000208, 'F', 1, 1849057623),
  ('FK_loan_member_id',          500000224, 'F', 1, 1849057623),
  ('FK_loan_lent_by',            500000240, 'F', 1, 1849057623),
  ('FK_fine_loan_id',            500000256, 'F', 1, 1865057680),
  ('FK_reservation_isbn',        500000272, 'F', 1, 1881057737),
  ('FK_reservation_member_id',   500000288, 'F', 1, 1881057737),
  ('FK_reservation_pick_up_at',  500000304, 'F', 1, 1881057737),
  ('FK_event_branch_id',         500000320, 'F', 1, 1897057794),
  ('FK_event_held_by',           500000336, 'F', 1, 1897057794),
  ('FK_event_visitor_event_id',  500000352, 'F', 1, 1913057851),
  ('FK_event_visitor_member_id', 500000368, 'F', 1, 1913057851),
  ('FK_stock_count',             500000384, 'F', 1, 1945057965),
  ('FK_notice_member',           500000400, 'F', 5, 2123153554);
INSERT INTO sysreferences (constid, fkeyid, rkeyid, rkeyindid, keycnt, fkey1, fkey2, rkey1, rkey2) VALUES
  (500000016, 1689057053, 1673056996, 1, 1, 1, 0, 1, 0),
  (500000032, 1705057110, 1673056996, 1, 1, 2, 0, 1, 0),
  (500000048, 1705057110, 1705057110, 1, 1, 3, 0, 1, 0),
  (500000064, 1753057281, 1753057281, 1, 1, 2, 0, 1, 0),
  (500000080, 1769057338, 1721057167, 1, 1, 3, 0, 1, 0),
  (500000096, 1785057395, 1769057338, 1, 1, 1, 0, 1, 0),
  (500000112, 1785057395, 1737057224, 1, 1, 2, 0, 1, 0),
  (500000128, 1801057452, 1769057338, 1, 1, 1, 0, 1, 0),
  (500000144, 1801057452, 1753057281, 1, 1, 2, 0, 1, 0),
  (500000160, 1817057509, 1769057338, 1, 1, 1, 0, 1, 0),
  (500000176, 1817057509, 1673056996, 1, 1, 3, 0, 1, 0),
  (500000192, 1833057566, 1673056996, 1, 1, 7, 0, 1, 0),
  (500000208, 1849057623, 1817057509, 1, 2, 2, 3, 1, 2),
  (500000224, 1849057623, 1833057566, 1, 1, 4, 0, 1, 0),
  (500000240, 1849057623, 1705057110, 1, 1, 5, 0, 1, 0),
  (500000256, 1865057680, 1849057623, 1, 1, 1, 0, 1, 0),
  (500000272, 1881057737, 1769057338, 1, 1, 1, 0, 1, 0),
  (500000288, 1881057737, 1833057566, 1, 1, 2, 0, 1, 0),
  (500000304, 1881057737, 1673056996, 1, 1, 4, 0, 1, 0),
  (500000320, 1897057794, 1673056996, 1, 1, 2, 0, 1, 0),
  (500000336, 1897057794, 1705057110, 1, 1, 3, 0, 1, 0),
  (500000352, 1913057851, 1897057794, 1, 1, 1, 0, 1, 0),
  (500000368, 1913057851, 1833057566, 1, 1, 2, 0, 1, 0);

-- A relationship of 16 columns, and one from another owner's table.
INSERT INTO sysreferences VALUES
  (500000384, 1945057965, 1929057908, 1, 16, NULL, NULL, 0, 0,
   1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16,
   1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
INSERT INTO sysreferences (constid, fkeyid, rkeyid, rkeyindid, keycnt, fkey1, rkey1) VALUES
  (500000400, 2123153554, 1833057566, 1, 1, 2, 1);

CREATE TABLE sim_numbers (n INTEGER PRIMARY KEY);
INSERT INTO sim_numbers VALUES (1), (2), (3), (4), (5), (6), (7), (8), (9), (10), (11), (12), (13), (14), (15), (16);

CREATE VIEW sim_tables AS
  SELECT u.name AS owner, o.name AS name,
         CASE o.xtype WHEN 'U' THEN 'TABLE' WHEN 'V' THEN 'VIEW' ELSE 'SYSTEM TABLE' END AS type, NULL AS remarks
  FROM sysobjects o JOIN sysusers u ON u.uid = o.uid WHERE o.xtype IN ('U', 'V', 'S');
CREATE VIEW sim_columns AS
  SELECT u.name AS owner, o.name AS table_name, c.colid AS position, c.name AS column_name, t.name AS type_name,
         c.prec AS column_size, c.scale AS decimal_digits, c.isnullable AS nullable, NULL AS remarks, NULL AS column_def
  FROM sysobjects o JOIN sysusers u ON u.uid = o.uid JOIN syscolumns c ON c.id = o.id
       JOIN systypes t ON t.xusertype = c.xusertype
  WHERE o.xtype IN ('U', 'V', 'S');
CREATE VIEW sim_primary_keys AS
  SELECT u.name AS owner, o.name AS table_name, k.keyno AS position, c.name AS column_name, i.name AS key_name
  FROM sysobjects o JOIN sysusers u ON u.uid = o.uid JOIN sysindexes i ON i.id = o.id AND i.status & 0x800
       JOIN sim_index_columns k ON k.id = i.id AND k.indid = i.indid
       JOIN syscolumns c ON c.id = k.id AND c.colid = k.colid;
CREATE VIEW sim_foreign_keys AS
  SELECT pu.name AS pk_owner, p.name AS pk_table, pc.name AS pk_column, fu.name AS fk_owner, f.name AS fk_table,
         fc.name AS fk_column, n.n AS position, k.name AS fk_name, NULL AS pk_name
  FROM sysreferences r JOIN sysobjects p ON p.id = r.rkeyid JOIN sysusers pu ON pu.uid = p.uid
       JOIN sysobjects f ON f.id = r.fkeyid JOIN sysusers fu ON fu.uid = f.uid
       JOIN sim_numbers n ON n.n <= r.keycnt
       JOIN syscolumns pc ON pc.id = r.rkeyid AND pc.colid = CASE n.n
         WHEN 1 THEN r.rkey1 WHEN 2 THEN r.rkey2 WHEN 3 THEN r.rkey3 WHEN 4 THEN r.rkey4 WHEN 5 THEN r.rkey5
         WHEN 6 THEN r.rkey6 WHEN 7 THEN r.rkey7 WHEN 8 THEN r.rkey8 WHEN 9 THEN r.rkey9 WHEN 10 THEN r.rkey10
         WHEN 11 THEN r.rkey11 WHEN 12 THEN r.rkey12 WHEN 13 THEN r.rkey13 WHEN 14 THEN r.rkey14 WHEN 15 THEN r.rkey15
         ELSE r.rkey16 END
       JOIN syscolumns fc ON fc.id = r.fkeyid AND fc.colid = CASE n.n
         WHEN 1 THEN r.fkey1 WHEN 2 THEN r.fkey2 WHEN 3 THEN r.fkey3 WHEN 4 THEN r.fkey4 WHEN 5 THEN r.fkey5
         WHEN 6 THEN r.fkey6 WHEN 7 THEN r.fkey7 WHEN 8 THEN r.fkey8 WHEN 9 THEN r.fkey9 WHEN 10 THEN r.fkey10
         WHEN 11 THEN r.fkey11 WHEN 12 THEN r.fkey12 WHEN 13 THEN r.fkey13 WHEN 14 THEN r.fkey14 WHEN 15 THEN r.fkey15
         ELSE r.fkey16 END
       LEFT JOIN sysobjects k ON k.id = r.constid;
CREATE VIEW sim_statistics AS
  SELECT u.name AS owner, o.name AS table_name, (i.status & 2) = 0 AS non_unique, i.name AS index_name,
         k.keyno AS position, c.name AS column_name, 0 AS descending
  FROM sysobjects o JOIN sysusers u ON u.uid = o.uid JOIN sysindexes i ON i.id = o.id
       JOIN sim_index_columns k ON k.id = i.id AND k.indid = i.indid
       JOIN syscolumns c ON c.id = k.id AND c.colid = k.colid;
CREATE VIEW sim_procedures AS
  SELECT u.name AS owner, o.name AS name, CASE o.xtype WHEN 'FN' THEN 2 ELSE 1 END AS type, NULL AS remarks
  FROM sysobjects o JOIN sysusers u ON u.uid = o.uid WHERE o.xtype IN ('P', 'X', 'FN');

CREATE TABLE sim_types (
  type_name VARCHAR(128) PRIMARY KEY, data_type SMALLINT, column_size INTEGER, create_params VARCHAR(64),
  auto_increment SMALLINT, max_scale SMALLINT);
INSERT INTO sim_types VALUES
  ('bigint',           -5,  19,         NULL,              0, 0),
  ('binary',           -2,  8000,       'length',          NULL, NULL),
  ('bit',              -7,  1,          NULL,              0, 0),
  ('char',             1,   8000,       'length',          NULL, NULL),
  ('datetime',         93,  23,         NULL,              NULL, 3),
  ('decimal',          3,   38,         'precision,scale', 0, 38),
  ('float',            6,   53,         NULL,              0, NULL),
  ('image',            -4,  2147483647, NULL,              NULL, NULL),
  ('int',              4,   10,         NULL,              0, 0),
  ('money',            3,   19,         NULL,              0, 4),
  ('nchar',            -8,  4000,       'length',          NULL, NULL),
  ('ntext',            -10, 1073741823, NULL,              NULL, NULL),
  ('numeric',          2,   38,         'precision,scale', 0, 38),
  ('nvarchar',         -9,  4000,       'max length',      NULL, NULL),
  ('real',             7,   24,         NULL,              0, NULL),
  ('smalldatetime',    93,  16,         NULL,              NULL, 0),
  ('smallint',         5,   5,          NULL,              0, 0),
  ('smallmoney',       3,   10,         NULL,              0, 4),
  ('sysname',          -9,  128,        NULL,              NULL, NULL),
  ('text',             -1,  2147483647, NULL,              NULL, NULL),
  ('timestamp',        -2,  8,          NULL,              NULL, NULL),
  ('tinyint',          -6,  3,          NULL,              0, 0),
  ('uniqueidentifier', -11, 36,         NULL,              NULL, NULL),
  ('varbinary',        -3,  8000,       'max length',      NULL, NULL),
  ('varchar',          12,  8000,       'max length',      NULL, NULL),
  ('isbn',             1,   13,         NULL,              NULL, NULL),
  ('email',            12,  120,        NULL,              NULL, NULL),
  ('closing_time',     93,  16,         NULL,              NULL, 0);

COMMIT;
