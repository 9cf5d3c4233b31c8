// The queries for Universal Server's extended types.
#include "routes/informix/type_queries.h"

#include "base/text.h"

namespace odbcimport::informix {

std::u16string BuildSQLGetNamedDataTypes(const LcOwnerInfoList* owners) {
  std::u16string text(
      u"select t1.extended_id, t1.mode, t1.owner, t1.name, t1.type, t1.source, t1.maxlen, "
      u"t1.length, t2.mode, t2.owner, t2.name, t2.type from INFORMIX.SYSXTDTYPES t1, OUTER "
      u"INFORMIX.SYSXTDTYPES t2 where (t1.source=t2.extended_id) and (t1.name!=\"\")");
  if (owners == nullptr) return text;
  bool first = true;
  for (const LcOwnerInfo* owner : owners->Present()) {
    text.append(first ? u" AND (" : u" OR ").append(u" owner=").append(owner->name);
    first = false;
  }
  if (!first) text.append(u")");
  return text;
}

std::u16string BuildSQLGetComplexType(int extended_id) {
  std::u16string text(
      u"select t1.parent_no, t1.fieldname, t1.type, t1.length, t1.xtd_type_id, t2.mode, t2.owner, "
      u"t2.name, t2.source, t2.maxlen, t2.length from INFORMIX.SYSATTRTYPES t1, OUTER "
      u"INFORMIX.SYSXTDTYPES t2 where t1.extended_id=");
  return text.append(base::FormatInteger(extended_id))
      .append(u" and t1.xtd_type_id=t2.extended_id");
}

}  // namespace odbcimport::informix
