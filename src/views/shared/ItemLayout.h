// SPDX-License-Identifier: MIT
//
// What every layout with an arrangement of its own needs: it keeps the items. Main thread.
#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace trovell {

/// Wants the whole width and gets its height from it; a derived class says how.
class ItemLayout : public QLayout {
    Q_OBJECT

public:
    explicit ItemLayout(QWidget* parent = nullptr);
    ~ItemLayout() override;

    void addItem(QLayoutItem* item) override;
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    [[nodiscard]] int count() const override { return int(m_items.size()); }

    [[nodiscard]] Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }

protected:
    using Items = std::vector<std::unique_ptr<QLayoutItem>>;
    [[nodiscard]] const Items& items() const { return m_items; }
    /// Puts the item there, seen from the leading edge of `area`.
    void place(const Items::value_type& item, const QRect& area, const QRect& place) const;

private:
    Items m_items;
};

} // namespace trovell
