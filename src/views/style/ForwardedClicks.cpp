// SPDX-License-Identifier: MIT

#include "views/style/ForwardedClicks.h"

#include <QAbstractButton>
#include <QMouseEvent>
#include <QPointer>

namespace trovell {

namespace {

class ClickForwarder : public QObject {
public:
    ClickForwarder(QWidget& label, QAbstractButton& button)
        : QObject(&label), m_label(label), m_button(&button)
    {
        label.installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        const bool isRelease = event->type() == QEvent::MouseButtonRelease;
        if (!isRelease && event->type() != QEvent::MouseButtonPress)
            return false;
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() != Qt::LeftButton || !m_button)
            return false;
        if (isRelease && m_label.rect().contains(mouse->position().toPoint()))
            m_button->click();
        return true;
    }

private:
    QWidget& m_label;
    QPointer<QAbstractButton> m_button;
};

} // namespace

void forwardClicks(QWidget& label, QAbstractButton& button)
{
    new ClickForwarder(label, button);
}

} // namespace trovell
