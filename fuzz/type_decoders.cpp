// The decoders of Informix types and the conversions of type codes and names: any numbers and any
// texts give values in their ranges.
#include <cstdlib>
#include <string>

#include "base/text.h"
#include "catalogues/conversions.h"
#include "fuzz/input.h"
#include "routes/informix/type_numbers.h"

using namespace odbcimport;            // NOLINT: every call here is one of the module's
using namespace odbcimport::informix;  // NOLINT

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  while (!input.IsEmpty()) {
    const long coltype = input.Take<long>();
    const long collength = input.Take<long>();
    const int code = input.Take<int>();
    const std::u16string name = input.TakeText(40);

    static_cast<void>(ComputeInformixScale(coltype, collength));
    static_cast<void>(ComputeInformixPrecision(coltype, collength));
    static_cast<void>(ComputeInformixNoNull(coltype));
    const enumIntervalPart part = ComputeInformixIntervalPart(code);
    if (part < ipNone || part > ipFraction5) std::abort();
    const auto type_name = ConvertIUSTypeCodeToTypeName(code);
    if (type_name && type_name->empty()) std::abort();
    const enumDataType generic = ConvertIUSPhyCodeToGenericCode(code, name.c_str());
    if (generic < dtUnknown || generic > dtVarOpaque) std::abort();
    const enumDataTypeGroup group = ConvertIUSPhyCodeToTypeGroup(code, name.c_str());
    if (group < dgCharacter || group > dgOther) std::abort();

    ServerFacts server;
    server.is_ius = (code & 1) != 0;
    server.dbms_type = dbmsInformix;
    static_cast<void>(MapDataType(server, coltype));
    const enumDataTypeGroup mapped = MapTypeToGroup(MapInternalCodeToType(code));
    if (mapped < dgCharacter || mapped > dgOther) std::abort();
    static_cast<void>(base::ParseInteger(name));
    for (int dbms_type = -1; dbms_type <= 9; ++dbms_type) {
      const auto physical = ConvertDatabaseTypeToODBC(name, dbms_type);
      if (physical && *physical > pcBFile) std::abort();
      static_cast<void>(GetTableType(name, dbms_type));
    }
  }
  return 0;
}
