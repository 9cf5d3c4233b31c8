// Names that options and request files give, against those that the server has.
#include "host/resolve_names.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <set>
#include <utility>

#include "host/nearest.h"
#include "host/selection.h"
#include "host/server_names.h"
#include "host/text.h"

namespace wbhost {
namespace {

using Entries = ServerNames::Entries;
using Texts = ServerNames::Texts;

// What is read without asking in which database.
constexpr std::uint32_t kOfNoDatabase =
    ibDataTypes | ibOperators | ibBooleanFunctions | ibFunctions | ibAggregates;

const char* KindOf(enumTableType type) {
  return type == ttView ? "view" : type == ttSynonym ? "synonym" : "table";
}

[[noreturn]] void Fail(const std::string& message) { throw Failure(ExitCode::kUsage, message); }

// What may have been meant by `word`, among names with or without their owners.
std::string Suggestion(const std::string& word, bool with_owner, const Entries& entries) {
  std::vector<std::string> names;
  for (const LcTableInfo* entry : entries) {
    names.push_back(DisplayName(with_owner ? entry->owner : u"", entry->name));
  }
  return DidYouMean(word, names);
}

std::vector<std::string> InUtf8(const Texts& names) {
  std::vector<std::string> texts;
  for (const std::u16string& name : names) texts.push_back(ToUtf8(name));
  return texts;
}

Entries Matching(const NamePattern& pattern, const Entries& entries, bool ignoring_case) {
  Entries found;
  std::copy_if(entries.begin(), entries.end(), std::back_inserter(found),
               [&](const LcTableInfo* entry) {
                 return pattern.Matches(entry->owner, entry->name, ignoring_case);
               });
  return found;
}

// An exact match goes before one that ignores case.
Entries Matching(const NamePattern& pattern, const Entries& entries) {
  Entries found = Matching(pattern, entries, false);
  return found.empty() ? Matching(pattern, entries, true) : found;
}

Entries OfType(const Entries& entries, enumTableType type) {
  Entries found;
  std::copy_if(entries.begin(), entries.end(), std::back_inserter(found),
               [type](const LcTableInfo* entry) { return entry->type == type; });
  return found;
}

void RequireNoWildcards(const NamePattern& pattern) {
  if (!pattern.HasWildcards()) return;
  Fail(fmt::format("{}: the names to match '{}' with cannot be read", pattern.option(),
                   pattern.text()));
}

[[noreturn]] void FailSeveral(const NamePattern& pattern, const std::vector<std::string>& found) {
  Fail(fmt::format("{}: '{}' matches {} names where one is wanted: {}", pattern.option(),
                   pattern.text(), found.size(), fmt::join(found, ", ")));
}

[[noreturn]] void FailTable(const NamePattern& pattern, const char* kind, const Entries& all) {
  // Its quotes are none of the name.
  const std::string name =
      pattern.HasWildcards() ? pattern.text() : DisplayName(pattern.owner(), pattern.name());
  Fail(fmt::format("{}: there is no {} '{}'{}", pattern.option(), kind, pattern.text(),
                   all.empty() ? " and no other" : Suggestion(name, pattern.HasOwner(), all)));
}

// The names of one part that a pattern matches.
Texts Several(const NamePattern& pattern, const char* kind, const std::optional<Texts>& names) {
  if (!names) {
    RequireNoWildcards(pattern);
    return {pattern.name()};
  }
  for (const bool ignoring_case : {false, true}) {
    Texts found;
    for (const std::u16string& name : *names) {
      if (pattern.Matches(u"", name, ignoring_case)) found.push_back(name);
    }
    if (!found.empty()) return found;
  }
  if (names->empty()) Fail(fmt::format("{}: the server has no {}s", pattern.option(), kind));
  Fail(fmt::format("{}: there is no {} '{}'{}", pattern.option(), kind, pattern.text(),
                   DidYouMean(pattern.text(), InUtf8(*names))));
}

std::u16string One(const NamePattern& pattern, const char* kind,
                   const std::optional<Texts>& names) {
  const Texts found = Several(pattern, kind, names);
  if (found.size() > 1) FailSeveral(pattern, InUtf8(found));
  return found.front();
}

class Resolver {
 public:
  Resolver(Choices& choices, std::uint32_t items, ImportRunner& runner, Screen& screen)
      : request_(choices.request),
        importer_(choices.importer),
        patterns_(choices.names),
        items_(items),
        connection_(runner.connection()),
        screen_(screen),
        server_(choices.importer, runner) {}

  void Run(const std::optional<std::string>& around) {
    ResolveCatalog();
    ResolveOwner();
    WarnOfFile();
    ResolveSelectedOwners();
    SelectTables(patterns_.tables, ttTable);
    SelectTables(patterns_.views, ttView);
    Exclude();
    SelectSynonyms();
    ResolveSingleTable();
    if (around) CheckAround(*around);
  }

 private:
  void ResolveCatalog() {
    if (!patterns_.catalog && importer_.catalog.empty()) return RequireDatabase();
    const std::optional<Texts> catalogs = server_.Catalogs();
    if (patterns_.catalog) {
      importer_.catalog = One(*patterns_.catalog, "catalog", catalogs);
    } else if (catalogs) {
      WarnOfName("catalog", importer_.catalog, *catalogs);
    }
  }

  // A server with databases instead of owners shows nothing where no database is chosen.
  void RequireDatabase() const {
    if ((items_ & ~kOfNoDatabase) == 0 || !connection_.LacksCatalog()) return;
    const std::optional<Texts> catalogs = server_.Catalogs();
    if (!catalogs || catalogs->empty()) return;
    Fail(
        fmt::format("the connection is in no database: choose one with --catalog, or in the "
                    "connection string; there are {}",
                    fmt::join(InUtf8(*catalogs), ", ")));
  }

  void ResolveOwner() {
    if (patterns_.owner) {
      importer_.owner_restriction = OneOwner(*patterns_.owner);
    } else if (!importer_.owner_restriction.empty()) {
      WarnOfOwner(importer_.owner_restriction);
    }
  }

  std::u16string OneOwner(const NamePattern& pattern) {
    if (!pattern.HasWildcards() && server_.OwnerHasTables(pattern.name())) return pattern.name();
    return One(pattern, "owner", server_.Owners());
  }

  void ResolveSelectedOwners() {
    for (const NamePattern& pattern : patterns_.owners) {
      const Texts names = pattern.HasWildcards() ? Several(pattern, "owner", server_.Owners())
                                                 : Texts{OneOwner(pattern)};
      for (const std::u16string& name : names) {
        auto entry = std::make_unique<LcOwnerInfo>();
        entry->name = name;
        importer_.selected_owners.Append(std::move(entry));
      }
    }
  }

  static LcTableInfo EntryOf(const NamePattern& pattern, enumTableType type) {
    LcTableInfo entry;
    entry.owner = pattern.owner();
    entry.name = pattern.name();
    entry.type = type;
    return entry;
  }

  // What the patterns select, where each is exactly a name of this kind; else nothing. Names that
  // are meant otherwise need the list of all.
  Entries LookUp(const std::vector<NamePattern>& patterns, enumTableType type) {
    std::vector<LcTableInfo> names;
    for (const NamePattern& pattern : patterns) {
      if (pattern.HasWildcards()) return {};
      names.push_back(EntryOf(pattern, type));
    }
    if (names.empty()) return {};
    const Entries known = OfType(server_.LookUp(names), type);
    Entries selected;
    for (const NamePattern& pattern : patterns) {
      const Entries found = Matching(pattern, known, false);
      if (found.empty()) return {};
      selected.insert(selected.end(), found.begin(), found.end());
    }
    return selected;
  }

  // A name that only tables of the other kind have selects those: whoever types it may not know.
  void SelectTables(const std::vector<NamePattern>& patterns, enumTableType type) {
    std::set<const LcTableInfo*> selected;
    for (const LcTableInfo* table : LookUp(patterns, type)) {
      if (selected.insert(table).second) Append(importer_.selected_tables, *table);
    }
    if (!selected.empty()) return;
    for (const NamePattern& pattern : patterns) {
      const std::optional<Entries>& all = server_.TablesAndViews();
      if (!all) {
        RequireNoWildcards(pattern);
        Append(importer_.selected_tables, EntryOf(pattern, type));
        continue;
      }
      Entries found = Matching(pattern, OfType(*all, type));
      if (found.empty()) found = Matching(pattern, *all);
      if (found.empty()) FailTable(pattern, KindOf(type), *all);
      for (const LcTableInfo* table : found) {
        if (selected.insert(table).second) Append(importer_.selected_tables, *table);
      }
    }
  }

  static void Append(LcTableInfoList& list, const LcTableInfo& entry) {
    list.Append(std::make_unique<LcTableInfo>(entry));
  }

  // What is left becomes the selection, owners that were selected by their tables.
  void Exclude() {
    if (patterns_.excluded.empty()) return;
    const std::optional<Entries>& all = server_.TablesAndViews();
    if (!all) Fail("--exclude: the names of the tables cannot be read");
    std::set<const LcTableInfo*> excluded;
    for (const NamePattern& pattern : patterns_.excluded) {
      const Entries found = Matching(pattern, *all);
      if (found.empty()) FailTable(pattern, "table or view", *all);
      excluded.insert(found.begin(), found.end());
    }
    LcTableInfoList left;
    for (const LcTableInfo* table : Selected(*all)) {
      if (excluded.count(table) == 0) Append(left, *table);
    }
    if (left.IsEmpty()) Fail("--exclude: no table is left");
    importer_.selected_owners.EmptyList();
    importer_.selected_tables = std::move(left);
  }

  // The tables and views that an import with these choices asks for.
  Entries Selected(const Entries& all) const {
    const Selection selection(importer_);
    Entries selected;
    for (const LcTableInfo* table : all) {
      const std::uint32_t item = table->type == ttView ? ibViews : ibTables;
      const bool is_selected = selection.IsEmpty() ? (items_ & item) != 0 : selection.Holds(*table);
      if (is_selected) selected.push_back(table);
    }
    return selected;
  }

  void SelectSynonyms() {
    for (const NamePattern& pattern : patterns_.synonyms) {
      const std::optional<Entries>& all = server_.Synonyms();
      // After an interrupt the names may be short; the import that follows ends at once.
      if (!all) return RequireNoWildcards(pattern);
      const Entries found = Matching(pattern, *all);
      if (found.empty()) FailTable(pattern, "synonym", *all);
      for (const LcTableInfo* synonym : found) Append(importer_.selected_synonyms, *synonym);
    }
  }

  // The owner stays open where none was given: it would restrict the procedures too.
  void ResolveSingleTable() {
    if (!patterns_.table) return;
    const NamePattern& pattern = *patterns_.table;
    importer_.single_item_owner = pattern.owner();
    importer_.single_table_name = pattern.name();
    const std::optional<Entries>& tables = server_.TablesAndViews();
    if (!tables) return RequireNoWildcards(pattern);
    Entries found = Matching(pattern, *tables);
    if (found.empty() && server_.Synonyms()) found = Matching(pattern, *server_.Synonyms());
    if (found.empty()) FailTable(pattern, "table", *tables);
    std::set<std::string> names;
    for (const LcTableInfo* table : found) {
      names.insert(DisplayName(pattern.HasOwner() ? table->owner : u"", table->name));
    }
    if (names.size() > 1) FailSeveral(pattern, {names.begin(), names.end()});
    if (pattern.HasOwner()) importer_.single_item_owner = found.front()->owner;
    importer_.single_table_name = found.front()->name;
  }

  // As the formats find it: by exact case, as it stands or parted into owner and name.
  void CheckAround(const std::string& text) {
    const std::optional<Entries>& tables = server_.TablesAndViews();
    if (!tables) return;
    Entries shown = Selected(*tables);
    if ((items_ & ibSynonyms) != 0 && server_.Synonyms()) {
      shown.insert(shown.end(), server_.Synonyms()->begin(), server_.Synonyms()->end());
    }
    const QualifiedName wanted = ParseQualifiedName(text);
    const bool found = std::any_of(shown.begin(), shown.end(), [&](const LcTableInfo* table) {
      return table->name == ToUtf16(text) ||
             (table->name == wanted.name && (wanted.owner.empty() || table->owner == wanted.owner));
    });
    if (found) return;
    Fail(fmt::format("--around: there is no table '{}' among those to import{}", text,
                     Suggestion(text, !wanted.owner.empty(), shown)));
  }

  // At a time when the selections hold what the file says and nothing else.
  void WarnOfFile() {
    for (const LcOwnerInfo* owner : importer_.selected_owners) {
      if (owner != nullptr) WarnOfOwner(owner->name);
    }
    for (const LcTableInfo* table : importer_.selected_tables) {
      if (table != nullptr) WarnOfEntry(*table, KindOf(table->type), server_.TablesAndViews());
    }
    for (const LcTableInfo* synonym : importer_.selected_synonyms) {
      if (synonym != nullptr) WarnOfEntry(*synonym, "synonym", server_.Synonyms());
    }
    if (importer_.single_table_name.empty()) return;
    LcTableInfo single;
    single.owner = importer_.single_item_owner;
    single.name = importer_.single_table_name;
    WarnOfEntry(single, "table", server_.TablesAndViews());
  }

  void WarnOfEntry(const LcTableInfo& entry, const char* kind, const std::optional<Entries>& all) {
    if (!all) return;
    for (const LcTableInfo* known : *all) {
      if (Same(known->name, entry.name) && (entry.owner.empty() || Same(known->owner, entry.owner)))
        return;
    }
    const std::string name = DisplayName(entry.owner, entry.name);
    Warn(kind, name, Suggestion(name, !entry.owner.empty(), *all));
  }

  void WarnOfOwner(const std::u16string& owner) {
    if (server_.OwnerHasTables(owner)) return;
    const std::optional<Texts> owners = server_.Owners();
    if (owners) WarnOfName("owner", owner, *owners);
  }

  void WarnOfName(const char* kind, const std::u16string& name, const Texts& known) {
    const auto is_name = [&](const std::u16string& other) { return Same(other, name); };
    if (std::any_of(known.begin(), known.end(), is_name)) return;
    Warn(kind, ToUtf8(name), DidYouMean(ToUtf8(name), InUtf8(known)));
  }

  void Warn(const char* kind, const std::string& name, const std::string& suggestion) {
    screen_.Say(fmt::format("{}: there is no {} '{}'{}", request_, kind, name, suggestion));
  }

  // A driver may ignore the case of a name in a file.
  static bool Same(const std::u16string& a, const std::u16string& b) {
    return EqualIgnoringCase(ToUtf8(a), ToUtf8(b));
  }

  const std::string& request_;
  LcImportChoices& importer_;
  const NamePatterns& patterns_;
  const std::uint32_t items_;
  const Connection& connection_;
  Screen& screen_;
  ServerNames server_;
};

}  // namespace

void ResolveNames(Choices& choices, std::uint32_t items, const std::optional<std::string>& around,
                  ImportRunner& runner, Screen& screen) {
  Resolver(choices, items, runner, screen).Run(around);
}

}  // namespace wbhost
