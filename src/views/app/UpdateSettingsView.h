// SPDX-License-Identifier: MIT
//
// The page of the settings about software updates. Main thread.
#pragma once

#include "views/shared/ViewEnvironment.h"

#include <QWidget>

namespace trovell {

class UpdateSettingsView : public QWidget {
    Q_OBJECT

public:
    explicit UpdateSettingsView(const ViewEnvironment& environment, QWidget* parent = nullptr);

private:
    QWidget* buildChecks();
    QWidget* buildExplanation();
    QWidget* buildStatus();
    QWidget* buildVersion();

    ViewEnvironment m_environment;
};

} // namespace trovell
