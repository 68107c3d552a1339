// SPDX-License-Identifier: MIT
//
// The page of the guide that asks for window control. Main thread.
#pragma once

#include "views/shared/ViewEnvironment.h"

#include <QWidget>

namespace trovell {

class AccessibilityPermissionManager;
class PushButton;
class SymbolLabel;
class SymbolView;

/// Follows the permission.
class PermissionPage : public QWidget {
    Q_OBJECT

public:
    PermissionPage(const ViewEnvironment& environment,
                   AccessibilityPermissionManager& accessibility);

    [[nodiscard]] PushButton* requestButton() const { return m_request; }

Q_SIGNALS:
    void privacyRequested();

private:
    QWidget* buildPrivacyLink();
    QWidget* buildButtons();
    void showPermission();

    ViewEnvironment m_environment;
    AccessibilityPermissionManager& m_accessibility;
    SymbolView* m_symbol;
    SymbolLabel* m_status;
    PushButton* m_request;
};

} // namespace trovell
