// Keeps secrets out of texts for people: messages that quote a connection string, whole or in part.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace base {

// The text with `***` in place of every secret, wherever it stands, and of the value of every
// attribute that is named like one, and with nothing else changed. A secret of one to three
// characters is replaced only where it stands alone, since messages would become unreadable
// otherwise. Where the value of an attribute is none of `secrets`, it ends with its braces, at a
// semicolon, at the quote that was opened before the attribute, or with the text.
[[nodiscard]] std::string MaskSecrets(std::string_view text,
                                      const std::vector<std::string>& secrets);

}  // namespace base
