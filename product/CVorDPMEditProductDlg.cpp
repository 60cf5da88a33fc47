#include "CVorDPMEditProductDlg.h"

#include <QAction>
#include <QGroupBox>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QToolButton>
#include <QUndoStack>
#include <algorithm>
#include <array>

#include "CVorDPMDPDBase.h"
#include "CVorDPMDefinitionList.h"
#include "common/VorDPMControlId.h"
#include "common/VorDPMTabOrder.h"
#include "controls/CVorDPMListCtrlEx.h"
#include "product/CVorDPMEditHistory.h"
#include "product/CVorDPMSeriesSheet.h"
#include "shell/CVorDPMDialogBase.h"

namespace {

// The panel's layout in dialog units.
const QRect kSize(0, 0, 496, 330);
const QSize kButton(17, 12);

struct TableLayout {
    const char* title;
    QRect box;
    QRect list;
    int listId;
    int firstButtonId;
    int buttonX;
    // How the box follows the panel's growth: fractions for its top-left and bottom-right edges.
    QPointF topLeft;
    QPointF bottomRight;
};

// In table order: properties, pictures, shapes, products, series. The left column shares the
// height in thirds; the products take the top third of the right column, the series the rest.
const TableLayout kTables[] = {
    {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "产品属性定义（1）"),
     {7, 3, 227, 106},
     {13, 13, 197, 91},
     CVorDPMEditProductDlg::IDC_PROPERTY_LIST,
     CVorDPMEditProductDlg::IDC_PROPERTY_NEW,
     213,
     {0.0, 0.0},
     {0.5, 1.0 / 3}},
    {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "实物图片库（2）"),
     {7, 112, 227, 96},
     {13, 122, 197, 82},
     CVorDPMEditProductDlg::IDC_PICTURE_LIST,
     CVorDPMEditProductDlg::IDC_PICTURE_NEW,
     213,
     {0.0, 1.0 / 3},
     {0.5, 2.0 / 3}},
    {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "参数化形体库（3）"),
     {7, 211, 227, 107},
     {12, 222, 197, 91},
     CVorDPMEditProductDlg::IDC_SHAPE_LIST,
     CVorDPMEditProductDlg::IDC_SHAPE_NEW,
     213,
     {0.0, 2.0 / 3},
     {0.5, 1.0}},
    {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "产品列表（4）"),
     {239, 3, 250, 106},
     {245, 13, 223, 90},
     CVorDPMEditProductDlg::IDC_PRODUCT_LIST,
     CVorDPMEditProductDlg::IDC_PRODUCT_NEW,
     470,
     {0.5, 0.0},
     {1.0, 1.0 / 3}},
    {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "产品系列化（5）"),
     {239, 112, 250, 207},
     {245, 121, 225, 193},
     CVorDPMEditProductDlg::IDC_SERIES_LIST,
     CVorDPMEditProductDlg::IDC_SERIES_NEW,
     472,
     {0.5, 1.0 / 3},
     {1.0, 1.0}},
};

struct ButtonLook {
    const char* icon;
    const char* tooltip;
};

// New, edit, delete, copy.
const ButtonLook kButtons[] = {
    {":/vordpm/icons/list_new.png", QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "新建")},
    {":/vordpm/icons/list_edit.png", QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "编辑")},
    {":/vordpm/icons/list_delete.png", QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "删除")},
    {":/vordpm/icons/list_copy.png", QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "复制")},
};

// The order in which the lists get their columns and rows when the panel is created.
const int kFillOrder[] = {CVorDPMEditProductDlg::Properties, CVorDPMEditProductDlg::Pictures,
                          CVorDPMEditProductDlg::Products, CVorDPMEditProductDlg::Series,
                          CVorDPMEditProductDlg::Shapes};

std::unique_ptr<CVorDPMDefinitionList> MakeTable(int table, const VorDPMDefinitionContext& context,
                                                 CVorDPMListCtrlEx* list,
                                                 const CVorDPMDefinitionList::Buttons& buttons) {
    switch (table) {
        case CVorDPMEditProductDlg::Properties:
            return std::make_unique<CVorDPMDefinitionListOf<CVorDPM_DPD_Property>>(context, list,
                                                                                   buttons);
        case CVorDPMEditProductDlg::Pictures:
            return std::make_unique<CVorDPMDefinitionListOf<CVorDPM_DPD_Image>>(context, list,
                                                                                buttons);
        case CVorDPMEditProductDlg::Shapes:
            return std::make_unique<CVorDPMDefinitionListOf<CVorDPM_DPD_Shape>>(context, list,
                                                                                buttons);
        case CVorDPMEditProductDlg::Products:
            return std::make_unique<CVorDPMDefinitionListOf<CVorDPM_DPD_Product>>(context, list,
                                                                                  buttons);
    }
    return std::make_unique<CVorDPMDefinitionListOf<CVorDPM_DPD_Serial>>(context, list, buttons);
}

// Selects `rows` (ascending) of the list, runs of adjacent rows as one range each so that a pasted
// block is one, makes the first current in `column` and scrolls to it.
void SelectRows(CVorDPMListCtrlEx& list, const std::vector<int>& rows, int column) {
    const bool several = list.selectionMode() != QAbstractItemView::SingleSelection;
    QItemSelection chosen;
    for (size_t first = 0; first < rows.size();) {
        size_t last = first;
        while (several && last + 1 < rows.size() && rows[last + 1] == rows[last] + 1) ++last;
        chosen.select(list.model()->index(rows[first], 0), list.model()->index(rows[last], 0));
        if (!several) break;
        first = last + 1;
    }
    const QModelIndex current = list.model()->index(rows.front(), column);
    QItemSelectionModel* selection = list.selectionModel();
    selection->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    selection->select(chosen, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    list.scrollTo(current);
}

}  // namespace

CVorDPMEditProductDlg::CVorDPMEditProductDlg(CVorDPMDPDBase* dpd, PreviewDrawCallback draw,
                                             PreviewCloseCallback close, PreviewMoveCallback move,
                                             QWidget* parent)
    : QWidget(parent),
      m_history(new CVorDPMEditHistory(
          [this](const std::vector<CVorDPMObject*>& touched) { ReloadAfterStep(touched); }, this)),
      m_resizer(this) {
    VorDPMControlId::Set(this, IDD);
    // For a host that shows the panel in a dialog of its own; ours order it with theirs.
    VorDPMTabOrder::FollowLayout(this);
    resize(CVorDPMDialogBase::MapDialogRect(*this, kSize).size());
    const VorDPMDefinitionContext context{dpd, draw, close, move, this};
    for (int table = Properties; table <= Series; ++table) CreateTable(table, context);
    Reload();
    m_sheet = new CVorDPMSeriesSheet(GetList(Series), dpd, m_history, [this] {
        m_tables[Series]->Fill();
        UpdateCommandUi();
    });
}

CVorDPMEditProductDlg::~CVorDPMEditProductDlg() = default;

void CVorDPMEditProductDlg::CreateTable(int table, const VorDPMDefinitionContext& context) {
    const TableLayout& layout = kTables[table];
    auto* box = new QGroupBox(tr(layout.title), this);
    box->setGeometry(CVorDPMDialogBase::MapDialogRect(*this, layout.box));
    auto* list = new CVorDPMListCtrlEx(this);
    list->setGeometry(CVorDPMDialogBase::MapDialogRect(*this, layout.list));
    VorDPMControlId::Set(list, layout.listId);
    CVorDPMDefinitionList::Buttons buttons{};
    for (int command = 0; command < 4; ++command) {
        auto* button = new QToolButton(this);
        const QPoint at(layout.buttonX, layout.list.top() + command * (kButton.height() + 1));
        button->setGeometry(CVorDPMDialogBase::MapDialogRect(*this, QRect(at, kButton)));
        button->setIcon(QIcon(QString::fromLatin1(kButtons[command].icon)));
        button->setIconSize(QSize(16, 16));
        button->setToolTip(tr(kButtons[command].tooltip));
        button->setAutoRaise(true);
        VorDPMControlId::Set(button, layout.firstButtonId + command);
        buttons[command] = button;
        connect(button, &QToolButton::clicked, this,
                [this, table, command] { RunCommand(table, command); });
    }
    m_tables[table] = MakeTable(table, context, list, buttons);

    CVorDPMDefinitionList* rows = m_tables[table].get();
    // Every row whose selection changes is reported in turn; the last one reported is kept.
    connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this, rows](const QItemSelection& selected, const QItemSelection& deselected) {
                for (const QItemSelection& changed : {deselected, selected})
                    for (const QModelIndex& index : changed.indexes())
                        rows->RecordSelection(index.row());
                UpdateCommandUi();
            });
    connect(list, &QAbstractItemView::doubleClicked, this,
            [this, rows, table](const QModelIndex& index) {
                rows->RecordSelection(index.row());
                RunCommand(table, CVorDPMDefinitionList::Edit);
            });

    box->lower();
    m_resizer.SetResize(box, layout.topLeft, layout.bottomRight);
    m_resizer.SetResize(list, layout.topLeft, layout.bottomRight);
    for (QAbstractButton* button : buttons)
        m_resizer.SetResize(button, {layout.bottomRight.x(), layout.topLeft.y()},
                            {layout.bottomRight.x(), layout.topLeft.y()});
}

// Edit and delete register their record only after changing it, so its state before is kept here.
void CVorDPMEditProductDlg::RunCommand(int table, int command) {
    CVorDPMDefinitionList* rows = m_tables[table].get();
    std::vector<CVorDPMObject*> early;
    if (command == CVorDPMDefinitionList::Edit || command == CVorDPMDefinitionList::Delete)
        early.push_back(rows->SelectedObject());
    m_history->Record(
        tr(kButtons[command].tooltip),
        [rows, command] {
            rows->Run(command);
            return true;
        },
        early);
}

void CVorDPMEditProductDlg::AddUndoButtons() {
    QUndoStack* stack = m_history->Stack();
    struct Look {
        const char* name;
        QString text;
        QList<QKeySequence> keys;
    };
    const Look looks[] = {
        {"undoEdit", tr("撤销"), {QKeySequence(Qt::CTRL | Qt::Key_Z)}},
        {"redoEdit",
         tr("重做"),
         {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)}},
    };
    for (const Look& look : looks) {
        const bool undo = look.keys.size() == 1;
        QToolButton* button = AddSeriesButton(look.name, look.text);
        auto* action = new QAction(look.text, this);
        action->setShortcuts(look.keys);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        addAction(action);
        // The button leaves the focus in an open cell editor. Its typing is dropped, as Escape
        // would: written afterwards it would land on a step the user has just taken back.
        connect(action, &QAction::triggered, stack, [this, stack, undo] {
            m_sheet->CloseEditor();
            undo ? stack->undo() : stack->redo();
        });
        connect(button, &QToolButton::clicked, action, &QAction::trigger);
        // The button names the step it would take back or do again.
        const auto show = [button, action, text = look.text, stack, undo] {
            const bool can = undo ? stack->canUndo() : stack->canRedo();
            const QString step = undo ? stack->undoText() : stack->redoText();
            button->setEnabled(can);
            action->setEnabled(can);
            button->setToolTip(can ? text + QLatin1Char(' ') + step : text);
        };
        connect(stack, &QUndoStack::indexChanged, button, show);
        connect(stack, &QUndoStack::cleanChanged, button, show);
        show();
    }
}

void CVorDPMEditProductDlg::ReloadAfterStep(const std::vector<CVorDPMObject*>& touched) {
    // The current cell keeps its column, where the series table's next edit starts.
    std::array<int, 5> columns{};
    for (size_t table = 0; table < m_tables.size(); ++table)
        columns[table] = std::max(0, m_tables[table]->GetList()->currentIndex().column());
    Reload();
    for (size_t table = 0; table < m_tables.size(); ++table) {
        const std::vector<int> rows = m_tables[table]->RowsOf(touched);
        if (!rows.empty()) SelectRows(*m_tables[table]->GetList(), rows, columns[table]);
    }
}

CVorDPMListCtrlEx* CVorDPMEditProductDlg::GetList(int table) const {
    return table >= Properties && table <= Series ? m_tables[table]->GetList() : nullptr;
}

int CVorDPMEditProductDlg::GetSelectedIndex(int table) const {
    return table >= Properties && table <= Series ? m_tables[table]->GetSelectedIndex() : -1;
}

int CVorDPMEditProductDlg::ButtonId(int table, int command) {
    return kTables[table].firstButtonId + command;
}

QToolButton* CVorDPMEditProductDlg::AddSeriesButton(const char* objectName, const QString& text) {
    const TableLayout& layout = kTables[Series];
    auto* button = new QToolButton(this);
    button->setText(text);
    button->setObjectName(QLatin1String(objectName));
    button->setAutoRaise(true);
    // As wide as its text needs, from the button column to the panel's right edge at most.
    const QPoint at(layout.buttonX, layout.list.top() + m_seriesButtons * (kButton.height() + 1));
    QRect place = CVorDPMDialogBase::MapDialogRect(*this, QRect(at, kButton));
    place.setWidth(std::max(place.width(), button->sizeHint().width()));
    button->setGeometry(place);
    ++m_seriesButtons;
    const QPointF anchor(layout.bottomRight.x(), layout.topLeft.y());
    m_resizer.SetResize(button, anchor, anchor);
    return button;
}

void CVorDPMEditProductDlg::Reload() {
    for (int table : kFillOrder) {
        m_tables[table]->GetList()->DeleteAllColumns();
        m_tables[table]->BuildColumns();
        m_tables[table]->Fill();
    }
    UpdateCommandUi();
}

void CVorDPMEditProductDlg::UpdateCommandUi() {
    for (const auto& table : m_tables) table->UpdateCommandUi();
}

void CVorDPMEditProductDlg::keyPressEvent(QKeyEvent* event) {
    if (!parentWidget()) {
        QWidget::keyPressEvent(event);
        return;
    }
    // Enter must not reach the host dialog, which would close; Escape goes on to it.
    const int key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        event->accept();
    else
        event->ignore();
}

void CVorDPMEditProductDlg::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_resizer.Apply();
}
