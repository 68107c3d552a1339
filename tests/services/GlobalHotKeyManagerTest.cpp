#include "services/GlobalHotKeyManager.h"

#include "support/FakeHotKeySystem.h"
#include "support/ShortcutWorkspaces.h"

#include <QtTest>

#include <random>

using namespace trovell;

namespace {

using Combination = FakeHotKeySystem::Combination;

/// As the keyboard sees the shortcut at that place of the list of choices.
Combination digit(qsizetype index)
{
    return {shortcuts()[index]->keyCode, shortcuts()[index]->modifiers};
}

} // namespace

class GlobalHotKeyManagerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void numbersByPosition();
    void passesOverWhatIsTakenOrUnreadable();
    void keepsOneRegistrationThroughEveryChange();
    void ignoresNumbersThatAreGone();
    void letsTheTriggerRegisterAnew();
    void releasesEverythingAtItsEnd();

private:
    void registerAll(const ShortcutWorkspaces& workspaces)
    {
        m_manager->registerHotKeys(workspaces.list(),
                                   [this](const QUuid& id) { m_triggered.append(id); });
    }

    FakeHotKeySystem m_system;
    std::unique_ptr<GlobalHotKeyManager> m_manager;
    QList<QUuid> m_triggered;
};

void GlobalHotKeyManagerTest::init()
{
    m_manager.reset();
    m_system = FakeHotKeySystem();
    m_manager = std::make_unique<GlobalHotKeyManager>(m_system);
    m_triggered.clear();
}

void GlobalHotKeyManagerTest::numbersByPosition()
{
    // A gap uses its number up, and the second of two equal ones gets none.
    const ShortcutWorkspaces workspaces({0, 1, 1, 3});
    registerAll(workspaces);
    QCOMPARE(m_system.registered(), (std::map<Combination, quint32>{{digit(1), 2}, {digit(3), 4}}));
    m_system.press(digit(3));
    QCoreApplication::processEvents();
    QCOMPARE(m_triggered, QList{workspaces.id(3)});
}

void GlobalHotKeyManagerTest::passesOverWhatIsTakenOrUnreadable()
{
    const ShortcutWorkspaces workspaces({1, 2, 3});
    workspaces[0].setShortcutData("{\"keyCode\":18}");
    m_system.claim(digit(2));
    registerAll(workspaces);
    QCOMPARE(m_system.registered(), (std::map<Combination, quint32>{{digit(3), 3}}));
}

void GlobalHotKeyManagerTest::keepsOneRegistrationThroughEveryChange()
{
    const quint32 seed = std::random_device()();
    qInfo("seed %u", seed);
    std::mt19937 random(seed);
    for (int round = 0; round < 200; ++round) {
        QList<int> indexes{0, 1, 2, 3, 4, 5};
        std::ranges::shuffle(indexes, random);
        indexes.resize(static_cast<qsizetype>(random() % 7));
        registerAll(ShortcutWorkspaces(indexes));
        std::map<Combination, quint32> expected;
        for (qsizetype i = 0; i < indexes.size(); ++i) {
            if (indexes[i] > 0)
                expected.emplace(digit(indexes[i]), i + 1);
        }
        QCOMPARE(m_system.registered(), expected);
    }
}

void GlobalHotKeyManagerTest::ignoresNumbersThatAreGone()
{
    m_system.report(1);
    QCoreApplication::processEvents();
    registerAll(ShortcutWorkspaces({1, 2}));
    m_system.press(digit(2));
    m_system.report(7);
    registerAll(ShortcutWorkspaces({1}));
    QCoreApplication::processEvents();
    QVERIFY(m_triggered.isEmpty());
}

void GlobalHotKeyManagerTest::letsTheTriggerRegisterAnew()
{
    const ShortcutWorkspaces workspaces({1});
    int count = 0;
    // The trigger destroys itself while it runs.
    m_manager->registerHotKeys(workspaces.list(), [&, bytes = QByteArray(64, 'x')](const QUuid&) {
        registerAll(workspaces);
        count += static_cast<int>(bytes.size());
    });
    m_system.press(digit(1));
    QCoreApplication::processEvents();
    QCOMPARE(count, 64);
    m_system.press(digit(1));
    QCoreApplication::processEvents();
    QCOMPARE(m_triggered, QList{workspaces.id(0)});
}

void GlobalHotKeyManagerTest::releasesEverythingAtItsEnd()
{
    const ShortcutWorkspaces workspaces({1, 2});
    registerAll(workspaces);
    m_system.press(digit(1));
    QVERIFY(m_triggered.isEmpty());
    m_manager.reset();
    QVERIFY(m_system.registered().empty());
    QVERIFY(!m_system.hasHandler());
    QCoreApplication::processEvents();
    QVERIFY(m_triggered.isEmpty());
}

QTEST_GUILESS_MAIN(GlobalHotKeyManagerTest)
#include "GlobalHotKeyManagerTest.moc"
