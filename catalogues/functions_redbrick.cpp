// The built-in functions of Red Brick.
#include "catalogues/function_groups.h"

namespace odbcimport {
namespace {

// clang-format off
using Types = const std::u16string_view[];
constexpr Types kNine     = {u"CHAR", u"DECIMAL", u"DOUBLE PRECISION", u"FLOAT", u"INTEGER", u"NUMERIC", u"REAL",
                             u"SMALLINT", u"TINYINT"};
constexpr Types kNoDouble = {u"CHAR", u"DECIMAL", u"FLOAT", u"INTEGER", u"NUMERIC", u"REAL", u"SMALLINT", u"TINYINT"};
constexpr TypeSequence kNoChar = TypeSequence(kNine).subspan(1);

using Exceptions = const ResultException[];
constexpr Exceptions kAbsResults = {
    {u"CHAR", u"DOUBLE PRECISION"}, {u"SMALLINT", u"INTEGER"}, {u"TINYINT", u"INTEGER"}};
constexpr Exceptions kCharGivesDouble = {{u"CHAR", u"DOUBLE PRECISION"}};
constexpr Exceptions kDecimalGivesNothing = {{u"DECIMAL", u""}};
constexpr Exceptions kExactGivesDecimal = {
    {u"INTEGER", u"DECIMAL"}, {u"NUMERIC", u"DECIMAL"}, {u"SMALLINT", u"DECIMAL"}, {u"TINYINT", u"DECIMAL"}};

// Required (functions_facts.txt): the signatures of DATEDIFF and DATENAME say DATEADD, and
// INT(DECIMAL) has no result. Hosts compare these texts with those of workbooks that they stored; a
// mended text would pass for a changed function.
constexpr FunctionGroup kGroups[] = {
    {u"CASE",              u"CASE expression WHEN expression THEN result ELSE result END", u"result"},
    {u"COALESCE",          u"COALESCE(expression, expression)",                            u"expression"},
    {u"DECODE",            u"DECODE(expression, target, replacement, default)",            u"expression"},
    {u"IFNULL",            u"IFNULL(expression , substitute)",                             u"expression | substitute"},
    {u"NULLIF",            u"NULLIF(expression, expression)",                              u"expression"},
    {u"ABS",               u"ABS($)",                                                      u"$", kNine, kAbsResults},
    {u"CEIL",              u"CEIL($)",                                                     u"$", kNine, kCharGivesDouble},
    {u"DEC",               u"DEC(expression, precision, scale)",                           u"DECIMAL"},
    {u"FLOAT",             u"FLOAT($)",                                                    u"DOUBLE PRECISION", kNoDouble},
    {u"FLOOR",             u"FLOOR($)",                                                    u"$", kNine, kCharGivesDouble},
    {u"INT",               u"INT($)",                                                      u"INTEGER", kNine, kDecimalGivesNothing},
    {u"REAL",              u"REAL($)",                                                     u"REAL", kNoDouble},
    {u"SIGN",              u"SIGN(expression)",                                            u"INTEGER"},
    {u"CONCAT",            u"CONCAT(CHAR, CHAR)",                                          u"CHAR"},
    {u"LOWER",             u"LOWER(CHAR)",                                                 u"CHAR"},
    {u"LTRIM",             u"LTRIM(CHAR)",                                                 u"CHAR"},
    {u"RTRIM",             u"RTRIM(CHAR)",                                                 u"CHAR"},
    {u"STRING",            u"STRING(expression, length, scale)",                           u"CHAR"},
    {u"SUBSTR",            u"SUBSTR(expression, start, length)",                           u"CHAR"},
    {u"TRIM",              u"TRIM(expression, 'Both' | 'Right' | 'Left')",                 u"CHAR"},
    {u"UPPER",             u"UPPER(CHAR)",                                                 u"CHAR"},
    {u"CURRENT_DATE",      u"CURRENT_DATE",                                                u"DATE"},
    {u"CURRENT_TIME",      u"CURRENT_TIME",                                                u"TIME"},
    {u"CURRENT_TIMESTAMP", u"CURRENT_TIMESTAMP",                                           u"TIMESTAMP"},
    {u"DATE",              u"DATE(CHAR)",                                                  u""},
    {u"DATE",              u"DATE(TIMESTAMP)",                                             u""},
    {u"DATEADD",           u"DATEADD(datepart, interval, datetime_expression)",            u"datetime_expression"},
    {u"DATEDIFF",          u"DATEADD(datepart, interval, datetime_expression)",            u"INTEGER"},
    {u"DATENAME",          u"DATEADD(datepart, datetime_expression)",                      u"CHAR"},
    {u"EXTRACT",           u"EXTRACT(datepart FROM datetime_expression)",                  u"INTEGER"},
    {u"TIME",              u"TIME(CHAR)",                                                  u"TIME"},
    {u"TIME",              u"TIME(TIMESTAMP)",                                             u"TIME"},
    {u"TIMESTAMP",         u"TIMESTAMP(CHAR)",                                             u"TIMESTAMP"},
    {u"TIMESTAMP",         u"TIMESTAMP(date_expression, time_expression)",                 u"TIMESTAMP"},
    {u"CURRENT_USER",      u"CURRENT_USER",                                                u"CHAR"},
    {u"USER",              u"USER",                                                        u"CHAR"},
    {u"CUME",              u"CUME($)",                                                     u"$", kNoChar, kExactGivesDecimal},
    {u"MOVINGAVG",         u"MOVINGAVG($)",                                                u"$", kNoChar, kExactGivesDecimal},
    {u"MOVINGSUM",         u"MOVINGSUM($)",                                                u"$", kNoChar, kExactGivesDecimal},
    {u"NTILE",             u"NTILE($, INTEGER)",                                           u"INTEGER", kNoChar},
    {u"RANK",              u"RANK(expression)",                                            u"INTEGER"},
    {u"RATIOTOREPORT",     u"RATIOTOREPORT($)",                                            u"FLOAT", kNoChar},
    {u"TERTILE",           u"TERTILE(expression)",                                         u"CHAR"},
};
// clang-format on

constexpr auto& kRows = FunctionExpansion<kGroups>::kRows;
static_assert(kRows.size() == 124);

}  // namespace

void GetGeneralFunctionsRedBrick(ImportSession& session) {
  AddSystemFunctions(session, kRows, 124);
}

}  // namespace odbcimport
