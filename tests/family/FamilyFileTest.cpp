// Reading family table files from disk: the text forms spreadsheet programs write (quoting,
// byte-order marks, GB18030, the three delimiters), and files that must be refused with the row
// and column of the fault.
#include <gtest/gtest.h>

#include <QProcess>
#include <QStringEncoder>
#include <QTemporaryDir>

#include "FamilyFileReader.h"
#include "FamilyProgress.h"
#include "FamilyTableLayout.h"
#include "support/StoreFileEdits.h"

namespace {

QByteArray Gb18030(const QString& text) {
    QStringEncoder encoder("GB18030");
    return encoder.encode(text);
}

class FamilyFileTest : public ::testing::Test {
protected:
    // The file's cells, rows joined by "|" and cells by "/"; the problem's message on refusal.
    QString Read(const QByteArray& bytes, FamilyFile& file,
                 const QString& name = QStringLiteral("t.csv")) {
        FamilyProblem problem;
        const QString path = m_dir.filePath(name);
        Write(path, bytes);
        if (!FamilyFileReader::Read(path, file, problem, FamilyProgress::None()))
            return QStringLiteral("! ") + problem.Message();
        QStringList rows;
        for (qsizetype row = 0; row < file.sheet.RowCount(); ++row) {
            QStringList cells;
            for (qsizetype cell = 0; cell < file.sheet.CellCount(row); ++cell)
                cells.append(file.sheet.Cell(row, cell).toString());
            rows.append(cells.join(u'/'));
        }
        return rows.join(u'|');
    }

    QTemporaryDir m_dir;
};

TEST_F(FamilyFileTest, ReadsTheTextFormsOfSpreadsheetPrograms) {
    struct Case {
        const char* what;
        QByteArray bytes;
        const char* cells;
        char delimiter;
        const char* encoding;
    };
    const Case cases[] = {
        {"quoted comma, quote and line break", "a,b\r\n\"1,5\",\"say \"\"x\"\"\"\r\n\"l1\nl2\",z",
         "a/b|1,5/say \"x\"|l1\nl2/z", ',', "UTF-8"},
        {"byte-order mark, empty trailing cell",
         "\xEF\xBB\xBF"
         "名称,d\n螺栓,\n",
         "名称/d|螺栓/", ',', "UTF-8"},
        {"semicolons with decimal commas", "d;m\n6;5,2\n8;6,8", "d/m|6/5,2|8/6,8", ';', "UTF-8"},
        {"tabs beside commas in cells", "d\tnote\n6\ta, b\n", "d/note|6/a, b", '\t', "UTF-8"},
        {"GB18030", Gb18030(QStringLiteral("规格,长度\n六角螺母,12\n")), "规格/长度|六角螺母/12",
         ',', "GB18030"},
        {"a title line above the header", "尺寸表\nd,P,m\n6,1,5.2\n", "尺寸表|d/P/m|6/1/5.2", ',',
         "UTF-8"},
    };
    for (const Case& c : cases) {
        FamilyFile file;
        EXPECT_EQ(Read(c.bytes, file), QString::fromUtf8(c.cells)) << c.what;
        EXPECT_EQ(file.delimiter, QLatin1Char(c.delimiter)) << c.what;
        EXPECT_EQ(file.encoding, QLatin1String(c.encoding)) << c.what;
    }
}

TEST_F(FamilyFileTest, RefusesBadFilesNamingWhere) {
    const QByteArray bigCell = "d\n" + QByteArray(1 << 20, 'x') + "\n";
    QByteArray manyRows = "d\n";
    for (int row = 0; row < 1000000; ++row) manyRows += "1\n";
    struct Case {
        const char* what;
        QByteArray bytes;
        const char* name;
        const char* message;  // the start of the message
    };
    const Case cases[] = {
        {"empty", "", "t.csv", "文件是空的"},
        {"blank", " \r\n\n", "t.csv", "文件是空的"},
        {"binary", QByteArray("d,e\n1,\x01\x02\x03"), "t.csv", "第 2 行第 2 列"},
        {"unbalanced quote", "a,b\n1,\"open\n2,3\n", "t.csv", "第 2 行第 2 列"},
        {"text after a closing quote", "a,b\n\"x\"y,1\n", "t.csv", "第 2 行第 1 列"},
        {"a cell of 1 MB", bigCell, "t.csv", "第 2 行第 1 列"},
        {"1,000,000 rows", manyRows, "t.csv", "第 500001 行"},
        {"a truncated workbook", QByteArray("PK\x03\x04\x14\x00", 6), "t.xlsx", ""},
        {"an Excel 97-2003 file", QByteArray::fromHex("D0CF11E0A1B11AE1") + QByteArray(600, 0),
         "t.xls", "不能读取旧的 Excel"},
    };
    for (const Case& c : cases) {
        FamilyFile file;
        const QString read = Read(c.bytes, file, QString::fromUtf8(c.name));
        ASSERT_TRUE(read.startsWith(u'!')) << c.what << ": " << read.left(80).toStdString();
        EXPECT_TRUE(read.mid(2).startsWith(QString::fromUtf8(c.message)))
            << c.what << ": " << read.toStdString();
        EXPECT_GT(read.size(), 3) << c.what;
    }
}

// Workbooks made by another writer (Debian's python3-openpyxl): inline strings, numbers, a date
// by its number format; a formula saved without its value (as openpyxl saves every formula) is
// refused at its cell.
TEST_F(FamilyFileTest, ReadsWorkbooksOfAnotherWriter) {
    const QString script = QStringLiteral(
        "import sys, datetime, openpyxl\n"
        "book = openpyxl.Workbook()\n"
        "sheet = book.active\n"
        "sheet.title = '尺寸'\n"
        "sheet.append(['d [mm]', '名称', '日期'])\n"
        "sheet.append([6, '螺母', datetime.date(2024, 1, 31)])\n"
        "sheet.append([8.5, '螺母', None])\n"
        "if sys.argv[2] == 'formula': sheet['A4'] = '=A2*2'\n"
        "book.save(sys.argv[1])\n");
    struct Case {
        const char* kind;
        const char* read;
    };
    const Case cases[] = {
        {"plain", "d [mm]/名称/日期|6/螺母/2024-01-31|8.5/螺母"},
        {"formula", "! 第 4 行第 1 列: 公式没有保存计算结果"},
    };
    for (const Case& c : cases) {
        const QString path = m_dir.filePath(QStringLiteral("book.xlsx"));
        QProcess python;
        python.start(QStringLiteral("/usr/bin/python3"),
                     {QStringLiteral("-c"), script, path, QLatin1String(c.kind)});
        ASSERT_TRUE(python.waitForFinished(60000));
        ASSERT_EQ(python.exitCode(), 0) << python.readAllStandardError().toStdString();
        FamilyFile file;
        const QString read = Read(ReadAll(path), file, QStringLiteral("copy.xlsx"));
        EXPECT_TRUE(read.startsWith(QString::fromUtf8(c.read)))
            << c.kind << ": " << read.toStdString();
        if (!read.startsWith(u'!')) {
            EXPECT_EQ(file.sheetName, QStringLiteral("尺寸"));
        }
    }
}

TEST_F(FamilyFileTest, LayoutFindsTheHeaderAndRefusesBadTables) {
    struct Case {
        const char* what;
        QByteArray bytes;
        int headerRow;       // given; -1 for the proposal
        const char* result;  // "header N" (from 1), or the problem's message
    };
    const Case cases[] = {
        {"title and notes above", "GB/T 6170 尺寸\n单位 mm\nd,P,m\n6,1,5.2\n", -1, "header 3"},
        {"a numeric row is no header", "6,1,5.2\nd,P,m\n8,1.25,6.8\n", -1, "header 2"},
        {"the header given", "x,y\nd,P\n6,1\n", 1, "header 2"},
        {"ragged: a short row", "d,P,m\n6,1,5.2\n8,1.25\n", -1,
         "第 3 行第 3 列: 这一行只有 2 个单元格"},
        {"a cell under no heading", "d,P,\n6,1,\n8,1.25,x\n", 0, "第 3 行第 3 列"},
        {"a heading twice", "d,P,D [mm]\n6,1,2\n", -1, "第 1 行第 3 列: 表头与第 1 列相同"},
    };
    for (const Case& c : cases) {
        FamilyFile file;
        ASSERT_FALSE(Read(c.bytes, file).startsWith(u'!')) << c.what;
        FamilyTableLayout layout;
        FamilyProblem problem;
        const QString result = layout.Read(file, c.headerRow, problem, FamilyProgress::None())
                                   ? QStringLiteral("header %1").arg(layout.HeaderRow() + 1)
                                   : problem.Message();
        EXPECT_TRUE(result.startsWith(QString::fromUtf8(c.result)))
            << c.what << ": " << result.toStdString();
    }
}

}  // namespace
