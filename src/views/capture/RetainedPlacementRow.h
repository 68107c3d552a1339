// SPDX-License-Identifier: MIT
//
// One saved window of an application that is not open now. Main thread.
#pragma once

#include "views/shared/ViewEnvironment.h"

#include <QWidget>

namespace trovell {

class TextLabel;
struct RetainedPlacementDraft;

/// Says which window it is and whether its position is kept, and lets the user switch that.
class RetainedPlacementRow : public QWidget {
    Q_OBJECT

public:
    RetainedPlacementRow(const ViewEnvironment& environment,
                         const RetainedPlacementDraft& placement);

Q_SIGNALS:
    void keptChanged(bool isKept);

private:
    QWidget* makeNames(const RetainedPlacementDraft& placement);
    void showStatus();

    const ViewEnvironment m_environment;
    bool m_isKept;
    TextLabel* m_status;
};

} // namespace trovell
