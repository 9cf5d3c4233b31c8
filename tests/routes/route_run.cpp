// Imports by one route and keeps what a host hears and gets.
#include "tests/routes/route_run.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "catalogues/type_lists.h"
#include "simulator/private_interface.h"

namespace odbcimport::test {
namespace {

RouteRun* running = nullptr;  // the callback has no context

std::string FullName(const LcWorkbookTable& table) {
  const std::string owner = ToUtf8(table.GetOwner(false));
  return owner + (owner.empty() ? "" : ".") + ToUtf8(table.GetName());
}

std::string Names(const LcWorkbookKeyList& columns) {
  std::string names;
  for (const LcWorkbookColumn* column : columns.GetColumns()) {
    names += (names.empty() ? "" : ",") + ToUtf8(column->GetName());
  }
  return "(" + names + ")";
}

std::string Side(const LcWorkbookKeyList* columns) {
  if (columns == nullptr || columns->IsEmpty()) return "nothing";
  return FullName(*columns->GetColumns()[0]->GetParentTable()) + Names(*columns);
}

LcTableInfo* Select(LcTableInfoList& list, const std::string& owner, const std::string& name) {
  LcTableInfo* entry = list.Append(std::make_unique<LcTableInfo>());
  entry->owner = ToUtf16(owner);
  entry->name = ToUtf16(name);
  return entry;
}

}  // namespace

RouteRun::RouteRun(Route route, LeDBMSType type, std::unique_ptr<wbtest::Connection> connection)
    : route_(route),
      connection_(std::move(connection)),
      own_types_(std::make_shared<LcODBCDatatypeList>(dbmsUnknown, 0)) {
  if (connection_ != nullptr) {
    base.henv = connection_->henv();
    base.hdbc = connection_->hdbc();
  }
  base.choices.item_mask = ibTables | ibViews;
  base.choices.keys = true;
  base.choices.foreign_keys = true;
  server.dbms_type = type;
}

ImportSession RouteRun::Session() {
  running = this;
  base.choices.dbms_type = server.dbms_type;
  return ImportSession(base, &workbook, server, own_types_, &Callback, current_item);
}

bool RouteRun::Run() {
  ImportSession session = Session();
  return route_(session, status);
}

LcTableInfo* RouteRun::SelectTable(const std::string& owner, const std::string& name) {
  return Select(base.choices.selected_tables, owner, name);
}

LcTableInfo* RouteRun::SelectSynonym(const std::string& owner, const std::string& name,
                                     const LcSynonymDetails& details) {
  LcTableInfo* entry = Select(base.choices.selected_synonyms, owner, name);
  entry->type = ttSynonym;
  entry->synonym = details;
  return entry;
}

void RouteRun::Callback(enumImpNotify notify, void* record) {
  std::string text = std::to_string(notify);
  if (notify == inPhaseStart || notify == inLoopStart) {
    const auto* start = static_cast<const LcImpProgStartInfo*>(record);
    text += " " + std::to_string(start->item_type) + " " + std::to_string(start->count);
  } else if (record != nullptr) {
    const auto* item = static_cast<const LcImpItemInfo*>(record);
    text += " " + ToUtf8(item->text1) + "|" + ToUtf8(item->text2) + "|" + ToUtf8(item->text3) +
            (item->flag ? "" : "-");
  }
  running->events.push_back(text);
  if (running->on_event) running->on_event(text);
}

Lines RouteRun::Tables() const {
  constexpr const char* kKinds[] = {"", " view", " synonym"};
  Lines lines;
  for (const LcWorkbookTable* table : workbook.tables) {
    if (table != nullptr) lines.push_back(FullName(*table) + kKinds[table->GetType()]);
  }
  return lines;
}

Lines RouteRun::ListedNames() const {
  Lines lines;
  for (const LcTableInfo* entry : workbook.table_names) {
    const LcSynonymDetails& of = entry->synonym;
    lines.push_back(std::to_string(entry->type) + " " + ToUtf8(entry->owner + u"." + entry->name) +
                    " " + std::to_string(of.synonym_id) + " " + std::to_string(of.base_table_id) +
                    " " +
                    ToUtf8(of.database_name + u"@" + of.server_name + u":" + of.base_owner + u"." +
                           of.base_table_name));
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

LcWorkbookTable* RouteRun::Table(const std::string& name) const {
  const auto dot = name.find('.');
  if (dot == std::string::npos) return workbook.tables.FindTableNoOwner(ToUtf16(name));
  return workbook.tables.FindTable(ToUtf16(name.substr(0, dot)), ToUtf16(name.substr(dot + 1)));
}

Lines RouteRun::Columns(const std::string& name) const {
  Lines lines;
  const LcWorkbookTable* table = Table(name);
  for (int i = 0; table != nullptr && i < table->GetColumnCount(); ++i) {
    lines.push_back(ColumnText(*table->GetColumn(i)));
  }
  return lines;
}

Lines RouteRun::Keys(const std::string& name) const {
  Lines lines;
  const LcWorkbookTable* wanted = Table(name);
  for (const LcWorkbookTable* table : workbook.tables) {
    if (table == nullptr || (!name.empty() && table != wanted)) continue;
    if (!table->GetPrimaryKey().IsEmpty()) {
      lines.push_back(FullName(*table) + " key " + Names(table->GetPrimaryKey()));
    }
    for (const auto& key : table->GetForeignKeys()) {
      if (key->GetRole() != fkForward) continue;
      lines.push_back(Side(key->GetKey()) + " <- " + Side(key->GetForeignKey()) +
                      (key->IsOneToOne() ? " 1:1" : ""));
    }
  }
  return lines;
}

std::string ColumnText(const LcWorkbookColumn& column) {
  const LcWorkbookDatatype* type = column.GetDataType();
  std::string text = ToUtf8(column.GetName()) + " " + std::to_string(column.GetPhysicalCode());
  if (type != nullptr && type->GetPhysicalCode() != column.GetPhysicalCode()) {
    text += ":" + std::to_string(type->GetPhysicalCode());
  }
  text += " " + std::to_string(column.GetWidth()) + "/" + std::to_string(column.GetPrecision()) +
          "/" + std::to_string(column.GetScale()) + " " +
          (type == nullptr ? "-" : ToUtf8(type->GetTypeName()));
  if (type != nullptr && type->GetExtendedTypeNameCount() > 0) {
    text += " <" + ToUtf8(type->GetExtendedTypeName(0)) + ">";
  }
  if (column.GetIntervalMax() != ipNone) {
    text += " " + std::to_string(column.GetIntervalMax()) + "-" +
            std::to_string(column.GetIntervalMin());
  }
  return text + (column.IsRequired() ? " !" : "") + (column.IsGeneratedKey() ? " *" : "");
}

void ExpectKeysInPairs(const LcWorkbookTableList& tables) {
  for (const LcWorkbookTable* table : tables) {
    for (const LcWorkbookColumn* column : table->GetPrimaryKey().GetColumns()) {
      EXPECT_TRUE(column->IsPrimaryKey()) << FullName(*table);
    }
    for (const auto& key : table->GetForeignKeys()) {
      ASSERT_NE(key->GetKey(), nullptr);
      EXPECT_EQ(key->GetTable(), table);
      for (const LcWorkbookColumn* column : key->GetKey()->GetColumns()) {
        EXPECT_EQ(column->GetParentTable(), table) << Side(key->GetKey());
      }
      const LcWorkbookForeignKey* partner = key->GetPartner();
      ASSERT_NE(partner, nullptr) << Side(key->GetKey());
      EXPECT_EQ(partner->GetPartner(), key.get());
      EXPECT_NE(partner->GetRole(), key->GetRole());
      EXPECT_EQ(Side(key->GetKey()), Side(partner->GetForeignKey()));
      EXPECT_EQ(Side(key->GetForeignKey()), Side(partner->GetKey()));
    }
  }
}

void ExpectEndsWhereverTheHostStops(const std::function<std::unique_ptr<RouteRun>()>& make,
                                    std::size_t step) {
  const auto whole = make();
  whole->Run();
  const std::size_t total = whole->events.size();
  ASSERT_GT(total, 45u);
  // Behind the last loop there is no stop check any more.
  for (std::size_t at = 1; at + 1 < total; at += at < 25 || at + 25 > total ? 1 : step) {
    SCOPED_TRACE("stopped at notification " + std::to_string(at) + ": " + whole->events[at - 1]);
    const bool cancel = at % 2 == 0;
    const auto run = make();
    run->on_event = [&](const std::string&) {
      if (run->events.size() == at) run->End(cancel);
    };
    run->Run();
    ASSERT_EQ(run->status, cancel ? 4 : 9);
    const auto end = run->events.begin() + static_cast<std::ptrdiff_t>(at);
    EXPECT_TRUE(std::equal(run->events.begin(), end, whole->events.begin()));
    EXPECT_NE(run->events.back(), "1");
    // A phase that has begun still reports its end, and keys that were read are put together.
    const auto is_item = [](const std::string& event) {
      return event[0] == '6' || event[0] == '8';
    };
    EXPECT_LE(run->events.end() - end - std::count_if(end, run->events.end(), is_item), 4)
        << testing::PrintToString(run->events);
    EXPECT_EQ(run->connection().GetInfo(catalogsim::kInfoOpenStatements), 0u);
    ExpectKeysInPairs(run->workbook.tables);
  }
}

}  // namespace odbcimport::test
