// SPDX-License-Identifier: MIT

#include "platform/x11/MonitorName.h"

#include <QByteArray>
#include <QList>

#include <algorithm>
#include <iterator>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype blockSize = 128;

struct Manufacturer {
    const char* code;
    const char* name;
};

/// The usual ones of the UEFI registry of plug-and-play ids; the others are called by their code.
constexpr Manufacturer manufacturers[] = {
    {"ACR", "Acer"},      {"AOC", "AOC"},    {"APP", "Apple"},   {"AUO", "AU Optronics"},
    {"AUS", "ASUS"},      {"BNQ", "BenQ"},   {"BOE", "BOE"},     {"CMN", "InnoLux"},
    {"DEL", "Dell"},      {"ENC", "EIZO"},   {"GSM", "LG"},      {"HPN", "HP"},
    {"HWP", "HP"},        {"IVM", "iiyama"}, {"LEN", "Lenovo"},  {"LGD", "LG Display"},
    {"MEI", "Panasonic"}, {"NEC", "NEC"},    {"PHL", "Philips"}, {"SAM", "Samsung"},
    {"SDC", "Samsung"},   {"SHP", "Sharp"},  {"SNY", "Sony"},    {"VSC", "ViewSonic"},
};

quint8 byteAt(const QByteArray& edid, qsizetype index)
{
    return static_cast<quint8>(edid.at(index));
}

bool isIdentificationBlock(const QByteArray& edid)
{
    return edid.size() >= blockSize && edid.startsWith(QByteArray::fromHex("00ffffffffffff00"));
}

QString manufacturerName(const QByteArray& edid)
{
    const int packed = byteAt(edid, 8) << 8 | byteAt(edid, 9);
    QByteArray code;
    for (const int shift : {10, 5, 0})
        code.append(static_cast<char>('A' - 1 + (packed >> shift & 0x1f)));
    const auto known = std::find_if(std::begin(manufacturers), std::end(manufacturers),
                                    [&](const Manufacturer& entry) { return code == entry.code; });
    return QString::fromLatin1(known == std::end(manufacturers) ? code.constData() : known->name);
}

/// The monitor name descriptor, if there is one.
QString modelName(const QByteArray& edid)
{
    constexpr qsizetype firstDescriptor = 54;
    constexpr qsizetype descriptorSize = 18;
    constexpr qsizetype textOffset = 5;
    for (qsizetype at = firstDescriptor; at + descriptorSize < blockSize; at += descriptorSize) {
        if (edid.sliced(at, 4) != QByteArray::fromHex("000000fc"))
            continue;
        const QByteArray text = edid.sliced(at + textOffset, descriptorSize - textOffset);
        return QString::fromLatin1(text.split('\n').first()).trimmed();
    }
    return {};
}

QString modelNumber(const QByteArray& edid)
{
    const int number = byteAt(edid, 11) << 8 | byteAt(edid, 10);
    return u"0x%1"_s.arg(number, 4, 16, QLatin1Char('0'));
}

} // namespace

QString monitorName(const QByteArray& edid)
{
    if (!isIdentificationBlock(edid))
        return {};
    const QString manufacturer = manufacturerName(edid);
    const QString model = modelName(edid);
    if (model.isEmpty())
        return manufacturer + u' ' + modelNumber(edid);
    // Many models carry the manufacturer in their name.
    const bool isNamed = model.startsWith(manufacturer, Qt::CaseInsensitive);
    return isNamed ? model : manufacturer + u' ' + model;
}

} // namespace trovell
