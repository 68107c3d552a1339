// SPDX-License-Identifier: MIT
//
// A text for people before it is put into a language: a key with its values, or words that are not
// the product's and stay as they are. Logic hands it out, views show it. A plain value; any thread.
#pragma once

#include "support/TextKey.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace trovell {

/// A number for a "%lld". Numbers are written with the digits and group separators of the locale.
struct NumberArgument {
    qint64 value = 0;
    bool isGrouped = true;

    // Implicit on purpose: counts are passed as they are.
    // NOLINTNEXTLINE(google-explicit-constructor)
    constexpr NumberArgument(qint64 number) : value(number) {}
    /// Without group separators: 1000, not 1,000.
    [[nodiscard]] static constexpr NumberArgument plain(qint64 number)
    {
        NumberArgument argument(number);
        argument.isGrouped = false;
        return argument;
    }

    bool operator==(const NumberArgument&) const = default;
};

struct TextArgument;

template <Placeholder kind>
using ArgumentOf = std::conditional_t<kind == Placeholder::text, TextArgument, NumberArgument>;

class Message {
public:
    /// None: an empty text.
    Message() = default;
    // Implicit on purpose: a key without placeholders is a message.
    // NOLINTNEXTLINE(google-explicit-constructor)
    template <Placeholder... kinds>
    Message(TextKey<kinds...> key, const ArgumentOf<kinds>&... arguments)
        : m_text(key.text()), m_isKey(true), m_arguments{argument(arguments)...}
    {
    }
    /// What the user or the system wrote; never looked up.
    [[nodiscard]] static Message verbatim(const QString& text);

    [[nodiscard]] bool isEmpty() const { return m_text.isEmpty(); }
    /// The product's own English with its values, the numbers as plain digits.
    [[nodiscard]] QString productText() const;

    // For those who look it up.
    [[nodiscard]] bool isKey() const { return m_isKey; }
    /// The key, or the words as they are.
    [[nodiscard]] const QString& text() const { return m_text; }
    /// One for each placeholder of the key, in its order.
    [[nodiscard]] const std::vector<Message>& arguments() const { return m_arguments; }
    /// Set when this is an argument that stands for a "%lld".
    [[nodiscard]] const std::optional<NumberArgument>& number() const { return m_number; }

    bool operator==(const Message&) const = default;

private:
    [[nodiscard]] static Message argument(const TextArgument& text);
    [[nodiscard]] static Message argument(NumberArgument number);

    QString m_text;
    bool m_isKey = false;
    std::optional<NumberArgument> m_number;
    std::vector<Message> m_arguments;
};

/// A value for a "%@": words as they are, or a message that is put into the language with the rest.
struct TextArgument {
    Message message;

    // NOLINTBEGIN(google-explicit-constructor): arguments are passed as they are.
    TextArgument(const QString& words) : message(Message::verbatim(words)) {}
    TextArgument(Message value) : message(std::move(value)) {}
    // NOLINTEND(google-explicit-constructor)
};

/// Both "%@" and "%lld" take the next of `values`; "%2$@" and "%2$lld" take the second whatever
/// stands before. One pass: what the values hold is never read as a placeholder. A placeholder
/// without a value stays as it is.
[[nodiscard]] QString filledIn(const QString& text, const QStringList& values);

} // namespace trovell
