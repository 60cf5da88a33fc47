#include "BenchData.h"

#include <unistd.h>

#include <QDir>
#include <QFile>

#include "CVorDPMManager.h"

namespace {

CVorDPMManager* Manager() {
    return CVorDPMManager::GetVorDPMManager();
}

}  // namespace

CVorDPMLibraryManager* BenchData::Library(const QString& name) {
    CVorDPMLibraryManager* library = nullptr;
    Manager()->GetLibrary(name, library);
    if (!library) Manager()->CreateLibrary(name, library);
    return library;
}

CVorDPMDPD* BenchData::MakeDefinition(CVorDPMLibraryManager& library, const QString& name,
                                      int rows) {
    CVorDPMDPD* dpd = nullptr;
    if (library.CreateDPD(name, dpd) != VOR::eOk) qFatal("cannot create %s", qPrintable(name));
    std::vector<int> properties;
    for (int p = 0; p < kProperties; ++p) {
        auto* property = new CVorDPM_DPD_Property;
        property->SetPropertyAlias(QStringLiteral("属性%1").arg(p));
        property->SetParamAlias(QStringLiteral("p%1").arg(p));
        dpd->AddProperty(property);
        properties.push_back(property->GetObjectId());
    }
    auto* product = new CVorDPM_DPD_Product;
    product->SetName(QStringLiteral("产品"));
    product->SetNameRule(QStringLiteral("P%p0%p1"));
    dpd->AddProduct(product);
    const QString texts[] = {QStringLiteral("碳钢"), QStringLiteral("不锈钢 A2"),
                             QStringLiteral("镀锌")};
    for (int r = 0; r < rows; ++r) {
        auto* serial = new CVorDPM_DPD_Serial;
        serial->SetProductId(product->GetObjectId());
        for (int p = 0; p < kProperties; ++p) {
            const QString value =
                p % 5 == 4 ? texts[(r + p) % 3] : QString::number(r * 0.5 + p, 'f', 1);
            serial->SetValue(value, properties[static_cast<size_t>(p)]);
        }
        dpd->AddSerial(serial);
    }
    if (Manager()->SaveWork() != 1) qFatal("cannot save %s", qPrintable(name));
    return dpd;
}

QString BenchData::DefinitionName(const QString& prefix, int index) {
    return prefix + QStringLiteral("%1").arg(index, 5, 10, QLatin1Char('0'));
}

void BenchData::MakeManyDefinitions(CVorDPMLibraryManager& library, const QString& prefix,
                                    int count, double version) {
    CVorDPMDPD* first = nullptr;
    if (library.CreateDPD(DefinitionName(prefix, 0), first) != VOR::eOk)
        qFatal("cannot create a definition");
    if (version > 0) {
        auto* record = new CVorDPM_Version;
        record->SetVersion(version);
        first->AddVersion(record);
        if (Manager()->SaveWork() != 1) qFatal("cannot save a definition");
    }
    LinkCopies(library, *first, prefix, count);
}

void BenchData::LinkCopies(const CVorDPMLibraryManager& library, const CVorDPMDPD& first,
                           const QString& prefix, int count) {
    const QByteArray source = QFile::encodeName(first.GetDPDFullPath());
    const QDir folder(library.GetFolder());
    for (int i = 1; i < count; ++i) {
        const QByteArray target =
            QFile::encodeName(folder.filePath(DefinitionName(prefix, i) + QStringLiteral(".DPD")));
        if (::link(source.constData(), target.constData()) != 0)
            qFatal("cannot link %s", target.constData());
    }
}

void BenchData::MakeCataloguedLibrary(const QString& name, int definitions) {
    CVorDPMLibraryManager* library = Library(name);
    if (!library) qFatal("cannot create the library %s", qPrintable(name));
    MakeManyDefinitions(*library, QStringLiteral("P"), definitions, 1.0);
    const int catalogued = definitions / 2;
    for (int c = 0; c < kCatalogs; ++c) {
        CVorDPMDPC* catalog = nullptr;
        library->CreateDPC(QStringLiteral("Catalog%1").arg(c), catalog);
        for (int i = c; i < catalogued; i += kCatalogs) {
            auto* entry = new CVorDPM_DPC_Content;
            entry->SetDPD(DefinitionName(QStringLiteral("P"), i));
            entry->SetType0(QStringLiteral("大类%1").arg(i % kLevelTexts[0]));
            entry->SetType1(QStringLiteral("中类%1").arg(i / 7 % kLevelTexts[1]));
            entry->SetType2(QStringLiteral("小类%1").arg(i / 11 % kLevelTexts[2]));
            catalog->AddContent(entry);
        }
    }
    if (Manager()->SaveWork() != 1) qFatal("cannot save the library %s", qPrintable(name));
}
