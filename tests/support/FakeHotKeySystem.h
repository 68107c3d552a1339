// SPDX-License-Identifier: MIT
//
// A keyboard whose combinations a test presses, and other programs that own some of them. Main
// thread.
#pragma once

#include "services/HotKeySystem.h"

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
        const auto numbers = registered();
        if (const auto hotKey = numbers.find(keys.toCombined()); hotKey != numbers.end())
            m_handler(hotKey->second);
    }
    /// What arrives late: the press of a number, registered or not.
    void report(quint32 number) { m_handler(number); }

    /// The combinations registered here, as one number each, and the numbers of their hot keys.
    [[nodiscard]] std::map<int, quint32> registered() const
    {
        std::map<int, quint32> numbers;
        for (const auto& [reference, hotKey] : m_hotKeys)
            numbers.emplace(hotKey.combination, hotKey.number);
        return numbers;
    }
    [[nodiscard]] bool hasHandler() const { return m_handler != nullptr; }

    void installPressHandler(PressHandler handler) override { m_handler = std::move(handler); }
    [[nodiscard]] std::optional<HotKeyReference> registerHotKey(quint32 number,
                                                                QKeyCombination keys) override
    {
        const int combination = keys.toCombined();
        if (m_claimed.contains(combination) || registered().contains(combination))
            return std::nullopt;
        m_hotKeys.emplace(++m_lastReference, HotKey{combination, number});
        return m_lastReference;
    }
    void unregisterHotKey(HotKeyReference reference) override { m_hotKeys.erase(reference); }

private:
    struct HotKey {
        int combination = 0;
        quint32 number = 0;
    };

    PressHandler m_handler;
    std::set<int> m_claimed;
    std::map<HotKeyReference, HotKey> m_hotKeys;
    HotKeyReference m_lastReference = 0;
};

} // namespace trovell
