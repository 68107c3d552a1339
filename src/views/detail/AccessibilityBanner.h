// SPDX-License-Identifier: MIT
//
// Says that windows cannot be restored for want of a permission, and what to do about it. Main
// thread.
#pragma once

#include "views/shared/ViewEnvironment.h"
#include "views/style/BannerFrame.h"

class QLayout;

namespace trovell {

class AccessibilityPermissionManager;

class AccessibilityBanner : public BannerFrame {
    Q_OBJECT

public:
    AccessibilityBanner(const ViewEnvironment& environment,
                        AccessibilityPermissionManager& accessibility);

    void setShown(bool isShown);

private:
    QLayout* buildButtons(AccessibilityPermissionManager& accessibility);

    ViewEnvironment m_environment;
};

} // namespace trovell
