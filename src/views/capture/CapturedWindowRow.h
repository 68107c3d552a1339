// SPDX-License-Identifier: MIT
//
// One captured window in a list of them. Main thread.
#pragma once

#include "views/style/VisualStyle.h"

#include <QWidget>

class QAbstractButton;

namespace trovell {

struct CapturedWindow;
struct ViewEnvironment;

/// A toggle, a drawing of where the window stands, and its title. A click on the title toggles,
/// too. The toggle is named by the title.
class CapturedWindowRow : public QWidget {
    Q_OBJECT

public:
    /// Lengths in logical pixels.
    struct Look {
        int leadingMargin = 16;
        QSize miniature;
        int gap = 12;
        TextRole role = TextRole::body;
        ColorToken color = ColorToken::labelPrimary;
    };

    /// Takes ownership of `toggle`, which the caller binds to the window.
    CapturedWindowRow(const ViewEnvironment& environment, const CapturedWindow& window,
                      QAbstractButton* toggle, const Look& look);
};

} // namespace trovell
