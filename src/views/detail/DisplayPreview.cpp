// SPDX-License-Identifier: MIT

#include "views/detail/DisplayPreview.h"

#include "model/WindowPlacement.h"
#include "views/detail/WindowMiniature.h"
#include "views/style/Painting.h"
#include "views/style/TextLabel.h"

#include <QEvent>
#include <QPainter>

#include <cmath>

namespace trovell {

namespace {

// The padding of the card, which windows beyond the display may use.
constexpr int sideRoom = 16;
constexpr int bottomRoom = 14;
constexpr int captionGap = 6;
constexpr int usualWidth = 330;

} // namespace

DisplayPreview::DisplayPreview(const VisualStyle& visual, QWidget* parent)
    : Group(parent), m_visual(visual),
      m_name(new TextLabel(visual, {}, TextRole::caption, ColorToken::labelSecondary, this))
{
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void DisplayPreview::setDisplay(const DisplayPlacements& content)
{
    setAccessibleName(content.display.localizedName);
    m_name->setText(content.display.localizedName);
    m_aspectRatio = screenAspectRatio(content.display);
    m_frames.clear();
    while (m_miniatures.size() > content.placements.size())
        delete m_miniatures.takeLast();
    for (const WindowPlacement* const placement : content.placements) {
        if (m_frames.size() == m_miniatures.size())
            m_miniatures.append(new WindowMiniature(m_visual, this));
        m_miniatures[m_frames.size()]->setWindow(placement->applicationName(),
                                                 fillsDisplay(*placement));
        m_frames.append(shownFrame(*placement));
    }
    updateGeometry();
    place();
}

int DisplayPreview::heightForWidth(int width) const
{
    return static_cast<int>(std::ceil(pictureFrame(width).bottom())) + bottomRoom;
}

QSize DisplayPreview::sizeHint() const
{
    return {usualWidth, heightForWidth(usualWidth)};
}

QRectF DisplayPreview::pictureFrame(int width) const
{
    const double pictureWidth = std::max(1, width - 2 * sideRoom);
    return {double(sideRoom), double(m_name->sizeHint().height() + captionGap), pictureWidth,
            pictureWidth / m_aspectRatio};
}

void DisplayPreview::place()
{
    const QRectF picture = pictureFrame(width());
    m_name->setGeometry(sideRoom, 0, width() - 2 * sideRoom, m_name->sizeHint().height());
    for (qsizetype i = 0; i < m_frames.size(); ++i) {
        const QRectF frame = miniatureFrame(m_frames[i], picture.size());
        m_miniatures[i]->setFrame(frame.translated(picture.topLeft()));
        m_miniatures[i]->show();
    }
    update();
}

void DisplayPreview::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    paintBox(painter, pictureFrame(width()), m_visual.radius(Radius::screen),
             m_visual.color(ColorToken::screenArea), m_visual.color(ColorToken::screenAreaBorder));
}

void DisplayPreview::resizeEvent(QResizeEvent*)
{
    place();
}

bool DisplayPreview::event(QEvent* event)
{
    if (event->type() == QEvent::FontChange) {
        updateGeometry();
        place();
    }
    return Group::event(event);
}

} // namespace trovell
