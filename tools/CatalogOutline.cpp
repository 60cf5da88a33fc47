#include "CatalogOutline.h"

#include "ToolConsole.h"

CatalogOutline::CatalogOutline(const CKZList<CVorDPM_DPC_Content*>& entries, int fixedLevels) {
    for (const CVorDPM_DPC_Content* entry : entries)
        if (entry) Add(*entry, fixedLevels);
}

// An entry ends at its first empty classification text.
void CatalogOutline::Add(const CVorDPM_DPC_Content& entry, int fixedLevels) {
    Node* node = &m_root;
    for (int level = fixedLevels; level <= CVorDPM_DPC_Content::ThirdType; ++level) {
        const QString text = entry.GetType(static_cast<CVorDPM_DPC_Content::ProductType>(level));
        if (text.isEmpty()) break;
        node = &node->children[text];
    }
    node->products.append(entry.GetDPD());
}

void CatalogOutline::Print(QTextStream& out) const {
    Print(out, m_root, 0);
}

void CatalogOutline::Print(QTextStream& out, const Node& node, int depth) {
    const QString indent(depth * 2, QLatin1Char(' '));
    for (const auto& [text, child] : node.children) {
        out << indent << ToolConsole::Record({text + QLatin1Char('/')});
        Print(out, child, depth + 1);
    }
    for (const QString& product : node.products) out << indent << ToolConsole::Record({product});
}
