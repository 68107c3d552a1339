// SPDX-License-Identifier: MIT

#include "views/shared/ItemPresentation.h"

#include "support/DetachedTask.h"

#include <QFileInfo>
#include <QFutureWatcher>
#include <QUrl>

namespace trovell {

using namespace Qt::StringLiterals;

QString symbolOf(WorkspaceItemType type)
{
    switch (type) {
    case WorkspaceItemType::application:
        return u"app"_s;
    case WorkspaceItemType::folder:
        return u"folder"_s;
    case WorkspaceItemType::file:
        return u"doc"_s;
    case WorkspaceItemType::webLink:
        return u"link"_s;
    }
    Q_UNREACHABLE();
}

QString typeLabel(WorkspaceItemType type, const Localization& words)
{
    switch (type) {
    case WorkspaceItemType::application:
        return words.text(u"Application"_key);
    case WorkspaceItemType::folder:
        return words.text(u"Folder"_key);
    case WorkspaceItemType::file:
        return words.text(u"File"_key);
    case WorkspaceItemType::webLink:
        return words.text(u"Web Link"_key);
    }
    Q_UNREACHABLE();
}

bool isResourceMissing(const QString& urlString)
{
    const QUrl url(urlString, QUrl::StrictMode);
    return !url.isValid() || !QFileInfo::exists(url.path(QUrl::FullyDecoded));
}

void checkResourceMissing(const QString& urlString, QObject* receiver,
                          std::function<void(bool isMissing)> answer)
{
    auto* watcher = new QFutureWatcher<bool>(receiver);
    QObject::connect(watcher, &QFutureWatcher<bool>::finished, receiver,
                     [watcher, answer = std::move(answer)] {
                         watcher->deleteLater();
                         answer(watcher->result());
                     });
    // A place that does not answer must not hold up anything else.
    watcher->setFuture(runDetached([urlString] { return isResourceMissing(urlString); }));
}

} // namespace trovell
