// What is wrong with a family table or with a change made from one, and where: the row and
// column of the file (counted from 1, as a spreadsheet numbers them; 0 where it does not apply).
#pragma once

#include <QCoreApplication>
#include <QString>

struct FamilyProblem {
    Q_DECLARE_TR_FUNCTIONS(FamilyProblem)

public:
    int row = 0;
    int column = 0;
    QString text;

    bool IsSet() const { return !text.isEmpty(); }
    // The text with its place in front: "第 3 行第 2 列: ...", "第 3 行: ...", "第 2 列: ...".
    QString Message() const;

    static FamilyProblem At(int row, int column, const QString& text) {
        return FamilyProblem{row, column, text};
    }
    static FamilyProblem General(const QString& text) { return FamilyProblem{0, 0, text}; }
};
