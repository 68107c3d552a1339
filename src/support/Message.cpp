// SPDX-License-Identifier: MIT

#include "support/Message.h"

#include <QRegularExpression>

namespace trovell {

using namespace Qt::StringLiterals;

Message Message::verbatim(const QString& text)
{
    Message message;
    message.m_text = text;
    return message;
}

Message Message::argument(const TextArgument& text)
{
    return text.message;
}

Message Message::argument(NumberArgument number)
{
    Message message;
    message.m_text = QString::number(number.value);
    message.m_number = number;
    return message;
}

QString Message::productText() const
{
    if (!m_isKey)
        return m_text;
    QStringList values;
    for (const Message& argument : m_arguments)
        values += argument.productText();
    return filledIn(m_text, values);
}

QString filledIn(const QString& text, const QStringList& values)
{
    static const QRegularExpression placeholder(u"%(?:([1-9])\\$)?(?:@|lld)"_s);
    QString filled;
    qsizetype copied = 0;
    qsizetype next = 0;
    for (const QRegularExpressionMatch& match : placeholder.globalMatch(text)) {
        const QStringView position = match.capturedView(1);
        const qsizetype index = position.isEmpty() ? next++ : position.toInt() - 1;
        filled += QStringView(text).sliced(copied, match.capturedStart() - copied);
        filled += index < values.size() ? values[index] : match.captured();
        copied = match.capturedEnd();
    }
    filled += QStringView(text).sliced(copied);
    return filled;
}

} // namespace trovell
