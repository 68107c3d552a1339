// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/SymbolCache.h"
#include "views/style/TextStyle.h"
#include "views/style/Tokens.h"

#include <QObject>
#include <QPalette>

#include <memory>

class QApplication;
class QPainter;

/// The look of the program. How to use this folder:
///
///     QApplication application(argc, argv);
///     VisualStyle visual;                        // one, made after the application
///     visual.setFontFactor(desktopFontFactor(…)); // from the desktop, and again when it changes
///     visual.setAppearance(Appearance::dark);
///     visual.install(application);
///
///     auto* save = new PushButton(visual, u"Save"_s, PushButton::Kind::prominent);
///     auto* name = new TextLabel(visual, workspace.name(), TextRole::detailTitle);
///
/// Every widget of this folder takes the style first and keeps a reference: the style outlives all
/// windows. Widgets read it while painting, so a change of appearance shows at once and nothing is
/// reopened; own painting does the same (`visual.color(ColorToken::link)`) and keeps no colours.
///
/// Layouts use the numbers of the design directly. The keyboard focus ring is painted above the
/// siblings of the focused control (FocusRing.h) and takes no space; leave 4 px around controls.
/// Control heights, paddings and symbols grow with the desktop's font factor; give margins and gaps
/// as plain numbers and never a fixed text width.
///
/// What there is:
///   buttons    PushButton, ActionButton, LinkButton, SymbolLink, SymbolButton; menus: Menus.h
///   fields     QCheckBox, QSlider, TextField, Picker, Switch, ChoiceRow
///   pictures   SymbolView, TrovellBrandMark, ProgressRing, QProgressBar, Divider; own ones derive
///              from Picture
///   texts      TextLabel, SelectableLabel; in own painting paintLine and Paragraph (TextStyle.h)
///   layouts    RowLayout, ColumnLayout (Layouts.h)
///   boxes      TrovellCardModifier, BannerFrame, ScrollArea; several parts under one accessible
///              name: Group.h
///   lists      ListRow (Group.h); painted rows: RowPainting.h
///   windows    Sheet, Alert
///   painting   Painting.h: boxes, rings, hairlines, shadows on whole device pixels
///
/// Texts come from the caller, already translated. Buttons, QCheckBox, … take their accessible name
/// from their text; controls without a text want `setAccessibleName`.
namespace trovell {

using namespace Qt::StringLiterals;

/// Colours, fonts, sizes and symbols in their present state. One object per application, owned by
/// whoever starts it and handed down. Main thread.
class VisualStyle : public QObject {
    Q_OBJECT

public:
    explicit VisualStyle(QObject* parent = nullptr);
    ~VisualStyle() override;

    /// Gives the application its widget style, palette, font and accessible parts, and keeps them
    /// up to date from then on. Once, before the first window. The application's style refers to
    /// this object, so no window may outlive it.
    void install(QApplication& application);

    const Tokens& tokens() const { return m_tokens; }

    Appearance appearance() const { return m_appearance; }
    void setAppearance(Appearance appearance);

    /// See desktopFontFactor(); clamped to 0.9–1.5.
    double fontFactor() const { return m_fontFactor; }
    void setFontFactor(double factor);

    /// Set while the desktop asks for little animation: every duration is then 0.
    bool isAnimationReduced() const { return m_isAnimationReduced; }
    void setAnimationReduced(bool isReduced) { m_isAnimationReduced = isReduced; }
    /// `milliseconds`, or 0 while animation is reduced.
    int duration(int milliseconds) const { return m_isAnimationReduced ? 0 : milliseconds; }

    /// Whether windows may be translucent: true unless told otherwise (on X11 without a compositing
    /// manager they may not). Without, menus and sheets have square corners and no shadow. Read
    /// when a menu or sheet is made.
    bool isComposited() const { return m_isComposited; }
    void setComposited(bool isComposited) { m_isComposited = isComposited; }

    QColor color(ColorToken name) const { return m_tokens.palette(m_appearance).color(name); }
    const QList<ShadowLayer>& shadow(Palette::Shadow name) const
    {
        return m_tokens.palette(m_appearance).shadow(name);
    }
    /// The colour a workspace's accent stands for: "indigo", "purple", "green" and "orange" by
    /// exact comparison, the brand tint for every other text.
    QColor accentColor(const QString& identifier) const;
    QPalette palette() const;

    /// A role's font and line height, already multiplied with the font factor.
    TextStyle text(TextRole role) const;
    TextStyle text(TextRole role, QFont::Weight weight) const;

    int radius(Radius name) const { return m_tokens.radius(name); }
    /// A measure of a control, multiplied with the font factor and rounded to whole pixels.
    int scaled(double pixels) const;
    /// The sum of several measures, each rounded by itself as where they are painted.
    int scaledSum(std::initializer_list<double> pixels) const;
    int scaled(Tokens::Size name) const { return scaled(m_tokens.size(name)); }

    /// Paints a symbol filled with `color` into the middle of `box`, as large as its shorter side
    /// and on whole device pixels. `strokeWidth` as in SymbolKey.
    void paintSymbol(QPainter& painter, const QRectF& box, const QString& name, const QColor& color,
                     double strokeWidth = 0) const;
    /// Paints the logo over the whole of `box`, which is square.
    void paintLogo(QPainter& painter, const QRectF& box) const;

Q_SIGNALS:
    /// After palette and colours have changed.
    void appearanceChanged();
    /// After the font factor has changed: sizes kept from `scaled` or `text` are to be read again.
    /// Widgets also get QEvent::FontChange.
    void metricsChanged();

private:
    void applyPalette();
    void applyFont();
    TextStyle makeText(TextRole role, QFont::Weight weight) const;

    Tokens m_tokens = Tokens::builtIn();
    Appearance m_appearance = Appearance::light;
    double m_fontFactor = 1;
    bool m_isAnimationReduced = false;
    bool m_isComposited = true;
    bool m_isInstalled = false;
    mutable SymbolCache m_symbols;
    // A font that is kept keeps what it has looked up.
    mutable QHash<std::pair<int, int>, TextStyle> m_texts;
};

} // namespace trovell
