// SPDX-License-Identifier: MIT

#include "views/detail/ResourceIcon.h"

#include "views/shared/ApplicationIcons.h"
#include "views/shared/ItemPresentation.h"
#include "views/shared/ViewEnvironment.h"
#include "views/style/Painting.h"

#include <QEvent>
#include <QPainter>

namespace trovell {

namespace {

constexpr int side = 30;
constexpr int symbolMargin = 4;

} // namespace

ResourceIcon::ResourceIcon(const ViewEnvironment& environment, QWidget* parent)
    : Picture(parent), m_visual(environment.visual), m_icons(environment.icons)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&m_icons, &ApplicationIcons::loaded, this, [this](const QString& applicationPath) {
        if (applicationPath == m_applicationPath)
            update();
    });
}

void ResourceIcon::setItem(WorkspaceItemType type, const std::optional<QString>& applicationPath)
{
    m_symbolName = symbolOf(type);
    m_applicationPath =
        type == WorkspaceItemType::application ? applicationPath.value_or(QString()) : QString();
    update();
}

QSize ResourceIcon::sizeHint() const
{
    return {m_visual.scaled(side), m_visual.scaled(side)};
}

void ResourceIcon::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QPixmap icon = m_applicationPath.isEmpty()
                             ? QPixmap()
                             : m_icons.pixmap(m_applicationPath, width(), devicePixelRatioF());
    if (!icon.isNull()) {
        paintPixels(painter, QRectF(rect()).center(), icon);
        return;
    }
    const int margin = m_visual.scaled(symbolMargin);
    m_visual.paintSymbol(painter, rect().adjusted(margin, margin, -margin, -margin), m_symbolName,
                         m_visual.brandTint());
}

bool ResourceIcon::event(QEvent* event)
{
    if (event->type() == QEvent::FontChange)
        updateGeometry();
    return Picture::event(event);
}

} // namespace trovell
