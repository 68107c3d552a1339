// Finding and using controls as a person does: by what they show. Main thread.
#pragma once

#include <QAbstractButton>
#include <QtTest>
#include <QWidget>

#include <algorithm>

namespace trovell::test {

/// The visible control that shows or is named `text`; null when there is none.
template <class Control> Control* find(QWidget& root, const QString& text)
{
    for (auto* control : root.findChildren<Control*>()) {
        if (control->isVisible() && (control->text() == text || control->accessibleName() == text))
            return control;
    }
    return nullptr;
}

/// Fails the test when there is no such button or it cannot be used.
inline void click(QWidget& root, const QString& text)
{
    auto* button = find<QAbstractButton>(root, text);
    QVERIFY2(button && button->isEnabled(), qPrintable(text));
    QTest::mouseClick(button, Qt::LeftButton);
}

/// The visible sheet or alert of that kind that was opened over the window of `widget`; null when
/// there is none.
template <class Kind> Kind* sheetOver(QWidget& widget)
{
    const auto sheets = widget.window()->findChildren<Kind*>(Qt::FindDirectChildrenOnly);
    const auto shown = std::ranges::find_if(sheets, &QWidget::isVisible);
    return shown == sheets.end() ? nullptr : *shown;
}

} // namespace trovell::test
