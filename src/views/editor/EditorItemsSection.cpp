// SPDX-License-Identifier: MIT

#include "views/editor/EditorItemsSection.h"

#include "launch/ResourceSystem.h"
#include "views/editor/AddWebLinkView.h"
#include "views/editor/ItemOptionsView.h"
#include "views/style/Layouts.h"
#include "views/style/PushButton.h"
#include "views/style/TextLabel.h"
#include "views/style/TrovellCardModifier.h"

#include <QFutureWatcher>
#include <QMenu>
#include <QtConcurrentRun>

namespace trovell {

namespace {

constexpr int captionGap = 2;
constexpr int cardGap = 10;

} // namespace

EditorItemsSection::EditorItemsSection(const EditingEnvironment& environment,
                                       const QList<EditableWorkspaceItem>& items,
                                       OpenPanel openPanel, QWidget* parent)
    : QWidget(parent), m_environment(environment), m_openPanel(std::move(openPanel)),
      m_addButton(new PushButton(environment.visual, {}, PushButton::Kind::bordered,
                                 PushButton::Scale::small, this)),
      m_card(new TrovellCardModifier(environment.visual)),
      m_list(new EditorItemList(environment, items, m_addButton, this))
{
    auto* caption =
        new TextLabel(environment.visual, {}, TextRole::caption, ColorToken::labelSecondary);
    caption->setWordWrap(true);
    environment.words.renderText(caption, u"Add the resources that should open together."_key);
    m_card->setPadding(0);
    new ColumnLayout(m_card, 0, {m_list});

    new ColumnLayout(this, 0, {makeHeader(), Gap{captionGap}, caption, Gap{cardGap}, m_card});
    showCard();
    connect(m_list, &EditorItemList::countChanged, this, &EditorItemsSection::showCard);
    connect(m_list, &EditorItemList::locateAgainRequested, this, &EditorItemsSection::locateAgain);
    connect(m_list, &EditorItemList::optionsRequested, this, &EditorItemsSection::editOptions);
}

QWidget* EditorItemsSection::makeHeader()
{
    auto* header = new QWidget;
    auto* heading = new TextLabel(m_environment.visual, {}, TextRole::headline);
    m_environment.words.render(m_list, [this, heading, &words = m_environment.words] {
        heading->setText(words.text(u"Items"_key));
        m_list->setAccessibleName(heading->text());
    });
    m_environment.words.renderText(m_addButton, u"Add Item"_key);
    m_addButton->setMenu(makeAddMenu(), Qt::AlignRight);
    new RowLayout(header, 6, {{heading, 1}, m_addButton});
    return header;
}

QMenu* EditorItemsSection::makeAddMenu()
{
    auto* menu = new QMenu(this);
    const std::pair<TextKey<>, WorkspaceItemType> kinds[] = {
        {u"Application…"_key, WorkspaceItemType::application},
        {u"Folder…"_key, WorkspaceItemType::folder},
        {u"File…"_key, WorkspaceItemType::file}};
    for (const auto& [key, type] : kinds) {
        QAction* const action = menu->addAction(QString());
        m_environment.words.renderText(action, key);
        connect(action, &QAction::triggered, this, [this, kind = type] { addFromPanel(kind); });
    }
    QAction* const webLink = menu->addAction(QString());
    m_environment.words.renderText(webLink, u"Web Link…"_key);
    connect(webLink, &QAction::triggered, this, &EditorItemsSection::addWebLink);
    return menu;
}

void EditorItemsSection::showCard()
{
    m_card->setVisible(!items().isEmpty());
}

void EditorItemsSection::addFromPanel(WorkspaceItemType type)
{
    m_openPanel({.type = type, .allowsMultiple = true}, this,
                [this, type](const QList<QUrl>& urls) {
                    look(urls, type, [this](const auto& added) { m_list->append(added); });
                });
}

void EditorItemsSection::addWebLink()
{
    auto* sheet = new AddWebLinkView(m_environment, m_webLinkText, this);
    connect(sheet, &AddWebLinkView::textChanged, this,
            [this](const QString& text) { m_webLinkText = text; });
    connect(sheet, &AddWebLinkView::added, this, [this](const QUrl& url) {
        m_webLinkText.clear();
        m_list->append({editableItem(url, WorkspaceItemType::webLink, m_environment.resources)});
    });
    sheet->open();
}

void EditorItemsSection::locateAgain(const QUuid& id)
{
    const EditableWorkspaceItem* const lost = m_list->item(id);
    if (!lost)
        return;
    const WorkspaceItemType type = lost->type;
    const auto replace = [this, id](const QList<EditableWorkspaceItem>& found) {
        // It may have been removed or switched meanwhile.
        const EditableWorkspaceItem* const old = m_list->item(id);
        if (!old || found.isEmpty())
            return;
        EditableWorkspaceItem item = found.first();
        item.id = id;
        item.isEnabled = old->isEnabled;
        item.arguments = old->arguments;
        item.workingFolder = old->workingFolder;
        item.openWith = old->openWith;
        m_list->replace(item);
    };
    m_openPanel({.type = type}, this, [this, type, replace](const QList<QUrl>& urls) {
        look(urls.mid(0, 1), type, replace);
    });
}

void EditorItemsSection::editOptions(const QUuid& id)
{
    const EditableWorkspaceItem* const item = m_list->item(id);
    if (!item)
        return;
    auto* sheet = new ItemOptionsView(m_environment, *item, m_openPanel, this);
    connect(sheet, &ItemOptionsView::confirmed, m_list, &EditorItemList::replace);
    sheet->open();
}

void EditorItemsSection::look(const QList<QUrl>& urls, WorkspaceItemType type, const Use& use)
{
    using Items = QList<EditableWorkspaceItem>;
    auto* watcher = new QFutureWatcher<Items>(this);
    connect(watcher, &QFutureWatcher<Items>::finished, this, [this, watcher, use] {
        watcher->deleteLater();
        use(watcher->result());
        m_pendingCount -= 1;
        if (m_pendingCount == 0)
            Q_EMIT addingFinished();
    });
    m_pendingCount += 1;
    watcher->setFuture(
        QtConcurrent::run(&editableItems, urls, type, std::cref(m_environment.resources)));
}

} // namespace trovell
