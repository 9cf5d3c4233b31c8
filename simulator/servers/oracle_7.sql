-- Oracle 7: the library as it was before large objects (one LONG a table at most, so the covers have their own), with
-- the synonyms and database links of that server.
BEGIN;

CREATE TABLE all_users (username VARCHAR2(30), user_id NUMBER, created DATE);

CREATE TABLE all_catalog (owner VARCHAR2(30), table_name VARCHAR2(30), table_type VARCHAR2(11));
CREATE INDEX i_catalog ON all_catalog (owner, table_name);
CREATE INDEX i_catalog_name ON all_catalog (table_name);

CREATE TABLE all_tables (
  owner VARCHAR2(30), table_name VARCHAR2(30), tablespace_name VARCHAR2(30), cluster_name VARCHAR2(30), pct_free NUMBER,
  pct_used NUMBER, ini_trans NUMBER, max_trans NUMBER, initial_extent NUMBER, next_extent NUMBER, min_extents NUMBER,
  max_extents NUMBER, pct_increase NUMBER, freelists NUMBER, freelist_groups NUMBER, backed_up VARCHAR2(1),
  num_rows NUMBER, blocks NUMBER, empty_blocks NUMBER, avg_space NUMBER, chain_cnt NUMBER, avg_row_len NUMBER);
CREATE INDEX i_tables ON all_tables (owner, table_name);
CREATE INDEX i_tables_name ON all_tables (table_name);

CREATE TABLE all_views (owner VARCHAR2(30), view_name VARCHAR2(30), text_length NUMBER, text LONG);
CREATE INDEX i_views ON all_views (owner, view_name);

CREATE TABLE all_tab_columns (
  owner VARCHAR2(30), table_name VARCHAR2(30), column_name VARCHAR2(30), data_type VARCHAR2(9),
  data_length NUMBER, data_precision NUMBER, data_scale NUMBER, nullable VARCHAR2(1), column_id NUMBER,
  default_length NUMBER, data_default LONG, num_distinct NUMBER, low_value RAW(32), high_value RAW(32), density NUMBER);
CREATE INDEX i_tab_columns ON all_tab_columns (owner, table_name, column_id);

CREATE TABLE all_synonyms (
  owner VARCHAR2(30), synonym_name VARCHAR2(30), table_owner VARCHAR2(30), table_name VARCHAR2(30), db_link VARCHAR2(128));
CREATE INDEX i_synonyms ON all_synonyms (owner, synonym_name);
CREATE INDEX i_synonyms_base ON all_synonyms (table_owner, table_name);

CREATE TABLE all_constraints (
  owner VARCHAR2(30), constraint_name VARCHAR2(30), constraint_type VARCHAR2(1), table_name VARCHAR2(30),
  search_condition LONG, r_owner VARCHAR2(30), r_constraint_name VARCHAR2(30), delete_rule VARCHAR2(9),
  status VARCHAR2(8));
CREATE INDEX i_constraints ON all_constraints (owner, table_name);
CREATE INDEX i_constraints_name ON all_constraints (constraint_name);

CREATE TABLE all_cons_columns (
  owner VARCHAR2(30), constraint_name VARCHAR2(30), table_name VARCHAR2(30), column_name VARCHAR2(30),
  position NUMBER);
CREATE INDEX i_cons_columns ON all_cons_columns (constraint_name, owner);

CREATE TABLE all_objects (
  owner VARCHAR2(30), object_name VARCHAR2(30),
  object_id NUMBER, object_type VARCHAR2(13), created DATE,
  last_ddl_time DATE, "timestamp" VARCHAR2(75), status VARCHAR2(7));
CREATE INDEX i_objects ON all_objects (owner, object_name);

CREATE TABLE all_indexes (
  owner VARCHAR2(30), index_name VARCHAR2(30), table_owner VARCHAR2(30), table_name VARCHAR2(30), table_type VARCHAR2(11),
  uniqueness VARCHAR2(9));
CREATE INDEX i_indexes ON all_indexes (table_owner, table_name);
CREATE TABLE all_ind_columns (
  index_owner VARCHAR2(30), index_name VARCHAR2(30), table_owner VARCHAR2(30), table_name VARCHAR2(30),
  column_name VARCHAR2(30), column_position NUMBER, column_length NUMBER);
CREATE INDEX i_ind_columns ON all_ind_columns (index_owner, index_name);

INSERT INTO all_users (username, user_id) VALUES ('SYS', 0), ('SYSTEM', 5), ('LIBRARY', 21), ('NORTH', 22), ('ARCHIVE', 23);

INSERT INTO all_tables (owner, table_name) VALUES
  ('LIBRARY', 'BRANCH'),
  ('LIBRARY', 'OPENING_HOURS'),
  ('LIBRARY', 'STAFF'),
  ('LIBRARY', 'PUBLISHER'),
  ('LIBRARY', 'AUTHOR'),
  ('LIBRARY', 'GENRE'),
  ('LIBRARY', 'BOOK'),
  ('LIBRARY', 'BOOK_AUTHOR'),
  ('LIBRARY', 'BOOK_GENRE'),
  ('LIBRARY', 'COPY'),
  ('LIBRARY', 'MEMBER'),
  ('LIBRARY', 'LOAN'),
  ('LIBRARY', 'FINE'),
  ('LIBRARY', 'RESERVATION'),
  ('LIBRARY', 'EVENT'),
  ('LIBRARY', 'EVENT_VISITOR'),
  ('LIBRARY', 'STOCK_CELL'),
  ('LIBRARY', 'STOCK_COUNT'),
  ('LIBRARY', 'COVER'),
  ('ARCHIVE', 'BOX_ITEM'),
  ('ARCHIVE', 'LENDING'),
  ('ARCHIVE', 'VAULT_BOX'),
  ('ARCHIVE', 'VOLUME'),
  ('NORTH',   'MEMBER'),
  ('SYS',     'DUAL'),
  ('SYS',     'TAB$'),
  ('SYSTEM',  'HELP');
INSERT INTO all_views (owner, view_name) VALUES
  ('LIBRARY', 'OVERDUE_LOAN'),
  ('LIBRARY', 'SHELF');
INSERT INTO all_tab_columns (owner, table_name, column_name, data_type, data_length, data_precision, data_scale, nullable, column_id)
VALUES
  ('LIBRARY', 'BRANCH',        'BRANCH_ID',     'NUMBER',   22,  10,   0,    'N', 1),
  ('LIBRARY', 'BRANCH',        'NAME',          'VARCHAR2', 60,  NULL, NULL, 'N', 2),
  ('LIBRARY', 'BRANCH',        'ADDRESS',       'VARCHAR2', 120, NULL, NULL, 'N', 3),
  ('LIBRARY', 'BRANCH',        'CITY',          'VARCHAR2', 60,  NULL, NULL, 'N', 4),
  ('LIBRARY', 'BRANCH',        'OPENED_ON',     'DATE',     7,   NULL, NULL, 'Y', 5),
  ('LIBRARY', 'BRANCH',        'LATITUDE',      'FLOAT',    22,  126,  NULL, 'Y', 6),
  ('LIBRARY', 'BRANCH',        'LONGITUDE',     'FLOAT',    22,  126,  NULL, 'Y', 7),
  ('LIBRARY', 'OPENING_HOURS', 'BRANCH_ID',     'NUMBER',   22,  10,   0,    'N', 1),
  ('LIBRARY', 'OPENING_HOURS', 'WEEKDAY',       'NUMBER',   22,  5,    0,    'N', 2),
  ('LIBRARY', 'OPENING_HOURS', 'OPENS_AT',      'DATE',     7,   NULL, NULL, 'N', 3),
  ('LIBRARY', 'OPENING_HOURS', 'CLOSES_AT',     'DATE',     7,   NULL, NULL, 'N', 4),
  ('LIBRARY', 'STAFF',         'STAFF_ID',      'NUMBER',   22,  10,   0,    'N', 1),
  ('LIBRARY', 'STAFF',         'BRANCH_ID',     'NUMBER',   22,  10,   0,    'N', 2),
  ('LIBRARY', 'STAFF',         'MANAGER_ID',    'NUMBER',   22,  10,   0,    'Y', 3),
  ('LIBRARY', 'STAFF',         'GIVEN_NAME',    'VARCHAR2', 40,  NULL, NULL, 'N', 4),
  ('LIBRARY', 'STAFF',         'FAMILY_NAME',   'VARCHAR2', 40,  NULL, NULL, 'N', 5),
  ('LIBRARY', 'STAFF',         'EMAIL',         'VARCHAR2', 120, NULL, NULL, 'N', 6),
  ('LIBRARY', 'STAFF',         'HIRED_ON',      'DATE',     7,   NULL, NULL, 'N', 7),
  ('LIBRARY', 'STAFF',         'SALARY',        'NUMBER',   22,  9,    2,    'N', 8),
  ('LIBRARY', 'PUBLISHER',     'PUBLISHER_ID',  'NUMBER',   22,  10,   0,    'N', 1),
  ('LIBRARY', 'PUBLISHER',     'NAME',          'VARCHAR2', 80,  NULL, NULL, 'N', 2),
  ('LIBRARY', 'PUBLISHER',     'COUNTRY',       'CHAR',     2,   NULL, NULL, 'Y', 3),
  ('LIBRARY', 'AUTHOR',        'AUTHOR_ID',     'NUMBER',   22,  10,   0,    'N', 1),
  ('LIBRARY', 'AUTHOR',        'NAME',          'VARCHAR2', 80,  NULL, NULL, 'N', 2),
  ('LIBRARY', 'AUTHOR',        'BORN_IN',       'NUMBER',   22,  5,    0,    'Y', 3),
  ('LIBRARY', 'AUTHOR',        'BIOGRAPHY',     'LONG',     0,   NULL, NULL, 'Y', 4),
  ('LIBRARY', 'GENRE',         'GENRE_ID',      'NUMBER',   22,  10,   0,    'N', 1),
  ('LIBRARY', 'GENRE',         'PARENT_ID',     'NUMBER',   22,  10,   0,    'Y', 2),
  ('LIBRARY', 'GENRE',         'NAME',          'VARCHAR2', 40,  NULL, NULL, 'N', 3),
  ('LIBRARY', 'BOOK',          'ISBN',          'CHAR',     13,  NULL, NULL, 'N', 1),
  ('LIBRARY', 'BOOK',          'TITLE',         'VARCHAR2', 200, NULL, NULL, 'N', 2),
  ('LIBRARY', 'BOOK',          'PUBLISHER_ID',  'NUMBER',   22,  10,   0,    'Y', 3),
  ('LIBRARY', 'BOOK',          'PUBLISHED_IN',  'NUMBER',   22,  5,    0,    'Y', 4),
  ('LIBRARY', 'BOOK',          'PAGES',         'NUMBER',   22,  10,   0,    'Y', 5),
  ('LIBRARY', 'BOOK',          'PRICE',         'NUMBER',   22,  8,    2,    'Y', 6),
  ('LIBRARY', 'BOOK',          'SUMMARY',       'LONG',     0,   NULL, NULL, 'Y', 7),
  ('LIBRARY', 'BOOK_AUTHOR',   'ISBN',          'CHAR',     13,  NULL, NULL, 'N', 1),
  ('LIBRARY', 'BOOK_AUTHOR',   'AUTHOR_ID',     'NUMBER',   22,  10,   0,    'N', 2),
  ('LIBRARY', 'BOOK_AUTHOR',   'CONTRIBUTION',  'VARCHAR2', 20,  NULL, NULL, 'Y', 3),
  ('LIBRARY', 'BOOK_GENRE',    'ISBN',          'CHAR',     13,  NULL, NULL, 'N', 1),
  ('LIBRARY', 'BOOK_GENRE',    'GENRE_ID',      'NUMBER',   22,  10,   0,    'N', 2),
  ('LIBRARY', 'COPY',          'ISBN',          'CHAR',     13,  NULL, NULL, 'N', 1),
  ('LIBRARY', 'COPY',          'COPY_NUMBER',   'NUMBER',   22,  5,    0,    'N', 2),
  ('LIBRARY', 'COPY',          'BRANCH_ID',     'NUMBER',   22,  10,   0,    'N', 3),
  ('LIBRARY', 'COPY',          'BOUGHT_ON',     'DATE',     7,   NULL, NULL, 'Y', 4),
  ('LIBRARY', 'COPY',          'IS_LENDABLE',   'CHAR',     1,   NULL, NULL, 'N', 5),
  ('LIBRARY', 'MEMBER',        'MEMBER_ID',     'NUMBER',   22,  10,   0,    'N', 1),
  ('LIBRARY', 'MEMBER',        'CARD_NUMBER',   'CHAR',     10,  NULL, NULL, 'N', 2),
  ('LIBRARY', 'MEMBER',        'GIVEN_NAME',    'VARCHAR2', 40,  NULL, NULL, 'N', 3),
  ('LIBRARY', 'MEMBER',        'FAMILY_NAME',   'VARCHAR2', 40,  NULL, NULL, 'N', 4),
  ('LIBRARY', 'MEMBER',        'BORN_ON',       'DATE',     7,   NULL, NULL, 'Y', 5),
  ('LIBRARY', 'MEMBER',        'EMAIL',         'VARCHAR2', 120, NULL, NULL, 'Y', 6),
  ('LIBRARY', 'MEMBER',        'HOME_BRANCH',   'NUMBER',   22,  10,   0,    'Y', 7),
  ('LIBRARY', 'MEMBER',        'JOINED_AT',     'DATE',     7,   NULL, NULL, 'N', 8),
  ('LIBRARY', 'LOAN',          'LOAN_ID',       'NUMBER',   22,  18,   0,    'N', 1),
  ('LIBRARY', 'LOAN',          'ISBN',          'CHAR',     13,  NULL, NULL, 'N', 2),
  ('LIBRARY', 'LOAN',          'COPY_NUMBER',   'NUMBER',   22,  5,    0,    'N', 3),
  ('LIBRARY', 'LOAN',          'MEMBER_ID',     'NUMBER',   22,  10,   0,    'N', 4),
  ('LIBRARY', 'LOAN',          'LENT_BY',       'NUMBER',   22,  10,   0,    'Y', 5),
  ('LIBRARY', 'LOAN',          'LENT_AT',       'DATE',     7,   NULL, NULL, 'N', 6),
  ('LIBRARY', 'LOAN',          'DUE_ON',        'DATE',     7,   NULL, NULL, 'N', 7),
  ('LIBRARY', 'LOAN',          'RETURNED_AT',   'DATE',     7,   NULL, NULL, 'Y', 8),
  ('LIBRARY', 'FINE',          'LOAN_ID',       'NUMBER',   22,  18,   0,    'N', 1),
  ('LIBRARY', 'FINE',          'AMOUNT',        'NUMBER',   22,  6,    2,    'N', 2),
  ('LIBRARY', 'FINE',          'REASON',        'VARCHAR2', 80,  NULL, NULL, 'Y', 3),
  ('LIBRARY', 'FINE',          'PAID_AT',       'DATE',     7,   NULL, NULL, 'Y', 4),
  ('LIBRARY', 'RESERVATION',   'ISBN',          'CHAR',     13,  NULL, NULL, 'N', 1),
  ('LIBRARY', 'RESERVATION',   'MEMBER_ID',     'NUMBER',   22,  10,   0,    'N', 2),
  ('LIBRARY', 'RESERVATION',   'MADE_AT',       'DATE',     7,   NULL, NULL, 'N', 3),
  ('LIBRARY', 'RESERVATION',   'PICK_UP_AT',    'NUMBER',   22,  10,   0,    'Y', 4),
  ('LIBRARY', 'EVENT',         'EVENT_ID',      'NUMBER',   22,  10,   0,    'N', 1),
  ('LIBRARY', 'EVENT',         'BRANCH_ID',     'NUMBER',   22,  10,   0,    'N', 2),
  ('LIBRARY', 'EVENT',         'HELD_BY',       'NUMBER',   22,  10,   0,    'Y', 3),
  ('LIBRARY', 'EVENT',         'TITLE',         'VARCHAR2', 120, NULL, NULL, 'N', 4),
  ('LIBRARY', 'EVENT',         'HELD_ON',       'DATE',     7,   NULL, NULL, 'N', 5),
  ('LIBRARY', 'EVENT',         'BEGINS_AT',     'DATE',     7,   NULL, NULL, 'N', 6),
  ('LIBRARY', 'EVENT',         'FEE',           'FLOAT',    22,  63,   NULL, 'Y', 7),
  ('LIBRARY', 'EVENT_VISITOR', 'EVENT_ID',      'NUMBER',   22,  10,   0,    'N', 1),
  ('LIBRARY', 'EVENT_VISITOR', 'MEMBER_ID',     'NUMBER',   22,  10,   0,    'N', 2),
  ('LIBRARY', 'EVENT_VISITOR', 'SEATS',         'NUMBER',   22,  3,    0,    'N', 3),
  ('LIBRARY', 'STOCK_CELL',    'D01_BRANCH',    'NUMBER',   22,  10,   0,    'N', 1),
  ('LIBRARY', 'STOCK_CELL',    'D02_SHELF',     'NUMBER',   22,  10,   0,    'N', 2),
  ('LIBRARY', 'STOCK_CELL',    'D03_GENRE',     'NUMBER',   22,  10,   0,    'N', 3),
  ('LIBRARY', 'STOCK_CELL',    'D04_PUBLISHER', 'NUMBER',   22,  10,   0,    'N', 4),
  ('LIBRARY', 'STOCK_CELL',    'D05_AUTHOR',    'NUMBER',   22,  10,   0,    'N', 5),
  ('LIBRARY', 'STOCK_CELL',    'D06_LANGUAGE',  'NUMBER',   22,  10,   0,    'N', 6),
  ('LIBRARY', 'STOCK_CELL',    'D07_FORMAT',    'NUMBER',   22,  10,   0,    'N', 7),
  ('LIBRARY', 'STOCK_CELL',    'D08_CONDITION', 'NUMBER',   22,  10,   0,    'N', 8),
  ('LIBRARY', 'STOCK_CELL',    'D09_SUPPLIER',  'NUMBER',   22,  10,   0,    'N', 9),
  ('LIBRARY', 'STOCK_CELL',    'D10_CURRENCY',  'NUMBER',   22,  10,   0,    'N', 10),
  ('LIBRARY', 'STOCK_CELL',    'D11_BUDGET',    'NUMBER',   22,  10,   0,    'N', 11),
  ('LIBRARY', 'STOCK_CELL',    'D12_SEASON',    'NUMBER',   22,  10,   0,    'N', 12),
  ('LIBRARY', 'STOCK_CELL',    'D13_YEAR',      'NUMBER',   22,  10,   0,    'N', 13),
  ('LIBRARY', 'STOCK_CELL',    'D14_MONTH',     'NUMBER',   22,  10,   0,    'N', 14),
  ('LIBRARY', 'STOCK_CELL',    'D15_STAFF',     'NUMBER',   22,  10,   0,    'N', 15),
  ('LIBRARY', 'STOCK_CELL',    'D16_TARGET',    'NUMBER',   22,  10,   0,    'N', 16),
  ('LIBRARY', 'STOCK_CELL',    'COPIES',        'NUMBER',   22,  10,   0,    'N', 17),
  ('LIBRARY', 'STOCK_COUNT',   'D01_BRANCH',    'NUMBER',   22,  10,   0,    'N', 1),
  ('LIBRARY', 'STOCK_COUNT',   'D02_SHELF',     'NUMBER',   22,  10,   0,    'N', 2),
  ('LIBRARY', 'STOCK_COUNT',   'D03_GENRE',     'NUMBER',   22,  10,   0,    'N', 3),
  ('LIBRARY', 'STOCK_COUNT',   'D04_PUBLISHER', 'NUMBER',   22,  10,   0,    'N', 4),
  ('LIBRARY', 'STOCK_COUNT',   'D05_AUTHOR',    'NUMBER',   22,  10,   0,    'N', 5),
  ('LIBRARY', 'STOCK_COUNT',   'D06_LANGUAGE',  'NUMBER',   22,  10,   0,    'N', 6),
  ('LIBRARY', 'STOCK_COUNT',   'D07_FORMAT',    'NUMBER',   22,  10,   0,    'N', 7),
  ('LIBRARY', 'STOCK_COUNT',   'D08_CONDITION', 'NUMBER',   22,  10,   0,    'N', 8),
  ('LIBRARY', 'STOCK_COUNT',   'D09_SUPPLIER',  'NUMBER',   22,  10,   0,    'N', 9),
  ('LIBRARY', 'STOCK_COUNT',   'D10_CURRENCY',  'NUMBER',   22,  10,   0,    'N', 10),
  ('LIBRARY', 'STOCK_COUNT',   'D11_BUDGET',    'NUMBER',   22,  10,   0,    'N', 11),
  ('LIBRARY', 'STOCK_COUNT',   'D12_SEASON',    'NUMBER',   22,  10,   0,    'N', 12),
  ('LIBRARY', 'STOCK_COUNT',   'D13_YEAR',      'NUMBER',   22,  10,   0,    'N', 13),
  ('LIBRARY', 'STOCK_COUNT',   'D14_MONTH',     'NUMBER',   22,  10,   0,    'N', 14),
  ('LIBRARY', 'STOCK_COUNT',   'D15_STAFF',     'NUMBER',   22,  10,   0,    'N', 15),
  ('LIBRARY', 'STOCK_COUNT',   'D16_TARGET',    'NUMBER',   22,  10,   0,    'N', 16),
  ('LIBRARY', 'STOCK_COUNT',   'COUNTED_ON',    'DATE',     7,   NULL, NULL, 'N', 17),
  ('LIBRARY', 'STOCK_COUNT',   'COUNTED',       'NUMBER',   22,  10,   0,    'N', 18),
  ('LIBRARY', 'OVERDUE_LOAN',  'LOAN_ID',       'NUMBER',   22,  18,   0,    'N', 1),
  ('LIBRARY', 'OVERDUE_LOAN',  'CARD_NUMBER',   'CHAR',     10,  NULL, NULL, 'N', 2),
  ('LIBRARY', 'OVERDUE_LOAN',  'EMAIL',         'VARCHAR2', 120, NULL, NULL, 'Y', 3),
  ('LIBRARY', 'OVERDUE_LOAN',  'TITLE',         'VARCHAR2', 200, NULL, NULL, 'N', 4),
  ('LIBRARY', 'OVERDUE_LOAN',  'DUE_ON',        'DATE',     7,   NULL, NULL, 'N', 5),
  ('LIBRARY', 'SHELF',         'BRANCH',        'VARCHAR2', 60,  NULL, NULL, 'N', 1),
  ('LIBRARY', 'SHELF',         'TITLE',         'VARCHAR2', 200, NULL, NULL, 'N', 2),
  ('LIBRARY', 'SHELF',         'ISBN',          'CHAR',     13,  NULL, NULL, 'N', 3),
  ('LIBRARY', 'SHELF',         'COPY_NUMBER',   'NUMBER',   22,  5,    0,    'N', 4),
  ('LIBRARY', 'COVER',         'ISBN',          'CHAR',     13,  NULL, NULL, 'N', 1),
  ('LIBRARY', 'COVER',         'PICTURE',       'LONG RAW', 0,   NULL, NULL, 'Y', 2),
  ('ARCHIVE', 'BOX_ITEM',      'BOX_ID',        'NUMBER',   22,  8,    0,    'N', 1),
  ('ARCHIVE', 'BOX_ITEM',      'ITEM_NO',       'NUMBER',   22,  4,    0,    'N', 2),
  ('ARCHIVE', 'BOX_ITEM',      'WHAT',          'VARCHAR2', 80,  NULL, NULL, 'Y', 3),
  ('ARCHIVE', 'LENDING',       'VOLUME_ID',     'NUMBER',   22,  8,    0,    'N', 1),
  ('ARCHIVE', 'LENDING',       'PART_NO',       'NUMBER',   22,  4,    0,    'N', 2),
  ('ARCHIVE', 'LENDING',       'LENT_TO',       'VARCHAR2', 40,  NULL, NULL, 'Y', 3),
  ('ARCHIVE', 'LENDING',       'ROW_MARK',      'ROWID',    10,  NULL, NULL, 'Y', 4),
  ('ARCHIVE', 'VAULT_BOX',     'BOX_ID',        'NUMBER',   22,  8,    0,    'N', 1),
  ('ARCHIVE', 'VAULT_BOX',     'SHELF_MARK',    'RAW',      16,  NULL, NULL, 'Y', 2),
  ('ARCHIVE', 'VOLUME',        'VOLUME_ID',     'NUMBER',   22,  8,    0,    'N', 1),
  ('ARCHIVE', 'VOLUME',        'PART_NO',       'NUMBER',   22,  4,    0,    'N', 2),
  ('ARCHIVE', 'VOLUME',        'TITLE',         'VARCHAR2', 200, NULL, NULL, 'N', 3),
  ('ARCHIVE', 'VOLUME',        'PAGE_COUNT',    'NUMBER',   22,  NULL, NULL, 'Y', 4),
  ('NORTH',   'MEMBER',        'MEMBER_ID',     'NUMBER',   22,  10,   0,    'N', 1),
  ('NORTH',   'MEMBER',        'SHELF_NOTE',    'VARCHAR2', 200, NULL, NULL, 'Y', 2),
  ('NORTH',   'MEMBER',        'STAMP',         'MLSLABEL', 4,   NULL, NULL, 'Y', 3),
  ('SYS',     'DUAL',          'DUMMY',         'VARCHAR2', 1,   NULL, NULL, 'Y', 1),
  ('SYS',     'TAB$',          'OBJ#',          'NUMBER',   22,  NULL, NULL, 'N', 1),
  ('SYS',     'TAB$',          'COLS',          'NUMBER',   22,  NULL, NULL, 'N', 2),
  ('SYSTEM',  'HELP',          'TOPIC',         'VARCHAR2', 50,  NULL, NULL, 'N', 1),
  ('SYSTEM',  'HELP',          'SEQ',           'NUMBER',   22,  NULL, NULL, 'N', 2),
  ('SYSTEM',  'HELP',          'INFO',          'VARCHAR2', 80,  NULL, NULL, 'Y', 3);

INSERT INTO all_synonyms VALUES
  ('PUBLIC',  'BOOKS',     'LIBRARY', 'BOOK',   NULL),
  ('PUBLIC',  'HQ_CITY',   'HEAD',    'CITY',   'HQ'),
  ('NORTH',   'MEMBERS',   'LIBRARY', 'MEMBER', NULL),
  ('NORTH',   'FINES',     'LIBRARY', 'FINE',   NULL),
  ('LIBRARY', 'HQ_BUDGET', 'HEAD',    'BUDGET', 'HQ'),
  ('SYS',     'SYSFILES',  'SYS',     'TAB$',   NULL);

-- P primary key, U unique, R referential.
INSERT INTO all_constraints (owner, constraint_name, constraint_type, table_name, r_owner, r_constraint_name, status) VALUES
  ('LIBRARY', 'PK_BRANCH',                  'P', 'BRANCH',        NULL,      NULL,            'ENABLED'),
  ('LIBRARY', 'PK_OPENING_HOURS',           'P', 'OPENING_HOURS', NULL,      NULL,            'ENABLED'),
  ('LIBRARY', 'PK_STAFF',                   'P', 'STAFF',         NULL,      NULL,            'ENABLED'),
  ('LIBRARY', 'PK_PUBLISHER',               'P', 'PUBLISHER',     NULL,      NULL,            'ENABLED'),
  ('LIBRARY', 'PK_AUTHOR',                  'P', 'AUTHOR',        NULL,      NULL,            'ENABLED'),
  ('LIBRARY', 'PK_GENRE',                   'P', 'GENRE',         NULL,      NULL,            'ENABLED'),
  ('LIBRARY', 'PK_BOOK',                    'P', 'BOOK',          NULL,      NULL,            'ENABLED'),
  ('LIBRARY', 'PK_BOOK_AUTHOR',             'P', 'BOOK_AUTHOR',   NULL,      NULL,            'ENABLED'),
  ('LIBRARY', 'PK_BOOK_GENRE',              'P', 'BOOK_GENRE',    NULL,      NULL,            'ENABLED'),
  ('LIBRARY', 'PK_COPY',                    'P', 'COPY',          NULL,      NULL,            'ENABLED'),
  ('LIBRARY', 'PK_MEMBER',                  'P', 'MEMBER',        NULL,      NULL,            'ENABLED'),
  ('LIBRARY', 'PK_LOAN',                    'P', 'LOAN',          NULL,      NULL,            'ENABLED'),
  ('LIBRARY', 'PK_FINE',                    'P', 'FINE',          NULL,      NULL,            'ENABLED'),
  ('LIBRARY', 'PK_RESERVATION',             'P', 'RESERVATION',   NULL,      NULL,            'ENABLED'),
  ('LIBRARY', 'PK_EVENT',                   'P', 'EVENT',         NULL,      NULL,            'ENABLED'),
  ('LIBRARY', 'PK_EVENT_VISITOR',           'P', 'EVENT_VISITOR', NULL,      NULL,            'ENABLED'),
  ('LIBRARY', 'PK_STOCK_CELL',              'P', 'STOCK_CELL',    NULL,      NULL,            'ENABLED'),
  ('LIBRARY', 'PK_STOCK_COUNT',             'P', 'STOCK_COUNT',   NULL,      NULL,            'ENABLED'),
  ('LIBRARY', 'PK_COVER',                   'P', 'COVER',         NULL,      NULL,            'ENABLED'),
  ('ARCHIVE', 'PK_BOX_ITEM',                'P', 'BOX_ITEM',      NULL,      NULL,            'ENABLED'),
  ('ARCHIVE', 'PK_VAULT_BOX',               'P', 'VAULT_BOX',     NULL,      NULL,            'ENABLED'),
  ('ARCHIVE', 'PK_VOLUME',                  'P', 'VOLUME',        NULL,      NULL,            'ENABLED'),
  ('NORTH',   'PK_NORTH_MEMBER',            'P', 'MEMBER',        NULL,      NULL,            'ENABLED'),
  ('LIBRARY', 'UK_STAFF_EMAIL',             'U', 'STAFF',         NULL,      NULL,            'ENABLED'),
  ('LIBRARY', 'UK_MEMBER_CARD',             'U', 'MEMBER',        NULL,      NULL,            'ENABLED'),
  ('LIBRARY', 'FK_OPENING_HOURS_BRANCH_ID', 'R', 'OPENING_HOURS', 'LIBRARY', 'PK_BRANCH',     'ENABLED'),
  ('LIBRARY', 'FK_STAFF_BRANCH_ID',         'R', 'STAFF',         'LIBRARY', 'PK_BRANCH',     'ENABLED'),
  ('LIBRARY', 'FK_STAFF_MANAGER_ID',        'R', 'STAFF',         'LIBRARY', 'PK_STAFF',      'ENABLED'),
  ('LIBRARY', 'FK_GENRE_PARENT_ID',         'R', 'GENRE',         'LIBRARY', 'PK_GENRE',      'ENABLED'),
  ('LIBRARY', 'FK_BOOK_PUBLISHER_ID',       'R', 'BOOK',          'LIBRARY', 'PK_PUBLISHER',  'ENABLED'),
  ('LIBRARY', 'FK_BOOK_AUTHOR_ISBN',        'R', 'BOOK_AUTHOR',   'LIBRARY', 'PK_BOOK',       'ENABLED'),
  ('LIBRARY', 'FK_BOOK_AUTHOR_AUTHOR_ID',   'R', 'BOOK_AUTHOR',   'LIBRARY', 'PK_AUTHOR',     'ENABLED'),
  ('LIBRARY', 'FK_BOOK_GENRE_ISBN',         'R', 'BOOK_GENRE',    'LIBRARY', 'PK_BOOK',       'ENABLED'),
  ('LIBRARY', 'FK_BOOK_GENRE_GENRE_ID',     'R', 'BOOK_GENRE',    'LIBRARY', 'PK_GENRE',      'ENABLED'),
  ('LIBRARY', 'FK_COPY_ISBN',               'R', 'COPY',          'LIBRARY', 'PK_BOOK',       'ENABLED'),
  ('LIBRARY', 'FK_COPY_BRANCH_ID',          'R', 'COPY',          'LIBRARY', 'PK_BRANCH',     'ENABLED'),
  ('LIBRARY', 'FK_MEMBER_HOME_BRANCH',      'R', 'MEMBER',        'LIBRARY', 'PK_BRANCH',     'ENABLED'),
  ('LIBRARY', 'FK_LOAN_ISBN',               'R', 'LOAN',          'LIBRARY', 'PK_COPY',       'ENABLED'),
  ('LIBRARY', 'FK_LOAN_MEMBER_ID',          'R', 'LOAN',          'LIBRARY', 'PK_MEMBER',     'ENABLED'),
  ('LIBRARY', 'FK_LOAN_LENT_BY',            'R', 'LOAN',          'LIBRARY', 'PK_STAFF',      'ENABLED'),
  ('LIBRARY', 'FK_FINE_LOAN_ID',            'R', 'FINE',          'LIBRARY', 'PK_LOAN',       'ENABLED'),
  ('LIBRARY', 'FK_RESERVATION_ISBN',        'R', 'RESERVATION',   'LIBRARY', 'PK_BOOK',       'ENABLED'),
  ('LIBRARY', 'FK_RESERVATION_MEMBER_ID',   'R', 'RESERVATION',   'LIBRARY', 'PK_MEMBER',     'ENABLED'),
  ('LIBRARY', 'FK_RESERVATION_PICK_UP_AT',  'R', 'RESERVATION',   'LIBRARY', 'PK_BRANCH',     'ENABLED'),
  ('LIBRARY', 'FK_EVENT_BRANCH_ID',         'R', 'EVENT',         'LIBRARY', 'PK_BRANCH',     'ENABLED'),
  ('LIBRARY', 'FK_EVENT_HELD_BY',           'R', 'EVENT',         'LIBRARY', 'PK_STAFF',      'ENABLED'),
  ('LIBRARY', 'FK_EVENT_VISITOR_EVENT_ID',  'R', 'EVENT_VISITOR', 'LIBRARY', 'PK_EVENT',      'ENABLED'),
  ('LIBRARY', 'FK_EVENT_VISITOR_MEMBER_ID', 'R', 'EVENT_VISITOR', 'LIBRARY', 'PK_MEMBER',     'ENABLED'),
  ('LIBRARY', 'FK_STOCK_COUNT',             'R', 'STOCK_COUNT',   'LIBRARY', 'PK_STOCK_CELL', 'ENABLED'),
  ('ARCHIVE', 'FK_BOX_ITEM_BOX',            'R', 'BOX_ITEM',      'ARCHIVE', 'PK_VAULT_BOX',  'ENABLED'),
  ('ARCHIVE', 'FK_LENDING_VOLUME',          'R', 'LENDING',       'ARCHIVE', 'PK_VOLUME',     'ENABLED'),
  ('NORTH',   'FK_MEMBER_MEMBER',           'R', 'MEMBER',        'LIBRARY', 'PK_MEMBER',     'ENABLED');
INSERT INTO all_cons_columns VALUES
  ('LIBRARY', 'PK_BRANCH',                  'BRANCH',        'BRANCH_ID',     1),
  ('LIBRARY', 'PK_OPENING_HOURS',           'OPENING_HOURS', 'BRANCH_ID',     1),
  ('LIBRARY', 'PK_OPENING_HOURS',           'OPENING_HOURS', 'WEEKDAY',       2),
  ('LIBRARY', 'PK_STAFF',                   'STAFF',         'STAFF_ID',      1),
  ('LIBRARY', 'PK_PUBLISHER',               'PUBLISHER',     'PUBLISHER_ID',  1),
  ('LIBRARY', 'PK_AUTHOR',                  'AUTHOR',        'AUTHOR_ID',     1),
  ('LIBRARY', 'PK_GENRE',                   'GENRE',         'GENRE_ID',      1),
  ('LIBRARY', 'PK_BOOK',                    'BOOK',          'ISBN',          1),
  ('LIBRARY', 'PK_BOOK_AUTHOR',             'BOOK_AUTHOR',   'ISBN',          1),
  ('LIBRARY', 'PK_BOOK_AUTHOR',             'BOOK_AUTHOR',   'AUTHOR_ID',     2),
  ('LIBRARY', 'PK_BOOK_GENRE',              'BOOK_GENRE',    'ISBN',          1),
  ('LIBRARY', 'PK_BOOK_GENRE',              'BOOK_GENRE',    'GENRE_ID',      2),
  ('LIBRARY', 'PK_COPY',                    'COPY',          'ISBN',          1),
  ('LIBRARY', 'PK_COPY',                    'COPY',          'COPY_NUMBER',   2),
  ('LIBRARY', 'PK_MEMBER',                  'MEMBER',        'MEMBER_ID',     1),
  ('LIBRARY', 'PK_LOAN',                    'LOAN',          'LOAN_ID',       1),
  ('LIBRARY', 'PK_FINE',                    'FINE',          'LOAN_ID',       1),
  ('LIBRARY', 'PK_RESERVATION',             'RESERVATION',   'ISBN',          1),
  ('LIBRARY', 'PK_RESERVATION',             'RESERVATION',   'MEMBER_ID',     2),
  ('LIBRARY', 'PK_EVENT',                   'EVENT',         'EVENT_ID',      1),
  ('LIBRARY', 'PK_EVENT_VISITOR',           'EVENT_VISITOR', 'EVENT_ID',      1),
  ('LIBRARY', 'PK_EVENT_VISITOR',           'EVENT_VISITOR', 'MEMBER_ID',     2),
  ('LIBRARY', 'PK_STOCK_CELL',              'STOCK_CELL',    'D01_BRANCH',    1),
  ('LIBRARY', 'PK_STOCK_CELL',              'STOCK_CELL',    'D02_SHELF',     2),
  ('LIBRARY', 'PK_STOCK_CELL',              'STOCK_CELL',    'D03_GENRE',     3),
  ('LIBRARY', 'PK_STOCK_CELL',              'STOCK_CELL',    'D04_PUBLISHER', 4),
  ('LIBRARY', 'PK_STOCK_CELL',              'STOCK_CELL',    'D05_AUTHOR',    5),
  ('LIBRARY', 'PK_STOCK_CELL',              'STOCK_CELL',    'D06_LANGUAGE',  6),
  ('LIBRARY', 'PK_STOCK_CELL',              'STOCK_CELL',    'D07_FORMAT',    7),
  ('LIBRARY', 'PK_STOCK_CELL',              'STOCK_CELL',    'D08_CONDITION', 8),
  ('LIBRARY', 'PK_STOCK_CELL',              'STOCK_CELL',    'D09_SUPPLIER',  9),
  ('LIBRARY', 'PK_STOCK_CELL',              'STOCK_CELL',    'D10_CURRENCY',  10),
  ('LIBRARY', 'PK_STOCK_CELL',              'STOCK_CELL',    'D11_BUDGET',    11),
  ('LIBRARY', 'PK_STOCK_CELL',              'STOCK_CELL',    'D12_SEASON',    12),
  ('LIBRARY', 'PK_STOCK_CELL',              'STOCK_CELL',    'D13_YEAR',      13),
  ('LIBRARY', 'PK_STOCK_CELL',              'STOCK_CELL',    'D14_MONTH',     14),
  ('LIBRARY', 'PK_STOCK_CELL',              'STOCK_CELL',    'D15_STAFF',     15),
  ('LIBRARY', 'PK_STOCK_CELL',              'STOCK_CELL',    'D16_TARGET',    16),
  ('LIBRARY', 'PK_STOCK_COUNT',             'STOCK_COUNT',   'D01_BRANCH',    1),
  ('LIBRARY', 'PK_STOCK_COUNT',             'STOCK_COUNT',   'D02_SHELF',     2),
  ('LIBRARY', 'PK_STOCK_COUNT',             'STOCK_COUNT',   'D03_GENRE',     3),
  ('LIBRARY', 'PK_STOCK_COUNT',             'STOCK_COUNT',   'D04_PUBLISHER', 4),
  ('LIBRARY', 'PK_STOCK_COUNT',             'STOCK_COUNT',   'D05_AUTHOR',    5),
  ('LIBRARY', 'PK_STOCK_COUNT',             'STOCK_COUNT',   'D06_LANGUAGE',  6),
  ('LIBRARY', 'PK_STOCK_COUNT',             'STOCK_COUNT',   'D07_FORMAT',    7),
  ('LIBRARY', 'PK_STOCK_COUNT',             'STOCK_COUNT',   'D08_CONDITION', 8),
  ('LIBRARY', 'PK_STOCK_COUNT',             'STOCK_COUNT',   'D09_SUPPLIER',  9),
  ('LIBRARY', 'PK_STOCK_COUNT',             'STOCK_COUNT',   'D10_CURRENCY',  10),
  ('LIBRARY', 'PK_STOCK_COUNT',             'STOCK_COUNT',   'D11_BUDGET',    11),
  ('LIBRARY', 'PK_STOCK_COUNT',             'STOCK_COUNT',   'D12_SEASON',    12),
  ('LIBRARY', 'PK_STOCK_COUNT',             'STOCK_COUNT',   'D13_YEAR',      13),
  ('LIBRARY', 'PK_STOCK_COUNT',             'STOCK_COUNT',   'D14_MONTH',     14),
  ('LIBRARY', 'PK_STOCK_COUNT',             'STOCK_COUNT',   'D15_STAFF',     15),
  ('LIBRARY', 'PK_STOCK_COUNT',             'STOCK_COUNT',   'D16_TARGET',    16),
  ('LIBRARY', 'PK_COVER',                   'COVER',         'ISBN',          1),
  ('ARCHIVE', 'PK_BOX_ITEM',                'BOX_ITEM',      'BOX_ID',        1),
  ('ARCHIVE', 'PK_BOX_ITEM',                'BOX_ITEM',      'ITEM_NO',       2),
  ('ARCHIVE', 'PK_VAULT_BOX',               'VAULT_BOX',     'BOX_ID',        1),
  ('ARCHIVE', 'PK_VOLUME',                  'VOLUME',        'VOLUME_ID',     1),
  ('ARCHIVE', 'PK_VOLUME',                  'VOLUME',        'PART_NO',       2),
  ('NORTH',   'PK_NORTH_MEMBER',            'MEMBER',        'MEMBER_ID',     1),
  ('LIBRARY', 'UK_STAFF_EMAIL',             'STAFF',         'EMAIL',         1),
  ('LIBRARY', 'UK_MEMBER_CARD',             'MEMBER',        'CARD_NUMBER',   1),
  ('LIBRARY', 'FK_OPENING_HOURS_BRANCH_ID', 'OPENING_HOURS', 'BRANCH_ID',     1),
  ('LIBRARY', 'FK_STAFF_BRANCH_ID',         'STAFF',         'BRANCH_ID',     1),
  ('LIBRARY', 'FK_STAFF_MANAGER_ID',        'STAFF',         'MANAGER_ID',    1),
  ('LIBRARY', 'FK_GENRE_PARENT_ID',         'GENRE',         'PARENT_ID',     1),
  ('LIBRARY', 'FK_BOOK_PUBLISHER_ID',       'BOOK',          'PUBLISHER_ID',  1),
  ('LIBRARY', 'FK_BOOK_AUTHOR_ISBN',        'BOOK_AUTHOR',   'ISBN',          1),
  ('LIBRARY', 'FK_BOOK_AUTHOR_AUTHOR_ID',   'BOOK_AUTHOR',   'AUTHOR_ID',     1),
  ('LIBRARY', 'FK_BOOK_GENRE_ISBN',         'BOOK_GENRE',    'ISBN',          1),
  ('LIBRARY', 'FK_BOOK_GENRE_GENRE_ID',     'BOOK_GENRE',    'GENRE_ID',      1),
  ('LIBRARY', 'FK_COPY_ISBN',               'COPY',          'ISBN',          1),
  ('LIBRARY', 'FK_COPY_BRANCH_ID',          'COPY',          'BRANCH_ID',     1),
  ('LIBRARY', 'FK_MEMBER_HOME_BRANCH',      'MEMBER',        'HOME_BRANCH',   1),
  ('LIBRARY', 'FK_LOAN_ISBN',               'LOAN',          'ISBN',          1),
  ('LIBRARY', 'FK_LOAN_ISBN',               'LOAN',          'COPY_NUMBER',   2),
  ('LIBRARY', 'FK_LOAN_MEMBER_ID',          'LOAN',          'MEMBER_ID',     1),
  ('LIBRARY', 'FK_LOAN_LENT_BY',            'LOAN',          'LENT_BY',       1),
  ('LIBRARY', 'FK_FINE_LOAN_ID',            'FINE',          'LOAN_ID',       1),
  ('LIBRARY', 'FK_RESERVATION_ISBN',        'RESERVATION',   'ISBN',          1),
  ('LIBRARY', 'FK_RESERVATION_MEMBER_ID',   'RESERVATION',   'MEMBER_ID',     1),
  ('LIBRARY', 'FK_RESERVATION_PICK_UP_AT',  'RESERVATION',   'PICK_UP_AT',    1),
  ('LIBRARY', 'FK_EVENT_BRANCH_ID',         'EVENT',         'BRANCH_ID',     1),
  ('LIBRARY', 'FK_EVENT_HELD_BY',           'EVENT',         'HELD_BY',       1),
  ('LIBRARY', 'FK_EVENT_VISITOR_EVENT_ID',  'EVENT_VISITOR', 'EVENT_ID',      1),
  ('LIBRARY', 'FK_EVENT_VISITOR_MEMBER_ID', 'EVENT_VISITOR', 'MEMBER_ID',     1),
  ('LIBRARY', 'FK_STOCK_COUNT',             'STOCK_COUNT',   'D01_BRANCH',    1),
  ('LIBRARY', 'FK_STOCK_COUNT',             'STOCK_COUNT',   'D02_SHELF',     2),
  ('LIBRARY', 'FK_STOCK_COUNT',             'STOCK_COUNT',   'D03_GENRE',     3),
  ('LIBRARY', 'FK_STOCK_COUNT',             'STOCK_COUNT',   'D04_PUBLISHER', 4),
  ('LIBRARY', 'FK_STOCK_COUNT',             'STOCK_COUNT',   'D05_AUTHOR',    5),
  ('LIBRARY', 'FK_STOCK_COUNT',             'STOCK_COUNT',   'D06_LANGUAGE',  6),
  ('LIBRARY', 'FK_STOCK_COUNT',             'STOCK_COUNT',   'D07_FORMAT',    7),
  ('LIBRARY', 'FK_STOCK_COUNT',             'STOCK_COUNT',   'D08_CONDITION', 8),
  ('LIBRARY', 'FK_STOCK_COUNT',             'STOCK_COUNT',   'D09_SUPPLIER',  9),
  ('LIBRARY', 'FK_STOCK_COUNT',             'STOCK_COUNT',   'D10_CURRENCY',  10),
  ('LIBRARY', 'FK_STOCK_COUNT',             'STOCK_COUNT',   'D11_BUDGET',    11),
  ('LIBRARY', 'FK_STOCK_COUNT',             'STOCK_COUNT',   'D12_SEASON',    12),
  ('LIBRARY', 'FK_STOCK_COUNT',             'STOCK_COUNT',   'D13_YEAR',      13),
  ('LIBRARY', 'FK_STOCK_COUNT',             'STOCK_COUNT',   'D14_MONTH',     14),
  ('LIBRARY', 'FK_STOCK_COUNT',             'STOCK_COUNT',   'D15_STAFF',     15),
  ('LIBRARY', 'FK_STOCK_COUNT',             'STOCK_COUNT',   'D16_TARGET',    16),
  ('ARCHIVE', 'FK_BOX_ITEM_BOX',            'BOX_ITEM',      'BOX_ID',        1),
  ('ARCHIVE', 'FK_LENDING_VOLUME',          'LENDING',       'VOLUME_ID',     1),
  ('ARCHIVE', 'FK_LENDING_VOLUME',          'LENDING',       'PART_NO',       2),
  ('NORTH',   'FK_MEMBER_MEMBER',           'MEMBER',        'MEMBER_ID',     1);

INSERT INTO all_catalog SELECT owner, table_name, 'TABLE' FROM all_tables;
INSERT INTO all_catalog SELECT owner, view_name, 'VIEW' FROM all_views;
INSERT INTO all_catalog SELECT owner, synonym_name, 'SYNONYM' FROM all_synonyms;
INSERT INTO all_catalog VALUES ('LIBRARY', 'LOAN_NUMBER', 'SEQUENCE');

INSERT INTO all_objects (owner, object_name, object_type, status) SELECT owner, table_name, table_type, 'VALID' FROM all_catalog;
INSERT INTO all_objects (owner, object_name, object_type, status) VALUES
  ('LIBRARY', 'LEND_BOOK',     'PROCEDURE', 'VALID'),
  ('LIBRARY', 'TAKE_BACK',     'PROCEDURE', 'VALID'),
  ('LIBRARY', 'DAYS_LATE',     'FUNCTION',  'VALID'),
  ('LIBRARY', 'SHELVING',      'PACKAGE',   'VALID'),
  ('NORTH',   'REFRESH_NOTES', 'PROCEDURE', 'INVALID'),
  ('SYS',     'SUBPTXT',       'PROCEDURE', 'VALID');

-- Primary and unique keys have an index of their name.
INSERT INTO all_indexes SELECT owner, constraint_name, owner, table_name, 'TABLE', 'UNIQUE' FROM all_constraints WHERE constraint_type IN ('P', 'U');
INSERT INTO all_ind_columns (index_owner, index_name, table_owner, table_name, column_name, column_position)
  SELECT k.owner, k.constraint_name, k.owner, k.table_name, k.column_name, k.position
  FROM all_cons_columns k JOIN all_indexes i ON i.owner = k.owner AND i.index_name = k.constraint_name;
INSERT INTO all_indexes VALUES
  ('LIBRARY', 'LOAN_DUE',    'LIBRARY', 'LOAN',   'TABLE', 'NONUNIQUE'),
  ('LIBRARY', 'MEMBER_NAME', 'LIBRARY', 'MEMBER', 'TABLE', 'NONUNIQUE');
INSERT INTO all_ind_columns (index_owner, index_name, table_owner, table_name, column_name, column_position) VALUES
  ('LIBRARY', 'LOAN_DUE',    'LIBRARY', 'LOAN',   'DUE_ON',      1),
  ('LIBRARY', 'MEMBER_NAME', 'LIBRARY', 'MEMBER', 'FAMILY_NAME', 1),
  ('LIBRARY', 'MEMBER_NAME', 'LIBRARY', 'MEMBER', 'GIVEN_NAME',  2);

-- The database behind the link HQ.
CREATE TABLE "HQ".all_catalog (owner VARCHAR2(30), table_name VARCHAR2(30), table_type VARCHAR2(11));
INSERT INTO "HQ".all_catalog VALUES ('HEAD', 'BUDGET', 'TABLE'), ('HEAD', 'CITY', 'TABLE');
CREATE TABLE "HQ".all_tab_columns (
  owner VARCHAR2(30), table_name VARCHAR2(30), column_name VARCHAR2(30), data_type VARCHAR2(30), data_length NUMBER,
  data_precision NUMBER, data_scale NUMBER, nullable VARCHAR2(1), column_id NUMBER);
INSERT INTO "HQ".all_tab_columns VALUES
  ('HEAD', 'BUDGET', 'YEAR',   'NUMBER',   22, 4,    0,    'N', 1),
  ('HEAD', 'BUDGET', 'AMOUNT', 'NUMBER',   22, 12,   2,    'N', 2),
  ('HEAD', 'CITY',   'NAME',   'VARCHAR2', 60, NULL, NULL, 'N', 1);

CREATE VIEW sim_tables AS
  SELECT owner, table_name AS name, table_type AS type, NULL AS remarks
  FROM all_catalog WHERE table_type IN ('TABLE', 'VIEW', 'SYNONYM');
CREATE VIEW sim_columns AS
  SELECT owner, table_name, column_id AS position, column_name, data_type AS type_name,
         CASE WHEN data_type IN ('CHAR', 'VARCHAR2', 'RAW') THEN data_length ELSE data_precision END AS column_size,
         data_scale AS decimal_digits, CASE nullable WHEN 'N' THEN 0 ELSE 1 END AS nullable, NULL AS remarks,
         NULL AS column_def
  FROM all_tab_columns;
CREATE VIEW sim_primary_keys AS
  SELECT c.owner, c.table_name, k.position, k.column_name, c.constraint_name AS key_name
  FROM all_constraints c JOIN all_cons_columns k ON k.constraint_name = c.constraint_name AND k.owner = c.owner
  WHERE c.constraint_type = 'P';
CREATE VIEW sim_foreign_keys AS
  SELECT p.owner AS pk_owner, p.table_name AS pk_table, pk.column_name AS pk_column, f.owner AS fk_owner,
         f.table_name AS fk_table, fk.column_name AS fk_column, fk.position, f.constraint_name AS fk_name,
         p.constraint_name AS pk_name
  FROM all_constraints f
       JOIN all_constraints p ON p.constraint_name = f.r_constraint_name AND p.owner = f.r_owner
       JOIN all_cons_columns fk ON fk.constraint_name = f.constraint_name AND fk.owner = f.owner
       JOIN all_cons_columns pk ON pk.constraint_name = p.constraint_name AND pk.owner = p.owner AND pk.position = fk.position
  WHERE f.constraint_type = 'R';
CREATE VIEW sim_statistics AS
  SELECT i.table_owner AS owner, i.table_name, i.uniqueness = 'NONUNIQUE' AS non_unique, i.index_name,
         k.column_position AS position, k.column_name, 0 AS descending
  FROM all_indexes i JOIN all_ind_columns k ON k.index_owner = i.owner AND k.index_name = i.index_name;
CREATE VIEW sim_procedures AS
  SELECT owner, object_name AS name, CASE object_type WHEN 'FUNCTION' THEN 2 ELSE 1 END AS type, NULL AS remarks
  FROM all_objects WHERE object_type IN ('PROCEDURE', 'FUNCTION');

CREATE TABLE sim_types (
  type_name VARCHAR2(128) PRIMARY KEY, data_type SMALLINT, column_size INTEGER, create_params VARCHAR2(64),
  auto_increment SMALLINT, max_scale SMALLINT);
INSERT INTO sim_types VALUES
  ('CHAR',     1,  255,        'max length',      NULL, NULL),
  ('VARCHAR2', 12, 2000,       'max length',      NULL, NULL),
  ('NUMBER',   3,  38,         'precision,scale', 0,    127),
  ('FLOAT',    8,  15,         NULL,              0,    NULL),
  ('DATE',     93, 19,         NULL,              NULL, 0),
  ('LONG',     -1, 2147483647, NULL,              NULL, NULL),
  ('RAW',      -3, 255,        'max length',      NULL, NULL),
  ('LONG RAW', -4, 2147483647, NULL,              NULL, NULL),
  ('ROWID',    1,  18,         NULL,              NULL, NULL),
  ('MLSLABEL', -3, 255,        NULL,              NULL, NULL);

COMMIT;
