#include "FamilyFileReader.h"

#include <QFile>
#include <QFileInfo>

#include "FamilyCsvReader.h"
#include "FamilyLimits.h"
#include "FamilyXlsxReader.h"

namespace {

bool Refuse(FamilyProblem& problem, const QString& text) {
    problem = FamilyProblem::General(text);
    return false;
}

// Tab-separated text is what spreadsheet programs write as "text" and "Unicode text".
QChar PreferredDelimiter(const QString& path) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    const bool tabs = suffix == u"tsv" || suffix == u"tab" || suffix == u"txt";
    return tabs ? QLatin1Char('\t') : QLatin1Char(',');
}

}  // namespace

bool FamilyFileReader::Read(const QString& path, FamilyFile& file, FamilyProblem& problem,
                            FamilyProgress& progress) {
    QFile input(path);
    if (!input.open(QIODevice::ReadOnly))
        return Refuse(problem, tr("无法打开文件 %1: %2").arg(path, input.errorString()));
    if (input.size() > FamilyLimits::kFileBytes)
        return Refuse(problem, tr("文件太大 (超过 %1 MB)").arg(FamilyLimits::kFileBytes >> 20));
    const QByteArray start = input.peek(8);
    if (start.startsWith("PK\x03\x04")) {
        file.format = FamilyFile::Workbook;
        return FamilyXlsxReader::Read(path, file.sheet, file.sheetName, problem, progress);
    }
    if (start.startsWith("\xD0\xCF\x11\xE0"))
        return Refuse(problem, tr("不能读取旧的 Excel 97-2003 格式 (.xls)，请另存为 .xlsx 或 CSV"));
    const QByteArray bytes = input.readAll();
    if (input.error() != QFileDevice::NoError)
        return Refuse(problem, tr("无法读取文件 %1: %2").arg(path, input.errorString()));
    file.format = FamilyFile::Text;
    FamilyCsvReader::Text text;
    if (!FamilyCsvReader::Decode(bytes, text, problem)) return false;
    file.encoding = text.encoding;
    file.delimiter = FamilyCsvReader::DetectDelimiter(text.text, PreferredDelimiter(path));
    return FamilyCsvReader::Parse(text, file.delimiter, file.sheet, problem, progress);
}
