// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QList>
#include <QObject>

#include <array>

class QJsonObject;

namespace trovell {

/// One layer of a soft shadow below a floating box. Lengths in logical pixels.
struct ShadowLayer {
    double offset = 0; ///< how far it falls downwards
    double blur = 0;   ///< twice the standard deviation of the blur
    QColor color;

    bool operator==(const ShadowLayer&) const = default;
};

/// The colours of one appearance by name. An immutable value; any thread.
class Palette {
    Q_GADGET

public:
    /// The enumerators are the keys of the colour tables in tokens.json.
    enum class Color {
        pageBackground,
        sidebarBackground,
        cardBackground,
        popoverBackground,
        sheetBackground,
        separator,
        cardBorder,
        popoverBorder,
        sheetBorder,
        labelPrimary,
        labelSecondary,
        labelTertiary,
        labelDisabled,
        placeholder,
        brand,
        action,
        actionHover,
        actionPressed,
        onAction,
        onActionSubtitle,
        link,
        linkHover,
        linkPressed,
        brandFill10,
        brandFill15,
        brandFill18,
        brandFill25,
        miniatureStroke,
        selection,
        selectionInactive,
        rowHover,
        dropLine,
        controlBackground,
        controlHover,
        controlPressed,
        controlBorder,
        controlBorderBottom,
        controlDisabled,
        controlDisabledBorder,
        fieldBackground,
        fieldBorder,
        switchOff,
        switchKnob,
        sliderTrack,
        menuHighlight,
        menuHighlightText,
        ghostHover,
        ghostPressed,
        focusRing,
        textSelection,
        success,
        successIcon,
        successFill,
        successBorder,
        warningIcon,
        warningFill,
        warningBorder,
        destructive,
        destructiveFill,
        destructiveHover,
        destructivePressed,
        onDestructive,
        destructiveSoft,
        indigo,
        purple,
        green,
        orange,
        screenArea,
        screenAreaBorder,
        scrim,
        tooltipBackground,
        tooltipText,
        scrollThumb,
    };
    Q_ENUM(Color)

    enum class Shadow { shadowMenu, shadowSheet };
    Q_ENUM(Shadow)

    /// Reads one appearance's colour table. The table is compiled in, so a missing or unreadable
    /// entry is a fault of the build and ends the program.
    static Palette fromJson(const QJsonObject& table);

    QColor color(Color name) const { return m_colors[static_cast<size_t>(name)]; }
    const QList<ShadowLayer>& shadow(Shadow name) const
    {
        return m_shadows[static_cast<size_t>(name)];
    }

private:
    Palette() = default;

    std::array<QColor, static_cast<size_t>(Color::scrollThumb) + 1> m_colors;
    std::array<QList<ShadowLayer>, 2> m_shadows;
};

using ColorToken = Palette::Color;

} // namespace trovell
