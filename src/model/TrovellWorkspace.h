// SPDX-License-Identifier: MIT
//
// A workspace: a named set of launch items and a saved window layout, which it owns. Main thread
// only.
#pragma once

#include "model/Record.h"
#include "model/RecordId.h"
#include "model/ShortcutDefinition.h"
#include "model/ToMany.h"
#include "model/WindowPlacement.h"
#include "model/WorkspaceItem.h"

#include <QDateTime>

#include <optional>

namespace trovell {

using namespace Qt::StringLiterals;

struct WorkspaceValues {
    QUuid id = makeRecordId();
    QString name = {};
    /// Name of the symbol shown beside the workspace.
    QString symbolName = u"rectangle.3.group"_s;
    /// Identifier of its accent colour.
    QString accentIdentifier = u"blue"_s;
    /// Position in every list of workspaces, ascending; gaps are allowed.
    qint64 sortOrder = 0;
    /// Instants in UTC.
    QDateTime createdAt = QDateTime::currentDateTimeUtc();
    /// Set by every edit and every start of the workspace.
    QDateTime updatedAt = createdAt;
    /// None until the first completed start.
    std::optional<QDateTime> lastLaunchedAt = {};
    /// An encoded `ShortcutDefinition`; none without a shortcut.
    std::optional<QByteArray> shortcutData = {};

    bool operator==(const WorkspaceValues&) const = default;
};

class TrovellWorkspace final : public RecordOf<WorkspaceValues> {
    Q_OBJECT

public:
    /// A record of its own, without items and placements, in no store yet.
    explicit TrovellWorkspace(WorkspaceValues values);

    [[nodiscard]] const QString& name() const { return values().name; }
    [[nodiscard]] const QString& symbolName() const { return values().symbolName; }
    [[nodiscard]] const QString& accentIdentifier() const { return values().accentIdentifier; }
    [[nodiscard]] qint64 sortOrder() const { return values().sortOrder; }
    [[nodiscard]] const QDateTime& createdAt() const { return values().createdAt; }
    [[nodiscard]] const QDateTime& updatedAt() const { return values().updatedAt; }
    [[nodiscard]] const std::optional<QDateTime>& lastLaunchedAt() const;
    [[nodiscard]] const std::optional<QByteArray>& shortcutData() const;

    void setName(const QString& name) { write(&Values::name, name); }
    void setSymbolName(const QString& name) { write(&Values::symbolName, name); }
    void setAccentIdentifier(const QString& id) { write(&Values::accentIdentifier, id); }
    void setSortOrder(qint64 order) { write(&Values::sortOrder, order); }
    void setCreatedAt(const QDateTime& instant) { write(&Values::createdAt, instant.toUTC()); }
    void setUpdatedAt(const QDateTime& instant) { write(&Values::updatedAt, instant.toUTC()); }
    void setLastLaunchedAt(const std::optional<QDateTime>& instant);
    void setShortcutData(const std::optional<QByteArray>& data);

    /// None without a shortcut and for bytes that cannot be decoded.
    [[nodiscard]] std::optional<ShortcutDefinition> shortcut() const;
    void setShortcut(const std::optional<ShortcutDefinition>& shortcut);

    /// Ascending by `sortOrder`; equal ones in the order in which they were appended. In a store,
    /// read on first use: empty when that fails, which the store context reports and which its
    /// saves refuse until a rollback.
    [[nodiscard]] QList<WorkspaceItem*> sortedItems() const;
    /// The same by `windowIndexHint`, whatever the application.
    [[nodiscard]] QList<WindowPlacement*> sortedPlacements() const;
    /// In the order in which they were appended.
    [[nodiscard]] QList<WindowPlacement*> placementsInOrder() const { return m_placements.live(); }

    /// These never read the items and placements.
    [[nodiscard]] qint64 itemCount() const { return m_items.counts().all; }
    [[nodiscard]] qint64 enabledItemCount() const { return m_items.counts().enabled; }
    [[nodiscard]] qint64 placementCount() const { return m_placements.counts().all; }
    [[nodiscard]] qint64 enabledPlacementCount() const { return m_placements.counts().enabled; }

    /// The workspace takes ownership; the record stays where it is in memory.
    WorkspaceItem& appendItem(std::unique_ptr<WorkspaceItem> item);
    WindowPlacement& appendPlacement(std::unique_ptr<WindowPlacement> placement);

    /// For the store's writing: what is in memory, removed records included.
    [[nodiscard]] const ToMany<WorkspaceItem>& items() const { return m_items; }
    [[nodiscard]] const ToMany<WindowPlacement>& placements() const { return m_placements; }

Q_SIGNALS:
    /// Something of this workspace or of its items and placements changed. Comes before the
    /// `changed` of the record.
    void contentChanged();

private:
    friend class Record;
    friend class StoreContext;

    void noteContentChange();

    /// Tells the store context that there is something to save; empty outside a store.
    std::function<void()> m_noteUnsaved;
    // Reading on first use is not a change anyone can observe.
    mutable ToMany<WorkspaceItem> m_items;
    mutable ToMany<WindowPlacement> m_placements;
};

} // namespace trovell
