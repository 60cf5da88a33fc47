#include <QJsonDocument>
#include <QJsonObject>

#include "support/StoreTestBase.h"
#include "support/ToolRunner.h"

// `show --json` is written piece by piece; its text must be what QJsonDocument writes for the
// same object, byte for byte, whatever the keys and values hold.
class ShowJsonLayoutTest : public StoreTestBase {
protected:
    QString ShowJson(const QString& definition) const {
        const ToolRun run =
            ToolRunner::Run({"show", "Lib", definition, "--json", "--root", root.Path()});
        EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
        return run.out;
    }

    static QString AsQtWritesIt(const QString& json) {
        QJsonParseError error;
        const QJsonDocument document = QJsonDocument::fromJson(json.toUtf8(), &error);
        EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
        return QString::fromUtf8(document.toJson(QJsonDocument::Indented));
    }
};

TEST_F(ShowJsonLayoutTest, EqualsTheIndentedDocumentOfTheSameObject) {
    CVorDPMLibraryManager* library = MakeLibrary(QStringLiteral("Lib"));
    CVorDPMDPD* dpd = MakeDefinition(library, QStringLiteral("Odd"));
    MakeDefinition(library, QStringLiteral("Empty"));  // empty tables keep Qt's layout too
    // Parameter names out of code-unit order, upper case before lower, one given twice (the
    // later value wins), and non-ASCII.
    const QString params[] = {"b", "A", "a", "直径", "b"};
    std::vector<int> ids;
    for (const QString& param : params) {
        auto* property = new CVorDPM_DPD_Property;
        property->SetPropertyAlias(param + QString::number(ids.size()));
        property->SetParamAlias(param);
        ASSERT_EQ(dpd->AddProperty(property), VOR::eOk);
        ids.push_back(property->GetObjectId());
    }
    const CVorDPM_DPD_Product* product =
        AddProduct(dpd, QStringLiteral("Quote \" and \\ back"), QStringLiteral("R%a"));
    const QString values[] = {
        "plain",        "tab\there", "line\nbreak\r", QString(QChar(1)) + QChar(0x1f),
        "中文 /slash/", "",          "\b\f",          "x\x7fy"};
    for (int r = 0; r < 3; ++r) {
        CVorDPM_DPD_Serial* row = AddSerial(dpd, product);
        for (size_t p = 0; p < ids.size(); ++p)
            row->SetValue(values[(r * 3 + p) % std::size(values)], ids[p]);
    }
    SaveAndReopen();

    const QString empty = ShowJson(QStringLiteral("Empty"));
    EXPECT_EQ(empty.toStdString(), AsQtWritesIt(empty).toStdString());
    const QString json = ShowJson(QStringLiteral("Odd"));
    EXPECT_EQ(json.toStdString(), AsQtWritesIt(json).toStdString());
    const QJsonObject document = QJsonDocument::fromJson(json.toUtf8()).object();
    // The second "b" property's value replaced the first's.
    const QJsonObject first = document["series"][0].toObject()["values"].toObject();
    EXPECT_EQ(first["b"].toString(), values[4 % std::size(values)]);
    EXPECT_EQ(first["直径"].toString(), values[3]);
}
