// SPDX-License-Identifier: MIT
//
// A keyboard whose combinations a test presses, and other programs that own some of them. Main
// thread.
#pragma once

#include "services/HotKeySystem.h"
#include "support/ReadyFuture.h"

#include <map>
#include <set>

namespace trovell {

class FakeHotKeySystem final : public HotKeySystem {
public:
    /// Another program owns the combination from now on.
    void claim(QKeyCombination keys) { m_claimed.insert(keys.toCombined()); }
    /// Nothing happens when nobody registered the combination.
    void press(QKeyCombination keys)
    {
        if (const auto hotKey = registered.find(keys.toCombined()); hotKey != registered.end())
            report(hotKey->second);
    }
    /// The press of a number, registered or not, which arrives from the event loop.
    void report(quint32 number)
    {
        QMetaObject::invokeMethod(
            &m_context, [handler = m_handler, number] { handler(number); }, Qt::QueuedConnection);
    }

    /// The combinations registered here, as one number each, and the numbers of their hot keys.
    std::map<int, quint32> registered;

    QFuture<QList<quint32>> setHotKeys(const QList<HotKey>& hotKeys, PressHandler handler) override
    {
        m_handler = std::move(handler);
        registered.clear();
        QList<quint32> granted;
        for (const HotKey& hotKey : hotKeys) {
            const int combination = hotKey.keys.toCombined();
            if (!m_claimed.contains(combination) &&
                registered.emplace(combination, hotKey.number).second)
                granted.append(hotKey.number);
        }
        return readyFuture(granted);
    }

private:
    PressHandler m_handler = [](quint32) {};
    std::set<int> m_claimed;
    QObject m_context;
};

} // namespace trovell
