#include "VorDPMTabOrder.h"

#include <QCheckBox>
#include <QDialog>
#include <QEvent>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QVariant>
#include <algorithm>
#include <vector>

namespace {

// A control, or a tab widget with its pages, and where it lies in the window.
struct Placed {
    QRect rect;
    std::vector<QWidget*> chain;
};

std::vector<Placed> Collect(QWidget* container, QWidget* window);

// Where a control lies in the window. A check box or radio button counts as wide as its box
// and text: its geometry often runs on across empty space into the next column.
QRect Extent(const QWidget* control, const QWidget* window) {
    QSize size = control->size();
    if (qobject_cast<const QCheckBox*>(control) || qobject_cast<const QRadioButton*>(control))
        size.setWidth(std::min(size.width(), control->sizeHint().width()));
    return QRect(control->mapTo(window, QPoint()), size);
}

// Splits the pieces where a gap runs across all of them, along rows (horizontal gaps) or
// columns; each group with the size of the gap before it.
std::vector<std::pair<int, std::vector<Placed>>> Split(std::vector<Placed> pieces, bool rows) {
    const auto start = [rows](const Placed& p) { return rows ? p.rect.top() : p.rect.left(); };
    const auto end = [rows](const Placed& p) {
        return rows ? p.rect.top() + p.rect.height() : p.rect.left() + p.rect.width();
    };
    std::stable_sort(pieces.begin(), pieces.end(),
                     [&](const Placed& a, const Placed& b) { return start(a) < start(b); });
    std::vector<std::pair<int, std::vector<Placed>>> groups;
    int reach = 0;
    for (Placed& piece : pieces) {
        if (groups.empty() || start(piece) >= reach) {
            groups.emplace_back(groups.empty() ? 0 : start(piece) - reach, std::vector<Placed>());
            reach = end(piece);
        }
        reach = std::max(reach, end(piece));
        groups.back().second.push_back(std::move(piece));
    }
    return groups;
}

// The widest gap of a split and the pieces before and after it; a gap of -1 when there is none.
struct Cut {
    int gap = -1;
    std::vector<Placed> before;
    std::vector<Placed> after;
};

Cut WidestCut(std::vector<std::pair<int, std::vector<Placed>>> groups) {
    Cut cut;
    if (groups.size() < 2) return cut;
    const auto widest =
        std::max_element(groups.begin() + 1, groups.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
    cut.gap = widest->first;
    for (auto group = groups.begin(); group != groups.end(); ++group)
        std::move(group->second.begin(), group->second.end(),
                  std::back_inserter(group < widest ? cut.before : cut.after));
    return cut;
}

// Orders the pieces by recursive cuts at the widest gap that runs across all of them: a
// horizontal one puts the part above first, a vertical one the part on the left. So a column of
// search field, tree and check box comes before the sheet beside it, and a list's buttons, a
// narrower gap away, stay with their list. Qt's layouts space rows and columns alike; a tie goes
// to the columns, as a tree with its buttons below is one column beside the list on its right.
// Pieces that overlap both ways are read top to bottom, then left to right.
void Order(std::vector<Placed> pieces, std::vector<QWidget*>& out) {
    if (pieces.size() == 1) {
        out.insert(out.end(), pieces.front().chain.begin(), pieces.front().chain.end());
        return;
    }
    Cut rows = WidestCut(Split(pieces, true));
    Cut columns = WidestCut(Split(pieces, false));
    Cut& cut = rows.gap > columns.gap ? rows : columns;
    if (cut.gap >= 0) {
        Order(std::move(cut.before), out);
        Order(std::move(cut.after), out);
        return;
    }
    std::stable_sort(pieces.begin(), pieces.end(), [](const Placed& a, const Placed& b) {
        return std::make_pair(a.rect.top(), a.rect.left()) <
               std::make_pair(b.rect.top(), b.rect.left());
    });
    for (const Placed& piece : pieces)
        out.insert(out.end(), piece.chain.begin(), piece.chain.end());
}

std::vector<QWidget*> Chain(QWidget* container, QWidget* window) {
    std::vector<QWidget*> chain;
    std::vector<Placed> pieces = Collect(container, window);
    if (!pieces.empty()) Order(std::move(pieces), chain);
    return chain;
}

// A widget of pages (tab or stacked widget) as one piece: `first`, then the controls of every
// page in turn.
template <typename Pages>
Placed PagesPiece(Pages* pages, QWidget* window, std::vector<QWidget*> first) {
    Placed piece{QRect(pages->mapTo(window, QPoint()), pages->size()), std::move(first)};
    for (int page = 0; page < pages->count(); ++page) {
        const std::vector<QWidget*> chain = Chain(pages->widget(page), window);
        piece.chain.insert(piece.chain.end(), chain.begin(), chain.end());
    }
    return piece;
}

// A tab widget is one piece: its tab bar, then every page in turn; only the shown page's
// controls take the focus, so the pages can follow one another in the chain. The tab widget
// itself leaves the chain: it would pass Tab on to its tab bar from its place of creation.
Placed TabPiece(QTabWidget* tabs, QWidget* window) {
    // Qt hands a widget's focus policy on to its focus proxy, the tab bar, which keeps its own.
    const Qt::FocusPolicy barPolicy = tabs->tabBar()->focusPolicy();
    tabs->setFocusPolicy(Qt::NoFocus);
    tabs->tabBar()->setFocusPolicy(barPolicy);
    return PagesPiece(tabs, window, {tabs->tabBar()});
}

// The controls inside `container`: a widget that takes the focus by Tab is one control, its
// inner widgets its own business; other widgets (group boxes, panels) only hold controls.
// Nested windows are not part of this one. A hidden control gets its place when it was given
// one (a list shown in place of another); one never placed has no place to read.
std::vector<Placed> Collect(QWidget* container, QWidget* window) {
    std::vector<Placed> pieces;
    for (QWidget* child : container->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (child->isWindow() || (child->isHidden() && !child->testAttribute(Qt::WA_Resized)))
            continue;
        if (auto* tabs = qobject_cast<QTabWidget*>(child)) {
            pieces.push_back(TabPiece(tabs, window));
        } else if (auto* stack = qobject_cast<QStackedWidget*>(child)) {
            pieces.push_back(PagesPiece(stack, window, {}));
        } else if (child->focusPolicy() & Qt::TabFocus && !qobject_cast<QGroupBox*>(child)) {
            pieces.push_back({Extent(child, window), {child}});
        } else {
            // A checkable group box takes the focus before the controls it holds.
            if (child->focusPolicy() & Qt::TabFocus)
                pieces.push_back({QRect(child->mapTo(window, QPoint()), QSize(1, 1)), {child}});
            std::vector<Placed> inner = Collect(child, window);
            std::move(inner.begin(), inner.end(), std::back_inserter(pieces));
        }
    }
    return pieces;
}

// Qt makes the first auto-default button of the focus chain a dialog's default when none is
// set; that choice is made here from the chain as created, so a new order changes no default.
void KeepDefaultButton(QWidget* window) {
    auto* dialog = qobject_cast<QDialog*>(window);
    if (!dialog) return;
    const QList<QPushButton*> buttons = dialog->findChildren<QPushButton*>();
    if (std::any_of(buttons.begin(), buttons.end(), [](QPushButton* b) { return b->isDefault(); }))
        return;
    // Qt looks from the widget that has the focus, as this does.
    QWidget* from = dialog->focusWidget() ? dialog->focusWidget() : dialog;
    for (QWidget* next = from->nextInFocusChain(); next != from; next = next->nextInFocusChain()) {
        auto* button = qobject_cast<QPushButton*>(next);
        if (button && button->autoDefault() && button->focusPolicy() != Qt::NoFocus &&
            button->window() == dialog) {
            button->setDefault(true);
            return;
        }
    }
}

void Arrange(QWidget* window) {
    KeepDefaultButton(window);
    const std::vector<QWidget*> chain = Chain(window, window);
    for (size_t i = 1; i < chain.size(); ++i) QWidget::setTabOrder(chain[i - 1], chain[i]);
}

const char* const kFollowsLayout = "vordpmTabOrderFollowsLayout";

class FirstShow : public QObject {
public:
    explicit FirstShow(QWidget* window) : QObject(window) { window->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Show || watched != parent()) return false;
        watched->removeEventFilter(this);
        auto* widget = static_cast<QWidget*>(watched);
        // A panel inside a window that orders its controls itself is left to it: the window
        // orders everything at once, after pinning its default button from the order as created.
        if (widget->isWindow() || !widget->window()->property(kFollowsLayout).toBool())
            Arrange(widget);
        deleteLater();
        return false;
    }
};

}  // namespace

void VorDPMTabOrder::FollowLayout(QWidget* window) {
    window->setProperty(kFollowsLayout, true);
    new FirstShow(window);
}
