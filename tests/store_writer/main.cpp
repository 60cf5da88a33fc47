// Child process for the store's crash and concurrency tests: opens a library root, makes one
// change through the store and reports the outcome on standard output ("saving"/"copying"
// before the write, so that the parent can kill it mid-write, then "ok" or "failed <reason>").
// A copy waits for a line on standard input after "copying".
//   store_writer ROOT values LIBRARY DEFINITION VALUE   every series value of the definition
//   store_writer ROOT product-name LIBRARY DEFINITION NAME   renames the first product
//   store_writer ROOT delete-product LIBRARY DEFINITION      deletes the first product
//   store_writer ROOT add-product LIBRARY DEFINITION NAME    adds a product
//   store_writer ROOT remove-dpd|rename-dpd|copy-dpd LIBRARY DEFINITION [NEW NAME]
#include <cstdio>
#include <functional>
#include <map>

#include "CVorDPMManager.h"

namespace {

void Say(const char* text) {
    std::printf("%s\n", text);
    std::fflush(stdout);
}

CVorDPM_DPD_Product* FirstProduct(CVorDPMDPD* dpd) {
    CKZList<CVorDPM_DPD_Product*> products;
    dpd->GetAllProduct(products);
    return products.IsEmpty() ? nullptr : products.GetAt(0);
}

int Save() {
    Say("saving");
    return CVorDPMManager::GetVorDPMManager()->SaveWork() ? VOR::eOk : VOR::eFileError;
}

int SetValues(CVorDPMLibraryManager*, CVorDPMDPD* dpd, const QString& value) {
    CKZList<CVorDPM_DPD_Property*> properties;
    CKZList<CVorDPM_DPD_Serial*> serials;
    dpd->GetAllProperty(properties);
    dpd->GetAllSerial(serials);
    for (CVorDPM_DPD_Serial* serial : serials)
        for (CVorDPM_DPD_Property* property : properties)
            serial->SetValue(value, property->GetObjectId());
    return Save();
}

using Command = std::function<int(CVorDPMLibraryManager*, CVorDPMDPD*, const QString&)>;

const std::map<std::string, Command>& Commands() {
    static const std::map<std::string, Command> commands{
        {"values", SetValues},
        {"product-name",
         [](CVorDPMLibraryManager*, CVorDPMDPD* dpd, const QString& name) {
             FirstProduct(dpd)->SetName(name);
             return Save();
         }},
        {"delete-product",
         [](CVorDPMLibraryManager*, CVorDPMDPD* dpd, const QString&) {
             FirstProduct(dpd)->SetDeleted(1);
             return Save();
         }},
        {"add-product",
         [](CVorDPMLibraryManager*, CVorDPMDPD* dpd, const QString& name) {
             auto* product = new CVorDPM_DPD_Product;
             product->SetName(name);
             dpd->AddProduct(product);
             return Save();
         }},
        {"remove-dpd",
         [](CVorDPMLibraryManager* library, CVorDPMDPD* dpd, const QString&) {
             return static_cast<int>(library->RemoveDPD(dpd->GetDPDName()));
         }},
        {"rename-dpd",
         [](CVorDPMLibraryManager* library, CVorDPMDPD* dpd, const QString& name) {
             return static_cast<int>(library->RenameDPD(dpd->GetDPDName(), name));
         }},
        {"copy-dpd",
         [](CVorDPMLibraryManager* library, CVorDPMDPD* dpd, const QString& name) {
             CKZList<CVorDPM_DPD_Serial*> rows;
             dpd->GetAllSerial(rows);  // read before copying, so that the copy is the write
             // Waits for the parent's go, so that two children can start at the same moment.
             Say("copying");
             char go[8];
             if (!std::fgets(go, sizeof go, stdin)) return static_cast<int>(VOR::eFail);
             return static_cast<int>(library->CopyDPD(dpd->GetDPDName(), name));
         }},
    };
    return commands;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 5 || !Commands().count(argv[2])) {
        std::fprintf(stderr, "usage: store_writer ROOT COMMAND LIBRARY DEFINITION [ARGUMENT]\n");
        return 2;
    }
    CVorDPMManager* manager = CVorDPMManager::GetVorDPMManager();
    if (!manager->SetDPMLibraryRootPath(QString::fromUtf8(argv[1]))) return 1;
    CVorDPMLibraryManager* library = nullptr;
    CVorDPMDPD* dpd = nullptr;
    manager->GetLibrary(QString::fromUtf8(argv[3]), library);
    if (!library || library->GetDPD(QString::fromUtf8(argv[4]), dpd) != VOR::eOk) return 1;
    const QString argument = argc > 5 ? QString::fromUtf8(argv[5]) : QString();
    const int status = Commands().at(argv[2])(library, dpd, argument);
    if (status == VOR::eOk) {
        Say("ok");
        return 0;
    }
    std::printf("failed %d %s\n", status, qPrintable(CVorDPMManager::GetLastErrorText()));
    return 1;
}
