#include <QUuid>

#include "ScriptEditDriver.h"
#include "ScriptEditFixture.h"
#include "script/CVorDPMNewScriptDlg.h"

namespace {

const QString kDesign = QStringLiteral("Design Parameters");
const QString kComponent = QStringLiteral("Component parameters");
const QString kUnknown = QStringLiteral("Unkonw Parameters");

class ScriptEditTest : public ScriptEditFixture {};

TEST_F(ScriptEditTest, OpensOnTheShapesScriptWithTheParametersOfTheDefinition) {
    auto dialog = Open();
    const ScriptEditDriver driver(dialog.get());
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("参数化脚本编辑器"));
    EXPECT_EQ(driver.ListNames(), QStringList({"螺栓", "垫圈"}));
    EXPECT_EQ(driver.List()->GetSelectedRow(), 1);
    EXPECT_EQ(dialog->GetSelectedScriptIndex(), 1);
    EXPECT_EQ(driver.Name()->text(), QStringLiteral("垫圈"));
    EXPECT_EQ(driver.Description()->toPlainText(), QStringLiteral("平垫圈"));
    EXPECT_EQ(driver.ScriptText()->toPlainText(), QStringLiteral("circle(0, 0, d)"));

    CVorDPMReportCtrlBase* report = driver.Report();
    EXPECT_EQ(report->GetRecords()->GetColumnHeads(),
              QStringList({"脚本参数", "类型", "顺序", "测试值"}));
    // `orphan` names no common property and is not offered.
    EXPECT_EQ(driver.ReportColumn(0), QStringList({"l", "d", "mat"}));
    EXPECT_EQ(driver.ReportColumn(1), QStringList({kComponent, kDesign, kUnknown}));
    EXPECT_EQ(driver.ReportColumn(2), QStringList({"0", "1", "-1"}));
    EXPECT_EQ(driver.ReportColumn(3), QStringList({"50", "12.5", "Q235"}));
    const CVorDPMReportModel* rows = report->GetRecords();
    EXPECT_EQ(report->GetRecordItemData(rows->GetRecord(0), 3), quint64(emVorDPM_VALUETYPE_INT));
    EXPECT_EQ(report->GetRecordItemData(rows->GetRecord(1), 3), quint64(emVorDPM_VALUETYPE_DOUBLE));
    EXPECT_EQ(report->GetRecordItemData(rows->GetRecord(2), 3), quint64(emVorDPM_VALUETYPE_STRING));
}

TEST_F(ScriptEditTest, PreviewSendsTheEditedTextTheMapsAndAFreshKeyForEachRun) {
    auto dialog = Open();
    const ScriptEditDriver driver(dialog.get());
    const QString edited = QStringLiteral("-- 垫圈\nline(0, 0, l, d)\ntext(0, 0, mat)");
    ScriptEditDriver::Retype(driver.ScriptText(), edited);
    driver.EditCell(0, 3, QStringLiteral("80"));
    driver.EditCell(1, 3, QStringLiteral("16.25"));
    driver.EditCell(2, 2, QStringLiteral("2"));
    driver.EditCell(2, 3, QStringLiteral("钢 Q345"));
    driver.EditCell(2, 1, kComponent);

    // Return ended each edit without pressing OK.
    ASSERT_TRUE(dialog->isVisible());
    Click(dialog.get(), CVorDPMScriptEdit::IDC_PREVIEW);
    Click(dialog.get(), CVorDPMScriptEdit::IDC_PREVIEW);

    ASSERT_EQ(Host().draws.size(), 2u);
    const HostCalls::Draw& draw = Host().draws[0];
    const QWidget* area = Control<QWidget>(dialog.get(), CVorDPMScriptEdit::IDC_PREVIEW_AREA);
    EXPECT_EQ(draw.rect, QRect(area->mapTo(dialog.get(), QPoint(0, 0)), area->size()));
    EXPECT_TRUE(dialog->rect().contains(draw.rect));
    EXPECT_FALSE(draw.rect.isEmpty());
    EXPECT_EQ(draw.window, dialog.get());
    EXPECT_EQ(draw.script, edited.toUtf8());
    const std::map<QString, _struParam> params = {{"l", {1, 0}}, {"d", {0, 1}}, {"mat", {1, 2}}};
    EXPECT_EQ(draw.params, params);
    const std::map<int, tagVorDPM_Value> values = {
        {0, Value(80)}, {1, Value(16.25)}, {2, Value(QStringLiteral("钢 Q345"))}};
    EXPECT_EQ(draw.values, values);

    EXPECT_FALSE(QUuid::fromString(draw.key).isNull()) << draw.key.toStdString();
    EXPECT_NE(Host().draws[1].key, draw.key);
    EXPECT_EQ(Host().draws[1].script, draw.script);
    // Previewing writes nothing: the stored script is unchanged.
    EXPECT_EQ(Script(washerId)->GetContent().Bytes(), QByteArray("circle(0, 0, d)"));
}

TEST_F(ScriptEditTest, ThePreviewMapsKeepTheFirstOfARepeatedNameOrOrderAndLeaveOutNegativeOrders) {
    // A second property named d and one named x on the order of l.
    CVorDPMDPOProperty* common = Manager()->GetCommonManager()->GetPropertyDPO();
    CKZList<CVorDPM_DPOPROPERTY_Content*> standards;
    common->GetAllContent(standards);
    for (const char* param : {"d", "x"}) {
        CVorDPM_DPD_Property* property =
            AddProperty(dpd, QString::fromUtf8(param), QString::fromUtf8(param) + "-second");
        property->SetPropertyId(standards.GetAt(0)->GetObjectId());
        property->SetDefValue(QStringLiteral("7"));
    }
    auto dialog = Open();
    const ScriptEditDriver driver(dialog.get());
    ASSERT_EQ(driver.ReportColumn(0), QStringList({"l", "d", "mat", "d", "x"}));
    driver.EditCell(4, 2, QStringLiteral("0"));  // x on l's order
    driver.EditCell(3, 2, QStringLiteral("3"));  // d again, on an order of its own
    ASSERT_EQ(driver.ReportColumn(2), QStringList({"0", "1", "-1", "3", "0"}));
    Click(dialog.get(), CVorDPMScriptEdit::IDC_PREVIEW);

    ASSERT_EQ(Host().draws.size(), 1u);
    const std::map<QString, _struParam> params = {{"l", {1, 0}}, {"d", {0, 1}}, {"x", {-1, 0}}};
    EXPECT_EQ(Host().draws[0].params, params);
    // mat (order -1) is left out; order 3 came with the second d, whose name was taken.
    const std::map<int, tagVorDPM_Value> values = {{0, Value(50)}, {1, Value(12.5)}, {3, Value(7)}};
    EXPECT_EQ(Host().draws[0].values, values);
}

TEST_F(ScriptEditTest, OkWritesTheSettingsOfEveryParameterInNameOrder) {
    auto dialog = Open();
    const ScriptEditDriver driver(dialog.get());
    driver.ClickRow(0);
    driver.EditCell(0, 2, QStringLiteral("-5"));
    driver.EditCell(1, 1, kComponent);
    Click(dialog.get(), VorDPMControlId::IDOK);

    EXPECT_TRUE(Accepted(*dialog));
    EXPECT_EQ(dialog->GetChosenScriptId(), boltId);
    // mat keeps its unknown category (-1) and order; l's negative order is written as typed.
    EXPECT_EQ(shape->GetParam(), QStringLiteral("d,l,mat"));
    EXPECT_EQ(shape->GetParamType(), QStringLiteral("1,1,-1"));
    EXPECT_EQ(shape->GetParamIndex(), QStringLiteral("1,-5,-1"));
    // The script id is the caller's to store.
    EXPECT_EQ(shape->GetDPSId(), washerId);

    SaveAndReopen();
    Load();
    EXPECT_EQ(shape->GetParam(), QStringLiteral("d,l,mat"));
    EXPECT_EQ(shape->GetParamType(), QStringLiteral("1,1,-1"));
    EXPECT_EQ(shape->GetParamIndex(), QStringLiteral("1,-5,-1"));
    // Opened again, the unknown category shows as such.
    auto again = Open();
    EXPECT_EQ(ScriptEditDriver(again.get()).ReportColumn(1),
              QStringList({kComponent, kComponent, kUnknown}));
}

TEST_F(ScriptEditTest, OkOrdersNamesByTheirCharactersAndKeepsTheFirstOfARepeatedName) {
    CVorDPMDPOProperty* common = Manager()->GetCommonManager()->GetPropertyDPO();
    CKZList<CVorDPM_DPOPROPERTY_Content*> standards;
    common->GetAllContent(standards);
    for (const char* param : {"长", "D", "l"}) {
        CVorDPM_DPD_Property* property =
            AddProperty(dpd, QString::fromUtf8(param), QString::fromUtf8(param) + "-2");
        property->SetPropertyId(standards.GetAt(0)->GetObjectId());
    }
    auto dialog = Open();
    const ScriptEditDriver driver(dialog.get());
    driver.EditCell(5, 2, QStringLiteral("9"));  // the second l
    Click(dialog.get(), VorDPMControlId::IDOK);
    EXPECT_EQ(shape->GetParam(), QStringLiteral("D,d,l,mat,长"));
    EXPECT_EQ(shape->GetParamIndex(), QStringLiteral("-1,1,0,-1,-1"));
}

TEST_F(ScriptEditTest, CancelWritesNoParameterSettings) {
    auto dialog = Open();
    const ScriptEditDriver driver(dialog.get());
    driver.EditCell(0, 2, QStringLiteral("7"));
    Click(dialog.get(), VorDPMControlId::IDCANCEL);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_EQ(shape->GetParam(), QStringLiteral("d,l"));
    EXPECT_EQ(shape->GetParamIndex(), QStringLiteral("1,0"));
    EXPECT_FALSE(Manager()->HasUnsavedChanges());
}

TEST_F(ScriptEditTest, AShapeWhoseScriptIsGoneOpensWithoutSelectionAndOkAsksForOne) {
    shape->SetDPSId(4711);
    auto dialog = Open();
    const ScriptEditDriver driver(dialog.get());
    EXPECT_EQ(driver.ListNames(), QStringList({"螺栓", "垫圈"}));
    EXPECT_EQ(driver.List()->GetSelectedRow(), -1);
    EXPECT_EQ(dialog->GetSelectedScriptIndex(), -1);
    EXPECT_TRUE(driver.ScriptText()->toPlainText().isEmpty());

    ui.ExpectMessage(QStringLiteral("请选择脚本"));
    Click(dialog.get(), VorDPMControlId::IDOK);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(shape->GetParam(), QStringLiteral("d,l"));

    ui.ExpectMessage(QStringLiteral("请选择需要保存的脚本"));
    Click(dialog.get(), CVorDPMScriptEdit::IDC_SAVE_SCRIPT);
    EXPECT_EQ(ui.captions, QStringList({"", ""}));
}

TEST_F(ScriptEditTest, AClickedScriptIsShownAndSaveWritesWhatWasTyped) {
    auto dialog = Open();
    const ScriptEditDriver driver(dialog.get());
    driver.ClickRow(0);
    EXPECT_EQ(dialog->GetSelectedScriptIndex(), 0);
    EXPECT_EQ(driver.Name()->text(), QStringLiteral("螺栓"));
    EXPECT_EQ(driver.Description()->toPlainText(), QStringLiteral("六角头"));
    EXPECT_EQ(driver.ScriptText()->toPlainText(), QStringLiteral("line(0, 0, l, d)"));
    Type(dialog.get(), CVorDPMScriptEdit::IDC_NAME, QStringLiteral("螺栓 GB/T 5782"));
    ScriptEditDriver::Retype(driver.Description(), QStringLiteral("第一行\n第二行"));
    const QString text = QStringLiteral("-- 六角头\nrect(0, 0, l, d)");
    ScriptEditDriver::Retype(driver.ScriptText(), text);
    Click(dialog.get(), CVorDPMScriptEdit::IDC_SAVE_SCRIPT);

    EXPECT_EQ(driver.ListNames(), QStringList({"螺栓 GB/T 5782", "垫圈"}));
    SaveAndReopen();
    Load();
    CVorDPM_DPD_Dps* saved = Script(boltId);
    ASSERT_NE(saved, nullptr);
    EXPECT_EQ(saved->GetName(), QStringLiteral("螺栓 GB/T 5782"));
    EXPECT_EQ(saved->GetDescription(), QStringLiteral("第一行\n第二行"));
    EXPECT_EQ(saved->GetContent().Bytes(), text.toUtf8());
    EXPECT_EQ(Script(washerId)->GetContent().Bytes(), QByteArray("circle(0, 0, d)"));
}

TEST_F(ScriptEditTest, DeleteMarksTheScriptDeletedWithoutAskingAndRefillsTheList) {
    auto dialog = Open();
    const ScriptEditDriver driver(dialog.get());
    driver.ClickRow(0);
    Click(dialog.get(), CVorDPMScriptEdit::IDC_DELETE_SCRIPT);
    EXPECT_EQ(driver.ListNames(), QStringList({"垫圈"}));
    // The shape's own script is selected again.
    EXPECT_EQ(dialog->GetSelectedScriptIndex(), 0);
    EXPECT_EQ(driver.Name()->text(), QStringLiteral("垫圈"));

    // Deleting the shape's script leaves nothing selected.
    Click(dialog.get(), CVorDPMScriptEdit::IDC_DELETE_SCRIPT);
    EXPECT_TRUE(driver.ListNames().isEmpty());
    EXPECT_EQ(dialog->GetSelectedScriptIndex(), -1);
    EXPECT_TRUE(driver.Name()->text().isEmpty());
    ui.ExpectMessage(QStringLiteral("请选择脚本"));
    Click(dialog.get(), CVorDPMScriptEdit::IDC_DELETE_SCRIPT);

    Click(dialog.get(), VorDPMControlId::IDCANCEL);
    SaveAndReopen();
    Load();
    CKZList<CVorDPM_DPD_Dps*> left;
    dpd->GetAllDps(left);
    EXPECT_EQ(left.GetCount(), 0);
}

TEST_F(ScriptEditTest, NewScriptRunsTheNewScriptDialogAndRefillsTheListWhateverItReturns) {
    auto dialog = Open();
    const ScriptEditDriver driver(dialog.get());
    ui.ExpectDialog([](QDialog* nested) { return nested->result(); });  // closed unused
    Click(dialog.get(), CVorDPMScriptEdit::IDC_NEW_SCRIPT);
    EXPECT_EQ(driver.ListNames(), QStringList({"螺栓", "垫圈"}));

    ui.ExpectDialog(Filling([](QDialog* nested) {
        Type(nested, CVorDPMNewScriptDlg::IDC_NAME, QStringLiteral("螺母"));
        Type(nested, CVorDPMNewScriptDlg::IDC_DESCRIPTION, QStringLiteral("六角螺母"));
        ScriptEditDriver::Retype(
            Control<QPlainTextEdit>(nested, CVorDPMNewScriptDlg::IDC_SCRIPT_TEXT),
            QStringLiteral("polygon{0, 0, s, 0, s, m}"));
        Click(nested, VorDPMControlId::IDOK);
    }));
    Click(dialog.get(), CVorDPMScriptEdit::IDC_NEW_SCRIPT);
    EXPECT_EQ(ui.dialogClasses, QStringList({"CVorDPMNewScriptDlg", "CVorDPMNewScriptDlg"}));
    EXPECT_EQ(driver.ListNames(), QStringList({"螺栓", "垫圈", "螺母"}));
    // Filling selects the shape's script again.
    EXPECT_EQ(dialog->GetSelectedScriptIndex(), 1);

    driver.ClickRow(2);
    EXPECT_EQ(driver.ScriptText()->toPlainText(), QStringLiteral("polygon{0, 0, s, 0, s, m}"));
}

TEST_F(ScriptEditTest, TheHostFollowsEveryResizeAndIsToldWhenTheDialogGoesAway) {
    auto dialog = Open();
    Host().moves.clear();
    dialog->resize(dialog->width() + 120, dialog->height() + 80);
    ASSERT_FALSE(Host().moves.empty());
    EXPECT_EQ(Host().moves.back(), dialog->PreviewRect());
    const QWidget* area = Control<QWidget>(dialog.get(), CVorDPMScriptEdit::IDC_PREVIEW_AREA);
    EXPECT_EQ(Host().moves.back(), area->geometry());
    EXPECT_EQ(Host().closes, 0);
    Click(dialog.get(), VorDPMControlId::IDCANCEL);
    EXPECT_EQ(Host().closes, 0);
    dialog.reset();
    EXPECT_EQ(Host().closes, 1);
}

TEST_F(ScriptEditTest, WithoutCallbacksTheEditorWorksAndCallsNothing) {
    auto dialog = Open(false);
    dialog->resize(dialog->width() + 50, dialog->height());
    Click(dialog.get(), CVorDPMScriptEdit::IDC_PREVIEW);
    Click(dialog.get(), VorDPMControlId::IDOK);
    EXPECT_TRUE(Accepted(*dialog));
    dialog.reset();
    EXPECT_TRUE(Host().draws.empty());
    EXPECT_TRUE(Host().moves.empty());
    EXPECT_EQ(Host().closes, 0);
}

TEST_F(ScriptEditTest, BytesThatAreNotUtf8AreShownReplacedAndStayStoredUntilSaved) {
    const QByteArray broken("line(0, 0, 1, 1) -- \xff\xfe\n");
    Script(washerId)->SetContent(CBinaryData(broken));
    SaveAndReopen();
    Load();
    auto dialog = Open();
    const ScriptEditDriver driver(dialog.get());
    EXPECT_TRUE(driver.ScriptText()->toPlainText().startsWith(QStringLiteral("line(0, 0, 1, 1)")));
    EXPECT_TRUE(driver.ScriptText()->toPlainText().contains(QChar::ReplacementCharacter));
    Click(dialog.get(), CVorDPMScriptEdit::IDC_PREVIEW);
    ASSERT_EQ(Host().draws.size(), 1u);
    EXPECT_TRUE(Host().draws[0].script.startsWith("line(0, 0, 1, 1)"));
    Click(dialog.get(), VorDPMControlId::IDOK);
    EXPECT_EQ(Script(washerId)->GetContent().Bytes(), broken);
}

TEST_F(ScriptEditTest, WithoutDefinitionOrShapeNothingIsOffered) {
    CVorDPMScriptEdit dialog(nullptr, nullptr, &RecordDraw, &RecordClose, &RecordMove);
    dialog.show();
    const ScriptEditDriver driver(&dialog);
    EXPECT_TRUE(driver.ListNames().isEmpty());
    EXPECT_EQ(driver.Report()->GetRecords()->GetRecordCount(), 0);
    ui.ExpectMessage(QStringLiteral("请选择脚本"));
    Click(&dialog, VorDPMControlId::IDOK);
}

}  // namespace
