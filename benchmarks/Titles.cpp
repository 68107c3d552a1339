// SPDX-License-Identifier: MIT

#include "Titles.h"

#include <QStringList>

namespace trovell::bench {

using namespace Qt::StringLiterals;

namespace {

const QStringList& realisticForms()
{
    static const QStringList forms = {
        u"Meeting notes week %1 - Mousepad"_s,
        u"Inbox (%1) - anna@example.org - Mail"_s,
        u"~/projects/trovell/src : bash — Terminal %1"_s,
        u"Pull request #%1: Say why a window was refused · trovell · Web Browser"_s,
        u"Übersicht_%1.ods — Tabellen"_s,
        u"WindowRestoreService.cpp (%1) - trovell - Code Editor"_s,
        u"Résumé version %1 – Text Editor"_s,
        u"設計メモ %1 - Notes"_s,
        u"Invoice-2024-%1.pdf"_s,
        u"Downloads %1"_s,
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
        words.append(u"Größe%1"_s.arg(number));
        words.append(u"résumé%1x%2"_s.arg(index).arg(number));
        words.append(u"обзор%1y%2"_s.arg(index).arg(number));
    }
    return words.join(u" — "_s);
}

QString repetitiveTitle(int index)
{
    return QString(2000 + index, u'a') + QString::number(index);
}

} // namespace trovell::bench
