// The generator draws picture captions with fonts, which need a QGuiApplication as in the
// hosts and the command-line tool; one runs for the whole test program.
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <memory>

namespace {

class SampleGuiEnvironment : public ::testing::Environment {
public:
    void SetUp() override {
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        static int argc = 1;
        static char name[] = "sample_tests";
        static char* argv[] = {name, nullptr};
        m_app = std::make_unique<QGuiApplication>(argc, argv);
    }
    void TearDown() override { m_app.reset(); }

private:
    std::unique_ptr<QGuiApplication> m_app;
};

[[maybe_unused]] const auto* const kEnvironment =
    ::testing::AddGlobalTestEnvironment(new SampleGuiEnvironment);

}  // namespace
