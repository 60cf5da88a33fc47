#include "SamplePiping.h"

namespace {

const QString kLibrary = QStringLiteral("QXMEP");
const SampleProperty kMaterial{QStringLiteral("材料"), QStringLiteral("mat"), 1, {}};
const SampleProperty kDiameter{QStringLiteral("公称通径"), QStringLiteral("DN"), 0, {}};
const SampleProperty kPressure{QStringLiteral("公称压力"), QStringLiteral("PN"), 0, {}};

// Nominal size, outside diameter and the Sch 40 and Sch 80 wall thicknesses of steel pipe.
struct PipeSize {
    int dn;
    double outside;
    double sch40;
    double sch80;
};

const PipeSize kPipeSizes[] = {
    {15, 21.3, 2.77, 3.73},    {20, 26.7, 2.87, 3.91},     {25, 33.4, 3.38, 4.55},
    {32, 42.2, 3.56, 4.85},    {40, 48.3, 3.68, 5.08},     {50, 60.3, 3.91, 5.54},
    {65, 73.0, 5.16, 7.01},    {80, 88.9, 5.49, 7.62},     {100, 114.3, 6.02, 8.56},
    {125, 141.3, 6.55, 9.53},  {150, 168.3, 7.11, 10.97},  {200, 219.1, 8.18, 12.70},
    {250, 273.0, 9.27, 15.09}, {300, 323.8, 10.31, 17.48},
};

// Mass per metre of a steel tube: pi * (D - S) * S * 7.85 kg/dm3 = 0.02466 (D - S) S kg/m.
QStringList PipeRow(const PipeSize& size, const QString& schedule, double wall) {
    const double mass = 0.02466 * (size.outside - wall) * wall;
    return {QString::number(size.dn), schedule, QString::number(size.outside),
            QString::number(wall), QString::number(mass, 'f', 2)};
}

void DrawPipe(SampleSketch& sketch) {
    const SampleExpr D = sketch.Param(QStringLiteral("D"));
    const SampleExpr S = sketch.Param(QStringLiteral("S"));
    const SampleExpr r = sketch.Local(QStringLiteral("r"), D / 2);
    sketch.Circle(0, 0, r);
    sketch.Circle(0, 0, r - S);
    sketch.Rect(D, -r, 2 * D, D);
    sketch.Line(D, S - r, 3 * D, S - r);
    sketch.Line(D, r - S, 3 * D, r - S);
    sketch.Text(-r / 2, r + 4, QStringLiteral("D"));
    sketch.Text(3 * D + 4, r - S, QStringLiteral("S"));
}

void DrawFlange(SampleSketch& sketch) {
    const SampleExpr D = sketch.Param(QStringLiteral("D"));
    const SampleExpr K = sketch.Param(QStringLiteral("K"));
    const SampleExpr L = sketch.Param(QStringLiteral("L"));
    const SampleExpr n = sketch.Param(QStringLiteral("n"));
    const SampleExpr C = sketch.Param(QStringLiteral("C"));
    const SampleExpr B = sketch.Param(QStringLiteral("B"));
    sketch.Circle(0, 0, D / 2);
    sketch.Circle(0, 0, B / 2);
    sketch.HoleCircle(K / 2, n, L / 2);
    const SampleExpr x = sketch.Local(QStringLiteral("x"), D / 2 + 2 * C);
    sketch.Rect(x, -D / 2, C, D);
    sketch.Line(x, B / 2, x + C, B / 2);
    sketch.Line(x, -B / 2, x + C, -B / 2);
    sketch.Text(-D / 4, D / 2 + 4, QStringLiteral("D"));
    sketch.Text(0, K / 2, QStringLiteral("K"));
    sketch.Text(x, D / 2 + 4, QStringLiteral("C"));
}

void DrawGateValve(SampleSketch& sketch) {
    const SampleExpr L = sketch.Param(QStringLiteral("L"));
    const SampleExpr D = sketch.Param(QStringLiteral("D"));
    const SampleExpr H = sketch.Param(QStringLiteral("H"));
    const SampleExpr W = sketch.Param(QStringLiteral("W"));
    const SampleExpr a = sketch.Local(QStringLiteral("a"), L / 2);
    const SampleExpr f = sketch.Local(QStringLiteral("f"), a - 20);
    sketch.Rect(-a, -D / 2, 20, D);
    sketch.Rect(f, -D / 2, 20, D);
    sketch.Polygon({-f, -D / 4, -D / 4, -D / 2, D / 4, -D / 2, f, -D / 4, f, D / 4, D / 4, D / 2,
                    -D / 4, D / 2, -f, D / 4});
    sketch.Rect(-D / 6, D / 2, D / 3, 0.35 * H);
    sketch.Line(0, D / 2 + 0.35 * H, 0, H);
    sketch.Rect(-W / 2, H - 12, W, 12);
    sketch.Text(0, -D / 2 - 40, QStringLiteral("L"));
    sketch.Text(W / 2 + 4, H / 2, QStringLiteral("H"));
    sketch.Text(-W / 2, H + 4, QStringLiteral("W"));
}

void DrawReducer(SampleSketch& sketch) {
    const SampleExpr D1 = sketch.Param(QStringLiteral("D1"));
    const SampleExpr D2 = sketch.Param(QStringLiteral("D2"));
    const SampleExpr L = sketch.Param(QStringLiteral("L"));
    sketch.Polygon({0, -D1 / 2, L, -D2 / 2, L, D2 / 2, 0, D1 / 2});
    sketch.Line(-10, 0, L + 10, 0);
    sketch.Text(-16, D1 / 2, QStringLiteral("D1"));
    sketch.Text(L + 4, D2 / 2, QStringLiteral("D2"));
    sketch.Text(L / 2, -D1 / 2 - 8, QStringLiteral("L"));
}

}  // namespace

QList<SampleFamily> SamplePiping::Families() {
    return {Pipes(), Flanges(), GateValves(), Reducers()};
}

SampleFamily SamplePiping::Pipes() {
    SampleFamily family;
    family.library = kLibrary;
    family.definition = QStringLiteral("无缝钢管");
    family.description = QStringLiteral(
        "输送流体用无缝钢管, 外径与壁厚按 Sch40/Sch80 管子表 (GB/T 17395, ASME B36.10M)");
    family.standard = QStringLiteral("GB/T 8163-2018");
    family.product = QStringLiteral("无缝钢管");
    family.rule = QStringLiteral("无缝钢管Φ%D%S");
    family.variant = kMaterial;
    family.variants = {QStringLiteral("20"), QStringLiteral("Q345B"), QStringLiteral("12Cr1MoVG"),
                       QStringLiteral("06Cr19Ni10")};
    family.dimensions = {kDiameter,
                         {QStringLiteral("管子表号"), QStringLiteral("sch"), 0, {}},
                         {QStringLiteral("外径"), QStringLiteral("D"), 1, {}},
                         {QStringLiteral("壁厚"), QStringLiteral("S"), 1, {}},
                         {QStringLiteral("理论重量"), QStringLiteral("W"), 1, {}}};
    for (const PipeSize& size : kPipeSizes) {
        family.rows.append(PipeRow(size, QStringLiteral("Sch40"), size.sch40));
        family.rows.append(PipeRow(size, QStringLiteral("Sch80"), size.sch80));
    }
    family.draw = DrawPipe;
    return family;
}

SampleFamily SamplePiping::Flanges() {
    SampleFamily family;
    family.library = kLibrary;
    family.definition = QStringLiteral("板式平焊法兰");
    family.description =
        QStringLiteral("板式平焊钢制管法兰 PL, PN16 突面, 尺寸按 HG/T 20592 (EN 1092-1)");
    family.standard = QStringLiteral("HG/T 20592-2009");
    family.product = QStringLiteral("板式平焊法兰 PL");
    family.rule = QStringLiteral("板式平焊法兰DN%DN%PN");
    family.variant = kMaterial;
    family.variants = {QStringLiteral("Q235B"), QStringLiteral("20"), QStringLiteral("Q345R"),
                       QStringLiteral("06Cr19Ni10")};
    family.dimensions = {kDiameter,
                         kPressure,
                         {QStringLiteral("法兰外径"), QStringLiteral("D"), 1, {}},
                         {QStringLiteral("螺栓孔中心圆直径"), QStringLiteral("K"), 1, {}},
                         {QStringLiteral("螺栓孔直径"), QStringLiteral("L"), 1, {}},
                         {QStringLiteral("螺栓孔数量"), QStringLiteral("n"), 1, {}},
                         {QStringLiteral("螺栓规格"), QStringLiteral("Th"), 1, {}},
                         {QStringLiteral("法兰厚度"), QStringLiteral("C"), 1, {}},
                         {QStringLiteral("法兰内径"), QStringLiteral("B"), 1, {}}};
    family.rows = {
        {"15", "16", "95", "65", "14", "4", "M12", "14", "22"},
        {"20", "16", "105", "75", "14", "4", "M12", "16", "27.5"},
        {"25", "16", "115", "85", "14", "4", "M12", "16", "34.5"},
        {"32", "16", "140", "100", "18", "4", "M16", "18", "43.5"},
        {"40", "16", "150", "110", "18", "4", "M16", "18", "49.5"},
        {"50", "16", "165", "125", "18", "4", "M16", "20", "61.5"},
        {"65", "16", "185", "145", "18", "8", "M16", "20", "77.5"},
        {"80", "16", "200", "160", "18", "8", "M16", "20", "90.5"},
        {"100", "16", "220", "180", "18", "8", "M16", "22", "116"},
        {"125", "16", "250", "210", "18", "8", "M16", "22", "141.5"},
        {"150", "16", "285", "240", "22", "8", "M20", "24", "170.5"},
        {"200", "16", "340", "295", "22", "12", "M20", "24", "221.5"},
        {"250", "16", "405", "355", "26", "12", "M24", "26", "276.5"},
        {"300", "16", "460", "410", "26", "12", "M24", "28", "327.5"},
    };
    family.draw = DrawFlange;
    return family;
}

SampleFamily SamplePiping::GateValves() {
    SampleFamily family;
    family.library = kLibrary;
    family.definition = QStringLiteral("法兰闸阀");
    family.description = QStringLiteral(
        "法兰连接明杆楔式闸阀 Z41H-16, 结构长度按 GB/T 12221, 法兰按 PN16; "
        "高度与手轮直径为常见设计值");
    family.standard = QStringLiteral("GB/T 12234-2019");
    family.product = QStringLiteral("闸阀 Z41H-16");
    family.rule = QStringLiteral("法兰闸阀DN%DN%PN");
    family.variant = {QStringLiteral("材料"), QStringLiteral("mat"), 1, QStringLiteral("阀体材料")};
    family.variants = {QStringLiteral("WCB"), QStringLiteral("CF8"), QStringLiteral("CF8M"),
                       QStringLiteral("LCB")};
    family.dimensions = {kDiameter,
                         kPressure,
                         {QStringLiteral("结构长度"), QStringLiteral("L"), 1, {}},
                         {QStringLiteral("法兰外径"), QStringLiteral("D"), 1, {}},
                         {QStringLiteral("阀门高度"), QStringLiteral("H"), 1, {}},
                         {QStringLiteral("手轮直径"), QStringLiteral("W"), 1, {}}};
    family.rows = {
        {"50", "16", "250", "165", "380", "200"},   {"65", "16", "270", "185", "420", "240"},
        {"80", "16", "280", "200", "470", "240"},   {"100", "16", "300", "220", "540", "280"},
        {"125", "16", "325", "250", "620", "320"},  {"150", "16", "350", "285", "720", "320"},
        {"200", "16", "400", "340", "890", "400"},  {"250", "16", "450", "405", "1060", "450"},
        {"300", "16", "500", "460", "1230", "500"},
    };
    family.draw = DrawGateValve;
    return family;
}

SampleFamily SamplePiping::Reducers() {
    SampleFamily family;
    family.library = kLibrary;
    family.definition = QStringLiteral("同心异径管");
    family.description =
        QStringLiteral("对焊同心异径管 Sch40, 尺寸按 GB/T 12459 (ASME B16.9); 尚未归入产品目录");
    family.standard = QStringLiteral("GB/T 12459-2017");
    family.product = QStringLiteral("同心异径管");
    family.rule = QStringLiteral("同心异径管DN%DN1%DN2");
    family.variant = kMaterial;
    family.variants = {QStringLiteral("20"), QStringLiteral("06Cr19Ni10")};
    family.dimensions = {
        {QStringLiteral("公称通径"), QStringLiteral("DN1"), 0, QStringLiteral("大端公称通径")},
        {QStringLiteral("公称通径"), QStringLiteral("DN2"), 0, QStringLiteral("小端公称通径")},
        {QStringLiteral("外径"), QStringLiteral("D1"), 1, QStringLiteral("大端外径")},
        {QStringLiteral("外径"), QStringLiteral("D2"), 1, QStringLiteral("小端外径")},
        {QStringLiteral("结构长度"), QStringLiteral("L"), 1, {}}};
    family.rows = {{"50", "40", "60.3", "48.3", "76"},      {"80", "50", "88.9", "60.3", "89"},
                   {"100", "80", "114.3", "88.9", "102"},   {"150", "100", "168.3", "114.3", "140"},
                   {"200", "150", "219.1", "168.3", "152"}, {"250", "200", "273", "219.1", "178"},
                   {"300", "250", "323.8", "273", "203"}};
    family.draw = DrawReducer;
    return family;
}
