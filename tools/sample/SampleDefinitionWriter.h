// Writes one product family into a product definition or template: property rows, picture,
// preview script, shape, products and series rows.
#pragma once

#include <QList>
#include <QString>

#include "SampleCommonTables.h"
#include "SampleFamily.h"

class CVorDPMDPDBase;

class SampleDefinitionWriter {
public:
    SampleDefinitionWriter(const SampleCommonTables& common, const SampleFamily& family);

    // Only the property rows: what a template of the family holds.
    bool WriteProperties(CVorDPMDPDBase* file, QString& error);
    // Everything; `scale` copies of the product and its series rows.
    bool WriteDefinition(CVorDPMDPDBase* file, int scale, QString& error);

private:
    bool WriteDrawing(CVorDPMDPDBase* file, QString& error);
    bool WriteProducts(CVorDPMDPDBase* file, int scale, QString& error);
    bool WriteSeries(CVorDPMDPDBase* file, int productId, int copy, QString& error);

    const SampleCommonTables& m_common;
    const SampleFamily& m_family;
    QList<int> m_propertyIds;
    int m_imageId = 0;
    int m_shapeId = 0;
};
