// SPDX-License-Identifier: MIT

#include "views/editor/EditorCaptureReviewView.h"

#include "views/capture/RetainedPlacementsSection.h"
#include "views/editor/ReviewApplicationCard.h"
#include "views/shared/GradualColumn.h"
#include "views/shared/SheetParts.h"
#include "views/style/Layouts.h"
#include "views/style/PushButton.h"
#include "views/style/TextLabel.h"

namespace trovell {

namespace {

constexpr QSize reviewBoxSize(640, 600);
constexpr int padding = 24;
constexpr int headerMargin = 20;

} // namespace

EditorCaptureReviewView::EditorCaptureReviewView(const ViewEnvironment& environment,
                                                 QList<CapturedApplication>& applications,
                                                 QList<RetainedPlacementDraft>& retainedPlacements,
                                                 QWidget* window)
    : Sheet(environment.visual, window, {}), m_environment(environment),
      m_applications(applications), m_retainedPlacements(retainedPlacements)
{
    setHeader(makeHeader());
    setBody(makeBody());
    setFooter(makeFooter());
    setBoxSize(reviewBoxSize);
    setDefaultButton(m_useButton);
    environment.words.render(this, [this] {
        setTitle(*this, m_environment.words.text(u"Review Captured Windows"_key));
        showSelectedCount();
    });
}

QWidget* EditorCaptureReviewView::makeHeader()
{
    const VisualStyle& visual = m_environment.visual;
    const Localization& words = m_environment.words;
    auto* header = new QWidget;
    auto* title = new TextLabel(visual, {}, TextRole::title2);
    words.renderText(title, u"Review Captured Windows"_key);
    auto* text = new TextLabel(visual, {}, TextRole::body, ColorToken::labelSecondary);
    words.renderText(text,
                     u"Choose the ordinary windows Trovell should restore for this workspace."_key);
    auto* column = new ColumnLayout(header, {padding, headerMargin, padding, headerMargin - 2}, 0);
    for (TextLabel* label : {title, text}) {
        label->setWordWrap(true);
        column->addWidget(label);
    }
    return header;
}

QWidget* EditorCaptureReviewView::makeBody()
{
    auto* body = new QWidget;
    const auto makeCard = [this](qsizetype index) {
        auto* card = new ReviewApplicationCard(m_environment, m_applications, index);
        connect(card, &ReviewApplicationCard::changed, this,
                &EditorCaptureReviewView::showSelectedCount);
        return card;
    };
    auto* column = new ColumnLayout(body, allAround(padding), padding,
                                    {new GradualColumn(m_applications.size(), makeCard)});
    if (!m_retainedPlacements.isEmpty()) {
        auto* retained = new RetainedPlacementsSection(m_environment, m_retainedPlacements);
        connect(retained, &RetainedPlacementsSection::changed, this,
                &EditorCaptureReviewView::showSelectedCount);
        column->addWidget(retained);
    }
    column->addStretch();
    return body;
}

QWidget* EditorCaptureReviewView::makeFooter()
{
    const VisualStyle& visual = m_environment.visual;
    m_selectedCount = new TextLabel(visual, {}, TextRole::body, ColorToken::labelSecondary);
    m_useButton = new PushButton(visual, {}, PushButton::Kind::prominent);
    m_environment.words.renderText(m_useButton, u"Use Selected Windows"_key);
    connect(m_useButton, &QAbstractButton::clicked, this, &EditorCaptureReviewView::useSelection);
    return makeSheetFooter(m_environment, *this, m_selectedCount, m_useButton);
}

void EditorCaptureReviewView::showSelectedCount()
{
    const qsizetype count = includedWindows(m_applications).size();
    const Localization& words = m_environment.words;
    m_selectedCount->setText(m_retainedPlacements.isEmpty()
                                 ? words.text(phrases::windowsSelected, count)
                                 : words.text(phrases::windowsSelectedAndPositionsKept, count,
                                              keptPlacementIDs(m_retainedPlacements).size()));
    m_useButton->setEnabled(count > 0);
}

void EditorCaptureReviewView::useSelection()
{
    const QPointer<EditorCaptureReviewView> self(this);
    Q_EMIT useSelectedWindows();
    if (self)
        accept();
}

} // namespace trovell
