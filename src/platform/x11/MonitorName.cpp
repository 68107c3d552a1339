// SPDX-License-Identifier: MIT

#include "platform/x11/MonitorName.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype blockSize = 128;

quint8 byteAt(const QByteArray& edid, qsizetype index)
{
    return static_cast<quint8>(edid.at(index));
}

bool isIdentificationBlock(const QByteArray& edid)
{
    return edid.size() >= blockSize && edid.startsWith(QByteArray::fromHex("00ffffffffffff00"));
}

QByteArray manufacturerId(const QByteArray& edid)
{
    const int packed = byteAt(edid, 8) << 8 | byteAt(edid, 9);
    QByteArray id;
    for (const int shift : {10, 5, 0})
        id.append(static_cast<char>('A' - 1 + (packed >> shift & 0x1f)));
    return id;
}

/// Nobody says the legal form of a company when they speak of its monitors.
QString withoutLegalForm(const QString& company)
{
    static const QRegularExpression form(
        u"([,. ]+(co|corp|inc|ltd|llc|gmbh|ag|corporation|company|limited)\\b\\.?)+$"_s,
        QRegularExpression::CaseInsensitiveOption);
    return QString(company).remove(form);
}

/// Empty when the registry does not know it.
QString registeredName(const QByteArray& id, const QByteArray& registry)
{
    const QByteArray start = '\n' + id + '\t';
    const qsizetype found = registry.indexOf(start);
    if (found < 0)
        return {};
    const qsizetype name = found + start.size();
    const QByteArray line = registry.sliced(name, registry.indexOf('\n', name) - name);
    return withoutLegalForm(QString::fromUtf8(line).trimmed());
}

/// Whether the id is short for the word, as BNQ is for BenQ.
bool isShortFor(const QByteArray& id, const QString& word)
{
    qsizetype next = 0;
    return std::ranges::all_of(id, [&](char letter) {
        next = word.indexOf(QLatin1Char(letter), next, Qt::CaseInsensitive) + 1;
        return next > 0;
    });
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

const QByteArray& manufacturerRegistry()
{
    static const QByteArray registry = [] {
        QFile file(u"/usr/share/hwdata/pnp.ids"_s);
        return file.open(QIODevice::ReadOnly) ? '\n' + file.readAll() + '\n' : QByteArray();
    }();
    return registry;
}

QString monitorName(const QByteArray& edid, const QByteArray& registry)
{
    if (!isIdentificationBlock(edid))
        return {};
    const QByteArray id = manufacturerId(edid);
    const QString registered = registeredName(id, registry);
    const QString manufacturer = registered.isEmpty() ? QString::fromLatin1(id) : registered;
    const QString model = modelName(edid);
    if (model.isEmpty())
        return manufacturer + u' ' + modelNumber(edid);
    // Many models carry the manufacturer in their name.
    const bool isNamed = model.startsWith(manufacturer.section(u' ', 0, 0), Qt::CaseInsensitive) ||
                         isShortFor(id, model.section(u' ', 0, 0));
    return isNamed ? model : manufacturer + u' ' + model;
}

} // namespace trovell
