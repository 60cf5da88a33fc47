// One row of the report control: its cells ("items") in column order, each a text or a number
// (the picture cell) with an optional 64-bit item data value.
#pragma once

#include <QString>
#include <QtGlobal>
#include <functional>
#include <utility>
#include <vector>

class CVorDPMReportRecord {
public:
    struct Item {
        enum Kind { Text, Number };
        Kind kind = Text;
        QString text;      // the caption of a text item
        int number = 0;    // the icon index of a number (picture) item
        quint64 data = 0;  // item data; the first item's data is the row's key
    };

    Item& AddTextItem(const QString& text, quint64 data = 0) {
        m_items.push_back(Item{Item::Text, text, 0, data});
        return m_items.back();
    }
    Item& AddNumberItem(int number, quint64 data = 0) {
        m_items.push_back(Item{Item::Number, QString(), number, data});
        return m_items.back();
    }
    // The item of a column, or null when the record has no such item.
    const Item* GetItem(int column) const {
        if (column < 0 || column >= GetItemCount()) return nullptr;
        Item& item = m_items[static_cast<size_t>(column)];
        if (!m_deferred.empty()) ReadDeferred(column, item);
        return &item;
    }
    int GetItemCount() const { return static_cast<int>(m_items.size()); }
    // Changes the caption of a text item; false when the column holds no text item.
    bool SetItemText(int column, const QString& text) {
        if (column < 0 || column >= GetItemCount()) return false;
        Item& item = m_items[static_cast<size_t>(column)];
        if (item.kind != Item::Text) return false;
        DropDeferred(column);
        item.text = text;
        return true;
    }
    // The caption of the text item of `column` is read by `read` the first time the item is
    // asked for: a column whose texts cost a file read each is read only for the rows someone
    // looks at.
    void DeferItemText(int column, std::function<QString()> read) {
        DropDeferred(column);
        m_deferred.emplace_back(column, std::move(read));
    }

private:
    void ReadDeferred(int column, Item& item) const {
        for (auto deferred = m_deferred.begin(); deferred != m_deferred.end(); ++deferred) {
            if (deferred->first != column) continue;
            const std::function<QString()> read = std::move(deferred->second);
            m_deferred.erase(deferred);
            item.text = read();
            return;
        }
    }
    void DropDeferred(int column) {
        std::erase_if(m_deferred,
                      [column](const auto& deferred) { return deferred.first == column; });
    }

    // Mutable so that reading an item can fill in a deferred caption.
    mutable std::vector<Item> m_items;
    mutable std::vector<std::pair<int, std::function<QString()>>> m_deferred;
};
