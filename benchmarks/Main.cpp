// SPDX-License-Identifier: MIT
//
// Runs the benchmarks and prints their figures. A missed budget is printed as such and is no
// failure; the exit code is 1 only when something did not run.

#include "CaptureBenchmark.h"
#include "InterfaceBenchmark.h"
#include "LateDesktopBenchmark.h"
#include "ListBenchmark.h"
#include "Machine.h"
#include "MatchingBenchmark.h"
#include "Report.h"
#include "RestoreBenchmark.h"
#include "SheetBenchmark.h"
#include "StoreBenchmark.h"
#include "StoreProbe.h"
#include "WaitingBenchmark.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDate>
#include <QFile>
#include <QTextStream>

using namespace Qt::StringLiterals;

using namespace trovell::bench;

namespace {

struct Benchmark {
    const char* name;
    void (*measure)(Report& report);
};

constexpr Benchmark benchmarks[] = {
    {"matching", &measureMatching},   {"capture", &measureCapture},  {"restore", &measureRestore},
    {"waiting", &measureWaiting},     {"late", &measureLateDesktop}, {"store", &measureStore},
    {"interface", &measureInterface}, {"sheet", &measureSheet},      {"list", &measureList},
};

QString describeRun()
{
    const double load = loadAverage();
    const QString text = u"Measured on %1, on %2. One minute's load average at the start: %3."_s
                             .arg(QDate::currentDate().toString(Qt::ISODate), describeMachine())
                             .arg(load, 0, 'f', 1);
    constexpr double busy = 0.7;
    return load < busy ? text
                       : text + u" The machine was busy with other things: times are "
                                "longer than they would be, ratios are less exact."_s;
}

/// Replaces what stands between the two marks of the document.
bool writeInto(const QString& path, const QString& results)
{
    constexpr const char* beginMark = "<!-- results -->\n";
    constexpr const char* endMark = "<!-- end of results -->";
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite))
        return false;
    QByteArray text = file.readAll();
    const qsizetype begin = text.indexOf(beginMark);
    const qsizetype end = text.indexOf(endMark);
    if (begin < 0 || end < begin)
        return false;
    text.replace(begin, end - begin, beginMark + results.toUtf8());
    return file.seek(0) && file.write(text) == text.size() && file.resize(text.size());
}

void run(const QStringList& names, Report& report)
{
    for (const Benchmark& benchmark : benchmarks) {
        if (!names.isEmpty() && !names.contains(QString::fromUtf8(benchmark.name)))
            continue;
        benchmark.measure(report);
        report.printSection();
    }
    report.printSummary();
}

} // namespace

int main(int argc, char** argv)
{
    // Views are painted into memory, whatever display there is.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    if (const QStringList arguments = QCoreApplication::arguments();
        arguments.value(1) == u"--probe-store"_s)
        return runStoreProbe(arguments.value(2));
    QCommandLineParser parser;
    const QCommandLineOption document(u"write-doc"_s, u"Write the tables into this document."_s,
                                      u"path"_s);
    parser.addOption(document);
    parser.addPositionalArgument(u"benchmarks"_s, u"Which to run; all without."_s);
    parser.addHelpOption();
    parser.process(application);

    const QString description = describeRun();
    QTextStream(stdout) << description << '\n';
    Report report;
    run(parser.positionalArguments(), report);
    if (parser.isSet(document) &&
        !writeInto(parser.value(document), description + u'\n' + report.markdown()))
        report.fail(u"Writing "_s + parser.value(document));
    return report.hasFailed() ? 1 : 0;
}
