#include "VorDPMFileKinds.h"

namespace {

const QString kTemplatesFolder = QStringLiteral("templates");

}  // namespace

QString VorDPMFileKinds::LibraryInfoName() {
    return QStringLiteral("library");
}

QString VorDPMFileKinds::Extension(quint32 kind) {
    switch (kind) {
        case kLibraryInfo:
            return QStringLiteral(".DPI");
        case kCatalog:
            return QStringLiteral(".DPC");
        case kDefinition:
            return QStringLiteral(".DPD");
        case kTemplate:
            return QStringLiteral(".DPT");
        default:
            return QStringLiteral(".DPO");
    }
}

QString VorDPMFileKinds::Folder(const QString& library, quint32 kind) {
    if (kind != kTemplate) return library;
    return library.isEmpty() ? kTemplatesFolder : library + QLatin1Char('/') + kTemplatesFolder;
}

QString VorDPMFileKinds::RelativePath(const QString& library, quint32 kind, const QString& name) {
    const QString folder = Folder(library, kind);
    const QString file = name + Extension(kind);
    return folder.isEmpty() ? file : folder + QLatin1Char('/') + file;
}
