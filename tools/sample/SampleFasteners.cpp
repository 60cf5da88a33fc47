#include "SampleFasteners.h"

namespace {

const QString kLibrary = QStringLiteral("QXMaterial");
const SampleProperty kGrade{QStringLiteral("性能等级"), QStringLiteral("grade"), 1, {}};

// Thread size, pitch, head height k, width across flats s, width across corners e, and the
// range of preferred lengths of GB/T 5782 (ISO 4014).
struct BoltSize {
    int d;
    const char* pitch;
    const char* k;
    const char* s;
    const char* e;
    int shortest;
    int longest;
};

const BoltSize kBoltSizes[] = {
    {6, "1", "4", "10", "11.05", 30, 60},       {8, "1.25", "5.3", "13", "14.38", 40, 80},
    {10, "1.5", "6.4", "16", "17.77", 45, 100}, {12, "1.75", "7.5", "18", "20.03", 50, 120},
    {16, "2", "10", "24", "26.75", 65, 160},    {20, "2.5", "12.5", "30", "33.53", 80, 200},
    {24, "3", "15", "36", "39.98", 90, 240},    {30, "3.5", "18.7", "46", "50.85", 110, 300},
    {36, "4", "22.5", "55", "60.79", 140, 360},
};

const int kPreferredLengths[] = {30,  35,  40,  45,  50,  55,  60,  65,  70,  80,
                                 90,  100, 110, 120, 130, 140, 150, 160, 180, 200,
                                 220, 240, 260, 280, 300, 320, 340, 360};

// Reference thread length b of a partly threaded bolt: it grows with the length class.
int ThreadLength(int d, int l) {
    if (l <= 125) return 2 * d + 6;
    if (l <= 200) return 2 * d + 12;
    return 2 * d + 25;
}

void DrawBolt(SampleSketch& sketch) {
    const SampleExpr d = sketch.Param(QStringLiteral("d"));
    const SampleExpr l = sketch.Param(QStringLiteral("l"));
    const SampleExpr k = sketch.Param(QStringLiteral("k"));
    const SampleExpr s = sketch.Param(QStringLiteral("s"));
    const SampleExpr b = sketch.Param(QStringLiteral("b"));
    const SampleExpr r = sketch.Local(QStringLiteral("r"), d / 2);
    const SampleExpr root = sketch.Local(QStringLiteral("root"), 0.85 * r);
    sketch.Rect(-k, -s / 2, k, s);
    sketch.Line(-k, s / 4, 0, s / 4);
    sketch.Line(-k, -s / 4, 0, -s / 4);
    sketch.Rect(0, -r, l, d);
    sketch.Line(l - b, -r, l - b, r);
    sketch.Line(l - b, root, l, root);
    sketch.Line(l - b, -root, l, -root);
    sketch.Text(l / 2, r + 2, QStringLiteral("l"));
    sketch.Text(l - b / 2, -r - 6, QStringLiteral("b"));
    sketch.Text(-k, s / 2 + 2, QStringLiteral("k"));
    sketch.Text(-k, -s / 2 - 8, QStringLiteral("s"));
    sketch.Text(l + 2, 0, QStringLiteral("d"));
}

void DrawNut(SampleSketch& sketch) {
    const SampleExpr d = sketch.Param(QStringLiteral("d"));
    const SampleExpr m = sketch.Param(QStringLiteral("m"));
    const SampleExpr s = sketch.Param(QStringLiteral("s"));
    // Corner radius of a hexagon of that width across flats: s / sqrt(3).
    const SampleExpr c = sketch.Local(QStringLiteral("c"), s * 0.57735);
    sketch.Polygon({c, 0, c / 2, s / 2, -c / 2, s / 2, -c, 0, -c / 2, -s / 2, c / 2, -s / 2});
    sketch.Circle(0, 0, d / 2);
    sketch.Circle(0, 0, 0.45 * s);
    sketch.Rect(s, -s / 2, m, s);
    sketch.Text(-s / 4, -s / 2 - 6, QStringLiteral("s"));
    sketch.Text(s, s / 2 + 2, QStringLiteral("m"));
    sketch.Text(0, 0, QStringLiteral("d"));
}

void DrawWasher(SampleSketch& sketch) {
    const SampleExpr d1 = sketch.Param(QStringLiteral("d1"));
    const SampleExpr d2 = sketch.Param(QStringLiteral("d2"));
    const SampleExpr h = sketch.Param(QStringLiteral("h"));
    sketch.Circle(0, 0, d2 / 2);
    sketch.Circle(0, 0, d1 / 2);
    sketch.Rect(d2 / 2 + 10, -d2 / 2, h, d2);
    sketch.Text(-d1 / 4, 0, QStringLiteral("d1"));
    sketch.Text(-d2 / 4, d2 / 2 + 2, QStringLiteral("d2"));
    sketch.Text(d2 / 2 + 10, d2 / 2 + 2, QStringLiteral("h"));
}

}  // namespace

QList<SampleFamily> SampleFasteners::Families() {
    return {Bolts(), Nuts(), Washers()};
}

SampleFamily SampleFasteners::Bolts() {
    SampleFamily family;
    family.library = kLibrary;
    family.definition = QStringLiteral("六角头螺栓");
    family.description = QStringLiteral("六角头螺栓 C级以上 部分螺纹, 尺寸按 GB/T 5782 (ISO 4014)");
    family.standard = QStringLiteral("GB/T 5782-2016");
    family.product = QStringLiteral("六角头螺栓");
    family.rule = QStringLiteral("六角头螺栓M%d%l");
    family.variant = kGrade;
    family.variants = {QStringLiteral("8.8级"), QStringLiteral("10.9级"), QStringLiteral("4.8级"),
                       QStringLiteral("A2-70"), QStringLiteral("12.9级")};
    family.dimensions = {{QStringLiteral("公称直径"), QStringLiteral("d"), 0, {}},
                         {QStringLiteral("公称长度"), QStringLiteral("l"), 0, {}},
                         {QStringLiteral("螺距"), QStringLiteral("P"), 1, {}},
                         {QStringLiteral("头部高度"), QStringLiteral("k"), 1, {}},
                         {QStringLiteral("对边宽度"), QStringLiteral("s"), 1, {}},
                         {QStringLiteral("对角宽度"), QStringLiteral("e"), 1, {}},
                         {QStringLiteral("螺纹长度"), QStringLiteral("b"), 1, {}}};
    for (const BoltSize& size : kBoltSizes) {
        for (int l : kPreferredLengths) {
            if (l < size.shortest || l > size.longest) continue;
            family.rows.append({QString::number(size.d), QString::number(l),
                                QString::fromLatin1(size.pitch), QString::fromLatin1(size.k),
                                QString::fromLatin1(size.s), QString::fromLatin1(size.e),
                                QString::number(ThreadLength(size.d, l))});
        }
    }
    family.draw = DrawBolt;
    return family;
}

SampleFamily SampleFasteners::Nuts() {
    SampleFamily family;
    family.library = kLibrary;
    family.definition = QStringLiteral("六角螺母");
    family.description = QStringLiteral("1型六角螺母, 尺寸按 GB/T 6170 (ISO 4032)");
    family.standard = QStringLiteral("GB/T 6170-2015");
    family.product = QStringLiteral("六角螺母");
    family.rule = QStringLiteral("六角螺母M%d");
    family.variant = kGrade;
    family.variants = {QStringLiteral("8级"), QStringLiteral("10级"), QStringLiteral("A2-70"),
                       QStringLiteral("12级")};
    family.dimensions = {{QStringLiteral("公称直径"), QStringLiteral("d"), 0, {}},
                         {QStringLiteral("螺距"), QStringLiteral("P"), 1, {}},
                         {QStringLiteral("螺母高度"), QStringLiteral("m"), 1, {}},
                         {QStringLiteral("对边宽度"), QStringLiteral("s"), 1, {}},
                         {QStringLiteral("对角宽度"), QStringLiteral("e"), 1, {}}};
    family.rows = {{"6", "1", "5.2", "10", "11.05"},    {"8", "1.25", "6.8", "13", "14.38"},
                   {"10", "1.5", "8.4", "16", "17.77"}, {"12", "1.75", "10.8", "18", "20.03"},
                   {"16", "2", "14.8", "24", "26.75"},  {"20", "2.5", "18", "30", "32.95"},
                   {"24", "3", "21.5", "36", "39.55"},  {"30", "3.5", "25.6", "46", "50.85"},
                   {"36", "4", "31", "55", "60.79"}};
    family.draw = DrawNut;
    return family;
}

SampleFamily SampleFasteners::Washers() {
    SampleFamily family;
    family.library = kLibrary;
    family.definition = QStringLiteral("平垫圈");
    family.description = QStringLiteral("平垫圈 A级, 尺寸按 GB/T 97.1 (ISO 7089)");
    family.standard = QStringLiteral("GB/T 97.1-2002");
    family.product = QStringLiteral("平垫圈");
    family.rule = QStringLiteral("平垫圈%d");
    family.variant = kGrade;
    family.variants = {QStringLiteral("200HV"), QStringLiteral("300HV"), QStringLiteral("A2")};
    family.dimensions = {{QStringLiteral("公称直径"), QStringLiteral("d"), 0, {}},
                         {QStringLiteral("内径"), QStringLiteral("d1"), 1, {}},
                         {QStringLiteral("外径"), QStringLiteral("d2"), 1, {}},
                         {QStringLiteral("厚度"), QStringLiteral("h"), 1, {}}};
    family.rows = {{"6", "6.4", "12", "1.6"}, {"8", "8.4", "16", "1.6"}, {"10", "10.5", "20", "2"},
                   {"12", "13", "24", "2.5"}, {"16", "17", "30", "3"},   {"20", "21", "37", "3"},
                   {"24", "25", "44", "4"},   {"30", "31", "56", "4"},   {"36", "37", "66", "5"}};
    family.draw = DrawWasher;
    return family;
}
