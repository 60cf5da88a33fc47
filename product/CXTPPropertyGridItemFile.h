// A property grid item whose value is a file path, with an in-place button that opens a
// file-open dialog for pictures (or any file).
#pragma once

#include "CVorDPMPropertyGridItem.h"

class CXTPPropertyGridItemFile : public CVorDPMPropertyGridItem {
public:
    explicit CXTPPropertyGridItemFile(const QString& caption, const QString& path = QString());

    // The dialog's file types: pictures first, then everything.
    static QString Filter();

    // Asks for a file, starting on the current value; a chosen path becomes the value and is
    // reported as an edit.
    void OnInplaceButtonDown() override;
};
