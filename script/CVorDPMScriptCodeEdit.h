// The text field of a preview script: a plain text edit with a monospace font, a tab width of
// four characters, line numbers in a margin and syntax highlighting of the host's Lua. What it
// holds stays plain text: toPlainText() is exactly what the user typed. Tab indents; Ctrl+Tab
// and Ctrl+Shift+Tab move on to the next or previous control.
#pragma once

#include <QPlainTextEdit>

class CVorDPMLineNumberArea;

class CVorDPMScriptCodeEdit : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit CVorDPMScriptCodeEdit(QWidget* parent = nullptr);

    // Width of the line-number margin for the current number of lines.
    int LineNumberAreaWidth() const;
    // Paints the numbers of the lines that are visible; called by the margin.
    void PaintLineNumbers(QPaintEvent* event);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void UpdateMarginWidth();
    void ScrollMargin(const QRect& rect, int dy);
    void ApplyTabWidth();

    CVorDPMLineNumberArea* m_lineNumbers;
};
