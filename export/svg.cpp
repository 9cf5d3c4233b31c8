// The diagram as a picture, laid out by Graphviz as a library.
#include <graphviz/gvc.h>

#include <memory>
#include <string_view>

#include "export/dot.h"
#include "export/writers.h"

namespace wbexport {

namespace {

// One for the life of the process, never freed: the text plugin remembers the last font by a
// pointer into its context and reads it again at the next diagram (Graphviz 2.42), and freeing the
// context would unload plugins whose libraries keep memory in use.
GVC_t* Context() {
  static GVC_t* const context = gvContext();
  return context;
}
struct CloseGraph {
  void operator()(Agraph_t* graph) const { agclose(graph); }
};
struct FreeRendered {
  void operator()(char* data) const { gvFreeRenderData(data); }
};
// A layout hangs on its graph and has to go before it.
class Layout {
 public:
  Layout(GVC_t* context, Agraph_t* graph)
      : context_(context), graph_(graph), done_(gvLayout(context, graph, "dot") == 0) {}
  ~Layout() { gvFreeLayout(context_, graph_); }
  Layout(const Layout&) = delete;
  Layout& operator=(const Layout&) = delete;
  bool IsDone() const { return done_; }

 private:
  GVC_t* context_;
  Agraph_t* graph_;
  bool done_;
};

}  // namespace

bool WriteSvg(const Document& document, const Options& options, std::ostream& out, Notes& notes) {
  Diagram diagram;
  if (!SelectDiagram(document, options, diagram, notes)) return false;
  // Graphviz warns on standard error of boxes it has to widen; errors are told below.
  agseterr(AGMAX);
  GVC_t* context = Context();
  const std::unique_ptr<Agraph_t, CloseGraph> graph(agmemread(DotText(diagram).c_str()));
  if (context != nullptr && graph) {
    const Layout layout(context, graph.get());
    char* data = nullptr;
    unsigned int size = 0;
    if (layout.IsDone() && gvRenderData(context, graph.get(), "svg", &data, &size) == 0) {
      const std::unique_ptr<char, FreeRendered> rendered(data);
      out << std::string_view(data, size);
      return true;
    }
  }
  const char* why = aglasterr();
  notes.push_back(std::string("Graphviz could not draw the diagram: ") +
                  (why != nullptr ? why : "no reason given") + ".");
  return false;
}

}  // namespace wbexport
