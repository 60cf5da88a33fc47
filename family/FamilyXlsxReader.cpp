#include "FamilyXlsxReader.h"

#include <zip.h>

#include <QDate>
#include <QFile>
#include <QHash>
#include <QTime>
#include <QXmlStreamReader>
#include <cmath>
#include <memory>
#include <vector>

#include "FamilyLimits.h"
#include "FamilyProgress.h"
#include "FamilySheet.h"

namespace {

constexpr qint64 kChunk = 1 << 20;
// Cells read between two progress reports.
constexpr int kReportEvery = 4096;

struct ZipCloser {
    void operator()(zip_t* zip) const { zip_discard(zip); }
};
struct ZipFileCloser {
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};
using Zip = std::unique_ptr<zip_t, ZipCloser>;
using ZipFile = std::unique_ptr<zip_file_t, ZipFileCloser>;

// One XML part of the package, read token by token as it is unpacked.
class XmlPart {
public:
    explicit XmlPart(QString name) : m_name(std::move(name)) {}

    // False when the package lacks the part or it cannot be unpacked; Error() tells which.
    bool Open(zip_t* zip) {
        const QByteArray entry = m_name.toUtf8();
        const zip_int64_t index = zip_name_locate(zip, entry.constData(), ZIP_FL_NOCASE);
        if (index < 0) return Fail(FamilyXlsxReader::tr("缺少 %1").arg(m_name));
        zip_stat_t stat;
        zip_stat_init(&stat);
        if (zip_stat_index(zip, zip_uint64_t(index), 0, &stat) == 0 && (stat.valid & ZIP_STAT_SIZE))
            m_size = qint64(stat.size);
        if (m_size > FamilyLimits::kFileBytes)
            return Fail(FamilyXlsxReader::tr("%1 太大").arg(m_name));
        m_file.reset(zip_fopen_index(zip, zip_uint64_t(index), 0));
        if (!m_file)
            return Fail(
                FamilyXlsxReader::tr("无法解压 %1: %2").arg(m_name, ZipError(zip_get_error(zip))));
        return true;
    }

    // Advances to the next token; false at the end of the part's root element or on a failure.
    bool Next() {
        if (m_done) return false;
        for (;;) {
            m_xml.readNext();
            if (m_xml.error() != QXmlStreamReader::PrematureEndOfDocumentError) break;
            if (!Feed()) return false;
        }
        if (m_xml.hasError()) {
            Fail(FamilyXlsxReader::tr("%1 不是有效的 XML: %2").arg(m_name, m_xml.errorString()));
            return false;
        }
        if (m_xml.isStartElement()) ++m_depth;
        if (m_xml.isEndElement() && --m_depth == 0) m_done = true;
        return !m_xml.atEnd();
    }

    // Empty after a clean end.
    const QString& Error() const { return m_error; }
    QXmlStreamReader& Xml() { return m_xml; }
    qint64 Unpacked() const { return m_read; }
    qint64 Size() const { return m_size; }

private:
    bool Feed() {
        QByteArray chunk(kChunk, Qt::Uninitialized);
        const zip_int64_t read = zip_fread(m_file.get(), chunk.data(), zip_uint64_t(kChunk));
        if (read < 0)
            return Fail(FamilyXlsxReader::tr("无法解压 %1: %2")
                            .arg(m_name, ZipError(zip_file_get_error(m_file.get()))));
        if (read == 0) return Fail(FamilyXlsxReader::tr("%1 不完整").arg(m_name));
        m_read += read;
        if (m_read > FamilyLimits::kFileBytes)
            return Fail(FamilyXlsxReader::tr("%1 太大").arg(m_name));
        chunk.truncate(qsizetype(read));
        m_xml.addData(chunk);
        return true;
    }

    static QString ZipError(zip_error_t* error) {
        return QString::fromLocal8Bit(zip_error_strerror(error));
    }

    bool Fail(const QString& error) {
        m_error = error;
        m_done = true;
        return false;
    }

    QString m_name;
    ZipFile m_file;
    QXmlStreamReader m_xml;
    QString m_error;
    qint64 m_size = 0;
    qint64 m_read = 0;
    int m_depth = 0;
    bool m_done = false;
};

bool IsStart(QXmlStreamReader& xml, QStringView name) {
    return xml.isStartElement() && xml.name() == name;
}

bool IsEnd(QXmlStreamReader& xml, QStringView name) {
    return xml.isEndElement() && xml.name() == name;
}

// The attribute of that local name in any namespace (relationship ids are namespaced).
QStringView Attribute(QXmlStreamReader& xml, QStringView name) {
    for (const QXmlStreamAttribute& attribute : xml.attributes())
        if (attribute.name() == name) return attribute.value();
    return {};
}

// Number formats that show dates or times: the built-in ones, and custom codes that use date or
// time letters outside quoted text, escapes and bracketed colours or conditions.
bool IsDateFormat(int id, QStringView code) {
    if ((id >= 14 && id <= 22) || (id >= 27 && id <= 36) || (id >= 45 && id <= 47) ||
        (id >= 50 && id <= 58))
        return true;
    bool quoted = false;
    bool bracketed = false;
    for (qsizetype i = 0; i < code.size(); ++i) {
        const QChar c = code[i];
        if (c == u'"') quoted = !quoted;
        if (quoted) continue;
        if (c == u'[') bracketed = true;
        if (c == u']') bracketed = false;
        if (bracketed) continue;
        if (c == u'\\' || c == u'_' || c == u'*') {
            ++i;
            continue;
        }
        if (QStringLiteral("ydhsm").contains(c.toLower())) return true;
    }
    return false;
}

QString NumberText(QStringView value) {
    bool ok = false;
    const double number = value.toDouble(&ok);
    if (!ok || !std::isfinite(number)) return value.toString();
    return QString::number(number, 'g', 15);
}

QString DateText(double serial, bool date1904) {
    const QDate base = date1904 ? QDate(1904, 1, 1) : QDate(1899, 12, 30);
    qint64 days = qint64(std::floor(serial));
    qint64 seconds = std::llround((serial - double(days)) * 86400.0);
    if (seconds >= 86400) {
        ++days;
        seconds -= 86400;
    }
    const QString time = QTime(0, 0).addSecs(int(seconds)).toString(QStringLiteral("HH:mm:ss"));
    if (days == 0 && !date1904) return time;
    const QString date = base.addDays(days).toString(QStringLiteral("yyyy-MM-dd"));
    return seconds == 0 ? date : date + QLatin1Char(' ') + time;
}

// "AB12" → 28; 0 when the reference has no column letters.
int ColumnOf(QStringView reference) {
    int column = 0;
    for (const QChar c : reference) {
        if (c < u'A' || c > u'Z') break;
        column = column * 26 + (c.unicode() - u'A' + 1);
        if (column > FamilyLimits::kColumns) break;
    }
    return column;
}

class Workbook {
public:
    Workbook(FamilySheet& sheet, FamilyProblem& problem, FamilyProgress& progress)
        : m_sheet(sheet), m_problem(problem), m_progress(progress) {}

    bool Read(const QString& path, QString& sheetName) {
        int code = 0;
        m_zip.reset(
            zip_open(QFile::encodeName(path).constData(), ZIP_RDONLY | ZIP_CHECKCONS, &code));
        if (!m_zip) {
            zip_error_t error;
            zip_error_init_with_code(&error, code);
            const QString reason = QString::fromLocal8Bit(zip_error_strerror(&error));
            zip_error_fini(&error);
            return Refuse(0, 0,
                          FamilyXlsxReader::tr("不是可以读取的 XLSX 文件 (文件已损坏或不完整): %1")
                              .arg(reason));
        }
        QString relationship;
        return ReadWorkbook(sheetName, relationship) && ReadSheetPath(relationship) &&
               ReadSharedStrings() && ReadStyles() && ReadSheet();
    }

private:
    bool ReadWorkbook(QString& sheetName, QString& relationship) {
        XmlPart part(QStringLiteral("xl/workbook.xml"));
        if (!part.Open(m_zip.get())) return Refuse(part);
        QXmlStreamReader& xml = part.Xml();
        while (part.Next()) {
            if (IsStart(xml, u"workbookPr")) {
                const QStringView date1904 = Attribute(xml, u"date1904");
                m_date1904 = date1904 == u"1" || date1904 == u"true";
            }
            if (IsStart(xml, u"sheet") && relationship.isEmpty()) {
                sheetName = Attribute(xml, u"name").toString();
                relationship = Attribute(xml, u"id").toString();
            }
        }
        if (!part.Error().isEmpty()) return Refuse(part);
        if (relationship.isEmpty()) return Refuse(0, 0, FamilyXlsxReader::tr("工作簿中没有工作表"));
        return true;
    }

    bool ReadSheetPath(const QString& relationship) {
        XmlPart part(QStringLiteral("xl/_rels/workbook.xml.rels"));
        if (!part.Open(m_zip.get())) return Refuse(part);
        QXmlStreamReader& xml = part.Xml();
        while (part.Next()) {
            if (!IsStart(xml, u"Relationship") || Attribute(xml, u"Id") != relationship) continue;
            const QString target = Attribute(xml, u"Target").toString();
            m_sheetPath = target.startsWith(QLatin1Char('/')) ? target.mid(1)
                                                              : QStringLiteral("xl/") + target;
        }
        if (!part.Error().isEmpty()) return Refuse(part);
        if (m_sheetPath.isEmpty()) return Refuse(0, 0, FamilyXlsxReader::tr("工作簿中没有工作表"));
        return true;
    }

    // Optional: a workbook without strings has no such part. Phonetic runs are left out.
    bool ReadSharedStrings() {
        XmlPart part(QStringLiteral("xl/sharedStrings.xml"));
        if (!part.Open(m_zip.get())) return true;
        QXmlStreamReader& xml = part.Xml();
        bool phonetic = false;
        bool text = false;
        while (part.Next()) {
            if (IsStart(xml, u"si")) m_strings.emplace_back();
            if (IsStart(xml, u"rPh")) phonetic = true;
            if (IsEnd(xml, u"rPh")) phonetic = false;
            if (IsStart(xml, u"t")) text = !phonetic;
            if (IsEnd(xml, u"t")) text = false;
            if (text && xml.isCharacters() && !m_strings.empty()) m_strings.back() += xml.text();
        }
        return part.Error().isEmpty() || Refuse(part);
    }

    // Optional too: which cell formats show dates.
    bool ReadStyles() {
        XmlPart part(QStringLiteral("xl/styles.xml"));
        if (!part.Open(m_zip.get())) return true;
        QXmlStreamReader& xml = part.Xml();
        QHash<int, QString> codes;
        bool cellFormats = false;
        while (part.Next()) {
            if (IsStart(xml, u"numFmt"))
                codes.insert(Attribute(xml, u"numFmtId").toInt(),
                             Attribute(xml, u"formatCode").toString());
            if (IsStart(xml, u"cellXfs")) cellFormats = true;
            if (IsEnd(xml, u"cellXfs")) cellFormats = false;
            if (cellFormats && IsStart(xml, u"xf")) {
                const int id = Attribute(xml, u"numFmtId").toInt();
                m_dateStyles.push_back(IsDateFormat(id, codes.value(id)));
            }
        }
        return part.Error().isEmpty() || Refuse(part);
    }

    struct Cell {
        int column = 0;
        QString type;
        int style = 0;
        QString value;
        bool hasValue = false;
        bool hasFormula = false;
        QString inlineText;
    };

    bool ReadSheet() {
        XmlPart part(m_sheetPath);
        if (!part.Open(m_zip.get())) return Refuse(part);
        QXmlStreamReader& xml = part.Xml();
        Cell cell;
        int row = 0;
        int cells = 0;
        int read = 0;
        enum { None, Value, Inline } collecting = None;
        bool inlineString = false;
        bool phonetic = false;
        while (part.Next()) {
            if (xml.isCharacters()) {
                if (collecting == Value) cell.value += xml.text();
                if (collecting == Inline) cell.inlineText += xml.text();
            } else if (xml.isStartElement()) {
                const QStringView name = xml.name();
                if (name == u"row") {
                    if (!StartRow(Attribute(xml, u"r"), row)) return false;
                    cells = 0;
                } else if (name == u"c") {
                    cell = Cell();
                    if (!StartCell(xml, row, cells, cell)) return false;
                } else if (name == u"v") {
                    collecting = Value;
                } else if (name == u"f") {
                    cell.hasFormula = true;
                } else if (name == u"is") {
                    inlineString = true;
                } else if (name == u"rPh") {
                    phonetic = true;
                } else if (name == u"t" && inlineString && !phonetic) {
                    collecting = Inline;
                }
            } else if (xml.isEndElement()) {
                const QStringView name = xml.name();
                if (name == u"v") {
                    cell.hasValue = true;
                    collecting = None;
                } else if (name == u"t") {
                    collecting = None;
                } else if (name == u"is") {
                    inlineString = false;
                } else if (name == u"rPh") {
                    phonetic = false;
                } else if (name == u"c") {
                    if (!EndCell(cell, row)) return false;
                    ++cells;
                    if (++read % kReportEvery == 0 &&
                        !m_progress.Report(part.Unpacked(), std::max(part.Size(), part.Unpacked())))
                        return Refuse(0, 0, FamilyXlsxReader::tr("已取消"));
                } else if (name == u"row") {
                    m_sheet.EndRow();
                }
            }
        }
        return part.Error().isEmpty() || Refuse(part);
    }

    // Rows come in ascending order; rows the sheet leaves out are empty rows.
    bool StartRow(QStringView number, int& row) {
        const int next = number.isEmpty() ? row + 1 : number.toInt();
        if (next > FamilyLimits::kRows)
            return Refuse(next, 0, FamilyXlsxReader::tr("文件超过 %1 行").arg(FamilyLimits::kRows));
        if (next <= m_sheet.RowCount())
            return Refuse(next, 0, FamilyXlsxReader::tr("工作表的行不是按次序排列的"));
        while (m_sheet.RowCount() < next - 1) m_sheet.EndRow();
        row = next;
        return true;
    }

    bool StartCell(QXmlStreamReader& xml, int row, int cells, Cell& cell) {
        const QStringView reference = Attribute(xml, u"r");
        cell.column = reference.isEmpty() ? cells + 1 : ColumnOf(reference);
        if (cell.column > FamilyLimits::kColumns)
            return Refuse(row, cell.column,
                          FamilyXlsxReader::tr("一行超过 %1 列").arg(FamilyLimits::kColumns));
        if (cell.column <= cells)
            return Refuse(row, cell.column, FamilyXlsxReader::tr("单元格不是按次序排列的"));
        cell.type = Attribute(xml, u"t").toString();
        cell.style = Attribute(xml, u"s").toInt();
        for (int column = cells + 1; column < cell.column; ++column) m_sheet.AppendCell({});
        return true;
    }

    bool EndCell(const Cell& cell, int row) {
        QString text;
        if (!CellText(cell, row, text)) return false;
        if (text.size() > FamilyLimits::kCellLength)
            return Refuse(
                row, cell.column,
                FamilyXlsxReader::tr("单元格超过 %1 个字符").arg(FamilyLimits::kCellLength));
        m_sheet.AppendCell(text);
        return true;
    }

    bool CellText(const Cell& cell, int row, QString& text) const {
        // Writers that do not calculate save a formula with an empty value, or none; only a
        // formula whose result is a text can have an empty one.
        const bool noResult = !cell.hasValue || (cell.value.isEmpty() && cell.type != u"str");
        if (cell.hasFormula && noResult)
            return Refuse(
                row, cell.column,
                FamilyXlsxReader::tr("公式没有保存计算结果，请在电子表格程序中重新计算并保存"));
        if (cell.type == u"s") {
            bool ok = false;
            const qsizetype index = cell.value.toLongLong(&ok);
            if (!ok || index < 0 || index >= qsizetype(m_strings.size()))
                return Refuse(row, cell.column, FamilyXlsxReader::tr("共享字符串的编号无效"));
            text = m_strings[size_t(index)];
        } else if (cell.type == u"inlineStr") {
            text = cell.inlineText;
        } else if (cell.type == u"b") {
            text = cell.value == u"1" ? QStringLiteral("TRUE") : QStringLiteral("FALSE");
        } else if (cell.type == u"str" || cell.type == u"e" || cell.value.isEmpty()) {
            text = cell.value;
        } else if (IsDate(cell.style)) {
            text = DateText(cell.value.toDouble(), m_date1904);
        } else {
            text = NumberText(cell.value);
        }
        return true;
    }

    bool IsDate(int style) const {
        return style >= 0 && size_t(style) < m_dateStyles.size() && m_dateStyles[size_t(style)];
    }

    bool Refuse(const XmlPart& part) const { return Refuse(0, 0, part.Error()); }
    bool Refuse(int row, int column, const QString& text) const {
        m_problem = FamilyProblem::At(row, column, text);
        return false;
    }

    FamilySheet& m_sheet;
    FamilyProblem& m_problem;
    FamilyProgress& m_progress;
    Zip m_zip;
    QString m_sheetPath;
    bool m_date1904 = false;
    std::vector<QString> m_strings;
    std::vector<bool> m_dateStyles;
};

}  // namespace

bool FamilyXlsxReader::Read(const QString& path, FamilySheet& sheet, QString& sheetName,
                            FamilyProblem& problem, FamilyProgress& progress) {
    return Workbook(sheet, problem, progress).Read(path, sheetName);
}
