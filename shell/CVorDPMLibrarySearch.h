// The search of the main dialog, above its library tree: a field (Ctrl+F) and a mode. In the
// mode "名称" each keystroke filters the tree to the libraries and catalogs that hold a matching
// library, catalog, classification or definition name, with the number of matches beside each
// library; Enter and F3 go to the next match (Shift+F3 the previous), Escape clears. In the
// modes "产品" (the selected library) and "全库" (every library of the tree) the
// product names of the definitions are searched while the user types, and listed in place of
// the tree; a double click or Enter on one opens it on the product data page.
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include "CVorDPMLibrarySearchIndex.h"

class CVorDPMProductHitModel;
class CVorDPMProductSearch;
class CVorDPMTreeCtrlEx;
class QComboBox;
class QLineEdit;
class QTreeView;
class QWidget;

class CVorDPMLibrarySearch : public QObject {
    Q_OBJECT

public:
    enum Mode { NameMode, LibraryProductMode, AllProductMode };
    // Object names of the field, the mode and the list of products.
    static const char* const kFieldName;
    static const char* const kModeName;
    static const char* const kResultsName;
    // Item role of a library node of the tree: the number of its matches while names are
    // searched, none otherwise.
    static constexpr int MatchCountRole = Qt::UserRole + 20;

    // The controls are made children of `dialog`, which places them; the list of products takes
    // the tree's place while products are searched.
    CVorDPMLibrarySearch(CVorDPMTreeCtrlEx* tree, QWidget* dialog);

    QLineEdit* GetField() const { return m_field; }
    QComboBox* GetMode() const { return m_mode; }
    QTreeView* GetResults() const { return m_results; }
    CVorDPMProductSearch* GetProductSearch() const { return m_search; }

    // The tree was built again or the store changed: names are read again and searched anew.
    void Refresh();
    // Goes to the next (or previous) match of the names, or product of the list.
    void GoToNext(int step = 1);

signals:
    // Where a match is: the library's node of the main tree, or its catalog's node when
    // `catalog` is not empty; below it on the product data page the node `dataPagePath` (none
    // for a library or catalog match) and in its product report the series row `serialId` (-1:
    // none).
    void GoTo(const QString& library, const QString& catalog, const QStringList& dataPagePath,
              int serialId);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void OnTextChanged();
    void OnModeChanged();
    void FilterTree();
    void ClearTreeFilter();
    void SearchProducts();
    void EnsureIndex();
    void GoToMatch(const CVorDPMLibrarySearchIndex::Entry& entry);
    void GoToHit(int row);
    bool SearchesProducts() const;

    CVorDPMTreeCtrlEx* m_tree;
    QWidget* m_dialog;
    QLineEdit* m_field;
    QComboBox* m_mode;
    QTreeView* m_results;
    CVorDPMProductHitModel* m_hits;
    CVorDPMProductSearch* m_search;
    CVorDPMLibrarySearchIndex m_index;
    CVorDPMLibrarySearchIndex::Matches m_matches;
    // The match gone to last, or -1.
    int m_position = -1;
    bool m_goingTo = false;
};
