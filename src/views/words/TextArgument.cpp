// SPDX-License-Identifier: MIT

#include "views/words/TextArgument.h"

#include <QRegularExpression>

namespace trovell {

using namespace Qt::StringLiterals;

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
