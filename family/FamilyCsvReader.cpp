#include "FamilyCsvReader.h"

#include <QStringDecoder>
#include <array>
#include <map>

#include "FamilyLimits.h"
#include "FamilyProgress.h"
#include "FamilySheet.h"

namespace {

constexpr char16_t kQuote = u'"';
constexpr char16_t kReplacement = 0xFFFD;
// Lines looked at to find the delimiter: enough to get past a title and a few notes.
constexpr int kDelimiterLines = 50;
// Characters parsed between two progress reports.
constexpr qsizetype kReportEvery = 1 << 16;

bool StartsWith(const QByteArray& bytes, const char* prefix) {
    return bytes.startsWith(QByteArrayView(prefix));
}

bool Decoded(QStringDecoder& decoder, QByteArrayView bytes, QString& text) {
    text = decoder.decode(bytes);
    return !decoder.hasError();
}

class Parser {
public:
    Parser(const FamilyCsvReader::Text& text, QChar delimiter, FamilySheet& sheet,
           FamilyProblem& problem, FamilyProgress& progress)
        : m_text(text.text),
          m_delimiter(delimiter.unicode()),
          m_refuseReplacement(text.refuseReplacement),
          m_sheet(sheet),
          m_problem(problem),
          m_progress(progress) {}

    bool Run() {
        qsizetype nextReport = 0;
        while (m_pos < m_text.size()) {
            if (!Row()) return false;
            if (m_pos >= nextReport) {
                if (!m_progress.Report(m_pos, m_text.size()))
                    return Refuse(0, 0, FamilyCsvReader::tr("已取消"));
                nextReport = m_pos + kReportEvery;
            }
        }
        return true;
    }

private:
    bool Row() {
        if (m_row > FamilyLimits::kRows)
            return Refuse(m_row, 0, FamilyCsvReader::tr("文件超过 %1 行").arg(FamilyLimits::kRows));
        for (m_column = 1;; ++m_column) {
            if (m_column > FamilyLimits::kColumns)
                return Refuse(m_row, m_column,
                              FamilyCsvReader::tr("一行超过 %1 列").arg(FamilyLimits::kColumns));
            if (!Field()) return false;
            if (m_pos >= m_text.size() || m_text[m_pos] != m_delimiter) break;
            ++m_pos;
        }
        m_sheet.EndRow();
        ++m_row;
        if (m_pos < m_text.size() && m_text[m_pos] == u'\r') ++m_pos;
        if (m_pos < m_text.size() && m_text[m_pos] == u'\n') ++m_pos;
        return true;
    }

    bool Field() {
        if (m_pos < m_text.size() && m_text[m_pos] == kQuote) return QuotedField();
        const qsizetype start = m_pos;
        while (m_pos < m_text.size()) {
            const char16_t c = m_text[m_pos].unicode();
            if (c == m_delimiter || c == u'\n' || c == u'\r') break;
            if (!Allowed(c)) return RefuseCharacter();
            ++m_pos;
        }
        if (!FitsCell(m_pos - start)) return false;
        m_sheet.AppendCell(m_text.mid(start, m_pos - start));
        return true;
    }

    // At the opening quote. The text up to the closing quote is the cell, a doubled quote
    // standing for one.
    bool QuotedField() {
        const int openRow = m_row;
        const int openColumn = m_column;
        ++m_pos;
        qsizetype length = 0;
        for (;;) {
            const qsizetype quote = m_text.indexOf(kQuote, m_pos);
            if (quote < 0)
                return Refuse(
                    openRow, openColumn,
                    FamilyCsvReader::tr("引号没有配对: 这里开始的引号直到文件末尾都没有结束"));
            for (qsizetype i = m_pos; i < quote; ++i)
                if (m_text[i] != u'\n' && m_text[i] != u'\r' && !Allowed(m_text[i].unicode()))
                    return RefuseCharacter();
            const bool doubled = quote + 1 < m_text.size() && m_text[quote + 1] == kQuote;
            const qsizetype piece = quote - m_pos + (doubled ? 1 : 0);
            length += piece;
            if (!FitsCell(length)) return false;
            m_sheet.AppendToCell(m_text.mid(m_pos, piece));
            m_pos = quote + (doubled ? 2 : 1);
            if (!doubled) break;
        }
        m_sheet.EndCell();
        if (m_pos >= m_text.size()) return true;
        const char16_t next = m_text[m_pos].unicode();
        if (next == m_delimiter || next == u'\n' || next == u'\r') return true;
        return Refuse(m_row, m_column, FamilyCsvReader::tr("引号结束后还有字符"));
    }

    // Tabs are text in files of other delimiters; other control characters only occur in files
    // that are not text at all.
    bool Allowed(char16_t c) const {
        if (c < 0x20) return c == u'\t';
        return !(m_refuseReplacement && c == kReplacement);
    }

    bool RefuseCharacter() {
        return Refuse(m_row, m_column,
                      FamilyCsvReader::tr("不是文本表格: 含有控制字符或无法识别的字节"));
    }

    bool FitsCell(qsizetype length) {
        if (length <= FamilyLimits::kCellLength) return true;
        return Refuse(m_row, m_column,
                      FamilyCsvReader::tr("单元格超过 %1 个字符").arg(FamilyLimits::kCellLength));
    }

    bool Refuse(int row, int column, const QString& text) {
        m_problem = FamilyProblem::At(row, column, text);
        return false;
    }

    QStringView m_text;
    char16_t m_delimiter;
    bool m_refuseReplacement;
    FamilySheet& m_sheet;
    FamilyProblem& m_problem;
    FamilyProgress& m_progress;
    qsizetype m_pos = 0;
    int m_row = 1;
    int m_column = 1;
};

// The number of fields of each of the first lines when split at `delimiter` outside quotes.
std::vector<int> FieldCounts(QStringView text, char16_t delimiter) {
    std::vector<int> counts;
    int fields = 1;
    bool quoted = false;
    for (qsizetype i = 0; i < text.size() && int(counts.size()) < kDelimiterLines; ++i) {
        const char16_t c = text[i].unicode();
        if (c == kQuote) quoted = !quoted;
        if (quoted) continue;
        if (c == delimiter) ++fields;
        if (c == u'\n') {
            counts.push_back(fields);
            fields = 1;
        }
    }
    if (int(counts.size()) < kDelimiterLines) counts.push_back(fields);
    return counts;
}

}  // namespace

bool FamilyCsvReader::Decode(const QByteArray& bytes, Text& text, FamilyProblem& problem) {
    text = Text();
    if (StartsWith(bytes, "\xEF\xBB\xBF")) {
        text.encoding = QStringLiteral("UTF-8");
        text.text = QString::fromUtf8(bytes.constData() + 3, bytes.size() - 3);
    } else if (StartsWith(bytes, "\xFF\xFE") || StartsWith(bytes, "\xFE\xFF")) {
        // The "Unicode text" of spreadsheet programs: UTF-16 with its byte-order mark.
        QStringDecoder utf16(QStringConverter::Utf16);
        text.encoding = QStringLiteral("UTF-16");
        text.text = utf16.decode(bytes);
    } else {
        QStringDecoder utf8(QStringConverter::Utf8);
        text.encoding = QStringLiteral("UTF-8");
        if (!Decoded(utf8, bytes, text.text)) {
            QStringDecoder gb18030("GB18030");
            text.encoding = QStringLiteral("GB18030");
            text.refuseReplacement = !Decoded(gb18030, bytes, text.text);
        }
    }
    if (!text.text.trimmed().isEmpty()) return true;
    problem = FamilyProblem::General(tr("文件是空的"));
    return false;
}

QChar FamilyCsvReader::DetectDelimiter(QStringView text, QChar preferred) {
    // Ties keep the preferred delimiter, then this order.
    std::array<char16_t, 4> candidates{preferred.unicode(), u',', u';', u'\t'};
    char16_t best = preferred.unicode();
    int bestLines = 0;
    int bestFields = 0;
    for (char16_t candidate : candidates) {
        // The most frequent number of fields among the lines it splits; a title line or a note
        // above the header does not count against a delimiter.
        std::map<int, int> lines;
        for (int fields : FieldCounts(text, candidate))
            if (fields > 1) ++lines[fields];
        for (const auto& [fields, count] : lines) {
            if (count < bestLines || (count == bestLines && fields <= bestFields)) continue;
            best = candidate;
            bestLines = count;
            bestFields = fields;
        }
    }
    return QChar(best);
}

bool FamilyCsvReader::Parse(const Text& text, QChar delimiter, FamilySheet& sheet,
                            FamilyProblem& problem, FamilyProgress& progress) {
    return Parser(text, delimiter, sheet, problem, progress).Run();
}
