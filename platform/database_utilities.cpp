// What connection strings, odbc.ini and the name of a server tell of a data source.
#include <initializer_list>
#include <string_view>

#include "odbc/data_sources.h"
#include "platform/connection_string.h"
#include "platform/dbms_names.h"
#include "platform/defaults.h"
#include "platform/utf8.h"

namespace platform {

namespace {

constexpr std::u16string_view kCLISchemaKeyword = u"CLISchema";

// The CLI schema that the connection string of the last recovered log-in asks for: the look-up is
// given the data source's name only. One per thread, since importers run on several.
struct RecoveredSchema {
  std::u16string data_source;
  std::u16string schema;
};
thread_local RecoveredSchema recovered;

class ProfileDatabaseUtilities : public DatabaseUtilities {
 public:
  LeDBMSType DeterineDBMSTypeByName(const char16_t* dbms_name) override {
    return ClassifyDBMSName(dbms_name != nullptr ? dbms_name : u"");
  }

  void RecoverLoginParameters(void* hdbc, const char16_t* connect_text, std::u16string& driver,
                              std::u16string& database, std::u16string& user,
                              std::u16string& data_source, std::u16string& server) override {
    const ConnectionString text(connect_text != nullptr ? connect_text : u"");
    // For a connection without a data source the driver manager has no name; DB2's client then
    // takes the settings of the database's own name.
    std::u16string source = Recover(text, {}, {u"DSN"});
    if (source.empty() && hdbc != nullptr) source = odbc::GetDataSourceName(hdbc);
    const std::string section = ToUtf8(source);
    Set(driver, Recover(text, section, {u"Driver"}));
    Set(database, Recover(text, section, {u"Database", u"DBAlias", u"DBQ"}));
    Set(user, Recover(text, section, {u"UID", u"User", u"UserName", u"LogonID"}));
    Set(server, Recover(text, section, {u"Server", u"ServerName", u"Host", u"HostName"}));
    if (source.empty()) source = Recover(text, {}, {u"DBAlias", u"Database"});
    Set(data_source, source);

    recovered = {data_source, text.Find(kCLISchemaKeyword).value_or(u"")};
  }

  // The connection string goes before the file, as it does for the driver.
  bool GetDB2CLISchema(const char16_t* data_source, std::u16string& schema) override {
    const std::u16string source = data_source != nullptr ? data_source : u"";
    schema = source == recovered.data_source ? recovered.schema : std::u16string();
    if (schema.empty()) {
      schema = ToUtf16(odbc::ReadDataSourceValue(ToUtf8(source), ToUtf8(kCLISchemaKeyword)));
    }
    return !schema.empty();
  }

 private:
  // The first keyword with a value in the connection string, else in odbc.ini.
  static std::u16string Recover(const ConnectionString& text, const std::string& data_source,
                                std::initializer_list<std::u16string_view> keywords) {
    for (const std::u16string_view keyword : keywords) {
      if (auto value = text.Find(keyword); value && !value->empty()) return *value;
    }
    for (const std::u16string_view keyword : keywords) {
      std::string value = odbc::ReadDataSourceValue(data_source, ToUtf8(keyword));
      if (!value.empty()) return ToUtf16(value);
    }
    return {};
  }

  static void Set(std::u16string& parameter, const std::u16string& value) {
    if (!value.empty()) parameter = value;
  }
};

}  // namespace

std::shared_ptr<DatabaseUtilities> MakeDatabaseUtilities() {
  return std::make_shared<ProfileDatabaseUtilities>();
}

}  // namespace platform
