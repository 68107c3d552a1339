#include "views/words/TextArgument.h"

#include <QRegularExpression>

namespace trovell {

QString filledIn(QStringView text, const QList<QString>& values)
{
    static const QRegularExpression placeholder(QStringLiteral("%(?:([1-9])\\$)?(?:@|lld)"));
    QString filled;
    qsizetype copied = 0;
    qsizetype next = 0;
    for (const QRegularExpressionMatch& match : placeholder.globalMatchView(text)) {
        const QStringView position = match.capturedView(1);
        const qsizetype index = position.isEmpty() ? next++ : position.toInt() - 1;
        filled += text.sliced(copied, match.capturedStart() - copied);
        filled += index < values.size() ? values[index] : match.captured();
        copied = match.capturedEnd();
    }
    return filled + text.sliced(copied);
}

} // namespace trovell
