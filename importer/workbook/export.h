// Marks what the workbook library exports; everything else in it stays hidden.
#pragma once

#define LC_WORKBOOK_EXPORT __attribute__((visibility("default")))
