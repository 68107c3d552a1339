#include "platform/x11/X11WindowKind.h"

#include <QTest>

using namespace trovell;

namespace {

X11Atoms numberedAtoms()
{
    X11Atoms atoms;
    quint32 next = 100;
    for (auto member :
         {&X11Atoms::typeDesktop, &X11Atoms::typeDock, &X11Atoms::typeToolbar, &X11Atoms::typeMenu,
          &X11Atoms::typeUtility, &X11Atoms::typeSplash, &X11Atoms::typeDialog,
          &X11Atoms::typeDropdownMenu, &X11Atoms::typePopupMenu, &X11Atoms::typeTooltip,
          &X11Atoms::typeNotification, &X11Atoms::typeCombo, &X11Atoms::typeDragAndDrop,
          &X11Atoms::typeNormal})
        atoms.*member = ++next;
    return atoms;
}

} // namespace

class X11WindowKindTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void kindFollowsTheType_data();
    void kindFollowsTheType();
};

void X11WindowKindTest::kindFollowsTheType_data()
{
    const X11Atoms atoms = numberedAtoms();
    constexpr quint32 unknown = 99999;
    QTest::addColumn<QList<quint32>>("types");
    QTest::addColumn<bool>("isTransient");
    QTest::addColumn<QString>("subrole"); // empty: no window at all
    QTest::addColumn<bool>("isOrdinary");
    const auto row = [](const char* name, QList<quint32> types, bool isTransient,
                        const QString& subrole, bool isOrdinary) {
        QTest::newRow(name) << types << isTransient << subrole << isOrdinary;
    };
    const QString standard = u"AXStandardWindow"_qs;
    const QString dialog = u"AXDialog"_qs;
    const QString floating = u"AXFloatingWindow"_qs;
    const QString system = u"AXSystemDialog"_qs;
    row("no type", {}, false, standard, true);
    row("no type, transient", {}, true, dialog, true);
    row("normal", {atoms.typeNormal}, false, standard, true);
    row("normal, transient", {atoms.typeNormal}, true, standard, true);
    row("dialog", {atoms.typeDialog}, false, dialog, true);
    row("utility", {atoms.typeUtility}, false, floating, false);
    row("toolbar", {atoms.typeToolbar}, true, floating, false);
    row("splash", {atoms.typeSplash}, false, system, false);
    row("notification", {atoms.typeNotification}, false, system, false);
    row("only unknown", {unknown}, true, dialog, true);
    row("first known one counts", {unknown, atoms.typeUtility, atoms.typeNormal}, false, floating,
        false);
    for (const quint32 type :
         {atoms.typeDesktop, atoms.typeDock, atoms.typeMenu, atoms.typeDropdownMenu,
          atoms.typePopupMenu, atoms.typeTooltip, atoms.typeCombo, atoms.typeDragAndDrop})
        row(qPrintable(u"no window %1"_qs.arg(type)), {type, atoms.typeNormal}, false, {}, false);
}

void X11WindowKindTest::kindFollowsTheType()
{
    QFETCH(QList<quint32>, types);
    QFETCH(bool, isTransient);
    QFETCH(QString, subrole);
    QFETCH(bool, isOrdinary);
    const auto kind = windowKind(types, isTransient, numberedAtoms());
    QCOMPARE(kind ? subroleOf(*kind) : QString(), subrole);
    QCOMPARE(isOrdinaryKind(kind), isOrdinary);
}

QTEST_GUILESS_MAIN(X11WindowKindTest)
#include "X11WindowKindTest.moc"
