// The library check on copies of the sample library: the sample itself has nothing but the
// references it keeps on purpose, the check leaves every file as it was, and each kind of damage
// made to a copy is found exactly once, in the file that has it.
#include <QDir>
#include <functional>

#include "CheckFixture.h"
#include "support/StoreFileEdits.h"

namespace {

const QString kBolt = QStringLiteral("QXMaterial/六角头螺栓.DPD");
const QString kNut = QStringLiteral("QXMaterial/六角螺母.DPD");
const QString kFlange = QStringLiteral("QXMEP/板式平焊法兰.DPD");
const QString kCatalog = QStringLiteral("QXMaterial/标准件.DPC");

using Make = std::function<void(const QString& path)>;

Make Sql(const char* sql) {
    return [sql](const QString& path) { Exec(path, sql); };
}

// Overwrites part of the file's second page, where the tables' rows lie, leaving its header
// intact: SQLite opens it and only a full read finds the damage.
void BreakSecondPage(const QString& path) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_GT(file.size(), 3 * 4096);
    file.seek(4096 + 8);
    file.write(QByteArray(512, '\x5a'));
}

void ReplaceByFolder(const QString& path) {
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(QDir().mkpath(path));
}

void ReplaceByOtherProgramsDatabase(const QString& path) {
    ASSERT_TRUE(QFile::remove(path));
    Exec(path, "CREATE TABLE notes (id INTEGER PRIMARY KEY, text TEXT)");
}

struct Damage {
    const char* what;
    QString file;
    Make make;
    CheckKind kind;
    bool scripts = false;
};

void PrintTo(const Damage& damage, std::ostream* out) {
    *out << damage.what;
}

const Damage kDamages[] = {
    // Files
    {"common table replaced by a folder", QStringLiteral("Unit.DPO"), ReplaceByFolder,
     CheckKind::FileUnreadable},
    {"0-byte template", QStringLiteral("QXMaterial/templates/型钢模板.DPT"),
     [](const QString& path) { Write(path, {}); }, CheckKind::FileUnreadable},
    {"database of another program", QStringLiteral("InnerParam.DPO"),
     ReplaceByOtherProgramsDatabase, CheckKind::FileUnreadable},
    {"damaged page", kBolt, BreakSecondPage, CheckKind::FileDamaged},
    {"picture that does not decode", kNut, Sql("UPDATE image SET image = x'89504e470d0a'"),
     CheckKind::PictureUndecodable},
    // Naming
    {"rule without tokens", kNut, Sql("UPDATE product SET name_rule = '% %'"),
     CheckKind::RuleEmpty},
    {"rule starting with a parameter", kNut, Sql("UPDATE product SET name_rule = '%d%m'"),
     CheckKind::RuleNoLiteral},
    {"rule naming no parameter", kNut, Sql("UPDATE product SET name_rule = '六角螺母M%d%x'"),
     CheckKind::RuleUnknownParameter},
    {"product name twice in a definition", kNut,
     Sql("INSERT INTO product (id, name, name_rule) VALUES (7, '六角螺母 8级', '螺母M%d')"),
     CheckKind::ProductNameDuplicate},
    {"product name of another definition", kNut,
     Sql("UPDATE product SET name = '六角头螺栓 8.8级'"), CheckKind::ProductNameDuplicateInLibrary},
    // Rows
    {"series row of a missing product", kNut, Sql("UPDATE serial SET product_id = 9 WHERE id = 2"),
     CheckKind::SeriesProductMissing},
    {"series row of a missing shape", kNut, Sql("UPDATE serial SET shape_id = 9 WHERE id = 2"),
     CheckKind::SeriesShapeMissing},
    {"series row of a missing picture", kNut, Sql("UPDATE serial SET image_id = 9 WHERE id = 2"),
     CheckKind::SeriesPictureMissing},
    {"shape of a missing script", kNut, Sql("UPDATE shape SET dps_id = 9"),
     CheckKind::ShapeScriptMissing},
    {"shape parameter no property has", kNut, Sql("UPDATE shape SET param = 'd,m,s,q'"),
     CheckKind::ShapeParameterUnknown},
    {"parameter names equal but for case", kNut,
     Sql("UPDATE property SET param_alias = 'E' "
         "WHERE param_alias = 'P'"),
     CheckKind::ParameterDuplicate},
    {"parameter name that is no Lua name", kNut,
     Sql("UPDATE property SET param_alias = '2e' WHERE param_alias = 'e'"),
     CheckKind::ParameterNotGlobal},
    {"parameter passed to a script under a library's name", kNut,
     Sql("UPDATE property SET param_alias = 'math' WHERE param_alias = 'm';"
         "UPDATE shape SET param = 'd,math,s'"),
     CheckKind::ParameterNotGlobal},
    {"integer value with a fraction", kFlange,
     Sql("UPDATE serial SET vals = replace(vals, char(10) || '6=4' || char(10), "
         "char(10) || '6=4.5' || char(10)) WHERE id = 1"),
     CheckKind::ValueNotInteger},
    {"real value that is text", kNut,
     Sql("UPDATE serial SET vals = replace(vals, '4=10', '4=ten') WHERE id = 1"),
     CheckKind::ValueNotReal},
    {"required value left empty", kNut,
     Sql("UPDATE serial SET vals = replace(vals, '1=6' || char(10), '') WHERE id = 1"),
     CheckKind::ValueMissing},
    {"unit nobody defined", kNut, Sql("UPDATE property SET unit = 'furlong' WHERE id = 2"),
     CheckKind::UnitUnknown},
    // Catalogs
    {"entry of a missing definition", kCatalog,
     Sql("UPDATE content SET dpd = '六角头螺钉' WHERE id = 1"),
     CheckKind::ContentDefinitionMissing},
    {"entry twice", kCatalog,
     Sql("INSERT INTO content (id, dpd, type0, type1, type2) "
         "SELECT 9, upper(dpd), type0, type1, type2 FROM content WHERE id = 1"),
     CheckKind::ContentDuplicate},
    {"classification without the level above", kCatalog,
     Sql("UPDATE content SET type0 = '' WHERE id = 3"), CheckKind::ContentLevelGap},
    {"reference to a library that moved", kCatalog,
     Sql("INSERT INTO include_ref VALUES (7, 'QXMoved', '阀门')"),
     CheckKind::ReferenceLibraryMissing},
    {"reference to a catalog that was renamed", kCatalog,
     Sql("INSERT INTO include_ref VALUES (7, 'QXMEP', '阀门二')"),
     CheckKind::ReferenceCatalogMissing},
    // Scripts, once however many sizes show the fault
    {"script error", kNut,
     Sql("UPDATE dps SET content = 'circle(0, 0, d)' || char(10) || "
         "'error(\"no size \" .. d)'"),
     CheckKind::ScriptError, true},
    {"script that loops for one size", kNut,
     Sql("UPDATE dps SET content = 'if d == 6 then while true do end end circle(0, 0, d)'"),
     CheckKind::ScriptLimit, true},
    {"script that draws nothing", kNut, Sql("UPDATE dps SET content = 'local r = d / 2'"),
     CheckKind::ScriptDrawsNothing, true},
};

class DamageTest : public CheckFixture, public ::testing::WithParamInterface<Damage> {};

TEST_P(DamageTest, IsFoundOnceInItsFile) {
    const Damage& damage = GetParam();
    damage.make(File(damage.file));
    CheckScope scope;
    scope.scripts = damage.scripts;
    const QVector<CheckFinding> findings = WithoutSampleReferences(Check(scope));
    ASSERT_EQ(findings.size(), 1) << damage.what << Describe(findings);
    EXPECT_EQ(findings[0].kind, damage.kind) << damage.what << Describe(findings);
    EXPECT_EQ(findings[0].place.file, damage.file) << damage.what;
}

INSTANTIATE_TEST_SUITE_P(EachFault, DamageTest, ::testing::ValuesIn(kDamages));

TEST_F(CheckFixture, SampleHasOnlyItsReferenceWarningsAndIsLeftAsItWas) {
    const QStringList before = Snapshot(root.Path());
    CheckScope scope;
    scope.jobs = 2;
    const QVector<CheckFinding> findings = Check(scope);
    EXPECT_TRUE(WithoutSampleReferences(findings).isEmpty()) << Describe(findings);
    EXPECT_EQ(findings.size(), 2);
    EXPECT_EQ(summary.errors, 0);
    EXPECT_GT(summary.scriptRuns, 0);
    EXPECT_EQ(Snapshot(root.Path()), before);
}

// A failing script's finding names the row of the first size that fails and the line.
TEST_F(CheckFixture, ScriptErrorNamesRowAndLine) {
    Exec(File(kNut),
         "UPDATE dps SET content = 'circle(0, 0, d)' || char(10) || "
         "'if d > 8 then error(\"too big\") end'");
    CheckScope scope{QStringLiteral("QXMaterial"), QStringLiteral("六角螺母")};
    const QVector<CheckFinding> findings = Check(scope);
    ASSERT_EQ(findings.size(), 1) << Describe(findings);
    const QStringList firstBig =
        Column(File(kNut),
               "SELECT min(id) AS id FROM serial WHERE "
               "CAST(substr(vals, 3, instr(vals, char(10)) - 3) AS REAL) > 8",
               "id");
    EXPECT_EQ(findings[0].table, QStringLiteral("serial"));
    EXPECT_EQ(QString::number(findings[0].row), firstBig.value(0));
    EXPECT_TRUE(findings[0].message.contains(QStringLiteral("第 2 行"))) << Describe(findings);
    EXPECT_TRUE(findings[0].message.contains(QStringLiteral("too big"))) << Describe(findings);
}

}  // namespace
