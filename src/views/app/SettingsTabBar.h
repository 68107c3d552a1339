// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/FocusRing.h"

#include <QTabBar>

namespace trovell {

class VisualStyle;

/// Tabs of a symbol over a text. Use it as a QTabBar: one tab stop, arrow keys switch. Main thread.
class SettingsTabBar : public QTabBar, public FocusOutlined {
    Q_OBJECT

public:
    explicit SettingsTabBar(const VisualStyle& visual, QWidget* parent = nullptr);

    /// The text comes with setTabText.
    int addSymbolTab(const QString& symbolName);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    FocusOutline focusOutline() const override;

protected:
    QSize tabSizeHint(int index) const override;
    QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    /// What is painted of a tab: all but the gap to its neighbours.
    [[nodiscard]] QRect boxOf(int index) const;
    void paintTab(QPainter& painter, int index) const;

    const VisualStyle& m_visual;
    int m_hovered = -1;
};

} // namespace trovell
