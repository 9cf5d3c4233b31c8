// The entries of odbc.ini. All texts in the file's own encoding, UTF-8 here.
#pragma once

#include <string>

namespace odbc {

// A value of a data source in odbc.ini, of the user or the system. The case of `keyword` does not
// matter. Empty when there is no such data source or keyword.
[[nodiscard]] std::string ReadDataSourceValue(const std::string& data_source,
                                              const std::string& keyword);

}  // namespace odbc
