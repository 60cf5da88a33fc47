#include "SampleVersions.h"

#include <QDateTime>

#include "CVorDPMDBBase.h"
#include "SampleStep.h"

bool SampleVersions::Add(CVorDPMDBBase* file, const QStringList& descriptions, QString& error) {
    const QDateTime first(QDate(2024, 3, 1), QTime(9, 30));
    for (int i = 0; i < descriptions.size(); ++i) {
        auto* version = new CVorDPM_Version;
        version->SetVersion(1.0 + 0.1 * i);
        version->SetAuthor(QStringLiteral("QX 标准化组"));
        version->SetTime(first.addDays(45 * i).toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")));
        version->SetDescription(descriptions[i]);
        const QString what = QStringLiteral("version of ") + file->GetName();
        if (!SampleStep::Ok(file->AddVersion(version), what, error)) return false;
    }
    return true;
}
