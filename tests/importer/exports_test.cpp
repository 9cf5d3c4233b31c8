// What the module shows of itself.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <regex>
#include <set>
#include <string>

namespace {

// The defined dynamic symbols of the module, demangled.
std::set<std::string> ListSymbols() {
  std::set<std::string> symbols;
  std::FILE* pipe =
      popen("nm -DC --defined-only --format=posix " WB_BUILD_DIR "/lib/libodbcimport.so", "r");
  char line[4096];
  while (pipe != nullptr && std::fgets(line, sizeof line, pipe) != nullptr) {
    symbols.insert(line);
  }
  if (pipe != nullptr) pclose(pipe);
  return symbols;
}

TEST(Exports, AreTheExportedClassesTheStartUpAndTheServices) {
  const std::regex allowed(
      "(vtable for |typeinfo for |typeinfo name for )?"
      "(LcODBC(WorkbookImport|Fetch|RecordList|Column|DatatypeList)\\b|"
      "T(PtrList|PtrListIterator|Iterator)<LcODBC(Fetch|RecordList)>|"
      "OdbcImport(Start|Stop|CheckConnection|CheckDialect|TryDialect|Dialects|FindUnsafeName)"
      "\\(|platform::).*"
      "\n?");
  const std::set<std::string> symbols = ListSymbols();
  for (const std::string& symbol : symbols) {
    EXPECT_TRUE(std::regex_match(symbol, allowed)) << symbol;
    EXPECT_THAT(symbol, testing::Not(testing::ContainsRegex("::(State|Storage)::")));
  }
  for (const char* needed :
       {"OdbcImportStart(", "OdbcImportStop(", "platform::GetServices(",
        "LcODBCWorkbookImport::LcODBCWorkbookImport(", "LcODBCDatatypeList::LcODBCDatatypeList(",
        "LcODBCFetch::FetchData(", "LcODBCRecordList::GetData(", "LcODBCColumn::IsLong(",
        "TPtrList<LcODBCFetch>::AddTail(", "TPtrListIterator<LcODBCRecordList>::RemoveCurrent("}) {
    EXPECT_THAT(symbols, testing::Contains(testing::StartsWith(needed)));
  }
}

}  // namespace
