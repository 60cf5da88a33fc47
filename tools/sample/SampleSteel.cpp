#include "SampleSteel.h"

namespace {

const QString kLibrary = QStringLiteral("QXMaterial");
const QString kStandard706 = QStringLiteral("GB/T 706-2016");
const SampleProperty kMaterial{QStringLiteral("材料"), QStringLiteral("mat"), 1, {}};
const QStringList kGrades = {QStringLiteral("Q235B"), QStringLiteral("Q355B"),
                             QStringLiteral("Q390B"), QStringLiteral("Q420B"),
                             QStringLiteral("Q460C")};

const int kPlateThicknesses[] = {6, 8, 10, 12, 14, 16, 18, 20, 22, 25, 28, 30, 36, 40, 50};
// Width and length of the two usual mill sizes of a plate.
const int kPlateSizes[][2] = {{1500, 6000}, {2000, 8000}};

// Designation, height h, flange width b, web thickness d, mean flange thickness t, root radius
// r and mass per metre of GB/T 706 hot-rolled I-beams.
const QList<QStringList> kIBeams = {
    {"10", "100", "68", "4.5", "7.6", "6.5", "11.3"},
    {"12.6", "126", "74", "5", "8.4", "7", "14.2"},
    {"14", "140", "80", "5.5", "9.1", "7.5", "16.9"},
    {"16", "160", "88", "6", "9.9", "8", "20.5"},
    {"18", "180", "94", "6.5", "10.7", "8.5", "24.1"},
    {"20a", "200", "100", "7", "11.4", "9", "27.9"},
    {"20b", "200", "102", "9", "11.4", "9", "31.1"},
    {"22a", "220", "110", "7.5", "12.3", "9.5", "33.1"},
    {"22b", "220", "112", "9.5", "12.3", "9.5", "36.5"},
    {"25a", "250", "116", "8", "13", "10", "38.1"},
    {"25b", "250", "118", "10", "13", "10", "42"},
    {"28a", "280", "122", "8.5", "13.7", "10.5", "43.5"},
    {"28b", "280", "124", "10.5", "13.7", "10.5", "47.9"},
    {"32a", "320", "130", "9.5", "15", "11.5", "52.7"},
    {"32b", "320", "132", "11.5", "15", "11.5", "57.7"},
    {"32c", "320", "134", "13.5", "15", "11.5", "62.8"},
    {"36a", "360", "136", "10", "15.8", "12", "60"},
    {"36b", "360", "138", "12", "15.8", "12", "65.7"},
    {"36c", "360", "140", "14", "15.8", "12", "71.3"},
    {"40a", "400", "142", "10.5", "16.5", "12.5", "67.6"},
    {"40b", "400", "144", "12.5", "16.5", "12.5", "73.9"},
    {"40c", "400", "146", "14.5", "16.5", "12.5", "80.2"},
};

// The same columns for GB/T 706 hot-rolled channels.
const QList<QStringList> kChannels = {
    {"5", "50", "37", "4.5", "7", "7", "5.44"},
    {"6.3", "63", "40", "4.8", "7.5", "7.5", "6.63"},
    {"8", "80", "43", "5", "8", "8", "8.04"},
    {"10", "100", "48", "5.3", "8.5", "8.5", "10"},
    {"12.6", "126", "53", "5.5", "9", "9", "12.3"},
    {"14a", "140", "58", "6", "9.5", "9.5", "14.5"},
    {"14b", "140", "60", "8", "9.5", "9.5", "16.7"},
    {"16a", "160", "63", "6.5", "10", "10", "17.2"},
    {"16b", "160", "65", "8.5", "10", "10", "19.8"},
    {"18a", "180", "68", "7", "10.5", "10.5", "20.2"},
    {"18b", "180", "70", "9", "10.5", "10.5", "23"},
    {"20a", "200", "73", "7", "11", "11", "22.6"},
    {"20b", "200", "75", "9", "11", "11", "25.8"},
    {"22a", "220", "77", "7", "11.5", "11.5", "25"},
    {"22b", "220", "79", "9", "11.5", "11.5", "28.5"},
    {"25a", "250", "78", "7", "12", "12", "27.4"},
    {"25b", "250", "80", "9", "12", "12", "31.3"},
    {"28a", "280", "82", "7.5", "12.5", "12.5", "31.4"},
    {"28b", "280", "84", "9.5", "12.5", "12.5", "35.8"},
    {"32a", "320", "88", "8", "14", "14", "38.1"},
    {"32b", "320", "90", "10", "14", "14", "43.1"},
};

void DrawPlate(SampleSketch& sketch) {
    const SampleExpr t = sketch.Param(QStringLiteral("t"));
    const SampleExpr B = sketch.Param(QStringLiteral("B"));
    const SampleExpr L = sketch.Param(QStringLiteral("L"));
    sketch.Rect(0, 0, L, B);
    sketch.Rect(0, -B / 4 - t, L, t);
    sketch.Text(L / 2, B + 40, QStringLiteral("L"));
    sketch.Text(L + 40, B / 2, QStringLiteral("B"));
    sketch.Text(L + 40, -B / 4, QStringLiteral("t"));
}

// Labels the height right of the section and the flange width above it.
void LabelSection(SampleSketch& sketch, const SampleExpr& right, const SampleExpr& top) {
    sketch.Text(right + 4, 0, QStringLiteral("h"));
    sketch.Text(0, top + 4, QStringLiteral("b"));
}

void DrawIBeam(SampleSketch& sketch) {
    const SampleExpr h = sketch.Param(QStringLiteral("h"));
    const SampleExpr b = sketch.Param(QStringLiteral("b"));
    const SampleExpr d = sketch.Param(QStringLiteral("d"));
    const SampleExpr t = sketch.Param(QStringLiteral("t"));
    const SampleExpr x = sketch.Local(QStringLiteral("x"), b / 2);
    const SampleExpr w = sketch.Local(QStringLiteral("w"), d / 2);
    const SampleExpr y = sketch.Local(QStringLiteral("y"), h / 2);
    const SampleExpr f = sketch.Local(QStringLiteral("f"), y - t);
    sketch.Polygon(
        {-x, -y, x, -y, x, -f, w, -f, w, f, x, f, x, y, -x, y, -x, f, -w, f, -w, -f, -x, -f});
    LabelSection(sketch, x, y);
    sketch.Text(w + 2, 0, QStringLiteral("d"));
}

void DrawChannel(SampleSketch& sketch) {
    const SampleExpr h = sketch.Param(QStringLiteral("h"));
    const SampleExpr b = sketch.Param(QStringLiteral("b"));
    const SampleExpr d = sketch.Param(QStringLiteral("d"));
    const SampleExpr t = sketch.Param(QStringLiteral("t"));
    const SampleExpr y = sketch.Local(QStringLiteral("y"), h / 2);
    const SampleExpr f = sketch.Local(QStringLiteral("f"), y - t);
    sketch.Polygon({0, -y, b, -y, b, -f, d, -f, d, f, b, f, b, y, 0, y});
    LabelSection(sketch, b, y);
    sketch.Text(d + 2, 0, QStringLiteral("d"));
}

void DrawAngle(SampleSketch& sketch) {
    const SampleExpr b = sketch.Param(QStringLiteral("b"));
    const SampleExpr d = sketch.Param(QStringLiteral("d"));
    sketch.Polygon({0, 0, b, 0, b, d, d, d, d, b, 0, b});
    sketch.Text(b / 2, -8, QStringLiteral("b"));
    sketch.Text(d + 2, b / 2, QStringLiteral("d"));
}

QList<SampleProperty> SectionProperties() {
    return {{QStringLiteral("型号"), QStringLiteral("type"), 0, {}},
            {QStringLiteral("高度"), QStringLiteral("h"), 1, {}},
            {QStringLiteral("腿宽度"), QStringLiteral("b"), 1, {}},
            {QStringLiteral("腰厚度"), QStringLiteral("d"), 1, {}},
            {QStringLiteral("平均腿厚度"), QStringLiteral("t"), 1, {}},
            {QStringLiteral("内圆弧半径"), QStringLiteral("r"), 1, {}},
            {QStringLiteral("理论重量"), QStringLiteral("W"), 1, {}}};
}

SampleFamily SteelFamily(const QString& definition, const QString& rule) {
    SampleFamily family;
    family.library = kLibrary;
    family.definition = definition;
    family.product = definition;
    family.rule = rule;
    family.variant = kMaterial;
    family.variants = kGrades;
    return family;
}

}  // namespace

QList<SampleFamily> SampleSteel::Families() {
    return {
        Plates(),
        Sections(QStringLiteral("热轧工字钢"), QStringLiteral("工字钢I%type"), kIBeams, DrawIBeam),
        Sections(QStringLiteral("热轧槽钢"), QStringLiteral("槽钢[%type"), kChannels, DrawChannel),
        Angles()};
}

SampleFamily SampleSteel::Plates() {
    SampleFamily family = SteelFamily(QStringLiteral("热轧钢板"), QStringLiteral("钢板δ%t%B%L"));
    family.description = QStringLiteral("热轧钢板, 尺寸按 GB/T 709; 单件重量按密度 7.85 t/m³ 计算");
    family.standard = QStringLiteral("GB/T 709-2019");
    family.dimensions = {{QStringLiteral("厚度"), QStringLiteral("t"), 0, {}},
                         {QStringLiteral("宽度"), QStringLiteral("B"), 0, {}},
                         {QStringLiteral("长度"), QStringLiteral("L"), 0, {}},
                         {QStringLiteral("单件重量"), QStringLiteral("W"), 1, {}}};
    for (int t : kPlateThicknesses) {
        for (const auto& size : kPlateSizes) {
            const double mass = 7.85e-6 * t * size[0] * size[1];
            family.rows.append({QString::number(t), QString::number(size[0]),
                                QString::number(size[1]), QString::number(mass, 'f', 1)});
        }
    }
    family.draw = DrawPlate;
    return family;
}

SampleFamily SampleSteel::Sections(const QString& definition, const QString& rule,
                                   const QList<QStringList>& rows, void (*draw)(SampleSketch&)) {
    SampleFamily family = SteelFamily(definition, rule);
    family.description = QStringLiteral("%1, 截面尺寸与理论重量按 GB/T 706").arg(definition);
    family.standard = kStandard706;
    family.dimensions = SectionProperties();
    family.rows = rows;
    family.draw = draw;
    return family;
}

SampleFamily SampleSteel::Angles() {
    SampleFamily family =
        SteelFamily(QStringLiteral("热轧等边角钢"), QStringLiteral("等边角钢∠%b%d"));
    family.description = QStringLiteral("热轧等边角钢, 截面尺寸与理论重量按 GB/T 706");
    family.standard = kStandard706;
    family.dimensions = {{QStringLiteral("边宽度"), QStringLiteral("b"), 0, {}},
                         {QStringLiteral("边厚度"), QStringLiteral("d"), 0, {}},
                         {QStringLiteral("内圆弧半径"), QStringLiteral("r"), 1, {}},
                         {QStringLiteral("理论重量"), QStringLiteral("W"), 1, {}}};
    family.rows = {
        {"20", "3", "3.5", "0.889"},   {"25", "3", "3.5", "1.124"},  {"30", "3", "4.5", "1.373"},
        {"36", "3", "4.5", "1.656"},   {"40", "4", "5", "2.422"},    {"45", "4", "5", "2.736"},
        {"50", "5", "5.5", "3.77"},    {"56", "5", "6", "4.251"},    {"63", "6", "7", "5.721"},
        {"70", "7", "8", "7.398"},     {"75", "8", "9", "9.03"},     {"80", "8", "9", "9.658"},
        {"90", "8", "10", "10.946"},   {"100", "10", "12", "15.12"}, {"110", "10", "12", "16.69"},
        {"125", "12", "14", "22.696"}, {"140", "14", "14", "29.49"}, {"160", "16", "16", "38.518"},
        {"180", "18", "16", "48.634"}, {"200", "20", "18", "60.056"}};
    family.draw = DrawAngle;
    return family;
}
