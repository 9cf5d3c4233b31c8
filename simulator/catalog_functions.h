// The SQL behind the ODBC catalog functions: queries on the views that every server's script
// defines (docs/simulator.md).
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <optional>
#include <string>

#include "simulator/server_traits.h"

namespace catalogsim {

// An argument of a catalog function. Empty: a null pointer, which restricts nothing.
using CatalogArgument = std::optional<std::string>;

class CatalogQueries {
 public:
  CatalogQueries(const ServerTraits& traits, SQLULEN odbc_version)
      : traits_(traits), odbc_version_(odbc_version) {}

  [[nodiscard]] std::string Tables(const CatalogArgument& catalog, const CatalogArgument& owner,
                                   const CatalogArgument& table,
                                   const CatalogArgument& types) const;
  [[nodiscard]] std::string Columns(const CatalogArgument& catalog, const CatalogArgument& owner,
                                    const CatalogArgument& table,
                                    const CatalogArgument& column) const;
  [[nodiscard]] std::string PrimaryKeys(const CatalogArgument& catalog,
                                        const CatalogArgument& owner,
                                        const CatalogArgument& table) const;
  [[nodiscard]] std::string ForeignKeys(const CatalogArgument& pk_catalog,
                                        const CatalogArgument& pk_owner,
                                        const CatalogArgument& pk_table,
                                        const CatalogArgument& fk_catalog,
                                        const CatalogArgument& fk_owner,
                                        const CatalogArgument& fk_table) const;
  [[nodiscard]] std::string Statistics(const CatalogArgument& catalog, const CatalogArgument& owner,
                                       const CatalogArgument& table, bool unique_only) const;
  [[nodiscard]] std::string Procedures(const CatalogArgument& catalog, const CatalogArgument& owner,
                                       const CatalogArgument& procedure) const;
  // `data_type`: an ODBC type code; 0: all types.
  [[nodiscard]] std::string TypeInfo(int data_type) const;

 private:
  [[nodiscard]] std::string CatalogColumn(const char* odbc2_name, const char* odbc3_name) const;
  [[nodiscard]] bool HasCatalog(const CatalogArgument& catalog) const;
  // One of two names of a result column, in double quotes.
  [[nodiscard]] std::string Named(const char* odbc2_name, const char* odbc3_name) const;
  [[nodiscard]] std::string TypeCode() const;

  const ServerTraits& traits_;
  SQLULEN odbc_version_;
};

}  // namespace catalogsim
