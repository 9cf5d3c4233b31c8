// The generic route on a practice server with owners, and on drivers that answer as some do.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "routes/generic/generic_route.h"
#include "routes/generic/type_info_reader.h"
#include "tests/routes/route_run.h"

namespace odbcimport::generic {
namespace {

using namespace test;  // NOLINT: its recorders are what every test here is about

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class ODBCImport : public RouteRun {
 public:
  explicit ODBCImport(const std::string& name, const std::string& keywords = "")
      : RouteRun(&ImportODBCItems, dbmsUnknown, wbtest::Connection::OpenSimulator(name, keywords)) {
  }
};

TEST(SimulatedRoute, ListsOwnersOnce) {
  ODBCImport run("generic");
  run.base.choices.item_mask = ibOwnerNames;
  EXPECT_TRUE(run.Run());
  EXPECT_TRUE(run.server.owner_supported);
  EXPECT_THAT(run.events, ElementsAre("0", "2 4 0", "3"));
  Lines owners;
  for (const auto* owner : run.workbook.owner_names) owners.push_back(ToUtf8(owner->name));
  EXPECT_THAT(owners, testing::UnorderedElementsAre("accounts", "information_schema", "library"));
}

TEST(SimulatedRoute, AddsTheSystemOwnersTablesToARestrictedImport) {
  struct {
    const char16_t* restriction;
    bool include_system;
    std::size_t of_library;
    std::size_t of_system;
  } const cases[] = {
      {u"library", false, 17, 0},  // its views too, though tables alone are asked for
      {u"library", true, 17, 6},  {u"information_schema", true, 0, 6},  // not a second time
      {u"", false, 15, 0},        {u"", true, 15, 6},
  };
  for (const auto& c : cases) {
    ODBCImport run("generic");
    run.base.choices.item_mask = ibTables;
    run.base.choices.owner_restriction = c.restriction;
    run.base.choices.include_system = c.include_system;
    EXPECT_TRUE(run.Run());
    std::map<std::u16string, std::size_t> tables;  // by owner
    for (const LcWorkbookTable* table : run.workbook.tables) ++tables[table->GetOwner(false)];
    EXPECT_EQ(tables[u"library"], c.of_library);
    EXPECT_EQ(tables[u"information_schema"], c.of_system);
    EXPECT_EQ(run.server.system_owner, c.include_system ? u"information_schema" : u"");
  }
}

TEST(SimulatedRoute, LooksForAReferencingTableUnderTheReferencedOnesOwner) {
  ODBCImport run("generic");
  EXPECT_TRUE(run.Run());
  EXPECT_THAT(run.Tables(), Contains("accounts.fine"));
  // accounts.fine refers to library.loan.
  EXPECT_THAT(run.Keys("loan"), ElementsAre("library.loan key (loan_id)"));
  EXPECT_THAT(
      run.Keys("copy"),
      ElementsAre("library.copy key (isbn,copy_number)", "library.copy(isbn) <- library.loan(isbn)",
                  "library.copy(copy_number) <- library.loan(copy_number)"));
  ExpectKeysInPairs(run.workbook.tables);
}

TEST(SimulatedRoute, EndsWhenTheColumnsOfATableCannotBeRead) {
  ODBCImport run("generic", "Fail=SQLColumns:3");
  EXPECT_FALSE(run.Run());
  EXPECT_EQ(run.status, 0);
  ASSERT_EQ(run.workbook.tables.GetCount(), 18U);  // all stay
  for (std::size_t i = 0; i < 18; ++i) {
    EXPECT_EQ(run.workbook.tables.GetAt(i)->GetColumnCount() > 0, i < 2) << i;
  }
  EXPECT_THAT(run.events, Not(Contains("5")));
}

TEST(SimulatedRoute, GoesOnWithoutKeysThatCannotBeRead) {
  for (const char* fault : {"Fail=SQLPrimaryKeys:*,SQLForeignKeys:*", "Without=SQLForeignKeys"}) {
    ODBCImport run("generic", fault);
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(run.Columns("loan").size(), 8U);
    EXPECT_THAT(run.Keys("copy"), Not(Contains(testing::HasSubstr("<-"))));
    EXPECT_EQ(run.events.back(), "5");
  }
}

TEST(SimulatedRoute, MakesAKeyOfAllUniqueIndexesWhereThereAreNoPrimaryKeys) {
  ODBCImport run("generic", "Without=SQLPrimaryKeys");
  EXPECT_TRUE(run.Run());
  EXPECT_THAT(run.Keys("member"), Contains("library.member key (card_number,member_id)"));
  EXPECT_THAT(run.Keys("copy"), Contains("library.copy key (isbn,copy_number)"));
  EXPECT_THAT(run.Keys("overdue_loan"), IsEmpty());
}

TEST(SimulatedRoute, TakesAColumnOfTwoUniqueIndexesIntoTheKeyOnce) {
  ODBCImport run("generic",
                 "Without=SQLPrimaryKeys;Sql={INSERT INTO information_schema.indexes VALUES "
                 "('library', 'member', 'member_both', 1, 1, 'member_id'), "
                 "('library', 'member', 'member_both', 1, 2, 'card_number')}");
  EXPECT_TRUE(run.Run());
  const LcWorkbookTable* table = run.Table("member");
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->GetPrimaryKey().GetCount(), 2);
}

TEST(SimulatedRoute, OrdersAKeyByItsSequenceAndSkipsHoles) {
  ODBCImport run("generic",
                 "Sql={UPDATE information_schema.key_column_usage SET ordinal_position = "
                 "CASE column_name WHEN 'isbn' THEN 7 ELSE 3 END WHERE table_name = 'copy' AND "
                 "constraint_type = 'PRIMARY KEY'}");
  EXPECT_TRUE(run.Run());
  EXPECT_THAT(run.Keys("copy"), Contains("library.copy key (copy_number,isbn)"));
}

TEST(SimulatedRoute, SkipsAProcedureOfTheSameNameAsTheOneBefore) {
  struct {
    const char16_t* single_item_owner;
    const char16_t* restriction;
    Lines procedures;
  } const cases[] = {
      {u"",
       u"",
       {"accounts.fine_of", "accounts.return_copy", "library.lend_copy", "library.return_copy"}},
      {u"", u"library", {"library.lend_copy", "library.return_copy"}},
      {u"accounts", u"library", {"accounts.fine_of", "accounts.return_copy"}},
  };
  for (const auto& c : cases) {
    ODBCImport run("generic",
                   "Sql={INSERT INTO information_schema.routines VALUES "
                   "('library', 'lend_copy', 'PROCEDURE')}");
    run.base.choices.item_mask = ibProcedures;
    run.base.choices.single_item_owner = c.single_item_owner;
    run.base.choices.owner_restriction = c.restriction;
    EXPECT_TRUE(run.Run());
    Lines procedures;
    for (const LcWorkbookProcedure* procedure : run.workbook.procedures) {
      EXPECT_EQ(procedure->GetServer(), procedure->GetName());
      procedures.push_back(ToUtf8(procedure->GetOwner() + u"." + procedure->GetName()));
    }
    EXPECT_EQ(procedures, c.procedures);
  }
}

TEST(SimulatedRoute, ReadsThroughADriverThatCannotReuseAStatement) {
  for (const char* server : {"generic", "access"}) {
    ODBCImport plain(server);
    ODBCImport growing(server, "GrowingColumns=1");
    EXPECT_TRUE(plain.Run());
    EXPECT_TRUE(growing.Run());
    EXPECT_EQ(growing.Tables(), plain.Tables());
    EXPECT_EQ(growing.events, plain.events);
    for (const char* table : {"loan", "copy", "staff"}) {
      EXPECT_THAT(plain.Columns(table), Not(IsEmpty())) << server;
      EXPECT_EQ(growing.Columns(table), plain.Columns(table)) << server;
    }
    EXPECT_EQ(growing.Keys(), plain.Keys()) << server;
  }
}

TEST(SimulatedRoute, MarksColumnsThatTheServerNumbers) {
  ODBCImport run("access");
  run.server.dbms_type = dbmsAccess;
  EXPECT_TRUE(run.Run());
  const LcWorkbookTable* table = run.Table("member");
  ASSERT_NE(table, nullptr);
  EXPECT_TRUE(table->GetColumn(0)->IsGeneratedKey());
  EXPECT_TRUE(table->GetColumn(0)->IsReadOnly());
  EXPECT_FALSE(table->GetColumn(1)->IsGeneratedKey());
}

TEST(SimulatedRoute, TakesPrecisionsOnUniversalServerAndLengthsElsewhere) {
  const struct {
    bool is_ius;
    Lines sizes;
  } cases[] = {{true,
                {"currency rate 16,0", "branch latitude 15,0", "event fee 4,0", "fine amount 6,2",
                 "price amount 10,2"}},
               {false,
                {"currency rate 18,0", "branch latitude 8,0", "event fee 4,0", "fine amount 8,2",
                 "price amount 12,2"}}};
  for (const auto& c : cases) {
    ODBCImport run(
        "informix",
        "Sql={UPDATE informix.sim_types SET data_type = 6 WHERE type_name = 'float'}");  // SQL_FLOAT
    run.server.dbms_type = dbmsInformix;
    run.server.is_ius = c.is_ius;
    EXPECT_TRUE(run.Run());
    Lines sizes;
    for (const LcWorkbookTable* table : run.workbook.tables) {
      for (const char16_t* name : {u"latitude", u"fee", u"rate", u"amount"}) {
        const LcWorkbookColumn* column = table->FindColumn(name);
        if (column != nullptr) {
          sizes.push_back(ToUtf8(table->GetName()) + " " + ToUtf8(name) + " " +
                          std::to_string(column->GetPrecision()) + "," +
                          std::to_string(column->GetScale()));
        }
      }
    }
    EXPECT_EQ(sizes, c.sizes) << c.is_ius;
  }
}

TEST(SimulatedRoute, KeepsWhatCameBeforeAFailedFetch) {
  ODBCImport run("generic", "FetchError=4");
  EXPECT_FALSE(run.Run());
  // Three tables came; the first has three columns, and then the route ends.
  ASSERT_EQ(run.workbook.tables.GetCount(), 3U);
  EXPECT_EQ(run.workbook.tables.GetAt(0)->GetColumnCount(), 3);
  EXPECT_EQ(run.workbook.tables.GetAt(1)->GetColumnCount(), 0);
}

TEST(SimulatedRoute, ListsSystemTablesAsTablesEvenAmongNames) {
  ODBCImport run("generic");
  run.base.choices.item_mask = ibTableNames;
  run.base.choices.owner_restriction = u"library";
  run.base.choices.include_system = true;
  EXPECT_TRUE(run.Run());
  EXPECT_EQ(run.workbook.table_names.GetCount(), 17U);
  EXPECT_EQ(run.workbook.tables.GetCount(), 6U);
}

TEST(SimulatedRoute, EndsTheListOfProceduresForAStopAlone) {
  for (const bool cancel : {false, true}) {
    ODBCImport run("generic");
    run.base.choices.item_mask = ibProcedures;
    run.on_event = [&](const std::string&) { run.End(cancel); };
    run.Run();
    EXPECT_EQ(run.workbook.procedures.IsEmpty(), !cancel);
  }
}

TEST(SimulatedRoute, GivesTheLastRelationshipToTheTableOfTheLastRow) {
  // reservation is the last table that refers to member, and loan the one before.
  ODBCImport run("generic",
                 "Sql={UPDATE information_schema.key_column_usage SET column_name = 'gone' WHERE "
                 "table_name = 'reservation' AND column_name = 'member_id' AND "
                 "constraint_type = 'FOREIGN KEY'}");
  EXPECT_TRUE(run.Run());
  EXPECT_THAT(run.Keys("member"), Contains("library.member(member_id) <- library.loan(member_id)"));
  bool holds_mirror = false;  // one whose columns are loan's
  for (const auto& key : run.Table("library.reservation")->GetForeignKeys()) {
    holds_mirror |= key->GetKey()->GetColumns()[0]->GetParentTable() != key->GetTable();
  }
  EXPECT_TRUE(holds_mirror);
}

// What a host's call log shows of the keys.
TEST(SimulatedRoute, AsksForIndexesWithoutOwnerAndTakesTheColumnsDiagnostic) {
  struct Log : platform::CallLog {
    void OnCall(const platform::DriverCall& call) override {
      const std::string_view function = call.function;
      if (function == "SQLColumnsW") columns = call.handle;
      if (function == "SQLStatisticsW") {
        EXPECT_EQ(std::string_view(call.asked[1].name), "owner");
        EXPECT_EQ(std::get<const char16_t*>(call.asked[1].value), nullptr);
        ++indexes;
      }
      if (keys_failed) {
        EXPECT_EQ(function, "SQLErrorW");
        EXPECT_EQ(call.handle, columns);
        ++diagnostics;
      }
      keys_failed = function == "SQLPrimaryKeysW";
    }
    void* columns = nullptr;
    bool keys_failed = false;
    int indexes = 0;
    int diagnostics = 0;
  };
  const auto log = std::make_shared<Log>();
  const wbtest::ScopedService<platform::CallLog> scope(platform::GetServices().call_log, log);
  for (const char* fault : {"Without=SQLPrimaryKeys", "Fail=SQLPrimaryKeys:*"}) {
    ODBCImport run("generic", fault);
    run.Run();
    EXPECT_THAT(run.messages.shown(), IsEmpty());
  }
  EXPECT_EQ(log->indexes, 18);
  EXPECT_EQ(log->diagnostics, 18);
}

TEST(SimulatedRoute, ReadsTheTypesThatTheDriverLists) {
  ODBCImport run("generic");
  ImportSession session = run.Session();
  LcWorkbookDatatypeList types;
  ASSERT_TRUE(GetDataTypesODBC(session, types));
  Lines lines;
  for (const LcWorkbookDatatype* type : types) {
    std::string line = ToUtf8(type->GetTypeName());
    for (const long number :
         {long{type->GetPhysicalCode()}, static_cast<long>(type->GetLength()),
          static_cast<long>(type->GetPrecision()), static_cast<long>(type->GetScale()),
          long{type->GetGenericCode()}, long{type->GetTypeGroup()}}) {
      line += ' ' + std::to_string(number);
    }
    lines.push_back(line + (type->IsSizeModifiable() ? " sized" : ""));
  }
  // Physical code, length, precision and scale cut to 16 bits, generic code, group.
  EXPECT_THAT(
      lines,
      ElementsAre("CHARACTER LARGE OBJECT 0 65535 65535 0 1 0 sized",
                  "CHARACTER VARYING 0 4000 4000 0 1 0 sized", "CHARACTER 0 254 254 0 1 0 sized",
                  "BOOLEAN 0 1 1 0 1 0 sized", "BIGINT 0 19 19 0 1 0 sized",
                  "BINARY LARGE OBJECT 0 65535 65535 0 1 0 sized", "DECIMAL 2 38 38 38 2 1 sized",
                  "INTEGER 3 10 10 0 3 1", "SMALLINT 4 5 5 0 3 1", "REAL 6 7 7 0 4 1",
                  "DOUBLE PRECISION 7 15 15 0 4 1", "DATE 15 10 10 0 6 4", "TIME 16 8 8 0 7 4",
                  "TIMESTAMP 17 26 26 6 8 4"));
}

}  // namespace
}  // namespace odbcimport::generic
