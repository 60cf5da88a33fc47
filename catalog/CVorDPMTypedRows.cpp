#include "CVorDPMTypedRows.h"

#include "CVorDPMReportCtrlBase.h"

namespace {

// Adds the item of one cell with the given item data; a cell of another kind makes no item.
// Numbers are read as number items read them: a text that is no number counts as 0.
void AddItem(CVorDPMReportRecord& record, const struTypeData& cell, quint64 data) {
    switch (cell.level) {
        case CVorDPMTypedRows::Text:
            record.AddTextItem(cell.text, data);
            break;
        case CVorDPMTypedRows::Integer:
            record.AddTextItem(QString::number(cell.text.toInt()), data);
            break;
        case CVorDPMTypedRows::Real:
            record.AddTextItem(QString::asprintf("%0.2f", cell.text.toDouble()), data);
            break;
        case CVorDPMTypedRows::Icon:
            record.AddNumberItem(cell.text.toInt(), data);
            break;
        default:
            break;
    }
}

}  // namespace

CVorDPMReportRecord* CVorDPMTypedRows::MakeRecord(const Row& cells, size_t first, quint64 key) {
    auto* record = new CVorDPMReportRecord;
    for (size_t i = first; i < cells.size(); ++i)
        AddItem(*record, cells[i], record->GetItemCount() == 0 ? key : 0);
    return record;
}

void CVorDPMTypedRows::Fill(CVorDPMReportCtrlBase& report, const std::vector<Row>& rows,
                            bool firstIsKey) {
    CVorDPMReportModel* model = report.GetRecords();
    model->BeginRefill();
    model->RemoveAllRecords();
    for (const Row& row : rows) {
        const bool keyed = firstIsKey && !row.empty();
        const quint64 key = keyed ? static_cast<quint64>(row.front().text.toLongLong()) : 0;
        model->AddRecord(MakeRecord(row, keyed ? 1 : 0, key));
    }
    model->EndRefill();
}
