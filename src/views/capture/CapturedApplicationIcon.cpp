// SPDX-License-Identifier: MIT

#include "views/capture/CapturedApplicationIcon.h"

#include "views/shared/ApplicationIcons.h"
#include "views/shared/ViewEnvironment.h"

#include <QPainter>
#include <QStyle>

namespace trovell {

namespace {

constexpr int iconSize = 24;

} // namespace

CapturedApplicationIcon::CapturedApplicationIcon(const ViewEnvironment& environment,
                                                 const CapturedApplication& application)
    : m_icons(environment.icons), m_applicationPath(m_icons.pathOf(application))
{
    setFixedSize(iconSize, iconSize);
    connect(&m_icons, &ApplicationIcons::loaded, this, [this](const QString& path) {
        if (path == m_applicationPath)
            update();
    });
}

void CapturedApplicationIcon::paintEvent(QPaintEvent*)
{
    if (m_applicationPath.isEmpty())
        return;
    const QPixmap icon = m_icons.pixmap(m_applicationPath, iconSize, devicePixelRatioF());
    QPainter painter(this);
    style()->drawItemPixmap(&painter, rect(), Qt::AlignCenter, icon);
}

} // namespace trovell
