// Encodings, connection strings and names as users type them.
#include <gtest/gtest.h>

#include "base/connection_string.h"
#include "base/qualified_name.h"
#include "base/utf.h"

namespace base {
namespace {

TEST(Utf, ReplacesWhatIsNotValid) {
  const char16_t lone[] = {u'a', 0xD800, u'b', 0xDC00, 0xD83D, 0xDE00, 0xD800, 0};
  EXPECT_EQ(ToUtf8(lone), "a\uFFFDb\uFFFD\U0001F600\uFFFD");
  EXPECT_EQ(ToUtf16("a\xFF"
                    "b\xF0\x9F\x98\x80\xC3"),
            u"a\uFFFDb\U0001F600\uFFFD");
}

TEST(ConnectionString, GivesTheFirstValueOfAKeyword) {
  const struct {
    const char* text;
    std::optional<std::string> value;  // of "Key"
  } cases[] = {
      {"Key=a;Key=b", "a"},
      {"other=1; kEY = a b ;", "a b"},
      {"Key={a;b}}c};Key=d", "a;b}c"},
      {"X={Key=no;};Key={yes}", "yes"},
      {"Key={open", "open"},
      {"Key=a{b}", "a{b}"},
      {"Key={} tail;X=1", ""},
      {"Key=a=b", "a=b"},
      {"Key;X=Key=1", std::nullopt},
      {";;=;=a;Key", std::nullopt},
      {"", std::nullopt},
      {"Key=", ""},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(FindAttribute(test.text, "Key"), test.value) << test.text;
  }
}

TEST(ConnectionString, GivesBackEveryValueThatItFormats) {
  EXPECT_EQ(FormatAttribute("Key", "plain"), "Key=plain;");
  for (const std::string value : {"", "two words", "a;b", "}", "{", "a}b}}c;", " blank ", "x=1",
                                  "[x]", "(x)!@*?,", "Gr\u00f6\u00dfe"}) {
    const std::string text = FormatAttribute("Key", value) + FormatAttribute("Last", "1");
    EXPECT_EQ(FindAttribute(text, "Key"), value) << text;
    EXPECT_EQ(FindAttribute(text, "Last"), "1") << text;
  }
}

TEST(QualifiedName, IsPartedAtTheFirstDotOutsideOfQuotes) {
  const struct {
    const char* text;
    const char16_t* owner;
    const char16_t* name;
  } cases[] = {
      {"t", u"", u"t"},
      {"joe.t", u"joe", u"t"},
      {"joe.a.b", u"joe", u"a.b"},
      {"\"j.o\".\"a \"\"b\"\"\"", u"j.o", u"a \"b\""},
      {"\"a.b\"", u"", u"a.b"},
      {"we\"ird", u"", u"we\"ird"},
      {"Größe.日本", u"Größe", u"日本"},
  };
  for (const auto& [text, owner, name] : cases) {
    const QualifiedName parsed = ParseQualifiedName(text);
    EXPECT_EQ(parsed.owner, owner) << text;
    EXPECT_EQ(parsed.name, name) << text;
  }
}

}  // namespace
}  // namespace base
