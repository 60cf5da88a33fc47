// A name pattern prepared once for many names: the decision between containment and a
// regular expression, and the expression text, are made when it is built, not per name.
#pragma once

#include <QString>

class CVorDPMNamePattern {
public:
    explicit CVorDPMNamePattern(const QString& pattern);

    bool Matches(const QString& name) const;

private:
    // The pattern as typed when it holds no wildcard, else its regular expression.
    QString m_text;
    bool m_plain;
};
