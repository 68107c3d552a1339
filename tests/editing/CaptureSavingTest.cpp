// SPDX-License-Identifier: MIT

#include "editing/CaptureDraft.h"

#include "support/FakeResourceSystem.h"
#include "support/StoreFixture.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using namespace trovell;
using trovell::test::StoreFixture;

namespace {

CapturedApplication application(const QString& identifier, const QStringList& titles = {})
{
    CapturedApplication captured;
    captured.bundleIdentifier = captured.applicationName = identifier;
    captured.applicationURLString = u"file:///applications/%1.desktop"_s.arg(identifier);
    for (const QString& title : titles) {
        CapturedWindow window;
        window.id = QUuid::createUuid();
        window.role = u"AXWindow"_s;
        window.subrole = u"AXStandardWindow"_s;
        window.bundleIdentifier = window.applicationName = identifier;
        window.windowTitle = title;
        window.frame = QRectF(100, 200, 500, 400);
        window.display.frame = window.display.visibleFrame = QRectF(0, 0, 1000, 800);
        captured.windows.append(window);
    }
    return captured;
}

QStringList titles(const TrovellWorkspace& workspace)
{
    QStringList titles;
    for (const WindowPlacement* placement : workspace.placementsInOrder())
        titles.append(placement->windowTitleHint().value_or(QString()));
    return titles;
}

QStringList itemNames(const TrovellWorkspace& workspace)
{
    QStringList names;
    for (const WorkspaceItem* item : workspace.sortedItems())
        names.append(u"%1 %2"_s.arg(item->sortOrder()).arg(item->displayName()));
    return names;
}

/// A workspace that is captured and saved as the sheet does it.
struct Saving : StoreFixture {
    explicit Saving(const QStringList& placements = {})
    {
        for (const QString& identifier : placements)
            addPlacement(workspace, identifier);
    }

    void capture(CapturePurpose purpose, const QList<CapturedApplication>& applications)
    {
        draft = makeCaptureDraft(purpose, &workspace);
        draft.applications = applications;
        draft.retainedPlacements = *buildRetainedPlacements(purpose, &workspace, applications);
    }

    Expected<TrovellWorkspace*, EditingError> saveAs(CapturePurpose purpose)
    {
        return saveCapture(purpose, draft, &workspace, context(), resources);
    }

    /// The failure of a save that leaves the store as it was; empty if it did not.
    QString refusal(CapturePurpose purpose)
    {
        const StoreContents before = contents();
        const auto saved = saveAs(purpose);
        const bool isUntouched = !context().hasChanges() && contents() == before;
        return saved || !isUntouched ? QString() : description(saved.error()).productText();
    }

    FakeResourceSystem resources;
    TrovellWorkspace& workspace = addWorkspace(u"Work"_s);
    CaptureDraft draft;
};

} // namespace

class CaptureSavingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void offersSavingOnlyWithSomethingToSave()
    {
        struct Choice {
            CapturePurpose purpose = CapturePurpose::create;
            QString name = u"a"_s;
            bool isApplicationIncluded = true;
            bool isLaunchItem = true;
            bool isWindowIncluded = true;
            bool isPositionKept = false;
        };
        const auto isDisabled = [](const Choice& choice) {
            CaptureDraft draft{.basics = {.name = choice.name},
                               .applications = {application(u"editor"_s, {u"a"_s})}};
            draft.applications[0].isIncluded = choice.isApplicationIncluded;
            draft.applications[0].addAsLaunchItem = choice.isLaunchItem;
            draft.applications[0].windows[0].isIncluded = choice.isWindowIncluded;
            draft.retainedPlacements = {{.isKept = choice.isPositionKept}};
            return isSaveDisabled(choice.purpose, draft);
        };
        const auto update = CapturePurpose::update;
        const auto variant = CapturePurpose::saveAsNew;
        QVERIFY(isDisabled({.name = u" \n"_s}));
        QVERIFY(!isDisabled({.isWindowIncluded = false}));
        QVERIFY(!isDisabled({.isLaunchItem = false}));
        QVERIFY(isDisabled({.isLaunchItem = false, .isWindowIncluded = false}));
        QVERIFY(isDisabled({.isApplicationIncluded = false}));
        QVERIFY(!isDisabled({variant, u"a"_s, false, false, false, true}));
        QVERIFY(isDisabled({variant, u"a"_s, false, false, false, false}));
        QVERIFY(!isDisabled({update, {}, false, false, false, false}));
    }

    void keepsTheLayoutOfClosedApplications()
    {
        Saving saving({u"editor"_s, u"browser"_s});
        const StoreContents before = saving.contents();
        saving.capture(CapturePurpose::update, {});
        QTest::qSleep(2); // times are stored to the millisecond
        const auto saved = saving.saveAs(CapturePurpose::update);
        QVERIFY(saved);
        StoreContents after = saving.contents();
        QVERIFY(after[0].values.updatedAt > before[0].values.updatedAt);
        after[0].values.updatedAt = before[0].values.updatedAt;
        QCOMPARE(after, before);
    }

    void replacesTheLayoutOfDetectedApplicationsEvenWhenUnchecked()
    {
        Saving saving({u"editor"_s, u"browser"_s, u"mail"_s, u"dropped"_s, u"closed"_s});
        QList<CapturedApplication> applications{application(u"editor"_s, {u"new"_s, u"other"_s}),
                                                application(u"browser"_s, {u"page"_s}),
                                                application(u"mail"_s, {u"inbox"_s})};
        applications[0].windows[1].isIncluded = false;
        applications[1].windows[0].isIncluded = false;
        applications[2].isIncluded = false;
        saving.capture(CapturePurpose::update, applications);
        QCOMPARE(saving.draft.retainedPlacements.size(), 2);
        saving.draft.retainedPlacements[0].isKept = false;
        QVERIFY(saving.saveAs(CapturePurpose::update));
        QCOMPARE(titles(saving.workspace), (QStringList{u"closed window"_s, u"new"_s}));
    }

    void keepsWhatTheCaptureDidNotSee()
    {
        // Three windows were saved, two are seen; what one is called has changed.
        Saving saving({u"editor"_s, u"editor"_s, u"editor"_s});
        const auto saved = saving.workspace.placementsInOrder();
        const QStringList names{u"letter"_s, u"hidden"_s, u"notes"_s};
        for (qsizetype index = 0; index < saved.size(); ++index)
            saved[index]->setWindowTitleHint(names[index]);
        saved[0]->setRestoresDesktop(false);
        saved[2]->setRestoresState(false);
        CapturedApplication editor = application(u"editor"_s, {u"notes"_s, u"letter"_s});
        saving.capture(CapturePurpose::update, {editor});
        QCOMPARE(saving.draft.retainedPlacements.size(), 1);
        QCOMPARE(saving.draft.retainedPlacements[0].windowTitle, u"hidden"_s);
        editor.windows[0].windowTitle = u"something else"_s;
        saving.capture(CapturePurpose::update, {editor});
        QCOMPARE(saving.draft.retainedPlacements.size(), 1);

        saving.capture(CapturePurpose::update, {application(u"editor"_s, names.mid(0, 1))});
        saving.draft.retainedPlacements[1].isKept = false;
        QVERIFY(saving.saveAs(CapturePurpose::update));
        QCOMPARE(titles(saving.workspace), (QStringList{u"hidden"_s, u"letter"_s}));
        // What was switched off for a window stays off.
        const auto now = saving.workspace.placementsInOrder();
        QVERIFY(!now[1]->restoresDesktop() && now[1]->restoresState());
    }

    void opensMissingWindowsUntilThatIsSwitchedOff()
    {
        const auto opensAfterCapture = [](Saving& saving) {
            CapturedApplication editor = application(u"editor"_s, {u"a"_s, u"b"_s});
            for (CapturedWindow& window : editor.windows)
                window.hasSiblings = true;
            saving.capture(CapturePurpose::update, {editor});
            if (!saving.saveAs(CapturePurpose::update))
                return false;
            const auto placements = saving.workspace.placementsInOrder();
            return std::ranges::all_of(placements, &WindowPlacement::opensMissingWindow);
        };
        // Nobody switched off what remembers nothing.
        Saving saving({u"editor"_s, u"editor"_s});
        QVERIFY(opensAfterCapture(saving));
        QVERIFY(opensAfterCapture(saving));
        for (WindowPlacement* placement : saving.workspace.placementsInOrder())
            placement->setOpensMissingWindow(false);
        QVERIFY(!opensAfterCapture(saving));
    }

    void createsItemsAndPlacements()
    {
        Saving saving;
        QList<CapturedApplication> applications{application(u"mail"_s, {u"inbox"_s}),
                                                application(u"editor"_s, {u"a"_s, u"b"_s}),
                                                application(u"browser"_s)};
        applications[0].addAsLaunchItem = false;
        saving.capture(CapturePurpose::create, applications);
        saving.draft.basics.name = u" Music\n"_s;
        saving.draft.basics.choices = {u"music.note"_s, u"green"_s, 2};

        const auto saved = saving.saveAs(CapturePurpose::create);
        QVERIFY(saved);
        const TrovellWorkspace& workspace = **saved;
        QVERIFY(workspace.isStored());
        QCOMPARE(workspace.name(), u"Music"_s);
        QCOMPARE(workspace.shortcut(), shortcuts().at(2));
        QCOMPARE(workspace.sortOrder(), 1);
        QCOMPARE(itemNames(workspace), (QStringList{u"0 editor"_s, u"1 browser"_s}));
        QCOMPARE(titles(workspace), (QStringList{u"inbox"_s, u"a"_s, u"b"_s}));
        const WorkspaceItem& item = *workspace.sortedItems().first();
        QCOMPARE(item.type(), WorkspaceItemType::application);
        QCOMPARE(item.urlString(), u"file:///applications/editor.desktop"_s);
        QCOMPARE(item.applicationPath(), u"/applications/editor.desktop"_s);
        QVERIFY(item.bookmarkData());
    }

    void startsAVariantFromItsSource()
    {
        Saving saving({u"editor"_s, u"closed"_s, u"dropped"_s});
        TrovellWorkspace& source = saving.workspace;
        source.setShortcut(shortcuts().at(1));
        saving.addItem(source, WorkspaceItemType::application, u"editor"_s);
        saving.addItem(source, WorkspaceItemType::folder, u"folder"_s);
        saving.addItem(source, WorkspaceItemType::application, u"closed"_s);
        QCOMPARE(captureFilter(CapturePurpose::update, &source),
                 (QSet<QString>{u"editor"_s, u"closed"_s}));
        QCOMPARE(captureFilter(CapturePurpose::saveAsNew, &source), std::nullopt);
        const StoreContents before = saving.contents();
        saving.capture(CapturePurpose::saveAsNew,
                       {application(u"editor"_s, {u"new"_s}), application(u"mail"_s)});
        saving.draft.retainedPlacements[1].isKept = false;

        const auto saved = saving.saveAs(CapturePurpose::saveAsNew);
        QVERIFY(saved);
        const TrovellWorkspace& variant = **saved;
        QCOMPARE(variant.shortcut(), std::nullopt);
        QCOMPARE(itemNames(variant),
                 (QStringList{u"0 folder"_s, u"1 closed"_s, u"2 editor"_s, u"3 mail"_s}));
        QCOMPARE(titles(variant), (QStringList{u"new"_s, u"closed window"_s}));
        QVERIFY(variant.placementsInOrder()[1]->id() != source.placementsInOrder()[1]->id());
        QCOMPARE(saving.contents().first(), before.first());
    }

    void writesNothingWhenItFails()
    {
        for (const auto purpose :
             {CapturePurpose::create, CapturePurpose::update, CapturePurpose::saveAsNew}) {
            Saving saving({u"editor"_s});
            saving.capture(purpose, {application(u"editor"_s, {u"a"_s})});
            saving.refuseSaving();
            QCOMPARE(saving.refusal(purpose), description(StoreError::diskFull).productText());
            saving.allowSaving();
            QVERIFY(saving.saveAs(purpose));
        }

        Saving saving;
        saving.workspace.setShortcut(shortcuts().at(1));
        saving.save();
        CapturedApplication gone = application(u"editor"_s, {u"a"_s});
        gone.applicationURLString = u"no address"_s;
        saving.capture(CapturePurpose::saveAsNew, {application(u"mail"_s), gone});
        QCOMPARE(saving.refusal(CapturePurpose::saveAsNew),
                 u"editor is no longer available. Reopen it and capture again."_s);
        saving.draft.basics.choices.shortcutIndex = 1;
        QCOMPARE(saving.refusal(CapturePurpose::saveAsNew),
                 u"That shortcut is already assigned to another workspace."_s);
    }
};

QTEST_GUILESS_MAIN(CaptureSavingTest)
#include "CaptureSavingTest.moc"
