// SPDX-License-Identifier: MIT
//
// The page of the settings about software updates. Main thread.
#pragma once

#include "views/app/SettingsEnvironment.h"

#include <QWidget>

namespace trovell {

class UpdateSettingsView : public QWidget {
    Q_OBJECT

public:
    explicit UpdateSettingsView(const SettingsEnvironment& environment, QWidget* parent = nullptr);

private:
    QWidget* buildChecks();
    QWidget* buildExplanation();
    QWidget* buildStatus();
    QWidget* buildVersion();

    SettingsEnvironment m_environment;
};

} // namespace trovell
