// The bytes of a recording on the disk: plain, or compressed where the file's name says so.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "recording/bytes.h"

namespace recording {

enum class Compression { kNone, kGzip, kZstd };
// By the end of the name: `.gz`, `.zst`, anything else is plain.
[[nodiscard]] Compression CompressionFor(std::string_view file_name);

// A file that is written piece by piece. What was flushed can be read even when the rest never
// comes.
class OutputFile {
 public:
  // Replaces the file. IsGood() tells whether it could be opened.
  explicit OutputFile(const std::string& name);
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  void Write(std::string_view bytes);
  void Flush();
  // Ends the file; nothing may be written after it.
  void Close();
  // False once something could not be written.
  [[nodiscard]] bool IsGood() const;

 private:
  class Sink;
  class PlainSink;
  class GzipSink;
  class ZstdSink;
  std::unique_ptr<Sink> sink_;
};

// Reads a whole file, whatever its name, compressed or not, and leaves room for `padding` more
// bytes in `text`. A file that ends in the middle gives what there is. False, with `why`, when it
// cannot be read or is no such file.
[[nodiscard]] bool ReadWholeFile(const std::string& name, std::size_t padding, Bytes& text,
                                 std::string& why);

// Calls `take` with each line that begins with `begin`, without its end; the same otherwise.
[[nodiscard]] bool ReadLines(const std::string& name, std::string_view begin,
                             const std::function<void(std::string_view line)>& take,
                             std::string& why);

}  // namespace recording
