// Constructors and class names of the workbook and of the host's connection records.
#include "importer/workbook/workbook.h"

LcWorkbook::LcWorkbook() = default;
LcWorkbook::~LcWorkbook() = default;
const char* LcWorkbook::GetRuntimeClass() const { return "LcWorkbook"; }

LcWorkbookDatabase::LcWorkbookDatabase() = default;
LcWorkbookDatabase::~LcWorkbookDatabase() = default;
const char* LcWorkbookDatabase::GetRuntimeClass() const { return "LcWorkbookDatabase"; }

LcWorkbookLogin::LcWorkbookLogin() = default;
LcWorkbookLogin::~LcWorkbookLogin() = default;
const char* LcWorkbookLogin::GetRuntimeClass() const { return "LcWorkbookLogin"; }
