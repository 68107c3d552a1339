// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/Fade.h"
#include "views/style/FocusRing.h"
#include "views/style/VisualStyle.h"

#include <QMenu>
#include <QPointer>
#include <QPushButton>

#include <optional>

namespace trovell {

/// Every button of the program. By default a box: bordered, prominent (one per surface),
/// destructive (alerts only, never the default button) or bordered with destructive text; the
/// classes below are the other shapes. They take the focus by the Tab key only, as a click has
/// already done what it should. A sheet decides what its default button is. A menu adds a downward
/// chevron to a box.
class PushButton : public QPushButton, public FocusOutlined {
    Q_OBJECT

public:
    enum class Kind { bordered, prominent, destructive, destructiveText, plain, softDestructive };
    enum class Scale { regular, small };

    PushButton(const VisualStyle& visual, const QString& text, Kind kind = Kind::bordered,
               Scale scale = Scale::regular, QWidget* parent = nullptr);

    void setKind(Kind kind);

    /// Opens below the button when that is pressed; `edge` as in openMenuBelow. Not owned.
    /// Stands in for the menu of QPushButton, which would run a nested event loop.
    void setMenu(QMenu* menu, Qt::Alignment edge = Qt::AlignLeft);
    QMenu* menu() const { return m_menu; }
    void showMenu();

    /// Makes the button one that shows and hides something, and says whether that is shown now.
    void setDisclosed(bool isDisclosed);
    /// None for every other button.
    std::optional<bool> isDisclosed() const { return m_isDisclosed; }

    FocusOutline focusOutline() const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    enum class Shape { regular, small, twoLine, row, square, link };

    /// What a button shows beside its text. Lengths in logical pixels before the font factor.
    struct Look {
        Shape shape = Shape::regular;
        Kind kind = Kind::bordered;
        ColorToken text = ColorToken::labelPrimary; ///< where the kind does not say
        QString symbolName = {};
        int box = 0;        ///< side of a square one
        int symbol = 0;     ///< side of the symbol
        QString title = {}; ///< for which the room is made; else the text
        QString subtitle = {};
    };

    PushButton(const VisualStyle& visual, const QString& text, const Look& look, QWidget* parent);

    Look& look() { return m_look; }
    const Look& look() const { return m_look; }

    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Measures;
    struct Colors;

    Measures measures() const;
    Colors colors() const;
    QColor stateColor() const;
    QColor textColor() const;
    void paintBackground(QPainter& painter) const;
    void paintTexts(QPainter& painter, const QRect& room) const;
    int chevronRoom() const;

    const VisualStyle& m_visual;
    Look m_look;
    HoverFade m_hover;
    QPointer<QMenu> m_menu;
    Qt::Alignment m_menuEdge;
    std::optional<bool> m_isDisclosed;
};

/// The large button of a workspace's actions: a symbol beside a title and an explaining second
/// line. The text() of the button, and so its accessible name, is the title.
class ActionButton : public PushButton {
    Q_OBJECT

public:
    ActionButton(const VisualStyle& visual, const QString& symbolName, const QString& title,
                 const QString& subtitle, Kind kind = Kind::bordered, QWidget* parent = nullptr);

    /// Replaces the texts and with them the width the button asks for.
    void setTexts(const QString& title, const QString& subtitle);
    /// Shows other texts, such as "Starting…", in the same width until the texts are set again.
    void setBusyTexts(const QString& title, const QString& subtitle);
};

/// A borderless button of one symbol, with or without a menu. It has no text: `name` is its
/// accessible name and its tooltip.
class SymbolButton : public PushButton {
    Q_OBJECT

public:
    SymbolButton(const VisualStyle& visual, const QString& symbolName, const QString& name,
                 Kind kind = Kind::plain, QWidget* parent = nullptr);

    /// In logical pixels before the font factor: the box is 28 and the symbol 20 by default.
    void setSizes(int box, int symbol);
};

/// A borderless row of a symbol and a text that acts: "Settings" in the sidebar (labelPrimary), the
/// links of the About page (link).
class SymbolLink : public PushButton {
    Q_OBJECT

public:
    SymbolLink(const VisualStyle& visual, const QString& symbolName, const QString& text,
               ColorToken color = ColorToken::labelPrimary, QWidget* parent = nullptr);
};

/// A text that acts, such as "Locate Again".
class LinkButton : public PushButton {
    Q_OBJECT

public:
    LinkButton(const VisualStyle& visual, const QString& text, QWidget* parent = nullptr);
};

} // namespace trovell
