// SPDX-License-Identifier: MIT

#include "views/style/Sheet.h"

#include "views/style/Accessibility.h"
#include "views/style/Divider.h"
#include "views/style/Layouts.h"
#include "views/style/Painting.h"
#include "views/style/PushButton.h"
#include "views/style/Scrim.h"
#include "views/style/ScrollArea.h"
#include "views/style/VisualStyle.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

#include <algorithm>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int shadowMargin = 48;
constexpr int screenMargin = 20; ///< on each side, so 40 less than the screen
constexpr int closeButtonInset = 16;
constexpr int closeSymbolSize = 18;

int heightAtWidth(const QWidget* part, int width)
{
    if (!part)
        return 0;
    const int least = part->minimumHeight();
    if (const QLayout* layout = part->layout())
        return std::max(least, layout->hasHeightForWidth() ? layout->totalHeightForWidth(width)
                                                           : layout->totalSizeHint().height());
    return std::max({least, part->sizeHint().height(), part->heightForWidth(width)});
}

/// `wanted` moved, where it must, to lie inside `area`.
QPoint sheetKeptInside(const QRect& area, const QPoint& wanted, const QSize& size)
{
    const int right = area.x() + area.width() - size.width();
    const int bottom = area.y() + area.height() - size.height();
    return {std::max(area.x(), std::min(wanted.x(), right)),
            std::max(area.y(), std::min(wanted.y(), bottom))};
}

} // namespace

Sheet::Sheet(const VisualStyle& visual, QWidget* window, const QString& title)
    : QDialog(window->window(), Qt::Dialog | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint),
      m_visual(visual), m_window(window->window()), m_scrollArea(new ScrollArea(this)),
      m_headerRule(new Divider(visual)), m_footerRule(new Divider(visual)),
      m_column(new ColumnLayout(this, allAround(visual.isComposited() ? shadowMargin : 0), 0,
                                {m_headerRule, {m_scrollArea, 1}, m_footerRule}))
{
    setAccessibleRole(*this, QAccessible::Dialog);
    setWindowTitle(title);
    setAccessibleName(title);
    setWindowModality(Qt::WindowModal);
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_TranslucentBackground, visual.isComposited());
    m_headerRule->hide();
    m_footerRule->hide();
    m_window->installEventFilter(this);
}

Sheet::~Sheet()
{
    delete m_scrim;
}

void Sheet::setHeader(QWidget* header)
{
    m_header = header;
    m_column->insertWidget(0, header);
    m_headerRule->show();
}

void Sheet::setBody(QWidget* body)
{
    m_body = body;
    m_scrollArea->setContent(body);
    body->installEventFilter(this);
}

void Sheet::setFooter(QWidget* footer)
{
    m_footer = footer;
    m_column->addWidget(footer);
    m_footerRule->show();
}

void Sheet::setFooterVisible(bool isVisible)
{
    m_footer->setVisible(isVisible);
    m_footerRule->setVisible(isVisible);
    fit();
}

void Sheet::setBoxSize(const QSize& size)
{
    m_boxSize = size;
    fit();
}

void Sheet::setBoxWidth(int width)
{
    setBoxSize({width, 0});
}

void Sheet::setDefaultButton(QAbstractButton* button)
{
    m_defaultButton = button;
}

void Sheet::setInitialFocus(QWidget* widget)
{
    m_initialFocus = widget;
}

void Sheet::showCloseButton(const QString& accessibleName)
{
    if (!m_closeButton) {
        m_closeButton = new SymbolButton(m_visual, u"xmark"_s, {}, SymbolButton::Kind::plain, this);
        m_closeButton->setSizes(28, closeSymbolSize);
        connect(m_closeButton, &QAbstractButton::clicked, this, &Sheet::cancel);
    }
    m_closeButton->setAccessibleName(accessibleName);
    m_closeButton->setToolTip(accessibleName);
    m_closeButton->show();
    placeCloseButton();
}

void Sheet::hideCloseButton()
{
    if (m_closeButton)
        m_closeButton->hide();
}

QRect Sheet::boxRect() const
{
    const int margin = m_visual.isComposited() ? shadowMargin : 0;
    return rect().adjusted(margin, margin, -margin, -margin);
}

double Sheet::boxRadius() const
{
    return m_visual.isComposited() ? m_visual.radius(Radius::sheet) : 0;
}

void Sheet::open()
{
    m_opener = m_window->focusWidget();
    fit();
    m_scrim = new Scrim(m_visual, *m_window);
    m_scrim->appear();
    focusFirst();
    if (m_visual.isComposited() && m_visual.duration(1) > 0)
        new SheetCurtain(m_visual, *this);
    QDialog::open();
}

void Sheet::done(int result)
{
    if (m_scrim) {
        const bool leavesGhost = m_visual.isComposited() && m_visual.duration(1) > 0;
        m_scrim->dismiss(leavesGhost ? grab() : QPixmap(), mapToGlobal(QPoint()));
        m_scrim = nullptr;
    }
    // The focus is back before anyone hears of the end, who may open the next sheet.
    hide();
    returnFocus();
    QDialog::done(result);
}

void Sheet::cancel()
{
    reject();
}

void Sheet::focusFirst()
{
    if (m_initialFocus)
        m_initialFocus->setFocus(Qt::TabFocusReason);
    else if (m_defaultButton)
        m_defaultButton->setFocus(Qt::TabFocusReason);
}

void Sheet::returnFocus()
{
    if (!m_opener || !m_opener->isVisible())
        return;
    m_window->activateWindow();
    m_opener->setFocus(Qt::OtherFocusReason);
}

QSize Sheet::wantedBoxSize() const
{
    if (m_boxSize.height() > 0)
        return m_boxSize;
    const int width = m_boxSize.width();
    const int rules = !m_headerRule->isHidden() + !m_footerRule->isHidden();
    const QWidget* footer = m_footerRule->isHidden() ? nullptr : m_footer.data();
    return {width, heightAtWidth(m_header, width) + heightAtWidth(m_body, width) +
                       heightAtWidth(footer, width) + rules};
}

void Sheet::fit()
{
    if (m_boxSize.isEmpty() && m_boxSize.width() <= 0)
        return;
    const int margin = m_visual.isComposited() ? shadowMargin : 0;
    const QSize room =
        m_window->screen()->availableGeometry().size() - QSize(2 * screenMargin, 2 * screenMargin);
    setFixedSize(wantedBoxSize().boundedTo(room) + QSize(2 * margin, 2 * margin));
    place();
}

void Sheet::place()
{
    const int margin = m_visual.isComposited() ? shadowMargin : 0;
    const QSize box = size() - QSize(2 * margin, 2 * margin);
    const QPoint middle =
        m_window->mapToGlobal(QPoint(m_window->width() / 2, m_window->height() / 2));
    const QRect area = m_window->screen()->availableGeometry().adjusted(
        screenMargin, screenMargin, -screenMargin, -screenMargin);
    const QPoint corner(middle.x() - box.width() / 2, middle.y() - box.height() / 2);
    move(sheetKeptInside(area, corner, box) - QPoint(margin, margin));
}

void Sheet::placeCloseButton()
{
    if (!m_closeButton)
        return;
    const QRect box = boxRect();
    const QSize side = m_closeButton->sizeHint();
    const QRect corner(QPoint(box.x() + box.width() - closeButtonInset - side.width(),
                              box.y() + closeButtonInset - 2),
                       side);
    m_closeButton->setGeometry(QStyle::visualRect(layoutDirection(), box, corner));
    m_closeButton->raise();
}

void Sheet::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect box = boxRect();
    if (m_visual.isComposited())
        paintShadow(painter, box, boxRadius(), m_visual.shadow(Palette::Shadow::shadowSheet),
                    shadowMargin);
    paintBox(painter, box, boxRadius(), m_visual.color(ColorToken::sheetBackground),
             m_visual.color(ColorToken::sheetBorder));
}

void Sheet::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    placeCloseButton();
}

void Sheet::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        cancel();
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_defaultButton && m_defaultButton->isVisible() && m_defaultButton->isEnabled())
            m_defaultButton->click();
        return;
    default:
        QDialog::keyPressEvent(event);
    }
}

void Sheet::closeEvent(QCloseEvent* event)
{
    // Before done() hides it, a close is the window manager's.
    if (!isVisible()) {
        QDialog::closeEvent(event);
        return;
    }
    // Qt would not close a dialog for good in the middle of a close that is being refused.
    event->ignore();
    QMetaObject::invokeMethod(this, &Sheet::cancel, Qt::QueuedConnection);
}

bool Sheet::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest)
        fit();
    return QDialog::event(event);
}

bool Sheet::eventFilter(QObject* watched, QEvent* event)
{
    const auto type = event->type();
    if (watched == m_window && (type == QEvent::Resize || type == QEvent::Move) && isVisible())
        place();
    else if (watched == m_body && type == QEvent::LayoutRequest)
        fit();
    return QDialog::eventFilter(watched, event);
}

} // namespace trovell
