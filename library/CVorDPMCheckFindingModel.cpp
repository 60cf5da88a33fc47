#include "CVorDPMCheckFindingModel.h"

#include <QBrush>
#include <QColor>

void CVorDPMCheckFindingModel::Append(const QVector<CheckFinding>& findings) {
    if (findings.isEmpty()) return;
    const int first = int(m_findings.size());
    beginInsertRows({}, first, first + int(findings.size()) - 1);
    m_findings += findings;
    endInsertRows();
}

void CVorDPMCheckFindingModel::Clear() {
    beginResetModel();
    m_findings.clear();
    endResetModel();
}

int CVorDPMCheckFindingModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_findings.size());
}

int CVorDPMCheckFindingModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QString CVorDPMCheckFindingModel::Text(const CheckFinding& finding, int column) const {
    switch (column) {
        case Severity:
            return finding.Severity() == CheckSeverity::Error ? tr("错误") : tr("警告");
        case File:
            return finding.place.file;
        case Row:
            return finding.row > 0 ? QStringLiteral("%1#%2").arg(finding.table).arg(finding.row)
                                   : QString();
        case Product:
            return finding.product;
        case Message:
            return finding.message;
    }
    return {};
}

QVariant CVorDPMCheckFindingModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const CheckFinding& finding = m_findings[index.row()];
    if (role == Qt::DisplayRole) return Text(finding, index.column());
    // The message in full where the column cuts it off.
    if (role == Qt::ToolTipRole && index.column() == Message) return finding.message;
    if (role == Qt::ForegroundRole && index.column() == Severity &&
        finding.Severity() == CheckSeverity::Error)
        return QBrush(QColor(Qt::red).darker(120));
    return {};
}

QVariant CVorDPMCheckFindingModel::headerData(int section, Qt::Orientation orientation,
                                              int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    switch (section) {
        case Severity:
            return tr("级别");
        case File:
            return tr("文件");
        case Row:
            return tr("表#行");
        case Product:
            return tr("产品");
        case Message:
            return tr("说明");
    }
    return {};
}
