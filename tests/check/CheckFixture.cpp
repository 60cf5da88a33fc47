#include "CheckFixture.h"

#include <QProcess>
#include <QTemporaryDir>

#include "CVorDPMManager.h"
#include "sample/SampleLibrary.h"

namespace {

// The sample root, written once for the whole program.
QString PristineSample() {
    static QTemporaryDir folder;
    static const QString path = [] {
        const QString sample = folder.path() + QStringLiteral("/sample");
        QString error;
        if (!SampleLibrary::Create(sample, 1, error)) qFatal("%s", qPrintable(error));
        return sample;
    }();
    return path;
}

}  // namespace

void CheckFixture::SetUp() {
    const QString sample = PristineSample();
    // The sample's creation made its root current: the test's own copy is made current again.
    ASSERT_EQ(QProcess::execute(QStringLiteral("cp"),
                                {QStringLiteral("-a"), sample + QStringLiteral("/."), root.Path()}),
              0);
    Reopen();
}

void CheckFixture::Reopen() {
    CVorDPMManager* store = CVorDPMManager::GetVorDPMManager();
    store->DiscardChanges();
    store->SetDPMLibraryRootPath(root.Path());
}

QVector<CheckFinding> CheckFixture::Check(const CheckScope& scope) {
    Reopen();
    QVector<CheckFinding> findings;
    LibraryCheck check(scope);
    QString error;
    EXPECT_TRUE(check.Prepare(error)) << error.toStdString();
    QObject::connect(&check, &LibraryCheck::FindingsReady,
                     [&](const QVector<CheckFinding>& ready) { findings += ready; });
    check.Exec();
    summary = check.Summary();
    return findings;
}

bool CheckFixture::IsSampleReference(const CheckFinding& finding) {
    return finding.place.file == QStringLiteral("QXMaterial/标准件.DPC") &&
           finding.table == QStringLiteral("include_ref") &&
           ((finding.kind == CheckKind::ReferenceLibraryMissing && finding.row == 2) ||
            (finding.kind == CheckKind::ReferenceCatalogMissing && finding.row == 3));
}

QVector<CheckFinding> CheckFixture::WithoutSampleReferences(const QVector<CheckFinding>& findings) {
    QVector<CheckFinding> rest;
    for (const CheckFinding& finding : findings)
        if (!IsSampleReference(finding)) rest.append(finding);
    return rest;
}

std::string Describe(const QVector<CheckFinding>& findings) {
    QString text;
    for (const CheckFinding& finding : findings)
        text += QStringLiteral("\n  %1:%2#%3 %4: %5")
                    .arg(finding.place.file, finding.table)
                    .arg(finding.row)
                    .arg(CheckKinds::Code(finding.kind), finding.message);
    return text.toStdString();
}
