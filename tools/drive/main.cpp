// SPDX-License-Identifier: MIT
//
// Works a running program as assistive tools and hands do, for scripts:
//
//   drive APPLICATION tree                     everything it shows
//   drive APPLICATION wait ROLE NAME           until it is shown, for 15 seconds at most
//   drive APPLICATION gone ROLE NAME           until it is shown no more
//   drive APPLICATION click ROLE NAME          waits for it and clicks its middle with the mouse
//   drive APPLICATION read ROLE                the names of all that are shown
//
// An empty NAME stands for any. Ends with an error when something is not found.

#include "drive/AccessibleTree.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTextStream>
#include <QThread>

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

constexpr std::chrono::seconds patience(15);

void print(const QList<AccessibleNode>& nodes)
{
    QTextStream out(stdout);
    for (const AccessibleNode& node : nodes) {
        out << QString(node.depth * 2, u' ') << node.role << u" \""_s << node.name << u'"'
            << (node.isEnabled ? u""_s : u" disabled"_s) << (node.isChecked ? u" checked"_s : u""_s)
            << (node.isFocused ? u" focused"_s : u""_s)
            << (node.isSelected ? u" selected"_s : u""_s);
        if (!node.description.isEmpty())
            out << u" — "_s << node.description;
        out << Qt::endl;
    }
}

bool click(const AccessibleTree& tree, const AccessibleNode& node)
{
    const QPoint middle = tree.extents(node).center();
    return QProcess::execute(u"xdotool"_s, {u"mousemove"_s, QString::number(middle.x()),
                                            QString::number(middle.y()), u"click"_s, u"1"_s}) == 0;
}

bool waitUntilGone(const AccessibleTree& tree, const QStringList& words)
{
    for (int attempt = 0; attempt < 300; ++attempt) {
        if (!tree.find(words.at(1), words.at(3), words.value(4)))
            return true;
        QThread::msleep(50);
    }
    return false;
}

bool run(const AccessibleTree& tree, const QStringList& words)
{
    const QString application = words.value(1);
    const QString verb = words.value(2);
    const QString role = words.value(3);
    if (verb == u"tree") {
        print(tree.shown(application));
        return true;
    }
    if (verb == u"read") {
        const QList<AccessibleNode> nodes = tree.shown(application);
        for (const AccessibleNode& node : nodes) {
            if (node.role == role)
                QTextStream(stdout) << node.name << Qt::endl;
        }
        return true;
    }
    if (verb == u"gone")
        return waitUntilGone(tree, words);
    const auto node = tree.waitFor(application, role, words.value(4), patience);
    return node && (verb != u"click" || click(tree, *node));
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    const AccessibleTree tree(qgetenv("DBUS_SESSION_BUS_ADDRESS"));
    if (tree.isConnected() && words.size() > 2 && run(tree, words))
        return EXIT_SUCCESS;
    QTextStream(stderr) << u"Not found: "_s << words.mid(2).join(u' ') << Qt::endl;
    return EXIT_FAILURE;
}
