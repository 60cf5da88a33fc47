#include "FamilyCreate.h"

#include <QSet>

#include "CVorDPMCommandManager.h"
#include "CVorDPMDPD.h"
#include "CVorDPMLibraryManager.h"
#include "CVorDPMManager.h"
#include "FamilyFileReader.h"
#include "FamilyNewProperty.h"
#include "FamilyProgress.h"
#include "FamilyValueType.h"

FamilyCreate::FamilyCreate(CVorDPMLibraryManager* library, const FamilyFile& file)
    : m_library(library), m_file(file) {}

FamilyCreate::~FamilyCreate() {
    Abort();
}

bool FamilyCreate::Plan(const QString& name, const FamilyCreateOptions& options,
                        FamilyProgress& progress) {
    m_name = name;
    m_options = options;
    FamilyProblem problem;
    if (!m_layout.Read(m_file, options.headerRow, problem, progress)) return Fail(problem);
    return PlanColumns();
}

bool FamilyCreate::PlanColumns() {
    m_columns.assign(size_t(m_layout.ColumnCount()), Column());
    QSet<QString> params;
    m_keyColumn = -1;
    for (int c = 0; c < m_layout.ColumnCount(); ++c) {
        Column& column = m_columns[size_t(c)];
        column.blank = m_layout.IsBlank(c);
        if (column.blank) continue;
        column.fixed = FamilyFixedColumns::Recognise(m_layout.HeadingText(c));
        if (column.fixed != FamilyFixedColumns::None) continue;
        const FamilyHeading& heading = m_layout.Heading(c);
        column.name = heading.name;
        column.param = FamilyNewProperty::ParamName(heading.name);
        column.unit = heading.unit;
        const QString folded = column.param.toLower();
        if (params.contains(folded))
            return Fail(FamilyProblem::At(m_layout.HeaderRow() + 1, c + 1,
                                          tr("与前面的列得到相同的参数名: %1").arg(column.param)));
        params.insert(folded);
        FamilyValueType guess;
        for (int row : m_layout.DataRows()) guess.Add(CellValue(row, c));
        column.type = guess.Guess();
        if (m_keyColumn < 0) m_keyColumn = c;
    }
    if (m_keyColumn < 0)
        return Fail(
            FamilyProblem::At(m_layout.HeaderRow() + 1, 0, tr("表格中没有可以作为属性的列")));
    const int key = m_options.keyColumn;
    if (key < 0) return true;
    if (key < m_layout.ColumnCount() && !m_columns[size_t(key)].blank &&
        m_columns[size_t(key)].fixed == FamilyFixedColumns::None) {
        m_keyColumn = key;
        return true;
    }
    return Fail(FamilyProblem::At(m_layout.HeaderRow() + 1, key + 1, tr("关键列必须是属性的列")));
}

QString FamilyCreate::ProposedRule() const {
    if (m_keyColumn < 0) return m_name;
    return m_name + QLatin1Char('%') + m_columns[size_t(m_keyColumn)].param;
}

QString FamilyCreate::Rule() const {
    return m_options.rule.trimmed().isEmpty() ? ProposedRule() : m_options.rule.trimmed();
}

QString FamilyCreate::CellValue(int sheetRow, int column) const {
    const QStringView text = m_file.sheet.Cell(sheetRow, column);
    const bool comma = m_options.decimalComma && m_file.format == FamilyFile::Text &&
                       m_file.delimiter == QLatin1Char(';');
    return comma ? FamilyValueType::WithDecimalPoint(text) : text.toString();
}

int FamilyCreate::ColumnOf(FamilyFixedColumns::Kind kind) const {
    for (size_t column = 0; column < m_columns.size(); ++column)
        if (m_columns[column].fixed == kind) return int(column);
    return -1;
}

qint64 FamilyCreate::RowCount() const {
    return qint64(m_layout.DataRows().size());
}

bool FamilyCreate::Prepare() {
    if (!m_library) return Fail(FamilyProblem::General(tr("产品库不存在")));
    const VOR::ErrorStatus status = m_library->CreateDPD(m_name, m_created);
    if (status == VOR::eNameExists)
        return Fail(FamilyProblem::General(tr("%1已存在，请指定其他产品名！").arg(m_name)));
    if (status != VOR::eOk || !m_created)
        return Fail(
            FamilyProblem::General(tr("创建产品失败: %1").arg(CVorDPMManager::GetLastErrorText())));
    return MakeProperties() && MakeProducts();
}

bool FamilyCreate::MakeProperties() {
    m_propertyIds.assign(m_columns.size(), 0);
    for (size_t c = 0; c < m_columns.size(); ++c) {
        const Column& column = m_columns[c];
        if (column.blank || column.fixed != FamilyFixedColumns::None) continue;
        FamilyProblem problem;
        CVorDPM_DPD_Property* property =
            FamilyNewProperty::Add(m_created, column.name, column.unit, column.type, problem);
        if (!property)
            return Fail(FamilyProblem::At(m_layout.HeaderRow() + 1, int(c) + 1, problem.text));
        m_propertyIds[c] = property->GetObjectId();
    }
    return true;
}

// One product per name in the product column, in the order they first come; one named after
// the definition when the file names none.
bool FamilyCreate::MakeProducts() {
    m_products.clear();
    QStringList names;
    const int column = ColumnOf(FamilyFixedColumns::Product);
    for (int row : m_layout.DataRows()) {
        const QString name = column < 0 ? QString() : CellValue(row, column).trimmed();
        if (!name.isEmpty() && !names.contains(name)) names.append(name);
    }
    if (names.isEmpty()) names.append(m_name);
    for (const QString& name : names) {
        auto* product = new CVorDPM_DPD_Product;
        product->SetName(name);
        product->SetNameRule(Rule());
        const bool added = m_created->AddProduct(product) == VOR::eOk;
        CVorDPMCommandManager::GetInstance()->AddNewlyCreatedObject(product, 0);
        if (!added || m_created->IsValid(product) != VOR::eOk)
            return Fail(FamilyProblem::General(tr("无法添加产品 %1").arg(name)));
        m_products.insert(name, product->GetObjectId());
        if (m_products.size() == 1) m_products.insert(QString(), product->GetObjectId());
    }
    return true;
}

bool FamilyCreate::DoRow(qint64 index) {
    const int row = m_layout.DataRows()[size_t(index)];
    const int productColumn = ColumnOf(FamilyFixedColumns::Product);
    const QString product = productColumn < 0 ? QString() : CellValue(row, productColumn).trimmed();
    auto* serial = new CVorDPM_DPD_Serial;
    serial->SetProductId(m_products.value(product));
    std::vector<int> ids;
    QStringList values;
    for (size_t c = 0; c < m_propertyIds.size(); ++c) {
        if (m_propertyIds[c] == 0) continue;
        ids.push_back(m_propertyIds[c]);
        values.append(CellValue(row, int(c)));
    }
    serial->SetValues(ids, values);
    const bool added = m_created->AddSerial(serial) == VOR::eOk;
    CVorDPMCommandManager::GetInstance()->AddNewlyCreatedObject(serial, 0);
    if (added) return true;
    return Fail(FamilyProblem::At(row + 1, 0, tr("无法添加系列行")));
}

void FamilyCreate::Saved() {
    m_created->SetCacheTable();
}

// The definition's file was made outside the command: it goes to the trash like any removal.
void FamilyCreate::Aborted() {
    if (!m_created) return;
    m_library->RemoveDPD(m_name);
    m_created = nullptr;
}
