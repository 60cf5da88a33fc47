// Where the header and the data of a family table file are: files from elsewhere often have a
// title line or notes above the header. Checks that the headings are unique and that every data
// row fits under them, and lists the data rows (blank rows are left out).
#pragma once

#include <QCoreApplication>
#include <vector>

#include "FamilyHeading.h"
#include "FamilyProblem.h"

class FamilyProgress;
struct FamilyFile;

class FamilyTableLayout {
    Q_DECLARE_TR_FUNCTIONS(FamilyTableLayout)

public:
    // The first row with as many filled cells as the fullest row, none of them a number; the
    // first of the fullest rows when every one holds a number. Rows counted from 0.
    static int ProposeHeaderRow(const FamilyFile& file);

    // Takes `headerRow` (negative: the proposal) as the header and checks the file below it.
    // False, with the row and column, for a header that is blank or repeats a heading (by its
    // name, without regard to case), a data row with fewer cells than the header (in text
    // files, whose rows have all their fields), and a filled cell under no heading.
    bool Read(const FamilyFile& file, int headerRow, FamilyProblem& problem,
              FamilyProgress& progress);

    int HeaderRow() const { return m_headerRow; }
    int ColumnCount() const { return int(m_headings.size()); }
    // The heading as written, and split into name and unit. Blank columns have empty ones.
    const QString& HeadingText(int column) const { return m_texts[size_t(column)]; }
    const FamilyHeading& Heading(int column) const { return m_headings[size_t(column)]; }
    bool IsBlank(int column) const { return m_texts[size_t(column)].isEmpty(); }
    // The sheet rows that hold data, in order.
    const std::vector<int>& DataRows() const { return m_dataRows; }

private:
    bool ReadHeader(const FamilyFile& file, FamilyProblem& problem);
    bool CheckRow(const FamilyFile& file, int row, FamilyProblem& problem) const;

    int m_headerRow = 0;
    std::vector<QString> m_texts;
    std::vector<FamilyHeading> m_headings;
    std::vector<int> m_dataRows;
};
