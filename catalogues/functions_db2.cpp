// The built-in functions of DB2: its special registers. All others are in its catalog.
#include "catalogues/function_walk.h"

namespace odbcimport {
namespace {

// clang-format off
constexpr FunctionRow kDB2[] = {
    {u"CURRENT DATE",               u"CURRENT DATE",               u"date"},
    {u"CURRENT DEGREE",             u"CURRENT DEGREE",             u"char"},
    {u"CURRENT EXPLAIN MODE",       u"CURRENT EXPLAIN MODE",       u"char"},
    {u"CURRENT EXPLAIN SNAPSHOT",   u"CURRENT EXPLAIN SNAPSHOT",   u"char"},
    {u"CURRENT NODE",               u"CURRENT NODE",               u"integer"},
    {u"CURRENT PATH",               u"CURRENT PATH",               u"varchar"},
    {u"CURRENT QUERY OPTIMIZATION", u"CURRENT QUERY OPTIMIZATION", u"integer"},
    {u"CURRENT REFRESH AGE",        u"CURRENT REFRESH AGE",        u"decimal"},
    {u"CURRENT SCHEMA",             u"CURRENT SCHEMA",             u"char"},
    {u"CURRENT SERVER",             u"CURRENT SERVER",             u"varchar"},
    {u"CURRENT TIME",               u"CURRENT TIME",               u"time"},
    {u"CURRENT TIMESTAMP",          u"CURRENT TIMESTAMP",          u"timestamp"},
    {u"CURRENT TIMEZONE",           u"CURRENT TIMEZONE",           u"decimal"},
    {u"USER",                       u"USER",                       u"char"},
};
// clang-format on
static_assert(std::size(kDB2) == 14);

}  // namespace

void GetSystemFunctionsDB2(ImportSession& session) { AddSystemFunctions(session, kDB2, 14); }

}  // namespace odbcimport
