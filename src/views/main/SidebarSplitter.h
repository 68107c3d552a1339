// SPDX-License-Identifier: MIT
//
// Two columns with a hairline between them that is wide enough to be grabbed. Main thread.
#pragma once

#include <QSplitter>

namespace trovell {

class SidebarSplitter : public QSplitter {
    Q_OBJECT

public:
    /// The sidebar keeps its width when the window is resized. Neither side can be collapsed.
    SidebarSplitter(QWidget* sidebar, QWidget* detail, QWidget* parent = nullptr);

protected:
    QSplitterHandle* createHandle() override;
};

} // namespace trovell
