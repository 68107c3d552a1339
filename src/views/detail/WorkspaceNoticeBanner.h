// SPDX-License-Identifier: MIT
//
// The last thing that went well for the workspace shown. Main thread.
#pragma once

#include "views/style/BannerFrame.h"
#include "views/words/Localization.h"

namespace trovell {

class TextLabel;
struct ViewEnvironment;

class WorkspaceNoticeBanner : public BannerFrame {
    Q_OBJECT

public:
    explicit WorkspaceNoticeBanner(const ViewEnvironment& environment, QWidget* parent = nullptr);

    /// None hides the banner.
    void setMessage(const Message& message);

Q_SIGNALS:
    void dismissed();

private:
    void showMessage();

    const Localization& m_words;
    Message m_message;
    TextLabel* m_label;
};

} // namespace trovell
