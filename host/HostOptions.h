// The host's command line.
#pragma once

#include <QString>
#include <QStringList>

struct HostOptions {
    QString root;        // --root DIR
    QString editor;      // --editor PATH
    QString screenshot;  // --screenshot FILE: save the editor's window as PNG, then close it
    bool measureStartup = false;  // --measure-startup: print the time to the window, then close

    // Unattended runs close the editor themselves and must not wait for a person.
    bool Unattended() const { return measureStartup || !screenshot.isEmpty(); }

    // Exits with a usage text on unknown options, as command-line programs do.
    static HostOptions Parse(const QStringList& arguments);
};
