// Loads the editor library at run time and binds its entry function by the decorated symbol
// name, which carries the full signature: a library built against another signature does not
// bind.
#pragma once

#include <QCoreApplication>
#include <QLibrary>
#include <QString>

#include "ExportVorDPMEditor.h"

class EditorLoader {
    Q_DECLARE_TR_FUNCTIONS(EditorLoader)

public:
    using Entry = decltype(&ExportVorDPMEditor);

    // The symbol the compiler gives the entry function as declared in the editor's header.
    static QByteArray EntrySymbol();
    // The library to load: `requested` when given, else $VORDPM_EDITOR, else the first that
    // exists of: next to the program, the installed library folder beside it, and the editor built
    // with the host.
    static QString Locate(const QString& requested);

    // False with a text for the user when the file is missing, cannot be loaded or does not
    // export the entry function.
    bool Load(const QString& path);
    Entry EntryFunction() const { return m_entry; }
    QString ErrorText() const { return m_error; }

private:
    bool Fail(const QString& error);

    QLibrary m_library;
    Entry m_entry = nullptr;
    QString m_error;
};
