// SPDX-License-Identifier: MIT
//
// The icons that the desktop gives applications, found without holding up the interface. Main
// thread.
#pragma once

#include <QHash>
#include <QIcon>
#include <QObject>
#include <QQueue>

namespace trovell {

class ResourceSystem;
struct CapturedApplication;

class ApplicationIcons : public QObject {
    Q_OBJECT

public:
    /// `resources` outlives this object.
    explicit ApplicationIcons(ResourceSystem& resources);

    /// The icon of the application whose desktop file is at `applicationPath`, `size` logical
    /// pixels wide and high, sharp at the ratio. Null while it is not known yet (`loaded` tells
    /// when to ask again) and when there is none.
    [[nodiscard]] QPixmap pixmap(const QString& applicationPath, int size, double devicePixelRatio);

    /// Of the desktop file of a captured application; empty when it has none.
    [[nodiscard]] QString pathOf(const CapturedApplication& application) const;

Q_SIGNALS:
    /// Also when it turned out that there is no icon.
    void loaded(const QString& applicationPath);

private:
    void request(const QString& applicationPath);
    void loadNext();

    ResourceSystem& m_resources;
    QHash<QString, QIcon> m_icons;
    /// Names of icons, or paths of their files, by the desktop file they were found in.
    QQueue<std::pair<QString, QString>> m_named;
};

} // namespace trovell
