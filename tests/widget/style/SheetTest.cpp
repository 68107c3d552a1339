#include "Stage.h"

#include "views/style/Alert.h"
#include "views/style/CheckBox.h"
#include "views/style/PushButton.h"
#include "views/style/Scrim.h"
#include "views/style/ScrollArea.h"
#include "views/style/Sheet.h"
#include "views/style/TextField.h"
#include "views/style/TextLabel.h"

#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

using namespace trovell;

namespace {

/// Until then keys go to the window below, which Qt counts as active as well.
void waitForKeys(QWidget* sheet)
{
    QTRY_COMPARE(QApplication::activeWindow(), sheet);
}

/// A small form in a sheet, as for renaming.
struct Form {
    Form(const VisualStyle& visual, QWidget* window)
        : sheet(new Sheet(visual, window, u"Rename"_qs)), body(new QWidget)
    {
        auto* column = new QVBoxLayout(body);
        column->setContentsMargins(24, 24, 24, 24);
        field = new TextField(visual, u"Name"_qs);
        box = new CheckBox(visual, u"Also the folder"_qs);
        message = new TextLabel(visual, {}, TextRole::caption);
        message->setWordWrap(true);
        message->hide();
        cancel = new PushButton(visual, u"Cancel"_qs);
        save = new PushButton(visual, u"Rename"_qs, PushButton::Kind::prominent);
        for (QWidget* widget : std::initializer_list<QWidget*>{field, box, message, cancel, save})
            column->addWidget(widget);
        sheet->setBody(body);
        sheet->setBoxWidth(440);
        sheet->setInitialFocus(field);
        sheet->setDefaultButton(save);
        QObject::connect(cancel, &QAbstractButton::clicked, sheet, &Sheet::cancel);
        QObject::connect(save, &QAbstractButton::clicked, sheet, &QDialog::accept);
    }

    void open()
    {
        sheet->open();
        waitForKeys(sheet);
    }

    QPointer<Sheet> sheet;
    QWidget* body;
    TextField* field;
    CheckBox* box;
    TextLabel* message;
    PushButton* cancel;
    PushButton* save;
};

QList<Scrim*> scrimsOf(const QWidget& window)
{
    return window.findChildren<Scrim*>(QString(), Qt::FindDirectChildrenOnly);
}

} // namespace

class SheetTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_visual = std::make_unique<StillStyle>(); }
    void init();
    void cleanup();

    void returnPressesTheDefaultButton(); // or the one that has the focus
    void escapeAndCloseCancel();
    void focusReturns();
    void tabStaysInside();
    void scrimCoversAndGoes();
    void nestedSheetDimsTheOneBelow();
    void heightFollowsTheContents();
    void largeSheetIsKeptOnTheScreen();
    void animatedSheetTakesKeysAtOnce();
    void closeButtonCancels();
    void alertChoices_data();
    void alertChoices();
    void alertIsAsHighAsItsMessage();

private:
    std::unique_ptr<StillStyle> m_visual;
    std::unique_ptr<Stage> m_window;
    PushButton* m_opener = nullptr;
};

void SheetTest::init()
{
    m_window = std::make_unique<Stage>();
    m_opener = m_window->add(new PushButton(*m_visual, u"Open"_qs));
    m_window->add(new PushButton(*m_visual, u"Other"_qs));
    m_window->move(100, 100);
    m_window->open({500, 400});
    m_opener->setFocus();
}

void SheetTest::cleanup()
{
    m_visual->setAnimationReduced(true);
    m_window.reset();
}

void SheetTest::returnPressesTheDefaultButton()
{
    for (const bool fromBox : {false, true}) {
        Form form(*m_visual, m_window.get());
        form.open();
        QVERIFY(form.field->hasFocus());
        QSignalSpy accepted(form.sheet, &QDialog::accepted);
        if (fromBox)
            form.box->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(accepted.size(), 1);
        QTRY_VERIFY(!form.sheet);
    }
    Form form(*m_visual, m_window.get());
    form.save->setEnabled(false);
    form.open();
    QSignalSpy rejected(form.sheet, &QDialog::rejected);
    QTest::keyClick(form.field, Qt::Key_Return);
    QVERIFY(form.sheet->isVisible());
    form.cancel->setFocus();
    QTest::keyClick(form.cancel, Qt::Key_Return);
    QCOMPARE(rejected.size(), 1);
}

void SheetTest::escapeAndCloseCancel()
{
    for (const bool byKey : {true, false}) {
        Form form(*m_visual, m_window.get());
        form.open();
        QSignalSpy rejected(form.sheet, &QDialog::rejected);
        QSignalSpy finished(form.sheet, &QDialog::finished);
        if (byKey)
            QTest::keyClick(form.field, Qt::Key_Escape);
        else
            form.sheet->close();
        QTRY_COMPARE(rejected.size(), 1);
        QCOMPARE(finished.size(), 1);
        QTRY_VERIFY(!form.sheet);
    }
}

void SheetTest::focusReturns()
{
    Form form(*m_visual, m_window.get());
    form.open();
    QVERIFY(!m_opener->hasFocus());
    bool wasBackInTime = false;
    connect(form.sheet, &QDialog::finished, this,
            [&] { wasBackInTime = m_window->focusWidget() == m_opener; });
    form.sheet->accept();
    QVERIFY(wasBackInTime);
    QTRY_VERIFY(m_opener->hasFocus());
}

void SheetTest::tabStaysInside()
{
    Form form(*m_visual, m_window.get());
    form.open();
    for (int i = 0; i < 8; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY(form.sheet->isAncestorOf(QApplication::focusWidget()));
    }
    form.sheet->cancel();
}

void SheetTest::scrimCoversAndGoes()
{
    const QColor before = shownColor(*m_window, {4, 4});
    Form form(*m_visual, m_window.get());
    form.open();
    QCOMPARE(scrimsOf(*m_window).size(), 1);
    QVERIFY(shownColor(*m_window, {4, 4}).lightness() < before.lightness() - 30);
    m_window->resize(620, 480);
    QCOMPARE(scrimsOf(*m_window)[0]->size(), QSize(620, 480));
    form.sheet->accept();
    QTRY_VERIFY(scrimsOf(*m_window).isEmpty());
    QCOMPARE(shownColor(*m_window, {4, 4}), before);
}

void SheetTest::nestedSheetDimsTheOneBelow()
{
    Form outer(*m_visual, m_window.get());
    outer.open();
    const QRect box = outer.sheet->boxRect();
    const QPoint place = box.topLeft() + QPoint(60, 6);
    const QColor before = shownColor(*outer.sheet, place);
    Form inner(*m_visual, outer.cancel);
    inner.open();
    QCOMPARE(scrimsOf(*outer.sheet).value(0)->geometry(), box);
    QVERIFY(shownColor(*outer.sheet, place).lightness() < before.lightness());
    for (const Form* form : {&inner, &outer}) {
        QTRY_VERIFY(form->field->hasFocus());
        QTest::keyClick(form->field, Qt::Key_Escape);
        QTRY_VERIFY(!form->sheet);
    }
}

void SheetTest::heightFollowsTheContents()
{
    Form form(*m_visual, m_window.get());
    form.open();
    const int height = form.sheet->boxRect().height();
    QCOMPARE(form.sheet->boxRect().width(), 440);
    form.message->setText(u"That name cannot be used for a workspace because another one that is "
                          "saved already has it; choose a different name."_qs);
    form.message->show();
    QTRY_VERIFY(form.sheet->boxRect().height() >= height + 32);
    QTRY_COMPARE(form.message->height(), form.message->heightForWidth(form.message->width()));
    form.sheet->cancel();
}

void SheetTest::largeSheetIsKeptOnTheScreen()
{
    Form form(*m_visual, m_window.get());
    form.body->setMinimumHeight(5000);
    auto* footer = new QWidget;
    footer->setMinimumHeight(64);
    form.sheet->setFooter(footer);
    form.open();
    const QRect screen = m_window->screen()->availableGeometry();
    const QRect box = form.sheet->boxRect().translated(form.sheet->pos());
    QCOMPARE(box.height(), screen.height() - 40);
    QVERIFY(screen.adjusted(20, 20, -20, -20).contains(box));
    // The footer stays; the body scrolls, and follows the focus.
    QCOMPARE(footer->geometry().bottom(), form.sheet->boxRect().bottom());
    auto* bar = form.sheet->findChild<ScrollArea*>()->verticalScrollBar();
    QVERIFY(bar->maximum() > 4000);
    bar->setValue(0);
    form.save->setFocus();
    QVERIFY(bar->value() > 0);
    form.sheet->cancel();
}

void SheetTest::animatedSheetTakesKeysAtOnce()
{
    m_visual->setAnimationReduced(false);
    Form form(*m_visual, m_window.get());
    form.open();
    QTest::keyClicks(form.field, u"Studio"_qs);
    QCOMPARE(form.field->text(), u"Studio"_qs);
    QSignalSpy accepted(form.sheet, &QDialog::accepted);
    QTest::keyClick(form.field, Qt::Key_Return);
    QCOMPARE(accepted.size(), 1);
    QVERIFY(m_window->focusWidget() == m_opener);
    // The scrim fades out without holding anyone up.
    QVERIFY(scrimsOf(*m_window)[0]->testAttribute(Qt::WA_TransparentForMouseEvents));
    QTRY_VERIFY(scrimsOf(*m_window).isEmpty());
}

void SheetTest::closeButtonCancels()
{
    Form form(*m_visual, m_window.get());
    form.sheet->showCloseButton(u"Cancel"_qs);
    form.open();
    QSignalSpy rejected(form.sheet, &QDialog::rejected);
    const QRect box = form.sheet->boxRect();
    QWidget* cross = form.sheet->childAt(box.topRight() + QPoint(-28, 28));
    QVERIFY(cross);
    QCOMPARE(cross->accessibleName(), u"Cancel"_qs);
    QTest::mouseClick(cross, Qt::LeftButton);
    QCOMPARE(rejected.size(), 1);
}

void SheetTest::alertChoices_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("isDestructive");
    QTest::addColumn<Alert::Role>("role");
    QTest::newRow("return is safe") << Qt::Key_Return << true << Alert::Role::cancel;
    QTest::newRow("return confirms") << Qt::Key_Return << false << Alert::Role::confirm;
    QTest::newRow("escape") << Qt::Key_Escape << false << Alert::Role::cancel;
}

void SheetTest::alertChoices()
{
    QFETCH(Qt::Key, key);
    QFETCH(bool, isDestructive);
    QPointer<Alert> alert =
        new Alert(*m_visual, m_window.get(), u"Delete Workspace?"_qs, u"Cannot be undone."_qs);
    QPushButton* cancel = alert->addButton(u"Cancel"_qs, Alert::Role::cancel);
    QPushButton* action = alert->addButton(u"Delete"_qs, isDestructive ? Alert::Role::destructive
                                                                       : Alert::Role::confirm);
    QSignalSpy chosen(alert, &Alert::chosen);
    alert->open();
    waitForKeys(alert);
    QCOMPARE(QApplication::focusWidget(), isDestructive ? cancel : action);
    QVERIFY(cancel->mapTo(alert, QPoint()).x() < action->mapTo(alert, QPoint()).x());
    QCOMPARE(alert->boxRect().width(), 420);
    QTest::keyClick(QApplication::focusWidget(), key);
    QCOMPARE(chosen.size(), 1);
    QTEST(chosen[0][0].value<Alert::Role>(), "role");
    QTRY_VERIFY(!alert);
    QTRY_VERIFY(m_opener->hasFocus());
}

/// At every length of the message, the widths around that of a line among them.
void SheetTest::alertIsAsHighAsItsMessage()
{
    QString message;
    for (int words = 1; words <= 100; ++words) {
        message += u"i "_qs;
        Alert alert(*m_visual, m_window.get(), u"Could Not Be Saved"_qs, message);
        alert.setAttribute(Qt::WA_DeleteOnClose, false);
        alert.addButton(u"OK"_qs, Alert::Role::confirm);
        alert.open();
        QApplication::processEvents();
        auto* area = alert.findChild<ScrollArea*>();
        QVERIFY2(area->verticalScrollBar()->maximum() == 0, qPrintable(message));
        QCOMPARE(area->widget()->height(), alert.boxRect().height());
        QCOMPARE(area->widget()->height(), area->widget()->heightForWidth(area->width()));
        alert.cancel();
    }
}

QTEST_MAIN(SheetTest)
#include "SheetTest.moc"
