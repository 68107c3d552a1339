// SPDX-License-Identifier: MIT

#include "views/style/SymbolCache.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView logoName = u"TrovellLogo";

QByteArray readDrawing(const QString& name)
{
    QFile file(u":/trovell/symbols/"_s + name + u".svg"_s);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QPixmap renderDrawing(const QByteArray& drawing, int pixels)
{
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    if (!drawing.isEmpty()) {
        QPainter painter(&image);
        QSvgRenderer(drawing).render(&painter, QRectF(0, 0, pixels, pixels));
    }
    return QPixmap::fromImage(std::move(image));
}

QPixmap renderSymbol(const SymbolKey& key)
{
    QByteArray drawing = readDrawing(key.name);
    if (key.strokeWidth > 0)
        drawing.replace("stroke-width=\"1.75\"",
                        "stroke-width=\"" + QByteArray::number(key.strokeWidth) + '"');
    QPixmap picture = renderDrawing(drawing, key.pixels);
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(picture.rect(), QColor::fromRgba(key.color));
    return picture;
}

QPixmap renderLogo(const SymbolKey& key)
{
    return renderDrawing(readDrawing(logoName.toString()), key.pixels);
}

} // namespace

size_t qHash(const SymbolKey& key, size_t seed)
{
    return qHashMulti(seed, key.name, key.pixels, key.color, key.strokeWidth);
}

QPixmap SymbolCache::symbol(const SymbolKey& key)
{
    return stored(key, &renderSymbol);
}

QPixmap SymbolCache::logo(int pixels)
{
    return stored({logoName.toString(), pixels, 0, 0}, &renderLogo);
}

QPixmap SymbolCache::stored(const SymbolKey& key, QPixmap (*render)(const SymbolKey& key))
{
    if (const QPixmap* known = m_pictures.object(key))
        return *known;
    const QPixmap picture = render(key);
    m_pictures.insert(key, new QPixmap(picture));
    return picture;
}

} // namespace trovell
