// Fixture of the script editor's tests: a product definition on disk with common properties of
// the three value types, property rows, two scripts and a shape, read back from the files; and
// host callbacks that record every call the editor makes.
#pragma once

#include <QRect>
#include <memory>
#include <vector>

#include "CVorDPMDPOProperty.h"
#include "ExportVorDPMEditor.h"
#include "script/CVorDPMScriptEdit.h"
#include "support/GuiTestBase.h"

inline bool operator==(const _struParam& a, const _struParam& b) {
    return a.kind == b.kind && a.index == b.index;
}

inline bool operator==(const tagVorDPM_Value& a, const tagVorDPM_Value& b) {
    return a.type == b.type && a.intValue == b.intValue && a.doubleValue == b.doubleValue &&
           a.stringValue == b.stringValue;
}

inline void PrintTo(const _struParam& param, std::ostream* out) {
    *out << "{kind " << param.kind << ", index " << param.index << '}';
}

inline void PrintTo(const tagVorDPM_Value& value, std::ostream* out) {
    *out << "{type " << value.type << ", " << value.intValue << ", " << value.doubleValue << ", \""
         << value.stringValue.toStdString() << "\"}";
}

// What the host received.
struct HostCalls {
    struct Draw {
        QRect rect;
        QWidget* window;
        QString key;
        QByteArray script;
        std::map<QString, _struParam> params;
        std::map<int, tagVorDPM_Value> values;
    };
    std::vector<Draw> draws;
    std::vector<QRect> moves;
    int closes = 0;
};

class ScriptEditFixture : public GuiTestBase {
protected:
    static HostCalls& Host() {
        static HostCalls calls;
        return calls;
    }
    static void RecordDraw(QRect rect, QWidget* window, const QString& key, const char* script,
                           const std::map<QString, _struParam>& params,
                           const std::map<int, tagVorDPM_Value>& values) {
        Host().draws.push_back({rect, window, key, QByteArray(script), params, values});
    }
    static void RecordClose() { ++Host().closes; }
    static void RecordMove(QRect rect) { Host().moves.push_back(rect); }

    // A value of the type of `v`, as the store's tagged value takes it on assignment.
    template <class T>
    static tagVorDPM_Value Value(T v) {
        tagVorDPM_Value value;
        value = v;
        return value;
    }

    // Common properties 长度 (integer), 直径 (real), 材料 (text); the definition's properties
    // l, d, mat on them and `orphan` on a common property that does not exist; the scripts
    // "螺栓" and "垫圈"; the shape on "垫圈" with d (design, 1) and l (component, 0).
    void SetUp() override {
        Host() = HostCalls();
        CVorDPMLibraryManager* library = MakeLibrary();
        CVorDPMDPD* dpd = MakeDefinition(library, QStringLiteral("六角头螺栓"));
        CVorDPMDPOProperty* common = Manager()->GetCommonManager()->GetPropertyDPO();
        const int length = AddCommon(common, "长度", emVorDPM_VALUETYPE_INT);
        const int diameter = AddCommon(common, "直径", emVorDPM_VALUETYPE_DOUBLE);
        const int material = AddCommon(common, "材料", emVorDPM_VALUETYPE_STRING);
        AddParameter(dpd, "l", length, "50");
        AddParameter(dpd, "d", diameter, "12.5");
        AddParameter(dpd, "mat", material, "Q235");
        AddParameter(dpd, "orphan", 9999, "1");
        boltId = AddScript(dpd, "螺栓", "六角头", "line(0, 0, l, d)");
        washerId = AddScript(dpd, "垫圈", "平垫圈", "circle(0, 0, d)");
        auto* shape = new CVorDPM_DPD_Shape;
        shape->SetName(QStringLiteral("主视图"));
        shape->SetDPSId(washerId);
        shape->SetParam(QStringLiteral("d,l"));
        shape->SetParamType(QStringLiteral("0,1"));
        shape->SetParamIndex(QStringLiteral("1,0"));
        ASSERT_EQ(dpd->AddShape(shape), VOR::eOk);
        shapeId = shape->GetObjectId();
        SaveAndReopen();
        Load();
    }

    // The definition and the shape as the store reads them from disk now.
    void Load() {
        ASSERT_EQ(Library(QStringLiteral("QXMaterial"))->GetDPD(QStringLiteral("六角头螺栓"), dpd),
                  VOR::eOk);
        ASSERT_EQ(dpd->GetShape(shapeId, shape), VOR::eOk);
    }

    // The editor on the definition and shape, shown, with recording callbacks (or none).
    std::unique_ptr<CVorDPMScriptEdit> Open(bool withCallbacks = true) {
        auto dialog = withCallbacks ? std::make_unique<CVorDPMScriptEdit>(dpd, shape, &RecordDraw,
                                                                          &RecordClose, &RecordMove)
                                    : std::make_unique<CVorDPMScriptEdit>(dpd, shape, nullptr,
                                                                          nullptr, nullptr);
        dialog->show();
        return dialog;
    }

    CVorDPM_DPD_Dps* Script(int id) const {
        CVorDPM_DPD_Dps* script = nullptr;
        dpd->GetDps(id, script);
        return script;
    }

    CVorDPMDPD* dpd = nullptr;
    CVorDPM_DPD_Shape* shape = nullptr;
    int shapeId = 0;
    int boltId = 0;
    int washerId = 0;

private:
    static int AddCommon(CVorDPMDPOProperty* common, const char* name, emVorDPM_VALUETYPE type) {
        auto* row = new CVorDPM_DPOPROPERTY_Content;
        row->SetName(QString::fromUtf8(name));
        row->SetValueType(type);
        EXPECT_EQ(common->AddContent(row), VOR::eOk);
        return row->GetObjectId();
    }

    static void AddParameter(CVorDPMDPD* dpd, const char* param, int commonId, const char* value) {
        CVorDPM_DPD_Property* property = AddProperty(dpd, QString::fromUtf8(param));
        property->SetPropertyId(commonId);
        property->SetDefValue(QString::fromUtf8(value));
    }

    static int AddScript(CVorDPMDPD* dpd, const char* name, const char* description,
                         const char* text) {
        auto* script = new CVorDPM_DPD_Dps;
        script->SetName(QString::fromUtf8(name));
        script->SetDescription(QString::fromUtf8(description));
        script->SetContent(CBinaryData(QByteArray(text)));
        EXPECT_EQ(dpd->AddDps(script), VOR::eOk);
        return script->GetObjectId();
    }
};
