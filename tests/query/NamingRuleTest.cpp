#include "QueryFixture.h"
#include "query/CVorDPMData.h"

namespace {

struct RuleCase {
    const char* rule;
    const char* expected;  // null: building the name fails
    const char* d = "M12";
    const char* k = "";
    const char* angle = "";
};

}  // namespace

// A bolt definition with the parameters d, l, k and Δα in that table order.
class NamingRuleTest : public StoreTestBase {
protected:
    void SetUp() override {
        m_library = MakeLibrary(QStringLiteral("QXMaterial"));
        m_dpd = MakeDefinition(m_library, QStringLiteral("HexBolt"));
        m_d = AddProperty(m_dpd, QStringLiteral("d"));
        m_l = AddProperty(m_dpd, QStringLiteral("l"));
        m_k = AddProperty(m_dpd, QStringLiteral("k"));
        m_angle = AddProperty(m_dpd, QStringLiteral("Δα"));
    }

    // A series row of a product with that rule, d = M12, l = 50 and k left empty.
    CVorDPM_DPD_Serial* RowWithRule(const QString& rule) {
        CVorDPM_DPD_Product* product = AddProduct(m_dpd, rule + QStringLiteral("#product"), rule);
        CVorDPM_DPD_Serial* serial = AddSerial(m_dpd, product);
        serial->SetValue(QStringLiteral("M12"), m_d->GetObjectId());
        serial->SetValue(QStringLiteral("50"), m_l->GetObjectId());
        return serial;
    }

    CVorDPMLibraryManager* m_library = nullptr;
    CVorDPMDPD* m_dpd = nullptr;
    CVorDPM_DPD_Property* m_d = nullptr;
    CVorDPM_DPD_Property* m_l = nullptr;
    CVorDPM_DPD_Property* m_k = nullptr;
    CVorDPM_DPD_Property* m_angle = nullptr;
};

TEST_F(NamingRuleTest, BuildsNamesFromRules) {
    const RuleCase cases[] = {
        {"Bolt%d%l", "BoltM12*50"},
        {"Bolt", "Bolt"},
        // Values follow the property order, not the order of the tokens.
        {"Bolt%l%d", "BoltM12*50"},
        // Space, "*" and "%" are interchangeable separators, in any number.
        {"Bolt d*l", "BoltM12*50"},
        {"%%Bolt** %d  l%", "BoltM12*50"},
        // Parameter names are compared without regard to case.
        {"Bolt%D%L", "BoltM12*50"},
        // The first token is always literal, even when it names a parameter.
        {"%d", "d"},
        {"d%l", "d50"},
        // Unknown names and empty values contribute nothing; repeats contribute twice.
        {"Bolt%x%l", "Bolt50"},
        {"Bolt%k%l", "Bolt50"},
        {"Bolt%d%d", "BoltM12*M12"},
        {"螺栓%d%l", "螺栓M12*50"},
        {"% *%", nullptr},
        {"", nullptr},
        // The third and later values are joined with stars too.
        {"Bolt%k%l%d", "BoltM12*50*7.5", "M12", "7.5"},
        // Values appear as stored, beyond ASCII and with escaped characters.
        {"Bolt%d%l", "Bolt不锈钢 A2*50", "不锈钢 A2"},
        {"Bolt%d%l", "BoltΩ10*50", "Ω10"},
        {"Bolt%d%l", "Boltback\\slash*50", "back\\slash"},
        {"Bolt%d%l", "Bolttwo\nlines*50", "two\nlines"},
        // Letter case is ignored beyond ASCII too.
        {"Bolt%δΑ%dd", "Bolt30", "M12", "", "30"},
    };
    for (const RuleCase& c : cases) {
        CVorDPM_DPD_Serial* serial = RowWithRule(QString::fromUtf8(c.rule));
        serial->SetValue(QString::fromUtf8(c.d), m_d->GetObjectId());
        serial->SetValue(QString::fromUtf8(c.k), m_k->GetObjectId());
        serial->SetValue(QString::fromUtf8(c.angle), m_angle->GetObjectId());
        QString name = QStringLiteral(">");
        const int ok = CVorDPMData::ParseProductNameRule(m_dpd, serial, name);
        EXPECT_EQ(ok, c.expected ? 1 : 0) << c.rule;
        EXPECT_EQ(name, QStringLiteral(">") + QString::fromUtf8(c.expected ? c.expected : ""))
            << c.rule;
    }
}

TEST_F(NamingRuleTest, FindsRowsByKeyAndByIdAfterReopening) {
    CVorDPM_DPD_Serial* serial = RowWithRule(QStringLiteral("Bolt%d%l"));
    const QString key = serial->GetKey();
    const int id = serial->GetObjectId();
    SaveAndReopen();
    CVorDPMDPD* dpd = Definition(QStringLiteral("HexBolt"));
    ASSERT_NE(dpd, nullptr);

    QString byKey;
    EXPECT_EQ(CVorDPMData::ParseProductNameRule(dpd, key, byKey), 1);
    EXPECT_EQ(byKey, QStringLiteral("BoltM12*50"));
    QString byId;
    EXPECT_EQ(CVorDPMData::ParseProductNameRule(dpd, id, byId), 1);
    EXPECT_EQ(byId, QStringLiteral("BoltM12*50"));
}

TEST_F(NamingRuleTest, FailsWithoutTouchingTheName) {
    CVorDPM_DPD_Serial* serial = RowWithRule(QStringLiteral("Bolt%d"));
    auto* orphan = new CVorDPM_DPD_Serial;
    orphan->SetProductId(9999);
    QString name = QStringLiteral("unchanged");

    EXPECT_EQ(CVorDPMData::ParseProductNameRule(nullptr, nullptr, name), 0);
    EXPECT_EQ(CVorDPMData::ParseProductNameRule(m_dpd, nullptr, name), 0);
    EXPECT_EQ(CVorDPMData::ParseProductNameRule(m_dpd, orphan, name), 0);
    EXPECT_EQ(CVorDPMData::ParseProductNameRule(m_dpd, QStringLiteral("no such key"), name), 0);
    EXPECT_EQ(CVorDPMData::ParseProductNameRule(m_dpd, serial->GetObjectId() + 100, name), 0);
    EXPECT_EQ(CVorDPMData::ParseProductNameRule(nullptr, serial->GetKey(), name), 0);
    EXPECT_EQ(CVorDPMData::ParseProductNameRule(nullptr, serial->GetObjectId(), name), 0);
    // A row whose product was deleted has no rule.
    CVorDPM_DPD_Product* product = nullptr;
    ASSERT_EQ(m_dpd->GetProduct(serial->GetProductId(), product), VOR::eOk);
    product->SetDeleted(1);
    EXPECT_EQ(CVorDPMData::ParseProductNameRule(m_dpd, serial, name), 0);
    EXPECT_EQ(name, QStringLiteral("unchanged"));
    delete orphan;
}
