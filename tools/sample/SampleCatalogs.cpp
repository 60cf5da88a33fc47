#include "SampleCatalogs.h"

#include <vector>

#include "CVorDPMManager.h"
#include "SampleStep.h"
#include "SampleVersions.h"

namespace {

struct Entry {
    const char* definition;
    const char* level0;
    const char* level1;
    const char* level2;
};

struct Reference {
    const char* library;
    const char* catalog;
};

struct Catalog {
    const char* library;
    const char* name;
    std::vector<Entry> entries;
    std::vector<Reference> references;
};

// "同心异径管" of QXMEP is deliberately in no catalog. "标准件" also references a library and a
// catalog that do not exist, as references do once their target has been removed, so that the
// catalog page shows every status of a reference.
const Catalog kCatalogs[] = {
    {"QXMaterial",
     "标准件",
     {{"六角头螺栓", "紧固件", "螺栓", "六角头螺栓"},
      {"六角螺母", "紧固件", "螺母", "六角螺母"},
      {"平垫圈", "紧固件", "垫圈", "平垫圈"}},
     {{"QXMEP", "阀门"}, {"QXElectric", "电缆桥架"}, {"QXMEP", "保温"}}},
    {"QXMaterial",
     "型钢",
     {{"热轧工字钢", "型钢", "工字钢", ""},
      {"热轧槽钢", "型钢", "槽钢", ""},
      {"热轧等边角钢", "型钢", "角钢", ""}},
     {}},
    {"QXMaterial", "板材", {{"热轧钢板", "钢板", "", ""}}, {}},
    {"QXMaterial",
     "常用材料",
     {{"热轧钢板", "", "", ""}, {"六角头螺栓", "", "", ""}, {"热轧工字钢", "结构用", "", ""}},
     {{"QXMEP", "管道"}}},
    {"QXMEP",
     "管道",
     {{"无缝钢管", "管子", "无缝钢管", ""}, {"板式平焊法兰", "管件", "法兰", ""}},
     {{"QXMaterial", "标准件"}}},
    {"QXMEP", "阀门", {{"法兰闸阀", "通用阀门", "闸阀", "法兰连接闸阀"}}, {}},
};

QString Text(const char* text) {
    return QString::fromUtf8(text);
}

bool AddEntries(CVorDPMDPC* catalog, const Catalog& spec, QString& error) {
    for (const Entry& entry : spec.entries) {
        auto* content = new CVorDPM_DPC_Content;
        content->SetDPD(Text(entry.definition));
        content->SetType(CVorDPM_DPC_Content::FirstType, Text(entry.level0));
        content->SetType(CVorDPM_DPC_Content::SecondType, Text(entry.level1));
        content->SetType(CVorDPM_DPC_Content::ThirdType, Text(entry.level2));
        if (!SampleStep::Ok(catalog->AddContent(content), content->GetDPD(), error)) return false;
    }
    return true;
}

bool AddReferences(CVorDPMDPC* catalog, const Catalog& spec, QString& error) {
    for (const Reference& reference : spec.references) {
        auto* include = new CVorDPM_DPC_Include;
        include->SetLibraryName(Text(reference.library));
        include->SetDPCName(Text(reference.catalog));
        if (!SampleStep::Ok(catalog->AddInclude(include), include->GetDPCName(), error))
            return false;
    }
    return true;
}

}  // namespace

bool SampleCatalogs::Write(CVorDPMManager* manager, QString& error) {
    for (const Catalog& spec : kCatalogs) {
        CVorDPMLibraryManager* library = nullptr;
        manager->GetLibrary(Text(spec.library), library);
        if (!library) return SampleStep::Fail(Text(spec.library), error);
        CVorDPMDPC* catalog = nullptr;
        if (!SampleStep::Ok(library->CreateDPC(Text(spec.name), catalog), Text(spec.name), error) ||
            !AddEntries(catalog, spec, error) || !AddReferences(catalog, spec, error) ||
            !SampleVersions::Add(catalog, {QStringLiteral("建立产品目录")}, error))
            return false;
    }
    return true;
}
