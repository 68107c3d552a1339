// SPDX-License-Identifier: MIT

#include "views/style/BannerFrame.h"

#include "views/style/Accessibility.h"
#include "views/style/Painting.h"
#include "views/style/VisualStyle.h"

#include <QPainter>

namespace trovell {

BannerFrame::BannerFrame(const VisualStyle& visual, Kind kind, QWidget* parent)
    : QFrame(parent), m_visual(visual), m_kind(kind)
{
    setAccessibleRole(*this, QAccessible::AlertMessage);
}

void BannerFrame::setKind(Kind kind)
{
    m_kind = kind;
    update();
}

void BannerFrame::announce(const QString& text)
{
    trovell::announce(*this, text);
}

void BannerFrame::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const bool isSuccess = m_kind == Kind::success;
    paintBox(painter, rect(), m_visual.radius(Radius::banner),
             m_visual.color(isSuccess ? ColorToken::successFill : ColorToken::warningFill),
             m_visual.color(isSuccess ? ColorToken::successBorder : ColorToken::warningBorder));
}

} // namespace trovell
