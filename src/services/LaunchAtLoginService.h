// SPDX-License-Identifier: MIT
//
// Whether the program starts when the user logs in, as the settings show and change it. Keeps no
// setting of its own: the desktop's answer is the only truth. Main thread only.
#pragma once

#include "services/LoginItemSystem.h"

#include <QObject>

#include <optional>

namespace trovell {

class LaunchAtLoginService final : public QObject {
    Q_OBJECT

public:
    /// `system` outlives the service.
    explicit LaunchAtLoginService(LoginItemSystem& system);

    /// As the desktop said at construction or after the last `setEnabled`.
    [[nodiscard]] bool isEnabled() const { return m_isEnabled; }
    /// Why the last change failed; none when it did not.
    [[nodiscard]] const std::optional<QString>& errorMessage() const { return m_errorMessage; }

    /// Asks the desktop, even for the state it is in. A control that shows `isEnabled` reads it
    /// after this call: the desktop may have kept the old state, of which there is no signal.
    void setEnabled(bool isWanted);

Q_SIGNALS:
    void isEnabledChanged(bool isEnabled);
    void errorMessageChanged();

private:
    void refresh();
    void setErrorMessage(const std::optional<QString>& message);

    LoginItemSystem& m_system;
    bool m_isEnabled;
    std::optional<QString> m_errorMessage;
};

} // namespace trovell
