// SPDX-License-Identifier: MIT
//
// A person's story on a virtual desktop: arrange windows, save them, lose them in some way, start
// the workspace, and look at what came of it. Everything is arranged and looked at through the
// seam, so that a story is told once for every desktop. Main thread of a test.
#pragma once

#include "support/LayoutSession.h"

#include <QMap>

namespace trovell::test {

class DesktopStory {
public:
    /// Nothing is known of programs that are installed after the first use of `session`.
    explicit DesktopStory(WindowManager windowManager);

    bool isReady() const { return desktop.isReady(); }

    /// Gives the desktop an application whose windows are scripted: its id, class and name are
    /// `name`. `arguments` say what its windows are like.
    void install(const QString& name, const QByteArrayList& arguments,
                 const QByteArray& startupWMClass = {});
    /// Starts it as the desktop's own menu does.
    QProcess& open(const QString& name);
    LayoutSession& session();

    /// All ordinary windows by title, as the seam tells them.
    QMap<QString, DesktopWindow> windows();
    /// Whether these are the titles of all windows, now or soon; then they have come to rest.
    bool shows(const QStringList& titles);

    struct Wish {
        QString title;
        QRectF frame;
        WindowStates states = {};
        DesktopPlace place = {};
    };
    /// Arranges windows as far as the desktop lets that be done.
    void arrange(const QList<Wish>& wishes);
    /// All onto the first virtual desktop, in other frames, in no state.
    void scatter();

    /// Saves everything that is open with its applications, and remembers how it stands; false
    /// where windows cannot be read.
    bool save();
    /// Starts the saved workspace and keeps the report.
    void start(double timeoutSeconds = 15);
    /// The lines of the last report.
    QStringList report() const { return m_report; }

    /// Empty when every saved window stands as it was saved; else a line for each that does not,
    /// with what the report says of it.
    QStringList differences();

    VirtualDesktop desktop;
    TrovellWorkspace* workspace = nullptr;

private:
    QString describe(const DesktopWindow& window) const;
    QString lineAbout(const QString& title) const;

    QHash<QString, QByteArrayList> m_commands;
    std::unique_ptr<LayoutSession> m_session;
    QMap<QString, QString> m_saved;
    QStringList m_report;
};

} // namespace trovell::test
