#include "support/StoreContents.h"

#include "model/RecordColumns.h"

#include <QCryptographicHash>

#include <limits>

namespace trovell {

namespace {

QByteArray bytesOf(const QByteArray& value)
{
    return value;
}

QByteArray bytesOf(const QString& value)
{
    return value.toUtf8();
}

QByteArray bytesOf(const QUuid& value)
{
    return value.toRfc4122();
}

QByteArray bytesOf(const QDateTime& value)
{
    return QByteArray::number(value.toMSecsSinceEpoch());
}

QByteArray bytesOf(double value)
{
    // Storing drops the sign of zero, which compares equal.
    return QByteArray::number(value + 0.0, 'g', 17);
}

template <std::integral T> QByteArray bytesOf(T value)
{
    return QByteArray::number(static_cast<qint64>(value));
}

template <class T> QByteArray bytesOf(const std::optional<T>& value)
{
    return value ? "some " + bytesOf(*value) : QByteArray("none");
}

template <class Values> void addValues(QCryptographicHash& hash, const Values& values)
{
    forEachColumn<Values>([&](const auto& column) {
        const QByteArray bytes = bytesOf(values.*column.attribute);
        hash.addData(QByteArray::number(bytes.size()) + ':' + bytes);
    });
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
        .displayName = u"Item “%1” — ünï\u0000code 🗂"_qs.arg(index),
        .sortOrder = index,
        .urlString = u"file:///home/someone/Folder%20%1"_qs.arg(index),
        .isEnabled = index % 2 == 0,
    };
    if (index % 3 == 0)
        values.bookmarkData = QByteArray("\0bookmark\xff", 10).repeated(1 + 40 * index);
    if (index % 3 == 1)
        values.bundleIdentifier = QString();
    if (index % 4 == 2)
        values.applicationPath = u"/usr/share/applications/thing.desktop"_qs;
    return values;
}

std::unique_ptr<WindowPlacement> makePlacement(int index)
{
    const DisplayFingerprint display{u"Display"_qs, 3840, 2160, 1920, 1080, 2, -0.1, 0, index == 0};
    auto placement = std::make_unique<WindowPlacement>(
        u"org.example.Editor"_qs, u"Editor"_qs,
        index % 2 == 0 ? std::optional(u"Window %1"_qs.arg(index)) : std::nullopt, u"AXWindow"_qs,
        std::nullopt, index, NormalizedFrame{0.1, -0.0, 1.0 / 3, index * 1.5},
        QRectF(-1e9 / 7, 1e-300, 640, 480.5), display, true);
    placement->setAbsoluteX(index == 1 ? std::numeric_limits<double>::infinity() : 3);
    return placement;
}

} // namespace

std::unique_ptr<WorkspaceStore> openStore(const QString& folder, const StoreOptions& options)
{
    auto store = WorkspaceStore::open(folder, options);
    if (!store)
        qFatal("%s", qPrintable(storeOpeningFailureText(store.error())));
    return std::move(*store);
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
    QCryptographicHash hash(QCryptographicHash::Sha1);
    for (const WorkspaceContents& workspace : contents) {
        hash.addData("workspace");
        addValues(hash, workspace.values);
        for (const WorkspaceItemValues& item : workspace.items)
            addValues(hash, item);
        for (const WindowPlacementValues& placement : workspace.placements)
            addValues(hash, placement);
    }
    return hash.result().toHex();
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
    m_editCount += 1;
    const QList<TrovellWorkspace*> workspaces = context.workspaces();
    if (workspaces.size() < 3) {
        context.insert(makeWorkspace(u"Workspace %1"_qs.arg(m_editCount), workspaces.size(),
                                     m_random.bounded(6)));
        return;
    }
    TrovellWorkspace& workspace = *workspaces[m_random.bounded(workspaces.size())];
    switch (m_random.bounded(6)) {
    case 0:
        context.insert(makeWorkspace(u"Work"_qs, workspaces.size(), m_random.bounded(6)));
        break;
    case 1:
        context.remove(workspace);
        break;
    case 2:
        rewriteItems(context, workspace);
        break;
    case 3:
        clearLayout(context, workspace);
        break;
    case 4:
        reorder(workspaces);
        break;
    default:
        stamp(workspace);
    }
}

/// As the editor does: all records are new, those that were there keep their ids.
void StoreEditor::rewriteItems(StoreContext& context, TrovellWorkspace& workspace)
{
    qint64 sortOrder = 0;
    for (WorkspaceItem* item : workspace.sortedItems()) {
        WorkspaceItemValues values = item->values();
        values.sortOrder = sortOrder++;
        context.remove(*item);
        if (m_random.bounded(4) > 0)
            workspace.appendItem(std::make_unique<WorkspaceItem>(values));
    }
    workspace.appendItem(std::make_unique<WorkspaceItem>(itemValues(m_random.bounded(10))));
    stamp(workspace);
}

void StoreEditor::clearLayout(StoreContext& context, TrovellWorkspace& workspace)
{
    for (WindowPlacement* placement : workspace.sortedPlacements())
        context.remove(*placement);
    for (int index = m_random.bounded(4); index > 0; --index)
        workspace.appendPlacement(makePlacement(index));
    stamp(workspace);
}

void StoreEditor::stamp(TrovellWorkspace& workspace)
{
    const QDateTime instant = workspace.updatedAt().addMSecs(1 + m_random.bounded(100'000));
    workspace.setLastLaunchedAt(instant);
    workspace.setUpdatedAt(instant);
    for (WorkspaceItem* item : workspace.sortedItems()) {
        if (m_random.bounded(3) == 0)
            item->setBookmarkData(QByteArray::number(m_random.generate()));
    }
}

void StoreEditor::reorder(const QList<TrovellWorkspace*>& workspaces)
{
    const qint64 offset = m_random.bounded(1, 10);
    for (qsizetype index = 0; index < workspaces.size(); ++index)
        workspaces[index]->setSortOrder((index + offset) % workspaces.size());
}

} // namespace trovell
