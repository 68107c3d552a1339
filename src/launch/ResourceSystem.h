// SPDX-License-Identifier: MIT
//
// Opening and finding things through the desktop, as launching needs it.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>

#include <optional>

namespace trovell {

/// What a bookmark leads to now.
struct ResolvedBookmark {
    QUrl url;
    /// The bookmark still leads there but should be made anew: the resource was moved or replaced.
    bool isStale = false;
};

/// An application as its desktop file describes it.
struct ApplicationDescription {
    QString bundleIdentifier;
    /// Localized.
    QString name;
    /// A name in the icon theme or the path of a picture; empty without an icon.
    QString icon;
};

/// An application that is offered to the user.
struct InstalledApplication {
    /// File URL of its desktop file.
    QUrl url;
    ApplicationDescription description;
};

/// How a person wants an application started.
struct ApplicationStart {
    /// As in a shell, behind those of its own; none adds nothing.
    std::optional<QString> arguments = {};
    /// The folder it works in; none is its own choice.
    std::optional<QString> workingFolder = {};
};

class ResourceSystem {
public:
    virtual ~ResourceSystem() = default;

    /// A durable reference to an existing file or folder, or none when it cannot be made. Any
    /// thread.
    [[nodiscard]] virtual std::optional<QByteArray> createBookmark(const QUrl& url) const = 0;

    /// Finds the resource of a bookmark again, also after it was renamed, moved or replaced. None
    /// when it is gone or the bytes are no bookmark. May search for some hundred milliseconds:
    /// called from worker threads.
    [[nodiscard]] virtual std::optional<ResolvedBookmark>
    resolveBookmark(const QByteArray& bookmark) const = 0;

    /// The installed application with that identifier, as the file URL of its desktop file. Main
    /// thread.
    [[nodiscard]] virtual std::optional<QUrl>
    applicationURL(const QString& bundleIdentifier) const = 0;

    /// What the desktop file `url` says of its application, be it installed or not. None when it
    /// is no desktop file of an application. Any thread; reads the file.
    [[nodiscard]] virtual std::optional<ApplicationDescription>
    describeApplication(const QUrl& url) const = 0;

    /// All applications that the desktop offers to the user, in no particular order. Reads all
    /// their files, which may take some hundred milliseconds: called from worker threads.
    [[nodiscard]] virtual QList<InstalledApplication> installedApplications() const = 0;

    /// Starts the application whose desktop file or program `url` names. True when the desktop
    /// accepted it, which does not mean that the program survives its start. Main thread; does not
    /// wait for the application.
    [[nodiscard]] virtual bool openApplication(const QUrl& url,
                                               const ApplicationStart& start = {}) = 0;

    /// Opens a file, folder or link in the application of that identifier, and in its default one
    /// when there is none such. True when the desktop accepted it. Main thread; does not wait for
    /// the application.
    [[nodiscard]] virtual bool openResource(const QUrl& url, const QString& openWith = {}) = 0;

    /// Makes a running application open one more window. False when it has no way to. Main thread;
    /// does not wait for the window.
    [[nodiscard]] virtual bool openNewWindow(const QString& bundleIdentifier) = 0;
};

} // namespace trovell
