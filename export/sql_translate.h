// What a script for another kind of server than the workbook was read from says otherwise.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "export/sql_context.h"

namespace wbexport::sql {

// Whether the server numbers the rows by this column: it is an identity column, or its default
// takes from a sequence that is its own.
[[nodiscard]] bool NumbersRows(const Context& context, const LcWorkbookColumn& column);

// Whether the target can number rows by the column in hand.
[[nodiscard]] bool CanNumberRows(const Context& context, const LcWorkbookColumn& column);

// A column's default in words that every server reads the same way, where it has some: a number, a
// text, NULL, the time, as far as the column's kind takes it.
[[nodiscard]] std::optional<std::string> TranslatedDefault(const Context& context,
                                                           const LcWorkbookColumn& column,
                                                           std::u16string_view text);

// The type of a column in hand, empty where there is no counterpart. A long text that is part of a
// key is a shorter one where keys ask for that.
[[nodiscard]] std::string TranslatedType(Context& context, const LcWorkbookColumn& column);

// The columns that have to be texts of any length because the table's rows would be too long for
// the server: the longest ones that are in no key. What the context has pending is lost.
[[nodiscard]] std::set<const LcWorkbookColumn*> TooLongColumns(Context& context,
                                                               const LcWorkbookTable& table);

}  // namespace wbexport::sql
