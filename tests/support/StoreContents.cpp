// SPDX-License-Identifier: MIT

#include "support/StoreContents.h"

#include "model/RecordColumns.h"
#include "model/StoreFiles.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QIODevice>
#include <QtTest>

#include <limits>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

/// Writes equal bytes for what compares equal.
template <class T> void write(QDataStream& stream, const T& value)
{
    if constexpr (std::is_same_v<T, QDateTime>)
        stream << value.toMSecsSinceEpoch();
    else if constexpr (requires { value.isEmpty(); })
        value.isEmpty() ? stream << 0 : stream << value; // null or not
    else
        stream << value;
}

void write(QDataStream& stream, double value)
{
    stream << value + 0.0; // storing drops the sign of zero
}

template <class T> void write(QDataStream& stream, const std::optional<T>& value)
{
    stream << value.has_value();
    write(stream, value.value_or(T()));
}

template <class Values> void writeAll(QDataStream& stream, const QList<Values>& list)
{
    stream << list.size();
    for (const Values& values : list)
        forEachColumn<Values>([&](const auto& column) { write(stream, values.*column.attribute); });
}

template <class Child> auto valuesOf(const QList<Child*>& children)
{
    QList<typename Child::Values> values;
    for (const Child* child : children)
        values.append(child->values());
    return values;
}

WorkspaceItemValues itemValues(int index)
{
    WorkspaceItemValues values{
        .typeRawValue = rawValue(WorkspaceItemType::folder),
        .displayName = u"Item “%1” — ünï\u0000code 🗂"_s.arg(index),
        .sortOrder = index,
        .urlString = u"file:///home/someone/Folder%20%1"_s.arg(index),
        .isEnabled = index % 2 == 0,
    };
    if (index % 3 == 0)
        values.bookmarkData = QByteArray("\0bookmark\xff", 10).repeated(1 + 40 * index);
    if (index % 3 == 1)
        values.bundleIdentifier = QString();
    if (index % 4 == 2)
        values.applicationPath = u"/usr/share/applications/thing.desktop"_s;
    if (index > 2) {
        values.arguments = u"--new 'two words'"_s;
        values.workingFolder = u"/srv/ünï"_s;
        values.openWith = u"org.example.Viewer"_s;
    }
    return values;
}

std::unique_ptr<WindowPlacement> makePlacement(int index)
{
    const DisplayFingerprint display{u"Display"_s, 3840, 2160, 1920, 1080, 2, -0.1, 0, index == 0};
    auto placement = std::make_unique<WindowPlacement>(
        u"org.example.Editor"_s, u"Editor"_s,
        index % 2 == 0 ? std::optional(u"Window %1"_s.arg(index)) : std::nullopt, u"AXWindow"_s,
        std::nullopt, index, NormalizedFrame{0.1, -0.0, 1.0 / 3, index * 1.5},
        QRectF(-1e9 / 7, 1e-300, 640, 480.5), display, true);
    placement->setAbsoluteX(index == 1 ? std::numeric_limits<double>::infinity() : 3);
    if (index < 3)
        return placement;
    WindowPlacementValues values = placement->values();
    values.virtualDesktopIndex = index;
    values.virtualDesktopName = u"Mail ✉"_s;
    values.isOnAllDesktops = index % 2 == 0;
    values.windowStates = u"fullScreen above"_s;
    values.stackingIndex = -index;
    values.restoresDesktop = index % 2 == 1;
    values.restoresState = index % 2 == 0;
    values.opensMissingWindow = true;
    return std::make_unique<WindowPlacement>(values);
}

} // namespace

std::unique_ptr<WorkspaceStore> openStore(const QString& folder, const StoreOptions& options)
{
    auto store = WorkspaceStore::open(folder, options);
    if (!store)
        qFatal("%s", qPrintable(storeOpeningFailureText(store.error()).productText()));
    return std::move(*store);
}

void copyVersion1Store(const QString& folder)
{
    const QString original = QFINDTESTDATA("../../tests/model/data/version1.store");
    const QString path = StoreFiles(folder).storePath();
    if (!QFile::copy(original, path) ||
        !QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner))
        qFatal("cannot copy %s", qPrintable(original));
}

StoreContents storedContents(const QString& folder)
{
    return contentsOf(openStore(folder, {.isDurable = false})->mainContext());
}

StoreContents contentsOf(const StoreContext& context)
{
    StoreContents contents;
    for (const TrovellWorkspace* workspace : context.workspaces())
        contents.append({workspace->values(), valuesOf(workspace->sortedItems()),
                         valuesOf(workspace->sortedPlacements())});
    return contents;
}

QByteArray digestOf(const StoreContents& contents)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    for (const WorkspaceContents& workspace : contents) {
        writeAll(stream, QList{workspace.values});
        writeAll(stream, workspace.items);
        writeAll(stream, workspace.placements);
    }
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
}

std::unique_ptr<TrovellWorkspace> makeWorkspace(const QString& name, qint64 sortOrder,
                                                int childCount)
{
    auto workspace =
        std::make_unique<TrovellWorkspace>(WorkspaceValues{.name = name, .sortOrder = sortOrder});
    for (int index = 0; index < childCount; ++index) {
        workspace->appendItem(std::make_unique<WorkspaceItem>(itemValues(index)));
        workspace->appendPlacement(makePlacement(index));
    }
    return workspace;
}

void StoreEditor::edit(StoreContext& context)
{
    const QList<TrovellWorkspace*> workspaces = context.workspaces();
    const int choice = workspaces.size() < 3 ? 0 : m_random.bounded(6);
    if (choice == 0) {
        context.insert(makeWorkspace(u"Workspace %1"_s.arg(m_random.bounded(1000)),
                                     workspaces.size(), m_random.bounded(6)));
        return;
    }
    TrovellWorkspace& workspace = *workspaces[m_random.bounded(workspaces.size())];
    if (choice == 1)
        context.remove(workspace);
    else if (choice == 2)
        std::ranges::for_each(workspaces, [this](TrovellWorkspace* each) {
            each->setSortOrder(m_random.bounded(10));
        });
    else
        rewrite(context, workspace);
}

/// As the editor does: all records are new, those that were there keep their ids.
void StoreEditor::rewrite(StoreContext& context, TrovellWorkspace& workspace)
{
    qint64 sortOrder = 0;
    for (WorkspaceItem* item : workspace.sortedItems()) {
        WorkspaceItemValues values = item->values();
        values.sortOrder = sortOrder++;
        values.bookmarkData = QByteArray::number(m_random.generate());
        context.remove(*item);
        if (m_random.bounded(4) > 0)
            workspace.appendItem(std::make_unique<WorkspaceItem>(values));
    }
    workspace.appendItem(std::make_unique<WorkspaceItem>(itemValues(m_random.bounded(10))));
    for (WindowPlacement* placement : workspace.sortedPlacements())
        context.remove(*placement);
    for (int index = m_random.bounded(4); index > 0; --index)
        workspace.appendPlacement(makePlacement(index));
    workspace.setUpdatedAt(workspace.updatedAt().addMSecs(1 + m_random.bounded(100'000)));
}

} // namespace trovell
