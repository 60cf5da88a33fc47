// The strict test driver itself: what a test did not expect fails it, and the previously
// installed driver comes back when a driver goes away.
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <QDialog>

#include "CVorDPMUiService.h"
#include "support/CVorDPMScriptedUi.h"

namespace {

TEST(ScriptedUi, AnswersWhatWasExpectedInOrder) {
    CVorDPMScriptedUi ui;
    ui.ExpectMessage(QStringLiteral("删除吗?"), QMessageBox::Cancel);
    ui.ExpectInput(QStringLiteral("新名称"));
    ui.ExpectFile(QStringLiteral("/tmp/a.png"));
    ui.ExpectDialog([](QDialog*) { return QDialog::Accepted; });
    CVorDPMUiService* service = CVorDPMUiService::Instance();

    EXPECT_FALSE(service->Confirm(nullptr, QStringLiteral("删除吗?")));
    QString typed;
    EXPECT_TRUE(service->InputText(nullptr, QStringLiteral("名称"), {}, typed));
    EXPECT_EQ(typed.toStdString(), "新名称");
    EXPECT_EQ(service->OpenFileName(nullptr, {}, {}).toStdString(), "/tmp/a.png");
    QDialog nested;
    EXPECT_EQ(service->Exec(&nested), QDialog::Accepted);
    EXPECT_EQ(ui.inputTitles, QStringList{QStringLiteral("名称")});
}

struct Surprise {
    const char* what;
    std::function<void(CVorDPMScriptedUi&)> expect;
    std::function<void()> act;
    const char* failure;
};

TEST(ScriptedUi, FailsOnWhatTheTestDidNotExpect) {
    const auto message = [] { CVorDPMUiService::Instance()->ShowMessage(nullptr, "出错了"); };
    const Surprise cases[] = {
        {"unexpected message", [](CVorDPMScriptedUi&) {}, message,
         "unexpected message box: 出错了"},
        {"other text", [](CVorDPMScriptedUi& ui) { ui.ExpectMessage("别的"); }, message,
         "message box text"},
        {"input instead of a message", [](CVorDPMScriptedUi& ui) { ui.ExpectInput("x"); }, message,
         "expected a input box"},
        {"unused expectation", [](CVorDPMScriptedUi& ui) { ui.ExpectFile("/x"); }, [] {},
         "file dialog never shown"},
        {"unexpected dialog", [](CVorDPMScriptedUi&) {},
         [] {
             QDialog nested;
             CVorDPMUiService::Instance()->Exec(&nested);
         },
         "unexpected nested dialog: QDialog"},
    };
    for (const Surprise& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_NONFATAL_FAILURE(
            {
                CVorDPMScriptedUi ui;
                c.expect(ui);
                c.act();
            },
            c.failure);
    }
}

TEST(ScriptedUi, PutsThePreviousDriverBack) {
    CVorDPMScriptedUi outer;
    {
        CVorDPMScriptedUi inner;
        EXPECT_EQ(CVorDPMUiService::Instance(), &inner);
    }
    EXPECT_EQ(CVorDPMUiService::Instance(), &outer);
}

}  // namespace
