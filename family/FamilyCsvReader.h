// Reads comma-, semicolon- and tab-separated text as RFC 4180 describes it: fields may be
// quoted, and a quoted field may hold the delimiter, doubled quotes and line breaks. Rows end
// with CRLF, LF or CR. The text is UTF-8 or UTF-16 with a byte-order mark, else UTF-8 when the
// bytes are valid UTF-8, else GB18030 (what spreadsheet programs on Chinese systems write).
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include "FamilyProblem.h"

class FamilyProgress;
class FamilySheet;

class FamilyCsvReader {
    Q_DECLARE_TR_FUNCTIONS(FamilyCsvReader)

public:
    struct Text {
        QString text;
        // "UTF-8", "UTF-16" or "GB18030".
        QString encoding;
        // Set for GB18030: bytes it could not read became U+FFFD, which the parser refuses.
        bool refuseReplacement = false;
    };

    // False, with the problem, for an empty file.
    static bool Decode(const QByteArray& bytes, Text& text, FamilyProblem& problem);
    // The delimiter (comma, semicolon or tab) that splits the first rows most evenly into more
    // than one field; `preferred` when none does or several do equally.
    static QChar DetectDelimiter(QStringView text, QChar preferred = QLatin1Char(','));
    // Appends the rows of `text` to `sheet`. False, with the row and column, for unbalanced
    // quotes, characters after a closing quote, control characters (a binary file), a cell or a
    // file beyond FamilyLimits, or when `progress` stops the work.
    static bool Parse(const Text& text, QChar delimiter, FamilySheet& sheet, FamilyProblem& problem,
                      FamilyProgress& progress);
};
