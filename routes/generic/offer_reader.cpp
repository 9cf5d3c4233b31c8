// Reads what a server offers besides tables.
#include "routes/generic/offer_reader.h"

#include <memory>
#include <span>
#include <string>

#include "catalogues/function_walk.h"
#include "routes/generic/bound.h"
#include "routes/generic/catalog_statement.h"
#include "routes/generic/connection_facts.h"
#include "routes/shared/readers.h"

namespace odbcimport::generic {
namespace {

constexpr const char16_t* kAccessAggregates[] = {u"Avg", u"Count", u"First", u"Last",
                                                 u"Min", u"Max",   u"StDev", u"StDevP",
                                                 u"Sum", u"Var",   u"VarP"};

constexpr const char16_t* kAggregates[] = {u"AVG", u"COUNT", u"MAX", u"MIN", u"SUM"};

}  // namespace

bool GetProceduresODBC(ImportSession& session) {
  LcWorkbookProcedureList* procedures = session.sink.procedures();
  if (procedures == nullptr) return false;

  const LcImportChoices& choices = session.choices;
  const char16_t* owner_pattern = ArgumentOrNull(
      choices.single_item_owner.empty() ? choices.owner_restriction : choices.single_item_owner);

  BoundText qualifier;
  BoundText owner;
  BoundText name;
  CatalogStatement statement;
  SQLRETURN result = statement.Open(
      session.connection.hdbc(),
      [&](odbc::Statement& call) {
        return call.Procedures(CatalogArgument(choices), owner_pattern, nullptr);
      },
      [&](odbc::Statement& bind) {
        qualifier.Bind(bind, 1);
        owner.Bind(bind, 2);
        name.Bind(bind, 3);
      });
  std::u16string last_name;
  // Required (simulated_route_test): only a stop ends the loop. A cancelled import throws the list
  // away, a stopped one keeps it.
  while (odbc::Succeeded(result) && session.progress.IsRunning()) {
    qualifier.Empty();
    owner.Empty();
    name.Empty();
    result = statement.Fetch();
    if (!odbc::Succeeded(result)) break;
    // A procedure comes once for every way of calling it.
    if (name.Read() == last_name) continue;
    last_name = name.Read();
    auto procedure = std::make_unique<LcWorkbookProcedure>();
    procedure->SetName(last_name);
    procedure->SetOwner(std::u16string(owner.Read()));
    // Required (simulated_route_test): the name once more, by which hosts address the procedure.
    procedure->SetServer(last_name);
    procedure->SetQualifier(std::u16string(qualifier.Read()));
    procedures->Append(std::move(procedure));
  }
  if (result == SQL_ERROR) handleErrorMsgsODBC(session, statement.Get());
  return true;
}

void GetOperatorsODBC(ImportSession& session) { GetOperators(session); }

void GetAggregatesODBC(ImportSession& session) {
  if (session.sink.aggregates() == nullptr) return;
  const bool access = session.server().dbms_type == dbmsAccess;
  for (const char16_t* name :
       access ? std::span<const char16_t* const>(kAccessAggregates) : kAggregates) {
    session.sink.aggregates()->Append(std::make_unique<LcWorkbookAggregate>(name, name));
  }
}

bool GetBooleanFunctionsODBC(ImportSession& /*session*/) { return false; }

bool GetGeneralFunctionsODBC(ImportSession& session) {
  if (session.server().dbms_type != dbmsAccess) return false;
  GetSystemFunctionsAccess(session);
  return true;
}

}  // namespace odbcimport::generic
