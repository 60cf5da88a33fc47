// Colours a preview script as the host's Lua reads it: keywords, the host's drawing calls,
// numbers, strings and comments, including long strings and comments over several lines.
#pragma once

#include <QSyntaxHighlighter>
#include <QTextCharFormat>

class CVorDPMLuaHighlighter : public QSyntaxHighlighter {
    Q_OBJECT

public:
    enum Kind { Keyword, DrawingCall, Number, String, Comment };

    explicit CVorDPMLuaHighlighter(QTextDocument* document);

    // The format each kind of token is shown in.
    static QTextCharFormat Format(Kind kind);

protected:
    void highlightBlock(const QString& text) override;

private:
    // The block states: -1 outside a long bracket, otherwise the open bracket's level (number of
    // "=") times two, plus one inside a comment.
    static int LongBracketState(int level, bool comment) { return level * 2 + (comment ? 1 : 0); }
    // Formats from `from` to the end of a long bracket of `level`; returns the position after
    // it, or -1 when the bracket goes on past this line (the block state then says so).
    int FinishLongBracket(const QString& text, int from, int level, bool comment);
    int HighlightQuoted(const QString& text, int start);
    int HighlightNumber(const QString& text, int start);
    int HighlightWord(const QString& text, int start);
};
