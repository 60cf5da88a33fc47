#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <optional>

#include "EditorLoader.h"
#include "support/StoreFileEdits.h"

namespace {

QString BuildFile(const QString& relative) {
    return qEnvironmentVariable("VORDPM_BUILD_DIR") + QLatin1Char('/') + relative;
}

// What the stand-in editor passed to the host's callbacks.
struct Calls {
    std::optional<QRect> drawRect;
    bool drawParent = false;
    QString requestId;
    QByteArray script;
    int paramIndex = -1;
    double value = 0;
    std::optional<QRect> moveRect;
    int closes = 0;
};
Calls calls;

void RecordDraw(QRect rect, QWidget* parent, const QString& requestId, const char* script,
                const std::map<QString, _struParam>& params,
                const std::map<int, tagVorDPM_Value>& values) {
    calls.drawRect = rect;
    calls.drawParent = parent != nullptr;
    calls.requestId = requestId;
    calls.script = script;
    calls.paramIndex = params.at(QStringLiteral("d")).index;
    calls.value = values.at(calls.paramIndex).doubleValue;
}
void RecordMove(QRect rect) {
    calls.moveRect = rect;
}
void RecordClose() {
    ++calls.closes;
}

}  // namespace

TEST(EditorLoader, BindsTheEntryOfALibraryBuiltFromTheEditorsHeader) {
    EditorLoader loader;
    ASSERT_TRUE(loader.Load(QStringLiteral(FAKE_EDITOR))) << loader.ErrorText().toStdString();
    ASSERT_NE(loader.EntryFunction(), nullptr);

    calls = {};
    loader.EntryFunction()(&RecordDraw, &RecordClose, &RecordMove);
    EXPECT_EQ(calls.drawRect, QRect(5, 6, 70, 80));
    EXPECT_TRUE(calls.drawParent);
    EXPECT_EQ(calls.requestId, QStringLiteral("request-1"));
    EXPECT_EQ(calls.script, QByteArray("circle(0, 0, d)"));
    EXPECT_EQ(calls.paramIndex, 0);
    EXPECT_DOUBLE_EQ(calls.value, 12.5);
    EXPECT_EQ(calls.moveRect, QRect(1, 2, 3, 4));
    EXPECT_EQ(calls.closes, 1);
}

TEST(EditorLoader, RefusesMissingUnloadableAndForeignLibrariesWithAMessage) {
    QTemporaryDir dir;
    const QString text = dir.filePath(QStringLiteral("libText.so"));
    Write(text, "not a shared library");

    struct Case {
        QString path;
        QString expected;  // a part of the message
    };
    const Case cases[] = {
        {dir.filePath(QStringLiteral("libVorDPMEditor.so")), QStringLiteral("找不到编辑器库")},
        {dir.path(), QStringLiteral("找不到编辑器库")},
        {text, QStringLiteral("无法加载编辑器库")},
        // The store library loads fine but has no entry function.
        {BuildFile(QStringLiteral("store/libVorDPM.so")), QStringLiteral("ExportVorDPMEditor")},
    };
    for (const Case& c : cases) {
        EditorLoader loader;
        EXPECT_FALSE(loader.Load(c.path)) << c.path.toStdString();
        EXPECT_EQ(loader.EntryFunction(), nullptr);
        EXPECT_TRUE(loader.ErrorText().contains(c.expected)) << loader.ErrorText().toStdString();
        EXPECT_TRUE(loader.ErrorText().contains(c.path)) << loader.ErrorText().toStdString();
    }
}

TEST(EditorLoader, LocatesTheRequestedLibraryThenTheEnvironmentsThenTheBuiltOne) {
    qputenv("VORDPM_EDITOR", "/from/environment.so");
    EXPECT_EQ(EditorLoader::Locate(QStringLiteral("/asked/for.so")),
              QStringLiteral("/asked/for.so"));
    EXPECT_EQ(EditorLoader::Locate(QString()), QStringLiteral("/from/environment.so"));
    qunsetenv("VORDPM_EDITOR");
    EXPECT_EQ(EditorLoader::Locate(QString()), BuildFile(QStringLiteral("libVorDPMEditor.so")));
}
