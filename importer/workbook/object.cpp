// The base class of the workbook's objects.
#include "importer/workbook/object.h"

const char* LcObject::GetRuntimeClass() const { return "LcObject"; }
LcObject::~LcObject() = default;
void LcObject::Serialize(LcArchive& /*archive*/) {}
void LcObject::AssertValid() const {}
void LcObject::Dump(std::ostream& /*out*/) const {}
