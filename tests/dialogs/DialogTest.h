// Fixture of the dialog tests: a fresh library root, the strict scripted UI driver, and helpers
// that make libraries and catalogs on disk.
#pragma once

#include <QStringList>

#include "support/GuiTestBase.h"

class DialogTest : public GuiTestBase {
protected:
    // Creates the libraries and saves them, then drops what was loaded so that the dialogs
    // read the store from disk.
    void CreateLibraries(const QStringList& names) {
        for (const QString& name : names) MakeLibrary(name);
        SaveAndReopen();
    }

    static void CreateCatalog(const QString& library, const QString& name) {
        CVorDPMLibraryManager* manager = Library(library);
        ASSERT_TRUE(manager) << library.toStdString();
        MakeCatalog(manager, name);
    }

    static QStringList LibraryNames() {
        QStringList names;
        Manager()->GetAllLibraryName(names);
        return names;
    }
};
