// The editor's main window: the library tree on the left, the three-page sheet on the right, the
// menu bar and the tree's right-button menus with the library and catalog commands.
#pragma once

#include <QString>
#include <map>
#include <memory>

#include "CVorDPMDialogBase.h"
#include "ExportVorDPMEditor.h"

class CDPMContentPage;
class CDPMDataPage;
class CDPMSheet;
class CDPMlibraryPage;
class CVorDPMLibraryManager;
class CVorDPMLibrarySearch;
class CVorDPMTreeCtrlEx;
class QCheckBox;
class QMenu;
class QMenuBar;
class QTreeWidgetItem;

class CVorDPMEditorDlg : public CVorDPMDialogBase {
    Q_OBJECT

public:
    enum { IDD = 5102, IDR_MAINFRAME = 5128, IDR_MENU = 5129 };
    enum { IDR_LIBRARY_MENU = 5193, IDR_CATALOG_MENU = 5194 };
    enum { IDC_TREE = 8000 };
    // The object name of the check box under the tree that switches between the two fixed
    // libraries and every library of the root (the editor's option, remembered).
    static const char* const kShowAllLibrariesName;
    // Commands of the menus; 17257 to 17259 belong to no menu and are reached by id only.
    enum Command : int {
        ID_DO_NOTHING = 17257,
        ID_OPEN_FILE = 17258,
        ID_SAVE_WORK = 17259,
        ID_NEW_LIBRARY = 17269,
        ID_REMOVE_LIBRARIES = 17270,
        ID_LIBRARY_ROOT = 17271,
        ID_NEW_CATALOG = 17272,
        ID_COPY_CATALOG = 17273,
        ID_RENAME_CATALOG = 17275,
        ID_DELETE_CATALOG = 17287,
        ID_NEW_LIBRARY_RB = 17290,
        ID_DELETE_LIBRARY = 17292,
        ID_PROPERTY_TABLE = 17299,
        ID_UNIT_TABLE = 17300,
        ID_INNER_PARAM_TABLE = 17301,
        ID_NEW_TEMPLATE = 40033,
        ID_EDIT_TEMPLATE = 40034,
        ID_DELETE_TEMPLATE = 40035,
    };

    CVorDPMEditorDlg(PreviewDrawCallback draw, PreviewCloseCallback close, PreviewMoveCallback move,
                     QWidget* parent = nullptr);
    // Brings the product counts of every library's information record up to date (unsaved).
    ~CVorDPMEditorDlg() override;

    // Runs the handler of a command as its menu entry does; false when the dialog has none.
    bool OnCommand(int commandId);
    // The right-button menu of a node: the library menu for a root, the catalog menu for a
    // child; null for no node. Its actions run OnCommand.
    std::unique_ptr<QMenu> CreateNodeMenu(QTreeWidgetItem* node);
    // Enables each menu-bar entry that has a handler, then lets the pages update theirs.
    void UpdateCommandUi() override;

    CVorDPMTreeCtrlEx* GetTreeCtrl() const { return m_tree; }
    CDPMSheet* GetSheet() const { return m_sheet; }
    CDPMlibraryPage* GetLibraryPage() const { return m_libraryPage; }
    CDPMContentPage* GetContentPage() const { return m_contentPage; }
    CDPMDataPage* GetDataPage() const { return m_dataPage; }
    QMenuBar* GetMenuBar() const { return m_menuBar; }
    CVorDPMLibrarySearch* GetSearch() const { return m_search; }
    const QString& GetCurrentPath() const { return CurrentPath; }
    // Raised when a page changes the store's data; lowered by a successful save.
    bool IsModified() const { return m_modified; }

protected:
    bool OnInitDialog() override;
    // Enter on a tree node opens or closes it, as a double click does.
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    using Handler = void (CVorDPMEditorDlg::*)();
    static const std::map<int, Handler>& Handlers();

    void BuildMenuBar();
    // The menu bar from the keyboard: Alt alone or F10 enters it, Alt with a letter opens a menu.
    void BindMenuKeys();
    void LayOutTemplate();
    void AddMenuCommand(QMenu* menu, int commandId, const QString& text);
    void BuildTree();
    // Empties the tree, builds it again and selects `library` (and `catalog` below it) when the
    // tree still shows it, else the first library.
    void RebuildTree(const QString& library = QString(), const QString& catalog = QString());
    void PlaceSheet();

    void OnSelChanged(QTreeWidgetItem* node);
    // Hands a path to the three pages; empty when no node is left to show.
    void ShowPath(const QString& path);
    void OnShowAllLibraries(bool all);
    void OnTreeContextMenu(const QPoint& position);
    void OnLabelEditEnd(QWidget* editor);
    // Where a finding of the library check leads: its definition in the create-product dialog,
    // or its catalog.
    void OpenDefinition(const QString& library, const QString& definition);
    void SelectCatalog(const QString& library, const QString& catalog);
    // Where the library search leads: the node of the library or catalog, and below it a node
    // of the product data page with one of its product rows.
    void GoToSearchMatch(const QString& library, const QString& catalog,
                         const QStringList& dataPagePath, int serialId);

    void OnOpenFile();
    void OnSaveWork();
    void OnNewLibrary();
    void OnRemoveLibraries();
    void OnLibraryRoot();
    void OnNewCatalog();
    void OnCopyCatalog();
    void OnRenameCatalog();
    void OnDeleteCatalog();
    void OnDeleteLibrary();
    void OnPropertyTable();
    void OnUnitTable();
    void OnInnerParamTable();
    void OpenCommonTable(int mode);
    void OnNewTemplate();
    void OnEditTemplate();
    void OnDeleteTemplate();

    QTreeWidgetItem* SelectedNode() const;
    // The library of a node by name: its own text for a root, its parent's for a catalog.
    static CVorDPMLibraryManager* FindLibrary(QTreeWidgetItem* node);
    static QTreeWidgetItem* LibraryNode(QTreeWidgetItem* node);
    void ShowMessage(const QString& text);

    CDPMlibraryPage* m_libraryPage;
    CDPMContentPage* m_contentPage;
    CDPMDataPage* m_dataPage;
    CVorDPMTreeCtrlEx* m_tree;
    CVorDPMLibrarySearch* m_search;
    QCheckBox* m_showAllLibraries;
    CDPMSheet* m_sheet;
    QString CurrentPath;
    QMenuBar* m_menuBar;
    bool m_modified = false;

    PreviewDrawCallback m_pPreviewDrawCallback;
    PreviewCloseCallback m_pPreviewCloseCallback;
    PreviewMoveCallback m_pPreviewMoveCallback;
};
