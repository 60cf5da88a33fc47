#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "query/QueryFixture.h"
#include "support/StoreFileEdits.h"
#include "support/ToolRunner.h"

// A small root made through the store: one library with a catalog of three levels, an empty
// catalog, a bolt definition with two series rows and an unreadable definition file.
class ToolTest : public StoreTestBase {
protected:
    void SetUp() override {
        ASSERT_TRUE(QFile::exists(ToolRunner::Program())) << ToolRunner::Program().toStdString();
        CVorDPMLibraryManager* library = MakeLibrary(QStringLiteral("QXMaterial"));
        MakeLibrary(QStringLiteral("QXMEP"));
        CVorDPMDPC* fasteners = MakeCatalog(library, QStringLiteral("紧固件"));
        MakeEntry(fasteners, QStringLiteral("HexBolt"), QStringLiteral("螺栓"),
                  QStringLiteral("六角头"), QStringLiteral("粗牙"));
        MakeEntry(fasteners, QStringLiteral("StudBolt"), QStringLiteral("螺栓"),
                  QStringLiteral("双头"));
        MakeEntry(fasteners, QStringLiteral("Nut M12"), QStringLiteral("螺母"));
        MakeEntry(fasteners, QStringLiteral("Washer"));
        MakeCatalog(library, QStringLiteral("Empty"));
        MakeBolt(library);
        MakeDefinition(library, QStringLiteral("Broken"));
        SaveAndReopen();
        Write(root.File(QStringLiteral("QXMaterial/Broken.DPD")),
              "this is not a product definition");
    }

    void MakeBolt(CVorDPMLibraryManager* library) {
        CVorDPMDPD* bolt = MakeDefinition(library, QStringLiteral("HexBolt"));
        const CVorDPM_DPD_Property* d = AddProperty(bolt, QStringLiteral("d"));
        const CVorDPM_DPD_Property* l = AddProperty(bolt, QStringLiteral("l"));
        const CVorDPM_DPD_Product* product =
            AddProduct(bolt, QStringLiteral("六角头螺栓"), QStringLiteral("螺栓%d%l"));
        const char* sizes[][2] = {{"M12", "50"}, {"M16", "tab\there"}};
        for (const auto& size : sizes) {
            CVorDPM_DPD_Serial* row = AddSerial(bolt, product);
            row->SetValue(QString::fromUtf8(size[0]), d->GetObjectId());
            row->SetValue(QString::fromUtf8(size[1]), l->GetObjectId());
            m_keys.append(row->GetKey());
        }
    }

    ToolRun Run(QStringList arguments) const {
        arguments << QStringLiteral("--root") << root.Path();
        return ToolRunner::Run(arguments);
    }

    QStringList m_keys;
};

TEST_F(ToolTest, BadUsageExitsWithTwoAndOneLine) {
    const QStringList cases[] = {
        {},
        {"bogus"},
        {"ls", "a", "b"},
        {"ls", "--nope"},
        {"ls", "QXMaterial/紧固件/a/b/c/d", "--root", root.Path()},
        {"find"},
        {"names", "QXMaterial"},
        {"show", "QXMaterial", "HexBolt", "extra"},
        {"sample", "--scale", "2"},
        {"sample", "--scale", "0", "--root", "elsewhere"},
        {"sample", "--scale", "x", "--root", "elsewhere"},
        {"copy-root", "a"},
        {"copy-root", "a", "b", "c"},
        {"copy-root", "a", "b", "--overwrite"},
        {"copy-root", " ", "b"},
        {"copy-root", root.Path(), root.Path() + "/"},
    };
    for (const QStringList& arguments : cases) {
        const ToolRun run = ToolRunner::Run(arguments);
        EXPECT_EQ(run.exitCode, 2) << arguments.join(' ').toStdString();
        EXPECT_TRUE(run.out.isEmpty()) << arguments.join(' ').toStdString();
        EXPECT_TRUE(run.HasOneErrorLine()) << run.err.toStdString();
    }
}

TEST_F(ToolTest, EveryCommandExplainsItself) {
    for (const char* command : {"ls", "find", "names", "show", "sample", "copy-root"}) {
        const ToolRun run = ToolRunner::Run({QString::fromUtf8(command), "--help"});
        EXPECT_EQ(run.exitCode, 0) << command;
        EXPECT_TRUE(run.out.startsWith(QStringLiteral("usage: vordpm ") + command)) << command;
        EXPECT_TRUE(run.out.contains(QStringLiteral("--root"))) << command;
        EXPECT_TRUE(run.err.isEmpty()) << command;
    }
    const ToolRun overview = ToolRunner::Run({"--help"});
    EXPECT_EQ(overview.exitCode, 0);
    for (const char* command : {"ls", "find", "names", "show", "sample", "copy-root"})
        EXPECT_TRUE(overview.out.contains(QStringLiteral("vordpm ") + command)) << command;
}

TEST_F(ToolTest, ListsLibrariesCatalogsAndClassificationTrees) {
    const struct {
        QStringList arguments;
        QString expected;
    } cases[] = {
        {{"ls"}, "QXMaterial\nQXMEP\n"},
        {{"ls", "QXMaterial"}, "Empty\n紧固件\n"},
        {{"ls", "QXMEP"}, ""},
        {{"ls", "QXMaterial/Empty"}, ""},
        {{"ls", "QXMaterial/紧固件"},
         "螺栓/\n  六角头/\n    粗牙/\n      HexBolt\n  双头/\n    StudBolt\n螺母/\n  Nut M12\n"
         "Washer\n"},
        {{"ls", "QXMaterial/紧固件/螺栓"}, "六角头/\n  粗牙/\n    HexBolt\n双头/\n  StudBolt\n"},
        {{"ls", "QXMaterial//紧固件/螺栓/双头/"}, "StudBolt\n"},
        {{"ls", "QXMaterial/紧固件/螺栓/六角头/粗牙"}, "HexBolt\n"},
    };
    for (const auto& c : cases) {
        const ToolRun run = Run(c.arguments);
        EXPECT_EQ(run.exitCode, 0) << c.arguments.join(' ').toStdString();
        EXPECT_EQ(run.out, c.expected) << c.arguments.join(' ').toStdString();
        EXPECT_TRUE(run.err.isEmpty()) << run.err.toStdString();
    }
}

TEST_F(ToolTest, MissingThingsExitWithOneAndSayWhat) {
    const struct {
        QStringList arguments;
        QString mentions;
    } cases[] = {
        {{"ls", "Nowhere"}, "Nowhere"},
        {{"ls", "QXMaterial/Nothing"}, "Nothing"},
        {{"ls", "QXMaterial/紧固件/垫圈"}, "垫圈"},
        {{"find", "Bolt", "--library", "Nowhere"}, "Nowhere"},
        {{"find", "Bolt", "--library", "QXMaterial", "--catalog", "Nothing"}, "Nothing"},
        {{"find", "Screw"}, "Screw"},
        {{"find", "(*"}, "(*"},
        {{"names", "QXMaterial", "Nothing"}, "Nothing"},
        {{"show", "Nowhere", "HexBolt"}, "Nowhere"},
        {{"show", "QXMaterial", "Broken"}, "cannot read"},
        {{"names", "QXMaterial", "Broken"}, "cannot read"},
    };
    for (const auto& c : cases) {
        const ToolRun run = Run(c.arguments);
        EXPECT_EQ(run.exitCode, 1) << c.arguments.join(' ').toStdString();
        EXPECT_TRUE(run.out.isEmpty()) << run.out.toStdString();
        EXPECT_TRUE(run.HasOneErrorLine()) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(c.mentions)) << run.err.toStdString();
    }
    const ToolRun noRoot =
        ToolRunner::Run({"ls", "--root", root.Home() + QStringLiteral("/missing")});
    EXPECT_EQ(noRoot.exitCode, 1);
    EXPECT_TRUE(noRoot.HasOneErrorLine()) << noRoot.err.toStdString();
}

TEST_F(ToolTest, FindsEntriesByNameAndClassification) {
    const QString hex = QStringLiteral("QXMaterial\t紧固件\tHexBolt\t螺栓\t六角头\t粗牙");
    const QString stud = QStringLiteral("QXMaterial\t紧固件\tStudBolt\t螺栓\t双头\t");
    const QString nut = QStringLiteral("QXMaterial\t紧固件\tNut M12\t螺母\t\t");
    const struct {
        QStringList arguments;
        QStringList expected;
    } cases[] = {
        {{"find", "Bolt"}, {hex, stud}},
        {{"find", "bolt"}, {}},
        {{"find", "*"}, {hex, stud, nut, "QXMaterial\t紧固件\tWasher\t\t\t"}},
        {{"find", "M1?"}, {nut}},
        {{"find", "S*t"}, {stud}},
        {{"find", "Bolt", "--level1", "双头"}, {stud}},
        {{"find", "*", "--level0", "螺栓", "--level1", "六角头", "--level2", "粗牙"}, {hex}},
        {{"find", "*", "--level0", "螺栓", "--level1", "双头", "--level2", ""}, {stud}},
        {{"find", "Bolt", "--catalog", "紧固件", "--library", "QXMaterial"}, {hex, stud}},
    };
    for (const auto& c : cases) {
        const ToolRun run = Run(c.arguments);
        EXPECT_EQ(run.exitCode, c.expected.isEmpty() ? 1 : 0)
            << c.arguments.join(' ').toStdString();
        EXPECT_EQ(run.OutLines(), c.expected) << c.arguments.join(' ').toStdString();
    }
}

// A catalog that cannot be read may hold matches: the search fails naming it, not "no match".
TEST_F(ToolTest, FindNamesAnUnreadableCatalogAndFails) {
    Write(root.File(QStringLiteral("QXMaterial/Bad.DPC")), "this is not a catalog");
    for (const QStringList& arguments :
         {QStringList{"find", "Bolt"}, QStringList{"find", "Nothing like it"},
          QStringList{"find", "*", "--library", "QXMaterial", "--catalog", "Bad"}}) {
        const ToolRun run = Run(arguments);
        EXPECT_EQ(run.exitCode, 1) << arguments.join(' ').toStdString();
        EXPECT_TRUE(run.out.isEmpty()) << run.out.toStdString();
        EXPECT_TRUE(run.HasOneErrorLine()) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(QStringLiteral("Bad.DPC"))) << run.err.toStdString();
    }
}

TEST_F(ToolTest, NamesEverySeriesRowFromItsRule) {
    const ToolRun run = Run({"names", "QXMaterial", "hexbolt"});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.OutLines(), (QStringList{"1\t" + m_keys[0] + "\t螺栓M12*50",
                                           "2\t" + m_keys[1] + "\t螺栓M16*tab\\there"}));
    // A row of a product that is not there has no name.
    Exec(root.File(QStringLiteral("QXMaterial/HexBolt.DPD")),
         "UPDATE serial SET product_id = 99 WHERE id = 2");
    EXPECT_EQ(Run({"names", "QXMaterial", "HexBolt"}).OutLines(),
              (QStringList{"1\t" + m_keys[0] + "\t螺栓M12*50", "2\t" + m_keys[1] + "\t"}));
}

TEST_F(ToolTest, ShowsTheFiveTablesAsText) {
    const ToolRun run = Run({"show", "QXMaterial", "HexBolt"});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QStringList lines = run.out.split('\n');
    for (const char* section : {"[properties]", "[pictures]", "[shapes]", "[products]", "[series]"})
        EXPECT_TRUE(lines.contains(QString::fromUtf8(section))) << section;
    EXPECT_TRUE(lines.contains("id\tKey\tProductId\tImageId\tShapeId\td\tl"));
    EXPECT_TRUE(lines.contains("1\t六角头螺栓\t螺栓%d%l\t"));
    // A tab inside a value is escaped so that every row keeps its columns.
    EXPECT_TRUE(lines.contains("2\t" + m_keys[1] + "\t1\t0\t0\tM16\ttab\\there"));
}

TEST_F(ToolTest, ShowsTheFiveTablesAsJson) {
    const ToolRun run = Run({"show", "QXMaterial", "HexBolt", "--json"});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    QJsonParseError error;
    const QJsonObject document = QJsonDocument::fromJson(run.out.toUtf8(), &error).object();
    ASSERT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
    EXPECT_EQ(document["library"].toString(), "QXMaterial");
    EXPECT_EQ(document["product"].toString(), "HexBolt");
    EXPECT_EQ(document["properties"].toArray().size(), 2);
    EXPECT_TRUE(document["pictures"].toArray().isEmpty());
    EXPECT_TRUE(document["shapes"].toArray().isEmpty());
    EXPECT_EQ(document["products"].toArray()[0].toObject()["NameRule"].toString(), "螺栓%d%l");
    const QJsonObject row = document["series"].toArray()[1].toObject();
    EXPECT_EQ(row["Key"].toString(), m_keys[1]);
    EXPECT_EQ(row["ProductId"].toInt(), 1);
    EXPECT_EQ(row["values"].toObject()["l"].toString(), "tab\there");
}

// Rows are printed as they are read: a row that cannot be read ends the output there, and the
// tool fails naming the definition and the reason.
TEST_F(ToolTest, ARowThatCannotBeReadEndsTheOutputAndFails) {
    Exec(root.File(QStringLiteral("QXMaterial/HexBolt.DPD")),
         "UPDATE serial SET product_id = 4294967297 WHERE id = 2");
    const ToolRun names = Run({"names", "QXMaterial", "HexBolt"});
    EXPECT_EQ(names.exitCode, 1);
    EXPECT_EQ(names.OutLines(), QStringList{"1\t" + m_keys[0] + "\t螺栓M12*50"});
    for (const QStringList& arguments : {QStringList{"names", "QXMaterial", "HexBolt"},
                                         QStringList{"show", "QXMaterial", "HexBolt"},
                                         QStringList{"show", "QXMaterial", "HexBolt", "--json"}}) {
        const ToolRun run = Run(arguments);
        EXPECT_EQ(run.exitCode, 1) << arguments.join(' ').toStdString();
        EXPECT_TRUE(run.HasOneErrorLine()) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains("cannot read product definition QXMaterial/HexBolt"))
            << run.err.toStdString();
        EXPECT_TRUE(run.err.contains("outside the range")) << run.err.toStdString();
    }
}

// Values hold whatever other programs wrote: control characters never reach a terminal as they
// are, in any text the tool prints, standard error included.
TEST_F(ToolTest, ControlCharactersArePrintedEscaped) {
    const QString nasty = QStringLiteral("a") + QChar(0) + QStringLiteral("\x1b[2J\x07") +
                          QChar(0x7f) + QChar(0x9b) + QStringLiteral("z");
    const QString escaped = QStringLiteral("a\\x00\\x1b[2J\\x07\\x7f\\x9bz");
    CVorDPMLibraryManager* library = Library(QStringLiteral("QXMaterial"));
    CVorDPMDPD* bolt = nullptr;
    library->GetDPD(QStringLiteral("HexBolt"), bolt);
    CKZList<CVorDPM_DPD_Serial*> rows;
    bolt->GetAllSerial(rows);
    rows.GetAt(0)->SetValue(nasty, 1);
    CVorDPMDPC* catalog = nullptr;
    library->GetDPC(QStringLiteral("Empty"), catalog);
    MakeEntry(catalog, nasty, nasty);
    SaveAndReopen();
    const struct {
        QStringList arguments;
        QString expected;
    } cases[] = {
        {{"names", "QXMaterial", "HexBolt"}, "\t螺栓" + escaped + "*50\n"},
        {{"show", "QXMaterial", "HexBolt"}, "\t" + escaped + "\t50\n"},
        {{"ls", "QXMaterial/Empty"}, escaped + "/\n  " + escaped + "\n"},
        {{"find", "a*z"}, "QXMaterial\tEmpty\t" + escaped + "\t" + escaped + "\t\t\n"},
        // Arguments cannot hold NUL.
        {{"ls", nasty.mid(2)}, "vordpm: no library " + escaped.mid(5) + "\n"},
    };
    for (const auto& c : cases) {
        const ToolRun run = Run(c.arguments);
        SCOPED_TRACE(c.arguments.join(' ').toStdString());
        EXPECT_TRUE((run.out + run.err).contains(c.expected)) << run.out.toStdString();
        const QString printed = run.out + run.err.section(' ', 1);
        EXPECT_FALSE(std::any_of(printed.cbegin(), printed.cend(), [](QChar c) {
            return c != '\n' && c != '\t' && c.category() == QChar::Other_Control;
        })) << printed.toStdString();
    }
}

// Bytes that are not UTF-8, written by another program: every output stays valid UTF-8 with
// U+FFFD in their place, and standard error names the row and the parameter.
TEST_F(ToolTest, ValuesThatAreNotUtf8AreReplacedAndReported) {
    Exec(root.File(QStringLiteral("QXMaterial/HexBolt.DPD")),
         "UPDATE serial SET vals = CAST(X'313DFF0A323D35C0AF30' AS TEXT) WHERE id = 1");
    const QString warning = QStringLiteral(
                                "vordpm: warning: series row 1 (key %1): invalid UTF-8 "
                                "in d, l printed as U+FFFD\n")
                                .arg(m_keys[0]);
    for (const QStringList& arguments : {QStringList{"show", "QXMaterial", "HexBolt", "--json"},
                                         QStringList{"show", "QXMaterial", "HexBolt"}}) {
        SCOPED_TRACE(arguments.join(' ').toStdString());
        const ToolRun run = Run(arguments);
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_TRUE(run.rawOut.isValidUtf8());
        EXPECT_EQ(run.err, warning);
        EXPECT_TRUE(run.out.contains(QStringLiteral("\uFFFD"))) << run.out.toStdString();
    }
    QJsonParseError error;
    const QJsonDocument document =
        QJsonDocument::fromJson(Run({"show", "QXMaterial", "HexBolt", "--json"}).rawOut, &error);
    ASSERT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
    const QJsonObject values = document["series"][0].toObject()["values"].toObject();
    EXPECT_EQ(values["d"].toString(), QStringLiteral("\uFFFD"));
    EXPECT_TRUE(values["l"].toString().startsWith('5')) << values["l"].toString().toStdString();
}
