// SPDX-License-Identifier: MIT

#include "Stage.h"

#include "support/Patience.h"
#include "views/style/Alert.h"
#include "views/style/PushButton.h"
#include "views/style/Scrim.h"
#include "views/style/ScrollArea.h"
#include "views/style/Sheet.h"
#include "views/style/TextField.h"

#include <QCheckBox>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

/// A small form in a sheet, as for renaming.
struct Form {
    Form(const VisualStyle& visual, QWidget* window)
        : sheet(new Sheet(visual, window, u"Rename"_s)), body(new QWidget)
    {
        auto* column = new QVBoxLayout(body);
        column->setContentsMargins(24, 24, 24, 24);
        field = new TextField(visual, u"Name"_s);
        box = new QCheckBox(u"Also the folder"_s);
        cancel = new PushButton(visual, u"Cancel"_s);
        save = new PushButton(visual, u"Rename"_s, PushButton::Kind::prominent);
        for (QWidget* widget : std::initializer_list<QWidget*>{field, box, cancel, save})
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
        // Until then keys go to the window below, which Qt counts as active as well.
        QTRY_COMPARE(QApplication::activeWindow(), sheet.data());
    }

    QPointer<Sheet> sheet;
    QWidget* body;
    TextField* field;
    QCheckBox* box;
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
    void init()
    {
        m_window = std::make_unique<Stage>();
        m_opener = m_window->add(new PushButton(m_visual, u"Open"_s));
        m_window->add(new PushButton(m_visual, u"Other"_s));
        m_window->move(100, 100);
        m_window->open({500, 400});
        m_opener->setFocus();
    }

    void cleanup() { m_window.reset(); }

    void returnPressesTheDefaultButtonOrTheFocusedOne()
    {
        for (const bool fromBox : {false, true}) {
            Form form(m_visual, m_window.get());
            form.open();
            QVERIFY(form.field->hasFocus());
            QSignalSpy finished(form.sheet, &QDialog::finished);
            if (fromBox)
                form.box->setFocus();
            form.save->setEnabled(false);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            QCOMPARE(finished.size(), 0);
            form.save->setEnabled(true);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            QCOMPARE(finished.value(0).value(0).toInt(), QDialog::Accepted);
        }
        Form form(m_visual, m_window.get());
        form.open();
        QSignalSpy rejected(form.sheet, &QDialog::rejected);
        form.cancel->setFocus();
        QTest::keyClick(form.cancel, Qt::Key_Return);
        QCOMPARE(rejected.size(), 1);
    }

    void cancelsAndGivesTheFocusBack()
    {
        const std::function<void(Form&)> ways[]{
            [](Form& form) { QTest::keyClick(form.field, Qt::Key_Escape); },
            [](Form& form) { form.sheet->close(); },
            [](Form& form) {
                const QPoint corner = form.sheet->boxRect().topRight();
                QWidget* cross = form.sheet->childAt(corner + QPoint(-28, 28));
                QCOMPARE(cross->accessibleName(), u"Cancel"_s);
                QTest::mouseClick(cross, Qt::LeftButton);
            }};
        for (const auto& cancel : ways) {
            Form form(m_visual, m_window.get());
            form.sheet->showCloseButton(u"Cancel"_s);
            form.open();
            QVERIFY(!m_opener->hasFocus());
            QSignalSpy rejected(form.sheet, &QDialog::rejected);
            int finished = 0;
            connect(form.sheet, &QDialog::finished, this,
                    [&] { finished += m_window->focusWidget() == m_opener; });
            cancel(form);
            QTRY_COMPARE(rejected.size(), 1);
            QCOMPARE(finished, 1);
            QTRY_VERIFY(!form.sheet);
            QTRY_VERIFY(m_opener->hasFocus());
        }
    }

    void scrimsCoverAndGo()
    {
        const QColor before = shownColor(*m_window, {4, 4});
        Form outer(m_visual, m_window.get());
        outer.open();
        QVERIFY(shownColor(*m_window, {4, 4}).lightness() < before.lightness() - 30);
        m_window->resize(620, 480);
        QCOMPARE(scrimsOf(*m_window).value(0)->size(), QSize(620, 480));
        Form inner(m_visual, outer.cancel);
        inner.open();
        QCOMPARE(scrimsOf(*outer.sheet).value(0)->geometry(), outer.sheet->boxRect());
        for (const Form* form : {&inner, &outer}) {
            QTRY_VERIFY(form->field->hasFocus());
            QTest::keyClick(form->field, Qt::Key_Escape);
            QTRY_VERIFY(!form->sheet);
        }
        QTRY_VERIFY(scrimsOf(*m_window).isEmpty());
        QCOMPARE(shownColor(*m_window, {4, 4}), before);
    }

    void largeSheetIsKeptOnTheScreen()
    {
        Form form(m_visual, m_window.get());
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
        bar->setValue(0);
        form.save->setFocus();
        QVERIFY(bar->value() > 0);
    }

    /// At every length of the message, the widths around that of a line among them.
    void alertIsAsHighAsItsMessage()
    {
        QString message;
        for (int words = 1; words <= 100; ++words) {
            message += u"i "_s;
            Alert alert(m_visual, m_window.get(), u"Could Not Be Saved"_s, message);
            alert.setAttribute(Qt::WA_DeleteOnClose, false);
            alert.addButton(u"OK"_s, Alert::Role::confirm);
            alert.open();
            QApplication::processEvents();
            auto* area = alert.findChild<ScrollArea*>();
            QCOMPARE(area->widget()->height(), alert.boxRect().height());
            QCOMPARE(area->widget()->height(), area->widget()->heightForWidth(area->width()));
            alert.cancel();
        }
    }

private:
    StillStyle m_visual;
    std::unique_ptr<Stage> m_window;
    PushButton* m_opener = nullptr;
};

QTEST_MAIN(SheetTest)
#include "SheetTest.moc"
