// SPDX-License-Identifier: MIT
//
// The name of a monitor from its identification block. Pure, any thread.
#pragma once

#include <QByteArray>
#include <QString>

namespace trovell {

/// Manufacturer and model (VESA E-EDID 3.4 and 3.10.3), such as "Dell U2720Q"; a model that has
/// no name is given by its number. Empty when `edid` is not an identification block.
[[nodiscard]] QString monitorName(const QByteArray& edid);

} // namespace trovell
