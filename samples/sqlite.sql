-- A public library with several branches: what it owns, who works there, who borrows what.
-- Plain SQLite SQL; build it with: sqlite3 library.db < sqlite.sql
BEGIN;

CREATE TABLE branch (
  branch_id    INTEGER      NOT NULL PRIMARY KEY,
  name         VARCHAR(60)  NOT NULL,
  address      VARCHAR(120) NOT NULL,
  city         VARCHAR(60)  NOT NULL,
  opened_on    DATE,
  latitude     DOUBLE,
  longitude    DOUBLE
);

CREATE TABLE opening_hours (
  branch_id    INTEGER      NOT NULL REFERENCES branch (branch_id),
  weekday      SMALLINT     NOT NULL,            -- 1 is Monday
  opens_at     TIME         NOT NULL,
  closes_at    TIME         NOT NULL,
  PRIMARY KEY (branch_id, weekday)
);

CREATE TABLE staff (
  staff_id     INTEGER      NOT NULL PRIMARY KEY,
  branch_id    INTEGER      NOT NULL REFERENCES branch (branch_id),
  manager_id   INTEGER      REFERENCES staff (staff_id),   -- null: the head of the library
  given_name   VARCHAR(40)  NOT NULL,
  family_name  VARCHAR(40)  NOT NULL,
  email        VARCHAR(120) NOT NULL UNIQUE,
  hired_on     DATE         NOT NULL,
  salary       NUMERIC(9,2) NOT NULL
);

CREATE TABLE publisher (
  publisher_id INTEGER      NOT NULL PRIMARY KEY,
  name         VARCHAR(80)  NOT NULL,
  country      CHAR(2)
);

CREATE TABLE author (
  author_id    INTEGER      NOT NULL PRIMARY KEY,
  name         VARCHAR(80)  NOT NULL,
  born_in      SMALLINT,
  biography    TEXT
);

CREATE TABLE genre (
  genre_id     INTEGER      NOT NULL PRIMARY KEY,
  parent_id    INTEGER      REFERENCES genre (genre_id),
  name         VARCHAR(40)  NOT NULL
);

CREATE TABLE book (
  isbn         CHAR(13)     NOT NULL PRIMARY KEY,
  title        VARCHAR(200) NOT NULL,
  publisher_id INTEGER      REFERENCES publisher (publisher_id),
  published_in SMALLINT,
  pages        INTEGER,
  price        NUMERIC(8,2),
  summary      TEXT,
  cover        BLOB
);

CREATE TABLE book_author (
  isbn         CHAR(13)     NOT NULL REFERENCES book (isbn),
  author_id    INTEGER      NOT NULL REFERENCES author (author_id),
  contribution VARCHAR(20),                      -- editor, translator, ...; null: the text
  PRIMARY KEY (isbn, author_id)
);

CREATE TABLE book_genre (
  isbn         CHAR(13)     NOT NULL REFERENCES book (isbn),
  genre_id     INTEGER      NOT NULL REFERENCES genre (genre_id),
  PRIMARY KEY (isbn, genre_id)
);

-- One copy on a shelf. Copies of a book are numbered from 1.
CREATE TABLE copy (
  isbn         CHAR(13)     NOT NULL REFERENCES book (isbn),
  copy_number  SMALLINT     NOT NULL,
  branch_id    INTEGER      NOT NULL REFERENCES branch (branch_id),
  bought_on    DATE,
  is_lendable  BOOLEAN      NOT NULL,
  PRIMARY KEY (isbn, copy_number)
);

CREATE TABLE member (
  member_id    INTEGER      NOT NULL PRIMARY KEY,
  card_number  CHAR(10)     NOT NULL,
  given_name   VARCHAR(40)  NOT NULL,
  family_name  VARCHAR(40)  NOT NULL,
  born_on      DATE,
  email        VARCHAR(120),
  home_branch  INTEGER      REFERENCES branch (branch_id),
  joined_at    TIMESTAMP    NOT NULL
);
CREATE UNIQUE INDEX member_card ON member (card_number);
CREATE INDEX member_name ON member (family_name, given_name);

CREATE TABLE loan (
  loan_id      BIGINT       NOT NULL PRIMARY KEY,
  isbn         CHAR(13)     NOT NULL,
  copy_number  SMALLINT     NOT NULL,
  member_id    INTEGER      NOT NULL REFERENCES member (member_id),
  lent_by      INTEGER      REFERENCES staff (staff_id),
  lent_at      TIMESTAMP    NOT NULL,
  due_on       DATE         NOT NULL,
  returned_at  TIMESTAMP,                        -- null: still out
  FOREIGN KEY (isbn, copy_number) REFERENCES copy (isbn, copy_number)
);
CREATE INDEX loan_due ON loan (due_on);

-- At most one for a loan.
CREATE TABLE fine (
  loan_id      BIGINT       NOT NULL PRIMARY KEY REFERENCES loan (loan_id),
  amount       NUMERIC(6,2) NOT NULL,
  reason       VARCHAR(80),
  paid_at      TIMESTAMP
);

CREATE TABLE reservation (
  isbn         CHAR(13)     NOT NULL REFERENCES book (isbn),
  member_id    INTEGER      NOT NULL REFERENCES member (member_id),
  made_at      TIMESTAMP    NOT NULL,
  pick_up_at   INTEGER      REFERENCES branch (branch_id),
  PRIMARY KEY (isbn, member_id)
);

CREATE TABLE event (
  event_id     INTEGER      NOT NULL PRIMARY KEY,
  branch_id    INTEGER      NOT NULL REFERENCES branch (branch_id),
  held_by      INTEGER      REFERENCES staff (staff_id),
  title        VARCHAR(120) NOT NULL,
  held_on      DATE         NOT NULL,
  begins_at    TIME         NOT NULL,
  fee          REAL
);

CREATE TABLE event_visitor (
  event_id     INTEGER      NOT NULL REFERENCES event (event_id),
  member_id    INTEGER      NOT NULL REFERENCES member (member_id),
  seats        TINYINT      NOT NULL,
  PRIMARY KEY (event_id, member_id)
);

CREATE VIEW overdue_loan AS
  SELECT loan.loan_id, member.card_number, member.email, book.title, loan.due_on
  FROM loan
  JOIN member ON member.member_id = loan.member_id
  JOIN book ON book.isbn = loan.isbn
  WHERE loan.returned_at IS NULL AND loan.due_on < date('now');

CREATE VIEW shelf AS
  SELECT branch.name AS branch, book.title, copy.isbn, copy.copy_number
  FROM copy
  JOIN branch ON branch.branch_id = copy.branch_id
  JOIN book ON book.isbn = copy.isbn
  WHERE copy.is_lendable;

COMMIT;
