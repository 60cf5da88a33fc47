// The grid ("report") control of the editor's pages: rows of text cells, optionally with a
// leading picture cell, read back by record, column and selection.
#pragma once

#include <QIcon>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTreeView>
#include <vector>

#include "CVorDPMReportModel.h"
#include "CVorDPMReportRecord.h"
#include "query/VorDPMEditorExport.h"

class VORDPM_EDITOR_API CVorDPMReportCtrlBase : public QTreeView {
    Q_OBJECT

public:
    explicit CVorDPMReportCtrlBase(QWidget* parent = nullptr);

    // Takes the place of `placeholder` (same parent, geometry, name and place in a layout) and
    // deletes it; 0 when there is no placeholder or it has no parent.
    int CreateFromResource(QWidget* placeholder);

    // Column heads, replacing any present; `widths` in pixels where given.
    void SetColumnHeads(const QStringList& heads, const std::vector<int>& widths = {});
    // Icons that picture cells show by their index.
    void SetIcons(const QList<QIcon>& icons);

    // The record passes to the control. With `firstIsKey` the first cell is the row's key (an
    // integer kept as the next item's data) and is not shown.
    CVorDPMReportRecord* AddRecord(CVorDPMReportRecord* record, const std::vector<QString>& cells,
                                   bool firstIsKey);
    // Cells: key, icon index, then texts.
    CVorDPMReportRecord* AddImageRecord(CVorDPMReportRecord* record,
                                        const std::vector<QString>& cells);
    CVorDPMReportModel* AddAllRecords(const std::vector<std::vector<QString>>& rows,
                                      bool firstIsKey, bool withImage);
    int ClearReportCtrl();
    void RemoveAllColumns();

    quint64 GetRecordItemData(const CVorDPMReportRecord* record, int column) const;
    int GetRecordItemText(const CVorDPMReportRecord* record, int column, QString& text) const;
    // The record of the first selected row, or null.
    CVorDPMReportRecord* GetSelRecord() const;
    // All selected records, top to bottom.
    std::vector<CVorDPMReportRecord*> GetSelRecords() const;
    int GetSelRecordItemValue(int column, QString& text) const;
    quint64 GetSelectRecordData(const CVorDPMReportRecord* record) const;
    int SetFocuseRow();
    void SetMultipleSelectEx(int multiple);

    CVorDPMReportModel* GetRecords() const { return m_model; }

signals:
    // The selection moved; `record` is the first selected record or null.
    void RecordSelectionChanged(CVorDPMReportRecord* record);
    // Also sent for Enter on the current record, which opens what a double click opens.
    void RecordDoubleClicked(CVorDPMReportRecord* record);

protected:
    void PreSubclassWindow();
    void keyPressEvent(QKeyEvent* event) override;

private:
    CVorDPMReportModel* m_model;
};
