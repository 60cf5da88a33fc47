#include <QFileInfo>
#include <QListWidget>

#include "DialogTest.h"
#include "catalog/CVorDPMDeletLibDlg.h"

namespace {

const QString kConfirm = QStringLiteral("确实要把选择的所有产品库放入回收站吗?");

struct RemoveCase {
    const char* what;
    QString goneBefore;  // removed behind the dialog's back after it opened
    QList<int> clicks;   // rows clicked before each press of "移除", -1 separating presses
    QMessageBox::StandardButton answer;
    QStringList messages, removed, listed;
};

TEST_F(DialogTest, LibraryRemovalMovesTheChosenLibrariesToTheTrash) {
    const RemoveCase cases[] = {
        // Chosen bottom-up; removal follows the list's order.
        {"two", {}, {2, 0}, QMessageBox::Ok, {kConfirm}, {"Alpha", "Gamma"}, {"Beta"}},
        {"cancelled", {}, {1}, QMessageBox::Cancel, {kConfirm}, {}, {"Alpha", "Beta", "Gamma"}},
        {"none chosen",
         {},
         {},
         QMessageBox::Ok,
         {"请选择需要删除的项!", kConfirm},
         {},
         {"Alpha", "Beta", "Gamma"}},
        // The store's refusal is not reported and the name still counts as removed.
        {"gone", "Beta", {1, 2}, QMessageBox::Ok, {kConfirm}, {"Beta", "Gamma"}, {"Alpha"}},
        {"twice",
         {},
         {1, -1, 0},
         QMessageBox::Ok,
         {kConfirm, kConfirm},
         {"Beta", "Alpha"},
         {"Gamma"}},
    };
    for (const RemoveCase& c : cases) {
        SCOPED_TRACE(c.what);
        TempRoot fresh;
        ui.ExpectMessages(c.messages, c.answer);
        CreateLibraries({QStringLiteral("Alpha"), QStringLiteral("Beta"), QStringLiteral("Gamma")});
        CreateCatalog(QStringLiteral("Alpha"), QStringLiteral("目录"));
        CVorDPMDeletLibDlg dialog;
        dialog.show();
        auto* list = Control<QListWidget>(&dialog, CVorDPMDeletLibDlg::IDC_LIBRARY_LIST);
        if (!c.goneBefore.isEmpty()) Manager()->RemoveLibrary(c.goneBefore);
        for (int row : c.clicks) {
            if (row < 0) {
                Click(&dialog, CVorDPMDeletLibDlg::IDC_REMOVE);
                continue;
            }
            ClickCell(list, row);
        }
        Click(&dialog, CVorDPMDeletLibDlg::IDC_REMOVE);

        ui.VerifyAllUsed();
        EXPECT_EQ(dialog.GetRemovedLibraries(), c.removed);
        QStringList listed;
        for (int row = 0; row < list->count(); ++row) listed.append(list->item(row)->text());
        EXPECT_EQ(listed, c.listed);
        EXPECT_EQ(LibraryNames(), c.listed);
        // Every removed folder went whole to the trash of the test's data folder.
        const QString trash = fresh.Home() + QStringLiteral("/data/Trash/files/");
        for (const QString& name : c.removed) {
            EXPECT_TRUE(QFileInfo(trash + name + "/library.DPI").isFile()) << name.toStdString();
        }
        const QString catalog = QStringLiteral("Alpha/目录.DPC");
        EXPECT_TRUE(
            QFileInfo(c.listed.contains("Alpha") ? fresh.File(catalog) : trash + catalog).isFile());

        Click(&dialog, VorDPMControlId::IDOK);
        EXPECT_TRUE(Accepted(dialog));
    }
}

}  // namespace
