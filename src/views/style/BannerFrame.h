// SPDX-License-Identifier: MIT

#pragma once

#include <QFrame>

namespace trovell {

class VisualStyle;

/// The coloured box of a banner. Give it a layout with the banner's own padding.
class BannerFrame : public QFrame {
    Q_OBJECT

public:
    enum class Kind { success, warning };

    BannerFrame(const VisualStyle& visual, Kind kind, QWidget* parent = nullptr);

    void setKind(Kind kind);
    /// Tells assistive tools politely that this banner has come or changed, in these words.
    void announce(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const VisualStyle& m_visual;
    Kind m_kind;
};

} // namespace trovell
