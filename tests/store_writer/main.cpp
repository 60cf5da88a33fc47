// Child process for the store's crash and concurrency tests: opens a library root, makes one
// change through the store and reports the outcome on standard output ("saving"/"copying"
// before the write, so that the parent can kill it mid-write, then "ok" or "failed <reason>").
// A copy of a definition waits for a line on standard input after "copying".
//   store_writer ROOT values LIBRARY DEFINITION VALUE   every series value of the definition
//   store_writer ROOT product-name LIBRARY DEFINITION NAME   renames the first product
//   store_writer ROOT delete-product LIBRARY DEFINITION      deletes the first product
//   store_writer ROOT add-product LIBRARY DEFINITION NAME    adds a product
//   store_writer ROOT renames LIBRARY DEFINITION COUNT  renames the first product "1" to COUNT,
//                                                      saving after each
//   store_writer ROOT remove-dpd|rename-dpd|copy-dpd LIBRARY DEFINITION [NEW NAME]
//   store_writer ROOT remove-library|rename-library|copy-library LIBRARY [NEW NAME]
//   store_writer ROOT open LIBRARY   reads every file of the library, its templates and the
//                                    common tables; "refused <reason>" for each that fails
#include <cstdio>
#include <functional>
#include <map>

#include "CVorDPMManager.h"

namespace {

CVorDPMManager* Manager() {
    return CVorDPMManager::GetVorDPMManager();
}

void Say(const QString& text) {
    std::printf("%s\n", qPrintable(text));
    std::fflush(stdout);
}

CVorDPM_DPD_Product* FirstProduct(CVorDPMDPD* dpd) {
    CKZList<CVorDPM_DPD_Product*> products;
    dpd->GetAllProduct(products);
    return products.IsEmpty() ? nullptr : products.GetAt(0);
}

int Save() {
    Say(QStringLiteral("saving"));
    return Manager()->SaveWork() ? VOR::eOk : VOR::eFileError;
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

// Reads a file; a refusal is told and the run goes on with the next file.
bool Readable(const CVorDPMDBBase* file) {
    if (file && file->EnsureLoaded()) return true;
    Say(QStringLiteral("refused ") +
        (file ? file->GetLoadError() : CVorDPMManager::GetLastErrorText()));
    return false;
}

// Reads the file of each name, found by `get` (GetDPC, GetDPD, GetDPT); false when any of them
// is refused.
template <class Owner, class File>
bool ReadEach(Owner* owner, VOR::ErrorStatus (Owner::*get)(const QString&, File*&),
              const QStringList& names) {
    bool ok = true;
    for (const QString& name : names) {
        File* file = nullptr;
        (owner->*get)(name, file);
        ok = Readable(file) && ok;
    }
    return ok;
}

int OpenEverything(CVorDPMLibraryManager* library, const QStringList&) {
    bool ok = Readable(library->GetDPI());
    ok = Readable(Manager()->GetCommonManager()->GetPropertyDPO()) && ok;
    QStringList catalogs, definitions, templates;
    library->GetAllDPCName(catalogs);
    library->GetAllDPDName(definitions);
    CVorDPMTemplateManager* own = library->GetVorDPMTemplateManager();
    own->GetAllDPTName(templates);
    ok = ReadEach(library, &CVorDPMLibraryManager::GetDPC, catalogs) && ok;
    ok = ReadEach(library, &CVorDPMLibraryManager::GetDPD, definitions) && ok;
    ok = ReadEach(own, &CVorDPMTemplateManager::GetDPT, templates) && ok;
    return ok ? VOR::eOk : VOR::eFileError;
}

using Command = std::function<int(CVorDPMLibraryManager*, const QStringList& arguments)>;
using DefinitionCommand =
    std::function<int(CVorDPMLibraryManager*, CVorDPMDPD*, const QString& argument)>;

// A command on a definition of the library, named by the first argument.
Command OnDefinition(const DefinitionCommand& run) {
    return [run](CVorDPMLibraryManager* library, const QStringList& arguments) {
        CVorDPMDPD* dpd = nullptr;
        if (arguments.isEmpty() || library->GetDPD(arguments[0], dpd) != VOR::eOk)
            return static_cast<int>(VOR::eNotFound);
        return run(library, dpd, arguments.value(1));
    };
}

const std::map<std::string, Command>& Commands() {
    static const std::map<std::string, Command> commands{
        {"values", OnDefinition(SetValues)},
        {"product-name",
         OnDefinition([](CVorDPMLibraryManager*, CVorDPMDPD* dpd, const QString& name) {
             FirstProduct(dpd)->SetName(name);
             return Save();
         })},
        {"delete-product",
         OnDefinition([](CVorDPMLibraryManager*, CVorDPMDPD* dpd, const QString&) {
             FirstProduct(dpd)->SetDeleted(1);
             return Save();
         })},
        {"add-product",
         OnDefinition([](CVorDPMLibraryManager*, CVorDPMDPD* dpd, const QString& name) {
             auto* product = new CVorDPM_DPD_Product;
             product->SetName(name);
             dpd->AddProduct(product);
             return Save();
         })},
        {"renames", OnDefinition([](CVorDPMLibraryManager*, CVorDPMDPD* dpd, const QString& count) {
             int status = VOR::eOk;
             for (int i = 1; i <= count.toInt() && status == VOR::eOk; ++i) {
                 FirstProduct(dpd)->SetName(QString::number(i));
                 status = Save();
             }
             return status;
         })},
        {"remove-dpd",
         OnDefinition([](CVorDPMLibraryManager* library, CVorDPMDPD* dpd, const QString&) {
             return static_cast<int>(library->RemoveDPD(dpd->GetDPDName()));
         })},
        {"rename-dpd",
         OnDefinition([](CVorDPMLibraryManager* library, CVorDPMDPD* dpd, const QString& name) {
             return static_cast<int>(library->RenameDPD(dpd->GetDPDName(), name));
         })},
        {"copy-dpd",
         OnDefinition([](CVorDPMLibraryManager* library, CVorDPMDPD* dpd, const QString& name) {
             CKZList<CVorDPM_DPD_Serial*> rows;
             dpd->GetAllSerial(rows);  // read before copying, so that the copy is the write
             // Waits for the parent's go, so that two children can start at the same moment.
             Say(QStringLiteral("copying"));
             char go[8];
             if (!std::fgets(go, sizeof go, stdin)) return static_cast<int>(VOR::eFail);
             return static_cast<int>(library->CopyDPD(dpd->GetDPDName(), name));
         })},
        {"remove-library",
         [](CVorDPMLibraryManager* library, const QStringList&) {
             return Manager()->RemoveLibrary(library->GetLibraryName()) ? VOR::eOk
                                                                        : VOR::eFileError;
         }},
        {"rename-library",
         [](CVorDPMLibraryManager* library, const QStringList& arguments) {
             return static_cast<int>(
                 Manager()->RenameLibrary(library->GetLibraryName(), arguments.value(0)));
         }},
        {"copy-library",
         [](CVorDPMLibraryManager* library, const QStringList& arguments) {
             Say(QStringLiteral("copying"));
             return static_cast<int>(
                 Manager()->CopyLibrary(library->GetLibraryName(), arguments.value(0)));
         }},
        {"open", OpenEverything},
    };
    return commands;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 4 || !Commands().count(argv[2])) {
        std::fprintf(stderr, "usage: store_writer ROOT COMMAND LIBRARY [ARGUMENT...]\n");
        return 2;
    }
    if (!Manager()->SetDPMLibraryRootPath(QString::fromUtf8(argv[1]))) return 1;
    CVorDPMLibraryManager* library = nullptr;
    Manager()->GetLibrary(QString::fromUtf8(argv[3]), library);
    if (!library) return 1;
    QStringList arguments;
    for (int i = 4; i < argc; ++i) arguments.append(QString::fromUtf8(argv[i]));
    const int status = Commands().at(argv[2])(library, arguments);
    if (status == VOR::eOk) {
        Say(QStringLiteral("ok"));
        return 0;
    }
    Say(QStringLiteral("failed %1 %2").arg(status).arg(CVorDPMManager::GetLastErrorText()));
    return 1;
}
