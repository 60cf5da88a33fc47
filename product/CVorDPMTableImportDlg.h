// The import preview: what a family table file would change in a definition before anything is
// written. The user picks the key column, ticks columns that match no property to add them as
// properties, and chooses whether rows the file lacks are removed; each choice compares the file
// again. "导入" is offered only when the file changes something and every cell fits.
#pragma once

#include <QDialog>

class CVorDPMTableImportModel;
class FamilyImport;
class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QTableView;

class CVorDPMTableImportDlg : public QDialog {
    Q_OBJECT

public:
    // Object names of the dialog and its controls, for tests.
    static const char* const kDialogName;
    static const char* const kKeyName;
    static const char* const kColumnsName;
    static const char* const kRemoveName;
    static const char* const kSummaryName;
    static const char* const kChangesName;
    static const char* const kProblemsName;
    static const char* const kApplyName;

    // `import` has been compared without refusal; the dialog compares it again on each choice.
    CVorDPMTableImportDlg(FamilyImport& import, const QString& fileName, QWidget* parent = nullptr);

    CVorDPMTableImportModel* GetModel() const { return m_model; }

private:
    void FillKeys();
    void FillColumns();
    void Compare();
    void ShowResult();
    QString ColumnText(int column) const;

    FamilyImport& m_import;
    QComboBox* m_key;
    QListWidget* m_columns;
    QCheckBox* m_remove;
    QLabel* m_summary;
    QTableView* m_changes;
    QListWidget* m_problems;
    QPushButton* m_apply;
    CVorDPMTableImportModel* m_model;
};
