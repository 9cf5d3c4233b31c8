// What the driver manager knows of data sources: the entries of odbc.ini, and the data source that
// a connection was made to. All texts in the file's own encoding, UTF-8 here.
#pragma once

#include <string>

namespace odbc {

// A value of a data source in odbc.ini, of the user or the system. The case of `keyword` does not
// matter. Empty when there is no such data source or keyword.
std::string ReadDataSourceValue(const std::string& data_source, const std::string& keyword);

// The data source that the connection was made to; empty for one without.
std::u16string GetDataSourceName(void* hdbc);

}  // namespace odbc
