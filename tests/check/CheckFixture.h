// A copy of the sample library root for each test, made current, and the library check run on
// it to its end. The sample is written once per program; each test gets its own copy to damage.
#pragma once

#include <gtest/gtest.h>

#include <QString>
#include <QVector>

#include "CheckFinding.h"
#include "LibraryCheck.h"
#include "support/TempRoot.h"

class CheckFixture : public ::testing::Test {
protected:
    void SetUp() override;

    QString File(const QString& relative) const { return root.File(relative); }
    // Makes the test's copy current (creating the sample made the sample's root current), read
    // again after the test changed its files behind the store's back.
    void Reopen();
    // Runs the check to its end; the scope's defaults check every library with its scripts.
    QVector<CheckFinding> Check(const CheckScope& scope = {});
    // What the sample holds on purpose: the two references that show the catalog page's
    // statuses.
    static bool IsSampleReference(const CheckFinding& finding);
    static QVector<CheckFinding> WithoutSampleReferences(const QVector<CheckFinding>& findings);

    TempRoot root;
    CheckSummary summary;
};

// "file:table#row kind" for messages of failed expectations.
std::string Describe(const QVector<CheckFinding>& findings);
