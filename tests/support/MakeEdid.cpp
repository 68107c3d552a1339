#include "support/MakeEdid.h"

#include <numeric>

namespace trovell::test {

namespace {

constexpr qsizetype blockSize = 128;
constexpr qsizetype nameDescriptor = 72;

quint16 packedManufacturer(const QByteArray& letters)
{
    quint16 packed = 0;
    for (const char letter : letters)
        packed = static_cast<quint16>(packed << 5 | (letter - 'A' + 1));
    return packed;
}

} // namespace

QByteArray makeEdid(const QByteArray& manufacturer, const QByteArray& model, quint16 productCode)
{
    QByteArray block(blockSize, '\0');
    block.replace(0, 8, QByteArray::fromHex("00ffffffffffff00"));
    const quint16 packed = packedManufacturer(manufacturer);
    block[8] = static_cast<char>(packed >> 8);
    block[9] = static_cast<char>(packed & 0xff);
    block[10] = static_cast<char>(productCode & 0xff);
    block[11] = static_cast<char>(productCode >> 8);
    block.replace(18, 2, QByteArray::fromHex("0103"));
    if (!model.isEmpty()) {
        const QByteArray text = (model + '\n').leftJustified(13, ' ', true);
        block.replace(nameDescriptor, 18, QByteArray::fromHex("000000fc00") + text);
    }
    const int sum = std::accumulate(block.begin(), block.end(), 0);
    block[blockSize - 1] = static_cast<char>(-sum & 0xff);
    return block;
}

} // namespace trovell::test
