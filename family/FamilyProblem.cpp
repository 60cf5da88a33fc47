#include "FamilyProblem.h"

QString FamilyProblem::Message() const {
    if (row > 0 && column > 0) return tr("第 %1 行第 %2 列: %3").arg(row).arg(column).arg(text);
    if (row > 0) return tr("第 %1 行: %2").arg(row).arg(text);
    if (column > 0) return tr("第 %1 列: %2").arg(column).arg(text);
    return text;
}
