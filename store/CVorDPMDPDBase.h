// The six tables of a product definition (properties, pictures, shapes, products, series rows
// and scripts) with their row checks; shared by definitions and templates. Get…, GetAll… and
// Add… follow the row access rules of CVorDPMDBBase.
#pragma once

#include "CVorDPMDBBase.h"
#include "CVorDPM_DPD_Dps.h"
#include "CVorDPM_DPD_Image.h"
#include "CVorDPM_DPD_Product.h"
#include "CVorDPM_DPD_Property.h"
#include "CVorDPM_DPD_Serial.h"
#include "CVorDPM_DPD_Shape.h"

class VORDPM_API CVorDPMDPDBase : public CVorDPMDBBase {
public:
    virtual VOR::ErrorStatus GetImage(int id, CVorDPM_DPD_Image*& out, int filter = 0);
    virtual VOR::ErrorStatus GetAllImage(CKZList<CVorDPM_DPD_Image*>& out, int filter = 0);
    virtual VOR::ErrorStatus AddImage(CVorDPM_DPD_Image* row);

    virtual VOR::ErrorStatus GetProduct(int id, CVorDPM_DPD_Product*& out, int filter = 0);
    virtual VOR::ErrorStatus GetAllProduct(CKZList<CVorDPM_DPD_Product*>& out, int filter = 0);
    virtual VOR::ErrorStatus AddProduct(CVorDPM_DPD_Product* row);

    virtual VOR::ErrorStatus GetProperty(int id, CVorDPM_DPD_Property*& out, int filter = 0);
    virtual VOR::ErrorStatus GetAllProperty(CKZList<CVorDPM_DPD_Property*>& out, int filter = 0);
    virtual VOR::ErrorStatus AddProperty(CVorDPM_DPD_Property* row);

    // By the row's text key (exact); eNotFound when no live row has it.
    virtual VOR::ErrorStatus GetSerial(const QString& key, CVorDPM_DPD_Serial*& out,
                                       int filter = 0);
    virtual VOR::ErrorStatus GetSerial(int id, CVorDPM_DPD_Serial*& out, int filter = 0);
    virtual VOR::ErrorStatus GetAllSerial(CKZList<CVorDPM_DPD_Serial*>& out, int filter = 0);
    // A row without a key is given a new GUID as its key.
    virtual VOR::ErrorStatus AddSerial(CVorDPM_DPD_Serial* row);

    virtual VOR::ErrorStatus GetShape(int id, CVorDPM_DPD_Shape*& out, int filter = 0);
    virtual VOR::ErrorStatus GetAllShape(CKZList<CVorDPM_DPD_Shape*>& out, int filter = 0);
    virtual VOR::ErrorStatus AddShape(CVorDPM_DPD_Shape* row);

    virtual VOR::ErrorStatus GetDps(int id, CVorDPM_DPD_Dps*& out, int filter = 0);
    virtual VOR::ErrorStatus GetAllDps(CKZList<CVorDPM_DPD_Dps*>& out, int filter = 0);
    virtual VOR::ErrorStatus AddDps(CVorDPM_DPD_Dps* row);

    // Row checks: 2002 when a required field is empty, 2001 when a unique field repeats the
    // value of another live row of the table (compared without regard to case), else 1.
    // Property: alias and parameter name required and unique. Picture, shape, product: name
    // required and unique. Series row: its product must exist; its key must be unique.
    VOR::ErrorStatus IsValid(CVorDPM_DPD_Property* row);
    VOR::ErrorStatus IsValid(CVorDPM_DPD_Image* row);
    VOR::ErrorStatus IsValid(CVorDPM_DPD_Shape* row);
    VOR::ErrorStatus IsValid(CVorDPM_DPD_Product* row);
    VOR::ErrorStatus IsValid(CVorDPM_DPD_Serial* row);
    using CVorDPMDBBase::IsValid;

protected:
    CVorDPMDPDBase(CVorDPMStorage* storage, const QString& library, const QString& name,
                   quint32 applicationId);

private:
    CVorDPMTable* m_properties;
    CVorDPMTable* m_images;
    CVorDPMTable* m_shapes;
    CVorDPMTable* m_products;
    CVorDPMTable* m_serials;
    CVorDPMTable* m_scripts;
};
