// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/StyledButton.h"

namespace trovell {

/// The large button of a workspace's actions: a symbol beside a title and an explaining second
/// line. The text() of the button, and so its accessible name, is the title.
class ActionButton : public StyledButton {
    Q_OBJECT

public:
    enum class Kind { bordered, prominent };

    ActionButton(const VisualStyle& visual, const QString& symbolName, const QString& title,
                 const QString& subtitle, Kind kind = Kind::bordered, QWidget* parent = nullptr);

    /// Replaces the texts and with them the width the button asks for.
    void setTexts(const QString& title, const QString& subtitle);
    /// Shows another title, such as "Starting…", in the same width; an empty text ends it.
    void setBusyTitle(const QString& title);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    double cornerRadius() const override;

private:
    TextStyle titleStyle() const;

    QString m_symbolName;
    QString m_title;
    QString m_subtitle;
    Kind m_kind;
};

} // namespace trovell
