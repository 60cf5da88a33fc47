// The real dialogs of the UI service, as a user sees them: looked at while open, then closed.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTimer>
#include <functional>

#include "CVorDPMDefaultUi.h"
#include "support/QtPrinters.h"

namespace {

// Runs `look` on the modal dialog that `show` opens, then rejects it.
void WhileOpen(const std::function<void()>& show, const std::function<void(QDialog&)>& look) {
    bool looked = false;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        look(*dialog);
        looked = true;
        dialog->reject();
    });
    show();
    EXPECT_TRUE(looked);
}

TEST(DefaultUi, MessageBoxesCarryTheEditorsCaptionUnlessTheyHaveOne) {
    CVorDPMDefaultUi ui;
    const std::pair<QString, QString> cases[] = {{QString(), QStringLiteral("产品库管理")},
                                                 {QStringLiteral("提示"), QStringLiteral("提示")}};
    for (const auto& [caption, title] : cases) {
        QString shown;
        WhileOpen([&] { ui.Ask(nullptr, QStringLiteral("失败!"), caption, QMessageBox::Ok); },
                  [&](QDialog& box) { shown = box.windowTitle(); });
        EXPECT_EQ(shown, title);
    }
}

TEST(DefaultUi, InputBoxesShowALongTextWholeAndSeveralLinesWhereAsked) {
    CVorDPMDefaultUi ui;
    QString text =
        QStringLiteral("用于石油化工装置的标准紧固件、法兰与阀门，按国家标准分级整理完毕");
    WhileOpen(
        [&] { ui.InputText(nullptr, QStringLiteral("描述"), QStringLiteral("请输入:"), text); },
        [&](QDialog& box) {
            auto* edit = box.findChild<QLineEdit*>();
            ASSERT_TRUE(edit);
            EXPECT_GE(edit->width(), edit->fontMetrics().horizontalAdvance(text));
        });
    WhileOpen(
        [&] { ui.InputLongText(nullptr, QStringLiteral("描述"), QStringLiteral("请输入:"), text); },
        [&](QDialog& box) {
            auto* edit = box.findChild<QPlainTextEdit*>();
            ASSERT_TRUE(edit);
            EXPECT_EQ(edit->toPlainText(), text);
        });
}

}  // namespace
