// The identification block of a monitor (VESA E-EDID 1.3), as far as names go.
#pragma once

#include <QByteArray>

namespace trovell::test {

/// 128 bytes with a valid checksum. `manufacturer` is three capital letters; `model` has at most
/// thirteen characters, and an empty one leaves the name descriptor away.
QByteArray makeEdid(const QByteArray& manufacturer, const QByteArray& model,
                    quint16 productCode = 0x1234);

} // namespace trovell::test
