#include "CVorDPMScriptCodeEdit.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QPainter>
#include <QTextBlock>

#include "script/CVorDPMLineNumberArea.h"
#include "script/CVorDPMLuaHighlighter.h"

namespace {

constexpr int kTabWidthInCharacters = 4;
constexpr int kMarginPadding = 6;

}  // namespace

CVorDPMScriptCodeEdit::CVorDPMScriptCodeEdit(QWidget* parent)
    : QPlainTextEdit(parent), m_lineNumbers(new CVorDPMLineNumberArea(this)) {
    // The document owns the highlighter.
    new CVorDPMLuaHighlighter(document());
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    // Long lines scroll sideways rather than wrap, so that line numbers stay one per line.
    setLineWrapMode(QPlainTextEdit::NoWrap);
    ApplyTabWidth();
    connect(this, &QPlainTextEdit::blockCountChanged, this,
            &CVorDPMScriptCodeEdit::UpdateMarginWidth);
    connect(this, &QPlainTextEdit::updateRequest, this, &CVorDPMScriptCodeEdit::ScrollMargin);
    UpdateMarginWidth();
}

int CVorDPMScriptCodeEdit::LineNumberAreaWidth() const {
    const int digits = QString::number(qMax(1, blockCount())).size();
    return 2 * kMarginPadding + fontMetrics().horizontalAdvance(QLatin1Char('9')) * digits;
}

void CVorDPMScriptCodeEdit::UpdateMarginWidth() {
    setViewportMargins(LineNumberAreaWidth(), 0, 0, 0);
}

void CVorDPMScriptCodeEdit::ScrollMargin(const QRect& rect, int dy) {
    if (dy)
        m_lineNumbers->scroll(0, dy);
    else
        m_lineNumbers->update(0, rect.y(), m_lineNumbers->width(), rect.height());
    if (rect.contains(viewport()->rect())) UpdateMarginWidth();
}

void CVorDPMScriptCodeEdit::ApplyTabWidth() {
    setTabStopDistance(fontMetrics().horizontalAdvance(QLatin1Char(' ')) * kTabWidthInCharacters);
}

void CVorDPMScriptCodeEdit::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    const QRect area = contentsRect();
    m_lineNumbers->setGeometry(
        QRect(area.left(), area.top(), LineNumberAreaWidth(), area.height()));
}

void CVorDPMScriptCodeEdit::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() != QEvent::FontChange) return;
    ApplyTabWidth();
    UpdateMarginWidth();
}

void CVorDPMScriptCodeEdit::keyPressEvent(QKeyEvent* event) {
    const bool tab = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
    if (!tab || !(event->modifiers() & Qt::ControlModifier)) {
        QPlainTextEdit::keyPressEvent(event);
        return;
    }
    // QPlainTextEdit keeps the focus while Tab inserts text; the widget's own move is wanted here.
    QWidget::focusNextPrevChild(event->key() == Qt::Key_Tab &&
                                !(event->modifiers() & Qt::ShiftModifier));
}

void CVorDPMScriptCodeEdit::PaintLineNumbers(QPaintEvent* event) {
    QPainter painter(m_lineNumbers);
    painter.fillRect(event->rect(), palette().color(QPalette::AlternateBase));
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const int width = m_lineNumbers->width() - kMarginPadding;
    QTextBlock block = firstVisibleBlock();
    int top = qRound(blockBoundingGeometry(block).translated(contentOffset()).top());
    while (block.isValid() && top <= event->rect().bottom()) {
        const int height = qRound(blockBoundingRect(block).height());
        if (block.isVisible() && top + height >= event->rect().top()) {
            painter.drawText(0, top, width, fontMetrics().height(), Qt::AlignRight,
                             QString::number(block.blockNumber() + 1));
        }
        top += height;
        block = block.next();
    }
}
