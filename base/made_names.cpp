// How each product names what nobody named.
#include "base/made_names.h"

#include <algorithm>
#include <array>

#include "base/ascii.h"

namespace base {

namespace {

struct ProductName {
  const char* part;  // of the name that the driver gives, in small letters
  Product product;
};
constexpr std::array kProducts = {
    ProductName{"postgres", Product::kPostgreSQL},
    ProductName{"mariadb", Product::kMySQL},
    ProductName{"mysql", Product::kMySQL},
    ProductName{"sqlite", Product::kSQLite},
    ProductName{"oracle", Product::kOracle},
    ProductName{"microsoft sql server", Product::kSQLServer},
    ProductName{"sybase", Product::kSybase},
    ProductName{"adaptive server", Product::kSybase},
    ProductName{"db2", Product::kDB2},
    ProductName{"informix", Product::kInformix},
    ProductName{"firebird", Product::kFirebird},
};

// The form of made names: `#` stands for digits, `&` for hexadecimal ones, `*` for anything, `%`
// for the table's name.
struct Form {
  Product product;
  const char* pattern;
};
constexpr std::array kForms = {
    // Constraints are numbered through the whole database, the sequences of identity columns and
    // the indexes of large objects by the number of their table.
    Form{Product::kOracle, "sys_c#"},
    Form{Product::kOracle, "sys_nc#$$"},
    Form{Product::kOracle, "sys_il#c#$$"},
    Form{Product::kOracle, "iseq$$_#"},
    // Numbers that count up each time such a constraint is made.
    Form{Product::kMySQL, "%_ibfk_#"},
    Form{Product::kMySQL, "%_chk_#"},
    Form{Product::kMySQL, "constraint_#"},
    Form{Product::kMySQL, "primary"},
    // By place in the CREATE statement.
    Form{Product::kSQLite, "sqlite_autoindex_*_#"},
    // The first letters of table and column, then a number of the object.
    Form{Product::kSQLServer, "pk__*__&"},
    Form{Product::kSQLServer, "fk__*__&"},
    Form{Product::kSQLServer, "uq__*__&"},
    Form{Product::kSQLServer, "ck__*__&"},
    Form{Product::kSybase, "%_#"},
    // The time at which it was made.
    Form{Product::kDB2, "sql#"},
    // Number of the table, number of the constraint.
    Form{Product::kInformix, "u#_#"},
    Form{Product::kInformix, "r#_#"},
    Form{Product::kInformix, "c#_#"},
    Form{Product::kInformix, " #_#"},
    Form{Product::kFirebird, "integ_#"},
    Form{Product::kFirebird, "rdb$#"},
    Form{Product::kFirebird, "rdb$primary#"},
    Form{Product::kFirebird, "rdb$foreign#"},
};

bool IsDigit(char c, bool hexadecimal) {
  return (c >= '0' && c <= '9') || (hexadecimal && c >= 'a' && c <= 'f');
}

bool Fits(std::string_view pattern, std::string_view name, std::string_view table) {
  if (pattern.empty()) return name.empty();
  const std::string_view rest = pattern.substr(1);
  switch (pattern[0]) {
    case '%':
      return name.substr(0, table.size()) == table && Fits(rest, name.substr(table.size()), table);
    case '*':
      for (std::size_t at = 0; at <= name.size(); ++at) {
        if (Fits(rest, name.substr(at), table)) return true;
      }
      return false;
    case '#':
    case '&':
      for (std::size_t at = 0; at < name.size() && IsDigit(name[at], pattern[0] == '&'); ++at) {
        if (Fits(rest, name.substr(at + 1), table)) return true;
      }
      return false;
    default:
      return !name.empty() && name[0] == pattern[0] && Fits(rest, name.substr(1), table);
  }
}

// PostgreSQL makes names of table, columns and an ending, both cut until they fit into 63 bytes,
// and appends a number where the name is taken.
struct Ending {
  NamedKind kind;
  const char* ending;
};
constexpr std::array kEndings = {
    Ending{NamedKind::kPrimaryKey, "_pkey"}, Ending{NamedKind::kUniqueKey, "_key"},
    Ending{NamedKind::kForeignKey, "_fkey"}, Ending{NamedKind::kIndex, "_idx"},
    Ending{NamedKind::kCheck, "_check"},     Ending{NamedKind::kCheck, "_excl"},
    Ending{NamedKind::kSequence, "_seq"},
};

bool IsMadeOf(const std::string& name, const std::string& table,
              const std::vector<std::string>& columns, const std::string& ending) {
  constexpr std::size_t kLongest = 63;
  std::size_t digits = 0;
  while (digits < name.size() && name[name.size() - 1 - digits] >= '0' &&
         name[name.size() - 1 - digits] <= '9') {
    ++digits;
  }
  std::string second;
  for (const std::string& column : columns) {
    if (!second.empty()) second += '_';
    second += column;
  }
  // The number counts as part of the ending where the rest is cut.
  for (const std::size_t with : {std::size_t{0}, digits}) {
    const std::string whole = ending + name.substr(name.size() - with);
    std::string a = table;
    std::string b = second;
    const std::size_t room = kLongest - std::min(kLongest, whole.size() + (b.empty() ? 0 : 1));
    while (a.size() + b.size() > room) (a.size() > b.size() ? a : b).pop_back();
    if (!b.empty()) a += '_';
    if (name == a.append(b).append(whole)) return true;
  }
  return false;
}

bool IsMadeByPostgreSQL(NamedKind kind, const std::string& name, const std::string& table,
                        const std::vector<std::string>& columns) {
  for (const Ending& row : kEndings) {
    if (row.kind != kind) continue;
    if (kind == NamedKind::kPrimaryKey || kind == NamedKind::kCheck) {
      if (IsMadeOf(name, table, {}, row.ending)) return true;
      if (kind == NamedKind::kPrimaryKey) continue;
      // A check of one column has it in its name; which one is not told.
      const bool of_one = std::any_of(columns.begin(), columns.end(), [&](const auto& column) {
        return IsMadeOf(name, table, {column}, row.ending);
      });
      if (of_one) return true;
    } else if (IsMadeOf(name, table, columns, row.ending)) {
      return true;
    }
  }
  return false;
}

}  // namespace

Product FindProduct(std::string_view dbms_name) {
  const std::string name = LowerAscii(dbms_name);
  for (const ProductName& row : kProducts) {
    if (name.find(row.part) != std::string::npos) return row.product;
  }
  return Product::kOther;
}

bool IsMadeName(Product product, NamedKind kind, const std::string& name, const std::string& table,
                const std::vector<std::string>& columns) {
  if (name.empty()) return true;
  if (product == Product::kPostgreSQL) return IsMadeByPostgreSQL(kind, name, table, columns);
  const std::string lower = LowerAscii(std::string_view(name));
  const std::string of = LowerAscii(std::string_view(table));
  return std::any_of(kForms.begin(), kForms.end(), [&](const Form& form) {
    return form.product == product && Fits(form.pattern, lower, of);
  });
}

}  // namespace base
