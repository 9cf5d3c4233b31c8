-- Informix Universal Server 9.40.
CREATE TABLE informix.systables(
  tabname VARCHAR(128), owner CHAR(32), partnum INTEGER, tabid INTEGER PRIMARY KEY, tabtype CHAR(1));
CREATE TABLE informix.syscolumns(
  colname VARCHAR(128), tabid INTEGER, colno SMALLINT, coltype SMALLINT, collength SMALLINT,
  colmin INTEGER, colmax INTEGER, extended_id INTEGER);
INSERT INTO informix.systables VALUES('systables', 'informix', 1, 1, 'T'), ('customer', 'joe', 2, 100, 'T');
INSERT INTO informix.syscolumns VALUES('id', 100, 1, 6, 4, NULL, NULL, 0), ('name', 100, 2, 0, 20, NULL, NULL, 0);
