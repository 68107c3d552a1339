// SPDX-License-Identifier: MIT

#include "pictures/Stage.h"

#include "preferences/PreferenceStore.h"
#include "views/app/OnboardingView.h"
#include "views/app/RootView.h"
#include "views/main/WorkspaceSidebarList.h"
#include "views/style/Sheet.h"
#include "views/support/Controls.h"

#include <QDrag>

namespace trovell::screenshots {

using namespace Qt::StringLiterals;

namespace {

/// How many windows lie below this one.
int depthOf(const QWidget* window)
{
    int depth = window->windowType() == Qt::Popup || window->windowType() == Qt::ToolTip ? 100 : 0;
    for (const QWidget* below = window; below->parentWidget(); ++depth)
        below = below->parentWidget()->window();
    return depth;
}

/// All visible windows, those behind first.
QWidgetList visibleWindows()
{
    QWidgetList windows = QApplication::topLevelWidgets();
    windows.removeIf([](const QWidget* window) { return !window->isVisible(); });
    std::ranges::sort(windows, {}, &depthOf);
    return windows;
}

/// Those that are visible, from top to bottom.
QList<QAbstractButton*> buttonsIn(QWidget& root, const QString& text)
{
    auto buttons = root.findChildren<QAbstractButton*>();
    buttons.removeIf([&](const QAbstractButton* button) {
        return !button->isVisible() || (button->text() != text && button->accessibleName() != text);
    });
    if (buttons.isEmpty())
        qFatal("no button %s", qPrintable(text));
    std::ranges::sort(buttons, {}, [](const QAbstractButton* button) {
        const QPoint place = button->mapToGlobal(QPoint());
        return std::pair(place.y(), place.x());
    });
    return buttons;
}

} // namespace

Stage::Stage(const Look& look) : m_look(look), m_desktop(*this)
{
    environment().visual.setAppearance(look.appearance);
    dependencies().defaults().setValue(u"onboarding.completed"_s, true);
    window().setMinimumSize(900, 620);
    window().resize(look.windowSize);
}

Stage::~Stage()
{
    finishLaunch();
    settle();
}

void Stage::finishLaunch()
{
    constexpr std::chrono::milliseconds pause{250};
    while (dependencies().launcher().isLaunching()) {
        // Only windows are waited for; everything else answers by itself.
        if (clock.sleeperCount(pause) > 0)
            clock.advance(pause);
        settle();
    }
}

void Stage::openMainWindow(int row)
{
    window().setCentralWidget(new RootView(environment(), dependencies().defaults()));
    window().show();
    window().activateWindow();
    settle();
    // As if the mouse had been used last.
    if (QWidget* focused = window().focusWidget())
        focused->clearFocus();
    if (row < sidebar().model()->rowCount())
        sidebar().setCurrentIndex(sidebar().model()->index(row, 0));
    settle();
}

WorkspaceSidebarList& Stage::sidebar()
{
    return *window().findChild<WorkspaceSidebarList*>();
}

void Stage::setTrusted(bool isTrusted)
{
    windows->trusted = isTrusted;
    dependencies().accessibility().refresh();
}

void Stage::press(QWidget& root, const QString& text)
{
    QTest::mouseClick(buttonsIn(root, text).first(), Qt::LeftButton);
    settle();
}

void Stage::pressLast(const QString& text)
{
    QTest::mouseClick(buttonsIn(front(), text).last(), Qt::LeftButton);
    settle();
}

void Stage::type(const QString& field, const QString& text)
{
    for (auto* edit : front().findChildren<QLineEdit*>()) {
        if (edit->accessibleName() != field)
            continue;
        edit->selectAll();
        QTest::keyClicks(edit, text);
        settle();
        return;
    }
    qFatal("no field %s", qPrintable(field));
}

void Stage::openMenu(const QString& button, int row)
{
    // Without the release, which goes to the menu.
    QTest::mousePress(buttonsIn(front(), button).first(), Qt::LeftButton);
    settle();
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu)
        qFatal("no menu opened");
    menu->setActiveAction(menu->actions().at(row));
}

QWidget& Stage::front()
{
    QWidget* front = &window();
    for (QWidget* candidate : visibleWindows()) {
        if (qobject_cast<Sheet*>(candidate))
            front = candidate;
    }
    return *front;
}

void Stage::settle()
{
    for (int pass = 0; pass < 5; ++pass) {
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

QImage Stage::picture(QWidget& window)
{
    if (m_look.language != environment().words.localeTag())
        environment().words.setLanguage(m_look.language);
    settle();
    return pictureNow(window);
}

QImage Stage::pictureNow(QWidget& window)
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    QWidgetList stack = visibleWindows();
    stack.removeIf([&window](const QWidget* other) {
        return other != &window && depthOf(other) <= depthOf(&window);
    });
    const auto placeOf = [&window](const QWidget* shown, const QRect& part) {
        return part.translated(shown->mapToGlobal(QPoint()) - window.mapToGlobal(QPoint()));
    };
    // Sheets may be larger than the window.
    QRect area = window.rect();
    for (const QWidget* shown : std::as_const(stack)) {
        if (const auto* sheet = qobject_cast<const Sheet*>(shown); sheet && shown != &window)
            area |= placeOf(sheet, sheet->boxRect());
    }
    const double ratio = window.devicePixelRatioF();
    QImage picture((QSizeF(area.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    for (QWidget* shown : std::as_const(stack))
        painter.drawPixmap(placeOf(shown, shown->rect()).topLeft() - area.topLeft(), shown->grab());
    painter.end();
    return picture;
}

QImage Stage::pictureOfDrag(RowList& list, int from, int to, const QPoint& offset)
{
    const auto middleOf = [&list](int row) {
        return list.rowRect(list.model()->index(row, 0)).center();
    };
    QWidget& rows = *list.viewport();
    test::sendMouse(rows, QEvent::MouseButtonPress, middleOf(from));
    test::sendMouse(rows, QEvent::MouseMove, middleOf(from) + QPoint(40, 0));
    // Over already, since this platform has no drags.
    const auto& held = *list.window()->findChild<QDrag*>();
    const QPixmap row = held.pixmap();
    const QPoint place =
        rows.mapToGlobal(middleOf(to) + offset) - window().mapToGlobal(held.hotSpot());
    QMimeData data;
    data.setText(held.mimeData()->text());
    list.setLiftedRow(list.model()->index(from, 0));
    QDragEnterEvent entry(middleOf(to), Qt::MoveAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&rows, &entry);
    QDragMoveEvent move(middleOf(to), Qt::MoveAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&rows, &move);
    QImage image = picture();
    QPainter(&image).drawPixmap(place, row);
    return image;
}

QImage Stage::pictureOfSheet(Sheet& sheet)
{
    const QRect box = sheet.boxRect();
    const QImage whole = picture(sheet);
    const double ratio = whole.devicePixelRatio();
    return whole.copy(QRectF(QPointF(box.topLeft()) * ratio, QSizeF(box.size()) * ratio).toRect());
}

} // namespace trovell::screenshots
