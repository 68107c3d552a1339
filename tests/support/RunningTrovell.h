// SPDX-License-Identifier: MIT
//
// The program on a virtual desktop, worked as a person works it: what it shows is found through its
// accessible objects; hands are mouse and keyboard of the X server. Main thread of a test.
#pragma once

#include "drive/AccessibleTree.h"
#include "lab/VirtualDesktop.h"

#include <QJsonObject>

namespace trovell::test {

using namespace lab;

using namespace Qt::StringLiterals;

class RunningTrovell {
public:
    /// Nothing runs yet. The desktop outlives this object.
    explicit RunningTrovell(VirtualDesktop& desktop);
    ~RunningTrovell();
    Q_DISABLE_COPY_MOVE(RunningTrovell)

    /// What the program finds as its preferences when it starts next.
    void setPreferences(const QJsonObject& preferences) const;

    /// Starts the program and waits for its main window; false when it does not appear.
    [[nodiscard]] bool start();
    /// Asks it to end, as a session does; false when it does not end in order.
    [[nodiscard]] bool end();
    /// Whether it ends by itself and in order, now or soon.
    [[nodiscard]] bool ends();
    [[nodiscard]] bool isRunning() const
    {
        return m_process && m_process->state() == QProcess::Running;
    }

    /// The first shown object of that role and name, waited for. An empty role or name stands for
    /// any. Roles as AT-SPI writes them.
    [[nodiscard]] std::optional<AccessibleNode> find(const QString& role, const QString& name);
    [[nodiscard]] bool showsNow(const QString& role, const QString& name) const
    {
        return m_tree->find(application, role, name).has_value();
    }
    /// Whether it is shown now, or soon.
    [[nodiscard]] bool shows(const QString& role, const QString& name)
    {
        return find(role, name).has_value();
    }
    /// Whether it is shown no more, now or soon.
    [[nodiscard]] bool hides(const QString& role, const QString& name)
    {
        return waitUntil([&] { return !showsNow(role, name); });
    }
    /// Everything shown, for messages of failed tests.
    [[nodiscard]] QString picture();

    /// Waits for the object to be shown and enabled, and clicks its middle.
    bool click(const QString& role, const QString& name)
    {
        return clickMiddle(role, name, {"click", "1"});
    }
    bool doubleClick(const QString& role, const QString& name)
    {
        return clickMiddle(role, name, {"click", "--repeat", "2", "--delay", "60", "1"});
    }
    bool rightClick(const QString& role, const QString& name)
    {
        return clickMiddle(role, name, {"click", "3"});
    }
    /// Turns the wheel over the object, far enough for any end.
    bool scrollDown(const QString& role, const QString& name)
    {
        return clickMiddle(role, name, {"click", "--repeat", "60", "--delay", "5", "5"});
    }
    /// Types into whatever has the focus.
    void type(const QString& text)
    {
        m_desktop.run("xdotool", {"type", "--delay", "8", text.toUtf8()});
    }
    /// A key or combination as xdotool names it, such as "Return" or "alt+Down".
    void press(const char* keys) { m_desktop.run("xdotool", {"key", keys}); }

private:
    static inline const QString application = u"trovell"_s;

    bool clickMiddle(const QString& role, const QString& name, const QByteArrayList& clicks);

    VirtualDesktop& m_desktop;
    std::unique_ptr<AccessibleTree> m_tree;
    QProcess* m_process = nullptr;
};

} // namespace trovell::test
