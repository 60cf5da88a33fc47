// Frame of the resizable dialogs, chosen when they are constructed.
#pragma once

#include <QDialog>

namespace VorDPMDialogFrame {

// Gives the dialog the caption, system menu, minimise and maximise boxes before its window
// exists. The dialog base asks for the same frame when the dialog is first shown; changing the
// flags of a window that is already shown would hide it again, and with the frame already in
// place that request changes nothing.
inline void Prepare(QDialog* dialog) {
    dialog->setWindowFlags(dialog->windowFlags() | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                           Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint);
}

}  // namespace VorDPMDialogFrame
