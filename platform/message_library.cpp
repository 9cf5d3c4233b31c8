// Loads the shared message library with the dynamic linker.
#include "platform/message_library.h"

#include <dlfcn.h>

#include <filesystem>

#include "platform/module_folder.h"
#include "platform/msgtext/msgtext.h"

namespace platform {

namespace {

class SharedMessageLibrary : public MessageLibrary {
 public:
  SharedMessageLibrary(void* library, MsgTextFunction get_text)
      : library_(library), get_text_(get_text) {}
  ~SharedMessageLibrary() override { dlclose(library_); }
  SharedMessageLibrary(const SharedMessageLibrary&) = delete;
  SharedMessageLibrary& operator=(const SharedMessageLibrary&) = delete;

  std::u16string GetText(unsigned id) override {
    const char16_t* text = get_text_(id);
    return text != nullptr ? text : u"";
  }

 private:
  void* library_;
  MsgTextFunction get_text_;
};

}  // namespace

std::string GetModuleFolder() {
  Dl_info module = {};
  if (dladdr(reinterpret_cast<const void*>(&GetModuleFolder), &module) == 0 ||
      module.dli_fname == nullptr) {
    return ".";
  }
  std::error_code ignored;
  const std::filesystem::path folder =
      std::filesystem::absolute(module.dli_fname, ignored).parent_path();
  const std::filesystem::path installed = folder / "odbcimport";
  return (std::filesystem::is_directory(installed, ignored) ? installed : folder).string();
}

std::shared_ptr<MessageLibrary> LoadResourceDLL(const std::string& folder, const char* file_name,
                                                std::string& why) {
  const std::string path = folder + "/" + file_name;
  const std::string refusal =
      std::string("the message library ") + file_name + " cannot be loaded from " + folder + ": ";
  std::error_code ignored;
  if (!std::filesystem::exists(path, ignored)) {
    why = refusal + "there is no such file";
    return nullptr;
  }
  void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    why = refusal + dlerror();
    return nullptr;
  }
  const auto get_text = reinterpret_cast<MsgTextFunction>(dlsym(library, kMsgTextFunction));
  if (get_text == nullptr) {
    why = refusal + "it has no function " + kMsgTextFunction;
    dlclose(library);
    return nullptr;
  }
  return std::make_shared<SharedMessageLibrary>(library, get_text);
}

}  // namespace platform
