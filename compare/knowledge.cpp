#include "compare/knowledge.h"

#include <array>
#include <nlohmann/json.hpp>

#include "base/utf.h"

namespace wbcompare {

namespace {

using Json = nlohmann::json;

const std::string kNotAsked = "was not asked for";
const std::string kNotSelected = "was not selected";
const std::string kOtherOwner = "belongs to an owner that was not read";
const std::string kNamesOnly = "only its name was read";
const std::string kNoSystem = "may be a system object, which were not read";

std::u16string Key(std::u16string_view owner, std::u16string_view name) {
  std::u16string key(owner);
  key += u'\0';
  key += name;
  return key;
}

// "foreign_keys" and "data types" as options and items spell them.
std::u16string KindKey(std::u16string_view kind, std::u16string_view owner,
                       std::u16string_view name) {
  std::u16string key(kind);
  for (char16_t& c : key) c = c == u'_' || c == u' ' ? u'-' : c;
  return key + u'\0' + Key(owner, name);
}

// The kinds of the readings that bring an object, and those without which it cannot be told.
struct ObjectKinds {
  Object object;
  std::array<std::string_view, 5> kinds;
};
constexpr std::array<ObjectKinds, 14> kKinds = {{
    {Object::kOwner, {"schemas", "owner-names"}},
    {Object::kType, {"types", "data-types"}},
    {Object::kSequence, {"sequences"}},
    {Object::kRoutine, {"routines", "parameters", "functions", "procedures", "boolean-functions"}},
    {Object::kTable, {"tables"}},
    {Object::kView, {"views", "tables"}},
    {Object::kSynonym, {"synonyms", "tables"}},
    {Object::kColumn, {"columns", "view-columns", "column-types"}},
    {Object::kPrimaryKey, {"keys", "constraints", "indexes", "columns"}},
    {Object::kUniqueKey, {"keys", "constraints", "indexes", "columns"}},
    {Object::kForeignKey, {"foreign-keys", "constraints", "columns"}},
    {Object::kIndex, {"indexes", "columns"}},
    {Object::kCheck, {"checks", "constraints"}},
    {Object::kTrigger, {"triggers"}},
}};

// The kind that brings a property where it is not the object's own.
std::string_view KindOf(Property property) {
  switch (property) {
    case Property::kText:
      return "view-texts";
    case Property::kDefault:
    case Property::kGenerated:
    case Property::kExpression:
      return "column-defaults";
    case Property::kComment:
      return "comments";
    case Property::kOption:
      return "table-options";
    default:
      return {};
  }
}

template <class Use>
void ForEach(const Json& object, const char* key, Use use) {
  const auto list = object.find(key);
  if (list == object.end() || !list->is_array()) return;
  for (const Json& element : *list) use(element);
}

std::u16string TextOf(const Json& object, const char* key) {
  const auto found = object.find(key);
  return found != object.end() && found->is_string()
             ? base::ToUtf16(found->get_ref<const std::string&>())
             : std::u16string();
}

bool FlagOf(const Json& object, const char* key, bool otherwise) {
  const auto found = object.find(key);
  return found != object.end() && found->is_boolean() ? found->get<bool>() : otherwise;
}

}  // namespace

Knowledge::Knowledge(const Side& side)
    : exact_(side.info.route == u"exact"),
      complete_(side.info.result && !side.info.incomplete),
      why_incomplete_(side.info.incomplete ? "the import was cut short"
                                           : "the import ended with a failure") {
  if (!side.info.choices.empty()) ReadChoices(side.info.choices);
  ReadNotRead(side.workbook.details);
  if (side.workbook.table_names.IsEmpty()) return;
  for (const LcTableInfo* table : side.workbook.table_names.Present())
    named_tables_.insert(Key(table->owner, table->name));
}

// The request was checked when it ran; what is not understood chooses nothing.
void Knowledge::ReadChoices(const std::string& json) {
  const Json request = Json::parse(json, nullptr, false);
  if (!request.is_object()) return;
  ForEach(request, "items", [&](const Json& item) {
    if (item.is_string()) items_.insert(item.get<std::string>());
  });
  owner_restriction_ = TextOf(request, "ownerRestriction");
  reads_system_ = FlagOf(request, "includeSystem", false);
  keys_ = FlagOf(request, "keys", true);
  foreign_keys_ = FlagOf(request, "foreignKeys", true);
  ForEach(request, "selectedOwners", [&](const Json& owner) {
    selects_ = true;
    if (owner.is_string()) selected_owners_.insert(base::ToUtf16(owner.get<std::string>()));
  });
  for (const char* key : {"selectedTables", "selectedSynonyms"}) {
    ForEach(request, key, [&](const Json& table) {
      selects_ = true;
      if (!table.is_object()) return;
      selected_tables_.insert(Key(TextOf(table, "owner"), TextOf(table, "name")));
    });
  }
}

void Knowledge::ReadNotRead(const LcWorkbookDetails& details) {
  for (const LcNotRead& missing : details.not_read) {
    not_read_.emplace(KindKey(missing.kind.View(), missing.owner.View(), missing.name.View()),
                      base::ToUtf8(missing.reason.View()));
  }
}

const std::string* Knowledge::FindNotRead(std::string_view kind, std::u16string_view owner,
                                          std::u16string_view name) const {
  const std::u16string wide(kind.begin(), kind.end());
  for (const auto& [of_owner, of_name] : {std::pair<std::u16string_view, std::u16string_view>{},
                                          {owner, {}},
                                          {{}, name},
                                          {owner, name}}) {
    const auto found = not_read_.find(KindKey(wide, of_owner, of_name));
    if (found != not_read_.end()) return &found->second;
  }
  return nullptr;
}

const std::string* Knowledge::WhyNotChosen(Object object) const {
  const auto unless = [](bool wanted) { return wanted ? nullptr : &kNotAsked; };
  switch (object) {
    case Object::kTable:
      return unless(IsWanted("tables"));
    case Object::kView:
      return unless(IsWanted("views"));
    case Object::kSynonym:
      return unless(IsWanted("synonyms"));
    case Object::kType:
      return unless(IsWanted("data-types"));
    case Object::kRoutine:
      return unless(IsWanted("functions") && IsWanted("procedures"));
    case Object::kPrimaryKey:
    case Object::kUniqueKey:
    case Object::kIndex:
      return unless(keys_);
    case Object::kForeignKey:
      return unless(foreign_keys_ && (keys_ || !exact_));
    default:
      return nullptr;
  }
}

const std::string* Knowledge::WhyMissing(Object object, std::u16string_view owner,
                                         std::u16string_view name, Property property) const {
  if (!complete_) return &why_incomplete_;
  if (const std::string* why = WhyNotChosen(object); why != nullptr) return why;
  const bool of_other_owner = !owner_restriction_.empty() && owner != owner_restriction_;
  const bool at_top =
      object == Object::kType || object == Object::kSequence || object == Object::kRoutine;
  if (at_top &&
      (of_other_owner || (selects_ && selected_owners_.count(std::u16string(owner)) == 0))) {
    return &kNotSelected;
  }
  if (not_read_.empty()) return nullptr;
  for (const ObjectKinds& row : kKinds) {
    if (row.object != object) continue;
    for (const std::string_view kind : row.kinds) {
      if (kind.empty()) break;
      if (const std::string* why = FindNotRead(kind, owner, name); why != nullptr) return why;
    }
  }
  const std::string_view kind = KindOf(property);
  return kind.empty() ? nullptr : FindNotRead(kind, owner, name);
}

const std::string* Knowledge::WhyMissing(const LcWorkbookTable& table,
                                         bool other_reads_system) const {
  const std::u16string& owner = table.GetOwner(false);
  const Object object = table.GetType() == ttView      ? Object::kView
                        : table.GetType() == ttSynonym ? Object::kSynonym
                                                       : Object::kTable;
  const std::string* why = WhyMissing(object, owner, table.GetName());
  if (why != nullptr) return why;
  if (named_tables_.count(Key(owner, table.GetName())) != 0) return &kNamesOnly;
  if (!owner_restriction_.empty() && owner != owner_restriction_) return &kOtherOwner;
  if (selects_ && selected_owners_.count(owner) == 0 &&
      selected_tables_.count(Key(owner, table.GetName())) == 0 &&
      selected_tables_.count(Key({}, table.GetName())) == 0) {
    return &kNotSelected;
  }
  const LcTableDetails* details = table.GetDetails();
  const bool may_be_system =
      details == nullptr || details->kind == tkUnknown || details->kind == tkSystemTable;
  return other_reads_system && !reads_system_ && may_be_system ? &kNoSystem : nullptr;
}

}  // namespace wbcompare
