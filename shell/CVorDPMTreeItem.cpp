#include "CVorDPMTreeItem.h"

#include "CVorDPMLibraryManager.h"
#include "CVorDPMTreeCtrlEx.h"
#include "query/CVorDPMData.h"

namespace {

// Looked up by name, not kept as a pointer: a tree built before the store switched roots finds
// nothing rather than an object that is gone.
CVorDPMLibraryManager* Library(const QString& name) {
    CVorDPMLibraryManager* library = nullptr;
    CVorDPMData::GetLibraryManger(name, library);
    return library;
}

int ProductImage(bool exists) {
    return exists ? CVorDPMTreeCtrlEx::ImageProduct : CVorDPMTreeCtrlEx::ImageMissingProduct;
}

}  // namespace

CVorDPMTreeItem::CVorDPMTreeItem(const QString& text, int image, CVorDPMDBBase* data,
                                 const QList<QIcon>* icons)
    : QTreeWidgetItem(Type), m_text(text), m_icons(icons), m_image(image), m_object(data) {}

CVorDPMTreeItem::CVorDPMTreeItem(const QString& name, const QString& library,
                                 const QList<QIcon>* icons)
    : QTreeWidgetItem(Type),
      m_text(name),
      m_icons(icons),
      m_image(CVorDPMTreeCtrlEx::ImageMissingProduct),
      m_object(nullptr),
      m_library(library),
      m_imageKnown(false) {}

int CVorDPMTreeItem::Image() const {
    if (m_imageKnown) return m_image;
    const CVorDPMLibraryManager* library = Library(m_library);
    m_image = ProductImage(library && library->HasDPD(m_text));
    m_imageKnown = true;
    return m_image;
}

CVorDPMDBBase* CVorDPMTreeItem::Object() const {
    if (m_library.isEmpty()) return m_object;
    CVorDPMLibraryManager* library = Library(m_library);
    CVorDPMDPD* definition = nullptr;
    if (library) library->GetDPD(m_text, definition);
    m_object = definition;
    if (!m_imageKnown) m_image = ProductImage(definition);
    Forget();
    return m_object;
}

// The node's image and item data are settled: nothing is to be looked up any more.
void CVorDPMTreeItem::Forget() const {
    m_imageKnown = true;
    m_library.clear();
}

QVariant CVorDPMTreeItem::data(int column, int role) const {
    if (column != 0) return QTreeWidgetItem::data(column, role);
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return m_text;
        case CVorDPMTreeCtrlEx::ItemImageRole:
            return Image();
        case CVorDPMTreeCtrlEx::ItemDataRole: {
            CVorDPMDBBase* object = Object();
            return object ? QVariant::fromValue(reinterpret_cast<quintptr>(object)) : QVariant();
        }
        case Qt::DecorationRole: {
            const QVariant set = QTreeWidgetItem::data(column, role);
            const int image = Image();
            if (set.isValid() || !m_icons || image < 0 || image >= m_icons->size()) return set;
            return m_icons->at(image);
        }
        default:
            return QTreeWidgetItem::data(column, role);
    }
}

void CVorDPMTreeItem::setData(int column, int role, const QVariant& value) {
    if (column != 0) return QTreeWidgetItem::setData(column, role, value);
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            if (value.toString() == m_text) return;
            Object();  // the definition is the one of the name the node was made with
            m_text = value.toString();
            break;
        case CVorDPMTreeCtrlEx::ItemImageRole:
            Object();  // the item data stays what it was found to be
            m_image = value.toInt();
            break;
        case CVorDPMTreeCtrlEx::ItemDataRole:
            Image();  // the image stays what it was found to be
            m_object = reinterpret_cast<CVorDPMDBBase*>(value.value<quintptr>());
            Forget();
            break;
        default:
            return QTreeWidgetItem::setData(column, role, value);
    }
    emitDataChanged();
}
