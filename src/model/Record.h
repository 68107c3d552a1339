// SPDX-License-Identifier: MIT
//
// What the persistent records have in common: writes are observed, and the values last saved are
// remembered until the changes are saved or rolled back. Main thread only.
#pragma once

#include <QObject>
#include <QUuid>

#include <memory>
#include <type_traits>
#include <utility>

namespace trovell {

class TrovellWorkspace;
template <class Child> class ToMany;

class Record : public QObject {
    Q_OBJECT

public:
    /// Whether the store holds this record: false until its first save.
    [[nodiscard]] bool isStored() const { return m_isStored; }

    /// Whether it was taken out of its context. It stays usable, but no write reaches the store
    /// any more; a rollback brings it back, a save destroys it soon after.
    [[nodiscard]] bool isRemoved() const { return m_isRemoved; }

Q_SIGNALS:
    /// An attribute has a new value, or records were appended to or removed from a relationship.
    /// Emitted once per write, and once per record that a rollback changed.
    void changed();

protected:
    /// A workspace belongs to itself, its items and placements to the workspace they were
    /// appended to.
    explicit Record(TrovellWorkspace* owner) : m_owner(owner) {}

    [[nodiscard]] TrovellWorkspace* owner() const { return m_owner; }
    void noteChange();

private:
    friend class StoreContext;
    template <class Child> friend class ToMany;

    TrovellWorkspace* m_owner;
    bool m_isStored = false;
    bool m_isRemoved = false;
};

/// A record whose attributes are the members of a plain structure.
template <class ValuesType> class RecordOf : public Record {
public:
    using Values = ValuesType;

    [[nodiscard]] const Values& values() const { return m_values; }
    [[nodiscard]] const QUuid& id() const { return m_values.id; }

    /// Whether attributes were written since the last save of a stored record.
    [[nodiscard]] bool isModified() const { return m_storedValues != nullptr; }

protected:
    RecordOf(Values values, TrovellWorkspace* owner) : Record(owner), m_values(std::move(values)) {}

    /// Writing the value an attribute already has does nothing.
    template <class T> void write(T Values::* attribute, std::type_identity_t<T> value)
    {
        if (m_values.*attribute == value)
            return;
        if (isStored() && !m_storedValues)
            m_storedValues = std::make_unique<Values>(m_values);
        m_values.*attribute = std::move(value);
        noteChange();
    }

private:
    friend class StoreContext;
    template <class Child> friend class ToMany;

    void acceptValues() { m_storedValues.reset(); }

    void revertValues()
    {
        if (m_storedValues)
            m_values = std::move(*std::exchange(m_storedValues, nullptr));
    }

    Values m_values;
    std::unique_ptr<Values> m_storedValues;
};

} // namespace trovell
