// The entry function: runs the main dialog modally with the host's callbacks, leaves nothing
// behind, and can be called again.
#include <QApplication>
#include <QTimer>

#include "CVorDPMEditorDlg.h"
#include "EditorFixture.h"
#include "product/CDPMDataPage.h"

namespace {

void Draw(QRect, QWidget*, const QString&, const char*, const std::map<QString, _struParam>&,
          const std::map<int, tagVorDPM_Value>&) {}
void Close() {}
void Move(QRect) {}

struct Seen {
    bool shown = false;
    QString title;
    PreviewDrawCallback draw = nullptr;
    PreviewCloseCallback close = nullptr;
    PreviewMoveCallback move = nullptr;
};

CVorDPMEditorDlg* OpenEditor() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* editor = qobject_cast<CVorDPMEditorDlg*>(widget)) return editor;
    return nullptr;
}

// Runs the entry function; as soon as its dialog runs, notes what it holds and closes it.
Seen RunEditor(PreviewDrawCallback draw, PreviewCloseCallback close, PreviewMoveCallback move) {
    Seen seen;
    QTimer::singleShot(0, [&seen] {
        CVorDPMEditorDlg* editor = OpenEditor();
        if (!editor) return;
        seen.shown = editor->isVisible();
        seen.title = editor->windowTitle();
        seen.draw = editor->GetDataPage()->m_pPreviewDrawCallback;
        seen.close = editor->GetDataPage()->m_pPreviewCloseCallback;
        seen.move = editor->GetDataPage()->m_pPreviewMoveCallback;
        editor->reject();
    });
    ExportVorDPMEditor(draw, close, move);
    return seen;
}

}  // namespace

using EntryPoint = EditorFixture;

TEST_F(EntryPoint, RunsTheEditorWithTheCallbacksAndDestroysIt) {
    const Seen seen = RunEditor(&Draw, &Close, &Move);
    EXPECT_TRUE(seen.shown);
    EXPECT_EQ(seen.title, QStringLiteral("产品库管理"));
    EXPECT_EQ(seen.draw, &Draw);
    EXPECT_EQ(seen.close, &Close);
    EXPECT_EQ(seen.move, &Move);
    EXPECT_EQ(OpenEditor(), nullptr);
}

TEST_F(EntryPoint, WithoutADrawCallbackNoCallbackIsPassedOnAndItRunsAgain) {
    for (int run = 0; run < 2; ++run) {
        const Seen seen = RunEditor(nullptr, &Close, &Move);
        EXPECT_TRUE(seen.shown) << run;
        EXPECT_EQ(seen.close, nullptr) << run;
        EXPECT_EQ(seen.move, nullptr) << run;
        EXPECT_EQ(OpenEditor(), nullptr) << run;
    }
}
