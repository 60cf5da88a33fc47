#include <QPlainTextEdit>

#include "ScriptEditDriver.h"
#include "ScriptEditFixture.h"
#include "script/CVorDPMNewScriptDlg.h"
#include "support/StoreFileEdits.h"

namespace {

class NewScriptDlgTest : public ScriptEditFixture {
protected:
    static void Fill(QDialog* dialog, const QString& name, const QString& description,
                     const QString& script) {
        Type(dialog, CVorDPMNewScriptDlg::IDC_NAME, name);
        Type(dialog, CVorDPMNewScriptDlg::IDC_DESCRIPTION, description);
        ScriptEditDriver::Retype(
            Control<QPlainTextEdit>(dialog, CVorDPMNewScriptDlg::IDC_SCRIPT_TEXT), script);
    }

    QList<CVorDPM_DPD_Dps*> Scripts() const {
        CKZList<CVorDPM_DPD_Dps*> all;
        dpd->GetAllDps(all);
        return QList<CVorDPM_DPD_Dps*>(all.begin(), all.end());
    }
};

TEST_F(NewScriptDlgTest, OkAddsTheScriptAsTypedEvenWithEmptyFields) {
    struct Case {
        QString name, description, script;
    };
    const Case cases[] = {
        {"螺母", "六角螺母 GB/T 6170", "-- 外形\npolygon{0, 0, s, 0, s, m}\ntext(0, 0, \"M\")"},
        {"", "", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name.toStdString());
        const int before = static_cast<int>(Scripts().size());
        CVorDPMNewScriptDlg dialog(dpd);
        dialog.show();
        Fill(&dialog, c.name, c.description, c.script);
        Click(&dialog, VorDPMControlId::IDOK);
        EXPECT_TRUE(Accepted(dialog));
        EXPECT_EQ(dialog.GetScript(), c.script);

        SaveAndReopen();
        Load();
        const QList<CVorDPM_DPD_Dps*> scripts = Scripts();
        ASSERT_EQ(scripts.size(), before + 1);
        EXPECT_EQ(scripts.last()->GetName(), c.name);
        EXPECT_EQ(scripts.last()->GetDescription(), c.description);
        EXPECT_EQ(scripts.last()->GetContent().Bytes(), c.script.toUtf8());
    }
}

// Cancel, and OK without a definition to add to, close the dialog and change nothing.
TEST_F(NewScriptDlgTest, CancelOrNoDefinitionAddsNothing) {
    const struct {
        bool withDefinition;
        int button;
        QDialog::DialogCode result;
    } cases[] = {
        {true, VorDPMControlId::IDCANCEL, QDialog::Rejected},
        {false, VorDPMControlId::IDOK, QDialog::Accepted},
    };
    for (const auto& c : cases) {
        CVorDPMNewScriptDlg dialog(c.withDefinition ? dpd : nullptr);
        dialog.show();
        Fill(&dialog, "螺母", "", "line(0, 0, 1, 1)");
        Click(&dialog, c.button);
        EXPECT_FALSE(dialog.isVisible());
        EXPECT_EQ(dialog.result(), c.result) << c.withDefinition;
        EXPECT_EQ(Scripts().size(), 2);
        EXPECT_FALSE(Manager()->HasUnsavedChanges());
    }
}

// A definition whose file broke after it was listed refuses the new script: the user is told,
// the dialog still closes with OK, and the script editor over it stays usable.
TEST_F(NewScriptDlgTest, AFailedAddSaysSoAndStillClosesWithOk) {
    const QString path = dpd->GetDPDFullPath();
    Reopen();
    Write(path, "not a product definition");
    ASSERT_EQ(Library(QStringLiteral("QXMaterial"))->GetDPD(QStringLiteral("六角头螺栓"), dpd),
              VOR::eOk);
    CVorDPMScriptEdit editor(dpd, nullptr, &RecordDraw, &RecordClose, &RecordMove);
    editor.show();
    const ScriptEditDriver driver(&editor);
    EXPECT_TRUE(driver.ListNames().isEmpty());
    EXPECT_EQ(driver.Report()->GetRecords()->GetRecordCount(), 0);

    ui.ExpectDialog(Filling([this](QDialog* nested) {
        ui.ExpectMessage(QStringLiteral("添加失败！"));
        Fill(nested, "螺母", "", "line(0, 0, 1, 1)");
        Click(nested, VorDPMControlId::IDOK);
        EXPECT_TRUE(Accepted(*static_cast<QDialog*>(nested)));
    }));
    Click(&editor, CVorDPMScriptEdit::IDC_NEW_SCRIPT);
    EXPECT_EQ(ui.captions, QStringList({""}));
    EXPECT_TRUE(driver.ListNames().isEmpty());
    Click(&editor, CVorDPMScriptEdit::IDC_PREVIEW);
    ASSERT_EQ(Host().draws.size(), 1u);
    EXPECT_TRUE(Host().draws[0].params.empty());
}

}  // namespace
