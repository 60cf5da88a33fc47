// The record editor of the product editor: one record of a product definition (a property
// definition, picture, shape, product or series row) in a property grid. Every change is
// written into the record at once; pickers fill the fields that refer to other tables; OK
// asks the definition whether the record is valid.
#pragma once

#include <QHash>
#include <functional>

#include "CVorDPMDialogBase.h"
#include "ExportVorDPMEditor.h"

class CBinaryData;
class CVorDPMDPDBase;
class CVorDPMPropertyGrid;
class CVorDPMPropertyGridItem;
class CVorDPM_DPD_Image;
class CVorDPM_DPD_Product;
class CVorDPM_DPD_Property;
class CVorDPM_DPD_Serial;
class CVorDPM_DPD_Shape;
class QTreeWidgetItem;

class CVorDPMProductEdit : public CVorDPMDialogBase {
    Q_OBJECT

public:
    enum { IDD = 5158 };
    enum ControlId : int { IDC_GRID = 8059 };
    enum Kind : int {
        PropertyKind = 0,
        ImageKind = 1,
        ShapeKind = 2,
        ProductKind = 3,
        SerialKind = 4
    };
    enum Mode : int { NewRecord = 0, EditRecord = 1, CopyRecord = 3 };

    CVorDPMProductEdit(CVorDPMDPDBase* dpd, CVorDPM_DPD_Property* record, int mode,
                       PreviewDrawCallback draw, PreviewCloseCallback close,
                       PreviewMoveCallback move, QWidget* parent = nullptr);
    CVorDPMProductEdit(CVorDPMDPDBase* dpd, CVorDPM_DPD_Image* record, int mode,
                       PreviewDrawCallback draw, PreviewCloseCallback close,
                       PreviewMoveCallback move, QWidget* parent = nullptr);
    CVorDPMProductEdit(CVorDPMDPDBase* dpd, CVorDPM_DPD_Shape* record, int mode,
                       PreviewDrawCallback draw, PreviewCloseCallback close,
                       PreviewMoveCallback move, QWidget* parent = nullptr);
    CVorDPMProductEdit(CVorDPMDPDBase* dpd, CVorDPM_DPD_Product* record, int mode,
                       PreviewDrawCallback draw, PreviewCloseCallback close,
                       PreviewMoveCallback move, QWidget* parent = nullptr);
    CVorDPMProductEdit(CVorDPMDPDBase* dpd, CVorDPM_DPD_Serial* record, int mode,
                       PreviewDrawCallback draw, PreviewCloseCallback close,
                       PreviewMoveCallback move, QWidget* parent = nullptr);
    ~CVorDPMProductEdit() override;

protected:
    bool OnInitDialog() override;

private:
    using Writer = std::function<void(CVorDPMPropertyGridItem*)>;

    CVorDPMProductEdit(CVorDPMDPDBase* dpd, int kind, int mode, PreviewDrawCallback draw,
                       PreviewCloseCallback close, PreviewMoveCallback move, QWidget* parent);
    // Builds the grid's section for the record of the kind.
    void BuildGrid();
    QTreeWidgetItem* StartSection(const QString& title, const QString& category);
    // Adds an item whose changes `writer` writes into the record.
    CVorDPMPropertyGridItem* Add(QTreeWidgetItem* category, CVorDPMPropertyGridItem* item,
                                 Writer writer = Writer());
    CVorDPMPropertyGridItem* AddId(QTreeWidgetItem* category, int objectId);
    void AddPropertyItems();
    void AddImageItems();
    void AddShapeItems();
    void AddProductItems();
    void AddSerialItems();
    void AddPictureFile(QTreeWidgetItem* category, const QString& caption,
                        void (CVorDPM_DPD_Image::*set)(const CBinaryData&), bool image);
    void AddRelatedId(QTreeWidgetItem* category, const QString& caption, int kind, int value,
                      void (CVorDPM_DPD_Serial::*set)(const int&));

    void OnValueChanged(CVorDPMPropertyGridItem* item);
    void OnButtonDown(CVorDPMPropertyGridItem* item);
    void PickCommonProperty(CVorDPMPropertyGridItem* item);
    void PickUnit(CVorDPMPropertyGridItem* item);
    void PickScript(CVorDPMPropertyGridItem* item);
    void PickRelated(CVorDPMPropertyGridItem* item, int kind);
    // Fills an empty item of the property section from the chosen common property.
    void FillIfEmpty(const QString& caption, const QString& value);
    void WriteShapeParamIndex();
    void OnOK();
    int CheckRecord() const;

    CVorDPMDPDBase* m_dpd;
    int m_kind;
    int m_mode;
    PreviewDrawCallback m_draw;
    PreviewCloseCallback m_close;
    PreviewMoveCallback m_move;
    CVorDPM_DPD_Property* m_property = nullptr;
    CVorDPM_DPD_Image* m_image = nullptr;
    CVorDPM_DPD_Shape* m_shape = nullptr;
    CVorDPM_DPD_Product* m_product = nullptr;
    CVorDPM_DPD_Serial* m_serial = nullptr;
    CVorDPMPropertyGrid* m_grid;
    QHash<CVorDPMPropertyGridItem*, Writer> m_writers;
    QHash<CVorDPMPropertyGridItem*, std::function<void()>> m_pickers;
};
