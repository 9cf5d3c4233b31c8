// The diagram as a picture, laid out by Graphviz as a library: in a process of its own, because a
// layout may take hours or more memory than there is, and cannot be ended from within.
#include <fmt/format.h>
#include <graphviz/gvc.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <chrono>
#include <csignal>
#include <string_view>

#include "export/dot.h"
#include "export/writers.h"

namespace wbexport {

namespace {

using Clock = std::chrono::steady_clock;

// A picture is there, or a sentence that says what to draw instead, within ten seconds: the second
// try is a simpler drawing.
constexpr std::chrono::milliseconds kFirstTry{5500};
constexpr std::chrono::milliseconds kSecondTry{3500};
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

// In the child. A text that another engine is to lay out says so itself. The first byte tells a
// picture ('+') from a reason ('-'). Nothing is freed: the process ends.
[[noreturn]] void DrawAndExit(const std::string& dot, const char* renderer, int fd) {
  // Graphviz warns on standard error of boxes it has to widen; errors are told by the parent.
  agseterr(AGMAX);
  GVC_t* context = gvContext();
  Agraph_t* graph = context == nullptr ? nullptr : agmemread(dot.c_str());
  char* data = nullptr;
  unsigned int size = 0;
  if (graph != nullptr && gvLayout(context, graph, "dot") == 0 &&
      gvRenderData(context, graph, renderer, &data, &size) == 0 && size != 0) {
    _exit(WriteAll(fd, "+") && WriteAll(fd, {data, size}) ? 0 : 1);
  }
  const char* why = aglasterr();
  WriteAll(fd, "-");
  WriteAll(fd, why != nullptr ? why : "no reason given");
  _exit(1);
}

enum class End { kDrawn, kRefused, kTooLong, kCrashed, kCancelled };
struct Drawing {
  End end = End::kCrashed;
  std::string text;  // the picture, or the reason
};

class Child {
 public:
  Child(const std::string& dot, const char* renderer) {
    int ends[2];
    if (pipe(ends) != 0) return;
    const pid_t parent = getpid();
    pid_ = fork();
    if (pid_ == 0) {
      close(ends[0]);
      for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) std::signal(signal, SIG_DFL);
      prctl(PR_SET_PDEATHSIG, SIGKILL);
      if (getppid() != parent) _exit(1);
      const rlimit no_dump{0, 0};
      setrlimit(RLIMIT_CORE, &no_dump);
      if (kMostMemory != 0) {
        const rlimit memory{kMostMemory, kMostMemory};
        setrlimit(RLIMIT_AS, &memory);
      }
      DrawAndExit(dot, renderer, ends[1]);
    }
    close(ends[1]);
    fd_ = ends[0];
  }
  ~Child() {
    if (fd_ >= 0) close(fd_);
    if (pid_ <= 0) return;
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  Drawing Wait(std::chrono::milliseconds limit, const std::function<bool()>& is_cancelled) {
    if (pid_ <= 0) return {End::kRefused, "no process could be started"};
    const auto end = Clock::now() + limit;
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
    if (answer.empty() || WIFSIGNALED(status)) return {End::kCrashed, ""};
    return {answer[0] == '+' ? End::kDrawn : End::kRefused, answer.substr(1)};
  }

 private:
  pid_t pid_ = -1;
  int fd_ = -1;
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
      named += "<title>" + EscapeXml(DisplayName(*diagram.tables[number])) + "</title>";
    }
  }
  return named.append(svg, done);
}

std::string Excuse(const Drawing& drawing, const char* renderer) {
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
                         renderer);
    case End::kTooLong:
    case End::kCrashed:
      return fmt::format(
          "Graphviz could not lay out this diagram {}. Draw less of it: --around TABLE "
          "--distance N, --detail keys or --detail names; the html format draws it in the browser.",
          drawing.end == End::kTooLong ? "within ten seconds" : "with the memory there is");
  }
  return "Graphviz could not draw the diagram: " + drawing.text + ".";
}

// What Graphviz makes of a layout.
struct Picture {
  const char* renderer;  // as Graphviz calls it
  bool has_titles;       // those of NameTitles
};

bool WritePicture(const Picture& picture, const Document& document, const Options& options,
                  std::ostream& out, Notes& notes) {
  Diagram diagram;
  if (!SelectDiagram(document, options, diagram, notes)) return false;
  const auto draw = [&](std::chrono::milliseconds limit) {
    return Child(DotText(diagram), picture.renderer).Wait(limit, options.is_cancelled);
  };
  const bool may_simplify = options.detail == Detail::kAuto;
  Drawing drawing = draw(may_simplify ? kFirstTry : kFirstTry + kSecondTry);
  if (may_simplify && (drawing.end == End::kTooLong || drawing.end == End::kCrashed)) {
    diagram.detail = Detail::kNames;
    diagram.is_map = true;
    drawing = draw(kSecondTry);
    notes.emplace_back("The diagram shows names alone: with more its layout takes too long.");
  }
  if (drawing.end != End::kDrawn) {
    notes.push_back(Excuse(drawing, picture.renderer));
    return false;
  }
  out << (picture.has_titles ? NameTitles(drawing.text, diagram) : drawing.text);
  return true;
}

}  // namespace

bool WriteSvg(const Document& document, const Options& options, std::ostream& out, Notes& notes) {
  return WritePicture({"svg", true}, document, options, out, notes);
}

bool WritePng(const Document& document, const Options& options, std::ostream& out, Notes& notes) {
  return WritePicture({"png", false}, document, options, out, notes);
}

}  // namespace wbexport
