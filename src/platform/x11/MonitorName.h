// SPDX-License-Identifier: MIT
//
// The name of a monitor from its identification block. Any thread.
#pragma once

#include <QByteArray>
#include <QString>

namespace trovell {

/// The registry of plug-and-play ids of this system: a line break, then a line for each
/// manufacturer, id and name with a tab between them. Empty where it is not installed. Read at the
/// first call, so better not on the main thread.
[[nodiscard]] const QByteArray& manufacturerRegistry();

/// Manufacturer and model (VESA E-EDID 3.4 and 3.10.3), such as "Dell U2720Q". A manufacturer that
/// `registry` does not know is given by its id, a model that has no name by its number. Empty when
/// `edid` is not an identification block.
[[nodiscard]] QString monitorName(const QByteArray& edid, const QByteArray& registry);

} // namespace trovell
