// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/Fade.h"
#include "views/style/FocusRing.h"
#include "views/style/VisualStyle.h"

#include <QRadioButton>

#include <optional>

namespace trovell {

class ChoiceRow;

/// One choice of a ChoiceRow: a radio button that is only painted differently.
class ChoiceButton : public QRadioButton, public FocusOutlined {
    Q_OBJECT

public:
    /// `identifier` is what the row reports, and the accessible name.
    ChoiceButton(const VisualStyle& visual, const QString& identifier, ChoiceRow& row);

    const QString& identifier() const { return m_identifier; }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    const VisualStyle& visual() const { return m_visual; }
    double hovered() const { return m_hover.value(); }

    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }

private:
    const VisualStyle& m_visual;
    QString m_identifier;
    ChoiceRow& m_row;
    Fade m_hover;
};

/// A row of choices of which at most one is selected. It is one tab stop: arrow keys move the
/// focus, Space selects. To assistive tools it is a group of radio buttons.
class ChoiceRow : public QWidget {
    Q_OBJECT

public:
    /// The identifier of the selected choice; none when the last text set is no choice here.
    std::optional<QString> selected() const;
    /// Selects a choice without a signal. An unknown text leaves every choice unselected.
    void setSelected(const QString& identifier);

    const QList<ChoiceButton*>& buttons() const { return m_buttons; }

Q_SIGNALS:
    /// The person has chosen; not emitted for the choice that was selected already.
    void chosen(const QString& identifier);

protected:
    /// `name` is the accessible name of the group.
    ChoiceRow(const QString& name, int gap, QWidget* parent);

    void addButton(ChoiceButton* button);

private:
    friend class ChoiceButton;

    void moveFocus(ChoiceButton& from, int step);
    void makeTabStop(ChoiceButton* button);

    QList<ChoiceButton*> m_buttons;
};

/// The symbols a workspace can have. Accessible names are the symbol names.
class IconChoiceRow : public ChoiceRow {
    Q_OBJECT

public:
    IconChoiceRow(const VisualStyle& visual, const QString& name, const QStringList& symbolNames,
                  QWidget* parent = nullptr);
};

/// The accents a workspace can have. Accessible names are the identifiers.
class SwatchRow : public ChoiceRow {
    Q_OBJECT

public:
    SwatchRow(const VisualStyle& visual, const QString& name, const QStringList& accentIdentifiers,
              QWidget* parent = nullptr);
};

} // namespace trovell
