// The findings of one store file, collected while it is checked.
#pragma once

#include <QString>
#include <QVector>

#include "CheckFinding.h"

class CheckFileReport {
public:
    explicit CheckFileReport(CheckPlace place) : m_place(std::move(place)) {}

    const CheckPlace& Place() const { return m_place; }
    // A fault of the file as a whole.
    void Add(CheckKind kind, const QString& message) {
        Add(kind, QString(), 0, QString(), message);
    }
    // A fault of one row of a table; `product` names the product the row belongs to, if any.
    void Add(CheckKind kind, const QString& table, int row, const QString& product,
             const QString& message);
    bool IsEmpty() const { return m_findings.isEmpty(); }
    QVector<CheckFinding> Take() { return std::exchange(m_findings, {}); }

private:
    CheckPlace m_place;
    QVector<CheckFinding> m_findings;
};
