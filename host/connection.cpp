// The host's ODBC connection.
#include "host/connection.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <exception>

#include "base/connection_string.h"
#include "host/driver_calls.h"
#include "host/odbc_handles.h"
#include "host/outcome.h"
#include "host/text.h"

namespace wbhost {
namespace {

struct FunctionName {
  const char* name;
  SQLUSMALLINT id;
};
constexpr std::array<FunctionName, 9> kFunctions = {{
    {"SQLTables", SQL_API_SQLTABLES},
    {"SQLColumns", SQL_API_SQLCOLUMNS},
    {"SQLPrimaryKeys", SQL_API_SQLPRIMARYKEYS},
    {"SQLForeignKeys", SQL_API_SQLFOREIGNKEYS},
    {"SQLStatistics", SQL_API_SQLSTATISTICS},
    {"SQLProcedures", SQL_API_SQLPROCEDURES},
    {"SQLGetTypeInfo", SQL_API_SQLGETTYPEINFO},
    {"SQLExtendedFetch", SQL_API_SQLEXTENDEDFETCH},
    {"SQLMoreResults", SQL_API_SQLMORERESULTS},
}};

// Debian's packages of drivers, by what they register.
struct DriverPackage {
  const char* mark;  // a part of a driver's name, lower case
  const char* package;
};
constexpr std::array<DriverPackage, 6> kDriverPackages = {{
    {"sqlite", "libsqliteodbc"},
    {"postgres", "odbc-postgresql"},
    {"psql", "odbc-postgresql"},
    {"maria", "odbc-mariadb"},
    {"mysql", "odbc-mariadb"},
    {"mdb", "odbc-mdbtools"},
}};

std::string NamesOf(const std::vector<Installed>& entries) {
  constexpr std::size_t kMostNamed = 20;
  std::string names;
  for (std::size_t i = 0; i < entries.size() && i < kMostNamed; ++i) {
    names += (names.empty() ? "" : ", ") + entries[i].name;
  }
  if (entries.size() > kMostNamed) names += fmt::format(", {} more", entries.size() - kMostNamed);
  return names.empty() ? "none" : names;
}

bool IsInstalled(const std::vector<Installed>& entries, const std::string& name) {
  for (const Installed& entry : entries) {
    if (EqualIgnoringCase(entry.name, name)) return true;
  }
  return false;
}

// What a user can do about a connection that failed; empty where nothing is known to help.
std::string Advice(const std::string& connect_string, const std::string& state) {
  const std::string driver = base::FindAttribute(connect_string, "Driver").value_or("");
  const std::string data_source = base::FindAttribute(connect_string, "DSN").value_or("");
  if (!driver.empty() && driver.find('/') == std::string::npos) {
    const std::vector<Installed> drivers = InstalledDrivers();
    if (IsInstalled(drivers, driver)) return {};
    std::string advice =
        fmt::format("no driver '{}' is installed; installed: {}", driver, NamesOf(drivers));
    for (const DriverPackage& known : kDriverPackages) {
      if (base::LowerAscii(driver).find(known.mark) == std::string::npos) continue;
      return advice + fmt::format("; try: apt-get install {}", known.package);
    }
    return advice;
  }
  if (!data_source.empty() && state == "IM002") {
    return fmt::format("data sources of odbc.ini: {}", NamesOf(DataSources()));
  }
  if (driver.empty() && data_source.empty())
    return "the connection string names no Driver and no DSN";
  return {};
}

// The last part of a file's path, which SQLite's driver gives as the URI it was opened by.
std::u16string NameOfDatabase(std::u16string_view name) {
  constexpr std::u16string_view kScheme = u"file:";
  const bool is_uri = name.starts_with(kScheme);
  if (is_uri) name = name.substr(kScheme.size(), name.find(u'?') - kScheme.size());
  // find_last_of() is one before 0 where there is no folder.
  const std::string last = ToUtf8(std::u16string(name.substr(name.find_last_of(u"/\\") + 1)));
  std::string decoded;
  for (std::size_t i = 0; i < last.size(); ++i) {
    unsigned code = 0;
    const bool is_code = is_uri && last[i] == '%' && i + 2 < last.size() &&
                         std::from_chars(&last[i + 1], &last[i] + 3, code, 16).ptr == &last[i] + 3;
    decoded += is_code ? static_cast<char>(code) : last[i];
    if (is_code) i += 2;
  }
  return ToUtf16(decoded);
}

}  // namespace

struct Connection::Handles {
  Environment environment;
  SQLHDBC connection = SQL_NULL_HDBC;
  const DriverCalls* calls = nullptr;  // once it is connected
  ~Handles() {
    // A failure on its way out ends the process, which closes the connection: one that does not
    // close would hide the failure.
    if (calls != nullptr && std::uncaught_exceptions() == 0) calls->Disconnect();
    if (connection != SQL_NULL_HDBC) SQLFreeHandle(SQL_HANDLE_DBC, connection);
  }
};

Connection::Connection(const Target& target, const Timeouts& timeouts, platform::CallLog* log)
    : connect_text_(base::WithoutSecrets(target.connect_string)),
      sample_(target.is_sample_database ? std::make_unique<SampleDatabase>() : nullptr),
      handles_(std::make_unique<Handles>()) {
  SQLAllocHandle(SQL_HANDLE_DBC, handles_->environment.Get(), &handles_->connection);
  calls_ = std::make_unique<DriverCalls>(handles_->connection, log);
  calls_->SetTimeouts(timeouts);
  if (Succeeded(calls_->Connect(target.connect_string))) {
    handles_->calls = calls_.get();
    return;
  }
  std::string state;
  const std::string reason = ReadDiagnostics(SQL_HANDLE_DBC, handles_->connection, state);
  const std::string advice = Advice(target.connect_string, state);
  throw Failure(ExitCode::kConnection,
                fmt::format("cannot connect to {}: {}{}", target.description, reason,
                            advice.empty() ? "" : " (" + advice + ")"));
}

Connection::~Connection() = default;

void* Connection::henv() const { return handles_->environment.Get(); }
void* Connection::hdbc() const { return handles_->connection; }
const DriverCalls& Connection::calls() const { return *calls_; }

void Connection::MakeReadOnly() const { calls_->MakeReadOnly(); }

bool Connection::IsDead() const {
  return calls_->AttributeNumber(SQL_ATTR_CONNECTION_DEAD) == SQL_CD_TRUE;
}

bool Connection::SupportsOwners() const {
  if (!supports_owners_) {
    supports_owners_ =
        (calls_->InfoNumber(SQL_OWNER_USAGE).value_or(0) & SQL_OU_DML_STATEMENTS) != 0;
  }
  return *supports_owners_;
}

const std::optional<std::u16string>& Connection::KnownCatalog() const {
  if (!catalog_) catalog_ = AskCurrentCatalog();
  return *catalog_;
}

std::optional<std::u16string> Connection::AskCurrentCatalog() const {
  if ((calls_->InfoNumber(SQL_QUALIFIER_USAGE).value_or(0) & SQL_QU_DML_STATEMENTS) == 0) {
    return std::nullopt;
  }
  const std::optional<std::u16string> catalog = calls_->AttributeText(SQL_ATTR_CURRENT_CATALOG);
  // MariaDB's driver (3.1) gives this text for none.
  if (catalog != u"null") return catalog;
  const std::optional<std::vector<std::u16string>> catalogs = Catalogs();
  const bool is_one = catalogs && std::count(catalogs->begin(), catalogs->end(), *catalog) > 0;
  return is_one ? catalog : std::u16string();
}

std::u16string Connection::DatabaseName() const {
  if (!SupportsOwners() && KnownCatalog()) return *KnownCatalog();
  return NameOfDatabase(calls_->InfoText(SQL_DATABASE_NAME).value_or(u""));
}

bool Connection::LacksCatalog() const {
  if (SupportsOwners()) return false;
  const std::optional<std::u16string>& catalog = KnownCatalog();
  return catalog && catalog->empty();
}

std::optional<std::vector<std::u16string>> Connection::Catalogs() const {
  return calls_->Catalogs();
}

std::vector<Connection::FunctionOffer> Connection::OfferedFunctions() const {
  std::vector<FunctionOffer> offers;
  for (const FunctionName& function : kFunctions) {
    offers.push_back({function.name, calls_->HasFunction(function.id)});
  }
  return offers;
}

void CancelStatement(void* statement) { SQLCancel(statement); }

std::string DiagnosticsOfCall(const platform::DriverCall& call) {
  std::string state;
  return DiagnosticsOfCall(call, state);
}

std::string DiagnosticsOfCall(const platform::DriverCall& call, std::string& state) {
  return ReadDiagnostics(call.on_statement ? SQL_HANDLE_STMT : SQL_HANDLE_DBC, call.handle, state);
}

std::pair<std::uint32_t, std::string> Connection::QuestionsNotHeld() const {
  return calls_->QuestionsNotHeld();
}

std::string Connection::DbmsVersionText() const {
  return ToUtf8(calls_->InfoText(SQL_DBMS_VER).value_or(u""));
}

std::string Connection::DriverText() const {
  return ToUtf8(calls_->InfoText(SQL_DRIVER_NAME).value_or(u"") + u" " +
                calls_->InfoText(SQL_DRIVER_VER).value_or(u""));
}

}  // namespace wbhost
