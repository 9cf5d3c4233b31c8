// Messages of a host without windows.
#include <cstdio>

#include "base/utf.h"
#include "platform/defaults.h"

namespace platform {

namespace {

class StandardErrorMessageBox : public MessageBox {
 public:
  void Show(const std::u16string& text, int /*help_context*/) override {
    const std::string line = base::ToUtf8(text) + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
  }
};

}  // namespace

std::shared_ptr<MessageBox> MakeStandardErrorMessageBox() {
  return std::make_shared<StandardErrorMessageBox>();
}

}  // namespace platform
