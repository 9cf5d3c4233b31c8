// One import through the module.
#include "host/import_run.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

#include "host/inexact_names.h"
#include "host/interrupt.h"
#include "host/text.h"
#include "importer/name_check.h"

namespace wbhost {
namespace {

constexpr unsigned short kStatusCancelled = 4;
constexpr unsigned short kStatusStopped = 9;

// A server without owners may hold several databases, all of which its driver lists for a null
// catalog (MariaDB): the one that the connection is in is meant.
std::u16string CatalogToRead(const Connection& connection) {
  return connection.SupportsOwners() ? std::u16string() : connection.CurrentCatalog();
}

void FillServerFacts(const LcODBCWorkbookImport::RouteDecision& decision,
                     LcWorkbookFileInfo& info) {
  info.dbms_name = decision.dbms_name;
  info.dbms_version = decision.dbms_version;
  info.dbms_type = decision.dbms_type;
  info.route = LcODBCWorkbookImport::GetRoute(decision.route).name;
  info.dialect = ToUtf16(decision.dialect);
}

}  // namespace

StartedModule::StartedModule(const std::optional<std::string>& message_folder) {
  std::string why;
  if (!OdbcImportStart(message_folder ? message_folder->c_str() : nullptr, why)) {
    throw Failure(ExitCode::kConnection, "the import module did not start: " + why);
  }
  note_ = why;
}

StartedModule::~StartedModule() { OdbcImportStop(); }

// What made an import return false, which the module does not tell, and where to look. A call that
// failed ends the generic route; failing that, it is the step with the last word, which the server
// does not answer: of those that were asked for and brought nothing the last of its route.
std::pair<std::string, std::string> WhyFalse(const ImportResult& result, const std::string& log) {
  if (!result.last_failure.empty()) return {result.last_failure, log};
  const LcWorkbook& workbook = *result.workbook;
  for (const LcNotRead& missing : workbook.details.not_read) {
    if (missing.kind.View() == u"all that follows") return {ToUtf8(missing.reason.View()), log};
  }
  const std::pair<std::uint32_t, bool> steps[] = {
      {ibProcedures, workbook.procedures.IsEmpty()},
      {ibTables | ibViews | ibSynonyms, workbook.tables.IsEmpty()},
      {ibAggregates, workbook.aggregates.IsEmpty()},
      {ibFunctions, workbook.functions.IsEmpty()},
      {ibBooleanFunctions, workbook.boolean_functions.IsEmpty()},
      {ibColumnNames, workbook.column_names.IsEmpty()},
      {ibTableNames | ibViewNames | ibSynonymNames, workbook.table_names.IsEmpty()},
      {ibOwnerNames, workbook.owner_names.IsEmpty()},
  };
  const char* const where = "docs/servers.md tells what is read of each server";
  for (const auto& [items, is_empty] : steps) {
    for (const Item& item : AllItems()) {
      if (is_empty && (item.bit & items & result.items) != 0) {
        return {fmt::format("this server's route found no {}", item.name), where};
      }
    }
  }
  return {"its last step found nothing", where};
}

// An importer that is lent the connection for its lifetime.
class ImportRunner::Importer : public LcODBCWorkbookImport {
 public:
  Importer(ImportRunner& runner, const LcImportChoices& wanted, LcWorkbook* workbook)
      : LcODBCWorkbookImport(&ImportRunner::OnNotify, workbook) {
    choices = wanted;
    if (choices.catalog.empty()) choices.catalog = runner.catalog_;
    login = &runner.login_;
    SyncLogin(runner.connection_.henv(), runner.connection_.hdbc());
  }
  ~Importer() override { UnSyncLogin(); }
};

ImportRunner* ImportRunner::active_ = nullptr;

ImportRunner::ImportRunner(const Connection& connection, const InstalledServices& services,
                           ProgressMode progress, Screen& screen, Reports& reports,
                           RunRecording& recording, const ReplayNotes* notes)
    : connection_(connection),
      services_(services),
      progress_mode_(progress),
      screen_(screen),
      reports_(reports),
      recording_(recording),
      notes_(notes),
      catalog_(CatalogToRead(connection)),
      database_(connection.DatabaseName()) {
  login_.connect_text = ToUtf16(connection.connect_text());
}

ImportResult ImportRunner::Run(const LcImportChoices& choices, std::uint32_t item_mask,
                               bool traced) {
  CheckNames(choices);
  is_part_ = !choices.selected_tables.IsEmpty();
  ImportResult result;
  result.workbook = std::make_unique<LcWorkbook>();
  result.items = item_mask;
  result.info.database = choices.catalog.empty() ? database_ : choices.catalog;
  failures_before_ = services_.Failures();
  result_ = &result;
  Progress progress(progress_mode_, screen_, choices.keys, choices.foreign_keys);
  {
    Importer importer(*this, choices, result.workbook.get());
    importer.choices.item_mask = item_mask;
    // Without the item, types are created from the importer's own list.
    if ((item_mask & ibDataTypes) == 0) importer.targets.data_types = nullptr;
    importer_ = &importer;
    progress_ = &progress;
    traced_ = traced;
    // What only reads names is not repeated: a recording has the names.
    if (traced) ++imports_;
    notifications_ = 0;
    active_ = this;
    unsigned short status = 0;
    result.info.result = importer.ImportItems(status);
    active_ = nullptr;
    result.info.status = status;
    if (const auto* taken = importer.GetRouteTaken()) {
      FillServerFacts(*taken, result.info);
      result.why_not_exact = taken->why_not_exact;
    }
    importer_ = nullptr;
    progress_ = nullptr;
  }
  result.seconds = progress.Finish();
  result.info.errors_shown = services_.ErrorsShown();
  result.connection_lost = connection_.IsDead();
  if (services_.Failures() != failures_before_) result.last_failure = services_.LastFailure();
  result.info.incomplete = result.info.status != 0 || result.connection_lost;
  AddLost(result);
  result_ = nullptr;
  return result;
}

void ImportRunner::AddLost(ImportResult& result) const {
  std::vector<LcNotRead> lost = services_.ledger().Take();
  if (result.info.route == u"exact") return;
  std::vector<LcNotRead>& not_read = result.workbook->details.not_read;
  // The catalog functions' reading ends with the first table whose columns fail.
  if (!lost.empty() && lost.back().kind.View() == u"columns" && !result.info.result) {
    const LcText reason(u"the import ended at " +
                        ToUtf16(DisplayName(lost.back().owner.Text(), lost.back().name.Text())));
    for (const LcWorkbookTable* table : result.workbook->tables.Present()) {
      if (table->GetColumnCount() != 0 || table->GetName() == lost.back().name.View()) continue;
      LcNotRead& entry = not_read.emplace_back();
      entry.kind = LcText(u"columns");
      if (!table->GetOwner(true).empty()) entry.owner = LcText(table->GetOwner(true));
      entry.name = LcText(table->GetName());
      entry.reason = reason;
    }
  }
  const bool failed = std::any_of(not_read.begin(), not_read.end(),
                                  [](const LcNotRead& missing) { return !missing.withheld; });
  result.info.incomplete = result.info.incomplete || !lost.empty() || failed;
  std::move(lost.begin(), lost.end(), std::back_inserter(not_read));
  // A route with SQL of its own has names between quotes.
  if (result.info.route != u"odbc") return;
  std::vector<LcNotRead> inexact = FindInexactNames(*result.workbook, is_part_);
  std::move(inexact.begin(), inexact.end(), std::back_inserter(not_read));
}

ImportResult ImportRunner::TakeRest() {
  // A run that only prepares another one has read nothing that was asked for.
  if (result_ == nullptr || !traced_) return {};
  ImportResult rest = std::move(*result_);
  if (importer_ != nullptr) {
    if (const auto* taken = importer_->GetRouteTaken()) FillServerFacts(*taken, rest.info);
  }
  rest.info.result = false;
  rest.info.status = GetInterruptWish() == InterruptWish::kCancel ? kStatusCancelled : 0;
  rest.info.errors_shown = services_.ErrorsShown();
  rest.last_failure = "a call of the driver did not come back";
  AddLost(rest);
  rest.info.incomplete = true;
  LcNotRead& entry = rest.workbook->details.not_read.emplace_back();
  entry.kind = LcText(u"all that follows");
  entry.reason = LcText(u"a call of the driver did not come back");
  return rest;
}

// On the routes with SQL of their own; elsewhere a name is an argument or a parameter.
void ImportRunner::CheckNames(const LcImportChoices& choices) {
  std::u16string name;
  std::string why;
  if (unsafe_names_ || !OdbcImportFindUnsafeName(choices, name, why)) return;
  const std::u16string route = LcODBCWorkbookImport::GetRoute(DecideRoute(choices).route).name;
  if (route != u"informix" && route != u"native") return;
  throw Failure(
      ExitCode::kUsage,
      fmt::format("the name '{}' is not put into a statement: {}; --reading exact, where a dialect "
                  "fits the server, and --generic pass names apart, --unsafe-names lets it pass",
                  ToUtf8(name), why));
}

LcODBCWorkbookImport::RouteDecision ImportRunner::DecideRoute(const LcImportChoices& choices) {
  LcWorkbook workbook;
  return Importer(*this, choices, &workbook).DecideRoute();
}

void ImportRunner::Judge(const ImportResult& result, Outcome& outcome) const {
  const std::string log = reports_.log.IsOpen() ? "see " + reports_.log.name()
                                                : "--log FILE keeps what the driver said";
  const std::uint32_t shown = result.info.errors_shown;
  if (result.connection_lost) {
    outcome.Add(ExitCode::kConnection, "the connection was lost: incomplete", log);
  }
  if (result.info.status == kStatusCancelled) {
    outcome.Add(ExitCode::kCancelled, "cancelled, incomplete");
  }
  if (result.info.status == kStatusStopped) outcome.Add(ExitCode::kStopped, "stopped, incomplete");
  if (!result.info.result) {
    const auto [why, where] = WhyFalse(result, log);
    outcome.Add(ExitCode::kImportFalse, "the import returned false: " + why, where);
  }
  if (shown > 0) {
    outcome.Add(
        ExitCode::kErrorsShown,
        fmt::format("the import ended well but for {} shown above",
                    shown == 1 ? "a database error" : fmt::format("{} database errors", shown)),
        log);
  }
  SayWhatIsMissing(result, outcome);
}

void ImportRunner::SayWhatIsMissing(const ImportResult& result, Outcome& outcome) const {
  // The first of each kind and reason; the others are in the file.
  const std::vector<LcNotRead>& all = result.workbook->details.not_read;
  std::map<std::pair<std::u16string_view, std::u16string_view>, std::size_t> counts;
  for (const LcNotRead& missing : all) ++counts[{missing.kind.View(), missing.reason.View()}];
  for (const LcNotRead& missing : all) {
    if (!missing.withheld)
      outcome.Add(ExitCode::kErrorsShown, "not all was read", "each kind is told above");
    std::size_t& count = counts[{missing.kind.View(), missing.reason.View()}];
    if (count == 0) continue;
    std::string what = ToUtf8(missing.kind.View());
    const std::string name = DisplayName(missing.owner.Text(), missing.name.Text());
    if (!name.empty()) what += " of " + name;
    screen_.Say(fmt::format("not read: {}{}: {}", what,
                            count > 1 ? fmt::format(" and {} more", count - 1) : "",
                            ToUtf8(missing.reason.View())));
    count = 0;
  }
}

void ImportRunner::OnNotify(enumImpNotify notify, void* record) { active_->Notify(notify, record); }

void ImportRunner::Notify(enumImpNotify notify, void* record) {
  // A route sets the running mark when it starts, so that an interrupt before counts from here on.
  // What was refused while the route was looked for is no failure of the import.
  if (++notifications_ == 1) failures_before_ = services_.Failures();
  if (notify == inImportStart) {
    services_.ledger().Take();
  } else if (notify == inPhaseStart || notify == inLoopStart) {
    services_.ledger().SetPhase(static_cast<const LcImpProgStartInfo*>(record)->item_type);
  }
  InterruptWish wish = GetInterruptWish();
  if (notes_ != nullptr) wish = std::max(wish, notes_->WishAt(imports_, notifications_));
  recording_.NoteInterrupt(wish, imports_, notifications_);
  if (wish != InterruptWish::kNone) importer_->running = false;
  if (wish == InterruptWish::kCancel) importer_->cancelled = true;

  if (traced_ && reports_.trace.IsOpen()) reports_.trace.WriteLine(TraceLine(notify, record));

  progress_->Notify(notify, record);
}

}  // namespace wbhost
