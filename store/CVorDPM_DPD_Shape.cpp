#include "CVorDPM_DPD_Shape.h"

#include <QStringList>

#include "VorDPMFieldIO.h"

VORDPM_DEFINE_ROW(CVorDPM_DPD_Shape, "shape",
                  {{"name", "TEXT"},
                   {"description", "TEXT"},
                   {"dps_id", "INTEGER"},
                   {"param", "TEXT"},
                   {"param_type", "TEXT"},
                   {"param_index", "TEXT"}})

int CVorDPM_DPD_Shape::ParamPosition(const QString& name) const {
    if (name.isEmpty()) return -1;
    return static_cast<int>(m_Param.split(',').indexOf(name));
}

int CVorDPM_DPD_Shape::IntAt(const QString& joined, int position) const {
    const QStringList parts = joined.split(',');
    if (position < 0 || position >= parts.size()) return -1;
    bool ok = false;
    const int value = parts[position].trimmed().toInt(&ok);
    return ok ? value : -1;
}

int CVorDPM_DPD_Shape::GetParamType(const QString& name) const {
    return IntAt(m_ParamType, ParamPosition(name));
}

int CVorDPM_DPD_Shape::GetParamIndex(const QString& name) const {
    return IntAt(m_ParamIndex, ParamPosition(name));
}

int CVorDPM_DPD_Shape::SetParamIndex(const QString& name, int index) {
    const int position = ParamPosition(name);
    if (position < 0) return 0;
    QStringList parts = m_ParamIndex.split(',');
    if (m_ParamIndex.isEmpty()) parts.clear();
    while (parts.size() <= position) parts.append(QString::number(parts.size()));
    parts[position] = QString::number(index);
    SetParamIndex(parts.join(','));
    return 1;
}
