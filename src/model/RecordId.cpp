// SPDX-License-Identifier: MIT

#include "model/RecordId.h"

#include <QDateTime>

namespace trovell {

QUuid makeRecordId()
{
    const auto milliseconds = static_cast<quint64>(QDateTime::currentMSecsSinceEpoch());
    QUuid id = QUuid::createUuid();
    id.data1 = static_cast<uint>(milliseconds >> 16);
    id.data2 = static_cast<ushort>(milliseconds);
    id.data3 = static_cast<ushort>((id.data3 & 0x0fff) | 0x7000);
    return id;
}

} // namespace trovell
