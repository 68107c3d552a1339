// SPDX-License-Identifier: MIT

#pragma once

#include <QScrollArea>

namespace trovell {

/// A page that scrolls vertically: no frame, the background of whatever it lies on, the content as
/// wide as the area, and whatever takes the focus scrolled into view.
class ScrollArea : public QScrollArea {
    Q_OBJECT

public:
    explicit ScrollArea(QWidget* parent = nullptr);
    ~ScrollArea() override;
    Q_DISABLE_COPY_MOVE(ScrollArea)

    /// Takes ownership.
    void setContent(QWidget* content);

private:
    void showFocused(QWidget* focused);
};

} // namespace trovell
