// SPDX-License-Identifier: MIT

#include "Report.h"

#include <QTextStream>

#include <algorithm>

namespace trovell::bench {

using namespace Qt::StringLiterals;

namespace {

QString verdict(const Row& row)
{
    if (!row.isMet)
        return {};
    return *row.isMet ? u"met"_s : u"MISSED"_s;
}

QStringList cells(const Row& row)
{
    return {row.what, row.trovell, row.peer, row.ratio, row.budget, verdict(row)};
}

const QStringList& headings()
{
    static const QStringList texts = {u"Measured"_s, u"Trovell"_s, u"Compared with"_s,
                                      u"Ratio"_s,    u"Budget"_s,  u"Result"_s};
    return texts;
}

QList<qsizetype> columnWidths(const QList<QStringList>& table)
{
    QList<qsizetype> widths(headings().size(), 0);
    for (const QStringList& line : table) {
        for (qsizetype column = 0; column < line.size(); ++column)
            widths[column] = std::max(widths[column], line[column].size());
    }
    return widths;
}

QString markdownLine(const QStringList& line)
{
    return u"| "_s + line.join(u" | "_s) + u" |\n"_s;
}

} // namespace

void Report::beginSection(const QString& title, const QString& method)
{
    m_sections.append({title, method, {}});
}

void Report::add(const Row& row)
{
    m_sections.last().rows.append(row);
}

void Report::fail(const QString& what)
{
    m_failures.append(what);
}

void Report::printSection() const
{
    const Section& section = m_sections.last();
    QList<QStringList> table = {headings()};
    for (const Row& row : section.rows)
        table.append(cells(row));
    const QList<qsizetype> widths = columnWidths(table);
    QTextStream out(stdout);
    out << "\n== " << section.title << '\n' << section.method << "\n\n";
    for (const QStringList& line : std::as_const(table)) {
        QString text;
        for (qsizetype column = 0; column < line.size(); ++column)
            text += line[column].leftJustified(widths[column] + 2);
        out << text.trimmed() << '\n';
    }
}

void Report::printSummary() const
{
    QTextStream out(stdout);
    out << '\n' << summary() << '\n';
    const QList<Row> rows = rowsWithBudget();
    for (const Row& row : rows) {
        if (!*row.isMet)
            out << "MISSED: " << row.what << ": " << row.trovell << ' ' << row.ratio << " (budget "
                << row.budget << ")\n";
    }
    for (const QString& failure : m_failures)
        out << "DID NOT RUN: " << failure << '\n';
}

QString Report::markdown() const
{
    QString text = u'\n' + summary() + u'\n';
    for (const QString& failure : m_failures)
        text += u"\nDid not run: "_s + failure + u'\n';
    for (const Section& section : m_sections) {
        text += u"\n### %1\n\n%2\n\n"_s.arg(section.title, section.method);
        text += markdownLine(headings());
        text += markdownLine(QStringList(headings().size(), u"---"_s));
        for (const Row& row : section.rows)
            text += markdownLine(cells(row));
    }
    return text;
}

QList<Row> Report::rowsWithBudget() const
{
    QList<Row> rows;
    for (const Section& section : m_sections) {
        std::ranges::copy_if(section.rows, std::back_inserter(rows),
                             [](const Row& row) { return row.isMet.has_value(); });
    }
    return rows;
}

QString Report::summary() const
{
    const QList<Row> rows = rowsWithBudget();
    const auto met = std::ranges::count(rows, std::optional(true), &Row::isMet);
    return u"%1 of %2 budgets met."_s.arg(met).arg(rows.size());
}

} // namespace trovell::bench
