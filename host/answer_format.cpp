// See answer_format.h.
#include "host/answer_format.h"

#include <algorithm>

namespace wbhost {

// In the order of AnswerFormat.
const std::vector<std::string>& AnswerFormatNames() {
  static const std::vector<std::string> names = {"text", "json"};
  return names;
}

std::optional<AnswerFormat> FindAnswerFormat(std::string_view name) {
  const std::vector<std::string>& names = AnswerFormatNames();
  const auto found = std::find(names.begin(), names.end(), name);
  if (found == names.end()) return std::nullopt;
  return static_cast<AnswerFormat>(found - names.begin());
}

AnswerFormat AnswerFormatOf(const OutputOptions& options) {
  return options.format ? FindAnswerFormat(*options.format).value_or(AnswerFormat::kText)
                        : AnswerFormat::kText;
}

}  // namespace wbhost
