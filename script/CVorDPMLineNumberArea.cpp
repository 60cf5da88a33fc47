#include "CVorDPMLineNumberArea.h"

#include "script/CVorDPMScriptCodeEdit.h"

CVorDPMLineNumberArea::CVorDPMLineNumberArea(CVorDPMScriptCodeEdit* edit)
    : QWidget(edit), m_edit(edit) {}

QSize CVorDPMLineNumberArea::sizeHint() const {
    return QSize(m_edit->LineNumberAreaWidth(), 0);
}

void CVorDPMLineNumberArea::paintEvent(QPaintEvent* event) {
    m_edit->PaintLineNumbers(event);
}
