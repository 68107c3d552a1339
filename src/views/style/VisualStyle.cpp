// SPDX-License-Identifier: MIT

#include "views/style/VisualStyle.h"

#include "views/style/Accessibility.h"
#include "views/style/FocusRing.h"
#include "views/style/Painting.h"
#include "views/style/TrovellStyle.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace trovell {

namespace {

/// The tracking values are drawn for this family; others keep their own spacing.
constexpr QStringView trackedFamily = u"Inter";

void setForAllGroups(QPalette& palette, std::initializer_list<QPalette::ColorRole> roles,
                     const QColor& color)
{
    for (const QPalette::ColorRole role : roles)
        palette.setColor(role, color);
}

/// A selection inside text is quieter than one in a list.
QPalette fieldPalette(const VisualStyle& visual)
{
    QPalette palette = visual.palette();
    palette.setColor(QPalette::Highlight, visual.color(ColorToken::textSelection));
    palette.setColor(QPalette::HighlightedText, visual.color(ColorToken::labelPrimary));
    return palette;
}

} // namespace

VisualStyle::VisualStyle(QObject* parent) : QObject(parent) {}

VisualStyle::~VisualStyle() = default;

void VisualStyle::install(QApplication& application)
{
    m_isInstalled = true;
    installAccessibleParts();
    application.setStyle(new TrovellStyle(*this));
    new FocusRing(application, this);
    applyFont();
    applyPalette();
}

void VisualStyle::setAppearance(Appearance appearance)
{
    if (m_appearance == appearance)
        return;
    m_appearance = appearance;
    applyPalette();
    Q_EMIT
    appearanceChanged();
}

void VisualStyle::setFontFactor(double factor)
{
    const double clamped = std::clamp(factor, 0.9, 1.5);
    if (m_fontFactor == clamped)
        return;
    m_fontFactor = clamped;
    m_texts.clear();
    applyFont();
    Q_EMIT
    metricsChanged();
}

QColor VisualStyle::accentColor(const QString& identifier) const
{
    if (identifier == u"indigo")
        return color(ColorToken::indigo);
    if (identifier == u"purple")
        return color(ColorToken::purple);
    if (identifier == u"green")
        return color(ColorToken::green);
    if (identifier == u"orange")
        return color(ColorToken::orange);
    return color(ColorToken::brand);
}

QPalette VisualStyle::palette() const
{
    QPalette palette;
    const auto set = [&](std::initializer_list<QPalette::ColorRole> roles, ColorToken token) {
        setForAllGroups(palette, roles, color(token));
    };
    set({QPalette::Window}, ColorToken::pageBackground);
    set({QPalette::Base}, ColorToken::fieldBackground);
    set({QPalette::AlternateBase}, ColorToken::cardBackground);
    set({QPalette::Button, QPalette::Light}, ColorToken::controlBackground);
    set({QPalette::Midlight}, ColorToken::controlHover);
    set({QPalette::Mid, QPalette::Dark, QPalette::Shadow}, ColorToken::separator);
    set({QPalette::WindowText, QPalette::Text, QPalette::ButtonText}, ColorToken::labelPrimary);
    set({QPalette::PlaceholderText}, ColorToken::placeholder);
    set({QPalette::Highlight}, ColorToken::action);
    set({QPalette::HighlightedText, QPalette::BrightText}, ColorToken::onAction);
    set({QPalette::Link, QPalette::LinkVisited}, ColorToken::link);
    set({QPalette::ToolTipBase}, ColorToken::tooltipBackground);
    set({QPalette::ToolTipText}, ColorToken::tooltipText);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText})
        palette.setColor(QPalette::Disabled, role, color(ColorToken::labelDisabled));
    return palette;
}

TextStyle VisualStyle::text(TextRole role) const
{
    return text(role, static_cast<QFont::Weight>(m_tokens.type(role).weight));
}

TextStyle VisualStyle::text(TextRole role, QFont::Weight weight) const
{
    const auto key = std::pair(static_cast<int>(role), static_cast<int>(weight));
    const auto known = m_texts.constFind(key);
    return known != m_texts.constEnd() ? *known : *m_texts.insert(key, makeText(role, weight));
}

TextStyle VisualStyle::makeText(TextRole role, QFont::Weight weight) const
{
    const TypeMeasures measures = m_tokens.type(role);
    const int pixelSize = scaled(measures.pixelSize);
    QFont font;
    font.setFamilies(m_tokens.families());
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    if (QFontDatabase::hasFamily(trackedFamily.toString()))
        font.setLetterSpacing(QFont::AbsoluteSpacing, measures.tracking * pixelSize);
    return {font, scaled(measures.lineHeight)};
}

int VisualStyle::scaled(double pixels) const
{
    return static_cast<int>(std::lround(pixels * m_fontFactor));
}

int VisualStyle::scaledSum(std::initializer_list<double> pixels) const
{
    return std::accumulate(pixels.begin(), pixels.end(), 0,
                           [this](int sum, double part) { return sum + scaled(part); });
}

void VisualStyle::paintSymbol(QPainter& painter, const QRectF& box, const QString& name,
                              const QColor& color, double strokeWidth) const
{
    const int pixels = symbolPixels(painter, box);
    if (pixels > 0)
        paintPixels(painter, box.center(),
                    m_symbols.symbol({name, pixels, color.rgba(), strokeWidth}));
}

void VisualStyle::paintLogo(QPainter& painter, const QRectF& box) const
{
    const int pixels = symbolPixels(painter, box);
    if (pixels > 0)
        paintPixels(painter, box.center(), m_symbols.logo(pixels));
}

void VisualStyle::applyPalette()
{
    if (!m_isInstalled)
        return;
    QApplication::setPalette(palette());
    // Setting the application's palette drops those of the classes.
    const QPalette field = fieldPalette(*this);
    for (const char* className : {"QLineEdit", "QTextEdit", "QPlainTextEdit", "QLabel"})
        QApplication::setPalette(field, className);
    QToolTip::setPalette(palette());
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows)
        window->update();
}

void VisualStyle::applyFont()
{
    if (!m_isInstalled)
        return;
    QApplication::setFont(text(TextRole::body).font);
    QToolTip::setFont(text(TextRole::caption).font);
}

} // namespace trovell
