// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/FocusRing.h"
#include "views/style/ScrollArea.h"

namespace trovell {

class SelectableLabel;
class VisualStyle;

/// A plain text of any length: as high as the text up to a limit, beyond which it scrolls,
/// by keyboard too. Main thread.
class NotesArea : public ScrollArea, public FocusOutlined {
    Q_OBJECT

public:
    explicit NotesArea(const VisualStyle& visual, QWidget* parent = nullptr);

    /// Whatever markup is in it is shown as it stands.
    void setText(const QString& text);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }
    FocusOutline focusOutline() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    const VisualStyle& m_visual;
    SelectableLabel* m_label;
};

} // namespace trovell
