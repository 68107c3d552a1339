// SPDX-License-Identifier: MIT
//
// How the desktop wants programs to look, and live. This class itself is a desktop that never says
// anything. Main thread only.
#pragma once

#include <QObject>

namespace trovell {

class DesktopSettings : public QObject {
    Q_OBJECT

public:
    [[nodiscard]] virtual bool isDark() const { return false; }
    /// Whether the desktop asks for little or no animation.
    [[nodiscard]] virtual bool isAnimationReduced() const { return false; }
    /// By how much the user wants text larger than the desktop's own size.
    [[nodiscard]] virtual double textScale() const { return 1; }

Q_SIGNALS:
    void changed();
};

} // namespace trovell
