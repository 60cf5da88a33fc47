#include "CheckedFile.h"

#include "CVorDPMDBBase.h"
#include "CVorDPMSQL.h"
#include "CVorDPMStorage.h"
#include "VorDPMServerRoot.h"

CheckedFile::CheckedFile(const CVorDPMDBBase& file, CheckFileReport& report) : m_report(report) {
    auto rows = std::make_unique<CVorDPMStoredRows>(file);
    if (!rows->Error().isEmpty())
        ReportUnreadable(rows->Error());
    else if (!IsFile(file) || PassesIntegrityCheck(file.GetFilePath()))
        m_rows = std::move(rows);
}

// A container on a server root is no SQLite file: the server keeps its pages whole, and a row
// that cannot be read is reported when the rows are read.
bool CheckedFile::IsFile(const CVorDPMDBBase& file) {
    return !VorDPMServerRoot::IsServerRoot(file.Storage()->Root());
}

void CheckedFile::ReportUnreadable(CheckFileReport& report, const QString& reason) {
    report.Add(CheckKind::FileUnreadable, tr("无法读取该文件：%1").arg(reason));
}

bool CheckedFile::PassesIntegrityCheck(const QString& path) {
    // The store's own cursor: it runs no statement that writes.
    CVorDPMSQL cursor;
    if (!cursor.open(path) || !cursor.execQuery(QStringLiteral("PRAGMA integrity_check"))) {
        m_report.Add(CheckKind::FileDamaged,
                     tr("无法对该文件做完整性检查：%1").arg(cursor.lastError()));
        return false;
    }
    QStringList problems;
    for (; !cursor.eof(); cursor.nextRow())
        problems.append(cursor.getStringField("integrity_check"));
    if (problems == QStringList{QStringLiteral("ok")}) return true;
    const QString first = problems.value(0, cursor.lastError());
    m_report.Add(CheckKind::FileDamaged,
                 tr("文件已损坏：SQLite 的完整性检查发现 %n 处问题，第一处：%1", nullptr,
                    int(problems.size()))
                     .arg(first));
    return false;
}
