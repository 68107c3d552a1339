// SPDX-License-Identifier: MIT
//
// Changes in any order, on a real server: see GlobalHotKeysTest.
#include "services/GlobalHotKeyManager.h"

#include "support/FakeHotKeySystem.h"
#include "support/ShortcutWorkspaces.h"

#include <QtTest>

using namespace trovell;

namespace {

QKeyCombination digit(int index)
{
    return (Qt::ControlModifier | Qt::AltModifier) | static_cast<Qt::Key>(Qt::Key_0 + index);
}

} // namespace

class GlobalHotKeyManagerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_manager.reset();
        m_system.emplace();
        m_manager = std::make_unique<GlobalHotKeyManager>(*m_system);
        m_triggered.clear();
    }

    void numbersByPosition()
    {
        // A gap uses its number up, and so does what is unreadable, no digit with Control and
        // Option, taken by another program or the second of two equal ones.
        const ShortcutWorkspaces workspaces({0, 1, 1, 3, 4, 5, 2, 2});
        workspaces[4].setShortcutData("{\"keyCode\":18}");
        workspaces[6].setShortcut(ShortcutDefinition{22, 0x1800, {}});
        workspaces[7].setShortcut(ShortcutDefinition{19, 0x1a00, {}});
        m_system->claim(digit(3));
        const QSet<QUuid> working = registerAll(workspaces);
        QCOMPARE(working, (QSet{workspaces.id(1), workspaces.id(5)}));
        QCOMPARE(m_system->registered,
                 (std::map<int, quint32>{{digit(1).toCombined(), 2}, {digit(5).toCombined(), 6}}));
        m_system->press(digit(5));
        QCoreApplication::processEvents();
        QCOMPARE(m_triggered, QList{workspaces.id(5)});
    }

    void ignoresNumbersThatAreGone()
    {
        registerAll(ShortcutWorkspaces({1, 2}));
        m_system->press(digit(2));
        m_system->report(7);
        registerAll(ShortcutWorkspaces({1}));
        QCoreApplication::processEvents();
        QVERIFY(m_triggered.isEmpty());
    }

    void letsTheTriggerRegisterAnew()
    {
        const ShortcutWorkspaces workspaces({1});
        int count = 0;
        // The trigger destroys itself while it runs.
        m_manager->registerHotKeys(workspaces.list(),
                                   [&, bytes = QByteArray(64, 'x')](const QUuid&) {
                                       registerAll(workspaces);
                                       count += static_cast<int>(bytes.size());
                                   });
        m_system->press(digit(1));
        QCoreApplication::processEvents();
        QCOMPARE(count, 64);
        m_system->press(digit(1));
        QCoreApplication::processEvents();
        QCOMPARE(m_triggered, QList{workspaces.id(0)});
    }

    void releasesEverythingAtItsEnd()
    {
        const ShortcutWorkspaces workspaces({1, 2});
        registerAll(workspaces);
        m_system->press(digit(1));
        QVERIFY(m_triggered.isEmpty());
        m_manager.reset();
        QVERIFY(m_system->registered.empty());
        QCoreApplication::processEvents();
        QVERIFY(m_triggered.isEmpty());
    }

private:
    QSet<QUuid> registerAll(const ShortcutWorkspaces& workspaces)
    {
        const auto registering = m_manager->registerHotKeys(
            workspaces.list(), [this](const QUuid& id) { m_triggered.append(id); });
        return registering.result();
    }

    std::optional<FakeHotKeySystem> m_system;
    std::unique_ptr<GlobalHotKeyManager> m_manager;
    QList<QUuid> m_triggered;
};

QTEST_GUILESS_MAIN(GlobalHotKeyManagerTest)
#include "GlobalHotKeyManagerTest.moc"
