// The formats of the commands whose answer is no workbook and no comparison: list, info, drivers
// and dialects.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/options.h"

namespace wbhost {

enum class AnswerFormat { kText, kJson };

// In the order in which a user is shown them; the first is the default.
[[nodiscard]] const std::vector<std::string>& AnswerFormatNames();
// None when there is no such format.
[[nodiscard]] std::optional<AnswerFormat> FindAnswerFormat(std::string_view name);
// The one that the options name, the default otherwise.
[[nodiscard]] AnswerFormat AnswerFormatOf(const OutputOptions& options);

}  // namespace wbhost
