// The entry function: runs the main dialog modally with the host's callbacks, leaves nothing
// behind, and can be called again.
#include <QApplication>
#include <QTimer>
#include <tuple>

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

// The callbacks reach the data page only together with a draw callback; each run leaves no
// editor behind, so that the host can run it again.
TEST_F(EntryPoint, RunsTheEditorWithTheCallbacksAndDestroysItEachTime) {
    const Seen seen = RunEditor(&Draw, &Close, &Move);
    EXPECT_TRUE(seen.shown);
    EXPECT_EQ(seen.title, QStringLiteral("产品库管理"));
    EXPECT_EQ((std::tuple{seen.draw, seen.close, seen.move}), (std::tuple{&Draw, &Close, &Move}));
    EXPECT_EQ(OpenEditor(), nullptr);

    const Seen again = RunEditor(nullptr, &Close, &Move);
    EXPECT_TRUE(again.shown);
    EXPECT_EQ(again.close, nullptr);
    EXPECT_EQ(again.move, nullptr);
    EXPECT_EQ(OpenEditor(), nullptr);
}
