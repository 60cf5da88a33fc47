// The table operations of a product definition by record class, so that code which treats the
// five editable tables alike is written once: fetch the live rows, find one by object id, add
// one.
#pragma once

#include <vector>

#include "CVorDPMDPDBase.h"

template <class TRecord>
struct VorDPMDefinitionTable;

#define VORDPM_DEFINITION_TABLE(Record, GetAllRows, GetRow, AddRow)                                \
    template <>                                                                                    \
    struct VorDPMDefinitionTable<Record> {                                                         \
        static VOR::ErrorStatus GetAll(CVorDPMDPDBase* dpd, CKZList<Record*>& out) {               \
            return dpd->GetAllRows(out, 0);                                                        \
        }                                                                                          \
        static VOR::ErrorStatus Get(CVorDPMDPDBase* dpd, int id, Record*& out) {                   \
            return dpd->GetRow(id, out, 0);                                                        \
        }                                                                                          \
        static VOR::ErrorStatus Add(CVorDPMDPDBase* dpd, Record* row) { return dpd->AddRow(row); } \
    };

VORDPM_DEFINITION_TABLE(CVorDPM_DPD_Property, GetAllProperty, GetProperty, AddProperty)
VORDPM_DEFINITION_TABLE(CVorDPM_DPD_Image, GetAllImage, GetImage, AddImage)
VORDPM_DEFINITION_TABLE(CVorDPM_DPD_Shape, GetAllShape, GetShape, AddShape)
VORDPM_DEFINITION_TABLE(CVorDPM_DPD_Product, GetAllProduct, GetProduct, AddProduct)
VORDPM_DEFINITION_TABLE(CVorDPM_DPD_Serial, GetAllSerial, GetSerial, AddSerial)

#undef VORDPM_DEFINITION_TABLE

namespace VorDPMDefinitionTables {

// The live rows of a table, in table order.
template <class TRecord>
std::vector<TRecord*> LiveRows(CVorDPMDPDBase* dpd) {
    std::vector<TRecord*> rows;
    if (!dpd) return rows;
    CKZList<TRecord*> list;
    VorDPMDefinitionTable<TRecord>::GetAll(dpd, list);
    rows.reserve(list.GetCount());
    for (TRecord* row : list) rows.push_back(row);
    return rows;
}

// The row with that object id, or null.
template <class TRecord>
TRecord* Find(CVorDPMDPDBase* dpd, int id) {
    TRecord* row = nullptr;
    if (dpd) VorDPMDefinitionTable<TRecord>::Get(dpd, id, row);
    return row;
}

// Whether the series rows show a value of the property: one with the property id -1 is
// internal to the definition.
inline bool IsValueProperty(const CVorDPM_DPD_Property& property) {
    return property.GetPropertyId() != -1;
}

// The properties whose values the series rows show, in the order of the property list.
inline std::vector<CVorDPM_DPD_Property*> ValueProperties(CVorDPMDPDBase* dpd) {
    std::vector<CVorDPM_DPD_Property*> shown;
    for (CVorDPM_DPD_Property* property : LiveRows<CVorDPM_DPD_Property>(dpd))
        if (IsValueProperty(*property)) shown.push_back(property);
    return shown;
}

}  // namespace VorDPMDefinitionTables
