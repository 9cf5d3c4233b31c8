// Timing, memory and child processes for the benchmark programs.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <new>

#include "bench/support.h"

namespace {

std::atomic<std::uint64_t> g_allocations{0};

void* Allocate(std::size_t size) {
  g_allocations.fetch_add(1, std::memory_order_relaxed);
  void* memory = std::malloc(size != 0 ? size : 1);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

std::size_t StatusBytes(const char* field) {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line)) {
    if (line.rfind(field, 0) == 0) {
      return std::strtoull(line.c_str() + std::char_traits<char>::length(field), nullptr, 10) *
             1024;
    }
  }
  bench::Die(std::string("no ") + field + " in /proc/self/status");
}

}  // namespace

// Every allocation of the program and of the C++ libraries that it loads comes through here.
void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

namespace bench {

void Die(const std::string& why) {
  std::fprintf(stderr, "bench: %s\n", why.c_str());
  std::exit(1);
}

double Seconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double Quantile(std::vector<double> values, double share) {
  std::sort(values.begin(), values.end());
  const auto at = static_cast<std::size_t>(share * static_cast<double>(values.size()));
  return values[std::min(at, values.size() - 1)];
}

std::size_t ResidentBytes() { return StatusBytes("VmRSS:"); }
std::size_t PeakResidentBytes() { return StatusBytes("VmHWM:"); }

void ResetPeak() {
  std::ofstream refs("/proc/self/clear_refs");
  refs << "5";
}

std::uint64_t Allocations() { return g_allocations.load(std::memory_order_relaxed); }

std::string InChild(const std::function<std::string()>& work) {
  int ends[2];
  if (pipe(ends) != 0) Die("no pipe");
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child < 0) Die("no child process");
  if (child == 0) {
    close(ends[0]);
    const std::string text = work();
    const bool written =
        write(ends[1], text.data(), text.size()) == static_cast<ssize_t>(text.size());
    _exit(written ? 0 : 1);
  }
  close(ends[1]);
  std::string text;
  char buffer[4096];
  ssize_t n = 0;
  while ((n = read(ends[0], buffer, sizeof buffer)) > 0)
    text.append(buffer, static_cast<std::size_t>(n));
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  if (status != 0) Die("the measuring process failed");
  return text;
}

}  // namespace bench
