// The common run of the programs that take the README's pictures: a scratch home, the
// application and a fresh sample library root; then a window is grabbed once it has settled.
#pragma once

#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>

#include "BenchScratch.h"
#include "sample/SampleLibrary.h"

class BenchScreenshot {
public:
    // Reads the picture's file name from the command line and makes the sample library; on
    // failure says why on the standard error and Status() is the program's exit code.
    BenchScreenshot(int& argc, char** argv, const char* program) {
        BenchScratch::RedirectUserFolders(m_scratch.path());
        m_application = std::make_unique<QApplication>(argc, argv);
        if (argc < 2) {
            qCritical("usage: %s FILE.png", program);
            m_status = 2;
            return;
        }
        m_file = QString::fromLocal8Bit(argv[1]);
        QString error;
        if (SampleLibrary::Create(m_scratch.path() + QStringLiteral("/root"), 1, error)) return;
        qCritical("sample library: %s", qPrintable(error));
        m_status = 1;
    }

    // 0 while all went well so far.
    int Status() const { return m_status; }

    // Lets `window` settle, runs `before` (when given), lets it settle again, saves its picture
    // and closes it; returns the program's exit code.
    int Grab(QWidget& window, const std::function<void()>& before = {}) {
        m_status = 1;
        QTimer::singleShot(kSettleMs, &window, [&, before] {
            if (before) before();
            QTimer::singleShot(kSettleMs, &window, [&] {
                m_status = window.grab().save(m_file) ? 0 : 1;
                if (m_status) qCritical("cannot write %s", qPrintable(m_file));
                window.close();
                m_application->quit();
            });
        });
        m_application->exec();
        return m_status;
    }

private:
    static constexpr int kSettleMs = 500;

    QTemporaryDir m_scratch;
    std::unique_ptr<QApplication> m_application;
    QString m_file;
    int m_status = 0;
};
