// How an import reports to its host, and hears from it.
#include "session/progress.h"

#include "platform/platform.h"

namespace odbcimport {

Progress::~Progress() {
  if (cursor_shown_) platform::GetServices().busy_cursor->Hide();
}

void Progress::Notify(enumImpNotify notify, void* record) const {
  watch_.Take();
  callback_(notify, record);
  watch_.Check();
}

void Progress::StatusDialog(enumImpNotify notify, enumImpItemType item_type, unsigned long count,
                            const char16_t* text1, const char16_t* text2, const char16_t* text3,
                            bool flag) const {
  if (callback_ == nullptr) return;
  switch (notify) {
    case inPhaseStart:
    case inLoopStart: {
      LcImpProgStartInfo record;
      record.item_type = item_type;
      // A phase start carries no count, whatever the caller passed.
      record.count = notify == inLoopStart ? static_cast<std::uint32_t>(count) : 0;
      Notify(notify, &record);
      return;
    }
    case inTableItem:
    case inProcedureItem:
    case inFunctionItem:
    case inSystemFunctionItem: {
      LcImpItemInfo record;
      record.text1 = text1 != nullptr ? text1 : u"";
      record.text2 = text2 != nullptr ? text2 : u"";
      record.text3 = text3 != nullptr ? text3 : u"";
      record.flag = flag;
      Notify(notify, &record);
      return;
    }
    default:
      Notify(notify, nullptr);
  }
}

void Progress::SetTableInHand(const std::u16string& owner, const std::u16string& name) const {
  table_in_hand_.text1 = owner;
  table_in_hand_.text2 = name;
}

void Progress::BeginRoute() {
  platform::GetServices().busy_cursor->Show();
  cursor_shown_ = true;
  base_.running = true;
}

void Progress::EndRoute(unsigned short& status) {
  if (base_.cancelled) {
    status = 4;
  } else if (!base_.running) {
    status = 9;
  }
  if (cursor_shown_) platform::GetServices().busy_cursor->Hide();
  cursor_shown_ = false;
}

}  // namespace odbcimport
