// SPDX-License-Identifier: MIT
//
// The desktop's icon of a captured application. Main thread.
#pragma once

#include "views/style/Picture.h"

namespace trovell {

class ApplicationIcons;
struct CapturedApplication;
struct ViewEnvironment;

/// 24 logical pixels wide and high; empty while the icon is not known and where there is none. A
/// decoration, without an accessible name.
class CapturedApplicationIcon : public Picture {
    Q_OBJECT

public:
    CapturedApplicationIcon(const ViewEnvironment& environment,
                            const CapturedApplication& application);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ApplicationIcons& m_icons;
    /// Of the desktop file; empty without one.
    QString m_applicationPath;
};

} // namespace trovell
