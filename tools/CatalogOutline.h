// The classification tree of catalog entries, printed as an indented outline: classification
// texts end with "/", products are listed under the deepest classification they have.
#pragma once

#include <QStringList>
#include <QTextStream>
#include <map>

#include "CKZList.h"
#include "CVorDPM_DPC_Content.h"

class CatalogOutline {
public:
    // `fixedLevels` levels are already known to the reader (given in the path) and not shown.
    CatalogOutline(const CKZList<CVorDPM_DPC_Content*>& entries, int fixedLevels);

    void Print(QTextStream& out) const;

private:
    struct Node {
        std::map<QString, Node> children;  // ordered by plain string order
        QStringList products;              // in catalog order
    };

    void Add(const CVorDPM_DPC_Content& entry, int fixedLevels);
    static void Print(QTextStream& out, const Node& node, int depth);

    Node m_root;
};
