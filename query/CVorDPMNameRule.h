// A product's naming rule prepared once for naming many series rows: its literal start and the
// properties whose values follow it. The rule's first token is literal; each further token
// names a property by its parameter name, without regard to case; the values follow in the
// order of the definition's properties, the first directly, every further one after a "*".
#pragma once

#include <QString>
#include <QStringList>
#include <QVarLengthArray>

#include "query/VorDPMEditorExport.h"

class CVorDPM_DPD_Serial;

class VORDPM_EDITOR_API CVorDPMNameRule {
public:
    explicit CVorDPMNameRule(const QString& rule);

    // The rule's tokens, split at every "%", space and "*", empty ones left out: the first is
    // literal text, each further one names a parameter.
    static QStringList Tokens(const QString& rule);

    // False for a rule without tokens: it gives no name.
    bool Names() const { return !m_tokens.isEmpty(); }
    // Call for each property of the definition, in their order.
    void AddProperty(int propertyObjectId, const QString& paramAlias);
    // Appends the row's name to `name`; empty values are left out.
    void AppendName(const CVorDPM_DPD_Serial& row, QString& name) const;

private:
    QStringList m_tokens;
    // One entry per token that names the property: a property named twice gives its value twice.
    // Held inline: a rule names a few properties, and the name of a single row is often
    // asked for with a rule made for it alone.
    QVarLengthArray<int, 8> m_valueProperties;
};
