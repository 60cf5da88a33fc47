// The value types of properties (integer, real, text) as they apply to the cells of a family
// table: which texts a type takes, the narrowest type that a column of texts fits, and the
// decimal comma of semicolon-separated files.
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringView>

#include "VorDPMTypes.h"

class FamilyValueType {
    Q_DECLARE_TR_FUNCTIONS(FamilyValueType)

public:
    // Whether `text` can be a value of that type: an empty text always, an integer a decimal
    // integer with an optional sign, a real a decimal number (with an exponent or not); a text,
    // and an unknown type, anything.
    static bool Fits(QStringView text, emVorDPM_VALUETYPE type);

    // Why `text` is no value of that type: "不是整数: <text>" or "不是数字: <text>".
    static QString Misfit(emVorDPM_VALUETYPE type, QStringView text);

    // "12,5" is a number written with a decimal comma.
    static bool HasDecimalComma(QStringView text);
    // The same number with a decimal point; other texts as they are.
    static QString WithDecimalPoint(QStringView text);

    // Guessing: starts at integer and widens to real, then text, as texts come that need it.
    void Add(QStringView text);
    emVorDPM_VALUETYPE Guess() const { return m_guess; }

private:
    emVorDPM_VALUETYPE m_guess = emVorDPM_VALUETYPE_INT;
};
