// Series row of a product definition: one concrete variant with a value for each property.
#pragma once

#include <QByteArray>

#include "CVorDPMObject.h"

class VORDPM_API CVorDPM_DPD_Serial : public CVorDPMObject {
    VORDPM_DECLARE_ROW(CVorDPM_DPD_Serial)

    // Stable text key of the row (a GUID given when the row is added).
    VORDPM_FIELD(QString, Key)
    VORDPM_FIELD(int, ProductId)
    VORDPM_FIELD(int, ImageId)
    VORDPM_FIELD(int, ShapeId)

public:
    // Value of the property with that object id; empty when none is set.
    QString GetValue(int propertyObjectId) const;
    // The same, read from packed values as GetPackedValues gives them.
    static QString ValueIn(const QByteArray& packed, int propertyObjectId);
    // Sets the value of one property; an empty value removes it.
    void SetValue(const QString& value, int propertyObjectId);
    // The packed values as stored: UTF-8 lines "<property id>=<value>", with "\\" and newline
    // escaped as "\\\\" and "\\n". Kept packed so that large tables stay small in memory.
    const QByteArray& GetPackedValues() const { return m_values; }

    template <class Self, class Visitor>
    static void VisitFields(Self& self, Visitor&& visit) {
        visit(self.m_Key);
        visit(self.m_ProductId);
        visit(self.m_ImageId);
        visit(self.m_ShapeId);
        visit(self.m_values);
    }

private:
    QByteArray m_values;
};
