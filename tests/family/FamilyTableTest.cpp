// Family tables against a real store on disk: every definition of the sample library exported and
// compared again, changes shown and applied as one saved command, refused files and a stopped
// apply that leave the definition file as it was, a new definition from a size table, and an
// exported workbook read by an independent reader.
#include <gtest/gtest.h>

#include <QBuffer>
#include <QDir>
#include <QProcess>

#include "CVorDPMDPD.h"
#include "CVorDPMLibraryManager.h"
#include "FamilyCreate.h"
#include "FamilyDefinition.h"
#include "FamilyExport.h"
#include "FamilyFileReader.h"
#include "FamilyImport.h"
#include "FamilyImportApply.h"
#include "FamilyProgress.h"
#include "sample/SampleLibrary.h"
#include "sample/SampleStoreView.h"
#include "support/StoreFileEdits.h"
#include "support/TempRoot.h"

namespace {

using View = SampleStoreView;
const QString kNut = QStringLiteral("六角螺母");

class FamilyTableTest : public ::testing::Test {
protected:
    void SetUp() override {
        QString error;
        ASSERT_TRUE(SampleLibrary::Create(root.Path(), 1, error)) << error.toStdString();
    }

    // Everything is read again from the files.
    void Reopen() { View::Reopen(root.Path(), root.Home()); }

    QString DefinitionFile(const QString& name) const {
        return root.File(QStringLiteral("QXMaterial/%1.DPD").arg(name));
    }

    static QString ExportCsv(CVorDPMDPD* dpd) {
        const FamilyDefinition definition(dpd);
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        FamilyProblem problem;
        EXPECT_TRUE(FamilyExport::WriteCsv(definition, buffer, problem, FamilyProgress::None()))
            << problem.Message().toStdString();
        return QString::fromUtf8(buffer.data());
    }

    QString WriteText(const QString& text) { return root.Write("in.csv", text.toUtf8()); }

    static bool ReadFile(const QString& path, FamilyFile& file) {
        FamilyProblem problem;
        const bool read = FamilyFileReader::Read(path, file, problem, FamilyProgress::None());
        EXPECT_TRUE(read) << path.toStdString() << ": " << problem.Message().toStdString();
        return read;
    }

    // The export of the nut definition as lines of cells, the header first.
    static QList<QStringList> NutRows() {
        QList<QStringList> rows;
        QString csv = ExportCsv(View::Definition(kNut));
        if (csv.startsWith(QChar(0xFEFF))) csv.remove(0, 1);
        const QStringList lines = csv.split(u'\n');
        for (const QString& line : lines)
            if (!line.isEmpty())
                rows.append(line.chopped(line.endsWith(u'\r') ? 1 : 0).split(u','));
        return rows;
    }

    static QString Csv(const QList<QStringList>& rows) {
        QString text;
        for (const QStringList& row : rows) text += row.join(u',') + QStringLiteral("\r\n");
        return text;
    }

    TempRoot root;
};

TEST_F(FamilyTableTest, EveryDefinitionOfTheSampleComesBackUnchanged) {
    const QList<CVorDPMDPD*> definitions = View::AllDefinitions();
    ASSERT_GT(definitions.size(), 5);
    for (CVorDPMDPD* dpd : definitions) {
        const FamilyDefinition definition(dpd);
        for (const char* name : {"round.csv", "round.xlsx"}) {
            const QString path = root.Home() + QLatin1Char('/') + QLatin1String(name);
            FamilyProblem problem;
            ASSERT_TRUE(FamilyExport::Write(definition, path, FamilyExport::FormatOf(path), problem,
                                            FamilyProgress::None()))
                << problem.Message().toStdString();
            FamilyFile file;
            ASSERT_TRUE(ReadFile(path, file));
            FamilyImport import(definition, file);
            const std::string what = (dpd->GetDPDName() + u' ' + QLatin1String(name)).toStdString();
            ASSERT_TRUE(import.Compare({}, FamilyProgress::None()))
                << what << ": " << import.Refusal().Message().toStdString();
            EXPECT_TRUE(import.CanApply()) << what;
            EXPECT_FALSE(import.HasChanges()) << what;
            EXPECT_EQ(import.UnchangedCount(), int(definition.Rows().size())) << what;
        }
    }
}

TEST_F(FamilyTableTest, ShowsTheDiffThenAppliesItAsOneSavedChange) {
    QList<QStringList> rows = NutRows();
    ASSERT_GE(rows.size(), 5);
    const int m = int(rows[0].indexOf(QStringLiteral("m [mm]")));
    ASSERT_GT(m, 0);
    for (QStringList& row : rows) row.append(QString());
    rows[0].last() = QStringLiteral("note");
    const QString oldM = rows[2][m];
    rows[2][m] = QStringLiteral("6.95");          // changed cell
    rows[2].last() = QStringLiteral("细牙可选");  // a new column's cell
    QStringList added = rows[1];
    added[0] = QStringLiteral("六角螺母M64");
    added[4] = QStringLiteral("64");
    rows.append(added);
    const QString missingKey = rows[3][0];
    rows.removeAt(3);

    FamilyFile file;
    ASSERT_TRUE(ReadFile(WriteText(Csv(rows)), file));
    const FamilyDefinition definition(View::Definition(kNut));
    FamilyImport import(definition, file);
    FamilyImportOptions options;
    options.removeMissing = true;
    options.addAllColumns = true;
    ASSERT_TRUE(import.Compare(options, FamilyProgress::None()));
    EXPECT_EQ(import.AddedCount(), 1);
    EXPECT_EQ(import.ChangedCount(), 1);
    EXPECT_EQ(import.MissingCount(), 1);
    EXPECT_EQ(import.UnchangedCount(), int(rows.size()) - 3);
    for (const FamilyRowChange& change : import.Changes()) {
        if (change.kind == FamilyRowChange::Changed) {
            EXPECT_EQ(change.columns, (std::vector<int>{m, int(rows[0].size()) - 1}));
            EXPECT_EQ(import.StoredText(*change.serial, m), oldM);
        }
        if (change.kind == FamilyRowChange::Missing) {
            EXPECT_EQ(import.KeyText(change), missingKey);
        }
    }
    ASSERT_TRUE(import.CanApply());
    FamilyImportApply apply(import);
    ASSERT_TRUE(apply.Run(FamilyProgress::None())) << apply.Problem().Message().toStdString();

    Reopen();
    EXPECT_EQ(NutRows(), rows);
}

TEST_F(FamilyTableTest, RefusedOrStoppedImportsLeaveTheFileAsItWas) {
    const QByteArray before = ReadAll(DefinitionFile(kNut));
    ASSERT_FALSE(before.isEmpty());
    const QList<QStringList> original = NutRows();
    using Edit = void (*)(QList<QStringList>&);
    struct Case {
        const char* what;
        Edit edit;
        const char* problem;  // the start of the refusal or first misfit; "" to stop the apply
    };
    const Case cases[] = {
        {"a text in a number column", [](auto& r) { r[3][4] = QStringLiteral("abc"); },
         "第 4 行第 5 列: 不是数字: abc"},
        {"a product the definition lacks", [](auto& r) { r[2][1] = QStringLiteral("无此产品"); },
         "第 3 行第 2 列"},
        {"a key twice", [](auto& r) { r[4][0] = r[2][0]; }, "第 5 行第 1 列: 关键值与第 3 行相同"},
        {"an empty key", [](auto& r) { r[2][0].clear(); }, "第 3 行第 1 列: 关键列是空的"},
        {"stopped after a row", [](auto& r) { r[2][4] = r[3][4] = QStringLiteral("7"); }, ""},
    };
    for (const Case& c : cases) {
        QList<QStringList> rows = original;
        c.edit(rows);
        FamilyFile file;
        ASSERT_TRUE(ReadFile(WriteText(Csv(rows)), file));
        const FamilyDefinition definition(View::Definition(kNut));
        FamilyImport import(definition, file);
        QString problem;
        if (!import.Compare({}, FamilyProgress::None()))
            problem = import.Refusal().Message();
        else if (!import.Misfits().empty())
            problem = import.Misfits().front().Message();
        if (*c.problem) {
            EXPECT_TRUE(problem.startsWith(QString::fromUtf8(c.problem)))
                << c.what << ": " << problem.toStdString();
            EXPECT_FALSE(import.CanApply()) << c.what;
        } else {
            ASSERT_TRUE(import.CanApply()) << c.what << ": " << problem.toStdString();
            FamilyImportApply apply(import);
            ASSERT_TRUE(apply.Start());
            ASSERT_TRUE(apply.Step(1));
            EXPECT_EQ(apply.DoneRows(), 1);
            apply.Abort();
            EXPECT_EQ(NutRows(), original) << c.what << ": taken back in memory";
        }
        EXPECT_EQ(ReadAll(DefinitionFile(kNut)), before) << c.what;
        Reopen();
        EXPECT_EQ(NutRows(), original) << c.what;
    }
}

TEST_F(FamilyTableTest, UnitsAreComparedNeverConverted) {
    const QList<QStringList> original = NutRows();
    struct Case {
        const char* heading;
        FamilyImportColumn::Role role;
    };
    const Case cases[] = {
        {"d [MM]", FamilyImportColumn::Property},
        {"d (毫米)", FamilyImportColumn::Property},
        {"d##LENGTH##mm", FamilyImportColumn::Property},
        {"d [in]", FamilyImportColumn::UnitMismatch},
        {"D", FamilyImportColumn::Property},
        {"dd [mm]", FamilyImportColumn::Unmatched},
    };
    for (const Case& c : cases) {
        QList<QStringList> rows = original;
        rows[0][4] = QString::fromUtf8(c.heading);
        FamilyFile file;
        ASSERT_TRUE(ReadFile(WriteText(Csv(rows)), file));
        const FamilyDefinition definition(View::Definition(kNut));
        FamilyImport import(definition, file);
        ASSERT_TRUE(import.Compare({}, FamilyProgress::None())) << c.heading;
        EXPECT_EQ(import.Columns()[4].role, c.role) << c.heading;
        EXPECT_FALSE(import.HasChanges()) << c.heading;
    }
}

// A semicolon file from a spreadsheet program set to a decimal comma: "6,8" is the stored 6.8
// only when that is asked for, and a misfit otherwise.
TEST_F(FamilyTableTest, DecimalCommasAreReadOnlyWhenAsked) {
    QString text;
    for (const QStringList& row : NutRows()) {
        QStringList cells = row;
        for (QString& cell : cells) cell.replace(u'.', u',');
        text += cells.join(u';') + QStringLiteral("\r\n");
    }
    FamilyFile file;
    ASSERT_TRUE(ReadFile(WriteText(text), file));
    for (const bool decimalComma : {false, true}) {
        const FamilyDefinition definition(View::Definition(kNut));
        FamilyImport import(definition, file);
        FamilyImportOptions options;
        options.decimalComma = decimalComma;
        ASSERT_TRUE(import.Compare(options, FamilyProgress::None()));
        EXPECT_EQ(import.CanApply(), decimalComma);
        if (decimalComma) {
            EXPECT_FALSE(import.HasChanges());
        } else {
            ASSERT_FALSE(import.Misfits().empty());
            EXPECT_TRUE(import.Misfits().front().text.contains(u','))
                << import.Misfits().front().Message().toStdString();
        }
    }
}

TEST_F(FamilyTableTest, MakesADefinitionFromASizeTable) {
    const QString table = QStringLiteral(
        "GB/T 5783-2016 六角头螺栓 全螺纹,,,\r\n"
        "\r\n"
        "规格,k [mm],s [mm],l\r\n"
        "M6,4,10,12\r\n"
        "M8,5.3,13,16\r\n"
        "M10,6.4,16,20\r\n");
    FamilyFile file;
    ASSERT_TRUE(ReadFile(WriteText(table), file));
    CVorDPMLibraryManager* library = View::Library(QStringLiteral("QXMaterial"));
    const QString name = QStringLiteral("全螺纹螺栓");
    {
        FamilyCreate create(library, file);
        ASSERT_TRUE(create.Plan(name, {}, FamilyProgress::None()))
            << create.Problem().Message().toStdString();
        EXPECT_EQ(create.Layout().HeaderRow(), 2);
        EXPECT_EQ(create.Rule(), QStringLiteral("全螺纹螺栓%规格"));
        ASSERT_TRUE(create.Run(FamilyProgress::None())) << create.Problem().Message().toStdString();
    }
    Reopen();
    CVorDPMDPD* dpd = View::Definition(name);
    ASSERT_NE(dpd, nullptr);
    const FamilyDefinition definition(dpd);
    QStringList described;
    for (const FamilyDefinition::Property& property : definition.Properties())
        described.append(
            QStringLiteral("%1 %2 %3").arg(property.param, property.unit).arg(property.type));
    EXPECT_EQ(described, (QStringList{QStringLiteral("规格  %1").arg(emVorDPM_VALUETYPE_STRING),
                                      QStringLiteral("k mm %1").arg(emVorDPM_VALUETYPE_DOUBLE),
                                      QStringLiteral("s mm %1").arg(emVorDPM_VALUETYPE_INT),
                                      QStringLiteral("l  %1").arg(emVorDPM_VALUETYPE_INT)}));
    QStringList names;
    for (const CVorDPM_DPD_Serial* row : definition.Rows()) {
        QString named;
        definition.AppendRowName(*row, named);
        names.append(named);
    }
    EXPECT_EQ(names, (QStringList{"全螺纹螺栓M6", "全螺纹螺栓M8", "全螺纹螺栓M10"}));

    // The same name again is refused, and the first definition is kept.
    FamilyCreate again(View::Library(QStringLiteral("QXMaterial")), file);
    ASSERT_TRUE(again.Plan(name, {}, FamilyProgress::None()));
    EXPECT_FALSE(again.Run(FamilyProgress::None()));
    EXPECT_EQ(View::Series(View::Definition(name)).size(), 3);
}

TEST_F(FamilyTableTest, AnIndependentReaderSeesTheExportedWorkbook) {
    const QString path = root.Home() + QStringLiteral("/nut.xlsx");
    const FamilyDefinition definition(View::Definition(kNut));
    FamilyProblem problem;
    ASSERT_TRUE(
        FamilyExport::Write(definition, path, FamilyExport::Xlsx, problem, FamilyProgress::None()));
    // Every cell as openpyxl reads it; numbers print as Python writes them ("6" for 6.0).
    const QString script = QStringLiteral(
        "import sys, openpyxl\n"
        "book = openpyxl.load_workbook(sys.argv[1])\n"
        "print(book.sheetnames[0])\n"
        "for row in book.active.iter_rows(values_only=True):\n"
        "    print(','.join('' if v is None else ('%g' % v if isinstance(v, float) else str(v))"
        " for v in row))\n");
    // Debian's interpreter, which has Debian's python3-openpyxl.
    QProcess python;
    python.start(QStringLiteral("/usr/bin/python3"), {QStringLiteral("-c"), script, path});
    ASSERT_TRUE(python.waitForFinished(60000));
    ASSERT_EQ(python.exitCode(), 0) << python.readAllStandardError().toStdString();
    QStringList lines = QString::fromUtf8(python.readAllStandardOutput()).split(u'\n');
    lines.removeAll(QString());
    ASSERT_FALSE(lines.isEmpty());
    EXPECT_EQ(lines.takeFirst(), kNut);
    QStringList expected;
    for (const QStringList& row : NutRows()) expected.append(row.join(u','));
    EXPECT_EQ(lines, expected);
}

}  // namespace
