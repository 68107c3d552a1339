// SPDX-License-Identifier: MIT
//
// Finding and using controls as a person does: by what they show. Main thread.
#pragma once

#include "support/Patience.h"
#include "views/style/Alert.h"
#include "words/WidgetTexts.h"

#include <QtTest>
#include <QtWidgets>

#include <algorithm>

namespace trovell::test {

using namespace Qt::StringLiterals;

/// The visible control that shows or is named `text`; null when there is none.
template <class Control = QAbstractButton> Control* find(const QWidget& root, const QString& text)
{
    for (Control* control : root.findChildren<Control*>()) {
        const bool isNamed = control->accessibleName() == text;
        if (control->isVisible() && (isNamed || control->property("text").toString() == text))
            return control;
    }
    return nullptr;
}

/// Fails the test when there is no such button or it cannot be used.
inline void click(const QWidget& root, const QString& text)
{
    auto* button = find<QAbstractButton>(root, text);
    QVERIFY2(button && button->isEnabled(), qPrintable(text));
    QTest::mouseClick(button, Qt::LeftButton);
}

/// The visible sheet or alert of that kind that was opened over the window of `widget`; null when
/// there is none.
template <class Kind> Kind* sheetOver(const QWidget& widget)
{
    const auto sheets = widget.window()->findChildren<Kind*>(Qt::FindDirectChildrenOnly);
    const auto shown = std::ranges::find_if(sheets, &QWidget::isVisible);
    return shown == sheets.end() ? nullptr : *shown;
}

/// Title and message of the alert over the window of `widget`; it is closed. Empty without one.
inline QStringList answeredAlert(const QWidget& widget)
{
    const auto* alert = sheetOver<Alert>(widget);
    if (!alert)
        return {};
    const QStringList said{alert->accessibleName(), alert->accessibleDescription()};
    click(*alert, u"OK"_s);
    return said;
}

/// With the left button.
inline void sendMouse(QWidget& widget, QEvent::Type type, const QPoint& position)
{
    QMouseEvent event(type, position, widget.mapToGlobal(position), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

/// Whether the list took the text.
inline bool dropText(QWidget& list, const QString& text, const QPoint& position)
{
    QMimeData data;
    data.setText(text);
    // Without an accepted entry no drop is delivered.
    QDragEnterEvent entry(position, Qt::MoveAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&list, &entry);
    QDropEvent event(position, Qt::MoveAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&list, &event);
    return entry.isAccepted() && event.isAccepted();
}

/// The offscreen platform ends every drag at once: what the list gave to it is dropped at `to`.
inline void drag(QWidget& list, const QPoint& from, const QPoint& to)
{
    sendMouse(list, QEvent::MouseButtonPress, from);
    sendMouse(list, QEvent::MouseMove, from + QPoint(0, 30));
    const auto* held = list.window()->findChild<QDrag*>();
    QVERIFY(held && !held->pixmap().isNull());
    QVERIFY(dropText(list, held->mimeData()->text(), to));
}

/// What `view` shows badly when the language changes while it is open, to longer texts and to
/// mirrored ones: texts without room, and those not looked up. `data` stands in records. Afterwards
/// the language is English.
inline QString languageProblems(const QWidget& view, Localization& words,
                                const QStringList& data = {})
{
    QStringList problems;
    for (const QString& language : {u"en-XA"_s, u"ar-XB"_s}) {
        words.setLanguage(language);
        QTest::qWait(20); // Lists are filled little by little.
        (void)QTest::qWaitFor([&] { return clippedTexts(view).isEmpty(); }, patience);
        problems += clippedTexts(view) + textsNotLookedUp(view, data);
        if (view.layoutDirection() != words.layoutDirection())
            problems += u"the direction of "_s + language;
    }
    words.setLanguage(u"en"_s);
    return problems.join(u'|');
}

} // namespace trovell::test
