// The largest family table the editor and the tool take. Beyond these a file is refused with
// the row or column where it runs over, before anything is written: a table of a standard's sizes
// has hundreds of rows, a vendor's catalogue tens of thousands, and the store keeps a definition
// in memory whole.
#pragma once

#include <QtGlobal>

namespace FamilyLimits {

// Rows of a file, titles and header included.
constexpr qsizetype kRows = 500000;
// Cells of a row: a spreadsheet's own limit.
constexpr qsizetype kColumns = 16384;
// Characters of one cell: a spreadsheet's own limit.
constexpr qsizetype kCellLength = 32767;
// Bytes of a text file, and of the unpacked sheet of a workbook.
constexpr qint64 kFileBytes = qint64(1) << 30;

}  // namespace FamilyLimits
