// What a user of the sample root relies on, read back from the files after a fresh root switch:
// libraries, catalogs, definitions with consistent tables, pictures, runnable preview scripts,
// product names, versions, templates, library information and the common tables. Rows that
// refer to missing rows, entries of missing definitions, gaps in classifications and scripts
// that fail are the library check's findings; its tests check that the sample has none.
#include <gtest/gtest.h>

#include <QImage>
#include <QSet>
#include <cmath>

#include "query/CVorDPMData.h"
#include "sample/SampleFasteners.h"
#include "sample/SampleLibrary.h"
#include "sample/SamplePiping.h"
#include "sample/SampleScriptRunner.h"
#include "sample/SampleSteel.h"
#include "sample/SampleStoreView.h"
#include "support/TempRoot.h"

namespace {

using View = SampleStoreView;

QList<SampleFamily> AllFamilies() {
    return SampleFasteners::Families() + SampleSteel::Families() + SamplePiping::Families();
}

// Number of classification levels an entry uses.
int Depth(const CVorDPM_DPC_Content& entry) {
    return int(!entry.GetType0().isEmpty()) + !entry.GetType1().isEmpty() +
           !entry.GetType2().isEmpty();
}

QHash<QString, double> Numbers(const QHash<QString, QString>& values) {
    QHash<QString, double> numbers;
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        bool ok = false;
        const double number = it.value().toDouble(&ok);
        if (ok) numbers.insert(it.key(), number);
    }
    return numbers;
}

CVorDPM_DPD_Shape* OnlyShape(CVorDPMDPD* definition) {
    CKZList<CVorDPM_DPD_Shape*> shapes;
    definition->GetAllShape(shapes, 0);
    return shapes.GetCount() == 1 ? shapes.GetAt(0) : nullptr;
}

QByteArray ScriptOf(CVorDPMDPD* definition, const CVorDPM_DPD_Shape& shape) {
    CVorDPM_DPD_Dps* script = nullptr;
    definition->GetDps(shape.GetDPSId(), script, 0);
    return script ? script->GetContent().Bytes() : QByteArray();
}

class SampleContentTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        s_root = new TempRoot;
        s_created = SampleLibrary::Create(s_root->Path(), 1, s_error);
        View::Reopen(s_root->Path(), s_root->Home() + QStringLiteral("/elsewhere"));
    }
    static void TearDownTestSuite() {
        delete s_root;
        s_root = nullptr;
    }
    void SetUp() override { ASSERT_TRUE(s_created) << s_error.toStdString(); }

    static TempRoot* s_root;
    static bool s_created;
    static QString s_error;
};

TempRoot* SampleContentTest::s_root = nullptr;
bool SampleContentTest::s_created = false;
QString SampleContentTest::s_error;

// Each library has definitions and catalogs, one definition is in no catalog, and the entries
// use every depth of classification from none to three.
TEST_F(SampleContentTest, LibrariesHoldCatalogsOfEveryDepthAndAnUncataloguedDefinition) {
    QSet<int> depths;
    int uncatalogued = 0;
    for (const QString& library : SampleLibrary::LibraryNames()) {
        EXPECT_GE(View::Definitions(library).size(), 3) << library.toStdString();
        EXPECT_GE(View::Catalogs(library).size(), 2) << library.toStdString();
        for (CVorDPMDPC* catalog : View::Catalogs(library)) {
            EXPECT_FALSE(View::Entries(catalog).isEmpty()) << catalog->GetDPCName().toStdString();
            for (CVorDPM_DPC_Content* entry : View::Entries(catalog)) depths.insert(Depth(*entry));
        }
        CKZList<CVorDPMDPD*> outside;
        CVorDPMData::GetALLExteriorDPD(library, outside);
        uncatalogued += outside.GetCount();
    }
    EXPECT_EQ(depths, QSet<int>({0, 1, 2, 3}));
    EXPECT_GE(uncatalogued, 1);
}

TEST_F(SampleContentTest, IncludesResolveToCatalogsOfTheOtherLibraryButTheTwoDanglingOnes) {
    int includes = 0;
    QStringList dangling;
    for (const QString& library : SampleLibrary::LibraryNames())
        for (CVorDPMDPC* catalog : View::Catalogs(library)) {
            CKZList<CVorDPM_DPC_Include*> list;
            catalog->GetAllInclude(list, 0);
            for (CVorDPM_DPC_Include* include : list) {
                ++includes;
                EXPECT_NE(include->GetLibraryName(), library);
                CVorDPMDPC* target = nullptr;
                CVorDPMData::GetDPCManger(include->GetLibraryName(), include->GetDPCName(), target);
                if (!target)
                    dangling << include->GetLibraryName() + QLatin1Char('/') +
                                    include->GetDPCName();
            }
        }
    EXPECT_GE(includes, 4);
    // A reference to a missing library and one to a missing catalog, for the catalog page.
    EXPECT_EQ(dangling,
              (QStringList{QStringLiteral("QXElectric/电缆桥架"), QStringLiteral("QXMEP/保温")}));
}

TEST_F(SampleContentTest, PropertiesAreDefinedByCommonPropertiesAndPassTheRowChecks) {
    CVorDPMDPOProperty* common = View::Manager()->GetCommonManager()->GetPropertyDPO();
    ASSERT_TRUE(common);
    CKZList<CVorDPM_DPOPROPERTY_Group*> groups;
    common->GetAllGroup(groups, 0);
    for (CVorDPMDPD* definition : View::AllDefinitions()) {
        for (CVorDPM_DPD_Property* property : View::Properties(definition)) {
            const std::string what =
                (definition->GetDPDName() + " " + property->GetParamAlias()).toStdString();
            CVorDPM_DPOPROPERTY_Content* standard = nullptr;
            common->GetContent(property->GetPropertyId(), standard, 0);
            ASSERT_TRUE(standard) << what;
            EXPECT_EQ(property->GetUnit(), standard->GetUnit()) << what;
            const auto group = std::find_if(groups.begin(), groups.end(), [&](auto* g) {
                return g->GetObjectId() == standard->GetGroupId();
            });
            ASSERT_NE(group, groups.end()) << what;
            EXPECT_EQ(property->GetChapter(), (*group)->GetName()) << what;
            EXPECT_FALSE(property->GetDefValue().isEmpty()) << what;
            EXPECT_EQ(definition->IsValid(property), VOR::eOk) << what;
        }
    }
}

TEST_F(SampleContentTest, PicturesDecodeAndShowADrawing) {
    QList<QByteArray> pictures;
    for (CVorDPMDPD* definition : View::AllDefinitions()) {
        CKZList<CVorDPM_DPD_Image*> images;
        definition->GetAllImage(images, 0);
        EXPECT_EQ(images.GetCount(), 1) << definition->GetDPDName().toStdString();
        for (CVorDPM_DPD_Image* image : images) pictures.append(image->GetImage().Bytes());
    }
    for (const QString& library : SampleLibrary::LibraryNames()) {
        CVorDPM_DPI_Info* info = nullptr;
        View::Library(library)->GetDPI()->GetInfo(info);
        ASSERT_TRUE(info);
        pictures.append(info->GetImage().Bytes());
    }
    for (const QByteArray& png : pictures) {
        const QImage image = QImage::fromData(png, "PNG");
        ASSERT_FALSE(image.isNull());
        const QImage gray = image.convertToFormat(QImage::Format_Grayscale8);
        int dark = 0;
        for (int y = 0; y < gray.height(); ++y)
            for (int x = 0; x < gray.width(); ++x) dark += qGray(gray.pixel(x, y)) < 128;
        EXPECT_GT(dark, 200) << "a picture is (nearly) blank";
    }
}

TEST_F(SampleContentTest, ShapesNameAScriptAndNumericPropertiesOfTheirDefinition) {
    CVorDPMDPOProperty* common = View::Manager()->GetCommonManager()->GetPropertyDPO();
    for (CVorDPMDPD* definition : View::AllDefinitions()) {
        const std::string name = definition->GetDPDName().toStdString();
        CVorDPM_DPD_Shape* shape = OnlyShape(definition);
        ASSERT_TRUE(shape) << name;
        const QStringList params = shape->GetParam().split(',');
        ASSERT_EQ(shape->GetParamType().split(',').size(), params.size()) << name;
        ASSERT_EQ(shape->GetParamIndex().split(',').size(), params.size()) << name;
        QHash<QString, CVorDPM_DPD_Property*> byParam;
        for (CVorDPM_DPD_Property* property : View::Properties(definition))
            byParam.insert(property->GetParamAlias(), property);
        for (int i = 0; i < params.size(); ++i) {
            ASSERT_TRUE(byParam.contains(params[i])) << name << " " << params[i].toStdString();
            EXPECT_EQ(shape->GetParamIndex(params[i]), i);
            EXPECT_TRUE(shape->GetParamType(params[i]) == 0 || shape->GetParamType(params[i]) == 1);
            CVorDPM_DPOPROPERTY_Content* standard = nullptr;
            common->GetContent(byParam[params[i]]->GetPropertyId(), standard, 0);
            ASSERT_TRUE(standard);
            EXPECT_NE(standard->GetValueType(), emVorDPM_VALUETYPE_STRING)
                << name << ": the script reads " << params[i].toStdString() << " as a number";
        }
    }
}

// Every size of every definition (five at least): the script runs with only its shape's
// parameters, and draws nothing degenerate.
TEST_F(SampleContentTest, ScriptsRunForEverySeriesRow) {
    for (CVorDPMDPD* definition : View::AllDefinitions()) {
        const std::string name = definition->GetDPDName().toStdString();
        CVorDPM_DPD_Shape* shape = OnlyShape(definition);
        ASSERT_TRUE(shape);
        const QStringList params = shape->GetParam().split(',');
        EXPECT_GE(View::Series(definition).size(), 5) << name;
        for (CVorDPM_DPD_Serial* row : View::Series(definition)) {
            const QHash<QString, QString> texts = View::Values(definition, *row);
            EXPECT_FALSE(texts.values().contains(QString())) << name << ": a value is missing";
            QHash<QString, double> values = Numbers(texts);
            for (auto it = values.begin(); it != values.end();)
                it = params.contains(it.key()) ? std::next(it) : values.erase(it);
            SampleScriptRunner runner;
            QString error;
            ASSERT_TRUE(runner.Run(ScriptOf(definition, *shape), values, error))
                << name << ": " << error.toStdString();
            ASSERT_GE(runner.Calls().size(), 3) << name;
            for (const SampleDrawCall& call : runner.Calls()) {
                for (double number : call.numbers) ASSERT_TRUE(std::isfinite(number)) << name;
                if (call.function == "circle") {
                    EXPECT_GT(call.numbers[2], 0) << name;
                }
                if (call.function == "rect") {
                    EXPECT_GT(call.numbers[2] * call.numbers[3], 0) << name;
                }
            }
        }
    }
}

// The picture is drawn from the same sketch as the script: run with the picture's values, the
// script must make exactly the sketch's calls.
TEST_F(SampleContentTest, ScriptsDrawWhatThePictureShows) {
    const QStringList functions{"line", "rect", "circle", "arc", "polyline", "polygon", "text"};
    for (const SampleFamily& family : AllFamilies()) {
        CVorDPMDPD* definition = View::Definition(family.definition);
        ASSERT_TRUE(definition) << family.definition.toStdString();
        const SampleSketch sketch = family.Sketch();
        QHash<QString, double> values;
        const QStringList& middle = family.rows.at(family.rows.size() / 2);
        for (int i = 0; i < family.dimensions.size(); ++i)
            values.insert(family.dimensions[i].param, middle[i].toDouble());
        SampleScriptRunner runner;
        QString error;
        ASSERT_TRUE(runner.Run(ScriptOf(definition, *OnlyShape(definition)), values, error));
        ASSERT_EQ(runner.Calls().size(), sketch.Items().size()) << family.definition.toStdString();
        for (int i = 0; i < sketch.Items().size(); ++i) {
            const SampleSketch::Item& item = sketch.Items()[i];
            const SampleDrawCall& call = runner.Calls()[i];
            EXPECT_EQ(call.function, functions[item.kind]);
            ASSERT_EQ(call.numbers.size(), item.numbers.size());
            for (int n = 0; n < item.numbers.size(); ++n)
                EXPECT_NEAR(call.numbers[n], item.numbers[n], 1e-9)
                    << family.definition.toStdString() << " call " << i;
            EXPECT_EQ(call.text, item.text);
        }
    }
}

TEST_F(SampleContentTest, NamingRulesGiveDistinctNamesWithinAProduct) {
    for (CVorDPMDPD* definition : View::AllDefinitions()) {
        QSet<QString> names;
        for (CVorDPM_DPD_Serial* row : View::Series(definition)) {
            QString name;
            ASSERT_EQ(CVorDPMData::ParseProductNameRule(definition, row->GetObjectId(), name), 1);
            const QString keyed = QString::number(row->GetProductId()) + '|' + name;
            EXPECT_FALSE(names.contains(keyed)) << "twice: " << name.toStdString();
            names.insert(keyed);
        }
    }
}

struct NameCase {
    const char* definition;
    QHash<QString, QString> values;
    const char* name;
};

TEST_F(SampleContentTest, NamingRulesReadLikeTradeDesignations) {
    const NameCase cases[] = {
        {"六角头螺栓", {{"d", "12"}, {"l", "50"}}, "六角头螺栓M12*50"},
        {"六角螺母", {{"d", "20"}}, "六角螺母M20"},
        {"无缝钢管", {{"DN", "100"}, {"sch", "Sch40"}}, "无缝钢管Φ114.3*6.02"},
        {"板式平焊法兰", {{"DN", "100"}}, "板式平焊法兰DN100*16"},
        {"热轧工字钢", {{"type", "20a"}}, "工字钢I20a"},
        {"热轧等边角钢", {{"b", "100"}}, "等边角钢∠100*10"},
        {"同心异径管", {{"DN1", "100"}}, "同心异径管DN100*80"},
    };
    for (const NameCase& test : cases) {
        CVorDPMDPD* definition = View::Definition(QString::fromUtf8(test.definition));
        ASSERT_TRUE(definition) << test.definition;
        QStringList found;
        for (CVorDPM_DPD_Serial* row : View::Series(definition)) {
            const QHash<QString, QString> values = View::Values(definition, *row);
            bool matches = true;
            for (auto it = test.values.cbegin(); it != test.values.cend(); ++it)
                matches = matches && values.value(it.key()) == it.value();
            QString name;
            if (matches && CVorDPMData::ParseProductNameRule(definition, row, name))
                found.append(name);
        }
        ASSERT_FALSE(found.isEmpty()) << test.definition;
        EXPECT_EQ(found.first(), QString::fromUtf8(test.name));
    }
}

// Relations every size of a table must satisfy: larger - less > factor * smaller. A shifted
// column or a mistyped digit in a size table breaks one of them. Across corners a regular
// hexagon is at most s / cos 30° wide; a flange's bolt holes lie between its bore and its rim.
struct Relation {
    const char* larger;
    const char* smaller;
    double factor;
    const char* less = nullptr;
};

const std::pair<const char*, std::vector<Relation>> kRelations[] = {
    {"六角头螺栓",
     {{"s", "d", 1},
      {"e", "s", 1},
      {"d", "k", 1},
      {"l", "b", 1},
      {"d", "P", 3},
      {"s", "e", 0.866}}},
    {"六角螺母", {{"e", "s", 1}, {"s", "d", 1}, {"d", "m", 0.9}, {"s", "e", 0.866}}},
    {"平垫圈", {{"d1", "d", 1}, {"d2", "d1", 1.5}, {"d1", "h", 2}}},
    {"无缝钢管", {{"D", "DN", 1}, {"D", "S", 5}, {"W", "S", 0}}},
    {"板式平焊法兰",
     {{"D", "K", 1},
      {"K", "B", 1},
      {"B", "DN", 1},
      {"C", "L", 0.5},
      {"D", "L", 1, "K"},
      {"K", "B", 1, "L"}}},
    {"法兰闸阀", {{"H", "D", 1}, {"L", "DN", 1}, {"D", "DN", 1}, {"W", "DN", 1}}},
    {"同心异径管", {{"DN1", "DN2", 1}, {"D1", "D2", 1}, {"D1", "DN1", 1}}},
    {"热轧钢板", {{"B", "t", 10}, {"L", "B", 1}}},
    {"热轧工字钢", {{"h", "b", 1}, {"b", "d", 5}, {"t", "d", 1}}},
    {"热轧槽钢", {{"h", "b", 1}, {"b", "d", 4}, {"t", "d", 1}}},
    {"热轧等边角钢", {{"b", "d", 4}, {"r", "d", 0.5}}},
};

TEST_F(SampleContentTest, SizeTablesAreConsistent) {
    for (const auto& [name, relations] : kRelations) {
        CVorDPMDPD* definition = View::Definition(QString::fromUtf8(name));
        ASSERT_TRUE(definition) << name;
        for (CVorDPM_DPD_Serial* row : View::Series(definition)) {
            const QHash<QString, double> values = Numbers(View::Values(definition, *row));
            for (const Relation& relation : relations) {
                ASSERT_TRUE(values.contains(relation.larger) && values.contains(relation.smaller));
                const double less = relation.less ? values.value(relation.less, NAN) : 0;
                EXPECT_GT(values[relation.larger] - less,
                          relation.factor * values[relation.smaller])
                    << name << ": " << relation.larger << " = " << values[relation.larger] << ", "
                    << relation.smaller << " = " << values[relation.smaller];
            }
        }
    }
}

TEST_F(SampleContentTest, LibraryInformationCountsMatchTheStore) {
    for (const QString& library : SampleLibrary::LibraryNames()) {
        CVorDPMLibraryManager* owner = View::Library(library);
        CVorDPM_DPI_Info* info = nullptr;
        owner->GetDPI()->GetInfo(info);
        ASSERT_TRUE(info);
        EXPECT_FALSE(info->GetCompanyName().isEmpty());
        EXPECT_FALSE(info->GetKeyword().isEmpty());
        EXPECT_EQ(info->GetLocalProductCount(), owner->GetLocalProductCount());
        EXPECT_EQ(info->GetIncludeProductCount(), owner->GetIncludeProductCount());
        EXPECT_GT(info->GetIncludeProductCount(), 0);
        EXPECT_EQ(info->GetProductCount(),
                  info->GetLocalProductCount() + info->GetIncludeProductCount());
    }
}

TEST_F(SampleContentTest, CommonTablesAreGroupedWithBaseUnits) {
    CVorDPMCommonManager* common = View::Manager()->GetCommonManager();
    CKZList<CVorDPM_DPOUNIT_Group*> unitGroups;
    common->GetUnitDPO()->GetAllGroup(unitGroups, 0);
    CKZList<CVorDPM_DPOUNIT_Unit*> units;
    common->GetUnitDPO()->GetAllUnit(units, 0);
    ASSERT_GE(unitGroups.GetCount(), 3);
    for (CVorDPM_DPOUNIT_Group* group : unitGroups) {
        int members = 0;
        int bases = 0;
        for (CVorDPM_DPOUNIT_Unit* unit : units) {
            if (unit->GetGroupId() != group->GetObjectId()) continue;
            ++members;
            bases += unit->GetConversion() == 1.0;
            EXPECT_FALSE(unit->GetSymbol().isEmpty());
            EXPECT_GT(unit->GetConversion(), 0);
        }
        EXPECT_GE(members, 1) << group->GetName().toStdString();
        EXPECT_EQ(bases, 1) << group->GetName().toStdString() << " needs exactly one base unit";
    }
    CKZList<CVorDPM_DPOPROPERTY_Content*> properties;
    common->GetPropertyDPO()->GetAllContent(properties, 0);
    QSet<int> types;
    for (CVorDPM_DPOPROPERTY_Content* property : properties) types.insert(property->GetValueType());
    EXPECT_EQ(types, QSet<int>({1, 2, 3}));
    CKZList<CVorDPM_DPOINNERPARAM_Group*> paramGroups;
    common->GetInnerParamDPO()->GetAllGroup(paramGroups, 0);
    CKZList<CVorDPM_DPOINNERPARAM_Content*> params;
    common->GetInnerParamDPO()->GetAllContent(params, 0);
    EXPECT_GE(paramGroups.GetCount(), 2);
    for (CVorDPM_DPOINNERPARAM_Content* param : params)
        EXPECT_TRUE(std::any_of(paramGroups.begin(), paramGroups.end(),
                                [&](auto* g) { return g->GetObjectId() == param->GetGroupId(); }));
}

}  // namespace
