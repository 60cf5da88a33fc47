// Base of every persistent row: object id, deleted mark, change tracking and the filer protocol.
#pragma once

#include "CVorDPMClassInfo.h"
#include "CVorDPMFiler.h"
#include "VorDPMExport.h"
#include "VorDPMTypes.h"

class CVorDPMTable;

class VORDPM_API CVorDPMObject {
public:
    CVorDPMObject() = default;
    CVorDPMObject(const CVorDPMObject& other);
    CVorDPMObject& operator=(const CVorDPMObject&) = delete;
    virtual ~CVorDPMObject();

    virtual VOR::ErrorStatus VorDPMInFields(CVorDPMFiler* filer) = 0;
    virtual VOR::ErrorStatus VorDPMOutFields(CVorDPMFiler* filer) const = 0;
    // A detached copy with the same id and fields; it belongs to no table.
    virtual CVorDPMObject* Clone() const = 0;
    virtual const CVorDPMClassInfo* GetClassInfo() const = 0;

    int GetObjectId() const { return m_objectId; }
    void SetDeleted(int deleted);
    int IsDeleted() const { return m_deleted ? 1 : 0; }
    CVorDPMTable* GetTable() const { return m_table; }

protected:
    // Every setter calls this so that the owning file is written on the next save.
    void MarkChanged();

private:
    friend class CVorDPMTable;
    friend class CVorDPMFileStore;
    friend class CVorDPMPgStorage;
    // Packed into 16 bytes after the vtable: a large table holds a row object per row.
    CVorDPMTable* m_table = nullptr;
    int m_objectId = 0;
    bool m_deleted = false;
    bool m_dirty = false;
};

// Declares a field with its getter and a setter that records a change (setting the value a
// field already has changes nothing, so that nothing needs saving).
#define VORDPM_FIELD(Type, Name)        \
public:                                 \
    const Type& Get##Name() const {     \
        return m_##Name;                \
    }                                   \
    void Set##Name(const Type& value) { \
        if (m_##Name == value) return;  \
        m_##Name = value;               \
        MarkChanged();                  \
    }                                   \
                                        \
private:                                \
    Type m_##Name{};

// Declares the run-time class, factory and clone of a row class.
#define VORDPM_DECLARE_ROW(ClassName)                              \
public:                                                            \
    static const CVorDPMClassInfo& ClassInfo();                    \
    const CVorDPMClassInfo* GetClassInfo() const override {        \
        return &ClassInfo();                                       \
    }                                                              \
    CVorDPMObject* Clone() const override {                        \
        return new ClassName(*this);                               \
    }                                                              \
    VOR::ErrorStatus VorDPMInFields(CVorDPMFiler* filer) override; \
    VOR::ErrorStatus VorDPMOutFields(CVorDPMFiler* filer) const override;
