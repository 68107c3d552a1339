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
    void kindFollowsTheType();
};

void X11WindowKindTest::kindFollowsTheType()
{
    const X11Atoms atoms = numberedAtoms();
    const auto kind = [&atoms](const QList<quint32>& types, bool isTransient = false) {
        const auto found = windowKind(types, isTransient, atoms);
        const QString subrole = found ? subroleOf(*found) : QString();
        return isOrdinaryKind(found) ? subrole + u", ordinary"_qs : subrole;
    };
    constexpr quint32 unknown = 99999;
    const QString standard = u"AXStandardWindow, ordinary"_qs;
    const QString dialog = u"AXDialog, ordinary"_qs;
    const QString floating = u"AXFloatingWindow"_qs;
    QCOMPARE(kind({}), standard);
    QCOMPARE(kind({}, true), dialog);
    QCOMPARE(kind({atoms.typeNormal}, true), standard);
    QCOMPARE(kind({atoms.typeDialog}), dialog);
    QCOMPARE(kind({unknown}, true), dialog);
    QCOMPARE(kind({atoms.typeUtility}), floating);
    QCOMPARE(kind({atoms.typeToolbar}, true), floating);
    QCOMPARE(kind({atoms.typeSplash}), u"AXSystemDialog"_qs);
    // The first known one counts.
    QCOMPARE(kind({unknown, atoms.typeUtility, atoms.typeNormal}), floating);
    for (const quint32 type :
         {atoms.typeDesktop, atoms.typeDock, atoms.typeMenu, atoms.typeDropdownMenu,
          atoms.typePopupMenu, atoms.typeTooltip, atoms.typeCombo, atoms.typeDragAndDrop})
        QCOMPARE(kind({type, atoms.typeNormal}), QString());
}

QTEST_GUILESS_MAIN(X11WindowKindTest)
#include "X11WindowKindTest.moc"
