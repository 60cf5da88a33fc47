#include <gtest/gtest.h>

#include <QTextBlock>
#include <QTextLayout>

#include "script/CVorDPMLuaHighlighter.h"
#include "script/CVorDPMScriptCodeEdit.h"

namespace {

using H = CVorDPMLuaHighlighter;

// The foreground that the highlighter gave the character at `position` of `line`; black when
// it gave none.
QColor ColourAt(const CVorDPMScriptCodeEdit& edit, int line, int position) {
    const QTextBlock block = edit.document()->findBlockByNumber(line);
    for (const QTextLayout::FormatRange& range : block.layout()->formats())
        if (position >= range.start && position < range.start + range.length)
            return range.format.foreground().color();
    return QColor(Qt::black);
}

QColor Colour(H::Kind kind) {
    return H::Format(kind).foreground().color();
}

TEST(CodeEdit, HighlightsKeywordsDrawingCallsNumbersStringsAndComments) {
    CVorDPMScriptCodeEdit edit;
    edit.setPlainText(
        QStringLiteral("local r = d / 2 -- 半径\n"                 // 0
                       "if r > 0x1F then circle(0, 0, r) end\n"    // 1
                       "text(0, 1.5e2, \"M\" .. 'x\\'y')\n"        // 2
                       "--[==[ a long\n"                           // 3
                       "comment ]] still ]==] line(0, 0, 1, 1)\n"  // 4
                       "s = [[ text\n"                             // 5
                       "-- not a comment ]] t.line = 3\n"));       // 6
    const struct {
        int line, position;
        QColor colour;
    } cases[] = {
        {0, 0, Colour(H::Keyword)},       // local
        {0, 6, QColor(Qt::black)},        // r
        {0, 14, Colour(H::Number)},       // 2
        {0, 16, Colour(H::Comment)},      // --
        {0, 20, Colour(H::Comment)},      // 半
        {1, 0, Colour(H::Keyword)},       // if
        {1, 7, Colour(H::Number)},        // 0x1F
        {1, 10, Colour(H::Number)},       // F
        {1, 14, Colour(H::Keyword)},      // then
        {1, 19, Colour(H::DrawingCall)},  // circle
        {1, 33, Colour(H::Keyword)},      // end
        {2, 0, Colour(H::DrawingCall)},   // text
        {2, 8, Colour(H::Number)},        // 1.5e2
        {2, 15, Colour(H::String)},       // "M"
        {2, 19, QColor(Qt::black)},       // ..
        {2, 25, Colour(H::String)},       // the escaped quote inside 'x\'y'
        {3, 0, Colour(H::Comment)},       // --[==[
        {4, 0, Colour(H::Comment)},       // comment, still inside the long comment
        {4, 12, Colour(H::Comment)},      // ]] does not close a level-2 bracket
        {4, 23, Colour(H::DrawingCall)},  // line after ]==]
        {5, 4, Colour(H::String)},        // [[
        {6, 0, Colour(H::String)},        // -- inside the long string
        {6, 20, QColor(Qt::black)},       // t
        {6, 22, QColor(Qt::black)},       // line as a table field
        {6, 29, Colour(H::Number)},       // 3
    };
    for (const auto& c : cases)
        EXPECT_EQ(ColourAt(edit, c.line, c.position), c.colour)
            << "line " << c.line << " position " << c.position;
}

TEST(CodeEdit, AnEditedLineRecolorsTheLinesAfterIt) {
    CVorDPMScriptCodeEdit edit;
    edit.setPlainText(QStringLiteral("x = 1\nrect(0, 0, 1, 1)"));
    EXPECT_EQ(ColourAt(edit, 1, 0), Colour(H::DrawingCall));
    QTextCursor cursor(edit.document()->findBlockByNumber(0));
    cursor.insertText(QStringLiteral("--[[ "));
    EXPECT_EQ(ColourAt(edit, 1, 0), Colour(H::Comment));
}

}  // namespace
