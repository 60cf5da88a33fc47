// The library root of a benchmark. VORDPM_BENCH_ROOT names a folder kept between runs (writing
// a large library takes a while); without it a temporary folder is used. The user's settings
// are kept below the same folder. VORDPM_BENCH_SERVER_ROOT names a server root to run on instead,
// filled beforehand (by `vordpm copy-root` of a kept folder root, say).
#pragma once

#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <functional>

#include "BenchScratch.h"
#include "CVorDPMLibraryManager.h"
#include "CVorDPMManager.h"

class BenchLibraryRoot {
public:
    // Makes the folder `rootName` below the benchmark folder the store's library root.
    explicit BenchLibraryRoot(const QString& rootName) {
        const QString kept = qEnvironmentVariable("VORDPM_BENCH_ROOT");
        const QString home = kept.isEmpty() ? m_dir.path() : kept;
        BenchScratch::RedirectUserFolders(home);
        const QString server = qEnvironmentVariable("VORDPM_BENCH_SERVER_ROOT");
        CVorDPMManager::GetVorDPMManager()->SetDPMLibraryRootPath(
            server.isEmpty() ? home + QLatin1Char('/') + rootName : server);
    }

    // True when the root holds `library` already (written by an earlier run).
    static bool Has(const QString& library) {
        CVorDPMLibraryManager* manager = nullptr;
        CVorDPMManager::GetVorDPMManager()->GetLibrary(library, manager);
        return manager != nullptr;
    }

    // Copies the product file `source` of the library as the products `name(1)` to
    // `name(count - 1)`: far quicker than writing each through the store.
    static void CopyProductFile(const CVorDPMLibraryManager& library, const QString& source,
                                int count, const std::function<QString(int)>& name) {
        const QDir folder(library.GetFolder());
        const QString from = folder.filePath(source + QStringLiteral(".DPD"));
        for (int i = 1; i < count; ++i)
            QFile::copy(from, folder.filePath(name(i) + QStringLiteral(".DPD")));
    }

private:
    QTemporaryDir m_dir;
};
