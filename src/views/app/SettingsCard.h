// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/TrovellCardModifier.h"

class QHBoxLayout;
class QVBoxLayout;

namespace trovell {

/// A card of rows with dividers between them. Main thread.
class SettingsCard : public TrovellCardModifier {
    Q_OBJECT

public:
    explicit SettingsCard(const VisualStyle& visual, QWidget* parent = nullptr);

    /// A row at least 44 high for widgets side by side.
    QHBoxLayout* addRow();
    /// A row whose parts stand one below the other.
    QVBoxLayout* addColumn();

private:
    QWidget* addPlace();

    const VisualStyle& m_visual;
    QVBoxLayout* m_rows;
};

} // namespace trovell
