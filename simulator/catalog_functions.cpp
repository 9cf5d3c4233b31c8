// See catalog_functions.h. Values are put into the texts instead of being bound, because SQLite
// uses an index for `LIKE 'abc%'` only where it sees the pattern.
#include "simulator/catalog_functions.h"

#include <sql.h>
#include <sqlext.h>

#include "simulator/text.h"

namespace catalogsim {
namespace {

std::string Quote(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text) {
    if (c == '\'') quoted += '\'';
    quoted += c;
  }
  return quoted + '\'';
}

// An ordinary argument: the name itself. An empty one asks for what has no owner.
std::string Equals(const std::string& column, const CatalogArgument& argument) {
  if (!argument) return {};
  if (argument->empty()) return " AND coalesce(" + column + ",'')=''";
  return " AND " + column + '=' + Quote(*argument);
}

// A pattern argument: % and _ stand for others, \ makes them stand for themselves.
std::string Matches(const std::string& column, const CatalogArgument& argument) {
  if (!argument || *argument == "%") return {};
  std::string plain;
  for (std::size_t i = 0; i < argument->size(); ++i) {
    char c = (*argument)[i];
    if (c == '%' || c == '_')
      return " AND " + column + " LIKE " + Quote(*argument) + " ESCAPE '\\'";
    if (c == '\\' && i + 1 < argument->size()) c = (*argument)[++i];
    plain += c;
  }
  return Equals(column, plain);
}

// "'TABLE','VIEW'" or "TABLE,VIEW". An empty list restricts nothing, as most drivers have it.
std::string OneOf(const std::string& column, const CatalogArgument& list) {
  if (!list || Trim(*list).empty() || *list == "%") return {};
  std::string values;
  std::string_view rest = *list;
  while (true) {
    const std::size_t comma = rest.find(',');
    std::string_view value = Trim(rest.substr(0, comma));
    if (value.size() >= 2 && value.front() == '\'' && value.back() == '\'')
      value = value.substr(1, value.size() - 2);
    values += (values.empty() ? "" : ",") + Quote(value);
    if (comma == std::string_view::npos) break;
    rest.remove_prefix(comma + 1);
  }
  return " AND " + column + " IN (" + values + ')';
}

bool IsEmptyText(const CatalogArgument& argument) { return argument && argument->empty(); }

}  // namespace

std::string CatalogQueries::Named(const char* odbc2_name, const char* odbc3_name) const {
  return std::string(" AS \"") + (odbc_version_ >= SQL_OV_ODBC3 ? odbc3_name : odbc2_name) + '"';
}

std::string CatalogQueries::CatalogColumn(const char* odbc2_name, const char* odbc3_name) const {
  return (traits_.catalog.empty() ? "NULL" : Quote(traits_.catalog)) +
         Named(odbc2_name, odbc3_name);
}

bool CatalogQueries::HasCatalog(const CatalogArgument& catalog) const {
  return !catalog || catalog->empty() || *catalog == "%" || *catalog == traits_.catalog;
}

// The codes of dates and times have changed between ODBC 2 and 3.
std::string CatalogQueries::TypeCode() const {
  return odbc_version_ >= SQL_OV_ODBC3
             ? "coalesce(t.data_type,12)"
             : "CASE coalesce(t.data_type,12) WHEN 91 THEN 9 WHEN 92 THEN 10 WHEN 93 THEN 11"
               " ELSE coalesce(t.data_type,12) END";
}

std::string CatalogQueries::Tables(const CatalogArgument& catalog, const CatalogArgument& owner,
                                   const CatalogArgument& table,
                                   const CatalogArgument& types) const {
  const std::string qualifier = CatalogColumn("TABLE_QUALIFIER", "TABLE_CAT");
  const std::string owner_name = Named("TABLE_OWNER", "TABLE_SCHEM");
  // "%" alone lists catalogs, owners or types instead of tables.
  if (catalog == "%" && IsEmptyText(owner) && IsEmptyText(table))
    return "SELECT " + qualifier + ", NULL" + owner_name +
           ", NULL AS TABLE_NAME, NULL AS TABLE_TYPE, NULL AS REMARKS" +
           (traits_.catalog.empty() ? " WHERE 0" : "");
  if (owner == "%" && IsEmptyText(catalog) && IsEmptyText(table))
    return "SELECT DISTINCT NULL" + Named("TABLE_QUALIFIER", "TABLE_CAT") + ", owner" + owner_name +
           ", NULL AS TABLE_NAME, NULL AS TABLE_TYPE, NULL AS REMARKS"
           " FROM sim_tables WHERE owner IS NOT NULL ORDER BY 2";
  if (types == "%" && IsEmptyText(catalog) && IsEmptyText(owner) && IsEmptyText(table))
    return "SELECT DISTINCT NULL" + Named("TABLE_QUALIFIER", "TABLE_CAT") + ", NULL" + owner_name +
           ", NULL AS TABLE_NAME, type AS TABLE_TYPE, NULL AS REMARKS"
           " FROM sim_tables ORDER BY 4";
  return "SELECT " + qualifier + ", owner" + owner_name +
         ", name AS TABLE_NAME, type AS TABLE_TYPE, remarks AS REMARKS FROM sim_tables WHERE " +
         (HasCatalog(catalog) ? "1" : "0") + Matches("owner", owner) + Matches("name", table) +
         OneOf("type", types) + " ORDER BY 4, 2, 3";
}

std::string CatalogQueries::Columns(const CatalogArgument& catalog, const CatalogArgument& owner,
                                    const CatalogArgument& table,
                                    const CatalogArgument& column) const {
  const std::string size = "coalesce(c.column_size,t.column_size)";
  const std::string length = "CASE WHEN t.data_type IN (-8,-9,-10) THEN 2*" + size +
                             " WHEN t.data_type IN (2,3) THEN " + size +
                             "+2 WHEN t.data_type=-7 OR t.data_type=-6 THEN 1"
                             " WHEN t.data_type=5 THEN 2 WHEN t.data_type IN (4,7) THEN 4"
                             " WHEN t.data_type IN (-5,6,8) THEN 8"
                             " WHEN t.data_type IN (91,92) THEN 6 WHEN t.data_type=93 THEN 16"
                             " ELSE " +
                             size + " END";
  return "SELECT " + CatalogColumn("TABLE_QUALIFIER", "TABLE_CAT") + ", c.owner" +
         Named("TABLE_OWNER", "TABLE_SCHEM") +
         ", c.table_name AS TABLE_NAME, c.column_name AS COLUMN_NAME, " + TypeCode() +
         " AS DATA_TYPE, c.type_name AS TYPE_NAME, " + size + Named("PRECISION", "COLUMN_SIZE") +
         ", " + length + Named("LENGTH", "BUFFER_LENGTH") + ", c.decimal_digits" +
         Named("SCALE", "DECIMAL_DIGITS") +
         ", CASE WHEN t.data_type IN (2,3,4,5,6,7,8,-5,-6) THEN 10 END" +
         Named("RADIX", "NUM_PREC_RADIX") +
         ", c.nullable AS NULLABLE, c.remarks AS REMARKS, c.column_def AS COLUMN_DEF, " +
         TypeCode() + " AS SQL_DATA_TYPE, NULL AS SQL_DATETIME_SUB, " + size +
         " AS CHAR_OCTET_LENGTH, c.position AS ORDINAL_POSITION,"
         " CASE c.nullable WHEN 0 THEN 'NO' WHEN 1 THEN 'YES' ELSE '' END AS IS_NULLABLE"
         " FROM sim_columns c LEFT JOIN sim_types t ON t.type_name=c.type_name WHERE " +
         (HasCatalog(catalog) ? "1" : "0") + Matches("c.owner", owner) +
         Matches("c.table_name", table) + Matches("c.column_name", column) +
         " ORDER BY c.owner, c.table_name, c.position";
}

std::string CatalogQueries::PrimaryKeys(const CatalogArgument& catalog,
                                        const CatalogArgument& owner,
                                        const CatalogArgument& table) const {
  return "SELECT " + CatalogColumn("TABLE_QUALIFIER", "TABLE_CAT") + ", owner" +
         Named("TABLE_OWNER", "TABLE_SCHEM") +
         ", table_name AS TABLE_NAME, column_name AS COLUMN_NAME, position AS KEY_SEQ,"
         " key_name AS PK_NAME FROM sim_primary_keys WHERE " +
         (HasCatalog(catalog) ? "1" : "0") + Equals("owner", owner) + Equals("table_name", table) +
         " ORDER BY owner, table_name, position";
}

std::string CatalogQueries::ForeignKeys(const CatalogArgument& pk_catalog,
                                        const CatalogArgument& pk_owner,
                                        const CatalogArgument& pk_table,
                                        const CatalogArgument& fk_catalog,
                                        const CatalogArgument& fk_owner,
                                        const CatalogArgument& fk_table) const {
  const bool from_primary = pk_table.has_value();
  return "SELECT " + CatalogColumn("PKTABLE_QUALIFIER", "PKTABLE_CAT") + ", pk_owner" +
         Named("PKTABLE_OWNER", "PKTABLE_SCHEM") +
         ", pk_table AS PKTABLE_NAME, pk_column AS PKCOLUMN_NAME, " +
         CatalogColumn("FKTABLE_QUALIFIER", "FKTABLE_CAT") + ", fk_owner" +
         Named("FKTABLE_OWNER", "FKTABLE_SCHEM") +
         ", fk_table AS FKTABLE_NAME, fk_column AS FKCOLUMN_NAME, position AS KEY_SEQ,"
         " 3 AS UPDATE_RULE, 3 AS DELETE_RULE, fk_name AS FK_NAME, pk_name AS PK_NAME,"
         " 7 AS DEFERRABILITY FROM sim_foreign_keys WHERE " +
         (HasCatalog(pk_catalog) && HasCatalog(fk_catalog) ? "1" : "0") +
         Equals("pk_owner", pk_owner) + Equals("pk_table", pk_table) +
         Equals("fk_owner", fk_owner) + Equals("fk_table", fk_table) +
         (from_primary ? " ORDER BY fk_owner, fk_table, fk_name, position"
                       : " ORDER BY pk_owner, pk_table, fk_name, position");
}

std::string CatalogQueries::Statistics(const CatalogArgument& catalog, const CatalogArgument& owner,
                                       const CatalogArgument& table, bool unique_only) const {
  return "SELECT " + CatalogColumn("TABLE_QUALIFIER", "TABLE_CAT") + ", owner" +
         Named("TABLE_OWNER", "TABLE_SCHEM") +
         ", table_name AS TABLE_NAME, non_unique AS NON_UNIQUE, NULL AS INDEX_QUALIFIER,"
         " index_name AS INDEX_NAME, 3 AS TYPE, position" +
         Named("SEQ_IN_INDEX", "ORDINAL_POSITION") +
         ", column_name AS COLUMN_NAME, CASE descending WHEN 1 THEN 'D' ELSE 'A' END" +
         Named("COLLATION", "ASC_OR_DESC") +
         ", NULL AS CARDINALITY, NULL AS PAGES, NULL AS FILTER_CONDITION"
         " FROM sim_statistics WHERE " +
         (HasCatalog(catalog) ? "1" : "0") + Equals("owner", owner) + Equals("table_name", table) +
         (unique_only ? " AND non_unique=0" : "") + " ORDER BY non_unique, index_name, position";
}

std::string CatalogQueries::Procedures(const CatalogArgument& catalog, const CatalogArgument& owner,
                                       const CatalogArgument& procedure) const {
  return "SELECT " + CatalogColumn("PROCEDURE_QUALIFIER", "PROCEDURE_CAT") + ", owner" +
         Named("PROCEDURE_OWNER", "PROCEDURE_SCHEM") +
         ", name AS PROCEDURE_NAME, NULL AS NUM_INPUT_PARAMS, NULL AS NUM_OUTPUT_PARAMS,"
         " NULL AS NUM_RESULT_SETS, remarks AS REMARKS, type AS PROCEDURE_TYPE"
         " FROM sim_procedures WHERE " +
         (HasCatalog(catalog) ? "1" : "0") + Matches("owner", owner) + Matches("name", procedure) +
         " ORDER BY owner, name";
}

std::string CatalogQueries::TypeInfo(int data_type) const {
  const std::string code = TypeCode();
  return "SELECT type_name AS TYPE_NAME, " + code + " AS DATA_TYPE, column_size" +
         Named("PRECISION", "COLUMN_SIZE") +
         ", CASE WHEN data_type IN (1,12,-1,-8,-9,-10,91,92,93) THEN '''' END AS LITERAL_PREFIX,"
         " CASE WHEN data_type IN (1,12,-1,-8,-9,-10,91,92,93) THEN '''' END AS LITERAL_SUFFIX,"
         " create_params AS CREATE_PARAMS, 1 AS NULLABLE, 1 AS CASE_SENSITIVE, 3 AS SEARCHABLE,"
         " 0 AS UNSIGNED_ATTRIBUTE, 0" +
         Named("MONEY", "FIXED_PREC_SCALE") + ", auto_increment" +
         Named("AUTO_INCREMENT", "AUTO_UNIQUE_VALUE") +
         ", type_name AS LOCAL_TYPE_NAME, 0 AS MINIMUM_SCALE, max_scale AS MAXIMUM_SCALE, " + code +
         " AS SQL_DATA_TYPE, NULL AS SQL_DATETIME_SUB, 10 AS NUM_PREC_RADIX,"
         " NULL AS INTERVAL_PRECISION FROM sim_types t" +
         (data_type == SQL_ALL_TYPES ? "" : " WHERE " + code + '=' + std::to_string(data_type)) +
         " ORDER BY 2, rowid";
}

}  // namespace catalogsim
