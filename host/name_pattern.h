// Names of tables, views, synonyms, owners and catalogs as options give them: `[OWNER.]NAME`, where
// outside of double quotes `*` stands for any characters and `?` for one.
#pragma once

#include <string>
#include <string_view>

namespace wbhost {

class NamePattern {
 public:
  // Parts the text at the first dot outside of double quotes; a part in quotes is literal.
  // `option` is for the message of the Failure that a text without a name throws.
  [[nodiscard]] static NamePattern OfTable(const std::string& text, const char* option);
  // A name of one part.
  [[nodiscard]] static NamePattern OfName(const std::string& text, const char* option);

  // Whether a name fits; without an owner in the pattern any owner does. What is in quotes never
  // ignores case.
  [[nodiscard]] bool Matches(std::u16string_view owner, std::u16string_view name,
                             bool ignoring_case) const;
  [[nodiscard]] bool HasWildcards() const { return owner_.wild || name_.wild; }
  [[nodiscard]] bool HasOwner() const { return has_owner_; }
  // As they stand, for a pattern without wildcards.
  [[nodiscard]] const std::u16string& owner() const { return owner_.plain; }
  [[nodiscard]] const std::u16string& name() const { return name_.plain; }
  [[nodiscard]] const std::string& text() const { return text_; }  // as the user wrote it
  [[nodiscard]] const char* option() const { return option_; }

 private:
  struct Part {
    std::u16string plain;
    std::string glob;  // UTF-8, for fnmatch
    bool wild = false;
    bool quoted = false;
  };
  [[nodiscard]] static Part ReadPart(std::u16string plain, bool quoted);
  [[nodiscard]] static bool Fits(const Part& part, std::u16string_view name, bool ignoring_case);

  std::string text_;
  const char* option_ = "";
  bool has_owner_ = false;
  Part owner_;
  Part name_;
};

}  // namespace wbhost
