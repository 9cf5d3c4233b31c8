// The diagram as a picture, laid out by Graphviz as a library: in a process of its own, because a
// layout may take hours or more memory than there is, and cannot be ended from within.
#include "export/picture.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <graphviz/gvc.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <string_view>
#include <thread>
#include <vector>

#include "base/markup.h"
#include "export/dot.h"
#include "export/writers.h"

namespace wbexport {

namespace {

using Clock = std::chrono::steady_clock;

// A picture is there, or a sentence that says what to draw instead, within ten seconds of the
// beginning of all work for it. A first try is ended early enough for a second, simpler one; the
// last second is for ending a process that has filled its memory.
constexpr std::chrono::milliseconds kFirstTry{5500};
constexpr std::chrono::milliseconds kAllTries{9000};
constexpr std::chrono::milliseconds kEnding{800};
// More than any picture that somebody looks at needs. None under the address sanitizer, which
// reserves terabytes for itself.
#if defined(__SANITIZE_ADDRESS__)
constexpr rlim_t kMostMemory = 0;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr rlim_t kMostMemory = 0;
#else
constexpr rlim_t kMostMemory = rlim_t{4} << 30;
#endif
#else
constexpr rlim_t kMostMemory = rlim_t{4} << 30;
#endif

bool WriteAll(int fd, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = write(fd, text.data(), text.size());
    if (written <= 0) return false;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

enum class End { kDrawn, kRefused, kTooLarge, kTooLong, kCrashed, kCancelled };
struct Drawing {
  End end = End::kCrashed;
  std::string text;  // the picture, or the reason
};

// What Graphviz makes of a layout.
struct Picture {
  const char* renderer;  // as Graphviz calls it
  bool has_titles;       // those of NameTitles
};

// Graphviz names nodes and edges in titles, which browsers show under the pointer: "t3:r0->t4:l1".
// Those of tables become their names, those of edges go, as their tooltips say more.
std::string NameTitles(const std::string& svg, const Diagram& diagram) {
  static constexpr std::string_view kOpen = "<title>t";
  std::string named;
  std::size_t done = 0;
  for (std::size_t at = svg.find(kOpen); at != std::string::npos; at = svg.find(kOpen, at + 1)) {
    const std::size_t begin = at + kOpen.size();
    const std::size_t end = svg.find('<', begin);
    std::size_t number = 0;
    const char* last = svg.data() + end;
    const auto [stopped, error] = std::from_chars(svg.data() + begin, last, number);
    named.append(svg, done, at - done);
    done = end + std::string_view("</title>").size();
    if (stopped == last && error == std::errc() && number < diagram.tables.size()) {
      named += "<title>" + base::EscapeMarkup(DisplayName(*diagram.tables[number])) + "</title>";
    }
  }
  return named.append(svg, done);
}

// In the child, which has all of the work to do, so that none of it outlasts the deadline. A text
// that another engine is to lay out says so itself. The first byte tells a picture ('+') from a
// reason ('-'). Nothing is freed: the process ends. False where the answer is not whole.
bool Draw(const Diagram& diagram, const Picture& picture, int fd) {
  // Graphviz warns on standard error of boxes it has to widen; errors are told by the parent.
  agseterr(AGMAX);
  const std::string dot = DotText(diagram);
  GVC_t* context = gvContext();
  Agraph_t* graph = context == nullptr ? nullptr : agmemread(dot.c_str());
  char* data = nullptr;
  unsigned int size = 0;
  if (graph == nullptr || gvLayout(context, graph, "dot") != 0 ||
      gvRenderData(context, graph, picture.renderer, &data, &size) != 0 || size == 0) {
    const char* why = aglasterr();
    return WriteAll(fd, "-") && WriteAll(fd, why != nullptr ? why : "no reason given");
  }
  if (!WriteAll(fd, "+")) return false;
  return picture.has_titles ? WriteAll(fd, NameTitles({data, size}, diagram))
                            : WriteAll(fd, {data, size});
}

class Child {
 public:
  Child(const Diagram& diagram, const Picture& picture) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return;
    const pid_t parent = getpid();
    pid_ = fork();
    if (pid_ == 0) {
      close(ends[0]);
      DrawAndExit(diagram, picture, parent, ends[1]);
    }
    close(ends[1]);
    fd_ = ends[0];
  }
  // Memory of gigabytes is given back slowly on a busy machine: what does not end in time ends
  // later, without anybody's help.
  ~Child() {
    if (fd_ >= 0) close(fd_);
    if (pid_ <= 0) return;
    kill(pid_, SIGKILL);
    const auto end = Clock::now() + kEnding;
    while (waitpid(pid_, nullptr, WNOHANG) == 0 && Clock::now() < end) {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  Drawing Wait(Clock::time_point end, const std::function<bool()>& is_cancelled) {
    if (pid_ <= 0) return {End::kRefused, "no process could be started"};
    std::string answer;
    while (true) {
      if (is_cancelled && is_cancelled()) return {End::kCancelled, "cancelled"};
      if (Clock::now() >= end) return {End::kTooLong, ""};
      pollfd ready{fd_, POLLIN, 0};
      if (poll(&ready, 1, 100) <= 0) continue;
      char buffer[1 << 16];
      const ssize_t count = read(fd_, buffer, sizeof buffer);
      if (count < 0 && errno == EINTR) continue;
      if (count <= 0) break;
      answer.append(buffer, static_cast<std::size_t>(count));
    }
    int status = 0;
    waitpid(pid_, &status, 0);
    pid_ = -1;
    const bool is_whole = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    if (answer.empty() || !is_whole) return {End::kCrashed, ""};
    return {answer[0] == '+' ? End::kDrawn : End::kRefused, answer.substr(1)};
  }

 private:
  [[noreturn]] static void DrawAndExit(const Diagram& diagram, const Picture& picture, pid_t parent,
                                       int fd) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) std::signal(signal, SIG_DFL);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) _exit(1);
    const rlimit no_dump{0, 0};
    setrlimit(RLIMIT_CORE, &no_dump);
    if (kMostMemory != 0) {
      const rlimit memory{kMostMemory, kMostMemory};
      setrlimit(RLIMIT_AS, &memory);
    }
    // Graphviz calls exit() where its memory ends. What the parent does at its end, and what it has
    // not yet written, is the parent's.
    std::atexit([] { _exit(1); });
    try {
      _exit(Draw(diagram, picture, fd) ? 0 : 1);
    } catch (const std::exception&) {
      _exit(1);
    }
  }

  pid_t pid_ = -1;
  int fd_ = -1;
};

// What to do about a drawing that is too much.
std::string DrawLess(const Diagram& diagram, const Options& options) {
  return fmt::format(
      " Draw less of it: {}--around TABLE --distance N{}{}; the html format draws it "
      "in the browser.",
      options.whole ? "no --whole, " : "", diagram.detail == Detail::kFull ? ", --detail keys" : "",
      diagram.detail != Detail::kNames ? ", --detail names" : "");
}

std::string Excuse(const Drawing& drawing, const Picture& picture, const std::string& less) {
  switch (drawing.end) {
    case End::kDrawn:
      break;
    case End::kCancelled:
      return "The layout was cancelled.";
    case End::kRefused:
      if (drawing.text.find("not recognized") == std::string::npos &&
          drawing.text.find("unavailable") == std::string::npos) {
        break;
      }
      return fmt::format("Graphviz cannot write {} here: its plugin for that is not installed.",
                         picture.renderer);
    case End::kTooLarge:
      return "Graphviz cannot lay out this diagram within ten seconds: " + drawing.text + "." +
             less;
    case End::kTooLong:
      return "Graphviz could not lay out this diagram within ten seconds." + less;
    case End::kCrashed:
      return "Graphviz could not lay out this diagram with the memory there is." + less;
  }
  return "Graphviz could not draw the diagram: " + drawing.text + ".";
}

bool WritePicture(const Picture& picture, const Document& document, const Options& options,
                  std::ostream& out, Notes& notes) {
  const auto begin = Clock::now();
  Diagram diagram;
  if (!SelectDiagram(document, options, diagram, notes)) return false;
  const auto draw = [&](std::chrono::milliseconds within) -> Drawing {
    const std::string too_much = BeyondLayout(diagram);
    if (!too_much.empty()) return {End::kTooLarge, too_much};
    return Child(diagram, picture).Wait(begin + within, options.is_cancelled);
  };
  const bool may_simplify = options.detail == Detail::kAuto;
  Drawing drawing = draw(may_simplify ? kFirstTry : kAllTries);
  if (may_simplify && drawing.end != End::kDrawn && drawing.end != End::kRefused &&
      drawing.end != End::kCancelled) {
    diagram.detail = Detail::kNames;
    diagram.is_map = true;
    drawing = draw(kAllTries);
    if (drawing.end == End::kDrawn) {
      notes.emplace_back("The diagram shows names alone: with more its layout takes too long.");
    }
  }
  if (drawing.end != End::kDrawn) {
    notes.push_back(Excuse(drawing, picture, DrawLess(diagram, options)));
    return false;
  }
  out << drawing.text;
  return true;
}

}  // namespace

std::string BeyondLayout(const Diagram& diagram) {
  std::vector<bool> related(diagram.tables.size());
  for (const Relationship& r : diagram.relationships) {
    if (r.from == r.to) continue;
    related[diagram.numbers.at(r.from)] = related[diagram.numbers.at(r.to)] = true;
  }
  const auto alone = static_cast<std::size_t>(std::count(related.begin(), related.end(), false));
  if (alone > kMostUnrelated) return Count(alone, "table", "tables") + " that nothing relates";
  std::size_t rows = 0;
  for (const LcWorkbookTable* table : diagram.tables) {
    const std::size_t shown = ShownColumns(*table, diagram).size();
    if (shown > kMostRowsOfTable) return "a table of " + Count(shown, "column", "columns");
    rows += 1 + shown;
  }
  return rows > kMostRowsOfAll ? Count(rows, "row", "rows") : "";
}

bool WriteSvg(const Document& document, const Options& options, std::ostream& out, Notes& notes) {
  return WritePicture({"svg", true}, document, options, out, notes);
}

bool WritePng(const Document& document, const Options& options, std::ostream& out, Notes& notes) {
  return WritePicture({"png", false}, document, options, out, notes);
}

}  // namespace wbexport
