// The reference host's real preview callbacks behind the script editor: every script of the
// sample library is drawn into the dialog, and broken scripts show why in the preview area.
#include <QImage>
#include <QUuid>

#include "HostPreview.h"
#include "ScriptEditDriver.h"
#include "ScriptEditFixture.h"

#ifdef VORDPM_HAVE_SAMPLE
#include "sample/SampleLibrary.h"
#endif

namespace {

// Pixels inside the area's border that are not the white background: what the drawing or the
// message put there.
int InkIn(QWidget* preview) {
    const QImage image = preview->grab().toImage();
    int ink = 0;
    for (int y = 2; y < image.height() - 2; ++y)
        for (int x = 2; x < image.width() - 2; ++x) ink += image.pixel(x, y) != qRgb(255, 255, 255);
    return ink;
}

std::unique_ptr<CVorDPMScriptEdit> OpenWithHost(CVorDPMDPD* dpd, CVorDPM_DPD_Shape* shape) {
    auto dialog = std::make_unique<CVorDPMScriptEdit>(dpd, shape, &HostPreview::Draw,
                                                      &HostPreview::Close, &HostPreview::Move);
    dialog->show();
    return dialog;
}

// The preview the host shows in `dialog` after the preview button, painted once its script
// ended (a script that takes longer than the host waits ends from the event loop).
PreviewWidget* PressPreview(CVorDPMScriptEdit* dialog) {
    GuiTestBase::Click(dialog, CVorDPMScriptEdit::IDC_PREVIEW);
    PreviewWidget* preview = HostPreview::Current();
    EXPECT_NE(preview, nullptr);
    if (!preview) return nullptr;
    EXPECT_TRUE(QTest::qWaitFor([&] { return !preview->IsRunning(); }, 3000));
    EXPECT_EQ(preview->parentWidget(), dialog);
    EXPECT_TRUE(preview->isVisible());
    EXPECT_EQ(preview->geometry(), dialog->PreviewRect());
    return preview;
}

class HostPreviewDialogTest : public ScriptEditFixture {
protected:
    void TearDown() override { HostPreview::Close(); }
};

#ifdef VORDPM_HAVE_SAMPLE
class SamplePreviewTest : public GuiTestBase {
protected:
    void TearDown() override { HostPreview::Close(); }
};

TEST_F(SamplePreviewTest, EverySampleScriptIsDrawnIntoTheDialog) {
    QString error;
    ASSERT_TRUE(SampleLibrary::Create(root.Path(), 1, error)) << error.toStdString();
    int drawn = 0;
    for (const QString& libraryName : SampleLibrary::LibraryNames()) {
        QStringList names;
        Library(libraryName)->GetAllDPDName(names);
        for (const QString& name : names) {
            CVorDPMDPD* sample = nullptr;
            ASSERT_EQ(Library(libraryName)->GetDPD(name, sample), VOR::eOk);
            CKZList<CVorDPM_DPD_Shape*> shapes;
            sample->GetAllShape(shapes);
            for (CVorDPM_DPD_Shape* sampleShape : shapes) {
                SCOPED_TRACE((name + '/' + sampleShape->GetName()).toStdString());
                auto dialog = OpenWithHost(sample, sampleShape);
                PreviewWidget* preview = PressPreview(dialog.get());
                ASSERT_NE(preview, nullptr);
                EXPECT_TRUE(preview->Message().isEmpty()) << preview->Message().toStdString();
                EXPECT_GT(InkIn(preview), 50);
                ++drawn;
            }
        }
    }
    EXPECT_GE(drawn, 11);
}
#endif

TEST_F(HostPreviewDialogTest, BrokenScriptsShowWhyWithTheirLine) {
    const struct {
        const char* script;
        QString starts;
        QString contains;
    } cases[] = {
        {"x = 1\nline(0, 0", "脚本错误：", ":2:"},
        {"line(0, 0, l, d)\ncircle(0, 0, mat * 2)", "脚本错误：", ":2:"},
        {"while true do end", "脚本运行时间过长，已停止。", ""},
        {"os.exit(1)", "脚本错误：", ":1:"},
        {"local t = {}\nwhile true do t[#t + 1] = {} end", "脚本", ""},
        {"x = 1", "脚本没有绘制任何图形。", ""},
    };
    auto dialog = OpenWithHost(dpd, shape);
    const ScriptEditDriver driver(dialog.get());
    for (const auto& c : cases) {
        SCOPED_TRACE(c.script);
        ScriptEditDriver::Retype(driver.ScriptText(), QString::fromUtf8(c.script));
        PreviewWidget* preview = PressPreview(dialog.get());
        ASSERT_NE(preview, nullptr);
        EXPECT_TRUE(preview->Message().startsWith(c.starts)) << preview->Message().toStdString();
        EXPECT_TRUE(preview->Message().contains(c.contains)) << preview->Message().toStdString();
        EXPECT_GT(InkIn(preview), 20);  // the text is painted
    }
    // The editor carries on: a good script draws again in the same area.
    ScriptEditDriver::Retype(driver.ScriptText(), QStringLiteral("rect(0, 0, l, d)"));
    PreviewWidget* preview = PressPreview(dialog.get());
    ASSERT_NE(preview, nullptr);
    EXPECT_TRUE(preview->Message().isEmpty()) << preview->Message().toStdString();
    EXPECT_EQ(dialog->findChildren<PreviewWidget*>().size(), 1);
}

TEST_F(HostPreviewDialogTest, ANewerPreviewReplacesTheOlderFollowsResizesAndGoesWithTheDialog) {
    auto dialog = OpenWithHost(dpd, shape);
    PreviewWidget* first = PressPreview(dialog.get());
    ASSERT_NE(first, nullptr);
    const QString firstKey = first->objectName();
    EXPECT_FALSE(QUuid::fromString(firstKey).isNull()) << firstKey.toStdString();
    PreviewWidget* second = PressPreview(dialog.get());
    EXPECT_EQ(dialog->findChildren<PreviewWidget*>().size(), 1);
    EXPECT_NE(second->objectName(), firstKey);

    dialog->resize(dialog->width() + 200, dialog->height() + 100);
    EXPECT_EQ(HostPreview::Current()->geometry(), dialog->PreviewRect());
    EXPECT_GT(InkIn(HostPreview::Current()), 50);

    dialog.reset();
    EXPECT_EQ(HostPreview::Current(), nullptr);
}

}  // namespace
