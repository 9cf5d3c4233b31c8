// A recording (docs/recordings.md) as a server to play: every question that it holds, with the
// lines that answer it. The lines stay as they are until a program asks for one.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "recording/bytes.h"
#include "simulator/functions.h"

namespace catalogsim {

// A question as a text: the function and everything that was asked, as in
// `SQLColumns(null, "joe", "orders", null)`. Also what a diagnostic calls it.
class Question {
 public:
  explicit Question(FunctionId function) : text_(std::string(FunctionName(function)) + '(') {}
  Question& Add(const std::optional<std::string>& value);
  Question& Add(std::int64_t number);
  // The values of a statement's parameters; nothing where there are none.
  Question& AddList(const std::vector<std::optional<std::string>>& values);
  [[nodiscard]] std::string Text() const { return text_ + ')'; }

 private:
  std::string& Next();

  std::string text_;
  bool first_ = true;
};

class Recording {
 public:
  using Line = std::uint32_t;
  static constexpr Line kNone = UINT32_MAX;

  // Null, with `why`, for a file that cannot be read or is no recording of a version known here.
  [[nodiscard]] static std::unique_ptr<Recording> Load(const std::string& file, std::string& why);

  // The line that answers the question. A question that was asked more than once has its answers
  // in their order, and the last one for ever after. kNone where it was never asked.
  [[nodiscard]] Line FindAnswer(const std::string& question);
  // Begins with the first answers again.
  void Rewind();
  // Why a question has no answer; counts it.
  [[nodiscard]] std::string NotHeld(const std::string& question);

  [[nodiscard]] std::string_view TextOf(Line line) const;
  // Room behind the text that a reader may touch.
  [[nodiscard]] std::size_t CapacityOf(Line line) const;
  [[nodiscard]] FunctionId FunctionOf(Line line) const { return lines_[line].function; }
  // The next call on the same statement; kNone at its next question or end.
  Line Next(Line line) const;

  [[nodiscard]] bool HasFunction(FunctionId function) const;
  std::uint32_t not_held() const { return not_held_; }
  [[nodiscard]] const std::string& first_not_held() const { return first_not_held_; }

 private:
  struct Entry {
    std::uint64_t begin;  // in the text; it ends before the next one's line break
    Line next;
    FunctionId function;
    bool question;
  };
  struct Answers {
    std::vector<Line> lines;
    std::size_t given = 0;
  };

  Recording() = default;
  [[nodiscard]] bool CheckHeader(std::string& why) const;
  void ReadLines();
  void ReadLine(Line number, std::unordered_map<std::uint64_t, Line>& last_on_statement);
  void ReadQuestion(Line number);
  void ReadFunctions(Line number);
  [[nodiscard]] const std::string* FindNearest(const std::string& question) const;

  recording::Bytes text_;
  std::vector<Entry> lines_;
  std::unordered_map<std::string, Answers> answers_;
  std::vector<bool> functions_;  // by number; empty: not known
  std::uint32_t not_held_ = 0;
  std::string first_not_held_;
};

}  // namespace catalogsim
