#include "SampleLibraryInfo.h"

#include "CVorDPMManager.h"
#include "SamplePicture.h"
#include "SampleStep.h"
#include "SampleVersions.h"

namespace {

struct Info {
    const char* library;
    const char* company;
    const char* description;
    const char* keyword;
};

const Info kInfos[] = {
    {"QXMaterial", "QX 材料数据中心",
     "常用工程材料示例库: 紧固件、型钢与钢板, 规格尺寸取自公开的国家标准尺寸表",
     "紧固件;型钢;钢板;GB/T"},
    {"QXMEP", "QX 机电数据中心",
     "机电管道示例库: 无缝钢管、管法兰、闸阀与异径管, 规格尺寸取自公开的管道元件标准",
     "管道;法兰;阀门;管件"},
};

// A book with the library's name as the picture of the library.
QByteArray Cover(const QString& library) {
    SampleSketch sketch(library, {});
    sketch.Rect(0, 0, 80, 100);
    sketch.Line(8, 0, 8, 100);
    sketch.Rect(20, 60, 50, 20);
    sketch.Text(24, 66, library);
    return SamplePicture::Png(sketch);
}

bool WriteInfo(CVorDPMLibraryManager* library, const Info& spec, QString& error) {
    CVorDPMDPI* dpi = library->GetDPI();
    const QString what = library->GetLibraryName() + QStringLiteral(" information");
    if (!dpi) return SampleStep::Fail(what, error);
    CVorDPM_DPI_Info* info = nullptr;
    if (!SampleStep::Ok(dpi->GetInfo(info), what, error)) return false;
    const int local = library->GetLocalProductCount();
    const int included = library->GetIncludeProductCount();
    info->SetCompanyName(QString::fromUtf8(spec.company));
    info->SetDescription(QString::fromUtf8(spec.description));
    info->SetKeyword(QString::fromUtf8(spec.keyword));
    info->SetAuthor(QStringLiteral("QX 标准化组"));
    info->SetImage(CBinaryData(Cover(library->GetLibraryName())));
    info->SetLocalProductCount(local);
    info->SetIncludeProductCount(included);
    info->SetProductCount(local + included);
    return SampleVersions::Add(
        dpi, {QStringLiteral("创建示例库"), QStringLiteral("补充规格系列与产品目录")}, error);
}

}  // namespace

bool SampleLibraryInfo::Write(CVorDPMManager* manager, QString& error) {
    for (const Info& spec : kInfos) {
        CVorDPMLibraryManager* library = nullptr;
        manager->GetLibrary(QString::fromUtf8(spec.library), library);
        if (!library) return SampleStep::Fail(QString::fromUtf8(spec.library), error);
        if (!WriteInfo(library, spec, error)) return false;
    }
    return true;
}
