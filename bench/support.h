// What the benchmark programs share: timing, memory and allocation counts, an open connection, and
// the plain loops that importers are measured against: the same driver calls, fetched and dropped.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace bench {

// Ends the program with a sentence.
[[noreturn]] void Die(const std::string& why);

// Seconds that one call takes, on the monotonic clock.
double Seconds(const std::function<void()>& work);
// The value that `share` (0 to 1) of a non-empty list lies below.
double Quantile(std::vector<double> values, double share);
inline double Median(const std::vector<double>& values) { return Quantile(values, 0.5); }

// Memory of this process in bytes, from /proc/self/status: now, and at its highest since the last
// ResetPeak (or the start, where the kernel does not let the mark be reset).
std::size_t ResidentBytes();
std::size_t PeakResidentBytes();
void ResetPeak();

// Allocations made with operator new anywhere in the process since its start. SQLite and the driver
// manager allocate with malloc, so what is counted is the module's and the workbook's.
std::uint64_t Allocations();

// Runs `work` in a child process and returns the bytes it wrote to its argument, so that one
// measurement's memory does not lie under the next one's. Ends the program when the child fails.
std::string InChild(const std::function<std::string()>& work);

// An open connection; ends the program with the driver manager's words when it cannot be opened.
class Connection {
 public:
  explicit Connection(const std::string& connection_string);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  void* henv = nullptr;
  void* hdbc = nullptr;
};

// The driver calls of the generic route for all tables of the connection (tables and views,
// columns, primary keys, foreign keys), bound as the route binds them, with nothing stored but the
// names of the tables. Returns the number of rows fetched.
std::size_t PlainCatalogLoop(void* hdbc, const std::u16string& catalog, bool with_foreign_keys);
// One column call over everything, so that the driver has read the schema.
void WarmCatalog(void* hdbc, const std::u16string& catalog);
// Executes the texts one after the other as the fetch layer does, and fetches all rows into buffers
// of the same size. Returns the number of rows fetched.
std::size_t PlainQueryLoop(void* hdbc, const std::vector<std::u16string>& texts);

// Makes a SQLite file with that many tables: a key, some typed columns (`columns` on average), and
// a
// foreign key to an earlier table in every eighth (the driver's foreign-key call takes time that
// grows with the number of all foreign keys).
void MakeSQLiteFile(const std::string& path, int tables, int columns);

}  // namespace bench
