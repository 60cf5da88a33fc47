// The product editor: a child panel that shows the five tables of one product definition
// (property definitions, pictures, shapes, products and series rows) side by side, each with
// new, edit, delete and copy. It changes the store's records and registers every change with
// the command manager; the dialog that hosts it starts, ends or aborts the command and saves.
#pragma once

#include <QWidget>
#include <array>
#include <memory>

#include "CVorDPMAnchorResizer.h"
#include "ExportVorDPMEditor.h"

class CVorDPMDefinitionList;
class CVorDPMEditHistory;
class CVorDPMObject;
class CVorDPMSeriesSheet;
struct VorDPMDefinitionContext;
class CVorDPMDPDBase;
class CVorDPMListCtrlEx;
class QToolButton;

class CVorDPMEditProductDlg : public QWidget {
    Q_OBJECT

public:
    enum { IDD = 5146 };
    // The five tables, in the order of their lists' ids in the command table.
    enum Table : int { Properties = 0, Pictures = 1, Shapes = 2, Products = 3, Series = 4 };
    enum ControlId : int {
        IDC_PROPERTY_LIST = 8057,
        IDC_PICTURE_LIST = 8058,
        IDC_SHAPE_LIST = 8034,
        IDC_PRODUCT_LIST = 8035,
        IDC_SERIES_LIST = 8036,
        // Each list's buttons are new, edit, delete and copy, in this order.
        IDC_PROPERTY_NEW = 8037,
        IDC_PRODUCT_NEW = 8041,
        IDC_PICTURE_NEW = 8045,
        IDC_SHAPE_NEW = 8049,
        IDC_SERIES_NEW = 8053,
    };

    CVorDPMEditProductDlg(CVorDPMDPDBase* dpd, PreviewDrawCallback draw, PreviewCloseCallback close,
                          PreviewMoveCallback move, QWidget* parent = nullptr);
    ~CVorDPMEditProductDlg() override;

    CVorDPMListCtrlEx* GetList(int table) const;
    // The row last reported as selected in a table's list; negative when none.
    int GetSelectedIndex(int table) const;
    // The id of a table's button for `command` (new 0, edit 1, delete 2, copy 3).
    static int ButtonId(int table, int command);
    // Enables each list's edit, delete and copy buttons exactly while it has a selected row.
    void UpdateCommandUi();
    // Adds a text button to the series table's column of buttons, below those there already;
    // it follows the table as the panel grows.
    QToolButton* AddSeriesButton(const char* objectName, const QString& text);
    // Builds every list's columns and rows again from the store, after a change made outside
    // the panel (new properties give the series table new columns).
    void Reload();
    // Adds the undo and redo buttons (`undoEdit`, `redoEdit`) below the series table's buttons,
    // with Ctrl+Z, Ctrl+Shift+Z and Ctrl+Y.
    void AddUndoButtons();
    // The steps since the last save, each change of a table one of them.
    CVorDPMEditHistory* History() const { return m_history; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void CreateTable(int table, const VorDPMDefinitionContext& context);
    // Runs a list's command as one step of the history.
    void RunCommand(int table, int command);
    // After an undo or a redo: shows the store's rows again and selects the rows the step
    // wrote, the first of them current (in the column that was current) and scrolled into view.
    void ReloadAfterStep(const std::vector<CVorDPMObject*>& touched);

    std::array<std::unique_ptr<CVorDPMDefinitionList>, 5> m_tables;
    CVorDPMEditHistory* m_history;
    CVorDPMSeriesSheet* m_sheet = nullptr;
    int m_seriesButtons = 4;
    CVorDPMAnchorResizer m_resizer;
};
