// Entry points: the catalog functions, in wide form and, for the driver manager's table, narrow.
#include <sqlext.h>
#include <sqlucode.h>

#include <array>

#include "simulator/catalog_functions.h"
#include "simulator/entry.h"
#include "simulator/text.h"

using catalogsim::CatalogArgument;
using catalogsim::CatalogQueries;
using catalogsim::OnStatement;
using catalogsim::Statement;

namespace {

CatalogArgument Argument(const SQLWCHAR* text, SQLSMALLINT length) {
  if (text == nullptr) return std::nullopt;
  return catalogsim::TextArgument(text, length);
}

// Runs the text that `build` makes of the server's queries out of the arguments; a recording is
// asked for the same arguments.
template <std::size_t count, class Build>
SQLRETURN RunCatalog(SQLHSTMT handle, catalogsim::FunctionId function,
                     const std::array<CatalogArgument, count>& texts,
                     std::initializer_list<int> numbers, Build build) {
  return OnStatement(handle, function, [&](Statement& statement) {
    if (statement.replay) {
      catalogsim::Question question(function);
      for (const CatalogArgument& text : texts) question.Add(text);
      for (const int number : numbers) question.Add(std::int64_t{number});
      return statement.replay->Ask(question.Text());
    }
    // The driver manager calls the wide form even of a function that this driver says it lacks.
    if (!statement.connection().HasFunction(function))
      return statement.Fail("IM001", "the driver does not have this function");
    const CatalogQueries queries(statement.connection().traits(),
                                 statement.connection().odbc_version());
    return statement.ExecuteCatalogQuery(build(queries, texts));
  });
}

}  // namespace

CATALOGSIM_ENTRY SQLTablesW(SQLHSTMT handle, SQLWCHAR* catalog, SQLSMALLINT catalog_length,
                            SQLWCHAR* owner, SQLSMALLINT owner_length, SQLWCHAR* table,
                            SQLSMALLINT table_length, SQLWCHAR* types, SQLSMALLINT types_length) {
  return RunCatalog(handle, SQL_API_SQLTABLES,
                    std::array{Argument(catalog, catalog_length), Argument(owner, owner_length),
                               Argument(table, table_length), Argument(types, types_length)},
                    {}, [](const CatalogQueries& queries, const auto& texts) {
                      return queries.Tables(texts[0], texts[1], texts[2], texts[3]);
                    });
}

CATALOGSIM_ENTRY SQLColumnsW(SQLHSTMT handle, SQLWCHAR* catalog, SQLSMALLINT catalog_length,
                             SQLWCHAR* owner, SQLSMALLINT owner_length, SQLWCHAR* table,
                             SQLSMALLINT table_length, SQLWCHAR* column,
                             SQLSMALLINT column_length) {
  return RunCatalog(handle, SQL_API_SQLCOLUMNS,
                    std::array{Argument(catalog, catalog_length), Argument(owner, owner_length),
                               Argument(table, table_length), Argument(column, column_length)},
                    {}, [](const CatalogQueries& queries, const auto& texts) {
                      return queries.Columns(texts[0], texts[1], texts[2], texts[3]);
                    });
}

CATALOGSIM_ENTRY SQLPrimaryKeysW(SQLHSTMT handle, SQLWCHAR* catalog, SQLSMALLINT catalog_length,
                                 SQLWCHAR* owner, SQLSMALLINT owner_length, SQLWCHAR* table,
                                 SQLSMALLINT table_length) {
  return RunCatalog(handle, SQL_API_SQLPRIMARYKEYS,
                    std::array{Argument(catalog, catalog_length), Argument(owner, owner_length),
                               Argument(table, table_length)},
                    {}, [](const CatalogQueries& queries, const auto& texts) {
                      return queries.PrimaryKeys(texts[0], texts[1], texts[2]);
                    });
}

CATALOGSIM_ENTRY SQLForeignKeysW(SQLHSTMT handle, SQLWCHAR* pk_catalog,
                                 SQLSMALLINT pk_catalog_length, SQLWCHAR* pk_owner,
                                 SQLSMALLINT pk_owner_length, SQLWCHAR* pk_table,
                                 SQLSMALLINT pk_table_length, SQLWCHAR* fk_catalog,
                                 SQLSMALLINT fk_catalog_length, SQLWCHAR* fk_owner,
                                 SQLSMALLINT fk_owner_length, SQLWCHAR* fk_table,
                                 SQLSMALLINT fk_table_length) {
  return RunCatalog(
      handle, SQL_API_SQLFOREIGNKEYS,
      std::array{Argument(pk_catalog, pk_catalog_length), Argument(pk_owner, pk_owner_length),
                 Argument(pk_table, pk_table_length), Argument(fk_catalog, fk_catalog_length),
                 Argument(fk_owner, fk_owner_length), Argument(fk_table, fk_table_length)},
      {}, [](const CatalogQueries& queries, const auto& texts) {
        return queries.ForeignKeys(texts[0], texts[1], texts[2], texts[3], texts[4], texts[5]);
      });
}

CATALOGSIM_ENTRY SQLStatisticsW(SQLHSTMT handle, SQLWCHAR* catalog, SQLSMALLINT catalog_length,
                                SQLWCHAR* owner, SQLSMALLINT owner_length, SQLWCHAR* table,
                                SQLSMALLINT table_length, SQLUSMALLINT unique,
                                SQLUSMALLINT accuracy) {
  return RunCatalog(handle, SQL_API_SQLSTATISTICS,
                    std::array{Argument(catalog, catalog_length), Argument(owner, owner_length),
                               Argument(table, table_length)},
                    {unique, accuracy}, [unique](const CatalogQueries& queries, const auto& texts) {
                      return queries.Statistics(texts[0], texts[1], texts[2],
                                                unique == SQL_INDEX_UNIQUE);
                    });
}

CATALOGSIM_ENTRY SQLProceduresW(SQLHSTMT handle, SQLWCHAR* catalog, SQLSMALLINT catalog_length,
                                SQLWCHAR* owner, SQLSMALLINT owner_length, SQLWCHAR* procedure,
                                SQLSMALLINT procedure_length) {
  return RunCatalog(handle, SQL_API_SQLPROCEDURES,
                    std::array{Argument(catalog, catalog_length), Argument(owner, owner_length),
                               Argument(procedure, procedure_length)},
                    {}, [](const CatalogQueries& queries, const auto& texts) {
                      return queries.Procedures(texts[0], texts[1], texts[2]);
                    });
}

CATALOGSIM_ENTRY SQLGetTypeInfoW(SQLHSTMT handle, SQLSMALLINT type) {
  return RunCatalog(handle, SQL_API_SQLGETTYPEINFO, std::array<CatalogArgument, 0>(),
                    {catalogsim::TypeForVersion(type, SQL_OV_ODBC2)},
                    [type](const CatalogQueries& queries, const auto& /*texts*/) {
                      return queries.TypeInfo(type);
                    });
}

// The driver manager looks at SQLGetFunctions only for functions that a driver has in narrow form;
// a driver without these could not be made to say that it lacks them. They are never called.
CATALOGSIM_ENTRY SQLTables(SQLHSTMT, SQLCHAR*, SQLSMALLINT, SQLCHAR*, SQLSMALLINT, SQLCHAR*,
                           SQLSMALLINT, SQLCHAR*, SQLSMALLINT) {
  return SQL_ERROR;
}
CATALOGSIM_ENTRY SQLColumns(SQLHSTMT, SQLCHAR*, SQLSMALLINT, SQLCHAR*, SQLSMALLINT, SQLCHAR*,
                            SQLSMALLINT, SQLCHAR*, SQLSMALLINT) {
  return SQL_ERROR;
}
CATALOGSIM_ENTRY SQLPrimaryKeys(SQLHSTMT, SQLCHAR*, SQLSMALLINT, SQLCHAR*, SQLSMALLINT, SQLCHAR*,
                                SQLSMALLINT) {
  return SQL_ERROR;
}
CATALOGSIM_ENTRY SQLForeignKeys(SQLHSTMT, SQLCHAR*, SQLSMALLINT, SQLCHAR*, SQLSMALLINT, SQLCHAR*,
                                SQLSMALLINT, SQLCHAR*, SQLSMALLINT, SQLCHAR*, SQLSMALLINT, SQLCHAR*,
                                SQLSMALLINT) {
  return SQL_ERROR;
}
CATALOGSIM_ENTRY SQLStatistics(SQLHSTMT, SQLCHAR*, SQLSMALLINT, SQLCHAR*, SQLSMALLINT, SQLCHAR*,
                               SQLSMALLINT, SQLUSMALLINT, SQLUSMALLINT) {
  return SQL_ERROR;
}
CATALOGSIM_ENTRY SQLProcedures(SQLHSTMT, SQLCHAR*, SQLSMALLINT, SQLCHAR*, SQLSMALLINT, SQLCHAR*,
                               SQLSMALLINT) {
  return SQL_ERROR;
}
CATALOGSIM_ENTRY SQLGetTypeInfo(SQLHSTMT, SQLSMALLINT) { return SQL_ERROR; }
