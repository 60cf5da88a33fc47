// The editor's option "显示全部产品库": off (the default), the trees built from the fixed list
// show "QXMaterial" and "QXMEP"; on, every library of the root in the store's order. The main
// dialog's check box switches it and the editor remembers it.
#include <QCheckBox>
#include <QDir>
#include <QFile>

#include "CVorDPMEditorSettings.h"
#include "CVorDPMManager.h"
#include "CVorDPMTreeCtrlEx.h"
#include "EditorFixture.h"
#include "catalog/CVorDPMAddRef.h"
#include "common/CVorDPMNewLibraryDlg.h"
#include "common/CVorDPMSetLibRoot.h"
#include "library/CDPMlibraryPage.h"
#include "product/CDPMDataPage.h"
#include "product/CVorDPMNewProductDlg.h"
#include "template/CVorDPMEditTemplateDlg.h"
#include "template/CVorDPMNewTemplateDlg.h"
#include "template/CVorDPMSaveAsTemplateDlg.h"
#include "template/VorDPMDeleteTemplateDlg.h"

namespace {

const QStringList kFixed{"QXMaterial", "QXMEP"};
// The fixture's libraries in the store's order (names sorted without regard to case).
const QStringList kAll{"Other", "QXMaterial"};

class LibraryList : public EditorFixture {
protected:
    QCheckBox* ShowAll() {
        return Dialog().findChild<QCheckBox*>(CVorDPMEditorDlg::kShowAllLibrariesName);
    }

    // Closes the editor and opens it again on the store as it is on disk, as a new run does.
    void Restart() {
        dialog.reset();
        Reopen();
    }

    void NewLibrary(const QString& name) {
        ui.ExpectDialog(Filling([name](QDialog* nested) {
            Type(nested, CVorDPMNewLibraryDlg::IDC_LIBRARY_NAME, name);
            Click(nested, VorDPMControlId::IDOK);
        }));
        ASSERT_TRUE(TriggerMenuBar("产品库", "新建产品库"));
    }
};

TEST_F(LibraryList, TheCheckBoxSwitchesTheTreeKeepsTheSelectionAndIsRemembered) {
    ASSERT_TRUE(ShowAll());
    EXPECT_EQ(ShowAll()->text(), QStringLiteral("显示全部产品库"));
    EXPECT_FALSE(ShowAll()->isChecked());
    EXPECT_EQ(RootTexts(), kFixed);
    Click(Node("QXMaterial", "管道"));

    QTest::mouseClick(ShowAll(), Qt::LeftButton);
    EXPECT_EQ(RootTexts(), kAll);
    EXPECT_EQ(ChildTexts(Node("Other")), QStringList{"X"});
    EXPECT_EQ(Dialog().GetTreeCtrl()->currentItem(), Node("QXMaterial", "管道"));
    EXPECT_EQ(Dialog().GetCurrentPath(), QStringLiteral("QXMaterial/管道"));
    Click(Node("Other", "X"));
    EXPECT_EQ(Dialog().GetLibraryPage()->GetCurrentPath(), QStringLiteral("Other/X"));
    Restart();
    EXPECT_TRUE(ShowAll()->isChecked());
    EXPECT_EQ(RootTexts(), kAll);

    // "Other" is not listed any more: the first library is selected instead.
    Click(Node("Other", "X"));
    QTest::mouseClick(ShowAll(), Qt::LeftButton);
    EXPECT_EQ(RootTexts(), kFixed);
    EXPECT_EQ(Dialog().GetCurrentPath(), QStringLiteral("QXMaterial"));
    Restart();
    EXPECT_FALSE(ShowAll()->isChecked());
    EXPECT_EQ(RootTexts(), kFixed);
}

TEST_F(LibraryList, ANewLibraryIsStillListedAfterARestartOnlyWithEveryLibraryShown) {
    NewLibrary(QStringLiteral("电气"));
    EXPECT_EQ(RootTexts(), (QStringList{"QXMaterial", "QXMEP", "电气"}));
    Restart();
    EXPECT_EQ(RootTexts(), kFixed);

    CVorDPMEditorSettings::SetShowAllLibraries(true);
    Restart();
    EXPECT_EQ(RootTexts(), (QStringList{"Other", "QXMaterial", "电气"}));
    NewLibrary(QStringLiteral("暖通"));
    EXPECT_EQ(RootTexts(), (QStringList{"Other", "QXMaterial", "电气", "暖通"}));
    Restart();
    EXPECT_EQ(RootTexts(), (QStringList{"Other", "QXMaterial", "暖通", "电气"}));
}

// A new root rebuilds the tree and selects its first library: the fixed names with the option
// off, the root's own libraries with it on. A root without libraries leaves an empty tree and
// empty pages: the pages must not keep showing what the old root held.
TEST_F(LibraryList, ANewRootRebuildsTheTreeFromItsOwnLibraries) {
    Click(Node("QXMaterial", "目录"));
    const struct {
        bool all;
        const char* folder;
        QStringList libraries;
        QStringList roots;
        const char* path;
    } roots[] = {{false, "second", {"QXMaterial"}, kFixed, "QXMaterial"},
                 {true, "third", {"甲"}, {"甲"}, "甲"},
                 {true, "empty", {}, {}, ""}};
    for (const auto& c : roots) {
        SCOPED_TRACE(c.folder);
        if (ShowAll()->isChecked() != c.all) QTest::mouseClick(ShowAll(), Qt::LeftButton);
        const QString folder = root.Home() + QLatin1Char('/') + QString::fromUtf8(c.folder);
        ASSERT_TRUE(QDir().mkpath(folder));
        for (const QString& library : c.libraries) {
            ASSERT_TRUE(QDir().mkpath(folder + "/" + library));
            ASSERT_TRUE(QFile::copy(root.File("Other/library.DPI"),
                                    folder + "/" + library + "/library.DPI"));
        }
        ui.ExpectDialog(Filling([folder](QDialog* nested) {
            Type(nested, CVorDPMSetLibRoot::IDC_ROOT_PATH, folder);
            Click(nested, VorDPMControlId::IDOK);
        }));
        ASSERT_TRUE(TriggerMenuBar("产品库", "产品库根路径"));
        EXPECT_TRUE(CVorDPMManager::GetVorDPMManager()->GetDPMLibraryRootPath().startsWith(folder));
        EXPECT_EQ(RootTexts(), c.roots);
        const QString path = QString::fromUtf8(c.path);
        EXPECT_EQ(Dialog().GetLibraryPage()->GetCurrentPath(), path);
        if (c.roots.isEmpty()) continue;
        EXPECT_TRUE(ChildTexts(Node(path)).isEmpty());
        EXPECT_EQ(Dialog().GetTreeCtrl()->currentItem(), Node(path));
        EXPECT_EQ(Dialog().GetDataPage()->GetCurrentPath(), path);
    }
}

// The add-reference tree follows the option; the template and product dialogs list every
// library of the root whatever it is.
TEST_F(LibraryList, EveryOtherListOfLibrariesFollowsTheOption) {
    const struct {
        const char* what;
        std::function<std::unique_ptr<QDialog>()> open;
        bool followsOption;
    } places[] = {
        {"add reference", [] { return std::make_unique<CVorDPMAddRef>("QXMaterial", "目录"); },
         true},
        {"new template",
         [] { return std::make_unique<CVorDPMNewTemplateDlg>(nullptr, nullptr, nullptr); }, false},
        {"edit template",
         [] { return std::make_unique<CVorDPMEditTemplateDlg>(nullptr, nullptr, nullptr); }, false},
        {"delete template", [] { return std::make_unique<VorDPMDeleteTemplateDlg>(); }, false},
        {"new product",
         [] {
             return std::make_unique<CVorDPMNewProductDlg>("QXMaterial", "QXMaterial/目录", nullptr,
                                                           nullptr, nullptr);
         },
         false},
        {"save as template", [] { return std::make_unique<CVorDPMSaveAsTemplateDlg>(); }, false},
    };
    for (const bool all : {false, true}) {
        CVorDPMEditorSettings::SetShowAllLibraries(all);
        for (const auto& place : places) {
            SCOPED_TRACE(std::string(place.what) + (all ? ", all" : ", fixed"));
            const std::unique_ptr<QDialog> dialog = place.open();
            dialog->show();
            QStringList shown = TopTexts(*dialog->findChild<CVorDPMTreeCtrlEx*>());
            shown.removeAll(QStringLiteral("平台模板"));
            EXPECT_EQ(shown, place.followsOption && !all ? kFixed : kAll);
        }
    }
}

}  // namespace
