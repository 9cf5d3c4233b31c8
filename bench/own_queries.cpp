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
  std::vector<std::u16string> texts;
  BuildTableColumnQueries(choices, type, type == dbmsInformix && version >= 9, texts);
  if (type == dbmsInformix) return texts;
  std::u16string text;
  BuildPrimaryKeyQuery(choices, text, type);
  texts.push_back(text);
  text.clear();
  switch (type) {
    case dbmsMSSQLServer:
      BuildForeignKeyQuerySQLServer(choices, text);
      texts.push_back(text);
      break;
    case dbmsOracle:
      BuildForeignKeyQueries(choices, type, texts);
      break;
    case dbmsRedBrick:
      BuildForeignKeyQueryRedBrick1(choices, text);
      texts.push_back(text);
      text.clear();
      BuildForeignKeyQueryRedBrick2(choices, text);
      texts.push_back(text);
      break;
    default:
      BuildForeignKeyQuery(choices, text, type);
      texts.push_back(text);
  }
  return texts;
}

}  // namespace bench
