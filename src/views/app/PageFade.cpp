// SPDX-License-Identifier: MIT

#include "views/app/PageFade.h"

#include "views/style/VisualStyle.h"

#include <QPainter>
#include <QStackedWidget>
#include <QVariantAnimation>

namespace trovell {

namespace {

QPixmap pictureOf(QWidget& page)
{
    QPixmap picture(page.size() * page.devicePixelRatioF());
    picture.setDevicePixelRatio(page.devicePixelRatioF());
    picture.fill(Qt::transparent);
    page.render(&picture, {}, {}, QWidget::DrawChildren);
    return picture;
}

/// Lies over the pages while one turns into the other.
class PageFade : public QWidget {
public:
    PageFade(QStackedWidget& pages, const QPixmap& before, const VisualStyle& visual)
        : QWidget(pages.parentWidget()), m_visual(visual), m_before(before),
          m_after(pictureOf(*pages.currentWidget()))
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setGeometry(pages.geometry());
        raise();
        show();
        auto* animation = new QVariantAnimation(this);
        animation->setStartValue(0.0);
        animation->setEndValue(1.0);
        animation->setDuration(visual.duration(pageFadeMilliseconds));
        animation->setEasingCurve(QEasingCurve::InOutQuad);
        connect(animation, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
            m_progress = value.toDouble();
            update();
        });
        connect(animation, &QVariantAnimation::finished, this, &QObject::deleteLater);
        animation->start();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), m_visual.color(ColorToken::sheetBackground));
        painter.setOpacity(1 - m_progress);
        painter.drawPixmap(0, 0, m_before);
        painter.setOpacity(m_progress);
        painter.drawPixmap(0, 0, m_after);
    }

private:
    const VisualStyle& m_visual;
    QPixmap m_before;
    QPixmap m_after;
    double m_progress = 0;
};

} // namespace

void fadeToPage(QStackedWidget& pages, int index, const VisualStyle& visual)
{
    if (!pages.isVisible() || visual.duration(pageFadeMilliseconds) == 0)
        return pages.setCurrentIndex(index);
    const QPixmap before = pictureOf(*pages.currentWidget());
    pages.setCurrentIndex(index);
    new PageFade(pages, before, visual);
}

} // namespace trovell
