#include "FamilyExport.h"

#include <QHash>
#include <QSaveFile>

#include "CVorDPM_DPD_Serial.h"
#include "FamilyCsvWriter.h"
#include "FamilyDefinition.h"
#include "FamilyFixedColumns.h"
#include "FamilyHeading.h"
#include "FamilyProgress.h"
#include "FamilyXlsxWriter.h"

namespace {

constexpr int kReportEvery = 1024;

// Names of products, shapes and pictures as UTF-8, made once per row they name.
class NameCache {
public:
    template <class Lookup>
    const QByteArray& Get(int id, Lookup&& lookup) {
        auto found = m_names.constFind(id);
        if (found == m_names.cend()) found = m_names.insert(id, lookup(id).toUtf8());
        return *found;
    }

private:
    QHash<int, QByteArray> m_names;
};

}  // namespace

FamilyExport::Format FamilyExport::FormatOf(const QString& path) {
    return path.endsWith(QStringLiteral(".xlsx"), Qt::CaseInsensitive) ? Xlsx : Csv;
}

QStringList FamilyExport::Headings(const FamilyDefinition& definition) {
    QStringList headings;
    for (int kind = FamilyFixedColumns::Name; kind < FamilyFixedColumns::Count; ++kind)
        headings.append(FamilyFixedColumns::Heading(FamilyFixedColumns::Kind(kind)));
    for (const FamilyDefinition::Property& property : definition.Properties())
        headings.append(FamilyHeading::Format(property.param, property.unit));
    return headings;
}

bool FamilyExport::Write(const FamilyDefinition& definition, const QString& path, Format format,
                         FamilyProblem& problem, FamilyProgress& progress) {
    if (format == Xlsx) {
        FamilyXlsxWriter writer(path, definition.Name());
        return WriteRows(definition, writer, problem, progress);
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        problem = FamilyProblem::General(tr("无法创建文件 %1: %2").arg(path, file.errorString()));
        return false;
    }
    // Not committed on failure: QSaveFile then leaves any earlier file as it was.
    return WriteCsv(definition, file, problem, progress) && file.commit();
}

bool FamilyExport::WriteCsv(const FamilyDefinition& definition, QIODevice& device,
                            FamilyProblem& problem, FamilyProgress& progress) {
    FamilyCsvWriter writer(device);
    return WriteRows(definition, writer, problem, progress);
}

bool FamilyExport::WriteRows(const FamilyDefinition& definition, FamilyTableWriter& writer,
                             FamilyProblem& problem, FamilyProgress& progress) {
    const auto fail = [&] {
        problem = FamilyProblem::General(writer.Error().isEmpty() ? tr("已取消") : writer.Error());
        return false;
    };
    std::vector<QByteArray> cells;
    for (const QString& heading : Headings(definition)) cells.push_back(heading.toUtf8());
    if (!writer.WriteRow(cells)) return fail();
    const std::vector<int> properties = definition.PropertyIds();
    const auto& rows = definition.Rows();
    NameCache products, shapes, pictures;
    QString name;
    for (size_t i = 0; i < rows.size(); ++i) {
        const CVorDPM_DPD_Serial& row = *rows[i];
        name.truncate(0);
        definition.AppendRowName(row, name);
        cells = row.GetValuesUtf8(properties);
        cells.insert(
            cells.begin(),
            {name.toUtf8(),
             products.Get(row.GetProductId(), [&](int id) { return definition.ProductName(id); }),
             shapes.Get(row.GetShapeId(), [&](int id) { return definition.ShapeName(id); }),
             pictures.Get(row.GetImageId(), [&](int id) { return definition.PictureName(id); })});
        if (!writer.WriteRow(cells)) return fail();
        if (i % kReportEvery == 0 && !progress.Report(qint64(i), qint64(rows.size())))
            return fail();
    }
    return writer.Finish() || fail();
}
