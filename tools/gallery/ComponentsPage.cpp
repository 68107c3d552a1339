// SPDX-License-Identifier: MIT

#include "GalleryPage.h"

#include "views/style/BannerFrame.h"
#include "views/style/ChoiceRow.h"
#include "views/style/Divider.h"
#include "views/style/Menus.h"
#include "views/style/Picker.h"
#include "views/style/PushButton.h"
#include "views/style/RowPainting.h"
#include "views/style/Switch.h"
#include "views/style/SymbolView.h"
#include "views/style/TextField.h"
#include "views/style/TextLabel.h"

#include <QApplication>
#include <QCheckBox>
#include <QEnterEvent>
#include <QFocusFrame>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QRadioButton>
#include <QToolTip>

namespace trovell::gallery {

using namespace Qt::StringLiterals;

namespace {

const QStringList& symbolNames()
{
    static const QStringList names{
        u"rectangle.3.group"_s, u"briefcase"_s, u"paintbrush"_s, u"hammer"_s, u"book"_s,
        u"music.note"_s,        u"terminal"_s,  u"network"_s};
    return names;
}

struct SidebarRow {
    QString name;
    QString symbolName;
    QString shortcut;
    RowState state;
    bool hasDropLine = false;
};

/// Rows as a sidebar's delegate would paint them.
class RowsView : public QWidget {
public:
    RowsView(const VisualStyle& visual, QList<SidebarRow> rows)
        : m_visual(visual), m_rows(std::move(rows))
    {
        setFixedSize(342, 302);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(m_visual.color(ColorToken::sidebarBackground));
        painter.drawRoundedRect(rect(), 8, 8);
        QRect row(8, 8, width() - 16, 46);
        for (const SidebarRow& content : m_rows) {
            paintRow(painter, row, content);
            row.translate(0, 48);
        }
    }

private:
    void paintRow(QPainter& painter, const QRect& row, const SidebarRow& content) const
    {
        paintRowBackground(painter, m_visual, row, content.state);
        m_visual.paintSymbol(painter, QRectF(row.x() + 10, row.y() + 13, 20, 20),
                             content.symbolName, m_visual.color(ColorToken::brand));
        const QRectF text = QRectF(row).adjusted(40, 4, -10, 0);
        paintLine(painter, QRectF(text.topLeft(), QSizeF(200, 20)),
                  m_visual.text(TextRole::body,
                                content.state.isSelected ? QFont::DemiBold : QFont::Medium),
                  m_visual.color(ColorToken::labelPrimary), content.name);
        paintLine(painter, QRectF(text.topLeft() + QPointF(0, 22), QSizeF(200, 16)),
                  m_visual.text(TextRole::caption), m_visual.color(ColorToken::labelSecondary),
                  u"4 items"_s);
        paintLine(painter, QRectF(row).adjusted(0, 0, -10, 0), m_visual.text(TextRole::caption2),
                  m_visual.color(ColorToken::labelTertiary), content.shortcut, Qt::AlignRight);
        if (content.hasDropLine)
            paintDropLine(painter, m_visual, row, layoutDirection());
    }

    const VisualStyle& m_visual;
    QList<SidebarRow> m_rows;
};

class ComponentsPage : public GalleryPage {
public:
    explicit ComponentsPage(VisualStyle& style) : GalleryPage(style, {1180, 1510})
    {
        addButtons();
        addRows();
        addActions();
        addFields();
        addMenus();
        addBanners();
    }

private:
    using MakeControl = std::function<QWidget*()>;

    void addStates(QWidget* card, const QString& name, int top, const MakeControl& make);
    void addButtons();
    void addRows();
    void addActions();
    void addFields();
    void addToggles(QWidget* card);
    void addMenus();
    void addPicture(QWidget* card, const QPoint& place, QWidget& window, int margin);
    void addBanners();
    BannerFrame* addBanner(const QRect& place, BannerFrame::Kind kind, const QString& symbolName,
                           ColorToken color, const QString& title, const QString& text);
};

void ComponentsPage::addStates(QWidget* card, const QString& name, int top, const MakeControl& make)
{
    addText(card, {20, top - 8}, name, TextRole::caption, ColorToken::labelSecondary);
    int x = 131;
    for (const State state :
         {State::rest, State::hover, State::pressed, State::focus, State::disabled}) {
        QWidget* control = make();
        add(card, control, {x, top - control->sizeHint().height() / 2}, state);
        x += 116;
    }
}

void ComponentsPage::addButtons()
{
    QWidget* card = addCard({32, 32, 716, 448}, u"Buttons"_s);
    int x = 131;
    for (const QString& state :
         {u"Rest"_s, u"Hover"_s, u"Pressed"_s, u"Keyboard focus"_s, u"Disabled"_s}) {
        addText(card, {x, 53}, state, TextRole::caption, ColorToken::labelSecondary);
        x += 116;
    }
    using Kind = PushButton::Kind;
    const auto push = [this](const QString& text, Kind kind, PushButton::Scale scale) {
        return [this, text, kind, scale]() -> QWidget* {
            return new PushButton(visual(), text, kind, scale);
        };
    };
    const auto regular = PushButton::Scale::regular;
    addStates(card, u"Bordered"_s, 97, push(u"Cancel"_s, Kind::bordered, regular));
    addStates(card, u"Bordered small"_s, 141,
              push(u"Edit"_s, Kind::bordered, PushButton::Scale::small));
    addStates(card, u"Prominent"_s, 185, push(u"Save"_s, Kind::prominent, regular));
    addStates(card, u"Destructive"_s, 229, push(u"Delete"_s, Kind::destructive, regular));
    addStates(card, u"Destructive text"_s, 273, push(u"Clear"_s, Kind::destructiveText, regular));
    addStates(card, u"Link"_s, 317,
              [this]() -> QWidget* { return new LinkButton(visual(), u"Locate Again"_s); });
    addStates(card, u"Borderless menu"_s, 361, [this]() -> QWidget* {
        return new SymbolButton(visual(), u"ellipsis.circle"_s, u"Workspace Actions"_s);
    });
    addStates(card, u"Remove"_s, 405, [this]() -> QWidget* {
        return new SymbolButton(visual(), u"trash"_s, u"Remove"_s,
                                SymbolButton::Kind::softDestructive);
    });
}

void ComponentsPage::addRows()
{
    QWidget* card = addCard({764, 32, 384, 448}, u"Sidebar rows"_s);
    const RowState selected{true, false, false, true};
    add(card,
        new RowsView(visual(),
                     {{u"Selected"_s, u"book"_s, u"Ctrl+Alt+1"_s, selected},
                      {u"Hover"_s, u"briefcase"_s, u"Ctrl+Alt+2"_s, {false, true}},
                      {u"Rest"_s, u"music.note"_s, u"Ctrl+Alt+3"_s, {}},
                      {u"Selected, window inactive"_s,
                       u"terminal"_s,
                       u"Ctrl+Alt+4"_s,
                       {true, false, false, false}},
                      {u"Selected, keyboard focus"_s,
                       u"paintbrush"_s,
                       u"Ctrl+Alt+5"_s,
                       {true, false, true, true}},
                      {u"Drop target: inserts before"_s, u"network"_s, u"Ctrl+Alt+1"_s, {}, true}}),
        {21, 53});
}

void ComponentsPage::addActions()
{
    QWidget* card = addCard({32, 504, 1116, 240}, u"Two-line actions"_s);
    const auto addAction = [&](const QPoint& place, bool isStart, State state) {
        auto* button =
            isStart ? new ActionButton(visual(), u"play.fill"_s, u"Start Workspace"_s,
                                       u"Open everything and restore the layout"_s,
                                       ActionButton::Kind::prominent)
                    : new ActionButton(visual(), u"square.and.arrow.down"_s, u"Save Layout"_s,
                                       u"Remember current window positions"_s);
        add(card, button, place, state);
        return button;
    };
    int x = 17;
    for (const State state : {State::rest, State::hover, State::pressed, State::focus}) {
        addAction({x, 53}, false, state);
        addAction({x, 113}, true, state);
        x += 270;
    }
    addAction({17, 173}, true, State::disabled)->setBusyTexts(u"Starting…"_s, u"Cancel"_s);
    addAction({287, 173}, true, State::disabled);
}

void ComponentsPage::addFields()
{
    QWidget* card = addCard({32, 769, 716, 334}, u"Fields, pickers, toggles"_s);
    const QString name = u"Workspace name"_s;
    auto* empty = new TextField(visual(), name, name);
    auto* filled = new TextField(visual(), name);
    auto* focused = new TextField(visual(), name);
    int x = 20;
    for (TextField* field : {empty, filled, focused}) {
        add(card, field, {x, 51});
        field->resize(217, 34);
        x += 229;
    }
    filled->setText(u"Writing"_s);
    focused->setText(u"Writing"_s);
    focused->setFocus();

    x = 20;
    for (const State state : {State::rest, State::focus}) {
        auto* picker = new Picker(visual(), u"Shortcut"_s, 160);
        picker->addItem(u"Ctrl+Alt+1"_s);
        add(card, picker, {x, 102}, state);
        x += 172;
    }
    addToggles(card);

    auto* rule = new Divider(visual());
    add(card, rule, {20, 192});
    rule->resize(676, 1);
    addText(card, {20, 214}, u"Icon"_s, TextRole::body, ColorToken::labelSecondary);
    addText(card, {20, 254}, u"Accent"_s, TextRole::body, ColorToken::labelSecondary);
    auto* icons = new ChoiceRow(visual(), ChoiceRow::Look::symbol, u"Icon"_s, symbolNames());
    icons->setSelected(u"book"_s);
    add(card, icons, {100, 210});
    auto* ring = new QFocusFrame(card);
    ring->setWidget(icons->findChildren<QRadioButton*>()[2]);
    QEnterEvent enter({}, {}, {});
    QApplication::sendEvent(icons->findChildren<QRadioButton*>()[5], &enter);
    auto* swatches = new ChoiceRow(visual(), ChoiceRow::Look::swatch, u"Accent"_s,
                                   {u"blue"_s, u"indigo"_s, u"purple"_s, u"green"_s, u"orange"_s});
    swatches->setSelected(u"purple"_s);
    add(card, swatches, {101, 250});
}

void ComponentsPage::addToggles(QWidget* card)
{
    int x = 384;
    int switchX = 20;
    for (const State state : {State::rest, State::focus, State::disabled})
        for (const bool isOn : {false, true}) {
            auto* box = new QCheckBox;
            box->setChecked(isOn);
            add(card, box, {x, 109}, state);
            x += 34;
            auto* knob = new Switch(visual(), {});
            knob->setChecked(isOn);
            add(card, knob, {switchX, 152}, state);
            switchX += 56;
        }
}

void ComponentsPage::addPicture(QWidget* card, const QPoint& place, QWidget& window, int margin)
{
    auto* label = new QLabel;
    label->setPixmap(window.grab());
    add(card, label, place - QPoint(margin, margin));
}

void ComponentsPage::addMenus()
{
    QWidget* card = addCard({764, 769, 384, 334}, u"Menu and tooltip"_s);
    QMenu menu;
    menu.setMinimumWidth(228 + 48);
    menu.addAction(u"Edit Workspace"_s);
    QAction* current = menu.addAction(u"Save as New Workspace"_s);
    menu.addAction(u"Duplicate Workspace"_s);
    menu.addAction(u"Clear Saved Layout"_s)->setEnabled(false);
    menu.addSeparator();
    setDestructive(*menu.addAction(u"Delete Workspace"_s));
    openMenu(menu, {100, 100});
    menu.setActiveAction(current);
    addPicture(card, {21, 53}, menu, menuPanel(menu).x());
    menu.close();

    QMenu destructive;
    destructive.setMinimumWidth(210 + 48);
    QAction* remove = destructive.addAction(u"Delete Workspace"_s);
    setDestructive(*remove);
    openMenu(destructive, {100, 100});
    destructive.setActiveAction(remove);
    addPicture(card, {149, 217}, destructive, menuPanel(destructive).x());
    destructive.close();

    QToolTip::showText({200, 200}, u"Accessibility access is required"_s, this);
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows)
        if (window->inherits("QTipLabel"))
            addPicture(card, {20, 280}, *window, 0);
    QToolTip::hideText();
}

BannerFrame* ComponentsPage::addBanner(const QRect& place, BannerFrame::Kind kind,
                                       const QString& symbolName, ColorToken color,
                                       const QString& title, const QString& text)
{
    auto* banner = new BannerFrame(visual(), kind, this);
    banner->setGeometry(place);
    add(banner, new SymbolView(visual(), symbolName, 24, color), {16, 14});
    addText(banner, {52, 14}, title, TextRole::headline, ColorToken::labelPrimary);
    addText(banner, {52, 35}, text, TextRole::callout, ColorToken::labelSecondary);
    return banner;
}

void ComponentsPage::addBanners()
{
    auto* notice = new BannerFrame(visual(), BannerFrame::Kind::success, this);
    notice->setGeometry(32, 1128, 1116, 46);
    add(notice, new SymbolView(visual(), u"checkmark.circle.fill"_s, 20, ColorToken::successIcon),
        {12, 13});
    addText(notice, {42, 14}, u"Writing layout updated."_s, TextRole::callout,
            ColorToken::labelPrimary);
    auto* dismiss = new SymbolButton(visual(), u"xmark"_s, u"Dismiss"_s);
    dismiss->setSizes(24, 18);
    add(notice, dismiss, {1081, 11});

    addBanner({32, 1186, 1116, 67}, BannerFrame::Kind::success, u"checkmark.circle.fill"_s,
              ColorToken::successIcon, u"Workspace ready"_s,
              u"Completed 9 actions and restored 4 windows."_s);
    auto* report = addBanner({32, 1266, 1116, 67}, BannerFrame::Kind::warning,
                             u"exclamationmark.circle.fill"_s, ColorToken::warningIcon,
                             u"Workspace started with skipped items"_s,
                             u"Completed 2 actions. Review 1 skipped or failed items."_s);
    auto* details = new PushButton(visual(), u"Show Details"_s, PushButton::Kind::bordered,
                                   PushButton::Scale::small);
    add(report, details, {1116 - 17 - details->sizeHint().width(), 19});
    auto* access = addBanner({32, 1346, 1116, 108}, BannerFrame::Kind::warning,
                             u"exclamationmark.shield.fill"_s, ColorToken::warningIcon,
                             u"Window restore is paused"_s,
                             u"Workspace items will still open. Allow Accessibility access to "
                             "restore the saved layout."_s);
    int x = 52;
    for (const QString& text : {u"Request Access"_s, u"Open Settings"_s, u"Try Again"_s}) {
        auto* button =
            new PushButton(visual(), text, PushButton::Kind::bordered, PushButton::Scale::small);
        add(access, button, {x, 65});
        x += button->sizeHint().width() + 8;
    }
}

} // namespace

QWidget* makeComponentsPage(VisualStyle& visual)
{
    return new ComponentsPage(visual);
}

} // namespace trovell::gallery
