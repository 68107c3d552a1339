// SPDX-License-Identifier: MIT
//
// The identification block of a monitor (VESA E-EDID 1.3), as far as names go.
#pragma once

#include <QByteArray>

#include <numeric>

namespace trovell::lab {

/// 128 bytes with a valid checksum. `manufacturer` is three capital letters; `model` has at most
/// thirteen characters, and an empty one leaves the name descriptor away.
inline QByteArray makeEdid(const QByteArray& manufacturer, const QByteArray& model,
                           quint16 productCode = 0x1234)
{
    QByteArray block(128, '\0');
    block.replace(0, 8, QByteArray::fromHex("00ffffffffffff00"));
    int packed = 0;
    for (const char letter : manufacturer)
        packed = packed << 5 | (letter - 'A' + 1);
    block[8] = static_cast<char>(packed >> 8);
    block[9] = static_cast<char>(packed & 0xff);
    block[10] = static_cast<char>(productCode & 0xff);
    block[11] = static_cast<char>(productCode >> 8);
    block.replace(18, 2, QByteArray::fromHex("0103"));
    const QByteArray name = (model + '\n').leftJustified(13, ' ', true);
    if (!model.isEmpty())
        block.replace(72, 18, QByteArray::fromHex("000000fc00") + name);
    const int sum = std::accumulate(block.begin(), block.end(), 0);
    block[127] = static_cast<char>(-sum & 0xff);
    return block;
}

} // namespace trovell::lab
