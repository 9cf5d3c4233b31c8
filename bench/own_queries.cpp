// The statements of the routes with own SQL, from the same builders that the routes use.
#include "bench/own_queries.h"

#include "routes/native/foreign_key_queries.h"
#include "routes/native/primary_keys.h"
#include "routes/shared/catalog_queries.h"
#include "routes/shared/query_batches.h"

namespace bench {

std::vector<std::u16string> OwnQueries(const LcImportChoices& choices, LeDBMSType type,
                                       int version) {
  using namespace odbcimport;          // NOLINT: the builders are the routes'
  using namespace odbcimport::native;  // NOLINT
  std::vector<std::u16string> texts =
      BuildTableColumnQueries(choices, type, type == dbmsInformix && version >= 9);
  if (type == dbmsInformix) return texts;
  texts.push_back(BuildPrimaryKeyQuery(choices, type).value());
  switch (type) {
    case dbmsMSSQLServer:
      texts.push_back(BuildForeignKeyQuerySQLServer(choices));
      break;
    case dbmsRedBrick:
      texts.push_back(BuildForeignKeyQueryRedBrick1(choices));
      texts.push_back(BuildForeignKeyQueryRedBrick2(choices));
      break;
    default:
      for (std::u16string& text : BuildForeignKeyQueries(choices, type)) {
        texts.push_back(std::move(text));
      }
  }
  return texts;
}

}  // namespace bench
