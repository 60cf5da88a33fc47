// A stand-in for the editor library, built from the editor's own header: it calls the three
// preview callbacks once each, as the script editor does, so that a test can see that the host
// binds the entry function and that the arguments arrive intact.
#include <QWidget>

#include "ExportVorDPMEditor.h"

void ExportVorDPMEditor(PreviewDrawCallback draw, PreviewCloseCallback close,
                        PreviewMoveCallback move) {
    QWidget window;
    const std::map<QString, _struParam> params{{QStringLiteral("d"), {0, 0}}};
    std::map<int, tagVorDPM_Value> values;
    values[0] = 12.5;
    if (draw)
        draw(QRect(5, 6, 70, 80), &window, QStringLiteral("request-1"), "circle(0, 0, d)", params,
             values);
    if (move) move(QRect(1, 2, 3, 4));
    if (close) close();
}
