// The writers behind the list of formats, one file each. Their contract is that of Format::write.
#pragma once

#include "export/writer.h"

namespace wbexport {

using Notes = std::vector<std::string>;

[[nodiscard]] bool WriteText(const Document& document, const Options& options, std::ostream& out,
                             Notes& notes);
[[nodiscard]] bool WriteJson(const Document& document, const Options& options, std::ostream& out,
                             Notes& notes);
[[nodiscard]] bool WriteSql(const Document& document, const Options& options, std::ostream& out,
                            Notes& notes);
[[nodiscard]] bool WriteMarkdown(const Document& document, const Options& options,
                                 std::ostream& out, Notes& notes);
// README.md and a page a table under tables/.
[[nodiscard]] bool WriteMarkdownFolder(const Document& document, const Options& options,
                                       const std::string& folder, Notes& notes);
[[nodiscard]] bool WriteMermaid(const Document& document, const Options& options, std::ostream& out,
                                Notes& notes);
[[nodiscard]] bool WriteDot(const Document& document, const Options& options, std::ostream& out,
                            Notes& notes);
[[nodiscard]] bool WritePlantUml(const Document& document, const Options& options,
                                 std::ostream& out, Notes& notes);
[[nodiscard]] bool WriteDbml(const Document& document, const Options& options, std::ostream& out,
                             Notes& notes);
[[nodiscard]] bool WriteCsv(const Document& document, const Options& options, std::ostream& out,
                            Notes& notes);
[[nodiscard]] bool WritePng(const Document& document, const Options& options, std::ostream& out,
                            Notes& notes);
[[nodiscard]] bool WriteSvg(const Document& document, const Options& options, std::ostream& out,
                            Notes& notes);
[[nodiscard]] bool WriteHtml(const Document& document, const Options& options, std::ostream& out,
                             Notes& notes);

}  // namespace wbexport
