// The names that the library tree and the product data page show for the libraries of the tree:
// libraries, catalogs, classification nodes and product definitions, held flat so that each
// keystroke of the library search is matched without asking the store or touching the tree.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

class CVorDPMLibrarySearchIndex {
public:
    enum Kind { Library, Catalog, Classification, Definition };

    // One node. `catalog` is empty for a library and for a definition that no catalog holds;
    // `levels` are the classification texts above a definition, or down to a classification.
    struct Entry {
        Kind kind;
        QString library;
        QString catalog;
        QStringList levels;
        QString name;
    };

    // What a pattern matched: the entries in tree order, and the count of each library and of
    // each catalog (by CatalogKey) including the library or catalog itself.
    struct Matches {
        std::vector<const Entry*> entries;
        QHash<QString, int> perLibrary;
        QHash<QString, int> perCatalog;
    };

    // Reads the catalogs of each library from the store; the libraries in the order given and
    // each with the catalogs given for it (the tree's nodes), so that the index shows what the
    // tree shows.
    void Build(const std::vector<std::pair<QString, QStringList>>& libraries);
    bool IsEmpty() const { return m_entries.empty(); }
    void Clear() { m_entries.clear(); }

    // Names matched as the catalog and product pages filter by name: containment without
    // wildcards, "*" and "?" as wildcards.
    Matches Match(const QString& pattern) const;
    // The entries of product definitions, each definition once (where it is first placed), of
    // one library or, for an empty name, of all.
    std::vector<const Entry*> Definitions(const QString& library) const;

    static QString CatalogKey(const QString& library, const QString& catalog);
    // The texts of the product data page's tree from its top node down to the entry's node, when
    // the main tree shows the entry's library (a definition in no catalog) or catalog.
    static QStringList DataPagePath(const Entry& entry, const QString& uncataloguedText);

private:
    void AddCatalog(const QString& library, const QString& catalog);

    std::vector<Entry> m_entries;
};
