#include "FamilyImport.h"

#include <QAnyStringView>
#include <algorithm>

#include "CVorDPM_DPD_Serial.h"
#include "FamilyDefinition.h"
#include "FamilyFileReader.h"
#include "FamilyProgress.h"
#include "FamilyValueType.h"

namespace {

constexpr int kReportEvery = 1024;

// Joins a product's name and a key: a size repeats across the products of a definition.
QString Qualified(const QString& product, const QString& key) {
    return product + QChar(0x1F) + key;
}

bool Contains(const std::vector<int>& columns, int column) {
    return std::find(columns.cbegin(), columns.cend(), column) != columns.cend();
}

}  // namespace

FamilyImport::FamilyImport(const FamilyDefinition& definition, const FamilyFile& file)
    : m_definition(definition), m_file(file) {}

bool FamilyImport::ReadsDecimalComma() const {
    return m_options.decimalComma && m_file.format == FamilyFile::Text &&
           m_file.delimiter == QLatin1Char(';');
}

bool FamilyImport::HasChanges() const {
    const bool addsColumn = std::any_of(m_columns.cbegin(), m_columns.cend(), [](const auto& c) {
        return c.role == FamilyImportColumn::Added;
    });
    return m_added > 0 || m_changed > 0 || (m_options.removeMissing && m_missing > 0) || addsColumn;
}

bool FamilyImport::Compare(const FamilyImportOptions& options, FamilyProgress& progress) {
    m_options = options;
    m_refusal = FamilyProblem();
    m_misfits.clear();
    m_misfitCount = 0;
    m_columns.clear();
    m_storedKeys.clear();
    m_changes.clear();
    m_added = m_changed = m_unchanged = m_missing = 0;
    if (m_definition.Problem().IsSet()) return Refuse(m_definition.Problem());
    FamilyProblem problem;
    if (!m_layout.Read(m_file, options.headerRow, problem, progress)) return Refuse(problem);
    if (!MapColumns() || !PickKeyColumn()) return false;
    GuessAddedTypes();
    return IndexStoredKeys() && CompareRows(progress);
}

bool FamilyImport::Refuse(const FamilyProblem& problem) {
    m_refusal = problem;
    return false;
}

void FamilyImport::Misfit(int sheetRow, int column, const QString& text) {
    if (++m_misfitCount <= kMisfitsKept)
        m_misfits.push_back(FamilyProblem::At(sheetRow + 1, column + 1, text));
}

bool FamilyImport::MapColumns() {
    std::vector<int> owner(m_definition.Properties().size(), -1);
    for (int column = 0; column < m_layout.ColumnCount(); ++column) {
        m_columns.push_back(MapColumn(column));
        const int property = m_columns.back().property;
        if (property < 0) continue;
        if (owner[size_t(property)] >= 0)
            return Refuse(
                FamilyProblem::At(m_layout.HeaderRow() + 1, column + 1,
                                  tr("与第 %1 列对应同一个属性: %2")
                                      .arg(owner[size_t(property)] + 1)
                                      .arg(m_definition.Properties()[size_t(property)].param)));
        owner[size_t(property)] = column;
    }
    return true;
}

FamilyImportColumn FamilyImport::MapColumn(int column) const {
    FamilyImportColumn mapped;
    if (m_layout.IsBlank(column)) return mapped;
    const QString& text = m_layout.HeadingText(column);
    mapped.fixed = FamilyFixedColumns::Recognise(text);
    if (mapped.fixed != FamilyFixedColumns::None) {
        mapped.role = FamilyImportColumn::Fixed;
        return mapped;
    }
    // The whole heading first: a parameter name may itself end in brackets.
    const FamilyHeading& heading = m_layout.Heading(column);
    mapped.property = m_definition.FindProperty(text);
    const bool unitGiven = mapped.property < 0 && heading.hasUnit;
    if (mapped.property < 0) mapped.property = m_definition.FindProperty(heading.name);
    if (mapped.property >= 0) {
        const QString& unit = m_definition.Properties()[size_t(mapped.property)].unit;
        const bool sameUnit = !unitGiven || m_definition.SameUnit(heading.unit, unit);
        mapped.role = sameUnit ? FamilyImportColumn::Property : FamilyImportColumn::UnitMismatch;
        return mapped;
    }
    const bool add = m_options.addAllColumns || Contains(m_options.addColumns, column);
    mapped.role = add ? FamilyImportColumn::Added : FamilyImportColumn::Unmatched;
    return mapped;
}

int FamilyImport::ColumnOf(FamilyFixedColumns::Kind kind) const {
    for (size_t column = 0; column < m_columns.size(); ++column)
        if (m_columns[column].role == FamilyImportColumn::Fixed && m_columns[column].fixed == kind)
            return int(column);
    return -1;
}

bool FamilyImport::PickKeyColumn() {
    m_keyColumn = m_options.keyColumn;
    if (m_keyColumn < 0) m_keyColumn = ColumnOf(FamilyFixedColumns::Name);
    for (int column = 0; m_keyColumn < 0 && column < m_layout.ColumnCount(); ++column)
        if (!m_layout.IsBlank(column)) m_keyColumn = column;
    const bool usable = m_keyColumn < int(m_columns.size()) &&
                        (m_columns[size_t(m_keyColumn)].role == FamilyImportColumn::Fixed ||
                         m_columns[size_t(m_keyColumn)].role == FamilyImportColumn::Property);
    if (usable) return true;
    return Refuse(FamilyProblem::At(m_layout.HeaderRow() + 1, m_keyColumn + 1,
                                    tr("关键列必须是产品名称、产品、形体、图片或一个属性的列")));
}

// A new property takes the narrowest type that all of its column's values fit.
void FamilyImport::GuessAddedTypes() {
    for (size_t column = 0; column < m_columns.size(); ++column) {
        if (m_columns[column].role != FamilyImportColumn::Added) continue;
        FamilyValueType guess;
        for (int row : m_layout.DataRows()) guess.Add(CellValue(row, int(column)));
        m_columns[column].type = guess.Guess();
    }
}

bool FamilyImport::IndexStoredKeys() {
    const auto& rows = m_definition.Rows();
    m_storedKeys.reserve(qsizetype(rows.size()));
    for (size_t i = 0; i < rows.size(); ++i) {
        const QString key = StoredKey(*rows[i]);
        const auto found = m_storedKeys.find(key);
        if (found == m_storedKeys.end())
            m_storedKeys.insert(key, int(i));
        else if (*found >= 0)
            *found = -1 - *found;
    }
    return true;
}

QString FamilyImport::StoredKey(const CVorDPM_DPD_Serial& serial) const {
    const FamilyImportColumn& key = m_columns[size_t(m_keyColumn)];
    QString text;
    if (key.role == FamilyImportColumn::Property) {
        text = serial.GetValue(m_definition.Properties()[size_t(key.property)].id);
    } else if (key.fixed == FamilyFixedColumns::Name) {
        m_definition.AppendRowName(serial, text);
    } else if (key.fixed == FamilyFixedColumns::Product) {
        text = m_definition.ProductName(serial.GetProductId());
    } else if (key.fixed == FamilyFixedColumns::Shape) {
        text = m_definition.ShapeName(serial.GetShapeId());
    } else {
        text = m_definition.PictureName(serial.GetImageId());
    }
    text = text.trimmed();
    const int product = ColumnOf(FamilyFixedColumns::Product);
    if (product < 0 || product == m_keyColumn) return text;
    return Qualified(m_definition.ProductName(serial.GetProductId()), text);
}

QString FamilyImport::FileKey(int sheetRow) const {
    const QString text = CellValue(sheetRow, m_keyColumn).trimmed();
    const int product = ColumnOf(FamilyFixedColumns::Product);
    if (product < 0 || product == m_keyColumn) return text;
    return Qualified(CellValue(sheetRow, product).trimmed(), text);
}

QString FamilyImport::KeyText(const FamilyRowChange& change) const {
    if (change.kind != FamilyRowChange::Missing)
        return CellValue(change.sheetRow, m_keyColumn).trimmed();
    return StoredKey(*change.serial).section(QChar(0x1F), -1);
}

QString FamilyImport::CellValue(int sheetRow, int column) const {
    const QStringView text = m_file.sheet.Cell(sheetRow, column);
    const auto role =
        column < int(m_columns.size()) ? m_columns[size_t(column)].role : FamilyImportColumn::Blank;
    const bool value = role == FamilyImportColumn::Property || role == FamilyImportColumn::Added;
    return value && ReadsDecimalComma() ? FamilyValueType::WithDecimalPoint(text) : text.toString();
}

QString FamilyImport::StoredText(const CVorDPM_DPD_Serial& serial, int column) const {
    const FamilyImportColumn& mapped = m_columns[size_t(column)];
    if (mapped.role == FamilyImportColumn::Property)
        return serial.GetValue(m_definition.Properties()[size_t(mapped.property)].id);
    if (mapped.fixed == FamilyFixedColumns::Product)
        return m_definition.ProductName(serial.GetProductId());
    if (mapped.fixed == FamilyFixedColumns::Shape)
        return m_definition.ShapeName(serial.GetShapeId());
    if (mapped.fixed == FamilyFixedColumns::Picture)
        return m_definition.PictureName(serial.GetImageId());
    return QString();
}

bool FamilyImport::CompareRows(FamilyProgress& progress) {
    const auto& rows = m_definition.Rows();
    std::vector<bool> matched(rows.size(), false);
    QHash<QString, int> fileKeys;
    fileKeys.reserve(qsizetype(m_layout.DataRows().size()));
    const auto& dataRows = m_layout.DataRows();
    for (size_t i = 0; i < dataRows.size(); ++i) {
        if (i % kReportEvery == 0 && !progress.Report(qint64(i), qint64(dataRows.size())))
            return Refuse(FamilyProblem::General(tr("已取消")));
        if (!CompareRow(dataRows[i], fileKeys, matched)) return false;
    }
    for (size_t i = 0; i < rows.size(); ++i) {
        if (matched[i]) continue;
        m_changes.push_back(FamilyRowChange{FamilyRowChange::Missing, -1, rows[i], {}});
        ++m_missing;
    }
    return true;
}

bool FamilyImport::CompareRow(int sheetRow, QHash<QString, int>& fileKeys,
                              std::vector<bool>& matched) {
    const QString keyText = CellValue(sheetRow, m_keyColumn).trimmed();
    if (keyText.isEmpty())
        return Refuse(FamilyProblem::At(sheetRow + 1, m_keyColumn + 1, tr("关键列是空的")));
    const QString key = FileKey(sheetRow);
    const auto earlier = fileKeys.constFind(key);
    if (earlier != fileKeys.cend())
        return Refuse(
            FamilyProblem::At(sheetRow + 1, m_keyColumn + 1,
                              tr("关键值与第 %1 行相同: %2").arg(*earlier + 1).arg(keyText)));
    fileKeys.insert(key, sheetRow);
    const auto stored = m_storedKeys.constFind(key);
    if (stored == m_storedKeys.cend()) {
        m_changes.push_back(FamilyRowChange{FamilyRowChange::Added, sheetRow, nullptr, {}});
        ++m_added;
        return CheckAddedRow(sheetRow);
    }
    if (*stored < 0)
        return Refuse(
            FamilyProblem::At(sheetRow + 1, m_keyColumn + 1,
                              tr("产品中有多个系列行的关键值是 %1，无法对应").arg(keyText)));
    matched[size_t(*stored)] = true;
    CVorDPM_DPD_Serial* serial = m_definition.Rows()[size_t(*stored)];
    std::vector<int> columns = ChangedColumns(sheetRow, *serial);
    if (columns.empty()) {
        ++m_unchanged;
        return true;
    }
    m_changes.push_back(
        FamilyRowChange{FamilyRowChange::Changed, sheetRow, serial, std::move(columns)});
    ++m_changed;
    return true;
}

bool FamilyImport::CheckAddedRow(int sheetRow) {
    const auto& properties = m_definition.Properties();
    for (size_t column = 0; column < m_columns.size(); ++column) {
        const FamilyImportColumn& mapped = m_columns[column];
        if (mapped.role == FamilyImportColumn::Property) {
            const QString text = CellValue(sheetRow, int(column));
            const emVorDPM_VALUETYPE type = properties[size_t(mapped.property)].type;
            if (!FamilyValueType::Fits(text, type))
                Misfit(sheetRow, int(column), FamilyValueType::Misfit(type, text));
        } else if (mapped.role == FamilyImportColumn::Fixed) {
            NamedId(mapped.fixed, sheetRow, int(column));
        }
    }
    const int product = ColumnOf(FamilyFixedColumns::Product);
    const bool named = product >= 0 && !CellValue(sheetRow, product).trimmed().isEmpty();
    if (named || m_definition.FirstProductId() > 0) return true;
    return Refuse(
        FamilyProblem::At(sheetRow + 1, 0, tr("产品中还没有产品行，不能新增系列行，请先添加产品")));
}

std::vector<int> FamilyImport::ChangedColumns(int sheetRow, const CVorDPM_DPD_Serial& serial) {
    const auto& properties = m_definition.Properties();
    const std::vector<QByteArray> stored = serial.GetValuesUtf8(m_definition.PropertyIds());
    std::vector<int> changed;
    for (size_t column = 0; column < m_columns.size(); ++column) {
        const FamilyImportColumn& mapped = m_columns[column];
        const int c = int(column);
        if (mapped.role == FamilyImportColumn::Property) {
            const QString text = CellValue(sheetRow, c);
            if (QAnyStringView::equal(QUtf8StringView(stored[size_t(mapped.property)]), text))
                continue;
            const emVorDPM_VALUETYPE type = properties[size_t(mapped.property)].type;
            if (!FamilyValueType::Fits(text, type))
                Misfit(sheetRow, c, FamilyValueType::Misfit(type, text));
            changed.push_back(c);
        } else if (mapped.role == FamilyImportColumn::Added) {
            if (!m_file.sheet.Cell(sheetRow, c).isEmpty()) changed.push_back(c);
        } else if (mapped.role == FamilyImportColumn::Fixed) {
            const int id = NamedId(mapped.fixed, sheetRow, c);
            const int now = mapped.fixed == FamilyFixedColumns::Product ? serial.GetProductId()
                            : mapped.fixed == FamilyFixedColumns::Shape ? serial.GetShapeId()
                                                                        : serial.GetImageId();
            if (id > 0 && id != now) changed.push_back(c);
        }
    }
    return changed;
}

int FamilyImport::NamedId(FamilyFixedColumns::Kind kind, int sheetRow, int column) {
    if (kind == FamilyFixedColumns::Name) return 0;
    const QString name = CellValue(sheetRow, column).trimmed();
    if (name.isEmpty()) return 0;
    int id = 0;
    QString missing;
    if (kind == FamilyFixedColumns::Product) {
        id = m_definition.ProductId(name);
        missing = tr("产品中没有名为 %1 的产品");
    } else if (kind == FamilyFixedColumns::Shape) {
        id = m_definition.ShapeId(name);
        missing = tr("产品中没有名为 %1 的形体");
    } else {
        id = m_definition.PictureId(name);
        missing = tr("产品中没有名为 %1 的图片");
    }
    if (id > 0) return id;
    Misfit(sheetRow, column, missing.arg(name));
    return -1;
}
