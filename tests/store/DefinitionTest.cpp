#include <QFile>

#include "support/StoreFileEdits.h"
#include "support/StoreTestBase.h"

class DefinitionTest : public StoreTestBase {
protected:
    void SetUp() override {
        m_library = MakeLibrary();
        m_dpd = MakeDefinition(m_library, QStringLiteral("六角头螺栓"));
    }

    CVorDPMLibraryManager* m_library = nullptr;
    CVorDPMDPD* m_dpd = nullptr;
};

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
    EXPECT_EQ(Column(m_dpd->GetDPDFullPath(), "SELECT count(*) AS n FROM property", "n"),
              QStringList{"2"});
    drop->SetDeleted(1);
    CKZList<CVorDPM_DPD_Property*> live;
    m_dpd->GetAllProperty(live);
    ASSERT_EQ(live.GetCount(), 1);
    EXPECT_EQ(live.GetAt(0), keep);
    CVorDPM_DPD_Property* gone = nullptr;
    EXPECT_NE(m_dpd->GetProperty(drop->GetObjectId(), gone), VOR::eOk);
    ASSERT_EQ(Manager()->SaveWork(), 1);
    EXPECT_EQ(Column(m_dpd->GetDPDFullPath(), "SELECT count(*) AS n FROM property", "n"),
              QStringList{"1"});
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
