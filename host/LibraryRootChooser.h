// Chooses the library root the editor opens: the one asked for on the command line, else the
// one the store remembers (or VORDPM_ROOT names), else the default root, which gets the sample
// library on first run.
#pragma once

#include <QCoreApplication>
#include <QString>

class LibraryRootChooser {
    Q_DECLARE_TR_FUNCTIONS(LibraryRootChooser)

public:
    // False with a text for the user when the root cannot be used or the sample not made.
    static bool Choose(const QString& requested, QString& error);

private:
    static bool NeedsSample();
    static bool CreateSample(const QString& root, QString& error);
};
