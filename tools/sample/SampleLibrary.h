// The sample library root that users first see: two libraries of real-world parts with
// catalogs, product definitions, pictures, preview scripts, templates and the common tables.
#pragma once

#include <QString>
#include <QStringList>

class SampleLibrary {
public:
    // Creates a realistic library root under `root` (made when missing) through the store;
    // `scale` (>= 1) multiplies products and series rows for benchmarks. False with a reason.
    // The root becomes the store's current (remembered) root. A root that already holds one of
    // the sample libraries or the platform template is refused before anything is written.
    static bool Create(const QString& root, int scale, QString& error);

    // The libraries the sample makes.
    static QStringList LibraryNames();
};
