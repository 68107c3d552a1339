// SPDX-License-Identifier: MIT
//
// A long column of widgets that shows its beginning at once. Main thread.
#pragma once

#include <QWidget>

#include <functional>

class QVBoxLayout;

namespace trovell {

/// Makes as many widgets as fit on a screen when it is made, and the others between the events that
/// follow, so that the window stays responsive. The widgets are in their order at any time.
class GradualColumn : public QWidget {
    Q_OBJECT

public:
    using MakeWidget = std::function<QWidget*(qsizetype index)>;

    /// `make` is called once for each index below `count`, in ascending order and only while the
    /// column lives.
    GradualColumn(qsizetype count, MakeWidget make, QWidget* parent = nullptr);

    [[nodiscard]] bool isComplete() const { return m_made == m_count; }

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    /// Until `pixels` more are filled.
    void addSlice(int pixels);

    qsizetype m_count;
    MakeWidget m_make;
    qsizetype m_made = 0;
    QVBoxLayout* m_column;
};

} // namespace trovell
