// SPDX-License-Identifier: MIT
//
// The keys under which texts for people are looked up. A key is the product's own text, written
// where it arises as u"Save Layout"_key; "%@" in it stands for a text, "%lld" for a number. The
// placeholders are part of the key's type, so that a call with a missing, surplus or swapped value
// does not compile. The build collects all keys from the sources by their suffix. Any thread.
#pragma once

#include <QString>

#include <algorithm>
#include <array>
#include <cstddef>
#include <stdexcept>
#include <string_view>
#include <type_traits>
#include <utility>

namespace trovell {

enum class Placeholder { text, number };

/// `placeholders` in the order in which they stand in the text. The characters live as long as the
/// program.
template <Placeholder... placeholders> struct TextKey {
    // No QStringView: it compares the address with null, which GCC 12 does not take for a constant
    // when it builds with sanitizers (GCC bug 71962).
    std::u16string_view characters;

    [[nodiscard]] QString text() const
    {
        return QString::fromUtf16(characters.data(), qsizetype(characters.size()));
    }
};

/// The characters of a literal as a template argument.
template <size_t size> struct KeyLiteral {
    std::array<char16_t, size> characters{};

    // NOLINTNEXTLINE(google-explicit-constructor): the literal operator needs it so.
    consteval KeyLiteral(const char16_t (&literal)[size])
    {
        std::ranges::copy(literal, characters.begin());
    }

    [[nodiscard]] constexpr std::u16string_view text() const
    {
        return {characters.data(), size - 1};
    }

    [[nodiscard]] consteval size_t placeholderCount() const
    {
        return size_t(std::ranges::count(characters, u'%'));
    }

    template <size_t count> [[nodiscard]] consteval std::array<Placeholder, count> kinds() const
    {
        std::array<Placeholder, count> found{};
        size_t next = 0;
        for (size_t at = 0; at < text().size(); ++at) {
            const std::u16string_view rest = text().substr(at);
            if (!rest.starts_with(u'%'))
                continue;
            if (!rest.starts_with(u"%@") && !rest.starts_with(u"%lld"))
                throw std::logic_error("a key holds no other % than those of %@ and %lld");
            found[next++] = rest.starts_with(u"%@") ? Placeholder::text : Placeholder::number;
        }
        return found;
    }
};

inline namespace literals {

template <KeyLiteral literal> [[nodiscard]] consteval auto operator""_key()
{
    constexpr auto kinds = literal.template kinds<literal.placeholderCount()>();
    return [&]<size_t... indices>(std::index_sequence<indices...>) {
        return TextKey<kinds[indices]...>{literal.text()};
    }(std::make_index_sequence<kinds.size()>());
}

} // namespace literals

} // namespace trovell
