// Fills in one of this folder's files: man page or completion.
//
// Usage: wbdocuments SOURCE TARGET
#include <fstream>
#include <iostream>
#include <iterator>

#include "host/documents/documents.h"

int main(int argc, char** argv) try {
  if (argc != 3) {
    std::cerr << "usage: wbdocuments SOURCE TARGET\n";
    return 2;
  }
  std::ifstream in(argv[1], std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(in), {}};
  const wbhost::OptionTable table = wbhost::MakeOptionTable();
  wbhost::Marks marks = wbhost::ManPageMarks(table);
  marks.merge(wbhost::CompletionMarks(table));
  std::ofstream out(argv[2], std::ios::binary);
  out << wbhost::ReplaceMarks(text, marks);
  out.close();
  if (!in || !out) {
    std::cerr << "wbdocuments: cannot read " << argv[1] << " or write " << argv[2] << "\n";
    return 1;
  }
  return 0;
} catch (const std::exception& error) {
  std::cerr << "wbdocuments: " << argv[1] << ": " << error.what() << "\n";
  return 1;
}
