#include <sqlite3.h>

#include <QFile>

#include "support/StoreTestBase.h"

namespace {

// Rows of a table as the file holds them, read with plain SQLite.
int RowsInFile(const QString& path, const char* table) {
    sqlite3* db = nullptr;
    sqlite3_open_v2(QFile::encodeName(path).constData(), &db, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_stmt* statement = nullptr;
    const QByteArray sql = QByteArray("SELECT count(*) FROM ") + table;
    sqlite3_prepare_v2(db, sql.constData(), -1, &statement, nullptr);
    const int count = sqlite3_step(statement) == SQLITE_ROW ? sqlite3_column_int(statement, 0) : -1;
    sqlite3_finalize(statement);
    sqlite3_close(db);
    return count;
}

}  // namespace

class DefinitionTest : public StoreTestBase {
protected:
    void SetUp() override {
        m_library = MakeLibrary();
        m_dpd = MakeDefinition(m_library, QStringLiteral("六角头螺栓"));
    }

    CVorDPMDPD* Reload() {
        Reopen();
        m_library = Library(QStringLiteral("QXMaterial"));
        return Definition(QStringLiteral("六角头螺栓"));
    }

    CVorDPMLibraryManager* m_library = nullptr;
    CVorDPMDPD* m_dpd = nullptr;
};

TEST_F(DefinitionTest, AllTablesRoundTripThroughTheFile) {
    CVorDPM_DPD_Property* d = AddProperty(m_dpd, QStringLiteral("d"), QStringLiteral("公称直径"));
    d->SetUnit(QStringLiteral("mm"));
    d->SetSerialCheck(1);
    auto* image = new CVorDPM_DPD_Image;
    image->SetName(QStringLiteral("主视图"));
    image->SetImage(CBinaryData(QByteArray("\x89PNG\0\1\2", 7)));
    ASSERT_EQ(m_dpd->AddImage(image), VOR::eOk);
    auto* script = new CVorDPM_DPD_Dps;
    script->SetName(QStringLiteral("bolt"));
    script->SetContent(CBinaryData(QByteArray("circle(0, 0, d / 2)")));
    ASSERT_EQ(m_dpd->AddDps(script), VOR::eOk);
    auto* shape = new CVorDPM_DPD_Shape;
    shape->SetName(QStringLiteral("形体"));
    shape->SetDPSId(script->GetObjectId());
    shape->SetParam(QStringLiteral("d,l"));
    shape->SetParamType(QStringLiteral("0,1"));
    ASSERT_EQ(m_dpd->AddShape(shape), VOR::eOk);
    EXPECT_EQ(shape->SetParamIndex(QStringLiteral("l"), 7), 1);
    EXPECT_EQ(shape->SetParamIndex(QStringLiteral("x"), 7), 0);
    CVorDPM_DPD_Serial* serial =
        AddSerial(m_dpd, AddProduct(m_dpd, QStringLiteral("螺栓"), QStringLiteral("Bolt%d")));
    serial->SetValue(QStringLiteral("M12"), d->GetObjectId());
    const QString key = serial->GetKey();
    EXPECT_FALSE(key.isEmpty());
    const int shapeId = shape->GetObjectId();
    ASSERT_EQ(Manager()->SaveWork(), 1);

    CVorDPMDPD* dpd = Reload();
    ASSERT_NE(dpd, nullptr);
    CKZList<CVorDPM_DPD_Property*> properties;
    dpd->GetAllProperty(properties);
    ASSERT_EQ(properties.GetCount(), 1);
    EXPECT_EQ(properties.GetAt(0)->GetUnit(), QStringLiteral("mm"));
    EXPECT_EQ(properties.GetAt(0)->GetSerialCheck(), 1);
    CKZList<CVorDPM_DPD_Image*> images;
    dpd->GetAllImage(images);
    ASSERT_EQ(images.GetCount(), 1);
    EXPECT_EQ(images.GetAt(0)->GetImage().Bytes(), QByteArray("\x89PNG\0\1\2", 7));
    CVorDPM_DPD_Shape* loadedShape = nullptr;
    ASSERT_EQ(dpd->GetShape(shapeId, loadedShape), VOR::eOk);
    EXPECT_EQ(loadedShape->GetParamType(QStringLiteral("l")), 1);
    EXPECT_EQ(loadedShape->GetParamIndex(QStringLiteral("l")), 7);
    EXPECT_EQ(loadedShape->GetParamIndex(QStringLiteral("d")), 0);
    EXPECT_EQ(loadedShape->GetParamType(QStringLiteral("nope")), -1);
    CVorDPM_DPD_Dps* loadedScript = nullptr;
    ASSERT_EQ(dpd->GetDps(loadedShape->GetDPSId(), loadedScript), VOR::eOk);
    EXPECT_EQ(loadedScript->GetContent().Bytes(), QByteArray("circle(0, 0, d / 2)"));
    CVorDPM_DPD_Serial* byKey = nullptr;
    ASSERT_EQ(dpd->GetSerial(key, byKey), VOR::eOk);
    EXPECT_EQ(byKey->GetValue(properties.GetAt(0)->GetObjectId()), QStringLiteral("M12"));
    CVorDPM_DPD_Serial* byId = nullptr;
    ASSERT_EQ(dpd->GetSerial(byKey->GetObjectId(), byId), VOR::eOk);
    EXPECT_EQ(byId, byKey);
}

TEST_F(DefinitionTest, SeriesValuesKeepAnyTextPerProperty) {
    auto* serial = new CVorDPM_DPD_Serial;
    ASSERT_EQ(m_dpd->AddSerial(serial), VOR::eOk);
    const std::vector<std::pair<int, QString>> values = {
        {1, QStringLiteral("M12")},        {12, QStringLiteral("a=b\nc\\n")},
        {2, QStringLiteral("中文 值")},    {123, QStringLiteral("\\")},
        {3, QStringLiteral("trailing\n")},
    };
    for (const auto& [id, value] : values) serial->SetValue(value, id);
    serial->SetValue(QStringLiteral("M16"), 1);  // replaces, does not add
    serial->SetValue(QString(), 2);              // empty removes
    const QString key = serial->GetKey();
    ASSERT_EQ(Manager()->SaveWork(), 1);
    CVorDPM_DPD_Serial* loaded = nullptr;
    ASSERT_EQ(Reload()->GetSerial(key, loaded), VOR::eOk);
    EXPECT_EQ(loaded->GetValue(1), QStringLiteral("M16"));
    EXPECT_EQ(loaded->GetValue(2), QString());
    EXPECT_EQ(loaded->GetValue(12), QStringLiteral("a=b\nc\\n"));
    EXPECT_EQ(loaded->GetValue(123), QStringLiteral("\\"));
    EXPECT_EQ(loaded->GetValue(3), QStringLiteral("trailing\n"));
    EXPECT_EQ(loaded->GetValue(23), QString());  // a prefix of another id is not that id
}

TEST_F(DefinitionTest, RowChecksReportEmptyAndDuplicateFields) {
    AddProperty(m_dpd, QStringLiteral("d"), QStringLiteral("直径"));
    CVorDPM_DPD_Product* product = AddProduct(m_dpd, QStringLiteral("螺栓"));
    struct Case {
        const char* label;
        QString alias, param;
        VOR::ErrorStatus expected;
    };
    const Case properties[] = {
        {"fine", "长度", "l", VOR::eOk},
        {"empty alias", "", "l", VOR::eRequiredEmpty},
        {"blank param", "长度", "  ", VOR::eRequiredEmpty},
        {"same alias", "直径", "x", VOR::eNameExists},
        {"same param other case", "其它", "D", VOR::eNameExists},
    };
    for (const Case& c : properties) {
        CVorDPM_DPD_Property row;
        row.SetPropertyAlias(c.alias);
        row.SetParamAlias(c.param);
        EXPECT_EQ(m_dpd->IsValid(&row), c.expected) << c.label;
    }
    CVorDPM_DPD_Product twin;
    twin.SetName(QStringLiteral("螺栓"));
    EXPECT_EQ(m_dpd->IsValid(&twin), VOR::eNameExists);
    EXPECT_EQ(m_dpd->IsValid(product), VOR::eOk);  // a row is not its own duplicate
    CVorDPM_DPD_Image unnamed;
    EXPECT_EQ(m_dpd->IsValid(&unnamed), VOR::eRequiredEmpty);
    CVorDPM_DPD_Shape shape;
    shape.SetName(QStringLiteral("s"));
    EXPECT_EQ(m_dpd->IsValid(&shape), VOR::eOk);
    CVorDPM_DPD_Serial orphan;
    EXPECT_EQ(m_dpd->IsValid(&orphan), VOR::eRequiredEmpty);
    orphan.SetProductId(product->GetObjectId());
    EXPECT_EQ(m_dpd->IsValid(&orphan), VOR::eOk);
    // A deleted row no longer takes its name.
    product->SetDeleted(1);
    EXPECT_EQ(m_dpd->IsValid(&twin), VOR::eOk);
}

TEST_F(DefinitionTest, DeletedRowsAreHiddenAndRemovedFromTheFileOnSave) {
    CVorDPM_DPD_Property* keep = AddProperty(m_dpd, QStringLiteral("a"), QStringLiteral("a"));
    CVorDPM_DPD_Property* drop = AddProperty(m_dpd, QStringLiteral("b"), QStringLiteral("b"));
    ASSERT_EQ(Manager()->SaveWork(), 1);
    EXPECT_EQ(RowsInFile(m_dpd->GetDPDFullPath(), "property"), 2);
    drop->SetDeleted(1);
    CKZList<CVorDPM_DPD_Property*> live;
    m_dpd->GetAllProperty(live);
    ASSERT_EQ(live.GetCount(), 1);
    EXPECT_EQ(live.GetAt(0), keep);
    CVorDPM_DPD_Property* gone = nullptr;
    EXPECT_NE(m_dpd->GetProperty(drop->GetObjectId(), gone), VOR::eOk);
    ASSERT_EQ(Manager()->SaveWork(), 1);
    EXPECT_EQ(RowsInFile(m_dpd->GetDPDFullPath(), "property"), 1);
    // New rows never take the id of a deleted one.
    CVorDPM_DPD_Property* next = AddProperty(m_dpd, QStringLiteral("c"), QStringLiteral("c"));
    EXPECT_GT(next->GetObjectId(), drop->GetObjectId());
}

TEST_F(DefinitionTest, TemplatesAreMadeFromDefinitionsAndDefinitionsFromTemplates) {
    AddProperty(m_dpd, QStringLiteral("d"), QStringLiteral("直径"));
    ASSERT_EQ(m_library->CopyDPDAsDPT(QStringLiteral("六角头螺栓"), QStringLiteral("螺栓模板"),
                                      QString()),
              VOR::eOk);
    EXPECT_EQ(m_library->CopyDPDAsDPT(QStringLiteral("六角头螺栓"), QStringLiteral("螺栓模板"),
                                      QString()),
              VOR::eNameExists);
    ASSERT_EQ(m_library->CopyDPDAsDPT(QStringLiteral("六角头螺栓"), QStringLiteral("库模板"),
                                      QStringLiteral("QXMaterial")),
              VOR::eOk);
    EXPECT_EQ(m_library->CopyDPDAsDPT(QStringLiteral("六角头螺栓"), QStringLiteral("x"),
                                      QStringLiteral("NoSuchLibrary")),
              VOR::eNotFound);
    EXPECT_EQ(m_library->GetVorDPMTemplateManager()->HasDPT(QStringLiteral("库模板")), 1);
    EXPECT_TRUE(QFile::exists(root.File(QStringLiteral("templates/螺栓模板.DPT"))));
    EXPECT_TRUE(QFile::exists(root.File(QStringLiteral("QXMaterial/templates/库模板.DPT"))));

    Reopen();
    CVorDPMDPT* pattern = nullptr;
    ASSERT_EQ(Manager()->GetTemplateManager()->GetDPT(QStringLiteral("螺栓模板"), pattern),
              VOR::eOk);
    ASSERT_EQ(Manager()->GetLibrary(QStringLiteral("QXMaterial"), m_library), VOR::eOk);
    CVorDPMDPD* fromTemplate = nullptr;
    ASSERT_EQ(m_library->CreateDPD(QStringLiteral("新螺栓"), pattern, fromTemplate), VOR::eOk);
    CKZList<CVorDPM_DPD_Property*> properties;
    fromTemplate->GetAllProperty(properties);
    ASSERT_EQ(properties.GetCount(), 1);
    EXPECT_EQ(properties.GetAt(0)->GetParamAlias(), QStringLiteral("d"));
    EXPECT_EQ(Manager()->GetTemplateManager()->RemoveDPT(QStringLiteral("螺栓模板")), VOR::eOk);
    QStringList names;
    Manager()->GetTemplateManager()->GetAllDPTName(names);
    EXPECT_TRUE(names.isEmpty());
}
