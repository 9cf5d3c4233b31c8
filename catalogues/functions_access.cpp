// The built-in functions of Microsoft Access, in the form in which its ODBC driver takes them.
#include "catalogues/function_walk.h"

namespace odbcimport {
namespace {

// Required (functions_facts.txt): RTRIM's result is a number. Hosts compare catalogues with those
// that they have stored.
// clang-format off
constexpr FunctionRow kAccessFunctions[] = {
    {u"ASCII",      u"ASCII(character)",                      u"number"},
    {u"CHAR",       u"CHAR(number)",                          u"character"},
    {u"CONCAT",     u"CONCAT(character, character)",          u"character"},
    {u"LOWER",      u"LOWER(character)",                      u"character"},
    {u"LEFT",       u"LEFT(character, number)",               u"character"},
    {u"LENGTH",     u"LENGTH(character)",                     u"number"},
    {u"LOCATE",     u"LOCATE(character, character)",          u"number"},
    {u"LTRIM",      u"LTRIM(character)",                      u"character"},
    {u"RIGHT",      u"RIGHT(character, number)",              u"character"},
    {u"RTRIM",      u"RTRIM(character)",                      u"number"},
    {u"SPACE",      u"SPACE(number)",                         u"character"},
    {u"SUBSTRING",  u"SUBSTRING(character, start, length)",   u"character"},
    {u"UCASE",      u"UCASE(character)",                      u"character"},
    {u"ABS",        u"ABS(number)",                           u"number"},
    {u"ATAN",       u"ATAN(number)",                          u"number"},
    {u"CEILING",    u"CEILING(number)",                       u"number"},
    {u"COS",        u"COS(number)",                           u"number"},
    {u"EXP",        u"EXP(number)",                           u"number"},
    {u"FLOOR",      u"FLOOR(number)",                         u"number"},
    {u"LOG",        u"LOG(number)",                           u"number"},
    {u"MOD",        u"MOD(m, n)",                             u"number"},
    {u"POWER",      u"POWER(number, y)",                      u"number"},
    {u"RAND",       u"RAND([seed])",                          u"number"},
    {u"SIGN",       u"SIGN(number)",                          u"number"},
    {u"SIN",        u"SIN(number)",                           u"number"},
    {u"SQRT",       u"SQRT(number)",                          u"number"},
    {u"TAN",        u"TAN(number)",                           u"number"},
    {u"CURDATE",    u"CURDATE",                               u"date"},
    {u"CURTIME",    u"CURTIME",                               u"time"},
    {u"DAYNAME",    u"DAYNAME(date)",                         u"character"},
    {u"DAYOFMONTH", u"DAYOFMONTH",                            u"integer"},
    {u"DAYOFWEEK",  u"DAYOFWEEK",                             u"integer"},
    {u"DAYOFYEAR",  u"DAYOFYEAR",                             u"integer"},
    {u"HOUR",       u"HOUR(datetime)",                        u"number"},
    {u"MINUTE",     u"MINUTE(datetime)",                      u"number"},
    {u"MONTH",      u"MONTH(date)",                           u"number"},
    {u"MONTHNAME",  u"MONTHNAME(number)",                     u"character"},
    {u"NOW",        u"NOW",                                   u"datetime"},
    {u"QUARTER",    u"QUARTER(date)",                         u"number"},
    {u"SECOND",     u"SECOND(datetime)",                      u"number"},
    {u"WEEK",       u"WEEK(date)",                            u"number"},
    {u"YEAR",       u"YEAR(date)",                            u"number"},
};
// clang-format on
static_assert(std::size(kAccessFunctions) == 42);

}  // namespace

void GetSystemFunctionsAccess(ImportSession& session) {
  AddSystemFunctions(session, kAccessFunctions, 42);
}

}  // namespace odbcimport
