// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/VisualStyle.h"

#include <QLabel>

namespace trovell {

/// A plain text in one of the type roles, at the role's line height. One line that elides on its
/// far side where there is no room, or, after setWordWrap(true), as many lines as it needs.
/// `setAlignment` takes horizontal alignments and mirrors; texts are vertically centred.
class TextLabel : public QLabel {
    Q_OBJECT

public:
    TextLabel(const VisualStyle& visual, const QString& text, TextRole role = TextRole::body,
              ColorToken color = ColorToken::labelPrimary, QWidget* parent = nullptr);

    /// Hides QLabel's, which would leave the label as high as one line.
    void setWordWrap(bool wraps);
    void setColor(ColorToken color);
    /// Instead of the role's own weight.
    void setWeight(QFont::Weight weight);
    /// A wrapping label asks for at most this width, in logical pixels; 360 by default.
    void setPreferredWrapWidth(int width);
    /// Where not, a single line is never offered less room than its text needs.
    void setElides(bool elides);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return wordWrap(); }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    TextStyle textStyle() const;
    Paragraph paragraph(int width) const;

    const VisualStyle& m_visual;
    TextRole m_role;
    ColorToken m_color;
    std::optional<QFont::Weight> m_weight;
    int m_wrapWidth = 360;
    bool m_elides = true;
};

/// A wrapping text that can be selected and copied with the mouse, such as the detail of a result.
class SelectableLabel : public QLabel {
    Q_OBJECT

public:
    SelectableLabel(const VisualStyle& visual, const QString& text,
                    TextRole role = TextRole::caption,
                    ColorToken color = ColorToken::labelSecondary, QWidget* parent = nullptr);

    void setPlainText(const QString& text);

private:
    void applyStyle();

    const VisualStyle& m_visual;
    QString m_text;
    TextRole m_role;
    ColorToken m_color;
};

} // namespace trovell
