// A new product definition from a family table file: the dialog shows the file's first rows, the
// header row (proposed: the first row as full as the fullest, none of its cells a number), the
// new definition's name and its naming rule (proposed: the name followed by the key column's
// parameter), and what the header makes of the columns. Run asks for the file, shows the dialog
// and creates the definition, saved, in one command.
#pragma once

#include <QDialog>

class CVorDPMDPD;
class CVorDPMLibraryManager;
class FamilyCreate;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QTableWidget;
struct FamilyFile;

class CVorDPMTableCreateDlg : public QDialog {
    Q_OBJECT

public:
    // Object names of the dialog and its controls, for tests.
    static const char* const kDialogName;
    static const char* const kRowsName;
    static const char* const kHeaderRowName;
    static const char* const kNameName;
    static const char* const kRuleName;
    static const char* const kSummaryName;
    static const char* const kCreateName;

    // `create` and `file` outlive the dialog; `name` is the proposed name of the definition.
    CVorDPMTableCreateDlg(FamilyCreate& create, const FamilyFile& file, const QString& name,
                          QWidget* parent = nullptr);

    // Asks for a file and makes a definition of it in `library`; the definition made and saved,
    // null when the user cancelled or it could not be made (after a message).
    static CVorDPMDPD* Run(QWidget* parent, CVorDPMLibraryManager* library);

protected:
    void accept() override;

private:
    void FillRows();
    // Reads the file again with the chosen header row; false when it cannot make a definition.
    bool Plan();
    void OnNameEdited(const QString& name);

    FamilyCreate& m_create;
    const FamilyFile& m_file;
    QTableWidget* m_rows;
    QSpinBox* m_headerRow;
    QLineEdit* m_name;
    QLineEdit* m_rule;
    QLabel* m_summary;
    QPushButton* m_createButton;
    // The rule as proposed last; a rule the user typed is kept when the name changes.
    QString m_proposedRule;
};
