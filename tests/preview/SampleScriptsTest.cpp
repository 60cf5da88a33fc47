#include <gtest/gtest.h>

#ifdef VORDPM_HAVE_SAMPLE

#include "CVorDPMManager.h"
#include "PreviewRunner.h"
#include "sample/SampleLibrary.h"
#include "support/TempRoot.h"

// Every preview script of the sample library draws in the sandbox with the values of a series
// row, and its drawing can be fitted to the preview area.
namespace {

struct Preview {
    QString where;
    QByteArray script;
    PreviewParameters parameters;
};

PreviewValue ValueOf(const QString& text) {
    bool number = false;
    const double real = text.toDouble(&number);
    if (number) return real;
    return text;
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
    Preview preview{where, {}, {}};
    CVorDPM_DPD_Dps* dps = nullptr;
    if (dpd->GetDps(shape->GetDPSId(), dps) == VOR::eOk && dps)
        preview.script = QByteArray(dps->GetContent().GetPtr(), dps->GetContent().GetSize());
    const QStringList names = shape->GetParam().split(QLatin1Char(','), Qt::SkipEmptyParts);
    CVorDPM_DPD_Serial* row = RowOf(dpd, shape->GetObjectId());
    for (const QString& name : names)
        preview.parameters[name] = ValueOf(PropertyValue(dpd, row, name));
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
    PreviewRunner runner;
    for (const Preview& preview : previews) {
        SCOPED_TRACE(preview.where.toStdString());
        ASSERT_FALSE(preview.script.isEmpty());
        const PreviewResult result = runner.Run(preview.script, preview.parameters);
        EXPECT_EQ(result.outcome, PreviewResult::Finished) << result.Message().toStdString();
        EXPECT_TRUE(result.drawing.HasExtent());
    }
}

}  // namespace

#endif
