// See name_rules.h. Where a text stands tells its role: the argument of a catalog function, the
// result column of one by its number, that of a statement by its name. A text in a place that
// nobody knows counts as a name, so that what is forgotten here is hidden.
#include "recording/name_rules.h"

#include <sodium.h>
#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "base/ascii.h"
#include "base/letters.h"
#include "base/text.h"
#include "embedded_wbrecording.h"

namespace recording {
namespace {

// So many letters are different for every name that a schema can hold.
constexpr std::size_t kLeastLetters = 12;
// Names arrive cut to so many characters in some places and whole in others: what is left of a cut
// name has to be the beginning of the whole one.
constexpr std::size_t kCutCharacters = 63;

bool IsLetter(char c) { return base::IsLetter(c) || (c & 0x80) != 0 || c == '_'; }
using base::IsDigit;
bool IsWordCharacter(char c) { return IsLetter(c) || IsDigit(c) || c == '$' || c == '#'; }

// UTF-16 units of a text of UTF-8.
std::size_t Units(std::string_view utf8) {
  std::size_t units = 0;
  for (const char c : utf8) {
    const auto byte = static_cast<unsigned char>(c);
    units += (byte & 0xC0) != 0x80 ? 1 : 0;
    units += byte >= 0xF0 ? 1 : 0;
  }
  return units;
}

std::string_view FirstUnits(std::string_view utf8, std::size_t units) {
  std::size_t bytes = 0;
  while (bytes < utf8.size() && Units(utf8.substr(0, bytes + 1)) <= units) ++bytes;
  return utf8.substr(0, bytes);
}

std::unordered_set<std::string> ReadVocabulary() {
  std::unordered_set<std::string> words;
  std::string_view text = kVocabulary;
  while (!text.empty()) {
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    if (line.starts_with('#')) continue;
    while (!line.empty()) {
      const std::size_t end = std::min(line.find(' '), line.size());
      if (end > 0) words.emplace(line.substr(0, end));
      line.remove_prefix(std::min(end + 1, line.size()));
    }
  }
  return words;
}

struct RolesOfFunction {
  std::string_view function;
  std::vector<std::pair<int, Role>> roles;  // of result columns; the others are codes and numbers
};

const std::vector<RolesOfFunction>& CatalogRoles() {
  constexpr Role kName = Role::kName;
  constexpr Role kOwner = Role::kOwner;
  constexpr Role kText = Role::kText;
  constexpr Role kBlank = Role::kBlank;
  static const std::vector<RolesOfFunction> roles = {
      {"SQLTables", {{1, kOwner}, {2, kOwner}, {3, kName}, {5, kBlank}}},
      {"SQLColumns",
       {{1, kOwner}, {2, kOwner}, {3, kName}, {4, kName}, {6, kText}, {12, kBlank}, {13, kBlank}}},
      {"SQLPrimaryKeys", {{1, kOwner}, {2, kOwner}, {3, kName}, {4, kName}, {6, kName}}},
      {"SQLForeignKeys",
       {{1, kOwner},
        {2, kOwner},
        {3, kName},
        {4, kName},
        {5, kOwner},
        {6, kOwner},
        {7, kName},
        {8, kName},
        {12, kName},
        {13, kName}}},
      {"SQLStatistics",
       {{1, kOwner}, {2, kOwner}, {3, kName}, {5, kName}, {6, kName}, {9, kName}, {13, kBlank}}},
      {"SQLProcedures", {{1, kOwner}, {2, kOwner}, {3, Role::kRoutine}, {7, kBlank}}},
      {"SQLGetTypeInfo", {{1, kText}, {13, kText}}},
  };
  return roles;
}

// Result columns of statements, by names that servers' catalogs and the module's own headings give
// them; in lower case.
struct RoleOfColumnName {
  std::string_view name;
  Role role;
};
constexpr std::array kColumnNames = {
    RoleOfColumnName{"owner", Role::kOwner},
    RoleOfColumnName{"tabschema", Role::kOwner},
    RoleOfColumnName{"funcschema", Role::kOwner},
    RoleOfColumnName{"procschema", Role::kOwner},
    RoleOfColumnName{"typeschema", Role::kOwner},
    RoleOfColumnName{"creator", Role::kOwner},
    RoleOfColumnName{"procname", Role::kRoutine},
    RoleOfColumnName{"funcname", Role::kRoutine},
    RoleOfColumnName{"fk_colnames", Role::kText},
    RoleOfColumnName{"pk_colnames", Role::kText},
    RoleOfColumnName{"paramtypes", Role::kText},
    RoleOfColumnName{"data_type", Role::kText},
    RoleOfColumnName{"typename", Role::kText},
    RoleOfColumnName{"type", Role::kText},
    RoleOfColumnName{"base_type", Role::kText},
    RoleOfColumnName{"default", Role::kExpression},
    RoleOfColumnName{"expression", Role::kExpression},
    RoleOfColumnName{"definition", Role::kDefinition},
    RoleOfColumnName{"predicate", Role::kExpression},
    RoleOfColumnName{"check", Role::kExpression},
    RoleOfColumnName{"remarks", Role::kBlank},
    RoleOfColumnName{"comment", Role::kBlank},
    RoleOfColumnName{"comments", Role::kBlank},
    RoleOfColumnName{"description", Role::kBlank},
    RoleOfColumnName{"text", Role::kBlank},
};

// Words that a literal in parentheses may follow, so that it is not the size of a type.
constexpr std::array<std::string_view, 11> kBeforeLiterals = {
    "and", "as", "between", "check", "default", "in", "like", "not", "or", "then", "values"};

// Whether the number at the place is the size of a type: alone in parentheses, or with others,
// right behind a word.
bool IsSize(std::string_view text, std::size_t at) {
  constexpr std::string_view kInside = "0123456789, ";
  const std::size_t open = text.substr(0, at).find_last_not_of(kInside);
  const std::size_t close = text.find_first_not_of(kInside, at);
  if (open == std::string_view::npos || text[open] != '(' || close == std::string_view::npos ||
      text[close] != ')')
    return false;
  const std::string_view before = base::TrimSpace(text.substr(0, open));
  std::size_t begin = before.size();
  while (begin > 0 && IsWordCharacter(before[begin - 1])) --begin;
  const std::string word = base::LowerAscii(before.substr(begin));
  return !word.empty() &&
         std::find(kBeforeLiterals.begin(), kBeforeLiterals.end(), word) == kBeforeLiterals.end();
}

// Owners and catalogs of servers' own objects, in lower case.
constexpr std::array<std::string_view, 12> kSystemOwners = {
    "informix",   "sys",     "system",
    "sysibm",     "syscat",  "sysfun",
    "sysproc",    "sysstat", "information_schema",
    "pg_catalog", "mysql",   "performance_schema"};

bool IsSystemOwner(std::string_view owner) {
  const std::string lower = base::LowerAscii(owner.substr(0, owner.find_last_not_of(' ') + 1));
  return std::find(kSystemOwners.begin(), kSystemOwners.end(), lower) != kSystemOwners.end();
}

Role RoleOfName(std::string_view column) {
  const std::string lower = base::LowerAscii(column);
  const auto* const known =
      std::find_if(kColumnNames.begin(), kColumnNames.end(),
                   [&lower](const RoleOfColumnName& row) { return row.name == lower; });
  return known != kColumnNames.end() ? known->role : Role::kName;
}

// Columns of headings that hold words of a few, or what gives the schema its shape.
constexpr std::array<std::string_view, 18> kShapeColumns = {
    "category",  "cycle",     "deferrable",     "events", "generated", "identity",
    "kind",      "language",  "match",          "method", "mode",      "of",
    "on_delete", "on_update", "operator_class", "sample", "timing",    "version"};

// The roles of the cells that a heading names: `table_id, kind, name, default, option:engine`. What
// is packed, `position|nullable`, are numbers and single letters.
std::vector<Role> RolesOfHeading(std::string_view heading) {
  std::vector<Role> roles;
  while (!heading.empty()) {
    const std::size_t end = std::min(heading.find(", "), heading.size());
    const std::string_view column = heading.substr(0, end);
    heading.remove_prefix(std::min(end + 2, heading.size()));
    const bool shape =
        column.find('|') != std::string_view::npos ||
        std::find(kShapeColumns.begin(), kShapeColumns.end(), column) != kShapeColumns.end();
    roles.push_back(shape                           ? Role::kPlain
                    : column.starts_with("option:") ? Role::kText
                    : column == "schema"            ? Role::kOwner
                                                    : RoleOfName(column));
  }
  return roles;
}

}  // namespace

struct NameRules::State {
  std::array<unsigned char, crypto_generichash_KEYBYTES> key;
  const std::unordered_set<std::string> vocabulary = ReadVocabulary();

  // Roles of the result columns of a statement, from column 1; what stands beyond is a name, or
  // nothing special in a catalog function's result.
  struct Columns {
    std::vector<Role> roles;
    Role others = Role::kName;
    bool of_server = false;  // the question named an owner of the server's own objects
    // A statement with a heading takes names by parameters, or as quoted names where the server has
    // no parameters: its literals are its own.
    bool own_literals = false;
  };
  std::unordered_map<std::uint32_t, Columns> statements;
  std::string_view function;  // of the call in hand
  std::uint32_t statement = 0;
  std::int64_t number = 0;  // of the information, attribute or column that it is about
  bool in_rows = false;
  bool of_server = false;  // the call or the row is about the server's own objects
  std::string result;

  State() {
    if (sodium_init() < 0) throw std::runtime_error("no random numbers can be had");
    crypto_generichash_keygen(key.data());
  }

  // Words that say nothing of a schema; texts of several of them, too.
  bool IsPublic(std::string_view text) const {
    while (true) {
      const std::size_t end = std::min(text.find(' '), text.size());
      if (end > 0 && !vocabulary.contains(base::LowerAscii(text.substr(0, end)))) return false;
      if (end == text.size()) return true;
      text.remove_prefix(end + 1);
    }
  }

  bool IsCatalogFunction() const {
    const auto known = statements.find(statement);
    return known != statements.end() && known->second.others == Role::kPlain;
  }

  // So many letters that only this recording has for the name. Upper and lower case make no
  // difference: servers that ignore it go on finding the name.
  std::string Letters(std::string_view name, std::size_t count) const {
    const std::string lower = base::LowerAscii(name);
    std::string letters;
    for (unsigned char round = 0; letters.size() < count; ++round) {
      std::string input(1, static_cast<char>(round));
      input += lower;
      std::array<unsigned char, crypto_generichash_BYTES> hash{};
      crypto_generichash(hash.data(), hash.size(),
                         reinterpret_cast<const unsigned char*>(input.data()), input.size(),
                         key.data(), key.size());
      for (const unsigned char byte : hash) letters += static_cast<char>('a' + byte % 26);
    }
    letters.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
      const char original = name[std::min(i, name.size() - 1)];
      if (base::IsUpper(original)) letters[i] = base::UpperAscii(letters[i]);
    }
    return letters;
  }

  // The keyed hash of a name, as long as the name where that is long enough.
  std::string Hash(std::string_view name) const {
    const std::size_t units = Units(name);
    if (units <= kCutCharacters) return Letters(name, std::max(units, kLeastLetters));
    return Letters(FirstUnits(name, kCutCharacters), kCutCharacters) +
           Letters(name, units - kCutCharacters);
  }

  // A whole name; what has commas or parentheses is a list or a type rather than a name. The blanks
  // that fill up a column of fixed width stay in number.
  void AppendName(std::string_view text, std::string& out) const {
    const std::size_t end = text.find_last_not_of(' ') + 1;
    const std::string_view name = text.substr(0, end);
    if (std::none_of(name.begin(), name.end(), IsLetter) || IsPublic(name)) {
      out += text;
    } else if (name.find_first_of(",()") != std::string_view::npos) {
      AppendText(Role::kText, text, out);
    } else {
      const std::string hash = Hash(name);
      out += hash;
      const std::size_t width = Units(text);
      if (end < text.size() && width > hash.size()) out.append(width - hash.size(), ' ');
    }
  }

  void AppendSql(std::string_view sql, std::string& out) const;
  void AppendText(Role role, std::string_view text, std::string& out) const;
  std::size_t AppendQuoted(std::string_view text, bool blank, std::string& out) const;
};

// A text in quotes at the beginning of `text`; a doubled quote stands for one inside. Returns what
// it took.
std::size_t NameRules::State::AppendQuoted(std::string_view text, bool blank,
                                           std::string& out) const {
  const char open = text[0];
  const char close = open == '[' ? ']' : open;
  std::string inside;
  std::size_t at = 1;
  for (; at < text.size(); ++at) {
    if (text[at] == close) {
      if (at + 1 >= text.size() || text[at + 1] != close) break;
      ++at;
    }
    inside += text[at];
  }
  std::string hidden;
  if (!blank) AppendName(inside, hidden);
  out += open;
  for (const char c : hidden) {
    out += c;
    if (c == close) out += c;
  }
  if (at < text.size()) out += close;
  return std::min(at + 1, text.size());
}

// In the module's own statements everything outside of quotes is its own, but for names of remote
// databases and links: `database@server:owner.table`, `table@link`.
void NameRules::State::AppendSql(std::string_view sql, std::string& out) const {
  const auto known = statements.find(statement);
  const bool own_literals = known != statements.end() && known->second.own_literals;
  char before = ' ';
  for (std::size_t at = 0; at < sql.size();) {
    const char c = sql[at];
    if (c == '\'' && own_literals) {
      const std::size_t end = std::min(sql.find('\'', at + 1), sql.size() - 1) + 1;
      out += sql.substr(at, end - at);
      at = end;
      before = c;
      continue;
    }
    if (c == '\'' || c == '"' || c == '`') {
      at += AppendQuoted(sql.substr(at), false, out);
      before = c;
      continue;
    }
    if (!IsLetter(c)) {
      out += c;
      before = c == ':' && before == ':' ? ' ' : c;
      ++at;
      continue;
    }
    std::size_t end = at;
    while (end < sql.size() && IsWordCharacter(sql[end])) ++end;
    const std::string_view word = sql.substr(at, end - at);
    const char next = end < sql.size() ? sql[end] : ' ';
    const bool cast = next == ':' && end + 1 < sql.size() && sql[end + 1] == ':';
    if (before == '@' || next == '@' || (next == ':' && !cast)) {
      AppendName(word, out);
    } else {
      out += word;
    }
    before = ' ';
    at = end;
  }
}

// A definition of the server's: names in quotes and plain ones are hidden, literals and remarks go.
// `role` tells which numbers go.
void NameRules::State::AppendText(Role role, std::string_view text, std::string& out) const {
  for (std::size_t at = 0; at < text.size();) {
    const char c = text[at];
    const std::string_view rest = text.substr(at);
    if (c == '\'') {
      at += AppendQuoted(rest, true, out);
    } else if (c == '"' || c == '`') {
      at += AppendQuoted(rest, false, out);
    } else if (rest.starts_with("--")) {
      at += std::min(rest.find('\n'), rest.size());
    } else if (rest.starts_with("/*")) {
      const std::size_t end = rest.find("*/", 2);
      at += end == std::string_view::npos ? rest.size() : end + 2;
    } else if (IsLetter(c)) {
      std::size_t end = at;
      while (end < text.size() && IsWordCharacter(text[end])) ++end;
      const std::size_t length = out.size();
      AppendName(text.substr(at, end - at), out);
      // Lists of names in pieces of one width keep it.
      std::size_t longer = out.size() - length - std::min(out.size() - length, end - at);
      while (longer > 0 && end + 1 < text.size() && text[end] == ' ' && text[end + 1] == ' ') {
        ++end;
        --longer;
      }
      at = end;
    } else if (IsDigit(c) && role != Role::kText) {
      const bool stays = role == Role::kDefinition && IsSize(text, at);
      for (; at < text.size() && (IsWordCharacter(text[at]) || text[at] == '.'); ++at)
        out += stays || text[at] == '.' ? text[at] : '0';
    } else {
      out += c;
      ++at;
    }
  }
}

NameRules::NameRules() : state_(std::make_unique<State>()) {}
NameRules::~NameRules() = default;

void NameRules::BeginCall(std::string_view function, std::uint32_t statement) {
  state_->function = function;
  state_->statement = statement;
  state_->number = 0;
  state_->of_server = false;
  state_->in_rows = false;
  const auto& catalog = CatalogRoles();
  const auto known = std::find_if(catalog.begin(), catalog.end(),
                                  [&](const auto& row) { return row.function == function; });
  if (known != catalog.end()) {
    State::Columns& columns = state_->statements[statement];
    columns = {{}, Role::kPlain};
    for (const auto& [column, role] : known->roles) {
      columns.roles.resize(static_cast<std::size_t>(column), Role::kPlain);
      columns.roles.back() = role;
    }
  } else if (function == "SQLExecDirect" || function == "SQLPrepare") {
    state_->statements[statement] = {};
  }
}

void NameRules::NoteNumber(std::string_view field, std::int64_t number) {
  if (field == "info" || field == "attribute" || field == "column") state_->number = number;
  if (field == "option" && number == SQL_DROP && state_->function == "SQLFreeStmt")
    state_->statements.erase(state_->statement);
}

void NameRules::NoteText(std::string_view field, std::string_view text) {
  if (field == "heading") {
    state_->statements[state_->statement] = {RolesOfHeading(text), Role::kName, false, true};
    return;
  }
  if (state_->function != "SQLDescribeCol" || field != "name" || state_->number < 1) return;
  State::Columns& columns = state_->statements[state_->statement];
  if (columns.others == Role::kPlain) return;
  const auto place = static_cast<std::size_t>(state_->number) - 1;
  if (columns.roles.size() <= place) columns.roles.resize(place + 1, Role::kName);
  columns.roles[place] = RoleOfName(text);
}

void NameRules::BeginRow() {
  state_->in_rows = true;
  const auto known = state_->statements.find(state_->statement);
  state_->of_server = known != state_->statements.end() && known->second.of_server;
}

void NameRules::SeeOwner(std::string_view owner) {
  state_->of_server = state_->of_server || IsSystemOwner(owner);
}

Role NameRules::RoleOfField(std::string_view field) const {
  if (field == "sql") return Role::kSql;
  if (field == "owner" || field == "catalog") return Role::kOwner;
  if (field == "heading" || field == "types" || field == "name" || field == "kind" ||
      field == "reading")
    return Role::kPlain;
  if (field != "text") return Role::kName;
  const bool names = state_->function == "SQLGetInfo" ? state_->number == SQL_DATABASE_NAME
                                                      : state_->number == SQL_ATTR_CURRENT_CATALOG;
  return names ? Role::kName : Role::kPlain;
}

Role NameRules::RoleOfCell(int column) const {
  const auto known = state_->statements.find(state_->statement);
  if (known == state_->statements.end()) return Role::kName;
  const State::Columns& columns = known->second;
  const auto place = static_cast<std::size_t>(column) - 1;
  return place < columns.roles.size() ? columns.roles[place] : columns.others;
}

Role NameRules::RoleOfPiece() const { return RoleOfCell(static_cast<int>(state_->number)); }

std::string_view NameRules::Apply(Role role, std::string_view text) {
  std::string& result = state_->result;
  result.clear();
  switch (role) {
    case Role::kPlain:
      return text;
    case Role::kOwner:
      SeeOwner(text);
      if (state_->of_server && !state_->in_rows && state_->IsCatalogFunction())
        state_->statements[state_->statement].of_server = true;
      state_->AppendName(text, result);
      break;
    case Role::kName:
    case Role::kRoutine:
      // The names of tables are asked for again, in statements that do not tell whose they are.
      if (state_->of_server && (role == Role::kRoutine || state_->IsCatalogFunction())) return text;
      state_->AppendName(text, result);
      break;
    case Role::kSql:
      state_->AppendSql(text, result);
      break;
    case Role::kText:
    case Role::kDefinition:
    case Role::kExpression:
      state_->AppendText(role, text, result);
      break;
    case Role::kBlank:
      break;
  }
  return result;
}

}  // namespace recording
