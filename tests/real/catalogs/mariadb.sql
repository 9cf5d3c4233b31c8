-- MariaDB databases with every fact that the catalog keeps, in plain and in hostile spellings. `plain` is the one that is
-- imported, then `ho%st_il e"'|`; keys go from each to the other. Read by `compare` beside this file.
CREATE DATABASE plain CHARACTER SET utf8mb4 COLLATE utf8mb4_general_ci COMMENT 'Facts in plain spellings';
CREATE DATABASE `ho%st_il e"'|` CHARACTER SET latin1 COMMENT 'quotes " and '' and `';
CREATE DATABASE `hoXstXil e"'|`;
CREATE DATABASE `Plain`;
USE plain;

CREATE SEQUENCE counter START 5 INCREMENT -3 MINVALUE -7 MAXVALUE 9 CACHE 4 CYCLE;
CREATE SEQUENCE `seq'"|%_ ``x`;
CREATE TABLE types (
  c_tiny tinyint, c_bool boolean, c_tinyu tinyint unsigned, c_small smallint(3) zerofill, c_medium mediumint unsigned, c_int int, c_intu int(7) unsigned,
  c_big bigint, c_bigu bigint unsigned, c_float float, c_floatp float(7, 3), c_double double, c_doubleu double unsigned, c_dec decimal, c_decp decimal(10),
  c_decps decimal(65, 38), c_decu decimal(12, 3) unsigned zerofill, c_bit bit, c_bit9 bit(9), c_char char, c_char5 char(5), c_varchar varchar(40), c_varchar0 varchar(0),
  c_binary binary(5), c_varbinary varbinary(300), c_tinytext tinytext, c_text text, c_mediumtext mediumtext, c_longtext longtext, c_json json,
  c_tinyblob tinyblob, c_blob blob, c_mediumblob mediumblob, c_longblob longblob, c_date date, c_time time, c_timep time(6), c_year year,
  c_datetime datetime, c_datetimep datetime(3), c_timestamp timestamp NULL, c_timestampp timestamp(2) NULL,
  c_enum enum('a', 'it''s', '', 'ä|,', '"x"'), c_set set('x', 'y z'), c_point point, c_geometry geometry, c_inet6 inet6, c_uuid uuid,
  c_latin varchar(10) CHARACTER SET latin1, c_bin varchar(10) COLLATE utf8mb4_bin, c_same varchar(10) COLLATE utf8mb4_general_ci, c_asciitext text CHARACTER SET ascii,
  c_compressed varchar(200) COMPRESSED
) COMMENT 'One of each';
CREATE TABLE defaults (
  id int unsigned NOT NULL AUTO_INCREMENT, d_none int, d_null int DEFAULT NULL, d_not_null int NOT NULL, d_zero int NOT NULL DEFAULT 0, d_dropped int,
  d_text varchar(30) DEFAULT 'x''y"z\\', d_null_text varchar(30) DEFAULT 'NULL', d_empty varchar(3) NOT NULL DEFAULT '', d_number decimal(8, 2) DEFAULT -1.50,
  d_now datetime DEFAULT CURRENT_TIMESTAMP, d_touch timestamp NOT NULL DEFAULT CURRENT_TIMESTAMP ON UPDATE CURRENT_TIMESTAMP,
  d_touchp datetime(3) NULL ON UPDATE CURRENT_TIMESTAMP(3), d_expr varchar(40) DEFAULT (concat('a', '|', upper('b'))), d_uuid varchar(40) DEFAULT uuid(),
  d_next bigint DEFAULT (NEXT VALUE FOR counter), d_bit bit(4) DEFAULT b'0101', d_blob text DEFAULT 'text', d_enum enum('a', 'b') DEFAULT 'b',
  g_virtual int AS (d_zero + 1) VIRTUAL, g_stored varchar(70) AS (concat(d_text, '|"''')) STORED COMMENT 'made', `g hostile ``"` int AS (d_zero * 2) PERSISTENT INVISIBLE,
  hidden int INVISIBLE DEFAULT 3, commented int COMMENT 'line\nbreak, ''quotes'' and \\', PRIMARY KEY (id)
) ENGINE = InnoDB AUTO_INCREMENT = 77 ROW_FORMAT = COMPRESSED KEY_BLOCK_SIZE = 8 COMMENT = 'ä€ | "comment"';
ALTER TABLE defaults ALTER COLUMN d_dropped DROP DEFAULT;

USE `ho%st_il e"'|`;
CREATE TABLE tar_get (a int NOT NULL, m int NOT NULL, z int NOT NULL, `B b` varchar(20), note varchar(30),
  PRIMARY KEY (m, z, a), UNIQUE KEY `uq'%_ ``"` (z, a, m) COMMENT 'z first', UNIQUE KEY `prefix` (`B b`(7)), KEY plain_key (note DESC, a), KEY `key pre` (note(3), `B b`(5)) COMMENT 'parts');
CREATE TABLE tarXget (a int PRIMARY KEY, z int, UNIQUE (z, a));
CREATE TABLE `Tar_get` (a int PRIMARY KEY, b int UNIQUE);
CREATE TABLE `a/b\\c.d` (id int PRIMARY KEY);
CREATE TABLE `Größe €` (`schlüssel ß` int PRIMARY KEY, wert int, FOREIGN KEY (wert) REFERENCES `Größe €` (`schlüssel ß`));
USE plain;
CREATE TABLE `select` (`from` int PRIMARY KEY, `order` int, `group` int, `table` int, `where` varchar(20) CHECK (`where` <> 'CHECK (x)'),
  `limit` int, CONSTRAINT `check` CHECK (`limit` > 0 AND `where` <> 'it''s "|"'), CHECK (`limit` < 100),
  CONSTRAINT `foreign ``"%` FOREIGN KEY (`order`, `from`, `group`) REFERENCES `ho%st_il e"'|`.tar_get (z, a, m) ON UPDATE CASCADE ON DELETE RESTRICT,
  CONSTRAINT foreign2 FOREIGN KEY (`group`, `order`, `from`) REFERENCES `ho%st_il e"'|`.tar_get (m, z, a) ON DELETE CASCADE,
  CONSTRAINT `to itself` FOREIGN KEY (`table`) REFERENCES `select` (`from`) ON DELETE SET NULL ON UPDATE NO ACTION,
  FOREIGN KEY (`table`) REFERENCES `ho%st_il e"'|`.`Tar_get` (b),
  FOREIGN KEY (`group`) REFERENCES `ho%st_il e"'|`.`a/b\\c.d` (id));
CREATE TABLE pair (b int, a int, c int NOT NULL, PRIMARY KEY (c, b, a), KEY (a, b, c), FOREIGN KEY (b, c, a) REFERENCES pair (c, b, a));
CREATE TABLE parent (id int PRIMARY KEY, code varchar(20) UNIQUE);
CREATE TABLE one_to_one (id int PRIMARY KEY, other int UNIQUE, many int, code varchar(20), FOREIGN KEY (id) REFERENCES parent (id), FOREIGN KEY (other) REFERENCES parent (id) ON UPDATE CASCADE,
  FOREIGN KEY (many) REFERENCES parent (id), FOREIGN KEY (code) REFERENCES parent (code) ON DELETE SET NULL);
-- Two tables whose names differ in case alone, each with a key.
CREATE TABLE twin (id int PRIMARY KEY, p int, CONSTRAINT twin_lower FOREIGN KEY (p) REFERENCES parent (id) ON DELETE CASCADE);
CREATE TABLE `Twin` (`ID` int PRIMARY KEY, p int, CONSTRAINT twin_upper FOREIGN KEY (p) REFERENCES twin (id) ON DELETE SET NULL);
-- Names of 64 characters, of one, two and three bytes.
CREATE TABLE a23456789_123456789_123456789_123456789_123456789_123456789_1234 (b23456789_123456789_123456789_123456789_123456789_123456789_1234 int,
  CONSTRAINT c23456789_123456789_123456789_123456789_123456789_123456789_1234 FOREIGN KEY i23456789_123456789_123456789_123456789_123456789_123456789_1234 (b23456789_123456789_123456789_123456789_123456789_123456789_1234) REFERENCES parent (id));
CREATE TABLE `ääääääääääääääääääääääääääääääääääääääääääääääääääääääääääääääää` (`€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€` int UNIQUE, `日本語` int COMMENT 'ä€');

CREATE TABLE versioned (x int, y int WITHOUT SYSTEM VERSIONING) WITH SYSTEM VERSIONING;
CREATE TABLE versioned_columns (x int, row_start timestamp(6) GENERATED ALWAYS AS ROW START INVISIBLE, row_end timestamp(6) GENERATED ALWAYS AS ROW END, PERIOD FOR SYSTEM_TIME (row_start, row_end)) WITH SYSTEM VERSIONING;
CREATE TABLE periods (id int, s date, e date, PERIOD FOR p (s, e));
CREATE TABLE by_range (a int NOT NULL, b date) PARTITION BY RANGE (a) (PARTITION p0 VALUES LESS THAN (10), PARTITION `p ``1` VALUES LESS THAN MAXVALUE);
CREATE TABLE by_hash (a int NOT NULL, b int) PARTITION BY LIST (a) SUBPARTITION BY HASH (b) SUBPARTITIONS 2 (PARTITION one VALUES IN (1, 2), PARTITION two VALUES IN (3));
CREATE TABLE isam (a int, b text, c varchar(20), p point NOT NULL, FULLTEXT KEY ft (b, c), SPATIAL KEY sp (p), KEY ignored (a) IGNORED) ENGINE = MyISAM CHARACTER SET latin1 COLLATE latin1_german1_ci;
CREATE TABLE in_memory (a int, b int, KEY h (a) USING HASH, KEY t (b) USING BTREE) ENGINE = MEMORY;
CREATE TABLE in_memory_too (a int, b int, PRIMARY KEY (a) USING BTREE, UNIQUE KEY u (b)) ENGINE = MEMORY;
CREATE TABLE in_aria (a int) ENGINE = Aria TRANSACTIONAL = 1;
CREATE TABLE long_unique (t text UNIQUE);
CREATE TABLE no_case (`Id` int PRIMARY KEY, `id2` int, FOREIGN KEY (`ID2`) REFERENCES no_case (`ID`));

CREATE VIEW view_plain AS SELECT id, code FROM parent WHERE code <> 'a|b';
CREATE VIEW `view_%` (`A b`, `c``"`) AS SELECT id, upper(code) FROM parent;
CREATE ALGORITHM = MERGE SQL SECURITY INVOKER VIEW `viewX%` AS SELECT id FROM parent WITH CASCADED CHECK OPTION;
CREATE VIEW of_defaults AS SELECT d_zero, d_text, d_now, d_none FROM defaults;
CREATE TABLE gone (a int);
CREATE VIEW broken AS SELECT a FROM gone;
DROP TABLE gone;

DELIMITER //
CREATE FUNCTION add_up(a int, `b c` varchar(10) CHARACTER SET latin1) RETURNS decimal(8, 2) DETERMINISTIC READS SQL DATA COMMENT 'adds ''up''' RETURN a + 1.5//
CREATE PROCEDURE add_up(IN a int unsigned, OUT b int, INOUT `c ``"` decimal(4, 2)) SQL SECURITY INVOKER BEGIN SET b = a; SELECT 'x|"'; END//
CREATE PROCEDURE nothing() BEGIN END//
CREATE TRIGGER before_it BEFORE INSERT ON parent FOR EACH ROW SET NEW.code = concat(NEW.code, '|"''')//
CREATE TRIGGER `tr ``"%` AFTER UPDATE ON parent FOR EACH ROW BEGIN SET @x = 1; END//
CREATE TRIGGER second BEFORE INSERT ON parent FOR EACH ROW FOLLOWS before_it SET @y = 2//
DELIMITER ;
USE `ho%st_il e"'|`;
CREATE TABLE back (id int PRIMARY KEY, p int, CONSTRAINT `to plain` FOREIGN KEY (p) REFERENCES plain.parent (id) ON DELETE CASCADE);
USE `Plain`;
CREATE TABLE parent (other int PRIMARY KEY);
USE `hoXstXil e"'|`;
CREATE TABLE tar_get (wrong int);
