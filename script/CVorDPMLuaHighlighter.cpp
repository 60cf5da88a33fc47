#include "CVorDPMLuaHighlighter.h"

#include <QSet>

namespace {

const QSet<QString>& Keywords() {
    static const QSet<QString> words = {
        QStringLiteral("and"),   QStringLiteral("break"),  QStringLiteral("do"),
        QStringLiteral("else"),  QStringLiteral("elseif"), QStringLiteral("end"),
        QStringLiteral("false"), QStringLiteral("for"),    QStringLiteral("function"),
        QStringLiteral("goto"),  QStringLiteral("if"),     QStringLiteral("in"),
        QStringLiteral("local"), QStringLiteral("nil"),    QStringLiteral("not"),
        QStringLiteral("or"),    QStringLiteral("repeat"), QStringLiteral("return"),
        QStringLiteral("then"),  QStringLiteral("true"),   QStringLiteral("until"),
        QStringLiteral("while"),
    };
    return words;
}

// The host's drawing calls.
const QSet<QString>& DrawingCalls() {
    static const QSet<QString> calls = {
        QStringLiteral("line"), QStringLiteral("rect"),     QStringLiteral("circle"),
        QStringLiteral("arc"),  QStringLiteral("polyline"), QStringLiteral("polygon"),
        QStringLiteral("text"),
    };
    return calls;
}

QChar At(const QString& text, int i) {
    return i < text.size() ? text[i] : QChar();
}

bool IsWordStart(QChar c) {
    return c.isLetter() || c == QLatin1Char('_');
}

bool IsWordPart(QChar c) {
    return c.isLetterOrNumber() || c == QLatin1Char('_');
}

bool IsDigit(QChar c) {
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

// The level of a long bracket "[", "=" * level, "[" opening at `pos`, or -1 when none opens.
int OpeningLevel(const QString& text, int pos) {
    if (At(text, pos) != QLatin1Char('[')) return -1;
    int level = 0;
    while (At(text, pos + 1 + level) == QLatin1Char('=')) ++level;
    return At(text, pos + 1 + level) == QLatin1Char('[') ? level : -1;
}

// The position right after the closing bracket of `level` found from `from`, or -1.
int ClosingEnd(const QString& text, int from, int level) {
    const QString close = QLatin1Char(']') + QString(level, QLatin1Char('=')) + QLatin1Char(']');
    const int found = static_cast<int>(text.indexOf(close, from));
    return found < 0 ? -1 : found + static_cast<int>(close.size());
}

}  // namespace

CVorDPMLuaHighlighter::CVorDPMLuaHighlighter(QTextDocument* document)
    : QSyntaxHighlighter(document) {}

QTextCharFormat CVorDPMLuaHighlighter::Format(Kind kind) {
    QTextCharFormat format;
    switch (kind) {
        case Keyword:
            format.setForeground(QColor(0x00, 0x00, 0xA0));
            format.setFontWeight(QFont::Bold);
            break;
        case DrawingCall:
            format.setForeground(QColor(0x80, 0x00, 0x80));
            format.setFontWeight(QFont::Bold);
            break;
        case Number:
            format.setForeground(QColor(0x00, 0x70, 0x70));
            break;
        case String:
            format.setForeground(QColor(0xA0, 0x40, 0x00));
            break;
        case Comment:
            format.setForeground(QColor(0x60, 0x80, 0x60));
            format.setFontItalic(true);
            break;
    }
    return format;
}

void CVorDPMLuaHighlighter::highlightBlock(const QString& text) {
    setCurrentBlockState(-1);
    int i = 0;
    const int carried = previousBlockState();
    if (carried >= 0) {
        i = FinishLongBracket(text, 0, carried / 2, carried % 2 == 1);
        if (i < 0) return;
    }
    while (i < text.size()) {
        const QChar c = text[i];
        if (c == QLatin1Char('-') && At(text, i + 1) == QLatin1Char('-')) {
            const int level = OpeningLevel(text, i + 2);
            if (level < 0) {
                setFormat(i, static_cast<int>(text.size()) - i, Format(Comment));
                return;
            }
            setFormat(i, 2, Format(Comment));
            i = FinishLongBracket(text, i + 2, level, true);
        } else if (OpeningLevel(text, i) >= 0) {
            i = FinishLongBracket(text, i, OpeningLevel(text, i), false);
        } else if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
            i = HighlightQuoted(text, i);
        } else if (IsDigit(c) || (c == QLatin1Char('.') && IsDigit(At(text, i + 1)))) {
            i = HighlightNumber(text, i);
        } else if (IsWordStart(c)) {
            i = HighlightWord(text, i);
        } else {
            ++i;
        }
        if (i < 0) return;
    }
}

int CVorDPMLuaHighlighter::FinishLongBracket(const QString& text, int from, int level,
                                             bool comment) {
    const QTextCharFormat format = Format(comment ? Comment : String);
    const int end = ClosingEnd(text, from, level);
    if (end < 0) {
        setFormat(from, static_cast<int>(text.size()) - from, format);
        setCurrentBlockState(LongBracketState(level, comment));
        return -1;
    }
    setFormat(from, end - from, format);
    return end;
}

// A quoted string runs to its closing quote (a backslash escapes the next character) or, when
// it is not closed, to the end of the line.
int CVorDPMLuaHighlighter::HighlightQuoted(const QString& text, int start) {
    const QChar quote = text[start];
    int i = start + 1;
    while (i < text.size() && text[i] != quote) i += text[i] == QLatin1Char('\\') ? 2 : 1;
    const int end = qMin(static_cast<int>(text.size()), i + 1);
    setFormat(start, end - start, Format(String));
    return end;
}

// Decimal numbers with a fraction and an exponent, and hexadecimal ones with "p" exponents.
int CVorDPMLuaHighlighter::HighlightNumber(const QString& text, int start) {
    const bool hex = text[start] == QLatin1Char('0') && (At(text, start + 1) == QLatin1Char('x') ||
                                                         At(text, start + 1) == QLatin1Char('X'));
    const QString exponents = hex ? QStringLiteral("pP") : QStringLiteral("eE");
    int i = hex ? start + 2 : start;
    while (i < text.size()) {
        const QChar c = text[i];
        if (exponents.contains(c) &&
            (At(text, i + 1) == QLatin1Char('+') || At(text, i + 1) == QLatin1Char('-')))
            i += 2;
        else if (IsWordPart(c) || c == QLatin1Char('.'))
            ++i;
        else
            break;
    }
    setFormat(start, i - start, Format(Number));
    return i;
}

int CVorDPMLuaHighlighter::HighlightWord(const QString& text, int start) {
    int end = start + 1;
    while (end < text.size() && IsWordPart(text[end])) ++end;
    const QString word = text.mid(start, end - start);
    // A field of a table ("t.line") is not the drawing call.
    const bool field = start > 0 && text[start - 1] == QLatin1Char('.');
    if (Keywords().contains(word))
        setFormat(start, end - start, Format(Keyword));
    else if (!field && DrawingCalls().contains(word))
        setFormat(start, end - start, Format(DrawingCall));
    return end;
}
