// The built-in functions of the two Informix servers, in one table: Dynamic Server has those of
// Universal Server that need none of its types and modules.
#include "catalogues/function_groups.h"

namespace odbcimport {
namespace {

// Types in the order in which the overloads are listed.
// clang-format off
using Types = const std::u16string_view[];
constexpr Types kNumericTypes    = {u"integer", u"smallint", u"int8", u"float", u"smallfloat", u"decimal",
                                    u"money", u"varchar", u"char", u"nvarchar", u"nchar", u"serial",
                                    u"serial8"};
constexpr std::span kNumeric(kNumericTypes);
constexpr Types kComparison      = {u"char", u"nchar", u"varchar", u"nvarchar", u"smallint", u"integer", u"int8",
                                    u"decimal", u"smallfloat", u"float", u"date", u"datetime", u"interval",
                                    u"money", u"references text", u"references byte", u"lvarchar",
                                    u"serial", u"serial8"};
constexpr Types kArithmetic      = {u"smallint", u"integer", u"int8", u"decimal", u"smallfloat", u"float"};
constexpr Types kSerials         = {u"serial", u"serial8"};
constexpr Types kCollections     = {u"set", u"multiset", u"list", u"collection"};
// "vchar" is required, here alone (functions_facts.txt): hosts compare the texts with stored ones.
constexpr Types kDateSources     = {u"char", u"vchar", u"datetime", u"decimal", u"money", u"smallint", u"integer",
                                    u"int8", u"serial", u"serial8", u"smallfloat", u"float"};
constexpr Types kDatePartSources = {u"date", u"datetime", u"char", u"varchar", u"decimal", u"money", u"smallint",
                                    u"integer", u"int8", u"serial", u"serial8", u"smallfloat", u"float"};
constexpr Types kDateParts       = {u"integer", u"char", u"varchar"};
constexpr Types kRowAndSmartObjects = {u"row", u"blob", u"clob"};
constexpr Types kSmartObjects    = {u"blob", u"clob"};
constexpr Types kSets            = {u"set", u"list", u"multiset"};
constexpr Types kComparedSets    = {u"set", u"multiset", u"list"};
constexpr Types kCharacters      = {u"char", u"nchar", u"varchar", u"nvarchar"};
constexpr Types kConcatenated    = {u"char", u"nchar", u"varchar", u"nvarchar", u"lvarchar"};
constexpr Types kNegated         = {u"int8", u"decimal", u"smallfloat", u"float", u"money", u"serial", u"serial8",
                                    u"smallint", u"integer"};
constexpr Types kPositive        = {u"smallint", u"integer", u"int8", u"decimal", u"smallfloat", u"float", u"money",
                                    u"serial", u"serial8"};
constexpr Types kMeasured        = {u"varchar", u"char", u"nvarchar", u"nchar", u"references byte",
                                    u"references text"};

constexpr ResultException kCharactersGiveDecimal[] = {
    {u"varchar", u"decimal"}, {u"char", u"decimal"}, {u"nvarchar", u"decimal"}, {u"nchar", u"decimal"}};
constexpr ResultException kSerial8GivesInt8[] = {{u"serial8", u"int8"}};

enum Server : bool { kBoth, kUniversal };

struct InformixGroup : FunctionGroup {
  template <class... Rest>
  constexpr InformixGroup(Server only_on, const Rest&... rest)
      : FunctionGroup{rest...}, server(only_on) {}
  Server server;
};

// Required (functions_facts.txt): the result "nteger" of three overloads of compare, and minus in two
// runs, which make two functions. Hosts compare with workbooks that they stored.
constexpr InformixGroup kGroups[] = {
    {kUniversal, u"cardinality",        u"cardinality($)",                       u"integer", kCollections},
    {kBoth,      u"dbinfo",             u"dbinfo(char)",                         u"integer"},
    {kBoth,      u"dbinfo",             u"dbinfo(varchar,varchar)",              u"char"},
    {kBoth,      u"date",               u"date($)",                              u"date", kDateSources},
    {kBoth,      u"day",                u"day($)",                               u"integer", kDatePartSources},
    {kBoth,      u"month",              u"month($)",                             u"integer", kDatePartSources},
    {kBoth,      u"weekday",            u"weekday($)",                           u"integer", kDatePartSources},
    {kBoth,      u"year",               u"year($)",                              u"integer", kDatePartSources},
    {kBoth,      u"mdy",                u"mdy($,$,$)",                           u"date", kDateParts},
    {kBoth,      u"trim",               u"trim(varchar)",                        u"varchar"},
    {kBoth,      u"equal",              u"equal(boolean,boolean)",               u"boolean"},
    {kUniversal, u"equal",              u"equal($,$)",                           u"boolean", kRowAndSmartObjects},
    {kBoth,      u"equal",              u"equal($,$)",                           u"boolean", kComparison},
    {kUniversal, u"equal",              u"equal($,$)",                           u"boolean", kSets},
    {kBoth,      u"compare",            u"compare(boolean,boolean)",             u"integer"},
    {kUniversal, u"compare",            u"compare(row,row)",                     u"integer"},
    {kUniversal, u"compare",            u"compare($,$)",                         u"nteger", kSmartObjects},
    {kBoth,      u"compare",            u"compare(lvarchar,lvarchar)",           u"nteger"},
    {kUniversal, u"compare",            u"compare($,$)",                         u"integer", kComparedSets},
    {kBoth,      u"notequal",           u"notequal(boolean,boolean)",            u"boolean"},
    {kBoth,      u"notequal",           u"notequal($,$)",                        u"boolean", kComparison},
    {kUniversal, u"notequal",           u"notequal($,$)",                        u"boolean", kSets},
    {kBoth,      u"greaterthan",        u"greaterthan($,$)",                     u"boolean", kComparison},
    {kBoth,      u"lessthan",           u"lessthan($,$)",                        u"boolean", kComparison},
    {kBoth,      u"greaterthanorequal", u"greaterthanorequal($,$)",              u"boolean", kComparison},
    {kBoth,      u"lessthanorequal",    u"lessthanorequal($,$)",                 u"boolean", kComparison},
    {kBoth,      u"like",               u"like($,$)",                            u"boolean", kCharacters},
    {kBoth,      u"like",               u"like($,$,$)",                          u"boolean", kCharacters},
    {kBoth,      u"like",               u"like(lvarchar,lvarchar)",              u"boolean"},
    {kBoth,      u"like",               u"like(lvarchar,lvarchar,lvarchar)",     u"boolean"},
    {kBoth,      u"matches",            u"matches($,$)",                         u"boolean", kCharacters},
    {kBoth,      u"matches",            u"matches($,$,$)",                       u"boolean", kCharacters},
    {kBoth,      u"matches",            u"matches(lvarchar,lvarchar)",           u"boolean"},
    {kBoth,      u"matches",            u"matches(lvarchar,lvarchar,lvarchar)",  u"boolean"},
    {kBoth,      u"concat",             u"concat($,$)",                          u"$", kConcatenated},
    {kBoth,      u"negate",             u"negate($)",                            u"$", kNegated},
    {kBoth,      u"minus",              u"minus($,$)",                           u"decimal", kArithmetic},
    {kBoth,      u"minus",              u"minus(date,date)",                     u"date"},
    {kBoth,      u"minus",              u"minus(datetime,datetime)",             u"interval"},
    {kBoth,      u"minus",              u"minus(datetime,interval)",             u"interval"},
    {kBoth,      u"minus",              u"minus(interval,interval)",             u"interval"},
    {kBoth,      u"minus",              u"minus(money,money)",                   u"money"},
    {kBoth,      u"positive",           u"positive($)",                          u"$", kPositive},
    {kBoth,      u"minus",              u"minus($,$)",                           u"decimal", kSerials},
    {kBoth,      u"plus",               u"plus($,$)",                            u"decimal", kArithmetic},
    {kBoth,      u"plus",               u"plus(date,date)",                      u"date"},
    {kBoth,      u"plus",               u"plus(datetime,interval)",              u"datetime"},
    {kBoth,      u"plus",               u"plus(interval,interval)",              u"interval"},
    {kBoth,      u"plus",               u"plus(money,money)",                    u"money"},
    {kBoth,      u"plus",               u"plus($,$)",                            u"decimal", kSerials},
    {kBoth,      u"times",              u"times($,$)",                           u"decimal", kArithmetic},
    {kBoth,      u"times",              u"times(date,date)",                     u"date"},
    {kBoth,      u"times",              u"times(interval,interval)",             u"interval"},
    {kBoth,      u"times",              u"times(money,money)",                   u"money"},
    {kBoth,      u"times",              u"times($,$)",                           u"decimal", kSerials},
    {kBoth,      u"divide",             u"divide($,$)",                          u"decimal", kArithmetic},
    {kBoth,      u"divide",             u"divide(date,date)",                    u"date"},
    {kBoth,      u"divide",             u"divide(interval,interval)",            u"interval"},
    {kBoth,      u"divide",             u"divide(money,money)",                  u"decimal"},
    {kBoth,      u"divide",             u"divide($,$)",                          u"decimal", kSerials},
    {kBoth,      u"abs",                u"abs($)",                               u"$", kNumeric, kCharactersGiveDecimal},
    {kBoth,      u"exp",                u"exp($)",                               u"float", kNumeric},
    {kBoth,      u"hex",                u"hex($)",                               u"char", kNumeric},
    {kBoth,      u"log10",              u"log10($)",                             u"float", kNumeric},
    {kBoth,      u"logn",               u"logn($)",                              u"float", kNumeric},
    {kBoth,      u"mod",                u"mod($,integer)",                       u"integer", kNumeric.first<2>()},
    {kBoth,      u"mod",                u"mod(int8,int8)",                       u"int8"},
    {kBoth,      u"mod",                u"mod($,integer)",                       u"integer", kNumeric.subspan<3>(), kSerial8GivesInt8},
    {kBoth,      u"pow",                u"pow($,float)",                         u"float", kNumeric},
    {kBoth,      u"root",               u"root($,float)",                        u"float", kNumeric},
    {kBoth,      u"round",              u"round($,integer)",                     u"decimal", kNumeric},
    {kBoth,      u"sqrt",               u"sqrt($)",                              u"float", kNumeric},
    {kBoth,      u"trunc",              u"trunc($,integer)",                     u"decimal", kNumeric},
    {kBoth,      u"cos",                u"cos($)",                               u"float", kNumeric},
    {kBoth,      u"sin",                u"sin($)",                               u"float", kNumeric},
    {kBoth,      u"tan",                u"tan($)",                               u"float", kNumeric},
    {kBoth,      u"acos",               u"acos($)",                              u"float", kNumeric},
    {kBoth,      u"asin",               u"asin($)",                              u"float", kNumeric},
    {kBoth,      u"atan",               u"atan($)",                              u"float", kNumeric},
    {kBoth,      u"atan2",              u"atan2($,float)",                       u"float", kNumeric},
    {kBoth,      u"length",             u"length($)",                            u"integer", kMeasured},
    {kBoth,      u"length",             u"length(lvarchar)",                     u"integer"},
    {kBoth,      u"octet_length",       u"octet_length($)",                      u"integer", kMeasured},
    {kBoth,      u"octet_length",       u"octet_length(lvarchar)",               u"integer"},
    {kBoth,      u"char_length",        u"char_length($)",                       u"integer", kMeasured},
    {kBoth,      u"char_length",        u"char_length(lvarchar)",                u"integer"},
    {kBoth,      u"character_length",   u"character_length($)",                  u"integer", kMeasured},
    {kBoth,      u"user",               u"user",                                 u"char"},
    {kBoth,      u"sitename",           u"sitename",                             u"char"},
    {kBoth,      u"dbservername",       u"dbservername",                         u"char"},
    {kBoth,      u"today",              u"today",                                u"date"},
    {kBoth,      u"current",            u"current",                              u"datetime"},
    {kUniversal, u"ifx_reload_module",  u"ifx_reload_module(char, char)",        u""},
    {kUniversal, u"ifx_replace_module", u"ifx_replace_module(char, char, char)", u""},
    {kUniversal, u"lotofile",           u"lotofile($, char, char)",              u"", kSmartObjects},
    {kUniversal, u"lotocopy",           u"lotocopy($, char, char)",              u"", kSmartObjects},
    {kBoth,      u"extend",             u"extend(date)",                         u""},
    {kBoth,      u"extend",             u"extend(datetime)",                     u""},
};
// clang-format on

constexpr bool OnDynamicServer(const InformixGroup& group) { return group.server == kBoth; }

constexpr auto& kRowsIUS = FunctionExpansion<kGroups>::kRows;
constexpr auto& kRowsIDS = FunctionExpansion<kGroups, OnDynamicServer>::kRows;
static_assert(kRowsIUS.size() == 571);
static_assert(kRowsIDS.size() == 546);

// Required (functions_facts.txt): two more than there are, as hosts have been told.
constexpr std::uint32_t kAnnouncedIUS = 573;

}  // namespace

void GetSystemFunctionsIUS(ImportSession& session) {
  AddSystemFunctions(session, kRowsIUS, kAnnouncedIUS);
}

void GetSystemFunctionsIDS(ImportSession& session) { AddSystemFunctions(session, kRowsIDS, 546); }

}  // namespace odbcimport
