// SPDX-License-Identifier: MIT

#include "views/shared/ApplicationIcons.h"

#include "editing/CapturedChoice.h"
#include "launch/ResourceSystem.h"

#include <QDir>
#include <QFutureWatcher>
#include <QPixmap>
#include <QtConcurrentRun>
#include <QTimer>

namespace trovell {

ApplicationIcons::ApplicationIcons(ResourceSystem& resources) : m_resources(resources) {}

QPixmap ApplicationIcons::pixmap(const QString& applicationPath, int size, double devicePixelRatio)
{
    if (!m_icons.contains(applicationPath))
        request(applicationPath);
    const QIcon& icon = m_icons[applicationPath];
    return icon.isNull() ? QPixmap() : icon.pixmap(QSize(size, size), devicePixelRatio);
}

QString ApplicationIcons::pathOf(const CapturedApplication& application) const
{
    return applicationURL(application, m_resources).value_or(QUrl()).toLocalFile();
}

/// A worker reads the desktop file.
void ApplicationIcons::request(const QString& applicationPath)
{
    m_icons.insert(applicationPath, {});
    auto* watcher = new QFutureWatcher<QString>(this);
    connect(watcher, &QFutureWatcher<QString>::finished, this, [this, watcher, applicationPath] {
        watcher->deleteLater();
        m_named.enqueue({applicationPath, watcher->result()});
        if (m_named.size() == 1)
            QTimer::singleShot(0, this, &ApplicationIcons::loadNext);
    });
    watcher->setFuture(QtConcurrent::run([&resources = m_resources, applicationPath] {
        const auto application =
            resources.describeApplication(QUrl::fromLocalFile(applicationPath));
        return application ? application->icon : QString();
    }));
}

/// Icon themes can only be searched here, so that happens one icon at a time between other events.
void ApplicationIcons::loadNext()
{
    const auto [applicationPath, name] = m_named.dequeue();
    // Opening a pipe would wait for its other end.
    const bool isFile = QDir::isAbsolutePath(name);
    if (!isFile)
        m_icons[applicationPath] = QIcon::fromTheme(name);
    else if (QFileInfo(name).isFile())
        m_icons[applicationPath] = QIcon(name);
    if (!m_named.isEmpty())
        QTimer::singleShot(0, this, &ApplicationIcons::loadNext);
    Q_EMIT loaded(applicationPath);
}

} // namespace trovell
