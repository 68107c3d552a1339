// SPDX-License-Identifier: MIT
//
// A running program as assistive tools see it, over AT-SPI's bus: what is shown, under which roles
// and names, and where. For the demo and for tests that work a window as a person would. Blocks
// while it asks; any one thread.
#pragma once

#include <QByteArray>
#include <QList>
#include <QRect>
#include <QString>

#include <chrono>
#include <memory>
#include <optional>

struct _GDBusConnection;
struct _GVariant;

namespace trovell {

/// One object of the tree at the moment it was read.
struct AccessibleNode {
    QByteArray busName;
    QByteArray path;
    /// As AT-SPI writes it, such as "push button".
    QString role;
    QString name;
    QString description;
    bool isShowing = false;
    bool isEnabled = false;
    bool isChecked = false;
    bool isFocused = false;
    bool isSelected = false;
    /// Distance from the application.
    int depth = 0;
};

class AccessibleTree {
public:
    /// `sessionAddress` is that of the session's bus, as in DBUS_SESSION_BUS_ADDRESS.
    explicit AccessibleTree(const QByteArray& sessionAddress);
    ~AccessibleTree();
    AccessibleTree(const AccessibleTree&) = delete;
    AccessibleTree& operator=(const AccessibleTree&) = delete;

    [[nodiscard]] bool isConnected() const { return m_connection != nullptr; }

    /// All that the applications of that name show now, parents before children. What is not
    /// showing is left out, with all below it.
    [[nodiscard]] QList<AccessibleNode> shown(const QString& application) const;

    /// The first that is shown under that name, be it followed by a comma and more; an empty role
    /// or name stands for any.
    [[nodiscard]] std::optional<AccessibleNode>
    find(const QString& application, const QString& role, const QString& name) const;
    /// Asks until it is shown, or the time is over.
    [[nodiscard]] std::optional<AccessibleNode> waitFor(const QString& application,
                                                        const QString& role, const QString& name,
                                                        std::chrono::milliseconds timeout) const;

    /// Screen pixels, origin at the top left of the screen.
    [[nodiscard]] QRect extents(const AccessibleNode& node) const;

private:
    using Value = std::unique_ptr<_GVariant, void (*)(_GVariant*)>;

    [[nodiscard]] Value call(const AccessibleNode& node, const char* interface, const char* method,
                             _GVariant* arguments) const;
    [[nodiscard]] QString property(const AccessibleNode& node, const char* interface,
                                   const char* name) const;
    [[nodiscard]] QList<AccessibleNode> children(const AccessibleNode& node) const;
    void read(AccessibleNode& node) const;
    void collect(const AccessibleNode& node, QList<AccessibleNode>& found) const;

    _GDBusConnection* m_connection = nullptr;
};

} // namespace trovell
