// The reader of dialect files.
#include "routes/exact/dialect.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "base/utf.h"
#include "routes/exact/sql_text.h"
#include "routes/exact/type_kinds.h"

namespace odbcimport::exact {
namespace {

constexpr std::string_view kBlanks = " \t\r";

// The trimmed parts of a text between commas, or whatever parts them; none of an empty text.
std::vector<std::string_view> List(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  int depth = 0;
  std::size_t begin = 0;
  for (std::size_t i = 0; i <= text.size(); ++i) {
    const char c = i < text.size() ? text[i] : separator;
    if (c == '{') ++depth;
    if (c == '}') --depth;
    if (c != separator || (depth > 0 && i < text.size())) continue;
    parts.push_back(base::TrimSpace(text.substr(begin, i - begin)));
    begin = i + 1;
  }
  if (parts.size() == 1 && parts.front().empty()) parts.clear();
  return parts;
}

char LowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::string_view TakeWord(std::string_view& text) {
  text = base::TrimSpace(text);
  const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
  text.remove_prefix(word.size());
  return word;
}

bool IsLineComment(std::string_view line) { return line.starts_with("--"); }

// The words that a statement of the head may begin with.
bool BeginsWith(std::string_view sql, std::initializer_list<std::string_view> words) {
  const std::vector<std::string> own = WordsOf(sql);
  return !own.empty() && std::find(words.begin(), words.end(), own.front()) != words.end();
}

// `begin` may be several statements; each is one of transactions.
bool IsOfTransactions(std::string_view sql) {
  for (std::size_t at = 0; at <= sql.size();) {
    const std::size_t end = FindStatementEnd(sql, at);
    const bool plain = BeginsWith(
        sql.substr(at, end - at),
        {"SAVEPOINT", "SAVE", "ROLLBACK", "RELEASE", "BEGIN", "START", "SET", "COMMIT", "END"});
    if (!plain) return false;
    at = end + 1;
  }
  return true;
}

class FileReader {
 public:
  FileReader(std::string_view file, Dialect& dialect) : file_(file), dialect_(dialect) {}

  void ReadHead() {
    while (!AtEnd() && !IsSection(base::TrimSpace(PeekLine()))) ReadHeadLine();
  }

  std::vector<DialectProblem> Run() {
    ReadHead();
    while (!AtEnd()) ReadSection();
    CheckWhole();
    return std::move(problems_);
  }

 private:
  bool AtEnd() const { return at_ >= file_.size(); }

  std::string_view PeekLine() const {
    return file_.substr(at_, file_.find('\n', at_) == std::string_view::npos
                                 ? std::string_view::npos
                                 : file_.find('\n', at_) - at_);
  }
  void NextLine() {
    const std::size_t end = file_.find('\n', at_);
    at_ = end == std::string_view::npos ? file_.size() : end + 1;
    ++line_;
  }
  static bool IsSection(std::string_view line) {
    return IsLineComment(line) && base::TrimSpace(line.substr(2)).starts_with('@');
  }
  void Complain(int line, std::string text) { problems_.push_back({line, std::move(text)}); }

  void ReadHeadLine() {
    const std::string_view line = base::TrimSpace(PeekLine());
    if (!line.empty() && !IsLineComment(line)) {
      Complain(line_, "a statement stands before the first section");
    } else if (const std::size_t colon = line.find(':'); colon != std::string_view::npos) {
      SetHead(base::TrimSpace(line.substr(2, colon - 2)), base::TrimSpace(line.substr(colon + 1)));
    }
    NextLine();
  }

  // A line with another name is a comment for people.
  void SetHead(std::string_view name, std::string_view value) {
    if (name == "dialect") {
      dialect_.name = value;
    } else if (name == "product") {
      for (const std::string_view product : List(value, ',')) {
        dialect_.products.emplace_back(product);
      }
    } else if (name == "version") {
      dialect_.first_version = Version(value);
      if (!dialect_.first_version->IsKnown()) Complain(line_, "a version begins with a number");
    } else if (name == "owners") {
      dialect_.owners = Choose(value, "yes", "no");
    } else if (name == "schemas") {
      dialect_.each_schema = !Choose(value, "all", "each");
    } else if (name == "names") {
      dialect_.ignores_case = !Choose(value, "exact", "ignore case");
    } else if (name == "quote") {
      SetQuote(value);
    } else if (name == "escape") {
      dialect_.backslash_escapes = Choose(value, "\\", "no");
    } else if (name == "unwritten action") {
      dialect_.unwritten_action = value;
    } else if (name == "list limit") {
      dialect_.list_limit = ReadNumber(value);
    } else if (name == "statements") {
      SetStatements(value);
    } else if (name == "type") {
      SetTypes(value);
    } else {
      SetTransaction(name, value);
    }
  }

  bool Choose(std::string_view value, std::string_view yes, std::string_view no) {
    if (value != yes && value != no) {
      Complain(line_, std::string(yes) + " or " + std::string(no) + " is expected, not " +
                          std::string(value));
    }
    return value == yes;
  }

  std::size_t ReadNumber(std::string_view value) {
    constexpr std::size_t kMostDigits = 9;
    std::size_t number = 0;
    const bool good = !value.empty() && value.size() <= kMostDigits &&
                      value.find_first_not_of("0123456789") == std::string_view::npos;
    if (!good) {
      Complain(line_, "a number is expected, not " + std::string(value));
      return 0;
    }
    for (const char c : value) number = number * 10 + static_cast<std::size_t>(c - '0');
    return number;
  }

  void SetQuote(std::string_view value) {
    if (value.empty() || value.size() > 2) {
      Complain(line_, "a quote is one character, or an opening and a closing one");
      return;
    }
    dialect_.quotes = {std::string(value.substr(0, 1)),
                       std::string(value.substr(value.size() - 1))};
  }

  void SetStatements(std::string_view value) {
    for (const std::string_view word : List(value, ',')) {
      if (word != "PRAGMA" && word != "SHOW" && word != "DESCRIBE") {
        Complain(line_, "PRAGMA, SHOW and DESCRIBE can be allowed, not " + std::string(word));
      } else {
        dialect_.first_words.emplace_back(word);
      }
    }
  }

  void SetTypes(std::string_view value) {
    const std::size_t equals = value.find('=');
    const std::string_view kind = base::TrimSpace(value.substr(0, equals));
    if (equals == std::string_view::npos || FindTypeKind(kind) == nullptr) {
      Complain(line_, "there is no kind of type " + std::string(kind));
      return;
    }
    for (const std::string_view pattern : List(value.substr(equals + 1), ',')) {
      dialect_.types.push_back({std::string(kind), std::string(pattern)});
    }
  }

  void SetTransaction(std::string_view name, std::string_view value) {
    struct Line {
      std::string_view name;
      std::string Dialect::*text;
      std::initializer_list<std::string_view> words;
    };
    static const std::array<Line, 5> kLines = {{
        {"savepoint", &Dialect::savepoint, {"SAVEPOINT", "SAVE"}},
        {"undo", &Dialect::undo, {"ROLLBACK"}},
        {"release", &Dialect::release, {"RELEASE"}},
        {"begin", &Dialect::begin, {"BEGIN", "START", "SET"}},
        {"end", &Dialect::end, {"COMMIT", "END", "ROLLBACK"}},
    }};
    for (const Line& line : kLines) {
      if (line.name != name) continue;
      dialect_.*line.text = value;
      if (!BeginsWith(value, line.words) || !IsOfTransactions(value)) {
        Complain(line_, std::string(name) + " is a statement of transactions");
      }
    }
  }

  void ReadSection() {
    const std::string_view heading = base::TrimSpace(PeekLine());
    if (!IsSection(heading)) {
      if (!heading.empty() && !IsLineComment(heading)) {
        Complain(line_, "what follows the first ; of a section belongs to none");
      }
      NextLine();
      return;
    }
    Section section;
    section.line = line_;
    section_line_ = line_;
    const bool known = ReadSectionLine(base::TrimSpace(heading.substr(2)).substr(1), section);
    NextLine();
    std::string row;
    while (!AtEnd() &&
           (base::TrimSpace(PeekLine()).empty() || IsLineComment(base::TrimSpace(PeekLine()))) &&
           !IsSection(base::TrimSpace(PeekLine()))) {
      const std::string_view line = base::TrimSpace(PeekLine());
      const std::string_view comment = line.empty() ? line : base::TrimSpace(line.substr(2));
      if (comment.starts_with("row:")) row.append(comment.substr(4)).append(" ");
      NextLine();
    }
    ReadHeading(row, section);
    ReadStatement(section);
    if (known) {
      CheckHeading(section);
      dialect_.sections.push_back(std::move(section));
    }
  }

  // The words behind the @.
  bool ReadSectionLine(std::string_view text, Section& section) {
    const std::string_view name = TakeWord(text);
    section_ = "@" + std::string(name);
    const std::optional<Kind> kind = FindKind(name);
    if (!kind) {
      Complain(line_, "there is no kind " + section_);
    } else {
      section.kind = *kind;
    }
    for (std::string_view word = TakeWord(text); !word.empty(); word = TakeWord(text)) {
      if (word == "since" || word == "before") {
        const Version bound(TakeWord(text));
        if (!bound.IsKnown()) Complain(line_, std::string(word) + " needs a version");
        (word == "since" ? section.bounds.since : section.bounds.before) = bound;
      } else if (word == "fallback") {
        section.fallback = true;
      } else if (word == "for") {
        ReadEach(text, section);
      } else {
        Complain(line_, "what is " + std::string(word) + " behind @" + std::string(name) + "?");
      }
    }
    return kind.has_value();
  }

  void ReadEach(std::string_view& text, Section& section) {
    const std::string_view each = TakeWord(text);
    if (each != "each" || base::TrimSpace(text).empty()) {
      Complain(line_,
               "a section is `for each table`, `view`, `sequence`, or another kind of tables");
      return;
    }
    section.each = base::TrimSpace(text);
    text = {};
  }

  void ReadHeading(std::string_view text, Section& section) {
    for (const std::string_view cell : List(text, ',')) {
      if (cell.empty()) continue;  // behind the last comma
      HeadingCell slots;
      std::u16string& names = section.heading_text;
      if (!names.empty()) names += u", ";
      for (const std::string_view slot : List(cell, '|')) {
        if (!slots.empty()) names += u'|';
        names += base::ToUtf16(base::TrimSpace(slot.substr(0, slot.find('{'))));
        slots.push_back(ReadSlot(slot));
      }
      section.heading.push_back(std::move(slots));
    }
  }

  Slot ReadSlot(std::string_view text) {
    Slot slot;
    const std::size_t open = text.find('{');
    const std::string_view name = base::TrimSpace(text.substr(0, open));
    if (open != std::string_view::npos) ReadValues(text.substr(open + 1), slot);
    constexpr std::string_view kOption = "option:";
    if (name.starts_with(kOption)) {
      slot.option = base::TrimSpace(name.substr(kOption.size()));
      if (slot.option.empty()) Complain(section_line_, section_ + ": option: needs a name");
    } else if (name != "-") {
      slot.field = FindField(name);
      if (!slot.field) {
        Complain(section_line_, section_ + ": there is no column " + std::string(name));
      }
    }
    return slot;
  }

  void ReadValues(std::string_view text, Slot& slot) {
    if (!text.ends_with('}')) {
      Complain(section_line_, section_ + ": a } is missing behind " + std::string(text));
      return;
    }
    for (const std::string_view value : List(text.substr(0, text.size() - 1), ',')) {
      const std::size_t equals = value.find('=');
      if (equals == std::string_view::npos) {
        Complain(section_line_,
                 section_ + ": between { and } stands what=meaning, not " + std::string(value));
        continue;
      }
      slot.values.emplace_back(base::TrimSpace(value.substr(0, equals)),
                               base::TrimSpace(value.substr(equals + 1)));
    }
  }

  void ReadStatement(Section& section) {
    const std::size_t begin = at_;
    const int first_line = line_;
    // A statement that is not closed ends where the next section begins.
    std::size_t next = begin;
    while (!AtEnd() && !IsSection(base::TrimSpace(PeekLine()))) NextLine();
    next = at_;
    const std::string_view text = file_.substr(begin, next - begin);
    const std::size_t end = FindStatementEnd(text, 0);
    const std::string_view sql = text.substr(0, end);
    if (end < text.size()) {
      at_ = begin + end + 1;
      line_ = first_line + static_cast<int>(std::count(sql.begin(), sql.end(), '\n'));
      if (base::TrimSpace(PeekLine()).empty()) NextLine();
    }
    std::string why = WhyNotReading(sql, dialect_.first_words);
    std::size_t where = 0;
    if (!why.empty()) {
      Complain(section.line, section_ + ": " + why);
    } else if (!section.statement.Parse(sql, why, where)) {
      const std::string_view before = sql.substr(0, where);
      Complain(first_line + static_cast<int>(std::count(before.begin(), before.end(), '\n')),
               section_ + ": " + why);
    } else if (section.statement.UsesNames() && !dialect_.quotes.IsKnown()) {
      Complain(section.line, section_ + ": ?name() needs a `quote` in the head");
    } else if (why = WhyNotReading(FillMarks(section.statement), dialect_.first_words);
               !why.empty()) {
      Complain(section.line, section_ + ", with its marks filled in: " + why);
    }
  }

  // The statement where every condition holds. What else marks make is looked at before it is sent.
  std::string FillMarks(const StatementText& statement) const {
    MarkValues all;
    all.system = all.by_ids = all.by_types = all.has_schema = all.has_table = true;
    all.owners = all.table_owners = all.table_names = {"a"};
    all.table_ids = all.type_ids = all.type_modifiers = {"1"};
    all.schema = all.table_schema = all.table_name = "a";
    all.version = Version("999999");
    return statement.Fill(all, dialect_.quotes, 0).text;
  }

  void CheckHeading(const Section& section) {
    // Where each schema is asked for itself, the schema in hand is meant.
    const bool owners =
        dialect_.owners && (!dialect_.each_schema || section.kind == Kind::kSchemas);
    const RowShape shape = ShapeOf(section.kind, owners);
    if (section.heading.empty())
      Complain(section.line, section_ + ": the heading is missing: -- row: ...");
    std::vector<Field> there;
    for (const HeadingCell& cell : section.heading) {
      for (const Slot& slot : cell) CheckSlot(section, shape, slot, there);
    }
    for (const RowShape::Need& need : shape.needs) {
      const auto is_there = [&](Field field) {
        return std::find(there.begin(), there.end(), field) != there.end();
      };
      const bool met =
          std::any_of(need.alternatives.begin(), need.alternatives.end(),
                      [&](const RowShape::Alternative& alternative) {
                        return std::all_of(alternative.begin(), alternative.end(), is_there);
                      });
      if (!met) {
        Complain(section.line,
                 "@" + std::string(NameOf(section.kind)) + " lacks " + Describe(need));
      }
    }
  }

  void CheckSlot(const Section& section, const RowShape& shape, const Slot& slot,
                 std::vector<Field>& there) {
    const std::string kind = "@" + std::string(NameOf(section.kind));
    if (!slot.option.empty() && !shape.options && !shape.any) {
      Complain(section.line, kind + " has no option:" + slot.option);
    }
    if (!slot.field || shape.any) return;
    const std::string name(NameOf(*slot.field));
    if (!shape.Has(*slot.field)) {
      Complain(section.line, kind + " has no column " + name);
    } else if (std::find(there.begin(), there.end(), *slot.field) != there.end()) {
      Complain(section.line, kind + ": the column " + name + " is there twice");
    }
    there.push_back(*slot.field);
  }

  void CheckWhole() {
    constexpr int kWholeFile = 1;
    if (dialect_.name.empty()) Complain(kWholeFile, "the head has no `dialect`");
    if (dialect_.products.empty()) Complain(kWholeFile, "the head has no `product`");
    for (const Kind kind : {Kind::kTables, Kind::kColumns}) {
      const bool there =
          std::any_of(dialect_.sections.begin(), dialect_.sections.end(),
                      [kind](const Section& section) { return section.kind == kind; });
      if (!there) Complain(kWholeFile, "there is no section @" + std::string(NameOf(kind)));
    }
    const bool half = dialect_.savepoint.empty() != dialect_.undo.empty() ||
                      dialect_.begin.empty() != dialect_.end.empty();
    if (half) Complain(kWholeFile, "`savepoint` goes with `undo`, `begin` with `end`");
  }

  std::string_view file_;
  Dialect& dialect_;
  std::size_t at_ = 0;
  int line_ = 1;
  int section_line_ = 1;
  std::string section_;  // @ and the kind of the section in hand
  std::vector<DialectProblem> problems_;
};

}  // namespace

bool MatchesPattern(std::string_view pattern, std::string_view text) {
  std::size_t in_pattern = 0;
  std::size_t in_text = 0;
  std::size_t star = std::string_view::npos;
  std::size_t behind_star = 0;  // where the text that the star stands for ends
  while (in_text < text.size()) {
    if (in_pattern < pattern.size() && pattern[in_pattern] == '*') {
      star = in_pattern++;
      behind_star = in_text;
    } else if (in_pattern < pattern.size() &&
               LowerCase(pattern[in_pattern]) == LowerCase(text[in_text])) {
      ++in_pattern;
      ++in_text;
    } else if (star != std::string_view::npos) {
      in_pattern = star + 1;
      in_text = ++behind_star;
    } else {
      return false;
    }
  }
  while (in_pattern < pattern.size() && pattern[in_pattern] == '*') ++in_pattern;
  return in_pattern == pattern.size();
}

bool Dialect::IsFor(std::string_view product) const {
  return std::any_of(products.begin(), products.end(), [product](const std::string& pattern) {
    return MatchesPattern(pattern, product);
  });
}

bool Dialect::IsForAnyProduct() const {
  return std::find(products.begin(), products.end(), "*") != products.end();
}

std::vector<const Section*> Dialect::Find(Kind kind, const Version& version) const {
  std::vector<const Section*> found;
  for (const Section& section : sections) {
    if (section.kind != kind || !section.bounds.Fit(version)) continue;
    if (found.empty() || section.fallback) found.push_back(&section);
  }
  return found;
}

void ReadDialectHead(std::string_view file, Dialect& dialect) {
  FileReader(file, dialect).ReadHead();
}

std::vector<DialectProblem> ParseDialect(std::string_view file, Dialect& dialect) {
  dialect = {};
  return FileReader(file, dialect).Run();
}

}  // namespace odbcimport::exact
