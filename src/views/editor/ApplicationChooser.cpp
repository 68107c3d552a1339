// SPDX-License-Identifier: MIT

#include "views/editor/ApplicationChooser.h"

#include "launch/ResourceSystem.h"
#include "views/shared/RowList.h"
#include "views/shared/RowModel.h"
#include "views/style/Layouts.h"
#include "views/style/PushButton.h"
#include "views/style/TextField.h"
#include "views/style/TextLabel.h"

#include <QCollator>
#include <QFutureWatcher>
#include <QKeyEvent>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QtConcurrentRun>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize boxSize(480, 560);
constexpr int chooserMargin = 24;
constexpr int listInset = 14; ///< so that the rows' texts start under the field's
constexpr int gap = 12;
constexpr int chooserButtonGap = 10;
constexpr int barPadding = 16;

constexpr RowLook rowLook{.height = 40,
                          .iconSize = 24,
                          .symbolSize = 24,
                          .nameWeight = QFont::Normal,
                          .selectedNameWeight = QFont::Normal};

/// By name as the user's language sorts; names that are equal by address.
QList<InstalledApplication> listApplications(const ResourceSystem& resources)
{
    QList<InstalledApplication> applications = resources.installedApplications();
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::ranges::sort(applications, [&collator](const auto& a, const auto& b) {
        const int order = collator.compare(a.description.name, b.description.name);
        return order != 0 ? order < 0 : a.url < b.url;
    });
    return applications;
}

QStandardItem* makeRow(const InstalledApplication& application)
{
    auto* row = new QStandardItem(application.description.name);
    row->setData(application.url.toLocalFile(), applicationRole);
    row->setData(u"app"_s, symbolRole);
    return row;
}

} // namespace

ApplicationChooser::ApplicationChooser(const EditingEnvironment& environment,
                                       const OpenPanelRequest& request, QWidget* window)
    : Sheet(environment.visual, window, {}), m_environment(environment), m_request(request),
      m_search(new TextField(environment.visual, {})), m_model(new QStandardItemModel(this)),
      m_matches(new QSortFilterProxyModel(this)), m_list(new RowList(environment, rowLook)),
      m_nothing(
          new TextLabel(environment.visual, {}, TextRole::callout, ColorToken::labelSecondary)),
      m_choose(new PushButton(environment.visual, {}, PushButton::Kind::prominent))
{
    m_matches->setSourceModel(m_model);
    m_matches->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_list->setModel(m_matches);
    m_list->setSelectionMode(request.allowsMultiple ? QAbstractItemView::ExtendedSelection
                                                    : QAbstractItemView::SingleSelection);
    setHeader(makeHeader());
    setBody(makeBody());
    setFooter(makeFooter());
    setBoxSize(boxSize);
    setInitialFocus(m_search);
    setDefaultButton(m_choose);
    m_search->installEventFilter(this);
    connect(m_search, &QLineEdit::textChanged, this, &ApplicationChooser::search);
    connect(m_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ApplicationChooser::showState);
    connect(m_list, &QAbstractItemView::doubleClicked, m_choose, &QAbstractButton::click);
    connect(m_choose, &QAbstractButton::clicked, this, [this] { choose(selectedURLs()); });
    environment.words.render(this, [this] { showTitle(); });
    showState();
    loadApplications();
}

QWidget* ApplicationChooser::makeHeader()
{
    auto* header = new QWidget;
    auto* title = new TextLabel(visual(), {}, TextRole::title2);
    connect(this, &QWidget::windowTitleChanged, title, &QLabel::setText);
    new ColumnLayout(header, {chooserMargin, chooserMargin - 4, chooserMargin, barPadding}, gap,
                     {title, m_search});
    return header;
}

QWidget* ApplicationChooser::makeBody()
{
    auto* body = new QWidget;
    m_nothing->setWordWrap(true);
    m_nothing->setAlignment(Qt::AlignCenter);
    new ColumnLayout(body, {listInset, gap / 2, listInset, gap / 2}, 0,
                     {{m_nothing, 1}, {m_list, 1}});
    return body;
}

QWidget* ApplicationChooser::makeFooter()
{
    auto* footer = new QWidget;
    auto* other = new PushButton(visual(), {});
    auto* cancelButton = new PushButton(visual(), {});
    m_environment.words.renderText(other, u"Other…"_key);
    m_environment.words.renderText(cancelButton, u"Cancel"_key);
    new RowLayout(footer, {chooserMargin, barPadding, chooserMargin, barPadding}, chooserButtonGap,
                  {other, Stretch{}, cancelButton, m_choose});
    connect(cancelButton, &QAbstractButton::clicked, this, &Sheet::cancel);
    connect(other, &QAbstractButton::clicked, this, [this] {
        openFilePanel(m_environment.words, m_request, this,
                      [this](const QList<QUrl>& urls) { choose(urls); });
    });
    return footer;
}

void ApplicationChooser::showTitle()
{
    const Localization& words = m_environment.words;
    const QString title = panelTitle(words, m_request);
    setWindowTitle(title);
    setAccessibleName(title);
    m_search->setPlaceholderText(words.text(u"Search applications"_key));
    m_search->setAccessibleName(words.text(u"Search applications"_key));
    m_list->setAccessibleName(words.text(u"Applications"_key));
    m_nothing->setText(words.text(u"No applications found"_key));
    m_choose->setText(m_request.allowsMultiple ? words.text(u"Add"_key)
                                               : words.text(u"Choose"_key));
}

void ApplicationChooser::loadApplications()
{
    using Applications = QList<InstalledApplication>;
    auto* watcher = new QFutureWatcher<Applications>(this);
    connect(watcher, &QFutureWatcher<Applications>::finished, this, [this, watcher] {
        watcher->deleteLater();
        m_isLoaded = true;
        for (const InstalledApplication& application : watcher->result())
            m_model->appendRow(makeRow(application));
        search(m_search->text());
    });
    watcher->setFuture(QtConcurrent::run(&listApplications, std::cref(m_environment.resources)));
}

/// The first match is selected, so that typing and Return is enough.
void ApplicationChooser::search(const QString& text)
{
    m_matches->setFilterFixedString(text.trimmed());
    if (!text.trimmed().isEmpty())
        selectFirst();
    showState();
}

/// Unless something is selected already.
void ApplicationChooser::selectFirst()
{
    if (!m_list->selectionModel()->hasSelection())
        m_list->setCurrentIndex(m_matches->index(0, 0));
}

QList<QUrl> ApplicationChooser::selectedURLs() const
{
    QModelIndexList rows = m_list->selectionModel()->selectedIndexes();
    std::sort(rows.begin(), rows.end());
    QList<QUrl> urls;
    for (const QModelIndex& row : std::as_const(rows))
        urls.append(QUrl::fromLocalFile(row.data(applicationRole).toString()));
    return urls;
}

void ApplicationChooser::showState()
{
    m_choose->setEnabled(m_list->selectionModel()->hasSelection());
    const bool isNothingFound = m_isLoaded && m_matches->rowCount() == 0;
    m_nothing->setVisible(isNothingFound);
    m_list->setVisible(!isNothingFound);
}

void ApplicationChooser::choose(const QList<QUrl>& urls)
{
    Q_EMIT chosen(urls);
    accept();
}

/// The arrow keys lead from the field into the list.
bool ApplicationChooser::eventFilter(QObject* watched, QEvent* event)
{
    const bool isDown = watched == m_search && event->type() == QEvent::KeyPress &&
                        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down;
    if (!isDown)
        return Sheet::eventFilter(watched, event);
    m_list->setFocus(Qt::TabFocusReason);
    selectFirst();
    return true;
}

void openApplicationChooser(const EditingEnvironment& environment, const OpenPanelRequest& request,
                            QWidget* over, const ChosenURLs& chosen)
{
    auto* chooser = new ApplicationChooser(environment, request, over);
    QObject::connect(chooser, &ApplicationChooser::chosen, over, chosen);
    chooser->open();
}

} // namespace trovell
