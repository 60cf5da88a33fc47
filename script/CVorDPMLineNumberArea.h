// The margin left of a script's text that shows its line numbers; the text edit paints it.
#pragma once

#include <QWidget>

class CVorDPMScriptCodeEdit;

class CVorDPMLineNumberArea : public QWidget {
    Q_OBJECT

public:
    explicit CVorDPMLineNumberArea(CVorDPMScriptCodeEdit* edit);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    CVorDPMScriptCodeEdit* m_edit;
};
