// The queries for keys.
#include "routes/informix/key_queries.h"

#include "base/text.h"

namespace odbcimport::informix {

std::u16string BuildOnlineSQLGetPrimaryKeys(const LcWorkbookTableList* tables, bool is_ius) {
  std::u16string text =
      is_ius ? u"select t1.tabname, t1.owner, t2.constrid, t2.tabid, t2.constrtype, "
               u"t3.indexkeys::lvarchar::varchar(255) from INFORMIX.SYSTABLES t1, "
               u"INFORMIX.SYSCONSTRAINTS t2, INFORMIX.SYSINDICES t3 where (t1.tabid=t2.tabid) and "
               u"(t2.tabid=t3.tabid) and (t2.constrtype='P' or t2.constrtype='U') and "
               u"(t2.idxname=t3.idxname) "
             : u"select t1.tabname, t1.owner, t2.constrid, t2.tabid, t2.constrtype, t3.part1, "
               u"t3.part2, t3.part3, t3.part4, t3.part5, t3.part6, t3.part7, t3.part8, t3.part9, "
               u"t3.part10, t3.part11, t3.part12, t3.part13, t3.part14, t3.part15, t3.part16 from "
               u"INFORMIX.SYSTABLES t1, INFORMIX.SYSCONSTRAINTS t2, INFORMIX.SYSINDEXES t3 where "
               u"(t1.tabid=t2.tabid) and (t2.tabid=t3.tabid) and (t2.constrtype='P' or "
               u"t2.constrtype='U') and (t2.idxname=t3.idxname) ";
  if (tables == nullptr) return text;
  bool first = true;
  for (const LcWorkbookTable* table : tables->Present()) {
    text.append(first ? u" and  (" : u" or ");
    text.append(u"( t1.tabname=\"").append(table->GetName());
    text.append(u"\" and  t1.owner=\"").append(table->GetOwner(false)).append(u"\")");
    first = false;
  }
  if (!first) text.append(u" ) ");
  return text;
}

std::u16string BuildOnlineSQLGetForeignKeys(int parent_tabid, int /*constraint_id*/, bool is_ius) {
  std::u16string text =
      is_ius ? u"select t4.tabname, t4.owner, t3.indexkeys::lvarchar::varchar(255) from "
               u"INFORMIX.SYSREFERENCES t1, INFORMIX.SYSCONSTRAINTS t2, INFORMIX.SYSINDICES t3, "
               u"INFORMIX.SYSTABLES t4 where (t4.tabid=t3.tabid) and (t1.ptabid="
             : u"select t4.tabname, t4.owner, t3.part1, t3.part2, t3.part3, t3.part4, t3.part5, "
               u"t3.part6, t3.part7, t3.part8, t3.part9, t3.part10, t3.part11, t3.part12, "
               u"t3.part13, t3.part14, t3.part15, t3.part16 from INFORMIX.SYSREFERENCES t1, "
               u"INFORMIX.SYSCONSTRAINTS t2, INFORMIX.SYSINDEXES t3, INFORMIX.SYSTABLES t4 "
               u"where (t4.tabid=t3.tabid) and (t1.ptabid=";
  text.append(base::FormatInteger(parent_tabid));
  return text.append(u") and (t1.constrid=t2.constrid) and (t2.idxname=t3.idxname)");
}

}  // namespace odbcimport::informix
