// The comparison: what stands beside the tables, then table by table.
#include <fmt/format.h>

#include <algorithm>
#include <tuple>
#include <unordered_map>
#include <unordered_set>

#include "base/ascii.h"
#include "base/utf.h"
#include "compare/context.h"
#include "compare/items.h"
#include "compare/tables.h"

namespace wbcompare {

namespace {

// The foreign keys that a table holds as the referencing one. A key whose referencing side was
// never told to that table is found at the table that it refers to.
class ForeignKeys {
 public:
  explicit ForeignKeys(const LcWorkbook& workbook) {
    for (const LcWorkbookTable* table : workbook.tables.Present()) {
      for (const auto& key : table->GetForeignKeys()) {
        if (key->GetRole() != fkForward || key->GetPartner() != nullptr) continue;
        const LcWorkbookKeyList* side = key->GetForeignKey();
        if (side == nullptr || side->IsEmpty()) continue;
        lone_[side->GetColumns().front()->GetParentTable()].push_back(key.get());
      }
    }
  }

  // `in_pairs`: a key of several columns as the pairs that the generic route makes of it.
  template <class Use>
  void ForEach(const LcWorkbookTable& table, bool in_pairs, Use use) const {
    const auto tell = [&](const LcWorkbookForeignKey* key) {
      const LcWorkbookKeyList* side = key->GetKey();
      const int columns = side == nullptr ? 0 : side->GetCount();
      if (!in_pairs || columns < 2) {
        use(ForeignKeyRef{key, nullptr, -1});
        return;
      }
      for (int i = 0; i < columns; ++i) use(ForeignKeyRef{key, nullptr, i});
    };
    for (const auto& key : table.GetForeignKeys()) {
      if (key->GetRole() == fkMirror) tell(key.get());
    }
    const auto lone = lone_.find(&table);
    if (lone != lone_.end()) {
      for (const LcWorkbookForeignKey* key : lone->second) tell(key);
    }
    if (table.GetDetails() == nullptr) return;
    for (const LcOutsideKey& key : table.GetDetails()->outside_keys) {
      use(ForeignKeyRef{nullptr, &key, -1});
    }
  }

 private:
  std::unordered_map<const LcWorkbookTable*, std::vector<const LcWorkbookForeignKey*>> lone_;
};

bool IsGeneric(const LcWorkbookFileInfo& info) { return info.route == u"odbc"; }

bool HasKeys(const LcWorkbook& workbook) {
  for (const LcWorkbookTable* table : workbook.tables) {
    if (table != nullptr && !table->GetPrimaryKey().IsEmpty()) return true;
  }
  return false;
}

class Comparing {
 public:
  Comparing(const Side& before, const Side& after, const Options& options, Comparison& result)
      : context_(before, after, options, result),
        result_(result),
        old_foreign_keys_(before.workbook),
        new_foreign_keys_(after.workbook),
        in_pairs_(context_.mixed && (IsGeneric(before.info) || IsGeneric(after.info))),
        keys_known_(!context_.mixed || (HasKeys(before.workbook) && HasKeys(after.workbook))) {}

  bool Run(std::string& why) {
    TellReading();
    std::vector<TablePair> pairs;
    // Owners that are guessed to have another name are told here.
    InGroup(nullptr, nullptr, [&] {
      found_ = MatchTables(context_, pairs, why);
      if (found_) CompareOwners();
    });
    if (!found_) return false;
    NoteGoneAndCome(pairs);
    for (const TablePair& pair : pairs) CompareTables(pair);
    InGroup(nullptr, nullptr, [&] { CompareTypes(); });
    InGroup(nullptr, nullptr, [&] { CompareSequences(); });
    InGroup(nullptr, nullptr, [&] { CompareRoutines(); });
    SortGroups();
    return true;
  }

 private:
  template <class Work>
  void InGroup(const LcWorkbookTable* before, const LcWorkbookTable* after, Work work) {
    const std::size_t first = result_.changes.size();
    work();
    if (result_.changes.size() == first) return;
    result_.groups.push_back({first, result_.changes.size(), before, after});
    if (before != nullptr || after != nullptr) ++result_.tables;
  }

  // What stands beside the tables first, then the tables by their names.
  void SortGroups() {
    struct Keyed {
      bool in_table = false;
      std::string owner;
      std::string name;
      Group group;
    };
    std::vector<Keyed> keyed;
    keyed.reserve(result_.groups.size());
    for (const Group& group : result_.groups) {
      const LcWorkbookTable* table = group.new_table != nullptr ? group.new_table : group.old_table;
      keyed.push_back(table == nullptr
                          ? Keyed{false, "", "", group}
                          : Keyed{true, base::LowerAscii(base::ToUtf8(table->GetOwner(false))),
                                  base::LowerAscii(base::ToUtf8(table->GetName())), group});
    }
    std::stable_sort(keyed.begin(), keyed.end(), [](const Keyed& a, const Keyed& b) {
      return std::tie(a.in_table, a.owner, a.name) < std::tie(b.in_table, b.owner, b.name);
    });
    for (std::size_t i = 0; i < keyed.size(); ++i) result_.groups[i] = keyed[i].group;
  }

  void TellReading() {
    const LcWorkbookFileInfo& before = context_.before.info;
    const LcWorkbookFileInfo& after = context_.after.info;
    if (context_.mixed) {
      result_.notes.push_back(fmt::format(
          "The {} side was read exactly, the other through the {} route: compared are tables, "
          "views, "
          "columns with type and nullability, primary and foreign keys, which both can know.",
          context_.old_knows.IsExact() ? "old" : "new",
          base::ToUtf8(context_.old_knows.IsExact() ? after.route : before.route)));
    } else if (!context_.both_exact && before.route != after.route) {
      result_.notes.push_back(fmt::format(
          "The old side was read through the {} route, the new one through the {} route.",
          base::ToUtf8(before.route), base::ToUtf8(after.route)));
    }
    if (!keys_known_) {
      result_.notes.emplace_back("One side has no primary keys at all, so that none are compared.");
    }
    if (before.dbms_name != after.dbms_name) {
      result_.notes.push_back(fmt::format(
          "The old side is of {}, the new one of {}: types and expressions are spelled "
          "in two ways.",
          before.dbms_name.empty() ? "an unknown server" : base::ToUtf8(before.dbms_name),
          after.dbms_name.empty() ? "an unknown server" : base::ToUtf8(after.dbms_name)));
    }
  }

  const LcWorkbook& Old() const { return context_.before.workbook; }
  const LcWorkbook& New() const { return context_.after.workbook; }

  template <class List, class Make>
  void CompareLists(Object object, const List& before, const List& after, Make make) {
    if (!context_.Compares(object)) return;
    ItemMatcher matcher(context_, object, nullptr, nullptr);
    const auto add = [&](const List& list, auto add_one) {
      for (const auto& entry : list) {
        for (const ObjectRef& ref : make(entry)) {
          const std::u16string owner = base::ToUtf16(OwnerOf(ref, ShownNames()));
          if (!context_.LeavesOut(owner, base::ToUtf16(PlainNameOf(ref)))) add_one(ref);
        }
      }
    };
    add(before, [&](const ObjectRef& ref) { matcher.AddBefore(ref); });
    add(after, [&](const ObjectRef& ref) { matcher.AddAfter(ref); });
    matcher.Compare();
  }
  static std::string PlainNameOf(const ObjectRef& ref) {
    const std::string name = NameOf(ref, ShownNames());
    return name.substr(0, name.find('('));
  }

  void CompareOwners() {
    if (!context_.mixed) {
      context_.ComparePair(Object::kDatabase, &Old().details, &New().details, nullptr, nullptr);
    }
    const auto& before = Old().details.schemas;
    const auto& after = New().details.schemas;
    // Owners come on demand in the compatible reading: where either side has none, none were read.
    if (!before.empty() && !after.empty()) {
      CompareLists(Object::kOwner, before, after,
                   [](const LcSchemaDetails& schema) { return std::vector<ObjectRef>{&schema}; });
    } else if (!Old().owner_names.IsEmpty() && !New().owner_names.IsEmpty()) {
      CompareLists(
          Object::kOwner, Old().owner_names, New().owner_names, [](const LcOwnerInfo* owner) {
            return owner == nullptr ? std::vector<ObjectRef>() : std::vector<ObjectRef>{owner};
          });
    }
  }

  void CompareTypes() {
    CompareLists(Object::kType, Old().details.types, New().details.types,
                 [](const LcTypeDetails& type) { return std::vector<ObjectRef>{&type}; });
    if (context_.both_exact) return;
    // In the compatible reading named types stand among those of the server.
    CompareLists(
        Object::kType, Old().data_types, New().data_types, [](const LcWorkbookDatatype* type) {
          const bool named = type != nullptr && (type->GetExtendedId() != 0 || type->IsDistinct());
          return named ? std::vector<ObjectRef>{type} : std::vector<ObjectRef>();
        });
  }

  // The tables and columns that only one side has, where a sequence may belong to one.
  void NoteGoneAndCome(const std::vector<TablePair>& pairs) {
    if (Old().details.sequences.empty() && New().details.sequences.empty()) return;
    for (const TablePair& pair : pairs) {
      if (pair.after == nullptr) gone_.insert(context_.old_names.Table(*pair.before));
      if (pair.before == nullptr) come_.insert(context_.new_names.Table(*pair.after));
      if (pair.columns == nullptr) continue;
      for (const int at : pair.columns->removed) {
        gone_.insert(ColumnKey(context_.old_names.Table(*pair.before),
                               context_.old_names.Name(pair.before->GetColumn(at)->GetName())));
      }
      for (const int at : pair.columns->added) {
        come_.insert(ColumnKey(context_.new_names.Table(*pair.after),
                               context_.new_names.Name(pair.after->GetColumn(at)->GetName())));
      }
    }
  }
  static std::string ColumnKey(const std::string& table, const std::string& column) {
    return table + '\x1f' + column;
  }
  static bool BelongsTo(const std::unordered_set<std::string>& things, const Names& names,
                        const LcSequenceDetails& sequence) {
    if (!sequence.owner_table.IsPresent() || things.empty()) return false;
    const std::string table = names.Table(sequence.schema.View(), sequence.owner_table.View());
    return things.count(table) != 0 ||
           things.count(ColumnKey(table, names.Name(sequence.owner_column.View()))) != 0;
  }

  // A sequence of a column goes and comes with it.
  void CompareSequences() {
    const auto comes_with_table = [&](const LcSequenceDetails& sequence) {
      return BelongsTo(gone_, context_.old_names, sequence) ||
             BelongsTo(come_, context_.new_names, sequence);
    };
    CompareLists(Object::kSequence, Old().details.sequences, New().details.sequences,
                 [&](const LcSequenceDetails& sequence) {
                   return comes_with_table(sequence) ? std::vector<ObjectRef>()
                                                     : std::vector<ObjectRef>{&sequence};
                 });
  }

  void CompareRoutines() {
    CompareLists(Object::kRoutine, Old().details.routines, New().details.routines,
                 [](const LcRoutineDetails& routine) { return std::vector<ObjectRef>{&routine}; });
    if (context_.both_exact) return;
    const auto overloads = [](const LcWorkbookFunction* function) {
      std::vector<ObjectRef> refs;
      if (function == nullptr) return refs;
      for (const auto& overload : function->GetOverloads()) {
        refs.emplace_back(PlainRoutine{function, overload.get()});
      }
      if (refs.empty()) refs.emplace_back(PlainRoutine{function, nullptr});
      return refs;
    };
    CompareLists(Object::kRoutine, Old().boolean_functions, New().boolean_functions, overloads);
    CompareLists(Object::kRoutine, Old().functions, New().functions, overloads);
    CompareLists(Object::kRoutine, Old().procedures, New().procedures,
                 [](const LcWorkbookProcedure* procedure) {
                   return procedure == nullptr ? std::vector<ObjectRef>()
                                               : std::vector<ObjectRef>{procedure};
                 });
  }

  void CompareTables(const TablePair& pair) {
    InGroup(pair.before, pair.after, [&] {
      if (pair.before == nullptr || pair.after == nullptr) {
        TellOneSided(pair);
      } else {
        ComparePair(pair);
      }
    });
  }

  void TellOneSided(const TablePair& pair) {
    const bool is_old = pair.before != nullptr;
    const LcWorkbookTable* table = is_old ? pair.before : pair.after;
    const Knowledge& knows = is_old ? context_.new_knows : context_.old_knows;
    const Knowledge& other = is_old ? context_.old_knows : context_.new_knows;
    const Object object = ObjectOf(pair.before, pair.after);
    if (const std::string* why = knows.WhyMissing(*table, other.ReadsSystem()); why != nullptr) {
      context_.AddUnknown(object, !is_old, *why, ShownNames().Table(*table));
      return;
    }
    Change change;
    change.action = is_old ? Action::kRemoved : Action::kAdded;
    change.object = object;
    change.old_table = pair.before;
    change.new_table = pair.after;
    (is_old ? change.before : change.after) = table;
    context_.Add(std::move(change));
  }

  void ComparePair(const TablePair& pair) {
    const LcWorkbookTable& before = *pair.before;
    const LcWorkbookTable& after = *pair.after;
    context_.old_names.TakeInHand(&before);
    if (pair.renamed.action == Action::kRenamed) context_.Add(pair.renamed);
    context_.ComparePair(ObjectOf(&before, &after), &before, &after, &before, &after);
    CompareColumns(context_, before, after, pair.columns.get());
    CompareKeys(before, after);
    CompareForeignKeys(before, after);
    CompareMembers(before, after);
    context_.old_names.TakeInHand(nullptr);
  }

  void CompareKeys(const LcWorkbookTable& before, const LcWorkbookTable& after) {
    if (keys_known_) {
      ItemMatcher matcher(context_, Object::kPrimaryKey, &before, &after);
      if (const auto key = PrimaryKeyOf(before); key.index() != 0) matcher.AddBefore(key);
      if (const auto key = PrimaryKeyOf(after); key.index() != 0) matcher.AddAfter(key);
      matcher.Compare();
    }
    CompareLists(Object::kUniqueKey, before, after, &LcTableDetails::unique_keys);
  }
  static ObjectRef PrimaryKeyOf(const LcWorkbookTable& table) {
    const LcTableDetails* details = table.GetDetails();
    if (details != nullptr && details->primary_key) {
      return static_cast<const LcKeyDetails*>(details->primary_key.get());
    }
    if (table.GetPrimaryKey().IsEmpty()) return {};
    return PlainKey{&table};
  }

  void CompareForeignKeys(const LcWorkbookTable& before, const LcWorkbookTable& after) {
    ItemMatcher matcher(context_, Object::kForeignKey, &before, &after);
    old_foreign_keys_.ForEach(before, in_pairs_,
                              [&](const ForeignKeyRef& key) { matcher.AddBefore(key); });
    new_foreign_keys_.ForEach(after, in_pairs_,
                              [&](const ForeignKeyRef& key) { matcher.AddAfter(key); });
    matcher.Compare();
  }

  void CompareMembers(const LcWorkbookTable& before, const LcWorkbookTable& after) {
    CompareLists(Object::kIndex, before, after, &LcTableDetails::indexes);
    CompareLists(Object::kCheck, before, after, &LcTableDetails::checks);
    CompareLists(Object::kTrigger, before, after, &LcTableDetails::triggers);
  }

  template <class Entry>
  void CompareLists(Object object, const LcWorkbookTable& before, const LcWorkbookTable& after,
                    std::vector<Entry> LcTableDetails::*list) {
    if (!context_.Compares(object)) return;
    const LcTableDetails* old_details = before.GetDetails();
    const LcTableDetails* new_details = after.GetDetails();
    const bool old_has = old_details != nullptr && !(old_details->*list).empty();
    const bool new_has = new_details != nullptr && !(new_details->*list).empty();
    if (!old_has && !new_has) return;
    ItemMatcher matcher(context_, object, &before, &after);
    if (old_has) {
      for (const Entry& entry : old_details->*list) matcher.AddBefore(&entry);
    }
    if (new_has) {
      for (const Entry& entry : new_details->*list) matcher.AddAfter(&entry);
    }
    matcher.Compare();
  }

  Context context_;
  Comparison& result_;
  const ForeignKeys old_foreign_keys_;
  const ForeignKeys new_foreign_keys_;
  const bool in_pairs_;
  const bool keys_known_;
  bool found_ = false;
  // Tables and columns of one side, by the spelling of their names.
  std::unordered_set<std::string> gone_;
  std::unordered_set<std::string> come_;
};

}  // namespace

bool Compare(const Side& before, const Side& after, const Options& options, Comparison& result,
             std::string& why) {
  return Comparing(before, after, options, result).Run(why);
}

std::size_t Comparison::Count(Severity severity) const {
  return static_cast<std::size_t>(
      std::count_if(changes.begin(), changes.end(),
                    [&](const Change& change) { return change.severity == severity; }));
}

bool Comparison::HasAtLeast(Severity severity) const {
  return std::any_of(changes.begin(), changes.end(),
                     [&](const Change& change) { return change.severity >= severity; });
}

}  // namespace wbcompare
