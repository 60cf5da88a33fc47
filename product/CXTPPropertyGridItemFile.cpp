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

// The dialog starts on the item's current value.
void CXTPPropertyGridItemFile::OnInplaceButtonDown() {
    const QString path =
        CVorDPMUiService::Instance()->OpenFileName(Grid(), QString(), Filter(), GetValue());
    if (!path.isEmpty()) ChangeValue(path);
}
