// Base of every test that builds its data through the store: a fresh temporary library root made
// current for the test, and short-hands that make libraries, catalogs, definitions and rows.
#pragma once

#include <gtest/gtest.h>

#include "CVorDPMManager.h"
#include "support/QtPrinters.h"
#include "support/TempRoot.h"

class StoreTestBase : public ::testing::Test {
protected:
    static CVorDPMManager* Manager() { return CVorDPMManager::GetVorDPMManager(); }

    static CVorDPMLibraryManager* MakeLibrary(const QString& name = QStringLiteral("QXMaterial")) {
        CVorDPMLibraryManager* library = nullptr;
        EXPECT_EQ(Manager()->CreateLibrary(name, library), VOR::eOk) << name.toStdString();
        return library;
    }

    // The library the store knows by `name`, or null.
    static CVorDPMLibraryManager* Library(const QString& name) {
        CVorDPMLibraryManager* library = nullptr;
        Manager()->GetLibrary(name, library);
        return library;
    }

    // The definition `name` of the library the store knows by `library`; null when either is
    // missing. Its rows are read on first use.
    static CVorDPMDPD* Definition(const QString& name,
                                  const QString& library = QStringLiteral("QXMaterial")) {
        CVorDPMLibraryManager* owner = Library(library);
        CVorDPMDPD* dpd = nullptr;
        if (owner) owner->GetDPD(name, dpd);
        return dpd;
    }

    static CVorDPMDPC* MakeCatalog(CVorDPMLibraryManager* library, const QString& name) {
        CVorDPMDPC* catalog = nullptr;
        EXPECT_EQ(library->CreateDPC(name, catalog), VOR::eOk) << name.toStdString();
        return catalog;
    }

    static CVorDPMDPD* MakeDefinition(CVorDPMLibraryManager* library, const QString& name) {
        CVorDPMDPD* dpd = nullptr;
        EXPECT_EQ(library->CreateDPD(name, dpd), VOR::eOk) << name.toStdString();
        return dpd;
    }

    // A catalog entry; added to the catalog unless `catalog` is null.
    static CVorDPM_DPC_Content* MakeEntry(CVorDPMDPC* catalog, const QString& dpd,
                                          const QString& level0 = {}, const QString& level1 = {},
                                          const QString& level2 = {}) {
        auto* entry = new CVorDPM_DPC_Content;
        entry->SetDPD(dpd);
        entry->SetType(CVorDPM_DPC_Content::FirstType, level0);
        entry->SetType(CVorDPM_DPC_Content::SecondType, level1);
        entry->SetType(CVorDPM_DPC_Content::ThirdType, level2);
        if (catalog) {
            EXPECT_EQ(catalog->AddContent(entry), VOR::eOk);
        }
        return entry;
    }

    // A property definition with the parameter name `param`; its alias is `alias`, or
    // "<param>-alias" when none is given.
    static CVorDPM_DPD_Property* AddProperty(CVorDPMDPDBase* dpd, const QString& param,
                                             const QString& alias = {}) {
        auto* property = new CVorDPM_DPD_Property;
        property->SetPropertyAlias(alias.isEmpty() ? param + QStringLiteral("-alias") : alias);
        property->SetParamAlias(param);
        EXPECT_EQ(dpd->AddProperty(property), VOR::eOk);
        return property;
    }

    static CVorDPM_DPD_Product* AddProduct(CVorDPMDPDBase* dpd, const QString& name,
                                           const QString& rule = {}) {
        auto* product = new CVorDPM_DPD_Product;
        product->SetName(name);
        product->SetNameRule(rule);
        EXPECT_EQ(dpd->AddProduct(product), VOR::eOk);
        return product;
    }

    static CVorDPM_DPD_Serial* AddSerial(CVorDPMDPDBase* dpd, const CVorDPM_DPD_Product* product) {
        auto* serial = new CVorDPM_DPD_Serial;
        serial->SetProductId(product->GetObjectId());
        EXPECT_EQ(dpd->AddSerial(serial), VOR::eOk);
        return serial;
    }

    // `count` series rows of `product` (0: none) whose value of `property` is `value`: bulk that
    // makes a save or a copy of the file take a while.
    static void AddValueRows(CVorDPMDPDBase* dpd, int property, int count, const QString& value,
                             int product = 0) {
        for (int i = 0; i < count; ++i) {
            auto* serial = new CVorDPM_DPD_Serial;
            serial->SetProductId(product);
            serial->SetValue(value, property);
            dpd->AddSerial(serial);
        }
    }

    // Something in every table of a definition or template: a property, a product with three
    // series rows (the second deleted, so ids have a gap), a picture, a script and a version.
    static void FillDefinition(CVorDPMDPDBase* dpd) {
        const int d = AddProperty(dpd, QStringLiteral("d"))->GetObjectId();
        const CVorDPM_DPD_Product* product = AddProduct(dpd, QStringLiteral("螺栓"));
        auto* picture = new CVorDPM_DPD_Image;
        picture->SetName(QStringLiteral("front"));
        picture->SetImage(CBinaryData(QByteArray("\x89PNG\0\1\2", 7)));
        EXPECT_EQ(dpd->AddImage(picture), VOR::eOk);
        auto* script = new CVorDPM_DPD_Dps;
        script->SetName(QStringLiteral("shape"));
        script->SetContent(CBinaryData(QByteArray("draw()")));
        EXPECT_EQ(dpd->AddDps(script), VOR::eOk);
        for (const char* size : {"M10", "M12", "M16"})
            AddSerial(dpd, product)->SetValue(QString::fromLatin1(size), d);
        CKZList<CVorDPM_DPD_Serial*> rows;
        dpd->GetAllSerial(rows);
        rows.GetAt(1)->SetDeleted(1);
        auto* version = new CVorDPM_Version;
        version->SetVersion(1.5);
        version->SetAuthor(QStringLiteral("keeper"));
        EXPECT_EQ(dpd->AddVersion(version), VOR::eOk);
    }

    // The names of the definition's live products; none for no definition.
    static QStringList ProductNames(CVorDPMDPDBase* dpd) {
        CKZList<CVorDPM_DPD_Product*> products;
        if (dpd) dpd->GetAllProduct(products);
        QStringList names;
        for (const CVorDPM_DPD_Product* product : products) names.append(product->GetName());
        return names;
    }

    // Drops everything loaded, so that the next lookups read the files again.
    static void Reopen() { Manager()->DiscardChanges(); }

    // Writes everything, then forgets it.
    static void SaveAndReopen() {
        ASSERT_EQ(Manager()->SaveWork(), 1);
        Reopen();
    }

    TempRoot root;
};
