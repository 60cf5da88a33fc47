#include "CXTPPropertyGridItemFile.h"

#include <QCoreApplication>

#include "CVorDPMPropertyGrid.h"
#include "CVorDPMUiService.h"

CXTPPropertyGridItemFile::CXTPPropertyGridItemFile(const QString& caption, const QString& path)
    : CVorDPMPropertyGridItem(File, caption, path) {
    SetHasButton(true);
}

QString CXTPPropertyGridItemFile::Filter() {
    return QCoreApplication::translate("CXTPPropertyGridItemFile",
                                       "image Files (*.bmp *.jpg);;All Files (*)");
}

void CXTPPropertyGridItemFile::OnInplaceButtonDown() {
    // The UI service's open dialog takes no start file; it opens where the platform chooses.
    const QString path = CVorDPMUiService::Instance()->OpenFileName(Grid(), QString(), Filter());
    if (!path.isEmpty()) ChangeValue(path);
}
