// Series row of a product definition: one concrete variant with a value for each property.
#pragma once

#include <QByteArray>
#include <QStringList>
#include <vector>

#include "CVorDPMObject.h"

class VORDPM_API CVorDPM_DPD_Serial : public CVorDPMObject {
    VORDPM_DECLARE_ROW(CVorDPM_DPD_Serial)

    VORDPM_FIELD(int, ProductId)
    VORDPM_FIELD(int, ImageId)
    VORDPM_FIELD(int, ShapeId)

public:
    // Stable text key of the row (a GUID given when the row is added). Setting it keeps the
    // table's lookup by key up to date.
    const QString& GetKey() const { return m_Key; }
    void SetKey(const QString& key);

    // Value of the property with that object id; empty when none is set.
    QString GetValue(int propertyObjectId) const;
    // The same, read from packed values as GetPackedValues gives them.
    static QString ValueIn(const QByteArray& packed, int propertyObjectId);
    // The same as UTF-8 bytes. A value without escapes refers to the row's own bytes (valid
    // until the row changes), so that naming a large table makes no text per value.
    QByteArray GetValueUtf8(int propertyObjectId) const;
    // The values of the given properties, in the order given (empty where none is set), read
    // in one pass over the packed row: reading them one by one would walk it once per property.
    QStringList GetValues(const std::vector<int>& propertyObjectIds) const;
    // The same as UTF-8 bytes. A value without escapes refers to the row's own bytes (valid
    // until the row changes), so that printing a large table copies nothing per value.
    std::vector<QByteArray> GetValuesUtf8(const std::vector<int>& propertyObjectIds) const;
    // Sets the value of one property; an empty value removes it.
    void SetValue(const QString& value, int propertyObjectId);
    // Sets the values of many properties in one pass over the packed row (values[i] of
    // propertyObjectIds[i]); empty values remove theirs. Values already held keep their place,
    // new ones follow in the order given, so that a row filled in property order stays in it.
    void SetValues(const std::vector<int>& propertyObjectIds, const QStringList& values);
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
    QString m_Key;
    QByteArray m_values;
};
