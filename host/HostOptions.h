// The host's command line.
#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>

struct HostOptions {
    QString root;        // --root DIR
    QString editor;      // --editor PATH
    QString screenshot;  // --screenshot FILE: save the editor's window as PNG, then close it
    QString language;    // --lang en|zh: the language instead of the locale's; empty: the locale's
    // --measure-startup: print the time to the painted window, then close it
    bool measureStartup = false;
    // --all-libraries: the editor's trees list every library of the root (its option, which it
    // remembers; without the flag the remembered choice stands)
    bool allLibraries = false;

    // Unattended runs close the editor themselves and must not wait for a person.
    bool Unattended() const { return measureStartup || !screenshot.isEmpty(); }

    // True when the command line asks only for the help or the version text, which the host
    // prints without a display.
    static bool OnlyPrints(int argc, const char* const* argv);

    // The locale --lang names; without --lang the default locale (the system's).
    QLocale Locale() const;

    // Exits with a usage text on unknown options or values, as command-line programs do; prints
    // the version and exits on --version.
    static HostOptions Parse(const QStringList& arguments);
};
