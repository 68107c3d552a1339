// SPDX-License-Identifier: MIT

#include "views/editor/ItemOptionsView.h"

#include "launch/ResourceSystem.h"
#include "views/shared/SheetParts.h"
#include "views/shared/WorkspaceAlert.h"
#include "views/style/Layouts.h"
#include "views/style/PushButton.h"
#include "views/style/TextField.h"
#include "views/style/TextLabel.h"

#include <QDir>
#include <QtConcurrentRun>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int optionsWidth = 460;
constexpr int optionsMargin = 24;
constexpr int optionsGap = 16;
constexpr int optionsButtonGap = 10;
constexpr int labelToField = 4;

std::optional<QString> trimmedText(const TextField& field)
{
    const QString text = field.text().trimmed();
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

/// As a person writes it, with "~" for the home folder.
std::optional<QString> folderPath(const TextField& field)
{
    std::optional<QString> path = trimmedText(field);
    if (path == u"~"_s || (path && path->startsWith(u"~/"_s)))
        path->replace(0, 1, QDir::homePath());
    return path;
}

} // namespace

ItemOptionsView::ItemOptionsView(const EditingEnvironment& environment,
                                 const EditableWorkspaceItem& item, OpenPanel openPanel,
                                 QWidget* window)
    : Sheet(environment.visual, window, {}), m_environment(environment),
      m_openPanel(std::move(openPanel)), m_item(item),
      m_done(new PushButton(environment.visual, {}, PushButton::Kind::prominent))
{
    setBody(makeForm());
    setBoxWidth(optionsWidth);
    setInitialFocus(m_arguments ? static_cast<QWidget*>(m_arguments) : m_done);
    setDefaultButton(m_done);
    environment.words.renderText(m_done, u"Done"_key);
    connect(m_done, &QAbstractButton::clicked, this, &ItemOptionsView::confirm);
    environment.words.render(this, [this] {
        setTitle(*this, m_environment.words.text(phrases::optionsOf, m_item.displayName));
        showOpenWith();
    });
    const auto url =
        m_item.openWith ? environment.resources.applicationURL(*m_item.openWith) : std::nullopt;
    if (url)
        describe(*url, false);
}

QWidget* ItemOptionsView::makeForm()
{
    auto* form = new QWidget;
    auto* title = new TextLabel(visual(), {}, TextRole::title2);
    title->setWordWrap(true);
    connect(this, &QWidget::windowTitleChanged, title, &QLabel::setText);
    auto* buttons = new RowLayout(optionsButtonGap,
                                  {Stretch{}, makeCancelButton(m_environment, *this), m_done});
    const bool isApplication = m_item.type == WorkspaceItemType::application;
    new ColumnLayout(form, allAround(optionsMargin), optionsGap,
                     {title, isApplication ? makeApplicationFields() : makeOpenWith(), buttons});
    return form;
}

QWidget* ItemOptionsView::makeApplicationFields()
{
    auto* fields = new QWidget;
    const auto makeLabel = [this](TextKey<> text) {
        auto* label = new TextLabel(visual(), {}, TextRole::callout, ColorToken::labelSecondary);
        m_environment.words.renderText(label, text);
        return label;
    };
    m_arguments = makeField(u"Arguments"_key, m_item.arguments);
    m_workingFolder = makeField(u"Working Folder"_key, m_item.workingFolder);
    auto* folder = new RowLayout(
        optionsButtonGap,
        {{m_workingFolder, 1}, makeButton(u"Choose…"_key, &ItemOptionsView::chooseFolder)});
    new ColumnLayout(fields, labelToField,
                     {makeLabel(u"Arguments"_key), m_arguments, Gap{optionsButtonGap},
                      makeLabel(u"Working Folder"_key), folder});
    return fields;
}

QWidget* ItemOptionsView::makeOpenWith()
{
    auto* openWith = new QWidget;
    m_openWith = new TextLabel(visual(), {});
    m_openWith->setWordWrap(true);
    auto* buttons =
        new RowLayout(optionsButtonGap,
                      {makeButton(u"Choose…"_key, &ItemOptionsView::chooseApplication),
                       makeButton(u"Use Default"_key, &ItemOptionsView::useDefault), Stretch{}});
    new ColumnLayout(openWith, optionsButtonGap, {m_openWith, buttons});
    return openWith;
}

TextField* ItemOptionsView::makeField(TextKey<> name, const std::optional<QString>& text)
{
    auto* field = new TextField(visual(), {});
    field->setText(text.value_or(QString()));
    m_environment.words.render(
        field, [this, field, name] { field->setAccessibleName(m_environment.words.text(name)); });
    return field;
}

PushButton* ItemOptionsView::makeButton(TextKey<> text, void (ItemOptionsView::*act)())
{
    auto* button = new PushButton(visual(), {});
    m_environment.words.renderText(button, text);
    connect(button, &QAbstractButton::clicked, this, act);
    return button;
}

void ItemOptionsView::chooseFolder()
{
    m_openPanel({.type = WorkspaceItemType::folder, .title = u"Working Folder"_key}, this,
                [this](const QList<QUrl>& urls) {
                    if (!urls.isEmpty())
                        m_workingFolder->setText(urls.first().toLocalFile());
                });
}

void ItemOptionsView::chooseApplication()
{
    m_openPanel({.type = WorkspaceItemType::application, .title = u"Open With"_key}, this,
                [this](const QList<QUrl>& urls) {
                    if (!urls.isEmpty())
                        describe(urls.first(), true);
                });
}

void ItemOptionsView::useDefault()
{
    m_item.openWith.reset();
    showOpenWith();
}

void ItemOptionsView::describe(const QUrl& url, bool isChosen)
{
    // What was chosen a moment ago is not to be lost.
    m_done->setEnabled(!isChosen);
    const auto read = [&resources = m_environment.resources, url] {
        return resources.describeApplication(url);
    };
    const auto use = [this, isChosen](const std::optional<ApplicationDescription>& found) {
        m_done->setEnabled(true);
        if (!found || (!isChosen && m_item.openWith != found->bundleIdentifier))
            return;
        m_item.openWith = found->bundleIdentifier;
        m_openWithName = found->name;
        showOpenWith();
    };
    QtConcurrent::run(read).then(this, use);
}

void ItemOptionsView::showOpenWith()
{
    if (!m_openWith)
        return;
    const Localization& words = m_environment.words;
    const QString& name =
        m_openWithName.isEmpty() ? m_item.openWith.value_or(QString()) : m_openWithName;
    m_openWith->setText(m_item.openWith ? words.text(phrases::opensWith, name)
                                        : words.text(u"Opens with the default application"_key));
}

void ItemOptionsView::confirm()
{
    if (m_arguments) {
        m_item.arguments = trimmedText(*m_arguments);
        m_item.workingFolder = folderPath(*m_workingFolder);
        if (m_item.workingFolder && QDir::isRelativePath(*m_item.workingFolder)) {
            showWorkspaceAlert(m_environment, this, u"Enter the whole path of a folder."_key);
            return;
        }
    }
    const QPointer<ItemOptionsView> self(this);
    Q_EMIT confirmed(m_item);
    if (self)
        accept();
}

} // namespace trovell
