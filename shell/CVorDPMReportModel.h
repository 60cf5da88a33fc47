// The rows of a report control: owns its records and shows their items under column heads.
#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <QList>
#include <QStringList>
#include <memory>
#include <vector>

#include "CVorDPMReportRecord.h"
#include "query/VorDPMEditorExport.h"

class VORDPM_EDITOR_API CVorDPMReportModel : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit CVorDPMReportModel(QObject* parent = nullptr);
    ~CVorDPMReportModel() override;

    // Takes ownership of `record` (a new one) and shows it as the last row; returns it.
    CVorDPMReportRecord* AddRecord(CVorDPMReportRecord* record);
    void RemoveAllRecords();
    // Between these two, records are added without one view update per row: refilling a
    // large list costs one reset.
    void BeginRefill();
    void EndRefill();
    int GetRecordCount() const { return static_cast<int>(m_records.size()); }
    // The record of a row, or null outside the rows.
    CVorDPMReportRecord* GetRecord(int row) const;
    // The row of a record, or -1 when the model does not hold it.
    int GetRow(const CVorDPMReportRecord* record) const;

    void SetColumnHeads(const QStringList& heads);
    const QStringList& GetColumnHeads() const { return m_heads; }
    // Icons that picture items show by their number.
    void SetIcons(const QList<QIcon>& icons);
    // Columns whose text items the user may edit in place; none unless set.
    void SetEditableColumns(const QList<int>& columns);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

private:
    std::vector<std::unique_ptr<CVorDPMReportRecord>> m_records;
    QStringList m_heads;
    QList<QIcon> m_icons;
    QList<int> m_editableColumns;
    bool m_refilling = false;
};
