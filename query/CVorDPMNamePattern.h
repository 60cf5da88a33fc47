// A name pattern prepared once for many names: the choice between containment and a regular
// expression, and the expression text, are made when it is built, not per name.
#pragma once

#include <QString>

class CVorDPMNamePattern {
public:
    explicit CVorDPMNamePattern(const QString& pattern);

    bool Matches(const QString& name) const;

private:
    // The longest run of characters that every match of a wildcard expression must contain;
    // empty when the expression holds more than wildcards and plain characters.
    static QString RequiredText(const QString& regex);

    // The pattern as typed when it holds no wildcard, else its regular expression.
    QString m_text;
    bool m_plain;
    // Names without it cannot match, which is found far faster than by running the expression.
    QString m_required;
};
