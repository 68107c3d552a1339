// SPDX-License-Identifier: MIT

#include "views/editor/EditorLayoutSection.h"

#include "model/TrovellWorkspace.h"
#include "views/editor/EditorCaptureReviewView.h"
#include "views/style/Divider.h"
#include "views/style/Layouts.h"
#include "views/style/PushButton.h"
#include "views/style/SymbolView.h"
#include "views/style/TextLabel.h"
#include "windows/AccessibilityPermissionManager.h"
#include "windows/WindowCaptureService.h"

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int layoutButtonGap = 10;
constexpr int statusGap = 16;
constexpr int blockGap = 12;
constexpr int lockSize = 20;
constexpr int lockGap = 8;

} // namespace

EditorLayoutSection::EditorLayoutSection(const EditingEnvironment& environment,
                                         TrovellWorkspace* workspaceOrNull,
                                         const QList<EditablePlacement>& placements,
                                         QWidget* parent)
    : QWidget(parent), m_environment(environment), m_workspace(workspaceOrNull),
      m_capture(new PushButton(environment.visual, {})),
      m_clear(new PushButton(environment.visual, {}, PushButton::Kind::destructiveText)),
      m_status(new TextLabel(environment.visual, {}, TextRole::body, ColorToken::labelSecondary)),
      m_savedWindows(new SavedWindowsList(environment, placements)), m_notice(makeNotice())
{
    new ColumnLayout(this, 0, {makeActions(), m_notice, m_savedWindows});
    connect(m_capture, &QAbstractButton::clicked, this, &EditorLayoutSection::captureIfTrusted);
    connect(m_clear, &QAbstractButton::clicked, this, &EditorLayoutSection::clear);
    connect(&environment.accessibility, &AccessibilityPermissionManager::isTrustedChanged, this,
            &EditorLayoutSection::showState);
    environment.words.renderText(m_capture, u"Capture Current Layout"_key);
    environment.words.renderText(m_clear, u"Clear"_key);
    environment.words.render(this, [this] { showState(); });
}

QWidget* EditorLayoutSection::makeActions()
{
    auto* actions = new QWidget;
    m_status->setWordWrap(true);
    m_status->setAlignment(Qt::AlignRight);
    new RowLayout(actions, 0,
                  {m_capture, Gap{layoutButtonGap}, m_clear, Gap{statusGap}, {m_status, 1}});
    return actions;
}

QWidget* EditorLayoutSection::makeNotice()
{
    auto* notice = new QWidget;
    auto* text =
        new TextLabel(m_environment.visual, {}, TextRole::callout, ColorToken::labelSecondary);
    text->setWordWrap(true);
    m_environment.words.renderText(text,
                                   u"Accessibility access is required to capture windows."_key);
    auto* settings = new PushButton(m_environment.visual, {}, PushButton::Kind::bordered,
                                    PushButton::Scale::small);
    m_environment.words.renderText(settings, u"Open Settings"_key);
    connect(settings, &QAbstractButton::clicked, this,
            [this] { m_environment.accessibility.openSystemSettings(); });
    auto* row = new RowLayout(lockGap, {new SymbolView(m_environment.visual, u"lock"_s, lockSize,
                                                       ColorToken::warningIcon),
                                        {text, 1},
                                        settings});
    new ColumnLayout(notice, {0, blockGap, 0, 0}, blockGap,
                     {new Divider(m_environment.visual), row});
    return notice;
}

QCoro::Task<> EditorLayoutSection::captureIfTrusted()
{
    const QPointer<EditorLayoutSection> self(this);
    const bool isTrusted = co_await m_environment.accessibility.refresh();
    if (!self)
        co_return;
    if (isTrusted)
        capture();
    else
        Q_EMIT failed(
            u"Accessibility access is required to capture windows. If Trovell is already enabled in System Settings, remove the old entry and request access again."_key);
}

QCoro::Task<> EditorLayoutSection::capture()
{
    const QPointer<EditorLayoutSection> self(this);
    m_capture->setEnabled(false);
    const auto reading = m_environment.windowCapture.captureApplications(std::nullopt, false);
    const WindowCaptureService::Capture captured = co_await reading;
    if (!self)
        co_return;
    m_capture->setEnabled(true);
    // The editor may have been closed meanwhile and be about to be deleted.
    if (!isVisible())
        co_return;
    if (!captured) {
        Q_EMIT failed(description(captured.error()));
        co_return;
    }
    // Whoever cleared the layout has said that none of it stays.
    const auto retained = buildRetainedPlacements(
        CapturePurpose::update, m_isCleared ? nullptr : m_workspace.data(), *captured);
    if (!retained) {
        Q_EMIT failed(description(retained.error()));
        co_return;
    }
    m_capturedApplications = *captured;
    m_retainedPlacements = *retained;
    showState();
    review();
}

void EditorLayoutSection::review()
{
    auto* sheet = new EditorCaptureReviewView(m_environment, m_capturedApplications,
                                              m_retainedPlacements, this);
    connect(sheet, &EditorCaptureReviewView::useSelectedWindows, this,
            [this] { setChange(LayoutChange::replaceLayout); });
    // Windows that were switched count even where the choice was not confirmed this time.
    connect(sheet, &QDialog::finished, this, &EditorLayoutSection::showState);
    sheet->open();
}

void EditorLayoutSection::clear()
{
    m_capturedApplications.clear();
    m_isCleared = true;
    // The button hides under the focus.
    if (m_clear->hasFocus())
        m_capture->setFocus(Qt::TabFocusReason);
    setChange(LayoutChange::clearLayout);
}

void EditorLayoutSection::setChange(LayoutChange change)
{
    m_change = change;
    showState();
}

void EditorLayoutSection::showState()
{
    const bool isTrusted = m_environment.accessibility.isTrusted();
    const Localization& words = m_environment.words;
    const QString help = isTrusted ? words.text(u"Review currently open app windows"_key)
                                   : words.text(u"Accessibility access is required"_key);
    m_capture->setToolTip(help);
    m_capture->setAccessibleDescription(help);
    m_notice->setVisible(!isTrusted);
    m_status->setText(status());
    const bool hasPlacements = m_workspace && m_workspace->placementCount() > 0;
    m_savedWindows->setVisible(m_change == LayoutChange::none && !m_savedWindows->isEmpty());
    m_clear->setVisible(m_change == LayoutChange::replaceLayout ||
                        (m_change == LayoutChange::none && hasPlacements));
}

QString EditorLayoutSection::status() const
{
    const Localization& words = m_environment.words;
    if (m_change == LayoutChange::clearLayout)
        return words.text(u"The saved layout will be removed."_key);
    if (m_change == LayoutChange::replaceLayout)
        return words.text(phrases::newlyCapturedWindows,
                          includedWindows(m_capturedApplications).size());
    const qint64 saved = m_workspace ? m_workspace->placementCount() : 0;
    return saved > 0 ? words.text(phrases::savedWindows, saved)
                     : words.text(u"No window layout has been captured."_key);
}

} // namespace trovell
