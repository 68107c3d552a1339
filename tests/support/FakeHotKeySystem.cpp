#include "support/FakeHotKeySystem.h"

namespace trovell {

void FakeHotKeySystem::press(const Combination& combination)
{
    const auto numbers = registered();
    const auto hotKey = numbers.find(combination);
    if (hotKey != numbers.end())
        m_handler(hotKey->second);
}

std::map<FakeHotKeySystem::Combination, quint32> FakeHotKeySystem::registered() const
{
    std::map<Combination, quint32> numbers;
    for (const auto& [reference, hotKey] : m_hotKeys)
        numbers.emplace(hotKey.combination, hotKey.number);
    return numbers;
}

std::optional<HotKeyReference> FakeHotKeySystem::registerHotKey(quint32 number, quint32 keyCode,
                                                                quint32 modifiers)
{
    const Combination combination{keyCode, modifiers};
    if (m_claimed.contains(combination) || registered().contains(combination))
        return std::nullopt;
    m_hotKeys.emplace(++m_lastReference, HotKey{combination, number});
    return m_lastReference;
}

} // namespace trovell
