// SPDX-License-Identifier: MIT
//
// Opening the program through the desktop: this test's own program is the instance, installed with
// the real service file on a private session bus.

#include "platform/freedesktop/DesktopActivation.h"

#include "lab/Files.h"
#include "lab/VirtualDesktop.h"
#include "support/Patience.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace trovell::lab;
using namespace trovell::test;

namespace {

constexpr const char* instanceOption = "--instance";

/// What the program does at its start, reduced to a record of what happens.
int runInstance(int argc, char** argv)
{
    QFile record(QFile::decodeName(argv[2]));
    if (!record.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
        return 1;
    DesktopActivation activation("app.trovell.Trovell");
    if (activation.forwardToRunningInstance())
        return 0;
    record.write("started\n");
    QCoreApplication application(argc, argv);
    QObject::connect(
        &activation, &DesktopActivation::activationRequested, &application,
        [&](const QString& token) { record.write(("opened " + token.toUtf8()).trimmed() + '\n'); });
    return QCoreApplication::exec();
}

} // namespace

class DesktopActivationTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_desktop.reset(); }
    void isStartedByTheBus();
    void opensTheRunningInstance_data();
    void opensTheRunningInstance();
    void startsOnceInARace();

private:
    void startProgram() { m_desktop->start(m_program.toUtf8().constData()); }
    /// Calls a method of org.freedesktop.Application.
    void call(const char* method, const QByteArrayList& arguments)
    {
        m_desktop->run("gdbus",
                       QByteArrayList{"call", "--session", "--dest", "app.trovell.Trovell",
                                      "--object-path", "/app/trovell/Trovell", "--method",
                                      QByteArray("org.freedesktop.Application.") + method} +
                           arguments);
    }
    QByteArrayList record() const { return readFile(m_record).trimmed().split('\n'); }

    std::unique_ptr<VirtualDesktop> m_desktop;
    QString m_program;
    QString m_record;
};

void DesktopActivationTest::init()
{
    m_desktop = std::make_unique<VirtualDesktop>(WindowManager::none);
    QVERIFY2(m_desktop->isReady(), qPrintable(m_desktop->error()));
    const QString home = m_desktop->homePath();
    m_record = home + u"/record"_s;
    m_program =
        writeProgram(home + u"/bin/trovell"_s,
                     "#!/bin/sh\nexec '" + QCoreApplication::applicationFilePath().toUtf8() + "' " +
                         instanceOption + " '" + m_record.toUtf8() + "'\n");
    m_desktop->environment().insert(u"PATH"_s, home + u"/bin:"_s + qEnvironmentVariable("PATH"));

    const QString service = QFINDTESTDATA("../../packaging/app.trovell.Trovell.service.in");
    writeFile(home + u"/.local/share/dbus-1/services/app.trovell.Trovell.service"_s,
              readFile(service).replace("@bindir@", home.toUtf8() + "/bin"));
}

void DesktopActivationTest::isStartedByTheBus()
{
    call("Activate", {"{'desktop-startup-id': <'menu_TIME7'>}"});
    QTRY_COMPARE(record(), (QByteArrayList{"started", "opened menu_TIME7"}));
}

void DesktopActivationTest::opensTheRunningInstance_data()
{
    QTest::addColumn<QByteArrayList>("call");
    QTest::addColumn<QByteArray>("token");
    using Call = QByteArrayList;
    QTest::newRow("both tokens") << Call{"Activate",
                                         "{'desktop-startup-id': <'b'>, 'activation-token': <'c'>}"}
                                 << QByteArray("c");
    QTest::newRow("action") << Call{"ActivateAction", "open-trovell", "[]",
                                    "{'desktop-startup-id': <'d'>}"}
                            << QByteArray("d");
    QTest::newRow("files") << Call{"Open", "['file:///tmp']", "{'desktop-startup-id': <'e'>}"}
                           << QByteArray("e");
    QTest::newRow("tokens that are none")
        << Call{"Activate", "{'desktop-startup-id': <7>, 'activation-token': <''>}"}
        << QByteArray();
}

void DesktopActivationTest::opensTheRunningInstance()
{
    QFETCH(QByteArrayList, call);
    QFETCH(QByteArray, token);
    startProgram();
    QTRY_COMPARE(record(), QByteArrayList{"started"});
    for (const char* unknown : {"quit", "start"})
        this->call("ActivateAction", {unknown, "[]", "@a{sv} {}"});
    this->call(call.first().constData(), call.mid(1));
    QTRY_COMPARE(record(), (QByteArrayList{"started", ("opened " + token).trimmed()}));
}

void DesktopActivationTest::startsOnceInARace()
{
    for (int i = 0; i < 6; ++i)
        startProgram();
    call("Activate", {"@a{sv} {}"});
    // The bus may or may not have started one more to deliver the call to.
    QTRY_VERIFY(record().size() >= 7);
    QCOMPARE(record().count("started"), 1);
}

int main(int argc, char** argv)
{
    if (argc == 3 && QByteArray(argv[1]) == instanceOption)
        return runInstance(argc, argv);
    QCoreApplication application(argc, argv);
    DesktopActivationTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "DesktopActivationTest.moc"
