#include "Titles.h"

#include <QStringList>

namespace trovell::bench {

namespace {

const QStringList& realisticForms()
{
    static const QStringList forms = {
        QStringLiteral("Meeting notes week %1 - Mousepad"),
        QStringLiteral("Inbox (%1) - anna@example.org - Mail"),
        QStringLiteral("~/projects/trovell/src : bash — Terminal %1"),
        QStringLiteral("Pull request #%1: Say why a window was refused · trovell · Web Browser"),
        QStringLiteral("Übersicht_%1.ods — Tabellen"),
        QStringLiteral("WindowRestoreService.cpp (%1) - trovell - Code Editor"),
        QStringLiteral("Résumé version %1 – Text Editor"),
        QStringLiteral("設計メモ %1 - Notes"),
        QStringLiteral("Invoice-2024-%1.pdf"),
        QStringLiteral("Downloads %1"),
    };
    return forms;
}

} // namespace

QString realisticTitle(int index)
{
    return realisticForms().at(index % realisticForms().size()).arg(index);
}

QString longTitle(int index)
{
    QStringList words;
    for (int number = 0; number < 40; ++number) {
        words.append(QStringLiteral("Größe%1").arg(number));
        words.append(QStringLiteral("résumé%1x%2").arg(index).arg(number));
        words.append(QStringLiteral("обзор%1y%2").arg(index).arg(number));
    }
    return words.join(QStringLiteral(" — "));
}

QString repetitiveTitle(int index)
{
    return QString(2000 + index, u'a') + QString::number(index);
}

} // namespace trovell::bench
