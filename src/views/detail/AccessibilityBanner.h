// SPDX-License-Identifier: MIT
//
// Says that windows cannot be restored for want of a permission, and what to do about it. Main
// thread.
#pragma once

#include "views/shared/ViewEnvironment.h"
#include "views/style/BannerFrame.h"

class QLayout;

namespace trovell {

class AccessibilityBanner : public BannerFrame {
    Q_OBJECT

public:
    explicit AccessibilityBanner(const ViewEnvironment& environment, QWidget* parent = nullptr);

    void setShown(bool isShown);

private:
    QLayout* buildButtons();

    ViewEnvironment m_environment;
};

} // namespace trovell
