// SPDX-License-Identifier: MIT
//
// The records of one kind that a workspace owns, in the order in which they were appended. Stored
// ones are read when they are first asked for. Main thread only.
#pragma once

#include "model/Record.h"

#include <QList>

#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <vector>

namespace trovell {

/// How many records there are without reading them.
struct StoredCounts {
    qint64 all = 0;
    qint64 enabled = 0;
};

template <class Child> class ToMany {
public:
    using Values = typename Child::Values;
    /// Reads the stored records in their order; none when they cannot be read now.
    using Reader = std::function<std::optional<std::vector<Values>>()>;

    explicit ToMany(TrovellWorkspace& owner) : m_owner(owner) {}

    /// Reads first, so that those in memory are either all there are or none of the stored ones.
    void append(std::unique_ptr<Child> child)
    {
        readStored();
        child->m_owner = &m_owner;
        m_children.push_back(std::move(child));
    }

    /// Without the removed ones. After a failed read only those appended since; the failure is the
    /// reader's to report, and the next call reads again.
    [[nodiscard]] QList<Child*> live()
    {
        readStored();
        QList<Child*> children;
        for (const auto& child : m_children) {
            if (!child->isRemoved())
                children.append(child.get());
        }
        return children;
    }

    /// Never reads.
    [[nodiscard]] StoredCounts counts() const
    {
        StoredCounts counts = m_unread;
        for (const auto& child : m_children) {
            if (!child->isRemoved()) {
                counts.all += 1;
                counts.enabled += child->isEnabled() ? 1 : 0;
            }
        }
        return counts;
    }

    /// Those in memory, removed ones included.
    [[nodiscard]] const std::vector<std::unique_ptr<Child>>& loaded() const { return m_children; }

private:
    friend class StoreContext;

    void setUnread(StoredCounts counts, Reader reader)
    {
        m_unread = counts;
        m_reader = counts.all > 0 ? std::move(reader) : nullptr;
    }

    void readStored()
    {
        if (!m_reader)
            return;
        std::optional<std::vector<Values>> rows = m_reader();
        if (!rows)
            return;
        std::vector<std::unique_ptr<Child>> stored;
        stored.reserve(rows->size());
        for (Values& values : *rows) {
            stored.push_back(std::make_unique<Child>(std::move(values)));
            stored.back()->m_owner = &m_owner;
            stored.back()->m_isStored = true;
        }
        m_children.insert(m_children.begin(), std::make_move_iterator(stored.begin()),
                          std::make_move_iterator(stored.end()));
        setUnread({}, nullptr);
    }

    /// A save has written the records as they are.
    void accept()
    {
        for (const auto& child : m_children) {
            child->acceptValues();
            child->m_isStored = !child->m_isRemoved;
        }
        dropUnstored();
    }

    /// Makes the records equal to the stored ones again and returns those whose values changed.
    QList<Record*> revert()
    {
        QList<Record*> reverted;
        for (const auto& child : m_children) {
            child->m_isRemoved = !child->m_isStored;
            if (child->isModified())
                reverted.append(child.get());
            child->revertValues();
        }
        dropUnstored();
        return reverted;
    }

    /// Observers may still hold the record in this turn of the event loop.
    void dropUnstored()
    {
        std::erase_if(m_children, [](std::unique_ptr<Child>& child) {
            if (child->isStored())
                return false;
            child->m_owner = nullptr;
            child.release()->deleteLater();
            return true;
        });
    }

    TrovellWorkspace& m_owner;
    std::vector<std::unique_ptr<Child>> m_children;
    StoredCounts m_unread;
    Reader m_reader;
};

} // namespace trovell
