// Applies a compared import to its definition in one command: new properties for the columns
// to add, the changed cells of changed rows, new series rows for added rows (their product from
// the product column, else the definition's first product), and missing rows removed when that
// was asked for; then saves, as the create-product dialog does.
#pragma once

#include <vector>

#include "FamilyStoreWork.h"

class FamilyImport;

class FamilyImportApply : public FamilyStoreWork {
    Q_DECLARE_TR_FUNCTIONS(FamilyImportApply)

public:
    // `import` must have compared without refusal or misfits, and outlive this object.
    explicit FamilyImportApply(const FamilyImport& import);
    ~FamilyImportApply() override;

    qint64 RowCount() const override;

protected:
    bool Prepare() override;
    bool DoRow(qint64 index) override;
    void Saved() override;

private:
    bool Change(qint64 index);
    bool Add(qint64 index);
    // The id a fixed column names in a row; `otherwise` when the file has no such column or
    // its cell is empty.
    int NamedId(int kind, int sheetRow, int otherwise) const;
    bool Check(class CVorDPM_DPD_Serial* serial, int sheetRow);

    const FamilyImport& m_import;
    // The property object id of every column that carries values; 0 for the other columns.
    std::vector<int> m_propertyIds;
};
