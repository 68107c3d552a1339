// SPDX-License-Identifier: MIT

#include "platform/sway/SwayTree.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <tuple>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

QRectF rectangleOf(const QJsonValue& value)
{
    return {value[u"x"].toDouble(), value[u"y"].toDouble(), value[u"width"].toDouble(),
            value[u"height"].toDouble()};
}

std::optional<WindowKind> kindOf(const QJsonObject& properties)
{
    static const QHash<QString, std::optional<WindowKind>> kinds = {
        {u"dialog"_s, WindowKind::dialog},
        {u"utility"_s, WindowKind::utility},
        {u"toolbar"_s, WindowKind::utility},
        {u"splash"_s, WindowKind::utility},
        {u"notification"_s, WindowKind::notification},
        {u"dock"_s, std::nullopt},
        {u"desktop"_s, std::nullopt},
        {u"menu"_s, std::nullopt},
        {u"popup_menu"_s, std::nullopt},
        {u"dropdown_menu"_s, std::nullopt},
        {u"tooltip"_s, std::nullopt}};
    const bool belongsToAnother = properties[u"transient_for"].toInteger() != 0;
    return kinds.value(properties[u"window_type"].toString(),
                       belongsToAnother ? WindowKind::dialog : WindowKind::standard);
}

/// Where in the tree a node lies.
struct TreePlace {
    QString output;
    QString workspace;
    bool isInScratchpad = false;
    /// Its floating container, with the frame that people see.
    std::optional<QJsonObject> floating = {};
};

class TreeWalk {
public:
    explicit TreeWalk(QList<SwayWindow>& windows) : m_windows(windows) {}

    void visit(const QJsonObject& node, TreePlace place)
    {
        const QString type = node[u"type"].toString();
        const QString name = node[u"name"].toString();
        if (type == u"dockarea")
            return;
        if (type == u"output")
            place.output = name;
        if (type == u"workspace") {
            place.isInScratchpad = name == u"__i3_scratch";
            place.workspace = place.isInScratchpad ? QString() : name;
        }
        if (type == u"floating_con")
            place.floating = node;
        const QJsonArray children = node[u"nodes"].toArray();
        const bool isWindow = node[u"window"].isDouble() || node[u"pid"].isDouble();
        if (isWindow && children.isEmpty())
            m_windows.append(windowOf(node, place));
        for (const QJsonArray& each : {children, node[u"floating_nodes"].toArray()}) {
            for (const QJsonValue& child : each)
                visit(child.toObject(), place);
        }
    }

private:
    [[nodiscard]] SwayWindow windowOf(const QJsonObject& node, const TreePlace& place) const
    {
        const QJsonObject properties = node[u"window_properties"].toObject();
        const auto process = static_cast<qint32>(node[u"pid"].toInteger());
        const auto x11Window = static_cast<quint64>(node[u"window"].toInteger());
        const QString appId = node[u"app_id"].toString();
        SwayWindow window;
        window.id = {static_cast<quint64>(node[u"id"].toInteger()),
                     x11Window != 0 ? x11Window : static_cast<quint64>(process)};
        window.identity = {.processIdentifier = process,
                           .wmClass = appId.isEmpty() ? properties[u"class"].toString() : appId,
                           .wmInstance = properties[u"instance"].toString(),
                           .sandboxId = node[u"sandbox_app_id"].toString()};
        window.kind = kindOf(properties);
        window.title = node[u"name"].toString();
        window.frame = frameOf(node, place);
        window.states = statesOf(node, place);
        window.isSticky = node[u"sticky"].toBool() ||
                          (place.floating && place.floating->value(u"sticky").toBool());
        window.isFocused = node[u"focused"].toBool();
        window.workspace = place.workspace;
        window.output = place.isInScratchpad ? QString() : place.output;
        window.stackingPosition = int(m_windows.size());
        return window;
    }

    [[nodiscard]] static QRectF frameOf(const QJsonObject& node, const TreePlace& place)
    {
        // i3 has a container around each floating window, which holds the title bar too.
        if (place.floating && place.floating->value(u"id") != node[u"id"])
            return rectangleOf(place.floating->value(u"rect"));
        const double titleBar = node[u"deco_rect"][u"height"].toDouble();
        return rectangleOf(node[u"rect"]).adjusted(0, -titleBar, 0, 0);
    }

    [[nodiscard]] static WindowStates statesOf(const QJsonObject& node, const TreePlace& place)
    {
        WindowStates states;
        const bool isFullScreen =
            node[u"fullscreen_mode"].toInt() != 0 ||
            (place.floating && place.floating->value(u"fullscreen_mode").toInt() != 0);
        states.setFlag(WindowState::fullScreen, isFullScreen);
        states.setFlag(WindowState::minimized, place.isInScratchpad);
        states.setFlag(WindowState::tiled, !place.floating && !place.isInScratchpad);
        return states;
    }

    QList<SwayWindow>& m_windows;
};

/// What people call it; makers that nobody knows are no name.
QString nameOf(const QJsonValue& output)
{
    QStringList parts;
    for (const QString& part : {output[u"make"].toString(), output[u"model"].toString()}) {
        if (!part.isEmpty() && part.compare(u"unknown", Qt::CaseInsensitive) != 0 &&
            part != u"headless")
            parts.append(part);
    }
    return parts.isEmpty() ? output[u"name"].toString() : parts.join(u' ');
}

void readOutputs(const QJsonArray& outputs, SwayTree& tree)
{
    std::vector<QJsonValue> active;
    for (const QJsonValue& output : outputs) {
        if (output[u"active"].toBool())
            active.push_back(output);
    }
    std::ranges::sort(active, {}, [](const QJsonValue& output) {
        const QRectF frame = rectangleOf(output[u"rect"]);
        return std::tuple(!output[u"primary"].toBool(), frame.x(), frame.y(),
                          output[u"name"].toString());
    });
    for (const QJsonValue& output : active) {
        const QString name = output[u"name"].toString();
        const auto shown = std::ranges::find_if(tree.workspaces, [&name](const auto& workspace) {
            return workspace.isVisible && workspace.output == name;
        });
        const QRectF frame = rectangleOf(output[u"rect"]);
        // sway has no primary output: it is the one at the left, which does not change by itself.
        tree.displays.append({nameOf(output), frame,
                              shown == tree.workspaces.end() ? frame : shown->area,
                              output[u"scale"].toDouble(1.0), tree.displays.isEmpty()});
        tree.outputs.append(name);
    }
}

double distance(const QRectF& frame, const QPointF& point)
{
    const QPointF inside{std::clamp(point.x(), frame.x(), frame.x() + frame.width()),
                         std::clamp(point.y(), frame.y(), frame.y() + frame.height())};
    return (inside - point).manhattanLength();
}

} // namespace

int workspaceNumber(const QString& name)
{
    const auto end = std::ranges::find_if(name, [](QChar c) { return c < u'0' || c > u'9'; });
    bool isNumber = false;
    const int number = name.first(end - name.begin()).toInt(&isNumber);
    return isNumber ? number : -1;
}

bool isSameWorkspace(const QString& a, const QString& b)
{
    return a == b || (workspaceNumber(a) >= 0 && workspaceNumber(a) == workspaceNumber(b));
}

const SwayWindow* SwayTree::window(const WindowId& id) const
{
    const auto found = std::ranges::find(windows, id, &SwayWindow::id);
    return found == windows.end() ? nullptr : &*found;
}

const SwayWorkspace* SwayTree::workspace(const QString& name) const
{
    const auto found = std::ranges::find(workspaces, name, &SwayWorkspace::name);
    return found == workspaces.end() ? nullptr : &*found;
}

const SwayWorkspace* SwayTree::workspaceLike(const QString& name) const
{
    const auto found = std::ranges::find_if(workspaces, [&name](const SwayWorkspace& workspace) {
        return isSameWorkspace(workspace.name, name);
    });
    return found == workspaces.end() ? nullptr : &*found;
}

QString SwayTree::outputAt(const QRectF& frame) const
{
    const auto nearest = std::ranges::min_element(displays, {}, [&frame](const Display& display) {
        return distance(display.frame, frame.center());
    });
    return nearest == displays.end() ? QString() : outputs.at(nearest - displays.begin());
}

SwayTree makeSwayTree(const QJsonValue& tree, const QJsonValue& workspaces,
                      const QJsonValue& outputs)
{
    SwayTree result;
    TreeWalk(result.windows).visit(tree.toObject(), {});
    const QJsonArray all = workspaces.toArray();
    for (const QJsonValue& workspace : all)
        result.workspaces.append({workspace[u"name"].toString(), workspace[u"num"].toInt(-1),
                                  workspace[u"output"].toString(), rectangleOf(workspace[u"rect"]),
                                  workspace[u"visible"].toBool(), workspace[u"focused"].toBool()});
    readOutputs(outputs.toArray(), result);
    return result;
}

} // namespace trovell
