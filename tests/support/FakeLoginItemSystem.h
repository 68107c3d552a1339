// SPDX-License-Identifier: MIT
//
// A login item whose answers a test scripts. Main thread.
#pragma once

#include "services/LoginItemSystem.h"

#include <optional>

namespace trovell {

struct FakeLoginItemSystem final : LoginItemSystem {
    LoginItemStatus current = LoginItemStatus::notRegistered;
    /// What registering leads to.
    LoginItemStatus registered = LoginItemStatus::enabled;
    /// Both changes fail with it and change nothing.
    std::optional<QString> failure;
    int registerCount = 0;
    int unregisterCount = 0;

    [[nodiscard]] Expected<void, QString> registerLoginItem() override
    {
        ++registerCount;
        return change(registered);
    }

    [[nodiscard]] Expected<void, QString> unregisterLoginItem() override
    {
        ++unregisterCount;
        return change(LoginItemStatus::notRegistered);
    }

    [[nodiscard]] LoginItemStatus status() const override { return current; }

private:
    Expected<void, QString> change(LoginItemStatus status)
    {
        if (failure)
            return Unexpected<QString>(*failure);
        current = status;
        return {};
    }
};

} // namespace trovell
