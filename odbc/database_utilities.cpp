// What connection strings, odbc.ini and the name of a server tell of a data source.
#include "odbc/database_utilities.h"

#include <initializer_list>
#include <string_view>

#include "base/connection_string.h"
#include "base/utf.h"
#include "odbc/data_sources.h"
#include "odbc/server_info.h"
#include "platform/dbms_names.h"

namespace odbc {

namespace {

constexpr std::string_view kCLISchemaKeyword = "CLISchema";

// The CLI schema that the connection string of the last recovered log-in asks for: the look-up is
// given the data source's name only. One per thread, since importers run on several.
struct RecoveredSchema {
  std::u16string data_source;
  std::u16string schema;
};
thread_local RecoveredSchema recovered;

class ProfileDatabaseUtilities : public platform::DatabaseUtilities {
 public:
  LeDBMSType DeterineDBMSTypeByName(const char16_t* dbms_name) override {
    return platform::ClassifyDBMSName(dbms_name != nullptr ? dbms_name : u"");
  }

  void RecoverLoginParameters(void* hdbc, const char16_t* connect_text, std::u16string& driver,
                              std::u16string& database, std::u16string& user,
                              std::u16string& data_source, std::u16string& server) override {
    const std::string text = base::ToUtf8(connect_text != nullptr ? connect_text : u"");
    // For a connection without a data source the driver manager has no name; DB2's client then
    // takes the settings of the database's own name.
    std::u16string source = Recover(text, {}, {"DSN"});
    if (source.empty() && hdbc != nullptr) source = GetDataSourceName(hdbc);
    const std::string section = base::ToUtf8(source);
    Set(driver, Recover(text, section, {"Driver"}));
    Set(database, Recover(text, section, {"Database", "DBAlias", "DBQ"}));
    Set(user, Recover(text, section, {"UID", "User", "UserName", "LogonID"}));
    Set(server, Recover(text, section, {"Server", "ServerName", "Host", "HostName"}));
    if (source.empty()) source = Recover(text, {}, {"DBAlias", "Database"});
    Set(data_source, source);

    recovered = {data_source,
                 base::ToUtf16(base::FindAttribute(text, kCLISchemaKeyword).value_or(""))};
  }

  // The connection string goes before the file, as it does for the driver.
  bool GetDB2CLISchema(const char16_t* data_source, std::u16string& schema) override {
    const std::u16string source = data_source != nullptr ? data_source : u"";
    schema = source == recovered.data_source ? recovered.schema : std::u16string();
    if (schema.empty()) {
      schema =
          base::ToUtf16(ReadDataSourceValue(base::ToUtf8(source), std::string(kCLISchemaKeyword)));
    }
    return !schema.empty();
  }

 private:
  // The first keyword with a value in the connection string, else in odbc.ini.
  static std::u16string Recover(const std::string& text, const std::string& data_source,
                                std::initializer_list<std::string_view> keywords) {
    for (const std::string_view keyword : keywords) {
      if (auto value = base::FindAttribute(text, keyword); value && !value->empty()) {
        return base::ToUtf16(*value);
      }
    }
    for (const std::string_view keyword : keywords) {
      std::string value = ReadDataSourceValue(data_source, std::string(keyword));
      if (!value.empty()) return base::ToUtf16(value);
    }
    return {};
  }

  static void Set(std::u16string& parameter, const std::u16string& value) {
    if (!value.empty()) parameter = value;
  }
};

}  // namespace

std::shared_ptr<platform::DatabaseUtilities> MakeDatabaseUtilities() {
  return std::make_shared<ProfileDatabaseUtilities>();
}

platform::DatabaseUtilities& GetDatabaseUtilities() {
  static ProfileDatabaseUtilities own;
  const auto& of_host = platform::GetServices().database;
  return of_host != nullptr ? *of_host : own;
}

}  // namespace odbc
