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
#include "compare/pairs.h"
#include "compare/readings.h"
#include "compare/tables.h"

namespace wbcompare {

namespace {

const std::string kServersOwn = "is the server's own, which the exact reading leaves out";

class Comparing {
 public:
  Comparing(const Side& before, const Side& after, const Options& options, Comparison& result)
      : context_(before, after, options, result), result_(result), pairs_(context_) {}

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
    if (context_.readings) return TellReadings();
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
    if (!pairs_.ComparesKeys()) {
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

  void TellReadings() {
    if (context_.mixed) result_.notes.emplace_back("Names of keys are not compared.");
    if (!Old().procedures.IsEmpty() || !Old().functions.IsEmpty()) {
      result_.notes.emplace_back(
          "Routines are compared by name; those that the server brings along are not.");
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
    if (!context_.mixed || context_.readings) {
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
    if (context_.readings && context_.mixed) return CompareTypesOfReadings();
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

  // The exact reading has named types apart, the compatible one among those of the server.
  void CompareTypesOfReadings() {
    if (!context_.Compares(Object::kType)) return;
    ItemMatcher matcher(context_, Object::kType, nullptr, nullptr);
    for (const LcWorkbookDatatype* type : Old().data_types.Present()) {
      if (type->GetExtendedId() != 0 || type->IsDistinct()) matcher.AddBefore(type);
    }
    for (const LcTypeDetails& type : New().details.types) {
      if (!context_.LeavesOut(type.schema.View(), type.name.View())) matcher.AddAfter(&type);
    }
    matcher.Compare();
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

  // Of the compatible reading's routines nothing tells whether they are the server's own.
  void TellRoutinesOfExactReading() {
    std::unordered_set<std::string> known;
    for (const LcWorkbookFunctionList* list : {&Old().functions, &Old().boolean_functions}) {
      for (const LcWorkbookFunction* function : list->Present())
        known.insert(context_.old_names.Name(function->GetName()));
    }
    for (const LcWorkbookProcedure* procedure : Old().procedures.Present())
      known.insert(context_.old_names.Name(procedure->GetName()));
    for (const LcRoutineDetails& routine : New().details.routines) {
      if (known.count(context_.new_names.Name(routine.name.View())) != 0 ||
          context_.LeavesOut(routine.schema.View(), routine.name.View())) {
        continue;
      }
      context_.AddOneSided(Object::kRoutine, &routine, false, nullptr, nullptr);
    }
  }

  void CompareRoutines() {
    if (context_.readings && context_.mixed) return TellRoutinesOfExactReading();
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
        pairs_.Compare(pair);
      }
    });
  }

  void TellOneSided(const TablePair& pair) {
    const bool is_old = pair.before != nullptr;
    const LcWorkbookTable* table = is_old ? pair.before : pair.after;
    const Knowledge& knows = is_old ? context_.new_knows : context_.old_knows;
    const Knowledge& other = is_old ? context_.old_knows : context_.new_knows;
    const Object object = ObjectOf(pair.before, pair.after);
    if (context_.mixed && IsServersTable(context_.product, *table)) {
      context_.AddUnknown(object, !is_old, kServersOwn, ShownNames().Table(*table));
      return;
    }
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

  Context context_;
  Comparison& result_;
  PairComparison pairs_;
  bool found_ = false;
  // Tables and columns of one side, by the spelling of their names.
  std::unordered_set<std::string> gone_;
  std::unordered_set<std::string> come_;
};

}  // namespace

bool Compare(const Side& before, const Side& after, const Options& options, Comparison& result,
             std::string& why) {
  if (!Comparing(before, after, options, result).Run(why)) return false;
  if (options.readings) result.lead = LeadOf(result.changes, *options.readings);
  return true;
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
