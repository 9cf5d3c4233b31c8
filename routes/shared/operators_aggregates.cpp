// The operators and aggregates that every server of a kind offers, and the users' aggregates of
// Informix Universal Server.
#include <memory>
#include <span>
#include <string>

#include "odbc/record_list.h"
#include "routes/shared/function_queries.h"
#include "routes/shared/readers.h"

namespace odbcimport {
namespace {

using Name = const char16_t*;

// The name of each is its description too.
constexpr Name kOperators[] = {u"=", u"<", u"<=", u">", u">=", u"<>", u"like", u"is"};

// clang-format off
constexpr Name kInformix[]  = {u"AVG", u"COUNT", u"MAX", u"MIN", u"STDEV", u"SUM", u"RANGE", u"VARIANCE"};
constexpr Name kSQLServer[] = {u"AVG", u"COUNT", u"MAX", u"MIN", u"STDEV", u"STDEVP", u"SUM", u"VAR", u"VARP"};
constexpr Name kOracle[]    = {u"AVG", u"COUNT", u"MAX", u"MIN", u"STDDEV", u"SUM", u"VARIANCE"};
constexpr Name kDB2[]       = {u"AVG", u"COUNT", u"COUNT_BIG", u"GROUPING", u"MAX", u"MIN", u"STDDEV", u"VARIANCE",
                               u"SUM"};
constexpr Name kRedBrick[]  = {u"AVG", u"COUNT", u"MIN", u"MAX", u"SUM"};
constexpr Name kOthers[]    = {u"AVG", u"COUNT", u"MAX", u"MIN", u"SUM"};
// clang-format on

std::span<const Name> BuiltInAggregates(LeDBMSType dbms_type) {
  switch (dbms_type) {
    case dbmsInformix:
      return kInformix;
    case dbmsMSSQLServer:
      return kSQLServer;
    case dbmsOracle:
      return kOracle;
    case dbmsDB2:
      return kDB2;
    case dbmsRedBrick:
      return kRedBrick;
    default:
      return kOthers;
  }
}

}  // namespace

void GetOperators(ImportSession& session) {
  LcWorkbookOperatorList* operators = session.sink.operators();
  if (operators == nullptr) return;
  for (Name name : kOperators) operators->Append(std::make_unique<LcWorkbookOperator>(name, name));
}

void GetAggregates(ImportSession& session) {
  LcWorkbookAggregateList* aggregates = session.sink.aggregates();
  if (aggregates == nullptr) return;
  const LeDBMSType dbms_type = session.server().dbms_type;
  session.progress.StatusDialog(inPhaseStart, iiAggregates);
  const std::optional<std::u16string> sql =
      BuildAggregateQuery(session.choices, dbms_type, session.IsIUS());
  if (sql) {
    const QueryResult query = session.RunQuery(*sql);
    const LcODBCRecordList& rows = query.RowsEvenIfFailed();
    for (int row = 1; row <= rows.GetRowCount(); ++row) {
      const std::u16string name(rows.View(row, 1));
      aggregates->Append(std::make_unique<LcWorkbookAggregate>(name, name));
    }
  }
  for (Name name : BuiltInAggregates(dbms_type)) {
    aggregates->Append(std::make_unique<LcWorkbookAggregate>(name, name));
  }
  session.progress.StatusDialog(inPhaseEnd);
}

bool DoesTableExist(ImportSession& session, const std::u16string& owner,
                    const std::u16string& table) {
  // Without a text the empty one is run, and the user sees why there is no answer.
  const std::u16string sql =
      BuildTableExistsQuery(owner, table, session.server().dbms_type).value_or(std::u16string());
  return session.RunQuery(sql).RowsEvenIfFailed().GetRowCount() > 0;
}

bool DoesExtendedTypeHaveSize(const LcWorkbookDatatype* type) { return type->GetExtendedId() == 0; }

}  // namespace odbcimport
