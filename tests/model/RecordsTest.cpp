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
    void createsWithDefaults();
    void notifiesOncePerChange();
    void readsUnknownTypesAsFile_data();
    void readsUnknownTypesAsFile();
    void decodesShortcuts_data();
    void decodesShortcuts();
    void writesShortcuts();
    void sortsStably();
    void duplicatesItems();
    void createsPlacementsFromValues();
    void duplicatesPlacements();
    void ownsWhatWasAppended();
    void offersShortcutsInOrder();
    void startsWithTheChoicesOfTheWorkspace();
    void findsShortcutConflicts();
};

void RecordsTest::createsWithDefaults()
{
    const QDateTime before = QDateTime::currentDateTimeUtc();
    const TrovellWorkspace workspace({.name = u"Work"_qs, .sortOrder = 4});
    const TrovellWorkspace other({});
    QVERIFY(workspace.id() != other.id());
    QCOMPARE(workspace.symbolName(), symbols().first());
    QCOMPARE(workspace.accentIdentifier(), accents().first());
    QVERIFY(workspace.createdAt() >= before);
    QCOMPARE(workspace.createdAt(), workspace.updatedAt());
    QCOMPARE(workspace.createdAt().timeSpec(), Qt::UTC);
    QVERIFY(!workspace.lastLaunchedAt() && !workspace.shortcut());
}

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

void RecordsTest::readsUnknownTypesAsFile_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<WorkspaceItemType>("type");
    QTest::newRow("application") << u"application"_qs << WorkspaceItemType::application;
    QTest::newRow("folder") << u"folder"_qs << WorkspaceItemType::folder;
    QTest::newRow("file") << u"file"_qs << WorkspaceItemType::file;
    QTest::newRow("webLink") << u"webLink"_qs << WorkspaceItemType::webLink;
    QTest::newRow("other case") << u"Folder"_qs << WorkspaceItemType::file;
    QTest::newRow("space") << u"folder "_qs << WorkspaceItemType::file;
    QTest::newRow("empty") << QString() << WorkspaceItemType::file;
}

void RecordsTest::readsUnknownTypesAsFile()
{
    QFETCH(QString, text);
    QFETCH(WorkspaceItemType, type);
    WorkspaceItem item({.typeRawValue = text});
    QCOMPARE(item.type(), type);
    QCOMPARE(item.typeRawValue(), text);
    QCOMPARE(item.duplicate()->typeRawValue(), rawValue(type));
    item.setType(type);
    QCOMPARE(item.typeRawValue(), rawValue(type));
}

void RecordsTest::decodesShortcuts_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<std::optional<ShortcutDefinition>>("expected");
    const auto none = std::optional<ShortcutDefinition>();
    const auto some = [](quint32 keyCode, quint32 modifiers, const QString& text) {
        return std::optional(ShortcutDefinition{keyCode, modifiers, text});
    };
    const auto row = [](const char* name, const char* data, const auto& expected) {
        QTest::newRow(name) << QByteArray(data) << expected;
    };
    row("plain", R"({"keyCode":18,"modifiers":6144,"displayValue":"⌃⌥1"})",
        some(18, 6144, u"⌃⌥1"_qs));
    row("largest", R"({"keyCode":4294967295,"modifiers":0,"displayValue":""})",
        some(4294967295, 0, {}));
    row("unknown member", R"({"keyCode":1,"modifiers":2,"displayValue":"x","other":true})",
        some(1, 2, u"x"_qs));
    row("too large", R"({"keyCode":4294967296,"modifiers":0,"displayValue":""})", none);
    row("negative", R"({"keyCode":18,"modifiers":-1,"displayValue":""})", none);
    row("fraction", R"({"keyCode":18.5,"modifiers":0,"displayValue":""})", none);
    row("huge", R"({"keyCode":1e300,"modifiers":0,"displayValue":""})", none);
    row("text for number", R"({"keyCode":"18","modifiers":0,"displayValue":""})", none);
    row("boolean for number", R"({"keyCode":true,"modifiers":0,"displayValue":""})", none);
    row("number for text", R"({"keyCode":18,"modifiers":0,"displayValue":1})", none);
    row("null", R"({"keyCode":18,"modifiers":null,"displayValue":""})", none);
    row("missing code", R"({"modifiers":0,"displayValue":""})", none);
    row("missing modifiers", R"({"keyCode":18,"displayValue":""})", none);
    row("missing text", R"({"keyCode":18,"modifiers":0})", none);
    row("other case", R"({"keycode":18,"modifiers":0,"displayValue":""})", none);
    row("array", R"([{"keyCode":18,"modifiers":0,"displayValue":""}])", none);
    row("two objects", R"({"keyCode":18,"modifiers":0,"displayValue":""}{})", none);
    row("cut off", R"({"keyCode":18,"modifiers":0,"displayValue":")", none);
    row("no text", "", none);
    row("not text", "\xff\xfe\x01", none);
}

void RecordsTest::decodesShortcuts()
{
    QFETCH(QByteArray, data);
    QFETCH(std::optional<ShortcutDefinition>, expected);
    TrovellWorkspace workspace({.shortcutData = data});
    QCOMPARE(workspace.shortcut(), expected);
    QCOMPARE(workspace.shortcutData(), data);
    workspace.setShortcut(shortcuts()[1]);
    QCOMPARE(workspace.shortcut(), shortcuts()[1]);
}

void RecordsTest::writesShortcuts()
{
    TrovellWorkspace workspace({});
    QSignalSpy changes(&workspace, &Record::changed);
    workspace.setShortcut(ShortcutDefinition{4294967295, 6144, {}});
    QCOMPARE(changes.count(), 1);
    const QJsonObject object = QJsonDocument::fromJson(*workspace.shortcutData()).object();
    QCOMPARE(object, QJsonObject({{u"keyCode"_qs, qint64(4294967295)},
                                  {u"modifiers"_qs, 6144},
                                  {u"displayValue"_qs, QString()}}));
    QVERIFY(!workspace.shortcutData()->contains('\n'));
    workspace.setShortcut(std::nullopt);
    QVERIFY(!workspace.shortcutData());
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
                            .displayName = u"Editor"_qs,
                            .sortOrder = 3,
                            .urlString = u"file:///editor.desktop"_qs,
                            .bookmarkData = QByteArray("mark"),
                            .bundleIdentifier = u"org.example.Editor"_qs,
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
    QCOMPARE(placement.absoluteX(), -90);
    QCOMPARE(placement.absoluteY(), 20);
    QCOMPARE(placement.absoluteWidth(), 100);
    QCOMPARE(placement.absoluteHeight(), 50);
    QCOMPARE(placement.savedAbsoluteFrame(), QRectF(-90, 20, 100, 50));
    QCOMPARE(placement.savedDisplayFingerprint(), display);
    QCOMPARE(placement.windowIndexHint(), 7);
    QCOMPARE(placement.windowTitleHint(), u"Title"_qs);
    QVERIFY(!placement.isEnabled() && !placement.windowRole() && !placement.workspace());

    DisplayFingerprint unencodable = display;
    unencodable.pointWidth = qQNaN();
    const WindowPlacement other({}, {}, {}, {}, {}, 0, {}, {}, unencodable, true);
    QCOMPARE(other.displayFingerprintData(), QByteArray());
    QCOMPARE(other.savedDisplayFingerprint(), fallbackFingerprint());
}

void RecordsTest::duplicatesPlacements()
{
    const WindowPlacement placement({.bundleIdentifier = u"org.example.Editor"_qs,
                                     .applicationName = u"Editor"_qs,
                                     .windowTitleHint = u"Title"_qs,
                                     .windowRole = u"AXWindow"_qs,
                                     .windowSubrole = u"AXDialog"_qs,
                                     .windowIndexHint = 2,
                                     .normalizedX = .5,
                                     .absoluteWidth = 300,
                                     .displayFingerprintData = "nonsense",
                                     .isEnabled = false});
    const auto copy = placement.duplicate();
    QVERIFY(copy->id() != placement.id());
    WindowPlacementValues expected = placement.values();
    expected.id = copy->id();
    expected.displayFingerprintData = encodeFingerprint(fallbackFingerprint());
    QCOMPARE(copy->values(), expected);
}

void RecordsTest::ownsWhatWasAppended()
{
    QPointer<WorkspaceItem> item;
    {
        TrovellWorkspace workspace({});
        item = &workspace.appendItem(makeItem(u"Notes"_qs, 0));
        QCOMPARE(item->workspace(), &workspace);
        QCOMPARE(workspace.itemCount(), 1);
    }
    QVERIFY(!item);
}

void RecordsTest::offersShortcutsInOrder()
{
    QList<quint32> keyCodes;
    QStringList texts;
    for (const auto& shortcut : shortcuts().mid(1)) {
        QCOMPARE(shortcut->modifiers, 6144u);
        keyCodes.append(shortcut->keyCode);
        texts.append(shortcut->displayValue);
    }
    QVERIFY(!shortcuts().first());
    QCOMPARE(keyCodes, QList<quint32>({18, 19, 20, 21, 23}));
    QCOMPARE(texts, QStringList({u"⌃⌥1"_qs, u"⌃⌥2"_qs, u"⌃⌥3"_qs, u"⌃⌥4"_qs, u"⌃⌥5"_qs}));
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
