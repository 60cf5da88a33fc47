#include <gtest/gtest.h>

#ifdef VORDPM_HAVE_SAMPLE

#include "CVorDPMManager.h"
#include "LuaPreviewScript.h"
#include "sample/SampleLibrary.h"
#include "support/TempRoot.h"

// Every preview script of the sample library draws in the host's sandbox with the values of a
// series row, as the editor hands them over.
namespace {

struct Preview {
    QString where;
    QByteArray script;
    std::map<QString, _struParam> params;
    std::map<int, tagVorDPM_Value> values;
};

tagVorDPM_Value ValueOf(const QString& text) {
    tagVorDPM_Value value;
    bool number = false;
    const double real = text.toDouble(&number);
    if (number)
        value = real;
    else
        value = text;
    return value;
}

QString PropertyValue(CVorDPMDPD* dpd, CVorDPM_DPD_Serial* row, const QString& param) {
    CKZList<CVorDPM_DPD_Property*> properties;
    dpd->GetAllProperty(properties);
    for (CVorDPM_DPD_Property* property : properties)
        if (property->GetParamAlias() == param)
            return row ? row->GetValue(property->GetObjectId()) : property->GetDefValue();
    return QString();
}

CVorDPM_DPD_Serial* RowOf(CVorDPMDPD* dpd, int shapeId) {
    CKZList<CVorDPM_DPD_Serial*> rows;
    dpd->GetAllSerial(rows);
    for (CVorDPM_DPD_Serial* row : rows)
        if (row->GetShapeId() == shapeId) return row;
    return nullptr;
}

Preview PreviewOf(CVorDPMDPD* dpd, CVorDPM_DPD_Shape* shape, const QString& where) {
    Preview preview{where, {}, {}, {}};
    CVorDPM_DPD_Dps* dps = nullptr;
    if (dpd->GetDps(shape->GetDPSId(), dps) == VOR::eOk && dps)
        preview.script = QByteArray(dps->GetContent().GetPtr(), dps->GetContent().GetSize());
    const QStringList names = shape->GetParam().split(QLatin1Char(','), Qt::SkipEmptyParts);
    const QStringList indexes = shape->GetParamIndex().split(QLatin1Char(','));
    CVorDPM_DPD_Serial* row = RowOf(dpd, shape->GetObjectId());
    for (int i = 0; i < names.size() && i < indexes.size(); ++i) {
        const int index = indexes[i].toInt();
        preview.params[names[i]] = {0, index};
        preview.values[index] = ValueOf(PropertyValue(dpd, row, names[i]));
    }
    return preview;
}

std::vector<Preview> AllPreviews() {
    std::vector<Preview> previews;
    CVorDPMManager* store = CVorDPMManager::GetVorDPMManager();
    QStringList libraries;
    store->GetAllLibraryName(libraries);
    for (const QString& libraryName : libraries) {
        CVorDPMLibraryManager* library = nullptr;
        if (store->GetLibrary(libraryName, library) != VOR::eOk) continue;
        QStringList definitions;
        library->GetAllDPDName(definitions);
        for (const QString& name : definitions) {
            CVorDPMDPD* dpd = nullptr;
            if (library->GetDPD(name, dpd) != VOR::eOk || !dpd) continue;
            CKZList<CVorDPM_DPD_Shape*> shapes;
            dpd->GetAllShape(shapes);
            for (CVorDPM_DPD_Shape* shape : shapes)
                previews.push_back(
                    PreviewOf(dpd, shape, libraryName + '/' + name + '/' + shape->GetName()));
        }
    }
    return previews;
}

TEST(SampleScripts, EveryShapeOfTheSampleDrawsInTheSandbox) {
    TempRoot root;
    QString error;
    ASSERT_TRUE(SampleLibrary::Create(root.Path(), 1, error)) << error.toStdString();
    const std::vector<Preview> previews = AllPreviews();
    ASSERT_GE(previews.size(), 5u);
    for (const Preview& preview : previews) {
        SCOPED_TRACE(preview.where.toStdString());
        ASSERT_FALSE(preview.script.isEmpty());
        const auto result = LuaPreviewScript::Run(preview.script, preview.params, preview.values);
        EXPECT_TRUE(result.error.isEmpty()) << result.error.toStdString();
        EXPECT_FALSE(result.drawing.IsEmpty());
        EXPECT_GT(result.drawing.BoundingBox().width() + result.drawing.BoundingBox().height(), 0);
    }
}

}  // namespace

#endif
