// SPDX-License-Identifier: MIT
//
// The saved windows that a capture did not see, each to be kept or removed. Main thread.
#pragma once

#include "editing/CaptureDraft.h"
#include "views/shared/ViewEnvironment.h"

#include <QWidget>

namespace trovell {

class RetainedPlacementsSection : public QWidget {
    Q_OBJECT

public:
    /// `placements` is edited in place, keeps its order and outlives the section.
    RetainedPlacementsSection(const ViewEnvironment& environment,
                              QList<RetainedPlacementDraft>& placements);

Q_SIGNALS:
    void changed();

private:
    QWidget* makeCard();

    const ViewEnvironment m_environment;
    QList<RetainedPlacementDraft>& m_placements;
};

} // namespace trovell
