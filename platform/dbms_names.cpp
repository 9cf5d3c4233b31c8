// The names that drivers answer to SQL_DBMS_NAME, as a table of patterns.
#include "platform/dbms_names.h"

#include "base/ascii.h"

namespace platform {

namespace {

enum class Match { kWhole, kBegin, kAnywhere };

struct NamePattern {
  std::u16string_view text;  // in lower case
  Match match;
  LeDBMSType type;
};

// The first pattern that fits decides, so a name that holds another stands before it.
// clang-format off
constexpr NamePattern kNamePatterns[] = {
    {u"red brick",             Match::kAnywhere, dbmsRedBrick},   // "Informix Red Brick Warehouse" too
    {u"redbrick",              Match::kAnywhere, dbmsRedBrick},
    {u"informix",              Match::kAnywhere, dbmsInformix},
    {u"ids/",                  Match::kBegin,    dbmsInformix},   // the common client of DB2 and Informix
    {u"sybase",                Match::kAnywhere, dbmsSybase},
    {u"adaptive server",       Match::kAnywhere, dbmsSybase},
    {u"microsoft sql server",  Match::kAnywhere, dbmsMSSQLServer},
    {u"ms sql server",         Match::kAnywhere, dbmsMSSQLServer},
    {u"sql server",            Match::kBegin,    dbmsSybase},     // Sybase's own drivers leave out the maker
    {u"mssql",                 Match::kBegin,    dbmsMSSQLServer},
    {u"azure sql",             Match::kAnywhere, dbmsMSSQLServer},
    {u"timesten",              Match::kAnywhere, dbmsOther},      // "Oracle TimesTen": another catalog
    {u"oracle",                Match::kBegin,    dbmsOracle},
    {u"db2",                   Match::kBegin,    dbmsDB2},        // DB2/NT, DB2/LINUXX8664, DB2/6000, ...
    {u"ibm db2",               Match::kAnywhere, dbmsDB2},
    {u"udb",                   Match::kBegin,    dbmsDB2},
    {u"access",                Match::kBegin,    dbmsAccess},
    {u"microsoft access",      Match::kAnywhere, dbmsAccess},
    {u"ms access",             Match::kAnywhere, dbmsAccess},
    {u"microsoft jet",         Match::kAnywhere, dbmsAccess},
    {u"ms jet",                Match::kAnywhere, dbmsAccess},
    {u"mdbtools",              Match::kBegin,    dbmsAccess},

    {u"sqlite",                Match::kAnywhere, dbmsOther},
    {u"postgres",              Match::kAnywhere, dbmsOther},
    {u"mariadb",               Match::kAnywhere, dbmsOther},
    {u"mysql",                 Match::kAnywhere, dbmsOther},
    {u"firebird",              Match::kAnywhere, dbmsOther},
    {u"interbase",             Match::kAnywhere, dbmsOther},
    {u"adabas",                Match::kAnywhere, dbmsOther},
    {u"altibase",              Match::kAnywhere, dbmsOther},
    {u"athena",                Match::kAnywhere, dbmsOther},
    {u"bigquery",              Match::kAnywhere, dbmsOther},
    {u"btrieve",               Match::kAnywhere, dbmsOther},
    {u"cache",                 Match::kWhole,    dbmsOther},
    {u"cassandra",             Match::kAnywhere, dbmsOther},
    {u"clickhouse",            Match::kAnywhere, dbmsOther},
    {u"cloudscape",            Match::kAnywhere, dbmsOther},
    {u"cubrid",                Match::kAnywhere, dbmsOther},
    {u"databricks",            Match::kAnywhere, dbmsOther},
    {u"dbase",                 Match::kBegin,    dbmsOther},
    {u"derby",                 Match::kAnywhere, dbmsOther},
    {u"dremio",                Match::kAnywhere, dbmsOther},
    {u"drill",                 Match::kAnywhere, dbmsOther},
    {u"duckdb",                Match::kAnywhere, dbmsOther},
    {u"elasticsearch",         Match::kAnywhere, dbmsOther},
    {u"enterprisedb",          Match::kAnywhere, dbmsOther},
    {u"exasol",                Match::kAnywhere, dbmsOther},
    {u"excel",                 Match::kBegin,    dbmsOther},
    {u"foxpro",                Match::kAnywhere, dbmsOther},
    {u"greenplum",             Match::kAnywhere, dbmsOther},
    {u"h2",                    Match::kWhole,    dbmsOther},
    {u"hana",                  Match::kAnywhere, dbmsOther},
    {u"hdb",                   Match::kWhole,    dbmsOther},
    {u"hive",                  Match::kAnywhere, dbmsOther},
    {u"hsql",                  Match::kBegin,    dbmsOther},
    {u"impala",                Match::kAnywhere, dbmsOther},
    {u"ingres",                Match::kAnywhere, dbmsOther},
    {u"intersystems",          Match::kAnywhere, dbmsOther},
    {u"maxdb",                 Match::kAnywhere, dbmsOther},
    {u"mimer",                 Match::kAnywhere, dbmsOther},
    {u"monetdb",               Match::kAnywhere, dbmsOther},
    {u"mongodb",               Match::kAnywhere, dbmsOther},
    {u"netezza",               Match::kAnywhere, dbmsOther},
    {u"nonstop sql",           Match::kAnywhere, dbmsOther},
    {u"openedge",              Match::kAnywhere, dbmsOther},
    {u"paradox",               Match::kBegin,    dbmsOther},
    {u"pervasive",             Match::kAnywhere, dbmsOther},
    {u"presto",                Match::kAnywhere, dbmsOther},
    {u"progress",              Match::kBegin,    dbmsOther},
    {u"redshift",              Match::kAnywhere, dbmsOther},
    {u"sap db",                Match::kAnywhere, dbmsOther},
    {u"snowflake",             Match::kAnywhere, dbmsOther},
    {u"solid",                 Match::kBegin,    dbmsOther},
    {u"spark",                 Match::kAnywhere, dbmsOther},
    {u"sql anywhere",          Match::kAnywhere, dbmsOther},
    {u"sqlbase",               Match::kAnywhere, dbmsOther},
    {u"teradata",              Match::kAnywhere, dbmsOther},
    {u"text",                  Match::kWhole,    dbmsOther},      // text files
    {u"trino",                 Match::kAnywhere, dbmsOther},
    {u"vertica",               Match::kAnywhere, dbmsOther},
    {u"virtuoso",              Match::kAnywhere, dbmsOther},
};
// clang-format on

bool Fits(std::u16string_view name, const NamePattern& pattern) {
  switch (pattern.match) {
    case Match::kWhole:
      return name == pattern.text;
    case Match::kBegin:
      return name.starts_with(pattern.text);
    case Match::kAnywhere:
      return name.find(pattern.text) != std::u16string_view::npos;
  }
  return false;
}

}  // namespace

LeDBMSType ClassifyDBMSName(std::u16string_view name) {
  const std::u16string folded = base::LowerAscii(name);
  for (const NamePattern& pattern : kNamePatterns) {
    if (Fits(folded, pattern)) return pattern.type;
  }
  return dbmsUnknown;
}

}  // namespace platform
