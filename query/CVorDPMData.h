// Static queries that the editor's pages and the host's other modules share: name matching,
// product names from naming rules, and lookups of libraries, catalogs and classifications.
#pragma once

#include <QString>
#include <QStringList>
#include <set>
#include <vector>

#include "CKZList.h"
#include "CVorDPM_DPC_Content.h"
#include "query/VorDPMEditorExport.h"

class CVorDPMDPC;
class CVorDPMDPD;
class CVorDPMDPOProperty;
class CVorDPMLibraryManager;
class CVorDPM_DPD_Serial;
class CVorDPM_DPI_Info;
class QTreeWidget;
class QTreeWidgetItem;

// Every int result is a boolean (1 or 0). Containers and strings given as output are appended
// to, never cleared; objects handed out stay owned by the store.
class VORDPM_EDITOR_API CVorDPMData {
public:
    using ProductType = CVorDPM_DPC_Content::ProductType;

    CVorDPMData();
    CVorDPMData& operator=(const CVorDPMData& other);
    ~CVorDPMData();

    // Name matching. A pattern without "*" or "?" matches by case-sensitive containment; with
    // them it is turned into a regular expression, matched unanchored and case-sensitively.
    static int IsEqual(const QString& text, const QString& pattern);
    static int IsExist(const QString& text, const QString& part);
    // 1 when `pattern` holds NO wildcard; the name says the opposite, callers rely on this.
    static int IsExistWildcard(const QString& pattern);
    // "*" becomes ".*" (leaving any "?" as it is); else "?" becomes "."; 1 when changed.
    static int TransformToRegex(QString& pattern);
    // 0 for an invalid expression.
    static int IsRegexEqual(const QString& text, const QString& regex);
    // Appends the non-empty tokens of `text` separated by any character of `delimiters`.
    static void ParseString(const QString& text, const QString& delimiters, QStringList& out);

    // Product names. The rule's first token is literal; each further token names a property by
    // its parameter name; values follow the property order of the definition.
    static int ParseProductNameRule(CVorDPMDPD* dpd, CVorDPM_DPD_Serial* serial, QString& name);
    static int ParseProductNameRule(CVorDPMDPD* dpd, const QString& key, QString& name);
    static int ParseProductNameRule(CVorDPMDPD* dpd, int serialId, QString& name);

    // Library and catalog lookups. The first two return 1 also when `out` stays null.
    static int GetLibraryManger(const QString& library, CVorDPMLibraryManager*& out);
    static int GetDPCManger(const QString& library, const QString& catalog, CVorDPMDPC*& out);
    static int GetDPIInfo(const QString& library, CVorDPM_DPI_Info*& out);
    static int GetDPOProperty(CVorDPMDPOProperty*& out);
    static int GetAllLibraryName(std::vector<QString>& out);
    static int GetAllDPCName(const QString& library, std::vector<QString>& out);
    // Product definitions of the library that no catalog of it contains.
    static int GetALLExteriorDPD(const QString& library, CKZList<CVorDPMDPD*>& out);
    static int GetDPCAllType(CVorDPMDPC* catalog, ProductType level, std::set<QString>& out);

    // Catalog entries by classification; "*" in a filter means any value.
    static int GetAllMatchContent(CVorDPMDPC* catalog, const QString& level0, const QString& level1,
                                  const QString& level2, CKZList<CVorDPM_DPC_Content*>& out);
    static int GetAllMatchContent(CVorDPMDPC* catalog, const QString& name, const QString& level0,
                                  const QString& level1, const QString& level2,
                                  CKZList<CVorDPM_DPC_Content*>& out);
    // Unlinks the entries whose text of `level` differs from `text` (ignoring case).
    static int FiltrateContentLst(ProductType level, const QString& text,
                                  CKZList<CVorDPM_DPC_Content*>& list);
    // 1 when the catalog holds an entry for the same product under the same classification.
    static int HasDPCRecord(CVorDPMDPC* catalog, CVorDPM_DPC_Content* entry);
    // Splits "catalog/level0/level1/level2"; the level of the last classification given, or -1.
    static ProductType GetDPCType(const QString& path, QString& catalog, QString& level0,
                                  QString& level1, QString& level2);
    // Classification of an item of a catalog tree (the catalog at the root).
    static void GetTypes(QTreeWidget& tree, QTreeWidgetItem* item, QString& level0, QString& level1,
                         QString& level2);

private:
    friend class CVorDPMDataPrivateAccess;
    // Drops the last "." and what follows it; always 1.
    static int _DeletSuffix(QString& name);
};
