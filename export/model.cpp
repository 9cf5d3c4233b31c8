#include "export/model.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "base/utf.h"
#include "importer/workbook/type_text.h"

namespace wbexport {

namespace {

// Owners of what comes with a server, by the beginning of the server's name.
struct SystemOwner {
  std::u16string_view dbms;
  std::u16string_view owner;
};
constexpr SystemOwner kSystemOwners[] = {
    {u"PostgreSQL", u"pg_catalog"},
    {u"PostgreSQL", u"information_schema"},
    {u"Microsoft SQL Server", u"sys"},
    {u"Oracle", u"SYS"},
    {u"Oracle", u"SYSTEM"},
    {u"DB2", u"SYSIBM"},
    {u"DB2", u"SYSCAT"},
    {u"DB2", u"SYSFUN"},
    {u"DB2", u"SYSPROC"},
};

bool IsSubsetOfPrimaryKey(const LcWorkbookTable& table,
                          const std::vector<LcWorkbookColumn*>& columns) {
  const std::vector<LcWorkbookColumn*> key = table.GetPrimaryKey().GetColumns();
  return std::all_of(columns.begin(), columns.end(), [&](LcWorkbookColumn* column) {
    return std::find(key.begin(), key.end(), column) != key.end();
  });
}

bool IsPrimaryKey(const LcWorkbookTable& table, const std::vector<LcWorkbookColumn*>& columns) {
  return !columns.empty() && IsSubsetOfPrimaryKey(table, columns) &&
         table.GetPrimaryKey().GetCount() == static_cast<int>(columns.size());
}

}  // namespace

std::string Display(std::u16string_view text) {
  std::u16string shown(text);
  for (char16_t& c : shown) c = base::ShownCharacter(c);
  return base::ToUtf8(shown);
}

std::string DisplayLines(std::u16string_view text) {
  std::u16string shown;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') continue;
    shown += text[i] == u'\n' || text[i] == u'\t' ? text[i] : base::ShownCharacter(text[i]);
  }
  return base::ToUtf8(shown);
}

std::string DisplayLine(std::u16string_view text) {
  std::u16string shown;
  for (const char16_t c : text) {
    const bool blank = c == u' ' || c == u'\n' || c == u'\t' || c == u'\r';
    if (!blank) {
      shown += base::ShownCharacter(c);
    } else if (!shown.empty() && shown.back() != u' ') {
      shown += u' ';
    }
  }
  if (!shown.empty() && shown.back() == u' ') shown.pop_back();
  return base::ToUtf8(shown);
}

std::string DisplayName(std::u16string_view owner, std::u16string_view name) {
  return owner.empty() ? Display(name) : Display(owner) + "." + Display(name);
}

std::string DisplayName(const LcWorkbookTable& table) {
  return DisplayName(table.GetOwner(true), table.GetName());
}

std::string DisplayColumns(const std::vector<LcWorkbookColumn*>& columns) {
  std::string list;
  for (const LcWorkbookColumn* column : columns) {
    if (!list.empty()) list += ", ";
    list += Display(column->GetName());
  }
  return list;
}

std::string TypeName(const LcWorkbookDatatype& type) { return Display(LcTypeName(type)); }

std::string TypeText(const LcWorkbookColumn& column) {
  const LcWorkbookDatatype* type = column.GetDataType();
  if (type != nullptr && type->GetDatabaseType().IsPresent()) {
    return Display(type->GetDatabaseType().View());
  }
  return Display(LcTypeText(column));
}

const char* KindName(enumTableType type) {
  switch (type) {
    case ttTable:
      break;
    case ttView:
      return "view";
    case ttSynonym:
      return "synonym";
  }
  return "table";
}

std::string KindName(const LcWorkbookTable& table) {
  const LcTableDetails* details = table.GetDetails();
  const char16_t* name = details == nullptr ? nullptr : LcNameOf(details->kind);
  return name == nullptr ? KindName(table.GetType()) : Display(name);
}

std::string SynonymTarget(const LcSynonymDetails& synonym) {
  std::string target = Display(synonym.base_owner);
  if (!target.empty()) target += ".";
  target += Display(synonym.base_table_name);
  if (!synonym.database_name.empty()) target += "@" + Display(synonym.database_name);
  if (!synonym.server_name.empty()) target += "@" + Display(synonym.server_name);
  return target;
}

std::string DatabaseTitle(const LcWorkbookFileInfo& info) {
  return Display(info.title.empty() ? info.database : info.title);
}

std::string SourceText(const LcWorkbookFileInfo& info) {
  std::string text = info.dbms_name.empty() ? "Unknown server" : Display(info.dbms_name);
  if (info.dbms_version != 0) text += fmt::format(" {}", info.dbms_version);
  if (!info.route.empty()) text += ", read through the " + Display(info.route) + " route";
  if (!info.imported_at.empty()) text += " at " + Display(info.imported_at);
  if (DatabaseTitle(info).empty()) return text;
  const bool both = !info.title.empty() && !info.database.empty() && info.title != info.database;
  return DatabaseTitle(info) + (both ? " (" + Display(info.database) + ")" : "") + ": " + text;
}

std::string IncompleteText(const LcWorkbookFileInfo& info) {
  if (!info.incomplete) return "";
  const char* how = info.status == 4   ? "was cancelled"
                    : info.status == 9 ? "was stopped"
                                       : "lost its connection or met errors";
  return fmt::format("Incomplete: the import {} before it had read everything.", how);
}

bool IsOfSystem(const LcWorkbookProcedure& procedure, const LcWorkbookFileInfo& info) {
  for (const SystemOwner& system : kSystemOwners) {
    if (std::u16string_view(info.dbms_name).substr(0, system.dbms.size()) == system.dbms &&
        procedure.GetOwner() == system.owner) {
      return true;
    }
  }
  return false;
}

ListedProcedures ProceduresToList(const Document& document, const Options& options) {
  ListedProcedures procedures;
  for (const LcWorkbookProcedure* procedure : document.workbook.procedures.Present()) {
    if (!options.system && IsOfSystem(*procedure, document.info)) {
      ++procedures.left_out;
    } else {
      procedures.listed.push_back(procedure);
    }
  }
  return procedures;
}

std::string DisplayName(const LcWorkbookProcedure& procedure) {
  return DisplayName(procedure.GetOwner(), procedure.GetName());
}

std::string Count(std::size_t count, const char* one, const char* many) {
  return fmt::format("{} {}", count, count == 1 ? one : many);
}

Relationships::Relationships(const LcWorkbook& workbook) {
  const auto columns = [](const LcWorkbookKeyList* side) {
    return side == nullptr ? std::vector<LcWorkbookColumn*>() : side->GetColumns();
  };
  for (const LeForeignKeyRole role : {fkForward, fkMirror}) {
    for (const LcWorkbookTable* table : workbook.tables.Present()) {
      for (const auto& key : table->GetForeignKeys()) {
        if (key->GetRole() != role || (role == fkMirror && key->GetPartner() != nullptr)) continue;
        Relationship r;
        r.to_columns = columns(role == fkForward ? key->GetKey() : key->GetForeignKey());
        r.from_columns = columns(role == fkForward ? key->GetForeignKey() : key->GetKey());
        if (r.from_columns.empty() || r.to_columns.empty()) continue;
        r.to = r.to_columns.front()->GetParentTable();
        r.from = r.from_columns.front()->GetParentTable();
        if (r.to == nullptr || r.from == nullptr) continue;
        r.one_to_one =
            role == fkForward ? key->IsOneToOne() : IsPrimaryKey(*r.from, r.from_columns);
        r.details = key->GetDetails();
        r.required = std::all_of(r.from_columns.begin(), r.from_columns.end(),
                                 [](const LcWorkbookColumn* c) { return c->IsRequired(); });
        Add(std::move(r));
      }
    }
  }
}

void Relationships::Add(Relationship relationship) {
  from_[relationship.from].push_back(all_.size());
  to_[relationship.to].push_back(all_.size());
  all_.push_back(std::move(relationship));
}

const std::vector<std::size_t>& Relationships::From(const LcWorkbookTable& table) const {
  static const std::vector<std::size_t> none;
  const auto found = from_.find(&table);
  return found == from_.end() ? none : found->second;
}

const std::vector<std::size_t>& Relationships::To(const LcWorkbookTable& table) const {
  static const std::vector<std::size_t> none;
  const auto found = to_.find(&table);
  return found == to_.end() ? none : found->second;
}

std::size_t CountTables(const LcWorkbook& workbook, enumTableType type) {
  std::size_t count = 0;
  for (const LcWorkbookTable* table : workbook.tables) {
    count += table != nullptr && table->GetType() == type ? 1 : 0;
  }
  return count;
}

std::string TableCounts(const LcWorkbook& workbook) {
  std::string text = Count(CountTables(workbook, ttTable), "table", "tables");
  const std::size_t views = CountTables(workbook, ttView);
  const std::size_t synonyms = CountTables(workbook, ttSynonym);
  if (views != 0) text += (synonyms != 0 ? ", " : " and ") + Count(views, "view", "views");
  if (synonyms != 0) text += " and " + Count(synonyms, "synonym", "synonyms");
  return text;
}

}  // namespace wbexport
