// One product family of the sample as data: the definition's properties, its size table from a
// public standard, its product variants and its drawing.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "SampleSketch.h"

struct SampleProperty {
    // Name of the common property that defines it (its id, unit and group come from there).
    QString common;
    // Parameter name used by naming rules and scripts.
    QString param;
    // 0: design parameter (one that picks a size, checked for series), 1: component parameter.
    int kind = 0;
    // Display name when it differs from the common property's name.
    QString alias;
};

class SampleFamily {
public:
    QString library;
    QString definition;
    QString description;
    QString standard;
    QString product;
    QString rule;
    // The property whose value tells the products of a definition apart (material or grade).
    SampleProperty variant;
    QStringList variants;
    QList<SampleProperty> dimensions;
    // Values of `dimensions`, in their order, one list per size.
    QList<QStringList> rows;
    void (*draw)(SampleSketch& sketch) = nullptr;

    // Every property of the definition: the dimensions, the variant and the standard number.
    QList<SampleProperty> Properties() const;
    // Values of every property for one size of one product copy.
    QStringList Values(int row, int copy) const;
    // Variant of the n-th product; beyond the listed ones the list repeats with a batch suffix.
    QString Variant(int copy) const;
    QString ProductName(int copy) const;
    // The drawing, with the values of a size from the middle of the table.
    SampleSketch Sketch() const;

    static const QString& StandardParam();
};
