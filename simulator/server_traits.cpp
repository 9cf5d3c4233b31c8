// The table of servers. To add one, see "Adding a server" in docs/simulator.md.
#include "simulator/server_traits.h"

#include "embedded_catalogsim.h"
#include "simulator/text.h"

namespace catalogsim {
namespace {

constexpr std::uint32_t kInformixDialect = kDoubleQuotedTexts | kColonCasts | kOuterKeyword |
                                           kDatabasePrefix | kKeywordNames | kNoBareNull;

// SQL_OU_DML_STATEMENTS and the rest of the owner and catalog usages.
constexpr std::uint32_t kEverywhere = 0x1F;

// clang-format off
constexpr ServerTraits kServers[] = {
    {.name = "informix", .script = &kInformix, .scale_script = &kScaleInformix,
     .dbms_name = "Informix", .dbms_version = "09.40.0000", .catalog = "library",
     .owner_usage = kEverywhere, .catalog_usage = kEverywhere, .dialect = kInformixDialect,
     .row_distance = 2048, .wide = false,
     .schemas = {"informix", "stores@tokyo", "archive"},
     .missing_functions = {}},
    {.name = "informix-7", .script = &kInformix7, .scale_script = &kScaleInformix7,
     .dbms_name = "Informix", .dbms_version = "07.31.0000", .catalog = "library7",
     .owner_usage = kEverywhere, .catalog_usage = kEverywhere, .dialect = kInformixDialect,
     .row_distance = 2048, .wide = false,
     .schemas = {"informix", "archive"},
     .missing_functions = {}},
    {.name = "informix-14", .script = &kInformix14, .scale_script = &kScaleInformix14,
     .shop = true,
     .dbms_name = "Informix", .dbms_version = "14.10.0000", .catalog = "library",
     .owner_usage = kEverywhere, .catalog_usage = kEverywhere, .dialect = kInformixDialect,
     .row_distance = 2048, .wide = false, .schemas = {"informix"}, .missing_functions = {}},
    {.name = "sqlserver", .script = &kSqlserver, .scale_script = &kScaleSqlserver,
     .dbms_name = "Microsoft SQL Server", .dbms_version = "08.00.0194", .catalog = "library",
     .owner_usage = kEverywhere, .catalog_usage = kEverywhere, .dialect = kIndexCol,
     .row_distance = 0, .wide = true, .schemas = {}, .missing_functions = {}},
    {.name = "sqlserver-2019", .script = &kSqlserver2019, .scale_script = &kScaleSqlserver2019,
     .shop = true,
     .dbms_name = "Microsoft SQL Server", .dbms_version = "15.00.2000", .catalog = "library",
     .owner_usage = kEverywhere, .catalog_usage = kEverywhere, .dialect = kIndexCol,
     .row_distance = 0, .wide = true, .schemas = {"sys"}, .missing_functions = {}},
    {.name = "sybase", .script = &kSybase, .scale_script = nullptr,
     .library = true,
     .dbms_name = "SQL Server", .dbms_version = "11.09.0002", .catalog = "library",
     .owner_usage = kEverywhere, .catalog_usage = kEverywhere, .dialect = kIndexCol,
     .row_distance = 0, .wide = false, .schemas = {}, .missing_functions = {}},
    {.name = "oracle", .script = &kOracle, .scale_script = &kScaleOracle,
     .dbms_name = "Oracle", .dbms_version = "08.01.0700", .catalog = "",
     .owner_usage = kEverywhere, .catalog_usage = 0, .dialect = kDatabaseLinks,
     .row_distance = 0, .wide = false, .schemas = {"HQ"}, .missing_functions = {}},
    {.name = "oracle-19", .script = &kOracle19, .scale_script = &kScaleOracle19,
     .shop = true,
     .dbms_name = "Oracle", .dbms_version = "19.03.0000", .catalog = "",
     .owner_usage = kEverywhere, .catalog_usage = 0, .dialect = kDatabaseLinks | kLongColumns,
     .row_distance = 0, .wide = false, .schemas = {}, .missing_functions = {}},
    {.name = "oracle-7", .script = &kOracle7, .scale_script = &kScaleOracle,
     .dbms_name = "Oracle", .dbms_version = "07.03.0400", .catalog = "",
     .owner_usage = kEverywhere, .catalog_usage = 0, .dialect = kDatabaseLinks,
     .row_distance = 0, .wide = false, .schemas = {"HQ"}, .missing_functions = {}},
    {.name = "db2", .script = &kDb2, .scale_script = &kScaleDb2,
     .dbms_name = "DB2/LINUX", .dbms_version = "07.02.0000", .catalog = "",
     .owner_usage = kEverywhere, .catalog_usage = 0, .dialect = kKeywordNames,
     .row_distance = 0, .wide = false, .schemas = {"SYSCAT"}, .missing_functions = {}},
    {.name = "db2-11", .script = &kDb211, .scale_script = &kScaleDb211,
     .shop = true,
     .dbms_name = "DB2/LINUXX8664", .dbms_version = "11.05.0800", .catalog = "",
     .owner_usage = kEverywhere, .catalog_usage = 0, .dialect = kKeywordNames,
     .row_distance = 0, .wide = false, .schemas = {"SYSCAT", "SYSIBM"}, .missing_functions = {}},
    {.name = "redbrick", .script = &kRedbrick, .scale_script = &kScaleRedbrick,
     .dbms_name = "Red Brick Warehouse", .dbms_version = "06.10.0000", .catalog = "",
     .owner_usage = kEverywhere, .catalog_usage = 0, .dialect = kNoDialect,
     .row_distance = 0, .wide = false, .schemas = {},
     .missing_functions = {SQL_API_SQLPROCEDURES}},
    // Jet's driver has no owners, and neither of the key functions.
    {.name = "access", .script = &kAccess, .scale_script = nullptr,
     .library = true,
     .dbms_name = "ACCESS", .dbms_version = "04.00.0000", .catalog = "C:\\library",
     .owner_usage = 0, .catalog_usage = kEverywhere, .dialect = kNoDialect,
     .row_distance = 0, .wide = true, .schemas = {},
     .missing_functions = {SQL_API_SQLPRIMARYKEYS, SQL_API_SQLFOREIGNKEYS}},
    {.name = "generic", .script = &kGeneric, .scale_script = nullptr,
     .library = true,
     .dbms_name = "", .dbms_version = "1", .catalog = "",
     .owner_usage = kEverywhere, .catalog_usage = 0, .dialect = kNoDialect,
     .row_distance = 0, .wide = true, .schemas = {"information_schema"}, .missing_functions = {}},
    // What a driver once answered; the facts are in the recording.
    {.name = "recording", .script = nullptr, .scale_script = nullptr,
     .dbms_name = "", .dbms_version = "", .catalog = "",
     .owner_usage = 0, .catalog_usage = 0, .dialect = kNoDialect,
     .row_distance = 0, .wide = true, .schemas = {}, .missing_functions = {}},
};
// clang-format on

}  // namespace

const ServerTraits* FindServer(std::string_view name) {
  for (const ServerTraits& server : kServers)
    if (EqualIgnoringCase(server.name, name)) return &server;
  return nullptr;
}

}  // namespace catalogsim
