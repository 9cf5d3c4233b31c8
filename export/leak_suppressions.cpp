// Compiled into sanitized programs that draw: Graphviz 2.42 and the libraries it measures text with
// keep memory that they never give back. The sanitizer looks for this name.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libfontconfig\nleak:libglib\nleak:libgvc\nleak:libpango\n";
}
// NOLINTEND(bugprone-reserved-identifier)
