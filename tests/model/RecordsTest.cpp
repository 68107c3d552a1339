#include "model/TrovellWorkspace.h"
#include "model/WorkspaceChoices.h"

#include <QSignalSpy>
#include <QtTest>

using namespace trovell;

namespace {

std::unique_ptr<WorkspaceItem> makeItem(const QString& name, qint64 sortOrder)
{
    return std::make_unique<WorkspaceItem>(
        WorkspaceItemValues{.displayName = name, .sortOrder = sortOrder});
}

std::unique_ptr<WindowPlacement> makePlacement(const QString& application, qint64 index)
{
    return std::make_unique<WindowPlacement>(
        WindowPlacementValues{.bundleIdentifier = application, .windowIndexHint = index});
}

std::unique_ptr<TrovellWorkspace>
workspaceWithShortcut(const std::optional<ShortcutDefinition>& shortcut)
{
    auto workspace = std::make_unique<TrovellWorkspace>(WorkspaceValues{});
    workspace->setShortcut(shortcut);
    return workspace;
}

} // namespace

class RecordsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void notifiesOncePerChange();
    void readsUnknownTypesAsFile();
    void decodesShortcuts();
    void sortsStably();
    void duplicatesItems();
    void createsPlacementsFromValues();
    void duplicatesPlacements();
    void startsWithTheChoicesOfTheWorkspace();
    void findsShortcutConflicts();
};

void RecordsTest::notifiesOncePerChange()
{
    TrovellWorkspace workspace({.name = u"Work"_qs});
    WorkspaceItem& item = workspace.appendItem(makeItem(u"Notes"_qs, 0));
    QStringList signalsInOrder;
    connect(&workspace, &TrovellWorkspace::contentChanged, this,
            [&] { signalsInOrder.append(u"content"_qs); });
    connect(&workspace, &Record::changed, this, [&] { signalsInOrder.append(u"workspace"_qs); });
    connect(&item, &Record::changed, this, [&] { signalsInOrder.append(u"item"_qs); });

    workspace.setName(u"Work"_qs);
    item.setBookmarkData(std::nullopt);
    QCOMPARE(signalsInOrder, QStringList());
    // Empty bytes are a value, none is none.
    item.setBookmarkData(QByteArray());
    workspace.setName(u"Play"_qs);
    workspace.appendItem(makeItem(u"Mail"_qs, 1));
    QCOMPARE(signalsInOrder, QStringList({u"content"_qs, u"item"_qs, u"content"_qs, u"workspace"_qs,
                                          u"content"_qs, u"workspace"_qs}));
}

void RecordsTest::readsUnknownTypesAsFile()
{
    for (const QString& text : {u"webLink"_qs, u"Folder"_qs, u"folder "_qs, QString()}) {
        const auto type =
            text == u"webLink"_qs ? WorkspaceItemType::webLink : WorkspaceItemType::file;
        WorkspaceItem item({.typeRawValue = text});
        QCOMPARE(item.type(), type);
        QCOMPARE(item.typeRawValue(), text);
        QCOMPARE(item.duplicate()->typeRawValue(), rawValue(type));
    }
}

void RecordsTest::decodesShortcuts()
{
    TrovellWorkspace workspace({});
    for (const ShortcutDefinition& shortcut :
         {ShortcutDefinition{18, 6144, u"⌃⌥1"_qs}, ShortcutDefinition{4294967295, 0, {}}}) {
        workspace.setShortcut(shortcut);
        QVERIFY(!workspace.shortcutData()->contains('\n'));
        QCOMPARE(workspace.shortcut(), shortcut);
    }
    workspace.setShortcutData(
        QByteArray(R"({"keyCode":1,"modifiers":2,"displayValue":"x","other":true})"));
    QCOMPARE(workspace.shortcut(), (ShortcutDefinition{1, 2, u"x"_qs}));
    for (const char* data :
         {R"({"keyCode":4294967296,"modifiers":0,"displayValue":""})",
          R"({"keyCode":18,"modifiers":-1,"displayValue":""})",
          R"({"keyCode":18.5,"modifiers":0,"displayValue":""})",
          R"({"keyCode":"18","modifiers":0,"displayValue":""})",
          R"({"keyCode":18,"modifiers":0,"displayValue":1})", R"({"keyCode":18,"modifiers":0})",
          R"([{"keyCode":18,"modifiers":0,"displayValue":""}])",
          R"({"keyCode":18,"modifiers":0,"displayValue":")", "", "\xff\xfe\x01"}) {
        workspace.setShortcutData(QByteArray(data));
        QVERIFY2(!workspace.shortcut(), data);
        QCOMPARE(workspace.shortcutData(), QByteArray(data));
    }
}

void RecordsTest::sortsStably()
{
    TrovellWorkspace workspace({});
    for (const auto& [name, order] :
         {std::pair(u"a"_qs, 2), {u"b"_qs, 0}, {u"c"_qs, 1}, {u"d"_qs, 0}, {u"e"_qs, -3}})
        workspace.appendItem(makeItem(name, order));
    QString names;
    for (const WorkspaceItem* item : workspace.sortedItems())
        names += item->displayName();
    QCOMPARE(names, u"ebdca"_qs);

    // Windows are ordered by index alone, whatever their application.
    workspace.appendPlacement(makePlacement(u"one"_qs, 1));
    workspace.appendPlacement(makePlacement(u"one"_qs, 0));
    workspace.appendPlacement(makePlacement(u"two"_qs, 0));
    QStringList applications;
    for (const WindowPlacement* placement : workspace.sortedPlacements())
        applications.append(placement->bundleIdentifier());
    QCOMPARE(applications, QStringList({u"one"_qs, u"two"_qs, u"one"_qs}));
}

void RecordsTest::duplicatesItems()
{
    TrovellWorkspace workspace({});
    const QDateTime created = QDateTime::fromMSecsSinceEpoch(1, Qt::UTC);
    const WorkspaceItem& item = workspace.appendItem(std::make_unique<WorkspaceItem>(
        WorkspaceItemValues{.typeRawValue = u"application"_qs,
                            .sortOrder = 3,
                            .bookmarkData = QByteArray("mark"),
                            .applicationPath = u"/editor.desktop"_qs,
                            .isEnabled = false,
                            .createdAt = created}));
    const auto copy = item.duplicate();
    QVERIFY(copy->id() != item.id());
    QVERIFY(copy->createdAt() > created);
    QVERIFY(!copy->workspace());
    WorkspaceItemValues expected = item.values();
    expected.id = copy->id();
    expected.createdAt = copy->createdAt();
    QCOMPARE(copy->values(), expected);
    QCOMPARE(item.duplicate(5)->sortOrder(), 5);
}

void RecordsTest::createsPlacementsFromValues()
{
    const DisplayFingerprint display{u"Panel"_qs, 100, 200, 50, 100, 2, 0, 0, false};
    const WindowPlacement placement(u"org.example.Editor"_qs, u"Editor"_qs, u"Title"_qs,
                                    std::nullopt, std::nullopt, 7, {.1, .2, .3, .4},
                                    QRectF(10, 20, -100, 50), display, false);
    QCOMPARE(placement.savedNormalizedFrame(), (NormalizedFrame{.1, .2, .3, .4}));
    QCOMPARE(placement.savedAbsoluteFrame(), QRectF(-90, 20, 100, 50));
    QCOMPARE(placement.savedDisplayFingerprint(), display);

    DisplayFingerprint unencodable = display;
    unencodable.pointWidth = qQNaN();
    const WindowPlacement other({}, {}, {}, {}, {}, 0, {}, {}, unencodable, true);
    QCOMPARE(other.displayFingerprintData(), QByteArray());
    QCOMPARE(other.savedDisplayFingerprint(), fallbackFingerprint());
}

void RecordsTest::duplicatesPlacements()
{
    const WindowPlacement placement({.bundleIdentifier = u"org.example.Editor"_qs,
                                     .windowSubrole = u"AXDialog"_qs,
                                     .normalizedX = .5,
                                     .displayFingerprintData = "nonsense",
                                     .isEnabled = false});
    const auto copy = placement.duplicate();
    QVERIFY(copy->id() != placement.id());
    WindowPlacementValues expected = placement.values();
    expected.id = copy->id();
    expected.displayFingerprintData = encodeFingerprint(fallbackFingerprint());
    QCOMPARE(copy->values(), expected);
}

void RecordsTest::startsWithTheChoicesOfTheWorkspace()
{
    QCOMPARE(WorkspaceChoices{}, (WorkspaceChoices{u"rectangle.3.group"_qs, u"blue"_qs, 0}));
    const auto workspace = workspaceWithShortcut(shortcuts()[5]);
    workspace->setSymbolName(u"unknown.symbol"_qs);
    workspace->setAccentIdentifier(u"mauve"_qs);
    QCOMPARE(choicesOf(*workspace), (WorkspaceChoices{u"unknown.symbol"_qs, u"mauve"_qs, 5}));
    QCOMPARE(choicesOf(*workspace).shortcut(), shortcuts()[5]);

    workspace->setShortcut(ShortcutDefinition{23, 6144, u"Ctrl+Alt+5"_qs});
    QCOMPARE(choicesOf(*workspace).shortcutIndex, 0);
    workspace->setShortcutData(QByteArray("nonsense"));
    QCOMPARE(choicesOf(*workspace).shortcutIndex, 0);
    QVERIFY(!choicesOf(*workspace).shortcut());
}

void RecordsTest::findsShortcutConflicts()
{
    const auto first = workspaceWithShortcut(shortcuts()[1]);
    const auto none = workspaceWithShortcut(std::nullopt);
    const auto broken = workspaceWithShortcut(std::nullopt);
    broken->setShortcutData(QByteArray("nonsense"));
    const auto renamed = workspaceWithShortcut(ShortcutDefinition{19, 6144, u"2"_qs});
    const QList<TrovellWorkspace*> all{none.get(), broken.get(), first.get(), renamed.get()};
    QVERIFY(shortcutConflict(*shortcuts()[1], none->id(), all));
    QVERIFY(shortcutConflict(*shortcuts()[1], std::nullopt, all));
    QVERIFY(!shortcutConflict(*shortcuts()[1], first->id(), all));
    QVERIFY(!shortcutConflict(*shortcuts()[2], std::nullopt, all));
    QCOMPARE(shortcutConflictText(), u"That shortcut is already assigned to another workspace."_qs);
}

QTEST_GUILESS_MAIN(RecordsTest)
#include "RecordsTest.moc"
