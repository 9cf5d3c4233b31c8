// One run of an import, as a route sees it.
#include "session/session.h"

#include "odbc/fetch.h"
#include "odbc/record_list.h"
#include "platform/platform.h"

namespace odbcimport {

ImportSession::ImportSession(LcWorkbookImport& base, LcWorkbook* session_workbook,
                             ServerFacts& facts, std::shared_ptr<LcWorkbookDatatypeList> own_types,
                             NotifyCallback callback, LcImpItemInfo& item)
    : choices(base.choices),
      targets(base.targets),
      workbook(session_workbook),
      server(facts),
      current_item(item),
      base_(base),
      own_types_(std::move(own_types)),
      callback_(callback) {}

ImportSession::~ImportSession() {
  if (cursor_shown_) platform::GetServices().busy_cursor->Hide();
}

LcWorkbookDatatypeList& ImportSession::TypesInForce() const {
  if (targets.data_types != nullptr) return *targets.data_types;
  return *own_types_;
}

void ImportSession::StatusDialog(enumImpNotify notify, enumImpItemType item_type,
                                 unsigned long count, const char16_t* text1, const char16_t* text2,
                                 const char16_t* text3, bool flag) const {
  if (callback_ == nullptr) return;
  switch (notify) {
    case inPhaseStart:
    case inLoopStart: {
      LcImpProgStartInfo record;
      record.item_type = item_type;
      // A phase start carries no count, whatever the caller passed.
      record.count = notify == inLoopStart ? static_cast<std::uint32_t>(count) : 0;
      callback_(notify, &record);
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
      callback_(notify, &record);
      return;
    }
    default:
      callback_(notify, nullptr);
  }
}

void ImportSession::RunQuery(const std::u16string& sql, LcODBCRecordList& rows) const {
  LcODBCFetch fetch(sql.c_str(), rows, henv(), hdbc(), server.dbms_type);
}

void ImportSession::BeginRoute() {
  platform::GetServices().busy_cursor->Show();
  cursor_shown_ = true;
  base_.running = true;
}

void ImportSession::EndRoute(unsigned short& status) {
  if (base_.cancelled) {
    status = 4;
  } else if (!base_.running) {
    status = 9;
  }
  if (cursor_shown_) platform::GetServices().busy_cursor->Hide();
  cursor_shown_ = false;
}

}  // namespace odbcimport
