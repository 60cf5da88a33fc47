// One of the five lists of the product editor: its list control, its four command buttons, the
// row last reported as selected, and the new / edit / delete / copy commands on its table.
// The commands register their records with the command manager but never start, end or abort
// a command: the dialog that hosts the product editor does that.
#pragma once

#include <array>
#include <vector>

#include "ExportVorDPMEditor.h"

class CVorDPMDPDBase;
class CVorDPMListCtrlEx;
class CVorDPMObject;
class QAbstractButton;
class QWidget;

// What every list of the product editor works on: the definition, the host's three preview
// callbacks (handed on to the record editor) and the window that owns the record editor.
struct VorDPMDefinitionContext {
    CVorDPMDPDBase* dpd;
    PreviewDrawCallback draw;
    PreviewCloseCallback close;
    PreviewMoveCallback move;
    QWidget* owner;
};

class CVorDPMDefinitionList {
public:
    enum Command : int { New = 0, Edit = 1, Delete = 2, Copy = 3 };
    using Buttons = std::array<QAbstractButton*, 4>;

    CVorDPMDefinitionList(const VorDPMDefinitionContext& context, CVorDPMListCtrlEx* list,
                          const Buttons& buttons);
    virtual ~CVorDPMDefinitionList();
    CVorDPMDefinitionList(const CVorDPMDefinitionList&) = delete;
    CVorDPMDefinitionList& operator=(const CVorDPMDefinitionList&) = delete;

    virtual void BuildColumns() = 0;
    // Shows the table's live records, in the store's order; also the refresh after a change.
    virtual void Fill() = 0;
    void Run(int command);

    CVorDPMListCtrlEx* GetList() const { return m_list; }
    int GetSelectedIndex() const { return m_selected; }
    // The record of the row last reported as selected, or null.
    virtual CVorDPMObject* SelectedObject() const = 0;
    // The rows that show `objects` now, top to bottom; objects of other tables and deleted rows
    // have none.
    virtual std::vector<int> RowsOf(const std::vector<CVorDPMObject*>& objects) const = 0;
    void RecordSelection(int row) { m_selected = row; }
    // Edit, delete and copy are enabled exactly while the list has a selected row.
    void UpdateCommandUi();

protected:
    virtual void OnNew() = 0;
    virtual void OnEdit() = 0;
    virtual void OnDelete() = 0;
    virtual void OnCopy() = 0;

    // The object id in the key cell of the recorded row; false when no row is recorded.
    bool SelectedKey(int keyColumn, int& id) const;
    // After a delete: selects and focuses the row above the deleted one, if there is one.
    void SelectAboveDeleted(int deletedRow);
    // Runs the record editor on `record` in `mode` and reports whether it closed with OK.
    template <class TRecord>
    bool EditRecord(TRecord* record, int mode) const;

    VorDPMDefinitionContext m_context;

private:
    CVorDPMListCtrlEx* m_list;
    Buttons m_buttons;
    int m_selected = -1;
};

// The list of one record class; the classes differ in their columns, their key cell and, for
// series rows, in the order of a delete.
template <class TRecord>
class CVorDPMDefinitionListOf : public CVorDPMDefinitionList {
public:
    using CVorDPMDefinitionList::CVorDPMDefinitionList;

    void BuildColumns() override;
    void Fill() override;
    CVorDPMObject* SelectedObject() const override { return SelectedRecord(); }
    std::vector<int> RowsOf(const std::vector<CVorDPMObject*>& objects) const override;

protected:
    void OnNew() override;
    void OnEdit() override;
    void OnDelete() override;
    void OnCopy() override;

private:
    TRecord* SelectedRecord() const;
    // Adds a record made by new or copy once the record editor accepted it.
    void AddAccepted(TRecord* record);
};
