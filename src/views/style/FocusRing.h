// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <QRectF>

class QApplication;
class QFocusFrame;
class QPainter;
class QWidget;

namespace trovell {

class VisualStyle;

/// The box of a control and the radius of its corners, in the widget's coordinates.
struct FocusOutline {
    QRectF box;
    double radius = 0;
};

/// A widget that wants the keyboard focus ring around it. Qt's check boxes, combo boxes and sliders
/// have it too; other widgets without this interface show their focus themselves.
class FocusOutlined {
public:
    virtual ~FocusOutlined() = default;
    virtual FocusOutline focusOutline() const = 0;
};

/// How far the ring reaches beyond the control, in logical pixels.
constexpr int focusRingReach = 4;

/// Keeps a ring around the widget that has the keyboard focus. The ring is a frame above the
/// widget's siblings, so controls need no room of their own for it; it is cut only by a scroll
/// area or the window. One per application, owned by the VisualStyle.
class FocusRing : public QObject {
    Q_OBJECT

public:
    FocusRing(QApplication& application, VisualStyle* visual);
    ~FocusRing() override;

private:
    void follow(QWidget* focused);

    // Deleted with the window it stands in.
    QPointer<QFocusFrame> m_frame;
};

/// Paints the ring of a focus frame around the widget it follows.
void paintFocusFrame(QPainter& painter, const VisualStyle& visual, const QFocusFrame& frame);

} // namespace trovell
