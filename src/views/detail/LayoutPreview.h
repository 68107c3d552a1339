// SPDX-License-Identifier: MIT
//
// The card that draws a workspace's saved layout, one picture for each display. Main thread.
#pragma once

#include "views/style/TrovellCardModifier.h"

#include <QList>

class QVBoxLayout;

namespace trovell {

class DisplayPreview;
class WindowPlacement;
struct ViewEnvironment;

class LayoutPreview : public TrovellCardModifier {
    Q_OBJECT

public:
    explicit LayoutPreview(const ViewEnvironment& environment, QWidget* parent = nullptr);

    /// Disabled ones are drawn like the others. Records are read and not kept.
    void setPlacements(const QList<WindowPlacement*>& placements);

private:
    const VisualStyle& m_visual;
    QVBoxLayout* m_column;
    QList<DisplayPreview*> m_displays;
};

} // namespace trovell
