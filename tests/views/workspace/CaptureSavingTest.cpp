#include "views/workspace/CaptureSaving.h"

#include "support/StoreContents.h"
#include "views/support/ViewFixture.h"
#include "views/workspace/CaptureWindowMiniature.h"

using namespace trovell;
using trovell::test::ViewFixture;

namespace {

QString desktopFile(const QString& identifier)
{
    return u"file:///applications/%1.desktop"_qs.arg(identifier);
}

CapturedApplication application(const QString& identifier, const QStringList& titles)
{
    CapturedApplication captured;
    captured.bundleIdentifier = captured.applicationName = identifier;
    captured.applicationURLString = desktopFile(identifier);
    const QRectF screen(0, 0, 1000, 800);
    for (const QString& title : titles) {
        CapturedWindow window;
        window.bundleIdentifier = window.applicationName = identifier;
        window.windowTitle = title;
        window.frame = QRectF(100, 200, 500, 400);
        window.display.frame = screen;
        window.display.visibleFrame = screen;
        captured.windows.append(window);
    }
    return captured;
}

QStringList titles(const TrovellWorkspace& workspace)
{
    QStringList titles;
    for (const WindowPlacement* placement : placementsInOrder(workspace))
        titles.append(placement->windowTitleHint().value_or(QString()));
    return titles;
}

QStringList itemNames(const TrovellWorkspace& workspace)
{
    QStringList names;
    for (const WorkspaceItem* item : workspace.sortedItems())
        names.append(u"%1 %2"_qs.arg(item->sortOrder()).arg(item->displayName()));
    return names;
}

struct Saving {
    ViewFixture fixture;
    CaptureDraft draft;

    /// As the sheet does after a capture.
    void capture(CapturePurpose purpose, TrovellWorkspace* workspace,
                 const QList<CapturedApplication>& applications)
    {
        draft = makeCaptureDraft(purpose, workspace);
        draft.applications = applications;
        draft.retainedPlacements = *buildRetainedPlacements(purpose, workspace, applications);
    }

    Expected<SavedCapture, QString> save(CapturePurpose purpose, TrovellWorkspace* workspace)
    {
        return saveCapture(purpose, draft, workspace, fixture.context(), *fixture.resources);
    }
};

} // namespace

class CaptureSavingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void offersSavingOnlyWithSomethingToSave_data();
    void offersSavingOnlyWithSomethingToSave();
    void limitsAnUpdateToTheApplicationsOfTheWorkspace();
    void keepsTheLayoutOfClosedApplications();
    void deletesPositionsThatAreNotKept();
    void replacesTheLayoutOfDetectedApplicationsEvenWhenUnchecked();
    void createsItemsAndPlacements();
    void findsApplicationsByIdentifier();
    void startsAVariantFromItsSource();
    void refusesTheShortcutOfAnotherWorkspace();
    void writesNothingForAnUnavailableApplication();
    void writesNothingWhenTheStoreFails();
    void saysThatTheWorkspaceIsGone();
    void drawsWindowsWhereTheyStand_data();
    void drawsWindowsWhereTheyStand();
};

void CaptureSavingTest::offersSavingOnlyWithSomethingToSave_data()
{
    QTest::addColumn<CapturePurpose>("purpose");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isApplicationIncluded");
    QTest::addColumn<bool>("isLaunchItem");
    QTest::addColumn<bool>("isWindowIncluded");
    QTest::addColumn<bool>("isPositionKept");
    QTest::addColumn<bool>("isDisabled");
    const auto create = CapturePurpose::create;
    const auto variant = CapturePurpose::saveAsNew;
    QTest::newRow("blank name") << create << u" \n"_qs << true << true << true << true << true;
    QTest::newRow("only a launch item")
        << create << u"a"_qs << true << true << false << false << false;
    QTest::newRow("only a window") << create << u"a"_qs << true << false << true << false << false;
    QTest::newRow("nothing") << create << u"a"_qs << true << false << false << false << true;
    QTest::newRow("all in an excluded application")
        << create << u"a"_qs << false << true << true << false << true;
    QTest::newRow("only a position")
        << variant << u"a"_qs << false << true << true << true << false;
    QTest::newRow("update with nothing")
        << CapturePurpose::update << u""_qs << false << false << false << false << false;
}

void CaptureSavingTest::offersSavingOnlyWithSomethingToSave()
{
    QFETCH(CapturePurpose, purpose);
    QFETCH(QString, name);
    QFETCH(bool, isApplicationIncluded);
    QFETCH(bool, isLaunchItem);
    QFETCH(bool, isWindowIncluded);
    QFETCH(bool, isPositionKept);
    CaptureDraft draft{.name = name, .applications = {application(u"editor"_qs, {u"a"_qs})}};
    draft.applications[0].isIncluded = isApplicationIncluded;
    draft.applications[0].addAsLaunchItem = isLaunchItem;
    draft.applications[0].windows[0].isIncluded = isWindowIncluded;
    draft.retainedPlacements = {{.isKept = isPositionKept}};
    QTEST(isSaveDisabled(purpose, draft), "isDisabled");
}

void CaptureSavingTest::limitsAnUpdateToTheApplicationsOfTheWorkspace()
{
    ViewFixture fixture;
    TrovellWorkspace& workspace = fixture.addWorkspace(u"Work"_qs);
    QCOMPARE(captureFilter(CapturePurpose::update, &workspace), QSet<QString>());
    fixture.addItem(workspace, WorkspaceItemType::application, u"editor"_qs);
    fixture.addItem(workspace, WorkspaceItemType::folder, u"folder"_qs);
    QCOMPARE(captureFilter(CapturePurpose::update, &workspace), QSet<QString>{u"editor"_qs});
    QCOMPARE(captureFilter(CapturePurpose::saveAsNew, &workspace), std::nullopt);
}

void CaptureSavingTest::keepsTheLayoutOfClosedApplications()
{
    Saving saving;
    TrovellWorkspace& workspace = saving.fixture.addWorkspace(u"Work"_qs);
    saving.fixture.addPlacement(workspace, u"editor"_qs);
    saving.fixture.addPlacement(workspace, u"browser"_qs);
    const StoreContents before = contentsOf(saving.fixture.context());
    saving.capture(CapturePurpose::update, &workspace, {});
    QCOMPARE(saving.draft.retainedPlacements.size(), 2);

    QTest::qSleep(2); // times are stored to the millisecond
    const auto saved = saving.save(CapturePurpose::update, &workspace);
    QVERIFY(saved);
    QCOMPARE(saved->notice, u"Work layout updated."_qs);
    StoreContents after = contentsOf(saving.fixture.context());
    QVERIFY(after[0].values.updatedAt > before[0].values.updatedAt);
    after[0].values.updatedAt = before[0].values.updatedAt;
    QCOMPARE(after, before);
}

void CaptureSavingTest::deletesPositionsThatAreNotKept()
{
    Saving saving;
    TrovellWorkspace& workspace = saving.fixture.addWorkspace(u"Work"_qs);
    saving.fixture.addPlacement(workspace, u"editor"_qs);
    saving.fixture.addPlacement(workspace, u"browser"_qs);
    saving.capture(CapturePurpose::update, &workspace, {});
    saving.draft.retainedPlacements[0].isKept = false;
    QVERIFY(saving.save(CapturePurpose::update, &workspace));
    QCOMPARE(titles(workspace), QStringList{u"browser window"_qs});
}

void CaptureSavingTest::replacesTheLayoutOfDetectedApplicationsEvenWhenUnchecked()
{
    Saving saving;
    TrovellWorkspace& workspace = saving.fixture.addWorkspace(u"Work"_qs);
    for (const QString& identifier : {u"editor"_qs, u"browser"_qs, u"mail"_qs, u"closed"_qs})
        saving.fixture.addPlacement(workspace, identifier);
    QList<CapturedApplication> applications{application(u"editor"_qs, {u"new"_qs, u"other"_qs}),
                                            application(u"browser"_qs, {u"page"_qs}),
                                            application(u"mail"_qs, {u"inbox"_qs})};
    applications[0].windows[1].isIncluded = false;
    applications[1].windows[0].isIncluded = false;
    applications[2].isIncluded = false;
    saving.capture(CapturePurpose::update, &workspace, applications);
    QVERIFY(saving.save(CapturePurpose::update, &workspace));
    QCOMPARE(titles(workspace), (QStringList{u"closed window"_qs, u"new"_qs}));
}

void CaptureSavingTest::createsItemsAndPlacements()
{
    Saving saving;
    saving.fixture.addWorkspace(u"Work"_qs);
    QList<CapturedApplication> applications{application(u"mail"_qs, {u"inbox"_qs}),
                                            application(u"editor"_qs, {u"a"_qs, u"b"_qs}),
                                            application(u"browser"_qs, {})};
    applications[0].addAsLaunchItem = false;
    saving.capture(CapturePurpose::create, nullptr, applications);
    saving.draft.name = u" Music\n"_qs;
    saving.draft.choices = {u"music.note"_qs, u"green"_qs, 2};

    const auto saved = saving.save(CapturePurpose::create, nullptr);
    QVERIFY(saved);
    QCOMPARE(saved->notice, u"Music captured."_qs);
    const TrovellWorkspace& workspace = *saved->workspace;
    QVERIFY(workspace.isStored());
    QCOMPARE(workspace.name(), u"Music"_qs);
    QCOMPARE(workspace.symbolName(), u"music.note"_qs);
    QCOMPARE(workspace.accentIdentifier(), u"green"_qs);
    QCOMPARE(workspace.shortcut(), shortcuts().at(2));
    QCOMPARE(workspace.sortOrder(), 1);
    QCOMPARE(workspace.createdAt(), workspace.updatedAt());
    QCOMPARE(itemNames(workspace), (QStringList{u"0 editor"_qs, u"1 browser"_qs}));
    QCOMPARE(titles(workspace), (QStringList{u"inbox"_qs, u"a"_qs, u"b"_qs}));
    const WorkspaceItem& item = *workspace.sortedItems().first();
    QCOMPARE(item.type(), WorkspaceItemType::application);
    QCOMPARE(item.urlString(), desktopFile(u"editor"_qs));
    QCOMPARE(item.applicationPath(), u"/applications/editor.desktop"_qs);
    QVERIFY(item.bookmarkData());
}

void CaptureSavingTest::findsApplicationsByIdentifier()
{
    FakeResourceSystem resources;
    const QUrl moved(u"file:///moved/my%20editor.desktop"_qs);
    resources.addApplication(u"editor"_qs, moved);
    resources.refuseToBookmark(moved);
    CapturedApplication editor = application(u"editor"_qs, {});
    editor.applicationURLString.reset();
    const auto items = makeLaunchItems({editor}, 7, resources);
    QVERIFY(items);
    const WorkspaceItem& item = *items->front();
    QCOMPARE(item.sortOrder(), 7);
    QCOMPARE(item.urlString(), moved.toString(QUrl::FullyEncoded));
    QCOMPARE(item.applicationPath(), u"/moved/my editor.desktop"_qs);
    QCOMPARE(item.bookmarkData(), std::nullopt);
}

void CaptureSavingTest::startsAVariantFromItsSource()
{
    Saving saving;
    TrovellWorkspace& source = saving.fixture.addWorkspace(u"Work"_qs);
    source.setShortcut(shortcuts().at(1));
    saving.fixture.addItem(source, WorkspaceItemType::application, u"editor"_qs);
    saving.fixture.addItem(source, WorkspaceItemType::folder, u"folder"_qs);
    saving.fixture.addItem(source, WorkspaceItemType::application, u"closed"_qs);
    saving.fixture.addPlacement(source, u"editor"_qs);
    saving.fixture.addPlacement(source, u"closed"_qs);
    saving.fixture.addPlacement(source, u"dropped"_qs);
    const StoreContents before = contentsOf(saving.fixture.context());
    saving.capture(CapturePurpose::saveAsNew, &source,
                   {application(u"editor"_qs, {u"new"_qs}), application(u"mail"_qs, {})});
    saving.draft.retainedPlacements[1].isKept = false;

    const auto saved = saving.save(CapturePurpose::saveAsNew, &source);
    QVERIFY(saved);
    QCOMPARE(saved->notice, u"Work Variant saved as a new workspace."_qs);
    const TrovellWorkspace& variant = *saved->workspace;
    QCOMPARE(variant.shortcut(), std::nullopt);
    QCOMPARE(itemNames(variant),
             (QStringList{u"0 folder"_qs, u"1 closed"_qs, u"2 editor"_qs, u"3 mail"_qs}));
    QCOMPARE(titles(variant), (QStringList{u"new"_qs, u"closed window"_qs}));
    QVERIFY(placementsInOrder(variant)[1]->id() != placementsInOrder(source)[1]->id());
    QCOMPARE(contentsOf(saving.fixture.context()).first(), before.first());
}

void CaptureSavingTest::refusesTheShortcutOfAnotherWorkspace()
{
    Saving saving;
    TrovellWorkspace& source = saving.fixture.addWorkspace(u"Work"_qs);
    source.setShortcut(shortcuts().at(1));
    QVERIFY(saving.fixture.context().save());
    const StoreContents before = contentsOf(saving.fixture.context());
    saving.capture(CapturePurpose::saveAsNew, &source, {application(u"editor"_qs, {u"a"_qs})});
    saving.draft.choices.shortcutIndex = 1;
    const auto saved = saving.save(CapturePurpose::saveAsNew, &source);
    QCOMPARE(saved.error(), u"That shortcut is already assigned to another workspace."_qs);
    QVERIFY(!saving.fixture.context().hasChanges());
    QCOMPARE(contentsOf(saving.fixture.context()), before);
}

void CaptureSavingTest::writesNothingForAnUnavailableApplication()
{
    Saving saving;
    TrovellWorkspace& source = saving.fixture.addWorkspace(u"Work"_qs);
    const StoreContents before = contentsOf(saving.fixture.context());
    CapturedApplication gone = application(u"editor"_qs, {u"a"_qs});
    gone.applicationURLString = u"no address"_qs;
    saving.capture(CapturePurpose::saveAsNew, &source, {application(u"mail"_qs, {}), gone});
    const auto saved = saving.save(CapturePurpose::saveAsNew, &source);
    QCOMPARE(saved.error(), u"editor is no longer available. Reopen it and capture again."_qs);
    QVERIFY(!saving.fixture.context().hasChanges());
    QCOMPARE(contentsOf(saving.fixture.context()), before);
}

void CaptureSavingTest::writesNothingWhenTheStoreFails()
{
    for (const auto purpose :
         {CapturePurpose::create, CapturePurpose::update, CapturePurpose::saveAsNew}) {
        Saving saving;
        TrovellWorkspace& workspace = saving.fixture.addWorkspace(u"Work"_qs);
        saving.fixture.addPlacement(workspace, u"editor"_qs);
        const StoreContents before = contentsOf(saving.fixture.context());
        saving.capture(purpose, &workspace, {application(u"editor"_qs, {u"a"_qs})});
        saving.fixture.refuseSaving();
        const auto refused = saving.save(purpose, &workspace);
        QCOMPARE(refused.error(), description(StoreError::diskFull));
        QVERIFY(!saving.fixture.context().hasChanges());
        QCOMPARE(contentsOf(saving.fixture.context()), before);
        saving.fixture.allowSaving();
        QVERIFY(saving.save(purpose, &workspace));
    }
}

void CaptureSavingTest::saysThatTheWorkspaceIsGone()
{
    Saving saving;
    TrovellWorkspace& workspace = saving.fixture.addWorkspace(u"Work"_qs);
    saving.capture(CapturePurpose::saveAsNew, &workspace, {application(u"editor"_qs, {u"a"_qs})});
    saving.fixture.context().remove(workspace);
    QVERIFY(saving.save(CapturePurpose::saveAsNew, &workspace).error().contains(u"deleted"));
    QVERIFY(saving.save(CapturePurpose::update, nullptr).error().contains(u"deleted"));
    QVERIFY(saving.fixture.context().workspaces().isEmpty());
}

void CaptureSavingTest::drawsWindowsWhereTheyStand_data()
{
    QTest::addColumn<QRectF>("frame");
    QTest::addColumn<QRectF>("drawn");
    QTest::newRow("lower left quarter") << QRectF(0, 0, 0.5, 0.5) << QRectF(0, 22, 36, 22);
    QTest::newRow("upper right corner") << QRectF(0.75, 0.75, 0.25, 0.25) << QRectF(54, 0, 18, 11);
    QTest::newRow("tiny") << QRectF(0.5, 0.5, 0.01, 0.01) << QRectF(36, 0.49 * 44, 8, 6);
}

void CaptureSavingTest::drawsWindowsWhereTheyStand()
{
    QFETCH(QRectF, frame);
    const NormalizedFrame normalized{frame.x(), frame.y(), frame.width(), frame.height()};
    QTEST(miniatureWindowRect(normalized, QSizeF(72, 44)), "drawn");
}

QTEST_MAIN(CaptureSavingTest)
#include "CaptureSavingTest.moc"
