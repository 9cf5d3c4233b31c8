// The host's ODBC connection.
#include "host/connection.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "base/connection_string.h"
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
  std::string names;
  for (const Installed& entry : entries) names += (names.empty() ? "" : ", ") + entry.name;
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

}  // namespace

struct Connection::Handles {
  Environment environment;
  SQLHDBC connection = SQL_NULL_HDBC;
  bool connected = false;
  ~Handles() {
    if (connected) SQLDisconnect(connection);
    if (connection != SQL_NULL_HDBC) SQLFreeHandle(SQL_HANDLE_DBC, connection);
  }
};

Connection::Connection(const Target& target)
    : connect_text_(base::WithoutSecrets(target.connect_string)),
      sample_(target.is_sample_database ? std::make_unique<SampleDatabase>() : nullptr),
      handles_(std::make_unique<Handles>()) {
  SQLAllocHandle(SQL_HANDLE_DBC, handles_->environment.Get(), &handles_->connection);
  std::u16string text = ToUtf16(target.connect_string);
  static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));
  // No output string is asked for: mdbtools leaves it unwritten, and the driver manager reads it.
  const SQLRETURN result =
      SQLDriverConnectW(handles_->connection, nullptr, reinterpret_cast<SQLWCHAR*>(text.data()),
                        SQL_NTS, nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
  handles_->connected = Succeeded(result);
  if (handles_->connected) return;
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

bool Connection::IsDead() const {
  SQLUINTEGER dead = SQL_CD_FALSE;
  const SQLRETURN result = SQLGetConnectAttr(handles_->connection, SQL_ATTR_CONNECTION_DEAD, &dead,
                                             sizeof dead, nullptr);
  return Succeeded(result) && dead == SQL_CD_TRUE;
}

std::string Connection::InfoText(std::uint16_t info) const {
  std::array<SQLWCHAR, 256> text{};
  if (!Succeeded(SQLGetInfoW(handles_->connection, info, text.data(),
                             static_cast<SQLSMALLINT>(sizeof text), nullptr))) {
    return {};
  }
  const auto end = std::find(text.begin(), text.end() - 1, SQLWCHAR{0});
  return FromWide(text.data(), static_cast<std::size_t>(end - text.begin()));
}

bool Connection::SupportsOwners() const {
  SQLUINTEGER usage = 0;
  const SQLRETURN result =
      SQLGetInfoW(handles_->connection, SQL_OWNER_USAGE, &usage, sizeof usage, nullptr);
  return Succeeded(result) && (usage & SQL_OU_DML_STATEMENTS) != 0;
}

std::u16string Connection::CurrentCatalog() const {
  SQLUINTEGER usage = 0;
  if (!Succeeded(
          SQLGetInfoW(handles_->connection, SQL_QUALIFIER_USAGE, &usage, sizeof usage, nullptr)) ||
      (usage & SQL_QU_DML_STATEMENTS) == 0) {
    return {};
  }
  std::array<SQLWCHAR, 256> text{};
  if (!Succeeded(SQLGetConnectAttrW(handles_->connection, SQL_ATTR_CURRENT_CATALOG, text.data(),
                                    static_cast<SQLINTEGER>(sizeof text), nullptr))) {
    return {};
  }
  const auto end = std::find(text.begin(), text.end() - 1, SQLWCHAR{0});
  return ToUtf16(FromWide(text.data(), static_cast<std::size_t>(end - text.begin())));
}

std::vector<Connection::FunctionOffer> Connection::OfferedFunctions() const {
  std::vector<FunctionOffer> offers;
  for (const FunctionName& function : kFunctions) {
    SQLUSMALLINT offered = SQL_FALSE;
    SQLGetFunctions(handles_->connection, function.id, &offered);
    offers.push_back({function.name, offered == SQL_TRUE});
  }
  return offers;
}

std::string DiagnosticsOfCall(const platform::DriverCall& call) {
  std::string state;
  return ReadDiagnostics(call.on_statement ? SQL_HANDLE_STMT : SQL_HANDLE_DBC, call.handle, state);
}

std::string Connection::DbmsVersionText() const { return InfoText(SQL_DBMS_VER); }

std::string Connection::DriverText() const {
  return InfoText(SQL_DRIVER_NAME) + " " + InfoText(SQL_DRIVER_VER);
}

}  // namespace wbhost
