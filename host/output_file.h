// Where a command's answer goes: standard output, or a file that is written whole or not at all,
// but for one that belongs to another user: that is written over in place once all is there.
#pragma once

#include <functional>
#include <ostream>
#include <string>

namespace wbhost {

// The absolute path with every symbolic link resolved, also one that leads nowhere yet: what is
// written there makes its target, and the link stays.
[[nodiscard]] std::string ResolveLinks(const std::string& name);

class OutputFile {
 public:
  // An empty name or `-` is standard output. With `folder_allowed` a name that ends with a slash or
  // is a folder stands for a folder, which somebody else writes.
  explicit OutputFile(const std::string& name, bool folder_allowed = false);

  // Throws a Failure where it is plain already that the file cannot be written, so that nobody
  // waits for an import in vain. Creates nothing.
  void Check() const;
  // Calls `write` with the stream, brings what it wrote into place and hands on what it returned.
  // False means that there is nothing to write: the file stays as it was. Throws a Failure where
  // writing fails; a reader of standard output that has read enough is no failure.
  [[nodiscard]] bool Write(const std::function<bool(std::ostream&)>& write) const;
  // The same for a folder of pages: `write` makes them in the folder that it is given, which is
  // beside the wanted one. They come into place once all are there; a folder that is there already
  // keeps its other files.
  [[nodiscard]] bool WriteFolder(const std::function<bool(const std::string& folder)>& write) const;
  // The same for a text.
  void WriteText(const std::string& text) const;
  [[nodiscard]] bool IsStandardOutput() const { return path_.empty(); }
  [[nodiscard]] bool IsFolder() const { return folder_; }
  [[nodiscard]] const std::string& name() const { return name_; }  // as the user wrote it

 private:
  [[nodiscard]] bool WriteWhole(const std::function<bool(std::ostream&)>& write) const;

  std::string name_;  // as the user wrote it
  std::string path_;  // symbolic links resolved; empty: standard output
  bool folder_ = false;
  bool special_ = false;  // a device or a pipe, which cannot be replaced
};

}  // namespace wbhost
