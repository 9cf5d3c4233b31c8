// See file.h.
#include "recording/file.h"

#include <zlib.h>
#include <zstd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <vector>

namespace recording {
namespace {

// A recording repeats itself: the fastest level makes the smaller files of it as well.
constexpr int kZstdLevel = 1;
// 16 KiB of hashes, which stay in the fastest cache beside the lines, and find as much.
constexpr int kZstdHashBits = 12;
constexpr int kGzipLevel = 3;
constexpr std::size_t kPieceBytes = std::size_t{256} * 1024;

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

bool EndsWith(std::string_view text, std::string_view end) { return text.ends_with(end); }

}  // namespace

Compression CompressionFor(std::string_view file_name) {
  if (EndsWith(file_name, ".gz")) return Compression::kGzip;
  if (EndsWith(file_name, ".zst")) return Compression::kZstd;
  return Compression::kNone;
}

class OutputFile::Sink {
 public:
  explicit Sink(const std::string& name) : file_(std::fopen(name.c_str(), "wb")) {}
  virtual ~Sink() = default;
  virtual void Write(std::string_view bytes) = 0;
  virtual void Flush() = 0;
  virtual void End() = 0;
  void Close() {
    if (!file_) return;
    End();
    if (std::fclose(file_.release()) != 0) failed_ = true;
    closed_ = true;
  }
  bool IsGood() const { return !failed_ && (file_ || closed_); }

 protected:
  void Put(const void* bytes, std::size_t count) {
    if (file_ && std::fwrite(bytes, 1, count, file_.get()) != count) failed_ = true;
  }
  void FlushFile() {
    if (file_ && std::fflush(file_.get()) != 0) failed_ = true;
  }
  void Fail() { failed_ = true; }

 private:
  File file_;
  bool failed_ = false;
  bool closed_ = false;
};

class OutputFile::PlainSink : public Sink {
 public:
  using Sink::Sink;
  void Write(std::string_view bytes) override { Put(bytes.data(), bytes.size()); }
  void Flush() override { FlushFile(); }
  void End() override {}
};

class OutputFile::GzipSink : public Sink {
 public:
  explicit GzipSink(const std::string& name) : Sink(name) {
    constexpr int kGzipHeader = 15 + 16;
    ready_ =
        deflateInit2(&stream_, kGzipLevel, Z_DEFLATED, kGzipHeader, 8, Z_DEFAULT_STRATEGY) == Z_OK;
    if (!ready_) Fail();
  }
  ~GzipSink() override {
    if (ready_) deflateEnd(&stream_);
  }
  GzipSink(const GzipSink&) = delete;
  GzipSink& operator=(const GzipSink&) = delete;
  void Write(std::string_view bytes) override { Deflate(bytes, Z_NO_FLUSH); }
  void Flush() override {
    Deflate({}, Z_SYNC_FLUSH);
    FlushFile();
  }
  void End() override { Deflate({}, Z_FINISH); }

 private:
  void Deflate(std::string_view bytes, int flush) {
    if (!ready_) return;
    // zlib takes its input as non-const and does not change it.
    stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
    stream_.avail_in = static_cast<uInt>(bytes.size());
    do {
      stream_.next_out = piece_.data();
      stream_.avail_out = static_cast<uInt>(piece_.size());
      deflate(&stream_, flush);
      Put(piece_.data(), piece_.size() - stream_.avail_out);
    } while (stream_.avail_out == 0);
  }

  z_stream stream_{};
  bool ready_ = false;
  std::vector<Bytef> piece_ = std::vector<Bytef>(kPieceBytes);
};

class OutputFile::ZstdSink : public Sink {
 public:
  explicit ZstdSink(const std::string& name) : Sink(name) {
    if (context_ == nullptr) {
      Fail();
      return;
    }
    ZSTD_CCtx_setParameter(context_.get(), ZSTD_c_compressionLevel, kZstdLevel);
    ZSTD_CCtx_setParameter(context_.get(), ZSTD_c_hashLog, kZstdHashBits);
    ZSTD_CCtx_setParameter(context_.get(), ZSTD_c_checksumFlag, 1);
  }
  void Write(std::string_view bytes) override { Compress(bytes, ZSTD_e_continue); }
  void Flush() override {
    Compress({}, ZSTD_e_flush);
    FlushFile();
  }
  void End() override { Compress({}, ZSTD_e_end); }

 private:
  struct FreeContext {
    void operator()(ZSTD_CCtx* context) const { ZSTD_freeCCtx(context); }
  };
  void Compress(std::string_view bytes, ZSTD_EndDirective directive) {
    if (context_ == nullptr) return;
    ZSTD_inBuffer in = {bytes.data(), bytes.size(), 0};
    for (;;) {
      ZSTD_outBuffer out = {piece_.data(), piece_.size(), 0};
      const std::size_t left = ZSTD_compressStream2(context_.get(), &out, &in, directive);
      if (ZSTD_isError(left) != 0) return Fail();
      Put(piece_.data(), out.pos);
      if (directive == ZSTD_e_continue ? in.pos == in.size : left == 0) return;
    }
  }

  std::unique_ptr<ZSTD_CCtx, FreeContext> context_{ZSTD_createCCtx()};
  std::vector<char> piece_ = std::vector<char>(ZSTD_CStreamOutSize());
};

OutputFile::OutputFile(const std::string& name) {
  switch (CompressionFor(name)) {
    case Compression::kGzip:
      sink_ = std::make_unique<GzipSink>(name);
      break;
    case Compression::kZstd:
      sink_ = std::make_unique<ZstdSink>(name);
      break;
    case Compression::kNone:
      sink_ = std::make_unique<PlainSink>(name);
      break;
  }
}

OutputFile::~OutputFile() { Close(); }
void OutputFile::Write(std::string_view bytes) { sink_->Write(bytes); }
void OutputFile::Flush() { sink_->Flush(); }
void OutputFile::Close() { sink_->Close(); }
bool OutputFile::IsGood() const { return sink_->IsGood(); }

namespace {

// Gets pieces of a file's contents until it returns false.
using Take = std::function<bool(std::string_view piece)>;

bool ReadPlain(std::FILE* file, const Take& take) {
  std::vector<char> piece(kPieceBytes);
  while (const std::size_t count = std::fread(piece.data(), 1, piece.size(), file)) {
    if (!take({piece.data(), count})) return true;
  }
  return std::ferror(file) == 0;
}

bool ReadGzip(std::FILE* file, const Take& take) {
  constexpr int kGzipHeader = 15 + 16;
  z_stream stream{};
  if (inflateInit2(&stream, kGzipHeader) != Z_OK) return false;
  std::vector<Bytef> in(kPieceBytes);
  std::vector<Bytef> out(kPieceBytes);
  bool good = true;
  bool more = true;
  while (good && more) {
    stream.avail_in = static_cast<uInt>(std::fread(in.data(), 1, in.size(), file));
    if (stream.avail_in == 0) break;
    stream.next_in = in.data();
    do {
      stream.next_out = out.data();
      stream.avail_out = static_cast<uInt>(out.size());
      const int result = inflate(&stream, Z_NO_FLUSH);
      good = result == Z_OK || result == Z_STREAM_END || result == Z_BUF_ERROR;
      more = take({reinterpret_cast<char*>(out.data()), out.size() - stream.avail_out});
      if (result == Z_STREAM_END) inflateReset(&stream);  // files may be put one behind the other
    } while (good && more && (stream.avail_in > 0 || stream.avail_out == 0));
  }
  inflateEnd(&stream);
  return good && std::ferror(file) == 0;
}

bool ReadZstd(std::FILE* file, const Take& take) {
  const std::unique_ptr<ZSTD_DCtx, std::size_t (*)(ZSTD_DCtx*)> context(ZSTD_createDCtx(),
                                                                        &ZSTD_freeDCtx);
  if (context == nullptr) return false;
  std::vector<char> in(ZSTD_DStreamInSize());
  std::vector<char> out(ZSTD_DStreamOutSize());
  while (const std::size_t count = std::fread(in.data(), 1, in.size(), file)) {
    ZSTD_inBuffer input = {in.data(), count, 0};
    bool full = true;  // more may come out of what was taken in
    while (input.pos < input.size || full) {
      ZSTD_outBuffer output = {out.data(), out.size(), 0};
      if (ZSTD_isError(ZSTD_decompressStream(context.get(), &output, &input)) != 0) return false;
      full = output.pos == output.size;
      if (!take({out.data(), output.pos})) return true;
    }
  }
  return std::ferror(file) == 0;
}

// Calls `take` with the contents, piece by piece.
bool ReadPieces(const std::string& name, const Take& take, std::string& why) {
  errno = 0;
  const File file(std::fopen(name.c_str(), "rb"));
  std::array<unsigned char, 4> mark{};
  if (!file || (std::fread(mark.data(), 1, mark.size(), file.get()) == 0 && errno != 0)) {
    why = name + " cannot be read: " + std::strerror(errno);
    return false;
  }
  std::rewind(file.get());
  constexpr std::array<unsigned char, 4> kZstdMark = {0x28, 0xB5, 0x2F, 0xFD};
  const bool gzip = mark[0] == 0x1F && mark[1] == 0x8B;
  const bool good = mark == kZstdMark ? ReadZstd(file.get(), take)
                    : gzip            ? ReadGzip(file.get(), take)
                                      : ReadPlain(file.get(), take);
  if (!good) why = name + " is damaged";
  return good;
}

}  // namespace

bool ReadWholeFile(const std::string& name, std::size_t padding, Bytes& text, std::string& why) {
  text.clear();
  const bool good = ReadPieces(
      name,
      [&](std::string_view piece) {
        text += piece;
        return true;
      },
      why);
  text.Room(padding);
  return good;
}

bool ReadLines(const std::string& name, std::string_view begin,
               const std::function<void(std::string_view line)>& take, std::string& why) {
  std::string rest;  // of the piece before, without a line's end
  return ReadPieces(
      name,
      [&](std::string_view piece) {
        for (std::size_t end = 0; (end = piece.find('\n')) != std::string_view::npos;) {
          std::string_view line = piece.substr(0, end);
          if (!rest.empty()) line = rest += line;
          if (line.starts_with(begin)) take(line);
          rest.clear();
          piece.remove_prefix(end + 1);
        }
        rest += piece;
        return true;
      },
      why);
}

}  // namespace recording
