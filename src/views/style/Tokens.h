// SPDX-License-Identifier: MIT
//
// The measures and colours of the design, as resources/tokens.json gives them. Any thread.
#pragma once

#include <QColor>
#include <QList>
#include <QObject>
#include <QSize>
#include <QStringList>

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

enum class Appearance { light, dark };

/// Measures of one text role before the desktop's font factor. Lengths in logical pixels.
struct TypeMeasures {
    double pixelSize = 0;
    double lineHeight = 0;
    int weight = 0;
    double tracking = 0; ///< letter spacing as a share of the pixel size
};

/// The design's numbers and colours, read once from the compiled-in tokens.json. An immutable
/// value; any thread. All lengths are logical pixels at font factor 1.
class Tokens {
    Q_GADGET

public:
    // The enumerators are the keys of tokens.json.
    enum class TextRole {
        brandTitle,
        pageTitle,
        detailTitle,
        title,
        title2,
        title3,
        headline,
        body,
        callout,
        caption,
        caption2,
        miniature,
    };
    Q_ENUM(TextRole)

    enum class Radius {
        miniatureWindow,
        miniature,
        miniatureBox,
        small,
        iconChoice,
        control,
        screen,
        menu,
        banner,
        tile,
        card,
        sheet,
    };
    Q_ENUM(Radius)

    enum class Size {
        controlHeight,
        controlHeightSmall,
        controlHeightTwoLine,
        fieldHeight,
        checkbox,
        switchWidth,
        switchHeight,
        switchKnob,
        swatch,
        swatchRing,
        menuRow,
        sidebarRow,
        toolbar,
        captureWindowRow,
        sheetPadding,
        cardPadding,
        focusRingWidth,
    };
    Q_ENUM(Size)

    /// Reads the compiled-in tokens. A missing key is a fault of the build and ends the program.
    static Tokens builtIn();

    const Palette& palette(Appearance appearance) const
    {
        return appearance == Appearance::dark ? m_dark : m_light;
    }
    TypeMeasures type(TextRole role) const { return m_type[static_cast<size_t>(role)]; }
    int radius(Radius name) const { return m_radii[static_cast<size_t>(name)]; }
    int size(Size name) const { return m_sizes[static_cast<size_t>(name)]; }
    QSize iconChoice() const { return m_iconChoice; }

    /// Font families in order of preference, fallbacks for East Asian scripts last.
    const QStringList& families() const { return m_families; }

private:
    explicit Tokens(const QJsonObject& root);

    Palette m_light;
    Palette m_dark;
    std::array<TypeMeasures, static_cast<size_t>(TextRole::miniature) + 1> m_type;
    std::array<int, static_cast<size_t>(Radius::sheet) + 1> m_radii;
    std::array<int, static_cast<size_t>(Size::focusRingWidth) + 1> m_sizes;
    QSize m_iconChoice;
    QStringList m_families;
};

using ColorToken = Palette::Color;
using TextRole = Tokens::TextRole;
using Radius = Tokens::Radius;

} // namespace trovell
