// Constructors and class names of the entry and record classes.
#include "importer/workbook/info.h"

#include "importer/workbook/datatype.h"

LcOwnerInfo::LcOwnerInfo() = default;
LcOwnerInfo::~LcOwnerInfo() = default;
const char* LcOwnerInfo::GetRuntimeClass() const { return "LcOwnerInfo"; }

LcTableInfo::LcTableInfo() = default;
LcTableInfo::~LcTableInfo() = default;
const char* LcTableInfo::GetRuntimeClass() const { return "LcTableInfo"; }

LcWBColumnInfo::LcWBColumnInfo() = default;
LcWBColumnInfo::~LcWBColumnInfo() = default;
const char* LcWBColumnInfo::GetRuntimeClass() const { return "LcWBColumnInfo"; }

LcImpItemInfo::LcImpItemInfo() = default;
LcImpItemInfo::~LcImpItemInfo() = default;
const char* LcImpItemInfo::GetRuntimeClass() const { return "LcImpItemInfo"; }

LcImpProgStartInfo::LcImpProgStartInfo() = default;
LcImpProgStartInfo::~LcImpProgStartInfo() = default;
const char* LcImpProgStartInfo::GetRuntimeClass() const { return "LcImpProgStartInfo"; }
