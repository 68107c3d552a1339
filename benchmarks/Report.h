// SPDX-License-Identifier: MIT
//
// The outcome of a run: sections of rows, each with its figure, what it is compared with, and its
// budget. Printed section by section, and written into a document as Markdown.
#pragma once

#include <QList>
#include <QString>

#include <optional>

namespace trovell::bench {

/// Empty parts stay empty in the table.
struct Row {
    QString what;
    QString trovell;
    /// The peer's name and figure.
    QString peer = {};
    QString ratio = {};
    QString budget = {};
    /// Whether the budget is kept; none for a row that is there for information.
    std::optional<bool> isMet = {};
};

class Report {
public:
    /// `method` says how the rows of the section are measured.
    void beginSection(const QString& title, const QString& method);
    void add(const Row& row);
    /// Something did not run, so its figures are missing or mean nothing.
    void fail(const QString& what);

    [[nodiscard]] bool hasFailed() const { return !m_failures.isEmpty(); }

    /// Prints the section begun last, as a table for terminals.
    void printSection() const;
    /// Prints how many budgets were met, and each that was missed.
    void printSummary() const;
    [[nodiscard]] QString markdown() const;

private:
    struct Section {
        QString title;
        QString method;
        QList<Row> rows;
    };

    [[nodiscard]] QList<Row> rowsWithBudget() const;
    [[nodiscard]] QString summary() const;

    QList<Section> m_sections;
    QStringList m_failures;
};

} // namespace trovell::bench
