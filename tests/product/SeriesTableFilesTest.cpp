// The series table's "导入…" and "导出…" in the create-product dialog, against the definition on
// disk: the exported file read back, an import previewed, applied and read from disk again, and
// files or states that are refused without a change.
#include <QCheckBox>
#include <QFileInfo>
#include <QTableView>

#include "FamilyFileReader.h"
#include "FamilyProgress.h"
#include "product/CVorDPMSeriesTableFiles.h"
#include "product/CVorDPMTableImportDlg.h"
#include "product/CVorDPMTableImportModel.h"
#include "product/ProductTestBase.h"
#include "support/StoreFileEdits.h"

namespace {

using Files = CVorDPMSeriesTableFiles;
using Preview = CVorDPMTableImportDlg;

const QString kHeader = QStringLiteral("产品名称,产品,形体,图片,L\n");

struct SeriesTableFilesTest : CreateProductDlgTestBase {
    void SetUp() override {
        CreateProductDlgTestBase::SetUp();
        // Rows named by their length, so that the product-name column keys them.
        dialog.reset();
        for (auto* product : VorDPMDefinitionTables::LiveRows<CVorDPM_DPD_Product>(m_dpd))
            product->SetNameRule(QStringLiteral("螺栓%L"));
        ASSERT_EQ(Manager()->SaveWork(), 1);
        OpenDialog();
    }

    void Press(const char* name) const {
        auto* button = dialog->findChild<QToolButton*>(QLatin1String(name));
        ASSERT_TRUE(button) << name;
        QTest::mouseClick(button, Qt::LeftButton);
    }
};

// The file is written in the format its name asks for, and reads back as the table it came from.
TEST_F(SeriesTableFilesTest, ExportWritesTheTableInTheFormatOfTheName) {
    for (const char* name : {"螺栓.csv", "螺栓.xlsx", "螺栓"}) {
        SCOPED_TRACE(name);
        const QString path = root.Home() + QLatin1Char('/') + QString::fromUtf8(name);
        ui.ExpectFile(path);
        Press(Files::kExportName);
        const QString written = QFileInfo(path).suffix().isEmpty() ? path + ".csv" : path;
        FamilyFile file;
        FamilyProblem problem;
        ASSERT_TRUE(FamilyFileReader::Read(written, file, problem, FamilyProgress::None()))
            << problem.Message().toStdString();
        EXPECT_EQ(file.format == FamilyFile::Workbook, written.endsWith(".xlsx"));
        ASSERT_EQ(file.sheet.RowCount(), 3);
        EXPECT_EQ(file.sheet.Cell(0, 4).toString(), "L");
        EXPECT_EQ(file.sheet.Cell(1, 0).toString(), QStringLiteral("螺栓20"));
        EXPECT_EQ(file.sheet.Cell(2, 1).toString(), "M6");
        EXPECT_EQ(file.sheet.Cell(2, 4).toString(), "30");
    }
}

// The preview shows the changed cell, the added row and the kept row; "导入" writes them to disk
// and the panel's series table shows them.
TEST_F(SeriesTableFilesTest, ImportShowsTheDiffAndAppliedChangesReachTheDisk) {
    const QString path =
        root.Write("changed.csv", (kHeader + QStringLiteral("螺栓20,M6,外形,正视图,25\n"
                                                            "螺栓40,M8,外形,正视图,40\n"))
                                      .toUtf8());
    ui.ExpectFile(path);
    ui.ExpectDialog(Filling([](QDialog* preview) {
        EXPECT_EQ(preview->objectName(), QLatin1String(Preview::kDialogName));
        auto* model = static_cast<Preview*>(preview)->GetModel();
        ASSERT_EQ(model->rowCount(), 3);
        const auto text = [model](int row, int column) {
            return model->index(row, column).data().toString();
        };
        EXPECT_EQ(text(0, 0), QStringLiteral("修改"));
        EXPECT_EQ(text(0, 2), QStringLiteral("L: 20 → 25"));
        EXPECT_EQ(text(1, 0), QStringLiteral("新增"));
        EXPECT_EQ(text(1, 2), QStringLiteral("L: 40"));
        EXPECT_EQ(text(2, 0), QStringLiteral("保留 (文件中没有)"));
        // Ticking "remove" compares again: the row the file lacks goes.
        preview->findChild<QCheckBox*>(QLatin1String(Preview::kRemoveName))->setChecked(true);
        EXPECT_EQ(text(2, 0), QStringLiteral("删除 (文件中没有)"));
        QTest::mouseClick(preview->findChild<QPushButton*>(QLatin1String(Preview::kApplyName)),
                          Qt::LeftButton);
    }));
    Press(Files::kImportName);

    EXPECT_EQ(SeriesList()->GetItemCount(), 2);
    EXPECT_FALSE(dialog->findChild<QWidget*>(QLatin1String(Preview::kDialogName)));
    // The panel shows the rows; it goes before the store drops them to read the file again.
    dialog.reset();
    Reload();
    EXPECT_EQ(Lengths(), QStringList({"25", "40"}));
}

// Nothing is written, and the preview is not offered, for a file that cannot be imported; the
// message names the place. While the panel has unsaved edits no file is even asked for.
TEST_F(SeriesTableFilesTest, RefusedImportsChangeNothing) {
    const QByteArray before = ReadAll(m_dpd->GetDPDFullPath());
    const QString duplicate = root.Write(
        "dup.csv",
        (kHeader + QStringLiteral("螺栓20,M6,外形,正视图,25\n螺栓20,M6,外形,正视图,26\n"))
            .toUtf8());
    ui.ExpectFile(duplicate);
    ui.ExpectMessage(QStringLiteral("第 3 行第 1 列: 关键值与第 2 行相同: 螺栓20"));
    Press(Files::kImportName);
    const QString misfit =
        root.Write("misfit.csv", (kHeader + QStringLiteral("螺栓20,M9,外形,正视图,25\n")).toUtf8());
    ui.ExpectFile(misfit);
    ui.ExpectDialog(Filling([](QDialog* preview) {
        EXPECT_FALSE(
            preview->findChild<QPushButton*>(QLatin1String(Preview::kApplyName))->isEnabled());
    }));
    Press(Files::kImportName);

    AddProductRecord(dialog.get(), QStringLiteral("M10"), ui);
    ui.ExpectMessage(QStringLiteral("产品有未保存的修改。请先按\"保存继续\"保存, 再导入表格。"));
    Press(Files::kImportName);
    EXPECT_EQ(ReadAll(m_dpd->GetDPDFullPath()), before);
}

}  // namespace
