// Makes the schema that the real servers are asked for.
#include "tests/real/schema.h"

#include <iterator>

namespace real {
namespace {

constexpr const char* kCommonTypes[] = {
    "SMALLINT", "INTEGER", "BIGINT",      "NUMERIC(12,3)", "REAL", "DOUBLE PRECISION",
    "BOOLEAN",  "CHAR(3)", "VARCHAR(40)", "TEXT",          "DATE", "TIME"};

class Maker {
 public:
  Maker(const Dialect& dialect, int tables)
      : dialect_(dialect), tables_(tables), types_(dialect.types) {
    types_.insert(types_.end(), std::begin(kCommonTypes), std::end(kCommonTypes));
  }
  std::vector<std::string> Make();

 private:
  std::string Quoted(const std::string& name) const {
    std::string text(1, dialect_.quote);
    for (const char c : name) text += c == dialect_.quote ? std::string(2, c) : std::string(1, c);
    return text + dialect_.quote;
  }
  std::string Name(const std::string& owner, const std::string& name) const {
    return owner.empty() ? Quoted(name) : Quoted(owner) + "." + Quoted(name);
  }
  static std::string Numbered(char kind, int number) {
    return kind + std::to_string(1000 + number).substr(1);
  }
  static bool HasPairKey(int table) { return table % 5 == 4; }

  void Table(const std::string& owner, const std::string& name, const std::string& columns,
             const std::vector<std::string>& foreign_keys = {});
  void NumberedTable(const std::string& owner, int number, int count);
  void OddTables(const std::string& owner);
  // `columns` and `key` are quoted already where they have to be.
  std::string ForeignKey(const std::string& columns, const std::string& owner,
                         const std::string& table, const std::string& key);

  const Dialect& dialect_;
  const int tables_;
  std::vector<std::string> types_;
  std::vector<std::string> statements_;
  std::vector<std::string> later_;  // foreign keys, once all tables are there
  int constraint_ = 0;
  std::size_t type_ = 0;
};

void Maker::Table(const std::string& owner, const std::string& name, const std::string& columns,
                  const std::vector<std::string>& foreign_keys) {
  std::string text = "CREATE TABLE " + Name(owner, name) + "(" + columns;
  for (const std::string& key : foreign_keys) {
    if (dialect_.inline_foreign_keys) {
      text += ", " + key;
    } else {
      later_.push_back("ALTER TABLE " + Name(owner, name) + " ADD " + key);
    }
  }
  statements_.push_back(text + ")");
}

std::string Maker::ForeignKey(const std::string& columns, const std::string& owner,
                              const std::string& table, const std::string& key) {
  return "CONSTRAINT fk" + std::to_string(++constraint_) + " FOREIGN KEY (" + columns +
         ") REFERENCES " + Name(owner, table) + " (" + key + ")";
}

// Chains of references through all tables, with keys of one and of two columns, self-references
// and cycles of two tables.
void Maker::NumberedTable(const std::string& owner, int number, int count) {
  std::string columns =
      HasPairKey(number) ? "k1 INTEGER NOT NULL, k2 VARCHAR(20) NOT NULL" : "id INTEGER NOT NULL";
  for (int i = 0; i < 5; ++i, ++type_) {
    columns += ", c" + std::to_string(i) + " " + types_[type_ % types_.size()] +
               ((number + i) % 2 == 1 ? " NOT NULL" : "");
  }
  std::vector<std::string> keys;
  if (number > 0 && HasPairKey(number - 1)) {
    columns += ", p1 INTEGER, p2 VARCHAR(20)";
    keys.push_back(ForeignKey("p1, p2", owner, Numbered('t', number - 1), "k1, k2"));
  } else if (number > 0) {
    columns += ", p INTEGER";
    keys.push_back(ForeignKey("p", owner, Numbered('t', number - 1), "id"));
  }
  if (number % 10 == 3) {
    columns += ", boss INTEGER";
    keys.push_back(ForeignKey("boss", owner, Numbered('t', number), "id"));
  }
  if (number % 10 == 7 && number + 1 < count) {
    columns += ", later INTEGER";
    keys.push_back(ForeignKey("later", owner, Numbered('t', number + 1), "id"));
  }
  columns += HasPairKey(number) ? ", PRIMARY KEY (k1, k2)" : ", PRIMARY KEY (id)";
  Table(owner, Numbered('t', number), columns, keys);
  // Views, each on the one before.
  if (number % 10 == 0) {
    const std::string source =
        number == 0 ? Name(owner, "t000") : Name(owner, Numbered('v', number - 10));
    statements_.push_back("CREATE VIEW " + Name(owner, Numbered('v', number)) +
                          " AS SELECT id, c0 FROM " + source);
  }
}

void Maker::OddTables(const std::string& owner) {
  Table(owner, "odd \"name\" it's",
        Quoted("a \"b\"") + " INTEGER, " + Quoted("c d") + " INTEGER NOT NULL, " +
            Quoted("select") + " INTEGER, " + Quoted("gr\u00f6\u00dfe") +
            " INTEGER NOT NULL, PRIMARY KEY (" + Quoted("gr\u00f6\u00dfe") + ")");
  Table(owner, "Stra\u00dfe \u65e5\u672c",
        Quoted("\u00e4") + " INTEGER, " + Quoted("l\u00e4nge") + " INTEGER NOT NULL",
        {ForeignKey(Quoted("\u00e4"), owner, "odd \"name\" it's", Quoted("gr\u00f6\u00dfe"))});
  Table(owner, kNameOf63,
        std::string(kNameOf63) + " INTEGER NOT NULL, PRIMARY KEY (" + kNameOf63 + ")");
  Table(owner, "reversed", "a INTEGER NOT NULL, b INTEGER, c INTEGER NOT NULL, PRIMARY KEY (c, a)");
  Table(owner, "listed", "id INTEGER NOT NULL, code INTEGER NOT NULL UNIQUE, PRIMARY KEY (id)");
  Table(owner, "listing", "code INTEGER", {ForeignKey("code", owner, "listed", "code")});
  Table(owner, "a_b", "mine INTEGER");
  Table(owner, "axb", "other INTEGER");
}

std::vector<std::string> Maker::Make() {
  const int count = tables_ / static_cast<int>(dialect_.owners.size());
  for (const std::string& owner : dialect_.owners) {
    for (int i = 0; i < count; ++i) NumberedTable(owner, i, count);
  }
  OddTables(dialect_.owners.front());
  if (dialect_.owners.size() > 1) {
    Table(dialect_.owners[0], "crossing", "target INTEGER",
          {ForeignKey("target", dialect_.owners[1], "t000", "id")});
  }
  statements_.insert(statements_.end(), later_.begin(), later_.end());
  return statements_;
}

}  // namespace

std::vector<std::string> MakeSchema(const Dialect& dialect, int tables) {
  return Maker(dialect, tables).Make();
}

const Dialect kPostgreSQLDialect = {
    '"',
    {"alpha", "Beta Owner", "g\u00e4mma"},
    {"NUMERIC", "BYTEA", "TIMESTAMP", "TIMESTAMP WITH TIME ZONE", "INTERVAL", "UUID", "JSONB",
     "XML", "INET", "MONEY", "INTEGER[]", "BIT(8)"},
    false,
};

const Dialect kMariaDBDialect = {
    '`',
    {""},
    // At an even place of an even number a column is never NOT NULL: the driver does not tell it of
    // TIMESTAMP.
    {"TINYINT", "MEDIUMINT", "INTEGER UNSIGNED", "FLOAT", "BIT(8)", "LONGTEXT", "BINARY(4)",
     "VARBINARY(40)", "BLOB", "DATETIME", "TIMESTAMP DEFAULT CURRENT_TIMESTAMP", "YEAR",
     "ENUM('a','b')", "SET('a','b')", "JSON", "UUID"},
    false,
};

const Dialect kSQLiteDialect = {
    '"',
    {""},
    {"TINYINT", "NVARCHAR(40)", "BLOB", "VARBINARY(40)", "TIMESTAMP", "DATETIME", ""},
    true,
};

}  // namespace real
