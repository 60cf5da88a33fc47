#include "CVorDPMLibrarySearch.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QShortcut>
#include <QStyledItemDelegate>
#include <QTreeView>

#include "CVorDPMProductHitModel.h"
#include "CVorDPMProductSearch.h"
#include "CVorDPMTreeCtrlEx.h"

namespace {

// Paints a library node's number of matches after its text; the text itself stays the library
// name, which the dialog's commands look nodes up by.
class MatchCountDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        const QVariant count = index.data(CVorDPMLibrarySearch::MatchCountRole);
        if (count.isValid()) option->text += QStringLiteral(" (%1)").arg(count.toInt());
    }
};

QString UncataloguedText() {
    return CVorDPMTreeCtrlEx::tr("未分类");
}

bool IsEnter(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace

const char* const CVorDPMLibrarySearch::kFieldName = "librarySearch";
const char* const CVorDPMLibrarySearch::kModeName = "librarySearchMode";
const char* const CVorDPMLibrarySearch::kResultsName = "librarySearchResults";

CVorDPMLibrarySearch::CVorDPMLibrarySearch(CVorDPMTreeCtrlEx* tree, QWidget* dialog)
    : QObject(dialog),
      m_tree(tree),
      m_dialog(dialog),
      m_field(new QLineEdit(dialog)),
      m_mode(new QComboBox(dialog)),
      m_results(new QTreeView(dialog)),
      m_hits(new CVorDPMProductHitModel(this)),
      m_search(new CVorDPMProductSearch(this)) {
    m_field->setObjectName(QLatin1String(kFieldName));
    m_field->setPlaceholderText(tr("搜索"));
    m_field->setClearButtonEnabled(true);
    m_field->installEventFilter(this);
    m_mode->setObjectName(QLatin1String(kModeName));
    // Short texts for a narrow box; each says in full what it searches when pointed at.
    m_mode->addItems({tr("名称"), tr("产品"), tr("全库")});
    const QString tips[] = {tr("按名称查找产品库、目录、分类和产品定义"),
                            tr("查找所选产品库的产品"), tr("查找全部产品库的产品")};
    for (int i = 0; i < m_mode->count(); ++i) m_mode->setItemData(i, tips[i], Qt::ToolTipRole);
    m_results->setObjectName(QLatin1String(kResultsName));
    m_results->setModel(m_hits);
    m_results->setRootIsDecorated(false);
    m_results->setItemsExpandable(false);
    m_results->setUniformRowHeights(true);
    m_results->setAllColumnsShowFocus(true);
    m_results->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_results->setSelectionMode(QAbstractItemView::SingleSelection);
    m_results->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_results->hide();
    // Set before the dialog connects to the tree's delegate for label editing.
    m_tree->setItemDelegate(new MatchCountDelegate(m_tree));

    connect(m_field, &QLineEdit::textChanged, this, &CVorDPMLibrarySearch::OnTextChanged);
    connect(m_mode, &QComboBox::currentIndexChanged, this, &CVorDPMLibrarySearch::OnModeChanged);
    connect(m_search, &CVorDPMProductSearch::Found, m_hits, &CVorDPMProductHitModel::Append);
    connect(m_results, &QAbstractItemView::activated, this,
            [this](const QModelIndex& index) { GoToHit(index.row()); });
    connect(new QShortcut(QKeySequence::Find, dialog), &QShortcut::activated, this, [this] {
        m_field->setFocus(Qt::ShortcutFocusReason);
        m_field->selectAll();
    });
    connect(new QShortcut(QKeySequence::FindNext, dialog), &QShortcut::activated, this,
            [this] { GoToNext(1); });
    connect(new QShortcut(QKeySequence::FindPrevious, dialog), &QShortcut::activated, this,
            [this] { GoToNext(-1); });
}

void CVorDPMLibrarySearch::Refresh() {
    m_matches = {};
    m_index.Clear();
    m_position = -1;
    if (!SearchesProducts()) FilterTree();
}

bool CVorDPMLibrarySearch::SearchesProducts() const {
    return m_mode->currentIndex() != NameMode;
}

// Escape empties the field before it closes anything; Enter goes to the next match, as F3
// does. Coming to the field by the user's choice reads the names again, since the pages may
// have changed them meanwhile.
bool CVorDPMLibrarySearch::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_field) return false;
    if (event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (!m_goingTo && reason != Qt::OtherFocusReason && reason != Qt::ActiveWindowFocusReason &&
            reason != Qt::PopupFocusReason) {
            Refresh();
            // Read now rather than on the first keystroke, which then costs what the others do.
            EnsureIndex();
        }
        return false;
    }
    if (event->type() != QEvent::KeyPress) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Escape && !m_field->text().isEmpty()) {
        m_field->clear();
        return true;
    }
    if (IsEnter(key->key())) {
        GoToNext(1);
        return true;
    }
    if (key->key() == Qt::Key_Down && SearchesProducts()) {
        m_results->setFocus(Qt::TabFocusReason);
        return true;
    }
    return false;
}

void CVorDPMLibrarySearch::OnTextChanged() {
    m_position = -1;
    if (SearchesProducts())
        SearchProducts();
    else
        FilterTree();
}

void CVorDPMLibrarySearch::OnModeChanged() {
    const bool products = SearchesProducts();
    m_search->Cancel();
    m_hits->Clear();
    ClearTreeFilter();
    m_tree->setVisible(!products);
    m_results->setVisible(products);
    OnTextChanged();
}

void CVorDPMLibrarySearch::EnsureIndex() {
    if (!m_index.IsEmpty()) return;
    std::vector<std::pair<QString, QStringList>> libraries;
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* library = m_tree->topLevelItem(i);
        QStringList catalogs;
        for (int c = 0; c < library->childCount(); ++c) catalogs.append(library->child(c)->text(0));
        libraries.emplace_back(library->text(0), catalogs);
    }
    m_index.Build(libraries);
}

// Only the nodes of libraries and catalogs change; the tree is not built again.
void CVorDPMLibrarySearch::FilterTree() {
    const QString pattern = m_field->text();
    if (pattern.isEmpty()) return ClearTreeFilter();
    EnsureIndex();
    m_matches = m_index.Match(pattern);
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem* library = m_tree->topLevelItem(i);
        const int count = m_matches.perLibrary.value(library->text(0));
        library->setData(0, MatchCountRole, count);
        library->setHidden(count == 0);
        bool catalogShown = false;
        for (int c = 0; c < library->childCount(); ++c) {
            QTreeWidgetItem* catalog = library->child(c);
            const QString key =
                CVorDPMLibrarySearchIndex::CatalogKey(library->text(0), catalog->text(0));
            const bool shown = m_matches.perCatalog.value(key) > 0;
            catalog->setHidden(!shown);
            catalogShown = catalogShown || shown;
        }
        if (catalogShown) library->setExpanded(true);
    }
}

void CVorDPMLibrarySearch::ClearTreeFilter() {
    m_matches = {};
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem* library = m_tree->topLevelItem(i);
        if (library->data(0, MatchCountRole).isValid())
            library->setData(0, MatchCountRole, QVariant());
        library->setHidden(false);
        for (int c = 0; c < library->childCount(); ++c) library->child(c)->setHidden(false);
    }
}

void CVorDPMLibrarySearch::SearchProducts() {
    m_search->Cancel();
    m_hits->Clear();
    const QString pattern = m_field->text();
    if (pattern.isEmpty()) return;
    EnsureIndex();
    QString library;
    if (m_mode->currentIndex() == LibraryProductMode && m_tree->currentItem()) {
        const QTreeWidgetItem* node = m_tree->currentItem();
        library = (node->parent() ? node->parent() : node)->text(0);
    }
    std::vector<CVorDPMProductSearch::Job> jobs;
    for (const CVorDPMLibrarySearchIndex::Entry* entry : m_index.Definitions(library)) {
        QStringList place{entry->library};
        if (entry->catalog.isEmpty())
            place << UncataloguedText();
        else
            place << entry->catalog << entry->levels;
        jobs.push_back({entry->library, entry->catalog, entry->name, place.join(QLatin1Char('/')),
                        CVorDPMLibrarySearchIndex::DataPagePath(*entry, UncataloguedText())});
    }
    m_search->Start(pattern, std::move(jobs));
}

// The field keeps the focus when the user goes from match to match from it.
void CVorDPMLibrarySearch::GoToNext(int step) {
    const bool fromField = m_field->hasFocus();
    const int count =
        SearchesProducts() ? m_hits->rowCount() : static_cast<int>(m_matches.entries.size());
    if (count == 0) return;
    if (m_position < 0)
        m_position = step > 0 ? 0 : count - 1;
    else
        m_position = (m_position + step % count + count) % count;
    // Focus moves around while the pages change; none of it is the user coming back.
    m_goingTo = true;
    if (SearchesProducts()) {
        m_results->setCurrentIndex(m_hits->index(m_position, 0));
        GoToHit(m_position);
    } else {
        GoToMatch(*m_matches.entries[static_cast<size_t>(m_position)]);
    }
    if (fromField) m_field->setFocus(Qt::OtherFocusReason);
    m_goingTo = false;
}

void CVorDPMLibrarySearch::GoToMatch(const CVorDPMLibrarySearchIndex::Entry& entry) {
    emit GoTo(entry.library, entry.catalog,
              CVorDPMLibrarySearchIndex::DataPagePath(entry, UncataloguedText()), -1);
}

void CVorDPMLibrarySearch::GoToHit(int row) {
    const CVorDPMProductHit* hit = m_hits->Hit(row);
    if (!hit) return;
    m_position = row;
    emit GoTo(hit->library, hit->catalog, hit->nodePath, hit->serialId);
}
