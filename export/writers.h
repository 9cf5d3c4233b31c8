// The writers behind the list of formats, one file each. Their contract is that of Format::write.
#pragma once

#include "export/writer.h"

namespace wbexport {

using Notes = std::vector<std::string>;

bool WriteText(const Document& document, const Options& options, std::ostream& out, Notes& notes);
bool WriteJson(const Document& document, const Options& options, std::ostream& out, Notes& notes);
bool WriteSql(const Document& document, const Options& options, std::ostream& out, Notes& notes);
bool WriteMarkdown(const Document& document, const Options& options, std::ostream& out,
                   Notes& notes);
// README.md and a page a table under tables/.
bool WriteMarkdownFolder(const Document& document, const Options& options,
                         const std::string& folder, Notes& notes);
bool WriteMermaid(const Document& document, const Options& options, std::ostream& out,
                  Notes& notes);
bool WriteDot(const Document& document, const Options& options, std::ostream& out, Notes& notes);
bool WritePlantUml(const Document& document, const Options& options, std::ostream& out,
                   Notes& notes);
bool WriteDbml(const Document& document, const Options& options, std::ostream& out, Notes& notes);
bool WriteCsv(const Document& document, const Options& options, std::ostream& out, Notes& notes);
bool WritePng(const Document& document, const Options& options, std::ostream& out, Notes& notes);
bool WriteSvg(const Document& document, const Options& options, std::ostream& out, Notes& notes);
bool WriteHtml(const Document& document, const Options& options, std::ostream& out, Notes& notes);

}  // namespace wbexport
