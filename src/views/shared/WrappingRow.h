// SPDX-License-Identifier: MIT
//
// Controls side by side that go on in the next row where one is too narrow. Main thread.
#pragma once

#include "views/shared/ItemLayout.h"

namespace trovell {

/// Every item as large as it asks to be, from the leading edge, in the order in which they come.
class WrappingRow : public ItemLayout {
    Q_OBJECT

public:
    /// `gap` lies between items and between rows.
    explicit WrappingRow(int gap, QWidget* parent = nullptr) : ItemLayout(parent), m_gap(gap) {}

    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    void setGeometry(const QRect& area) override;

private:
    [[nodiscard]] QList<QRect> places(int width) const;

    int m_gap;
};

} // namespace trovell
