// Turns rows of typed cells (struTypeData: a kind and a text) into the records of a report
// control: kind 1 a text, 2 an integer, 3 a real shown with two decimals, 4 an icon index.
#pragma once

#include <vector>

#include "VorDPMParam.h"

class CVorDPMReportCtrlBase;
class CVorDPMReportRecord;

class CVorDPMTypedRows {
public:
    // The kinds of a cell.
    enum Kind { Key = 0, Text = 1, Integer = 2, Real = 3, Icon = 4 };
    using Row = std::vector<struTypeData>;

    // A record of the cells from `first` on; cells of an unknown kind make no item. The first
    // item carries `key` as its item data.
    static CVorDPMReportRecord* MakeRecord(const Row& cells, size_t first, quint64 key);
    // Replaces every row of the report. With `firstIsKey` the first cell of each row is not
    // shown: its text, read as an integer, is the row's key.
    static void Fill(CVorDPMReportCtrlBase& report, const std::vector<Row>& rows, bool firstIsKey);
};
