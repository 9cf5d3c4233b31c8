// What is like a secret: the one list of names, whoever asks.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace base {

// Whether an attribute of a connection string, or an option, of that name holds a password or
// another secret.
[[nodiscard]] bool IsSecretKey(std::string_view key);

// The secrets that stand inside of a value whose own name is harmless: `password=x` among the
// parameters of `pqopt`, `user:x@` in a URL. As they stand there, without quotes.
[[nodiscard]] std::vector<std::string_view> SecretsWithin(std::string_view value);

// Overwrites the text and empties it, so that no copy of a secret stays in memory that is given
// back.
void Wipe(std::string& text);
void Wipe(std::u16string& text);

}  // namespace base
