// The wait cursor of a host without a pointer.
#include "platform/defaults.h"

namespace platform {

namespace {

class NoBusyCursor : public BusyCursor {
 public:
  void Show() override {}
  void Hide() override {}
};

}  // namespace

std::shared_ptr<BusyCursor> MakeNoBusyCursor() { return std::make_shared<NoBusyCursor>(); }

}  // namespace platform
