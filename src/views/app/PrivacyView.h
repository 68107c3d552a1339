// SPDX-License-Identifier: MIT
//
// What the window permission is used for. Main thread.
#pragma once

#include "views/shared/ViewEnvironment.h"
#include "views/style/Sheet.h"

namespace trovell {

class PrivacyView : public Sheet {
    Q_OBJECT

public:
    /// `window` is any widget of the window to cover.
    PrivacyView(const ViewEnvironment& environment, QWidget* window);

private:
    QWidget* buildBody();
    QWidget* buildPromises();

    ViewEnvironment m_environment;
};

} // namespace trovell
