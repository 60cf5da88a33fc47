#include "CheckFileReport.h"

void CheckFileReport::Add(CheckKind kind, const QString& table, int row, const QString& product,
                          const QString& message) {
    m_findings.append(CheckFinding{kind, m_place, table, row, product, message});
}
