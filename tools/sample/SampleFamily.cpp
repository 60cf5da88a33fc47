#include "SampleFamily.h"

#include <QHash>

const QString& SampleFamily::StandardParam() {
    static const QString param = QStringLiteral("std");
    return param;
}

QList<SampleProperty> SampleFamily::Properties() const {
    QList<SampleProperty> properties = dimensions;
    properties.append(variant);
    properties.append({QStringLiteral("标准号"), StandardParam(), 1, {}});
    return properties;
}

QStringList SampleFamily::Values(int row, int copy) const {
    QStringList values = rows.at(row);
    values.append(Variant(copy));
    values.append(standard);
    return values;
}

QString SampleFamily::Variant(int copy) const {
    const QString& base = variants.at(copy % variants.size());
    const int batch = copy / variants.size();
    return batch == 0 ? base : QStringLiteral("%1-%2").arg(base).arg(batch + 1);
}

QString SampleFamily::ProductName(int copy) const {
    return QStringLiteral("%1 %2").arg(product, Variant(copy));
}

SampleSketch SampleFamily::Sketch() const {
    QHash<QString, double> values;
    const QStringList& middle = rows.at(rows.size() / 2);
    for (int i = 0; i < dimensions.size(); ++i)
        values.insert(dimensions[i].param, middle[i].toDouble());
    SampleSketch sketch(definition, values);
    draw(sketch);
    return sketch;
}
