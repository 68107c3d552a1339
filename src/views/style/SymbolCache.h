// SPDX-License-Identifier: MIT

#pragma once

#include <QCache>
#include <QColor>
#include <QPixmap>
#include <QString>

namespace trovell {

/// One rendering of a symbol. Names are those of the files in resources/symbols; the glyphs of
/// controls carry their folder, as in "_ui/checkmark".
struct SymbolKey {
    QString name;
    int pixels = 0;         ///< width and height in device pixels
    QRgb color = 0;         ///< with alpha
    double strokeWidth = 0; ///< on the 24 × 24 grid; 0 keeps the drawing's own

    bool operator==(const SymbolKey&) const = default;
};

size_t qHash(const SymbolKey& key, size_t seed = 0);

/// Renders symbols on first use and keeps them. Main thread.
class SymbolCache {
public:
    /// The symbol filled with the key's colour, in device pixels (its device pixel ratio is 1).
    /// An unknown name gives an empty picture of the right size.
    QPixmap symbol(const SymbolKey& key);

    /// The logo, which keeps its own colours.
    QPixmap logo(int pixels);

private:
    QPixmap stored(const SymbolKey& key, QPixmap (*render)(const SymbolKey& key));

    QCache<SymbolKey, QPixmap> m_pictures{400};
};

} // namespace trovell
