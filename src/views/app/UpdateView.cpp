// SPDX-License-Identifier: MIT

#include "views/app/UpdateView.h"

#include "views/app/NotesArea.h"
#include "views/app/UpdateTexts.h"
#include "views/style/Accessibility.h"
#include "views/style/Layouts.h"
#include "views/style/ProgressRing.h"
#include "views/style/PushButton.h"
#include "views/style/TextLabel.h"
#include "views/style/TrovellBrandMark.h"
#include "views/style/TrovellCardModifier.h"

#include <QKeyEvent>
#include <QProgressBar>

namespace trovell {

namespace {

constexpr int windowWidth = 480;
constexpr int updateMargin = 24;
constexpr int updateGap = 20;
constexpr int headingGap = 16;
constexpr int updateTextGap = 4;
constexpr int buttonGap = 10;
constexpr int markSize = 48;
constexpr int progressBarHeight = 6;

using Phase = UpdateState::Phase;

} // namespace

UpdateView::UpdateView(const ViewEnvironment& environment, Updater& updater, QWidget* parent)
    : QWidget(parent), m_environment(environment), m_updater(updater),
      m_title(new TextLabel(environment.visual, {}, TextRole::title3)),
      m_text(new TextLabel(environment.visual, {}, TextRole::body, ColorToken::labelSecondary)),
      m_notesCard(new TrovellCardModifier(environment.visual)),
      m_notes(new NotesArea(environment.visual)), m_ring(new ProgressRing(environment.visual, {})),
      m_bar(new QProgressBar), m_close(new PushButton(environment.visual, {})),
      m_next(new PushButton(environment.visual, {}, PushButton::Kind::prominent))
{
    build();
    environment.words.render(this, [this] {
        const Localization& words = m_environment.words;
        setWindowTitle(words.text(u"Software Update"_key));
        m_notes->setAccessibleName(words.text(u"What is new"_key));
        showState(m_updater.state());
    });
    connect(&updater, &Updater::stateChanged, this, &UpdateView::showState);
    connect(m_close, &QAbstractButton::clicked, this, [this] { window()->close(); });
    connect(m_next, &QAbstractButton::clicked, this, &UpdateView::takeNextStep);
}

void UpdateView::build()
{
    new ColumnLayout(this, allAround(updateMargin), updateGap,
                     {buildHeading(), buildNotes(), m_bar, buildButtons()});
    m_bar->setRange(0, 100);
    m_bar->setTextVisible(false);
    m_bar->setFixedHeight(progressBarHeight);
    fit();
}

QLayout* UpdateView::buildHeading()
{
    m_title->setWeight(QFont::DemiBold);
    m_title->setWordWrap(true);
    m_text->setWordWrap(true);
    auto* texts = new ColumnLayout(updateTextGap, {Stretch{}, m_title, m_text, Stretch{}});
    return new RowLayout(headingGap,
                         {{new TrovellBrandMark(m_environment.visual, markSize), 0, Qt::AlignTop},
                          {texts, 1},
                          {m_ring, 0, Qt::AlignVCenter}});
}

QWidget* UpdateView::buildNotes()
{
    m_notesCard->setPadding(1);
    new ColumnLayout(m_notesCard, 0, {m_notes});
    return m_notesCard;
}

QLayout* UpdateView::buildButtons()
{
    return new RowLayout(buttonGap, {Stretch{}, m_close, m_next});
}

void UpdateView::showState(const UpdateState& state)
{
    if (state.phase == Phase::idle || m_isEnding)
        return;
    showTexts(state);
    showProgress(state);
    const QString title = m_title->text();
    if (std::exchange(m_announced, title) != title)
        enterPhase();
}

void UpdateView::showTexts(const UpdateState& state)
{
    const UpdateTexts texts = updateTexts(state, m_environment.words);
    m_title->setText(texts.title);
    m_text->setText(texts.text);
    m_text->setVisible(!texts.text.isEmpty());
    m_close->setText(texts.close);
    m_close->setVisible(!texts.close.isEmpty());
    m_next->setText(texts.next);
    m_next->setVisible(!texts.next.isEmpty());
}

void UpdateView::showProgress(const UpdateState& state)
{
    m_notesCard->setVisible(state.phase == Phase::available && !state.update.notes.isEmpty());
    if (state.phase == Phase::available)
        m_notes->setText(state.update.notes);
    m_ring->setVisible(state.phase == Phase::checking || state.phase == Phase::verifying);
    m_ring->setAccessibleName(m_title->text());
    m_bar->setVisible(state.phase == Phase::downloading);
    m_bar->setAccessibleName(m_title->text());
    m_bar->setValue(static_cast<int>(state.progress * m_bar->maximum()));
}

void UpdateView::enterPhase()
{
    PushButton* button = m_next->isHidden() ? m_close : m_next;
    button->setFocus(Qt::TabFocusReason);
    if (isVisible())
        announce(*m_title, m_title->text() + u' ' + m_text->text());
}

void UpdateView::takeNextStep()
{
    const UpdateState& state = m_updater.state();
    if (state.phase == Phase::available)
        m_updater.download();
    else if (state.phase == Phase::ready && !state.isHandedOver)
        m_updater.install();
    else if (state.phase == Phase::failed)
        m_updater.check();
    else
        window()->close();
}

void UpdateView::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape)
        window()->close();
    else if (isReturn && m_next->isVisible())
        m_next->click();
    else
        QWidget::keyPressEvent(event);
}

void UpdateView::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    // Put away by the window manager, it goes on.
    if (event->spontaneous())
        return;
    // That the user ended it is no failure to be told.
    m_isEnding = true;
    m_updater.cancel();
    m_updater.dismiss();
    m_isEnding = false;
}

bool UpdateView::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest)
        fit();
    return QWidget::event(event);
}

void UpdateView::fit()
{
    setFixedSize(windowWidth, layout()->totalHeightForWidth(windowWidth));
    if (!isWindow())
        window()->setFixedSize(size());
}

} // namespace trovell
