// Searches the product names of many definitions (each series row named by its product's
// naming rule) for a name pattern, and hands out what it finds in batches. The store is used
// from one thread only, so the search runs on the thread that owns it in slices of a few
// milliseconds, one turn of the event loop each: the window stays responsive, the first
// results show while the rest are searched, and a new search or Cancel stops the old at once.
// It touches no widget.
#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QMetaType>
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <optional>
#include <vector>

#include "query/CVorDPMNamePattern.h"

class CVorDPMDPD;

// A series row whose product name matched, and where its definition is found.
struct CVorDPMProductHit {
    QString product;
    QString library;
    // The catalog of the main tree that holds the definition; empty for one that none holds.
    QString catalog;
    QString definition;
    // Where the definition is filed, as shown: the library, the catalog and the classification
    // texts joined by "/", or the library and "未分类".
    QString catalogPath;
    // The nodes of the product data page's tree down to the definition (see
    // CVorDPMLibrarySearchIndex::DataPagePath).
    QStringList nodePath;
    int serialId = -1;
};
Q_DECLARE_METATYPE(CVorDPMProductHit)

class CVorDPMProductSearch : public QObject {
    Q_OBJECT

public:
    // A definition to search, with where its hits lead.
    struct Job {
        QString library;
        QString catalog;
        QString definition;
        QString catalogPath;
        QStringList nodePath;
    };

    explicit CVorDPMProductSearch(QObject* parent = nullptr);

    // Stops any search under way and starts one over the definitions, in their order.
    void Start(const QString& pattern, std::vector<Job> jobs);
    void Cancel();
    bool IsRunning() const { return m_timer.isActive(); }

signals:
    // The hits of one slice, in the order of the definitions and their rows.
    void Found(const QList<CVorDPMProductHit>& hits);
    // The search has gone through every definition (not sent after Cancel or a new Start).
    void Finished();

private:
    void RunSlice();
    void SearchDefinition(const Job& job, QList<CVorDPMProductHit>& hits) const;
    static CVorDPMDPD* Definition(const Job& job);

    QTimer m_timer;
    std::optional<CVorDPMNamePattern> m_pattern;
    std::vector<Job> m_jobs;
    size_t m_next = 0;
};
