// SPDX-License-Identifier: MIT

#include "model/TrovellWorkspace.h"
#include "model/WorkspaceChoices.h"

#include <QSignalSpy>
#include <QtTest>

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

std::unique_ptr<WorkspaceItem> makeItem(const QString& name, qint64 sortOrder)
{
    return std::make_unique<WorkspaceItem>(
        WorkspaceItemValues{.displayName = name, .sortOrder = sortOrder});
}

} // namespace

class RecordsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void notifiesOncePerChange();
    void decodesShortcuts();
    void sortsStably();
    void duplicatesRecords();
    void findsShortcutConflicts();
    void makesIdsThatFollowTheClock();
};

void RecordsTest::notifiesOncePerChange()
{
    TrovellWorkspace workspace({.name = u"Work"_s});
    WorkspaceItem& item = workspace.appendItem(makeItem(u"Notes"_s, 0));
    QStringList signalsInOrder;
    connect(&workspace, &TrovellWorkspace::contentChanged, this,
            [&] { signalsInOrder.append(u"content"_s); });
    connect(&workspace, &Record::changed, this, [&] { signalsInOrder.append(u"workspace"_s); });
    connect(&item, &Record::changed, this, [&] { signalsInOrder.append(u"item"_s); });

    workspace.setName(u"Work"_s);
    item.setBookmarkData(std::nullopt);
    QCOMPARE(signalsInOrder, QStringList());
    // Empty bytes are a value, none is none.
    item.setBookmarkData(QByteArray());
    workspace.setName(u"Play"_s);
    workspace.appendItem(makeItem(u"Mail"_s, 1));
    QCOMPARE(signalsInOrder, QStringList({u"content"_s, u"item"_s, u"content"_s, u"workspace"_s,
                                          u"content"_s, u"workspace"_s}));
}

void RecordsTest::decodesShortcuts()
{
    TrovellWorkspace workspace({});
    for (const ShortcutDefinition& shortcut :
         {ShortcutDefinition{18, 6144, u"⌃⌥1"_s}, ShortcutDefinition{4294967295, 0, {}}}) {
        workspace.setShortcut(shortcut);
        QVERIFY(!workspace.shortcutData()->contains('\n'));
        QCOMPARE(workspace.shortcut(), shortcut);
    }
    workspace.setShortcutData(
        QByteArray(R"({"keyCode":1,"modifiers":2,"displayValue":"x","other":true})"));
    QCOMPARE(workspace.shortcut(), (ShortcutDefinition{1, 2, u"x"_s}));
    for (const char* data : {R"({"keyCode":4294967296,"modifiers":0,"displayValue":""})",
                             R"({"keyCode":"18","modifiers":0,"displayValue":""})",
                             R"({"keyCode":18,"modifiers":0})", "[]", "", "\xff\xfe\x01"}) {
        workspace.setShortcutData(QByteArray(data));
        QVERIFY2(!workspace.shortcut(), data);
        QCOMPARE(workspace.shortcutData(), QByteArray(data));
    }
}

void RecordsTest::sortsStably()
{
    TrovellWorkspace workspace({});
    for (const auto& [name, order] :
         {std::pair(u"a"_s, 2), {u"b"_s, 0}, {u"c"_s, 1}, {u"d"_s, 0}, {u"e"_s, -3}}) {
        workspace.appendItem(makeItem(name, order));
        // Windows are ordered by index alone, whatever their application.
        workspace.appendPlacement(std::make_unique<WindowPlacement>(
            WindowPlacementValues{.bundleIdentifier = name, .windowIndexHint = order}));
    }
    QString names;
    for (const WorkspaceItem* item : workspace.sortedItems())
        names += item->displayName();
    for (const WindowPlacement* placement : workspace.sortedPlacements())
        names += placement->bundleIdentifier();
    QCOMPARE(names, u"ebdcaebdca"_s);
}

void RecordsTest::duplicatesRecords()
{
    TrovellWorkspace workspace({});
    const QDateTime created = QDateTime::fromMSecsSinceEpoch(1).toUTC();
    const WorkspaceItem& item = workspace.appendItem(
        std::make_unique<WorkspaceItem>(WorkspaceItemValues{.typeRawValue = u"a type to come"_s,
                                                            .sortOrder = 3,
                                                            .bookmarkData = QByteArray("mark"),
                                                            .isEnabled = false,
                                                            .createdAt = created,
                                                            .openWith = u"org.example.Editor"_s}));
    QCOMPARE(item.type(), WorkspaceItemType::file);
    const auto copy = item.duplicate(5);
    QVERIFY(copy->id() != item.id() && copy->createdAt() > created && !copy->workspace());
    WorkspaceItemValues expected = item.values();
    expected.id = copy->id();
    expected.createdAt = copy->createdAt();
    expected.sortOrder = 5;
    expected.typeRawValue = rawValue(WorkspaceItemType::file);
    QCOMPARE(copy->values(), expected);

    const WindowPlacement placement({.bundleIdentifier = u"org.example.Editor"_s,
                                     .normalizedX = .5,
                                     .displayFingerprintData = "nonsense",
                                     .isEnabled = false,
                                     .windowStates = u"above"_s,
                                     .restoresState = false});
    const auto other = placement.duplicate();
    QVERIFY(other->id() != placement.id());
    WindowPlacementValues values = placement.values();
    values.id = other->id();
    values.displayFingerprintData = encodeFingerprint(fallbackFingerprint());
    QCOMPARE(other->values(), values);
}

void RecordsTest::findsShortcutConflicts()
{
    TrovellWorkspace first({});
    TrovellWorkspace broken({});
    first.setShortcut(shortcuts()[1]);
    broken.setShortcutData(QByteArray("nonsense"));
    const QList<TrovellWorkspace*> all{&broken, &first};
    QVERIFY(shortcutConflict(*shortcuts()[1], broken.id(), all));
    QVERIFY(!shortcutConflict(*shortcuts()[1], first.id(), all));
    QVERIFY(!shortcutConflict(*shortcuts()[2], std::nullopt, all));
    QCOMPARE(choicesOf(broken).shortcutIndex, 0);
}

void RecordsTest::makesIdsThatFollowTheClock()
{
    const QByteArray before = QByteArray::number(QDateTime::currentMSecsSinceEpoch(), 16);
    const QUuid id = makeRecordId();
    const QByteArray after = QByteArray::number(QDateTime::currentMSecsSinceEpoch(), 16);
    // The stored form begins with 48 bits of milliseconds.
    const QByteArray milliseconds = id.toRfc4122().left(6).toHex().mid(1);
    QVERIFY(milliseconds >= before && milliseconds <= after);
    QCOMPARE(id.variant(), QUuid::DCE);
    QCOMPARE(id.toString(QUuid::WithoutBraces).at(14), u'7');
    QVERIFY(id != makeRecordId());
}

QTEST_GUILESS_MAIN(RecordsTest)
#include "RecordsTest.moc"
