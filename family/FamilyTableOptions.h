// How a family table file is to be read, for an import and for a new definition alike: which row
// is the header, which column is the key, and whether decimal commas are read.
#pragma once

struct FamilyTableOptions {
    // The sheet row of the header, from 0; negative for the proposal of FamilyTableLayout.
    int headerRow = -1;
    // The key column, from 0; negative for the default: of an import the product-name column,
    // else the first column; of a new definition the first property column.
    int keyColumn = -1;
    // In semicolon-separated files, numbers written with a decimal comma are stored with a
    // decimal point.
    bool decimalComma = false;
};
